#pragma once
#include <QString>

// Backup, restore and repair of an SQLite store of about `megas` MB, beside a plain copy
// of the same file. Prints the figures; returns 0 when the backup stayed within 3 times
// the copy.
int medeManutencao(const QString& pasta, int megas);
