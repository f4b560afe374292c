#include "shell/Principal.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>

#include "data/Datas.h"
#include "data/Sessao.h"
#include "maintenance/Trabalho.h"
#include "shell/AvisoPrincipal.h"
#include "shell/BarraStatus.h"
#include "shell/ImagemPrincipal.h"
#include "shell/LeEmpresa.h"
#include "shell/MenuLateral.h"
#include "shell/ProgramasExternos.h"
#include "shell/Reconecta.h"
#include "shell/VerificaVersao.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using Acoes::Acao;
using Acoes::Tipo;

namespace {

QPointer<Principal>& atual()
{
    static QPointer<Principal> p;
    return p;
}

const QString Titulo = QStringLiteral("Sistema TOLDEX");

Principal::Entrada entrada(const char* menu, const char* tituloMenu, const char* submenu, const char* nome,
                           const char* texto, const char* direito, Tipo tipo, const QString& alvo = {},
                           const char* modo = "", bool soServidor = false)
{
    return {QString::fromUtf8(menu), QString::fromUtf8(tituloMenu), QString::fromUtf8(submenu),
            Acao{QString::fromUtf8(nome), QString::fromUtf8(texto), QString::fromUtf8(direito), soServidor, tipo, alvo,
                 QString::fromUtf8(modo)}};
}

} // namespace

const QList<Principal::Entrada>& Principal::entradas()
{
    using namespace ProgramasExternos;
    const char* cad = "MnuCad";
    const char* cadT = "&Cadastros";
    static const QList<Entrada> e = {
        entrada(cad, cadT, "C&liente", "mnunovo", "&Novo", "DireitoClienteAl", Tipo::Tela, "Cliente", "Novo"),
        entrada(cad, cadT, "C&liente", "MnuPesCli", "P&esquisa", "DireitoClienteLe", Tipo::Tela, "PesquisaCliente"),
        entrada(cad, cadT, "&Fornecedor", "MnuNovoFor", "&Novo", "DireitoFornecedorAl", Tipo::Tela, "Fornecedor", "Novo"),
        entrada(cad, cadT, "&Fornecedor", "MnuPesFor", "P&esquisa", "DireitoFornecedorLe", Tipo::Tela, "PesquisaFornecedor"),
        entrada(cad, cadT, "Che&que", "mnunovocheque", "&Novo", "DireitochequeAl", Tipo::Tela, "RegCheque", "Novo"),
        entrada(cad, cadT, "Che&que", "mnupesquisacheque", "&Pesquisa", "DireitochequeLe", Tipo::Tela, "PesquisaCheque"),
        entrada(cad, cadT, "", "MnuFun", "F&uncionário", "DireitoFuncionarioLe", Tipo::Tela, "Funcionario"),
        entrada(cad, cadT, "&Ordem serviço", "mnunovaos", "&Novo", "DireitoOsEntAl", Tipo::NovaOs),
        entrada(cad, cadT, "", "MnuPesOsEnt", "Pesquisa O.S &entrada", "DireitoOsEntLe", Tipo::Tela, "PesquisaOs", "Entrada"),
        entrada(cad, cadT, "", "MnuOsSai", "Pesquisa O.S &saída", "DireitoOsSaiLe", Tipo::Tela, "PesquisaOs", "Saida"),
        entrada(cad, cadT, "", "MnuPesTec", "Pesquisa O.S Técnico", "DireitoOsTecLe", Tipo::Tela, "PesquisaOs", "Tecnico"),
        entrada(cad, cadT, "&Produto", "MnuNovoProd", "&Novo", "DireitoProdutoAl", Tipo::Tela, "Produto", "Novo"),
        entrada(cad, cadT, "&Produto", "MnuPesProd", "P&esquisa", "DireitoProdutoLe", Tipo::Tela, "PesquisaProduto"),
        entrada(cad, cadT, "", "MnuPedido", "Pe&dido", "DireitoPedidoLe", Tipo::Tela, "PedidoMaterial"),

        entrada("MnuLat", "&Menus", "", "MnuBusca", "Busca Rápida", "", Tipo::Tela, "BuscaRapida"),
        entrada("MnuLat", "&Menus", "", "MnuLateral", "Menu funções", "", Tipo::Interna, "MenuLateral"),
        entrada("MnuLat", "&Menus", "", "MnuAp", "Pendência", "", Tipo::Tela, "Pendencia"),
        entrada("MnuLat", "&Menus", "", "MnuLogin", "&Login", "", Tipo::Tela, "Login"),
        entrada("MnuLat", "&Menus", "", "MnuDefinir", "Definir menu", "", Tipo::Nenhuma),

        entrada("MnuVend", "&Vendas", "", "mnucontareceber", "Contas rece&ber", "DireitoContaLe", Tipo::Tela, "ContaReceber"),
        entrada("MnuVend", "&Vendas", "", "MnuMov", "&Movimento", "DireitoMovimento", Tipo::Tela, "Movimento"),
        entrada("MnuVend", "&Vendas", "", "MnuVenda", "V&endas", "DireitoVendasLe", Tipo::Programa, PontoVenda),

        entrada("MnuSis", "&Sistema", "", "MnuBack", "Bac&kup do Banco Dados", "DireitoBackup", Tipo::Tela, "BackupDados", "", true),
        entrada("MnuSis", "&Sistema", "", "MnuConf", "Confi&guração", "DireitoConfiguracao", Tipo::Tela, "ConfiguraSistema"),
        entrada("MnuSis", "&Sistema", "", "MnuRest", "&Restaura Backup Banco Dados", "DireitoBackup", Tipo::Tela, "RestauraDados", "", true),

        entrada("MnuUtil", "&Utilitário", "", "MnuAgenda", "A&genda", "", Tipo::Tela, "Agenda"),
        entrada("MnuUtil", "&Utilitário", "", "MnuDef", "Banco &Defeitos", "", Tipo::Tela, "Defeito"),
        entrada("MnuUtil", "&Utilitário", "", "MnuNotas", "&Bloco Notas", "", Tipo::Programa, Editor),
        entrada("MnuUtil", "&Utilitário", "", "MnuCalc", "Ca&lculadora", "", Tipo::Programa, Calculadora),

        entrada("MnuAjuda", "A&juda", "", "Mnuforum", "Fórum quartzolar", "", Tipo::Pagina, Forum),
        entrada("MnuAjuda", "A&juda", "", "MnuSic", "Atualizar Toldex", "", Tipo::Interna, "MnuSic"),
        entrada("MnuAjuda", "A&juda", "", "MnuSobre", "Sobre", "", Tipo::Tela, "frmAbout"),
        entrada("MnuAjuda", "A&juda", "", "mnusair", "Sa&ir", "", Tipo::Interna, "mnusair"),
    };
    return e;
}

