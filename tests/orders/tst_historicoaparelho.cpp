#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Esquema.h"
#include "orders/GradeHistorico.h"
#include "orders/HistoricoAparelho.h"
#include "orders/OrdemServicoEntrada.h"
#include "orders/OrdemServicoSaida.h"
#include "registers/Cliente.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

using namespace HistoricoAparelho;

namespace {
const QDate Hoje(2026, 11, 23);
}

// An appliance's earlier orders: which ones count as the same appliance, the warranty's
// end, and what the intake and the customer register show of them.
class TstHistoricoAparelho : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;

    struct Os {
        qint64 codOs;
        QString cliente, tipo, modelo, serie, saida;
        bool excluida = false;
    };
    qint64 ordem(Banco& banco, const Os& o)
    {
        return banco.inserir(*Esquema::tabela("OrdemServico"),
                             {"CodOs", "CodCliente", "NomeCliente", "Tipo", "Modelo", "NumeroSerie", "DataEntrada",
                              "DataSaida", "Saida", "Sintoma", "ServicoExecutado", "Excluidos"},
                             {o.codOs, o.cliente, "CLIENTE " + o.cliente, o.tipo, o.modelo, o.serie, "2026/01/02", o.saida,
                              o.saida.isEmpty() ? 0 : -1, "NAO LIGA,", "TROCA FONTE,", o.excluida ? -1 : 0});
    }
    QList<qint64> numeros(const QList<Linha>& l)
    {
        QList<qint64> r;
        for (const Linha& x : l)
            r << x.CodOs;
        return r;
    }
    void fecha()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

