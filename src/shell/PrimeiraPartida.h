#pragma once

class QWidget;

// The first start on a machine (no Toldex.ini yet): the user says whether this computer
// is the server, where a new store is created, or a workstation, which looks for the
// server's store through the reconnection screen. A workstation whose ini went missing
// so never starts a second, empty store of its own without anyone noticing.
namespace PrimeiraPartida {

enum class Papel { JaConfigurado, Servidor, Estacao, Exemplo, Cancelado };

// Asks only when there is no Toldex.ini, and writes the answer to it. Cancelado: the
// user closed the question; nothing is written and the program ends. Exemplo: the user
// only wants to try the program on the sample shop; nothing is written either, so the
// next start asks again.
Papel perguntar(QWidget* pai = nullptr);

}
