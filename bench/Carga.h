#pragma once
#include <QtGlobal>

class Banco;

// Fills a store with synthetic but realistic data: customers with Brazilian names,
// telephones and CPFs, and orders of which a small share is still in the shop and a
// few are in the bin.
namespace Carga {
void clientes(Banco& b, int n);
void ordens(Banco& b, int n, int abertas, int clientes);
}
