#include "maintenance/GeradorSql.h"

#include "data/Banco.h"

QString GeradorSql::sorteio(qint64 n) const
{
    return motor == Motor::SQLite ? QStringLiteral("(abs(random()) % %1)").arg(n)
                                  : QStringLiteral("CAST(floor(random() * %1) AS bigint)").arg(n);
}

QString GeradorSql::digitos(int n) const
{
    qint64 teto = 1;
    for (int i = 0; i < n; ++i)
        teto *= 10;
    // Built by joining: the printf format holds a "%0" that QString::arg would take.
    const QString largura = QString::number(n);
    return motor == Motor::SQLite ? "printf('%0" + largura + "d', " + sorteio(teto) + ")"
                                  : "lpad(CAST(" + sorteio(teto) + " AS text), " + largura + ", '0')";
}

QString GeradorSql::item(const QStringList& lista) const
{
    return item(lista, sorteio(lista.size()));
}

QString GeradorSql::item(const QStringList& lista, const QString& indice) const
{
    QStringList aspas;
    for (const QString& s : lista)
        aspas << QLatin1Char('"') + s + QLatin1Char('"');
    const QString json = QLatin1Char('[') + aspas.join(QLatin1Char(',')) + QLatin1Char(']');
    return motor == Motor::SQLite ? QStringLiteral("('%1' ->> (%2))").arg(json, indice)
                                  : QStringLiteral("(CAST('%1' AS jsonb) ->> CAST(%2 AS int))").arg(json, indice);
}

QString GeradorSql::mistura(const QString& expressao, qint64 multiplicador, qint64 n)
{
    return QStringLiteral("((%1) * %2 % 4294967296 % %3)").arg(expressao).arg(multiplicador).arg(n);
}

QString GeradorSql::nome(const QStringList& nomes, const QStringList& sobrenomes) const
{
    return QStringLiteral("%1 || ' ' || %2 || ' ' || %3").arg(item(nomes), item(sobrenomes), item(sobrenomes));
}

QString GeradorSql::diasAntes(const QString& hoje, const QString& dias) const
{
    const QString iso = QString(hoje).replace(QLatin1Char('/'), QLatin1Char('-'));
    return motor == Motor::SQLite
        ? "strftime('%Y/%m/%d', '" + iso + "', (0 - (" + dias + ")) || ' days')"
        : "to_char(DATE '" + iso + "' - CAST((" + dias + ") AS int), 'YYYY/MM/DD')";
}

QString GeradorSql::somaDias(const QString& coluna, int dias) const
{
    return motor == Motor::SQLite
        ? QStringLiteral("strftime('%Y/%m/%d', replace(%1, '/', '-'), '%2 days')").arg(coluna).arg(dias)
        : QStringLiteral("to_char(to_date(%1, 'YYYY/MM/DD') + %2, 'YYYY/MM/DD')").arg(coluna).arg(dias);
}

QString GeradorSql::serie(qint64 inicio, qint64 fim) const
{
    const QString de = QString::number(inicio), ate = QString::number(fim);
    const QString s = "(i * 2654435761) % 4294967296 % 5 AS s";
    return motor == Motor::SQLite
        ? "(WITH RECURSIVE n(i) AS (SELECT " + de + " UNION ALL SELECT i + 1 FROM n WHERE i < " + ate + ") "
          "SELECT i, " + s + " FROM n) r"
        : "(SELECT i, " + s + " FROM generate_series(" + de + ", " + ate + ") AS g(i)) r";
}

void insereGerado(Banco& b, const QString& tabela, const QList<std::pair<QString, QString>>& colunas,
                  const QString& origem)
{
    QStringList nomes, valores;
    for (const auto& [nome, valor] : colunas) {
        nomes << nome;
        valores << valor;
    }
    b.executar("INSERT INTO " + tabela + " (" + nomes.join(", ") + ") SELECT " + valores.join(", ") + " FROM " + origem);
}
