#include "data/BancoPostgres.h"

#include <QSqlError>

#include "data/Funcoes.h"
#include "data/Busca.h"
#include "data/Texto.h"

namespace {

QString literal(const QString& s)
{
    QString r = s;
    r.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + r + QLatin1Char('\'');
}

} // namespace

QString BancoPostgres::expressaoDobrada(const DefColuna& c, bool) const
{
    const QString fonte = textoDaColuna(c);
    // Under the "C" collation upper() folds ASCII only, whatever the server's locale, so
    // the stored copy is the same as Texto::dobra's.
    return QStringLiteral("COLLATE \"C\" GENERATED ALWAYS AS (upper(translate(%1, %2, %3) COLLATE \"C\")) STORED")
        .arg(fonte, literal(Texto::letrasAcentuadas()), literal(Texto::letrasSemAcento()));
}

QString BancoPostgres::condicaoTrigrama(const DefTabela&, const DefColuna& c) const
{
    // The bound pattern has its backslashes doubled (valorTrigrama), so a typed "\" is text.
    return QStringLiteral("%1 LIKE ? ESCAPE '\\'").arg(c.nomeDobrado());
}

QString BancoPostgres::valorTrigrama(const QString& dobrado) const
{
    // A backslash typed (a path, "C:\DADOS") is text, not the escape of the letter after it.
    return QLatin1Char('%') + Busca::escapaLike(dobrado, false) + QLatin1Char('%');
}

void BancoPostgres::configurarDriver()
{
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_nomeConexao);
    m_db.setHostName(m_config.host);
    m_db.setPort(m_config.porta);
    m_db.setDatabaseName(m_config.nomeBanco);
    m_db.setUserName(m_config.usuario);
    if (!m_config.senha.isEmpty())
        m_db.setPassword(m_config.senha);
    // Maintenance tells this program's connections from the other stations' by this name.
    QString nome = QStringLiteral("Toldex ") + NomeComputador();
    nome.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
    m_db.setConnectOptions(QStringLiteral("connect_timeout=5;application_name='%1'").arg(nome));
}

void BancoPostgres::aposAbrir()
{
    executar(QStringLiteral("SET client_min_messages TO WARNING"));
}

ErroConexao BancoPostgres::traduzErroAbertura(const QString& detalhe) const
{
    return ErroConexao(QStringLiteral("Atenção,Banco de dados não localizado... Não foi possível conectar ao servidor %1.")
                           .arg(m_config.descricao()), detalhe);
}

QStringList BancoPostgres::colunasExistentes(const QString& tabela)
{
    QStringList r;
    QSqlQuery q = executar(QStringLiteral(
        "SELECT column_name FROM information_schema.columns WHERE table_schema = current_schema() "
        "AND table_name = lower(?)"), {tabela});
    while (q.next())
        r << q.value(0).toString();
    return r;
}

bool BancoPostgres::tabelaExiste(const QString& tabela)
{
    return escalar(QStringLiteral("SELECT COUNT(*) FROM information_schema.tables WHERE table_schema = current_schema() "
                                  "AND table_name = lower(?)"), {tabela}).toInt() > 0;
}

void BancoPostgres::prepararEsquema()
{
    executar(QStringLiteral("CREATE EXTENSION IF NOT EXISTS pg_trgm"));
}

void BancoPostgres::criarIndicesBusca(const DefTabela& t)
{
    for (const DefColuna& c : t.colunas)
        if (c.meio)
            executar(QStringLiteral("CREATE INDEX IF NOT EXISTS %1_%2_tri ON %1 USING gin (%2 gin_trgm_ops)")
                         .arg(t.nome, c.nomeDobrado()));
    if (t.nome == QLatin1String("Produto")) {
        // Every stock move rewrites a product, and a price adjustment rewrites them all.
        // Room left on each page keeps the new version beside the old one, where the
        // engine needn't touch the product's fifteen indexes (four of them trigram ones).
        const QString opcoes = escalar(QStringLiteral("SELECT COALESCE(array_to_string(reloptions, ','), '') "
                                                      "FROM pg_class WHERE oid = to_regclass(lower(?))"),
                                       {t.nome}).toString();
        if (!opcoes.contains(QLatin1String("fillfactor")))
            executar(QStringLiteral("ALTER TABLE %1 SET (fillfactor = 70)").arg(t.nome));
    }
}
