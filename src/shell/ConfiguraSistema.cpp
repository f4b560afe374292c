#include "shell/ConfiguraSistema.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/ArquivoIni.h"
#include "data/Conexoes.h"
#include "data/FuncoesCores.h"
#include "data/FuncoesMascaras.h"
#include "registers/CamposDocumento.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "maintenance/LojaExemplo.h"
#include "shell/AbaRecursos.h"
#include "shell/RecursosAviso.h"
#include "shell/BarraStatus.h"
#include "shell/ConfiguraSistemaDados.h"
#include "shell/LeEmpresa.h"
#include "shell/MenuLateral.h"
#include "shell/Usuarios.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace Dados = ConfiguraSistemaDados;

namespace {
const QString Sair = QStringLiteral("Sa&ir");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString FiltroImagem = QStringLiteral("Imagem (*.bmp *.BMP *.gif *.GIF *.ico *.ICO *.jpg *.JPG *.jpeg *.dib *.png);;"
                                            "Todos arquivos (*)");
const QStringList Documentos = {QStringLiteral("Entrada"), QStringLiteral("Saida"), QStringLiteral("Orcamento"),
                                QStringLiteral("Devolucao")};
const QStringList SufixoModo = {QStringLiteral("Entrada"), QStringLiteral("Saida"), QStringLiteral("Orca"),
                                QStringLiteral("Devo")};
const QStringList Modos = {QStringLiteral("Direto"), QStringLiteral("Abre"), QStringLiteral("Edita")};

constexpr int DigitosContador = 18;  // what a 64-bit counter holds
constexpr int PapelLidos = Qt::UserRole + 1;  // a stored line's texts as read

QString nomeIdx(const QString& base, int i) { return QStringLiteral("%1(%2)").arg(base).arg(i); }

QLineEdit* linha(QWidget* pai, const QString& nome, int maximo = 120)
{
    auto* t = new QLineEdit(pai);
    t->setObjectName(nome);
    t->setMaxLength(maximo);
    return t;
}

// Sizes, days and counters: digits only, typed or pasted.
void soDigitos(QLineEdit* t, int maximo)
{
    t->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,%1}").arg(maximo)), t));
}

QCheckBox* caixa(QWidget* pai, const QString& nome, const QString& texto)
{
    auto* c = new QCheckBox(texto, pai);
    c->setObjectName(nome);
    return c;
}

QString iniChave(const QString& secao, const QString& chave) { return secao + QLatin1Char('/') + chave; }
} // namespace

ConfiguraSistema::ConfiguraSistema(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(QStringLiteral("Configuração do sistema"));
    m_abas = new QTabWidget(this);
    m_abas->setObjectName(QStringLiteral("Tabuleiro"));
    m_abas->setUsesScrollButtons(false);  // every tab name in sight
    m_conectado = sessao().ConexaoOk == 1;
    if (m_conectado) {
        m_abas->addTab(abaEmpresa(), QStringLiteral("Empresa"));
        m_abas->addTab(abaMensagens(), QStringLiteral("Mensagens"));
        m_abas->addTab(abaSistema(), QStringLiteral("Sistema"));
    }
    m_abas->addTab(abaServidor(), QStringLiteral("Servidor"));
    if (m_conectado) {
        m_abas->addTab(abaCores(), QStringLiteral("Cores e imagens"));
        m_abas->addTab(abaImpressao(), QStringLiteral("Impressão"));
        m_abas->addTab(abaDocumentos(), QStringLiteral("Documentos"));
        m_abas->addTab(AbaRecursos::monta(this), QStringLiteral("Recursos"));
        for (int i = 0; i < Dados::catalogos().size(); ++i)
            m_abas->addTab(abaCatalogo(i), QStringList{QStringLiteral("Tipos de aparelho"), QStringLiteral("Marcas"),
                                                      QStringLiteral("Serviços"), QStringLiteral("Defeitos")}[i]);
    }

    auto* botoes = new QHBoxLayout;
    botoes->addStretch();
    for (int i : {0, 1}) {
        m_botao[i] = new QPushButton(i == 0 ? QStringLiteral("&Salvar") : Sair, this);
        m_botao[i]->setObjectName(nomeIdx(QStringLiteral("Botao"), i));
        m_botao[i]->setAutoDefault(false);
        botoes->addWidget(m_botao[i]);
    }
    auto* raiz = new QVBoxLayout(this);
    raiz->addWidget(m_abas, 1);
    raiz->addLayout(botoes);
    connect(m_botao[0], &QPushButton::clicked, this, [this] { salvar(); });
    connect(m_botao[1], &QPushButton::clicked, this, [this] {
        if (m_botao[1]->text() == Cancelar) {
            carrega();
            return;
        }
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->close();
        else
            close();
    });

    // Every entry field marks the screen changed, and Enter moves on.
    for (QLineEdit* t : findChildren<QLineEdit*>()) {
        Campos::enterAvanca(t);
        t->installEventFilter(this);
        if (!t->validator() && !t->isReadOnly() && t->objectName() != QStringLiteral("Text9"))
            Campos::preparaLinha(t, t->objectName().startsWith(QStringLiteral("TxtValor")));
        connect(t, &QLineEdit::textEdited, this, [this] { marcaAlterado(); });
    }
    for (QPlainTextEdit* t : findChildren<QPlainTextEdit*>())
        connect(t, &QPlainTextEdit::textChanged, this, [this] { marcaAlterado(); });
    for (QAbstractButton* b : findChildren<QAbstractButton*>())
        if (qobject_cast<QCheckBox*>(b) || qobject_cast<QRadioButton*>(b))
            connect(b, &QAbstractButton::clicked, this, [this] { marcaAlterado(); });
    resize(1120, 640);
    Pintura::pinta(this);
    if (m_conectado) {
        QString erro;
        m_banco = Conexoes::nova(&erro);
        if (!m_banco) {
            Dialogos::mensagem(this, QStringLiteral("Erro ao na conexão do Banco de Dados,Informe o erro ao suporte."),
                               {}, Dialogos::Icone::Critico);
            m_conectado = false;
        }
    }
    carrega();
}

ConfiguraSistema::~ConfiguraSistema() = default;

// --- tabs ----------------------------------------------------------------------------------

