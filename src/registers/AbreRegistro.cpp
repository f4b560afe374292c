#include "registers/AbreRegistro.h"

#include "ui/RegistroTelas.h"
#include "ui/TelaCadastro.h"

namespace AbreRegistro {

bool abrir(const QString& tela, qint64 chave)
{
    auto* cadastro = qobject_cast<TelaCadastro*>(RegistroTelas::abrir(tela));
    return cadastro && cadastro->irChave(chave);
}

}
