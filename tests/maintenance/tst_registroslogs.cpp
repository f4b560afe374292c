#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "data/Conexoes.h"
#include "maintenance/RegistrosLogs.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

class TesteRegistrosLogs : public QObject {
    Q_OBJECT

    static RegistrosLogs* abrir(int registro, int modo)
    {
        auto* t = qobject_cast<RegistrosLogs*>(RegistroTelas::abrir("RegistrosLogs"));
        t->findChild<QComboBox*>("Combo1")->setCurrentIndex(registro);
        t->findChild<QComboBox*>("Combo2")->setCurrentIndex(modo);
        return t;
    }
    static QStringList codigosNaGrade(RegistrosLogs* t)
    {
        auto* m = t->findChild<QTableView*>("Grade")->model();
        while (m->canFetchMore({}))
            m->fetchMore({});
        QStringList r;
        for (int i = 0; i < m->rowCount(); ++i)
            r << m->index(i, 1).data().toString();
        return r;
    }
    static void ordem(Banco& b, int cod, int excluido, const char* data)
    {
        const qint64 aut = b.escalar("INSERT INTO OrdemServico (CodOs, NomeCliente, DataEntrada, Excluidos) VALUES (?, ?, ?, ?) "
                                     "RETURNING CodOsAut", {cod, QStringLiteral("CLIENTE %1").arg(cod), data, excluido}).toLongLong();
        b.executar("INSERT INTO SintomaOS (CodOs, CodOsAut, DefeitoOS) VALUES (?, ?, ?)", {cod, aut, "NAO LIGA"});
    }

private slots:
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Conexoes::fecharSlots();
    }

    // A list by date of orders 7 (live), 8 (deleted) and 9 (live) purges 8 alone, with its
    // own symptom rows and nobody else's.
    void purgaSoOsExcluidos_data() { linhasMotores(); }
    void purgaSoOsExcluidos()
    {
        BANCO_DO_MOTOR(b);
        Conexoes::configurar(b.config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        ordem(b.banco(), 7, 0, "2009/01/30");
        ordem(b.banco(), 8, -1, "2009/01/31");
        ordem(b.banco(), 9, 0, "2009/01/31");
        auto* t = abrir(0, 1);
        t->findChild<QDateEdit*>("DTInicio")->setDate(QDate(2009, 1, 1));
        t->findChild<QDateEdit*>("DTFim")->setDate(QDate(2009, 1, 31));
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QCOMPARE(codigosNaGrade(t), (QStringList{"7", "8", "9"}));
        QCOMPARE(t->windowTitle(), QStringLiteral("Ordem Serviço excluídos - 3 encontrados"));

        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Os registros serão excluidos permanentemente"));
        QCOMPARE(codigosNaGrade(t), (QStringList{"7", "9"}));
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM SintomaOS").toInt(), 2);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM SintomaOS WHERE CodOs = 8").toInt(), 0);
    }

    // A double click marks (Yes) or brings back (No) the row by its own key, with the stamp;
    // Cancel leaves it. Two customers share a code and a name: only the clicked one changes.
    void marcaPelaChave_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("resposta");
        QTest::addColumn<int>("esperado");
        for (const auto m : {Motor::SQLite, Motor::PostgreSQL}) {
            const char* n = m == Motor::SQLite ? "sqlite" : "postgres";
            QTest::addRow("%s: yes marks", n) << int(m) << int(Dialogos::Resposta::Sim) << -1;
            QTest::addRow("%s: no brings back", n) << int(m) << int(Dialogos::Resposta::Nao) << 0;
            QTest::addRow("%s: cancel leaves", n) << int(m) << int(Dialogos::Resposta::Cancelar) << 99;
        }
    }
    void marcaPelaChave()
    {
        QFETCH(int, resposta);
        QFETCH(int, esperado);
        BANCO_DO_MOTOR(b);
        Conexoes::configurar(b.config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        sessao().UsuarioNome = "ANA";
        for (int i = 0; i < 2; ++i)
            b->executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) VALUES (5, 'JOSE', 0)");
        auto* t = abrir(1, 2);
        t->findChild<QLineEdit*>("Text1(0)")->setText("5");
        t->findChild<QLineEdit*>("Text1(1)")->setText("5");
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QCOMPARE(codigosNaGrade(t).size(), 2);

        Dialogos::Roteiro::responder(QVariant::fromValue(static_cast<Dialogos::Resposta>(resposta)));
        t->marcarLinha(1);
        QCOMPARE(Dialogos::Roteiro::registros().first().texto, QStringLiteral("5 JOSE\nQuer marcar como excluido ?"));
        const QList<int> flags = [&] {
            QList<int> r;
            QSqlQuery q = b->executar("SELECT Excluidos, Alterado FROM Cliente ORDER BY Chave");
            while (q.next())
                r << q.value(0).toInt();
            return r;
        }();
        if (esperado == 99) {
            QCOMPARE(flags, (QList<int>{0, 0}));
            return;
        }
        QCOMPARE(flags, (QList<int>{0, esperado}));
        QCOMPARE(b->escalar("SELECT Alterado FROM Cliente ORDER BY Chave DESC").toString(), QStringLiteral("ANA"));
    }

    void entradasRuins_data()
    {
        QTest::addColumn<int>("registro");
        QTest::addColumn<int>("modo");
        QTest::addColumn<QString>("de");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("empty code boxes") << 1 << 2 << "" << "somente com números";
        QTest::newRow("letters in a code box") << 0 << 2 << "1A" << "somente com números";
        QTest::newRow("suppliers have no dates") << 2 << 1 << "" << "Este formulário não tem opçao de data.";
        QTest::newRow("user activities") << 5 << 0 << "" << "Não disponivel";
    }
    void entradasRuins()
    {
        QFETCH(int, registro);
        QFETCH(int, modo);
        QFETCH(QString, de);
        QFETCH(QString, mensagem);
        auto amb = ambienteDeTela();
        auto* t = abrir(registro, modo);
        t->findChild<QLineEdit*>("Text1(0)")->setText(de);
        t->findChild<QLineEdit*>("Text1(1)")->setText("9");
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
    }
};

QTEST_MAIN(TesteRegistrosLogs)
#include "tst_registroslogs.moc"
