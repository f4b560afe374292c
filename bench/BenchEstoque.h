#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// The stock room's lines: the general stock list over 50,000 products (show all with its
// count, a search, a level filter, the spreadsheet) and the material order list opened on
// 100,000 rows. Fills what is missing first. Connections of the screens must already be
// configured for the store.
void medeEstoque(Banco& banco, QList<Medida>& medidas, int textos);
