#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "apoio/ArquivosTeste.h"
#include "data/ArquivoIni.h"
#include "data/Datas.h"
#include "data/TravaUso.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/BackupDados.h"
#include "maintenance/CopiaPostgres.h"
#include "maintenance/SqliteDireto.h"
#include "ui/AmbienteTela.h"
#include "ui/ProgressoCopia.h"
#include "ui/RegistroTelas.h"

class TesteBackupDados : public QObject {
    Q_OBJECT
    QTemporaryDir m_programa;

    struct Cena {
        std::unique_ptr<BancoTeste> banco;
        // A stick whose label has a quote, a blank and a percent sign.
        QTemporaryDir volume{QDir::temp().filePath(QStringLiteral("PEN D'ÁGUA 100%-XXXXXX"))};
        BackupDados* tela = nullptr;
        QString pasta() const { return QDir(volume.path()).filePath("BackupToldex"); }
        // A case puts a file where the stick's folder was: the folder's own cleanup
        // removes only folders.
        ~Cena()
        {
            if (QFileInfo(volume.path()).isFile())
                QFile::remove(volume.path());
        }
    };

    static void prepara(Cena& c, Motor motor)
    {
        c.banco = ambienteDeTela(motor);
        if (!c.banco->pronto())
            return;
        c.banco->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (?, ?)", {41, "MARIA D'ÁVILA"});
        c.banco->banco().executar("UPDATE Empresa SET DataBackup = ?", {"2009/01/31"});
        sessao().DataUltimoBackup = "2009/01/31";
        c.tela = qobject_cast<BackupDados*>(RegistroTelas::abrir("BackupDados"));
        auto* drive = c.tela->findChild<QComboBox*>("Drive1");
        drive->addItem("Pen drive", c.volume.path());
        drive->setCurrentIndex(drive->count() - 1);
    }
    // The names the backup may take: this minute's, or the next one's if the clock turns.
    static QStringList nomesPossiveis()
    {
        const QDateTime agora = QDateTime::currentDateTime();
        return {ArquivoBackup::nome(agora), ArquivoBackup::nome(agora.addSecs(60))};
    }
    static QString dataBackup(Cena& c)
    {
        return c.banco->banco().escalar("SELECT DataBackup FROM Empresa").toString();
    }
    static void clica(QWidget* tela, const char* nome) { QTest::mouseClick(tela->findChild<QPushButton*>(nome), Qt::LeftButton); }
    static QString rotulo(QWidget* tela) { return tela->findChild<QLabel*>("Label1")->text(); }

private slots:
    void initTestCase()
    {
        sessao().ArquivoIni = QDir(m_programa.path()).filePath("Toldex.ini");
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void nomeDoArquivo()
    {
        const QDateTime quando(QDate(2009, 1, 31), QTime(14, 5));
        QCOMPARE(ArquivoBackup::nome(quando), QStringLiteral("Toldex.Backup_Data_31-01-2009_Hora_14%05"));
    }

    void gravaBackupVerificado_data() { linhasMotores(); }
    void gravaBackupVerificado()
    {
        Cena c;
        QFETCH(int, motor);
        prepara(c, static_cast<Motor>(motor));
        if (!c.banco->pronto())
            QSKIP(qPrintable(c.banco->motivo()));
        clica(c.tela, "Iniciar");

        QCOMPARE(rotulo(c.tela), QStringLiteral("Concluido"));
        const QStringList arquivos = ArquivosTeste::arquivos(c.pasta());
        QCOMPARE(arquivos.size(), 1);
        QVERIFY2(nomesPossiveis().contains(arquivos.first()), qPrintable(arquivos.first()));
        const QString backup = QDir(c.pasta()).filePath(arquivos.first());
        if (static_cast<Motor>(motor) == Motor::SQLite) {
            SqliteDireto b(backup, SqliteDireto::Modo::Leitura);
            QCOMPARE(b.texto("SELECT NomeCliente FROM Cliente WHERE CodCliente = 41"), QStringLiteral("MARIA D'ÁVILA"));
        } else {
            CopiaPostgres::Tabela t;
            QString erro;
            QVERIFY2(CopiaPostgres::lerTabela(backup, "Cliente", &t, &erro), qPrintable(erro));
            QCOMPARE(t.linhas.size(), 1);
            QVERIFY(t.linhas.first().contains(QStringLiteral("MARIA D'ÁVILA")));
        }
        QCOMPARE(dataBackup(c), Datas::hoje());
        QCOMPARE(sessao().DataUltimoBackup, Datas::hoje());
        QCOMPARE(LeIni("Local", "Backup", sessao().ArquivoIni), c.volume.path());
    }

    // Each way a backup can fail leaves no file in the folder and the old date.
    void falhaNaoDeixaNada_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("mensagem");
        for (const auto m : {Motor::SQLite, Motor::PostgreSQL}) {
            const char* nome = m == Motor::SQLite ? "sqlite" : "postgres";
            QTest::addRow("%s: cancel", nome) << int(m) << "cancelar" << TextoCopiaCancelada;
            QTest::addRow("%s: same minute, not replaced", nome) << int(m) << "mesmoMinuto" << TextoCopiaCancelada;
            QTest::addRow("%s: file can't be written", nome) << int(m) << "naoGrava" << "Não foi possivel gravar o backup";
            QTest::addRow("%s: drive without a folder", nome) << int(m) << "semPasta" << BackupDados::textoPastaProtegida();
        }
    }
    void falhaNaoDeixaNada()
    {
        QFETCH(int, motor);
        QFETCH(QString, caso);
        QFETCH(QString, mensagem);
        Cena c;
        prepara(c, static_cast<Motor>(motor));
        if (!c.banco->pronto())
            QSKIP(qPrintable(c.banco->motivo()));
        QStringList antes;
        if (caso == "mesmoMinuto") {
            QDir().mkpath(c.pasta());
            for (const QString& n : nomesPossiveis())
                ArquivosTeste::grava(QDir(c.pasta()).filePath(n), "ontem");
            Dialogos::Roteiro::responderNao();
        } else if (caso == "naoGrava") {
            // A folder where the partial file should go: the engine can't create it.
            for (const QString& n : nomesPossiveis())
                QDir().mkpath(ArquivoBackup::parcial(QDir(c.pasta()).filePath(n)));
        } else if (caso == "semPasta") {
            QDir().rmdir(c.volume.path());
            ArquivosTeste::grava(c.volume.path(), "um arquivo no lugar do disco");
        } else if (caso == "cancelar") {
            QTimer::singleShot(0, c.tela, [&c] { clica(c.tela, "Cancelar"); });
        }
        if (caso != "semPasta")
            antes = ArquivosTeste::arquivos(c.pasta());
        clica(c.tela, "Iniciar");

        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        if (caso != "semPasta") {
            QCOMPARE(ArquivosTeste::arquivos(c.pasta()), antes);
            for (const QString& n : ArquivosTeste::arquivos(c.pasta()))
                QCOMPARE(ArquivosTeste::le(QDir(c.pasta()).filePath(n)), QByteArray("ontem"));
        }
        QCOMPARE(dataBackup(c), QStringLiteral("2009/01/31"));
        QCOMPARE(sessao().DataUltimoBackup, QStringLiteral("2009/01/31"));
    }

    // Another station holds the store: no compaction, the backup is still made, and what
    // that station saved is there.
    void outraEstacaoSoImpedeACompactacao()
    {
        Cena c;
        prepara(c, Motor::SQLite);
        const int fd = ::open(QFile::encodeName(TravaUso::arquivo(c.banco->pasta())).constData(), O_RDWR | O_CREAT, 0666);
        QVERIFY(fd >= 0);
        QCOMPARE(::flock(fd, LOCK_SH), 0);
        auto estacao = c.banco->outraConexao();
        estacao->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (?, ?)", {42, "JOAO"});
        clica(c.tela, "Iniciar");
        ::close(fd);

        QVERIFY(Dialogos::Roteiro::contem(BackupDados::textoSemCompactacao()));
        QCOMPARE(rotulo(c.tela), QStringLiteral("Concluido"));
        QCOMPARE(ArquivosTeste::arquivos(c.pasta()).size(), 1);
        QCOMPARE(c.banco->banco().escalar("SELECT NomeCliente FROM Cliente WHERE CodCliente = 42").toString(), QStringLiteral("JOAO"));
    }
};

QTEST_MAIN(TesteBackupDados)
#include "tst_backupdados.moc"
