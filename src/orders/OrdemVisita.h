#pragma once
#include <QVariantMap>

#include "documents/Impressao.h"
#include "orders/Visitas.h"
#include "ui/TelaCadastro.h"

class QCompleter;
class QDateEdit;
class QLabel;
class QPlainTextEdit;
class QRadioButton;
class QStandardItemModel;
class QTableWidget;
class QTimeEdit;
class QComboBox;

// House calls: the customer's request, when the technician goes, what was done there,
// the parts used and the money. Buttons: 0 new, 1 served, 2 save/delete, 3 print,
// 4 leave/cancel.
class OrdemVisita : public TelaCadastro {
    Q_OBJECT
public:
    explicit OrdemVisita(QWidget* pai = nullptr);

    // Shows exactly the visit of key "CodManu", the bin included.
    Q_INVOKABLE void abreVisita(const QVariantMap& dados);
    // A new visit for the customer register's customer.
    Q_INVOKABLE void novoComCliente(const QVariantMap& dados);
    // The product chosen in the search fills the grid row that asked for it.
    Q_INVOKABLE void recebeProduto(const QVariantMap& dados);

    void atender();
    void imprimir(Destino::Tipo destino = Destino::Tipo::Impressora);

protected:
    bool validaAntesDeGravar() override;
    void excluiDependentes(bool fisica) override;
    void gravaCampos(Recordset& rs) override;
    void limpaCampos() override;
    void bloqueiaCampos() override;
    void liberaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    enum Coluna { Descricao, Quant, Unitario, Total, Custo, CodPeca, NColunas };

    void montaGrade(QWidget* pai);
    void montaBuscas();
    void procura();
    void sugereClientes(const QString& texto);
    void mostraPecas(const QList<Visitas::PecaVisita>& pecas);
    QList<Visitas::PecaVisita> pecasDaGrade(QString* erro = nullptr, int* linhaErro = nullptr) const;
    void garanteLinhaVazia();
    void editaCelula(int linha, int coluna);
    bool fechaEdicao();
    void avancaCelula();
    void completaLinha(int linha);
    void recalcula();
    QString celula(int linha, int coluna) const;
    void poeCelula(int linha, int coluna, const QString& texto);
    void alterou();

    QLineEdit* m_busca[2] = {};
    QLabel* m_codManu = nullptr;
    QLabel* m_codCliente = nullptr;
    QLineEdit* m_nome = nullptr;
    QPlainTextEdit* m_endTel = nullptr;
    QPlainTextEdit* m_solicitacao = nullptr;
    QDateEdit* m_data = nullptr;
    QTimeEdit* m_hora = nullptr;
    QLineEdit* m_dataAtendida = nullptr;
    QComboBox* m_tecnico = nullptr;
    QLineEdit* m_maoObra = nullptr;
    QLineEdit* m_valorVenda = nullptr;
    QLineEdit* m_valorPecas = nullptr;
    QLineEdit* m_valorPagar = nullptr;
    QRadioButton* m_andamento[4] = {};
    QTableWidget* m_grade = nullptr;
    QLineEdit* m_edita = nullptr;  // the floating box over the current cell
    int m_linhaEdita = -1, m_colunaEdita = -1;
    int m_linhaProduto = -1;       // the row that asked the product search
    QCompleter* m_completa = nullptr;
    QStandardItemModel* m_nomes = nullptr;
    qint64 m_codManuAtual = 0;
    Visitas::Totais m_totais;
};
