#include "cash/ContaReceber.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

#include "cash/PainelPix.h"
#include "cash/Pix.h"
#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/PaginasBusca.h"
#include "data/Sessao.h"
#include "documents/Fichas.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/ModeloPesquisa.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using Contas::Modo;
using Contas::Recusa;

namespace {
const QString TituloReceber = QStringLiteral("Contas a receber");
const QString TituloPagar = QStringLiteral("Contas a pagar");
constexpr int MaxTexto = 120;
enum { CodCliFor = 0, Referente = 1, Documento = 2, Dias = 3, Total = 4, Parcelas = 5, Entrada = 6 };
enum { ValorRecebido = 5, Observacao = 6 };
} // namespace

ContaReceber::ContaReceber(QWidget* pai) : QWidget(pai), m_destinoRecibo(Destino::impressora(this))
{
    setObjectName(QStringLiteral("ContaReceber"));
    setAttribute(Qt::WA_DeleteOnClose);
    montaTela();
    Pintura::pinta(this);
    m_banco = Conexoes::nova(&m_erroConexao);
    poeLado(Modo::Receber);
}

ContaReceber::~ContaReceber() = default;

void ContaReceber::montaTela()
{
    m_botoes.resize(12);
    auto botao = [this](int i, const QString& t, const QString& dica = {}) {
        auto* b = new QPushButton(t, this);
        b->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        b->setToolTip(dica);
        m_botoes[i] = b;
        return b;
    };
    auto* raiz = new QVBoxLayout(this);
    m_titulo = new QLabel(TituloReceber, this);
    m_titulo->setObjectName(QStringLiteral("Label1"));
    QFont f = m_titulo->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.4);
    m_titulo->setFont(f);
    raiz->addWidget(m_titulo);

    auto* topo = new QHBoxLayout;
    m_combo1 = new QComboBox(this);
    m_combo1->setObjectName(QStringLiteral("Combo1"));
    m_combo1->setMinimumWidth(220);
    m_text1 = new QLineEdit(this);
    m_text1->setObjectName(QStringLiteral("Text1"));
    m_text1->setMaxLength(MaxTexto);
    m_text1->setPlaceholderText(QStringLiteral("Nome ou titular"));
    m_dt = new QDateEdit(QDate::currentDate(), this);
    m_dt->setObjectName(QStringLiteral("Dt"));
    m_dt->setCalendarPopup(true);
    m_dt->setDisplayFormat(Datas::FormatoTela);
    topo->addWidget(m_combo1);
    topo->addWidget(m_text1, 1);
    topo->addWidget(m_dt);
    topo->addWidget(botao(3, QStringLiteral("Pes&quisar"), QStringLiteral("Pesquisa pela busca escolhida")));
    topo->addWidget(botao(8, QStringLiteral("Contas &Pagar"), QStringLiteral("Troca entre contas a receber e a pagar")));
    topo->addWidget(botao(9, QStringLiteral("&Nova conta"), QStringLiteral("Cadastro contas a pagar")));
    raiz->addLayout(topo);

    auto* meio = new QHBoxLayout;
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->verticalHeader()->hide();
    m_modelo = new ModeloPesquisa(this);
    m_grade->setModel(m_modelo);
    m_ltd = new QListWidget(this);
    m_ltd->setObjectName(QStringLiteral("Ltd"));
    meio->addWidget(m_grade, 3);
    meio->addWidget(m_ltd, 2);
    raiz->addLayout(meio, 1);

    raiz->addWidget(montaPagamento());
    m_frameData = new QGroupBox(QStringLiteral("Nova data de vencimento"), this);
    m_frameData->setObjectName(QStringLiteral("Frame2"));
    auto* fd = new QHBoxLayout(m_frameData);
    m_dtA = new QDateEdit(QDate::currentDate(), m_frameData);
    m_dtA->setObjectName(QStringLiteral("DtA"));
    m_dtA->setCalendarPopup(true);
    m_dtA->setDisplayFormat(Datas::FormatoTela);
    fd->addWidget(new QLabel(QStringLiteral("Vencimento"), m_frameData));
    fd->addWidget(m_dtA);
    fd->addStretch();
    raiz->addWidget(m_frameData);
    raiz->addWidget(montaNovaConta());

    auto* base = new QHBoxLayout;
    base->addWidget(botao(0, QStringLiteral("Paga&mento"), QStringLiteral("Registra o pagamento da parcela")));
    base->addWidget(botao(7, QStringLiteral("Nova &data"), QStringLiteral("Muda a data de vencimento")));
    base->addWidget(botao(6, QStringLiteral("&Confirmar"), QStringLiteral("Confirma o pagamento ou a nova data")));
    base->addWidget(botao(5, QStringLiteral("Fec&har"), QStringLiteral("Fecha o pagamento")));
    base->addWidget(botao(1, QStringLiteral("&Recibo"), QStringLiteral("Imprime o recibo da parcela")));
    base->addWidget(botao(4, QStringLiteral("&Excluir"), QStringLiteral("Exclui a parcela")));
    base->addStretch();
    base->addWidget(botao(2, QStringLiteral("Sai&r")));
    raiz->addLayout(base);

    connect(m_botoes[0], &QPushButton::clicked, this, [this] { mostraPagamento(m_framePagamento->isHidden()); });
    connect(m_botoes[5], &QPushButton::clicked, this, [this] { mostraPagamento(false); });
    connect(m_botoes[1], &QPushButton::clicked, this, &ContaReceber::imprimeRecibo);
    connect(m_botoes[2], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    connect(m_botoes[3], &QPushButton::clicked, this, &ContaReceber::pesquisa);
    connect(m_botoes[4], &QPushButton::clicked, this, &ContaReceber::exclui);
    connect(m_botoes[6], &QPushButton::clicked, this, &ContaReceber::confirma);
    connect(m_botoes[7], &QPushButton::clicked, this, [this] { mostraNovaData(m_frameData->isHidden()); });
    connect(m_botoes[8], &QPushButton::clicked, this, &ContaReceber::alternaLado);
    connect(m_botoes[9], &QPushButton::clicked, this, [this] { mostraNovaConta(true); });
    connect(m_botoes[10], &QPushButton::clicked, this, [this] { gravaNovaConta(); });
    connect(m_botoes[11], &QPushButton::clicked, this, [this] { mostraNovaConta(false); });
    connect(m_text1, &QLineEdit::returnPressed, this, &ContaReceber::pesquisa);
    connect(m_grade->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& atual) { escolheLinha(atual.isValid() ? atual.row() : -1); });
    connect(m_modelo, &ModeloPesquisa::contou, this, &ContaReceber::atualizaTitulo);
    connect(m_modelo, &ModeloPesquisa::falhou, this, [this](const QString& m) {
        Dialogos::erro(this, QStringLiteral("houve uma perda na comunicação ao banco de dados,"), m);
    });
    resize(1100, 680);
}

