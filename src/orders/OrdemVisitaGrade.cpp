// The parts grid of the house-call screen: a floating box over the current cell, Enter
// or Tab to the next cell, the product search on an empty description, the totals.
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QTableWidget>

#include "orders/OrdemVisita.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"

namespace {
const QString MsgValor = QStringLiteral("Valor inválido: digite como 1.234,56");
const QString MsgQuantidade = QStringLiteral("Quantidade inválida: digite como 1 ou 1,5");
} // namespace

void OrdemVisita::montaGrade(QWidget* pai)
{
    m_grade = new QTableWidget(0, NColunas, pai);
    m_grade->setObjectName(QStringLiteral("GridPecas"));
    m_grade->setHorizontalHeaderLabels({QStringLiteral("Descriçao"), QStringLiteral("Quant"), QStringLiteral("Val/Unt"),
                                        QStringLiteral("Total"), QStringLiteral("     Valor/Custo"),
                                        QStringLiteral("Cod/Peça")});
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->verticalHeader()->hide();
    m_grade->horizontalHeader()->setSectionResizeMode(Descricao, QHeaderView::Stretch);
    m_grade->setColumnWidth(Quant, 70);
    m_grade->setColumnWidth(Unitario, 100);
    m_grade->setColumnWidth(Total, 110);
    // Cost and product code travel with the row but are not for the customer's eyes.
    m_grade->setColumnHidden(Custo, true);
    m_grade->setColumnHidden(CodPeca, true);
    m_edita = new QLineEdit(m_grade->viewport());
    m_edita->setObjectName(QStringLiteral("TxtGrade"));
    m_edita->hide();
    m_edita->installEventFilter(this);
    connect(m_grade, &QTableWidget::cellClicked, this, [this](int l, int c) { editaCelula(l, c); });
    garanteLinhaVazia();
}

QString OrdemVisita::celula(int linha, int coluna) const
{
    const QTableWidgetItem* i = m_grade->item(linha, coluna);
    return i ? i->text().trimmed() : QString();
}

