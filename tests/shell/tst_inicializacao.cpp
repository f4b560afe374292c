#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "AmbienteShell.h"
#include "data/Esquema.h"
#include "shell/Inicializacao.h"
#include "shell/PrimeiraPartida.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"

class TesteInicializacao : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { Dialogos::Roteiro::iniciar(); }
    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
    }

    void preparaOBanco_data()
    {
        QTest::addColumn<int>("diferenca");   // store's version against the program's
        QTest::addColumn<int>("esperado");
        QTest::addColumn<QString>("mensagem");
        using B = Inicializacao::Banco;
        QTest::newRow("same version: nothing to say") << 0 << int(B::Pronto) << "";
        QTest::newRow("older store is brought up to date and the user told")
            << -1 << int(B::Pronto) << "O banco de dados foi atualizado para a versão";
        QTest::newRow("store of a newer program stops the start")
            << 1 << int(B::Incompativel) << "versão mais nova do programa";
    }
    void preparaOBanco()
    {
        QFETCH(int, diferenca);
        QFETCH(int, esperado);
        QFETCH(QString, mensagem);
        AmbienteShell amb;
        if (diferenca != 0) {
            amb.sql("DELETE FROM VersaoEsquema");
            amb.sql("INSERT INTO VersaoEsquema (Versao) VALUES (?)", {Esquema::versaoAtual() + diferenca});
        }
        Dialogos::Roteiro::limpar();
        Inicializacao inicio;
        QCOMPARE(int(inicio.prepararBanco()), esperado);
        if (mensagem.isEmpty())
            QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        else
            QVERIFY(Dialogos::Roteiro::contem(mensagem));
    }

    // A workstation whose server folder is gone starts on the reconnection screen.
    void semBancoComecaNoReconecta()
    {
        AmbienteShell amb;
        Local::gravarPapel(false, amb.pasta() + "/servidor-desligado");
        Inicializacao inicio;
        QVERIFY(inicio.iniciar());
        QTRY_VERIFY(RegistroTelas::aberta("Reconecta"));
        QVERIFY(!RegistroTelas::aberta("TelaInicial"));
        Conexoes::aoFalhar({});
    }

    // With no Toldex.ini the program asks what this computer is before anything else.
    void primeiraPartidaPergunta_data()
    {
        QTest::addColumn<QVariant>("resposta");
        QTest::addColumn<bool>("segue");
        QTest::addColumn<QString>("servidor");   // Local/Servidor written to the ini
        QTest::addColumn<QString>("tela");       // the window the start leads to
        QTest::addColumn<bool>("bancoNovo");
        QTest::newRow("servidor cria o banco aqui e pede o login")
            << QVariant::fromValue(Dialogos::Resposta::Sim) << true << "True" << "TelaInicial" << true;
        QTest::newRow("estacao procura o servidor sem criar banco")
            << QVariant::fromValue(Dialogos::Resposta::Nao) << true << "False" << "Reconecta" << false;
        QTest::newRow("cancelar sai sem gravar nada")
            << QVariant::fromValue(Dialogos::Resposta::Cancelar) << false << "" << "" << false;
    }
    void primeiraPartidaPergunta()
    {
        QFETCH(QVariant, resposta);
        QFETCH(bool, segue);
        QFETCH(QString, servidor);
        QFETCH(QString, tela);
        QFETCH(bool, bancoNovo);
        QTemporaryDir pasta;
        qputenv("TOLDEX_PASTA", pasta.path().toUtf8());
        Dialogos::Roteiro::responder(resposta);
        {
            Inicializacao inicio;
            QCOMPARE(inicio.iniciar(), segue);
            QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("ainda não foi configurado")));
            if (!tela.isEmpty())
                QTRY_VERIFY(RegistroTelas::aberta(tela));
            AmbienteShell::fecharTelas();
            Conexoes::fecharSlots();
            Conexoes::aoFalhar({});
        }
        QCOMPARE(ArquivoIni(Local::arquivoIni()).ler(QStringLiteral("Local"), QStringLiteral("Servidor")), servidor);
        const QStringList arquivos = QDir(pasta.path()).entryList(QDir::Files);
        QCOMPARE(arquivos.size() > 1, bancoNovo);
        // Once answered, the next start asks nothing.
        if (segue) {
            Dialogos::Roteiro::limpar();
            QCOMPARE(PrimeiraPartida::perguntar(), PrimeiraPartida::Papel::JaConfigurado);
            QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        }
    }
};

QTEST_MAIN(TesteInicializacao)
#include "tst_inicializacao.moc"
