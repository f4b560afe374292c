// The bench's three lists and its money: parts, services done and the services'
// catalogue, with the boxes that edit a row.
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "orders/BancadaOrdem.h"
#include "orders/CatalogosOrdem.h"
#include "orders/EstoqueOrdem.h"
#include "orders/OrdemServicoTecnico.h"
#include "orders/RecusaOrdem.h"
#include "orders/TransicoesOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"

namespace {
const QString TelaBusca = QStringLiteral("PesquisaProduto");
const QString MsgNaoTemItem = QStringLiteral("Não tem item");

bool ativaSer() { return Sessao::verdadeiro(sessao().CfgAtivaSer); }

QTableWidget* lista(QWidget* pai, const QString& nome, const QStringList& titulos)
{
    auto* t = new QTableWidget(0, titulos.size(), pai);
    t->setObjectName(nome);
    t->setHorizontalHeaderLabels(titulos);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->verticalHeader()->hide();
    return t;
}

void linha(QTableWidget* t, int l, const QStringList& celulas)
{
    for (int c = 0; c < celulas.size(); ++c)
        t->setItem(l, c, new QTableWidgetItem(celulas.at(c)));
}

QString verdade(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }

// Money boxes take digits, points and the comma only.
void soValor(QLineEdit* e) { e->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.,]*")), e)); }
} // namespace

