#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The till at a shop's scale: opening the screen on an order, and a save that creates the
// customer, lays out four instalments and posts ten parts. Needs the connections
// configured (the screen opens its own).
QList<Medida> medeCaixa(Banco& b);
