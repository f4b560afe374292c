#pragma once
#include <QString>

class Banco;

// What the shell needs of the one Empresa row besides the Cfg... values that LeEmpresa
// leaves in the session.
struct DadosEmpresa {
    bool lida = false;        // the row was read (false: the store couldn't be opened)
    QString nomeEmpresa;      // the window caption
    QString testeOk;          // shown on the status bar
    bool semBackup = false;   // DataBackup empty: no backup was ever made
};

// Reads the Empresa row into the session's Cfg... values, DataUltimoBackup and
// DiasAviso. Runs at the main window's start and again after the configuration screen
// saves. A flag column that is NULL counts as "True", as older shops never set them.
// Without an argument it works on slot 1 and closes it afterwards.
DadosEmpresa LeEmpresa();
DadosEmpresa LeEmpresa(Banco& banco);

// This computer's name, as the status bar and the server name show it: the shared one.
#include "data/Funcoes.h"
