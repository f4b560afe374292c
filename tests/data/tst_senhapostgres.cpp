#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/ArquivosTeste.h"
#include "apoio/BancoTeste.h"
#include "data/SenhaPostgres.h"
#include "shell/AmbienteShell.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"

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

    // A station whose password file lacks the server's password gives it on the
    // reconnection screen; ticked, it is kept for this user, never in Toldex.ini.
    void reconectaGuardaASenha()
    {
        BancoTeste pg(Motor::PostgreSQL);
        if (!pg.pronto())
            QSKIP(qPrintable(pg.motivo()));
        QFile::remove(SenhaPostgres::arquivo());
        Dialogos::Roteiro::iniciar();
        AmbienteShell amb;
        sessao().EhServidor = QStringLiteral("True");
        QWidget* w = RegistroTelas::abrir("Reconecta");
        qobject_cast<Reconecta*>(w)->tique();
        QTest::mouseClick(w->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        w->findChild<QComboBox*>("CmbMotor")->setCurrentIndex(1);
        w->findChild<QRadioButton*>("OptOpcao(1)")->setChecked(true);
        w->findChild<QLineEdit*>("TxtServidorBanco")->setText(pg.config().host);
        w->findChild<QLineEdit*>("TxtPorta")->setText(QString::number(pg.config().porta));
        w->findChild<QLineEdit*>("TxtNomeBanco")->setText(pg.config().nomeBanco);
        w->findChild<QLineEdit*>("TxtUsuarioBanco")->setText(pg.config().usuario);
        w->findChild<QLineEdit*>("TxtSenhaBanco")->setText("s3nha:x");
        w->findChild<QCheckBox*>("ChkLembrar")->setChecked(true);
        QTest::mouseClick(w->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);

        const QByteArray linha = QStringLiteral("%1:%2:%3:%4:s3nha\\:x\n")
                                     .arg(pg.config().host).arg(pg.config().porta).arg(pg.config().nomeBanco, pg.config().usuario)
                                     .toUtf8();
        QCOMPARE(ArquivosTeste::le(SenhaPostgres::arquivo()), linha);
        QVERIFY(!ArquivosTeste::le(amb.ini()).contains("s3nha"));
        AmbienteShell::fecharTelas();
        Conexoes::fecharSlots();
    }
};

QTEST_MAIN(TesteSenhaPostgres)
#include "tst_senhapostgres.moc"
