#include "shell/SenhaPde.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "shell/EntradaUsuario.h"
#include "shell/Usuarios.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

SenhaPde::SenhaPde(QWidget* pai) : QWidget(pai, Qt::Window | Qt::WindowStaysOnTopHint)
{
    setWindowTitle(QStringLiteral("Senha"));
    auto* raiz = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    m_usuarios = new QComboBox(this);
    m_usuarios->setObjectName(QStringLiteral("CUsuario"));
    form->addRow(QStringLiteral("Usuário"), m_usuarios);
    m_codigo = new QLineEdit(this);
    m_codigo->setObjectName(QStringLiteral("Text1(0)"));
    Campos::preparaLinha(m_codigo, true);
    m_codigo->installEventFilter(this);
    form->addRow(QStringLiteral("Número"), m_codigo);
    m_nome = new QLabel(this);
    m_nome->setObjectName(QStringLiteral("Label1(1)"));
    form->addRow(QStringLiteral("Nome"), m_nome);
    m_senha = EntradaUsuario::caixaSenha(this, QStringLiteral("Text1(1)"));
    m_senha->installEventFilter(this);
    form->addRow(QStringLiteral("Senha"), m_senha);
    raiz->addLayout(form);
    auto* botoes = new QHBoxLayout;
    auto* ok = new QPushButton(QStringLiteral("&Confirmar"), this);
    ok->setObjectName(QStringLiteral("Botao(0)"));
    auto* cancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    cancelar->setObjectName(QStringLiteral("Botao(1)"));
    botoes->addStretch();
    botoes->addWidget(ok);
    botoes->addWidget(cancelar);
    raiz->addLayout(botoes);
    connect(ok, &QPushButton::clicked, this, &SenhaPde::confirma);
    connect(cancelar, &QPushButton::clicked, this, &SenhaPde::cancela);
    connect(m_usuarios, &QComboBox::activated, this, [this](int i) {
        m_codigo->setText(m_usuarios->itemData(i).toString());
        procuraUsuario();
    });
    Pintura::pinta(this);
    resize(340, 180);

    sessao().Tentativas = 0;
    m_banco = Conexoes::nova();
    if (!m_banco)
        return;
    try {
        for (const auto& u : Autenticacao::lista(*m_banco))
            m_usuarios->addItem(u.first, u.second);
        m_usuarios->setCurrentIndex(-1);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar os usuários,"), e.textoCompleto());
    }
}

SenhaPde::~SenhaPde() = default;

bool SenhaPde::eventFilter(QObject* alvo, QEvent* e)
{
    if (EntradaUsuario::ehEnter(e) && (alvo == m_codigo || alvo == m_senha)) {
        if (alvo == m_codigo)
            procuraUsuario();
        else
            verificaSenha();
        return true;
    }
    return QWidget::eventFilter(alvo, e);
}

void SenhaPde::procuraUsuario()
{
    if (!m_banco)
        return;
    const QString texto = m_codigo->text();
    if (texto.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Digite seu numero de cadastro"));
        m_codigo->setFocus();
        return;
    }
    m_chave = -1;
    bool ok = false;
    const qint64 codigo = texto.toLongLong(&ok);
    try {
        Recordset rs(*m_banco);
        if (ok)
            rs.abrir(QStringLiteral("Usuario"), QStringLiteral("CodUsuario = ?"), {codigo});
        if (!ok || rs.eof() || rs.texto(QStringLiteral("NomeUsuario")).isEmpty()) {
            m_nome->setText(QStringLiteral("Usuário errado"));
            return;
        }
        m_chave = rs.chaveAtual();
        m_nome->setText(rs.texto(QStringLiteral("NomeUsuario")));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o usuário,"), e.textoCompleto());
        return;
    }
    m_senha->setFocus();
}

void SenhaPde::confirma()
{
    if (m_nome->text().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Escolha um usuário"));
        m_usuarios->showPopup();
        return;
    }
    verificaSenha();
}

void SenhaPde::verificaSenha()
{
    if (!m_banco)
        return;
    Sessao& s = sessao();
    try {
        Recordset rs(*m_banco);
        if (m_chave >= 0)
            rs.abrir(QStringLiteral("Usuario"), QStringLiteral("Chave = ?"), {m_chave});
        if (m_chave < 0 || rs.eof()) {
            EntradaUsuario::pedeUsuario(this);
            return;
        }
        if (!Senhas::confere(m_senha->text(), rs.valor(QStringLiteral("Senha")))) {
            EntradaUsuario::senhaErrada(m_senha);
            return;
        }
        // Whoever gave the password acts with their own rights from now on.
        DireitosUsuario::carregarNoUso(rs, s);
        s.UsuarioNome = rs.texto(QStringLiteral("NomeUsuario"));
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(this, QStringLiteral("Sem registro\n") + e.textoCompleto(),
                           QStringLiteral("Erro ao excluir o formulario"), Dialogos::Icone::Critico);
        return;
    }
    s.SenhaLiberada = 1;
    m_liberou = true;
    const QString origem = s.SenhaOrigem;
    close();
    if (origem == QLatin1String("LiberaAltOs")) {
        s.LiberaAltOs = 1;
        return;
    }
    // The guarded screen goes on by itself; a word with no screen behind it ("Cheque")
    // only checks the password.
    AcoesSenha::executar(origem);
}

void SenhaPde::cancela()
{
    close();
}

void SenhaPde::closeEvent(QCloseEvent* e)
{
    // A password given stays good until the notice of the save or deletion closes it.
    if (!m_liberou)
        sessao().SenhaLiberada = 0;
    e->accept();
}

TOLDEX_REGISTRA_TELA(SenhaPde)
