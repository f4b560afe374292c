#include "data/Recordset.h"

#include <QSqlField>
#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Texto.h"

Recordset::Recordset(Banco& banco) : m_banco(banco) {}

void Recordset::abrir(const QString& tabela, const QString& onde, const QVariantList& valores,
                      const QString& ordem, int limite)
{
    m_tabela = Esquema::tabela(tabela);
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Tabela desconhecida: %1").arg(tabela));
    QString sql = QStringLiteral("SELECT * FROM %1").arg(m_tabela->nome);
    if (!onde.isEmpty())
        sql += QStringLiteral(" WHERE ") + onde;
    if (!ordem.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + ordem;
    if (limite > 0)
        sql += QStringLiteral(" LIMIT %1").arg(limite);
    m_sql = sql;
    m_valores = valores;
    carregar();
}

void Recordset::abrirSql(const QString& sql, const QVariantList& valores)
{
    m_tabela = nullptr;
    m_sql = sql;
    m_valores = valores;
    carregar();
}

void Recordset::carregar()
{
    m_linhas.clear();
    m_indices.clear();
    m_novo = false;
    m_alterados.clear();
    QSqlQuery q = m_banco.executar(m_sql, m_valores);
    m_modelo = q.record();
    for (int i = 0; i < m_modelo.count(); ++i)
        m_indices.insert(m_modelo.fieldName(i).toLower(), i);
    // Each row copies the one field list read above: asking the driver for a record per row
    // builds every field's name and type again, which on a wide table costs more than the row.
    const int colunas = m_modelo.count();
    while (q.next()) {
        QSqlRecord linha = m_modelo;
        for (int i = 0; i < colunas; ++i)
            linha.setValue(i, q.value(i));
        m_linhas.append(std::move(linha));
    }
    m_pos = m_linhas.isEmpty() ? -1 : 0;
    m_aberto = true;
}

void Recordset::requery()
{
    // Reruns the query, so a login sees rows that another station has added since.
    carregar();
}

void Recordset::fechar()
{
    m_linhas.clear();
    m_aberto = false;
    m_pos = -1;
    m_novo = false;
    m_alterados.clear();
}

bool Recordset::find(const QString& coluna, const QString& padrao)
{
    const int i = indice(coluna);
    if (m_pos < 0)
        m_pos = 0;
    for (; m_pos < m_linhas.size(); ++m_pos)
        if (Texto::like(m_linhas.at(m_pos).value(i).toString(), padrao))
            return true;
    return false;
}

int Recordset::indice(const QString& nome) const
{
    const auto it = m_indices.constFind(nome.toLower());
    if (it == m_indices.constEnd())
        throw CampoDesconhecido(nome);
    return it.value();
}

void Recordset::exigeLinha() const
{
    if (!m_novo && (m_pos < 0 || m_pos >= m_linhas.size()))
        throw ErroBanco(QStringLiteral("Sem registro"), QStringLiteral("Não há registro atual."));
}

QVariant Recordset::valor(const QString& nome) const
{
    const int i = indice(nome);
    exigeLinha();
    if (m_novo || m_alterados.contains(i))
        return m_edicao.value(i);
    return m_linhas.at(m_pos).value(i);
}

QString Recordset::texto(const QString& nome) const
{
    const QVariant v = valor(nome);
    return v.isNull() ? QString() : v.toString();
}

qint64 Recordset::inteiro(const QString& nome) const { return valor(nome).toLongLong(); }
bool Recordset::flag(const QString& nome) const { return valor(nome).toLongLong() != 0; }
Dinheiro Recordset::dinheiro(const QString& nome) const { return Dinheiro::deCentavos(valor(nome).toLongLong()); }
Quantidade Recordset::quantidade(const QString& nome) const { return Quantidade::deMilesimos(valor(nome).toLongLong()); }

QSqlRecord Recordset::registro() const
{
    exigeLinha();
    return m_novo ? m_edicao : m_linhas.at(m_pos);
}

qint64 Recordset::chaveAtual() const
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Consulta somente para leitura."));
    return valor(m_tabela->chave).toLongLong();
}

void Recordset::addNew()
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Consulta somente para leitura."));
    m_edicao = m_modelo;
    m_edicao.clearValues();
    m_alterados.clear();
    m_novo = true;
}

