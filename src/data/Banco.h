#pragma once
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <memory>

#include "data/ConfigBanco.h"
#include "data/ErroBanco.h"
#include "data/Esquema.h"

// One open connection to the store. Every difference between the engines (types, the
// folded search columns, trigram indexes, how a write transaction starts) lives in the
// two subclasses; nothing outside them speaks a dialect.
class Banco {
public:
    // Opens a connection; throws ErroConexao with a message in Portuguese.
    static std::unique_ptr<Banco> abrir(const ConfigBanco& config);
    virtual ~Banco();

    Motor motor() const { return m_config.motor; }
    const ConfigBanco& config() const { return m_config; }
    QSqlDatabase& db() { return m_db; }
    bool aberto() const { return m_db.isOpen(); }

    void fechar();
    void reabrir();  // throws ErroConexao

    // Runs one statement with bound values and checks its result; throws ErroBanco with the
    // engine's text. `?` are the placeholders.
    QSqlQuery executar(const QString& sql, const QVariantList& valores = {});
    // The first column of the first row, or an invalid value.
    QVariant escalar(const QString& sql, const QVariantList& valores = {});
    // A SELECT of the rows a write transaction decides on (one FROM, no aggregate). On
    // PostgreSQL they stay locked until the transaction ends, so two stations can't both
    // decide on the picture from before the other's change; on SQLite the write
    // transaction already serves one station at a time.
    QSqlQuery lerTravando(const QString& sql, const QVariantList& valores = {});

    // Creates a new store's tables, or brings an older one up to date. Each step runs in
    // its own transaction. Returns the number of steps applied.
    int garantirEsquema();

    // INSERT of one row, returning the value of the table's primary key.
    qint64 inserir(const DefTabela& tabela, const QStringList& colunas, const QVariantList& valores);

    // Dialect.
    QString ddlColuna(const DefColuna& c) const;
    // The two column types that differ between the engines.
    virtual QString tipoAutoNumero() const = 0;
    virtual QString tipoInteiro() const = 0;
    // `armazenada`: kept in the row (new tables) rather than computed on each read (a
    // column added to an older store, which SQLite can only add that way).
    virtual QString expressaoDobrada(const DefColuna& c, bool armazenada = true) const = 0;
    virtual QString comandoInicioEscrita() const = 0;
    // What a SELECT ends with to lock the rows it reads until the transaction ends.
    virtual QString clausulaTrava() const = 0;
    // A condition true for rows whose folded column `col` matches the folded text sought
    // (no wildcards in it), answered through the trigram index.
    virtual QString condicaoTrigrama(const DefTabela& t, const DefColuna& c) const = 0;
    // Whether a search must first probe how common its text is, to choose between its index
    // and the list's order. An engine whose planner weighs that itself, from its statistics
    // of the column, is given one query and left to choose.
    virtual bool sondaFrequencia() const { return true; }
    // A SELECT of the same matches that reads the trigram index alone, for that probe.
    virtual QString sondaTrigrama(const DefTabela& t, const DefColuna& c) const = 0;
    // The bound value for that condition, from the folded text sought.
    virtual QString valorTrigrama(const QString& dobrado) const = 0;
    // The column as text, NULL as empty: what the folded copy is made of.
    static QString textoDaColuna(const DefColuna& c);
    QString textoDe(const QString& expressao) const { return QStringLiteral("CAST(%1 AS TEXT)").arg(expressao); }

    // Nested transactions join the outer one (see Transacao).
    int& profundidadeTransacao() { return m_profundidade; }

protected:
    explicit Banco(ConfigBanco config);
    virtual void configurarDriver() = 0;
    virtual void aposAbrir() = 0;
    virtual QStringList colunasExistentes(const QString& tabela) = 0;
    virtual bool tabelaExiste(const QString& tabela) = 0;
    virtual void criarIndicesBusca(const DefTabela& t) = 0;
    virtual void prepararEsquema() {}
    // After the schema is ensured, and before a connection closes: the engine's upkeep.
    virtual void aposEsquema() {}
    virtual void antesDeFechar() {}
    virtual ErroConexao traduzErroAbertura(const QString& detalhe) const;

    void abrirConexao();
    // A statement failed because the server went away (restarted, the network dropped).
    bool conexaoPerdida(const QString& detalhe) const;
    // Opens the connection again after a loss, keeping the transaction count of the guard
    // objects still standing; a failure goes to the reconnection screen and throws.
    void reconectar(const QString& detalhe);
    // Runs the statement once; false with the engine's text on failure.
    bool rodar(QSqlQuery& q, const QString& sql, const QVariantList& valores, QString* detalhe);
    void criarTabela(const DefTabela& t);
    void criarIndices(const DefTabela& t);
    void completarColunas(const DefTabela& t);

    ConfigBanco m_config;
    QSqlDatabase m_db;
    QString m_nomeConexao;
    int m_profundidade = 0;
    bool m_fechada = false;  // closed on purpose (a restore): never reopened behind its back
};

// Turns an engine error text into the message a shop's staff can act on.
QString mensagemDeErro(const QString& detalheMotor);
