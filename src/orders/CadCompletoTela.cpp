// How the whole-order form is laid out: the answer's banner on top, the pages of the
// order on the left, the customer's history and the pictures on the right, the buttons
// below. The right column keeps room under the history for one more small list.
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "orders/CadCompleto.h"
#include "orders/BotaoAviso.h"
#include "orders/ListaAvisos.h"
#include "data/Sessao.h"
#include "registers/CamposDocumento.h"

namespace {

QTableWidget* grade(QWidget* pai, const QString& nome, const QStringList& titulos)
{
    auto* t = new QTableWidget(0, titulos.size(), pai);
    t->setObjectName(nome);
    t->setHorizontalHeaderLabels(titulos);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->verticalHeader()->hide();
    t->verticalHeader()->setDefaultSectionSize(20);
    return t;
}

void soValor(QLineEdit* e)
{
    e->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.,]*")), e));
    e->setAlignment(Qt::AlignRight);
    e->setMaxLength(15);
}

// The form's buttons: index, caption, hint. The gaps of the numbering are kept.
struct DefBotao {
    int indice;
    const char* texto;
    const char* dica;
};
const DefBotao Botoes[] = {
    {0, "&Incluir", "Nova ordem de serviço"},
    {1, "&Salvar", "Salva a ordem de serviço"},
    {2, "&Retirar", "Buscar o aparelho na casa do cliente"},
    {3, "Imprimir &entrada", "Imprime a ordem de serviço de entrada"},
    {4, "&Excluir", "Exclui a ordem de serviço"},
    {5, "Sai&r", "Fecha o formulário"},
    {6, "&Garantia", "Retorno em garantia"},
    {7, "Aprovado", "O cliente autorizou o conserto"},
    {8, "Recusado", "O cliente não autorizou o orçamento"},
    {9, "Indeciso", "O cliente ainda não autorizou o conserto"},
    {10, "En&trega", "Entrega do produto ao cliente"},
    {11, "...", "Pesquisa o cliente"},
    {12, "Buscar", "Procura a ordem pelo número"},
    {15, "&Remove item", "Remove a peça escolhida"},
    {16, "A&diciona item", "Adiciona ou altera a peça"},
    {17, "Peças", "Mostra ou esconde as peças"},
    {18, "Est&oque", "Busca a peça no estoque"},
    {19, "Serviços", "Mostra ou esconde o catálogo de serviços"},
    {20, "Re&move serviço", "Remove o serviço escolhido"},
    {21, "&Altera serviço", "Altera o desconto e a mão de obra do serviço"},
    {22, "Executados", "Mostra ou esconde os serviços executados"},
    {23, "Defeitos", "Mostra ou esconde os defeitos"},
    {24, "Catálogo", "Mostra ou esconde o catálogo de defeitos"},
    {25, "Inicia Web Cam", "Liga a câmera"},
    {26, "Parar", "Para a imagem da câmera"},
    {27, "Arquivo...", "Escolhe a imagem de um arquivo"},
    {28, "Capturar", "Salva a imagem da câmera"},
    {29, "Imprimir or&çamento", "Imprime o orçamento"},
    {30, "Ampliar", "Mostra a imagem ampliada"},
};

} // namespace

QLineEdit* CadCompleto::linha(QWidget* pai, const QString& coluna, int maximo)
{
    auto* e = new QLineEdit(pai);
    e->setObjectName(QStringLiteral("Txt") + coluna);
    e->setMaxLength(maximo);
    e->installEventFilter(this);
    m_linhas.insert(coluna, e);
    return e;
}

QPlainTextEdit* CadCompleto::texto(QWidget* pai, const QString& coluna, int altura)
{
    auto* t = new QPlainTextEdit(pai);
    t->setObjectName(QStringLiteral("Txt") + coluna);
    t->setMaximumHeight(altura);
    t->setTabChangesFocus(true);
    t->installEventFilter(this);
    m_textos.insert(coluna, t);
    return t;
}

