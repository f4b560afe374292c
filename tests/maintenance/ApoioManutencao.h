#pragma once
#include <QDateTime>
#include <QDebug>
#include <QDir>

#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"

// A backup of the store made by the library, as the backup screen would, into `pasta`.
inline QString fazerBackup(const ConfigBanco& config, const QString& pasta)
{
    QDir().mkpath(pasta);
    const QString destino = QDir(pasta).filePath(ArquivoBackup::nome(QDateTime::currentDateTime()));
    QFile::remove(destino);
    Trabalho t;
    const Resultado r = t.executar([&](Trabalho& tr) { return CopiaSeguranca::fazer(config, destino, tr); });
    if (!r.ok())
        qWarning() << r.textoCompleto();
    return destino;
}
