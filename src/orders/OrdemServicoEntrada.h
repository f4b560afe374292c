#pragma once
#include <QVariantMap>

#include "documents/Impressao.h"
#include "orders/Ordem.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/RecusaOrdem.h"
#include "ui/TelaCadastro.h"

class GradeHistorico;
class QCheckBox;
class QGridLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QRadioButton;
class QTimer;

// The counter screen: the attendant finds or types the customer, describes the appliance
// and the complaint, saves, and prints the receipt that goes with the appliance. The
// order is stored through the order library (numbering, transition rules, locks); this
// class only holds the boxes and the order of the steps.
class OrdemServicoEntrada : public TelaCadastro {
    Q_OBJECT
public:
    explicit OrdemServicoEntrada(QWidget* pai = nullptr);

    // Shows the live order with this number and key (a panel's or a search's choice).
    // Both must match, each on its own. False when there is no such order.
    bool mostraOrdem(const QString& codOs, const QString& codOsAut);
    Q_INVOKABLE void mostraOrdem(const QVariantMap& dados);
    // The customer register hands a new order for one of its customers.
    Q_INVOKABLE void novoComCliente(const QVariantMap& dados);
    // The menu's new order.
    Q_INVOKABLE void abrirNoModo(const QString& modo);
    // The delivery screen's warranty return: the copy made by the order library is put in
    // the boxes, and button 0 then starts the new order from it.
    void preparaRetornoGarantia(const Ordem& copia);
    bool retornoGarantia() const { return m_retornoGarantia; }
    bool clienteNovo() const { return m_clienteNovo; }
    const Ordem& ordem() const { return m_ordem; }

    // The button actions, as the buttons run them.
    void botaoIncluir();
    void botaoSalvar();
    bool salvarOrdem();
    void excluirOrdem();
    void imprimir(Destino::Tipo destino = Destino::Tipo::Impressora);
    void pedirVisita();

protected:
    void limpaCampos() override;
    void liberaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    void marcaAlterado() override;
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    enum class Limpeza { Tudo, Aparelho, SoNumero };
    void montaTela();
    void carregaCatalogos();
    void mostra(const Ordem& o);
    void poeTitulo();
    void poeCliente(const EntradaRegras::ClienteBalcao& c);
    bool ordemTravada();
    void mostraRecusa(const Recusa& r);
    void aoSairCpf();
    void aoSairNumero();
    void aoEscolherTipo(int indice);
    void aoSairTipo();
    void aoSairMarca();
    void aoSairComboDefeito();
    void adicionaDefeito(const QString& codigo, const QString& texto);
    void removeDefeito();
    void codigoDefeitoEnter();
    void mostraDefeitos();
    void aplicaCfgDefeitos();
    void travaDatas(bool travadas);
    void aviso(const QString& texto);
    Ordem ordemDosCampos(bool* ok);
    QString textoCombo(const QComboBox* c, const QString& prompt) const;
    void voltaANavegacao(qint64 chave);
    // The appliance's earlier orders, read again a moment after its boxes change.
    void montaHistorico(QGridLayout* g, int linha);
    void atualizaHistorico();
    void abreHistorico(qint64 codOs, qint64 codOsAut);

    Ordem m_ordem;
    bool m_clienteNovo = false;
    bool m_retornoGarantia = false;
    Limpeza m_limpeza = Limpeza::Tudo;
    QString m_cpfChecado;

    QLineEdit* m_codOs = nullptr;
    QCheckBox* m_fabrica = nullptr;
    QLineEdit* m_codFabrica = nullptr;
    QLineEdit* m_cpf = nullptr;
    QLineEdit* m_nome = nullptr;
    QLineEdit* m_endereco = nullptr;
    QLineEdit* m_ncasa = nullptr;
    QLineEdit* m_bairro = nullptr;
    QLineEdit* m_cidade = nullptr;
    QLineEdit* m_telefone = nullptr;
    QLineEdit* m_celular = nullptr;
    QLineEdit* m_codCliente = nullptr;
    QComboBox* m_tipo = nullptr;
    QLineEdit* m_valorPorcentagem = nullptr;
    QRadioButton* m_opPorcento = nullptr;
    QRadioButton* m_opValor = nullptr;
    QComboBox* m_marca = nullptr;
    QLineEdit* m_modelo = nullptr;
    QLineEdit* m_serie = nullptr;
    QLineEdit* m_cor = nullptr;
    QLineEdit* m_certificado = nullptr;
    QLineEdit* m_nota = nullptr;
    QLineEdit* m_dataNota = nullptr;
    QLineEdit* m_revendedor = nullptr;
    QLineEdit* m_estado = nullptr;
    QLineEdit* m_acessorio = nullptr;
    QPlainTextEdit* m_sintoma = nullptr;
    QPlainTextEdit* m_observacao = nullptr;
    QLineEdit* m_armazenado = nullptr;
    QLineEdit* m_dataEntrada = nullptr;
    QLineEdit* m_dataSaida = nullptr;
    QComboBox* m_comboDef = nullptr;
    QLineEdit* m_codigoDef = nullptr;
    QListWidget* m_lCad = nullptr;
    QListWidget* m_lDef = nullptr;
    QLabel* m_rotuloCodigoDef = nullptr;
    QLabel* m_rotuloDefeitos = nullptr;
    QLabel* m_garantia = nullptr;
    GradeHistorico* m_historico = nullptr;
    QTimer* m_timerHistorico = nullptr;
};