QWidget* ConfiguraSistema::abaEmpresa()
{
    auto* w = new QWidget;
    auto* g = new QGridLayout(w);
    const QStringList rotulos = {QStringLiteral("Nome da empresa"), QStringLiteral("Endereço"), QStringLiteral("Site"),
                                 QStringLiteral("Telefone"),        QStringLiteral("E-mail SAC"), QStringLiteral("Tel. SAC"),
                                 QStringLiteral("E-mail suporte"),  QStringLiteral("Tel. suporte"),
                                 QStringLiteral("E-mail vendas"),   QStringLiteral("Tel. vendas"),
                                 QStringLiteral("CPF/CNPJ"),        QStringLiteral("Inscrição estadual")};
    for (int i = 0; i < rotulos.size(); ++i) {
        g->addWidget(new QLabel(rotulos[i], w), i, 0);
        g->addWidget(linha(w, nomeIdx(QStringLiteral("Text1"), i), i == 10 ? 18 : 120), i, 1);
    }
    auto* cab = new QGroupBox(QStringLiteral("Cabeçalho das fichas"), w);
    auto* gc = new QGridLayout(cab);
    gc->addWidget(new QLabel(QStringLiteral("Linha"), cab), 0, 0);
    gc->addWidget(new QLabel(QStringLiteral("Tamanho"), cab), 0, 3);
    const QStringList linhas = {QStringLiteral("Nome"), QStringLiteral("Endereço"), QStringLiteral("Site"),
                                QStringLiteral("SAC"),  QStringLiteral("Suporte"),  QStringLiteral("Vendas"),
                                QStringLiteral("CPF/CNPJ")};
    for (int i = 0; i < linhas.size(); ++i) {
        gc->addWidget(new QLabel(linhas[i], cab), i + 1, 0);
        gc->addWidget(caixa(cab, nomeIdx(QStringLiteral("Check1"), i), QStringLiteral("Imprimir")), i + 1, 1);
        gc->addWidget(caixa(cab, nomeIdx(QStringLiteral("Check1"), i + 8), QStringLiteral("Negrito")), i + 1, 2);
        auto* t = linha(cab, nomeIdx(QStringLiteral("Tamanho"), i), 2);
        soDigitos(t, 2);
        t->setMaximumWidth(50);
        gc->addWidget(t, i + 1, 3);
    }
    g->addWidget(cab, 0, 2, rotulos.size(), 1, Qt::AlignTop);
    g->setColumnStretch(1, 1);
    g->setRowStretch(rotulos.size(), 1);
    return w;
}

QWidget* ConfiguraSistema::abaMensagens()
{
    auto* w = new QWidget;
    auto* l = new QVBoxLayout(w);
    const QStringList rotulos = {QStringLiteral("Mensagem da ficha de entrada"), QStringLiteral("Mensagem da ficha de saída"),
                                 QStringLiteral("Mensagem da ficha de venda")};
    for (int i = 0; i < 3; ++i) {
        auto* linhaTopo = new QHBoxLayout;
        linhaTopo->addWidget(new QLabel(rotulos[i], w));
        linhaTopo->addStretch();
        linhaTopo->addWidget(caixa(w, nomeIdx(QStringLiteral("Check2"), i), QStringLiteral("Imprimir a mensagem")));
        l->addLayout(linhaTopo);
        auto* t = new QPlainTextEdit(w);
        t->setObjectName(nomeIdx(QStringLiteral("Text2"), i));
        t->setTabChangesFocus(true);
        l->addWidget(t);
    }
    return w;
}

QWidget* ConfiguraSistema::abaSistema()
{
    auto* w = new QWidget;
    auto* f = new QFormLayout(w);
    auto* senha = linha(w, QStringLiteral("Text9"), 40);
    senha->setEchoMode(QLineEdit::Password);
    connect(senha, &QLineEdit::textEdited, this, [this] { m_senhaEditada = true; });
    f->addRow(QStringLiteral("Senha de venda"), senha);
    auto* dia = new QComboBox(w);
    dia->setObjectName(QStringLiteral("ComboDia"));
    dia->setEditable(true);
    for (int i = 1; i <= 30; ++i)
        dia->addItem(QString::number(i));
    soDigitos(dia->lineEdit(), 3);
    f->addRow(QStringLiteral("Dias de aviso"), dia);
    auto* menu = new QComboBox(w);
    menu->setObjectName(QStringLiteral("CMenu"));
    for (int i = 0; i < MenuLateral::grupos().size(); ++i)
        menu->addItem(QStringLiteral("%1-%2").arg(i + 1, 2, 10, QLatin1Char('0')).arg(MenuLateral::grupos()[i].titulo));
    f->addRow(QStringLiteral("Menu lateral abre em"), menu);
    // The whole counter shows: a shop past a million orders must never see it cut.
    auto* os = linha(w, QStringLiteral("TxtOS"), DigitosContador);
    soDigitos(os, DigitosContador);
    f->addRow(QStringLiteral("Contador de O.S"), os);
    f->addRow(QString(), caixa(w, QStringLiteral("AtvOs"), QStringLiteral("Usar o contador de O.S")));
    auto* fab = linha(w, QStringLiteral("TxtOsFabrica"), DigitosContador);
    soDigitos(fab, DigitosContador);
    f->addRow(QStringLiteral("Contador de O.S de fábrica"), fab);
    f->addRow(QString(), caixa(w, QStringLiteral("AtvOsFabrica"), QStringLiteral("Usar o contador de O.S de fábrica")));
    f->addRow(QStringLiteral("Pasta das imagens"), linha(w, QStringLiteral("TxtImagem"), 200));
    const QStringList opcoes = {QStringLiteral("Ordens passam pelo caixa"), QStringLiteral("Digitar em letras maiúsculas"),
                                QStringLiteral("Permitir o usuário definir."),
                                QStringLiteral("Ao clicar em novo cadastro abrir  pesquisa cliente."),
                                QStringLiteral("Abrir cadastro completo.")};
    for (int i = 0; i < opcoes.size(); ++i)
        f->addRow(QString(), caixa(w, nomeIdx(QStringLiteral("Check4"), i + 1), opcoes[i]));
    f->addRow(QString(), caixa(w, QStringLiteral("Check5"), QStringLiteral("Usar a porcentagem do técnico")));
    f->addRow(QString(), caixa(w, QStringLiteral("Check6"), QStringLiteral("Dados nota fiscal")));
    f->addRow(QString(), caixa(w, QStringLiteral("Check7"), QStringLiteral("Escolher os serviços da lista")));
    f->addRow(QString(), caixa(w, QStringLiteral("Check8"), QStringLiteral("Escolher os defeitos da lista")));
    return w;
}

