#include "maintenance/ArrumacaoInicial.h"

#include <QDir>

#include "data/ArquivoIni.h"
#include "data/Sessao.h"
#include "data/TravaUso.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/Restauracao.h"

namespace ArrumacaoInicial {

void executar(const ConfigBanco& config)
{
    const QString volume = LeIni(QStringLiteral("Local"), QStringLiteral("Backup"), sessao().ArquivoIni);
    if (!volume.isEmpty())
        ArquivoBackup::removerParciais(QDir(volume).filePath(ArquivoBackup::Pasta));
    if (config.motor != Motor::SQLite || config.pasta.isEmpty() || !QDir(config.pasta).exists())
        return;
    Restauracao::arrumarAoIniciar(config.pasta);
    TravaUso::entrar(config.pasta);
}

}
