#pragma once
#include <QDateTime>
#include <QString>

#include "maintenance/Trabalho.h"

// The backup files: their names, their working copies, and what a file holds.
namespace ArquivoBackup {

inline const QString Pasta = QStringLiteral("BackupToldex");
inline const QString Prefixo = QStringLiteral("Toldex.Backup");

// "_Data_31-01-2009_Hora_14%05": the stamp of backups and of the stores kept aside.
QString carimbo(const QDateTime& quando);
// "Toldex.Backup_Data_31-01-2009_Hora_14%05"
QString nome(const QDateTime& quando);
// The hidden file a backup is written to before it takes its name.
QString parcial(const QString& arquivoFinal);
// Partial files that a crash left in a backup folder.
void removerParciais(const QString& pasta);

enum class Tipo { Sqlite, Postgres, Desconhecido };
Tipo tipo(const QString& arquivo);   // by the file's first bytes

enum class Situacao { Bom, NaoEhBackup, Danificado, MaisNovo, OutroMotor };
struct Exame {
    Situacao situacao = Situacao::Bom;
    QString detalhe;
    bool bom() const { return situacao == Situacao::Bom; }
};
// An SQLite backup: the signature, the engine's check ("ok"), our schema version no newer
// than this program's, and the Empresa row.
Exame examinarSqlite(const QString& arquivo, bool completo);
QString mensagem(Situacao situacao);

// A plain copy in blocks, synced, for the maintenance thread; a cancel or a failure
// leaves no file.
Resultado copiar(const QString& origem, const QString& destino, Trabalho& t);

// Data and name safely on disk before anyone counts on them.
bool sincronizar(const QString& arquivo);
bool sincronizarPasta(const QString& pasta);
// Renames over an existing file in one step.
bool renomear(const QString& de, const QString& para, QString* erro = nullptr);

}
