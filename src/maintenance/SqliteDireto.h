#pragma once
#include <QString>
#include <QStringList>
#include <functional>

struct sqlite3;

// A connection to an SQLite file outside Qt's connection list, for maintenance on its own
// thread: backups, checks and repairs run inside the engine itself. Errors throw ErroBanco.
class SqliteDireto {
public:
    enum class Modo { Leitura, Escrita };
    // A plain path, never a URI: backup names carry a "%".
    SqliteDireto(const QString& arquivo, Modo modo);
    ~SqliteDireto();
    SqliteDireto(const SqliteDireto&) = delete;
    SqliteDireto& operator=(const SqliteDireto&) = delete;

    void executar(const QString& sql);
    // One statement with its text values bound to `?` in order.
    void executar(const QString& sql, const QStringList& valores);
    // Every row's first column, as text.
    QStringList coluna(const QString& sql);
    QString texto(const QString& sql);
    // Called now and then while a statement runs; returning true stops it (SQLITE_INTERRUPT).
    void aoProgredir(std::function<bool()> verificar);

    // Copies the store page by page into a new file `destino`, inside one read transaction:
    // what other stations write meanwhile waits in their journal and never restarts the
    // copy. `passo` hears pages done and total after each piece; returning false stops.
    void copiarPara(const QString& destino, const std::function<bool(int feitas, int total)>& passo);

    // "ok", or the first problems the engine found.
    QString verificar(bool completo);

private:
    sqlite3* m_db = nullptr;
    QString m_arquivo;
    std::function<bool()> m_verificar;
};
