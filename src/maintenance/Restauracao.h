#pragma once
#include <QDateTime>
#include <QString>

#include "data/ConfigBanco.h"
#include "maintenance/Trabalho.h"

// Putting a backup back. The chosen file is checked and copied beside the store before
// anything of the store is touched; the live store is then kept under a dated name
// (never deleted by the program) and the checked copy takes its place in one rename.
namespace Restauracao {

inline const QString SufixoRestaurando = QStringLiteral(".restaurando");
QString arquivoRestaurando(const QString& pastaBanco);
// "TOLDEX.db.antes-da-restauracao_Data_31-01-2009_Hora_14%05"
QString nomeGuardado(const QString& motivo, const QDateTime& quando);

// At start, before the store opens: a restore that stopped midway is finished (the
// checked copy is there and the store isn't) or undone (both are there).
void arrumarAoIniciar(const QString& pastaBanco);

// SQLite, on the maintenance thread: checks the file, copies it beside the store, checks
// the copy. Nothing of the store is touched.
Resultado prepararSqlite(const QString& backup, const QString& pastaBanco, Trabalho& t);
// SQLite, with every connection closed and the store held exclusively: the live store
// (with its journal files) goes aside as `guardado`, the copy takes its name.
Resultado trocarSqlite(const QString& pastaBanco, const QDateTime& quando, QString* guardado);
void desistirSqlite(const QString& pastaBanco);

// Connections to the store other than this program's own, now (PostgreSQL). -1 when the
// server can't be asked.
int outrasConexoesPostgres(const ConfigBanco& config, QString* erro);
// PostgreSQL: restore into a new database and swap the names, keeping the old one as
// <nome>_antes_<data>. Without the right to create databases, a verified dump of the live
// one is written to `pastaSeguranca` first and the restore runs in one transaction.
Resultado restaurarPostgres(const ConfigBanco& config, const QString& backup, const QString& pastaSeguranca,
                            const QDateTime& quando, Trabalho& t, QString* guardado);

}
