#include "stock/PedidoMaterial.h"

#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/PaginasBusca.h"
#include "data/Quantidade.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/ImprimeWord.h"
#include "documents/MenuImpressao.h"
#include "documents/Visualizador.h"
#include "registers/EntregaTelas.h"
#include "stock/PedidoPecas.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/GradeBotoes.h"
#include "ui/ModeloPesquisa.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

const QString Titulo = QStringLiteral("Pedido de Material.");
const QString TituloWord = QStringLiteral("Pedido de Material");

const QList<ModeloPesquisa::Coluna>& colunasLista()
{
    static const QList<ModeloPesquisa::Coluna> c = {
        {"CodPedido", "CodPedido"}, {"CodVenda", "Código"},          {"Quantidade", "Quant"},
        {"Descricao", "Descrição"}, {"Fornecedor", "Fornecedor"},     {"Solicitado", "Solicitado por:"},
        {"DataPedido", "Data Pedido"},
    };
    return c;
}

QString celula(const QString& coluna, const QVariant& v)
{
    if (coluna == QLatin1String("Quantidade") && v.toString().isEmpty())
        return QStringLiteral("1");
    if (coluna == QLatin1String("DataPedido"))
        return Datas::bancoParaTela(v.toString());
    return v.toString();
}

} // namespace

PedidoMaterial::PedidoMaterial(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("PedidoMaterial"));
    setWindowTitle(Titulo);
    auto* raiz = new QVBoxLayout(this);

    auto* campos = new QGridLayout;
    const QStringList rotulos = {"Código:", "Descrição:", "Quantidade:"};
    for (int i = 0; i < 3; ++i) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        t->setMaxLength(i == 1 ? 120 : 20);
        Campos::preparaLinha(t, i == 2);
        m_textos << t;
        campos->addWidget(new QLabel(rotulos.at(i), this), 0, i == 0 ? 0 : i == 1 ? 2 : 5);
    }
    campos->addWidget(m_textos[0], 1, 0, 1, 2);
    campos->addWidget(m_textos[1], 1, 2, 1, 3);
    campos->addWidget(m_textos[2], 1, 5);
    m_fornecedor = new QComboBox(this);
    m_fornecedor->setObjectName(QStringLiteral("CFornecedor"));
    m_fornecedor->setMinimumWidth(220);
    campos->addWidget(new QLabel(QStringLiteral("Fornecedor:"), this), 0, 6);
    campos->addWidget(m_fornecedor, 1, 6);
    campos->setColumnStretch(2, 1);
    raiz->addLayout(campos);

    m_modelo = new ModeloPesquisa(this);
    m_modelo->defineColunas(colunasLista(), celula);
    m_lista = new QTableView(this);
    m_lista->setObjectName(QStringLiteral("LvProd"));
    m_lista->setModel(m_modelo);
    m_lista->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_lista->setSelectionMode(QAbstractItemView::SingleSelection);
    m_lista->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_lista->verticalHeader()->hide();
    m_lista->verticalHeader()->setDefaultSectionSize(20);
    m_lista->setColumnHidden(0, true);
    const int larguras[] = {0, 110, 60, 330, 180, 130, 90};
    for (int c = 1; c < 7; ++c)
        m_lista->setColumnWidth(c, larguras[c]);
    m_lista->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
    m_lista->setToolTip(QStringLiteral("Clique duas vezes para excluir o item."));
    m_lista->installEventFilter(this);
    raiz->addWidget(m_lista, 1);
    auto* dica = new QLabel(QStringLiteral("Clique duas vezes para excluir o item."), this);
    raiz->addWidget(dica);

    const QStringList legendas = {"&Pesquisar produto", "&Filtrar fornecedor", "&Incluir",
                                  "&Revisar estoque",   "&Atualiza lista",     "Enviar &Word",
                                  "Enviar e-&mail",     "Im&primir",           "Sa&ir"};
    QGridLayout* botoes = nullptr;
    m_botoes = GradeBotoes::criar(this, legendas, 5, &botoes);
    raiz->addLayout(botoes);

    connect(m_botoes[0], &QPushButton::clicked, this, &PedidoMaterial::pesquisaProduto);
    connect(m_botoes[1], &QPushButton::clicked, this, &PedidoMaterial::filtraFornecedor);
    connect(m_botoes[2], &QPushButton::clicked, this, &PedidoMaterial::inclui);
    connect(m_botoes[3], &QPushButton::clicked, this, &PedidoMaterial::revisaEstoque);
    connect(m_botoes[4], &QPushButton::clicked, this, &PedidoMaterial::atualizaLista);
    connect(m_botoes[5], &QPushButton::clicked, this, &PedidoMaterial::enviaWord);
    connect(m_botoes[6], &QPushButton::clicked, this, &PedidoMaterial::enviaEmail);
    MenuImpressao::preparar(m_botoes[7], [this](Destino::Tipo d) { imprime(d); });
    connect(m_botoes[8], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    connect(m_lista, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { excluiLinha(i.row()); });
    connect(m_modelo, &ModeloPesquisa::falhou, this, [this](const QString& m) {
        Dialogos::mensagem(this, m, Titulo, Dialogos::Icone::Aviso);
    });
    m_botoes[0]->setEnabled(EntregaTelas::disponivel(QStringLiteral("PesquisaProduto")));

    resize(1000, 600);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    if (!m_banco) {
        setEnabled(false);
        return;
    }
    carregaFornecedores();
    atualizaLista();
}

