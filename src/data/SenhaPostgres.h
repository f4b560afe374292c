#pragma once
#include <QString>

#include "data/ConfigBanco.h"

// The PostgreSQL password kept where libpq looks for it: the user's ~/.pgpass (or the file
// PGPASSFILE names), readable by that user alone. Never in Toldex.ini.
namespace SenhaPostgres {
QString arquivo();
// Adds or replaces the line of this server, port, database and user.
bool lembrar(const ConfigBanco& config, const QString& senha, QString* erro = nullptr);
}
