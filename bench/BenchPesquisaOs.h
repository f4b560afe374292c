#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The order searches, box by box: the exact count and the first 100 rows, as the grid
// shows them, beside the raw indexed query (same index, same order, same limit, live rows
// only). Resellers and house calls are filled here when the store has none.
void medePesquisaOs(Banco& b, int nTextos, QList<Medida>& m);