QWidget* OrdemServicoTecnico::montaListas()
{
    auto* w = new QWidget(this);
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    m_lPeca = lista(w, QStringLiteral("LPeca"),
                    {QStringLiteral("Código"), QStringLiteral("Descrição"), QStringLiteral("Qtd"),
                     QStringLiteral("V/Custo"), QStringLiteral("V/Venda"), QStringLiteral("V/Desc"),
                     QStringLiteral("V/Total"), QStringLiteral("V/Minimo"), QStringLiteral("Aliquota"),
                     QStringLiteral("TipoAliquota"), QStringLiteral("Fornecedor"), QStringLiteral("Departamento"),
                     QStringLiteral("Armazenado"), QStringLiteral("GrupoProduto"), QStringLiteral("Unidade"),
                     QStringLiteral("Controleestoque"), QStringLiteral("Codigo Automatico"),
                     QStringLiteral("Baixaestoque"), QStringLiteral("Subgrupo")});
    m_lPeca->setColumnWidth(1, 220);
    m_lExec = lista(w, QStringLiteral("LExec"),
                    {QStringLiteral("Código"), QStringLiteral("Serviço"), QStringLiteral("V/Obra"),
                     QStringLiteral("V/Desc"), QStringLiteral("Val/Total"), QStringLiteral("ValorMinimo")});
    m_lExec->setColumnWidth(1, 220);
    m_lServ = lista(w, QStringLiteral("LServ"),
                    {QStringLiteral("Codigo"), QStringLiteral("CodServico"), QStringLiteral("Servico"),
                     QStringLiteral("ValorObra"), QStringLiteral("ValorObraMinimo")});
    m_lServ->setColumnWidth(2, 220);
    m_lServ->hide();

    m_framePeca = new QGroupBox(QStringLiteral("Peça"), w);
    m_framePeca->setObjectName(QStringLiteral("FramePeca"));
    m_pecaDescricao = new QLineEdit(m_framePeca);
    m_pecaDescricao->setObjectName(QStringLiteral("TxtPecaDescricao"));
    m_pecaDescricao->setMaxLength(255);
    m_pecaQuantidade = new QLineEdit(m_framePeca);
    m_pecaQuantidade->setObjectName(QStringLiteral("TxtPecaQuantidade"));
    m_pecaQuantidade->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral(" ?[0-9]{0,6}(,[0-9]{0,3})?")), m_pecaQuantidade));
    m_pecaDesconto = new QLineEdit(m_framePeca);
    m_pecaDesconto->setObjectName(QStringLiteral("TxtPecaDesconto"));
    m_pecaVenda = new QLineEdit(m_framePeca);
    m_pecaVenda->setObjectName(QStringLiteral("TxtPecaVenda"));
    m_frameServico = new QGroupBox(QStringLiteral("Serviço"), w);
    m_frameServico->setObjectName(QStringLiteral("FrameServico"));
    m_servicoNome = new QLineEdit(m_frameServico);
    m_servicoNome->setObjectName(QStringLiteral("TxtServicoNome"));
    m_servicoNome->setReadOnly(true);
    m_servicoDesconto = new QLineEdit(m_frameServico);
    m_servicoDesconto->setObjectName(QStringLiteral("TxtServicoDesconto"));
    m_servicoObra = new QLineEdit(m_frameServico);
    m_servicoObra->setObjectName(QStringLiteral("TxtServicoObra"));
    for (QLineEdit* e : {m_pecaDesconto, m_pecaVenda, m_servicoDesconto, m_servicoObra, m_maoObra, m_valorVenda,
                         m_valorPagar})
        soValor(e);
    for (QLineEdit* e : {m_pecaQuantidade, m_pecaDesconto, m_pecaVenda, m_servicoDesconto, m_servicoObra})
        e->setMaximumWidth(90);
    m_codServico = new QLineEdit(w);
    m_codServico->setObjectName(QStringLiteral("TxtCodServico"));
    m_codServico->setMaxLength(20);
    m_codServico->setPlaceholderText(QStringLiteral("Código do serviço + Enter"));

    v->addWidget(new QLabel(QStringLiteral("Peças aplicadas"), w));
    v->addWidget(m_lPeca, 3);
    auto* bp = new QHBoxLayout;
    bp->addWidget(m_botoes[6]);
    bp->addStretch();
    v->addLayout(bp);
    v->addWidget(m_framePeca);
    v->addWidget(new QLabel(QStringLiteral("Serviços executados"), w));
    v->addWidget(m_lExec, 2);
    auto* bs = new QHBoxLayout;
    bs->addWidget(m_codServico);
    bs->addWidget(m_botoes[9]);
    bs->addStretch();
    v->addLayout(bs);
    v->addWidget(m_frameServico);
    v->addWidget(m_lServ, 2);

    connect(m_lPeca, &QTableWidget::cellDoubleClicked, this, [this](int l, int) { abrePeca(l); });
    connect(m_lExec, &QTableWidget::cellDoubleClicked, this, [this](int l, int) { abreServico(l); });
    connect(m_lServ, &QTableWidget::cellDoubleClicked, this, [this](int l, int) {
        adicionaServico(m_lServ->item(l, 0)->data(Qt::UserRole).toString());
    });
    connect(m_codServico, &QLineEdit::returnPressed, this, [this] { adicionaServico(m_codServico->text().trimmed()); });
    connect(m_pecaDesconto, &QLineEdit::editingFinished, this, [this] {
        if (m_framePeca->isVisible())
            descontoPecaValido();
    });
    connect(m_servicoDesconto, &QLineEdit::editingFinished, this, [this] {
        if (m_frameServico->isVisible())
            descontoServicoValido();
    });
    return w;
}

// --- showing -------------------------------------------------------------------------------------

void OrdemServicoTecnico::mostraPecas()
{
    m_lPeca->setRowCount(m_ordem.pecas.size());
    for (int l = 0; l < m_ordem.pecas.size(); ++l) {
        const PecaAplicada& p = m_ordem.pecas.at(l);
        linha(m_lPeca, l,
              {p.codpeca, p.Descricao, p.Quantidade.texto(), p.ValorCusto.texto(), p.ValorVenda.texto(),
               p.ValorDesconto.texto(), p.ValorTotal.texto(), p.ValorMinimo.texto(), p.Aliquota, p.TipoAliquota,
               p.Fornecedor, p.Departamento, p.Armazenado, p.Grupo, p.Unidade, verdade(p.ControleEstoque),
               p.CodPecAut ? QString::number(p.CodPecAut) : QString(), verdade(p.BaixaEstoque), p.SubGrupo});
    }
}

void OrdemServicoTecnico::mostraServicos()
{
    m_lExec->setRowCount(m_ordem.servicos.size());
    for (int l = 0; l < m_ordem.servicos.size(); ++l) {
        const ServicoOrdem& s = m_ordem.servicos.at(l);
        linha(m_lExec, l,
              {s.CodServico, s.Servico, s.ValorObra.texto(), s.ValorDesconto.texto(),
               ValoresOrdem::totalServico(s).texto(), s.ValorObraMinimo.texto()});
    }
}