void OrdemVisita::poeCelula(int linha, int coluna, const QString& texto)
{
    if (auto* i = m_grade->item(linha, coluna))
        i->setText(texto);
    else
        m_grade->setItem(linha, coluna, new QTableWidgetItem(texto));
    if (coluna != Descricao)
        m_grade->item(linha, coluna)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void OrdemVisita::garanteLinhaVazia()
{
    const int n = m_grade->rowCount();
    if (n == 0 || !celula(n - 1, Descricao).isEmpty())
        m_grade->insertRow(n);
}

void OrdemVisita::mostraPecas(const QList<Visitas::PecaVisita>& pecas)
{
    m_edita->hide();
    m_linhaEdita = m_colunaEdita = -1;
    m_grade->setRowCount(0);
    for (const Visitas::PecaVisita& p : pecas) {
        const int l = m_grade->rowCount();
        m_grade->insertRow(l);
        poeCelula(l, Descricao, p.descricao);
        poeCelula(l, Quant, p.quantidade.texto());
        poeCelula(l, Unitario, p.valorVenda.texto());
        poeCelula(l, Total, p.total().texto());
        poeCelula(l, Custo, p.valorCusto.texto());
        poeCelula(l, CodPeca, p.codPeca);
    }
    garanteLinhaVazia();
}

QList<Visitas::PecaVisita> OrdemVisita::pecasDaGrade(QString* erro, int* linhaErro) const
{
    QList<Visitas::PecaVisita> l;
    for (int i = 0; i < m_grade->rowCount(); ++i) {
        if (celula(i, Descricao).isEmpty())
            continue;
        Visitas::PecaVisita p;
        p.descricao = celula(i, Descricao);
        p.codPeca = celula(i, CodPeca);
        const auto q = Visitas::lerQuantidade(celula(i, Quant));
        const auto v = Visitas::lerValor(celula(i, Unitario));
        const auto c = Visitas::lerValor(celula(i, Custo));
        if (!q || !v || !c) {
            if (erro && erro->isEmpty()) {
                *erro = !q ? MsgQuantidade : MsgValor;
                if (linhaErro)
                    *linhaErro = i;
            }
            continue;
        }
        p.quantidade = *q;
        p.valorVenda = *v;
        p.valorCusto = *c;
        l << p;
    }
    return l;
}

void OrdemVisita::completaLinha(int linha)
{
    if (linha < 0 || linha >= m_grade->rowCount() || celula(linha, Descricao).isEmpty())
        return;
    if (celula(linha, Quant).isEmpty())
        poeCelula(linha, Quant, QStringLiteral("1"));
    if (celula(linha, Unitario).isEmpty())
        poeCelula(linha, Unitario, Dinheiro().texto());
    if (celula(linha, Custo).isEmpty())
        poeCelula(linha, Custo, Dinheiro().texto());
    const auto q = Visitas::lerQuantidade(celula(linha, Quant));
    const auto v = Visitas::lerValor(celula(linha, Unitario));
    poeCelula(linha, Total, q && v ? q->vezes(*v).texto() : QString());
}

void OrdemVisita::recalcula()
{
    m_totais = Visitas::totais(pecasDaGrade(), Visitas::lerValor(m_maoObra->text()).value_or(Dinheiro()));
    m_valorVenda->setText(m_totais.venda.texto());
    m_valorPecas->setText(m_totais.pecas.texto());
    m_valorPagar->setText(m_totais.pagar.texto());
}

void OrdemVisita::editaCelula(int linha, int coluna)
{
    if (!m_grade->isEnabled() || coluna > Unitario || linha < 0 || !fechaEdicao())
        return;
    while (linha >= m_grade->rowCount())
        m_grade->insertRow(m_grade->rowCount());
    m_linhaEdita = linha;
    m_colunaEdita = coluna;
    m_grade->setCurrentCell(linha, coluna);
    // Amounts and quantities take digits and one comma only.
    const QString padrao = coluna == Descricao ? QStringLiteral(".{0,120}")
        : coluna == Quant                      ? QStringLiteral("[0-9]{0,6}(,[0-9]{0,3})?")
                                               : QStringLiteral("[0-9]{0,9}(,[0-9]{0,2})?");
    delete m_edita->validator();
    m_edita->setValidator(new QRegularExpressionValidator(QRegularExpression(padrao), m_edita));
    m_edita->setAlignment(coluna == Descricao ? Qt::AlignLeft : Qt::AlignRight);
    m_edita->setText(celula(linha, coluna));
    m_edita->setGeometry(m_grade->visualRect(m_grade->model()->index(linha, coluna)));
    m_edita->show();
    m_edita->setFocus();
    m_edita->selectAll();
}

bool OrdemVisita::fechaEdicao()
{
    if (m_linhaEdita < 0)
        return true;
    const int l = m_linhaEdita, c = m_colunaEdita;
    const QString texto = m_edita->text().trimmed();
    if (c == Quant && !Visitas::lerQuantidade(texto)) {
        Dialogos::mensagem(this, MsgQuantidade, {}, Dialogos::Icone::Aviso);
        m_edita->setFocus();
        return false;
    }
    if (c == Unitario && !Visitas::lerValor(texto)) {
        Dialogos::mensagem(this, MsgValor, {}, Dialogos::Icone::Aviso);
        m_edita->setFocus();
        return false;
    }
    m_linhaEdita = m_colunaEdita = -1;
    m_edita->hide();
    if (texto == celula(l, c))
        return true;
    poeCelula(l, c, texto);
    completaLinha(l);
    garanteLinhaVazia();
    alterou();
    return true;
}

void OrdemVisita::avancaCelula()
{
    int l = m_linhaEdita, c = m_colunaEdita;
    if (!fechaEdicao())
        return;
    if (++c > Unitario) {
        c = Descricao;
        ++l;
    }
    editaCelula(l, c);
}

bool OrdemVisita::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_edita && e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Escape) {
            m_linhaEdita = m_colunaEdita = -1;
            m_edita->hide();
            return true;
        }
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter || tecla == Qt::Key_Tab) {
            if (tecla != Qt::Key_Tab && m_colunaEdita == Descricao && m_edita->text().trimmed().isEmpty()) {
                const int linha = m_linhaEdita;
                fechaEdicao();
                m_linhaProduto = linha;
                if (EntregaTelas::disponivel(QStringLiteral("PesquisaProduto")))
                    EntregaTelas::abrirCom(QStringLiteral("PesquisaProduto"), EntregaTelas::DefineDestino,
                                           {{QStringLiteral("Destino"), objectName()}});
                return true;
            }
            avancaCelula();
            return true;
        }
    }
    return TelaCadastro::eventFilter(alvo, e);
}
