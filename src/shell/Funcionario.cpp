#include "shell/Funcionario.h"

#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "shell/EntradaUsuario.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/FotoCadastro.h"
#include "ui/RegistroTelas.h"

namespace {
constexpr int MaximoSenha = EntradaUsuario::MaximoSenha;

// Labels of the rights, by the index of their pair of boxes.
const char* const Rotulos[] = {"Cliente", "Fornecedor", "Funcionário", "O.S entrada", "O.S saída", "O.S Técnico",
                               "Produto", "PDV", "Pedido", nullptr, "Cheque", "Contas Receber", nullptr};
const char* const RotulosSistema[] = {"Backup", "Configurações", "Teste Backup", "Movimento", "Registro"};
} // namespace

Funcionario::Funcionario(QWidget* pai) : TelaCadastro(pai)
{
    auto* raiz = new QHBoxLayout(corpo());
    auto* esquerda = new QVBoxLayout;
    auto* form = new QFormLayout;
    m_codigo = new QLabel(corpo());
    m_codigo->setObjectName(QStringLiteral("Label2(0)"));
    form->addRow(QStringLiteral("Código"), m_codigo);
    const QStringList rotulos = {"Nome", "Sobrenome", "Endereço", "Telefone", "Celular", "Senha", "Repita a senha", "Função"};
    for (int i = 0; i < rotulos.size(); ++i) {
        auto* t = new QLineEdit(corpo());
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        form->addRow(rotulos[i], t);
        m_texto << t;
    }
    m_texto[0]->setMaxLength(50);
    for (int i : {5, 6}) {
        m_texto[i]->setEchoMode(QLineEdit::Password);
        m_texto[i]->setMaxLength(MaximoSenha + 1);  // one over, so a longer one is told, not cut
    }
    m_obs = new QPlainTextEdit(corpo());
    m_obs->setObjectName(QStringLiteral("Text1(8)"));
    m_obs->setMaximumHeight(70);
    form->addRow(QStringLiteral("Observação"), m_obs);
    esquerda->addLayout(form);

    auto* foto = new QHBoxLayout;
    m_imagem = new QLabel(corpo());
    m_imagem->setObjectName(QStringLiteral("ImgUsuario"));
    m_imagem->setFixedSize(160, 120);
    m_imagem->setFrameShape(QFrame::Box);
    m_imagem->setAlignment(Qt::AlignCenter);
    m_imagem->setToolTip(QStringLiteral("Clique para escolher uma imagem"));
    m_imagem->installEventFilter(this);
    foto->addWidget(m_imagem);
    m_caminhoImagem = new QLineEdit(corpo());
    m_caminhoImagem->setObjectName(QStringLiteral("TxtImagem"));
    m_caminhoImagem->setReadOnly(true);
    foto->addWidget(m_caminhoImagem, 1, Qt::AlignBottom);
    esquerda->addLayout(foto);
    raiz->addLayout(esquerda, 1);

    auto* direitos = new QGroupBox(QStringLiteral("Direitos"), corpo());
    auto* grade = new QGridLayout(direitos);
    grade->addWidget(new QLabel(QStringLiteral("Somente ler"), direitos), 0, 1);
    grade->addWidget(new QLabel(QStringLiteral("Ler,alterar,excluir"), direitos), 0, 2);
    int linha = 1;
    for (int i = 0; i < 13; ++i) {
        auto* le = new QCheckBox(direitos);
        le->setObjectName(QStringLiteral("Check1(%1)").arg(i));
        auto* al = new QCheckBox(direitos);
        al->setObjectName(QStringLiteral("Check2(%1)").arg(i));
        m_ler << le;
        m_alterar << al;
        if (i == 9) {
            le->setText(QStringLiteral("Excluir registro permanentemente."));
            al->setText(QStringLiteral("Pedir senha ao alterar um registro."));
            grade->addWidget(le, linha++, 0, 1, 3);
            grade->addWidget(al, linha++, 0, 1, 3);
        } else if (i == 12) {
            grade->addWidget(new QLabel(QStringLiteral("Alterar \"O.S\" depis do orçamento ou entrega."), direitos), linha++, 0, 1, 3);
            le->setText(QStringLiteral("Orçamento"));
            al->setText(QStringLiteral("Entrega"));
            grade->addWidget(le, linha, 1);
            grade->addWidget(al, linha++, 2);
        } else {
            grade->addWidget(new QLabel(QString::fromUtf8(Rotulos[i]), direitos), linha, 0);
            grade->addWidget(le, linha, 1, Qt::AlignHCenter);
            grade->addWidget(al, linha++, 2, Qt::AlignHCenter);
        }
    }
    auto* sistema = new QGroupBox(QStringLiteral("Sistema."), corpo());
    auto* ls = new QGridLayout(sistema);
    for (int i = 0; i < 5; ++i) {
        auto* c = new QCheckBox(QString::fromUtf8(RotulosSistema[i]), sistema);
        c->setObjectName(QStringLiteral("Check3(%1)").arg(i));
        ls->addWidget(c, i / 3, i % 3);
        m_sistema << c;
    }
    auto* direita = new QVBoxLayout;
    direita->addWidget(direitos);
    direita->addWidget(sistema);
    direita->addStretch();
    raiz->addLayout(direita);

    adicionaBotao(QStringLiteral("&Fechar"));                         // 2
    auto* anterior = adicionaBotao(QStringLiteral("<<"), QStringLiteral("Registro anterior"));  // 3
    auto* proximo = adicionaBotao(QStringLiteral(">>"), QStringLiteral("Próximo registro"));    // 4
    auto* webcam = adicionaBotao(QStringLiteral("WebCam"), QStringLiteral("Liga ou desliga a câmera"));  // 5
    auto* previa = adicionaBotao(QStringLiteral("Imagem"), QStringLiteral("Mostra a imagem da câmera"));  // 6
    auto* captura = adicionaBotao(QStringLiteral("Capturar"), QStringLiteral("Tira a foto"));           // 7
    definirBotaoFechar(2);
    connect(anterior, &QPushButton::clicked, this, [this] { irAnterior(); });
    connect(proximo, &QPushButton::clicked, this, [this] { irProximo(); });
    connect(webcam, &QPushButton::clicked, this, &Funcionario::alternaCamera);
    m_foto = new FotoCadastro(this, m_imagem, m_caminhoImagem, 90);
    connect(previa, &QPushButton::clicked, m_foto, &FotoCadastro::retomaPrevia);
    connect(captura, &QPushButton::clicked, this, &Funcionario::tiraFoto);

    def().tabela = QStringLiteral("Usuario");
    def().titulo = QStringLiteral("Cadastro de funcionário");
    def().colunaCodigo = QStringLiteral("CodUsuario");
    def().soVivos = false;
    def().exclusaoSempreFisica = true;
    // Whoever may only read users could otherwise give himself every right.
    def().direito = QStringLiteral("DireitoFuncionarioAl");
    def().senhaOrigem = QStringLiteral("Funcionario");
    def().obrigatorio = m_texto[0];
    def().mensagemObrigatorio = QStringLiteral("Coloque o nome do funcionário");
    using T = CampoCadastro::Tipo;
    campos() = {{m_codigo, QStringLiteral("CodUsuario"), T::Exibicao},
                {m_texto[0], QStringLiteral("NomeUsuario"), T::Texto},
                {m_texto[1], QStringLiteral("Sobrenome"), T::Texto},
                {m_texto[2], QStringLiteral("Endereco"), T::Texto},
                {m_texto[3], QStringLiteral("Telefone"), T::Texto},
                {m_texto[4], QStringLiteral("Celular"), T::Texto},
                {m_texto[5], QString(), T::Texto},   // the password: written as a hash below
                {m_texto[6], QString(), T::Texto},
                {m_texto[7], QStringLiteral("Funcao"), T::Texto},
                {m_obs, QStringLiteral("Observacao"), T::Texto},
                {m_caminhoImagem, QStringLiteral("ImgFuncionario"), T::Texto}};
    const auto& pares = DireitosUsuario::pares();
    for (int i = 0; i < pares.size(); ++i) {
        campos().append({m_ler[i], pares[i].first, T::Flag});
        campos().append({m_alterar[i], pares[i].second, T::Flag});
    }
    for (int i = 0; i < m_sistema.size(); ++i)
        campos().append({m_sistema[i], DireitosUsuario::sistema()[i], T::Flag});
    iniciar();
    resize(900, 560);
}

