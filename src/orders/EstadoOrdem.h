#pragma once
#include <QString>

struct Ordem;

// The state of an order lives in independent flags. The situation flags (Consertado,
// Orcamento, AguardaPeca, Devolver) form one group and the answer flags (Aprovado,
// Recusado) another: at most one of each group is on, and setting one clears the rest
// of its group.
enum class Situacao { Nenhuma, Consertado, Orcamento, AguardaPeca, Devolver };
enum class Resposta { Indeciso, Aprovado, Recusado };

// The caption of the customer's answer over the bench and the delivery screens.
struct LegendaResposta {
    enum Tipo { Aprovado, Recusado, Indeciso, Garantia, Devolver };
    Tipo tipo;
    QString texto;
    QString dica;  // tooltip
};

namespace EstadoOrdem {

Situacao situacao(const Ordem& o);
Resposta resposta(const Ordem& o);
// Sets the one situation flag and clears the other three (Nenhuma clears all four:
// the order goes back to the queue).
void definirSituacao(Ordem& o, Situacao s);
void definirResposta(Ordem& o, Resposta r);

// Read in order of precedence, each later test that holds replacing the earlier
// caption: Aprovado, Recusado, Indeciso, then Garantia, then (delivery screen only)
// Devolver. A warranty order therefore shows "Garantia" even when approved, and leaves
// without the till.
LegendaResposta legenda(const Ordem& o, bool telaEntrega);

// The delivery screen decides from the caption alone: only "Aprovado" goes to the till.
bool vaiAoCaixa(const Ordem& o);

// The rows of the table of states, as tests on one order. An order may stand in more
// than one (a refused and repaired one is also to be returned).
bool naFila(const Ordem& o);
bool retiradaPedida(const Ordem& o);
bool aguardandoPeca(const Ordem& o);
bool semResposta(const Ordem& o);
bool autorizada(const Ordem& o);
bool consertadaEAutorizada(const Ordem& o);
bool recusadaAposConserto(const Ordem& o);
bool aDevolver(const Ordem& o);
bool fechada(const Ordem& o);

}