private slots:
    void cleanup() { fecha(); }

    // Same serial whoever brought it; same customer with the same kind and model; never
    // another customer's appliance of the same model, a deleted order, or the order on screen.
    void mesmoAparelho_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("serie");
        QTest::addColumn<QString>("cliente");
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("modelo");
        QTest::addColumn<QList<qint64>>("esperadas");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* n = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s: serial with spaces and lower case", n) << m << "  abc123 " << "" << "" << "" << QList<qint64>{104, 101};
            QTest::addRow("%s: customer, kind and model", n) << m << "" << "10" << "tv" << "le3250" << QList<qint64>{102, 101};
            QTest::addRow("%s: both, each order once", n) << m << "ABC123" << "10" << "TV" << "LE3250" << QList<qint64>{104, 102, 101};
            QTest::addRow("%s: another customer's model", n) << m << "" << "11" << "TV" << "LE3250" << QList<qint64>{103};
            QTest::addRow("%s: model without kind", n) << m << "" << "10" << "" << "LE3250" << QList<qint64>{};
            QTest::addRow("%s: unknown serial", n) << m << "ZZZ" << "" << "" << "" << QList<qint64>{};
        }
    }
    void mesmoAparelho()
    {
        BANCO_DO_MOTOR(banco);
        QFETCH(QString, serie);
        QFETCH(QString, cliente);
        QFETCH(QString, tipo);
        QFETCH(QString, modelo);
        QFETCH(QList<qint64>, esperadas);
        ordem(banco.banco(), {101, "10", "TV", "LE3250", "ABC123", "2026/11/13"});
        ordem(banco.banco(), {102, "10", "TV", "le3250", "", "2026/01/10"});
        ordem(banco.banco(), {103, "11", "TV", "LE3250", "", ""});
        ordem(banco.banco(), {104, "11", "TV", "OUTRO", "abc123", ""});
        ordem(banco.banco(), {105, "10", "TV", "LE3250", "ABC123", "", true});
        ordem(banco.banco(), {106, "10", "MICROONDAS", "LE3250", "", ""});
        const qint64 naTela = ordem(banco.banco(), {107, "10", "TV", "LE3250", "ABC123", ""});
        QCOMPARE(numeros(procurar(banco.banco(), {serie, cliente, tipo, modelo, naTela}, Hoje)), esperadas);
    }

    // The cover runs from the departure for the shop's days; the last day still counts.
    void garantia_data()
    {
        QTest::addColumn<int>("dias");
        QTest::addColumn<QString>("saida");
        QTest::addColumn<QString>("fim");
        QTest::addColumn<bool>("aviso");
        QTest::newRow("ten days ago") << 0 << "2026/11/13" << "11/02/2027" << true;
        QTest::newRow("last day") << 0 << "2026/08/25" << "23/11/2026" << true;
        QTest::newRow("a day late") << 0 << "2026/08/24" << "22/11/2026" << false;
        QTest::newRow("shop's 30 days, 31 ago") << 30 << "2026/10/23" << "22/11/2026" << false;
        QTest::newRow("not delivered") << 0 << "" << "" << false;
    }
    void garantia()
    {
        QFETCH(int, dias);
        QFETCH(QString, saida);
        QFETCH(QString, fim);
        QFETCH(bool, aviso);
        BancoTeste banco(Motor::SQLite);
        QVERIFY(banco.pronto());
        banco->executar("UPDATE Empresa SET DiasGarantia = ?", {dias});
        ordem(banco.banco(), {300, "1", "TV", "X", "", "2026/01/05"});  // long expired, older
        ordem(banco.banco(), {301, "1", "TV", "X", "", saida});
        const QList<Linha> l = procurar(banco.banco(), {"", "1", "TV", "X", 0}, Hoje);
        QCOMPARE(l.size(), 2);
        QCOMPARE(celulas(l.first()).last(), fim);
        QCOMPARE(celulas(l.first()).mid(0, 5),
                 QStringList({"301", "02/01/2026", saida.isEmpty() ? "" : QDate::fromString(saida, "yyyy/MM/dd").toString("dd/MM/yyyy"),
                              "NAO LIGA", "TROCA FONTE"}));
        const auto a = avisoGarantia(l);
        QCOMPARE(a.has_value(), aviso);
        if (aviso)
            QCOMPARE(*a, QString("RETORNO NA GARANTIA: O.S 301 entregue em %1, garantia até %2")
                             .arg(QDate::fromString(saida, "yyyy/MM/dd").toString("dd/MM/yyyy"), fim));
    }

    // A serial typed at the counter brings up the earlier orders and the warranty banner;
    // a double click opens the old order on delivery, the new one stays as typed.
    void naEntrada()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        ApoioOrdens::sessaoCompleta();
        sessao().CfgOSAbreCompleta = "False";
        const QDate saida = QDate::currentDate().addDays(-5);
        const qint64 antiga = ordem(b->banco(), {88, "3", "TV", "LE3250", "XY-77", saida.toString("yyyy/MM/dd")});
        auto* tela = qobject_cast<OrdemServicoEntrada*>(RegistroTelas::abrir("OrdemServicoEntrada"));
        QVERIFY(tela);
        QTest::mouseClick(tela->findChild<QWidget*>("Botao(0)"), Qt::LeftButton);
        auto* grade = tela->findChild<GradeHistorico*>("GradeHistorico");
        auto* banner = tela->findChild<QLabel*>("LblGarantia");
        QVERIFY(grade && banner);
        QVERIFY(grade->isHidden());
        auto* serie = tela->findChild<QLineEdit*>("Text1(13)");
        serie->setFocus();
        for (const QChar c : QString(" xy-77"))
            QTest::sendKeyEvent(QTest::Click, serie, Qt::Key_unknown, QString(c), Qt::NoModifier);
        QTRY_COMPARE(grade->rowCount(), 1);
        QVERIFY(!grade->isHidden());
        QCOMPARE(grade->item(0, 0)->text(), QString("88"));
        QVERIFY(!banner->isHidden());
        QVERIFY(banner->text().contains(QString("O.S 88 entregue em %1").arg(saida.toString("dd/MM/yyyy"))));

        emit grade->cellDoubleClicked(0, 0);
        auto* entrega = qobject_cast<OrdemServicoSaida*>(RegistroTelas::aberta("OrdemServicoSaida"));
        QVERIFY(entrega);
        QCOMPARE(entrega->ordem().CodOsAut, antiga);
        QCOMPARE(serie->text(), QString(" xy-77"));

        // Another serial: nothing earlier, no banner.
        serie->clear();
        QTRY_VERIFY(grade->isHidden());
        QVERIFY(banner->isHidden());
    }

    // The customer register lists the same dates, defect, service and warranty.
    void noCadastroDoCliente()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        ApoioOrdens::sessaoCompleta();
        b->banco().inserir(*Esquema::tabela("Cliente"), {"CodCliente", "NomeCliente"}, {5, "CARLA"});
        ordem(b->banco(), {61, "5", "TV", "A1", "S1", "2026/11/13"});
        auto* tela = qobject_cast<Cliente*>(RegistroTelas::abrir("Cliente"));
        QVERIFY(tela);
        auto* grade = tela->findChild<QTableWidget*>("Grade");
        QTRY_COMPARE(grade->rowCount(), 1);
        QStringList cabecalhos;
        for (int c = 0; c < grade->columnCount(); ++c)
            cabecalhos << grade->horizontalHeaderItem(c)->text();
        QCOMPARE(cabecalhos.mid(6), QStringList({"Entrada", "Saída", "Defeito", "Serviço executado", "Garantia até"}));
        QStringList celulas;
        for (int c = 6; c < grade->columnCount(); ++c)
            celulas << grade->item(0, c)->text();
        QCOMPARE(celulas, QStringList({"02/01/2026", "13/11/2026", "NAO LIGA", "TROCA FONTE", "11/02/2027"}));
    }
};

QTEST_MAIN(TstHistoricoAparelho)
#include "tst_historicoaparelho.moc"