void Recordset::definir(const QString& nome, const QVariant& v)
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Consulta somente para leitura."));
    const int i = indice(nome);
    const DefColuna* c = m_tabela->coluna(m_modelo.fieldName(i));
    if (!c)
        throw CampoDesconhecido(nome);  // a folded copy: the store keeps it itself
    if (!m_novo) {
        exigeLinha();
        if (m_alterados.isEmpty())
            m_edicao = m_linhas.at(m_pos);
    }
    QVariant valor = v;
    switch (c->tipo) {
    case TipoColuna::Texto:
    case TipoColuna::Data:
    case TipoColuna::Hora:
        // An empty field is written as "" and never as NULL.
        valor = v.isNull() ? QString() : v.toString();
        if (valor.toString().isNull())
            valor = QStringLiteral("");
        break;
    case TipoColuna::Flag:
        valor = (v.typeId() == QMetaType::QString
                     ? (v.toString() == QLatin1String("True") || v.toString() == QLatin1String("-1")
                        || v.toString() == QLatin1String("1"))
                     : v.toLongLong() != 0) ? -1 : 0;
        break;
    case TipoColuna::FlagNula:
        valor = v.isNull() ? QVariant() : QVariant(v.toLongLong() != 0 ? -1 : 0);
        break;
    case TipoColuna::Dinheiro:
    case TipoColuna::Quantidade:
        valor = v.isNull() ? QVariant(qint64(0)) : QVariant(v.toLongLong());
        break;
    default:
        break;
    }
    m_edicao.setValue(i, valor);
    m_alterados.insert(i, true);
}

void Recordset::update()
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Consulta somente para leitura."));
    if (!m_novo && m_alterados.isEmpty())
        return;
    QStringList colunas;
    QVariantList valores;
    for (auto it = m_alterados.constBegin(); it != m_alterados.constEnd(); ++it) {
        const QString nome = m_modelo.fieldName(it.key());
        if (nome.compare(m_tabela->chave, Qt::CaseInsensitive) == 0 && m_novo
            && m_tabela->coluna(nome)->tipo == TipoColuna::AutoNumero)
            continue;
        colunas << nome;
        valores << m_edicao.value(it.key());
    }
    if (m_novo) {
        const qint64 chave = m_banco.inserir(*m_tabela, colunas, valores);
        QSqlQuery q = m_banco.executar(QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(m_tabela->nome, m_tabela->chave),
                                       {chave});
        if (!q.next())
            throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"), QStringLiteral("Registro novo não encontrado."));
        m_linhas.append(q.record());
        m_pos = m_linhas.size() - 1;
    } else {
        QStringList sets;
        for (const QString& c : colunas)
            sets << c + QStringLiteral(" = ?");
        const qint64 chave = m_linhas.at(m_pos).value(indice(m_tabela->chave)).toLongLong();
        const QString onde = comoFoiLida(valores);
        QSqlQuery alterou = m_banco.executar(QStringLiteral("UPDATE %1 SET %2 WHERE %3")
                                                 .arg(m_tabela->nome, sets.join(QStringLiteral(", ")), onde), valores);
        if (alterou.numRowsAffected() != 1)
            throw RegistroAlterado(!existe(chave));
        QSqlQuery q = m_banco.executar(QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(m_tabela->nome, m_tabela->chave),
                                       {chave});
        if (q.next())
            m_linhas[m_pos] = q.record();
    }
    m_novo = false;
    m_alterados.clear();
}

void Recordset::cancelUpdate()
{
    m_novo = false;
    m_alterados.clear();
}

void Recordset::deleteAtual()
{
    if (!m_tabela)
        throw ErroBanco(QStringLiteral("Consulta somente para leitura."));
    exigeLinha();
    const qint64 chave = m_linhas.at(m_pos).value(indice(m_tabela->chave)).toLongLong();
    QVariantList valores;
    const QString onde = comoFoiLida(valores);
    QSqlQuery q = m_banco.executar(QStringLiteral("DELETE FROM %1 WHERE %2").arg(m_tabela->nome, onde), valores);
    if (q.numRowsAffected() != 1)
        throw RegistroAlterado(!existe(chave));
    m_linhas.removeAt(m_pos);
    m_alterados.clear();
}

QString Recordset::comoFoiLida(QVariantList& valores) const
{
    // Optimistic check: the row is written or deleted only while every column still holds
    // what was read, so a change made at another station in between is never undone, nor
    // thrown away with the row.
    const QSqlRecord& lida = m_linhas.at(m_pos);
    QStringList condicoes{m_tabela->chave + QStringLiteral(" = ?")};
    valores << lida.value(indice(m_tabela->chave));
    for (int i = 0; i < lida.count(); ++i) {
        const DefColuna* c = m_tabela->coluna(lida.fieldName(i));
        if (!c || c->nome.compare(m_tabela->chave, Qt::CaseInsensitive) == 0)
            continue;  // folded copies follow their column
        if (m_naoConferir.contains(c->nome, Qt::CaseInsensitive))
            continue;
        condicoes << c->nome + QStringLiteral(" IS NOT DISTINCT FROM ?");
        valores << lida.value(i);
    }
    return condicoes.join(QStringLiteral(" AND "));
}

bool Recordset::existe(qint64 chave)
{
    return !m_banco.escalar(QStringLiteral("SELECT 1 FROM %1 WHERE %2 = ?").arg(m_tabela->nome, m_tabela->chave),
                            {chave}).isNull();
}
