#include "maintenance/CopiaSeguranca.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include "data/ErroBanco.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaPostgres.h"
#include "maintenance/SqliteDireto.h"

namespace CopiaSeguranca {

namespace {

qint64 tamanhoDoBanco(const QString& arquivo)
{
    return QFileInfo(arquivo).size() + QFileInfo(arquivo + QStringLiteral("-wal")).size();
}

QString megas(qint64 bytes) { return QString::number((bytes + (1 << 20) - 1) >> 20); }

Resultado fazerSqlite(const ConfigBanco& config, const QString& destino, Trabalho& t)
{
    const QString banco = config.arquivoSqlite();
    const QString pasta = QFileInfo(destino).absolutePath();
    const QString parcial = ArquivoBackup::parcial(destino);
    const qint64 tamanho = tamanhoDoBanco(banco);

    // A full stick is told before the work starts, not after minutes of copying.
    const QStorageInfo volume(pasta);
    const qint64 livre = volume.isValid() ? volume.bytesAvailable() : -1;
    if (livre >= 0 && livre < tamanho + (1 << 20))
        return Resultado::falha(TextoFalhaGravar,
                                QStringLiteral("Não há espaço livre suficiente em %1: o backup precisa de %2 MB e há %3 MB.")
                                    .arg(QDir::toNativeSeparators(pasta), megas(tamanho), megas(livre)));
    QFile::remove(parcial);
    auto limpa = [&] { QFile::remove(parcial); };
    try {
        SqliteDireto origem(banco, SqliteDireto::Modo::Escrita);
        // Page by page inside one read transaction: the copy runs at the disk's pace, and
        // what the stations save meanwhile goes on in the journal without restarting it.
        origem.copiarPara(parcial, [&t](int feitas, int total) {
            t.informar(feitas, total);
            return !t.cancelado();
        });
    } catch (const ErroBanco& e) {
        limpa();
        if (t.cancelado())
            return Resultado::cancelou();
        return Resultado::falha(TextoFalhaGravar, e.detalhe());
    }
    try {
        // The copy stands alone: no journal file needed beside it, even on a read-only stick.
        SqliteDireto copia(parcial, SqliteDireto::Modo::Escrita);
        copia.executar(QStringLiteral("PRAGMA journal_mode = DELETE"));
    } catch (const ErroBanco& e) {
        limpa();
        return Resultado::falha(TextoFalhaGravar, e.detalhe());
    }
    t.informar(0, 0);
    const ArquivoBackup::Exame exame = ArquivoBackup::examinarSqlite(parcial, false);
    if (!exame.bom()) {
        limpa();
        return Resultado::falha(TextoFalhaGravar, ArquivoBackup::mensagem(exame.situacao) + QLatin1Char('\n') + exame.detalhe);
    }
    if (t.cancelado()) {
        limpa();
        return Resultado::cancelou();
    }
    QString erro;
    if (!ArquivoBackup::sincronizar(parcial) || !ArquivoBackup::renomear(parcial, destino, &erro)) {
        limpa();
        return Resultado::falha(TextoFalhaGravar, erro);
    }
    ArquivoBackup::sincronizarPasta(pasta);
    return Resultado::sucesso();
}

} // namespace

Resultado fazer(const ConfigBanco& config, const QString& destino, Trabalho& t)
{
    if (config.motor == Motor::PostgreSQL)
        return CopiaPostgres::fazer(config, destino, t);
    return fazerSqlite(config, destino, t);
}

Resultado compactar(const ConfigBanco& config, Trabalho& t)
{
    if (config.motor == Motor::PostgreSQL)
        return Resultado::sucesso();   // the server's own autovacuum keeps it compact
    try {
        SqliteDireto db(config.arquivoSqlite(), SqliteDireto::Modo::Escrita);
        db.aoProgredir([&] { return t.cancelado(); });
        t.informar(0, 0);
        db.executar(QStringLiteral("VACUUM"));
        db.executar(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        // A cancel that came too late to stop a small store's compaction still stops the
        // backup that was to follow.
        if (t.cancelado())
            return Resultado::cancelou();
    } catch (const ErroBanco& e) {
        if (t.cancelado())
            return Resultado::cancelou();
        return Resultado::falha(e.mensagem(), e.detalhe());
    }
    return Resultado::sucesso();
}

}
