// The whole-order form's lists: parts applied, services done, reported defects. They
// change the order in memory; the save writes them.
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableWidget>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "orders/BancadaOrdem.h"
#include "orders/CadCompleto.h"
#include "orders/CatalogosOrdem.h"
#include "orders/EstoqueOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/RecusaOrdem.h"
#include "orders/TransicoesOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"

namespace {
const QString TelaBusca = QStringLiteral("PesquisaProduto");
const QString MsgNaoTemItem = QStringLiteral("Não tem item");

QString verdade(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }

void poeLinha(QTableWidget* t, int l, const QStringList& celulas)
{
    for (int c = 0; c < celulas.size(); ++c)
        t->setItem(l, c, new QTableWidgetItem(celulas.at(c)));
}
} // namespace

void CadCompleto::mostraListas()
{
    mostraPecas();
    mostraServicos();
    mostraDefeitos();
    mostraValores();
}

void CadCompleto::mostraPecas()
{
    m_lPeca->setRowCount(m_ordem.pecas.size());
    for (int l = 0; l < m_ordem.pecas.size(); ++l) {
        const PecaAplicada& p = m_ordem.pecas.at(l);
        poeLinha(m_lPeca, l,
              {p.codpeca, p.Descricao, p.Quantidade.texto(), p.ValorCusto.texto(), p.ValorVenda.texto(),
               p.ValorDesconto.texto(), p.ValorTotal.texto(), p.ValorMinimo.texto(), p.Aliquota, p.TipoAliquota,
               p.Fornecedor, p.Departamento, p.Armazenado, p.Grupo, p.Unidade, verdade(p.ControleEstoque),
               p.CodPecAut ? QString::number(p.CodPecAut) : QString(), verdade(p.BaixaEstoque), p.SubGrupo});
    }
    for (QLineEdit* e : {m_pecaDescricao, m_pecaQuantidade, m_pecaVenda, m_pecaDesconto})
        e->clear();
    m_pecaAberta = -1;
}

void CadCompleto::mostraServicos()
{
    m_lExec->setRowCount(m_ordem.servicos.size());
    for (int l = 0; l < m_ordem.servicos.size(); ++l) {
        const ServicoOrdem& s = m_ordem.servicos.at(l);
        poeLinha(m_lExec, l,
              {s.Servico, s.ValorObra.texto(), s.ValorDesconto.texto(), ValoresOrdem::totalServico(s).texto(),
               s.ValorObraMinimo.texto()});
    }
    m_servicoObra->clear();
    m_servicoDesconto->clear();
    m_servicoAberto = -1;
}

void CadCompleto::mostraDefeitos()
{
    m_lDef->clear();
    for (const SintomaOrdem& s : std::as_const(m_ordem.sintomas)) {
        auto* it = new QListWidgetItem(s.DefeitoOS, m_lDef);
        it->setData(Qt::UserRole, s.CodDef);
    }
}

void CadCompleto::mostraValores()
{
    m_linhas.value(QStringLiteral("MaoObra"))->setText(m_ordem.MaoObra.texto());
    m_linhas.value(QStringLiteral("ValorVenda"))->setText(m_ordem.ValorVenda.texto());
    m_linhas.value(QStringLiteral("ValorPagar"))->setText(m_ordem.ValorPagar.texto());
    m_linhas.value(QStringLiteral("ValorPorcentagem"))->setText(m_ordem.ValorPorcentagem.texto());
    if (Sessao::verdadeiro(sessao().CfgAtivaSer))
        m_textos.value(QStringLiteral("ServicoExecutado"))->setPlainText(GravacaoOrdem::textoDosServicos(m_ordem));
}

void CadCompleto::recalcula()
{
    // A labour typed by hand counts when the services don't make it.
    if (!Sessao::verdadeiro(sessao().CfgAtivaSer))
        if (const auto v = Dinheiro::lerTexto(m_linhas.value(QStringLiteral("MaoObra"))->text()))
            m_ordem.MaoObra = *v;
    ValoresOrdem::recalcular(m_ordem, Sessao::verdadeiro(sessao().CfgAtivaSer));
    mostraPecas();
    mostraServicos();
    mostraValores();
}

