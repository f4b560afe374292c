#include "BenchContas.h"

#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTextStream>

#include "cash/Contas.h"
#include "data/Banco.h"
#include "data/PaginasBusca.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "ui/ModeloPesquisa.h"

namespace {

constexpr qint64 Receber = 300000;
constexpr qint64 Pagar = 50000;

QString serie(Motor m, qint64 ate)
{
    const QString n = QString::number(ate);
    return m == Motor::SQLite ? "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + n +
                                    ") SELECT i FROM n) r"
                              : "(SELECT i FROM generate_series(CAST(1 AS bigint), " + n + ") AS g(i)) r";
}

// A day among three years' worth, as stored, `desvio` days before the i-th.
QString dia(Motor m, const QString& desvio)
{
    return m == Motor::SQLite
        ? "strftime('%Y/%m/%d', julianday('2024-01-01') + (i * 7919) % 1100 - " + desvio + ")"
        : "to_char(date '2024-01-01' + ((i * 7919) % 1100 - " + desvio + ")::int, 'YYYY/MM/DD')";
}

void preenche(Banco& b)
{
    const Motor m = b.motor();
    const qint64 clientes = qMax<qint64>(1, b.escalar("SELECT COUNT(*) FROM Cliente").toLongLong());
    const QString nome = "COALESCE((SELECT NomeCliente FROM Cliente c WHERE c.CodCliente = (i * 31) % " +
                         QString::number(clientes) + " + 1), 'CLIENTE')";
    // Most instalments of a shop's past are paid; the open ones are what it lists.
    const QString quitado = "CASE WHEN i % 10 < 7 THEN -1 ELSE 0 END";
    QTextStream err(stderr);
    if (b.escalar("SELECT COUNT(*) FROM ContasReceber").toLongLong() < Receber) {
        err << "Preenchendo as contas a receber...\n";
        Transacao tr(b);
        b.executar("DELETE FROM ContasReceber");
        b.executar("INSERT INTO ContasReceber (CodCliente, CodVenda, NomeCliente, ValorParcela, ValorTotal, "
                   "NumeroParcela, DataCompra, DataVencimento, TipoVenda, TipoPagamento, Funcionario, Quitado) "
                   "SELECT CAST((i * 31) % " + QString::number(clientes) + " + 1 AS text), CAST(i / 3 AS text), " +
                   nome + ", 10000 + i % 5000, 30000 + i % 5000, CAST(i % 3 + 1 AS text) || ' de 3', " +
                   dia(m, "30") + ", " + dia(m, "0") + ", 'Conserto', 'CHEQUE-PRÉ 30/60/90', 'BENCH', " + quitado +
                   " FROM " + serie(m, Receber));
        tr.commit();
    }
    if (b.escalar("SELECT COUNT(*) FROM ContasPagar").toLongLong() < Pagar) {
        err << "Preenchendo as contas a pagar...\n";
        Transacao tr(b);
        b.executar("DELETE FROM ContasPagar");
        b.executar("INSERT INTO ContasPagar (CodFor, CodCod, Fornecedor, CodDoc, TipoConta, Referente, QtDias, "
                   "ValorTotal, ValorParcela, ValorEntrada, NumeroParcela, DataCompra, DataVencimento, Quitado, "
                   "Funcionario) SELECT CAST(i % 300 AS text), '', 'DISTRIBUIDORA ' || " + nome +
                   ", CAST(i AS text), 'Boleto', 'PEÇAS', 28, 90000, 30000, 0, '1 de 3', " + dia(m, "30") + ", " +
                   dia(m, "0") + ", " + quitado + ", 'BENCH' FROM " + serie(m, Pagar));
        tr.commit();
    }
    b.executar("ANALYZE ContasReceber");
    b.executar("ANALYZE ContasPagar");
}

QStringList nomes(Banco& b, const QString& tabela, const QString& coluna, int n)
{
    QStringList r;
    QRandomGenerator g(20261124);
    const qint64 total = b.escalar("SELECT COUNT(*) FROM " + tabela).toLongLong();
    // Bounded: a store with fewer distinct surnames than texts asked gives what it has.
    for (int tentativa = 0; r.size() < n && tentativa < n * 40; ++tentativa) {
        const QString chave = tabela == QLatin1String("ContasPagar") ? "Codigo" : "Chave";
        const QString v = b.escalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(coluna, tabela, chave),
                                    {1 + qint64(g.bounded(quint64(total)))})
                              .toString();
        // A surname, the way the counter types it: a word from the middle of the name.
        const QString palavra = v.section(QLatin1Char(' '), -1);
        if (palavra.size() >= 3 && !r.contains(palavra))
            r << palavra;
    }
    return r;
}

QStringList dias(int n)
{
    QStringList r;
    for (int i = 0; i < n; ++i)
        r << QDate(2024, 1, 1).addDays((i * 37) % 1100).toString(Qt::ISODate);
    return r;
}

// The open rows, keys to change one at a time.
QList<qint64> abertas(Banco& b, Contas::Modo modo, int n, int pular)
{
    QList<qint64> r;
    QSqlQuery q = b.executar(QStringLiteral("SELECT %1 FROM %2 WHERE Quitado = 0 ORDER BY %1 DESC LIMIT %3")
                                 .arg(Contas::chave(modo), Contas::tabela(modo))
                                 .arg(n + pular));
    int i = 0;
    while (q.next())
        if (i++ >= pular)
            r << q.value(0).toLongLong();
    return r;
}

} // namespace