QWidget* ContaReceber::montaPagamento()
{
    m_framePagamento = new QGroupBox(QStringLiteral("Pagamento"), this);
    m_framePagamento->setObjectName(QStringLiteral("Frame1"));
    auto* g = new QGridLayout(m_framePagamento);
    const QStringList rotulos = {QStringLiteral("Cliente/Titulo"), QStringLiteral("Parcela"),
                                 QStringLiteral("Vencimento"), QStringLiteral("Valor total"),
                                 QStringLiteral("Venda/Doc."), QStringLiteral("Valor recebido"),
                                 QStringLiteral("Observação"), QStringLiteral("Tipo pagamento")};
    for (int i = 0; i < 8; ++i) {
        auto* le = new QLineEdit(m_framePagamento);
        le->setObjectName(QStringLiteral("Text2(%1)").arg(i));
        le->setReadOnly(i != ValorRecebido && i != Observacao);
        le->setMaxLength(i == Observacao ? 250 : MaxTexto);
        m_text2 << le;
        g->addWidget(new QLabel(rotulos.at(i), m_framePagamento), i / 4 * 2, i % 4);
        g->addWidget(le, i / 4 * 2 + 1, i % 4);
    }
    Campos::preparaLinha(m_text2[ValorRecebido], true);
    connect(m_text2[ValorRecebido], &QLineEdit::editingFinished, this, [this] { formataValor(m_text2[ValorRecebido]); });
    m_dtR = new QLineEdit(m_framePagamento);
    m_dtR->setObjectName(QStringLiteral("DtR"));
    m_dtR->setInputMask(QStringLiteral("99/99/9999;_"));
    m_combo2 = new QComboBox(m_framePagamento);
    m_combo2->setObjectName(QStringLiteral("Combo2"));
    m_combo2->setEditable(true);
    m_combo2->addItems({QString(), QStringLiteral("TRANSFERENCIA BANCARIA"), QStringLiteral("DINHEIRO"),
                        QStringLiteral("CHEQUE"), QStringLiteral("CARTÃO DE DÉBITO"), QStringLiteral("CARTÃO DE CRÉDITO"),
                        QStringLiteral("DEPÓSITO BANCÁRIO"), QStringLiteral("TRANSFRÊNCIA BANCÁRIA"),
                        QStringLiteral("OUTROS")});
    g->addWidget(new QLabel(QStringLiteral("Data pagamento"), m_framePagamento), 4, 0);
    g->addWidget(m_dtR, 5, 0);
    g->addWidget(new QLabel(QStringLiteral("Tipo recebimento"), m_framePagamento), 4, 1);
    g->addWidget(m_combo2, 5, 1);
    m_pix = new PainelPix(Qt::Horizontal, m_framePagamento);
    g->addWidget(m_pix, 6, 0, 1, 4);
    connect(m_combo2, &QComboBox::currentTextChanged, this, [this] {
        m_pix->esconde();
        atualizaPix();
    });
    connect(m_text2[ValorRecebido], &QLineEdit::editingFinished, this, &ContaReceber::atualizaPix);
    return m_framePagamento;
}

