#pragma once
#include <QAbstractItemModel>
#include <QTableView>
#include <QTest>

// What a test reads of a search grid and how it chooses a row, as a user would: the
// current row and Enter.
namespace GradeTeste {

inline int linhas(QTableView* g) { return g->model()->rowCount(); }
inline int colunas(QTableView* g) { return g->model()->columnCount(); }
inline QString celula(QTableView* g, int linha, int coluna)
{
    return g->model()->index(linha, coluna).data().toString();
}
inline QString titulo(QTableView* g, int coluna)
{
    return g->model()->headerData(coluna, Qt::Horizontal).toString();
}
inline void escolhe(QTableView* g, int linha)
{
    g->setCurrentIndex(g->model()->index(linha, 0));
    QTest::keyClick(g, Qt::Key_Return);
}

}
