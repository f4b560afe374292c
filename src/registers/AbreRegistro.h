#pragma once
#include <QString>

// Opens a register screen by name and shows the row of the given key on it: the
// choice of a search that was opened from the menu.
namespace AbreRegistro {
bool abrir(const QString& tela, qint64 chave);
}
