#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <memory>

class Banco;

// A WHERE fragment with its bound values.
struct Condicao {
    Condicao() = default;
    Condicao(QString s, QVariantList v = {}) : sql(std::move(s)), valores(std::move(v)) {}

    QString sql;
    QVariantList valores;
    // The same rows in the form that counts them fastest, when it differs: a common text is
    // read in the list's order, so that the first rows come at once, but counted through
    // its index.
    std::shared_ptr<const Condicao> contagem;
    // Given when the plan waits for the count (Busca::Plano::PelaContagem): the form that
    // reads a common text's rows in the list's order.
    std::shared_ptr<const Condicao> seFrequente;

    Condicao e(const Condicao& outra) const;  // both
    Condicao paraContar() const;
    // The form to read the rows in, once their number is known.
    Condicao paraLer(qint64 total) const;
};

// The two search patterns of the system, as conditions that the screens pass to a
// Recordset. They give exactly the rows that the classic patterns of joined text give,
// through indexes, with the typed text always bound.
namespace Busca {

// Above this many rows a text is common: the list is read in its own order and stops at
// the rows it shows, instead of gathering every match through the index and sorting it.
constexpr int LimiteFrequente = 3000;

// How a text's search picks between its index and the list's order. `Sondado`: a bounded
// count on the index decides at once. `PelaContagem`: the caller counts the rows before it
// reads them (a search grid), and that count decides through Condicao::paraLer, so no
// probe is spent.
enum class Plano { Sondado, PelaContagem };

// Pattern 1, "by a column among live rows": the column's text joined with the text of
// Excluidos, compared with typed + "%" + "%0%" (or "%" + typed + ... when `meio`). So a
// live row qualifies when its column begins with (or holds) the typed text, and a
// deleted row only when a "0" stands in its column behind the typed text: a search for
// "12" finds a deleted order 1203, as it always has. A NULL column counts as empty text.
// Case and accents are ignored. A % or _ in the typed text still works as a wildcard.
Condicao porColuna(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio,
                   Plano plano = Plano::Sondado);

// The same match without the Excluidos part (live searches that show deleted rows too):
// column LIKE typed% (or %typed%).
Condicao porTexto(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio,
                  Plano plano = Plano::Sondado);

// Pattern 2, "by state": the flags joined in this order compared with the joined text of
// the wanted values (-1 or 0), between % signs when `envolver`. Worked out once into the
// set of flag values the pattern matches, so an index answers it.
Condicao porEstado(const QStringList& colunas, const QList<int>& valores, bool envolver = true);

// Live rows only ("excluidos Like '%0%'") and deleted rows only ("'%-1%'").
Condicao soVivos();
Condicao soExcluidos();

// Live rows for a screen that walks its own order to its first row (a register's
// navigation, the order screens' first order). Nearly every row is live: written so that
// no index serves it, the engine follows the order's index and steps over the few deleted
// rows, instead of reading a million orders through an index that holds Excluidos (which
// sampled statistics can make look cheapest) and sorting them for one.
Condicao vivosPelaOrdem();

// Escapes a typed text for a LIKE with ESCAPE '\\'; wildcards kept when `manterCuringas`.
QString escapaLike(const QString& texto, bool manterCuringas);

}
