#include "data/PaginasBusca.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Recordset.h"

PaginasBusca::PaginasBusca(Banco& banco, const QString& tabela, const Condicao& onde, const QString& ordem,
                           const QStringList& colunas)
    : m_banco(banco), m_tabela(Esquema::tabela(tabela)), m_onde(onde), m_colunas(colunas)
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Tabela desconhecida: %1").arg(tabela));
    const QString& chave = m_tabela->chave;
    // "Nome, Cod": the first column orders, and the key breaks its ties.
    const QString primeira = ordem.section(QLatin1Char(','), 0, 0).trimmed();
    if (!primeira.isEmpty() && primeira.compare(chave, Qt::CaseInsensitive) != 0)
        m_ordem = primeira;
    auto posicao = [this](const QString& coluna) {
        for (int i = 0; i < m_colunas.size(); ++i)
            if (m_colunas[i].compare(coluna, Qt::CaseInsensitive) == 0)
                return i;
        m_colunas << coluna;
        return int(m_colunas.size() - 1);
    };
    m_posChave = posicao(chave);
    if (!m_ordem.isEmpty())
        m_posOrdem = posicao(m_ordem);
    m_nosNulos = !m_ordem.isEmpty();
}

qint64 PaginasBusca::contar()
{
    const Condicao c = m_onde.paraContar();
    const QString onde = c.sql.isEmpty() ? QString() : QStringLiteral(" WHERE ") + c.sql;
    const qint64 total =
        m_banco.escalar(QStringLiteral("SELECT COUNT(*) FROM %1%2").arg(m_tabela->nome, onde), c.valores).toLongLong();
    // The count tells whether the text is common: if so, the pages are read in the list's
    // order, which stops at the rows shown, rather than gathered from the index and sorted.
    m_onde = m_onde.paraLer(total);
    return total;
}

QString PaginasBusca::select() const
{
    return QStringLiteral("SELECT %1 FROM %2").arg(m_colunas.join(QLatin1Char(',')), m_tabela->nome);
}

QList<QVariantList> PaginasBusca::proximas(int n)
{
    QList<QVariantList> r;
    const QString& chave = m_tabela->chave;
    if (m_nosNulos && !m_nulosConferidos) {
        // Few stores have rows without an order value at all: one look at the order's own
        // index spares a second pass over the matches for the rows that come first.
        m_nulosConferidos = true;
        m_nosNulos = m_banco.escalar(QStringLiteral("SELECT COUNT(*) FROM (SELECT 1 FROM %1 WHERE %2 IS NULL LIMIT 1) nulos")
                                         .arg(m_tabela->nome, m_ordem)).toInt() > 0;
    }
    while (r.size() < n && !m_fim) {
        // Where the last page stopped, as a condition that the order's index answers.
        Condicao depois;
        QString ordemSql = chave;
        if (m_ordem.isEmpty()) {
            if (m_ultimaChave.isValid())
                depois = {QStringLiteral("%1 > ?").arg(chave), {m_ultimaChave}};
        } else if (m_nosNulos) {
            depois = {QStringLiteral("%1 IS NULL").arg(m_ordem), {}};
            if (m_ultimaChave.isValid())
                depois = depois.e({QStringLiteral("%1 > ?").arg(chave), {m_ultimaChave}});
        } else {
            ordemSql = m_ordem + QLatin1Char(',') + chave;
            if (m_ultimaChave.isValid())
                depois = {QStringLiteral("%1 >= ? AND (%1 > ? OR %2 > ?)").arg(m_ordem, chave),
                          {m_ultimaOrdem, m_ultimaOrdem, m_ultimaChave}};
            else
                depois = {QStringLiteral("%1 IS NOT NULL").arg(m_ordem), {}};
        }
        const Condicao c = m_onde.sql.isEmpty() ? depois : depois.e(m_onde);
        const int pedidas = n - int(r.size());
        const QString onde = c.sql.isEmpty() ? QString() : QStringLiteral(" WHERE ") + c.sql;
        QSqlQuery q = m_banco.executar(QStringLiteral("%1%2 ORDER BY %3 LIMIT %4")
                                           .arg(select(), onde, ordemSql).arg(pedidas), c.valores);
        int lidas = 0;
        const int colunas = int(m_colunas.size());
        while (q.next()) {
            QVariantList linha;
            linha.reserve(colunas);
            for (int i = 0; i < colunas; ++i)
                linha << q.value(i);
            m_ultimaChave = linha.at(m_posChave);
            if (m_posOrdem >= 0)
                m_ultimaOrdem = linha.at(m_posOrdem);
            r << std::move(linha);
            ++lidas;
        }
        if (lidas < pedidas) {
            if (m_nosNulos) {
                // The rows without an order value are done: the ordered ones follow.
                m_nosNulos = false;
                m_ultimaChave = QVariant();
                m_ultimaOrdem = QVariant();
            } else {
                m_fim = true;
            }
        }
    }
    return r;
}

QSqlRecord PaginasBusca::registro(const QVariant& chave)
{
    Recordset rs(m_banco);
    rs.abrir(m_tabela->nome, QStringLiteral("%1 = ?").arg(m_tabela->chave), {chave});
    if (rs.eof())
        return {};
    return rs.registro();
}
