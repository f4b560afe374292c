#pragma once
#include <QWidget>
#include <functional>
#include <memory>

#include "stock/SaidaPecas.h"

class Banco;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

// "Saída de prduto.": hands a part from the stock room over to a service order (Oficina),
// lists the parts of an order (Ver O.S) or what went out with a sale (Venda), and removes
// a part from an order by its own row.
class SaidaProduto : public QWidget {
    Q_OBJECT
public:
    enum Modo { Oficina = 0, VerOs = 1, Venda = 2 };

    explicit SaidaProduto(QWidget* pai = nullptr);
    ~SaidaProduto() override;

    void defineModo(int modo);
    int modo() const { return m_modo; }
    // Botao(0): the hand-over in Oficina, the list in the other modes.
    void executa();
    void remove();
    // The leave of the code box and of the order box.
    void saiDoCodigo();
    bool saiDaOrdem();

private:
    bool escolheOrdem(const QString& numero, bool avisaSemOrdem);
    void mostraLista(const QList<SaidaPecas::Linha>& linhas);
    void listaOrdem();
    void entrega();
    void limpaOrdem();
    // Runs a change of the order; a refusal or a failure of the store is told, and gives false.
    bool altera(const std::function<void()>& mudanca);

    std::unique_ptr<Banco> m_banco;
    int m_modo = Oficina;
    QList<QRadioButton*> m_tipos;
    QLabel* m_etiqueta = nullptr;
    QList<QLineEdit*> m_busca;   // TxtBusca(0..2)
    QList<QLineEdit*> m_cliente; // Dcliente(0..2)
    QComboBox* m_produto = nullptr;
    QTableWidget* m_grade = nullptr;
    QList<QPushButton*> m_botoes;
    std::optional<SaidaPecas::Produto> m_achado;
    std::optional<SaidaPecas::OrdemSaida> m_ordem;
};
