#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolBox>

#include "AmbienteShell.h"
#include "shell/MenuLateral.h"
#include "ui/Dialogos.h"

using Acoes::Tipo;

class TesteMenuLateral : public QObject {
    Q_OBJECT
    AmbienteShell* m_amb = nullptr;

    static QPushButton* item(MenuLateral& m, int g, int i)
    {
        auto* b = m.findChild<QPushButton*>(MenuLateral::nomeItem(g, i));
        if (!b)
            qFatal("side menu item %d,%d missing", g, i);
        return b;
    }

private slots:
    void initTestCase()
    {
        Dialogos::Roteiro::iniciar();
        m_amb = new AmbienteShell;
    }
    void cleanupTestCase() { delete m_amb; }
    void init()
    {
        Dialogos::Roteiro::limpar();
        AmbienteShell::fecharTelas();
        AmbienteShell::todosOsDireitos(1);
        sessao().EhServidor = QStringLiteral("True");
        sessao().CfgOSAbrePesquisa = QStringLiteral("False");
        sessao().CfgOSAbreCompleta = QStringLiteral("False");
        sessao().CfgDefineMenu = QStringLiteral("4");
    }

    void grupoInicial_data()
    {
        QTest::addColumn<QString>("defineMenu");
        QTest::addColumn<int>("grupo");
        QTest::newRow("choice of the settings screen") << "01-Administração" << 1;
        QTest::newRow("older one-digit value") << "4" << 4;
        QTest::newRow("group 10 typed by hand") << "10" << 10;
        QTest::newRow("unreadable falls back to orders") << "xx" << 4;
        QTest::newRow("out of range falls back to orders") << "11-Outro" << 4;
    }
    void grupoInicial()
    {
        QFETCH(QString, defineMenu);
        QFETCH(int, grupo);
        QCOMPARE(MenuLateral::grupoInicial(defineMenu), grupo);
        sessao().CfgDefineMenu = defineMenu;
        MenuLateral m;
        QCOMPARE(m.grupoAberto(), grupo);
        QCOMPARE(m.findChild<QToolBox*>("MenuVertical")->count(), 10);
    }

    void itensAbremOuNegam_data()
    {
        QTest::addColumn<int>("g");
        QTest::addColumn<int>("i");
        QTest::addColumn<QString>("alvo");
        QTest::addColumn<QString>("modo");
        QTest::addColumn<QString>("direito");
        const auto& gs = MenuLateral::grupos();
        for (int g = 0; g < gs.size(); ++g)
            for (int i = 0; i < gs[g].itens.size(); ++i) {
                const Acoes::Acao& a = gs[g].itens[i];
                if (a.tipo == Tipo::Tela)
                    QTest::newRow(qPrintable(QStringLiteral("%1 / %2").arg(gs[g].titulo, a.texto)))
                        << g + 1 << i + 1 << a.alvo << a.modo << a.direito;
            }
    }
    void itensAbremOuNegam()
    {
        QFETCH(int, g);
        QFETCH(int, i);
        QFETCH(QString, alvo);
        QFETCH(QString, modo);
        QFETCH(QString, direito);
        AmbienteShell::registrarFalsa(alvo);
        AmbienteShell::registrarFalsa(QStringLiteral("Negado"));
        MenuLateral m;
        m.abrirGrupo(g);
        m.show();
        QVERIFY(item(m, g, i)->isEnabled());
        item(m, g, i)->click();
        QWidget* tela = RegistroTelas::aberta(alvo);
        QVERIFY(tela);
        QCOMPARE(tela->property(Acoes::PropriedadeModo).toString(), modo);
        AmbienteShell::fecharTelas();

        AmbienteShell::todosOsDireitos(0);
        item(m, g, i)->click();
        QCOMPARE(RegistroTelas::aberta(alvo) != nullptr, direito.isEmpty());
        QCOMPARE(RegistroTelas::aberta(QStringLiteral("Negado")) != nullptr, !direito.isEmpty());
    }

    void novaOrdem_data()
    {
        QTest::addColumn<QString>("pesquisa");
        QTest::addColumn<QString>("completa");
        QTest::addColumn<QString>("alvo");
        QTest::newRow("search first wins") << "True" << "True" << "PesquisaCliente";
        QTest::newRow("whole-order screen") << "False" << "True" << "CadCompleto";
        QTest::newRow("intake screen") << "False" << "False" << "OrdemServicoEntrada";
    }
    void novaOrdem()
    {
        QFETCH(QString, pesquisa);
        QFETCH(QString, completa);
        QFETCH(QString, alvo);
        sessao().CfgOSAbrePesquisa = pesquisa;
        sessao().CfgOSAbreCompleta = completa;
        MenuLateral m;
        QVERIFY(!item(m, 4, 1)->isEnabled() || RegistroTelas::registrada(alvo));
        AmbienteShell::registrarFalsa(alvo);
        m.atualizarItens();
        item(m, 4, 1)->click();
        QVERIFY(RegistroTelas::aberta(alvo));
    }

    void servidorEFavoritos_data()
    {
        QTest::addColumn<int>("g");
        QTest::addColumn<int>("i");
        QTest::addColumn<QString>("texto");
        const QString servidor = QStringLiteral("Este computador está definido como estação de trabalho, \n"
                                                "está função só é acessível do Servidor(computador principal)");
        QTest::newRow("backup on a workstation") << 6 << 1 << servidor;
        QTest::newRow("restore on a workstation") << 6 << 3 << servidor;
        QTest::newRow("favourites not yet there") << 7 << 5 << "Em desenvolvimento,logo estará disponível";
    }
    void servidorEFavoritos()
    {
        QFETCH(int, g);
        QFETCH(int, i);
        QFETCH(QString, texto);
        AmbienteShell::registrarFalsa("BackupDados");
        AmbienteShell::registrarFalsa("RestauraDados");
        sessao().EhServidor = QStringLiteral("False");
        MenuLateral m;
        item(m, g, i)->click();
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), texto);
        QVERIFY(!RegistroTelas::aberta("BackupDados") && !RegistroTelas::aberta("RestauraDados"));
    }

    // A login or a leave elsewhere shows on the side menu by the next tick of the clock.
    void usuarioAcompanhaASessao()
    {
        sessao().UsuarioNome = QStringLiteral("JOÃO");
        MenuLateral m;
        QCOMPARE(m.findChild<QLabel*>("Etiqueta")->text(), QStringLiteral("JOÃO"));
        QVERIFY(!m.findChild<QLabel*>("ImgUsuario")->pixmap().isNull());
        QSignalSpy mudou(&m, &MenuLateral::usuarioMudou);
        sessao().UsuarioNome.clear();
        QTRY_COMPARE(mudou.size(), 1);
        QCOMPARE(m.findChild<QLabel*>("Etiqueta")->text(), QString());
        QVERIFY(m.findChild<QTimer*>("Trelogio")->isActive());
    }
};

QTEST_MAIN(TesteMenuLateral)
#include "tst_menulateral.moc"
