#pragma once
#include <QList>

#include "Medidor.h"

// The sample shop built from nothing on a new SQLite store, as each opening of it does,
// beside the bare creation of the empty store's tables.
void medeExemplo(QList<Medida>& medidas);
