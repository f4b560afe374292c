#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The pending panel on the filled store: the tick every station runs once a minute (all
// counts and the blink tests in one pass), one list, and the panel's "Salvar".
void medePainel(Banco& banco, QList<Medida>& medidas);