QWidget* ConfiguraSistema::abaServidor()
{
    auto* w = new QWidget;
    auto* l = new QVBoxLayout(w);
    auto* grupo = new QButtonGroup(w);
    for (int i = 0; i < 2; ++i) {
        auto* op = new QRadioButton(i == 0 ? QStringLiteral("Servidor (computador principal)")
                                           : QStringLiteral("Estação de trabalho"), w);
        op->setObjectName(nomeIdx(QStringLiteral("Option1"), i));
        grupo->addButton(op, i);
        l->addWidget(op);
        connect(op, &QRadioButton::clicked, this, [this, i] { escolheServidor(i == 0); });
    }
    auto* texto = new QLabel(w);
    texto->setObjectName(QStringLiteral("LblServidor"));
    texto->setWordWrap(true);
    texto->setMinimumHeight(90);
    l->addWidget(texto);
    auto* f = new QFormLayout;
    f->addRow(QStringLiteral("Nome do servidor"), linha(w, QStringLiteral("TxtServidor"), 60));
    f->addRow(QStringLiteral("Caminho do servidor"), linha(w, QStringLiteral("Text3"), 250));
    l->addLayout(f);
    auto* teste = new QHBoxLayout;
    m_botao[2] = new QPushButton(QStringLiteral("&Testar conexão"), w);
    m_botao[2]->setObjectName(QStringLiteral("Botao(2)"));
    m_botao[2]->setAutoDefault(false);
    connect(m_botao[2], &QPushButton::clicked, this, &ConfiguraSistema::testaConexao);
    auto* resultado = linha(w, QStringLiteral("TxtTesteOk"), 255);
    resultado->setReadOnly(true);
    teste->addWidget(m_botao[2]);
    teste->addWidget(resultado, 1);
    l->addLayout(teste);
    l->addStretch();
    return w;
}

QWidget* ConfiguraSistema::abaCores()
{
    auto* w = new QWidget;
    auto* g = new QGridLayout(w);
    const QStringList textos = {QStringLiteral("Cor do &fundo"), QStringLiteral("Cor dos &campos"),
                                QStringLiteral("Cores &padrão")};
    for (int i = 4; i <= 6; ++i) {
        m_botao[i] = new QPushButton(textos[i - 4], w);
        m_botao[i]->setObjectName(nomeIdx(QStringLiteral("Botao"), i));
        m_botao[i]->setAutoDefault(false);
        g->addWidget(m_botao[i], 0, i - 4);
    }
    connect(m_botao[4], &QPushButton::clicked, this, [this] { escolheCor(0); });
    connect(m_botao[5], &QPushButton::clicked, this, [this] { escolheCor(1); });
    connect(m_botao[6], &QPushButton::clicked, this, &ConfiguraSistema::coresPadrao);
    const QStringList nomes = {QStringLiteral("Logo"), QStringLiteral("ImagemImprimir")};
    const QStringList rotulos = {QStringLiteral("Imagem da tela principal"), QStringLiteral("Imagem das fichas")};
    const QStringList chaves = {QStringLiteral("Foto"), QStringLiteral("FotoImprimir")};
    for (int i = 0; i < 2; ++i) {
        auto* b = new QPushButton(rotulos[i], w);
        b->setObjectName(nomes[i]);
        b->setIconSize(QSize(160, 120));
        b->setMinimumSize(200, 150);
        g->addWidget(b, 1, i * 2, 1, 1);
        auto* caminho = linha(w, QStringLiteral("Txt") + chaves[i], 255);
        caminho->setReadOnly(true);
        g->addWidget(caminho, 2, i * 2, 1, 2);
        const QString chave = chaves[i];
        connect(b, &QPushButton::clicked, this, [this, chave] { escolheImagem(chave); });
    }
    g->setRowStretch(3, 1);
    return w;
}

QWidget* ConfiguraSistema::abaImpressao()
{
    auto* w = new QWidget;
    auto* g = new QGridLayout(w);
    const QStringList fichas = {QStringLiteral("Entrada"), QStringLiteral("Saída"), QStringLiteral("Venda"),
                                QStringLiteral("Visita")};
    g->addWidget(new QLabel(QStringLiteral("Ficha"), w), 0, 0);
    g->addWidget(new QLabel(QStringLiteral("Cópias"), w), 0, 1);
    for (int i = 0; i < 4; ++i) {
        g->addWidget(new QLabel(fichas[i], w), i + 1, 0);
        auto* c = linha(w, nomeIdx(QStringLiteral("Copias"), i), 2);
        soDigitos(c, 2);
        c->setMaximumWidth(50);
        g->addWidget(c, i + 1, 1);
        g->addWidget(caixa(w, nomeIdx(QStringLiteral("Auto"), i), QStringLiteral("Imprimir sem perguntar")), i + 1, 2);
    }
    g->addWidget(caixa(w, QStringLiteral("CheckImpressora"), QStringLiteral("Mostrar a escolha da impressora")), 5, 0, 1, 3);
    g->addWidget(caixa(w, QStringLiteral("CheckLinha"), QStringLiteral("Fichas com linhas")), 6, 0, 1, 3);
    g->addWidget(caixa(w, QStringLiteral("CheckFotoImp"), QStringLiteral("Imagem nas fichas")), 7, 0, 1, 3);
    g->addWidget(caixa(w, QStringLiteral("CheckPDV"), QStringLiteral("Ponto de venda")), 8, 0, 1, 3);
    auto* modo = new QGroupBox(QStringLiteral("Impressão das ordens"), w);
    auto* lm = new QHBoxLayout(modo);
    for (int i = 0; i < 2; ++i) {
        auto* op = new QRadioButton(i == 0 ? QStringLiteral("Impressão padrão") : QStringLiteral("Impressão pelo Word"), modo);
        op->setObjectName(nomeIdx(QStringLiteral("Option2"), i));
        lm->addWidget(op);
    }
    g->addWidget(modo, 9, 0, 1, 3);
    g->setRowStretch(10, 1);
    g->setColumnStretch(2, 1);
    return w;
}

