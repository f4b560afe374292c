#include "shell/MenuLateral.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTime>
#include <QTimer>
#include <QToolBox>
#include <QVBoxLayout>

#include "data/Sessao.h"
#include "shell/LeEmpresa.h"
#include "shell/ProgramasExternos.h"
#include "ui/RegistroTelas.h"

using Acoes::Acao;
using Acoes::Tipo;

namespace {

Acao tela(const char* texto, const char* direito, const char* alvo, const char* modo = "")
{
    return {QString(), QString::fromUtf8(texto), QString::fromUtf8(direito), false, Tipo::Tela,
            QString::fromUtf8(alvo), QString::fromUtf8(modo)};
}

Acao servidor(const char* texto, const char* alvo)
{
    return {QString(), QString::fromUtf8(texto), QStringLiteral("DireitoBackup"), true, Tipo::Tela,
            QString::fromUtf8(alvo), QString()};
}

Acao programa(const char* texto, const char* direito, const QString& chave)
{
    return {QString(), QString::fromUtf8(texto), QString::fromUtf8(direito), false, Tipo::Programa, chave, QString()};
}

Acao pagina(const char* texto, const QString& chave)
{
    return {QString(), QString::fromUtf8(texto), QString(), false, Tipo::Pagina, chave, QString()};
}

// Without a photo the user is shown by the initials of the name, on a round badge.
QPixmap iniciais(const QString& nome, int lado)
{
    QPixmap p(lado, lado);
    p.fill(Qt::transparent);
    QPainter pintor(&p);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(nome.isEmpty() ? QColor(0x9e, 0x9e, 0x9e) : QColor(0x2e, 0x6d, 0xa4));
    pintor.drawEllipse(p.rect().adjusted(2, 2, -2, -2));
    QString letras;
    const QStringList partes = nome.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& parte : partes)
        if (letras.size() < 2)
            letras += parte.left(1).toUpper();
    QFont f = pintor.font();
    f.setPixelSize(lado * 2 / 5);
    f.setBold(true);
    pintor.setFont(f);
    pintor.setPen(Qt::white);
    pintor.drawText(p.rect(), Qt::AlignCenter, letras.isEmpty() ? QStringLiteral("?") : letras);
    return p;
}

} // namespace

