#pragma once
#include "data/Banco.h"

struct sqlite3;

// The embedded store: one file TOLDEX.db in the folder CaminhoBanco names, WAL journal
// so that readers never wait for a writer, every commit flushed to the disk before the
// save returns, and a busy timeout so that a second station waits its turn instead of
// failing.
class BancoSqlite : public Banco {
public:
    explicit BancoSqlite(ConfigBanco c) : Banco(std::move(c)) {}
    ~BancoSqlite() override;

    QString tipoAutoNumero() const override { return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT"); }
    QString tipoInteiro() const override { return QStringLiteral("INTEGER"); }
    QString expressaoDobrada(const DefColuna& c, bool armazenada = true) const override;
    QString comandoInicioEscrita() const override { return QStringLiteral("BEGIN IMMEDIATE"); }
    QString clausulaTrava() const override { return {}; }  // the write lock is the whole file's
    QString condicaoTrigrama(const DefTabela& t, const DefColuna& c) const override;
    QString sondaTrigrama(const DefTabela& t, const DefColuna& c) const override;
    QString valorTrigrama(const QString& dobrado) const override;

    // The program's own SQL functions, on a connection opened outside Qt (maintenance).
    static bool registrarFuncoes(sqlite3* handle);

protected:
    void configurarDriver() override;
    void aposAbrir() override;
    QStringList colunasExistentes(const QString& tabela) override;
    bool tabelaExiste(const QString& tabela) override;
    void criarIndicesBusca(const DefTabela& t) override;
    void aposEsquema() override;
    void antesDeFechar() override;
};
