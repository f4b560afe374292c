#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The whole-order screen on the filled store: opening it, loading an order with its lists
// and the customer's history, saving a whole order (services and parts, stock taken), and
// the names the customer box offers as the user types. Needs the screens' connections
// configured and the bench's part rows filled.
void medeCompleto(Banco& banco, QList<Medida>& medidas);
