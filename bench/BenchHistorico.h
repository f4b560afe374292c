#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// An appliance's history at the intake on the filled store: the earlier orders of a
// serial, and of a customer's kind and model.
void medeHistorico(Banco& banco, QList<Medida>& medidas);
