#pragma once
#include <QString>

#include "data/ConfigBanco.h"
#include "maintenance/Trabalho.h"

// Repairing the store inside its engine. SQLite: a full check; a sound store is only
// compacted; a damaged one is first kept aside as it is, its indexes rebuilt and checked
// again. PostgreSQL: indexes rebuilt and statistics renewed. The caller holds the store
// to itself (AcessoExclusivo).
namespace Reparo {

Resultado reparar(const ConfigBanco& config, Trabalho& t, QString* guardado = nullptr);

// Installs the repair of the reconnection screen.
void instalar();

}
