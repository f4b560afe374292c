#include "orders/MostraRecusa.h"

#include "data/Sessao.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace MostraRecusa {

void mostra(QWidget* pai, const Recusa& r)
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

}
