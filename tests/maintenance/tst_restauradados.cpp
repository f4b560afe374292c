#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "ApoioManutencao.h"
#include "apoio/ArquivosTeste.h"
#include "data/TravaUso.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"
#include "maintenance/Restauracao.h"
#include "maintenance/RestauraDados.h"
#include "maintenance/SqliteDireto.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

class TesteRestauraDados : public QObject {
    Q_OBJECT
    QTemporaryDir m_volume;

    static void cliente(Banco& b, int cod, const char* nome)
    {
        b.executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (?, ?)", {cod, nome});
    }
    static QStringList clientes(const ConfigBanco& c)
    {
        auto b = Banco::abrir(c);
        QStringList r;
        QSqlQuery q = b->executar("SELECT NomeCliente FROM Cliente ORDER BY CodCliente");
        while (q.next())
            r << q.value(0).toString();
        return r;
    }
    QString backupDe(BancoTeste& b)
    {
        return fazerBackup(b.config(), QDir(m_volume.path()).filePath("BackupToldex"));
    }
    static RestauraDados* abrir()
    {
        return qobject_cast<RestauraDados*>(RegistroTelas::abrir("RestauraDados"));
    }
    static void iniciar(QWidget* t, const QString& arquivo)
    {
        Dialogos::Roteiro::responder(arquivo);
        QTest::mouseClick(t->findChild<QPushButton*>("Iniciar"), Qt::LeftButton);
    }

private slots:
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Conexoes::fecharSlots();
        TravaUso::sair();
    }

    // A customer added after the backup goes with the store that is kept aside, and the
    // store in place is the backup's.
    void idaEVolta_data() { linhasMotores(); }
    void idaEVolta()
    {
        BANCO_DO_MOTOR(b);
        Conexoes::configurar(b.config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        cliente(b.banco(), 1, "ANTES");
        const QString backup = backupDe(b);
        QVERIFY(QFileInfo::exists(backup));
        cliente(b.banco(), 2, "DEPOIS");
        auto* t = abrir();
        b.banco().fechar();
        iniciar(t, backup);

        QCOMPARE(t->findChild<QLabel*>("Label1")->text(), QStringLiteral("Concluido"));
        QCOMPARE(clientes(b.config()), QStringList{"ANTES"});
        if (b.config().motor == Motor::SQLite) {
            const QStringList guardados = QDir(b.pasta()).entryList({"TOLDEX.db.antes-da-restauracao_Data_*"}, QDir::Files);
            QCOMPARE(guardados.size(), 1);
            SqliteDireto velho(QDir(b.pasta()).filePath(guardados.first()), SqliteDireto::Modo::Leitura);
            QCOMPARE(velho.coluna("SELECT NomeCliente FROM Cliente ORDER BY CodCliente"), (QStringList{"ANTES", "DEPOIS"}));
            QVERIFY(!QFileInfo::exists(Restauracao::arquivoRestaurando(b.pasta())));
        } else {
            ConfigBanco velho = b.config();
            auto admin = Banco::abrir([&] { ConfigBanco a = b.config(); a.nomeBanco = "postgres"; return a; }());
            velho.nomeBanco = admin->escalar("SELECT datname FROM pg_database WHERE datname LIKE ?",
                                             {b.config().nomeBanco + "_antes_%"}).toString();
            QVERIFY(!velho.nomeBanco.isEmpty());
            QCOMPARE(clientes(velho), (QStringList{"ANTES", "DEPOIS"}));
            admin->executar(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(velho.nomeBanco));
        }
    }

    // A backup from an older version, without a column this one reads, is brought up to
    // date as it comes back, and the shop's settings are read from it.
    void backupAntigoEhAtualizado()
    {
        auto b = ambienteDeTela(Motor::SQLite);
        cliente(b->banco(), 1, "ANTIGO");
        b->banco().executar("UPDATE Empresa SET NomeEmpresa = 'OFICINA ANTIGA'");
        const QString backup = backupDe(*b);
        {
            SqliteDireto velho(backup, SqliteDireto::Modo::Escrita);
            velho.executar("ALTER TABLE Cliente DROP COLUMN Email");
        }
        auto* t = abrir();
        b->banco().fechar();
        iniciar(t, backup);
        QCOMPARE(t->findChild<QLabel*>("Label1")->text(), QStringLiteral("Concluido"));
        auto novo = Banco::abrir(b->config());
        QCOMPARE(novo->escalar("SELECT COUNT(*) FROM pragma_table_info('Cliente') WHERE name = 'Email'").toInt(), 1);
        QCOMPARE(novo->escalar("SELECT NomeCliente FROM Cliente").toString(), QStringLiteral("ANTIGO"));
    }

    // A file that isn't our backup, or another station at work: a clear message, and the
    // store stays byte for byte as it was.
    void recusaSemTocarNoBanco_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("text file named like a backup") << "texto" << ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup);
        QTest::newRow("another program's database") << "outro" << ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup);
        QTest::newRow("truncated backup") << "cortado" << ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado);
        QTest::newRow("another station at work") << "estacao" << RestauraDados::textoOcupado();
    }
    void recusaSemTocarNoBanco()
    {
        QFETCH(QString, caso);
        QFETCH(QString, mensagem);
        auto b = ambienteDeTela(Motor::SQLite);
        cliente(b->banco(), 1, "FICA");
        b->banco().executar("PRAGMA wal_checkpoint(TRUNCATE)");
        QString arquivo = QDir(m_volume.path()).filePath("Toldex.Backup_Data_01-02-2009_Hora_10%00");
        QFile::remove(arquivo);
        int fd = -1;
        if (caso == "texto") {
            ArquivosTeste::grava(arquivo, "isto não é um banco de dados");
        } else if (caso == "outro") {
            {
                QSqlDatabase outro = QSqlDatabase::addDatabase("QSQLITE", "outro_programa");
                outro.setDatabaseName(arquivo);
                QVERIFY(outro.open());
                QSqlQuery(outro).exec("CREATE TABLE Notas (Texto TEXT)");
                outro.close();
            }
            QSqlDatabase::removeDatabase("outro_programa");
        } else if (caso == "cortado") {
            const QByteArray inteiro = ArquivosTeste::le(backupDe(*b));
            QFile::remove(arquivo);
            ArquivosTeste::grava(arquivo, inteiro.left(inteiro.size() / 2));
        } else {
            arquivo = backupDe(*b);
            fd = ::open(QFile::encodeName(TravaUso::arquivo(b->pasta())).constData(), O_RDWR | O_CREAT, 0666);
            QCOMPARE(::flock(fd, LOCK_SH), 0);
        }
        const QByteArray antes = ArquivosTeste::le(b->config().arquivoSqlite());
        auto* t = abrir();
        iniciar(t, arquivo);
        if (fd >= 0)
            ::close(fd);

        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(ArquivosTeste::le(b->config().arquivoSqlite()), antes);
        QVERIFY(!QFileInfo::exists(Restauracao::arquivoRestaurando(b->pasta())));
        QCOMPARE(QDir(b->pasta()).entryList({"*antes-da-restauracao*"}, QDir::Files).size(), 0);
    }

    // A screen whose leave question was answered Cancel keeps its work, and the restore
    // waits; another PostgreSQL connection to the store refuses it. Nothing changes.
    void paraAntesDeTrocar_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("caso");
        QTest::newRow("sqlite: a screen stays open") << int(Motor::SQLite) << "tela";
        QTest::newRow("postgres: a screen stays open") << int(Motor::PostgreSQL) << "tela";
        QTest::newRow("postgres: another station connected") << int(Motor::PostgreSQL) << "estacao";
    }
    void paraAntesDeTrocar()
    {
        QFETCH(QString, caso);
        BANCO_DO_MOTOR(b);
        Conexoes::configurar(b.config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        cliente(b.banco(), 1, "ANTES");
        const QString backup = backupDe(b);
        cliente(b.banco(), 2, "DEPOIS");
        struct Teimosa : QWidget {
            void closeEvent(QCloseEvent* e) override { e->ignore(); }
        };
        if (!RegistroTelas::registrada("TelaTeimosa"))
            RegistroTelas::registrar("TelaTeimosa", [] { return new Teimosa; });
        QSqlDatabase estacao;
        if (caso == "tela") {
            RegistroTelas::abrir("TelaTeimosa");
        } else {
            estacao = QSqlDatabase::addDatabase("QPSQL", "outra_estacao");
            estacao.setHostName(b.config().host);
            estacao.setPort(b.config().porta);
            estacao.setUserName(b.config().usuario);
            estacao.setDatabaseName(b.config().nomeBanco);
            QVERIFY(estacao.open());
        }
        auto* t = abrir();
        iniciar(t, backup);
        if (caso == "estacao")
            QVERIFY2(Dialogos::Roteiro::contem(RestauraDados::textoOcupado()), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QVERIFY(t->findChild<QLabel*>("Label1")->text() != QStringLiteral("Concluido"));
        QCOMPARE(clientes(b.config()), (QStringList{"ANTES", "DEPOIS"}));
        if (caso == "tela") {
            QVERIFY(RegistroTelas::aberta("TelaTeimosa"));
            delete RegistroTelas::aberta("TelaTeimosa");
        }
        estacao.close();
        estacao = QSqlDatabase();
        QSqlDatabase::removeDatabase("outra_estacao");
    }

    // The program killed mid-restore finds one whole store at the next start.
    void interrompidaAoMeio_data()
    {
        QTest::addColumn<bool>("bancoJaSaiu");
        QTest::newRow("before the store went aside") << false;
        QTest::newRow("after the store went aside") << true;
    }
    void interrompidaAoMeio()
    {
        QFETCH(bool, bancoJaSaiu);
        auto b = ambienteDeTela(Motor::SQLite);
        cliente(b->banco(), 1, "VELHO");
        const QString backup = backupDe(*b);
        b->banco().executar("UPDATE Cliente SET NomeCliente = 'NOVO'");
        b->banco().fechar();
        QFile::copy(backup, Restauracao::arquivoRestaurando(b->pasta()));
        if (bancoJaSaiu)
            QFile::rename(b->config().arquivoSqlite(), b->config().arquivoSqlite() + ".antes-da-restauracao_x");
        Restauracao::arrumarAoIniciar(b->pasta());

        QVERIFY(!QFileInfo::exists(Restauracao::arquivoRestaurando(b->pasta())));
        QCOMPARE(clientes(b->config()), QStringList{bancoJaSaiu ? QStringLiteral("VELHO") : QStringLiteral("NOVO")});
    }
};

QTEST_MAIN(TesteRestauraDados)
#include "tst_restauradados.moc"