QWidget* ContaReceber::montaNovaConta()
{
    m_frameConta = new QGroupBox(QStringLiteral("Cadastro contas a pagar"), this);
    m_frameConta->setObjectName(QStringLiteral("Frame3"));
    auto* g = new QGridLayout(m_frameConta);
    m_cliFor = new QComboBox(m_frameConta);
    m_cliFor->setObjectName(QStringLiteral("CBCliFor"));
    m_cliFor->setEditable(true);
    m_cliFor->setInsertPolicy(QComboBox::NoInsert);
    m_cliFor->lineEdit()->setMaxLength(MaxTexto);
    for (int i = 0; i <= Entrada; ++i) {
        auto* le = new QLineEdit(m_frameConta);
        le->setObjectName(QStringLiteral("Txt(%1)").arg(i));
        le->setMaxLength(MaxTexto);
        if (i >= Dias)
            Campos::preparaLinha(le, true);
        m_txt << le;
    }
    m_txt[CodCliFor]->setReadOnly(true);
    m_cbConta = new QComboBox(m_frameConta);
    m_cbConta->setObjectName(QStringLiteral("CbConta"));
    m_cbConta->addItems({QString(), QStringLiteral("Boleto"), QStringLiteral("Cartão crédito"), QStringLiteral("Cheque")});
    m_dtCompra = new QDateEdit(QDate::currentDate(), m_frameConta);
    m_dtCompra->setObjectName(QStringLiteral("DtCompra"));
    m_dtCompra->setCalendarPopup(true);
    m_dtCompra->setDisplayFormat(Datas::FormatoTela);
    auto par = [&](int linha, int col, const QString& rotulo, QWidget* w) {
        g->addWidget(new QLabel(rotulo, m_frameConta), linha, col * 2);
        g->addWidget(w, linha, col * 2 + 1);
    };
    m_botoes[10] = new QPushButton(QStringLiteral("&Gravar"), m_frameConta);
    m_botoes[10]->setObjectName(QStringLiteral("Botao(10)"));
    m_botoes[11] = new QPushButton(QStringLiteral("Fechar"), m_frameConta);
    m_botoes[11]->setObjectName(QStringLiteral("Botao(11)"));
    par(0, 0, QStringLiteral("Nome"), m_cliFor);
    par(0, 1, QStringLiteral("Código"), m_txt[CodCliFor]);
    par(0, 2, QStringLiteral("Referente"), m_txt[Referente]);
    par(0, 3, QStringLiteral("Nº documento"), m_txt[Documento]);
    par(1, 0, QStringLiteral("Tipo conta"), m_cbConta);
    par(1, 1, QStringLiteral("Data compra"), m_dtCompra);
    par(1, 2, QStringLiteral("Valor total"), m_txt[Total]);
    par(1, 3, QStringLiteral("Entrada"), m_txt[Entrada]);
    par(2, 0, QStringLiteral("Parcelas"), m_txt[Parcelas]);
    par(2, 1, QStringLiteral("Dias entre parcelas"), m_txt[Dias]);
    g->addWidget(m_botoes[10], 2, 5);
    g->addWidget(m_botoes[11], 2, 6);
    for (int i : {Total, Entrada})
        connect(m_txt[i], &QLineEdit::editingFinished, this, [this, i] { formataValor(m_txt[i]); });
    connect(m_cliFor->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& t) {
        m_txt[CodCliFor]->clear();
        carregaNomes(t);
    });
    connect(m_cliFor, &QComboBox::activated, this,
            [this](int i) { m_txt[CodCliFor]->setText(m_cliFor->itemData(i).toString()); });
    return m_frameConta;
}

