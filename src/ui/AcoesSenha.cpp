#include "ui/AcoesSenha.h"

#include <QHash>
#include <QObject>
#include <QPointer>

namespace {
struct Acao {
    QPointer<QObject> dono;
    std::function<void()> acao;
};
QHash<QString, Acao>& acoes()
{
    static QHash<QString, Acao> a;
    return a;
}
} // namespace

namespace AcoesSenha {

void registrar(const QString& palavra, QObject* dono, std::function<void()> acao)
{
    acoes().insert(palavra.toLower(), Acao{dono, std::move(acao)});
}

bool executar(const QString& palavra)
{
    const auto it = acoes().constFind(palavra.toLower());
    if (it == acoes().constEnd() || !it->dono)
        return false;
    const auto acao = it->acao;
    acao();
    return true;
}

} // namespace AcoesSenha
