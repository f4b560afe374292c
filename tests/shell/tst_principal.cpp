#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QLineEdit>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include "AmbienteShell.h"
#include "data/Datas.h"
#include "maintenance/Trabalho.h"
#include "shell/BarraStatus.h"
#include "shell/ImagemPrincipal.h"
#include "shell/Principal.h"
#include "ui/Dialogos.h"

using Acoes::Tipo;

// Catches the pages the menus send to the browser.
class Navegador : public QObject {
    Q_OBJECT
public:
    QList<QUrl> abertas;
public slots:
    void abrir(const QUrl& url) { abertas.append(url); }
};

class TestePrincipal : public QObject {
    Q_OBJECT

    AmbienteShell* m_amb = nullptr;

    QAction* acao(Principal& p, const QString& nome)
    {
        auto* a = p.findChild<QAction*>(nome);
        if (!a)
            qFatal("menu entry %s missing", qPrintable(nome));
        return a;
    }

private slots:
    void initTestCase()
    {
        Dialogos::Roteiro::iniciar();
        m_amb = new AmbienteShell;
        m_amb->sql("UPDATE Empresa SET NomeEmpresa = ?, DataBackup = ?",
                   {QStringLiteral("Oficina Zé"), Datas::hoje()});
    }
    void cleanupTestCase() { delete m_amb; }

    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
        sessao().EhServidor = QStringLiteral("True");
        sessao().CfgOSAbrePesquisa = QStringLiteral("False");
        AmbienteShell::todosOsDireitos(1);
    }

    // Runs first: no other test has put a stand-in under this name yet.
    void entradaSemTelaFicaDesabilitadaAteATelaChegar()
    {
        const QString alvo = QStringLiteral("Movimento");
        if (RegistroTelas::registrada(alvo))
            QSKIP("the cash report is already in this build");
        Principal p;
        QAction* mov = acao(p, "MnuMov");
        QVERIFY(mov->isVisible());
        QVERIFY(!mov->isEnabled());
        AmbienteShell::registrarFalsa(alvo);
        auto* menu = p.findChild<QMenu*>("MnuVend");
        QVERIFY(menu);
        emit menu->aboutToShow();
        QVERIFY(mov->isEnabled());
        mov->trigger();
        QWidget* tela = RegistroTelas::aberta(alvo);
        QVERIFY(tela);
        // A plain screen is a child of the work area.
        auto* sub = qobject_cast<QMdiSubWindow*>(tela->parentWidget());
        QVERIFY(sub);
        QCOMPARE(sub->mdiArea(), p.areaTrabalho());
    }

    void caption_e_avisoDeBackup_data()
    {
        QTest::addColumn<QString>("dataBackup");
        QTest::addColumn<bool>("avisa");
        QTest::newRow("never backed up: reminder") << QStringLiteral("") << true;
        QTest::newRow("backed up today: no reminder") << Datas::hoje() << false;
    }
    void caption_e_avisoDeBackup()
    {
        QFETCH(QString, dataBackup);
        QFETCH(bool, avisa);
        m_amb->sql("UPDATE Empresa SET DataBackup = ?", {dataBackup});
        Principal p;
        QCOMPARE(p.windowTitle(), QStringLiteral("[%1] Oficina Zé").arg(QStringLiteral(TOLDEX_VERSAO)));
        if (avisa)
            QTRY_VERIFY(Dialogos::Roteiro::contem("Faça o backup do Banco de dados"));
        QCoreApplication::processEvents();
        QCOMPARE(Dialogos::Roteiro::contem("Faça o backup do Banco de dados"), avisa);
        QCOMPARE(RegistroTelas::areaMdi(), p.areaTrabalho());
        // The settings screen saves and asks the main window to read them again.
        m_amb->sql("UPDATE Empresa SET NomeEmpresa = ?, DataBackup = ?", {QStringLiteral("Oficina Nova"), Datas::hoje()});
        QVERIFY(QMetaObject::invokeMethod(&p, "atualizarEmpresa"));
        QCOMPARE(p.windowTitle(), QStringLiteral("[%1] Oficina Nova").arg(QStringLiteral(TOLDEX_VERSAO)));
        m_amb->sql("UPDATE Empresa SET NomeEmpresa = ?", {QStringLiteral("Oficina Zé")});
    }

    void entradasAbremOuNegam_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("alvo");
        QTest::addColumn<QString>("modo");
        QTest::addColumn<QString>("direito");
        for (const Principal::Entrada& e : Principal::entradas())
            if (e.acao.tipo == Tipo::Tela)
                QTest::newRow(qPrintable(e.acao.nome)) << e.acao.nome << e.acao.alvo << e.acao.modo << e.acao.direito;
    }
    void entradasAbremOuNegam()
    {
        QFETCH(QString, nome);
        QFETCH(QString, alvo);
        QFETCH(QString, modo);
        QFETCH(QString, direito);
        AmbienteShell::registrarFalsa(alvo);
        AmbienteShell::registrarFalsa(QStringLiteral("Negado"));
        Principal p;
        QAction* a = acao(p, nome);
        QVERIFY(a->isEnabled());

        a->trigger();
        QWidget* tela = RegistroTelas::aberta(alvo);
        QVERIFY2(tela, "opens with every right");
        QCOMPARE(tela->property(Acoes::PropriedadeModo).toString(), modo);
        QVERIFY(!RegistroTelas::aberta(QStringLiteral("Negado")));
        AmbienteShell::fecharTelas();

        AmbienteShell::todosOsDireitos(0);
        a->trigger();
        if (direito.isEmpty()) {
            QVERIFY2(RegistroTelas::aberta(alvo), "an entry without a right opens for anyone");
        } else {
            QVERIFY2(!RegistroTelas::aberta(alvo), "the right is tested");
            QVERIFY(RegistroTelas::aberta(QStringLiteral("Negado")));
        }
    }

    // After a leave through the status bar nothing with a right opens.
    void depoisDeSairSoAbreOQueNaoTemDireito()
    {
        AmbienteShell::registrarFalsa(QStringLiteral("Login"));
        AmbienteShell::registrarFalsa(QStringLiteral("Negado"));
        sessao().UsuarioNome = QStringLiteral("ANA");
        Principal p;
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(p.barraStatus()->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QTRY_VERIFY(sessao().UsuarioNome.isEmpty());
        QCOMPARE(sessao().DireitoClienteLe, 0);
        for (const Principal::Entrada& e : Principal::entradas()) {
            if (e.acao.tipo != Tipo::Tela || e.acao.direito.isEmpty())
                continue;
            AmbienteShell::registrarFalsa(e.acao.alvo);
            acao(p, e.acao.nome)->trigger();
            QVERIFY2(!RegistroTelas::aberta(e.acao.alvo), qPrintable(e.acao.nome));
        }
        QVERIFY(RegistroTelas::aberta(QStringLiteral("Negado")));
    }

    void backupERestauracaoSoNoServidor_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("alvo");
        QTest::newRow("backup refused on a workstation") << "MnuBack" << "BackupDados";
        QTest::newRow("restore refused on a workstation") << "MnuRest" << "RestauraDados";
    }
    void backupERestauracaoSoNoServidor()
    {
        QFETCH(QString, nome);
        QFETCH(QString, alvo);
        AmbienteShell::registrarFalsa(alvo);
        sessao().EhServidor = QStringLiteral("False");
        Principal p;
        acao(p, nome)->trigger();
        QVERIFY(!RegistroTelas::aberta(alvo));
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(),
                 QStringLiteral("Este computador está definodo como estação de trabalho,\n"
                                "está função só é acessível do Servidor(computador principal)"));
    }

    void novaOrdem_data()
    {
        QTest::addColumn<QString>("abrePesquisa");
        QTest::addColumn<QString>("alvo");
        QTest::addColumn<QString>("modo");
        QTest::newRow("customer search first") << "True" << "PesquisaCliente" << "EntradaOs";
        QTest::newRow("straight to intake") << "False" << "OrdemServicoEntrada" << "";
    }
    void novaOrdem()
    {
        QFETCH(QString, abrePesquisa);
        QFETCH(QString, alvo);
        QFETCH(QString, modo);
        AmbienteShell::registrarFalsa(alvo);
        // The main window reads the choice from Empresa as it loads.
        m_amb->sql("UPDATE Empresa SET OSAbrePesquisa = ?, OSAbreCompleta = -1", {abrePesquisa == "True" ? -1 : 0});
        Principal p;
        QCOMPARE(sessao().CfgOSAbreCompleta, QStringLiteral("True"));   // the menu bar ignores it
        acao(p, "mnunovaos")->trigger();
        QWidget* tela = RegistroTelas::aberta(alvo);
        QVERIFY(tela);
        QCOMPARE(tela->property(Acoes::PropriedadeModo).toString(), modo);
    }

    void fechamento_data()
    {
        QTest::addColumn<int>("dias");
        QTest::addColumn<bool>("servidor");
        QTest::addColumn<int>("direitoBackup");
        QTest::addColumn<QVariantList>("respostas");
        QTest::addColumn<bool>("fecha");
        QTest::addColumn<QString>("esperado");
        const QString backup = QStringLiteral("O backup já não é feito a mais de um dia,deseja fazer agora ?");
        const QString sair = QStringLiteral("Você quer sair do programa ?");
        QTest::newRow("2 days: only asks to leave") << 2 << true << 1 << QVariantList{true} << true << sair;
        QTest::newRow("3 days, no backup, leave") << 3 << true << 1 << QVariantList{false, true} << true << sair;
        QTest::newRow("refusing to leave keeps the window") << 0 << true << 1 << QVariantList{false} << false << sair;
        QTest::newRow("backup now on a workstation: server message")
            << 5 << false << 1 << QVariantList{true} << false
            << QStringLiteral("Este computador está definido como estação de trabalho, \n"
                              "está função só é acessível do Servidor(computador principal)");
        QTest::newRow("backup now without the right: Negado") << 5 << true << 0 << QVariantList{true} << false << backup;
        QTest::newRow("backup now: opens the backup") << 5 << true << 1 << QVariantList{true} << false << backup;
    }
    void fechamento()
    {
        QFETCH(int, dias);
        QFETCH(bool, servidor);
        QFETCH(int, direitoBackup);
        QFETCH(QVariantList, respostas);
        QFETCH(bool, fecha);
        QFETCH(QString, esperado);
        AmbienteShell::registrarFalsa(QStringLiteral("BackupDados"));
        AmbienteShell::registrarFalsa(QStringLiteral("Negado"));
        Principal p;
        p.show();
        sessao().DataUltimoBackup = Datas::paraBanco(QDate::currentDate().addDays(-dias));
        sessao().EhServidor = servidor ? QStringLiteral("True") : QStringLiteral("False");
        sessao().DireitoBackup = direitoBackup;
        Dialogos::Roteiro::limpar();
        for (const QVariant& r : respostas)
            Dialogos::Roteiro::responder(r);
        QCOMPARE(p.close(), fecha);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), esperado);
        const bool perguntouBackup = Dialogos::Roteiro::contem("O backup já não é feito");
        QCOMPARE(perguntouBackup, dias > 2);
        if (dias > 2 && respostas.first().toBool()) {
            QCOMPARE(RegistroTelas::aberta("BackupDados") != nullptr, servidor && direitoBackup == 1);
            QCOMPARE(RegistroTelas::aberta("Negado") != nullptr, servidor && direitoBackup == 0);
            QVERIFY(!Dialogos::Roteiro::contem("Você quer sair"));
        }
    }

    void telaComDigitacaoSeguraOFechamento_data()
    {
        QTest::addColumn<QVariant>("resposta");     // to "Você alterou o registro,deseja salvar ?"
        QTest::addColumn<int>("direito");           // DireitoClienteAl
        QTest::addColumn<int>("senhaObrigatoria");
        QTest::addColumn<bool>("fecha");
        QTest::newRow("Cancelar keeps the program and the typing")
            << QVariant::fromValue(Dialogos::Resposta::Cancelar) << 1 << 0 << false;
        QTest::newRow("a save refused for lack of a right keeps them")
            << QVariant::fromValue(Dialogos::Resposta::Sim) << 0 << 0 << false;
        QTest::newRow("a password still to give keeps them")
            << QVariant::fromValue(Dialogos::Resposta::Sim) << 1 << -1 << false;
        QTest::newRow("Não lets the program close") << QVariant::fromValue(Dialogos::Resposta::Nao) << 1 << 0 << true;
    }
    void telaComDigitacaoSeguraOFechamento()
    {
        QFETCH(QVariant, resposta);
        QFETCH(int, direito);
        QFETCH(int, senhaObrigatoria);
        QFETCH(bool, fecha);
        AmbienteShell::registrarFalsa(QStringLiteral("Negado"));
        AmbienteShell::registrarFalsa(QStringLiteral("SenhaPde"));
        m_amb->sql("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (1, 'JOAO')");
        Principal p;
        p.show();
        sessao().DataUltimoBackup = Datas::hoje();
        sessao().DireitoClienteAl = direito;
        sessao().SenhaObrigatoria = senhaObrigatoria;
        sessao().SenhaLiberada = 0;
        QPointer<QWidget> cliente = RegistroTelas::abrir("Cliente");
        QVERIFY(cliente);
        auto* nome = cliente->findChild<QLineEdit*>("Text1(0)");
        QVERIFY(nome);
        nome->setFocus();
        QTest::keyClicks(nome, " SILVA");
        Dialogos::Roteiro::limpar();
        Dialogos::Roteiro::responderSim();  // "Você quer sair do programa ?"
        Dialogos::Roteiro::responder(resposta);
        QCOMPARE(p.close(), fecha);
        QVERIFY(Dialogos::Roteiro::contem("Você alterou o registro,deseja salvar ?"));
        if (!fecha) {
            QVERIFY(cliente);
            QCOMPARE(nome->text(), QString("JOAO SILVA"));
        }
        sessao().SenhaObrigatoria = 0;
        m_amb->sql("DELETE FROM Cliente");
        AmbienteShell::fecharTelas();
    }

    void programaAusenteEhExplicado()
    {
        m_amb->gravarIni("Programas", "Editor", "/nao/existe/editor --novo");
        Principal p;
        acao(p, "MnuNotas")->trigger();
        QVERIFY(Dialogos::Roteiro::contem("O programa bloco de notas não foi encontrado"));
        QVERIFY(Dialogos::Roteiro::contem("/nao/existe/editor"));
        Dialogos::Roteiro::limpar();
        m_amb->gravarIni("Programas", "Calculadora", "/bin/true");
        acao(p, "MnuCalc")->trigger();
        QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
    }

    void paginaAbreNoNavegador()
    {
        Navegador nav;
        QDesktopServices::setUrlHandler("https", &nav, "abrir");
        m_amb->gravarIni("Internet", "Forum", "https://forum.exemplo.com.br/toldex");
        Principal p;
        acao(p, "Mnuforum")->trigger();
        QDesktopServices::unsetUrlHandler("https");
        QCOMPARE(nav.abertas, QList<QUrl>{QUrl("https://forum.exemplo.com.br/toldex")});
    }

    // "Atualizar Toldex" always answers, whatever stops the check.
    void atualizarPeloMenuResponde_data()
    {
        QTest::addColumn<bool>("versaoLocal");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("sem endereco configurado") << true << "Nenhum endereço de atualização está configurado";
        QTest::newRow("sem Versao.txt") << false << "Não foi encontrado o arquivo Versao.txt";
    }
    void atualizarPeloMenuResponde()
    {
        QFETCH(bool, versaoLocal);
        QFETCH(QString, mensagem);
        QFile versao(QDir(m_amb->pasta()).filePath("Versao.txt"));
        if (versaoLocal) {
            QVERIFY(versao.open(QIODevice::WriteOnly));
            versao.write("3.1.0\n");
            versao.close();
        }
        Principal p;
        QCoreApplication::processEvents();  // the silent check of the start says nothing
        QVERIFY(!Dialogos::Roteiro::contem(mensagem));
        acao(p, "MnuSic")->trigger();
        QTRY_VERIFY(Dialogos::Roteiro::contem(mensagem));
        versao.remove();
    }

    void sobreMostraAVersaoReal()
    {
        Principal p;
        acao(p, "MnuSobre")->trigger();
        QWidget* sobre = RegistroTelas::aberta("frmAbout");
        QVERIFY(sobre);
        QVERIFY(sobre->findChild<QLabel*>("lblVersion")->text().contains(QStringLiteral(TOLDEX_VERSAO)));
        QTest::mouseClick(sobre->findChild<QPushButton*>("cmdSysInfo"), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains(QStringLiteral("Qt %1").arg(qVersion())));
    }

    // The shop's picture fills the work area and follows its size; the sheets' picture
    // is kept aside.
    void imagemAcompanhaAAreaDeTrabalho()
    {
        QImage foto(400, 200, QImage::Format_RGB32);
        foto.fill(Qt::darkGreen);
        const QString arquivo = m_amb->pasta() + "/loja.png";
        QVERIFY(foto.save(arquivo));
        m_amb->gravarIni("Imagem", "Foto", arquivo);
        m_amb->gravarIni("Imagem", "FotoImprimir", arquivo);
        Principal p;
        p.resize(1000, 700);
        p.show();
        QVERIFY(QTest::qWaitForWindowExposed(&p));
        auto* imagem = p.findChild<ImagemPrincipal*>("ImagemPrincipal");
        QVERIFY(imagem && imagem->temImagem());
        QVERIFY(!imagem->imagemImprimir().isNull());
        auto* logo = imagem->findChild<QLabel*>("Logo");
        QWidget* area = p.areaTrabalho()->viewport();
        QTRY_COMPARE(imagem->size(), area->size());
        QCOMPARE(logo->pixmap().width(), qMin(area->width(), area->height() * 2));
        p.resize(1200, 760);
        QTRY_COMPARE(imagem->size(), area->size());
        QCOMPARE(logo->pixmap().width(), qMin(area->width(), area->height() * 2));
        m_amb->gravarIni("Imagem", "Foto", "");
        m_amb->gravarIni("Imagem", "FotoImprimir", "");
    }

    void menuSemAcaoEMenuLateral()
    {
        Principal p;
        p.show();
        QVERIFY(acao(p, "MnuDefinir")->isEnabled());
        acao(p, "MnuDefinir")->trigger();
        QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        auto* dock = p.findChild<QWidget*>("DockMenuLateral");
        dock->hide();
        acao(p, "MnuLateral")->trigger();
        QVERIFY(dock->isVisible());
    }

    // A backup half written is worse than none: the window stays until the job ends.
    void naoFechaDuranteUmTrabalho()
    {
        Principal p;
        p.show();
        sessao().DataUltimoBackup = Datas::hoje();
        Trabalho t;
        bool fechou = true;
        QTimer::singleShot(0, &p, [&] {
            fechou = p.close();
            t.cancelar();
        });
        t.executar([](Trabalho& tr) {
            while (!tr.cancelado())
                QThread::msleep(5);
            return Resultado::cancelou();
        });
        QVERIFY(!fechou);
        QVERIFY(Dialogos::Roteiro::contem("Aguarde o fim ou cancele-a antes de sair do programa."));
        QVERIFY(!Dialogos::Roteiro::contem("Você quer sair"));
    }

    // The reminder at start is a question the user can act on.
    void avisoDeBackupLevaAoBackup()
    {
        AmbienteShell::registrarFalsa(QStringLiteral("BackupDados"));
        m_amb->sql("UPDATE Empresa SET DataBackup = ''");
        sessao().EhServidor = QStringLiteral("True");
        sessao().DireitoBackup = 1;
        Dialogos::Roteiro::responderSim();
        Principal p;
        QTRY_VERIFY(RegistroTelas::aberta("BackupDados"));
        RegistroTelas::fechar("BackupDados");
    }
};

QTEST_MAIN(TestePrincipal)
#include "tst_principal.moc"
