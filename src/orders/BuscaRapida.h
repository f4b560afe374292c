#pragma once
#include <QWidget>
#include <memory>

#include "orders/BuscaOrdens.h"

class Banco;
class ModeloPesquisa;
class QLineEdit;
class QPushButton;
class QTableView;

// The counter's quick search, open all day beside the pending panel: an order by number,
// customer name, telephone (or mobile) or document, always on its way to the delivery or
// whole-order screen. One box is in force at a time: clicking one empties the others.
// Enter searches; Enter or a double click on the grid hands the order's key over.
class BuscaRapida : public QWidget {
    Q_OBJECT
public:
    explicit BuscaRapida(QWidget* pai = nullptr);
    ~BuscaRapida() override;

    void busca(BuscaOrdens::Rapida caixa);
    void escolhe(int linha);
    int encontrados() const;

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void cliqueMais();
    void mostraGrade(bool visivel);
    void atualizaTitulo();

    std::unique_ptr<Banco> m_banco;
    QList<QLineEdit*> m_caixas;
    QTableView* m_grade = nullptr;
    ModeloPesquisa* m_modelo = nullptr;
};
