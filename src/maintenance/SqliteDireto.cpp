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

QString SqliteDireto::verificar(bool completo)
{
    // The first ten problems are enough to tell a damaged file; the full list of a badly
    // broken one can be endless.
    const QStringList r = coluna(completo ? QStringLiteral("PRAGMA integrity_check(10)")
                                          : QStringLiteral("PRAGMA quick_check(10)"));
    return r.join(QLatin1Char('\n'));
}