QWidget* ConfiguraSistema::abaDocumentos()
{
    auto* w = new QWidget;
    auto* g = new QGridLayout(w);
    const QStringList rotulos = {QStringLiteral("Entrada"), QStringLiteral("Saída"), QStringLiteral("Orçamento"),
                                 QStringLiteral("Devolução")};
    const QStringList modos = {QStringLiteral("Direto"), QStringLiteral("Com a impressora"), QStringLiteral("Editar antes")};
    for (int i = 0; i < 4; ++i) {
        g->addWidget(new QLabel(rotulos[i], w), i * 2, 0);
        g->addWidget(linha(w, nomeIdx(QStringLiteral("Text15"), i), 255), i * 2, 1);
        auto* b = new QPushButton(QStringLiteral("Localizar..."), w);
        b->setObjectName(nomeIdx(QStringLiteral("Localiza"), i));
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, i] { localizaDocumento(i); });
        g->addWidget(b, i * 2, 2);
        auto* opcoes = new QWidget(w);
        auto* lo = new QHBoxLayout(opcoes);
        lo->setContentsMargins(0, 0, 0, 0);
        for (int j = 0; j < 3; ++j) {
            auto* op = new QRadioButton(modos[j], opcoes);
            op->setObjectName(nomeIdx(QStringLiteral("Option3"), i * 3 + j));
            lo->addWidget(op);
        }
        lo->addStretch();
        g->addWidget(opcoes, i * 2 + 1, 1, 1, 2);
    }
    g->setColumnStretch(1, 1);
    g->setRowStretch(8, 1);
    return w;
}

QWidget* ConfiguraSistema::abaCatalogo(int indice)
{
    const Dados::Catalogo& c = Dados::catalogos()[indice];
    auto* w = new QWidget;
    auto* l = new QVBoxLayout(w);
    auto* campos = new QHBoxLayout;
    for (int k = 0; k < c.colunas.size(); ++k) {
        const Dados::ColunaCatalogo& col = c.colunas[k];
        if (col.tipo == Dados::TipoColuna::Flag) {
            campos->addWidget(caixa(w, nomeIdx(QStringLiteral("Chk") + c.nome, k), col.titulo));
            continue;
        }
        campos->addWidget(new QLabel(col.titulo, w));
        const QString prefixo = col.tipo == Dados::TipoColuna::Dinheiro ? QStringLiteral("TxtValor") : QStringLiteral("Txt");
        auto* t = linha(w, nomeIdx(prefixo + c.nome, k), col.tipo == Dados::TipoColuna::Dinheiro ? 14 : 80);
        campos->addWidget(t, col.tipo == Dados::TipoColuna::Dinheiro ? 0 : 1);
    }
    l->addLayout(campos);
    auto* botoes = new QHBoxLayout;
    const QStringList textos = {QStringLiteral("Adicionar"), QStringLiteral("Alterar"), QStringLiteral("Remover")};
    const QStringList nomes = {QStringLiteral("Adiciona"), QStringLiteral("Altera"), QStringLiteral("Remove")};
    for (int b = 0; b < 3; ++b) {
        auto* bt = new QPushButton(textos[b], w);
        bt->setObjectName(nomes[b] + c.nome);
        bt->setAutoDefault(false);
        botoes->addWidget(bt);
        connect(bt, &QPushButton::clicked, this, [this, indice, b] {
            if (b == 2)
                removeLinha(indice);
            else
                adicionaLinha(indice, b == 1);
        });
    }
    botoes->addStretch();
    botoes->addWidget(new QLabel(QStringLiteral("Pesquisar"), w));
    auto* busca = linha(w, QStringLiteral("Busca") + c.nome, 60);
    connect(busca, &QLineEdit::textChanged, this, [this, indice](const QString& t) { filtraCatalogo(indice, t); });
    botoes->addWidget(busca);
    l->addLayout(botoes);
    auto* grade = new QTableWidget(0, c.colunas.size(), w);
    grade->setObjectName(QStringLiteral("Grade") + c.nome);
    QStringList titulos;
    for (const Dados::ColunaCatalogo& col : c.colunas)
        titulos << col.titulo;
    grade->setHorizontalHeaderLabels(titulos);
    grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    grade->setSelectionMode(QAbstractItemView::SingleSelection);
    grade->horizontalHeader()->setStretchLastSection(true);
    for (int k = 0; k < c.colunas.size(); ++k)
        grade->setColumnWidth(k, c.colunas[k].tipo == Dados::TipoColuna::Texto ? 300 : 120);
    connect(grade, &QTableWidget::cellClicked, this, [this, indice, grade](int r) {
        const Dados::Catalogo& cat = Dados::catalogos()[indice];
        for (int k = 0; k < cat.colunas.size(); ++k) {
            const QString v = grade->item(r, k) ? grade->item(r, k)->text() : QString();
            if (cat.colunas[k].tipo == Dados::TipoColuna::Flag) {
                if (auto* ck = controle<QCheckBox>(nomeIdx(QStringLiteral("Chk") + cat.nome, k)))
                    ck->setChecked(v == QStringLiteral("Sim"));
            } else if (auto* t = controle<QLineEdit>(nomeIdx((cat.colunas[k].tipo == Dados::TipoColuna::Dinheiro
                                                                  ? QStringLiteral("TxtValor") : QStringLiteral("Txt"))
                                                                 + cat.nome, k))) {
                t->setText(v);
            }
        }
    });
    l->addWidget(grade, 1);
    return w;
}

// --- reading and writing -------------------------------------------------------------------

