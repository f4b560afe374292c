#pragma once
#include <QString>
#include <functional>
#include <optional>

class Banco;
struct Ordem;

// How a new order gets its number, and the next codes of the registers that intake
// feeds. Everything here that takes a number must run inside the Transacao that stores
// the row: two stations never take the same number, and a save that fails gives its
// number back.
namespace NumeroOrdem {

// A question to the user (title, text); true is yes.
using Pergunta = std::function<bool(const QString& titulo, const QString& texto)>;

// Whether the factory number is asked for: CfgAtivaOsFabrica on and the factory box
// (Fabrica) ticked on a new order.
bool pedeNumeroFabrica(const Ordem& o);
// Asks "Quer copiar o numero da -OS- de fábrica ..." with the number that the save is
// about to take. It is asked before the save's transaction opens, so that no station
// waits on an open question; the save then takes whatever number is next.
bool perguntarCopiaFabrica(Banco& banco, const Ordem& o, const Pergunta& perguntar);

// Numbers a new order: from the last order (CfgAtivaOs off) or from Empresa.CodOs (on);
// when pedeNumeroFabrica(), also CodFabrica from Empresa.CodOsfabrica, and with
// `copiarFabrica` the factory number becomes the order number and Empresa.CodOs gets
// back the number it had given. Needs an open Transacao.
void numerar(Banco& banco, Ordem& o, bool copiarFabrica);

// The factory number that numerar() will give `o`: the old number of a warranty return,
// else the counter's next; nothing is taken.
qint64 proximoFabrica(Banco& banco, const Ordem& o);
QString textoPerguntaFabrica(qint64 numero);
QString tituloPerguntaFabrica();

// A number typed in the number box. Letters are refused with `erro`; the empty box
// gives nothing and no error.
std::optional<qint64> lerNumero(const QString& digitado, QString* erro);

// The warning on leaving the number box when an order already has the number: the
// existing order's customer, code and kind, separated by "-". Only a warning: the save
// goes on, and two orders may share a number.
struct AvisoNumero {
    QString titulo;  // "Este numero já existe"
    QString texto;   // customer-code-kind
};
std::optional<AvisoNumero> avisoNumeroExistente(Banco& banco, qint64 numero);

// The next customer, defect and house-call codes (rightmost seven characters, plus 1).
// Need an open Transacao that then stores the row.
qint64 proximoCodCliente(Banco& banco);
qint64 proximoCodDefeito(Banco& banco);
qint64 proximoCodManu(Banco& banco);

}
