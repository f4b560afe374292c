#pragma once
#include <QString>
#include <functional>

class QObject;

// What the password-at-use screen does once the password is right: each guarded screen
// registers the action for its word (SenhaOrigem) while it is open, usually "press my
// save again". The last screen to register a word owns it; a screen that closes takes its
// action with it.
namespace AcoesSenha {
void registrar(const QString& palavra, QObject* dono, std::function<void()> acao);
// Runs the action of the word; false when no open screen answers to it.
bool executar(const QString& palavra);
}