void ConfiguraSistema::carrega()
{
    m_carregando = true;
    const QString arquivo = Local::arquivoIni();
    m_ini = Dados::leIni(arquivo);
    const bool servidor = sessao().servidor() || LeIni(QStringLiteral("Local"), QStringLiteral("Servidor"), arquivo).isEmpty();
    controle<QLineEdit>(QStringLiteral("Text3"))->setText(LeIni(QStringLiteral("Local"), QStringLiteral("Caminho"), arquivo));
    if (m_conectado && m_banco) {
        try {
            const QVariantMap e = Dados::leEmpresa(*m_banco);
            m_lida = e;
            if (auto* aviso = findChild<RecursosAviso*>())
                aviso->carregar(*m_banco);
            for (const Dados::CampoEmpresa& c : Dados::camposEmpresa()) {
                QWidget* w = findChild<QWidget*>(c.controle);
                if (!w)
                    continue;
                if (c.tipo == Dados::TipoCampo::Flag) {
                    Campos::marca(w, e.value(c.coluna).toBool());
                } else if (c.coluna == QStringLiteral("SenhaVenda")) {
                    m_senhaGuardada = e.value(c.coluna).toString();
                    Campos::poeTexto(w, QString());
                    static_cast<QLineEdit*>(w)->setPlaceholderText(m_senhaGuardada.isEmpty() ? QString()
                                                                                          : QStringLiteral("(guardada)"));
                } else {
                    QString v = e.value(c.coluna).toString();
                    if (c.coluna == QLatin1String("CpfCnpj"))
                        v = MascaraCnpjCpf(v);  // kept as digits, shown with its mask
                    if (auto* cb = qobject_cast<QComboBox*>(w); cb && !cb->isEditable() && cb->findText(v) < 0 && !v.isEmpty())
                        cb->addItem(v);
                    Campos::poeTexto(w, e.contains(c.coluna) && v.isEmpty() ? QString() : v);
                    if (!e.contains(c.coluna) && !c.padrao.isEmpty())
                        Campos::poeTexto(w, c.padrao);
                }
            }
            controle<QLineEdit>(QStringLiteral("TxtTesteOk"))->setText(e.value(QStringLiteral("TesteOk")).toString());
            if (!e.isEmpty())
                setWindowTitle(QStringLiteral("Configuração do sistema - %1").arg(e.value(QStringLiteral("NomeEmpresa")).toString()));
        } catch (const ErroBanco& e) {
            Dialogos::mensagem(this, QStringLiteral("Erro ao na conexão do Banco de Dados,Informe o erro ao suporte."),
                               {}, Dialogos::Icone::Critico);
        }
        carregaCatalogos();
        for (int i = 0; i < 4; ++i) {
            controle<QLineEdit>(nomeIdx(QStringLiteral("Copias"), i))
                ->setText(m_ini.value(iniChave(QStringLiteral("Impressao"),
                                               QStringList{"NOsEntrada", "NOsSaida", "Venda", "Visita"}[i])));
            controle<QCheckBox>(nomeIdx(QStringLiteral("Auto"), i))
                ->setChecked(m_ini.value(iniChave(QStringLiteral("Impressao"),
                                                  QStringList{"AutoEntrada", "AutoSaida", "AutoVenda", "AutoVisita"}[i]))
                             == QStringLiteral("1"));
            controle<QLineEdit>(nomeIdx(QStringLiteral("Text15"), i))
                ->setText(m_ini.value(iniChave(QStringLiteral("Impressao"), QStringLiteral("Ordem") + Documentos[i])));
            for (int j = 0; j < 3; ++j)
                controle<QRadioButton>(nomeIdx(QStringLiteral("Option3"), i * 3 + j))
                    ->setChecked(m_ini.value(iniChave(QStringLiteral("Impressao"), Modos[j] + SufixoModo[i])) == QStringLiteral("1"));
        }
        auto umIni = [this](const QString& chave) { return m_ini.value(iniChave(QStringLiteral("Impressao"), chave)) == QStringLiteral("1"); };
        controle<QCheckBox>(QStringLiteral("CheckImpressora"))->setChecked(umIni(QStringLiteral("Autoimpressora")));
        controle<QCheckBox>(QStringLiteral("CheckLinha"))->setChecked(umIni(QStringLiteral("AutoLinha")));
        controle<QCheckBox>(QStringLiteral("CheckFotoImp"))->setChecked(umIni(QStringLiteral("FotoImp")));
        controle<QRadioButton>(QStringLiteral("Option2(0)"))->setChecked(!umIni(QStringLiteral("ImprimeWord")));
        controle<QRadioButton>(QStringLiteral("Option2(1)"))->setChecked(umIni(QStringLiteral("ImprimeWord")));
        controle<QCheckBox>(QStringLiteral("CheckPDV"))
            ->setChecked(m_ini.value(iniChave(QStringLiteral("PDV"), QStringLiteral("PontoVenda"))) == QStringLiteral("1"));
        for (const QString& chave : {QStringLiteral("Foto"), QStringLiteral("FotoImprimir")}) {
            const QString caminho = m_ini.value(iniChave(QStringLiteral("Imagem"), chave));
            controle<QLineEdit>(QStringLiteral("Txt") + chave)->setText(caminho);
            auto* b = controle<QPushButton>(chave == QStringLiteral("Foto") ? QStringLiteral("Logo") : QStringLiteral("ImagemImprimir"));
            b->setIcon(QIcon(QPixmap(caminho)));
        }
    }
    controle<QRadioButton>(nomeIdx(QStringLiteral("Option1"), servidor ? 0 : 1))->setChecked(true);
    escolheServidor(servidor);
    m_senhaEditada = false;
    m_alterado = false;
    m_botao[1]->setText(Sair);
    m_carregando = false;
}

void ConfiguraSistema::carregaCatalogos()
{
    for (const Dados::Catalogo& c : Dados::catalogos()) {
        auto* grade = controle<QTableWidget>(QStringLiteral("Grade") + c.nome);
        QList<Dados::Linha> linhas;
        try {
            linhas = Dados::leCatalogo(*m_banco, c);
        } catch (const ErroBanco& e) {
            // The other tabs still work; the message says which list failed.
            Dialogos::erro(this, QStringLiteral("Erro ao carregar informação DO TEXTO DA GRADE,Informe o erro ao suporte."),
                           e.textoCompleto());
        }
        grade->setRowCount(0);
        m_removidas.remove(c.nome);
        for (const Dados::Linha& l : linhas) {
            const int r = grade->rowCount();
            grade->insertRow(r);
            for (int k = 0; k < c.colunas.size(); ++k) {
                QString v = l.valores.value(k);
                if (c.colunas[k].tipo == Dados::TipoColuna::Flag)
                    v = v == QStringLiteral("-1") ? QStringLiteral("Sim") : QStringLiteral("Não");
                auto* item = new QTableWidgetItem(v);
                if (k == 0) {
                    item->setData(Qt::UserRole, l.chave);
                    item->setData(PapelLidos, l.valores);
                }
                grade->setItem(r, k, item);
            }
        }
    }
}

