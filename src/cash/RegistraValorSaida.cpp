#include "cash/RegistraValorSaida.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "cash/FormasPagamento.h"
#include "cash/PainelPix.h"
#include "cash/Pix.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "documents/ImprimeDocumento.h"
#include "registers/CamposDocumento.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

TOLDEX_REGISTRA_TELA(RegistraValorSaida)

namespace {
const QString Titulo = QStringLiteral("Saída de conserto da oficina,registre o valor.");
// The boxes by their index, with their labels; the rest of the array has no box.
const QList<std::pair<int, QString>> Rotulos = {
    {0, "Ord/Serviço"}, {1, "CPF/CNPJ"}, {2, "Nome"}, {3, "Endereço"}, {4, "Nº casa"}, {5, "Bairro"},
    {6, "Cidade"}, {7, "Telefone"}, {8, "Celular"}, {9, "Modelo"}, {13, "O.S/Fábrica"}, {14, "Data entrada"},
    {15, "Data saída"}, {16, ""}, {10, "Valor total"}, {17, "Desconto"}, {11, "Valor pago"}, {12, "Valor troco"}};
}

RegistraValorSaida::RegistraValorSaida(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("RegistraValorSaida"));
    setWindowTitle(Titulo);
    montaTela();
    QString erro;
    m_banco = Conexoes::nova(&erro);
    AcoesSenha::registrar(QStringLiteral("RegistraValor"), this, [this] { registrar(); });
    limpaCampos();
    Pintura::pinta(this);
    aplicaEstado();
}

RegistraValorSaida::~RegistraValorSaida() = default;

