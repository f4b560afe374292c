#pragma once
#include <functional>

#include "ui/TelaPesquisa.h"

// The list of all suppliers, deleted ones too, by company name. A screen that wants a
// supplier calls abrirPara with its place and what to do with the choice; with none
// waiting (the menu's list) the choice opens the supplier register on it. Closing the
// list forgets the callers.
class PesquisaFornecedor : public TelaPesquisa {
    Q_OBJECT
public:
    enum class Chamador { Produto, PedidoPeca };
    using Retorno = std::function<void(const QSqlRecord& fornecedor)>;

    explicit PesquisaFornecedor(QWidget* pai = nullptr);
    static PesquisaFornecedor* abrirPara(Chamador chamador, Retorno retorno);
    void defineChamador(Chamador chamador, Retorno retorno);

protected:
    void acaoPadrao(const QSqlRecord& fornecedor) override;
};