// An empty amount box reads "0,00"; one that isn't an amount is left for the save to point at.
void ContaReceber::formataValor(QLineEdit* le)
{
    if (const auto v = Dinheiro::lerTexto(le->text()))
        le->setText(v->texto());
}

void ContaReceber::abrirNoModo(const QString& modo)
{
    if (modo.compare(QLatin1String("Pagar"), Qt::CaseInsensitive) == 0) {
        poeLado(Modo::Pagar);
    } else {
        poeLado(Modo::Receber);
        if (modo.compare(QLatin1String("Cheques"), Qt::CaseInsensitive) == 0)
            m_combo1->setCurrentIndex(Contas::buscas(Modo::Receber).indexOf(QStringLiteral("Mostra cheque vencido")));
    }
}

void ContaReceber::atualizaPix()
{
    // Only money coming in has a QR: a bill the shop pays is paid from the bank's app.
    if (m_modoLista != Modo::Receber || m_escolhida.vazia() || m_framePagamento->isHidden()
        || m_combo2->currentText() != Pix::FormaPagamento) {
        m_pix->esconde();
        return;
    }
    const QString digitado = m_text2[ValorRecebido]->text().trimmed();
    const QSqlRecord& r = m_escolhida.lida;
    const auto valor = digitado.isEmpty()
        ? std::optional<Dinheiro>(Dinheiro::deCentavos(r.value(QStringLiteral("ValorParcela")).toLongLong()))
        : Dinheiro::lerTexto(digitado);
    if (valor)
        m_pix->mostra(*valor, r.value(QStringLiteral("CodVenda")).toString());
}

void ContaReceber::poeLado(Modo lado)
{
    m_lado = lado;
    m_modoLista = lado;
    const bool pagar = lado == Modo::Pagar;
    m_titulo->setText(pagar ? TituloPagar : TituloReceber);
    setWindowTitle(pagar ? TituloPagar : TituloReceber);
    m_botoes[8]->setText(pagar ? QStringLiteral("Contas Rece&ber") : QStringLiteral("Contas &Pagar"));
    m_combo1->clear();
    m_combo1->addItems(Contas::buscas(lado));
    const int iPix = m_combo2->findText(Pix::FormaPagamento);
    const bool comPix = !pagar && Pix::configurado().has_value();
    if (comPix && iPix < 0)
        m_combo2->addItem(Pix::FormaPagamento);
    else if (!comPix && iPix >= 0)
        m_combo2->removeItem(iPix);
    m_modelo->limpar();
    limpaEscolha();
    mostraPagamento(false);
    mostraNovaData(false);
    mostraNovaConta(false);
}

void ContaReceber::alternaLado() { poeLado(m_lado == Modo::Pagar ? Modo::Receber : Modo::Pagar); }

