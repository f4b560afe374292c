#include "orders/OrdemServicoEntrada.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSqlRecord>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Local.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "documents/ImprimeDocumento.h"
#include "orders/CatalogosOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/NumeroOrdem.h"
#include "orders/TransicoesOrdem.h"
#include "orders/TravaOrdem.h"
#include "registers/PesquisaCliente.h"
#include "shell/Avisos.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString PromptTipo = QStringLiteral("Selecione ao lado o Tipo -->");
const QString PromptMarca = QStringLiteral("Selecione a marca -->");
const QString MsgNome = QStringLiteral("Coloque o nome do cliente");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString Salvar = QStringLiteral("&Salvar");
const QString Incluir = QStringLiteral("&Incluir");
const QString TituloTela = QStringLiteral("Cadastro de Ordem de Serviço   ");

bool ligado(const QString& cfg) { return Sessao::verdadeiro(cfg); }
} // namespace

OrdemServicoEntrada::OrdemServicoEntrada(QWidget* pai) : TelaCadastro(pai)
{
    setObjectName(QStringLiteral("OrdemServicoEntrada"));
    montaTela();
    def().tabela = QStringLiteral("OrdemServico");
    def().titulo = TituloTela.trimmed();
    def().colunaCodigo = QStringLiteral("CodOs");
    def().colunaCarimbo = QStringLiteral("OsAlterado");
    def().direito = QStringLiteral("DireitoOsEntAl");
    // The save and the deletion go through the order library: the base's own buttons 0
    // and 1 are rewired to this screen's steps.
    disconnect(botao(0), &QPushButton::clicked, this, nullptr);
    disconnect(botao(1), &QPushButton::clicked, this, nullptr);
    connect(botao(0), &QPushButton::clicked, this, &OrdemServicoEntrada::botaoIncluir);
    connect(botao(1), &QPushButton::clicked, this, &OrdemServicoEntrada::botaoSalvar);
    AcoesSenha::registrar(QStringLiteral("OrdemEntrada"), this, [this] { botaoSalvar(); });
    AcoesSenha::registrar(QStringLiteral("EntradaVisita"), this, [this] { pedirVisita(); });
    AcoesSenha::registrar(Recusa::origemLiberacao(), this, [] {});
    definirBotaoFechar(3);
    resize(1000, 640);
    if (iniciar())
        carregaCatalogos();
    // The customer's code is read, never typed: it wears the screen's colour.
    QPalette p = m_codCliente->palette();
    p.setColor(QPalette::Base, palette().color(QPalette::Window));
    m_codCliente->setPalette(p);
    aplicaCfgDefeitos();
    travaDatas(true);
    poeTitulo();
}

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
    auto* linhaDef = new QHBoxLayout;
    linhaDef->addWidget(m_comboDef, 3);
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
    connect(botao(2), &QPushButton::clicked, this, &OrdemServicoEntrada::imprimir);
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
    campos() = {{m_codOs, {}, T::Numero},   {m_fabrica, {}, T::Flag},  {m_codFabrica},   {m_cpf},
                {m_nome},                   {m_endereco},              {m_ncasa},        {m_bairro},
                {m_cidade},                 {m_telefone},              {m_celular},      {m_codCliente, {}, T::Exibicao},
                {m_tipo},                   {m_valorPorcentagem, {}, T::Numero},         {m_marca},
                {m_modelo},                 {m_serie},                 {m_cor},          {m_certificado},
                {m_nota},                   {m_dataNota},              {m_revendedor},   {m_estado},
                {m_acessorio},              {m_sintoma},               {m_observacao},   {m_armazenado},
                {m_dataEntrada},            {m_dataSaida},             {m_comboDef},     {m_codigoDef}};
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

