#include "shell/TelaInicial.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "maintenance/LojaExemplo.h"
#include "shell/EntradaUsuario.h"
#include "shell/InstanciaUnica.h"
#include "shell/Programa.h"
#include "shell/ProgramasExternos.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

TelaInicial::TelaInicial(QWidget* pai) : QWidget(pai, Qt::Window)
{
    setWindowTitle(QStringLiteral("Sistema TOLDEX"));
    auto* raiz = new QVBoxLayout(this);
    auto* titulo = new QLabel(QStringLiteral("TOLDEX"), this);
    titulo->setObjectName(QStringLiteral("Label1"));
    QFont f = titulo->font();
    f.setPointSize(f.pointSize() + 10);
    f.setBold(true);
    titulo->setFont(f);
    titulo->setAlignment(Qt::AlignCenter);
    raiz->addWidget(titulo);
    auto* versao = new QLabel(QStringLiteral("Versão %1").arg(QStringLiteral(TOLDEX_VERSAO)), this);
    versao->setObjectName(QStringLiteral("LblVersao"));
    versao->setAlignment(Qt::AlignCenter);
    raiz->addWidget(versao);
    if (LojaExemplo::emUso()) {
        auto* exemplo = new QLabel(QStringLiteral("Loja de exemplo: entre com o usuário %1 e a senha %2.")
                                       .arg(GeradorDados::UsuarioExemplo, GeradorDados::SenhaExemplo), this);
        exemplo->setObjectName(QStringLiteral("LblExemplo"));
        exemplo->setAlignment(Qt::AlignCenter);
        raiz->addWidget(exemplo);
    }
    auto* form = new QFormLayout;
    m_usuario = new QComboBox(this);
    m_usuario->setObjectName(QStringLiteral("CUsuario"));
    m_usuario->setMinimumWidth(240);
    form->addRow(QStringLiteral("Usuário"), m_usuario);
    m_senha = EntradaUsuario::caixaSenha(this, QStringLiteral("TxtSenha"));
    m_senha->installEventFilter(this);
    form->addRow(QStringLiteral("Senha"), m_senha);
    raiz->addLayout(form);
    auto* botoes = new QHBoxLayout;
    auto* entra = new QPushButton(QStringLiteral("&Entrar"), this);
    entra->setObjectName(QStringLiteral("Botao(0)"));
    auto* sai = new QPushButton(QStringLiteral("&Sair"), this);
    sai->setObjectName(QStringLiteral("Botao(1)"));
    botoes->addStretch();
    botoes->addWidget(entra);
    botoes->addWidget(sai);
    raiz->addLayout(botoes);
    auto* contato = new QLabel(QStringLiteral("Suporte: suporte@toldex.com.br"), this);
    contato->setObjectName(QStringLiteral("LblContato"));
    contato->setAlignment(Qt::AlignCenter);
    raiz->addWidget(contato);
    const QString site = ProgramasExternos::endereco(ProgramasExternos::Site);
    auto* web = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(site.toHtmlEscaped()), this);
    web->setObjectName(QStringLiteral("LblSite"));
    web->setAlignment(Qt::AlignCenter);
    connect(web, &QLabel::linkActivated, this,
            [this] { ProgramasExternos::abrirPagina(ProgramasExternos::Site, this); });
    raiz->addWidget(web);
    connect(entra, &QPushButton::clicked, this, &TelaInicial::entrar);
    connect(sai, &QPushButton::clicked, this, &TelaInicial::sair);
    Pintura::pinta(this);
    resize(420, 290);
    carregar();
    if (LojaExemplo::emUso())
        m_usuario->setCurrentIndex(m_usuario->findText(GeradorDados::UsuarioExemplo));
}

TelaInicial::~TelaInicial() = default;

