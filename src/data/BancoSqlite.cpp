#include "data/BancoSqlite.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlRecord>

#include "data/Texto.h"

#include <sqlite3.h>

QString BancoSqlite::expressaoDobrada(const DefColuna& c, bool armazenada) const
{
    // toldex_dobra is Texto::dobra itself, registered on every connection we open.
    const QString e = textoDaColuna(c);
    return QStringLiteral("GENERATED ALWAYS AS (toldex_dobra(%1)) %2")
        .arg(e, armazenada ? QStringLiteral("STORED") : QStringLiteral("VIRTUAL"));
}

QString BancoSqlite::condicaoTrigrama(const DefTabela& t, const DefColuna& c) const
{
    // A phrase of consecutive trigrams is a substring: the index answers it from its own
    // lists, without reading the rows back.
    return QStringLiteral("%1 IN (%2)").arg(t.chave, sondaTrigrama(t, c));
}

QString BancoSqlite::sondaTrigrama(const DefTabela& t, const DefColuna& c) const
{
    return QStringLiteral("SELECT rowid FROM %1 WHERE %1 MATCH '{%2} : ' || ?").arg(t.nomeTrigrama(), c.nomeDobrado());
}

QString BancoSqlite::valorTrigrama(const QString& dobrado) const
{
    QString frase = dobrado;
    frase.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + frase + QLatin1Char('"');
}

void BancoSqlite::configurarDriver()
{
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_nomeConexao);
    const QString arquivo = m_config.arquivoSqlite();
    const QFileInfo pasta(m_config.pasta);
    if (m_config.pasta.isEmpty() || !pasta.isDir())
        throw ErroConexao(QStringLiteral("Atenção,Banco de dados não localizado... A pasta \"%1\" não existe.")
                              .arg(m_config.pasta));
    if (!QFileInfo::exists(arquivo) && !m_config.criarSeNaoExistir)
        throw ErroConexao(QStringLiteral("Atenção,Banco de dados não localizado... O arquivo %1 não existe.")
                              .arg(QDir::toNativeSeparators(arquivo)));
    if (!QFileInfo::exists(arquivo) && !QFileInfo(m_config.pasta).isWritable())
        throw ErroConexao(QStringLiteral("Não é possível criar o banco de dados: a pasta \"%1\" não permite gravação.")
                              .arg(m_config.pasta));
    m_db.setDatabaseName(arquivo);
    m_db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(m_config.tempoEsperaMs));
}

namespace {

void dobraSql(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_text(ctx, "", 0, SQLITE_STATIC);
        return;
    }
    const auto* txt = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const QByteArray r = Texto::dobra(QString::fromUtf8(txt, sqlite3_value_bytes(argv[0]))).toUtf8();
    sqlite3_result_text(ctx, r.constData(), int(r.size()), SQLITE_TRANSIENT);
}

} // namespace

bool BancoSqlite::registrarFuncoes(sqlite3* handle)
{
    return handle && sqlite3_create_function_v2(handle, "toldex_dobra", 1,
                                                SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                                dobraSql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

void BancoSqlite::aposAbrir()
{
    auto* handle = *static_cast<sqlite3**>(m_db.driver()->handle().data());
    if (!registrarFuncoes(handle))
        throw ErroBanco(QStringLiteral("Erro no banco de dados."), QStringLiteral("Função de busca não registrada."));
    // A file that isn't a database only fails on the first read.
    executar(QStringLiteral("PRAGMA foreign_keys = OFF"));
    QSqlQuery q = executar(QStringLiteral("PRAGMA journal_mode = WAL"));
    // FULL: a commit reaches the disk before the save returns. NORMAL would keep the last
    // orders of the day only in the journal until a checkpoint, and a power cut (a common
    // thing in a shop) would take them away.
    executar(QStringLiteral("PRAGMA synchronous = FULL"));
    executar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master"));
}

QStringList BancoSqlite::colunasExistentes(const QString& tabela)
{
    QStringList r;
    QSqlQuery q = executar(QStringLiteral("SELECT name FROM pragma_table_xinfo(?)"), {tabela});
    while (q.next())
        r << q.value(0).toString();
    return r;
}

bool BancoSqlite::tabelaExiste(const QString& tabela)
{
    return escalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type IN ('table','view') "
                                  "AND lower(name) = lower(?)"), {tabela}).toInt() > 0;
}

