#pragma once
#include <QDate>
#include <QStringList>
#include <optional>

#include "data/Dinheiro.h"
#include "orders/EstadoOrdem.h"
#include "orders/ListasPainel.h"
#include "orders/NumeroOrdem.h"
#include "orders/RecusaOrdem.h"
#include "orders/TravaOrdem.h"

class Banco;
struct Ordem;

// Every change of an order's state, one operation each, with its guard. An operation
// that is refused throws OrdemRecusada and changes nothing; the saves are one
// transaction each. Operations without a Banco change the order in memory, to be stored
// by the screen's next save.
namespace TransicoesOrdem {

struct OpcoesEntrada {
    bool retornoGarantia = false;        // RetornoGarantia: the save makes a warranty order
    NumeroOrdem::Pergunta perguntar;     // for "Quer copiar o numero da -OS- de fábrica ..."
};

// 1. Intake save, new or edit: DireitoOsEntAl and a customer's name. The factory box
// (Fabrica) sets Garantia; a departure date closes the order, an empty one reopens it
// and clears the contact.
void salvarEntrada(Banco& banco, Ordem& o, const OpcoesEntrada& opcoes);

// 2. Bench save: DireitoOsTecAl and a situation. Stores the situation, the lock, the
// warranty's answer, services, defects and parts, and with "Consertado." takes the parts
// from stock. Gives the products that fell under their minimum.
QStringList salvarBancada(Banco& banco, Ordem& o, Situacao escolhida);

// Bench, "&Remove item": a part under stock control stays; otherwise DireitoAltOrca
// (lock rule 3). The part leaves the list and the money is worked out again; a stored
// part is deleted by the next save, never before.
void removerPeca(Ordem& o, int indice);

// 3. Bench button "Orça/Autori&zado": not on a warranty order.
void autorizarNaBancada(Ordem& o);

// 4 and 5. The panel's "Salvar": the situation and the answer chosen (nothing chosen,
// nothing changed), the promised day and today's contact, on the row read again by its
// key. Guarded by the change right of the list's screen and the bench's locks; a row
// whose situation or answer is no longer what the list showed throws RegistroAlterado.
void salvarNoPainel(Banco& banco, const LinhaPainel& lida, Lista lista, std::optional<Situacao> situacao,
                    std::optional<Resposta> resposta, const QDate& diaPrometido);
QString textoConfirmaPainel(const QString& codOs, const QString& nome, const QString& tipo);

// 6. Delivery's answer buttons: refused on a finalised order without DireitoAltOs.
void responderNaEntrega(Ordem& o, Resposta r);

// 7. Delivery's warranty button while the caption reads "Garantia": undoes the warranty.
void desfazerGarantia(Ordem& o);

// 8. Warranty return of the same order: it goes back to the bench.
void garantiaMesmaOrdem(Ordem& o);

// 9. Warranty return as a new order: a copy for intake, with the old number as the
// factory number. The old order is not touched. Save it with retornoGarantia.
Ordem garantiaNovaOrdem(const Ordem& antiga);

// 10. Delivery's "&Entregar": true when the caption is "Aprovado" and the till must take
// it (nothing changes here). Otherwise the order leaves now, without money or stock,
// keeping the first departure date if it has one; store it with salvarEntrega.
bool entregar(Ordem& o);

// The delivery screen's save: DireitoOsSaiAl.
void salvarEntrega(Banco& banco, Ordem& o);

// 11. The till closes the order: DireitoOsSaiAl.
struct Fechamento {
    QString dataSaida;  // stored form
    Dinheiro valorPago, valorDesconto;
    QString cpfCnpj;
    qint64 pendurado = 0;
};
void fecharNoCaixa(Banco& banco, qint64 codOsAut, const Fechamento& f);

// 12. The whole-order screen: the intake half (DireitoOsEntAl), then the bench half
// (DireitoOsTecAl; without it the intake half stays stored and the refusal follows).
QStringList salvarCompleto(Banco& banco, Ordem& o, Situacao situacao, const OpcoesEntrada& opcoes);

// 13. Delete from intake or the whole-order screen: marked (Excluidos), or with
// DireitoPermanente removed for good with its child rows.
void excluir(Banco& banco, qint64 codOsAut, TelaOrdem tela);

// 14. The bin gives the order back.
void restaurar(Banco& banco, qint64 codOsAut);

// "Saiu " and the present date and time, what Armazenado reads after delivery.
QString textoSaiu();

}