void ContaReceber::limpaEscolha()
{
    m_escolhida = Contas::Escolhida{m_modoLista, {}};
    m_pix->esconde();
    m_ltd->clear();
    for (int i = 0; i < m_text2.size(); ++i)
        if (i != ValorRecebido && i != Observacao)
            m_text2[i]->clear();
}

void ContaReceber::atualizaTitulo()
{
    // The number follows the first page in a moment; until then the caption has none.
    const QString titulo = Contas::titulo(m_modoLista, m_modelo->contando() ? 0 : m_modelo->total());
    setWindowTitle(m_modelo->contando() ? titulo.section(QStringLiteral(" - "), 0, 0) : titulo);
}

qint64 ContaReceber::encontrados() const { return m_modelo->temConvite() ? 0 : m_modelo->total(); }

void ContaReceber::pesquisa()
{
    if (!conectado())
        return;
    const bool ok = executa(QStringLiteral("Erro ao carregar formulário,"), [&] {
        const Contas::Pesquisa p =
            Contas::pesquisa(*m_banco, m_lado, m_combo1->currentText(), m_text1->text(), m_dt->date());
        m_modoLista = p.modo;
        const QStringList colunas = Contas::colunasGrade(p.modo);
        QList<ModeloPesquisa::Coluna> defs;
        for (int i = 0; i < colunas.size(); ++i)
            defs.append({colunas.at(i), i == 0 ? QStringLiteral("Cliente/Titulo")
                                                : i == 1 ? QStringLiteral("Vencimento") : QString()});
        m_modelo->defineColunas(defs, [](const QString& c, const QVariant& v) { return Contas::textoCelula(c, v); });
        m_modelo->abrir(std::make_unique<PaginasBusca>(*m_banco, Contas::tabela(p.modo), p.onde, p.ordem, colunas),
                        ModeloPesquisa::Contagem::Depois);
        for (int i = 0; i < colunas.size(); ++i)
            m_grade->setColumnHidden(i, i > 1);
        m_grade->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
        atualizaTitulo();
    });
    if (ok)
        limpaEscolha();
}

void ContaReceber::escolheLinha(int linha)
{
    limpaEscolha();
    if (linha < 0 || m_modelo->temConvite() || linha >= m_modelo->rowCount())
        return;
    m_escolhida = Contas::Escolhida{m_modoLista, m_modelo->registro(linha)};
    if (m_escolhida.vazia())
        return;
    m_ltd->addItems(Contas::detalhe(m_modoLista, m_escolhida.lida));
    const QSqlRecord& r = m_escolhida.lida;
    const bool pagar = m_modoLista == Modo::Pagar;
    auto v = [&r](const QString& c) { return Contas::textoCelula(c, r.value(c)); };
    m_text2[0]->setText(v(m_modoLista == Modo::Cheques ? QStringLiteral("TitularConta")
                                                       : pagar ? QStringLiteral("Fornecedor") : QStringLiteral("NomeCliente")));
    m_text2[1]->setText(v(QStringLiteral("NumeroParcela")) + QStringLiteral(" - ") + v(QStringLiteral("ValorParcela")));
    m_text2[2]->setText(v(QStringLiteral("DataVencimento")));
    m_text2[3]->setText(v(QStringLiteral("ValorTotal")));
    m_text2[4]->setText(v(pagar ? QStringLiteral("CodDoc") : QStringLiteral("CodVenda")));
    m_text2[7]->setText(v(pagar ? QStringLiteral("TipoConta") : QStringLiteral("TipoPagamento")));
    atualizaPix();
}

void ContaReceber::mostraPagamento(bool ver)
{
    m_framePagamento->setVisible(ver);
    atualizaPix();
    if (ver) {
        m_frameData->setVisible(false);
        m_dtR->setText(QDate::currentDate().toString(Datas::FormatoTela));
        m_text2[ValorRecebido]->setFocus();
    }
}

void ContaReceber::mostraNovaData(bool ver)
{
    m_frameData->setVisible(ver);
    if (ver) {
        m_framePagamento->setVisible(false);
        if (const auto d = Datas::lerBanco(m_escolhida.lida.value(QStringLiteral("DataVencimento")).toString()))
            m_dtA->setDate(*d);
    }
}

