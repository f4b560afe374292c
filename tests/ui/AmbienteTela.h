#pragma once
#include <memory>

#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "ui/Dialogos.h"

// What every screen test starts from: a fresh store that the screens' own connections
// reach, the dialog seam scripted and empty, and a session with nobody in it.
inline std::unique_ptr<BancoTeste> ambienteDeTela(Motor motor = Motor::SQLite)
{
    auto b = std::make_unique<BancoTeste>(motor);
    if (b->pronto())
        Conexoes::configurar(b->config());
    Dialogos::Roteiro::iniciar();
    Dialogos::Roteiro::limpar();
    Sessao& s = sessao();
    s.zerarDireitos();
    s.SenhaObrigatoria = 0;
    s.SenhaLiberada = 0;
    s.Tentativas = 0;
    s.CfgTipoLetra = QStringLiteral("False");
    return b;
}
