#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <unistd.h>

#include "AmbienteShell.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"

class TesteReconecta : public QObject {
    Q_OBJECT
    AmbienteShell* m_amb = nullptr;
    QTemporaryDir m_outra;   // the server's shared folder, as a workstation sees it

    QWidget* abrir()
    {
        QWidget* w = RegistroTelas::abrir("Reconecta");
        if (!w)
            qFatal("Reconecta missing");
        return w;
    }
    static QPushButton* botao(QWidget* w, int i) { return w->findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }
    QString ler(const QString& chave) { return LeIni("Local", chave, m_amb->ini()); }
    QByteArray conteudoIni()
    {
        QFile f(m_amb->ini());
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }
    // Stops the countdown the way a user does: "Cancela n" -> "Conecta".
    void cancelar(QWidget* w)
    {
        qobject_cast<Reconecta*>(w)->tique();
        QVERIFY(botao(w, 0)->text().startsWith("Cancela "));
        QTest::mouseClick(botao(w, 0), Qt::LeftButton);
        QCOMPARE(botao(w, 0)->text(), QStringLiteral("Conecta"));
        QVERIFY(!w->findChild<QTimer*>("Contatempo")->isActive());
    }

private slots:
    void initTestCase()
    {
        Dialogos::Roteiro::iniciar();
        m_amb = new AmbienteShell;
        ConfigBanco c;
        c.pasta = m_outra.path();
        c.criarSeNaoExistir = true;
        Banco::abrir(c)->garantirEsquema();
    }
    void cleanupTestCase() { delete m_amb; }

    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
        Local::gravarPapel(true, QString());
        m_amb->gravarIni("Local", "Motor", "SQLite");
        sessao().EhServidor = QStringLiteral("True");
        Conexoes::configurar(Reconexao::configAtual());
        Reconecta::definirReparo({});
    }

    void gravaOPapel_data()
    {
        QTest::addColumn<bool>("comecaServidor");
        QTest::addColumn<bool>("servidor");
        QTest::newRow("workstation turned server writes the program's folder") << false << true;
        QTest::newRow("server turned workstation writes the server's folder") << true << false;
    }
    void gravaOPapel()
    {
        QFETCH(bool, comecaServidor);
        QFETCH(bool, servidor);
        Local::gravarPapel(comecaServidor, m_outra.path());
        sessao().EhServidor = comecaServidor ? "True" : "False";
        QWidget* w = abrir();
        QVERIFY(w->findChild<QRadioButton*>(QStringLiteral("OptOpcao(%1)").arg(comecaServidor ? 1 : 0))->isChecked());
        QSignalSpy volta(&AvisosReconexao::instancia(), &AvisosReconexao::reconectado);

        if (!servidor)
            Dialogos::Roteiro::responder(QStringLiteral("BALCAO"));
        w->findChild<QRadioButton*>(QStringLiteral("OptOpcao(%1)").arg(servidor ? 1 : 0))->click();
        auto* caminho = w->findChild<QLineEdit*>("TxtCaminho");
        if (!servidor) {
            QCOMPARE(caminho->text(), QStringLiteral("\\\\BALCAO\\Toldex"));
            caminho->setText(m_outra.path());
        }
        QTest::mouseClick(botao(w, 0), Qt::LeftButton);

        QCOMPARE(ler("Servidor"), servidor ? QStringLiteral("True") : QStringLiteral("False"));
        QCOMPARE(ler("Estacao"), servidor ? QStringLiteral("False") : QStringLiteral("True"));
        QCOMPARE(ler("Caminho"), servidor ? Local::pastaPrograma() : m_outra.path());
        QCOMPARE(volta.size(), 1);
        QCOMPARE(sessao().CaminhoBanco, servidor ? Local::pastaPrograma() : m_outra.path());
        QTRY_VERIFY(!RegistroTelas::aberta("Reconecta"));
    }

    void pastaRuimNadaMuda_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("folder that doesn't exist") << "falta" << "não foi encontrada";
        QTest::newRow("folder without the store") << "vazia" << "não contém o banco de dados";
        QTest::newRow("folder without write access") << "leitura" << "não permite gravação";
    }
    void pastaRuimNadaMuda()
    {
        QFETCH(QString, caso);
        QFETCH(QString, mensagem);
        QTemporaryDir base;
        QString pasta = base.path() + "/naoexiste";
        if (caso == "vazia")
            pasta = base.path();
        if (caso == "leitura") {
            if (geteuid() == 0)
                QSKIP("root writes anywhere");
            pasta = base.path();
            QFile(pasta + "/" + NomeArquivoBanco).open(QIODevice::WriteOnly);
            QFile::setPermissions(pasta, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        }
        const QByteArray antes = conteudoIni();
        QWidget* w = abrir();
        w->findChild<QRadioButton*>("OptOpcao(0)")->setChecked(true);
        w->findChild<QLineEdit*>("TxtCaminho")->setText(pasta);
        QTest::mouseClick(botao(w, 0), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains(mensagem));
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("Nada foi alterado."));
        QCOMPARE(conteudoIni(), antes);
        QVERIFY(RegistroTelas::aberta("Reconecta"));
        QFile::setPermissions(base.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    // Ten ticks of "Cancela n", then the store is tried again as the ini stands.
    void contagemRegressiva()
    {
        QWidget* w = abrir();
        auto* r = qobject_cast<Reconecta*>(w);
        QCOMPARE(w->findChild<QTimer*>("Contatempo")->interval(), 1300);
        QVERIFY(w->findChild<QTimer*>("Contatempo")->isActive());
        QVERIFY(!botao(w, 1)->isEnabled());
        for (int n = 10; n >= 1; --n) {
            r->tique();
            QCOMPARE(botao(w, 0)->text(), QStringLiteral("Cancela %1").arg(n));
        }
        QSignalSpy volta(&AvisosReconexao::instancia(), &AvisosReconexao::reconectado);
        r->tique();
        QCOMPARE(volta.size(), 1);
        QTRY_VERIFY(!RegistroTelas::aberta("Reconecta"));
    }

    void restauraEReparoSoNoServidor_data()
    {
        QTest::addColumn<int>("indice");
        QTest::newRow("restore") << 1;
        QTest::newRow("repair") << 2;
    }
    void restauraEReparoSoNoServidor()
    {
        QFETCH(int, indice);
        bool reparou = false;
        Reconecta::definirReparo([&reparou](QString*) { return reparou = true; });
        Local::gravarPapel(false, m_outra.path());
        sessao().EhServidor = QStringLiteral("False");
        QWidget* w = abrir();
        cancelar(w);
        QVERIFY(botao(w, indice)->isEnabled());
        QTest::mouseClick(botao(w, indice), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(),
                 QStringLiteral("Este computador está definido como estação de trabalho, \n"
                                "está função só é acessível do Servidor(computador principal)"));
        QVERIFY(!reparou);
    }

    void reparoPeloBotao()
    {
        bool reparou = false;
        Reconecta::definirReparo([&reparou](QString*) { return reparou = true; });
        QWidget* w = abrir();
        cancelar(w);
        QVERIFY(botao(w, 2)->isEnabled());
        QTest::mouseClick(botao(w, 2), Qt::LeftButton);
        QVERIFY(reparou);
        QCOMPARE(botao(w, 2)->text(), QStringLiteral("Concluido"));
        QVERIFY(w->findChild<QTimer*>("Contatempo")->isActive());
    }

    void postgresSemSenhaNoIni()
    {
        QWidget* w = abrir();
        cancelar(w);
        w->findChild<QComboBox*>("CmbMotor")->setCurrentIndex(1);
        w->findChild<QRadioButton*>("OptOpcao(1)")->setChecked(true);
        w->findChild<QLineEdit*>("TxtServidorBanco")->setText("bd.oficina.lan");
        w->findChild<QLineEdit*>("TxtPorta")->setText("5433");
        w->findChild<QLineEdit*>("TxtNomeBanco")->setText("toldex_loja");
        w->findChild<QLineEdit*>("TxtUsuarioBanco")->setText("balcao");
        w->findChild<QLineEdit*>("TxtSenhaBanco")->setText("segredo123");
        QTest::mouseClick(botao(w, 0), Qt::LeftButton);
        QCOMPARE(ler("Motor"), QStringLiteral("PostgreSQL"));
        QCOMPARE(ler("HostBanco"), QStringLiteral("bd.oficina.lan"));
        QCOMPARE(ler("PortaBanco"), QStringLiteral("5433"));
        QCOMPARE(ler("NomeBanco"), QStringLiteral("toldex_loja"));
        QCOMPARE(ler("UsuarioBanco"), QStringLiteral("balcao"));
        QVERIFY(!conteudoIni().contains("segredo123"));
        QCOMPARE(Reconexao::configAtual().senha, QStringLiteral("segredo123"));
        Reconexao::definirSenhaBanco({});
    }

    // Whatever screen fails to open the store, the user lands on the notice and Reconecta.
    void falhaDeConexaoLevaAoReconecta()
    {
        Reconexao::instalar();
        ConfigBanco c;
        c.pasta = m_amb->pasta() + "/sumiu";
        Conexoes::configurar(c);
        QVERIFY(!Conexoes::nova());
        QVERIFY(!Conexoes::nova());
        QTRY_VERIFY(RegistroTelas::aberta("Reconecta"));
        if (RegistroTelas::registrada("MensagenBd"))
            QVERIFY(RegistroTelas::aberta("MensagenBd"));
        Conexoes::aoFalhar({});
    }
};

QTEST_MAIN(TesteReconecta)
#include "tst_reconecta.moc"
