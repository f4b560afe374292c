#include "data/Busca.h"

#include <QMap>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Texto.h"

Condicao Condicao::e(const Condicao& outra) const
{
    if (sql.isEmpty())
        return outra;
    if (outra.sql.isEmpty())
        return *this;
    Condicao r{QStringLiteral("(%1) AND (%2)").arg(sql, outra.sql), valores + outra.valores};
    if (contagem || outra.contagem)
        r.contagem = std::make_shared<Condicao>(paraContar().e(outra.paraContar()));
    if (seFrequente || outra.seFrequente)
        r.seFrequente = std::make_shared<Condicao>((seFrequente ? *seFrequente : *this)
                                                       .e(outra.seFrequente ? *outra.seFrequente : outra));
    return r;
}

Condicao Condicao::paraContar() const
{
    return contagem ? *contagem : Condicao{sql, valores};
}

Condicao Condicao::paraLer(qint64 total) const
{
    return seFrequente && total >= Busca::LimiteFrequente ? *seFrequente : *this;
}

namespace Busca {

namespace {

const DefColuna& colunaBuscavel(const QString& tabela, const QString& coluna, const DefTabela** t)
{
    *t = Esquema::tabela(tabela);
    if (!*t)
        throw ErroBanco(QStringLiteral("Tabela desconhecida: %1").arg(tabela));
    const DefColuna* c = (*t)->coluna(coluna);
    if (!c || !c->buscavel())
        throw ErroBanco(QStringLiteral("A coluna %1 de %2 não tem índice de busca.").arg(coluna, tabela));
    return *c;
}

bool temCuringa(const QString& s)
{
    return s.contains(QLatin1Char('%')) || s.contains(QLatin1Char('_'));
}

QString limiteSuperior(const QString& prefixo)
{
    // Above every text that begins with the prefix, in byte order (the folded columns
    // compare as bytes on both engines).
    const char32_t maior = 0x10FFFF;
    return prefixo + QString::fromUcs4(&maior, 1);
}

} // namespace

QString escapaLike(const QString& texto, bool manterCuringas)
{
    QString r;
    for (QChar c : texto) {
        if (c == QLatin1Char('\\') || (!manterCuringas && (c == QLatin1Char('%') || c == QLatin1Char('_'))))
            r += QLatin1Char('\\');
        r += c;
    }
    return r;
}

namespace {

// Whether the trigram index answers the match of `d`.
bool porTrigrama(const DefColuna& c, const QString& d, bool meio)
{
    return meio && !temCuringa(d) && c.meio && d.size() >= 3;
}

// Counts the matches up to the limit, on the index alone: the probe must cost less than
// the search it chooses. The trigram index is asked directly; it yields its rows as it
// finds them, so a common text stops at the limit.
bool frequente(Banco& banco, const DefTabela& t, const DefColuna& c, const QString& d, bool meio,
               const Condicao& indexada)
{
    const Condicao sonda = porTrigrama(c, d, meio)
        ? Condicao{banco.sondaTrigrama(t, c), {banco.valorTrigrama(d)}}
        : Condicao{QStringLiteral("SELECT 1 FROM %1 WHERE %2").arg(t.nome, indexada.sql), indexada.valores};
    return banco.escalar(QStringLiteral("SELECT COUNT(*) FROM (%1 LIMIT %2) amostra").arg(sonda.sql).arg(LimiteFrequente),
                         sonda.valores).toInt() >= LimiteFrequente;
}

// The match of the folded column alone. `indice`: the trigram index may answer it.
Condicao casaTexto(Banco& banco, const DefTabela& t, const DefColuna& c, const QString& d, bool meio, bool indice)
{
    const QString col = c.nomeDobrado();
    if (!temCuringa(d) && !meio)
        return {QStringLiteral("%1 >= ? AND %1 < ?").arg(col), {d, limiteSuperior(d)}};
    if (indice && porTrigrama(c, d, meio))
        return {banco.condicaoTrigrama(t, c), {banco.valorTrigrama(d)}};
    const QString padrao = (meio ? QStringLiteral("%") : QString()) + escapaLike(d, true) + QStringLiteral("%");
    return {QStringLiteral("%1 LIKE ? ESCAPE '\\'").arg(col), {padrao}};
}

} // namespace

Condicao porTexto(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio,
                  Plano plano)
{
    const DefTabela* t = nullptr;
    const DefColuna& c = colunaBuscavel(tabela, coluna, &t);
    const QString d = Texto::dobra(digitado);
    if (d.isEmpty())
        return {};
    Condicao indexada = casaTexto(banco, *t, c, d, meio, true);
    if (!meio)
        return indexada;
    if (!banco.sondaFrequencia())
        return indexada;
    Condicao emOrdem = casaTexto(banco, *t, c, d, meio, false);
    emOrdem.contagem = std::make_shared<Condicao>(indexada);
    if (plano == Plano::PelaContagem) {
        indexada.seFrequente = std::make_shared<Condicao>(std::move(emOrdem));
        return indexada;
    }
    return frequente(banco, *t, c, d, meio, indexada) ? emOrdem : indexada;
}

Condicao porColuna(Banco& banco, const QString& tabela, const QString& coluna, const QString& digitado, bool meio,
                   Plano plano)
{
    const DefTabela* t = nullptr;
    const DefColuna& c = colunaBuscavel(tabela, coluna, &t);
    const QString d = Texto::dobra(digitado);
    const QString col = c.nomeDobrado();
    const QString inicio = meio ? QStringLiteral("%") : QString();

    if (temCuringa(d)) {
        // The typed text is itself a pattern: match the joined text the classic way.
        const QString padrao = inicio + escapaLike(d, true) + QStringLiteral("%%0%");
        return {QStringLiteral("(%1 || %2) LIKE ? ESCAPE '\\'").arg(col, banco.textoDe(QStringLiteral("Excluidos"))),
                {padrao}};
    }

    // Deleted rows qualify only when a "0" stands in the column itself behind the typed
    // text; live rows always have the trailing "0" of Excluidos behind it.
    const QString padraoExcluidos = inicio + escapaLike(d, false) + QStringLiteral("%0%");
    const Condicao linhaExcluida{QStringLiteral("Excluidos = -1 AND %1 LIKE ? ESCAPE '\\'").arg(col), {padraoExcluidos}};

    // A rare text: one lookup of the index, and the flag tested on the rows it gives (an OR
    // of the two halves at the top would make the engine walk the whole table).
    const Condicao vivaOuExcluida{QStringLiteral("Excluidos = 0 OR (%1)").arg(linhaExcluida.sql), linhaExcluida.valores};
    // A common text: one pass in the list's own order, which stops at the rows shown; a
    // count still goes through the index.
    const Condicao texto = d.isEmpty() ? Condicao{} : casaTexto(banco, *t, c, d, meio, false);
    const Condicao vivos = soVivos().e(texto);
    Condicao emOrdem{QStringLiteral("(%1) OR (%2)").arg(vivos.sql, linhaExcluida.sql),
                     vivos.valores + linhaExcluida.valores};
    if (d.isEmpty())
        return emOrdem;
    const Condicao indexada = casaTexto(banco, *t, c, d, meio, true);
    Condicao rara = indexada.e(vivaOuExcluida);
    if (!banco.sondaFrequencia())
        return rara;
    emOrdem.contagem = std::make_shared<Condicao>(rara);
    if (plano == Plano::PelaContagem) {
        rara.seFrequente = std::make_shared<Condicao>(std::move(emOrdem));
        return rara;
    }
    return frequente(banco, *t, c, d, meio, indexada) ? emOrdem : rara;
}

Condicao porEstado(const QStringList& colunas, const QList<int>& valores, bool envolver)
{
    Q_ASSERT(colunas.size() == valores.size());
    QString alvo;
    for (int v : valores)
        alvo += QString::number(v);
    const QString padrao = envolver ? QStringLiteral("%") + alvo + QStringLiteral("%") : alvo;

    // Every combination of -1/0 over the columns whose joined text matches the pattern.
    const int n = colunas.size();
    QList<QList<int>> combinacoes;
    for (int m = 0; m < (1 << n); ++m) {
        QList<int> comb;
        QString texto;
        for (int i = 0; i < n; ++i) {
            const int v = (m >> (n - 1 - i)) & 1 ? -1 : 0;
            comb << v;
            texto += QString::number(v);
        }
        if (Texto::like(texto, padrao))
            combinacoes << comb;
    }
    if (combinacoes.isEmpty())
        return {QStringLiteral("1 = 0"), {}};

    // Columns that hold one value in every match become plain terms, so that an index
    // (the partial index of open orders among them) serves the query.
    QStringList fixos;
    QList<int> livres;
    for (int i = 0; i < n; ++i) {
        bool igual = true;
        for (const auto& comb : combinacoes)
            igual = igual && comb.at(i) == combinacoes.first().at(i);
        if (igual)
            fixos << QStringLiteral("%1 = %2").arg(colunas.at(i)).arg(combinacoes.first().at(i));
        else
            livres << i;
    }
    if (!livres.isEmpty() && combinacoes.size() < (1 << livres.size())) {
        QStringList alternativas;
        for (const auto& comb : combinacoes) {
            QStringList termos;
            for (int i : livres)
                termos << QStringLiteral("%1 = %2").arg(colunas.at(i)).arg(comb.at(i));
            alternativas << QLatin1Char('(') + termos.join(QStringLiteral(" AND ")) + QLatin1Char(')');
        }
        fixos << QLatin1Char('(') + alternativas.join(QStringLiteral(" OR ")) + QLatin1Char(')');
    }
    if (fixos.isEmpty())
        return {QStringLiteral("1 = 1"), {}};
    return {fixos.join(QStringLiteral(" AND ")), {}};
}

Condicao soVivos() { return porEstado({QStringLiteral("Excluidos")}, {0}); }
Condicao soExcluidos() { return porEstado({QStringLiteral("Excluidos")}, {-1}); }
Condicao vivosPelaOrdem() { return Condicao(QStringLiteral("+Excluidos = 0")); }

}