void CadCompleto::montaTela()
{
    for (int i = 0; i <= 30; ++i)
        m_botoes << nullptr;
    for (const DefBotao& d : Botoes) {
        auto* b = new QPushButton(QString::fromUtf8(d.texto), this);
        b->setObjectName(QStringLiteral("Botao(%1)").arg(d.indice));
        b->setToolTip(QString::fromUtf8(d.dica));
        b->setAutoDefault(false);
        m_botoes[d.indice] = b;
    }
    auto* raiz = new QVBoxLayout(this);
    auto* topo = new QHBoxLayout;
    m_resposta = new QLabel(this);
    m_resposta->setObjectName(QStringLiteral("LblResposta"));
    QFont f = m_resposta->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.3);
    m_resposta->setFont(f);
    m_banda = new QLabel(this);
    m_banda->setObjectName(QStringLiteral("LblStatus"));
    m_banda->setFont(f);
    m_banda->setAutoFillBackground(true);
    m_banda->setMinimumHeight(26);
    topo->addWidget(m_resposta);
    topo->addWidget(m_banda, 1);
    raiz->addLayout(topo);

    m_abas = new QTabWidget(this);
    m_abas->setObjectName(QStringLiteral("TabDados"));
    auto* pagina1 = new QWidget(m_abas);
    auto* v1 = new QVBoxLayout(pagina1);
    v1->addWidget(montaCliente());
    v1->addWidget(montaAparelho(), 1);
    m_abas->addTab(pagina1, QStringLiteral("Cliente e aparelho"));
    m_abas->addTab(montaBancada(), QStringLiteral("Bancada"));
    m_abas->addTab(montaListas(), QStringLiteral("Peças e serviços"));

    auto* meio = new QHBoxLayout;
    meio->addWidget(m_abas, 3);
    meio->addWidget(montaLateral(), 1);
    raiz->addLayout(meio, 1);

    auto* baixo = new QHBoxLayout;
    for (int b : {0, 1, 2, 3, 29, 4, 6, 7, 8, 9, 10})
        baixo->addWidget(m_botoes[b]);
    baixo->addStretch();
    baixo->addWidget(m_botoes[5]);
    raiz->addLayout(baixo);

    // The hidden boxes other screens write to reach an order or a customer.
    m_busca1 = new QLineEdit(this);
    m_busca1->setObjectName(QStringLiteral("TxtBusca1"));
    m_busca1->hide();
    m_busca2 = new QLineEdit(this);
    m_busca2->setObjectName(QStringLiteral("TxtBusca2"));
    m_busca2->hide();

    m_avisaOrcamento = new QTimer(this);
    m_avisaOrcamento->setObjectName(QStringLiteral("TAvisaOrcamento"));
    m_avisaOrcamento->setInterval(600);
    connect(m_avisaOrcamento, &QTimer::timeout, this, &CadCompleto::pisca);

    connect(m_botoes[0], &QPushButton::clicked, this, &CadCompleto::incluir);
    connect(m_botoes[1], &QPushButton::clicked, this, [this] { salvar(); });
    connect(m_botoes[2], &QPushButton::clicked, this, &CadCompleto::retirar);
    connect(m_botoes[3], &QPushButton::clicked, this, [this] { imprimir(1); });
    connect(m_botoes[4], &QPushButton::clicked, this, &CadCompleto::excluir);
    connect(m_botoes[5], &QPushButton::clicked, this, &CadCompleto::sairOuCancelar);
    connect(m_botoes[6], &QPushButton::clicked, this, &CadCompleto::garantia);
    connect(m_botoes[7], &QPushButton::clicked, this, [this] { responder(Resposta::Aprovado); });
    connect(m_botoes[8], &QPushButton::clicked, this, [this] { responder(Resposta::Recusado); });
    connect(m_botoes[9], &QPushButton::clicked, this, [this] { responder(Resposta::Indeciso); });
    connect(m_botoes[10], &QPushButton::clicked, this, &CadCompleto::entregar);
    connect(m_botoes[12], &QPushButton::clicked, this, &CadCompleto::buscaPorCodigo);
    connect(m_botoes[29], &QPushButton::clicked, this, [this] { imprimirOrcamento(); });
    connect(m_busca1, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (!t.trimmed().isEmpty())
            clienteEscolhido(t.trimmed());
    });
    connect(m_busca2, &QLineEdit::textChanged, this, [this](const QString& t) {
        bool ok = false;
        const qint64 chave = t.trimmed().toLongLong(&ok);
        if (ok && chave > 0)
            abreOrdem({{QStringLiteral("CodOsAut"), chave}});
    });
    resize(1340, 720);
}

