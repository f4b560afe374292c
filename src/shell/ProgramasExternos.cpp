#include "shell/ProgramasExternos.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "data/ArquivoIni.h"
#include "data/Local.h"
#include "ui/Dialogos.h"

namespace ProgramasExternos {

namespace {

const QString SecaoProgramas = QStringLiteral("Programas");
const QString SecaoInternet = QStringLiteral("Internet");

QString descricao(const QString& chave)
{
    if (chave == Editor)
        return QStringLiteral("bloco de notas");
    if (chave == Calculadora)
        return QStringLiteral("calculadora");
    if (chave == PontoVenda)
        return QStringLiteral("ponto de venda");
    if (chave == Atualizador)
        return QStringLiteral("atualizador do Toldex");
    return chave;
}

// The desktops our shops run differ; the first of these that is installed serves.
QStringList candidatos(const QString& chave)
{
    if (chave == Editor)
        return {QStringLiteral("gnome-text-editor"), QStringLiteral("gedit"), QStringLiteral("kate"),
                QStringLiteral("kwrite"), QStringLiteral("mousepad"), QStringLiteral("xed"),
                QStringLiteral("pluma"), QStringLiteral("featherpad"), QStringLiteral("leafpad")};
    if (chave == Calculadora)
        return {QStringLiteral("gnome-calculator"), QStringLiteral("kcalc"), QStringLiteral("galculator"),
                QStringLiteral("mate-calc"), QStringLiteral("qalculate-gtk"), QStringLiteral("xcalc")};
    // The point of sale and the updater are installed beside the program.
    if (chave == PontoVenda)
        return {QDir(Local::pastaPrograma()).filePath(QStringLiteral("PDV"))};
    if (chave == Atualizador)
        return {QDir(Local::pastaPrograma()).filePath(QStringLiteral("Atualizacao"))};
    return {};
}

QString enderecoPadrao(const QString& chave)
{
    if (chave == Site)
        return QStringLiteral("https://www.toldex.com.br/");
    if (chave == Forum)
        return QStringLiteral("https://www.toldex.com.br/forum/");
    if (chave == DicasDefeitos)
        return QStringLiteral("https://www.toldex.com.br/forum/dicas-defeitos/");
    if (chave == Esquemas)
        return QStringLiteral("https://www.toldex.com.br/forum/esquemas/");
    return {};
}

} // namespace

QString localizar(const QString& programa)
{
    if (programa.isEmpty())
        return {};
    if (programa.contains(QLatin1Char('/'))) {
        const QFileInfo f(programa);
        return f.isFile() && f.isExecutable() ? f.absoluteFilePath() : QString();
    }
    return QStandardPaths::findExecutable(programa);
}

QStringList comando(const QString& chave)
{
    const QString configurado = LeIni(SecaoProgramas, chave, Local::arquivoIni()).trimmed();
    if (!configurado.isEmpty())
        return QProcess::splitCommand(configurado);
    const QStringList opcoes = candidatos(chave);
    for (const QString& c : opcoes)
        if (!localizar(c).isEmpty())
            return {c};
    return opcoes.isEmpty() ? QStringList() : QStringList{opcoes.first()};
}

bool iniciar(const QString& chave, QWidget* pai)
{
    const QStringList cmd = comando(chave);
    const QString programa = cmd.isEmpty() ? QString() : localizar(cmd.first());
    if (programa.isEmpty()) {
        Dialogos::mensagem(pai,
            QStringLiteral("O programa %1 não foi encontrado neste computador%2.\n"
                           "Indique o comando no arquivo Toldex.ini, seção [%3], chave %4.")
                .arg(descricao(chave),
                     cmd.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(cmd.first()),
                     SecaoProgramas, chave),
            QStringLiteral("Sistema TOLDEX"), Dialogos::Icone::Aviso);
        return false;
    }
    if (!QProcess::startDetached(programa, cmd.mid(1), Local::pastaPrograma())) {
        Dialogos::mensagem(pai, QStringLiteral("Não foi possível iniciar o programa %1 (%2).")
                                    .arg(descricao(chave), programa),
                           QStringLiteral("Sistema TOLDEX"), Dialogos::Icone::Aviso);
        return false;
    }
    return true;
}

QString endereco(const QString& chave)
{
    const QString configurado = LeIni(SecaoInternet, chave, Local::arquivoIni()).trimmed();
    return configurado.isEmpty() ? enderecoPadrao(chave) : configurado;
}

bool abrirPagina(const QString& chave, QWidget* pai)
{
    const QUrl url = QUrl::fromUserInput(endereco(chave));
    if (url.isValid() && QDesktopServices::openUrl(url))
        return true;
    Dialogos::mensagem(pai, QStringLiteral("Não foi possível abrir a página %1 no navegador.\n"
                                           "Confira o endereço no arquivo Toldex.ini, seção [%2], chave %3.")
                                .arg(url.toString(), SecaoInternet, chave),
                       QStringLiteral("Sistema TOLDEX"), Dialogos::Icone::Aviso);
    return false;
}

}
