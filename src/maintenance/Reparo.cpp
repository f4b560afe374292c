#include "maintenance/Reparo.h"

#include <QDateTime>
#include <QDir>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "maintenance/AcessoExclusivo.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/Restauracao.h"
#include "maintenance/SqliteDireto.h"
#include "shell/Reconecta.h"

namespace Reparo {

namespace {

Resultado repararSqlite(const ConfigBanco& config, Trabalho& t, QString* guardado)
{
    t.informar(0, 0);
    const QString banco = config.arquivoSqlite();
    try {
        SqliteDireto db(banco, SqliteDireto::Modo::Escrita);
        // A store broken badly enough fails the check itself: that counts as damage too.
        auto confere = [&db] {
            try {
                return db.verificar(true);
            } catch (const ErroBanco& e) {
                return e.detalhe();
            }
        };
        if (confere() == QLatin1String("ok")) {
            db.executar(QStringLiteral("VACUUM"));
            return Resultado::sucesso();
        }
        try {
            db.executar(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        } catch (const ErroBanco&) {
        }
        const QString copia = QDir(config.pasta).filePath(
            Restauracao::nomeGuardado(QStringLiteral("antes-do-reparo"), QDateTime::currentDateTime()));
        const Resultado r = ArquivoBackup::copiar(banco, copia, t);
        if (!r.ok())
            return r;
        if (guardado)
            *guardado = copia;
        QString depois;
        try {
            db.executar(QStringLiteral("REINDEX"));
            depois = confere();
        } catch (const ErroBanco& e) {
            depois = e.detalhe();
        }
        if (depois != QLatin1String("ok"))
            return Resultado::falha(
                QStringLiteral("O banco de dados continua danificado e não foi regravado.\n"
                               "Restaure o último backup (botão \"Restaurar o banco de dados\").\n"
                               "O banco como estava antes do reparo foi guardado como %1.")
                    .arg(QDir::toNativeSeparators(copia)),
                depois);
        db.executar(QStringLiteral("VACUUM"));
    } catch (const ErroBanco& e) {
        return Resultado::falha(e.mensagem(), e.detalhe());
    }
    return Resultado::sucesso();
}

Resultado repararPostgres(const ConfigBanco& config, Trabalho& t)
{
    t.informar(0, 0);
    try {
        auto b = Banco::abrir(config);
        b->executar(QStringLiteral("REINDEX DATABASE %1").arg(config.nomeBanco));
        b->executar(QStringLiteral("VACUUM (ANALYZE)"));
    } catch (const ErroBanco& e) {
        return Resultado::falha(e.mensagem(), e.detalhe());
    }
    return Resultado::sucesso();
}

} // namespace

Resultado reparar(const ConfigBanco& config, Trabalho& t, QString* guardado)
{
    if (config.motor == Motor::PostgreSQL)
        return repararPostgres(config, t);
    return repararSqlite(config, t, guardado);
}

void instalar()
{
    Reconecta::definirReparo([](QString* erro) {
        const ConfigBanco config = Conexoes::config();
        AcessoExclusivo::Falha falha;
        auto acesso = AcessoExclusivo::tomar(nullptr, config, &falha);
        if (!acesso)
            return false;
        Trabalho t;
        const Resultado r = t.executar([config](Trabalho& tr) { return reparar(config, tr); });
        if (!r.ok() && erro)
            *erro = r.textoCompleto();
        return r.ok();
    });
}

namespace {
// The reconnection screen offers the repair whenever maintenance is in the program.
const bool instalado = (instalar(), true);
}

}
