#pragma once
#include <QString>
#include <array>
#include <functional>
#include <memory>

#include "data/Banco.h"

// The one factory of connections: the five shared slots (AbreConexao1..5 of the classic
// design) and each screen's own. A failed open is reported to the caller, and to the
// handler the shell installs, which shows the notice that leads to the reconnection
// screen. Every live connection can be closed and reopened at once, as a restore needs.
class Conexoes {
public:
    static void configurar(const ConfigBanco& config);
    static const ConfigBanco& config();
    static bool configurado();

    // Opens slot 1..5 anew (closing what it held). nullptr on failure, with the message.
    static Banco* abreConexao(int slot, QString* erro = nullptr);
    static void fechaConexao(int slot);
    static Banco* slot(int slot);
    // A screen's own connection; nullptr on failure.
    static std::unique_ptr<Banco> nova(QString* erro = nullptr);

    static void fecharTodas();
    static bool reabrirTodas(QString* erro = nullptr);
    static void fecharSlots();

    // Called with the message whenever an open fails (ConexaoOk becomes 0 there).
    static void aoFalhar(std::function<void(const QString&)> tratador);
    // A connection that could not be opened again after it was lost: the same path.
    static void avisarFalha(const QString& mensagem);

    // Bookkeeping of every live connection (Banco registers itself).
    static void registrar(Banco* b);
    static void esquecer(Banco* b);
};
