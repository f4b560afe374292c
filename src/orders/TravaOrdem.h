#pragma once
#include <optional>

#include "orders/RecusaOrdem.h"

struct Ordem;

// The screens that change an order; the lock texts differ between them.
enum class TelaOrdem { Entrada, Bancada, Saida, Completa };

// The three rules that keep an order from being changed. They are tested on the first
// keystroke of a change and again inside the save, against the row as stored, so a
// change that slipped past the first test is still refused. The session's rights decide:
// the password-at-use screen puts the rights of the user who gave it into the session
// and sets LiberaAltOs, and from then on the change goes on under those rights.
namespace TravaOrdem {

// Rule 1 (a finalised order needs DireitoAltOs) on every screen, and rule 2 (an order
// whose status and values were set needs DireitoAltOrca) on the bench and the
// whole-order screen.
std::optional<Recusa> verificarAlteracao(bool saida, bool bloqueada, TelaOrdem tela);
std::optional<Recusa> verificarAlteracao(const Ordem& o, TelaOrdem tela);

// Rule 3: removing a part needs DireitoAltOrca.
std::optional<Recusa> verificarRemocaoPeca();

// An edit by a user with DireitoAltOrca clears the lock box; the next bench save sets
// it again from the situation chosen.
void aoEditar(Ordem& o, TelaOrdem tela);

// Leaving an order's screen after another user released a change: that user's rights
// must not stay behind. Gives the message and clears LiberaAltOs; the caller opens the
// login.
std::optional<QString> aoSairDaTela();

}
