#include <QTest>

#include "AmbienteShell.h"
#include "data/Esquema.h"
#include "shell/Inicializacao.h"
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
};

QTEST_MAIN(TesteInicializacao)
#include "tst_inicializacao.moc"