Funcionario::~Funcionario() = default;

bool Funcionario::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_imagem && e->type() == QEvent::MouseButtonPress) {
        escolheImagem();
        return true;
    }
    if ((alvo == m_texto.value(5) || alvo == m_texto.value(6)) && e->type() == QEvent::FocusOut)
        conferenciaSenha();
    return TelaCadastro::eventFilter(alvo, e);
}

void Funcionario::conferenciaSenha()
{
    const QString a = m_texto[5]->text();
    const QString b = m_texto[6]->text();
    if (a.isEmpty() || b.isEmpty() || a == b)
        return;
    Dialogos::mensagem(this, QStringLiteral("Senha não Confere"));
    m_texto[5]->clear();
    m_texto[6]->clear();
    m_texto[5]->setFocus();
}

void Funcionario::limpaCampos()
{
    TelaCadastro::limpaCampos();
    m_imagem->clear();
}

void Funcionario::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    // A right left empty by an older store opens, as at the login: the boxes say so.
    const auto& pares = DireitosUsuario::pares();
    for (int i = 0; i < pares.size(); ++i) {
        m_ler[i]->setChecked(DireitosUsuario::valor(rs.valor(pares[i].first)) == 1);
        m_alterar[i]->setChecked(DireitosUsuario::valor(rs.valor(pares[i].second)) == 1);
    }
    for (int i = 0; i < m_sistema.size(); ++i)
        m_sistema[i]->setChecked(DireitosUsuario::valor(rs.valor(DireitosUsuario::sistema()[i])) == 1);
    // The stored password is a hash: the boxes stay empty, and empty keeps it.
    m_texto[5]->clear();
    m_texto[6]->clear();
    mostraImagem(rs.texto(QStringLiteral("ImgFuncionario")));
}

