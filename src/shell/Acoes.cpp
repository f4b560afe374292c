#include "shell/Acoes.h"

#include <QMetaObject>
#include <QVariant>
#include <QWidget>

#include "data/Sessao.h"
#include "orders/TelasOrdem.h"
#include "shell/ProgramasExternos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace Acoes {

QString mensagemSoServidor(Origem origem)
{
    const QString primeira = origem == Origem::MenuBarra
        ? QStringLiteral("Este computador está definodo como estação de trabalho,")
        : QStringLiteral("Este computador está definido como estação de trabalho, ");
    return primeira + QLatin1Char('\n') + QStringLiteral("está função só é acessível do Servidor(computador principal)");
}

QString alvoNovaOs(Origem origem, QString* modo)
{
    const Sessao& s = sessao();
    if (Sessao::verdadeiro(s.CfgOSAbrePesquisa)) {
        if (modo)
            *modo = QStringLiteral("EntradaOs");
        return QStringLiteral("PesquisaCliente");
    }
    if (modo)
        modo->clear();
    // The menu bar's item is the intake's whatever the shop's setting says.
    if (origem == Origem::MenuLateral)
        return TelasOrdem::novaOrdem();
    return QStringLiteral("OrdemServicoEntrada");
}

bool disponivel(const Acao& a, Origem origem)
{
    switch (a.tipo) {
    case Tipo::Tela: return RegistroTelas::registrada(a.alvo);
    case Tipo::NovaOs: return RegistroTelas::registrada(alvoNovaOs(origem));
    default: return true;
    }
}

QWidget* abrirTela(const QString& nome, const QString& modo)
{
    QWidget* w = RegistroTelas::abrir(nome);
    if (!w || modo.isEmpty())
        return w;
    w->setProperty(PropriedadeModo, modo);
    if (w->metaObject()->indexOfMethod("abrirNoModo(QString)") >= 0)
        QMetaObject::invokeMethod(w, "abrirNoModo", Q_ARG(QString, modo));
    return w;
}

bool permitido(const Acao& a, Origem origem, QWidget* pai)
{
    Sessao& s = sessao();
    if (a.soServidor && !s.servidor()) {
        Dialogos::mensagem(pai, mensagemSoServidor(origem), QStringLiteral("Sistema TOLDEX"), Dialogos::Icone::Aviso);
        return false;
    }
    if (!a.direito.isEmpty()) {
        const int* d = s.direito(a.direito);
        if (!d || *d != 1) {
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return false;
        }
    }
    return true;
}

bool executar(const Acao& a, Origem origem, QWidget* pai)
{
    if (a.tipo == Tipo::Nenhuma || a.tipo == Tipo::Interna)
        return false;
    if (!permitido(a, origem, pai))
        return false;
    switch (a.tipo) {
    case Tipo::Tela:
        return abrirTela(a.alvo, a.modo) != nullptr;
    case Tipo::NovaOs: {
        QString modo;
        const QString alvo = alvoNovaOs(origem, &modo);
        return abrirTela(alvo, modo) != nullptr;
    }
    case Tipo::Programa:
        return ProgramasExternos::iniciar(a.alvo, pai);
    case Tipo::Pagina:
        return ProgramasExternos::abrirPagina(a.alvo, pai);
    case Tipo::Mensagem:
        Dialogos::mensagem(pai, a.alvo, QStringLiteral("Sistema TOLDEX"));
        return true;
    default:
        return false;
    }
}

}
