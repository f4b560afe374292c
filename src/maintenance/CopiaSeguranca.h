#pragma once
#include <QString>

#include "data/ConfigBanco.h"
#include "maintenance/Trabalho.h"

// Making a backup and compacting the store. Both run on the maintenance thread
// (Trabalho) and never touch the live store's file from outside the engine.
namespace CopiaSeguranca {

inline const QString TextoFalhaGravar = QStringLiteral("Não foi possivel gravar o backup");

// Writes a verified backup of the store to `destino`: into a hidden partial file beside
// it, checked (engine check, schema version, the Empresa row), synced and only then
// renamed to its name, replacing a file of the same name. A failure or a cancel leaves
// nothing behind.
Resultado fazer(const ConfigBanco& config, const QString& destino, Trabalho& t);

// VACUUM inside the engine. The caller holds the store to itself (TravaExclusiva).
Resultado compactar(const ConfigBanco& config, Trabalho& t);

}