Principal* Principal::instancia() { return atual().data(); }

int Principal::diasSemBackup()
{
    const auto d = Datas::lerBanco(sessao().DataUltimoBackup);
    return d ? static_cast<int>(d->daysTo(QDate::currentDate())) : 0;
}

Principal::Principal(QWidget* pai)
    : QMainWindow(pai)
{
    setObjectName(QStringLiteral("Principal"));
    atual() = this;
    resize(1024, 700);

    m_area = new QMdiArea(this);
    m_area->setObjectName(QStringLiteral("AreaTrabalho"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    RegistroTelas::definirAreaMdi(m_area);
    pintarFundo();

    // What the window does when it loads: the picture, the shop's settings, the caption,
    // the side menu, the backup reminder, then the update check in the background.
    m_imagem = new ImagemPrincipal(m_area->viewport());
    const DadosEmpresa empresa = LeEmpresa();
    m_testeOk = empresa.testeOk;
    setWindowTitle(QStringLiteral("[%1] %2").arg(QStringLiteral(TOLDEX_VERSAO), empresa.nomeEmpresa).trimmed());

    m_menuLateral = new MenuLateral(this);
    m_dock = new QDockWidget(QStringLiteral("Menu funções"), this);
    m_dock->setObjectName(QStringLiteral("DockMenuLateral"));
    m_dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    m_dock->setWidget(m_menuLateral);
    m_dock->setMinimumWidth(200);
    addDockWidget(Qt::LeftDockWidgetArea, m_dock);

    m_barra = new BarraStatus(this);
    setStatusBar(m_barra);
    m_barra->atualizar(m_testeOk);
    m_barra->definirUsuario(sessao().UsuarioNome, QStringLiteral("  Sair"));
    m_aviso = new AvisoPrincipal(m_barra);
    m_barra->addPermanentWidget(m_aviso);
    m_aviso->hide();

    criarMenus();

    // The reminder comes once the window stands, not over an empty screen.
    if (empresa.lida && empresa.semBackup)
        QTimer::singleShot(0, this, &Principal::oferecerBackup);

    m_versao = new VerificaVersao(this);
    connect(m_versao, &VerificaVersao::terminou, this, &Principal::aoVerificar);
    connect(m_aviso, &AvisoPrincipal::encerrar, this, &Principal::encerrarParaAtualizar);
    connect(m_menuLateral, &MenuLateral::relogio, m_barra, &BarraStatus::atualizarData);
    connect(m_menuLateral, &MenuLateral::relogio, this, &Principal::atualizarMenus);
    connect(m_menuLateral, &MenuLateral::usuarioMudou, this, [this] { sessaoMudou(); });
    connect(m_barra, &BarraStatus::usuarioSaiu, this, [this] { sessaoMudou(QString()); });
    auto& avisos = AvisosReconexao::instancia();
    connect(&avisos, &AvisosReconexao::desconectado, this, [this] { m_barra->mostrarDesconectado(); });
    connect(&avisos, &AvisosReconexao::reconectado, this, &Principal::atualizarEmpresa);
    connect(&avisos, &AvisosReconexao::fechada, this, [this] { m_barra->atualizar(m_testeOk); });
    verificarVersao();
}

Principal::~Principal()
{
    if (RegistroTelas::areaMdi() == m_area)
        RegistroTelas::definirAreaMdi(nullptr);
}

void Principal::pintarFundo()
{
    m_area->setBackground(Pintura::corFundo());
}

void Principal::criarMenus()
{
    QHash<QString, QMenu*> menus;
    QHash<QString, QMenu*> submenus;
    for (const Entrada& e : entradas()) {
        QMenu* menu = menus.value(e.menu);
        if (!menu) {
            menu = menuBar()->addMenu(e.tituloMenu);
            menu->setObjectName(e.menu);
            menu->setToolTipsVisible(true);
            connect(menu, &QMenu::aboutToShow, this, &Principal::atualizarMenus);
            menus.insert(e.menu, menu);
        }
        if (!e.submenu.isEmpty()) {
            const QString chave = e.menu + QLatin1Char('/') + e.submenu;
            QMenu* sub = submenus.value(chave);
            if (!sub) {
                sub = menu->addMenu(e.submenu);
                sub->setToolTipsVisible(true);
                connect(sub, &QMenu::aboutToShow, this, &Principal::atualizarMenus);
                submenus.insert(chave, sub);
            }
            menu = sub;
        }
        if (e.acao.nome == QLatin1String("mnusair") || e.acao.nome == QLatin1String("MnuBack"))
            menu->addSeparator();
        QAction* a = menu->addAction(e.acao.texto);
        a->setObjectName(e.acao.nome);
        const Acao acao = e.acao;
        connect(a, &QAction::triggered, this, [this, acao] { acionar(acao); });
        m_acoes.append({a, acao});
    }
    atualizarMenus();
}

void Principal::atualizarMenus()
{
    const QString falta = QStringLiteral("Esta função ainda não está instalada nesta versão.");
    for (const auto& [action, acao] : std::as_const(m_acoes)) {
        const bool pronto = Acoes::disponivel(acao, Acoes::Origem::MenuBarra);
        action->setEnabled(pronto);
        action->setToolTip(pronto ? QString() : falta);
    }
}

void Principal::acionar(const Acao& a)
{
    if (a.tipo != Tipo::Interna) {
        Acoes::executar(a, Acoes::Origem::MenuBarra, this);
        return;
    }
    if (a.alvo == QLatin1String("MenuLateral"))
        mostrarMenuLateral();
    else if (a.alvo == QLatin1String("MnuSic")) {
        m_versaoPedida = true;
        verificarVersao();
    }
    else if (a.alvo == QLatin1String("mnusair"))
        close();
}

void Principal::mostrarMenuLateral()
{
    m_dock->show();
    m_dock->raise();
    m_menuLateral->atualizarItens();
}

void Principal::verificarVersao()
{
    m_versao->iniciar();
}

void Principal::aoVerificar(VerificaVersao::Resultado resultado)
{
    if (resultado == VerificaVersao::Resultado::NovaVersao)
        m_aviso->mostrarNovaVersao(VerificaVersao::versaoInstalada(), m_versao->remota());
    // The check at start is silent; one asked for from the menu always answers.
    if (!m_versaoPedida)
        return;
    m_versaoPedida = false;
    QString texto;
    switch (resultado) {
    case VerificaVersao::Resultado::NovaVersao: return;
    case VerificaVersao::Resultado::SemEndereco:
        texto = QStringLiteral("Nenhum endereço de atualização está configurado neste computador.\n"
                               "Informe-o no arquivo Toldex.ini, seção [Atualizacao], chave Endereco.");
        break;
    case VerificaVersao::Resultado::SemVersaoLocal:
        texto = QStringLiteral("Não foi encontrado o arquivo Versao.txt na pasta do programa; "
                               "a versão instalada não pode ser comparada.");
        break;
    case VerificaVersao::Resultado::Falhou:
        texto = QStringLiteral("Não foi possível consultar o endereço de atualização.\n"
                               "Verifique a conexão com a internet e tente novamente.");
        break;
    case VerificaVersao::Resultado::EmDia:
        texto = QStringLiteral("O Toldex já está na versão mais nova (%1).").arg(VerificaVersao::versaoInstalada());
        break;
    }
    Dialogos::mensagem(this, texto, QStringLiteral("Atualizar Toldex"));
}

void Principal::sessaoMudou(const QString& sufixo)
{
    m_menuLateral->atualizarUsuario();
    m_menuLateral->atualizarItens();
    m_barra->definirUsuario(sessao().UsuarioNome, sufixo);
    atualizarMenus();
}

void Principal::atualizarEmpresa()
{
    const DadosEmpresa empresa = LeEmpresa();
    if (empresa.lida) {
        m_testeOk = empresa.testeOk;
        setWindowTitle(QStringLiteral("[%1] %2").arg(QStringLiteral(TOLDEX_VERSAO), empresa.nomeEmpresa).trimmed());
    }
    pintarFundo();
    m_imagem->carregar();
    m_barra->atualizar(m_testeOk);
    m_menuLateral->atualizarItens();
    atualizarMenus();
}

void Principal::encerrarParaAtualizar()
{
    m_encerrando = true;
    close();
    QCoreApplication::quit();
}

void Principal::abrirBackup()
{
    const Sessao& s = sessao();
    if (!s.servidor())
        Dialogos::mensagem(this, Acoes::mensagemSoServidor(Acoes::Origem::MenuLateral), Titulo, Dialogos::Icone::Aviso);
    else if (s.DireitoBackup != 1)
        RegistroTelas::abrir(QStringLiteral("Negado"));
    else
        Acoes::abrirTela(QStringLiteral("BackupDados"));
}

void Principal::oferecerBackup()
{
    if (Dialogos::pergunta(this, QStringLiteral("Faça o backup do Banco de dados\nDeseja fazer agora?"), Titulo))
        abrirBackup();
}

bool Principal::trabalhoEmAndamento()
{
    // A backup or a restore half done is worse than none: the window waits for it.
    if (Trabalho::emAndamento() == 0)
        return false;
    Dialogos::mensagem(this, QStringLiteral("Há uma cópia ou restauração do banco de dados em andamento.\n"
                                            "Aguarde o fim ou cancele-a antes de sair do programa."),
                       Titulo, Dialogos::Icone::Aviso);
    return true;
}

void Principal::closeEvent(QCloseEvent* evento)
{
    if (trabalhoEmAndamento()) {
        evento->ignore();
        return;
    }
    if (!m_encerrando) {
        if (diasSemBackup() > LimiteDiasBackup
            && Dialogos::pergunta(this, QStringLiteral("O backup já não é feito a mais de um dia,deseja fazer agora ?"), Titulo)) {
            evento->ignore();
            mostrarMenuLateral();
            abrirBackup();
            return;
        }
        if (!Dialogos::pergunta(this, QStringLiteral("Você quer sair do programa ?"), Titulo)) {
            evento->ignore();
            mostrarMenuLateral();
            return;
        }
    }
    // Every screen goes with the main window; they can't outlive it. A screen that stays
    // (its typing not yet saved, a password pending) keeps the program open with it.
    const QStringList nomes = RegistroTelas::nomes();
    for (const QString& n : nomes)
        if (n.compare(QLatin1String("Principal"), Qt::CaseInsensitive) != 0 && !RegistroTelas::fechar(n)) {
            evento->ignore();
            if (QWidget* tela = RegistroTelas::aberta(n))
                tela->activateWindow();
            return;
        }
    evento->accept();
}

TOLDEX_REGISTRA_TELA(Principal)
