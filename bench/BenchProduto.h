#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The product lines: the product search, the register with a kit of twenty items, and
// the price adjustment's preview and apply, on a store of 50,000 products (filled here
// when it holds fewer). The screens' connections must already point at the store.
void medeProdutos(Banco& b, int nTextos, QList<Medida>& m);