// --- parts ---------------------------------------------------------------------------------------

void CadCompleto::abrePeca(int l)
{
    if (l < 0 || l >= m_ordem.pecas.size())
        return;
    const PecaAplicada& p = m_ordem.pecas.at(l);
    m_pecaAberta = l;
    m_pecaDescricao->setText(p.Descricao);
    m_pecaQuantidade->setText(p.Quantidade.texto());
    m_pecaVenda->setText(p.ValorVenda.texto());
    m_pecaDesconto->setText(p.ValorDesconto.texto());
    // Description and price belong to the product; only a part without one takes them here.
    const bool semCodigo = !EstoqueOrdem::temProduto(p.codpeca);
    m_pecaDescricao->setReadOnly(!semCodigo);
    m_pecaVenda->setReadOnly(!semCodigo);
}

void CadCompleto::gravaPeca()
{
    const auto quantidade = BancadaOrdem::quantidadeDaCaixa(m_pecaQuantidade->text());
    if (!quantidade) {
        Dialogos::mensagem(this, BancadaOrdem::MsgQuantidade, {}, Dialogos::Icone::Aviso);
        m_pecaQuantidade->setFocus();
        return;
    }
    QString erro;
    const auto venda = ValoresOrdem::lerValor(m_pecaVenda->text(), QStringLiteral("V/Venda"), &erro);
    const auto desconto = ValoresOrdem::lerValor(m_pecaDesconto->text(), QStringLiteral("V/Desc"), &erro);
    if (!venda || !desconto) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        (venda ? m_pecaDesconto : m_pecaVenda)->setFocus();
        return;
    }
    const QString descricao = m_pecaDescricao->text().trimmed();
    const bool nova = m_pecaAberta < 0 || m_pecaAberta >= m_ordem.pecas.size();
    if (nova && descricao.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Digite a descrição da peça."), {}, Dialogos::Icone::Aviso);
        m_pecaDescricao->setFocus();
        return;
    }
    // The floor of a part from stock; one typed by hand has none but is never given away.
    const Dinheiro minimo = nova ? Dinheiro() : m_ordem.pecas.at(m_pecaAberta).ValorMinimo;
    const Dinheiro preco = nova || !EstoqueOrdem::temProduto(m_ordem.pecas.at(m_pecaAberta).codpeca)
        ? *venda
        : m_ordem.pecas.at(m_pecaAberta).ValorVenda;
    if (!BancadaOrdem::descontoPermitido(preco, minimo, *desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgDesconto, QStringLiteral("Mínimo de: ") + minimo.texto(),
                           Dialogos::Icone::Aviso);
        m_pecaDesconto->setFocus();
        return;
    }
    if (!marcaAlterado())
        return;
    if (nova) {
        PecaAplicada p;
        p.Descricao = descricao;
        p.Quantidade = *quantidade;
        p.ValorVenda = *venda;
        p.ValorDesconto = *desconto;
        m_ordem.pecas << p;
    } else if (!BancadaOrdem::alterarPeca(m_ordem.pecas[m_pecaAberta], descricao, *quantidade, *venda, *desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgNaoDiminui, {}, Dialogos::Icone::Aviso);
        return;
    }
    recalcula();
    aviso(QStringLiteral("Adicionado lista"));
}