const QList<MenuLateral::Grupo>& MenuLateral::grupos()
{
    using namespace ProgramasExternos;
    static const QList<Grupo> g = {
        {QStringLiteral("Administração"),
         {tela("Cadastro Cheque", "DireitochequeAl", "RegCheque", "Novo"),
          tela("Pesquisa Cheque", "DireitochequeLe", "PesquisaCheque"),
          tela("Receber e Pagar", "DireitoContaLe", "ContaReceber"),
          tela("Movimento Caixa", "DireitoMovimento", "Movimento"),
          tela("Registros", "DireitoRegistro", "RegistrosLogs")}},
        {QStringLiteral("Cliente"),
         {tela("Novo cadastro", "DireitoClienteAl", "Cliente", "Novo"),
          tela("Pesquisa", "DireitoClienteLe", "PesquisaCliente")}},
        {QStringLiteral("Fornecedor"),
         {tela("Novo cadastro", "DireitoFornecedorAl", "Fornecedor", "Novo"),
          tela("Pesquisa", "DireitoFornecedorLe", "PesquisaFornecedor")}},
        {QStringLiteral("Ordem Serviço"),
         {{QString(), QStringLiteral("Novo cadastro"), QStringLiteral("DireitoOsEntAl"), false, Tipo::NovaOs, QString(), QString()},
          tela("O.S Entrada", "DireitoOsEntLe", "PesquisaOs", "Entrada"),
          tela("O.S Saída", "DireitoOsSaiLe", "PesquisaOs", "Saida"),
          tela("O.S Técnico", "DireitoOsTecLe", "PesquisaOs", "Tecnico"),
          tela("O.S Visita", "DireitoOsTecLe", "PesquisaOs", "ListaVisita")}},
        {QStringLiteral("Produto"),
         {tela("Novo cadastro", "DireitoProdutoAl", "Produto", "Novo"),
          tela("Pesquisa", "DireitoProdutoLe", "PesquisaProduto"),
          tela("Pedido", "DireitoPedidoLe", "PedidoMaterial"),
          tela("Controle estoque", "DireitoProdutoLe", "Estoque"),
          tela("Reajuste de preço", "DireitoProdutoLe", "AlteraPreco")}},
        {QStringLiteral("Sistema"),
         {servidor("Backup", "BackupDados"),
          tela("Configurações", "DireitoConfiguracao", "ConfiguraSistema"),
          servidor("Restaurar Backup", "RestauraDados")}},
        {QStringLiteral("Site uteis"),
         {pagina("Site", Site), pagina("Fórum", Forum), pagina("Dicas Defeitos", DicasDefeitos),
          pagina("Esquemas", Esquemas),
          {QString(), QStringLiteral("Favoritos"), QString(), false, Tipo::Mensagem,
           QStringLiteral("Em desenvolvimento,logo estará disponível"), QString()}}},
        {QStringLiteral("Usuário"),
         {tela("Login", "", "Login"), tela("Funcionário", "DireitoFuncionarioLe", "Funcionario")}},
        {QStringLiteral("Utilitário"),
         {tela("Agenda", "", "Agenda"), programa("Bloco Notas", "", Editor), tela("Banco Defeitos", "", "Defeito"),
          programa("Calculadora", "", Calculadora), tela("Teste Backup", "DireitoTesteBackup", "TesteBackup")}},
        {QStringLiteral("Venda"),
         {programa("Caixa", "DireitoVendasLe", PontoVenda), tela("Produto", "DireitoProdutoLe", "PesquisaProduto"),
          tela("Pedido", "DireitoPedidoLe", "PedidoMaterial")}},
    };
    return g;
}

int MenuLateral::grupoInicial(const QString& defineMenu)
{
    bool ok = false;
    const int n = defineMenu.left(2).trimmed().toInt(&ok);
    // "04-Ordem serviço" and the older "4" both name group 4, which is also the choice of
    // a shop that never set it.
    return ok && n >= 1 && n <= grupos().size() ? n : 4;
}

QStringList MenuLateral::opcoesDefineMenu()
{
    return {QStringLiteral("01-Administração"), QStringLiteral("02-Cliente"), QStringLiteral("03-Fornecedor"),
            QStringLiteral("04-Ordem serviço"), QStringLiteral("05-Produto"), QStringLiteral("06-Sistema"),
            QStringLiteral("07-Site uteis"), QStringLiteral("08-Usuário"), QStringLiteral("09-Utilitário")};
}

