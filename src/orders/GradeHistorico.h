#pragma once
#include <QTableWidget>

#include "orders/HistoricoAparelho.h"

// An appliance's earlier orders in a small grid: number, dates, defect, service done and
// the warranty's end; a double click or Enter on a row asks for that order.
class GradeHistorico : public QTableWidget {
    Q_OBJECT
public:
    explicit GradeHistorico(QWidget* pai = nullptr);
    void mostrar(const QList<HistoricoAparelho::Linha>& linhas);
    qint64 codOsAut(int linha) const;
    qint64 codOs(int linha) const;

signals:
    void ordemEscolhida(qint64 codOs, qint64 codOsAut);

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void escolher(int linha);
};
