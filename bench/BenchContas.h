#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The accounts at a shop's scale: 300,000 receivables and 50,000 payables (filled when
// missing, from the customers already there), each search's first page with its count,
// and a payment, a new due date and a deletion each on a row of its own.
void medeContas(Banco& banco, QList<Medida>& medidas, int textos);
