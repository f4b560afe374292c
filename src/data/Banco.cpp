#include "data/Banco.h"

#include <QAtomicInt>
#include <QDir>
#include <QMutex>
#include <unordered_map>
#include <QSqlError>
#include <QSqlRecord>

#include "data/Atualizacoes.h"
#include "data/BancoPostgres.h"
#include "data/BancoSqlite.h"
#include "data/Conexoes.h"
#include "data/Transacao.h"

QString ConfigBanco::arquivoSqlite() const
{
    return QDir(pasta).filePath(NomeArquivoBanco);
}

QString ConfigBanco::descricao() const
{
    if (motor == Motor::SQLite)
        return arquivoSqlite();
    return QStringLiteral("%1@%2:%3").arg(nomeBanco, host.isEmpty() ? QStringLiteral("localhost") : host).arg(porta);
}

QString mensagemDeErro(const QString& d)
{
    const QString t = d.toLower();
    if (t.contains(QLatin1String("readonly")) || t.contains(QLatin1String("read-only")))
        return QStringLiteral("O banco de dados está somente para leitura: verifique as permissões do arquivo.");
    if (t.contains(QLatin1String("locked")) || t.contains(QLatin1String("busy")))
        return QStringLiteral("O banco de dados está em uso por outra estação; tente novamente em instantes.");
    if (t.contains(QLatin1String("disk i/o")) || t.contains(QLatin1String("unable to open")))
        return QStringLiteral("Houve uma perda na comunicação ao banco de dados.");
    if (t.contains(QLatin1String("connection")) || t.contains(QLatin1String("server closed"))
        || t.contains(QLatin1String("database not open")))
        return QStringLiteral("Houve uma perda na comunicação ao banco de dados.");
    if (t.contains(QLatin1String("not a database")) || t.contains(QLatin1String("malformed")))
        return QStringLiteral("O arquivo do banco de dados está danificado ou não é um banco de dados do Toldex.");
    if (t.contains(QLatin1String("full")))
        return QStringLiteral("Não há espaço no disco para gravar no banco de dados.");
    return QStringLiteral("Erro no banco de dados.");
}

std::unique_ptr<Banco> Banco::abrir(const ConfigBanco& config)
{
    std::unique_ptr<Banco> b;
    if (config.motor == Motor::SQLite)
        b.reset(new BancoSqlite(config));
    else
        b.reset(new BancoPostgres(config));
    b->abrirConexao();
    return b;
}

Banco::Banco(ConfigBanco config) : m_config(std::move(config))
{
    static QAtomicInt contador;
    m_nomeConexao = QStringLiteral("toldex_%1").arg(contador.fetchAndAddRelaxed(1));
    Conexoes::registrar(this);
}

// A kept statement is shared with the query handed to the caller: the same prepared
// result, so copies of QSqlQuery are made on purpose here, where Qt would warn of them.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

// A kept statement can run again once nobody reads its rows any more: it wrote, it was
// read to the end, or finished (escalar, inserir). One still being read (the same query
// nested in a loop over its own rows) is left alone and a new one prepared.
bool livre(const QSqlQuery& q)
{
    return !q.isActive() || !q.isSelect() || q.at() == QSql::AfterLastRow;
}

bool mudaEsquema(const QString& sql)
{
    const QString inicio = sql.trimmed().left(6).toUpper();
    return inicio == QLatin1String("CREATE") || inicio == QLatin1String("ALTER ") || inicio == QLatin1String("DROP T")
        || inicio == QLatin1String("DROP I");
}

constexpr int MaxPreparadas = 256;

// SQLite hands rows over as they are stepped, and a statement run inside a loop over
// another's rows leaves that one alone. The PostgreSQL driver, reading row by row, drops
// whatever rows a query still had as soon as another one runs on the connection: a loop
// that reads or writes as it goes would stop after its first row. There the rows come
// whole, in one answer.
bool somenteAdiante(Motor motor) { return motor != Motor::PostgreSQL; }

