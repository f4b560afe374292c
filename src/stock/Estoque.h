#pragma once
#include <QWidget>
#include <memory>

#include "data/Busca.h"
#include "documents/Impressao.h"

class Banco;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;
class ModeloEstoque;

// "Estoque geral de produtos": every live product with its stock levels, the searches of
// CBusca, the level filters (which narrow what the grid shows and paint it), the printout
// and the spreadsheet. A row clicked opens the product register on it.
class Estoque : public QWidget {
    Q_OBJECT
public:
    explicit Estoque(QWidget* pai = nullptr);
    ~Estoque() override;

    void mostraTodos();
    void busca();
    enum class Filtro { Vazio, AteMinimo, AcimaMinimo };
    void filtra(Filtro f);
    void imprime(Destino::Tipo destino);
    void exporta();
    // Walks the grid for the typed text (OptPesquisa(1)); the row found becomes current.
    bool localizaNaLista();
    qint64 encontrados() const;

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void atualizaTitulo();
    void abreConsulta();
    void incluiProduto();
    void abreProduto(int linha);
    bool falhou(const QString& titulo, const std::exception& e);

    std::unique_ptr<Banco> m_banco;
    ModeloEstoque* m_modelo = nullptr;
    QTableView* m_grade = nullptr;
    QComboBox* m_campo = nullptr;
    QLineEdit* m_texto = nullptr;
    QRadioButton* m_filtrar = nullptr;
    QRadioButton* m_localizar = nullptr;
    QList<QPushButton*> m_botoes;
    // What the grid shows: the last search or show-all, narrowed by each filter pressed.
    Condicao m_base;
    QString m_ordem;
    Condicao m_onde;
    bool m_pintada = false;
};
