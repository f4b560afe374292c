#include "BenchMovimento.h"

#include <QDate>
#include <QHash>
#include <QSqlQuery>
#include <QTemporaryDir>

#include "cash/GraficoMovimento.h"
#include "cash/MovimentoCaixa.h"
#include "cash/RelatorioMovimento.h"
#include "data/Banco.h"
#include "data/Transacao.h"

using namespace MovimentoCaixa;

namespace {

constexpr int VendasPorDia = 270;
const QDate Inicio(2016, 1, 1);

// The numbers de..ate as column i, inside the engine.
QString serie(Banco& b, qint64 de, qint64 ate)
{
    const QString a = QString::number(de), z = QString::number(ate);
    return b.motor() == Motor::SQLite
        ? "(WITH RECURSIVE n(i) AS (SELECT " + a + " UNION ALL SELECT i + 1 FROM n WHERE i < " + z + ") SELECT i FROM n) r"
        : "(SELECT i FROM generate_series(" + a + ", " + z + ") AS g(i)) r";
}

// The day of sale i as stored text, computed by the engine.
QString dia(Banco& b)
{
    const QString dias = QStringLiteral("(i / %1)").arg(VendasPorDia);
    return b.motor() == Motor::SQLite
        ? "strftime('%Y/%m/%d', '2016-01-01', '+' || " + dias + " || ' days')"
        : "to_char(DATE '2016-01-01' + CAST(" + dias + " AS integer), 'YYYY/MM/DD')";
}

void encher(Banco& b, qint64 ordens)
{
    if (b.escalar("SELECT COUNT(*) FROM Movimento").toLongLong() >= ordens)
        return;
    const qint64 lote = 100000;
    for (qint64 de = 0; de < ordens; de += lote) {
        const qint64 ate = qMin(ordens, de + lote) - 1;
        Transacao tr(b);
        const QString d = dia(b);
        b.executar("INSERT INTO Movimento (CodVenda, ValorTotal, ValorPagar, ValorDesconto, ValorDescontoPeca, ValorPeca, "
                   "ValorCusto, ValorPago, ValorDiferenca, ValorMaoobra, ValorPorcTecnico, TipoPorcentagem, Data, "
                   "TipoVenda, Funcionario, NomeTecnico, NomeCliente, Pagamento, Hora, TipoAparelho, Caixa, Fornecedor) "
                   "SELECT i, 12000, 12000, i % 3 * 100, 0, 7000, 4000, 12000, 0, 5000, 1000, -1, " + d +
                   ", 'Conserto', 'ANA', 'BRUNO', 'CLIENTE ' || CAST(i % 5000 AS text), 'DINHEIRO-VISTA', '10:00', "
                   "'TV', '', '' FROM " + serie(b, de, ate));
        // Two part lines of the sale (every other sale) and its labour line.
        for (int k = 0; k < 3; ++k) {
            const bool maoObra = k == 2;
            b.executar("INSERT INTO VendaDetalhada (CodVenda, NomeCliente, codpeca, Quantidade, Descricao, ValorCusto, "
                       "PecaDesconto, ValorVenda, Data, TipoVenda, Tecnico, Hora, MaoObra, ValorPorcentagem, "
                       "TipoPorcentagem, Vendedor, Fornecedor, Modulo, Caixa, PorcentagemVendedor) "
                       "SELECT i, 'CLIENTE ' || CAST(i % 5000 AS text), " +
                       QString(maoObra ? "'', 1000, 'MÃO DE OBRA O.S: ' || CAST(i AS text), 0, 0, 0, "
                                       : "'P' || CAST(i % 800 AS text), 1000, 'PECA ' || CAST(i % 800 AS text), "
                                         "2000, 0, 3500, ") +
                       d + ", 'Conserto', 'BRUNO', '10:00', " + (maoObra ? "5000, 1000, -1" : "0, 0, 0") +
                       ", 'ANA', 'OFICINA', 'TV', '', '' FROM " + serie(b, de, ate) +
                       (k == 1 ? " WHERE i % 2 = 0" : ""));
        }
        tr.commit();
    }
    // The planner learns how the dates spread before the first list.
    b.executar("ANALYZE Movimento");
    b.executar("ANALYZE VendaDetalhada");
}

} // namespace