void OrdemServicoTecnico::mostraDefeitos()
{
    m_lDef->clear();
    for (const SintomaOrdem& s : std::as_const(m_ordem.sintomas))
        m_lDef->addItem(s.DefeitoOS);
}

void OrdemServicoTecnico::mostraValores()
{
    m_maoObra->setText(m_ordem.MaoObra.texto());
    m_valorVenda->setText(m_ordem.ValorVenda.texto());
    m_valorPagar->setText(m_ordem.ValorPagar.texto());
    m_valorPecas->setText(m_ordem.ValorPecas.texto());
    m_valorDescontoPeca->setText(m_ordem.ValorDescontoPeca.texto());
}

void OrdemServicoTecnico::recalcula()
{
    ValoresOrdem::recalcular(m_ordem, ativaSer());
    mostraPecas();
    mostraServicos();
    mostraValores();
}

void OrdemServicoTecnico::maoObraDigitada()
{
    if (ativaSer() || m_mostrando || !m_alterado)
        return;
    QString erro;
    const auto v = ValoresOrdem::lerValor(m_maoObra->text(), QStringLiteral("Mão de obra"), &erro);
    if (!v) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        m_maoObra->setFocus();
        return;
    }
    m_ordem.MaoObra = *v;
    recalcula();
}

// --- parts ---------------------------------------------------------------------------------------

void OrdemServicoTecnico::estoque()
{
    if (m_ordem.nova())
        return;
    if (!EntregaTelas::disponivel(TelaBusca)) {
        Dialogos::mensagem(this, QStringLiteral("A pesquisa de produtos não está disponível nesta instalação."), {},
                           Dialogos::Icone::Aviso);
        return;
    }
    // The part's box stays open for the quantity of the product about to be chosen.
    fechaPeca();
    m_pecaDescricao->setEnabled(false);
    m_pecaVenda->setEnabled(false);
    m_pecaDesconto->setEnabled(false);
    m_pecaQuantidade->setEnabled(true);
    m_framePeca->show();
    EntregaTelas::abrirCom(TelaBusca, EntregaTelas::DefineDestino, {{QStringLiteral("Destino"), objectName()}});
}

