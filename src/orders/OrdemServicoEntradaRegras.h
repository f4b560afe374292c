#pragma once
#include <QString>
#include <optional>

class Banco;
struct Ordem;

// The intake counter's own rules that need no widget: the customer found by its
// document, the customer typed at the counter that becomes a register row, and the
// dates typed by hand.
namespace EntradaRegras {

struct ClienteBalcao {
    QString CodCliente, NomeCliente, Endereco, Numero, Complemento, Bairro, Cidade, Telefone, Celular, CnpjCpf;
    bool BloqCliente = false;
    // The address as the order keeps it: the complement after "-".
    QString enderecoComComplemento() const;
};

inline const QString MsgClienteBloqueado =
    QStringLiteral("Cliente bloqueado,verifique o seu cadastro para saber o motivo.");

// The live customer whose document has these digits, however it was typed when stored
// (plain digits or with the CPF/CNPJ punctuation).
std::optional<ClienteBalcao> clientePorDocumento(Banco& banco, const QString& documento);
std::optional<ClienteBalcao> clientePorCodigo(Banco& banco, const QString& codCliente);

// Stores the customer typed at the counter with the next CodCliente, which it returns.
// Joins the caller's transaction, so the customer and the order go in together.
qint64 gravarClienteNovo(Banco& banco, const ClienteBalcao& c);

// The two date boxes as the order stores them; a message when a date doesn't exist or
// the departure comes before the entry. An empty entry box is today.
struct DatasDigitadas {
    QString entrada, saida;
};
std::optional<DatasDigitadas> lerDatas(const QString& entradaTela, const QString& saidaTela, QString* erro);

}
