#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The cash report at a shop's scale: fills Movimento and VendaDetalhada for `ordens` posted
// sales (about 2.5 lines each, some 270 sales a day, so a month is about 20,000 lines
// whatever the size), then times a day's and a month's list with its totals, a search
// within the month, the month's spreadsheet and its chart's figures.
QList<Medida> medeMovimento(Banco& b, qint64 ordens);