void ContaReceber::mostraNovaConta(bool ver)
{
    m_frameConta->setVisible(ver);
    if (!ver)
        return;
    m_frameConta->setTitle(QStringLiteral("Cadastro contas a pagar"));
    for (QLineEdit* le : std::as_const(m_txt))
        le->clear();
    m_txt[Dias]->setText(QStringLiteral("28"));
    m_dtCompra->setDate(QDate::currentDate());
    m_cliFor->clear();
    carregaNomes({});
    m_cliFor->setFocus();
}

void ContaReceber::carregaNomes(const QString& comeco)
{
    if (!m_banco)
        return;
    try {
        const auto lista = Contas::nomes(*m_banco, m_lado, comeco);
        const QSignalBlocker b(m_cliFor);
        const QString digitado = m_cliFor->currentText();
        m_cliFor->clear();
        for (const auto& [codigo, nome] : lista)
            m_cliFor->addItem(nome, codigo);
        m_cliFor->setCurrentIndex(-1);
        m_cliFor->setEditText(digitado);
    } catch (const ErroBanco&) {
        // The list is a help only: the name can still be typed.
    }
}

void ContaReceber::recusa(const Recusa& r)
{
    if (r.campo == Recusa::Negado) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    const bool critico = r.campo == Recusa::Linha || r.campo == Recusa::Valor;
    Dialogos::mensagem(this, r.mensagem, r.titulo.isEmpty() ? windowTitle() : r.titulo,
                       critico ? Dialogos::Icone::Critico : Dialogos::Icone::Aviso);
    QWidget* foco = nullptr;
    switch (r.campo) {
    case Recusa::Linha: foco = m_combo1; break;
    case Recusa::Busca: foco = m_text1; break;
    case Recusa::Valor: foco = m_text2[ValorRecebido]; break;
    case Recusa::Data: foco = !m_frameData->isHidden() ? static_cast<QWidget*>(m_dtA) : m_dtR; break;
    case Recusa::CliFor: foco = m_cliFor; break;
    case Recusa::Total: foco = m_txt[Total]; break;
    case Recusa::Parcelas: foco = m_txt[Parcelas]; break;
    case Recusa::Dias: foco = m_txt[Dias]; break;
    case Recusa::Entrada: foco = m_txt[Entrada]; break;
    default: break;
    }
    if (foco)
        foco->setFocus();
}

void ContaReceber::erroBanco(const QString& titulo, const ErroBanco& e)
{
    Dialogos::erro(this,
                   titulo + QStringLiteral("\nhouve uma perda na comunicação ao banco de dados,\ninforme o erro ao "
                                           "suporte.\nFECHE O FORMULÁRIO E TENTE NOVAMENTE"),
                   e.textoCompleto());
}

bool ContaReceber::conectado()
{
    if (m_banco)
        return true;
    Dialogos::erro(this, QStringLiteral("houve uma perda na comunicação ao banco de dados,"),
                   m_erroConexao.isEmpty() ? QStringLiteral("Sem conexão com o banco de dados.") : m_erroConexao);
    return false;
}

bool ContaReceber::executa(const QString& tituloErro, const std::function<void()>& acao)
{
    try {
        acao();
        return true;
    } catch (const Recusa& r) {
        recusa(r);
    } catch (const ErroBanco& e) {
        erroBanco(tituloErro, e);
    }
    return false;
}