void ConfiguraSistema::marcaAlterado()
{
    if (m_carregando)
        return;
    m_alterado = true;
    m_botao[1]->setText(Cancelar);
}

void ConfiguraSistema::escolheServidor(bool servidor)
{
    auto* texto = controle<QLabel>(QStringLiteral("LblServidor"));
    auto* nome = controle<QLineEdit>(QStringLiteral("TxtServidor"));
    auto* caminho = controle<QLineEdit>(QStringLiteral("Text3"));
    if (servidor) {
        texto->setText(QStringLiteral(" Este será o computador principal,\nos demais se conectarão a ele.\n"
                                      "Compartilhe a pasta TOLDEX em modo completo.\n"
                                      "ela se encontra na pasta,C:\\Arquivos de programas.\n"
                                      "nos computadores que estão na rede,para que eles,se conecte a este."));
        if (sessao().MaquinaNome.isEmpty())
            sessao().MaquinaNome = NomeComputador();
        nome->setText(sessao().MaquinaNome);
    } else {
        texto->setText(QStringLiteral(" Este computador se conecta ao servidor(Principal),\nDigite o caminho do servidor,\n"
                                      "...Atenção,digite da mesma forma que está escrita..."));
        caminho->setToolTip(QStringLiteral("Atenção,digite da mesma forma que está escrita no SERVIDOR"));
        if (caminho->text().isEmpty())
            caminho->setPlaceholderText(QStringLiteral("\\\\%1\\Toldex").arg(nome->text().isEmpty() ? QStringLiteral("Servidor")
                                                                                                      : nome->text()));
    }
    caminho->setEnabled(!servidor);
}

bool ConfiguraSistema::confereCpfCnpj()
{
    auto* t = controle<QLineEdit>(QStringLiteral("Text1(10)"));
    if (!t)
        return true;
    const ChecagemCnpjCpf r = ChecaCnpjCpf(t->text());
    if (r.tamanhoMaximo > 0)
        t->setMaxLength(r.tamanhoMaximo);
    if (r.texto != t->text())
        t->setText(r.texto);
    if (r.mensagem.isEmpty())
        return true;
    Dialogos::mensagem(this, r.mensagem, {}, Dialogos::Icone::Aviso);
    m_abas->setCurrentIndex(0);
    t->setFocus();
    return false;
}

bool ConfiguraSistema::salvar()
{
    const bool servidor = controle<QRadioButton>(QStringLiteral("Option1(0)"))->isChecked();
    if (m_conectado && m_banco) {
        if (sessao().DireitoConfiguracao != 1) {
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return false;
        }
        if (!confereCpfCnpj() || !AbaRecursos::confere(this))
            return false;
        QVariantMap empresa;
        for (const Dados::CampoEmpresa& c : Dados::camposEmpresa()) {
            QWidget* w = findChild<QWidget*>(c.controle);
            if (c.tipo == Dados::TipoCampo::Flag)
                empresa.insert(c.coluna, Campos::marcado(w));
            else if (c.coluna == QLatin1String("CpfCnpj"))
                empresa.insert(c.coluna, CamposDocumento::paraGravar(Campos::texto(w), MascaraCnpjCpf));
            else
                empresa.insert(c.coluna, Campos::texto(w));
        }
        // Only a hash is kept; a box left alone keeps the password already there.
        const QString senha = controle<QLineEdit>(QStringLiteral("Text9"))->text();
        try {
            empresa.insert(QStringLiteral("SenhaVenda"),
                           !m_senhaEditada ? m_senhaGuardada : senha.isEmpty() ? QString() : Senhas::gerar(senha));
            QMap<QString, Dados::Grade> grades;
            for (const Dados::Catalogo& c : Dados::catalogos()) {
                auto* grade = controle<QTableWidget>(QStringLiteral("Grade") + c.nome);
                QList<Dados::Linha> linhas;
                for (int r = 0; r < grade->rowCount(); ++r) {
                    Dados::Linha l;
                    l.chave = grade->item(r, 0)->data(Qt::UserRole).isValid() ? grade->item(r, 0)->data(Qt::UserRole).toLongLong() : -1;
                    l.lidos = grade->item(r, 0)->data(PapelLidos).toStringList();
                    for (int k = 0; k < c.colunas.size(); ++k) {
                        QString v = grade->item(r, k) ? grade->item(r, k)->text() : QString();
                        if (c.colunas[k].tipo == Dados::TipoColuna::Flag)
                            v = v == QStringLiteral("Sim") ? QStringLiteral("-1") : QStringLiteral("0");
                        l.valores << v;
                    }
                    linhas << l;
                }
                grades.insert(c.nome, {linhas, m_removidas.value(c.nome)});
            }
            // The notices' box writes its columns of the same row, in the same transaction.
            Transacao tr(*m_banco);
            auto* aviso = findChild<RecursosAviso*>();
            if (aviso && !aviso->salvar(*m_banco))
                return false;
            Dados::grava(*m_banco, m_lida, empresa, grades);
            tr.commit();
        } catch (const RegistroAlterado& e) {
            Dialogos::mensagem(this, e.mensagem(), {}, Dialogos::Icone::Aviso);
            return false;
        } catch (const ErroBanco& e) {
            Dialogos::erro(this, QStringLiteral("Erro gravação ,Informe o erro ao suporte."), e.textoCompleto());
            return false;
        }
        RegistroTelas::abrir(QStringLiteral("Gravado"));
    }
    QString erro;
    const QString caminho = servidor ? sessao().CaminhoBanco : controle<QLineEdit>(QStringLiteral("Text3"))->text().trimmed();
    bool ok = Local::gravarPapel(servidor, caminho, &erro);
    if (ok && m_conectado) {
        QMap<QString, QString> v = m_ini;
        const QString imp = QStringLiteral("Impressao");
        for (int i = 0; i < 4; ++i) {
            v[iniChave(imp, QStringList{"NOsEntrada", "NOsSaida", "Venda", "Visita"}[i])] =
                controle<QLineEdit>(nomeIdx(QStringLiteral("Copias"), i))->text();
            v[iniChave(imp, QStringList{"AutoEntrada", "AutoSaida", "AutoVenda", "AutoVisita"}[i])] =
                controle<QCheckBox>(nomeIdx(QStringLiteral("Auto"), i))->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
            v[iniChave(imp, QStringLiteral("Ordem") + Documentos[i])] = controle<QLineEdit>(nomeIdx(QStringLiteral("Text15"), i))->text();
            for (int j = 0; j < 3; ++j)
                v[iniChave(imp, Modos[j] + SufixoModo[i])] =
                    controle<QRadioButton>(nomeIdx(QStringLiteral("Option3"), i * 3 + j))->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
        }
        auto um = [](bool b) { return b ? QStringLiteral("1") : QStringLiteral("0"); };
        v[iniChave(imp, QStringLiteral("Autoimpressora"))] = um(controle<QCheckBox>(QStringLiteral("CheckImpressora"))->isChecked());
        v[iniChave(imp, QStringLiteral("AutoLinha"))] = um(controle<QCheckBox>(QStringLiteral("CheckLinha"))->isChecked());
        v[iniChave(imp, QStringLiteral("FotoImp"))] = um(controle<QCheckBox>(QStringLiteral("CheckFotoImp"))->isChecked());
        v[iniChave(imp, QStringLiteral("ImprimePadrao"))] = um(controle<QRadioButton>(QStringLiteral("Option2(0)"))->isChecked());
        v[iniChave(imp, QStringLiteral("ImprimeWord"))] = um(controle<QRadioButton>(QStringLiteral("Option2(1)"))->isChecked());
        v[iniChave(QStringLiteral("PDV"), QStringLiteral("PontoVenda"))] = um(controle<QCheckBox>(QStringLiteral("CheckPDV"))->isChecked());
        v[iniChave(QStringLiteral("Imagem"), QStringLiteral("Foto"))] = controle<QLineEdit>(QStringLiteral("TxtFoto"))->text();
        v[iniChave(QStringLiteral("Imagem"), QStringLiteral("FotoImprimir"))] =
            controle<QLineEdit>(QStringLiteral("TxtFotoImprimir"))->text();
        ok = Dados::gravaIni(Local::arquivoIni(), v, &erro);
    }
    if (!ok) {
        Dialogos::erro(this, QStringLiteral("Erro gravação ,Informe o erro ao suporte."), erro);
        return false;
    }
    if (m_conectado && m_banco)
        LeEmpresa(*m_banco);
    if (!m_conectado)
        RegistroTelas::abrir(QStringLiteral("Gravado"));
    m_senhaEditada = false;
    m_alterado = false;
    m_botao[1]->setText(Sair);
    return true;
}

