#include "orders/OrdemServicoEntrada.h"

// The intake screen's boxes: how they are laid out, and what leaving the document, number,
// kind, brand and defect boxes does.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlRecord>
#include <QStyle>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "orders/CatalogosOrdem.h"
#include "orders/NumeroOrdem.h"
#include "documents/MenuImpressao.h"
#include "registers/CamposDocumento.h"
#include "registers/PesquisaCliente.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"

namespace {
const QString PromptTipo = QStringLiteral("Selecione ao lado o Tipo -->");
const QString PromptMarca = QStringLiteral("Selecione a marca -->");
const QString MsgNome = QStringLiteral("Coloque o nome do cliente");
bool ligado(const QString& cfg) { return Sessao::verdadeiro(cfg); }
} // namespace

void OrdemServicoEntrada::montaTela()
{
    auto* g = new QGridLayout(corpo());
    g->setHorizontalSpacing(6);
    g->setVerticalSpacing(4);
    int indice = 0;
    auto linha = [&](const QString& nome = {}) {
        auto* le = new QLineEdit(corpo());
        le->setObjectName(nome.isEmpty() ? QStringLiteral("Text1(%1)").arg(indice) : nome);
        ++indice;
        return le;
    };
    auto rotulo = [&](const QString& t) { return new QLabel(t, corpo()); };

    m_codOs = linha();
    m_fabrica = new QCheckBox(QStringLiteral("O.S/Fábrica"), corpo());
    m_fabrica->setObjectName(QStringLiteral("Check1"));
    m_codFabrica = linha();
    m_cpf = linha();
    m_nome = linha();
    m_endereco = linha();
    m_ncasa = linha();
    m_bairro = linha();
    m_cidade = linha();
    m_telefone = linha();
    m_celular = linha();
    CamposDocumento::preparaTelefone(m_telefone);
    CamposDocumento::preparaTelefone(m_celular);
    m_codCliente = linha();
    m_codCliente->setReadOnly(true);
    m_codCliente->setFocusPolicy(Qt::NoFocus);
    m_codCliente->setFrame(false);
    m_codCliente->setToolTip(QStringLiteral("Código do cliente"));
    m_tipo = new QComboBox(corpo());
    m_tipo->setObjectName(QStringLiteral("Combo1"));
    m_tipo->setEditable(true);
    m_tipo->setInsertPolicy(QComboBox::NoInsert);
    m_valorPorcentagem = linha();
    m_opPorcento = new QRadioButton(QStringLiteral("%"), corpo());
    m_opPorcento->setObjectName(QStringLiteral("Option1(0)"));
    m_opValor = new QRadioButton(QStringLiteral("R$"), corpo());
    m_opValor->setObjectName(QStringLiteral("Option1(1)"));
    m_marca = new QComboBox(corpo());
    m_marca->setObjectName(QStringLiteral("Combo2"));
    m_marca->setEditable(true);
    m_marca->setInsertPolicy(QComboBox::NoInsert);
    m_modelo = linha();
    m_serie = linha();
    m_cor = linha();
    m_certificado = linha();
    m_nota = linha();
    m_dataNota = linha();
    m_revendedor = linha();
    m_estado = linha();
    m_acessorio = linha();
    m_sintoma = new QPlainTextEdit(corpo());
    m_sintoma->setObjectName(QStringLiteral("Text1(%1)").arg(indice++));
    m_observacao = new QPlainTextEdit(corpo());
    m_observacao->setObjectName(QStringLiteral("Text1(%1)").arg(indice++));
    m_armazenado = linha();
    m_dataEntrada = linha();
    m_dataSaida = linha();
    for (QLineEdit* d : {m_dataEntrada, m_dataSaida, m_dataNota})
        d->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
    m_dataEntrada->setToolTip(QStringLiteral("Duplo clique para alterar a data"));
    m_dataSaida->setToolTip(QStringLiteral("Duplo clique para alterar a data"));

    // The prompt shows in an empty combo and goes away at the first letter typed.
    m_tipo->lineEdit()->setPlaceholderText(PromptTipo);
    m_marca->lineEdit()->setPlaceholderText(PromptMarca);
    m_comboDef = new QComboBox(corpo());
    m_comboDef->setObjectName(QStringLiteral("Combo3"));
    m_comboDef->setEditable(true);
    m_comboDef->setInsertPolicy(QComboBox::NoInsert);
    m_codigoDef = new QLineEdit(corpo());
    m_codigoDef->setObjectName(QStringLiteral("Text2"));
    m_codigoDef->setMinimumWidth(70);
    m_rotuloCodigoDef = rotulo(QStringLiteral("Digite o código do defeito e precione enter"));
    m_lCad = new QListWidget(corpo());
    m_lCad->setObjectName(QStringLiteral("LCad"));
    m_lDef = new QListWidget(corpo());
    m_lDef->setObjectName(QStringLiteral("LDef"));
    m_rotuloDefeitos = rotulo(QStringLiteral("Defeitos reclamados (duplo clique remove)"));

    // Left column: the order and the customer; right column: the appliance.
    int r = 0;
    g->addWidget(rotulo(QStringLiteral("Ord/Serviço:")), r, 0);
    auto* numeros = new QHBoxLayout;
    numeros->addWidget(m_codOs, 1);
    numeros->addWidget(m_fabrica);
    numeros->addWidget(m_codFabrica, 1);
    g->addLayout(numeros, r, 1);
    g->addWidget(rotulo(QStringLiteral("Tipo:")), r, 2);
    g->addWidget(m_tipo, r, 3);
    ++r;
    g->addWidget(rotulo(QStringLiteral("CPF/CNPJ:")), r, 0);
    auto* doc = new QHBoxLayout;
    doc->addWidget(m_cpf, 1);
    doc->addWidget(m_codCliente);
    g->addLayout(doc, r, 1);
    g->addWidget(rotulo(QStringLiteral("Comissão:")), r, 2);
    auto* com = new QHBoxLayout;
    com->addWidget(m_valorPorcentagem, 1);
    com->addWidget(m_opPorcento);
    com->addWidget(m_opValor);
    g->addLayout(com, r, 3);
    ++r;
    const QList<std::tuple<QString, QWidget*, QString, QWidget*>> pares = {
        {QStringLiteral("Nome:"), m_nome, QStringLiteral("Marca:"), m_marca},
        {QStringLiteral("Endereço:"), m_endereco, QStringLiteral("Modelo:"), m_modelo},
        {QStringLiteral("Nº casa:"), m_ncasa, QStringLiteral("Número de série"), m_serie},
        {QStringLiteral("Bairro:"), m_bairro, QStringLiteral("Cor produto"), m_cor},
        {QStringLiteral("Cidade:"), m_cidade, QStringLiteral("Nº Certif/Garantia"), m_certificado},
        {QStringLiteral("Telefone:"), m_telefone, QStringLiteral("Nº Nota fiscal"), m_nota},
        {QStringLiteral("Celular:"), m_celular, QStringLiteral("Data nota fiscal"), m_dataNota},
        {QStringLiteral("Data entrada"), m_dataEntrada, QStringLiteral("Revendedor"), m_revendedor},
        {QStringLiteral("Data saída"), m_dataSaida, QStringLiteral("Estado do aparelho"), m_estado},
        {QStringLiteral("Local"), m_armazenado, QStringLiteral("Acessórios"), m_acessorio},
    };
    for (const auto& [r1, w1, r2, w2] : pares) {
        g->addWidget(rotulo(r1), r, 0);
        g->addWidget(w1, r, 1);
        g->addWidget(rotulo(r2), r, 2);
        g->addWidget(w2, r, 3);
        ++r;
    }
    g->addWidget(rotulo(QStringLiteral("Observação")), r, 0, Qt::AlignTop);
    g->addWidget(m_observacao, r, 1);
    g->addWidget(rotulo(QStringLiteral("Sintoma")), r, 2, Qt::AlignTop);
    auto* sint = new QVBoxLayout;
    sint->addWidget(m_sintoma);
    // The defect's name gets the whole width: beside the long prompt of the code box it
    // was squeezed to a few letters.
    sint->addWidget(m_comboDef);
    auto* linhaDef = new QHBoxLayout;
    linhaDef->addWidget(m_rotuloCodigoDef);
    linhaDef->addWidget(m_codigoDef, 1);
    sint->addLayout(linhaDef);
    sint->addWidget(m_rotuloDefeitos);
    auto* listas = new QHBoxLayout;
    listas->addWidget(m_lDef, 1);
    listas->addWidget(m_lCad, 1);
    sint->addLayout(listas);
    g->addLayout(sint, r, 3);
    g->setRowStretch(r, 1);
    montaHistorico(g, r + 1);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);

    adicionaBotao(QStringLiteral("I&mprimir"), QStringLiteral("Imprime o comprovante de entrada"));
    adicionaBotao(QStringLiteral("Sai&r"), QStringLiteral("Fecha a tela"));
    auto* b4 = adicionaBotao(QString(), QStringLiteral("Pesquisa o cliente pelo nome"));
    b4->setIcon(style()->standardIcon(QStyle::SP_FileDialogContentsView));
    adicionaBotao(QStringLiteral("&Visita"), QStringLiteral("Pede visita para buscar o aparelho no domicílio"));
    adicionaBotao(QStringLiteral("Sin&toma"), QStringLiteral("Mostra o catálogo de defeitos"));
    auto* b7 = adicionaBotao(QString(), QStringLiteral("Esconde o catálogo de defeitos"));
    b7->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    connect(botao(2), &QPushButton::clicked, this, [this] { imprimir(); });
    MenuImpressao::preparar(botao(2), [this](Destino::Tipo d) { imprimir(d); });
    connect(botao(4), &QPushButton::clicked, this, [this] {
        auto* p = PesquisaCliente::abrirPara(PesquisaCliente::Chamador::EntradaOs, [this](const QSqlRecord& c) {
            if (auto cli = EntradaRegras::clientePorCodigo(*banco(), c.value(QStringLiteral("CodCliente")).toString()))
                poeCliente(*cli);
        });
        // The search opens on names (its option 1) with what the name box holds.
        if (p)
            if (auto* nome = p->findChild<QLineEdit*>(QStringLiteral("Text1(1)")))
                nome->setText(Campos::texto(m_nome));
    });
    connect(botao(5), &QPushButton::clicked, this, &OrdemServicoEntrada::pedirVisita);
    connect(botao(6), &QPushButton::clicked, this, [this] { m_lCad->setVisible(true); });
    connect(botao(7), &QPushButton::clicked, this, [this] { m_lCad->setVisible(false); });

    using T = CampoCadastro::Tipo;
    // Every box in table order; the screen copies them to the order itself.
    const QList<QWidget*> caixas = {m_codOs,   m_fabrica,     m_codFabrica, m_cpf,        m_nome,       m_endereco,
                                    m_ncasa,   m_bairro,      m_cidade,     m_telefone,   m_celular,    m_codCliente,
                                    m_tipo,    m_valorPorcentagem,          m_marca,      m_modelo,     m_serie,
                                    m_cor,     m_certificado, m_nota,       m_dataNota,   m_revendedor, m_estado,
                                    m_acessorio, m_sintoma,   m_observacao, m_armazenado, m_dataEntrada, m_dataSaida,
                                    m_comboDef, m_codigoDef};
    for (QWidget* w : caixas) {
        CampoCadastro c;
        c.widget = w;
        if (w == m_codOs || w == m_valorPorcentagem)
            c.tipo = T::Numero;
        else if (w == m_fabrica)
            c.tipo = T::Flag;
        else if (w == m_codCliente)
            c.tipo = T::Exibicao;
        campos() << c;
    }
    def().obrigatorio = m_nome;
    def().mensagemObrigatorio = MsgNome;
    for (QWidget* w : {static_cast<QWidget*>(m_lCad), static_cast<QWidget*>(m_lDef),
                       static_cast<QWidget*>(m_opPorcento), static_cast<QWidget*>(m_opValor)})
        w->installEventFilter(this);
    m_dataEntrada->installEventFilter(this);
    connect(m_fabrica, &QCheckBox::toggled, this, [this](bool on) {
        m_codFabrica->setEnabled(on && m_fabrica->isEnabled());
    });
    connect(m_opPorcento, &QRadioButton::clicked, this, [this] { if (!carregando()) marcaAlterado(); });
    connect(m_opValor, &QRadioButton::clicked, this, [this] { if (!carregando()) marcaAlterado(); });
    connect(m_tipo, &QComboBox::activated, this, &OrdemServicoEntrada::aoEscolherTipo);
    connect(m_lCad, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) {
        adicionaDefeito(it->data(Qt::UserRole).toString(), it->text());
    });
    connect(m_lDef, &QListWidget::itemDoubleClicked, this, [this] { removeDefeito(); });
}