// Connections of worker threads (a backup) share the map below: a lock keeps it whole;
// each connection's own statements are used only on its thread.
QMutex travaPreparadas;

// The statements kept prepared on each connection, by their text. On a server each
// preparation and each release is a round trip of its own, twice the one that runs the
// statement; SQLite prepares in the program and keeps none. Node-based: a connection's
// own map stays where it is while others come and go.
std::unordered_map<const Banco*, QHash<QString, QSqlQuery>>& preparadas()
{
    static std::unordered_map<const Banco*, QHash<QString, QSqlQuery>> p;
    return p;
}

QHash<QString, QSqlQuery>* preparadasDe(const Banco* b)
{
    const QMutexLocker trava(&travaPreparadas);
    return &preparadas()[b];
}

void esquecePreparadas(const Banco* b)
{
    QHash<QString, QSqlQuery> largadas;  // released (DEALLOCATE) outside the lock
    {
        const QMutexLocker trava(&travaPreparadas);
        if (const auto it = preparadas().find(b); it != preparadas().end()) {
            largadas = std::move(it->second);
            preparadas().erase(it);
        }
    }
}

} // namespace

Banco::~Banco()
{
    Conexoes::esquecer(this);
    fechar();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_nomeConexao);
}

void Banco::abrirConexao()
{
    configurarDriver();
    if (!m_db.open()) {
        const QString detalhe = m_db.lastError().text();
        m_db.close();
        throw traduzErroAbertura(detalhe);
    }
    try {
        aposAbrir();
    } catch (const ErroBanco& e) {
        m_db.close();
        throw ErroConexao(e.mensagem(), e.detalhe());
    }
    m_fechada = false;
}

ErroConexao Banco::traduzErroAbertura(const QString& detalhe) const
{
    return ErroConexao(QStringLiteral("Atenção,Banco de dados não localizado... (%1)").arg(m_config.descricao()), detalhe);
}

void Banco::fechar()
{
    esquecePreparadas(this);
    if (m_db.isValid() && m_db.isOpen()) {
        antesDeFechar();
        m_db.close();
    }
    m_profundidade = 0;
    m_fechada = true;
}

void Banco::reabrir()
{
    fechar();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_nomeConexao);
    abrirConexao();
}


bool Banco::rodar(QSqlQuery& q, const QString& sql, const QVariantList& valores, QString* detalhe)
{
    bool ok;
    if (valores.isEmpty()) {
        // Statements without values (DDL, SET, BEGIN) run as they are: some engines can't
        // prepare them.
        q = QSqlQuery(m_db);
        q.setForwardOnly(somenteAdiante(m_config.motor));
        ok = q.exec(sql);
        if (mudaEsquema(sql))
            esquecePreparadas(this);  // a kept SELECT * would still describe the old columns
    } else {
        // A pattern finds a handful of rows or nearly all of them, and the plan kept with a
        // statement is the same for every value: such statements are prepared afresh, so
        // the engine plans each search for its own text.
        const bool guarda = m_config.motor == Motor::PostgreSQL && !sql.contains(QLatin1String(" LIKE "), Qt::CaseInsensitive);
        QHash<QString, QSqlQuery>* minhas = guarda ? preparadasDe(this) : nullptr;
        const auto kept = minhas ? minhas->constFind(sql) : QHash<QString, QSqlQuery>::const_iterator();
        if (minhas && kept != minhas->constEnd() && livre(*kept)) {
            q = *kept;
            ok = true;
        } else {
            q = QSqlQuery(m_db);
            q.setForwardOnly(somenteAdiante(m_config.motor));
            ok = q.prepare(sql);
            if (ok && minhas) {
                if (minhas->size() >= MaxPreparadas)
                    minhas->clear();
                minhas->insert(sql, q);
            }
        }
        if (ok) {
            for (int i = 0; i < valores.size(); ++i)
                q.bindValue(i, valores.at(i));
            ok = q.exec();
        }
    }
    if (!ok)
        *detalhe = q.lastError().text();
    return ok;
}

