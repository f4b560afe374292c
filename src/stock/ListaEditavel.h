#pragma once
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QTableWidget>

#include "stock/Grupos.h"

// What the group and tax-class screens share: the two states of their buttons (Incluir
// and Excluir over the list, Salvar and Cancelar while a row is typed) and the filling
// of a list grid whose first column is the code.
namespace ListaEditavel {

inline void navegacao(QPushButton* b0, QPushButton* b1)
{
    b0->setText(QStringLiteral("&Incluir"));
    b1->setText(QStringLiteral("&Excluir"));
}

inline void digitacao(QPushButton* b0, QPushButton* b1)
{
    b0->setText(QStringLiteral("&Salvar"));
    b1->setText(QStringLiteral("&Cancelar"));
}

inline bool digitando(const QPushButton* b0) { return b0->text() == QStringLiteral("&Salvar"); }

// Fills the grid and puts the cursor on the row of `escolher` (a code), if there.
inline void preenche(QTableWidget* g, const QList<Grupos::Linha>& linhas, bool comIcms, qint64 escolher = -1)
{
    g->clearContents();
    g->setRowCount(linhas.size());
    for (int r = 0; r < linhas.size(); ++r) {
        g->setItem(r, 0, new QTableWidgetItem(QString::number(linhas[r].codigo)));
        g->setItem(r, 1, new QTableWidgetItem(linhas[r].nome));
        if (comIcms)
            g->setItem(r, 2, new QTableWidgetItem(QString::number(linhas[r].icms)));
        if (linhas[r].codigo == escolher)
            g->setCurrentCell(r, 0);
    }
}

inline QTableWidget* novaGrade(QWidget* pai, const QString& nome, const QStringList& titulos)
{
    auto* g = new QTableWidget(0, titulos.size(), pai);
    g->setObjectName(nome);
    g->setHorizontalHeaderLabels(titulos);
    g->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g->setSelectionBehavior(QAbstractItemView::SelectRows);
    g->setSelectionMode(QAbstractItemView::SingleSelection);
    g->setColumnWidth(0, 70);
    g->setColumnWidth(1, 260);
    return g;
}

}
