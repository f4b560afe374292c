#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

#include "AmbienteShell.h"
#include "apoio/ArquivosTeste.h"
#include "maintenance/LojaExemplo.h"
#include "shell/Inicializacao.h"
#include "shell/Principal.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"

// Opening the sample shop: from the first start's question or from the command line, on
// its own store, with the user and password shown on the login, and the shop's own
// folder (its Toldex.ini and store, when there are any) left as they were.
class TesteLojaExemplo : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Dialogos::Roteiro::iniciar(); }
    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
        Local::desviarIni({});
    }

    void abre_data()
    {
        QTest::addColumn<bool>("linhaDeComando");
        QTest::addColumn<bool>("lojaReal");   // the folder already holds a shop's ini and store
        QTest::newRow("primeira partida: cancelar e abrir a loja de exemplo") << false << false;
        QTest::newRow("--exemplo num computador novo") << true << false;
        QTest::newRow("--exemplo ao lado da loja de verdade") << true << true;
    }
    void abre()
    {
        QFETCH(bool, linhaDeComando);
        QFETCH(bool, lojaReal);
        QTemporaryDir vazia;
        std::optional<AmbienteShell> loja;
        if (lojaReal) {
            loja.emplace();
            loja->sql("UPDATE Empresa SET NomeEmpresa = 'ELETRÔNICA DO BAIRRO'");
            loja->sql("PRAGMA wal_checkpoint(TRUNCATE)");
            Conexoes::fecharSlots();
        } else {
            qputenv("TOLDEX_PASTA", vazia.path().toUtf8());
        }
        const QString pasta = lojaReal ? loja->pasta() : vazia.path();
        const QString arquivoReal = QDir(pasta).filePath(NomeArquivoBanco);
        const QByteArray realAntes = ArquivosTeste::le(arquivoReal), iniAntes = ArquivosTeste::le(Local::arquivoIni());
        Inicializacao inicio;
        if (linhaDeComando) {
            inicio.usarLojaExemplo();
        } else {
            Dialogos::Roteiro::responder(QVariant::fromValue(Dialogos::Resposta::Cancelar));
            Dialogos::Roteiro::responderSim();
        }
        QVERIFY(inicio.iniciar());
        // The command line asks nothing; the first start asks twice.
        QCOMPARE(Dialogos::Roteiro::contem(QStringLiteral("Abrir a loja de exemplo?")), !linhaDeComando);
        QCOMPARE(Dialogos::Roteiro::pendentes(), 0);

        QTRY_VERIFY(RegistroTelas::aberta("TelaInicial"));
        QWidget* login = RegistroTelas::abrir("TelaInicial");
        auto* aviso = login->findChild<QLabel*>("LblExemplo");
        QVERIFY(aviso);
        QVERIFY(aviso->text().contains("ADMIN") && aviso->text().contains("exemplo"));
        QCOMPARE(login->findChild<QComboBox*>("CUsuario")->currentText(), QStringLiteral("ADMIN"));
        QCOMPARE(Conexoes::config().arquivoSqlite(), QDir(pasta).filePath("exemplo/" + NomeArquivoBanco));
        QCOMPARE(Reconexao::configAtual().arquivoSqlite(), Conexoes::config().arquivoSqlite());
        // What the screens write of this machine's settings stays with the sample too.
        ArquivoIni(Local::arquivoIni()).gravar("Impressao", "AutoEntrada", "1");
        QVERIFY(QFile::exists(QDir(pasta).filePath("exemplo/Toldex.ini")));

        // The password shown lets the user in, and the window says whose shop this is.
        QTest::keyClicks(login->findChild<QLineEdit*>("TxtSenha"), "exemplo");
        QTest::mouseClick(login->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QTRY_VERIFY(Principal::instancia());
        QVERIFY(Principal::instancia()->windowTitle().contains("Loja de exemplo"));
        AmbienteShell::fecharTelas();
        Conexoes::fecharSlots();

        QCOMPARE(ArquivosTeste::le(arquivoReal), realAntes);
        const QString iniReal = QDir(pasta).filePath("Toldex.ini");
        QCOMPARE(ArquivosTeste::le(iniReal), iniAntes);
        QCOMPARE(QFile::exists(arquivoReal), lojaReal);
        QCOMPARE(QFile::exists(iniReal), lojaReal);
    }
};

QTEST_MAIN(TesteLojaExemplo)
#include "tst_lojaexemplo.moc"