QT_WARNING_POP

bool Banco::conexaoPerdida(const QString& detalhe) const
{
    if (m_fechada)
        return false;
    if (!m_db.isOpen())
        return true;
    const QString t = detalhe.toLower();
    for (const char* sinal : {"server closed the connection", "no connection to the server", "terminating connection",
                              "could not receive data", "could not send data", "connection to server",
                              "database not open"})
        if (t.contains(QLatin1String(sinal)))
            return true;
    return false;
}

void Banco::reconectar(const QString& detalhe)
{
    const int profundidade = m_profundidade;
    try {
        reabrir();
    } catch (const ErroConexao& e) {
        m_profundidade = profundidade;
        m_fechada = false;  // lost, not closed: the next statement tries again
        Conexoes::avisarFalha(e.textoCompleto());
        throw ConexaoPerdida(QStringLiteral("Houve uma perda na comunicação ao banco de dados."),
                             detalhe + QLatin1Char('\n') + e.textoCompleto());
    }
    m_profundidade = profundidade;
}

QSqlQuery Banco::executar(const QString& sql, const QVariantList& valores)
{
    for (const QVariant& v : valores)
        if (v.typeId() == QMetaType::QString && v.toString().contains(QChar(0)))
            // The engines either refuse it or cut the text there: told, never stored.
            throw ErroBanco(QStringLiteral("Um campo contém um caractere nulo (invisível), que não pode ser gravado. "
                                           "Apague-o e grave novamente."));
    // A connection that a loss left closed is opened again before a transaction begins.
    if (!m_db.isOpen() && !m_fechada && m_profundidade == 0)
        reconectar(QString());
    QSqlQuery q;
    QString d;
    if (rodar(q, sql, valores, &d))
        return q;
    if (!conexaoPerdida(d))
        throw ErroBanco(mensagemDeErro(d), d);
    // The server went away. Nothing of an open transaction survived it; outside one, a
    // statement that writes nothing (the BEGIN of the next save, a read) is run again on
    // the new connection, and one that writes is told, never repeated blindly.
    reconectar(d);
    const QString inicio = sql.trimmed().left(6).toUpper();
    const bool semEscrita = inicio == QLatin1String("BEGIN") || inicio == QLatin1String("SELECT");
    if (m_profundidade == 0 && semEscrita && rodar(q, sql, valores, &d))
        return q;
    throw ConexaoPerdida(QStringLiteral("Houve uma perda na comunicação ao banco de dados."), d);
}

QVariant Banco::escalar(const QString& sql, const QVariantList& valores)
{
    QSqlQuery q = executar(sql, valores);
    QVariant v;
    if (q.next())
        v = q.value(0);
    q.finish();
    return v;
}

QSqlQuery Banco::lerTravando(const QString& sql, const QVariantList& valores)
{
    return executar(sql + clausulaTrava(), valores);
}

qint64 Banco::inserir(const DefTabela& tabela, const QStringList& colunas, const QVariantList& valores)
{
    QStringList marcas;
    for (int i = 0; i < colunas.size(); ++i)
        marcas << QStringLiteral("?");
    const QString sql = colunas.isEmpty()
        ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES RETURNING %2").arg(tabela.nome, tabela.chave)
        : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING %4")
              .arg(tabela.nome, colunas.join(QLatin1Char(',')), marcas.join(QLatin1Char(',')), tabela.chave);
    QSqlQuery q = executar(sql, valores);
    if (!q.next())
        throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                        QStringLiteral("O banco não devolveu a chave do registro novo."));
    const qint64 chave = q.value(0).toLongLong();
    q.finish();
    return chave;
}

QString Banco::textoDaColuna(const DefColuna& c)
{
    if (c.tipo == TipoColuna::Texto || c.tipo == TipoColuna::Data || c.tipo == TipoColuna::Hora)
        return QStringLiteral("COALESCE(%1, '')").arg(c.nome);
    return QStringLiteral("COALESCE(CAST(%1 AS TEXT), '')").arg(c.nome);
}

