#pragma once
#include <QString>

enum class Motor { SQLite, PostgreSQL };

// Where the store lives. The password of a PostgreSQL server is never kept in
// Toldex.ini: libpq reads it from the user's ~/.pgpass (or PGPASSFILE), or it is given
// at run time.
struct ConfigBanco {
    Motor motor = Motor::SQLite;
    QString pasta;              // SQLite: folder of TOLDEX.db (CaminhoBanco)
    QString host;               // PostgreSQL: server name or socket folder
    int porta = 5432;
    QString nomeBanco = QStringLiteral("toldex");
    QString usuario;
    QString senha;
    int tempoEsperaMs = 15000;       // how long a station waits for another's write
    bool criarSeNaoExistir = false;  // only on a first start: never replace a missing store

    QString arquivoSqlite() const;
    QString descricao() const;   // for messages: the file or the server
};

inline const QString NomeArquivoBanco = QStringLiteral("TOLDEX.db");