PedidoMaterial::~PedidoMaterial() = default;

void PedidoMaterial::falha(const std::exception& e)
{
    const auto* eb = dynamic_cast<const ErroBanco*>(&e);
    Dialogos::mensagem(this, eb ? eb->textoCompleto() : QString::fromUtf8(e.what()), Titulo, Dialogos::Icone::Aviso);
}

bool PedidoMaterial::podeAlterar()
{
    if (sessao().DireitoPedidoAl == 1)
        return true;
    RegistroTelas::abrir(QStringLiteral("Negado"));
    return false;
}

void PedidoMaterial::carregaFornecedores()
{
    m_fornecedor->clear();
    m_fornecedor->addItem(QString(), 0);
    try {
        QSqlQuery q = m_banco->executar(QStringLiteral("SELECT CodFornecedor, NomeEmpresa FROM Fornecedor "
                                                       "ORDER BY NomeEmpresa"));
        while (q.next())
            m_fornecedor->addItem(q.value(1).toString(), q.value(0).toLongLong());
    } catch (const ErroBanco& e) {
        falha(e);
    }
}

void PedidoMaterial::mostra(const Condicao& onde)
{
    m_onde = onde;
    try {
        m_modelo->abrir(std::make_unique<PaginasBusca>(*m_banco, QStringLiteral("PedidoPeca"), onde,
                                                       PedidoPecas::Ordem, QStringList{
                                                           "CodPedido", "CodVenda", "Quantidade", "Descricao",
                                                           "Fornecedor", "Solicitado", "DataPedido"}));
    } catch (const ErroBanco& e) {
        m_modelo->limpar();
        falha(e);
    }
}

qint64 PedidoMaterial::linhas() const { return m_modelo->total(); }

void PedidoMaterial::atualizaLista()
{
    if (m_banco)
        mostra(PedidoPecas::todos());
}

void PedidoMaterial::recebeProduto(const QVariantMap& dados)
{
    m_textos[0]->setText(dados.value(QStringLiteral("CodPeca")).toString());
    m_textos[1]->setText(dados.value(QStringLiteral("Descricao")).toString());
    m_textos[2]->setText(QStringLiteral("1"));
    m_botoes[2]->setFocus();
}

void PedidoMaterial::pesquisaProduto()
{
    EntregaTelas::abrirCom(QStringLiteral("PesquisaProduto"), EntregaTelas::DefineDestino,
                           {{QStringLiteral("Destino"), QStringLiteral("PedidoMaterial")}});
}

