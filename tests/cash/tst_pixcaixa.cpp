#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "cash/ApoioCaixa.h"
#include "cash/ApoioContas.h"
#include "cash/ContaReceber.h"
#include "cash/RegistraValorSaida.h"
#include "data/Sessao.h"
#include "documents/ApoioDocumentos.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/ModeloPesquisa.h"
#include "ui/RegistroTelas.h"

// PIX at the till and at the receivables' payment, through the controls' names and the
// dialog seam. The payloads are the ones worked outside the code (same key, name and city).
class TstPixCaixa : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QWidget* tela = nullptr;

    static inline const QString Pix150os57 = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br5204000053039865406150.005802BR"
        "5922Eletronica Conserta Ja6008Sao Jose620605025763045D1C");
    static inline const QString Pix140os57 = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br5204000053039865406140.005802BR"
        "5922Eletronica Conserta Ja6008Sao Jose620605025763044EE0");
    static inline const QString Pix80os4711 = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br520400005303986540580.005802BR"
        "5922Eletronica Conserta Ja6008Sao Jose62080504471163043F2E");
    static inline const QString Pix50os4711 = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br520400005303986540550.005802BR"
        "5922Eletronica Conserta Ja6008Sao Jose6208050447116304408B");

    template <typename T = QWidget>
    T* w(const QString& nome) const
    {
        auto* x = tela->findChild<T*>(nome);
        if (!x)
            qFatal("no control %s", qPrintable(nome));
        return x;
    }
    QPushButton* botao(int i) const { return w<QPushButton>(QStringLiteral("Botao(%1)").arg(i)); }
    bool painelVisivel() const { return w<QGroupBox>("PainelPix")->isVisibleTo(tela); }

    void pixDaLoja(bool ligado)
    {
        Sessao& s = sessao();
        s.CfgPixAtivo = ligado ? "True" : "False";
        s.CfgPixChave = "loja@consertaja.com.br";
        s.CfgPixNome = "Eletrônica Conserta Já";
        s.CfgPixCidade = "São José";
    }
    void digita(QLineEdit* le, const QString& t)
    {
        le->setFocus();
        le->selectAll();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, le, Qt::Key_unknown, QString(c), Qt::NoModifier);
        emit le->editingFinished();
    }
    void escolheForma(const QString& f)
    {
        auto* cb = w<QComboBox>("CForma");
        const int i = cb->findText(f);
        QVERIFY(i >= 0);
        cb->setCurrentIndex(i);
        emit cb->textActivated(f);
    }

    // Order 57 of ANA at the till with `maoObra` to pay.
    bool caixa(Motor m, qint64 maoObra)
    {
        b = ambienteDeTela(m);
        if (!b->pronto())
            return false;
        ApoioCaixa::sessaoDoCaixa();
        ApoioCaixa::OrdemTeste o;
        o.maoObra = maoObra;
        const qint64 chave = ApoioCaixa::inserirOrdem(b->banco(), o);
        tela = RegistroTelas::abrir("RegistraValorSaida");
        const QVariantMap dados{{"CodOsAut", chave}};
        QMetaObject::invokeMethod(tela, "abreOrdem", Q_ARG(QVariantMap, dados));
        return tela != nullptr;
    }