QString Banco::ddlColuna(const DefColuna& c) const
{
    QString tipo;
    switch (c.tipo) {
    case TipoColuna::AutoNumero: tipo = tipoAutoNumero(); break;
    case TipoColuna::Inteiro: tipo = tipoInteiro(); break;
    case TipoColuna::Flag: tipo = QStringLiteral("INTEGER NOT NULL DEFAULT 0 CHECK (%1 IN (-1, 0))").arg(c.nome); break;
    case TipoColuna::FlagNula: tipo = QStringLiteral("INTEGER CHECK (%1 IN (-1, 0))").arg(c.nome); break;
    case TipoColuna::Dinheiro:
    case TipoColuna::Quantidade: tipo = tipoInteiro() + QStringLiteral(" NOT NULL DEFAULT 0"); break;
    case TipoColuna::Texto:
    case TipoColuna::Data:
    case TipoColuna::Hora: tipo = QStringLiteral("TEXT NOT NULL DEFAULT ''"); break;
    }
    return c.nome + QLatin1Char(' ') + tipo;
}

void Banco::criarTabela(const DefTabela& t)
{
    QStringList defs;
    for (const DefColuna& c : t.colunas) {
        defs << ddlColuna(c);
        if (c.buscavel())
            defs << QStringLiteral("%1 TEXT %2").arg(c.nomeDobrado(), expressaoDobrada(c));
    }
    executar(QStringLiteral("CREATE TABLE %1 (%2)").arg(t.nome, defs.join(QStringLiteral(", "))));
}

void Banco::criarIndices(const DefTabela& t)
{
    for (const DefColuna& c : t.colunas) {
        if (c.indice && c.nome != t.chave)
            executar(QStringLiteral("CREATE %1INDEX IF NOT EXISTS %2_%3 ON %2 (%3)")
                         .arg(c.unico ? QStringLiteral("UNIQUE ") : QString(), t.nome, c.nome));
        if (c.buscavel())
            executar(QStringLiteral("CREATE INDEX IF NOT EXISTS %1_%2 ON %1 (%2)").arg(t.nome, c.nomeDobrado()));
    }
    for (const QStringList& composto : t.indicesCompostos)
        executar(QStringLiteral("CREATE INDEX IF NOT EXISTS %1_%2 ON %1 (%3)")
                     .arg(t.nome, composto.join(QLatin1Char('_')), composto.join(QLatin1Char(','))));
    if (t.coluna(QStringLiteral("Excluidos")) && t.coluna(QStringLiteral("Excluidos"))->tipo == TipoColuna::Flag)
        // The bin is small beside the live rows: searches that show deleted rows read it
        // through this index alone.
        executar(QStringLiteral("CREATE INDEX IF NOT EXISTS %1_excluidos ON %1 (%2) WHERE Excluidos = -1")
                     .arg(t.nome, t.chave));
    if (t.nome == QLatin1String("OrdemServico")) {
        // The orders still in the shop: every list of the pending panel reads only these,
        // so the panel answers at once with a million closed orders behind it.
        executar(QStringLiteral(
            "CREATE INDEX IF NOT EXISTS OrdemServico_abertas ON OrdemServico "
            "(Consertado, Orcamento, AguardaPeca, Devolver, Aprovado, Recusado, ChamadoTecnico, CodOs) "
            "WHERE Saida = 0 AND Excluidos = 0"));
    }
    criarIndicesBusca(t);
}

void Banco::completarColunas(const DefTabela& t)
{
    const QStringList existentes = colunasExistentes(t.nome);
    auto existe = [&](const QString& nome) {
        for (const QString& e : existentes)
            if (e.compare(nome, Qt::CaseInsensitive) == 0)
                return true;
        return false;
    };
    for (const DefColuna& c : t.colunas) {
        if (!existe(c.nome))
            executar(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(t.nome, ddlColuna(c)));
        if (c.buscavel() && !existe(c.nomeDobrado()))
            executar(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 TEXT %3")
                         .arg(t.nome, c.nomeDobrado(), expressaoDobrada(c, false)));
    }
}

