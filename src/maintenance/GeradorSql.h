#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

#include "data/ConfigBanco.h"

class Banco;

// The rows of a big fill are made by the engine itself from expressions: a million orders
// sent one statement at a time would take most of an hour on a busy machine. This writes
// those expressions for either engine. Only constants of the program go into them, never
// anything a user typed.
struct GeradorSql {
    Motor motor;

    // A whole number in 0..n-1, drawn again for each row.
    QString sorteio(qint64 n) const;
    // `n` random digits.
    QString digitos(int n) const;
    // One item of the list, drawn for each row, or the one at `indice` (an expression).
    QString item(const QStringList& lista) const;
    QString item(const QStringList& lista, const QString& indice) const;
    // A whole number in 0..n-1 scrambled from `expressao`, the same each time it is read:
    // SQLite may put a subquery's expression in each place that reads it, where a draw
    // would differ from one read to the next.
    static QString mistura(const QString& expressao, qint64 multiplicador, qint64 n);
    // A first name and two surnames.
    QString nome(const QStringList& nomes, const QStringList& sobrenomes) const;
    // The date `dias` (an expression; negative is ahead) before `hoje`, as stored.
    QString diasAntes(const QString& hoje, const QString& dias) const;
    // A stored date column plus `dias` days, as stored.
    QString somaDias(const QString& coluna, int dias) const;
    // The numbers inicio..fim, one row each, as column i, with `s` in 0..4 beside it: a
    // scrambling of i rather than a draw, so that both engines hold the same situations.
    QString serie(qint64 inicio, qint64 fim) const;
};

// INSERT INTO tabela (colunas) SELECT valores FROM origem, with each column beside its value.
void insereGerado(Banco& b, const QString& tabela, const QList<std::pair<QString, QString>>& colunas,
                  const QString& origem);
