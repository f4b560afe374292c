#pragma once
#include <QWidget>
#include <array>

#include "data/Dinheiro.h"

class QLineEdit;
class QTimer;

// "Fluxo do caixa.": the money of the listed sales, counting up to its totals while the
// report fills, at a pace the eye can follow however many rows there are.
class FluxoCaixa : public QWidget {
    Q_OBJECT
public:
    explicit FluxoCaixa(QWidget* pai = nullptr);

    // Starts counting from zero to these values: total, cash in the till, discount, paid,
    // change.
    void conta(const std::array<Dinheiro, 5>& valores);
    bool contando() const;

private:
    void passo();

    std::array<QLineEdit*, 5> m_caixas{};
    std::array<Dinheiro, 5> m_alvo{};
    QTimer* m_relogio = nullptr;
    int m_passo = 0;
};
