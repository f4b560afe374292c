#pragma once
#include <QPointer>
#include <QWidget>

class OrdemServicoSaida;
class QLineEdit;
class QPushButton;
class QTableWidget;

// The parts of the order at the delivery counter, as the bench priced them, and the
// labour, which a user with the budget right may change here. The order itself is the
// delivery screen's: this list only shows it and hands back the labour.
class ListaPecas : public QWidget {
    Q_OBJECT
public:
    explicit ListaPecas(QWidget* pai = nullptr);

    // Shows the order open on the delivery screen.
    void mostra(OrdemServicoSaida* saida);

    void incluirPecas();
    void imprimir();

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void aoSairMaoObra();

    QPointer<OrdemServicoSaida> m_saida;
    QTableWidget* m_grade = nullptr;
    QLineEdit* m_valorPecas = nullptr;
    QLineEdit* m_maoObra = nullptr;
    QPushButton* m_botoes[3] = {};
};
