#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/ArquivosTeste.h"
#include "data/SenhaPostgres.h"

// The password kept for libpq: one line per server, port, database and user, readable by
// the user alone, other lines left as they were.
class TesteSenhaPostgres : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;

    static ConfigBanco config(const QString& host, const QString& banco)
    {
        ConfigBanco c;
        c.motor = Motor::PostgreSQL;
        c.host = host;
        c.porta = 5432;
        c.nomeBanco = banco;
        c.usuario = QStringLiteral("balcao");
        return c;
    }

private slots:
    void initTestCase() { qputenv("PGPASSFILE", QFile::encodeName(m_dir.filePath("pgpass"))); }

    void guardaSubstituiEPreserva()
    {
        ArquivosTeste::grava(SenhaPostgres::arquivo(), "outro:5432:*:admin:xyz\n");
        QVERIFY(SenhaPostgres::lembrar(config("servidor", "toldex"), "primeira"));
        QVERIFY(SenhaPostgres::lembrar(config("servidor", "toldex"), "se:gr\\eda"));
        QVERIFY(SenhaPostgres::lembrar(config("servidor", "loja2"), "outra"));
        QCOMPARE(ArquivosTeste::le(SenhaPostgres::arquivo()),
                 QByteArray("outro:5432:*:admin:xyz\n"
                            "servidor:5432:toldex:balcao:se\\:gr\\\\eda\n"
                            "servidor:5432:loja2:balcao:outra\n"));
        const QFile::Permissions p = QFile::permissions(SenhaPostgres::arquivo());
        QVERIFY(p.testFlag(QFile::ReadOwner) && p.testFlag(QFile::WriteOwner));
        QVERIFY(!(p & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)));
    }
};

QTEST_MAIN(TesteSenhaPostgres)
#include "tst_senhapostgres.moc"
