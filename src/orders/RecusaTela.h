#pragma once

class QWidget;
struct Recusa;

// What an order screen does with a refused action: the message, the refusal notice that
// leads to the login, or the message and the password-at-use screen that lets another
// user release the change.
namespace RecusaTela {
void mostrar(QWidget* pai, const Recusa& r);
}