bool TelaInicial::carregar()
{
    Sessao& s = sessao();
    if (!InstanciaUnica::adquirir(s.PastaPrograma.isEmpty() ? Local::pastaPrograma() : s.PastaPrograma)) {
        RegistroTelas::fecharTodas();
        Dialogos::mensagem(nullptr, QStringLiteral("Programa já está aberto"), QStringLiteral("Sistema TOLDEX"),
                           Dialogos::Icone::Critico);
        Programa::encerrar();
        return false;
    }
    if (!Conexoes::configurado())
        Conexoes::configurar(Local::lerConfig());
    m_banco = Conexoes::nova();
    if (!m_banco)
        return false;
    try {
        if (Autenticacao::quantos(*m_banco) == 0)
            primeiroUso();
        carregaUsuarios();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar os usuários,"), e.textoCompleto());
    }
    s.Tentativas = 0;
    return true;
}

void TelaInicial::carregaUsuarios()
{
    m_usuario->clear();
    for (const auto& u : Autenticacao::lista(*m_banco))
        m_usuario->addItem(u.first);
    m_usuario->setCurrentIndex(m_usuario->count() == 1 ? 0 : -1);
}

bool TelaInicial::primeiroUso()
{
    // A new store: whoever installs the program becomes its first user, with every right;
    // the staff are registered by that user afterwards.
    Dialogos::mensagem(this, QStringLiteral("Nenhum usuário está cadastrado.\n"
                                            "Cadastre agora o primeiro usuário, que terá acesso a todas as funções."),
                       QStringLiteral("Primeiro acesso"));
    while (true) {
        const auto nome = Dialogos::entrada(this, QStringLiteral("Nome do primeiro usuário:"), QStringLiteral("Primeiro acesso"));
        if (!nome)
            return false;
        const QString n = nome->trimmed();
        if (n.isEmpty()) {
            Dialogos::mensagem(this, QStringLiteral("Digite o nome do usuário."), QStringLiteral("Primeiro acesso"));
            continue;
        }
        if (n.size() > 50) {
            Dialogos::mensagem(this, QStringLiteral("O nome pode ter no máximo 50 caracteres."), QStringLiteral("Primeiro acesso"));
            continue;
        }
        const auto senha = Dialogos::entrada(this, QStringLiteral("Senha:"), QStringLiteral("Primeiro acesso"), {}, true);
        if (!senha)
            return false;
        if (senha->isEmpty() || senha->size() > EntradaUsuario::MaximoSenha) {
            Dialogos::mensagem(this, QStringLiteral("A senha deve ter de 1 a %1 caracteres.").arg(EntradaUsuario::MaximoSenha),
                               QStringLiteral("Primeiro acesso"));
            continue;
        }
        const auto repete = Dialogos::entrada(this, QStringLiteral("Repita a senha:"), QStringLiteral("Primeiro acesso"), {}, true);
        if (!repete)
            return false;
        if (*repete != *senha) {
            Dialogos::mensagem(this, QStringLiteral("Senha não Confere"), QStringLiteral("Primeiro acesso"));
            continue;
        }
        Autenticacao::criarPrimeiro(*m_banco, n, *senha);
        return true;
    }
}

bool TelaInicial::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_senha) {
        if (e->type() == QEvent::FocusIn && static_cast<QFocusEvent*>(e)->reason() != Qt::ActiveWindowFocusReason
            && static_cast<QFocusEvent*>(e)->reason() != Qt::PopupFocusReason)
            m_senha->clear();
        if (EntradaUsuario::ehEnter(e)) {
            entrar();
            return true;
        }
    }
    return QWidget::eventFilter(alvo, e);
}

void TelaInicial::entrar()
{
    if (!m_banco)
        return;
    const auto r = EntradaUsuario::tentar(this, *m_banco, m_usuario->currentText(), m_senha);
    if (r != EntradaUsuario::Resultado::Entrou)
        return;
    // The start-up opens the main window once this window is gone.
    close();
}

void TelaInicial::sair()
{
    sessao().UsuarioNome.clear();
    Programa::encerrar();
    close();
}

TOLDEX_REGISTRA_TELA(TelaInicial)
