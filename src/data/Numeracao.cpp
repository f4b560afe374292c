#include "data/Numeracao.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Dinheiro.h"

namespace Numeracao {

qint64 proximoDe(const QString& ultimo)
{
    return prefixoNumerico(ultimo.trimmed().right(7)) + 1;
}

namespace {

QString chaveContador(const QString& tabela, const QString& coluna)
{
    return tabela.toLower() + QLatin1Char('.') + coluna.toLower();
}

// Locks the table's counter row for the rest of the transaction and returns the highest
// code issued so far (-1 when none).
qint64 travaContador(Banco& banco, const QString& chave)
{
    if (banco.motor() == Motor::PostgreSQL)
        banco.executar(QStringLiteral("INSERT INTO CodigosEmitidos (Tabela, UltimoCodigo) VALUES (?, -1) "
                                      "ON CONFLICT (Tabela) DO NOTHING"), {chave});
    else
        banco.executar(QStringLiteral("INSERT OR IGNORE INTO CodigosEmitidos (Tabela, UltimoCodigo) VALUES (?, -1)"),
                       {chave});
    const QString sql = banco.motor() == Motor::PostgreSQL
        ? QStringLiteral("SELECT UltimoCodigo FROM CodigosEmitidos WHERE Tabela = ? FOR UPDATE")
        : QStringLiteral("SELECT UltimoCodigo FROM CodigosEmitidos WHERE Tabela = ?");
    return banco.escalar(sql, {chave}).toLongLong();
}

} // namespace

qint64 proximoCodigo(Banco& banco, const QString& tabela, const QString& coluna, const QString& ordem)
{
    const QString chave = chaveContador(tabela, coluna);
    const qint64 emitido = travaContador(banco, chave);
    const QString porOrdem = ordem.isEmpty() ? coluna : ordem;
    // The last row that has an order value, read backwards through that column's index
    // (a NULLS LAST order would make PostgreSQL read the whole table inside the save). A
    // table whose rows all lack it gives any row, as the classic last row did.
    QVariant ultimo = banco.escalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 IS NOT NULL ORDER BY %3 DESC LIMIT 1")
                                        .arg(coluna, tabela, porOrdem));
    if (ultimo.isNull() && porOrdem != coluna)
        ultimo = banco.escalar(QStringLiteral("SELECT %1 FROM %2 LIMIT 1").arg(coluna, tabela));
    QString base = ultimo.isNull() ? QString() : ultimo.toString();
    // A purged row no longer stands last: the highest issued code takes its place.
    if (emitido >= 0 && (base.isEmpty() || emitido > prefixoNumerico(base)))
        base = QString::number(emitido);
    const qint64 novo = proximoDe(base);
    banco.executar(QStringLiteral("UPDATE CodigosEmitidos SET UltimoCodigo = ? WHERE Tabela = ? AND UltimoCodigo < ?"),
                   {novo, chave, novo});
    return novo;
}

void registrarEmitido(Banco& banco, const QString& tabela, const QString& coluna, qint64 codigo)
{
    const QString chave = chaveContador(tabela, coluna);
    travaContador(banco, chave);
    banco.executar(QStringLiteral("UPDATE CodigosEmitidos SET UltimoCodigo = ? WHERE Tabela = ? AND UltimoCodigo < ?"),
                   {codigo, chave, codigo});
}

}
