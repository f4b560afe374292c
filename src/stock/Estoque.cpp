#include "stock/Estoque.h"

#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "data/ErroBanco.h"
#include "data/PaginasBusca.h"
#include "data/Sessao.h"
#include "documents/MenuImpressao.h"
#include "documents/Visualizador.h"
#include "shell/Acoes.h"
#include "stock/ListaEstoque.h"
#include "stock/RelatorioEstoque.h"
#include "ui/Dialogos.h"
#include "ui/GradeBotoes.h"
#include "ui/ModeloPesquisa.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

// The search grid's model, painted while a level filter stands.
class ModeloEstoque : public ModeloPesquisa {
public:
    using ModeloPesquisa::ModeloPesquisa;
    void pintar(bool p) { m_pintada = p; }
    QVariant data(const QModelIndex& i, int papel) const override
    {
        if (papel == Qt::BackgroundRole && m_pintada && i.isValid() && !temConvite())
            return ListaEstoque::CorNivel;
        return ModeloPesquisa::data(i, papel);
    }

private:
    bool m_pintada = false;
};

namespace {

const QString TituloTela = QStringLiteral("Estoque geral de produtos");

QStringList nomesColunas()
{
    QStringList n;
    for (const ListaEstoque::Coluna& c : ListaEstoque::colunas())
        n << c.coluna;
    return n;
}

bool temDireito()
{
    if (sessao().DireitoProdutoAl == 1)
        return true;
    RegistroTelas::abrir(QStringLiteral("Negado"));
    return false;
}

} // namespace

Estoque::Estoque(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("Estoque"));
    setWindowTitle(TituloTela);
    auto* raiz = new QVBoxLayout(this);

    auto* busca = new QHBoxLayout;
    m_campo = new QComboBox(this);
    m_campo->setObjectName(QStringLiteral("CBusca"));
    for (const ListaEstoque::Campo& c : ListaEstoque::campos())
        m_campo->addItem(c.rotulo);
    m_texto = new QLineEdit(this);
    m_texto->setObjectName(QStringLiteral("TxtBusca"));
    m_texto->setMaxLength(100);
    m_filtrar = new QRadioButton(QStringLiteral("Filtrar pesquisa."), this);
    m_filtrar->setObjectName(QStringLiteral("OptPesquisa(0)"));
    m_filtrar->setChecked(true);
    m_localizar = new QRadioButton(QStringLiteral("Localizar na lista."), this);
    m_localizar->setObjectName(QStringLiteral("OptPesquisa(1)"));
    busca->addWidget(m_campo);
    busca->addWidget(m_texto, 1);
    busca->addWidget(m_filtrar);
    busca->addWidget(m_localizar);
    raiz->addLayout(busca);

    m_modelo = new ModeloEstoque(this);
    QList<ModeloPesquisa::Coluna> colunas;
    for (const ListaEstoque::Coluna& c : ListaEstoque::colunas())
        colunas << ModeloPesquisa::Coluna{c.coluna, c.titulo};
    m_modelo->defineColunas(colunas, [](const QString& coluna, const QVariant& v) {
        return ListaEstoque::textoCelula(ListaEstoque::colunas().at(ListaEstoque::indiceColuna(coluna)), v);
    });
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setModel(m_modelo);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->verticalHeader()->setDefaultSectionSize(20);
    m_grade->verticalHeader()->hide();
    for (int c = 0; c < ListaEstoque::colunas().size(); ++c)
        m_grade->setColumnWidth(c, ListaEstoque::colunas().at(c).largura);
    m_grade->installEventFilter(this);
    raiz->addWidget(m_grade, 1);

    const QStringList legendas = {"&Incluir",         "&Mostrar todos",  "Im&primir",       "&Excel",
                                  "&Buscar",          "&Saída produto",  "&Alterar preço",  "Estoque &zerado",
                                  "Estoque mí&nimo",  "Acima do mínim&o", "Sai&r"};
    QGridLayout* botoes = nullptr;
    m_botoes = GradeBotoes::criar(this, legendas, 6, &botoes);
    raiz->addLayout(botoes);

    connect(m_botoes[0], &QPushButton::clicked, this, &Estoque::incluiProduto);
    connect(m_botoes[1], &QPushButton::clicked, this, &Estoque::mostraTodos);
    MenuImpressao::preparar(m_botoes[2], [this](Destino::Tipo d) { imprime(d); });
    connect(m_botoes[3], &QPushButton::clicked, this, &Estoque::exporta);
    connect(m_botoes[4], &QPushButton::clicked, this, &Estoque::busca);
    connect(m_botoes[5], &QPushButton::clicked, this, [] { RegistroTelas::abrir(QStringLiteral("SaidaProduto")); });
    connect(m_botoes[6], &QPushButton::clicked, this, [] { RegistroTelas::abrir(QStringLiteral("AlteraPreco")); });
    connect(m_botoes[7], &QPushButton::clicked, this, [this] { filtra(Filtro::Vazio); });
    connect(m_botoes[8], &QPushButton::clicked, this, [this] { filtra(Filtro::AteMinimo); });
    connect(m_botoes[9], &QPushButton::clicked, this, [this] { filtra(Filtro::AcimaMinimo); });
    connect(m_botoes[10], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    connect(m_texto, &QLineEdit::returnPressed, this, &Estoque::busca);
    connect(m_grade, &QTableView::clicked, this, [this](const QModelIndex& i) { abreProduto(i.row()); });
    connect(m_modelo, &ModeloPesquisa::contou, this, &Estoque::atualizaTitulo);
    connect(m_modelo, &ModeloPesquisa::falhou, this, [this](const QString& m) {
        Dialogos::mensagem(this, m, QStringLiteral("Estoque"), Dialogos::Icone::Aviso);
    });
    // A screen another part of the system builds may be missing from this installation.
    m_botoes[0]->setEnabled(RegistroTelas::registrada(QStringLiteral("Produto")));
    m_botoes[6]->setEnabled(RegistroTelas::registrada(QStringLiteral("AlteraPreco")));

    resize(1100, 600);
    Pintura::pinta(this);
    QString erro;
    m_banco = Conexoes::nova(&erro);
    if (m_banco)
        mostraTodos();
    else
        setEnabled(false);
}

