#pragma once
#include <QWidget>
#include <memory>

#include "cash/SerieMovimento.h"

class QChartView;

// The listed period as a picture: a column per day (per month over a long range) with
// the parts sold and the labour stacked, and what the shop kept as a line over them.
class GraficoMovimento : public QWidget {
    Q_OBJECT
public:
    explicit GraficoMovimento(QWidget* pai = nullptr);
    void mostra(const MovimentoCaixa::Lista& lista, const QDate& de, const QDate& ate);
    const QList<SerieMovimento::Ponto>& pontos() const { return m_pontos; }
    QChartView* vista() const { return m_vista; }

private:
    QChartView* m_vista = nullptr;
    QList<SerieMovimento::Ponto> m_pontos;
};
