#pragma once
#include <QList>
#include <QString>
#include <QStringList>

#include "data/ConfigBanco.h"
#include "maintenance/Trabalho.h"

// Backups of a PostgreSQL store through the server's own tools: pg_dump in its custom
// format, read back whole by pg_restore before it counts. The password goes to the tools
// through their environment, never on a command line that any user could list.
namespace CopiaPostgres {

Resultado fazer(const ConfigBanco& config, const QString& destino, Trabalho& t);
// pg_restore reads every byte of the archive: a truncated or damaged file fails here.
Resultado lerInteiro(const QString& arquivo, Trabalho& t);
// Restores the archive into the database `config` names, which must exist and be empty,
// or, with `limpar`, in one transaction over what it holds.
Resultado restaurar(const ConfigBanco& config, const QString& arquivo, bool limpar, Trabalho& t);

// One table's rows from an archive, for the backup lists.
struct Tabela {
    QStringList colunas;
    QList<QStringList> linhas;
};
bool lerTabela(const QString& arquivo, const QString& tabela, Tabela* saida, QString* erro);

}
