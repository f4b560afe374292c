#include <QDate>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "AmbienteShell.h"
#include "shell/BarraStatus.h"
#include "shell/LeEmpresa.h"
#include "ui/Dialogos.h"

class TesteBarraStatus : public QObject {
    Q_OBJECT
    static QPushButton* botao(BarraStatus& b, int i) { return b.findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }

private slots:
    void initTestCase() { Dialogos::Roteiro::iniciar(); }
    void init() { Dialogos::Roteiro::limpar(); }

    void dataPorExtenso_data()
    {
        QTest::addColumn<QDate>("data");
        QTest::addColumn<QString>("texto");
        QTest::newRow("weekday and month in Portuguese") << QDate(2009, 1, 5) << "segunda-feira 05 janeiro 2009";
        QTest::newRow("accented month") << QDate(2026, 3, 14) << "sábado 14 março 2026";
    }
    void dataPorExtenso()
    {
        QFETCH(QDate, data);
        QFETCH(QString, texto);
        QCOMPARE(BarraStatus::dataPorExtenso(data), texto);
    }

    void maquina_data()
    {
        QTest::addColumn<bool>("servidor");
        QTest::addColumn<QString>("esperado");
        const QString nome = NomeComputador();
        const QString ip = BarraStatus::enderecoLocal();
        QTest::newRow("server") << true << QStringLiteral("Servidor : %1 -_- IP : %2 -_- Testado em 01/02").arg(nome, ip);
        QTest::newRow("workstation")
            << false << QStringLiteral("Estação de trabalho %1-IP : %2 Testado em 01/02 ao CENTRAL").arg(nome, ip);
    }
    void maquina()
    {
        QFETCH(bool, servidor);
        QFETCH(QString, esperado);
        sessao().EhServidor = servidor ? "True" : "False";
        sessao().CfgNomeServidor = QStringLiteral("CENTRAL");
        BarraStatus b;
        b.atualizar(QStringLiteral("Testado em 01/02"));
        QCOMPARE(botao(b, 0)->text(), esperado);
        QCOMPARE(botao(b, 2)->text(), BarraStatus::dataPorExtenso(QDate::currentDate()));
        QTest::mouseClick(botao(b, 0), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(),
                 QStringLiteral("Nome computador:%1\nIP:%2\nTestado em 01/02").arg(NomeComputador(), BarraStatus::enderecoLocal()));
        b.mostrarDesconectado();
        QCOMPARE(botao(b, 0)->text(), QStringLiteral("Banco de dados não encontrado está desconectado."));
    }

    void desativarUsuario_data()
    {
        QTest::addColumn<bool>("sim");
        QTest::newRow("no keeps the user") << false;
        QTest::newRow("yes leaves through the login") << true;
    }
    void desativarUsuario()
    {
        QFETCH(bool, sim);
        AmbienteShell::registrarFalsa("Login");
        AmbienteShell::fecharTelas();
        AmbienteShell::todosOsDireitos(1);
        sessao().UsuarioNome = QStringLiteral("ANA");
        sessao().UsuarioCodigo = QStringLiteral("7");
        BarraStatus b;
        b.definirUsuario(QStringLiteral("ANA"), QStringLiteral("  Sair"));
        QCOMPARE(botao(b, 1)->text(), QStringLiteral("ANA  Sair"));
        QSignalSpy saiu(&b, &BarraStatus::usuarioSaiu);
        Dialogos::Roteiro::responder(sim);
        QTest::mouseClick(botao(b, 1), Qt::LeftButton);
        const auto& r = Dialogos::Roteiro::registros();
        QCOMPARE(r.size(), 1);
        QCOMPARE(r.first().titulo, QStringLiteral("Desativar usuário"));
        QCOMPARE(r.first().texto, QStringLiteral("Nome usuário: ANA\nCódigo usuário:7"));
        QCOMPARE(saiu.size(), sim ? 1 : 0);
        QCOMPARE(RegistroTelas::aberta("Login") != nullptr, sim);
        QCOMPARE(sessao().DireitoClienteAl, sim ? 0 : 1);
        QCOMPARE(sessao().UsuarioNome.isEmpty(), sim);
    }
};

QTEST_MAIN(TesteBarraStatus)
#include "tst_barrastatus.moc"
