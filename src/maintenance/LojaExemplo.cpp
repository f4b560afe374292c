#include "maintenance/LojaExemplo.h"

#include <QDir>
#include <QFile>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/ErroBanco.h"
#include "data/Local.h"
#include "data/Sessao.h"

namespace LojaExemplo {

namespace {

bool& usando()
{
    static bool u = false;
    return u;
}

bool apagar(QString* erro)
{
    const QString base = QDir(pasta()).filePath(NomeArquivoBanco);
    for (const QString& sufixo : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm"), QStringLiteral("-journal")}) {
        QFile f(base + sufixo);
        if (f.exists() && !f.remove()) {
            if (erro)
                *erro = QStringLiteral("Não foi possível apagar a loja de exemplo anterior (%1): %2")
                            .arg(QDir::toNativeSeparators(f.fileName()), f.errorString());
            return false;
        }
    }
    return true;
}

} // namespace

QString pasta()
{
    return QDir(Local::pastaPrograma()).filePath(QStringLiteral("exemplo"));
}

ConfigBanco config()
{
    ConfigBanco c;
    c.motor = Motor::SQLite;
    c.pasta = pasta();
    return c;
}

bool criar(const GeradorDados::Progresso& progresso, QString* erro)
{
    if (erro)
        erro->clear();
    if (!QDir().mkpath(pasta())) {
        if (erro)
            *erro = QStringLiteral("Não foi possível criar a pasta %1.").arg(QDir::toNativeSeparators(pasta()));
        return false;
    }
    if (!apagar(erro))
        return false;
    bool feito = false;
    try {
        ConfigBanco c = config();
        c.criarSeNaoExistir = true;
        auto b = Banco::abrir(c);
        b->garantirEsquema();
        GeradorDados::lojaExemplo(*b, QDate::currentDate(), {}, progresso);
        feito = true;
    } catch (const GeradorDados::Interrompido&) {
    } catch (const ErroBanco& e) {
        if (erro)
            *erro = QStringLiteral("Não foi possível montar a loja de exemplo.\n") + e.textoCompleto();
    }
    if (!feito)
        apagar(nullptr);
    return feito;
}

void usar()
{
    usando() = true;
    Local::desviarIni(QDir(pasta()).filePath(QStringLiteral("Toldex.ini")));
    Sessao& s = sessao();
    s.PastaPrograma = Local::pastaPrograma();
    s.EhServidor = QStringLiteral("True");
    s.CaminhoBanco = pasta();
    Conexoes::configurar(config());
}

bool emUso() { return usando(); }

}
