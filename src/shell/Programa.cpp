#include "shell/Programa.h"

#include <QCoreApplication>
#include <QTimer>

namespace {
std::function<void()>& acao()
{
    static std::function<void()> a;
    return a;
}
} // namespace

namespace Programa {

void encerrar()
{
    if (acao()) {
        acao()();
        return;
    }
    // Queued as well, for an ending asked before the event loop runs.
    QCoreApplication::exit(0);
    QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
}

void definirEncerramento(std::function<void()> a) { acao() = std::move(a); }

} // namespace Programa