void ContaReceber::confirma()
{
    if (!conectado())
        return;
    const bool pagamento = !m_framePagamento->isHidden();
    const bool data = !m_frameData->isHidden();
    if (pagamento && !m_escolhida.vazia() && !m_pix->isHidden() && !m_pix->confirmaRecebimento(this))
        return;
    const bool ok = executa(QStringLiteral("Erro ao gravar formulário,"), [&] {
        if (m_escolhida.vazia())
            throw Recusa(QStringLiteral("Selecione um registro"), Recusa::Linha);
        if (pagamento) {
            if (m_text2[ValorRecebido]->text().trimmed().isEmpty())
                throw Recusa(QStringLiteral("Coloque o valor recebido"), Recusa::Valor);
            Contas::Pagamento p;
            p.valor = m_text2[ValorRecebido]->text();
            p.forma = m_combo2->currentText();
            p.observacao = m_text2[Observacao]->text();
            const QString dia = Campos::texto(m_dtR);
            if (!dia.isEmpty()) {
                p.data = Datas::lerTela(m_dtR->text());
                if (!p.data)
                    throw Recusa(QStringLiteral("Data inválida: digite o dia, o mês e o ano (dd/mm/aaaa)."), Recusa::Data);
            }
            Contas::pagar(*m_banco, m_escolhida, p);
        } else if (data) {
            Contas::novaData(*m_banco, m_escolhida, m_dtA->date());
        }
    });
    if (!ok || (!pagamento && !data))
        return;
    const Contas::Escolhida feita = m_escolhida;
    if (pagamento) {
        m_text2[ValorRecebido]->clear();
        m_text2[Observacao]->clear();
        if (Dialogos::pergunta(this, QStringLiteral("imprimir recibo ?"), windowTitle()))
            imprime(Contas::ler(*m_banco, feita.modo, feita.chave()));
    }
    pesquisa();
    m_ltd->clear();
}

void ContaReceber::exclui()
{
    if (!conectado())
        return;
    bool confirmou = false;
    const bool ok = executa(QStringLiteral("Erro ao excluir o formulario"), [&] {
        if (m_escolhida.vazia())
            throw Recusa(QStringLiteral("Escolha um registro"), Recusa::Linha, QStringLiteral("Proibido"));
        if (sessao().DireitoContaAl != 1)
            throw Recusa({}, Recusa::Negado);
        confirmou = Dialogos::pergunta(this, QStringLiteral("Registro será excluído permanentemente,deseja excluir ?"),
                                       windowTitle());
        if (confirmou)
            Contas::excluir(*m_banco, m_escolhida);
    });
    if (ok && confirmou)
        pesquisa();
}

bool ContaReceber::imprime(const QSqlRecord& linha)
{
    if (linha.isEmpty())
        return false;
    sessao().FichaTipo = QString::number(int(TipoFicha::ReciboCompacto));
    sessao().FichaCopias = QStringLiteral("1");
    Destino d = m_destinoRecibo;
    d.nomeProposto = QStringLiteral("Recibo ") + Contas::textoCelula(QStringLiteral("NumeroParcela"),
                                                                        linha.value(QStringLiteral("NumeroParcela")))
                                                     .replace(QLatin1Char('/'), QLatin1Char('-'));
    return Impressao::reciboCompacto(*m_banco, Contas::recibo(m_escolhida.modo, linha), d);
}

void ContaReceber::imprimeRecibo()
{
    if (!conectado())
        return;
    if (m_escolhida.vazia())
        return recusa(Recusa(QStringLiteral("Selecione um registro"), Recusa::Linha));
    try {
        const QSqlRecord atual = Contas::ler(*m_banco, m_escolhida.modo, m_escolhida.chave());
        if (atual.isEmpty())
            return recusa(Recusa(Contas::MsgSumiu, Recusa::Linha));
        imprime(atual);
    } catch (const ErroBanco& e) {
        erroBanco(QStringLiteral("Erro ao imprimir,"), e);
    }
}

bool ContaReceber::gravaNovaConta()
{
    if (!conectado())
        return false;
    Contas::NovaConta c;
    c.modo = m_lado;
    c.codigo = m_txt[CodCliFor]->text();
    c.nome = m_cliFor->currentText();
    c.documento = m_txt[Documento]->text();
    c.referente = m_txt[Referente]->text();
    c.tipoConta = m_cbConta->currentText();
    c.dias = m_txt[Dias]->text();
    c.total = m_txt[Total]->text();
    c.parcelas = m_txt[Parcelas]->text();
    c.entrada = m_txt[Entrada]->text();
    c.compra = m_dtCompra->date();
    if (!executa(QStringLiteral("Erro ao gravar formulário,"),
                 [&] { Contas::gravar(*m_banco, c, m_hoje.isValid() ? m_hoje : QDate::currentDate()); }))
        return false;
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    mostraNovaConta(false);
    return true;
}

TOLDEX_REGISTRA_TELA(ContaReceber)
