#pragma once
#include <QAbstractTableModel>
#include <memory>

class QTableView;
class QWidget;

#include "cash/MovimentoCaixa.h"

// The cash report's list as a grid: the rows were read and walked once, so the grid only
// shows them; the short list of the summaries shows some of the same columns.
class ModeloMovimento : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeloMovimento(QObject* pai = nullptr) : QAbstractTableModel(pai) {}

    // `colunas`: the report's columns to show, in order; empty shows all 40.
    void defineColunas(const QList<int>& colunas);
    void define(std::shared_ptr<const MovimentoCaixa::Lista> lista);
    const MovimentoCaixa::Lista* lista() const { return m_lista.get(); }
    std::shared_ptr<const MovimentoCaixa::Lista> compartilhada() const { return m_lista; }

    int rowCount(const QModelIndex& pai = {}) const override;
    int columnCount(const QModelIndex& pai = {}) const override;
    QVariant data(const QModelIndex& i, int papel = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation o, int papel = Qt::DisplayRole) const override;

    // A read-only grid "LMov" over this model, a row per line.
    QTableView* novaGrade(QWidget* pai);

private:
    int coluna(int secao) const { return m_colunas.isEmpty() ? secao : m_colunas.value(secao); }

    std::shared_ptr<const MovimentoCaixa::Lista> m_lista;
    QList<int> m_colunas;
};
