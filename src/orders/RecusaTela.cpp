#include "orders/RecusaTela.h"

#include "data/Sessao.h"
#include "orders/RecusaOrdem.h"
#include "orders/TravaOrdem.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace RecusaTela {

void mostrar(QWidget* pai, const Recusa& r)
{
    switch (r.seguimento) {
    case Recusa::Aviso:
        Dialogos::mensagem(pai, r.mensagem, r.titulo, Dialogos::Icone::Aviso);
        break;
    case Recusa::Negado:
        RegistroTelas::abrir(QStringLiteral("Negado"));
        break;
    case Recusa::SenhaLiberaAltOs:
        Dialogos::mensagem(pai, r.mensagem, r.titulo, Dialogos::Icone::Aviso);
        sessao().SenhaOrigem = Recusa::origemLiberacao();
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        break;
    }
}

bool esperaSenha(const QString& origem)
{
    const Sessao& s = sessao();
    if (s.SenhaObrigatoria == 0 || s.SenhaLiberada != 0)
        return false;
    sessao().SenhaOrigem = origem;
    RegistroTelas::abrir(QStringLiteral("SenhaPde"));
    return true;
}

void aoSairDaTela(QWidget* pai)
{
    if (auto msg = TravaOrdem::aoSairDaTela()) {
        Dialogos::mensagem(pai, *msg);
        RegistroTelas::abrir(QStringLiteral("Login"));
    }
}

}
