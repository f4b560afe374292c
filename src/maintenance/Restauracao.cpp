#include "maintenance/Restauracao.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "data/Banco.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaPostgres.h"
#include "maintenance/SqliteDireto.h"

namespace Restauracao {

namespace {

const QStringList SufixosDiario = {QStringLiteral("-wal"), QStringLiteral("-shm")};

QString nomeBancoGuardado(const ConfigBanco& c, const QDateTime& quando)
{
    return c.nomeBanco + QStringLiteral("_antes_") + quando.toString(QStringLiteral("yyyyMMdd_HHmm"));
}

} // namespace

QString arquivoRestaurando(const QString& pastaBanco)
{
    return QDir(pastaBanco).filePath(NomeArquivoBanco + SufixoRestaurando);
}

QString nomeGuardado(const QString& motivo, const QDateTime& quando)
{
    return NomeArquivoBanco + QLatin1Char('.') + motivo + ArquivoBackup::carimbo(quando);
}

void arrumarAoIniciar(const QString& pastaBanco)
{
    const QString copia = arquivoRestaurando(pastaBanco);
    if (!QFileInfo::exists(copia))
        return;
    const QString banco = QDir(pastaBanco).filePath(NomeArquivoBanco);
    // The store was already set aside: the checked copy is the store now. Otherwise the
    // restore never reached the swap and the store stands as it was.
    if (!QFileInfo::exists(banco) && ArquivoBackup::examinarSqlite(copia, false).bom())
        ArquivoBackup::renomear(copia, banco);
    else
        QFile::remove(copia);
}

Resultado prepararSqlite(const QString& backup, const QString& pastaBanco, Trabalho& t)
{
    t.informar(0, 0);
    const ArquivoBackup::Exame exame = ArquivoBackup::examinarSqlite(backup, true);
    if (!exame.bom())
        return Resultado::falha(ArquivoBackup::mensagem(exame.situacao), exame.detalhe);
    const QString copia = arquivoRestaurando(pastaBanco);
    Resultado r = ArquivoBackup::copiar(backup, copia, t);
    if (!r.ok())
        return r;
    const ArquivoBackup::Exame outra = ArquivoBackup::examinarSqlite(copia, false);
    if (!outra.bom()) {
        QFile::remove(copia);
        return Resultado::falha(ArquivoBackup::mensagem(outra.situacao), outra.detalhe);
    }
    return Resultado::sucesso();
}

void desistirSqlite(const QString& pastaBanco)
{
    QFile::remove(arquivoRestaurando(pastaBanco));
}

Resultado trocarSqlite(const QString& pastaBanco, const QDateTime& quando, QString* guardado)
{
    const QDir pasta(pastaBanco);
    const QString banco = pasta.filePath(NomeArquivoBanco);
    const QString nome = pasta.filePath(nomeGuardado(QStringLiteral("antes-da-restauracao"), quando));
    try {
        // Everything the journal holds goes into the file that is kept.
        SqliteDireto db(banco, SqliteDireto::Modo::Escrita);
        db.executar(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    } catch (const ErroBanco& e) {
        desistirSqlite(pastaBanco);
        return Resultado::falha(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"), e.detalhe());
    }
    QString erro;
    // Journal files first: a store must never meet another store's journal.
    for (const QString& s : SufixosDiario)
        if (QFileInfo::exists(banco + s) && !ArquivoBackup::renomear(banco + s, nome + s, &erro)) {
            desistirSqlite(pastaBanco);
            return Resultado::falha(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"), erro);
        }
    if (!ArquivoBackup::renomear(banco, nome, &erro)) {
        desistirSqlite(pastaBanco);
        return Resultado::falha(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"), erro);
    }
    if (!ArquivoBackup::renomear(arquivoRestaurando(pastaBanco), banco, &erro)) {
        // Put the store back as it was.
        ArquivoBackup::renomear(nome, banco);
        return Resultado::falha(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"), erro);
    }
    ArquivoBackup::sincronizarPasta(pastaBanco);
    if (guardado)
        *guardado = nome;
    return Resultado::sucesso();
}

int outrasConexoesPostgres(const ConfigBanco& config, QString* erro)
{
    ConfigBanco admin = config;
    admin.nomeBanco = QStringLiteral("postgres");
    try {
        auto b = Banco::abrir(admin);
        return b->escalar(QStringLiteral("SELECT COUNT(*) FROM pg_stat_activity WHERE datname = ? AND pid <> pg_backend_pid()"),
                          {config.nomeBanco}).toInt();
    } catch (const ErroBanco& e) {
        if (erro)
            *erro = e.textoCompleto();
        return -1;
    }
}

Resultado restaurarPostgres(const ConfigBanco& config, const QString& backup, const QString& pastaSeguranca,
                            const QDateTime& quando, Trabalho& t, QString* guardado)
{
    Resultado r = CopiaPostgres::lerInteiro(backup, t);
    if (!r.ok())
        return r;
    ConfigBanco admin = config;
    admin.nomeBanco = QStringLiteral("postgres");
    ConfigBanco novo = config;
    novo.nomeBanco = config.nomeBanco + QStringLiteral("_restaurando");
    const QString antigo = nomeBancoGuardado(config, quando);
    bool criou = false;
    try {
        auto b = Banco::abrir(admin);
        b->executar(QStringLiteral("DROP DATABASE IF EXISTS %1").arg(novo.nomeBanco));
        b->executar(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8'").arg(novo.nomeBanco));
        criou = true;
    } catch (const ErroBanco&) {
        criou = false;
    }
    if (!criou) {
        // No right to create databases: the live one is saved first, then replaced in one
        // transaction, which the server undoes whole if anything fails.
        const QString seguranca = QDir(pastaSeguranca).filePath(antigo + QStringLiteral(".backup"));
        r = CopiaPostgres::fazer(config, seguranca, t);
        if (!r.ok())
            return r;
        r = CopiaPostgres::restaurar(config, backup, true, t);
        if (r.ok() && guardado)
            *guardado = seguranca;
        return r;
    }
    r = CopiaPostgres::restaurar(novo, backup, false, t);
    try {
        auto b = Banco::abrir(admin);
        if (!r.ok()) {
            b->executar(QStringLiteral("DROP DATABASE IF EXISTS %1").arg(novo.nomeBanco));
            return r;
        }
        b->executar(QStringLiteral("ALTER DATABASE %1 RENAME TO %2").arg(config.nomeBanco, antigo));
        b->executar(QStringLiteral("ALTER DATABASE %1 RENAME TO %2").arg(novo.nomeBanco, config.nomeBanco));
    } catch (const ErroBanco& e) {
        return Resultado::falha(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"), e.textoCompleto());
    }
    if (guardado)
        *guardado = antigo;
    return Resultado::sucesso();
}

}
