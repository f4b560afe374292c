#pragma once
#include <QString>
#include <functional>

// Opens a finished document (a PDF of a sheet, a filled template) in the application the
// system has for it, a "mailto:" link in the user's mail program, or an "https:" link in
// the browser. Tests put a recorder in its place.
namespace Visualizador {
bool abrir(const QString& arquivo);
// An empty function restores the system's own.
void definir(std::function<bool(const QString&)> abridor);
}
