#pragma once
#include <QWidget>
#include <memory>

#include "stock/ReajustePreco.h"

class Banco;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTableView;
class ModeloReajuste;

// Price adjustment: one price column of the products chosen by description, make and
// category, raised or lowered by a percentage or an amount. The new prices are shown
// beside the old ones before anything is written, and are written all together.
class AlteraPreco : public QWidget {
    Q_OBJECT
public:
    explicit AlteraPreco(QWidget* pai = nullptr);
    ~AlteraPreco() override;

    // Botao(0): the preview, then the question, then the writing.
    void aplica();
    int previstos() const;

private:
    bool leAjuste(ReajustePreco::Ajuste* ajuste);
    ReajustePreco::Filtro filtro() const;
    void carregaListas();

    std::unique_ptr<Banco> m_banco;
    QList<QComboBox*> m_listas;      // CSeleciona(0..2)
    QList<QRadioButton*> m_ajuste;   // OptAjuste(0..2)
    QList<QRadioButton*> m_valor;    // OptValor(0..1)
    QLineEdit* m_figura = nullptr;   // TxtValor
    QList<QLabel*> m_rotulos;        // Label1..Label3
    QTableView* m_grade = nullptr;
    ModeloReajuste* m_modelo = nullptr;
};