void CadCompleto::removePeca()
{
    const int l = m_lPeca->currentRow();
    if (m_ordem.pecas.isEmpty() || l < 0) {
        Dialogos::mensagem(this, MsgNaoTemItem, QStringLiteral("Proibido"), Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    try {
        TransicoesOrdem::removerPeca(m_ordem, l);
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return;
    }
    recalcula();
    aviso(QStringLiteral("Removido"));
}

void CadCompleto::buscaProduto()
{
    if (!EntregaTelas::disponivel(TelaBusca)) {
        Dialogos::mensagem(this, QStringLiteral("A pesquisa de produtos não está disponível nesta instalação."), {},
                           Dialogos::Icone::Aviso);
        return;
    }
    // The row in the boxes is not what the product will change: it comes as a new part.
    m_pecaAberta = -1;
    EntregaTelas::abrirCom(TelaBusca, EntregaTelas::DefineDestino, {{QStringLiteral("Destino"), objectName()}});
}

void CadCompleto::recebeProduto(const QVariantMap& dados)
{
    if (!m_banco || (m_ordem.nova() && !m_novo) || !marcaAlterado())
        return;
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
}

// --- services ------------------------------------------------------------------------------------

void CadCompleto::adicionaServico(int linhaCatalogo)
{
    if (!m_banco || linhaCatalogo < 0 || linhaCatalogo >= m_lServ->rowCount())
        return;
    const QString codigo = m_lServ->item(linhaCatalogo, 0)->data(Qt::UserRole).toString();
    for (const ServicoOrdem& s : std::as_const(m_ordem.servicos))
        if (s.CodServico == codigo)
            return;
    std::optional<ServicoCatalogo> c;
    try {
        c = CatalogosOrdem::servicoPorCodigo(*m_banco, codigo);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar lista de serviço,"), e.textoCompleto());
        return;
    }
    if (!c || !marcaAlterado())
        return;
    ServicoOrdem s;
    s.CodServico = c->CodServico;
    s.Servico = c->Servico;
    s.ValorObra = c->ValorObra;
    s.ValorObraMinimo = c->ValorObraMinimo;
    m_ordem.servicos << s;
    recalcula();
    aviso(QStringLiteral("Adicionado lista"));
}

void CadCompleto::abreServico(int l)
{
    if (l < 0 || l >= m_ordem.servicos.size())
        return;
    m_servicoAberto = l;
    m_servicoObra->setText(m_ordem.servicos.at(l).ValorObra.texto());
    m_servicoDesconto->setText(m_ordem.servicos.at(l).ValorDesconto.texto());
}

void CadCompleto::alteraServico()
{
    if (m_servicoAberto < 0 || m_servicoAberto >= m_ordem.servicos.size()) {
        Dialogos::mensagem(this, MsgNaoTemItem, {}, Dialogos::Icone::Aviso);
        return;
    }
    QString erro;
    const auto obra = ValoresOrdem::lerValor(m_servicoObra->text(), QStringLiteral("V/Obra"), &erro);
    const auto desconto = ValoresOrdem::lerValor(m_servicoDesconto->text(), QStringLiteral("V/Desc"), &erro);
    if (!obra || !desconto) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        return;
    }
    const Dinheiro minimo = m_ordem.servicos.at(m_servicoAberto).ValorObraMinimo;
    if (!BancadaOrdem::descontoPermitido(*obra, minimo, *desconto)) {
        Dialogos::mensagem(this, BancadaOrdem::MsgDesconto, QStringLiteral("Mínimo de: ") + minimo.texto(),
                           Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    m_ordem.servicos[m_servicoAberto].ValorObra = *obra;
    m_ordem.servicos[m_servicoAberto].ValorDesconto = *desconto;
    recalcula();
}

void CadCompleto::removeServico()
{
    const int l = m_lExec->currentRow();
    if (m_ordem.servicos.isEmpty() || l < 0) {
        Dialogos::mensagem(this, MsgNaoTemItem, QStringLiteral("Proibido"), Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    m_ordem.servicos.removeAt(l);
    recalcula();
    aviso(QStringLiteral("Removido"));
}

// --- defects -------------------------------------------------------------------------------------

void CadCompleto::adicionaDefeito(int linhaCatalogo)
{
    if (linhaCatalogo < 0 || linhaCatalogo >= m_lCad->count() || !marcaAlterado())
        return;
    const QListWidgetItem* it = m_lCad->item(linhaCatalogo);
    if (!m_ordem.adicionarSintoma({it->data(Qt::UserRole).toString(), it->text()}))
        return;
    mostraDefeitos();
    aviso(QStringLiteral("Adicionado lista"));
}

void CadCompleto::removeDefeito(int l)
{
    if (l < 0 || l >= m_ordem.sintomas.size() || !marcaAlterado())
        return;
    m_ordem.sintomas.removeAt(l);
    mostraDefeitos();
    aviso(QStringLiteral("Removido"));
}
