#pragma once
#include <QString>
#include <stdexcept>

// Why an action on an order was refused, and what the screen does next: show the
// message, show the refusal notice (which leads to the login), or show the message and
// open the password-at-use screen so that another user may release the change.
struct Recusa {
    enum Seguimento { Aviso, Negado, SenhaLiberaAltOs };
    QString mensagem;
    Seguimento seguimento = Aviso;
    QString titulo;

    static Recusa aviso(const QString& m, const QString& t = {}) { return {m, Aviso, t}; }
    static Recusa negado() { return {QStringLiteral("Acesso Negado"), Negado, {}}; }
    static Recusa liberar(const QString& m) { return {m, SenhaLiberaAltOs, {}}; }
    // The SenhaOrigem of the password-at-use screen for a release.
    static QString origemLiberacao() { return QStringLiteral("LiberaAltOs"); }
};

// Thrown by the operations on an order; the save that was under way is rolled back.
class OrdemRecusada : public std::runtime_error {
public:
    explicit OrdemRecusada(Recusa r) : std::runtime_error(r.mensagem.toStdString()), m_recusa(std::move(r)) {}
    const Recusa& recusa() const { return m_recusa; }

private:
    Recusa m_recusa;
};