void RegistraValorSaida::montaTela()
{
    for (int i = 0; i <= 17; ++i) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QStringLiteral("Txt(%1)").arg(i));
        m_txt << t;
        if (i == 10 || i == 11 || i == 12 || i == 17)
            t->setAlignment(Qt::AlignRight);
    }
    for (int i : {0, 14, 15, 16})
        m_txt[i]->setReadOnly(true);
    m_txt[16]->setMaximumWidth(70);
    m_txt[16]->setToolTip(QStringLiteral("Código do cliente"));
    for (int i = 0; i < 2; ++i) {
        m_ctxt[i] = new QLineEdit(this);
        m_ctxt[i]->setObjectName(QStringLiteral("Ctxt(%1)").arg(i));
        m_ctxt[i]->setReadOnly(true);
    }
    CamposDocumento::preparaCnpjCpf(m_txt[1]);
    CamposDocumento::preparaTelefone(m_txt[7]);
    CamposDocumento::preparaTelefone(m_txt[8]);

    auto rotulo = [this](int i) {
        for (const auto& [n, texto] : Rotulos)
            if (n == i)
                return new QLabel(texto, this);
        return new QLabel(this);
    };
    auto* cliente = new QGroupBox(QStringLiteral("Cliente e aparelho"), this);
    auto* g = new QGridLayout(cliente);
    auto poe = [&](int i, int linha, int col, int span = 1) {
        g->addWidget(rotulo(i), linha, col);
        g->addWidget(m_txt[i], linha, col + 1, 1, span);
    };
    poe(0, 0, 0);
    poe(13, 0, 2);
    poe(14, 0, 4);
    poe(15, 0, 6);
    poe(2, 1, 0, 5);
    g->addWidget(m_txt[16], 1, 7);
    poe(1, 2, 0);
    poe(7, 2, 2);
    poe(8, 2, 4);
    poe(3, 3, 0, 5);
    poe(4, 3, 6);
    poe(5, 4, 0, 3);
    poe(6, 4, 4, 3);
    g->addWidget(new QLabel(QStringLiteral("Tipo"), this), 5, 0);
    g->addWidget(m_ctxt[0], 5, 1);
    g->addWidget(new QLabel(QStringLiteral("Marca"), this), 5, 2);
    g->addWidget(m_ctxt[1], 5, 3);
    poe(9, 5, 4, 3);

    auto* valores = new QGroupBox(QStringLiteral("Valores"), this);
    auto* gv = new QGridLayout(valores);
    int linha = 0;
    for (int i : {10, 17, 11, 12}) {
        gv->addWidget(rotulo(i), linha, 0);
        gv->addWidget(m_txt[i], linha++, 1);
    }
    QFont grande = m_txt[10]->font();
    grande.setPointSize(grande.pointSize() + 4);
    grande.setBold(true);
    for (int i : {10, 17, 11, 12})
        m_txt[i]->setFont(grande);

    auto* pagamento = new QGroupBox(QStringLiteral("Forma de pagamento"), this);
    auto* gp = new QGridLayout(pagamento);
    m_forma = new QComboBox(this);
    m_forma->setObjectName(QStringLiteral("CForma"));
    m_forma->setEditable(true);
    for (const FormasPagamento::Forma& f : FormasPagamento::todas())
        if (f.texto != Pix::FormaPagamento)  // added at each opening while PIX is on
            m_forma->addItem(f.texto);
    m_pendurar = new QCheckBox(QStringLiteral("Pendurar divida."), this);
    m_pendurar->setObjectName(QStringLiteral("OptPagar"));
    m_data = new QDateEdit(QDate::currentDate(), this);
    m_data->setObjectName(QStringLiteral("DtData"));
    m_data->setCalendarPopup(true);
    m_data->setDisplayFormat(Datas::FormatoTela);
    gp->addWidget(m_forma, 0, 0, 1, 3);
    gp->addWidget(m_pendurar, 1, 0);
    gp->addWidget(new QLabel(QStringLiteral("Data escolhida:"), this), 1, 1);
    gp->addWidget(m_data, 1, 2);
    gp->addWidget(new QLabel(QStringLiteral("Parcela"), this), 2, 1);
    gp->addWidget(new QLabel(QStringLiteral("Vencimento"), this), 2, 2);
    for (int i = 0; i < 8; ++i) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QStringLiteral("Text6(%1)").arg(i));
        m_text6 << t;
    }
    for (int i = 0; i < 4; ++i) {
        gp->addWidget(new QLabel(QStringLiteral("%1ª").arg(i + 1), this), 3 + i, 0, Qt::AlignRight);
        m_text6[i]->setAlignment(Qt::AlignRight);
        gp->addWidget(m_text6[i], 3 + i, 1);
        gp->addWidget(m_text6[4 + i], 3 + i, 2);
    }

    auto botao = [this](int n, const QString& texto, const QString& dica) {
        auto* b = new QPushButton(texto, this);
        b->setObjectName(QStringLiteral("Botao(%1)").arg(n));
        b->setToolTip(dica);
        b->setMinimumHeight(36);
        return b;
    };
    m_registrar = botao(8, QStringLiteral("&Registrar"), QStringLiteral("Clique para registrar valor e liberar botão de imprimir."));
    m_imprimir = botao(9, QStringLiteral("&Imprimir"), QStringLiteral("Imprimir a ficha de saída."));
    m_fechar = botao(10, QStringLiteral("&Fechar"), QStringLiteral("Clique se deseja fechar este formulário."));

    m_pix = new PainelPix(Qt::Vertical, this);
    auto* baixo = new QHBoxLayout;
    baixo->addWidget(valores, 1);
    baixo->addWidget(pagamento, 2);
    baixo->addWidget(m_pix);
    auto* botoes = new QHBoxLayout;
    botoes->addStretch();
    botoes->addWidget(m_registrar);
    botoes->addWidget(m_imprimir);
    botoes->addWidget(m_fechar);
    auto* v = new QVBoxLayout(this);
    v->addWidget(cliente);
    v->addLayout(baixo);
    v->addLayout(botoes);
    resize(900, 560);

    for (int i : {10, 11, 12, 17}) {
        QLineEdit* t = m_txt[i];
        connect(t, &QLineEdit::textEdited, this, &RegistraValorSaida::aoMudarValor);
        connect(t, &QLineEdit::editingFinished, this, [this, t] { aoSairValor(t); });
    }
    connect(m_forma, &QComboBox::textActivated, this, &RegistraValorSaida::escolheForma);
    connect(m_pendurar, &QCheckBox::clicked, this, &RegistraValorSaida::clicaPendurar);
    connect(m_registrar, &QPushButton::clicked, this, &RegistraValorSaida::registrar);
    connect(m_imprimir, &QPushButton::clicked, this, &RegistraValorSaida::imprimir);
    connect(m_fechar, &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
}