void OrdemServicoTecnico::recebeProduto(const QVariantMap& dados)
{
    if (!m_banco || m_ordem.nova() || !marcaAlterado())
        return;
    // The box's quantity only counts for a new part typed there, not for a row being edited.
    const QString caixa = m_pecaAberta < 0 ? m_pecaQuantidade->text() : QString();
    try {
        if (const auto recusa = BancadaOrdem::receberProduto(*m_banco, m_ordem.pecas,
                                                              dados.value(QStringLiteral("CodPecAut")).toLongLong(), caixa)) {
            Dialogos::mensagem(this, *recusa, {}, Dialogos::Icone::Aviso);
            return;
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao buscar produto,"), e.textoCompleto());
        return;
    }
    recalcula();
    aviso(QStringLiteral("Adicionado lista"));
    fechaPeca();
}

void OrdemServicoTecnico::manual()
{
    if (m_ordem.nova())
        return;
    m_pecaManual = true;
    m_pecaAberta = -1;
    for (QLineEdit* e : {m_pecaDescricao, m_pecaQuantidade, m_pecaDesconto, m_pecaVenda}) {
        e->clear();
        e->setEnabled(true);
    }
    m_framePeca->show();
    m_pecaDescricao->setFocus();
}

void OrdemServicoTecnico::abrePeca(int l)
{
    if (l < 0 || l >= m_ordem.pecas.size())
        return;
    const PecaAplicada& p = m_ordem.pecas.at(l);
    m_pecaManual = false;
    m_pecaAberta = l;
    m_pecaDescricao->setText(p.Descricao);
    m_pecaQuantidade->setText(p.Quantidade.texto());
    m_pecaDesconto->setText(p.ValorDesconto.texto());
    m_pecaVenda->setText(p.ValorVenda.texto());
    // Description and price belong to the product; only a part without one takes them here.
    const bool semCodigo = !EstoqueOrdem::temProduto(p.codpeca);
    m_pecaDescricao->setEnabled(semCodigo);
    m_pecaVenda->setEnabled(semCodigo);
    m_framePeca->show();
    m_pecaQuantidade->setFocus();
}

void OrdemServicoTecnico::fechaPeca()
{
    for (QLineEdit* e : {m_pecaDescricao, m_pecaQuantidade, m_pecaDesconto, m_pecaVenda})
        e->clear();
    m_pecaManual = false;
    m_pecaAberta = -1;
    m_framePeca->hide();
}

bool OrdemServicoTecnico::descontoPecaValido()
{
    QString erro;
    const auto desconto = ValoresOrdem::lerValor(m_pecaDesconto->text(), QStringLiteral("V/Desc"), &erro);
    if (!desconto) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        m_pecaDesconto->setFocus();
        return false;
    }
    // A part from stock keeps its floor; one typed by hand has none, but is never given
    // away below nothing.
    Dinheiro venda, minimo;
    if (!m_pecaManual && m_pecaAberta >= 0 && EstoqueOrdem::temProduto(m_ordem.pecas.at(m_pecaAberta).codpeca)) {
        venda = m_ordem.pecas.at(m_pecaAberta).ValorVenda;
        minimo = m_ordem.pecas.at(m_pecaAberta).ValorMinimo;
    } else {
        venda = Dinheiro::lerTexto(m_pecaVenda->text()).value_or(Dinheiro());
    }
    if (!BancadaOrdem::descontoPermitido(venda, minimo, *desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgDesconto, QStringLiteral("Mínimo de: ") + minimo.texto(),
                           Dialogos::Icone::Aviso);
        m_pecaDesconto->setFocus();
        return false;
    }
    m_pecaDesconto->setText(desconto->texto());
    return true;
}

void OrdemServicoTecnico::adicionaPeca()
{
    if (m_ordem.nova() || (!m_pecaManual && m_pecaAberta < 0))
        return;
    const auto quantidade = BancadaOrdem::quantidadeDaCaixa(m_pecaQuantidade->text());
    if (!quantidade) {
        Dialogos::mensagem(this, QStringLiteral("Quantidade inválida: digite um número maior que zero."), {},
                           Dialogos::Icone::Aviso);
        m_pecaQuantidade->setFocus();
        return;
    }
    QString erro;
    const auto venda = ValoresOrdem::lerValor(m_pecaVenda->text(), QStringLiteral("V/Venda"), &erro);
    if (!venda) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        m_pecaVenda->setFocus();
        return;
    }
    if (!descontoPecaValido())
        return;
    const Dinheiro desconto = *Dinheiro::lerTexto(m_pecaDesconto->text());
    const QString descricao = m_pecaDescricao->text().trimmed();
    if (m_pecaManual && descricao.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Digite a descrição da peça."), {}, Dialogos::Icone::Aviso);
        m_pecaDescricao->setFocus();
        return;
    }
    if (!marcaAlterado())
        return;
    if (m_pecaManual) {
        PecaAplicada p;
        p.Descricao = descricao;
        p.Quantidade = *quantidade;
        p.ValorVenda = *venda;
        p.ValorDesconto = desconto;
        m_ordem.pecas << p;
    } else if (!BancadaOrdem::alterarPeca(m_ordem.pecas[m_pecaAberta], descricao, *quantidade, *venda, desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgNaoDiminui, {}, Dialogos::Icone::Aviso);
        return;
    }
    recalcula();
    aviso(QStringLiteral("Adicionado lista"));
    fechaPeca();
}

void OrdemServicoTecnico::removePeca()
{
    if (m_pecaManual || m_ordem.nova())
        return;
    const int l = m_lPeca->currentRow();
    if (m_ordem.pecas.isEmpty() || l < 0) {
        Dialogos::mensagem(this, MsgNaoTemItem, QStringLiteral("Proibido"), Dialogos::Icone::Aviso);
        return;
    }
    const Ordem antes = m_ordem;
    try {
        TransicoesOrdem::removerPeca(m_ordem, l);
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return;
    }
    if (!marcaAlterado()) {
        m_ordem = antes;  // a finalised order: the part stays
        recalcula();
        return;
    }
    fechaPeca();
    recalcula();
    aviso(QStringLiteral("Removido"));
}

