#pragma once
#include <QDate>
#include <QList>
#include <QString>

#include "cash/MovimentoCaixa.h"

// The listed rows by day (by month over a long range), for the owner's chart: parts sold
// and labour stacked, and what the shop kept. Made from the totals walk's own figures, so
// the days add up to the report's totals.
namespace SerieMovimento {

// Above this many days a column per day is too thin to read.
constexpr int MaximoDias = 62;

struct Ponto {
    QDate inicio;     // the day, or the first of the month
    QString rotulo;   // "05/03" or "03/2025"
    Dinheiro pecas, maoObra, lucro;
};

bool porMes(const QDate& de, const QDate& ate);
// Every day (or month) of the range, also those without rows, in order.
QList<Ponto> pontos(const MovimentoCaixa::Lista& lista, const QDate& de, const QDate& ate);

}
