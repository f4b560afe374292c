#include "data/Local.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "data/ArquivoIni.h"
#include "data/Sessao.h"

namespace Local {

QString pastaPrograma()
{
    const QString env = qEnvironmentVariable("TOLDEX_PASTA");
    if (!env.isEmpty())
        return QDir(env).absolutePath();
    const QString app = QCoreApplication::applicationDirPath();
    if (!app.isEmpty() && QFileInfo(app).isWritable())
        return app;
    QString dados = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (dados.isEmpty())
        dados = QDir::home().filePath(QStringLiteral(".toldex"));
    QDir().mkpath(dados);
    return dados;
}

QString pastaInstalada()
{
    return QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(QStringLiteral("../share/toldex"));
}

namespace {
QString& desvio()
{
    static QString d;
    return d;
}
}

QString arquivoIni()
{
    if (!desvio().isEmpty())
        return desvio();
    return QDir(pastaPrograma()).filePath(QStringLiteral("Toldex.ini"));
}

void desviarIni(const QString& arquivo) { desvio() = arquivo; }

ConfigBanco lerConfig()
{
    Sessao& s = sessao();
    s.PastaPrograma = pastaPrograma();
    s.ArquivoIni = arquivoIni();
    ArquivoIni ini(s.ArquivoIni);
    ConfigBanco c;
    const bool primeira = !QFileInfo::exists(s.ArquivoIni);
    if (primeira) {
        gravarPapel(true, s.PastaPrograma);
        c.criarSeNaoExistir = true;
    }
    s.EhServidor = ini.ler(QStringLiteral("Local"), QStringLiteral("Servidor"));
    s.CaminhoBanco = s.servidor() ? s.PastaPrograma : ini.ler(QStringLiteral("Local"), QStringLiteral("Caminho"));
    c.pasta = s.CaminhoBanco;
    if (ini.ler(QStringLiteral("Local"), QStringLiteral("Motor")).compare(QLatin1String("PostgreSQL"), Qt::CaseInsensitive) == 0) {
        c.motor = Motor::PostgreSQL;
        c.host = ini.ler(QStringLiteral("Local"), QStringLiteral("HostBanco"));
        const int porta = ini.ler(QStringLiteral("Local"), QStringLiteral("PortaBanco")).toInt();
        if (porta > 0)
            c.porta = porta;
        const QString nome = ini.ler(QStringLiteral("Local"), QStringLiteral("NomeBanco"));
        if (!nome.isEmpty())
            c.nomeBanco = nome;
        c.usuario = ini.ler(QStringLiteral("Local"), QStringLiteral("UsuarioBanco"));
    }
    return c;
}

bool gravarPapel(bool servidor, const QString& caminho, QString* erro)
{
    ArquivoIni ini(arquivoIni());
    return ini.gravar(QStringLiteral("Local"), QStringLiteral("Servidor"), servidor ? QStringLiteral("True") : QStringLiteral("False"), erro)
        && ini.gravar(QStringLiteral("Local"), QStringLiteral("Estacao"), servidor ? QStringLiteral("False") : QStringLiteral("True"), erro)
        && ini.gravar(QStringLiteral("Local"), QStringLiteral("Caminho"), servidor ? pastaPrograma() : caminho, erro);
}

}