void PedidoMaterial::filtraFornecedor()
{
    if (m_fornecedor->currentText().trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Selecione um fornecedor para mostrar a lista de peças referente a ele."),
                           Titulo);
        m_fornecedor->setFocus();
        return;
    }
    mostra(PedidoPecas::doFornecedor(m_fornecedor->currentText()));
}

void PedidoMaterial::inclui()
{
    if (!m_banco || !podeAlterar())
        return;
    PedidoPecas::Item item;
    item.CodVenda = m_textos[0]->text().trimmed();
    item.Descricao = m_textos[1]->text().trimmed();
    item.Quantidade = m_textos[2]->text().trimmed();
    item.Fornecedor = m_fornecedor->currentText().trimmed();
    if (item.Descricao.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Coloque o nome do produto"), Titulo);
        m_textos[1]->setFocus();
        return;
    }
    if (item.Quantidade.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Coloque a quantidade"), Titulo);
        m_textos[2]->setFocus();
        return;
    }
    const auto q = Quantidade::lerTexto(item.Quantidade);
    if (!q || *q <= Quantidade()) {
        Dialogos::mensagem(this, QStringLiteral("A quantidade \"%1\" não é válida. Digite um número, como 2 ou 1,5.")
                                     .arg(item.Quantidade), Titulo, Dialogos::Icone::Aviso);
        m_textos[2]->setFocus();
        return;
    }
    item.Quantidade = q->texto();
    try {
        PedidoPecas::incluir(*m_banco, item, sessao().UsuarioNome);
    } catch (const ErroBanco& e) {
        falha(e);
        return;
    }
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    for (QLineEdit* t : std::as_const(m_textos))
        t->clear();
    m_fornecedor->setCurrentIndex(0);
    atualizaLista();
}

void PedidoMaterial::revisaEstoque()
{
    if (!m_banco || !podeAlterar())
        return;
    try {
        PedidoPecas::revisarEstoque(*m_banco, sessao().UsuarioNome);
    } catch (const ErroBanco& e) {
        falha(e);
        return;
    }
    atualizaLista();
    setWindowTitle(QStringLiteral("Pedido de material - %1 encontrados").arg(m_modelo->total()));
}

void PedidoMaterial::excluiLinha(int linha)
{
    if (!m_banco)
        return;
    if (m_modelo->total() == 0 || m_modelo->temConvite()) {
        Dialogos::mensagem(this, QStringLiteral("Sem itens para remover!"), QStringLiteral("Remover"));
        return;
    }
    if (linha < 0 || linha >= m_modelo->total() || !podeAlterar())
        return;
    const qint64 chave = m_modelo->valor(linha, QStringLiteral("CodPedido")).toLongLong();
    const QString item = m_modelo->valor(linha, QStringLiteral("Descricao")).toString().toUpper();
    if (!Dialogos::pergunta(this, QStringLiteral("Confirma exclusão ") + item, QStringLiteral("Remover Item")))
        return;
    try {
        if (!PedidoPecas::excluir(*m_banco, chave)) {
            Dialogos::mensagem(this, QStringLiteral("Não foi possível excluir este item"), QStringLiteral("Remover"));
            mostra(m_onde);
            return;
        }
    } catch (const ErroBanco& e) {
        falha(e);
        return;
    }
    mostra(m_onde);
    RegistroTelas::abrir(QStringLiteral("Excluido"));
}

bool PedidoMaterial::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_lista && e->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(e)->key() == Qt::Key_Delete) {
        excluiLinha(m_lista->currentIndex().row());
        return true;
    }
    return QWidget::eventFilter(alvo, e);
}

