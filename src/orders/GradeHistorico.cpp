#include "orders/GradeHistorico.h"

#include <QHeaderView>
#include <QKeyEvent>

GradeHistorico::GradeHistorico(QWidget* pai) : QTableWidget(pai)
{
    setObjectName(QStringLiteral("GradeHistorico"));
    const QStringList colunas = HistoricoAparelho::colunas();
    setColumnCount(colunas.size());
    setHorizontalHeaderLabels(colunas);
    const int larguras[] = {60, 80, 80, 200, 200, 90};
    for (int c = 0; c < colunas.size() && c < 6; ++c)
        setColumnWidth(c, larguras[c]);
    // The defect and the service are the long texts: they take what width there is.
    horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(4, QHeaderView::Stretch);
    verticalHeader()->hide();
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setToolTip(QStringLiteral("Ordens anteriores deste aparelho (duplo clique abre)"));
    connect(this, &QTableWidget::cellDoubleClicked, this, [this](int l) { escolher(l); });
}

void GradeHistorico::mostrar(const QList<HistoricoAparelho::Linha>& linhas)
{
    setRowCount(0);
    setRowCount(linhas.size());
    for (int r = 0; r < linhas.size(); ++r) {
        const QStringList celulas = HistoricoAparelho::celulas(linhas[r]);
        for (int c = 0; c < celulas.size(); ++c) {
            auto* item = new QTableWidgetItem(celulas[c]);
            item->setToolTip(celulas[c]);
            if (c == 0) {
                item->setData(Qt::UserRole, linhas[r].CodOsAut);
                item->setData(Qt::UserRole + 1, linhas[r].CodOs);
            }
            setItem(r, c, item);
        }
    }
}

qint64 GradeHistorico::codOsAut(int linha) const
{
    const QTableWidgetItem* i = item(linha, 0);
    return i ? i->data(Qt::UserRole).toLongLong() : 0;
}

qint64 GradeHistorico::codOs(int linha) const
{
    const QTableWidgetItem* i = item(linha, 0);
    return i ? i->data(Qt::UserRole + 1).toLongLong() : 0;
}

void GradeHistorico::keyPressEvent(QKeyEvent* e)
{
    if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) && currentRow() >= 0) {
        escolher(currentRow());
        return;
    }
    QTableWidget::keyPressEvent(e);
}

void GradeHistorico::escolher(int linha)
{
    if (codOsAut(linha) > 0)
        emit ordemEscolhida(codOs(linha), codOsAut(linha));
}