void RegistraValorSaida::limpaCampos()
{
    for (QLineEdit* t : std::as_const(m_txt))
        t->clear();
    for (QLineEdit* t : m_ctxt)
        t->clear();
    for (QLineEdit* t : std::as_const(m_text6))
        t->clear();
    // The settings may have changed since the screen was built.
    const int iPix = m_forma->findText(Pix::FormaPagamento);
    const bool comPix = Pix::configurado().has_value();
    if (comPix && iPix < 0)
        m_forma->addItem(Pix::FormaPagamento);
    else if (!comPix && iPix >= 0)
        m_forma->removeItem(iPix);
    m_pix->esconde();
    m_forma->setCurrentIndex(-1);
    m_forma->setEditText(QString());
    m_pendurar->setChecked(false);
    m_data->setDate(QDate::currentDate());
    // The plan starts empty at every opening: nothing chosen yet behaves as no instalment.
    sessao().NumeroParcelas = 0;
    sessao().PagoComCheque = 0;
    m_ordem.reset();
}

void RegistraValorSaida::abreOrdem(const QVariantMap& dados)
{
    carregaOrdem(dados.value(QStringLiteral("CodOsAut")).toLongLong());
}

bool RegistraValorSaida::carregaOrdem(qint64 codOsAut)
{
    limpaCampos();
    if (!m_banco) {
        QString erro;
        m_banco = Conexoes::nova(&erro);
        if (!m_banco) {
            aplicaEstado();
            return false;
        }
    }
    try {
        m_ordem = OrdensCaixa::ler(*m_banco, codOsAut);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    if (m_ordem)
        mostra(*m_ordem);
    aplicaEstado();
    return m_ordem.has_value();
}

void RegistraValorSaida::mostra(const OrdemCaixa& o)
{
    m_txt[0]->setText(QString::number(o.CodOs));
    CamposDocumento::mostraCnpjCpf(m_txt[1], o.CpfCnpj);
    m_txt[2]->setText(o.NomeCliente);
    m_txt[3]->setText(o.Endereco);
    m_txt[4]->setText(o.Ncasa);
    m_txt[5]->setText(o.Bairro);
    m_txt[6]->setText(o.Cidade);
    m_txt[7]->setText(MascaraTelefone(o.Telefone));
    m_txt[8]->setText(MascaraTelefone(o.Celular));
    m_ctxt[0]->setText(o.Tipo);
    m_ctxt[1]->setText(o.Marca);
    m_txt[9]->setText(o.Modelo);
    m_txt[13]->setText(o.CodFabrica);
    m_txt[14]->setText(Datas::bancoParaTela(o.DataEntrada));
    m_txt[15]->setText(Datas::bancoParaTela(o.DataSaida));
    m_txt[16]->setText(o.CodCliente);
    if (o.entregue()) {
        m_txt[10]->setText(o.ValorPagar.texto());
        m_txt[17]->setText(o.ValorDesconto.texto());
        m_txt[11]->setText(o.ValorPago.texto());
    } else {
        // A reopened order charges only what was added since it was posted.
        m_txt[10]->setText(o.aCobrar().texto());
        m_txt[17]->setText(o.Lancada ? QStringLiteral("0,00") : o.ValorDesconto.texto());
        m_txt[11]->setText(o.Lancada ? QStringLiteral("0,00") : o.ValorPago.texto());
    }
    poeTroco(m_txt[11]->text());
    m_pendurar->setChecked(o.Pendurado != 0);
}

// Open (no departure date): record on, print off. Delivered: the reverse.
void RegistraValorSaida::aplicaEstado()
{
    const bool aberta = m_ordem && m_txt[15]->text().isEmpty();
    m_registrar->setEnabled(aberta);
    m_imprimir->setEnabled(m_ordem && !aberta);
    m_txt[11]->setEnabled(aberta);
    m_pendurar->setEnabled(aberta);
    m_data->setEnabled(aberta && m_pendurar->isChecked());
    m_forma->setEnabled(aberta && !m_pendurar->isChecked());
    for (QLineEdit* t : std::as_const(m_text6))
        t->setReadOnly(m_parcelasTravadas);
}

void RegistraValorSaida::imprimir()
{
    if (!m_ordem || !m_banco)
        return;
    sessao().FichaCodOs = m_txt[0]->text();
    sessao().FichaNomeCliente = m_txt[2]->text();
    ImprimeDocumento(*m_banco, DocumentosOrdem::SaidaPagamento, m_ordem->CodOsAut, this);
}
