#include <QTemporaryDir>
#include <QTest>

#include "data/Conexoes.h"
#include "data/Sessao.h"

class TesteConexoes : public QObject {
    Q_OBJECT

    static ConfigBanco novoBanco(const QTemporaryDir& dir)
    {
        ConfigBanco c;
        c.pasta = dir.path();
        c.criarSeNaoExistir = true;
        Banco::abrir(c)->garantirEsquema();
        c.criarSeNaoExistir = false;
        return c;
    }

private slots:
    void falhaChegaAoChamadorEAoAviso()
    {
        QTemporaryDir dir;
        ConfigBanco c;
        c.pasta = dir.filePath("sumiu");
        Conexoes::configurar(c);
        QString avisado;
        Conexoes::aoFalhar([&](const QString& m) { avisado = m; });
        QString erro;
        QVERIFY(!Conexoes::abreConexao(1, &erro));
        QVERIFY(erro.contains("Banco de dados não localizado"));
        QCOMPARE(avisado, erro);
        QCOMPARE(sessao().ConexaoOk, 0);
        Conexoes::aoFalhar({});
    }

    void vagaFechadaReabreLimpa()
    {
        QTemporaryDir dir;
        Conexoes::configurar(novoBanco(dir));
        Banco* b = Conexoes::abreConexao(2);
        QVERIFY(b);
        QCOMPARE(sessao().ConexaoOk, 1);
        b->executar("INSERT INTO Contato (Nome) VALUES ('x')");
        Conexoes::fechaConexao(2);
        QVERIFY(!Conexoes::slot(2));
        Conexoes::fechaConexao(2);   // closing what isn't open is harmless
        b = Conexoes::abreConexao(2);
        QVERIFY(b);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM Contato").toInt(), 1);
        Conexoes::fecharSlots();
    }

    void fecharEReabrirTodas()
    {
        QTemporaryDir dir;
        Conexoes::configurar(novoBanco(dir));
        auto propria = Conexoes::nova();
        Banco* vaga = Conexoes::abreConexao(1);
        QVERIFY(propria && vaga);
        Conexoes::fecharTodas();   // as a restore does before it replaces the file
        QVERIFY(!propria->aberto() && !vaga->aberto());
        QVERIFY(Conexoes::reabrirTodas());
        QVERIFY(propria->aberto() && vaga->aberto());
        QCOMPARE(propria->escalar("SELECT COUNT(*) FROM Empresa").toInt(), 1);
        Conexoes::fecharSlots();
    }
};

QTEST_GUILESS_MAIN(TesteConexoes)
#include "tst_conexoes.moc"
