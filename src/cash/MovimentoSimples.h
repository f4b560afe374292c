#pragma once
#include <QWidget>
#include <memory>

#include "cash/MovimentoCaixa.h"

class ModeloMovimento;
class QTableView;

// "Lista de produdos e serviço efetuados pelo caixa": the listed sales with only what the
// counter needs to check the till.
class MovimentoSimples : public QWidget {
    Q_OBJECT
public:
    explicit MovimentoSimples(QWidget* pai = nullptr);
    void mostra(std::shared_ptr<const MovimentoCaixa::Lista> lista);

private:
    ModeloMovimento* m_modelo = nullptr;
    QTableView* m_grade = nullptr;
};
