#include <QComboBox>
#include <QCompleter>
#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QImageReader>
#include <QTimer>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/CameraFalsa.h"
#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Sessao.h"
#include "orders/BancadaOrdem.h"
#include "orders/CadCompleto.h"
#include "shell/Camera.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// Stands in for the till: records the order it was handed.
class CaixaDeTeste : public QWidget {
    Q_OBJECT
public:
    static inline QList<QVariantMap> chamadas;
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados) { chamadas << dados; }
};

namespace {
const bool caixaRegistrado =
    RegistroTelas::registrar("RegistraValorSaida", [] { return static_cast<QWidget*>(new CaixaDeTeste); });
}

class TstCadCompleto : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    CadCompleto* tela = nullptr;
    QTemporaryDir pasta;

    bool ambiente(int motor)
    {
        fecha();
        b = ambienteDeTela(static_cast<Motor>(motor));
        ApoioOrdens::sessaoCompleta();
        sessao().CfgPastaImagem = pasta.path();
        CaixaDeTeste::chamadas.clear();
        Camera::definirFabrica([] { return std::make_unique<CameraFalsa>(true); });
        return b->pronto();
    }
    void fecha()
    {
        tela = nullptr;
        Dialogos::Roteiro::limpar();
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }
    void abre(qint64 chave = 0)
    {
        tela = qobject_cast<CadCompleto*>(RegistroTelas::abrir("CadCompleto"));
        QVERIFY(tela);
        if (chave) {
            tela->abreOrdem({{"CodOsAut", chave}});
            QCOMPARE(tela->ordem().CodOsAut, chave);
        }
    }
    qint64 ordem(qint64 codOs, const QString& nome, const QStringList& colunas = {}, const QVariantList& valores = {})
    {
        return b->banco().inserir(*Esquema::tabela("OrdemServico"),
                                  QStringList{"CodOs", "NomeCliente", "Tipo", "DataEntrada"} + colunas,
                                  QVariantList{codOs, nome, "TV", "2025/03/01"} + valores);
    }
    qint64 produto(const QString& cod, qint64 venda, qint64 custo, qint64 estoque = 20)
    {
        return b->banco().inserir(*Esquema::tabela("Produto"),
                                  {"codpeca", "Descricao", "PrecoVenda", "PrecoCusto", "Quantidadeestoque",
                                   "QuantidadeMinima"},
                                  {cod, "PECA " + cod, venda, custo, estoque * 1000, 0});
    }
    void filha(const QString& tabela, qint64 chave, qint64 codOs, const QString& nome)
    {
        const QString colunaNome = tabela == "PecasAplicadas" ? "NomeCliente" : "NomeOS";
        b->banco().executar(
            QString("INSERT INTO %1 (CodOsAut, CodOs, %2) VALUES (?, ?, ?)").arg(tabela, colunaNome), {chave, codOs, nome});
    }
    template <class T> T* campo(const QString& nome) { return tela->findChild<T*>(nome); }
    QLineEdit* caixa(const QString& nome) { return campo<QLineEdit>(nome); }
    QPushButton* botao(int i) { return campo<QPushButton>(QString("Botao(%1)").arg(i)); }
    // The buttons of the pages not on show are pressed as a shortcut would.
    void clica(int i) { botao(i)->click(); }
    void opcao(int i) { campo<QRadioButton>(QString("OptStatus(%1)").arg(i))->click(); }
    void digita(QWidget* w, const QString& t)
    {
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void troca(QLineEdit* e, const QString& t)
    {
        e->selectAll();
        QTest::keyClick(e, Qt::Key_Backspace);
        digita(e, t);
    }
    void escolhe(qint64 codPecAut, const QString& quantidade)
    {
        troca(caixa("TxtPecaQuantidade"), quantidade);
        tela->recebeProduto({{"CodPecAut", codPecAut}});
    }
    QVariant col(const QString& c, qint64 chave)
    {
        return b->banco().escalar(QString("SELECT %1 FROM OrdemServico WHERE CodOsAut = ?").arg(c), {chave});
    }
    qint64 conta(const QString& sql, const QVariantList& v = {}) { return b->banco().escalar(sql, v).toLongLong(); }
    qint64 ultimaOrdem() { return conta("SELECT MAX(CodOsAut) FROM OrdemServico"); }

private slots:
    void init() { QVERIFY(pasta.isValid()); }
    void cleanup()
    {
        fecha();
        Camera::definirFabrica({});
    }

    // One press saves a new customer, the order, its services and its parts, takes the
    // parts from stock and writes the five money columns.
    void ordemInteira_data() { linhasMotores(); }
    void ordemInteira()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        b->banco().inserir(*Esquema::tabela("ServicoExecutado"), {"CodServico", "Servico", "ValorObra", "ValorObraMinimo"},
                           {"S1", "TROCA DE FONTE", 5000, 0});
        const qint64 peca = produto("1001", 1000, 200);
        abre();
        clica(0);
        QVERIFY(tela->novo());
        digita(caixa("TxtNomeCliente"), "D'ÁVILA");
        digita(campo<QComboBox>("CTipo")->lineEdit(), "TV");
        emit campo<QTableWidget>("LServ")->cellDoubleClicked(0, 0);
        escolhe(peca, "2");
        opcao(0);
        QCOMPARE(caixa("TxtValorPagar")->text(), QString("70,00"));
        clica(1);
        QVERIFY(!tela->alterado());
        const qint64 chave = ultimaOrdem();
        QCOMPARE(tela->ordem().CodOsAut, chave);
        const QString codCliente = col("CodCliente", chave).toString();
        QVERIFY(!codCliente.isEmpty());
        QCOMPARE(conta("SELECT COUNT(*) FROM Cliente WHERE CodCliente = ? AND NomeCliente = ?", {codCliente, "D'ÁVILA"}),
                 1);
        // 2 × 10,00 of parts at a cost of 2 × 2,00, and 50,00 of labour.
        QCOMPARE(col("ValorPecas", chave).toLongLong(), 400);
        QCOMPARE(col("ValorVenda", chave).toLongLong(), 2000);
        QCOMPARE(col("MaoObra", chave).toLongLong(), 5000);
        QCOMPARE(col("ValorPagar", chave).toLongLong(), 7000);
        QCOMPARE(col("ValorDescontoPeca", chave).toLongLong(), 0);
        QCOMPARE(col("Consertado", chave).toLongLong(), -1);
        QCOMPARE(conta("SELECT COUNT(*) FROM ServicoOS WHERE CodOsAut = ?", {chave}), 1);
        QCOMPARE(conta("SELECT COUNT(*) FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = ''", {chave}), 1);
        QCOMPARE(ApoioOrdens::estoque(b->banco(), "1001").texto(), Quantidade::unidades(18).texto());
        QVERIFY(RegistroTelas::aberta("Gravado"));
        // The customer's history now holds this order, and only it.
        auto* historico = campo<QTableWidget>("GHistorico");
        QCOMPARE(historico->rowCount(), 1);
        QCOMPARE(historico->item(0, 6)->text(), QString::number(chave));
    }

    // Without the bench's right the intake half is stored alone and the refusal shows.
    void salvaParcial_data() { linhasMotores(); }
    void salvaParcial()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        sessao().DireitoOsTecAl = 0;
        const qint64 peca = produto("1001", 1000, 200);
        abre();
        clica(0);
        digita(caixa("TxtNomeCliente"), "RUI");
        escolhe(peca, "1");
        clica(1);
        const qint64 chave = ultimaOrdem();
        QVERIFY(chave > 0);
        QCOMPARE(col("NomeCliente", chave).toString(), QString("RUI"));
        QCOMPARE(conta("SELECT COUNT(*) FROM PecasAplicadas"), 0);
        QCOMPARE(col("ValorPagar", chave).toLongLong(), 0);
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(tela->ordem().CodOsAut, chave);
    }

    // The answer buttons write the answer and today's contact, stored "yyyy/MM/dd".
    void respostas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("botao");
        QTest::addColumn<int>("aprovado");
        QTest::addColumn<int>("recusado");
        QTest::addColumn<QString>("legenda");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* n = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s authorised", n) << m << 7 << -1 << 0 << "Aprovado";
            QTest::addRow("%s refused", n) << m << 8 << 0 << -1 << "Recusado";
            QTest::addRow("%s undecided", n) << m << 9 << 0 << 0 << "Indeciso";
        }
    }
    void respostas()
    {
        QFETCH(int, motor);
        QFETCH(int, botao);
        QFETCH(int, aprovado);
        QFETCH(int, recusado);
        QFETCH(QString, legenda);
        QVERIFY(ambiente(motor));
        const qint64 chave = ordem(5, "ANA", {"Aprovado", "Recusado", "Garantia"}, {0, -1, -1});
        abre(chave);
        clica(botao);
        QCOMPARE(campo<QLabel>("LblResposta")->text(), legenda);
        clica(1);
        QCOMPARE(col("Aprovado", chave).toInt(), aprovado);
        QCOMPARE(col("Recusado", chave).toInt(), recusado);
        QCOMPARE(col("Garantia", chave).toInt(), 0);
        QCOMPARE(col("DataContato", chave).toString(), QDate::currentDate().toString("yyyy/MM/dd"));
    }

    // The warranty button turns the same order back to the bench.
    void garantiaMesmaOrdem_data() { linhasMotores(); }
    void garantiaMesmaOrdem()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        const qint64 chave = ordem(9, "ANA", {"Aprovado", "DataSaida", "Observacao"}, {-1, "2025/03/10", "RISCO"});
        abre(chave);
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderNao();
        clica(6);
        QCOMPARE(campo<QLabel>("LblResposta")->text(), QString("Garantia"));
        clica(1);
        QCOMPARE(col("Garantia", chave).toInt(), -1);
        QCOMPARE(col("Aprovado", chave).toInt(), 0);
        QCOMPARE(col("StatusConserto", chave).toString(), QString("Garantia pendente.."));
        QCOMPARE(col("Armazenado", chave).toString(), QString("Retorno oficina"));
        QCOMPARE(col("Observacao", chave).toString(), QString("RISCO\nAPARELHO ESTÁ NA GARANTIA DA LOJA"));
        QCOMPARE(col("DataSaida", chave).toString(), QString());
        QCOMPARE(conta("SELECT COUNT(*) FROM OrdemServico"), 1);
    }

    // Delivery with a change not saved yet saves it first: the till gets what is stored.
    void entregaSalvaAntes_data() { linhasMotores(); }
    void entregaSalvaAntes()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        const qint64 chave = ordem(3, "ANA", {"Aprovado", "MaoObra", "ValorPagar"}, {-1, 12000, 12000});
        b->banco().executar("INSERT INTO ServicoOS (CodOsAut, CodOs, NomeOS, CodServico, Servico, ValorObra) "
                            "VALUES (?, 3, 'ANA', 'S1', 'CONSERTO', 12000)",
                            {chave});
        const qint64 peca = produto("2002", 3500, 1000);
        abre(chave);
        escolhe(peca, "1");
        QVERIFY(tela->alterado());
        Dialogos::Roteiro::responderSim();
        clica(10);
        QCOMPARE(col("ValorPagar", chave).toLongLong(), 15500);
        QCOMPARE(CaixaDeTeste::chamadas.size(), 1);
        QCOMPARE(CaixaDeTeste::chamadas.first().value("CodOsAut").toLongLong(), chave);
        QCOMPARE(sessao().ParamCodOsAut, QString::number(chave));
    }

    // A delivery whose save is refused hands nothing to the till.
    void entregaRecusada()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        const qint64 chave = ordem(3, "ANA", {"Aprovado"}, {-1});
        abre(chave);
        digita(caixa("TxtModelo"), "X1");
        sessao().DireitoOsEntAl = 0;
        Dialogos::Roteiro::responderSim();
        clica(10);
        QVERIFY(CaixaDeTeste::chamadas.isEmpty());
        QVERIFY(tela->alterado());
        QCOMPARE(caixa("TxtModelo")->text(), QString("X1"));
    }

    // A permanent delete takes the order's own child rows and nobody else's.
    void excluiPermanente_data() { linhasMotores(); }
    void excluiPermanente()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        sessao().DireitoPermanente = 1;
        const qint64 sete = ordem(7, "RUI");
        const qint64 dezessete = ordem(17, "RUI");
        for (const QString t : {"PecasAplicadas", "SintomaOS", "ServicoOS"}) {
            filha(t, sete, 7, "RUI");
            filha(t, dezessete, 17, "RUI");
        }
        abre(sete);
        Dialogos::Roteiro::responderSim();
        clica(4);
        QCOMPARE(conta("SELECT COUNT(*) FROM OrdemServico"), 1);
        for (const QString t : {"PecasAplicadas", "SintomaOS", "ServicoOS"}) {
            QCOMPARE(conta(QString("SELECT COUNT(*) FROM %1 WHERE CodOsAut = ?").arg(t), {sete}), 0);
            QCOMPARE(conta(QString("SELECT COUNT(*) FROM %1 WHERE CodOsAut = ?").arg(t), {dezessete}), 1);
        }
        QVERIFY(tela->ordem().nova());
    }

    // A repaired order stays repaired here; the blink follows approved waiting orders.
    void situacaoEPisca()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        const qint64 consertada = ordem(1, "ANA", {"Consertado"}, {-1});
        const qint64 aguardando = ordem(2, "ANA", {"Aprovado", "AguardaPeca"}, {-1, -1});
        abre(consertada);
        opcao(1);
        QVERIFY(Dialogos::Roteiro::contem(BancadaOrdem::MsgConsertado));
        QVERIFY(campo<QRadioButton>("OptStatus(0)")->isChecked());
        auto* pisca = campo<QTimer>("TAvisaOrcamento");
        QVERIFY(!pisca->isActive());
        tela->abreOrdem({{"CodOsAut", aguardando}});
        QVERIFY(pisca->isActive());
        QCOMPARE(campo<QLabel>("LblStatus")->text(), QString("TV CLIENTE APROVOU ORÇAMENTO"));
        tela->abreOrdem({{"CodOsAut", consertada}});
        QVERIFY(!pisca->isActive());
    }

    // The history holds exactly this customer's orders; a new customer has none.
    void historico()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        const qint64 doze = ordem(1, "ANA", {"CodCliente"}, {"12"});
        ordem(2, "ANA", {"CodCliente"}, {"12"});
        ordem(3, "ZE", {"CodCliente"}, {"1"});
        const qint64 semCodigo = ordem(4, "NOVO");
        ordem(5, "OUTRO");
        abre(doze);
        QCOMPARE(campo<QTableWidget>("GHistorico")->rowCount(), 2);
        tela->abreOrdem({{"CodOsAut", semCodigo}});
        QCOMPARE(campo<QTableWidget>("GHistorico")->rowCount(), 0);
    }

    // "&Retirar" only marks the order: no house call is made.
    void retirar()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        const qint64 chave = ordem(4, "ANA");
        abre(chave);
        clica(2);
        QCOMPARE(botao(2)->text(), QString("&Retirado"));
        clica(1);
        QCOMPARE(col("ChamadoTecnico", chave).toInt(), -1);
        QCOMPARE(conta("SELECT COUNT(*) FROM VisitaTecnico"), 0);
    }

    // Bad amounts in a part's boxes are refused and nothing joins the list.
    void valorInvalido_data()
    {
        QTest::addColumn<QString>("venda");
        QTest::newRow("letters") << "1O,00";
        QTest::newRow("two commas") << "1,0,0";
    }
    void valorInvalido()
    {
        QFETCH(QString, venda);
        QVERIFY(ambiente(int(Motor::SQLite)));
        abre(ordem(4, "ANA"));
        digita(caixa("TxtPecaDescricao"), "FUSIVEL");
        digita(caixa("TxtPecaQuantidade"), "1");
        caixa("TxtPecaVenda")->setText(venda);
        clica(16);
        QVERIFY(tela->ordem().pecas.isEmpty());
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("V/Venda"));
    }

    // Pictures: from a file, a file that isn't one, the camera, no camera.
    void fotos()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        const qint64 chave = ordem(4, "ANA", {"Img2Aparelho"}, {pasta.filePath("sumiu.jpg")});
        abre();
        clica(0);
        clica(28);
        QVERIFY(Dialogos::Roteiro::contem("Antes de capturar a imagem salve o registro"));
        clica(5);
        tela->abreOrdem({{"CodOsAut", chave}});
        // A picture whose file is gone shows the default, never an error.
        QTest::mouseClick(campo<QPushButton>("BotImg(1)"), Qt::LeftButton);
        QCOMPARE(tela->fotoAtual(), 1);
        QTest::mouseClick(campo<QPushButton>("BotImg(0)"), Qt::LeftButton);
        const QString png = pasta.filePath("foto.png");
        QImage i(10, 10, QImage::Format_RGB32);
        i.fill(Qt::red);
        QVERIFY(i.save(png));
        const QString texto = pasta.filePath("nao.png");
        QFile f(texto);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("texto");
        f.close();
        Dialogos::Roteiro::responder(texto);
        clica(27);
        QVERIFY(Dialogos::Roteiro::contem("não é uma imagem"));
        QCOMPARE(tela->ordem().Img1Aparelho, QString());
        Dialogos::Roteiro::responder(png);
        clica(27);
        QCOMPARE(tela->ordem().Img1Aparelho, png);
        // The camera's frame goes to slot 3 as a JPEG.
        QTest::mouseClick(campo<QPushButton>("BotImg(2)"), Qt::LeftButton);
        clica(25);
        QCOMPARE(botao(25)->text(), QString("Encerra Web Cam"));
        const QString jpg = pasta.filePath("TV3.Jpg");
        Dialogos::Roteiro::responder(jpg);
        clica(28);
        QCOMPARE(QImageReader(jpg).format(), QByteArray("jpeg"));
        clica(1);
        QCOMPARE(col("Img1Aparelho", chave).toString(), png);
        QCOMPARE(col("Img3Aparelho", chave).toString(), jpg);
        clica(30);
        QVERIFY(RegistroTelas::aberta("ImagemAmpliada"));
    }

    // The customer box offers names by their beginning; the one chosen, or the one a
    // register hands over, fills the customer's boxes and no new customer is made.
    void clienteDoCadastro_data() { linhasMotores(); }
    void clienteDoCadastro()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Telefone, Cidade) VALUES "
                            "(5, 'ANA', '1133331000', 'SANTOS'), (6, 'ANDRE', '', ''), (7, 'JOANA', '', '')");
        abre();
        clica(0);
        digita(caixa("TxtNomeCliente"), "AN");
        auto* modelo = campo<QCompleter>("NomesClientes")->model();
        QStringList nomes;
        for (int i = 0; i < modelo->rowCount(); ++i)
            nomes << modelo->index(i, 0).data().toString();
        nomes.sort();
        QCOMPARE(nomes, QStringList({"ANA", "ANDRE"}));
        caixa("TxtBusca1")->setText("5");
        QCOMPARE(caixa("TxtCodCliente")->text(), QString("5"));
        QCOMPARE(caixa("TxtCidade")->text(), QString("SANTOS"));
        QCOMPARE(caixa("TxtTelefone")->text(), QString("(11)3333-1000"));
        clica(1);
        QCOMPARE(col("CodCliente", ultimaOrdem()).toString(), QString("5"));
        QCOMPARE(col("Telefone", ultimaOrdem()).toString(), QString("1133331000"));
        QCOMPARE(conta("SELECT COUNT(*) FROM Cliente"), 3);
        // The register's new order for its customer starts from him.
        tela->novoComCliente({{"CodCliente", "6"}, {"NomeCliente", "ANDRE"}});
        QVERIFY(tela->novo());
        QCOMPARE(caixa("TxtNomeCliente")->text(), QString("ANDRE"));
        QCOMPARE(campo<QTableWidget>("GHistorico")->rowCount(), 0);
    }

    // A store lost in the middle of the save leaves the order as it was, and the screen
    // keeps what was typed to be saved again.
    void falhaNoMeioDaGravacao_data() { linhasMotores(); }
    void falhaNoMeioDaGravacao()
    {
        QFETCH(int, motor);
        QVERIFY(ambiente(motor));
        b->banco().inserir(*Esquema::tabela("ServicoExecutado"), {"CodServico", "Servico", "ValorObra", "ValorObraMinimo"},
                           {"S1", "TROCA DE FONTE", 5000, 0});
        const qint64 chave = ordem(8, "ANA", {"Modelo"}, {"ANTIGO"});
        abre(chave);
        troca(caixa("TxtModelo"), "NOVO");
        emit campo<QTableWidget>("LServ")->cellDoubleClicked(0, 0);
        b->banco().executar("ALTER TABLE ServicoOS RENAME TO ServicoOSFora");
        clica(1);
        QVERIFY(Dialogos::Roteiro::contem("Erro ao gravar formulário,"));
        QCOMPARE(col("Modelo", chave).toString(), QString("ANTIGO"));
        QCOMPARE(col("MaoObra", chave).toLongLong(), 0);
        QVERIFY(tela->alterado());
        QCOMPARE(caixa("TxtModelo")->text(), QString("NOVO"));
        b->banco().executar("ALTER TABLE ServicoOSFora RENAME TO ServicoOS");
        clica(1);
        QCOMPARE(col("Modelo", chave).toString(), QString("NOVO"));
        QCOMPARE(col("MaoObra", chave).toLongLong(), 5000);
    }

    void semCamera()
    {
        QVERIFY(ambiente(int(Motor::SQLite)));
        Camera::definirFabrica([] { return std::make_unique<CameraFalsa>(false); });
        abre(ordem(4, "ANA"));
        clica(25);
        QVERIFY(Dialogos::Roteiro::contem("Nenhuma câmera foi encontrada neste computador."));
        QCOMPARE(botao(25)->text(), QString("Inicia Web Cam"));
    }
};

QTEST_MAIN(TstCadCompleto)
#include "tst_cadcompleto.moc"
