#pragma once
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "data/Busca.h"
#include "documents/Impressao.h"

class Banco;
class ModeloPesquisa;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableView;

// "Pedido de Material.": the list of what the shop has to buy, kept by hand, by a review
// of the stock and by the bench; sent to a supplier as a document, an e-mail or on paper.
// Every change needs DireitoPedidoAl; DireitoPedidoLe alone sees the list.
class PedidoMaterial : public QWidget {
    Q_OBJECT
public:
    explicit PedidoMaterial(QWidget* pai = nullptr);
    ~PedidoMaterial() override;

    // A product chosen in the product search: its code and description, quantity "1".
    Q_INVOKABLE void recebeProduto(const QVariantMap& dados);

    void pesquisaProduto();
    void filtraFornecedor();
    void inclui();
    void revisaEstoque();
    void atualizaLista();
    void enviaWord();
    void enviaEmail();
    void imprime(Destino::Tipo destino);
    // The double click on a row.
    void excluiLinha(int linha);
    qint64 linhas() const;

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void carregaFornecedores();
    void mostra(const Condicao& onde);
    bool podeAlterar();
    void falha(const std::exception& e);

    std::unique_ptr<Banco> m_banco;
    QList<QLineEdit*> m_textos;  // Text1(0) code, Text1(1) description, Text1(2) quantity
    QComboBox* m_fornecedor = nullptr;
    QTableView* m_lista = nullptr;
    ModeloPesquisa* m_modelo = nullptr;
    QList<QPushButton*> m_botoes;
    Condicao m_onde;
};