QWidget* CadCompleto::montaCliente()
{
    auto* g = new QGroupBox(QStringLiteral("Dados do cliente"), this);
    g->setObjectName(QStringLiteral("FrameCliente"));
    auto* l = new QGridLayout(g);
    auto* codCliente = linha(g, QStringLiteral("CodCliente"), 20);
    codCliente->setReadOnly(true);
    auto* nome = linha(g, QStringLiteral("NomeCliente"), 255);
    m_modeloNomes = new QStandardItemModel(this);
    m_nomes = new QCompleter(m_modeloNomes, this);
    m_nomes->setObjectName(QStringLiteral("NomesClientes"));
    m_nomes->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_nomes->setCaseSensitivity(Qt::CaseInsensitive);
    nome->setCompleter(m_nomes);
    connect(nome, &QLineEdit::textEdited, this, &CadCompleto::sugereNomes);
    connect(m_nomes, qOverload<const QModelIndex&>(&QCompleter::activated), this, [this](const QModelIndex& i) {
        clienteEscolhido(i.data(Qt::UserRole).toString());
    });
    auto* cpf = linha(g, QStringLiteral("CpfCnpj"), 20);
    connect(cpf, &QLineEdit::editingFinished, this, &CadCompleto::aoSairCpf);
    CamposDocumento::preparaTelefone(linha(g, QStringLiteral("Telefone"), 20));
    CamposDocumento::preparaTelefone(linha(g, QStringLiteral("Celular"), 20));
    const QPair<const char*, const char*> campos[] = {
        {"CodCliente", "Código:"},   {"NomeCliente", "Nome:"}, {"CpfCnpj", "CPF/CNPJ:"},
        {"Endereco", "Endereço:"},   {"Ncasa", "Nº:"},         {"Bairro", "Bairro:"},
        {"Cidade", "Cidade:"},       {"Telefone", "Telefone:"}, {"Celular", "Celular:"}};
    int i = 0;
    for (const auto& [coluna, rotulo] : campos) {
        QLineEdit* e = m_linhas.value(QLatin1String(coluna));
        if (!e)
            e = linha(g, QLatin1String(coluna));
        l->addWidget(new QLabel(QString::fromUtf8(rotulo), g), i / 3, (i % 3) * 2);
        l->addWidget(e, i / 3, (i % 3) * 2 + 1);
        ++i;
    }
    l->addWidget(m_botoes[11], 0, 6);
    return g;
}

