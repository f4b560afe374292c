#include "stock/Produto.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "registers/EntregaTelas.h"
#include "stock/Grupos.h"
#include "stock/Margem.h"
#include "ui/FotoCadastro.h"
#include "ui/RegistroTelas.h"

// The widgets of the product register and their wiring; the rules are in Produto.cpp.

namespace {
const QStringList Unidades = {"UN", "PC", "CX", "KG", "G", "M", "CM", "L", "ML", "PAR", "JG", "KIT", "RL", "FD"};
} // namespace

void Produto::montaTela()
{
    auto* raiz = new QVBoxLayout(corpo());
    raiz->setContentsMargins(0, 0, 0, 0);
    m_abas = new QTabWidget(corpo());
    m_abas->setObjectName(QStringLiteral("SSTab1"));
    raiz->addWidget(m_abas);
    auto* dados = new QWidget(m_abas);
    auto* kit = new QWidget(m_abas);
    auto* foto = new QWidget(m_abas);
    m_abas->addTab(dados, QStringLiteral("Produto"));
    m_abas->addTab(kit, QStringLiteral("Kit"));
    m_abas->addTab(foto, QStringLiteral("Imagem"));

    for (int i = 0; i < NumCaixas; ++i) {
        auto* le = new QLineEdit(dados);
        le->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        m_textos << le;
    }
    texto(SomaKit)->setParent(kit);
    texto(SomaKit)->setReadOnly(true);
    texto(SomaKit)->setAlignment(Qt::AlignRight);
    for (int c : {Custo, Venda, PrecoMinimo, Lucro, LucroMinimo, Comissao, Estoque, Minima, Embalagem})
        texto(c)->setAlignment(Qt::AlignRight);
    m_codigoCarregado = new QLineEdit(this);
    m_codigoCarregado->setObjectName(QStringLiteral("Text3"));
    m_codigoCarregado->hide();
    m_chaveCarregada = new QLineEdit(this);
    m_chaveCarregada->setObjectName(QStringLiteral("Text4"));
    m_chaveCarregada->hide();
    connect(m_chaveCarregada, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (!t.isEmpty())
            mostraProduto(t.toLongLong());
    });
    m_reservada = new QLineEdit(dados);
    m_reservada->setObjectName(QStringLiteral("TxtReservada"));
    m_reservada->setReadOnly(true);
    m_reservada->setAlignment(Qt::AlignRight);
    auto combo = [dados](const char* nome) {
        auto* c = new QComboBox(dados);
        c->setObjectName(QString::fromLatin1(nome));
        c->setEditable(true);
        c->setInsertPolicy(QComboBox::NoInsert);
        return c;
    };
    m_fabricante = combo("ComboFabricante");
    m_revendedor = combo("Combo1");
    m_aliquota = combo("ComboAliquota");
    m_grupo = combo("ComboGrupo");
    m_subgrupo = combo("ComboSubGrupo");
    m_unidade = combo("ComboUnidade");
    m_unidade->addItems(Unidades);
    m_comissao = new QCheckBox(QStringLiteral("Ativa comissão"), dados);
    m_comissao->setObjectName(QStringLiteral("Check1"));
    m_barras = new QLabel(dados);
    m_barras->setObjectName(QStringLiteral("Label2"));
    m_barras->setMinimumHeight(70);
    m_barras->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    adicionaBotao(QStringLiteral("Sai&r"), QStringLiteral("Fecha o cadastro"));
    adicionaBotao(QStringLiteral("&Imagem"), QStringLiteral("Escolhe a imagem do produto"));
    adicionaBotao(QStringLiteral("Da&dos"), QStringLiteral("Volta aos dados do produto"));
    adicionaBotao(QStringLiteral("Adicionar &item"), QStringLiteral("Pesquisa um produto para o kit"));
    adicionaBotao(QStringLiteral("&Pesquisar"), QStringLiteral("Pesquisa um produto"));
    adicionaBotao(QStringLiteral("..."), QStringLiteral("Cadastro de grupos"));
    adicionaBotao(QStringLiteral("..."), QStringLiteral("Cadastro de subgrupos"));
    adicionaBotao(QStringLiteral("..."), QStringLiteral("Classificação tributária"));
    adicionaBotao(QStringLiteral("WebCam"), QStringLiteral("Liga ou desliga a câmera"));
    adicionaBotao(QStringLiteral("Capturar"), QStringLiteral("Tira a foto do produto"));
    adicionaBotao(QStringLiteral("Parar"), QStringLiteral("Para a imagem da câmera"));
    definirBotaoFechar(Sair);

    auto* g = new QGridLayout(dados);
    auto rotulo = [dados](const QString& t) { return new QLabel(t, dados); };
    auto par = [&](int linha, int col, const QString& r, QWidget* w, int span = 1) {
        g->addWidget(rotulo(r), linha, col);
        g->addWidget(w, linha, col + 1, 1, span);
    };
    auto comBotao = [dados](QWidget* w, QPushButton* b) {
        auto* caixa = new QWidget(dados);
        auto* h = new QHBoxLayout(caixa);
        h->setContentsMargins(0, 0, 0, 0);
        h->addWidget(w, 1);
        b->setMaximumWidth(30);
        h->addWidget(b);
        return caixa;
    };
    par(0, 0, QStringLiteral("Cód interno loja"), texto(Codigo));
    par(0, 2, QStringLiteral("Cód EAN13(barras)"), texto(Ean13));
    par(0, 4, QStringLiteral("Cód DUN14:(caixa)"), texto(Dun14));
    par(1, 0, QStringLiteral("Cód original"), texto(CodOriginal));
    par(1, 2, QStringLiteral("Módulo"), texto(Modulo));
    par(1, 4, QStringLiteral("Código NCM"), texto(Ncm));
    par(2, 0, QStringLiteral("Descrição"), texto(Descricao), 5);
    par(3, 0, QStringLiteral("Equivalente"), texto(Equivalente), 5);
    par(4, 0, QStringLiteral("Local venda"), texto(LocalVenda));
    par(4, 2, QStringLiteral("Local estoque"), texto(LocalEstoque));
    par(4, 4, QStringLiteral("Unidade"), m_unidade);
    par(5, 0, QStringLiteral("Qtd/estoq"), texto(Estoque));
    par(5, 2, QStringLiteral("Qtd/mínima"), texto(Minima));
    par(5, 4, QStringLiteral("Qtd/Embalagem"), texto(Embalagem));
    par(6, 0, QStringLiteral("Qtd/reservada"), m_reservada);
    par(6, 2, QStringLiteral("Nota fiscal"), texto(NotaFiscal));
    par(6, 4, QStringLiteral("Data de compra"), texto(DataCompra));
    par(7, 0, QStringLiteral("Fabricante"), m_fabricante, 3);
    par(7, 4, QStringLiteral("Fornecedor"), m_revendedor);
    par(8, 0, QStringLiteral("Valor de custo"), texto(Custo));
    par(8, 2, QStringLiteral("Valor de venda"), texto(Venda));
    par(8, 4, QStringLiteral("Lucro"), texto(Lucro));
    par(9, 0, QStringLiteral("Valor mínimo de venda"), texto(PrecoMinimo));
    par(9, 2, QStringLiteral("Lucro"), texto(LucroMinimo));
    par(9, 4, QStringLiteral("Valor %"), texto(Comissao));
    g->addWidget(m_comissao, 10, 5);
    par(10, 0, QStringLiteral("ICMS"), texto(Icms));
    par(10, 2, QStringLiteral("Classificação tributária"), comBotao(m_aliquota, botao(Aliquotas)));
    par(11, 0, QStringLiteral("Grupo"), comBotao(m_grupo, botao(Grupo)));
    par(11, 2, QStringLiteral("SubGrupos"), comBotao(m_subgrupo, botao(SubGrupo)));
    par(11, 4, QStringLiteral("Categoria (Referência)"), texto(Categoria));
    par(12, 0, QStringLiteral("Observação"), texto(Observacao), 5);
    g->addWidget(m_barras, 13, 0, 1, 6);
    g->setRowStretch(14, 1);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);
    g->setColumnStretch(5, 1);

    auto* lk = new QVBoxLayout(kit);
    m_lprod = new QTableWidget(0, 6, kit);
    m_lprod->setObjectName(QStringLiteral("Lprod"));
    m_lprod->setHorizontalHeaderLabels({QStringLiteral("CodPeca"), QStringLiteral("Descrição"), QStringLiteral("QTD"),
                                        QStringLiteral("Val/Venda"), QStringLiteral("Val/Total"),
                                        QStringLiteral("Fornecedor")});
    const int larguras[] = {110, 330, 60, 90, 90, 160};
    for (int c = 0; c < 6; ++c)
        m_lprod->setColumnWidth(c, larguras[c]);
    m_lprod->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_lprod->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_lprod->verticalHeader()->hide();
    m_lprod->setToolTip(QStringLiteral("Clique duas vezes para remover o item."));
    connect(m_lprod, &QTableWidget::cellDoubleClicked, this, [this](int l) { removeItemKit(l); });
    lk->addWidget(m_lprod, 1);
    auto* rodape = new QHBoxLayout;
    m_avisoKit = new QLabel(kit);
    m_avisoKit->setObjectName(QStringLiteral("LblKit"));
    rodape->addWidget(botao(BotaoKit));
    rodape->addWidget(m_avisoKit, 1);
    rodape->addWidget(new QLabel(QStringLiteral("Total"), kit));
    rodape->addWidget(texto(SomaKit));
    lk->addLayout(rodape);

    auto* lf = new QGridLayout(foto);
    m_imagem = new QLabel(foto);
    m_imagem->setObjectName(QStringLiteral("ImgProduto"));
    m_imagem->setMinimumSize(480, 360);
    m_imagem->setAlignment(Qt::AlignCenter);
    m_imagem->setFrameShape(QFrame::StyledPanel);
    m_imagemCaminho = new QLineEdit(foto);
    m_imagemCaminho->setObjectName(QStringLiteral("TxtImagem"));
    m_imagemCaminho->setReadOnly(true);
    lf->addWidget(m_imagem, 0, 0, 1, 4);
    lf->addWidget(m_imagemCaminho, 1, 0, 1, 4);
    lf->addWidget(botao(Imagem), 2, 0);
    lf->addWidget(botao(WebCam), 2, 1);
    lf->addWidget(botao(Foto), 2, 2);
    lf->addWidget(botao(ParaPrevia), 2, 3);
    lf->setRowStretch(0, 1);

    disconnect(botao(0), &QPushButton::clicked, this, nullptr);
    connect(botao(0), &QPushButton::clicked, this, &Produto::incluir);
    connect(botao(Imagem), &QPushButton::clicked, this, [this] {
        if (m_foto->escolheArquivo(nomeImagem(texto(Codigo)->text())))
            marcaAlterado();
    });
    connect(botao(PrimeiraAba), &QPushButton::clicked, this, [this] { m_abas->setCurrentIndex(0); });
    connect(botao(BotaoKit), &QPushButton::clicked, this, &Produto::adicionaKit);
    connect(botao(Pesquisa), &QPushButton::clicked, this, [] {
        EntregaTelas::abrirCom(QStringLiteral("PesquisaProduto"), EntregaTelas::DefineDestino,
                               {{QStringLiteral("Destino"), QStringLiteral("Produto")}, {QStringLiteral("Kit"), false}});
    });
    connect(botao(Grupo), &QPushButton::clicked, this, [] { RegistroTelas::abrir(QStringLiteral("GrupoProduto")); });
    connect(botao(SubGrupo), &QPushButton::clicked, this, [] { RegistroTelas::abrir(QStringLiteral("GrupoProduto")); });
    connect(botao(Aliquotas), &QPushButton::clicked, this,
            [] { RegistroTelas::abrir(QStringLiteral("ClassificacaoAliquota")); });
    connect(botao(WebCam), &QPushButton::clicked, this, [this] { m_foto->alternaCamera(botao(WebCam)); });
    connect(botao(Foto), &QPushButton::clicked, this, [this] {
        if (m_foto->tiraFoto(nomeImagem(texto(Descricao)->text())))
            marcaAlterado();
    });
    connect(botao(ParaPrevia), &QPushButton::clicked, this, [this] { m_foto->paraPrevia(); });

    connect(m_grupo, &QComboBox::activated, this, [this] {
        m_subgrupo->setEditText(QString());
        carregaSubgrupos();
    });
    connect(m_aliquota, &QComboBox::activated, this, [this](int i) {
        texto(Icms)->setText(m_aliquota->itemData(i).toString());
        marcaAlterado();
    });
    connect(texto(Custo), &QLineEdit::editingFinished, this, [this] { saiDoPreco(Custo, -1); });
    connect(texto(Venda), &QLineEdit::editingFinished, this, [this] { saiDoPreco(Venda, Lucro); });
    connect(texto(PrecoMinimo), &QLineEdit::editingFinished, this, [this] { saiDoPreco(PrecoMinimo, LucroMinimo); });
    connect(texto(Lucro), &QLineEdit::editingFinished, this, [this] { saiDaMargem(Venda, Lucro); });
    connect(texto(LucroMinimo), &QLineEdit::editingFinished, this, [this] { saiDaMargem(PrecoMinimo, LucroMinimo); });
    connect(texto(Comissao), &QLineEdit::editingFinished, this, [this] {
        if (const auto p = Margem::lerPorcentagem(texto(Comissao)->text()); p && !texto(Comissao)->text().isEmpty())
            texto(Comissao)->setText(Margem::textoPorcentagem(*p));
    });
    connect(texto(Icms), &QLineEdit::editingFinished, this, [this] {
        if (const auto icms = Grupos::icmsDoTexto(texto(Icms)->text()))
            texto(Icms)->setText(QString::number(*icms));
    });
    connect(texto(Ean13), &QLineEdit::textChanged, this, [this] { mostraBarras(); });
}
