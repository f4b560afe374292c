#pragma once
#include <QObject>

class QWidget;

// The program's start: the settings of this machine, the store (brought up to date),
// the first window with the login, then the main window, which lives to the end.
class Inicializacao : public QObject {
    Q_OBJECT
public:
    explicit Inicializacao(QObject* pai = nullptr);

    // False when the program can't go on (the store belongs to a newer version).
    bool iniciar();
    // Starts on the sample shop, built afresh, without asking nor reading Toldex.ini.
    void usarLojaExemplo() { m_exemplo = true; }

    // Opens the store once and applies the schema steps a new version needs; tells the
    // user when it changed anything. Public for the reconnection path and for tests.
    enum class Banco { Pronto, Indisponivel, Incompativel };
    Banco prepararBanco();

private:
    void continuar();
    void abrirTelaInicial();
    void depoisDaTelaInicial();
    void abrirPrincipal();
    bool montarLojaExemplo();

    QWidget* m_principal = nullptr;
    bool m_bancoPronto = false;
    bool m_telaInicialAberta = false;
    bool m_exemplo = false;
};