void ConfiguraSistema::testaConexao()
{
    if (!salvar())
        return;
    // The sample shop's own store stands whatever its settings say.
    const ConfigBanco cfg = LojaExemplo::emUso() ? LojaExemplo::config() : Local::lerConfig();
    Conexoes::configurar(cfg);
    QString erro;
    std::unique_ptr<Banco> b = Conexoes::nova(&erro);
    auto* caixaTeste = controle<QLineEdit>(QStringLiteral("TxtTesteOk"));
    if (!b) {
        sessao().ConexaoOk = 0;
        caixaTeste->clear();
        return;
    }
    sessao().ConexaoOk = 1;
    try {
        caixaTeste->setText(Dados::leEmpresa(*b).value(QStringLiteral("TesteOk")).toString());
    } catch (const ErroBanco& e) {
        caixaTeste->clear();
        Dialogos::erro(this, QStringLiteral("Erro ao na conexão do Banco de Dados,Informe o erro ao suporte."), e.textoCompleto());
        return;
    }
    if (QWidget* principal = RegistroTelas::aberta(QStringLiteral("Principal")))
        if (auto* barra = principal->findChild<BarraStatus*>())
            barra->atualizar(caixaTeste->text());
    // The user logs in again on the store just reached.
    for (const QString& tela : {QStringLiteral("Login"), QStringLiteral("MenuLateral")})
        if (RegistroTelas::registrada(tela))
            RegistroTelas::abrir(tela);
}

// --- colours, pictures, documents ---------------------------------------------------------

void ConfiguraSistema::repinta()
{
    CarregaCores(Local::arquivoIni());
    Pintura::pinta(this);
    if (QWidget* principal = RegistroTelas::aberta(QStringLiteral("Principal")))
        Pintura::pinta(principal);
}

void ConfiguraSistema::escolheCor(int chave)
{
    const QColor atual = chave == 0 ? sessao().CorFundo : sessao().CorCampo;
    const std::optional<QColor> cor = Dialogos::escolherCor(this, atual);
    if (!cor)
        return;
    GravaIni(QStringLiteral("CorFundo"), QString::number(chave), NumeroDaCor(*cor), Local::arquivoIni());
    repinta();
}

void ConfiguraSistema::coresPadrao()
{
    GravaIni(QStringLiteral("CorFundo"), QStringLiteral("0"), QString(), Local::arquivoIni());
    GravaIni(QStringLiteral("CorFundo"), QStringLiteral("1"), QString(), Local::arquivoIni());
    repinta();
}

void ConfiguraSistema::escolheImagem(const QString& chave)
{
    auto* caminho = controle<QLineEdit>(QStringLiteral("Txt") + chave);
    const std::optional<QString> arquivo = Dialogos::abrirArquivo(this, QStringLiteral("Imagem"), caminho->text(), FiltroImagem);
    if (!arquivo || arquivo->isEmpty())
        return;
    QImageReader leitor(*arquivo);
    const QImage img = leitor.read();
    if (img.isNull()) {
        Dialogos::mensagem(this, QStringLiteral("O arquivo escolhido não é uma imagem que o sistema consiga abrir.\n%1")
                                     .arg(*arquivo), {}, Dialogos::Icone::Aviso);
        return;
    }
    caminho->setText(*arquivo);
    controle<QPushButton>(chave == QStringLiteral("Foto") ? QStringLiteral("Logo") : QStringLiteral("ImagemImprimir"))
        ->setIcon(QIcon(QPixmap::fromImage(img)));
    marcaAlterado();
}

