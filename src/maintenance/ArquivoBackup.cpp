#include "maintenance/ArquivoBackup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "data/ErroBanco.h"
#include "data/Esquema.h"
#include "maintenance/SqliteDireto.h"
#include "maintenance/Trabalho.h"

namespace ArquivoBackup {

QString carimbo(const QDateTime& quando)
{
    // The time keeps its "%" where the clock has a colon, which a file name can't hold.
    return QStringLiteral("_Data_") + quando.toString(QStringLiteral("dd-MM-yyyy")) + QStringLiteral("_Hora_")
        + quando.toString(QStringLiteral("HH")) + QLatin1Char('%') + quando.toString(QStringLiteral("mm"));
}

QString nome(const QDateTime& quando) { return Prefixo + carimbo(quando); }

QString parcial(const QString& arquivoFinal)
{
    const QFileInfo f(arquivoFinal);
    return f.dir().filePath(QLatin1Char('.') + f.fileName() + QStringLiteral(".parcial"));
}

void removerParciais(const QString& pasta)
{
    const QDir d(pasta);
    const QStringList restos = d.entryList({QLatin1Char('.') + Prefixo + QStringLiteral("*.parcial")},
                                           QDir::Files | QDir::Hidden);
    for (const QString& r : restos)
        QFile::remove(d.filePath(r));
}

Tipo tipo(const QString& arquivo)
{
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly))
        return Tipo::Desconhecido;
    const QByteArray inicio = f.read(16);
    if (inicio == QByteArray("SQLite format 3\0", 16))
        return Tipo::Sqlite;
    if (inicio.startsWith("PGDMP"))
        return Tipo::Postgres;
    return Tipo::Desconhecido;
}

Exame examinarSqlite(const QString& arquivo, bool completo)
{
    const Tipo t = tipo(arquivo);
    if (t == Tipo::Postgres)
        return {Situacao::OutroMotor, QStringLiteral("Cópia de um servidor PostgreSQL.")};
    if (t != Tipo::Sqlite)
        return {Situacao::NaoEhBackup, {}};
    try {
        SqliteDireto db(arquivo, SqliteDireto::Modo::Leitura);
        const int tabelas = db.texto(QStringLiteral(
            "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND lower(name) IN ('versaoesquema', 'empresa')")).toInt();
        if (tabelas != 2)
            return {Situacao::NaoEhBackup, QStringLiteral("O arquivo é um banco de dados de outro programa.")};
        const QString r = db.verificar(completo);
        if (r != QLatin1String("ok"))
            return {Situacao::Danificado, r};
        if (db.texto(QStringLiteral("SELECT MAX(Versao) FROM VersaoEsquema")).toInt() > Esquema::versaoAtual())
            return {Situacao::MaisNovo, {}};
        if (db.texto(QStringLiteral("SELECT COUNT(*) FROM Empresa")).toInt() < 1)
            return {Situacao::NaoEhBackup, QStringLiteral("Falta o registro da empresa.")};
    } catch (const ErroBanco& e) {
        const QString d = e.detalhe().toLower();
        if (d.contains(QLatin1String("not a database")) || d.contains(QLatin1String("file is not")))
            return {Situacao::NaoEhBackup, e.detalhe()};
        return {Situacao::Danificado, e.detalhe()};
    }
    return {};
}

QString mensagem(Situacao situacao)
{
    switch (situacao) {
    case Situacao::Bom: return QStringLiteral("Backup verificado: nenhum defeito encontrado.");
    case Situacao::NaoEhBackup:
        return QStringLiteral("O arquivo escolhido não é um backup do Toldex. Nenhum dado foi alterado.");
    case Situacao::Danificado: return QStringLiteral("Este backup está danificado e não deve ser restaurado.");
    case Situacao::MaisNovo:
        return QStringLiteral("Este backup foi feito por uma versão mais nova do Toldex.\n"
                              "Atualize o programa antes de restaurá-lo. Nenhum dado foi alterado.");
    case Situacao::OutroMotor:
        return QStringLiteral("Este backup é de outro tipo de banco de dados e não serve para este computador.\n"
                              "Nenhum dado foi alterado.");
    }
    return {};
}

Resultado copiar(const QString& origem, const QString& destino, Trabalho& t)
{
    QFile entrada(origem);
    if (!entrada.open(QIODevice::ReadOnly))
        return Resultado::falha(QStringLiteral("Arquivo não encontrado"), entrada.errorString());
    QFile saida(destino);
    if (!saida.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return Resultado::falha(QStringLiteral("Não foi possível copiar o arquivo."),
                                saida.errorString());
    const qint64 total = entrada.size();
    qint64 feito = 0;
    for (;;) {
        if (t.cancelado()) {
            saida.close();
            QFile::remove(destino);
            return Resultado::cancelou();
        }
        const QByteArray bloco = entrada.read(1 << 20);
        if (bloco.isEmpty())
            break;
        if (saida.write(bloco) != bloco.size()) {
            const QString e = saida.errorString();
            saida.close();
            QFile::remove(destino);
            return Resultado::falha(QStringLiteral("Não foi possível copiar o arquivo."), e);
        }
        feito += bloco.size();
        t.informar(feito, total);
    }
    saida.close();
    if (!ArquivoBackup::sincronizar(destino)) {
        QFile::remove(destino);
        return Resultado::falha(QStringLiteral("Não foi possível copiar o arquivo."));
    }
    return Resultado::sucesso();
}

bool sincronizar(const QString& arquivo)
{
    const int fd = ::open(QFile::encodeName(arquivo).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

bool sincronizarPasta(const QString& pasta)
{
    const int fd = ::open(QFile::encodeName(pasta).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    // Some file systems (network shares, FAT sticks) can't sync a folder: the files
    // themselves were synced already.
    ::fsync(fd);
    ::close(fd);
    return true;
}

bool renomear(const QString& de, const QString& para, QString* erro)
{
    if (::rename(QFile::encodeName(de).constData(), QFile::encodeName(para).constData()) == 0)
        return true;
    if (erro)
        *erro = QStringLiteral("%1 -> %2: %3").arg(de, para, QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

}
