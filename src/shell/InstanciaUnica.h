#pragma once
#include <QString>

// One copy of the program per machine and installation. The lock is a file beside the
// program whose owner's process id is checked: a copy that crashed leaves no lock stuck.
namespace InstanciaUnica {
// True when this process now holds the lock (or already held it).
bool adquirir(const QString& pasta);
void liberar();
}