private slots:
    void init() { pixDaLoja(true); }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        tela = nullptr;
        b.reset();
        pixDaLoja(false);
    }

    // The till: PIX is listed only while the shop has it on; choosing it shows the charge
    // of what is owed, a discount changes it, and nothing is written until the cashier
    // says the money arrived.
    void caixaComPix_data() { linhasMotores(); }
    void caixaComPix()
    {
        QFETCH(int, motor);
        pixDaLoja(false);
        QVERIFY(caixa(Motor(motor), 15000) || !b->pronto());
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        QCOMPARE(w<QComboBox>("CForma")->findText("PIX"), -1);
        RegistroTelas::fecharTodas();
        pixDaLoja(true);
        QVERIFY(caixa(Motor(motor), 15000));
        QVERIFY(!painelVisivel());

        escolheForma("PIX");
        QVERIFY(painelVisivel());
        QCOMPARE(w<QLineEdit>("TextoPix")->text(), Pix150os57);
        QCOMPARE(w<QLineEdit>("Txt(11)")->text(), QString("150,00"));
        QVERIFY(!w<QLabel>("ImagemPix")->pixmap().isNull());
        w<QPushButton>("CopiarPix")->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), Pix150os57);

        digita(w<QLineEdit>("Txt(17)"), "10,00");
        QCOMPARE(w<QLineEdit>("TextoPix")->text(), Pix140os57);
        QCOMPARE(w<QLabel>("ValorPix")->text(), QString("R$ 140,00"));
        // A picture of the till to look at, when asked for.
        if (const QString png = qEnvironmentVariable("TOLDEX_GUARDAR_TELA"); !png.isEmpty())
            tela->window()->grab().save(png);

        Dialogos::Roteiro::responderSim();  // less paid than the undiscounted total
        Dialogos::Roteiro::responderNao();  // the PIX isn't in the bank yet
        botao(8)->click();
        QVERIFY(Dialogos::Roteiro::contem("O PIX de R$ 140,00 apareceu"));
        QCOMPARE(ApoioCaixa::contar(b->banco(), "Movimento"), 0);
        QVERIFY(botao(8)->isEnabled());

        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderSim();
        botao(8)->click();
        QCOMPARE(b->banco().escalar("SELECT Pagamento FROM Movimento").toString(), QString("PIX"));
        QCOMPARE(b->banco().escalar("SELECT ValorPago FROM OrdemServico").toLongLong(), 14000);
        QCOMPARE(ApoioCaixa::contar(b->banco(), "ContasReceber"), 0);
        QVERIFY(!painelVisivel());
    }

    // Nothing to charge, or a debt hung on the slate: no QR, and the reason is told.
    void caixaSemCobranca_data() { linhasMotores(); }
    void caixaSemCobranca()
    {
        QFETCH(int, motor);
        QVERIFY(caixa(Motor(motor), 0) || !b->pronto());
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        escolheForma("PIX");
        QVERIFY(!painelVisivel());
        QVERIFY(w<QLineEdit>("TextoPix")->text().isEmpty());
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("0,00"));
        // Recording a zero order by PIX asks nothing about a PIX that was never shown.
        botao(8)->click();
        QVERIFY(!Dialogos::Roteiro::contem("apareceu"));
        QCOMPARE(b->banco().escalar("SELECT Pagamento FROM Movimento").toString(), QString("PIX"));
    }

    // The receivables: PIX among the ways of receiving, the instalment's charge, the
    // amount typed taking its place, the receipt carrying the same QR.
    void contaComPix_data() { linhasMotores(); }
    void contaComPix()
    {
        QFETCH(int, motor);
        b = ambienteDeTela(Motor(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        Sessao& s = sessao();
        s.DireitoContaLe = 1;
        s.DireitoContaAl = 1;
        s.UsuarioNome = "PEDRO";
        apoio::configurarEmpresa(b->banco());
        ApoioContas::Receber r{"5", "4711", "ANA", "2026/11/01", "2026/12/01", false, 8000, "1 de 2"};
        const qint64 k = ApoioContas::inserir(b->banco(), r);
        auto* contas = qobject_cast<ContaReceber*>(RegistroTelas::abrir("ContaReceber"));
        tela = contas;
        QTemporaryDir pasta;
        contas->defineDestinoRecibo(Destino::pdf(pasta.filePath("recibo.pdf")));
        QVERIFY(w<QComboBox>("Combo2")->findText("PIX") >= 0);
        w<QComboBox>("Combo1")->setCurrentText("Busca por nome");
        w<QLineEdit>("Text1")->setText("ANA");
        botao(3)->click();
        auto* grade = w<QTableView>("Grade");
        grade->setCurrentIndex(grade->model()->index(0, 0));
        botao(0)->click();
        w<QComboBox>("Combo2")->setCurrentText("PIX");
        QVERIFY(painelVisivel());
        QCOMPARE(w<QLineEdit>("TextoPix")->text(), Pix80os4711);
        digita(w<QLineEdit>("Text2(5)"), "50,00");
        QCOMPARE(w<QLineEdit>("TextoPix")->text(), Pix50os4711);
        if (const QString png = qEnvironmentVariable("TOLDEX_GUARDAR_TELA"); !png.isEmpty() && motor == int(Motor::SQLite))
            tela->window()->grab().save(QString(png).replace(".png", "-contas.png"));

        Dialogos::Roteiro::responderSim();  // the PIX is in the bank
        Dialogos::Roteiro::responderSim();  // "imprimir recibo ?"
        botao(6)->click();
        QVERIFY(Dialogos::Roteiro::contem("O PIX de R$ 50,00 apareceu"));
        QCOMPARE(b->banco().escalar("SELECT TipoRecebimento FROM ContasReceber WHERE Chave = ?", {k}).toString(),
                 QString("PIX"));
        QCOMPARE(b->banco().escalar("SELECT Quitado FROM ContasReceber WHERE Chave = ?", {k}).toInt(), -1);
        const QString recibo = apoio::textoPdf(pasta.filePath("recibo.pdf"));
        QVERIFY2(recibo.contains("Pagamento por PIX") && recibo.contains("408B"), qPrintable(recibo));
        QVERIFY(!painelVisivel());

        // A bill the shop pays has no QR to show.
        botao(8)->click();
        QCOMPARE(w<QComboBox>("Combo2")->findText("PIX"), -1);
    }
};

QTEST_MAIN(TstPixCaixa)
#include "tst_pixcaixa.moc"