QWidget* CadCompleto::montaAparelho()
{
    auto* w = new QWidget(this);
    auto* l = new QGridLayout(w);
    l->setContentsMargins(0, 0, 0, 0);
    m_tipo = new QComboBox(w);
    m_tipo->setObjectName(QStringLiteral("CTipo"));
    m_tipo->setEditable(true);
    m_marca = new QComboBox(w);
    m_marca->setObjectName(QStringLiteral("CMarca"));
    m_marca->setEditable(true);
    for (QComboBox* c : {m_tipo, m_marca}) {
        c->setInsertPolicy(QComboBox::NoInsert);
        c->lineEdit()->installEventFilter(this);
    }
    m_opPorcento = new QRadioButton(QStringLiteral("%"), w);
    m_opPorcento->setObjectName(QStringLiteral("OptPorcentagem"));
    auto* opValor = new QRadioButton(QStringLiteral("R$"), w);
    opValor->setObjectName(QStringLiteral("OptValor"));
    soValor(linha(w, QStringLiteral("ValorPorcentagem"), 15));
    m_fabrica = new QCheckBox(QStringLiteral("Fábrica"), w);
    m_fabrica->setObjectName(QStringLiteral("ChkFabrica"));
    auto* codOs = linha(w, QStringLiteral("CodOs"), 12);
    codOs->setReadOnly(true);
    const QPair<const char*, const char*> campos[] = {
        {"CodOs", "Nº O.S:"},          {"Modelo", "Modelo:"},          {"CorProduto", "Cor:"},
        {"NumeroSerie", "Nº Série:"},  {"Certificado", "Certificado:"}, {"NotaFiscal", "Nota fiscal:"},
        {"DataNota", "Data nota:"},    {"Revendedor", "Revendedor:"},  {"EstadoAparelho", "Estado:"},
        {"Acessorio", "Acessórios:"},  {"Armazenado", "Local:"},       {"CodFabrica", "O.S fábrica:"},
        {"DataEntrada", "Entrada:"},   {"DataSaida", "Saída:"},        {"DataEntrega", "Entregar Dia:"},
        {"DataContato", "Data Contato:"}, {"HoraSolicitada", "Hora:"}, {"DadosContato", "Contato:"}};
    l->addWidget(new QLabel(QStringLiteral("Tipo:"), w), 0, 0);
    l->addWidget(m_tipo, 0, 1);
    l->addWidget(new QLabel(QStringLiteral("Marca:"), w), 0, 2);
    l->addWidget(m_marca, 0, 3);
    auto* comissao = new QHBoxLayout;
    comissao->addWidget(m_opPorcento);
    comissao->addWidget(opValor);
    comissao->addWidget(m_linhas.value(QStringLiteral("ValorPorcentagem")));
    comissao->addWidget(m_fabrica);
    comissao->addWidget(m_botoes[12]);
    l->addLayout(comissao, 0, 4, 1, 2);
    int i = 3;
    for (const auto& [coluna, rotulo] : campos) {
        QLineEdit* e = m_linhas.value(QLatin1String(coluna));
        if (!e)
            e = linha(w, QLatin1String(coluna), QByteArray(coluna).startsWith("Data") ? 10 : 255);
        auto* r = new QLabel(QString::fromUtf8(rotulo), w);
        l->addWidget(r, i / 3, (i % 3) * 2);
        l->addWidget(e, i / 3, (i % 3) * 2 + 1);
        if (qstrcmp(coluna, "DataEntrega") == 0)
            m_rotuloEntrega = r;
        else if (qstrcmp(coluna, "DataContato") == 0)
            m_rotuloContato = r;
        ++i;
    }
    m_dataEntrega = m_linhas.value(QStringLiteral("DataEntrega"));
    m_dataEntrega->setObjectName(QStringLiteral("DTent"));
    m_hora = m_linhas.value(QStringLiteral("HoraSolicitada"));
    m_hora->setObjectName(QStringLiteral("DtHora"));
    m_hora->setMaxLength(5);
    int r = i / 3 + 1;
    l->addWidget(new QLabel(QStringLiteral("Sintoma:"), w), r, 0, Qt::AlignTop);
    l->addWidget(texto(w, QStringLiteral("Sintoma"), 70), r, 1, 1, 5);
    l->addWidget(new QLabel(QStringLiteral("Observação:"), w), r + 1, 0, Qt::AlignTop);
    l->addWidget(texto(w, QStringLiteral("Observacao"), 70), r + 1, 1, 1, 5);
    l->setRowStretch(r + 2, 1);
    connect(m_tipo, &QComboBox::activated, this, [this] { marcaAlterado(); });
    connect(m_marca, &QComboBox::activated, this, [this] { marcaAlterado(); });
    for (QAbstractButton* b : std::initializer_list<QAbstractButton*>{m_opPorcento, opValor, m_fabrica})
        connect(b, &QAbstractButton::clicked, this, [this, b] {
            if (!marcaAlterado())
                mostra(m_ordem);
            else if (b == m_fabrica)
                m_linhas.value(QStringLiteral("CodFabrica"))->setEnabled(m_fabrica->isChecked());
        });
    return w;
}

