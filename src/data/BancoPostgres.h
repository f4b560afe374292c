#pragma once
#include "data/Banco.h"

// The store for shops whose stations share one server over the network. Names are
// unquoted, so PostgreSQL folds them and matches them without regard to case, as the
// rest of the program expects.
class BancoPostgres : public Banco {
public:
    explicit BancoPostgres(ConfigBanco c) : Banco(std::move(c)) {}

    QString ddlColuna(const DefColuna& c) const override;
    QString expressaoDobrada(const DefColuna& c, bool armazenada = true) const override;
    QString comandoInicioEscrita() const override { return QStringLiteral("BEGIN"); }
    QString condicaoTrigrama(const DefTabela& t, const DefColuna& c) const override;
    QString valorTrigrama(const QString& dobrado) const override { return QLatin1Char('%') + dobrado + QLatin1Char('%'); }

protected:
    void configurarDriver() override;
    void aposAbrir() override;
    QStringList colunasExistentes(const QString& tabela) override;
    bool tabelaExiste(const QString& tabela) override;
    void criarIndicesBusca(const DefTabela& t) override;
    void prepararEsquema() override;
    ErroConexao traduzErroAbertura(const QString& detalhe) const override;
};