void BancoSqlite::criarIndicesBusca(const DefTabela& t)
{
    if (!t.temColunasMeio() || tabelaExiste(t.nomeTrigrama()))
        return;
    // A trigram index over the folded copies answers "text in the middle" searches; it
    // reads its text from the table itself and triggers keep it in step.
    QStringList cols, novos, velhos, fontes;
    for (const DefColuna& c : t.colunas)
        if (c.meio) {
            cols << c.nomeDobrado();
            novos << QStringLiteral("new.") + c.nomeDobrado();
            velhos << QStringLiteral("old.") + c.nomeDobrado();
            fontes << c.nome;
        }
    const QString lista = cols.join(QLatin1Char(','));
    executar(QStringLiteral("CREATE VIRTUAL TABLE %1 USING fts5(%2, content='%3', content_rowid='%4', tokenize='trigram')")
                 .arg(t.nomeTrigrama(), lista, t.nome, t.chave));
    const QString insere = QStringLiteral("INSERT INTO %1(rowid, %2) VALUES (new.%3, %4);")
                               .arg(t.nomeTrigrama(), lista, t.chave, novos.join(QLatin1Char(',')));
    const QString apaga = QStringLiteral("INSERT INTO %1(%1, rowid, %2) VALUES ('delete', old.%3, %4);")
                              .arg(t.nomeTrigrama(), lista, t.chave, velhos.join(QLatin1Char(',')));
    executar(QStringLiteral("CREATE TRIGGER %1_ai AFTER INSERT ON %2 BEGIN %3 END").arg(t.nomeTrigrama(), t.nome, insere));
    executar(QStringLiteral("CREATE TRIGGER %1_ad AFTER DELETE ON %2 BEGIN %3 END").arg(t.nomeTrigrama(), t.nome, apaga));
    executar(QStringLiteral("CREATE TRIGGER %1_au AFTER UPDATE OF %2 ON %3 BEGIN %4 %5 END")
                 .arg(t.nomeTrigrama(), fontes.join(QLatin1Char(',')), t.nome, apaga, insere));
    executar(QStringLiteral("INSERT INTO %1(%1) VALUES ('rebuild')").arg(t.nomeTrigrama()));
}

BancoSqlite::~BancoSqlite()
{
    // The base's destructor can no longer reach antesDeFechar.
    fechar();
}

void BancoSqlite::aposEsquema()
{
    // A store that has never had its statistics gathered gets them now, bounded so that a
    // big file doesn't hold the start-up; PRAGMA optimize keeps them fresh afterwards.
    try {
        executar(QStringLiteral("PRAGMA analysis_limit = 400"));
        if (escalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'sqlite_stat1'")).toInt() == 0)
            executar(QStringLiteral("ANALYZE"));
        else
            executar(QStringLiteral("PRAGMA optimize"));
    } catch (const ErroBanco&) {
        // Statistics are an aid to the planner: a busy store simply goes without them now.
    }
}

void BancoSqlite::antesDeFechar()
{
    // What the connection's queries showed to be stale is analyzed again. Never waits for
    // another station's write: the window that closes must not hang on it.
    try {
        executar(QStringLiteral("PRAGMA busy_timeout = 0"));
        executar(QStringLiteral("PRAGMA analysis_limit = 400"));
        executar(QStringLiteral("PRAGMA optimize"));
    } catch (const ErroBanco&) {
    }
}
