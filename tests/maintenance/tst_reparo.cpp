#include <QDir>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "apoio/ArquivosTeste.h"
#include "apoio/BancoTeste.h"
#include "data/TravaUso.h"
#include "maintenance/Reparo.h"
#include "maintenance/SqliteDireto.h"
#include "shell/AmbienteShell.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"

// The repair through the reconnection screen's third button, on the server's store.
class TesteReparo : public QObject {
    Q_OBJECT
    AmbienteShell* m_amb = nullptr;

    QString banco() const { return Conexoes::config().arquivoSqlite(); }
    static QPushButton* botao(QWidget* w, int i) { return w->findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }
    QWidget* abrirSemContagem()
    {
        QWidget* w = RegistroTelas::abrir("Reconecta");
        qobject_cast<Reconecta*>(w)->tique();
        QTest::mouseClick(botao(w, 0), Qt::LeftButton);
        return w;
    }
    // An index whose entries no longer match its table, as a crash mid-write can leave.
    void quebraIndice()
    {
        m_amb->sql("PRAGMA wal_checkpoint(TRUNCATE)");
        SqliteDireto db(banco(), SqliteDireto::Modo::Escrita);
        db.executar("PRAGMA writable_schema = ON");
        db.executar("UPDATE sqlite_master SET sql = 'CREATE INDEX Cliente_DataCadastro ON Cliente (Bairro)' "
                    "WHERE name = 'Cliente_DataCadastro'");
    }

private slots:
    void initTestCase()
    {
        Dialogos::Roteiro::iniciar();
        m_amb = new AmbienteShell;
        sessao().EhServidor = QStringLiteral("True");
        Reparo::instalar();
        for (int i = 1; i <= 3; ++i)
            m_amb->sql("INSERT INTO Cliente (CodCliente, NomeCliente, Bairro, DataCadastro) VALUES (?, ?, ?, ?)",
                       {i, QStringLiteral("CLIENTE %1").arg(i), QStringLiteral("B%1").arg(4 - i), "2009/01/31"});
    }
    void cleanupTestCase() { delete m_amb; }
    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
    }

    // From the reconnection screen the restore tests the backup right of whoever is logged
    // in; with nobody logged in it stays open, since the replaced store is always kept.
    void restauraTestaODireito_data()
    {
        QTest::addColumn<QString>("usuario");
        QTest::addColumn<int>("direito");
        QTest::addColumn<bool>("abre");
        QTest::newRow("nobody logged in") << "" << 0 << true;
        QTest::newRow("user without the right") << "ANA" << 0 << false;
        QTest::newRow("user with the right") << "ANA" << 1 << true;
    }
    void restauraTestaODireito()
    {
        QFETCH(QString, usuario);
        QFETCH(int, direito);
        QFETCH(bool, abre);
        AmbienteShell::registrarFalsa("Negado");
        sessao().UsuarioNome = usuario;
        sessao().DireitoBackup = direito;
        QWidget* w = abrirSemContagem();
        QTest::mouseClick(botao(w, 1), Qt::LeftButton);
        QCOMPARE(RegistroTelas::aberta("RestauraDados") != nullptr, abre);
        QCOMPARE(RegistroTelas::aberta("Negado") != nullptr, !abre);
        sessao().UsuarioNome.clear();
    }

    void reparaIndiceQuebrado()
    {
        quebraIndice();
        {
            SqliteDireto db(banco(), SqliteDireto::Modo::Leitura);
            QVERIFY(db.verificar(true) != QLatin1String("ok"));
        }
        QWidget* w = abrirSemContagem();
        QTest::mouseClick(botao(w, 2), Qt::LeftButton);

        QCOMPARE(botao(w, 2)->text(), QStringLiteral("Concluido"));
        SqliteDireto db(banco(), SqliteDireto::Modo::Leitura);
        QCOMPARE(db.verificar(true), QStringLiteral("ok"));
        QCOMPARE(db.texto("SELECT COUNT(*) FROM Cliente"), QStringLiteral("3"));
        QCOMPARE(QDir(m_amb->pasta()).entryList({"TOLDEX.db.antes-do-reparo_Data_*"}, QDir::Files).size(), 1);
    }

    // The repair, the backup and the restore reach the file through connections of their
    // own: each flushes every commit to the disk (FULL is 2), like the program's, and so do
    // the shared slots that a repair reopens.
    void conexoesDaManutencaoGravamNoDisco_data()
    {
        QTest::addColumn<int>("modo");
        QTest::newRow("direct, writing (repair, restore)") << int(SqliteDireto::Modo::Escrita);
        QTest::newRow("direct, reading (backup's source)") << int(SqliteDireto::Modo::Leitura);
    }
    void conexoesDaManutencaoGravamNoDisco()
    {
        QFETCH(int, modo);
        SqliteDireto db(banco(), SqliteDireto::Modo(modo));
        QCOMPARE(db.texto("PRAGMA synchronous"), QStringLiteral("2"));
        QCOMPARE(db.texto("PRAGMA journal_mode"), QStringLiteral("wal"));

        QWidget* w = abrirSemContagem();
        QTest::mouseClick(botao(w, 2), Qt::LeftButton);
        QCOMPARE(botao(w, 2)->text(), QStringLiteral("Concluido"));
        QVERIFY(Conexoes::abreConexao(1));
        QCOMPARE(Conexoes::slot(1)->escalar("PRAGMA synchronous").toInt(), 2);
        Conexoes::fecharSlots();
    }

    // Another station at work: the three lines, and the store isn't touched.
    void outraEstacaoRecusa()
    {
        const int fd = ::open(QFile::encodeName(TravaUso::arquivo(m_amb->pasta())).constData(), O_RDWR | O_CREAT, 0666);
        QCOMPARE(::flock(fd, LOCK_SH), 0);
        const QByteArray antes = ArquivosTeste::le(banco());
        QWidget* w = abrirSemContagem();
        QTest::mouseClick(botao(w, 2), Qt::LeftButton);
        ::close(fd);
        QVERIFY(Dialogos::Roteiro::contem("Não foi possivel fazer a reparar o Banco de dados no Servidor,\n"
                                          "ele pode estar sendo usado por outro computador\n"
                                          "Feche o programa Toldex em todas as máquinas."));
        QCOMPARE(ArquivosTeste::le(banco()), antes);
    }

    // Pages of a table overwritten: rebuilding the indexes can't help, the user is told
    // to restore, and the store as it was is kept aside.
    void danificadoDemaisPedeRestauracao()
    {
        m_amb->sql("PRAGMA wal_checkpoint(TRUNCATE)");
        Conexoes::fecharSlots();
        int pagina = 0, tamanho = 0;
        {
            SqliteDireto db(banco(), SqliteDireto::Modo::Leitura);
            pagina = db.texto("SELECT rootpage FROM sqlite_master WHERE name = 'Cliente'").toInt();
            tamanho = db.texto("PRAGMA page_size").toInt();
        }
        {
            // The customers' own page: only a backup brings those rows back.
            QFile f(banco());
            QVERIFY(f.open(QIODevice::ReadWrite));
            f.seek(qint64(pagina - 1) * tamanho);
            f.write(QByteArray(tamanho, '\x5A'));
        }
        QWidget* w = abrirSemContagem();
        QTest::mouseClick(botao(w, 2), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem("Restaure o último backup"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QVERIFY(botao(w, 2)->text() != QStringLiteral("Concluido"));
    }

    // PostgreSQL: the indexes are rebuilt and the statistics renewed inside the server.
    void reparaNoPostgres()
    {
        BancoTeste b(Motor::PostgreSQL);
        if (!b.pronto())
            QSKIP(qPrintable(b.motivo()));
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (1, 'JOSE')");
        const ConfigBanco c = b.config();
        b->fechar();
        Trabalho t;
        const Resultado r = t.executar([&](Trabalho& tr) { return Reparo::reparar(c, tr); });
        QVERIFY2(r.ok(), qPrintable(r.textoCompleto()));
        b->reabrir();
        QCOMPARE(b->escalar("SELECT NomeCliente FROM Cliente WHERE CodCliente = 1").toString(), QStringLiteral("JOSE"));
    }
};

QTEST_MAIN(TesteReparo)
#include "tst_reparo.moc"
