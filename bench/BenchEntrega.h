#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The delivery counter and the cheque register on the filled store: opening the delivery
// screen, loading an order into it, opening its parts list, and saving a registration of
// cheques. Needs the screens' connections configured.
void medeEntrega(Banco& banco, QList<Medida>& medidas);
