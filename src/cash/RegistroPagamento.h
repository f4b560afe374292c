#pragma once
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "cash/FormasPagamento.h"
#include "data/Dinheiro.h"

class Banco;

// What the till's boxes hold when the record button is pressed, read and checked.
struct PagamentoCaixa {
    qint64 codOsAut = 0;
    // The order's ValorPagar when the screen loaded it: a change made meanwhile by
    // another station refuses the save.
    Dinheiro valorPagarLido;
    Dinheiro total, desconto, pago;  // Valor total, Desconto, Valor pago
    QString forma;                   // the payment form's text ("Pagar depois" for a hung debt)
    // The instalments as the boxes hold them, one per receivable row (NumeroParcelas).
    QList<FormasPagamento::Parcela> parcelas;
    bool pendurar = false;
    QDate vencimentoPendurado;
    bool cheque = false;  // PagoComCheque
    // The customer boxes. An empty code makes a new customer.
    QString codCliente, nomeCliente, cpfCnpj, endereco, ncasa, bairro, cidade, telefone, celular;

    // Paid less what is owed: change to give when positive, still owed when negative.
    Dinheiro troco() const { return pago - (total - desconto); }
    // What a hung debt leaves on the slate.
    Dinheiro divida() const;
    // What goes on to the cheques: what is owed, less a part paid in cash. A paid box at
    // or above what is owed is the settlement by the form itself, not cash.
    Dinheiro valorEmCheque() const;
};

// The till's save: the customer, the receivables, the sale posting and the closing of
// the order, all in one transaction that first reads the order again.
namespace RegistroPagamento {

inline const QString MsgJaEntregue = QStringLiteral("Esta O.S já foi entregue.");
inline const QString MsgExcluida = QStringLiteral("Esta O.S foi excluída em outra estação.");
inline const QString MsgValorAlterado =
    QStringLiteral("O valor da O.S foi alterado em outra estação; reabra o registro.");
inline const QString MsgInformeCpf = QStringLiteral("Informe o numero do CPF/CNPJ para continuar.");
inline const QString TituloInformeDados = QStringLiteral("Informe os dados");
inline const QString MsgDescontoMaior = QStringLiteral("O desconto não pode ser maior que o valor total.");

struct Resultado {
    QStringList reposicao;  // products that fell under their minimum ("Pedido estoque")
    QString codCliente;     // the customer's code, a new one when the customer was created
    bool lancou = false;    // false: nothing new to post, the order was only closed
};

// The wait window's texts as the work goes on.
using Progresso = std::function<void(const QString&)>;

// Refusals throw OrdemRecusada before anything is written: the right DireitoOsSaiAl
// first, then a hung debt without CPF/CNPJ, a discount above the total, and, against the
// order as stored, one already delivered, deleted, or whose value changed since loading.
// A failure of the store throws ErroBanco and leaves nothing written.
Resultado gravar(Banco& banco, const PagamentoCaixa& p, const Progresso& progresso = {});

}
