#include <QProcess>
#include <QSet>
#include <QTest>
#include <QThread>

#include "apoio/BancoTeste.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"

namespace {

// One station saving `n` new customers, each numbered inside its own write transaction.
void salvaClientes(const ConfigBanco& config, int n)
{
    auto b = Banco::abrir(config);
    for (int i = 0; i < n; ++i) {
        Transacao tr(*b);
        const qint64 cod = Numeracao::proximoCodigo(*b, "Cliente", "CodCliente");
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (?, ?)", {cod, QString("C%1").arg(cod)});
        tr.commit();
    }
}

ConfigBanco configDoAmbiente()
{
    ConfigBanco c;
    c.motor = Motor::PostgreSQL;
    c.host = qEnvironmentVariable("TOLDEX_PG_HOST");
    c.porta = qEnvironmentVariableIntValue("TOLDEX_PG_PORT");
    c.usuario = qEnvironmentVariable("TOLDEX_PG_USUARIO", "postgres");
    c.nomeBanco = qEnvironmentVariable("TOLDEX_TESTE_BANCO");
    return c;
}

} // namespace

class TesteNumeracao : public QObject {
    Q_OBJECT

    static QList<qint64> codigos(Banco& b)
    {
        QList<qint64> r;
        QSqlQuery q = b.executar("SELECT CodCliente FROM Cliente ORDER BY CodCliente");
        while (q.next())
            r << q.value(0).toLongLong();
        return r;
    }

private slots:
    void regraDosSeteCaracteres_data()
    {
        QTest::addColumn<QString>("ultimo");
        QTest::addColumn<qint64>("proximo");
        QTest::newRow("empty table gives 1") << "" << qint64(1);
        QTest::newRow("plain") << "41" << qint64(42);
        QTest::newRow("eight digits lose the head") << "12345678" << qint64(2345679);
        QTest::newRow("the largest code") << "9999999" << qint64(10000000);
        QTest::newRow("letters read as 0") << "ABC123" << qint64(1);
        QTest::newRow("blanks around") << " 7 " << qint64(8);
    }
    void regraDosSeteCaracteres()
    {
        QFETCH(QString, ultimo);
        QFETCH(qint64, proximo);
        QCOMPARE(Numeracao::proximoDe(ultimo), proximo);
    }

    void codigoPurgadoNaoVolta_data() { linhasMotores(); }
    void codigoPurgadoNaoVolta()
    {
        BANCO_DO_MOTOR(b);
        salvaClientes(b.config(), 3);
        QCOMPARE(codigos(b.banco()), (QList<qint64>{1, 2, 3}));
        // Customer 3 goes for good; a new customer must not inherit its orders.
        b->executar("DELETE FROM Cliente WHERE CodCliente = 3");
        salvaClientes(b.config(), 1);
        QCOMPARE(codigos(b.banco()), (QList<qint64>{1, 2, 4}));
        // A code typed by hand above the counter is followed too.
        b->executar("INSERT INTO Cliente (CodCliente) VALUES (12345678)");
        salvaClientes(b.config(), 1);
        QVERIFY(codigos(b.banco()).contains(2345679));
    }

    void linhasSemCodigoNaoContam_data() { linhasMotores(); }
    void linhasSemCodigoNaoContam()
    {
        // Rows saved without a code (an old store) never stand as "the last": the next code
        // follows the highest one, on both engines' orderings of NULL.
        BANCO_DO_MOTOR(b);
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (NULL, 'SEM'), (41, 'A'), (NULL, 'SEM')");
        Transacao tr(b.banco());
        QCOMPARE(Numeracao::proximoCodigo(b.banco(), "Cliente", "CodCliente"), 42);
        // Numbered by another column: the code of the row that is last by that column.
        b->executar("INSERT INTO DefeitoReclamado (CodDefeito) VALUES ('7'), ('30'), ('12')");
        QCOMPARE(Numeracao::proximoCodigo(b.banco(), "DefeitoReclamado", "CodDefeito", "Codigo"), 13);
    }

    void transacaoDesfeitaNaoQueimaCodigo_data() { linhasMotores(); }
    void transacaoDesfeitaNaoQueimaCodigo()
    {
        BANCO_DO_MOTOR(b);
        {
            Transacao tr(b.banco());
            QCOMPARE(Numeracao::proximoCodigo(b.banco(), "Cliente", "CodCliente"), 1);
        }  // no commit: the save failed
        salvaClientes(b.config(), 1);
        QCOMPARE(codigos(b.banco()), QList<qint64>{1});
    }

    void duasEstacoesAoMesmoTempo_data() { linhasMotores(); }
    void duasEstacoesAoMesmoTempo()
    {
        BANCO_DO_MOTOR(b);
        const int porEstacao = 25;
        QList<QThread*> estacoes;
        for (int i = 0; i < 2; ++i)
            estacoes << QThread::create([c = b.config()] { salvaClientes(c, porEstacao); });
        for (QThread* t : estacoes)
            t->start();
        for (QThread* t : estacoes) {
            QVERIFY(t->wait(120000));
            delete t;
        }
        const QList<qint64> r = codigos(b.banco());
        QCOMPARE(r.size(), 2 * porEstacao);
        QCOMPARE(QSet<qint64>(r.begin(), r.end()).size(), 2 * porEstacao);
        QCOMPARE(r.last(), 2 * porEstacao);
    }

    void duasEstacoesEmProcessos()
    {
        if (!BancoTeste::postgresDisponivel()) {
            if (qEnvironmentVariableIsSet("CI"))
                QFAIL("PostgreSQL de teste não configurado");
            QSKIP("PostgreSQL de teste não configurado");
        }
        BancoTeste b(Motor::PostgreSQL);
        QVERIFY2(b.pronto(), qPrintable(b.motivo()));
        QList<QProcess*> estacoes;
        for (int i = 0; i < 2; ++i) {
            auto* p = new QProcess(this);
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert("TOLDEX_TESTE_BANCO", b.config().nomeBanco);
            p->setProcessEnvironment(env);
            p->setProcessChannelMode(QProcess::ForwardedChannels);
            p->start(QCoreApplication::applicationFilePath(), {"--estacao"});
            estacoes << p;
        }
        for (QProcess* p : estacoes) {
            QVERIFY(p->waitForFinished(120000));
            QCOMPARE(p->exitCode(), 0);
        }
        const QList<qint64> r = codigos(b.banco());
        QCOMPARE(r.size(), 60);
        QCOMPARE(QSet<qint64>(r.begin(), r.end()).size(), 60);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (app.arguments().contains("--estacao")) {
        // A second station in its own process, for the test above.
        try {
            salvaClientes(configDoAmbiente(), 30);
        } catch (const ErroBanco& e) {
            qCritical("%s", qPrintable(e.textoCompleto()));
            return 1;
        }
        return 0;
    }
    TesteNumeracao t;
    return QTest::qExec(&t, argc, argv);
}
#include "tst_numeracao.moc"
