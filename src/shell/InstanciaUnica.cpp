#include "shell/InstanciaUnica.h"

#include <QDir>
#include <QLockFile>
#include <memory>

namespace {
std::unique_ptr<QLockFile>& trava()
{
    static std::unique_ptr<QLockFile> t;
    return t;
}
} // namespace

namespace InstanciaUnica {

bool adquirir(const QString& pasta)
{
    if (trava() && trava()->isLocked())
        return true;
    auto t = std::make_unique<QLockFile>(QDir(pasta).filePath(QStringLiteral("Toldex.lock")));
    // Never stale by age: a long day at the counter is no reason to let a second copy in.
    // A lock whose process is gone is taken over by QLockFile itself.
    t->setStaleLockTime(0);
    if (!t->tryLock(0))
        return false;
    trava() = std::move(t);
    return true;
}

void liberar() { trava().reset(); }

} // namespace InstanciaUnica
