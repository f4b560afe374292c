#include "cash/ModeloMovimento.h"

#include <QHeaderView>
#include <QTableView>

using namespace MovimentoCaixa;

void ModeloMovimento::defineColunas(const QList<int>& colunas)
{
    beginResetModel();
    m_colunas = colunas;
    endResetModel();
}

void ModeloMovimento::define(std::shared_ptr<const Lista> lista)
{
    beginResetModel();
    m_lista = std::move(lista);
    endResetModel();
}

int ModeloMovimento::rowCount(const QModelIndex& pai) const
{
    return pai.isValid() || !m_lista ? 0 : int(m_lista->linhas.size());
}

int ModeloMovimento::columnCount(const QModelIndex& pai) const
{
    return pai.isValid() ? 0 : (m_colunas.isEmpty() ? int(NumeroColunas) : int(m_colunas.size()));
}

QVariant ModeloMovimento::data(const QModelIndex& i, int papel) const
{
    if (!i.isValid() || !m_lista || i.row() >= m_lista->linhas.size())
        return {};
    const int c = coluna(i.column());
    if (papel == Qt::DisplayRole)
        return m_lista->linhas.at(i.row()).celula(c);
    if (papel == Qt::TextAlignmentRole && (colunaDinheiro(c) || c == Quantidade_))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant ModeloMovimento::headerData(int secao, Qt::Orientation o, int papel) const
{
    if (o == Qt::Horizontal && papel == Qt::DisplayRole)
        return titulos().value(coluna(secao));
    return QAbstractTableModel::headerData(secao, o, papel);
}

QTableView* ModeloMovimento::novaGrade(QWidget* pai)
{
    auto* g = new QTableView(pai);
    g->setObjectName(QStringLiteral("LMov"));
    g->setModel(this);
    g->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g->setSelectionBehavior(QAbstractItemView::SelectRows);
    g->verticalHeader()->setDefaultSectionSize(20);
    g->verticalHeader()->hide();
    return g;
}
