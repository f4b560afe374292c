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

    Condicao e(const Condicao& outra) const;  // both
    Condicao paraContar() const;
};

// The two search patterns of the system, as conditions that the screens pass to a
// Recordset. They give exactly the rows that the classic patterns of joined text give,
// through indexes, with the typed text always bound.
namespace Busca {

// Pattern 1, "by a column among live rows": the column's text joined with the text of
// Excluidos, compared with typed + "%" + "%0%" (or "%" + typed + ... when `meio`). So a
// live row qualifies when its column begins with (or holds) the typed text, and a
// deleted row only when a "0" stands in its column behind the typed text: a search for
// "12" finds a deleted order 1203, as it always has. A NULL column counts as empty text.
// Case and accents are ignored. A % or _ in the typed text still works as a wildcard.
Condicao porColuna(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio);

// The same match without the Excluidos part (live searches that show deleted rows too):
// column LIKE typed% (or %typed%).
Condicao porTexto(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio);

// Pattern 2, "by state": the flags joined in this order compared with the joined text of
// the wanted values (-1 or 0), between % signs when `envolver`. Worked out once into the
// set of flag values the pattern matches, so an index answers it.
Condicao porEstado(const QStringList& colunas, const QList<int>& valores, bool envolver = true);

// Live rows only ("excluidos Like '%0%'") and deleted rows only ("'%-1%'").
Condicao soVivos();
Condicao soExcluidos();

// Escapes a typed text for a LIKE with ESCAPE '\\'; wildcards kept when `manterCuringas`.
QString escapaLike(const QString& texto, bool manterCuringas);

}
