#pragma once
#include <QString>

#include "data/ConfigBanco.h"
#include "maintenance/GeradorDados.h"

// The sample shop a shop opens to try the program before typing its own data: a store of
// its own, in the folder "exemplo" beside the program's data, built afresh each time it is
// opened. The shop's real store and its Toldex.ini are never read nor written meanwhile.
namespace LojaExemplo {

QString pasta();
ConfigBanco config();

// Removes what an earlier sample left and builds a new one, telling `progresso` (which
// may stop it: then nothing is left behind). False on a stop or a failure; `erro` tells
// the failure, empty on a stop.
bool criar(const GeradorDados::Progresso& progresso, QString* erro = nullptr);

// From now on this run uses the sample store: the connections, a reconnection and the
// first window take it instead of the one Toldex.ini names.
void usar();
bool emUso();

}
