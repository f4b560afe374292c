#include "data/TravaUso.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "data/ConfigBanco.h"

namespace {

struct Compartilhada {
    int fd = -1;
    QString pasta;
};

Compartilhada& atual()
{
    static Compartilhada c;
    return c;
}

int abre(const QString& pasta)
{
    const QByteArray caminho = QFile::encodeName(TravaUso::arquivo(pasta));
    return ::open(caminho.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
}

} // namespace

namespace TravaUso {

QString arquivo(const QString& pastaBanco)
{
    return QDir(pastaBanco).filePath(NomeArquivoBanco + QStringLiteral(".uso"));
}

bool entrar(const QString& pastaBanco)
{
    Compartilhada& c = atual();
    if (c.fd >= 0 && c.pasta == pastaBanco)
        return true;
    sair();
    const int fd = abre(pastaBanco);
    if (fd < 0)
        return false;
    // flock locks belong to the open file, not the process: a second open of the same
    // file in this program (the maintenance's) sees this one as any other station's.
    if (::flock(fd, LOCK_SH) != 0) {
        ::close(fd);
        return false;
    }
    c.fd = fd;
    c.pasta = pastaBanco;
    return true;
}

void sair()
{
    Compartilhada& c = atual();
    if (c.fd >= 0)
        ::close(c.fd);
    c.fd = -1;
    c.pasta.clear();
}

bool dentro() { return atual().fd >= 0; }

} // namespace TravaUso

std::unique_ptr<TravaExclusiva> TravaExclusiva::tomar(const QString& pastaBanco)
{
    const bool nossa = atual().fd >= 0 && atual().pasta == pastaBanco;
    if (nossa)
        TravaUso::sair();
    const int fd = abre(pastaBanco);
    if (fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) == 0)
        return std::unique_ptr<TravaExclusiva>(new TravaExclusiva(fd, pastaBanco, nossa));
    if (fd >= 0)
        ::close(fd);
    if (nossa)
        TravaUso::entrar(pastaBanco);
    return nullptr;
}

TravaExclusiva::~TravaExclusiva()
{
    ::close(m_fd);
    if (m_voltar)
        TravaUso::entrar(m_pasta);
}