void medeContas(Banco& b, QList<Medida>& medidas, int textos)
{
    preenche(b);
    Sessao& s = sessao();
    s.DireitoContaLe = s.DireitoContaAl = 1;
    s.UsuarioNome = QStringLiteral("BENCH");
    const QStringList datas = dias(textos);

    for (Contas::Modo modo : {Contas::Modo::Receber, Contas::Modo::Pagar}) {
        const bool pagar = modo == Contas::Modo::Pagar;
        const QString tabela = Contas::tabela(modo);
        const QString lado = pagar ? QStringLiteral("Pagar") : QStringLiteral("Receber");
        const QStringList porNome = nomes(b, tabela, pagar ? "Fornecedor" : "NomeCliente", textos);
        const QStringList colunas = Contas::colunasGrade(modo);
        for (const QString& entrada : Contas::buscas(modo)) {
            if (Contas::buscaDeCheque(entrada))
                continue;
            const bool nome = entrada == QLatin1String("Busca por nome");
            auto pesquisa = [&, modo](const QString& texto) {
                return Contas::pesquisa(b, modo, entrada, nome ? texto : QString(),
                                        nome ? QDate() : QDate::fromString(texto, Qt::ISODate));
            };
            // The grid's first page, as the screen shows it before the number in its caption.
            auto abre = [&](const QString& texto, ModeloPesquisa& modelo) {
                const Contas::Pesquisa p = pesquisa(texto);
                QList<ModeloPesquisa::Coluna> defs;
                for (const QString& c : colunas)
                    defs.append({c, c});
                modelo.defineColunas(defs, [](const QString& c, const QVariant& v) { return Contas::textoCelula(c, v); });
                modelo.abrir(std::make_unique<PaginasBusca>(b, Contas::tabela(p.modo), p.onde, p.ordem, colunas),
                             ModeloPesquisa::Contagem::Depois);
                for (int i = 0; i < qMin(100, modelo.rowCount()); ++i)
                    modelo.index(i, 0).data();
            };
            auto cru = [&](const QString& texto, bool contagem) {
                // The same rows straight from the index: first page, or count.
                const Contas::Pesquisa p = pesquisa(texto);
                const Condicao c = p.onde.paraContar();
                if (contagem)
                    return b.escalar("SELECT COUNT(*) FROM " + tabela + " WHERE " + c.sql, c.valores).toInt();
                const QString ordem = p.ordem.isEmpty() ? Contas::chave(modo) : p.ordem;
                QSqlQuery q = b.executar("SELECT " + colunas.join(',') + " FROM " + tabela + " WHERE " + c.sql +
                                             " ORDER BY " + ordem + " LIMIT 200",
                                         c.valores);
                int n = 0;
                while (q.next())
                    ++n;
                return n;
            };
            const QString linha = QStringLiteral("Contas a %1: %2").arg(lado.toLower(), entrada);
            medidas << mede(linha + QStringLiteral(", 1ª página"), 50, nome ? porNome : datas,
                            [&](const QString& texto) {
                                ModeloPesquisa modelo;
                                abre(texto, modelo);
                                return modelo.rowCount();
                            },
                            [&](const QString& texto) { return cru(texto, false); });
            medidas << mede(linha + QStringLiteral(", contagem depois da 1ª página"), 200, nome ? porNome : datas,
                            [&](const QString& texto) {
                                ModeloPesquisa modelo;
                                abre(texto, modelo);
                                return int(modelo.total());
                            },
                            [&](const QString& texto) { return cru(texto, false) + cru(texto, true); });
        }

        // Each change takes a row of its own: a row changed once no longer matches what was read.
        const int vezes = textos * RepeticoesPorTexto + 1;
        QList<qint64> linhas = abertas(b, modo, 3 * vezes, 0);
        QList<qint64> cruas = abertas(b, modo, 3 * vezes, 3 * vezes);
        const QStringList nTextos(textos, QString());
        auto proxima = [&](QList<qint64>& l) { return Contas::Escolhida{modo, Contas::ler(b, modo, l.takeFirst())}; };
        const QString chave = Contas::chave(modo);
        struct Acao { QString nome; std::function<void(const Contas::Escolhida&)> faz; QString cru; };
        const QList<Acao> acoes = {
            {QStringLiteral("pagamento"),
             [&](const Contas::Escolhida& e) { Contas::pagar(b, e, {"100,00", QDate(2026, 11, 24), "DINHEIRO", ""}); },
             "UPDATE " + tabela + " SET Quitado = -1 WHERE " + chave + " = ?"},
            {QStringLiteral("nova data"), [&](const Contas::Escolhida& e) { Contas::novaData(b, e, QDate(2027, 1, 5)); },
             "UPDATE " + tabela + " SET DataVencimento = '2027/01/05' WHERE " + chave + " = ?"},
            {QStringLiteral("exclusão"), [&](const Contas::Escolhida& e) { Contas::excluir(b, e); },
             "DELETE FROM " + tabela + " WHERE " + chave + " = ?"},
        };
        for (const Acao& a : acoes) {
            // The row is read when chosen on the grid, before the button: outside the time.
            QList<Contas::Escolhida> prontas;
            for (int i = 0; i < vezes && !linhas.isEmpty(); ++i)
                prontas << proxima(linhas);
            medidas << mede(QStringLiteral("Contas a %1: %2 de uma parcela (commit no disco)").arg(lado.toLower(), a.nome),
                            10, nTextos,
                            [&](const QString&) {
                                a.faz(prontas.takeFirst());
                                return -1;
                            },
                            [&](const QString&) {
                                Transacao tr(b);
                                b.executar(a.cru, {cruas.takeFirst()});
                                tr.commit();
                                return -1;
                            });
        }
    }
}
