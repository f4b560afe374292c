#include <QLabel>
#include <QLineEdit>
#include <QSqlQuery>
#include <QtTest>
#include <sqlite3.h>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

// The order screens open on the first live order. With a million orders the engine must
// walk the order number and stop at the first live row; the statistics that the store
// gathers by sampling can make another plan look cheaper (an index led by the customer's
// name, skipped through by Excluidos, then every order sorted for one). Each statement the
// screens run on a connection of their own is watched through the engine's profile hook.
namespace {

struct Passo {
    QString sql;
    int ordenacoes = 0;
};

QList<Passo> passos;

int aoTerminar(unsigned tipo, void*, void* p, void*)
{
    if (tipo == SQLITE_TRACE_PROFILE) {
        auto* st = static_cast<sqlite3_stmt*>(p);
        const QString sql = QString::fromUtf8(sqlite3_sql(st));
        if (sql.contains(QLatin1String("FROM OrdemServico"), Qt::CaseInsensitive))
            passos.append({sql, sqlite3_stmt_status(st, SQLITE_STMTSTATUS_SORT, 0)});
    }
    return 0;
}

int observar(sqlite3* db, const char**, const void*)
{
    sqlite3_trace_v2(db, SQLITE_TRACE_PROFILE, &aoTerminar, nullptr);
    return SQLITE_OK;
}

using Entrada = void (*)();

// The figures a store of a million orders had after its bounded sampling: the counts of
// each index disagree, and the name index looks the smallest.
const QList<QPair<QString, QString>> estatisticas = {
    {"OrdemServico_CodOs", "1265110 1"},
    {"OrdemServico_NomeCliente_b", "1290240 101"},
    {"OrdemServico_NomeCliente_b_Excluidos_CodOsAut", "620412 101 67 1"},
    {"OrdemServico_Tipo_b_Excluidos_CodOsAut", "1402440 401 401 1"},
    {"OrdemServico_Marca_b_Excluidos_CodOsAut", "1142784 401 401 1"},
    {"OrdemServico_Modelo_b_Excluidos_CodOsAut", "1253376 161 101 1"},
    {"OrdemServico_Revendedor_b_Excluidos_CodOsAut", "3246760 15 15 1"},
    {"OrdemServico_excluidos", "11455 1"},
};

} // namespace

class TstAberturaOrdens : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;

    void amostrasDeMilhaoDeOrdens()
    {
        Banco& banco = b->banco();
        banco.executar("ANALYZE");
        banco.executar("DELETE FROM sqlite_stat1 WHERE tbl = 'OrdemServico'");
        for (const auto& [indice, figuras] : estatisticas)
            banco.executar("INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES ('OrdemServico', ?, ?)", {indice, figuras});
        banco.executar("ANALYZE sqlite_schema");
    }

    QString plano(const QString& sql)
    {
        QSqlQuery q = b->banco().executar("EXPLAIN QUERY PLAN " + sql);
        QString p;
        while (q.next())
            p += q.value(3).toString() + '\n';
        return p;
    }

private slots:
    void initTestCase() { sqlite3_auto_extension(reinterpret_cast<Entrada>(&observar)); }
    void cleanupTestCase()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        sqlite3_cancel_auto_extension(reinterpret_cast<Entrada>(&observar));
    }

    void abrePelaPrimeiraOrdemViva_data()
    {
        QTest::addColumn<QString>("tela");
        QTest::newRow("entrada") << "OrdemServicoEntrada";
        QTest::newRow("entrega") << "OrdemServicoSaida";
        QTest::newRow("bancada") << "OrdemServicoTecnico";
    }
    void abrePelaPrimeiraOrdemViva()
    {
        QFETCH(QString, tela);
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
        b = ambienteDeTela(Motor::SQLite);
        QVERIFY(b->pronto());
        ApoioOrdens::sessaoCompleta();
        const QStringList nomes{"ANA", "BIA", "CAIO", "DORA"};
        for (int i = 1; i <= 60; ++i)
            ApoioOrdens::inserirOrdem(b->banco(), 1000 + i, nomes[i % nomes.size()]);
        b->banco().executar("UPDATE OrdemServico SET Excluidos = -1 WHERE CodOs IN (1001, 1002)");
        amostrasDeMilhaoDeOrdens();
        // The figures do mislead: asked plainly, the engine sorts every live order for one.
        QVERIFY(plano("SELECT * FROM OrdemServico WHERE Excluidos = 0 ORDER BY CodOs, CodOsAut LIMIT 1")
                    .contains("TEMP B-TREE"));

        passos.clear();
        QWidget* w = RegistroTelas::abrir(tela);
        QVERIFY(w);
        QVERIFY(!passos.isEmpty());
        for (const Passo& p : std::as_const(passos))
            QVERIFY2(p.ordenacoes == 0, qPrintable(p.sql));
        // The first live order (1003, DORA) is the one shown, past the two in the bin.
        QStringList textos;
        for (const QLineEdit* e : w->findChildren<QLineEdit*>())
            textos << e->text();
        for (const QLabel* e : w->findChildren<QLabel*>())
            textos << e->text();
        const QString tudo = textos.join('|');
        QVERIFY2(tudo.contains("DORA") && !tudo.contains("BIA") && !tudo.contains("CAIO"), qPrintable(tudo));
    }
};

QTEST_MAIN(TstAberturaOrdens)
#include "tst_aberturaordens.moc"