void OrdemServicoEntrada::carregaCatalogos()
{
    // The first order is already shown when the lists arrive: its kind and brand stay.
    const QString tipo = m_tipo->currentText(), marca = m_marca->currentText();
    try {
        const bool antes = m_tipo->blockSignals(true);
        m_tipo->clear();
        for (const TipoAparelho& t : CatalogosOrdem::tipos(*banco()))
            m_tipo->addItem(t.Tipo, t.CodTipo);
        m_tipo->blockSignals(antes);
        m_marca->clear();
        m_marca->addItems(CatalogosOrdem::marcas(*banco()));
        m_comboDef->clear();
        m_lCad->clear();
        for (const DefeitoCatalogo& d : CatalogosOrdem::defeitos(*banco())) {
            m_comboDef->addItem(d.Defeito, d.CodDefeito);
            auto* it = new QListWidgetItem(d.Defeito, m_lCad);
            it->setData(Qt::UserRole, d.CodDefeito);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_tipo->setEditText(tipo);
    m_marca->setEditText(marca);
    m_comboDef->setEditText(QString());
}

void OrdemServicoEntrada::aplicaCfgDefeitos()
{
    const bool def = ligado(sessao().CfgAtivaDef);
    for (QWidget* w : {static_cast<QWidget*>(m_comboDef), static_cast<QWidget*>(m_codigoDef),
                       static_cast<QWidget*>(m_rotuloCodigoDef), static_cast<QWidget*>(m_lDef),
                       static_cast<QWidget*>(m_rotuloDefeitos), static_cast<QWidget*>(botao(6)),
                       static_cast<QWidget*>(botao(7))})
        w->setVisible(def);
    m_lCad->setVisible(false);
    m_sintoma->setVisible(!def);
}

void OrdemServicoEntrada::travaDatas(bool travadas)
{
    m_dataEntrada->setReadOnly(travadas);
    m_dataSaida->setReadOnly(travadas);
}

void OrdemServicoEntrada::poeTitulo()
{
    QString t = TituloTela + QString::number(total()) + QStringLiteral("   registros");
    if (chaveAtual() >= 0 && !novo())
        t += QStringLiteral("  --------   Alterado por: ") + m_ordem.OsAlterado;
    setWindowTitle(t);
}

QString OrdemServicoEntrada::textoCombo(const QComboBox* c, const QString& prompt) const
{
    const QString t = c->currentText().trimmed();
    return t == prompt ? QString() : t;
}

void OrdemServicoEntrada::aviso(const QString& texto)
{
    auto* a = new AvisoTransitorio(texto, 1500, true, this);
    a->setObjectName(QStringLiteral("AvisoEntrada"));
    a->setAttribute(Qt::WA_DeleteOnClose);
    a->show();
}

// --- showing ---------------------------------------------------------------------------

void OrdemServicoEntrada::limpaCampos()
{
    const Limpeza modo = m_limpeza;
    m_limpeza = Limpeza::Tudo;
    if (modo == Limpeza::SoNumero) {
        m_codOs->clear();
        poeTitulo();
        return;
    }
    const QList<QWidget*> cliente = {m_cpf, m_nome, m_endereco, m_ncasa, m_bairro,
                                     m_cidade, m_telefone, m_celular, m_codCliente};
    for (const CampoCadastro& c : campos())
        if (modo == Limpeza::Tudo || !cliente.contains(c.widget))
            Campos::limpa(c.widget);
    if (modo == Limpeza::Tudo)
        m_clienteNovo = false;
    m_tipo->setEditText(QString());
    m_marca->setEditText(QString());
    m_fabrica->setChecked(false);
    m_opPorcento->setAutoExclusive(false);
    m_opPorcento->setChecked(false);
    m_opValor->setChecked(false);
    m_opPorcento->setAutoExclusive(true);
    m_lDef->clear();
    m_ordem.sintomas.clear();
    m_cpfChecado.clear();
    poeTitulo();
}

void OrdemServicoEntrada::liberaCampos()
{
    TelaCadastro::liberaCampos();
    m_codFabrica->setEnabled(m_fabrica->isChecked());
    for (QWidget* w : {static_cast<QWidget*>(m_lDef), static_cast<QWidget*>(m_lCad),
                       static_cast<QWidget*>(m_opPorcento), static_cast<QWidget*>(m_opValor)})
        w->setEnabled(true);
}

void OrdemServicoEntrada::mostraRegistro(const Recordset& rs)
{
    std::optional<Ordem> o;
    try {
        o = GravacaoOrdem::carregar(*banco(), rs.chaveAtual());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_ordem = o.value_or(Ordem{});
    m_clienteNovo = false;
    mostra(m_ordem);
    travaDatas(true);
    poeTitulo();
}

void OrdemServicoEntrada::mostra(const Ordem& o)
{
    // Showing an order is not a change of it (the warranty copy is shown from outside).
    const QSignalBlocker b1(m_sintoma), b2(m_observacao);
    auto poe = [](QWidget* w, const QString& t) { Campos::poeTexto(w, t); };
    poe(m_codOs, o.CodOs ? QString::number(o.CodOs) : QString());
    m_fabrica->setChecked(o.Fabrica);
    poe(m_codFabrica, o.CodFabrica);
    m_codFabrica->setEnabled(o.Fabrica && m_fabrica->isEnabled());
    poe(m_cpf, o.CpfCnpj);
    m_cpfChecado = o.CpfCnpj;
    poe(m_nome, o.NomeCliente);
    poe(m_endereco, o.Endereco);
    poe(m_ncasa, o.Ncasa);
    poe(m_bairro, o.Bairro);
    poe(m_cidade, o.Cidade);
    poe(m_telefone, o.Telefone);
    poe(m_celular, o.Celular);
    poe(m_codCliente, o.CodCliente);
    m_tipo->setEditText(o.Tipo);
    poe(m_valorPorcentagem, o.ValorPorcentagem.texto());
    m_opPorcento->setChecked(o.TipoPorcentagem);
    m_opValor->setChecked(!o.TipoPorcentagem);
    m_marca->setEditText(o.Marca);
    poe(m_modelo, o.Modelo);
    poe(m_serie, o.NumeroSerie);
    poe(m_cor, o.CorProduto);
    poe(m_certificado, o.Certificado);
    poe(m_nota, o.NotaFiscal);
    poe(m_dataNota, Datas::bancoParaTela(o.DataNota));
    poe(m_revendedor, o.Revendedor);
    poe(m_estado, o.EstadoAparelho);
    poe(m_acessorio, o.Acessorio);
    poe(m_sintoma, o.Sintoma);
    poe(m_observacao, o.Observacao);
    poe(m_armazenado, o.Armazenado);
    poe(m_dataEntrada, Datas::bancoParaTela(o.DataEntrada));
    poe(m_dataSaida, Datas::bancoParaTela(o.DataSaida));
    mostraDefeitos();
}

void OrdemServicoEntrada::mostraDefeitos()
{
    m_lDef->clear();
    for (const SintomaOrdem& s : std::as_const(m_ordem.sintomas)) {
        auto* it = new QListWidgetItem(s.DefeitoOS, m_lDef);
        it->setData(Qt::UserRole, s.CodDef);
    }
}

void OrdemServicoEntrada::poeCliente(const EntradaRegras::ClienteBalcao& c)
{
    if (c.BloqCliente)
        Dialogos::mensagem(this, EntradaRegras::MsgClienteBloqueado, {}, Dialogos::Icone::Aviso);
    const bool antes = m_tipo->blockSignals(true);
    Campos::poeTexto(m_codCliente, c.CodCliente);
    Campos::poeTexto(m_nome, c.NomeCliente);
    Campos::poeTexto(m_endereco, c.enderecoComComplemento());
    Campos::poeTexto(m_ncasa, c.Numero);
    Campos::poeTexto(m_bairro, c.Bairro);
    Campos::poeTexto(m_cidade, c.Cidade);
    Campos::poeTexto(m_telefone, c.Telefone);
    Campos::poeTexto(m_celular, c.Celular);
    if (!c.CnpjCpf.isEmpty()) {
        Campos::poeTexto(m_cpf, c.CnpjCpf);
        m_cpfChecado = c.CnpjCpf;
    }
    m_tipo->blockSignals(antes);
    m_clienteNovo = false;
    if (estado() != Estado::Navegacao)
        marcaAlterado();
    m_tipo->setFocus();
}

bool OrdemServicoEntrada::mostraOrdem(const QString& codOs, const QString& codOsAut)
{
    try {
        const auto o = GravacaoOrdem::reabrir(*banco(), codOs, codOsAut, true);
        return o && irChave(o->CodOsAut);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

void OrdemServicoEntrada::mostraOrdem(const QVariantMap& dados)
{
    mostraOrdem(dados.value(QStringLiteral("CodOs")).toString(), dados.value(QStringLiteral("CodOsAut")).toString());
}

void OrdemServicoEntrada::novoComCliente(const QVariantMap& dados)
{
    if (estado() != Estado::Navegacao)
        return;
    m_retornoGarantia = false;
    Campos::limpa(m_nome);
    botaoIncluir();
    auto v = [&dados](const char* k) { return dados.value(QLatin1String(k)).toString(); };
    EntradaRegras::ClienteBalcao c;
    c.CodCliente = v("CodCliente");
    c.NomeCliente = v("NomeCliente");
    c.CnpjCpf = v("CnpjCpf");
    c.Endereco = v("Endereco");
    c.Numero = v("Numero");
    c.Bairro = v("Bairro");
    c.Cidade = v("Cidade");
    c.Telefone = v("Telefone");
    c.Celular = v("Celular");
    poeCliente(c);
}

void OrdemServicoEntrada::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && estado() == Estado::Navegacao)
        botaoIncluir();
}

void OrdemServicoEntrada::preparaRetornoGarantia(const Ordem& copia)
{
    if (estado() != Estado::Navegacao)
        incluirOuCancelar();
    m_ordem = copia;
    m_retornoGarantia = true;
    mostra(m_ordem);
}

// --- new, cancel --------------------------------------------------------------------------

void OrdemServicoEntrada::botaoIncluir()
{
    if (botao(0)->text() == Cancelar) {
        incluirOuCancelar();
        travaDatas(true);
        return;
    }
    QWidget* foco = m_cpf;
    Ordem mantida;
    if (m_retornoGarantia) {
        m_limpeza = Limpeza::SoNumero;
        mantida = m_ordem;
    } else if (Campos::texto(m_nome).trimmed().isEmpty()) {
        m_limpeza = Limpeza::Tudo;
    } else if (Dialogos::pergunta(this, QStringLiteral("Incluir mesmo cliente ?"))) {
        m_limpeza = Limpeza::Aparelho;
        foco = m_tipo;
    } else {
        m_limpeza = Limpeza::Tudo;
        foco = m_nome;
    }
    incluirOuCancelar();
    m_ordem = mantida;
    m_ordem.CodOsAut = 0;
    m_ordem.CodOs = 0;
    mostraDefeitos();
    // The catalogue of defects stays at hand while the order is typed.
    // The customer search and the catalogue of defects stay at hand while the order is
    // typed: the search is how a customer whose document isn't known is found.
    for (int i = 2; i <= 7; ++i)
        botao(i)->setEnabled(i == 4 || i >= 6);
    poeTitulo();
    foco->setFocus();
}

void OrdemServicoEntrada::voltaANavegacao(qint64 chave)
{
    botao(0)->setText(Cancelar);
    incluirOuCancelar();
    if (chave > 0)
        irChave(chave);
    travaDatas(true);
    poeTitulo();
}

// --- changes and the lock ------------------------------------------------------------------

void OrdemServicoEntrada::mostraRecusa(const Recusa& r)
{
    switch (r.seguimento) {
    case Recusa::Aviso:
        Dialogos::mensagem(this, r.mensagem, r.titulo, Dialogos::Icone::Aviso);
        break;
    case Recusa::Negado:
        RegistroTelas::abrir(QStringLiteral("Negado"));
        break;
    case Recusa::SenhaLiberaAltOs:
        Dialogos::mensagem(this, r.mensagem, r.titulo, Dialogos::Icone::Aviso);
        sessao().SenhaOrigem = Recusa::origemLiberacao();
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        break;
    }
}

bool OrdemServicoEntrada::ordemTravada()
{
    if (novo() || m_ordem.nova())
        return false;
    if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Entrada)) {
        mostraRecusa(*r);
        return true;
    }
    return false;
}

void OrdemServicoEntrada::marcaAlterado()
{
    if (!alterado() && !novo() && ordemTravada()) {
        // The text that slipped in (a paste, a double click) goes back to the stored order.
        const qint64 chave = chaveAtual();
        if (chave > 0)
            irChave(chave);
        return;
    }
    TelaCadastro::marcaAlterado();
}

bool OrdemServicoEntrada::eventFilter(QObject* alvo, QEvent* e)
{
    if (carregando())
        return TelaCadastro::eventFilter(alvo, e);
    auto* w = qobject_cast<QWidget*>(alvo);
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        const bool enter = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        const bool navega = enter || k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab;
        // A finalised order is refused before the key lands in the box.
        if (!navega && !k->text().isEmpty() && !alterado() && !novo() && ordemTravada())
            return true;
        if (alvo == m_tipo->lineEdit() && sessao().CfgPorcentSN.toInt() != 0 && !navega
            && k->key() != Qt::Key_Backspace)
            return true;
        if (alvo == m_codigoDef && enter) {
            codigoDefeitoEnter();
            return true;
        }
        if (alvo == m_lDef && (k->key() == Qt::Key_Delete))
            removeDefeito();
    } else if (e->type() == QEvent::FocusOut) {
        if (w == m_cpf)
            aoSairCpf();
        else if (w == m_codOs)
            aoSairNumero();
        else if (alvo == m_tipo->lineEdit() || w == m_tipo)
            aoSairTipo();
        else if (alvo == m_marca->lineEdit() || w == m_marca)
            aoSairMarca();
        else if (alvo == m_comboDef->lineEdit() || w == m_comboDef)
            aoSairComboDefeito();
    } else if (e->type() == QEvent::MouseButtonDblClick && (w == m_dataEntrada || w == m_dataSaida)) {
        if (w->isEnabled() && (novo() || alterado() || !ordemTravada())) {
            static_cast<QLineEdit*>(w)->setReadOnly(false);
            marcaAlterado();
        }
    }
    return TelaCadastro::eventFilter(alvo, e);
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

// --- save ----------------------------------------------------------------------------------

void OrdemServicoEntrada::botaoSalvar()
{
    const Sessao& s = sessao();
    if (s.SenhaObrigatoria != 0 && s.SenhaLiberada == 0) {
        sessao().SenhaOrigem = QStringLiteral("OrdemEntrada");
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        return;
    }
    if (botao(1)->text() == Salvar)
        salvarOrdem();
    else
        excluirOrdem();
}

Ordem OrdemServicoEntrada::ordemDosCampos(bool* ok)
{
    Ordem o = m_ordem;
    auto t = [](const QWidget* w) { return Campos::texto(w); };
    QString erro;
    const auto datas = EntradaRegras::lerDatas(t(m_dataEntrada), t(m_dataSaida), &erro);
    const QString nota = t(m_dataNota).trimmed();
    const auto dataNota = nota.isEmpty() ? std::optional<QString>(QString()) : Datas::telaParaBanco(nota);
    if (!datas || !dataNota) {
        Dialogos::mensagem(this, datas ? QStringLiteral("Data nota fiscal inválida: ") + nota : erro, {},
                           Dialogos::Icone::Aviso);
        *ok = false;
        return o;
    }
    if (!o.nova()) {
        QString erroNumero;
        if (auto n = NumeroOrdem::lerNumero(t(m_codOs), &erroNumero))
            o.CodOs = *n;
    }
    o.Fabrica = m_fabrica->isChecked();
    o.CodFabrica = t(m_codFabrica);
    o.CpfCnpj = t(m_cpf);
    o.NomeCliente = t(m_nome);
    o.Endereco = t(m_endereco);
    o.Ncasa = t(m_ncasa);
    o.Bairro = t(m_bairro);
    o.Cidade = t(m_cidade);
    o.Telefone = t(m_telefone);
    o.Celular = t(m_celular);
    o.CodCliente = t(m_codCliente);
    o.Tipo = textoCombo(m_tipo, PromptTipo);
    o.ValorPorcentagem = Dinheiro::lerTexto(t(m_valorPorcentagem)).value_or(Dinheiro());
    o.TipoPorcentagem = m_opPorcento->isChecked();
    o.Marca = textoCombo(m_marca, PromptMarca);
    o.Modelo = t(m_modelo);
    o.NumeroSerie = t(m_serie);
    o.CorProduto = t(m_cor);
    o.Certificado = t(m_certificado);
    o.NotaFiscal = t(m_nota);
    o.DataNota = *dataNota;
    o.Revendedor = t(m_revendedor);
    o.EstadoAparelho = t(m_estado);
    o.Acessorio = t(m_acessorio);
    o.Sintoma = ligado(sessao().CfgAtivaDef) ? GravacaoOrdem::textoDosSintomas(o) : t(m_sintoma);
    o.Observacao = t(m_observacao);
    o.Armazenado = t(m_armazenado);
    o.DataEntrada = datas->entrada;
    o.DataSaida = datas->saida;
    *ok = true;
    return o;
}

bool OrdemServicoEntrada::salvarOrdem()
{
    // The lock is looked at again: the order may have been closed at the till meanwhile.
    if (ordemTravada())
        return false;
    if (Campos::texto(m_nome).trimmed().isEmpty()) {
        Dialogos::mensagem(this, MsgNome);
        m_nome->setFocus();
        return false;
    }
    bool ok = false;
    Ordem o = ordemDosCampos(&ok);
    if (!ok)
        return false;
    EntradaRegras::ClienteBalcao cli;
    cli.NomeCliente = o.NomeCliente;
    cli.Endereco = o.Endereco;
    cli.Numero = o.Ncasa;
    cli.Bairro = o.Bairro;
    cli.Cidade = o.Cidade;
    cli.Telefone = o.Telefone;
    cli.Celular = o.Celular;
    cli.CnpjCpf = o.CpfCnpj;
    Banco& b = *banco();
    try {
        if (sessao().DireitoOsEntAl != 1) {
            // The customer typed at the counter is kept even when the order is refused:
            // the next attendant finds it by its document.
            if (m_clienteNovo) {
                Campos::poeTexto(m_codCliente, QString::number(EntradaRegras::gravarClienteNovo(b, cli)));
                m_clienteNovo = false;
            }
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return false;
        }
        // The factory question is asked before the transaction opens, so that no other
        // station waits on a question left open on this one.
        bool copiar = false;
        // A warranty return keeps the old order's number in the factory box: it is what
        // ties the return to the repair it claims on.
        const QString fabricaAntiga = m_retornoGarantia ? o.CodFabrica : QString();
        if (o.nova() && !m_retornoGarantia && NumeroOrdem::pedeNumeroFabrica(o))
            copiar = NumeroOrdem::perguntarCopiaFabrica(
                b, [this](const QString& titulo, const QString& texto) {
                    return Dialogos::pergunta(this, texto, titulo);
                });
        TransicoesOrdem::OpcoesEntrada op;
        op.retornoGarantia = m_retornoGarantia;
        op.perguntar = [copiar](const QString&, const QString&) { return copiar; };
        Transacao tr(b);
        if (m_clienteNovo)
            o.CodCliente = QString::number(EntradaRegras::gravarClienteNovo(b, cli));
        TransicoesOrdem::salvarEntrada(b, o, op);
        if (!fabricaAntiga.isEmpty() && o.CodFabrica != fabricaAntiga) {
            o.CodFabrica = fabricaAntiga;
            GravacaoOrdem::gravar(b, o, {}, TelaOrdem::Entrada);
        }
        tr.commit();
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return false;
    } catch (const ErroBanco& e) {
        // Nothing of the order or its new customer was stored; the boxes keep what was typed.
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
    m_clienteNovo = false;
    m_retornoGarantia = false;
    voltaANavegacao(o.CodOsAut);
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    emit gravou();
    if (LeIni(QStringLiteral("Impressao"), QStringLiteral("AutoEntrada"), Local::arquivoIni()).trimmed().toInt() == 1)
        botao(2)->click();
    return true;
}

// --- delete, print, house call -------------------------------------------------------------

void OrdemServicoEntrada::excluirOrdem()
{
    const qint64 chave = chaveAtual();
    if (chave < 0 || ordemTravada())
        return;
    if (sessao().DireitoOsEntAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?")))
        return;
    const bool permanente = sessao().DireitoPermanente == 1;
    qint64 anterior = -1;
    if (permanente && irAnterior()) {
        anterior = chaveAtual();
        irChave(chave);
    }
    try {
        TransicoesOrdem::excluir(*banco(), chave, TelaOrdem::Entrada);
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registro,"), e.textoCompleto());
        return;
    }
    voltaANavegacao(anterior);
    if (!permanente) {
        m_limpeza = Limpeza::Tudo;
        limpaCampos();
        bloqueiaCampos();
        m_ordem = Ordem{};
        for (int i = 1; i < 8; ++i)
            if (i != 3)
                botao(i)->setEnabled(false);
    }
    RegistroTelas::abrir(QStringLiteral("Excluido"));
    emit excluiu();
}

void OrdemServicoEntrada::imprimir()
{
    if (m_ordem.nova())
        return;
    ImprimeDocumento(*banco(), DocumentosOrdem::Entrada, m_ordem.CodOsAut, this);
}

void OrdemServicoEntrada::pedirVisita()
{
    if (Campos::texto(m_nome).trimmed().isEmpty()) {
        Dialogos::mensagem(this, MsgNome);
        m_nome->setFocus();
        return;
    }
    if (Campos::texto(m_endereco).trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Coloque o endereço do cliente"));
        m_nome->setFocus();
        return;
    }
    const Sessao& s = sessao();
    if (s.SenhaObrigatoria != 0 && s.SenhaLiberada == 0) {
        sessao().SenhaOrigem = QStringLiteral("EntradaVisita");
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Buscar aparelho no domicílio ?")))
        return;
    try {
        const qint64 cod = EntradaRegras::pedirVisita(*banco(), Campos::texto(m_codCliente), Campos::texto(m_nome),
                                                      Campos::texto(m_endereco), m_ordem.CodOs);
        Dialogos::mensagem(this, EntradaRegras::textoVisita(cod));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar a visita,"), e.textoCompleto());
    }
}

// --- closing -------------------------------------------------------------------------------

void OrdemServicoEntrada::closeEvent(QCloseEvent* e)
{
    if (alterado()) {
        const auto r = Dialogos::mensagem(this, QStringLiteral("Você alterou o registro,deseja salvar ?"), {},
                                          Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
        if (r == Dialogos::Resposta::Cancelar) {
            e->ignore();
            return;
        }
        if (r == Dialogos::Resposta::Sim) {
            const Sessao& s = sessao();
            if (s.SenhaObrigatoria != 0 && s.SenhaLiberada == 0) {
                sessao().SenhaOrigem = QStringLiteral("OrdemEntrada");
                RegistroTelas::abrir(QStringLiteral("SenhaPde"));
                e->ignore();
                return;
            }
            if (!salvarOrdem()) {
                e->ignore();
                return;
            }
        }
    }
    if (auto msg = TravaOrdem::aoSairDaTela()) {
        Dialogos::mensagem(this, *msg);
        RegistroTelas::abrir(QStringLiteral("Login"));
    }
    e->accept();
}

TOLDEX_REGISTRA_TELA(OrdemServicoEntrada)
