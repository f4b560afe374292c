#include "shell/Login.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "shell/EntradaUsuario.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
// The main window follows the session (menus, side menu, status bar) through this slot.
void avisaPrincipal(const QString& sufixo)
{
    if (QWidget* p = RegistroTelas::aberta(QStringLiteral("Principal")))
        QMetaObject::invokeMethod(p, "sessaoMudou", Q_ARG(QString, sufixo));
}
} // namespace

Login::Login(QWidget* pai) : QWidget(pai, Qt::Window)
{
    setWindowTitle(QStringLiteral("Login"));
    auto* raiz = new QVBoxLayout(this);
    raiz->addWidget(new QLabel(QStringLiteral("Usuário"), this));
    m_lista = new QListWidget(this);
    m_lista->setObjectName(QStringLiteral("ListaUs"));
    raiz->addWidget(m_lista, 1);
    raiz->addWidget(new QLabel(QStringLiteral("Senha"), this));
    m_senha = EntradaUsuario::caixaSenha(this, QStringLiteral("TSenha"));
    m_senha->installEventFilter(this);
    raiz->addWidget(m_senha);
    auto* botoes = new QHBoxLayout;
    auto* entra = new QPushButton(QStringLiteral("&Entrar"), this);
    entra->setObjectName(QStringLiteral("Log(0)"));
    auto* sai = new QPushButton(QStringLiteral("&Sair"), this);
    sai->setObjectName(QStringLiteral("Log(1)"));
    sai->setToolTip(QStringLiteral("Desativa o usuário atual"));
    botoes->addStretch();
    botoes->addWidget(entra);
    botoes->addWidget(sai);
    raiz->addLayout(botoes);
    connect(entra, &QPushButton::clicked, this, &Login::entrar);
    connect(sai, &QPushButton::clicked, this, &Login::sair);
    Pintura::pinta(this);
    resize(320, 340);

    m_banco = Conexoes::nova();
    if (m_banco) {
        try {
            for (const auto& u : Autenticacao::lista(*m_banco))
                m_lista->addItem(u.first);
        } catch (const ErroBanco& e) {
            Dialogos::erro(this, QStringLiteral("Erro ao carregar os usuários,"), e.textoCompleto());
        }
    }
    sessao().Tentativas = 0;
}

Login::~Login() = default;

bool Login::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_senha && EntradaUsuario::ehEnter(e)) {
        entrar();
        return true;
    }
    return QWidget::eventFilter(alvo, e);
}

void Login::entrar()
{
    if (!m_banco)
        return;
    const QString nome = m_lista->currentItem() ? m_lista->currentItem()->text() : QString();
    if (EntradaUsuario::tentar(this, *m_banco, nome, m_senha) != EntradaUsuario::Resultado::Entrou)
        return;
    entrou();
}

void Login::entrarAoNegar()
{
    if (!m_banco)
        return;
    if (!m_lista->currentItem()) {
        Dialogos::mensagem(this, QStringLiteral("Selecione um usuário"), QStringLiteral("Usuário"));
        return;
    }
    try {
        if (Autenticacao::entrar(*m_banco, m_lista->currentItem()->text(), m_senha->text(), sessao())
            == Autenticacao::Resultado::Entrou) {
            entrou();
            return;
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar os usuários,"), e.textoCompleto());
    }
    m_senha->setFocus();
    m_senha->selectAll();
}

void Login::entrou()
{
    avisaPrincipal(QStringLiteral(" Sair"));
    // The leave closed them; the new user gets them back.
    RegistroTelas::abrir(QStringLiteral("BuscaRapida"));
    RegistroTelas::abrir(QStringLiteral("Pendencia"));
    close();
}

void Login::sair()
{
    Sessao& s = sessao();
    s.zerarDireitos();
    s.UsuarioNome.clear();
    s.TecnicoNome.clear();
    s.UsuarioImagem = QDir(Local::pastaPrograma()).filePath(QStringLiteral("Toldex.ico"));
    m_senha->clear();
    RegistroTelas::fechar(QStringLiteral("Pendencia"));
    RegistroTelas::fechar(QStringLiteral("BuscaRapida"));
    avisaPrincipal(QString());
}

TOLDEX_REGISTRA_TELA(Login)