void ConfiguraSistema::localizaDocumento(int i)
{
    auto* t = controle<QLineEdit>(nomeIdx(QStringLiteral("Text15"), i));
    const std::optional<QString> arquivo =
        Dialogos::abrirArquivo(this, QStringLiteral("Documento"), t->text(), QStringLiteral("Arquivos (.doc;docx;) (*.doc *.docx)"));
    if (!arquivo || arquivo->isEmpty())
        return;
    t->setText(*arquivo);
    marcaAlterado();
}

// --- catalogue grids -----------------------------------------------------------------------

void ConfiguraSistema::adicionaLinha(int indice, bool alterar)
{
    const Dados::Catalogo& c = Dados::catalogos()[indice];
    auto* grade = controle<QTableWidget>(QStringLiteral("Grade") + c.nome);
    const int linhaAtual = grade->currentRow();
    if (alterar && linhaAtual < 0) {
        Dialogos::mensagem(this, QStringLiteral("Não tem item"));
        return;
    }
    QStringList valores;
    for (int k = 0; k < c.colunas.size(); ++k) {
        const Dados::ColunaCatalogo& col = c.colunas[k];
        if (col.tipo == Dados::TipoColuna::Flag) {
            valores << (controle<QCheckBox>(nomeIdx(QStringLiteral("Chk") + c.nome, k))->isChecked() ? QStringLiteral("Sim")
                                                                                                     : QStringLiteral("Não"));
            continue;
        }
        const bool dinheiro = col.tipo == Dados::TipoColuna::Dinheiro;
        auto* t = controle<QLineEdit>(nomeIdx((dinheiro ? QStringLiteral("TxtValor") : QStringLiteral("Txt")) + c.nome, k));
        QString v = t->text().trimmed();
        if (k == c.obrigatoria && v.isEmpty()) {
            Dialogos::mensagem(this, c.mensagemObrigatoria);
            t->setFocus();
            return;
        }
        if (dinheiro) {
            const std::optional<QString> d = Dados::textoDinheiro(v);
            if (!d) {
                Dialogos::mensagem(this, QStringLiteral("Valor inválido: digite como 1.234,56"), {}, Dialogos::Icone::Aviso);
                t->setFocus();
                return;
            }
            v = *d;
        }
        valores << v;
    }
    int r = linhaAtual;
    if (!alterar) {
        r = grade->rowCount();
        grade->insertRow(r);
    }
    const QVariant chave = alterar && grade->item(r, 0) ? grade->item(r, 0)->data(Qt::UserRole) : QVariant();
    const QVariant lidos = alterar && grade->item(r, 0) ? grade->item(r, 0)->data(PapelLidos) : QVariant();
    for (int k = 0; k < valores.size(); ++k) {
        auto* item = new QTableWidgetItem(valores[k]);
        if (k == 0 && chave.isValid()) {
            item->setData(Qt::UserRole, chave);
            item->setData(PapelLidos, lidos);
        }
        grade->setItem(r, k, item);
    }
    grade->setCurrentCell(r, 0);
    marcaAlterado();
    if (!alterar) {
        // Ready for the next entry: a list is usually typed in one go.
        QWidget* primeira = nullptr;
        for (int k = 0; k < c.colunas.size(); ++k) {
            const Dados::ColunaCatalogo& col = c.colunas[k];
            if (col.tipo == Dados::TipoColuna::Flag) {
                controle<QCheckBox>(nomeIdx(QStringLiteral("Chk") + c.nome, k))->setChecked(false);
                continue;
            }
            const bool dinheiro = col.tipo == Dados::TipoColuna::Dinheiro;
            auto* t = controle<QLineEdit>(nomeIdx((dinheiro ? QStringLiteral("TxtValor") : QStringLiteral("Txt")) + c.nome, k));
            t->clear();
            if (!primeira)
                primeira = t;
        }
        if (primeira)
            primeira->setFocus();
    }
}

void ConfiguraSistema::removeLinha(int indice)
{
    const Dados::Catalogo& c = Dados::catalogos()[indice];
    auto* grade = controle<QTableWidget>(QStringLiteral("Grade") + c.nome);
    if (grade->rowCount() == 0 || grade->currentRow() < 0) {
        Dialogos::mensagem(this, QStringLiteral("Não tem item"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?")))
        return;
    // Only what the user removes leaves the store; lines added elsewhere meanwhile stay.
    const QVariant chave = grade->item(grade->currentRow(), 0) ? grade->item(grade->currentRow(), 0)->data(Qt::UserRole)
                                                               : QVariant();
    if (chave.isValid())
        m_removidas[c.nome] << chave.toLongLong();
    grade->removeRow(grade->currentRow());
    marcaAlterado();
}

void ConfiguraSistema::filtraCatalogo(int indice, const QString& texto)
{
    // The grid keeps lines not yet saved, so the search hides rows instead of rereading.
    auto* grade = controle<QTableWidget>(QStringLiteral("Grade") + Dados::catalogos()[indice].nome);
    for (int r = 0; r < grade->rowCount(); ++r) {
        QString junto = grade->item(r, 0) ? grade->item(r, 0)->data(Qt::UserRole).toString() : QString();
        for (int k = 0; k < grade->columnCount(); ++k)
            junto += grade->item(r, k) ? grade->item(r, k)->text() : QString();
        grade->setRowHidden(r, !texto.isEmpty() && !junto.contains(texto, Qt::CaseInsensitive));
    }
}

// --- keys and closing ----------------------------------------------------------------------

bool ConfiguraSistema::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::FocusOut && alvo->objectName() == QStringLiteral("Text1(10)") && !m_carregando)
        confereCpfCnpj();
    return QWidget::eventFilter(alvo, e);
}

void ConfiguraSistema::closeEvent(QCloseEvent* e)
{
    // As on every register: Yes saves first, and a refused save keeps the screen open.
    if (m_alterado && Dialogos::pergunta(this, QStringLiteral("Você alterou o registro,deseja salvar ?")) && !salvar()) {
        e->ignore();
        return;
    }
    e->accept();
}

TOLDEX_REGISTRA_TELA(ConfiguraSistema)