// --- services and defects ------------------------------------------------------------------------

void OrdemServicoTecnico::adicionaServico(const QString& codServico)
{
    if (!m_banco || m_ordem.nova() || codServico.isEmpty())
        return;
    for (const ServicoOrdem& s : std::as_const(m_ordem.servicos))
        if (s.CodServico == codServico)
            return;
    std::optional<ServicoCatalogo> c;
    try {
        c = CatalogosOrdem::servicoPorCodigo(*m_banco, codServico);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return;
    }
    if (!c) {
        Dialogos::mensagem(this, QStringLiteral("Serviço não encontrado."), {}, Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    ServicoOrdem s;
    s.CodServico = c->CodServico;
    s.Servico = c->Servico;
    s.ValorObra = c->ValorObra;
    s.ValorObraMinimo = c->ValorObraMinimo;
    m_ordem.servicos << s;
    m_codServico->clear();
    recalcula();
    aviso(QStringLiteral("Adicionado lista"));
}

void OrdemServicoTecnico::abreServico(int l)
{
    if (l < 0 || l >= m_ordem.servicos.size())
        return;
    const ServicoOrdem& s = m_ordem.servicos.at(l);
    m_servicoAberto = l;
    m_servicoNome->setText(s.Servico);
    m_servicoDesconto->setText(s.ValorDesconto.texto());
    m_servicoObra->setText(s.ValorObra.texto());
    m_frameServico->show();
    m_servicoDesconto->setFocus();
}

bool OrdemServicoTecnico::descontoServicoValido()
{
    if (m_servicoAberto < 0 || m_servicoAberto >= m_ordem.servicos.size())
        return false;
    QString erro;
    const auto desconto = ValoresOrdem::lerValor(m_servicoDesconto->text(), QStringLiteral("V/Desc"), &erro);
    const auto obra = ValoresOrdem::lerValor(m_servicoObra->text(), QStringLiteral("V/Obra"), &erro);
    if (!desconto || !obra) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        (desconto ? m_servicoObra : m_servicoDesconto)->setFocus();
        return false;
    }
    const Dinheiro minimo = m_ordem.servicos.at(m_servicoAberto).ValorObraMinimo;
    if (!BancadaOrdem::descontoPermitido(*obra, minimo, *desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgDesconto, QStringLiteral("Mínimo de: ") + minimo.texto(),
                           Dialogos::Icone::Aviso);
        m_servicoDesconto->setFocus();
        return false;
    }
    m_servicoDesconto->setText(desconto->texto());
    return true;
}

void OrdemServicoTecnico::alteraServico()
{
    if (!descontoServicoValido() || !marcaAlterado())
        return;
    ServicoOrdem& s = m_ordem.servicos[m_servicoAberto];
    s.ValorDesconto = *Dinheiro::lerTexto(m_servicoDesconto->text());
    s.ValorObra = *Dinheiro::lerTexto(m_servicoObra->text());
    m_frameServico->hide();
    m_servicoAberto = -1;
    recalcula();
}

void OrdemServicoTecnico::removeServico()
{
    const int l = m_lExec->currentRow();
    if (m_ordem.servicos.isEmpty() || l < 0) {
        Dialogos::mensagem(this, MsgNaoTemItem, {}, Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    m_ordem.servicos.removeAt(l);
    m_frameServico->hide();
    m_servicoAberto = -1;
    recalcula();
    aviso(QStringLiteral("Removido"));
}

void OrdemServicoTecnico::adicionaDefeito(int indice)
{
    if (indice < 0 || m_ordem.nova() || !marcaAlterado())
        return;
    if (!m_ordem.adicionarSintoma({m_comboDef->itemData(indice).toString(), m_comboDef->itemText(indice)}))
        return;
    mostraDefeitos();
    aviso(QStringLiteral("Adicionado lista"));
}