QList<Medida> medeMovimento(Banco& b, qint64 ordens)
{
    encher(b, ordens);
    QList<Medida> m;
    const int diasCheios = int(ordens / VendasPorDia) - 1;
    QStringList dias, meses;
    for (int i = 0; i < 11; ++i) {
        dias << Inicio.addDays(qint64(diasCheios) * (i + 1) / 12).toString(Qt::ISODate);
        const QDate d = Inicio.addDays(qint64(diasCheios) * i / 12);
        if (d.addMonths(1) <= Inicio.addDays(diasCheios))
            meses << QDate(d.year(), d.month(), 1).toString(Qt::ISODate);
    }
    meses.removeDuplicates();
    auto mes = [](const QString& t) {
        const QDate d = QDate::fromString(t, Qt::ISODate);
        return std::pair{d, d.addMonths(1).addDays(-1)};
    };
    auto cruDetalhe = [&b](const QDate& de, const QDate& ate) {
        QSqlQuery q = b.executar("SELECT * FROM VendaDetalhada WHERE Data >= ? AND Data <= ? ORDER BY Data, CodDet",
                                 {de.toString("yyyy/MM/dd"), ate.toString("yyyy/MM/dd")});
        int n = 0;
        while (q.next())
            ++n;
        return n;
    };

    m << mede("Movimento: lista de um dia com totais", 50, dias, [&](const QString& t) {
        const QDate d = QDate::fromString(t, Qt::ISODate);
        return int(ler(b, visao(Visao::Detalhada, Filtro::Tudo, {}, d, d)).linhas.size());
    }, [&](const QString& t) { const QDate d = QDate::fromString(t, Qt::ISODate); return cruDetalhe(d, d); });

    m << mede("Movimento: lista de um mês (~20.000 linhas) com totais", 500, meses, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        return int(ler(b, visao(Visao::Detalhada, Filtro::Tudo, {}, de, ate)).linhas.size());
    }, [&](const QString& t) { const auto [de, ate] = mes(t); return cruDetalhe(de, ate); });

    m << mede("Movimento: resumo de um mês com fluxo do caixa", 500, meses, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        return int(ler(b, visao(Visao::Simples, Filtro::Tudo, {}, de, ate)).linhas.size());
    });

    m << mede("Movimento: busca por cliente dentro de um mês", 100, meses, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        return int(ler(b, *busca(b, Visao::Detalhada, Campo::Cliente, QStringLiteral("CLIENTE 123"), de, ate)).linhas.size());
    }, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        QSqlQuery q = b.executar("SELECT * FROM VendaDetalhada WHERE NomeCliente LIKE ? AND Data >= ? AND Data <= ?",
                                 {"%CLIENTE 123%", de.toString("yyyy/MM/dd"), ate.toString("yyyy/MM/dd")});
        int n = 0;
        while (q.next())
            ++n;
        return n;
    });

    const QStringList poucos = meses.mid(0, 3);
    QTemporaryDir pasta;
    m << mede("Movimento: planilha de um mês (lista, gravação e gráfico)", 3000, poucos, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        const Lista l = ler(b, visao(Visao::Detalhada, Filtro::Tudo, {}, de, ate));
        QString erro;
        RelatorioMovimento::exportar(l, {de, ate, QStringLiteral("Mostra Tudo")}, pasta.filePath("m.xlsx"), {}, &erro);
        return int(l.linhas.size());
    });

    // The chart is drawn over the rows the screen already holds.
    QHash<QString, Lista> listas;
    for (const QString& t : poucos) {
        const auto [de, ate] = mes(t);
        listas.insert(t, ler(b, visao(Visao::Detalhada, Filtro::Tudo, {}, de, ate)));
    }
    GraficoMovimento grafico;
    m << mede("Movimento: gráfico de um mês já listado", 200, poucos, [&](const QString& t) {
        const auto [de, ate] = mes(t);
        grafico.mostra(listas.value(t), de, ate);
        return int(grafico.pontos().size());
    });
    return m;
}
