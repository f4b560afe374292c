#pragma once
#include "maintenance/TelaManutencao.h"

// "Restaura backup do banco de dados": puts a checked backup in the store's place and
// keeps the store it replaces.
class RestauraDados : public TelaManutencao {
    Q_OBJECT
public:
    explicit RestauraDados(QWidget* pai = nullptr);

    static QString textoOcupado();

protected slots:
    void iniciar() override;

private:
    void depoisDaTroca(const QString& guardado);
};
