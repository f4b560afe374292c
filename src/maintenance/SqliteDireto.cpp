#include "maintenance/SqliteDireto.h"

#include <QFile>

#include <sqlite3.h>

#include "data/Banco.h"
#include "data/BancoSqlite.h"
#include "data/ErroBanco.h"

namespace {

[[noreturn]] void falha(sqlite3* db, const QString& arquivo)
{
    const QString d = QStringLiteral("%1 (%2)").arg(QString::fromUtf8(db ? sqlite3_errmsg(db) : "out of memory"), arquivo);
    throw ErroBanco(mensagemDeErro(d), d);
}

int chamaVerificar(void* p)
{
    auto* f = static_cast<std::function<bool()>*>(p);
    return (*f)() ? 1 : 0;
}

} // namespace

SqliteDireto::SqliteDireto(const QString& arquivo, Modo modo) : m_arquivo(arquivo)
{
    const int flags = (modo == Modo::Leitura ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_NOMUTEX;
    const QByteArray nome = QFile::encodeName(arquivo);
    if (sqlite3_open_v2(nome.constData(), &m_db, flags, nullptr) != SQLITE_OK)
        falha(m_db, m_arquivo);
    sqlite3_busy_timeout(m_db, 5000);
    BancoSqlite::registrarFuncoes(m_db);
    // A repair or restore writes the shop's own file: each commit reaches the disk before
    // it returns, as on every other connection, whatever the library was built with.
    sqlite3_exec(m_db, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
}

SqliteDireto::~SqliteDireto()
{
    sqlite3_close_v2(m_db);
}

void SqliteDireto::aoProgredir(std::function<bool()> verificar)
{
    m_verificar = std::move(verificar);
    if (m_verificar)
        sqlite3_progress_handler(m_db, 10000, chamaVerificar, &m_verificar);
    else
        sqlite3_progress_handler(m_db, 0, nullptr, nullptr);
}

void SqliteDireto::executar(const QString& sql)
{
    char* erro = nullptr;
    if (sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, &erro) != SQLITE_OK) {
        const QString d = QStringLiteral("%1 (%2)").arg(QString::fromUtf8(erro ? erro : sqlite3_errmsg(m_db)), m_arquivo);
        sqlite3_free(erro);
        throw ErroBanco(mensagemDeErro(d), d);
    }
}

void SqliteDireto::executar(const QString& sql, const QStringList& valores)
{
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(m_db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK)
        falha(m_db, m_arquivo);
    for (int i = 0; i < valores.size(); ++i) {
        const QByteArray v = valores.at(i).toUtf8();
        sqlite3_bind_text(st, i + 1, v.constData(), int(v.size()), SQLITE_TRANSIENT);
    }
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    }
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE)
        falha(m_db, m_arquivo);
}

QStringList SqliteDireto::coluna(const QString& sql)
{
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(m_db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK)
        falha(m_db, m_arquivo);
    QStringList r;
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW)
        r << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE)
        falha(m_db, m_arquivo);
    return r;
}

QString SqliteDireto::texto(const QString& sql)
{
    const QStringList r = coluna(sql);
    return r.isEmpty() ? QString() : r.first();
}

void SqliteDireto::copiarPara(const QString& destino, const std::function<bool(int, int)>& passo)
{
    sqlite3* alvo = nullptr;
    const QByteArray nome = QFile::encodeName(destino);
    if (sqlite3_open_v2(nome.constData(), &alvo, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr)
        != SQLITE_OK) {
        const QString d = QStringLiteral("%1 (%2)").arg(QString::fromUtf8(alvo ? sqlite3_errmsg(alvo) : "out of memory"), destino);
        sqlite3_close_v2(alvo);
        throw ErroBanco(mensagemDeErro(d), d);
    }
    // The copy is synced whole at the end; a journal for a file nobody uses yet is waste.
    sqlite3_exec(alvo, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    executar(QStringLiteral("BEGIN"));
    executar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master"));
    sqlite3_backup* b = sqlite3_backup_init(alvo, "main", m_db, "main");
    int rc = b ? SQLITE_OK : sqlite3_errcode(alvo);
    bool parou = false;
    while (b) {
        rc = sqlite3_backup_step(b, 2048);
        if (rc != SQLITE_OK && rc != SQLITE_BUSY && rc != SQLITE_LOCKED)
            break;
        const int total = sqlite3_backup_pagecount(b);
        if (!passo(total - sqlite3_backup_remaining(b), total)) {
            parou = true;
            break;
        }
    }
    const QString erro = QString::fromUtf8(sqlite3_errmsg(alvo));
    if (b)
        sqlite3_backup_finish(b);
    sqlite3_close_v2(alvo);
    sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    if (parou)
        throw ErroBanco(QStringLiteral("Cópia cancelada"), QStringLiteral("interrupted"));
    if (rc != SQLITE_DONE) {
        const QString d = QStringLiteral("%1 (%2)").arg(erro, destino);
        throw ErroBanco(mensagemDeErro(d), d);
    }
}

QString SqliteDireto::verificar(bool completo)
{
    // The first ten problems are enough to tell a damaged file; the full list of a badly
    // broken one can be endless.
    const QStringList r = coluna(completo ? QStringLiteral("PRAGMA integrity_check(10)")
                                          : QStringLiteral("PRAGMA quick_check(10)"));
    return r.join(QLatin1Char('\n'));
}
