#pragma once
#include <QString>
#include <QVariantMap>

class QWidget;

// How the customer register hands work to the order and visit screens. The target is
// opened by its registered name and then told what to do through one invokable method,
// so that neither screen needs the other's header:
//
//   Q_INVOKABLE void novoComCliente(const QVariantMap& dados);
//       a new order or visit for the customer; keys "CodCliente", "NomeCliente", and
//       as the target needs them "CnpjCpf", "Endereco", "Numero", "Bairro", "Cidade",
//       "Telefone", "Celular" (intake), "Contato" and "EnderecoCompleto" (visit).
//   Q_INVOKABLE void mostraOrdem(const QVariantMap& dados);
//       show an order of the customer; keys "CodOs", "CodOsAut", "CodCliente",
//       "NomeCliente".
//   Q_INVOKABLE void abreOrdem(const QVariantMap& dados);
//       work on one order, found by its row key: key "CodOsAut" (qlonglong). The till,
//       delivery, the bench and the whole-order screen take it; the panel, delivery and
//       the whole-order screen call the till through it.
//   Q_INVOKABLE void defineDestino(const QVariantMap& dados);
//       the product search is told where its choice goes: key "Destino", the name of the
//       screen that asked ("Produto" shows the product on the register, any other name
//       receives recebeProduto), and "Kit" (bool) when the choice goes to a kit list,
//       which leaves the search open. The sale picker "BuscaVenda" takes it too: "Destino"
//       names the screen whose boxes Text3 (sale number) and Text4 (date) receive the choice.
//   Q_INVOKABLE void recebeProduto(const QVariantMap& dados);
//       a product chosen in the search: keys "CodPecAut" (qlonglong), "CodPeca",
//       "Descricao", "Unidade", "ValorVenda" and "ValorCusto" (qlonglong cents),
//       "Estoque" (text as the register shows it), "Kit" (bool, as sent to defineDestino).
//   Q_INVOKABLE void recebePagamento(const QVariantMap& dados);
//       the till hands a payment in cheques to the cheque register: keys "CodCliente",
//       "NomeCliente", "CnpjCpf" (digits), "CodOs", "CodOsAut", "Pagamento" (the plan's
//       text, "30/60 DIAS"), "ValorCentavos" (qlonglong: total less discount less what
//       was paid in cash), "Data" (QDate of the payment).
//   Q_INVOKABLE void abreVisita(const QVariantMap& dados);
//       the house-call screen shows exactly one visit: key "CodManu" (qlonglong).
//   Q_INVOKABLE void atualizaPainel(const QVariantMap& dados);
//       the pending panel reads its counts and its open list again now (no keys); the
//       bench, delivery and the till call it after a save that changed a situation.
//
// The searches and the panel open the intake on an order with mostraOrdem, the bench,
// delivery, the till and the whole-order screen with abreOrdem, a visit with abreVisita.
// "Incluir novo pedido de Visita" opens "OrdemVisita" and clicks its child "Botao(0)".
//
// A screen that isn't registered (not in this build) can't be asked: callers disable the
// control that would open it.
namespace EntregaTelas {

inline const QString NovoComCliente = QStringLiteral("novoComCliente");
inline const QString MostraOrdem = QStringLiteral("mostraOrdem");
inline const QString AbreOrdem = QStringLiteral("abreOrdem");
inline const QString DefineDestino = QStringLiteral("defineDestino");
inline const QString RecebeProduto = QStringLiteral("recebeProduto");
inline const QString RecebePagamento = QStringLiteral("recebePagamento");
inline const QString AbreVisita = QStringLiteral("abreVisita");
inline const QString AtualizaPainel = QStringLiteral("atualizaPainel");

bool disponivel(const QString& tela);
// Opens the screen and calls its method with the data; the opened screen, or nullptr
// when no screen has that name.
QWidget* abrirCom(const QString& tela, const QString& metodo, const QVariantMap& dados);

}
