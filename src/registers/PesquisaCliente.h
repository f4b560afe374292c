#pragma once
#include <functional>

#include "ui/TelaPesquisa.h"

// The customer search, from the menu or on behalf of another screen. A screen that wants
// a customer calls abrirPara with its place and what to do with the choice:
//
//   PesquisaCliente::abrirPara(PesquisaCliente::Chamador::Pagamento,
//                              [this](const QSqlRecord& c) { ... c.value("CodCliente") ... });
//
// Several places may be waiting at once; the choice goes to the first in the order of
// Chamador, and closing the search forgets them all. With none waiting (the menu's
// search) the choice opens the customer register on that customer.
class PesquisaCliente : public TelaPesquisa {
    Q_OBJECT
public:
    enum class Chamador { Menu, EntradaOs, CadCompleto, Pagamento };
    using Retorno = std::function<void(const QSqlRecord& cliente)>;

    explicit PesquisaCliente(QWidget* pai = nullptr);

    // Opens (or brings forward) the search and sets the caller's flag. The intake's call
    // starts on the search by name.
    static PesquisaCliente* abrirPara(Chamador chamador, Retorno retorno);
    void defineChamador(Chamador chamador, Retorno retorno);
    // "EntradaOs": a new order starts from this search (the menus' new order): the name
    // option is chosen and the choice opens the intake with the customer.
    Q_INVOKABLE void abrirNoModo(const QString& modo);

    static QString nomeFlag(Chamador chamador);

protected:
    Condicao condicaoBusca(const Opcao& opcao, const QString& texto) override;
    QString textoCelula(const QString& coluna, const QVariant& valor) const override;
    void acaoPadrao(const QSqlRecord& cliente) override;

private:
    void buscaAoDigitar(const QString& texto);
};
