#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The technician's bench on the filled store (one and a half part rows per order): opening
// the screen, loading an order into it, and saving an order as "Consertado." with ten
// parts, which takes them from stock. Needs the screens' connections configured.
void medeBancada(Banco& banco, QList<Medida>& medidas);