bool Funcionario::validaAntesDeGravar()
{
    const QString a = m_texto[5]->text();
    if (a != m_texto[6]->text()) {
        // Typed in one box only, or different: either way the two don't match.
        Dialogos::mensagem(this, QStringLiteral("Senha não Confere"));
        m_texto[5]->clear();
        m_texto[6]->clear();
        m_texto[5]->setFocus();
        return false;
    }
    // The login refuses an empty password, so a user saved without one could never enter.
    const bool semSenhaGuardada = novo()
        || banco()->escalar(QStringLiteral("SELECT Senha FROM Usuario WHERE Chave = ?"), {chaveAtual()}).toString().isEmpty();
    if (a.isEmpty() && semSenhaGuardada) {
        Dialogos::mensagem(this, QStringLiteral("Informe a senha do usuário."));
        m_texto[5]->setFocus();
        return false;
    }
    if (a.size() > MaximoSenha) {
        Dialogos::mensagem(this, QStringLiteral("A senha pode ter no máximo %1 caracteres.").arg(MaximoSenha));
        m_texto[5]->setFocus();
        return false;
    }
    return true;
}

QString Funcionario::impedimentoAoGravar()
{
    constexpr int Funcionarios = 2;  // the pair FuncionarioLe / FuncionarioAl
    if (!novo() && !m_alterar[Funcionarios]->isChecked()
        && DireitosUsuario::ultimoQueAlteraUsuarios(*banco(), chaveAtual()))
        return DireitosUsuario::mensagemUltimoQueAltera();
    return {};
}

bool Funcionario::validaAntesDeExcluir()
{
    // Told before the question; asked again when the row goes, as the users stand then.
    const QString motivo = impedimentoAoExcluir();
    if (motivo.isEmpty())
        return true;
    Dialogos::mensagem(this, motivo, {}, Dialogos::Icone::Aviso);
    return false;
}

QString Funcionario::impedimentoAoExcluir()
{
    return DireitosUsuario::ultimoQueAlteraUsuarios(*banco(), chaveAtual()) ? DireitosUsuario::mensagemUltimoQueAltera()
                                                                              : QString();
}

void Funcionario::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    const auto& pares = DireitosUsuario::pares();
    for (int i = 0; i < pares.size(); ++i) {
        // The two special pairs are written as they stand; the others follow the rule
        // that a change right implies reading.
        if (i == 9 || i == 12)
            continue;
        const auto v = DireitosUsuario::valoresDoPar(m_ler[i]->isChecked(), m_alterar[i]->isChecked());
        rs.definir(pares[i].first, v.first);
        rs.definir(pares[i].second, v.second);
    }
    const QString senha = m_texto[5]->text();
    if (!senha.isEmpty())
        rs.definir(QStringLiteral("Senha"), Senhas::gerar(senha));
    else if (novo())
        rs.definir(QStringLiteral("Senha"), QString());
}

void Funcionario::mostraImagem(const QString& caminho)
{
    m_foto->mostra(caminho);
}

void Funcionario::escolheImagem()
{
    if (!m_texto[0]->isEnabled())
        return;
    if (m_foto->escolheArquivo(FotoCadastro::pasta()))
        marcaAlterado();
}

void Funcionario::alternaCamera()
{
    m_foto->alternaCamera(botao(5));
}

void Funcionario::tiraFoto()
{
    if (m_foto->tiraFoto(QDir(FotoCadastro::pasta()).filePath(m_codigo->text() + m_texto[0]->text() + QStringLiteral(".Jpg"))))
        marcaAlterado();
}

TOLDEX_REGISTRA_TELA(Funcionario)
