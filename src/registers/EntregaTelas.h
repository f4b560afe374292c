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
//
// A screen that isn't registered (not in this build) can't be asked: callers disable the
// control that would open it.
namespace EntregaTelas {

inline const QString NovoComCliente = QStringLiteral("novoComCliente");
inline const QString MostraOrdem = QStringLiteral("mostraOrdem");

bool disponivel(const QString& tela);
// Opens the screen and calls its method with the data; the opened screen, or nullptr
// when no screen has that name.
QWidget* abrirCom(const QString& tela, const QString& metodo, const QVariantMap& dados);

}