void PedidoMaterial::enviaWord()
{
    if (!m_banco || !podeAlterar())
        return;
    QList<PedidoPecas::Item> itens;
    try {
        itens = PedidoPecas::itens(*m_banco, m_onde);
    } catch (const ErroBanco& e) {
        falha(e);
        return;
    }
    const QString modelo = PedidoPecas::modeloWord();
    const QString extensao = QFileInfo(modelo).suffix().toLower();
    const QString nome = PedidoPecas::nomeDocumento(QDate::currentDate()) + QLatin1Char('.') + extensao;
    QString destino;
    if (Dialogos::pergunta(this, QStringLiteral("Deseja salvar o arquivo gerado no Word"), TituloWord)) {
        const auto escolhido = Dialogos::salvarArquivo(
            this, TituloWord, QDir(ImprimeWord::pastaDocumentos()).filePath(nome),
            extensao == QLatin1String("odt") ? QStringLiteral("Documento (*.odt)") : QStringLiteral("Documento (*.docx)"));
        if (!escolhido || escolhido->trimmed().isEmpty())
            return;
        destino = *escolhido;
        if (!destino.endsWith(QLatin1Char('.') + extensao, Qt::CaseInsensitive))
            destino += QLatin1Char('.') + extensao;
        if (QFileInfo(destino).absoluteFilePath() == QFileInfo(modelo).absoluteFilePath()) {
            Dialogos::mensagem(this, QStringLiteral("Escolha outro nome: o modelo do pedido não pode ser substituído."),
                               TituloWord, Dialogos::Icone::Aviso);
            return;
        }
    } else {
        // Not kept: a working copy opens, as an unsaved document would.
        destino = QDir(QDir::tempPath()).filePath(nome);
    }
    QString erro;
    if (!PedidoPecas::gerarWord(*m_banco, itens, modelo, destino, &erro)) {
        Dialogos::mensagem(this, erro, TituloWord, Dialogos::Icone::Aviso);
        return;
    }
    if (!Visualizador::abrir(destino))
        Dialogos::mensagem(this, QStringLiteral("O pedido foi gravado em \"%1\".").arg(QDir::toNativeSeparators(destino)),
                           TituloWord);
}

void PedidoMaterial::enviaEmail()
{
    if (!m_banco || !podeAlterar())
        return;
    QString para;
    QString corpo;
    try {
        para = PedidoPecas::emailFornecedor(*m_banco, m_fornecedor->currentData().toLongLong());
        corpo = PedidoPecas::corpoEmail(PedidoPecas::itens(*m_banco, m_onde));
    } catch (const ErroBanco& e) {
        falha(e);
        return;
    }
    const QString link = PedidoPecas::linkEmail(para, corpo);
    if (link.size() <= PedidoPecas::LimiteLink && Visualizador::abrir(link))
        return;
    // A long list, or no program took the link: the message is kept as a draft to open.
    QDir().mkpath(ImprimeWord::pastaDocumentos());
    const QString arquivo = QDir(ImprimeWord::pastaDocumentos())
                                .filePath(PedidoPecas::nomeDocumento(QDate::currentDate()) + QStringLiteral(".eml"));
    QFile f(arquivo);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(PedidoPecas::rascunhoEml(para, corpo)) < 0
        || !f.flush()) {
        Dialogos::mensagem(this, QStringLiteral("Não foi possível gravar a mensagem em \"%1\".")
                                     .arg(QDir::toNativeSeparators(arquivo)), Titulo, Dialogos::Icone::Aviso);
        return;
    }
    f.close();
    if (!Visualizador::abrir(arquivo))
        Dialogos::mensagem(this,
                           QStringLiteral("Nenhum programa de e-mail abriu a mensagem.\nEla foi gravada em \"%1\": "
                                          "abra-a no seu programa de e-mail para enviar.")
                               .arg(QDir::toNativeSeparators(arquivo)),
                           Titulo);
}

void PedidoMaterial::imprime(Destino::Tipo tipo)
{
    if (!m_banco)
        return;
    Destino d;
    d.tipo = tipo;
    d.pai = this;
    d.escolherImpressora = tipo == Destino::Tipo::Impressora && ConfigImpressao::ligado(QStringLiteral("AutoImpressora"));
    d.nomeProposto = PedidoPecas::nomeDocumento(QDate::currentDate());
    Impressao::imprimirDesenho([this](Impressora& p) { PedidoPecas::imprimir(*m_banco, p); }, d);
}

TOLDEX_REGISTRA_TELA(PedidoMaterial)
