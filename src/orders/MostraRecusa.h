#pragma once
#include "orders/RecusaOrdem.h"

class QWidget;

// What a screen does with a refused change to an order: the message, the refusal notice
// (which leads to the login), or the message and the password-at-use screen.
namespace MostraRecusa {
void mostra(QWidget* pai, const Recusa& r);
}
