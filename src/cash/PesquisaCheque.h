#pragma once
#include "ui/TelaPesquisa.h"

// "Pesquisa Cheque": live cheques by customer code, name, account, cheque number, the
// holder's document or the holder's name. The choice opens the cheque register on the
// cheque's registration.
class PesquisaCheque : public TelaPesquisa {
    Q_OBJECT
public:
    explicit PesquisaCheque(QWidget* pai = nullptr);

protected:
    Condicao condicaoBusca(const Opcao& opcao, const QString& texto) override;
    QString textoCelula(const QString& coluna, const QVariant& valor) const override;
    void acaoPadrao(const QSqlRecord& cheque) override;
};
