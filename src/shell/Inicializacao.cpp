#include "shell/Inicializacao.h"

#include <QScreen>

#include <QApplication>
#include <QProgressDialog>
#include <QWidget>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "maintenance/ArrumacaoInicial.h"
#include "maintenance/LojaExemplo.h"
#include "shell/PrimeiraPartida.h"
#include "shell/Principal.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Titulo = QStringLiteral("Sistema TOLDEX");
}

Inicializacao::Inicializacao(QObject* pai)
    : QObject(pai)
{
}

bool Inicializacao::iniciar()
{
    // The windows come and go in turn (first window, reconnection, main window): the
    // program ends when the main window does, or when the start can't go on.
    QApplication::setQuitOnLastWindowClosed(false);
    if (!m_exemplo) {
        const PrimeiraPartida::Papel papel = PrimeiraPartida::perguntar();
        if (papel == PrimeiraPartida::Papel::Cancelado)
            return false;
        m_exemplo = papel == PrimeiraPartida::Papel::Exemplo;
    }
    if (m_exemplo && !montarLojaExemplo())
        return false;
    Conexoes::configurar(Reconexao::configAtual());
    Reconexao::instalar();

    auto& avisos = AvisosReconexao::instancia();
    connect(&avisos, &AvisosReconexao::reconectado, this, [this] {
        if (!m_bancoPronto)
            continuar();
    });
    connect(&avisos, &AvisosReconexao::fechada, this, [this] {
        if (!m_bancoPronto && !Principal::instancia())
            QCoreApplication::quit();
    });

    switch (prepararBanco()) {
    case Banco::Incompativel:
        return false;
    case Banco::Indisponivel:
        // The failed open already led to the reconnection screen; we go on from there.
        return true;
    case Banco::Pronto:
        abrirTelaInicial();
        return true;
    }
    return true;
}

bool Inicializacao::montarLojaExemplo()
{
    QProgressDialog progresso(QStringLiteral("Montando a loja de exemplo..."), QStringLiteral("&Cancelar"), 0, 1);
    progresso.setObjectName(QStringLiteral("ProgressoExemplo"));
    progresso.setWindowTitle(QStringLiteral("Loja de exemplo"));
    progresso.setWindowModality(Qt::ApplicationModal);
    progresso.setMinimumDuration(400);
    QString erro;
    const bool pronta = LojaExemplo::criar(
        [&](const QString& etapa, qint64 feito, qint64 total) {
            progresso.setMaximum(int(total));
            progresso.setValue(int(feito));
            progresso.setLabelText(QStringLiteral("Montando a loja de exemplo: %1...").arg(etapa));
            QCoreApplication::processEvents();
            return !progresso.wasCanceled();
        },
        &erro);
    if (!pronta) {
        if (!erro.isEmpty())
            Dialogos::mensagem(nullptr, erro, Titulo, Dialogos::Icone::Critico);
        return false;
    }
    LojaExemplo::usar();
    return true;
}

void Inicializacao::continuar()
{
    // Still out of reach: the reconnection screen stays with the user.
    if (prepararBanco() == Banco::Pronto)
        abrirTelaInicial();
}

Inicializacao::Banco Inicializacao::prepararBanco()
{
    ArrumacaoInicial::executar(Conexoes::config());
    auto banco = Conexoes::nova();
    if (!banco)
        return Banco::Indisponivel;
    try {
        bool novo = false;
        try {
            banco->escalar(QStringLiteral("SELECT COUNT(*) FROM VersaoEsquema"));
        } catch (const ErroBanco&) {
            novo = true;
        }
        const int passos = banco->garantirEsquema();
        if (passos > 0 && !novo)
            Dialogos::mensagem(nullptr,
                QStringLiteral("O banco de dados foi atualizado para a versão %1 do programa "
                               "(%2 etapa(s) aplicada(s)).\nNenhum registro foi alterado.")
                    .arg(QStringLiteral(TOLDEX_VERSAO)).arg(passos),
                Titulo);
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(nullptr, QStringLiteral("Não foi possível preparar o banco de dados.\n") + e.textoCompleto(),
                           Titulo, Dialogos::Icone::Critico);
        return Banco::Incompativel;
    }
    m_bancoPronto = true;
    return Banco::Pronto;
}

void Inicializacao::abrirTelaInicial()
{
    if (m_telaInicialAberta)
        return;
    m_telaInicialAberta = true;
    if (!RegistroTelas::registrada(QStringLiteral("TelaInicial"))) {
        // A build without the first window opens the main window with an empty session:
        // nothing guarded opens until someone logs in through Login.
        abrirPrincipal();
        return;
    }
    QWidget* tela = RegistroTelas::abrir(QStringLiteral("TelaInicial"));
    if (!tela) {
        QCoreApplication::quit();
        return;
    }
    connect(tela, &QObject::destroyed, this, &Inicializacao::depoisDaTelaInicial);
}

void Inicializacao::depoisDaTelaInicial()
{
    // The first window opens the main window itself after a good password; when it closes
    // without a user (the "end" button, the fourth wrong password, a second copy of the
    // program), the program ends.
    if (Principal::instancia()) {
        abrirPrincipal();   // already open: only brought to the front
        return;
    }
    if (sessao().UsuarioNome.isEmpty()) {
        QCoreApplication::quit();
        return;
    }
    abrirPrincipal();
}

void Inicializacao::abrirPrincipal()
{
    QWidget* w = RegistroTelas::abrir(QStringLiteral("Principal"));
    if (!w) {
        QCoreApplication::quit();
        return;
    }
    // Without a window manager (a kiosk session) nothing maximizes the window: fill the
    // screen ourselves.
    if (QScreen* tela = w->screen())
        w->setGeometry(tela->availableGeometry());
    w->showMaximized();
    if (w != m_principal) {
        m_principal = w;
        connect(w, &QObject::destroyed, qApp, [] { QCoreApplication::quit(); });
    }
    // The day starts on the quick search, with the pending work beside it.
    if (!sessao().UsuarioNome.isEmpty()) {
        RegistroTelas::abrir(QStringLiteral("Pendencia"));
        if (QWidget* busca = RegistroTelas::abrir(QStringLiteral("BuscaRapida")))
            busca->setFocus();
    }
}