// --- leaving boxes -------------------------------------------------------------------------

void OrdemServicoEntrada::aoSairCpf()
{
    const QString texto = Campos::texto(m_cpf).trimmed();
    if (texto.isEmpty() || texto == m_cpfChecado || texto == Campos::texto(m_codOs))
        return;
    const ChecagemCnpjCpf c = ChecaCnpjCpf(texto);
    Campos::poeTexto(m_cpf, c.texto);
    if (!c.mensagem.isEmpty()) {
        Dialogos::mensagem(this, c.mensagem, {}, Dialogos::Icone::Aviso);
        m_cpfChecado.clear();
        if (c.voltaFoco)
            QMetaObject::invokeMethod(m_cpf, qOverload<>(&QWidget::setFocus), Qt::QueuedConnection);
        if (c.texto.isEmpty())
            return;
    }
    m_cpfChecado = c.texto;
    try {
        if (auto cli = EntradaRegras::clientePorDocumento(*banco(), c.texto)) {
            poeCliente(*cli);
            return;
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o cliente,"), e.textoCompleto());
        return;
    }
    Campos::limpa(m_codCliente);
    m_clienteNovo = true;
}

void OrdemServicoEntrada::aoSairNumero()
{
    const QString texto = Campos::texto(m_codOs).trimmed();
    if (texto.isEmpty() || (!m_ordem.nova() && texto == QString::number(m_ordem.CodOs)))
        return;
    QString erro;
    const auto n = NumeroOrdem::lerNumero(texto, &erro);
    if (!n) {
        if (!erro.isEmpty())
            Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        return;
    }
    try {
        if (auto a = NumeroOrdem::avisoNumeroExistente(*banco(), *n))
            Dialogos::mensagem(this, a->texto, a->titulo, Dialogos::Icone::Aviso);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o número,"), e.textoCompleto());
    }
}

void OrdemServicoEntrada::aoEscolherTipo(int indice)
{
    if (indice < 0 || carregando())
        return;
    try {
        if (auto t = CatalogosOrdem::tipoPorCodigo(*banco(), m_tipo->itemData(indice).toLongLong())) {
            Campos::poeTexto(m_valorPorcentagem, t->ValorTipo.texto());
            m_opPorcento->setChecked(t->porcentagem);
            m_opValor->setChecked(!t->porcentagem);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao ler o tipo,"), e.textoCompleto());
    }
}

void OrdemServicoEntrada::aoSairTipo()
{
    const QString t = textoCombo(m_tipo, PromptTipo);
    if (t.isEmpty() || estado() == Estado::Navegacao)
        return;
    try {
        const QString guardado = CatalogosOrdem::garantirTipo(*banco(), t);
        if (m_tipo->findText(guardado) < 0) {
            const bool antes = m_tipo->blockSignals(true);
            m_tipo->addItem(guardado);
            m_tipo->blockSignals(antes);
        }
        m_tipo->setEditText(guardado);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar o tipo,"), e.textoCompleto());
    }
}

void OrdemServicoEntrada::aoSairMarca()
{
    const QString m = textoCombo(m_marca, PromptMarca);
    if (m.isEmpty() || estado() == Estado::Navegacao)
        return;
    try {
        CatalogosOrdem::garantirMarca(*banco(), m);
        if (m_marca->findText(m) < 0)
            m_marca->addItem(m);
        m_marca->setEditText(m);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar a marca,"), e.textoCompleto());
    }
}

// --- defects -------------------------------------------------------------------------------

void OrdemServicoEntrada::aoSairComboDefeito()
{
    const QString t = m_comboDef->currentText().trimmed();
    if (t.isEmpty() || !ligado(sessao().CfgAtivaDef))
        return;
    const int i = m_comboDef->findText(t, Qt::MatchFixedString);
    if (i >= 0) {
        adicionaDefeito(m_comboDef->itemData(i).toString(), m_comboDef->itemText(i));
    } else {
        try {
            const DefeitoCatalogo d = CatalogosOrdem::garantirDefeito(*banco(), t);
            m_comboDef->addItem(d.Defeito, d.CodDefeito);
            auto* it = new QListWidgetItem(d.Defeito, m_lCad);
            it->setData(Qt::UserRole, d.CodDefeito);
            adicionaDefeito(d.CodDefeito, d.Defeito);
        } catch (const ErroBanco& e) {
            Dialogos::erro(this, QStringLiteral("Erro ao gravar o defeito,"), e.textoCompleto());
            return;
        }
    }
    m_comboDef->setEditText(QString());
}

void OrdemServicoEntrada::codigoDefeitoEnter()
{
    const QString cod = m_codigoDef->text().trimmed();
    const int i = m_comboDef->findData(cod);
    if (i >= 0) {
        m_comboDef->setCurrentIndex(i);
        m_comboDef->setFocus();
    }
}

void OrdemServicoEntrada::adicionaDefeito(const QString& codigo, const QString& texto)
{
    if (estado() == Estado::Navegacao && ordemTravada())
        return;
    if (!m_ordem.adicionarSintoma({codigo, texto}))
        return;
    mostraDefeitos();
    aviso(QStringLiteral("Adicionado lista"));
    marcaAlterado();
}

void OrdemServicoEntrada::removeDefeito()
{
    const int i = m_lDef->currentRow();
    if (m_lDef->count() == 0 || i < 0) {
        Dialogos::mensagem(this, QStringLiteral("Não tem item"), QStringLiteral("Proibido"), Dialogos::Icone::Aviso);
        return;
    }
    if (estado() == Estado::Navegacao && ordemTravada())
        return;
    m_ordem.sintomas.removeAt(i);
    mostraDefeitos();
    aviso(QStringLiteral("Removido"));
    marcaAlterado();
}

