#pragma once
#include <QString>

#include "data/ConfigBanco.h"

// This machine's place in the shop: the program's folder, Toldex.ini, server or
// workstation, and where the store is (section Local of the ini).
namespace Local {

// The program's folder; the user's data folder when that isn't writable. TOLDEX_PASTA
// overrides both (tests and portable installations).
QString pastaPrograma();
QString arquivoIni();
// From now on arquivoIni() names `arquivo`: the sample shop keeps this machine's settings
// in its own folder, so that trying it never changes the shop's. An empty text goes back
// to the program's folder.
void desviarIni(const QString& arquivo);
// What an installation puts beside the program and never changes (the templates, the
// version file): share/toldex next to the program's bin folder.
QString pastaInstalada();

// Reads section Local into the session (EhServidor, CaminhoBanco) and gives the store's
// settings. With no Toldex.ini this is a first start: the program's folder holds a new
// store, and the ini is written so that the next start finds it again.
ConfigBanco lerConfig();

// Writes the choice of the reconnection and configuration screens: server (the store in
// the program's folder) or workstation (the store in `caminho`).
bool gravarPapel(bool servidor, const QString& caminho, QString* erro = nullptr);

}
