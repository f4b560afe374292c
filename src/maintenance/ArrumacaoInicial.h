#pragma once
#include "data/ConfigBanco.h"

// What the program does about maintenance before it opens the store: a restore that a
// crash stopped midway is finished or undone, partial backups of the last backup folder
// are removed, and this program joins the holders of the store's shared lock.
namespace ArrumacaoInicial {
void executar(const ConfigBanco& config);
}
