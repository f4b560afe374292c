#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "documents/ApoioDocumentos.h"
#include "documents/Impressao.h"
#include "ui/Dialogos.h"

using namespace apoio;

// The 80 mm roll and the PIX charge on paper: the PDFs read back with pdftotext, the bars
// and the QR read back from the rendered page by zbarimg, never by our own code.
class TstCupomBobina : public QObject {
    Q_OBJECT

    struct Loja {
        BancoTeste banco;
        QTemporaryDir pasta;
        explicit Loja(Motor motor = Motor::SQLite)
            : banco(motor)
        {
            if (!banco.pronto())
                return;
            sessao().ArquivoIni = pasta.filePath(QStringLiteral("Toldex.ini"));
            sessao().PastaPrograma = pasta.path();
            sessao().UsuarioNome = QStringLiteral("Ana Balcão");
            configurarEmpresa(banco.banco());
        }
        QString pdf(const QString& nome) const { return pasta.filePath(nome + QStringLiteral(".pdf")); }
    };

    // The PIX charge of order 4711 as worked outside: 1.234,56 less 10,00 to the shop's
    // e-mail key, CRC included.
    static inline const QString PixSaida = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br52040000530398654071224.565802BR"
        "5922Eletronica Conserta Ja6008Sao Jose62080504471163042AA1");
    static inline const QString PixRecibo = QStringLiteral(
        "00020126440014br.gov.bcb.pix0122loja@consertaja.com.br520400005303986540580.005802BR"
        "5922Eletronica Conserta Ja6008Sao Jose62080504471163043F2E");

    static void movimentoPix(Banco& b, qint64 chave)
    {
        b.inserir(*Esquema::tabela(QStringLiteral("Movimento")),
                  {"CodOsAut", "CodVenda", "ValorTotal", "ValorDesconto", "ValorPago", "Pagamento", "NomeCliente"},
                  {chave, 4711, 123456, 1000, 122456, QStringLiteral("PIX"), QStringLiteral("Maria da Conceição")});
    }

    static QString imprimir(Loja& l, const PedidoFicha& p, const QString& nome)
    {
        const QString arquivo = l.pdf(nome);
        if (!Impressao::imprimir(l.banco.banco(), p, Destino::pdf(arquivo)))
            return {};
        // A copy to look at, when TOLDEX_GUARDAR_PDF names a folder.
        if (const QString pasta = qEnvironmentVariable("TOLDEX_GUARDAR_PDF"); !pasta.isEmpty()) {
            QFile::remove(pasta + '/' + nome + ".pdf");
            QFile::copy(arquivo, pasta + '/' + nome + ".pdf");
        }
        return arquivo;
    }
    static PedidoFicha pedido(TipoFicha tipo, qint64 chave, int copias = 1)
    {
        PedidoFicha p;
        p.tipo = tipo;
        p.codOsAut = chave;
        p.copias = copias;
        return p;
    }

    // What a phone or a hand scanner reads on the first page, rendered at 300 dpi.
    static QStringList codigosLidos(const QString& pdf)
    {
        const QString png = pdf + QStringLiteral("-p");
        QProcess r;
        r.start(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("300"), QStringLiteral("-png"),
                                             QStringLiteral("-singlefile"), pdf, png});
        if (!r.waitForFinished(60000) || r.exitCode() != 0)
            return {QStringLiteral("pdftoppm falhou")};
        QProcess z;
        z.start(QStringLiteral("zbarimg"), {QStringLiteral("-q"), png + QStringLiteral(".png")});
        z.waitForFinished(60000);
        return QString::fromUtf8(z.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static QSizeF paginaMm(const QString& pdf)
    {
        QList<Pagina> paginas;
        palavrasPdf(pdf, &paginas);
        if (paginas.isEmpty())
            return {};
        return {paginas.first().largura * 25.4 / 72, paginas.first().altura * 25.4 / 72};
    }

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable("zbarimg").isEmpty())
            QFAIL("zbarimg (Debian zbar-tools) is needed: scripts/instalar-dependencias.sh");
    }
    void init()
    {
        Dialogos::Roteiro::iniciar();
        Sessao& s = sessao();
        s.CfgReciboBobina = QStringLiteral("True");
        s.CfgPixAtivo = QStringLiteral("True");
        s.CfgPixChave = QStringLiteral("loja@consertaja.com.br");
        s.CfgPixNome = QStringLiteral("Eletrônica Conserta Já");
        s.CfgPixCidade = QStringLiteral("São José");
    }
    void cleanup()
    {
        sessao().CfgReciboBobina = QStringLiteral("False");
        sessao().CfgPixAtivo = QStringLiteral("False");
        Dialogos::Roteiro::encerrar();
    }

    // Intake and delivery on the roll, on both engines: the width, a length that follows the
    // content, what the counter reads, and the bars of the order's number.
    void fichasNaBobina_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QStringList>("textos");
        const QStringList comum = {"Eletrônica Conserta Já", "Rua das Acácias, 123", "CNPJ: 12-345-678-0001/95",
                                   "CUPOM NÃO FISCAL", "O.S: 4711", "Maria da Conceição", "Televisor Semp TL-32",
                                   "SN998877", "Atendido por: Ana Balcão", "corte aqui"};
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "intake with the defect and the terms"))
                << m << int(TipoFicha::Entrada)
                << comum + QStringList{"ENTRADA DE APARELHO", "Não liga, cheiro de queimado", "Controle remoto",
                                       "Aparelhos não retirados em 90 dias", "20/11/2026"};
            QTest::newRow(qPrintable(e + "delivery with parts and totals"))
                << m << int(TipoFicha::Saida)
                << comum + QStringList{"SAÍDA DE APARELHO", "Troca da fonte", "FONTE ATX 500W", "2 x 42,28", "84,56",
                                       "Mão de obra", "150,00", "1.234,56", "10,00", "1.224,56",
                                       "Garantia de 90 dias", "23/11/2026"};
        }
    }
    void fichasNaBobina()
    {
        QFETCH(int, motor);
        QFETCH(int, tipo);
        QFETCH(QStringList, textos);
        Loja l(static_cast<Motor>(motor));
        if (!l.banco.pronto())
            QSKIP(qPrintable(l.banco.motivo()));
        const qint64 chave = inserirOrdem(l.banco.banco());
        inserirPeca(l.banco.banco(), chave, 4711, "F500", "FONTE ATX 500W", 2000, 4228);
        const QString pdf = imprimir(l, pedido(static_cast<TipoFicha>(tipo), chave), "bobina");
        QVERIFY(!pdf.isEmpty());
        const QString t = textoPdf(pdf).simplified();
        for (const QString& trecho : textos)
            QVERIFY2(t.contains(trecho), qPrintable(trecho + " not in: " + t));
        QCOMPARE(paginasPdf(pdf), 1);
        const QSizeF mm = paginaMm(pdf);
        QVERIFY2(qAbs(mm.width() - 80) < 0.5, qPrintable(QString::number(mm.width())));
        QVERIFY2(mm.height() > 60 && mm.height() < 297, qPrintable(QString::number(mm.height())));
        QCOMPARE(defeitosDeLayout(pdf), QString());
        QVERIFY(codigosLidos(pdf).contains("CODE-128:4711"));
    }

    // The roll is as long as what it holds: twenty more parts make it longer, on one page,
    // and each copy ends in its own cut line.
    void comprimentoECopias()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        const QString curto = imprimir(l, pedido(TipoFicha::Saida, chave), "curto");
        for (int i = 0; i < 20; ++i)
            inserirPeca(l.banco.banco(), chave, 4711, QString("P%1").arg(i), QString("PEÇA NÚMERO %1").arg(i), 1000, 100);
        const QString longo = imprimir(l, pedido(TipoFicha::Saida, chave, 2), "longo");
        QVERIFY(!curto.isEmpty() && !longo.isEmpty());
        QCOMPARE(paginasPdf(longo), 1);
        QVERIFY(paginaMm(longo).height() > 2 * paginaMm(curto).height());
        QCOMPARE(textoPdf(longo).count("corte aqui"), 2);
        QCOMPARE(textoPdf(longo).count("PEÇA NÚMERO 19"), 2);
    }

    // A delivery paid by PIX carries the same charge the till showed, on the roll and on A4.
    void pixNaSaida_data()
    {
        QTest::addColumn<bool>("bobina");
        QTest::addColumn<int>("tipo");
        QTest::newRow("roll") << true << int(TipoFicha::Saida);
        QTest::newRow("A4 delivery sheet") << false << int(TipoFicha::Saida);
        QTest::newRow("A4 delivery with cash block") << false << int(TipoFicha::SaidaCaixa);
    }
    void pixNaSaida()
    {
        QFETCH(bool, bobina);
        QFETCH(int, tipo);
        sessao().CfgReciboBobina = bobina ? "True" : "False";
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        movimentoPix(l.banco.banco(), chave);
        const QString pdf = imprimir(l, pedido(static_cast<TipoFicha>(tipo), chave), "pix");
        QVERIFY(!pdf.isEmpty());
        QVERIFY(textoPdf(pdf).contains("Pagamento por PIX"));
        const QStringList lidos = codigosLidos(pdf);
        QVERIFY2(lidos.contains("QR-Code:" + PixSaida), qPrintable(lidos.join('\n')));
        QCOMPARE(qAbs(paginaMm(pdf).width() - 80) < 0.5, bobina);
    }

    // Paid in cash: no QR anywhere.
    void semPixSemQr()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        const QString pdf = imprimir(l, pedido(TipoFicha::Saida, chave), "dinheiro");
        QVERIFY(!textoPdf(pdf).contains("PIX"));
        QCOMPARE(codigosLidos(pdf), QStringList{"CODE-128:4711"});
    }

    // The receivables' receipt of a PIX payment, on the roll and on A4.
    void reciboPix_data()
    {
        QTest::addColumn<bool>("bobina");
        QTest::newRow("roll") << true;
        QTest::newRow("A4") << false;
    }
    void reciboPix()
    {
        QFETCH(bool, bobina);
        sessao().CfgReciboBobina = bobina ? "True" : "False";
        Loja l;
        FichaRecebimento r;
        r.cliente = "Maria da Conceição";
        r.descricao = "4711";
        r.parcela = "1 de 2";
        r.valorParcela = "80,00";
        r.dataPagamento = QDate(2026, 11, 24);
        r.tipoRecebido = "PIX";
        r.valorPago = "80,00";
        r.pix = PixRecibo;
        const QString arquivo = l.pdf("recibo");
        QVERIFY(Impressao::reciboCompacto(l.banco.banco(), r, Destino::pdf(arquivo)));
        const QString t = textoPdf(arquivo).simplified();
        for (const char* trecho : {"Maria da Conceição", "1 de 2", "80,00", "24/11/2026", "PIX"})
            QVERIFY2(t.contains(trecho), trecho);
        if (bobina)
            QVERIFY(t.contains("RECIBO DE PAGAMENTO") && t.contains("corte aqui"));
        QVERIFY(codigosLidos(arquivo).contains("QR-Code:" + PixRecibo));
    }

    // No printer on this machine: the roll still goes to the preview, or is not printed at
    // all when the user cancels.
    void semImpressora_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::addColumn<bool>("impresso");
        QTest::newRow("preview") << int(Dialogos::Resposta::Nao) << true;
        QTest::newRow("cancelled") << int(Dialogos::Resposta::Cancelar) << false;
    }
    void semImpressora()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("this machine has a printer");
        QFETCH(int, resposta);
        QFETCH(bool, impresso);
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        Dialogos::Roteiro::responder(QVariant::fromValue(static_cast<Dialogos::Resposta>(resposta)));
        QCOMPARE(Impressao::fichaEntrada(l.banco.banco(), chave, 1, Destino::impressora()), impresso);
        QVERIFY(Dialogos::Roteiro::contem("Nenhuma impressora"));
    }
};

QTEST_MAIN(TstCupomBobina)
#include "tst_cupombobina.moc"
