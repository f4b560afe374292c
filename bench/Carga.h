#pragma once
#include <QtGlobal>

class Banco;

// Fills a store with synthetic but realistic data: customers with Brazilian names,
// telephones and CPFs, and orders of which a small share is still in the shop and a
// few are in the bin.
namespace Carga {
void clientes(Banco& b, int n);
void ordens(Banco& b, int n, int abertas, int clientes);
// Brings Empresa's order counter and the codes issued up to the rows stored, as a shop's
// own saves would have left them, so that new orders never repeat a number.
void contadores(Banco& b);
}
