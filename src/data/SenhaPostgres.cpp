#include "data/SenhaPostgres.h"

#include <QDir>
#include <QSaveFile>
#include <QFile>

namespace SenhaPostgres {

namespace {

QString escapa(const QString& s)
{
    QString r = s;
    r.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    r.replace(QLatin1Char(':'), QLatin1String("\\:"));
    return r;
}

} // namespace

QString arquivo()
{
    const QString env = qEnvironmentVariable("PGPASSFILE");
    return env.isEmpty() ? QDir::home().filePath(QStringLiteral(".pgpass")) : env;
}

bool lembrar(const ConfigBanco& c, const QString& senha, QString* erro)
{
    const QString chave = QStringList{escapa(c.host.isEmpty() ? QStringLiteral("localhost") : c.host),
                                      QString::number(c.porta), escapa(c.nomeBanco), escapa(c.usuario)}
                              .join(QLatin1Char(':')) + QLatin1Char(':');
    QStringList linhas;
    QFile antigo(arquivo());
    if (antigo.open(QIODevice::ReadOnly | QIODevice::Text)) {
        for (const QString& l : QString::fromUtf8(antigo.readAll()).split(QLatin1Char('\n')))
            if (!l.isEmpty() && !l.startsWith(chave))
                linhas << l;
        antigo.close();
    }
    linhas << chave + escapa(senha);
    QSaveFile f(arquivo());
    // libpq ignores a password file that others can read.
    if (!f.open(QIODevice::WriteOnly | QIODevice::Text)
        || !f.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        || f.write((linhas.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8()) < 0 || !f.commit()) {
        if (erro)
            *erro = QStringLiteral("Não foi possível guardar a senha em %1: %2").arg(arquivo(), f.errorString());
        return false;
    }
    return true;
}

}
