#pragma once
#include <QObject>

// The program's start: the settings of this machine, the store (brought up to date),
// the first window with the login, then the main window, which lives to the end.
class Inicializacao : public QObject {
    Q_OBJECT
public:
    explicit Inicializacao(QObject* pai = nullptr);

    // False when the program can't go on (the store belongs to a newer version).
    bool iniciar();

    // Opens the store once and applies the schema steps a new version needs; tells the
    // user when it changed anything. Public for the reconnection path and for tests.
    enum class Banco { Pronto, Indisponivel, Incompativel };
    Banco prepararBanco();

private:
    void continuar();
    void abrirTelaInicial();
    void depoisDaTelaInicial();
    void abrirPrincipal();

    bool m_bancoPronto = false;
    bool m_telaInicialAberta = false;
};
