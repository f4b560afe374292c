#pragma once

class QString;
class QWidget;
struct Recusa;

// What an order screen does with a refused action: the message, the refusal notice that
// leads to the login, or the message and the password-at-use screen that lets another
// user release the change.
namespace RecusaTela {
void mostrar(QWidget* pai, const Recusa& r);
// A user who must give his password before a guarded save: the password-at-use screen
// opens with `origem`, which presses the action again once the password is right. True
// when the action must wait for it.
bool esperaSenha(const QString& origem);
// Leaving an order's screen after another user released a change: that user's rights go,
// and the login follows.
void aoSairDaTela(QWidget* pai);
}