QWidget* CadCompleto::montaBancada()
{
    auto* w = new QWidget(m_abas);
    auto* l = new QGridLayout(w);
    m_tecnico = new QComboBox(w);
    m_tecnico->setObjectName(QStringLiteral("CTecnico"));
    l->addWidget(new QLabel(QStringLiteral("Nome do Técnico:"), w), 0, 0);
    l->addWidget(m_tecnico, 0, 1);
    const QPair<const char*, const char*> textos[] = {{"DefeitoReal", "Defeito constatado:"},
                                                      {"Servicoreal", "Serviço real:"},
                                                      {"ServicoExecutado", "Serviço executado:"}};
    int r = 1;
    for (const auto& [coluna, rotulo] : textos) {
        l->addWidget(new QLabel(QString::fromUtf8(rotulo), w), r, 0, Qt::AlignTop);
        l->addWidget(texto(w, QLatin1String(coluna), 80), r++, 1);
    }
    auto* status = new QGroupBox(QStringLiteral("Situação do conserto."), w);
    status->setObjectName(QStringLiteral("FrameStatus"));
    auto* vs = new QGridLayout(status);
    const char* nomes[] = {"Consertado.", "Orçamento.", "Aguarda peça.", "Devolver ao cliente."};
    for (int i = 0; i < 4; ++i) {
        auto* op = new QRadioButton(QString::fromUtf8(nomes[i]), status);
        op->setObjectName(QStringLiteral("OptStatus(%1)").arg(i));
        vs->addWidget(op, 0, i);
        m_opcoes << op;
        connect(op, &QRadioButton::clicked, this, [this, i] { escolheSituacao(i); });
    }
    auto* txtStatus = linha(status, QStringLiteral("StatusConserto"));
    txtStatus->setObjectName(QStringLiteral("TxtStatus"));
    vs->addWidget(txtStatus, 1, 0, 1, 4);
    m_bloqueio = new QCheckBox(QStringLiteral("Orçamento bloqueado"), status);
    m_bloqueio->setObjectName(QStringLiteral("ChekBloq"));
    vs->addWidget(m_bloqueio, 2, 0, 1, 4);
    l->addWidget(status, r++, 0, 1, 2);
    auto* valores = new QHBoxLayout;
    const QPair<const char*, const char*> dinheiro[] = {
        {"MaoObra", "Mão de obra"}, {"ValorVenda", "Valor peças"}, {"ValorPagar", "Valor à pagar"}};
    for (const auto& [coluna, rotulo] : dinheiro) {
        valores->addWidget(new QLabel(QString::fromUtf8(rotulo), w));
        auto* e = linha(w, QLatin1String(coluna), 15);
        soValor(e);
        // The parts and the total are worked out from the lists, never typed.
        e->setReadOnly(qstrcmp(coluna, "MaoObra") != 0);
        valores->addWidget(e);
    }
    l->addLayout(valores, r++, 0, 1, 2);
    l->setRowStretch(r, 1);
    connect(m_tecnico, &QComboBox::activated, this, [this] {
        if (!marcaAlterado())
            mostra(m_ordem);
    });
    connect(m_bloqueio, &QCheckBox::clicked, this, [this] {
        // Only the budget right releases the lock; anyone else finds it ticked again.
        if (sessao().DireitoAltOrca == 1 && marcaAlterado())
            m_ordem.OrdemBloqueada = m_bloqueio->isChecked();
        else
            m_bloqueio->setChecked(m_ordem.OrdemBloqueada);
    });
    return w;
}

QWidget* CadCompleto::montaLateral()
{
    auto* w = new QWidget(this);
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(new QLabel(QStringLiteral("Ordens do cliente"), w));
    m_historico = grade(w, QStringLiteral("GHistorico"),
                        {QStringLiteral("O.S"), QStringLiteral("Tipo"), QStringLiteral("Marca"), QStringLiteral("Série"),
                         QStringLiteral("Valor"), QStringLiteral("Data Saída"), QStringLiteral("Cod Auto")});
    m_historico->setColumnHidden(6, true);
    m_historico->horizontalHeader()->setStretchLastSection(true);
    v->addWidget(m_historico, 2);
    // Who was told what about this order, and the button that tells the customer now.
    auto* avisos = new QHBoxLayout;
    avisos->addWidget(new QLabel(QStringLiteral("Avisos ao cliente"), w));
    avisos->addStretch();
    m_avisar = new BotaoAviso(w);
    avisos->addWidget(m_avisar);
    v->addLayout(avisos);
    m_avisos = new ListaAvisos(w);
    m_avisos->setMaximumHeight(90);
    v->addWidget(m_avisos, 1);
    connect(m_avisar, &BotaoAviso::avisado, this, [this](qint64, const QString& data) {
        // The contact the notice kept is the stored one: the next save must not take it for
        // another station's change.
        AvisoCliente::adotarContato(m_ordem, data);
        AvisoCliente::adotarContato(m_guardada, data);
        mostraAvisos();
    });
    auto* fotos = new QGroupBox(QStringLiteral("Imagens do aparelho"), w);
    fotos->setObjectName(QStringLiteral("FrameImagem"));
    auto* g = new QGridLayout(fotos);
    m_imgAparelho = new QLabel(fotos);
    m_imgAparelho->setObjectName(QStringLiteral("ImgAparelho"));
    m_imgAparelho->setFixedSize(240, 180);
    m_imgAparelho->setAlignment(Qt::AlignCenter);
    m_imgAparelho->setFrameShape(QFrame::StyledPanel);
    g->addWidget(m_imgAparelho, 0, 0, 1, 4, Qt::AlignCenter);
    for (int i = 0; i < 3; ++i) {
        auto* b = new QPushButton(QStringLiteral("Foto %1").arg(i + 1), fotos);
        b->setObjectName(QStringLiteral("BotImg(%1)").arg(i));
        b->setCheckable(true);
        b->setAutoExclusive(true);
        b->setAutoDefault(false);
        g->addWidget(b, 1, i);
        m_botoesFoto << b;
        connect(b, &QPushButton::clicked, this, [this, i] { mostraFoto(i); });
    }
    g->addWidget(m_botoes[30], 1, 3);
    g->addWidget(m_botoes[25], 2, 0);
    g->addWidget(m_botoes[26], 2, 1);
    g->addWidget(m_botoes[27], 2, 2);
    g->addWidget(m_botoes[28], 2, 3);
    m_imagem = new QLineEdit(fotos);
    m_imagem->setObjectName(QStringLiteral("TxtImagem"));
    m_imagem->hide();
    v->addWidget(fotos);
    connect(m_historico, &QTableWidget::cellClicked, this, [this](int l, int) {
        m_busca2->setText(m_historico->item(l, 6)->text());
    });
    connect(m_botoes[25], &QPushButton::clicked, this, &CadCompleto::alternaCamera);
    connect(m_botoes[27], &QPushButton::clicked, this, &CadCompleto::fotoDeArquivo);
    connect(m_botoes[28], &QPushButton::clicked, this, &CadCompleto::capturaFoto);
    connect(m_botoes[30], &QPushButton::clicked, this, &CadCompleto::ampliaFoto);
    return w;
}