Estoque::~Estoque() = default;

bool Estoque::falhou(const QString& titulo, const std::exception& e)
{
    const auto* eb = dynamic_cast<const ErroBanco*>(&e);
    Dialogos::mensagem(this, eb ? eb->textoCompleto() : QString::fromUtf8(e.what()), titulo, Dialogos::Icone::Aviso);
    return false;
}

void Estoque::abreConsulta()
{
    if (!m_banco)
        return;
    m_modelo->pintar(m_pintada);
    try {
        m_modelo->abrir(std::make_unique<PaginasBusca>(*m_banco, QStringLiteral("Produto"), m_onde, m_ordem,
                                                       nomesColunas()),
                        ModeloPesquisa::Contagem::Depois);
    } catch (const ErroBanco& e) {
        m_modelo->limpar();
        falhou(QStringLiteral("Estoque"), e);
    }
    atualizaTitulo();
}

void Estoque::atualizaTitulo()
{
    // The number follows the first page in a moment.
    setWindowTitle(m_modelo->contando() ? QStringLiteral("Produtos cadastrado") : ListaEstoque::titulo(m_modelo->total()));
}

void Estoque::mostraTodos()
{
    m_base = ListaEstoque::todos();
    m_ordem = ListaEstoque::OrdemTodos;
    m_onde = m_base;
    m_pintada = false;
    abreConsulta();
}

void Estoque::busca()
{
    if (m_localizar->isChecked()) {
        localizaNaLista();
        return;
    }
    if (!m_banco)
        return;
    try {
        m_base = ListaEstoque::busca(*m_banco, m_campo->currentIndex(), m_texto->text().trimmed());
    } catch (const ErroBanco& e) {
        falhou(QStringLiteral("Estoque"), e);
        return;
    }
    m_ordem = ListaEstoque::OrdemBusca;
    m_onde = m_base;
    m_pintada = false;
    abreConsulta();
}

void Estoque::filtra(Filtro f)
{
    const ListaEstoque::Nivel n = f == Filtro::Vazio ? ListaEstoque::Nivel::Vazio
        : f == Filtro::AteMinimo                     ? ListaEstoque::Nivel::AteMinimo
                                                     : ListaEstoque::Nivel::AcimaMinimo;
    m_onde = m_onde.e(ListaEstoque::nivel(n));
    m_pintada = true;
    abreConsulta();
}

bool Estoque::localizaNaLista()
{
    const QString digitado = m_texto->text().trimmed();
    if (digitado.isEmpty())
        return false;
    const int coluna = ListaEstoque::colunaDaBuscaNaLista(m_campo->currentIndex());
    const QString nome = ListaEstoque::colunas().at(coluna).coluna;
    const ListaEstoque::Coluna& def = ListaEstoque::colunas().at(coluna);
    for (int i = 0; i < m_modelo->total(); ++i) {
        if (ListaEstoque::casaNaLista(ListaEstoque::textoCelula(def, m_modelo->valor(i, nome)), digitado)) {
            m_grade->setCurrentIndex(m_modelo->index(i, coluna));
            m_grade->scrollTo(m_modelo->index(i, coluna));
            return true;
        }
    }
    return false;
}