namespace {

void inserirEmpresaPadrao(Banco& b)
{
    const DefTabela* t = Esquema::tabela(QStringLiteral("Empresa"));
    // The defaults a new shop starts with: those that the configuration screen writes for
    // empty fields, the header lines printed, and the flags that an unset column meant.
    const QStringList colunas = {
        "DiaAviso", "DefineMenu", "CodOs", "CodOsfabrica", "PastaImagem",
        "NomeTamanho", "EnderecoTamanho", "SiteTamanho", "SacTamanho", "SuporteTamanho",
        "VendasTamanho", "CpfCnpjTamanho", "ImpriNome", "ImpriEndereco", "ImpriSite",
        "ImpriSAC", "ImpriSuporte", "ImpriVendas", "ImpriCPFCNPJ", "NomeNegrito",
        "AtivaOs", "AtivaDef", "AtivaSer", "DadoNota", "Menuusuario"};
    const QVariantList valores = {
        3, QStringLiteral("04-Ordem serviço"), 0, 0, QStringLiteral("Toldex\\Imagem"),
        12, 10, 10, 10, 10, 10, 8, -1, -1, -1, -1, -1, -1, -1, -1,
        -1, -1, -1, -1, -1};
    b.inserir(*t, colunas, valores);
}

} // namespace

int Banco::garantirEsquema()
{
    int passos = 0;
    if (!tabelaExiste(QStringLiteral("VersaoEsquema"))) {
        Transacao tr(*this);
        prepararEsquema();
        for (const DefTabela& t : Esquema::tabelas()) {
            criarTabela(t);
            criarIndices(t);
        }
        inserirEmpresaPadrao(*this);
        executar(QStringLiteral("INSERT INTO VersaoEsquema (Versao) VALUES (?)"), {Esquema::versaoAtual()});
        tr.commit();
        aposEsquema();
        return 1;
    }
    const int versao = escalar(QStringLiteral("SELECT MAX(Versao) FROM VersaoEsquema")).toInt();
    if (versao > Esquema::versaoAtual())
        throw ErroBanco(QStringLiteral("O banco de dados é de uma versão mais nova do programa; atualize o Toldex."));
    // Older stores: every table and column that this version reads is added, one table per
    // transaction, so a store from an older version opens instead of failing at login.
    for (const DefTabela& t : Esquema::tabelas()) {
        Transacao tr(*this);
        const int antes = colunasExistentes(t.nome).size();
        if (!tabelaExiste(t.nome))
            criarTabela(t);
        else
            completarColunas(t);
        criarIndices(t);
        if (colunasExistentes(t.nome).size() != antes)
            ++passos;
        tr.commit();
    }
    if (escalar(QStringLiteral("SELECT COUNT(*) FROM Empresa")).toInt() == 0) {
        Transacao tr(*this);
        inserirEmpresaPadrao(*this);
        tr.commit();
        ++passos;
    }
    int alcancada = versao;
    for (const Atualizacoes::Passo& p : Atualizacoes::passos()) {
        if (p.versao <= alcancada)
            continue;
        Transacao tr(*this);
        p.aplicar(*this);
        executar(QStringLiteral("INSERT INTO VersaoEsquema (Versao) VALUES (?)"), {p.versao});
        tr.commit();
        alcancada = p.versao;
        ++passos;
    }
    if (alcancada < Esquema::versaoAtual()) {
        Transacao tr(*this);
        executar(QStringLiteral("INSERT INTO VersaoEsquema (Versao) VALUES (?)"), {Esquema::versaoAtual()});
        tr.commit();
        ++passos;
    }
    aposEsquema();
    return passos;
}