QWidget* CadCompleto::montaListas()
{
    auto* w = new QWidget(m_abas);
    auto* v = new QVBoxLayout(w);
    auto* mostrar = new QHBoxLayout;
    for (int b : {17, 22, 19, 23, 24})
        mostrar->addWidget(m_botoes[b]);
    mostrar->addStretch();
    v->addLayout(mostrar);

    m_framePecas = new QGroupBox(QStringLiteral("Peças aplicadas"), w);
    m_framePecas->setObjectName(QStringLiteral("FramePecas"));
    auto* vp = new QVBoxLayout(m_framePecas);
    m_lPeca = grade(m_framePecas, QStringLiteral("LPeca"),
                    {QStringLiteral("Código"), QStringLiteral("Descrição"), QStringLiteral("Qtd"),
                     QStringLiteral("V/Custo"), QStringLiteral("V/Venda"), QStringLiteral("V/Desc"),
                     QStringLiteral("V/Total"), QStringLiteral("V/Minimo"), QStringLiteral("Aliquota"),
                     QStringLiteral("TipoAliquota"), QStringLiteral("Fornecedor"), QStringLiteral("Departamento"),
                     QStringLiteral("Armazenado"), QStringLiteral("Grupo"), QStringLiteral("Unidade"),
                     QStringLiteral("Controleetoque"), QStringLiteral("CodAutomatico"), QStringLiteral("baixaEstoque"),
                     QStringLiteral("SubGrupo")});
    m_lPeca->setColumnWidth(1, 220);
    vp->addWidget(m_lPeca);
    auto* edita = new QHBoxLayout;
    m_pecaDescricao = new QLineEdit(m_framePecas);
    m_pecaDescricao->setObjectName(QStringLiteral("TxtPecaDescricao"));
    m_pecaDescricao->setMaxLength(255);
    m_pecaQuantidade = new QLineEdit(m_framePecas);
    m_pecaQuantidade->setObjectName(QStringLiteral("TxtPecaQuantidade"));
    m_pecaVenda = new QLineEdit(m_framePecas);
    m_pecaVenda->setObjectName(QStringLiteral("TxtPecaVenda"));
    m_pecaDesconto = new QLineEdit(m_framePecas);
    m_pecaDesconto->setObjectName(QStringLiteral("TxtPecaDesconto"));
    const QPair<QString, QLineEdit*> caixas[] = {{QStringLiteral("Descrição"), m_pecaDescricao},
                                                  {QStringLiteral("Qtd"), m_pecaQuantidade},
                                                  {QStringLiteral("V/Venda"), m_pecaVenda},
                                                  {QStringLiteral("V/Desc"), m_pecaDesconto}};
    for (const auto& [rotulo, caixa] : caixas) {
        edita->addWidget(new QLabel(rotulo, m_framePecas));
        edita->addWidget(caixa, caixa == m_pecaDescricao ? 3 : 1);
    }
    for (int b : {16, 15, 18})
        edita->addWidget(m_botoes[b]);
    vp->addLayout(edita);
    v->addWidget(m_framePecas, 3);

    m_frameServicos = new QGroupBox(QStringLiteral("Serviços executados"), w);
    m_frameServicos->setObjectName(QStringLiteral("FrameServicos"));
    auto* vs = new QGridLayout(m_frameServicos);
    m_lExec = grade(m_frameServicos, QStringLiteral("LExec"),
                    {QStringLiteral("Serviço"), QStringLiteral("V/Obra"), QStringLiteral("V/Desc"),
                     QStringLiteral("Val/Total"), QStringLiteral("ValorMinimo")});
    m_lServ = grade(m_frameServicos, QStringLiteral("LServ"),
                    {QStringLiteral("Serviço"), QStringLiteral("Valor"), QStringLiteral("Valorminimo")});
    m_lExec->setColumnWidth(0, 200);
    m_lServ->setColumnWidth(0, 200);
    vs->addWidget(m_lExec, 0, 0);
    vs->addWidget(m_lServ, 0, 1);
    auto* es = new QHBoxLayout;
    m_servicoObra = new QLineEdit(m_frameServicos);
    m_servicoObra->setObjectName(QStringLiteral("TxtServicoObra"));
    m_servicoDesconto = new QLineEdit(m_frameServicos);
    m_servicoDesconto->setObjectName(QStringLiteral("TxtServicoDesconto"));
    es->addWidget(new QLabel(QStringLiteral("V/Obra"), m_frameServicos));
    es->addWidget(m_servicoObra);
    es->addWidget(new QLabel(QStringLiteral("V/Desc"), m_frameServicos));
    es->addWidget(m_servicoDesconto);
    es->addWidget(m_botoes[21]);
    es->addWidget(m_botoes[20]);
    vs->addLayout(es, 1, 0, 1, 2);
    v->addWidget(m_frameServicos, 2);

    m_frameDefeitos = new QGroupBox(QStringLiteral("Defeitos reclamados"), w);
    m_frameDefeitos->setObjectName(QStringLiteral("FrameDefeitos"));
    auto* vd = new QHBoxLayout(m_frameDefeitos);
    m_lDef = new QListWidget(m_frameDefeitos);
    m_lDef->setObjectName(QStringLiteral("LDef"));
    m_lDef->setToolTip(QStringLiteral("Duplo clique remove o defeito"));
    m_lCad = new QListWidget(m_frameDefeitos);
    m_lCad->setObjectName(QStringLiteral("LCad"));
    m_lCad->setToolTip(QStringLiteral("Duplo clique adiciona o defeito"));
    vd->addWidget(m_lDef);
    vd->addWidget(m_lCad);
    v->addWidget(m_frameDefeitos, 1);

    for (QLineEdit* e : {m_pecaVenda, m_pecaDesconto, m_servicoObra, m_servicoDesconto})
        e->setMaximumWidth(90);
    m_pecaQuantidade->setMaximumWidth(70);

    connect(m_lPeca, &QTableWidget::cellClicked, this, [this](int l, int) { abrePeca(l); });
    connect(m_lExec, &QTableWidget::cellClicked, this, [this](int l, int) { abreServico(l); });
    connect(m_lServ, &QTableWidget::cellDoubleClicked, this, [this](int l, int) { adicionaServico(l); });
    connect(m_lCad, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) { adicionaDefeito(m_lCad->row(it)); });
    connect(m_lDef, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) { removeDefeito(m_lDef->row(it)); });
    connect(m_botoes[15], &QPushButton::clicked, this, &CadCompleto::removePeca);
    connect(m_botoes[16], &QPushButton::clicked, this, &CadCompleto::gravaPeca);
    connect(m_botoes[18], &QPushButton::clicked, this, &CadCompleto::buscaProduto);
    connect(m_botoes[20], &QPushButton::clicked, this, &CadCompleto::removeServico);
    connect(m_botoes[21], &QPushButton::clicked, this, &CadCompleto::alteraServico);
    const QPair<int, QWidget*> paineis[] = {
        {17, m_framePecas}, {19, m_lServ}, {22, m_lExec}, {23, m_lDef}, {24, m_lCad}};
    for (const auto& [b, painel] : paineis)
        connect(m_botoes[b], &QPushButton::clicked, painel, [painel] { painel->setVisible(!painel->isVisible()); });
    return w;
}