bool Estoque::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_grade && e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            abreProduto(m_grade->currentIndex().row());
            return true;
        }
    }
    return QWidget::eventFilter(alvo, e);
}

qint64 Estoque::encontrados() const { return m_modelo->total(); }

void Estoque::incluiProduto()
{
    if (!temDireito())
        return;
    Acoes::abrirTela(QStringLiteral("Produto"), QStringLiteral("Novo"));
}

void Estoque::abreProduto(int linha)
{
    if (linha < 0 || linha >= m_modelo->rowCount() || !RegistroTelas::registrada(QStringLiteral("Produto")))
        return;
    const QString codigo = m_modelo->valor(linha, QStringLiteral("codpeca")).toString();
    const QString chave = m_modelo->valor(linha, QStringLiteral("CodPecAut")).toString();
    QWidget* tela = RegistroTelas::abrir(QStringLiteral("Produto"));
    auto* text3 = tela ? tela->findChild<QLineEdit*>(QStringLiteral("Text3")) : nullptr;
    auto* text4 = tela ? tela->findChild<QLineEdit*>(QStringLiteral("Text4")) : nullptr;
    // The register loads the row when its key box changes, the code being there first.
    if (text3 && text4) {
        text3->setText(codigo);
        text4->setText(chave);
    }
}

void Estoque::imprime(Destino::Tipo tipo)
{
    if (!m_banco)
        return;
    Destino d;
    d.tipo = tipo;
    d.pai = this;
    d.escolherImpressora = tipo == Destino::Tipo::Impressora;
    d.nomeProposto = QStringLiteral("Estoque %1").arg(QDate::currentDate().toString(QStringLiteral("dd-MM-yyyy")));
    const RelatorioEstoque::Lista lista{m_onde, m_ordem, m_pintada};
    Impressao::imprimirDesenho([this, &lista](Impressora& p) { RelatorioEstoque::imprimir(*m_banco, lista, p); }, d,
                               QPageLayout::Landscape);
}

void Estoque::exporta()
{
    if (!m_banco)
        return;
    QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (pasta.isEmpty())
        pasta = QDir::homePath();
    const auto escolhido = Dialogos::salvarArquivo(this, QStringLiteral("Salvar planilha"),
                                                   QDir(pasta).filePath(RelatorioEstoque::nomeProposto(QDate::currentDate())),
                                                   QStringLiteral("Planilha do Excel (*.xlsx)"));
    if (!escolhido || escolhido->trimmed().isEmpty())
        return;
    QString arquivo = *escolhido;
    if (!arquivo.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive))
        arquivo += QStringLiteral(".xlsx");

    QProgressDialog progresso(QStringLiteral("Gerando planilha..."), QStringLiteral("Cancelar"), 0, 100, this);
    progresso.setWindowTitle(QStringLiteral("Estoque"));
    progresso.setWindowModality(Qt::WindowModal);
    progresso.setMinimumDuration(400);
    const RelatorioEstoque::Lista lista{m_onde, m_ordem, m_pintada};
    QString erro;
    RelatorioEstoque::Resultado r;
    try {
        r = RelatorioEstoque::exportar(*m_banco, lista, arquivo, [&progresso](qint64 feitas, qint64 total) {
            progresso.setValue(total > 0 ? int(feitas * 100 / total) : 100);
            return !progresso.wasCanceled();
        }, &erro);
    } catch (const ErroBanco& e) {
        progresso.close();
        falhou(QStringLiteral("Erro ao gerar planilha"), e);
        return;
    }
    progresso.close();
    if (r == RelatorioEstoque::Resultado::Falhou) {
        Dialogos::mensagem(this, erro, QStringLiteral("Erro ao gerar planilha"), Dialogos::Icone::Aviso);
        return;
    }
    if (r == RelatorioEstoque::Resultado::Cancelado)
        return;
    if (!Visualizador::abrir(arquivo))
        Dialogos::mensagem(this, QStringLiteral("A planilha foi salva em \"%1\".").arg(QDir::toNativeSeparators(arquivo)),
                           QStringLiteral("Estoque"));
}

TOLDEX_REGISTRA_TELA(Estoque)
