#pragma once
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>
#include <stdexcept>

#include "data/Dinheiro.h"

class Banco;

// The cheques a customer hands over for one payment: one CadastroCheque row per cheque,
// all sharing the registration's number (Codcadastro). A registration is stored and
// changed as a whole, and only its own rows are ever touched.

// One cheque of a registration. `chave` 0: not stored yet.
struct ChequeLinha {
    qint64 chave = 0;
    QString NumeroCheque;
    Dinheiro ValorParcela;
    QString DataVencimento;  // stored form "yyyy/MM/dd"
    bool Quitado = false;    // compensated on the accounts screen
};

struct RegistroCheque {
    qint64 Codcadastro = 0;  // 0: a new registration, numbered inside its save
    QString CodVenda;        // the order handed by the till; "0000" for one typed by hand
    QString CodCliente, NomeCliente, CPFCNPJCliente, TelCel;
    QString NomeBanco, NumeroAgencia, NumeroConta, TitularConta, Endereco, CpfCnpjTitular;
    Dinheiro ValorTotal;
    QString DataCompra;      // stored form
    QString TipoVenda = QStringLiteral("Conserto");
    QString TipoPagamento;   // the plan
    QList<ChequeLinha> cheques;

    // Each stored row's registration columns as they were read, so that a save refuses a
    // registration another station changed meanwhile instead of overwriting it.
    QHash<qint64, QVariantList> lidas;

    bool novo() const { return Codcadastro == 0; }
};

// A save or a deletion that can't go on: the message, and which box takes the focus.
class ChequeRecusado : public std::runtime_error {
public:
    enum Campo { Nenhum, Cliente, CpfCnpj, Banco, Titular, Plano, Valor, Numero, Total, Negado };
    ChequeRecusado(const QString& m, Campo c, int indice = 0)
        : std::runtime_error(m.toStdString()), mensagem(m), campo(c), indice(indice) {}
    QString mensagem;
    Campo campo;
    int indice;  // which cheque, for Valor and Numero
};

// The customer of a registration, as the register holds him.
struct ClienteCheque {
    QString CodCliente, NomeCliente, CnpjCpf, Telefone, Celular;
    QString Endereco, Numero, Complemento, Bairro, Cep, Cidade, Estado;
    // "(00)0000-0000 / (00)00000-0000": the telephones as the cheque keeps them.
    QString telefones() const;
    // The holder's address box when the customer is the holder.
    QString enderecoTitular() const;
};

namespace Cheques {

inline const QString Vista = QStringLiteral("CHEQUE-VISTA");
inline const QString MsgTipoPagamento = QStringLiteral("Informe o tipo de pagamento");
inline const QString MsgAlteradoOutraEstacao =
    QStringLiteral("Os cheques deste cadastro foram alterados em outra estação; reabra o registro.");

// The cheque plans, in the order of the list.
const QStringList& planos();

// How a plan fills the boxes from a start date: N cheques, their values (the total split
// in whole cents, the last taking the rest) and due dates, each date a calendar month
// after the previous one. A sight cheque is one cheque whose value and date the user
// types: both come back empty. Nothing for a text that is not a plan.
struct Parcela {
    std::optional<Dinheiro> valor;
    std::optional<QDate> vencimento;
};
std::optional<QList<Parcela>> plano(const QString& nome, Dinheiro total, const QDate& inicio);

// The checks of a save, in the order the counter fills the screen; throws ChequeRecusado.
void validar(const RegistroCheque& r);

// Stores the registration in one transaction: a new one takes the next number and adds
// its rows, deleting nothing; a stored one is checked against what was read, updates its
// cheques by number, adds the new ones and removes those left out of the plan unless
// compensated. A compensated cheque keeps its compensation columns. Needs
// DireitochequeAl. Throws ChequeRecusado or ErroBanco; the registration is reloaded.
void gravar(Banco& banco, RegistroCheque& r);

// The live registration with this number, or the one a stored row belongs to.
std::optional<RegistroCheque> carregar(Banco& banco, qint64 codcadastro);
std::optional<qint64> cadastroDaLinha(Banco& banco, qint64 chave);

// Deletes the registration's rows: for good with DireitoPermanente, else marked with the
// user who deleted them. Needs DireitochequeAl; refused when changed at another station.
void excluir(Banco& banco, const RegistroCheque& r);

std::optional<ClienteCheque> cliente(Banco& banco, const QString& codCliente);

}