MenuLateral::MenuLateral(QWidget* pai)
    : QWidget(pai)
{
    setObjectName(QStringLiteral("MenuLateral"));
    auto* l = new QVBoxLayout(this);
    l->setContentsMargins(4, 4, 4, 4);

    m_imagem = new QLabel(this);
    m_imagem->setObjectName(QStringLiteral("ImgUsuario"));
    m_imagem->setAlignment(Qt::AlignCenter);
    m_imagem->setFixedHeight(96);
    m_nome = new QLabel(this);
    m_nome->setObjectName(QStringLiteral("Etiqueta"));
    m_nome->setAlignment(Qt::AlignCenter);
    m_nome->setWordWrap(true);
    QFont f = m_nome->font();
    f.setBold(true);
    m_nome->setFont(f);
    l->addWidget(m_imagem);
    l->addWidget(m_nome);

    m_grupos = new QToolBox(this);
    m_grupos->setObjectName(QStringLiteral("MenuVertical"));
    const auto& gs = grupos();
    for (int g = 0; g < gs.size(); ++g) {
        auto* pagina = new QWidget(m_grupos);
        auto* pl = new QVBoxLayout(pagina);
        pl->setContentsMargins(2, 2, 2, 2);
        pl->setSpacing(2);
        for (int i = 0; i < gs[g].itens.size(); ++i) {
            Acao a = gs[g].itens[i];
            a.nome = nomeItem(g + 1, i + 1);
            auto* b = new QPushButton(a.texto, pagina);
            b->setObjectName(a.nome);
            connect(b, &QPushButton::clicked, this, [this, a] { executar(a); });
            pl->addWidget(b);
            m_itens.append({b, a});
        }
        pl->addStretch(1);
        m_grupos->addItem(pagina, gs[g].titulo);
    }
    l->addWidget(m_grupos, 1);
    const auto titulos = m_grupos->findChildren<QAbstractButton*>(QStringLiteral("qt_toolbox_toolboxbutton"));
    for (QAbstractButton* b : titulos)
        b->installEventFilter(this);

    m_relogio = new QPushButton(this);
    m_relogio->setObjectName(QStringLiteral("Relogio"));
    m_relogio->setFlat(true);
    m_relogio->setFocusPolicy(Qt::NoFocus);
    l->addWidget(m_relogio);

    m_timer = new QTimer(this);
    m_timer->setObjectName(QStringLiteral("Trelogio"));
    m_timer->setInterval(1000);
    connect(m_timer, &QTimer::timeout, this, &MenuLateral::tique);
    connect(m_grupos, &QToolBox::currentChanged, this, &MenuLateral::atualizarItens);
    m_timer->start();

    abrirGrupo(grupoInicial(sessao().CfgDefineMenu));
    atualizarUsuario();
    atualizarItens();
    m_relogio->setText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
}

bool MenuLateral::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::MouseButtonDblClick && Sessao::verdadeiro(sessao().CfgMenuusuario)) {
        // The first click of the two has already opened the group.
        const int g = grupoAberto();
        const QStringList opcoes = opcoesDefineMenu();
        GravaMenuInicial(g <= opcoes.size() ? opcoes.at(g - 1) : QString::number(g));
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

void MenuLateral::abrirGrupo(int grupo)
{
    if (grupo >= 1 && grupo <= m_grupos->count())
        m_grupos->setCurrentIndex(grupo - 1);
}

int MenuLateral::grupoAberto() const { return m_grupos->currentIndex() + 1; }

void MenuLateral::atualizarUsuario()
{
    const Sessao& s = sessao();
    m_usuarioMostrado = s.UsuarioNome;
    m_imagemMostrada = s.UsuarioImagem;
    m_nome->setText(s.UsuarioNome);
    QPixmap foto;
    if (!s.UsuarioImagem.isEmpty() && QFileInfo(s.UsuarioImagem).isFile())
        foto.load(s.UsuarioImagem);
    if (foto.isNull())
        foto = iniciais(s.UsuarioNome, m_imagem->height());
    m_imagem->setPixmap(foto.scaled(m_imagem->height(), m_imagem->height(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void MenuLateral::atualizarItens()
{
    for (const auto& [botao, acao] : std::as_const(m_itens)) {
        const bool pronto = Acoes::disponivel(acao, Acoes::Origem::MenuLateral);
        botao->setEnabled(pronto);
        botao->setToolTip(pronto ? QString() : QStringLiteral("Esta função ainda não está instalada nesta versão."));
    }
}

void MenuLateral::tique()
{
    m_relogio->setText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
    const Sessao& s = sessao();
    if (s.UsuarioNome != m_usuarioMostrado || s.UsuarioImagem != m_imagemMostrada) {
        atualizarUsuario();
        emit usuarioMudou();
    }
    atualizarItens();
    emit relogio();
}

void MenuLateral::executar(const Acao& a)
{
    Acoes::executar(a, Acoes::Origem::MenuLateral, this);
}
