#pragma once
#include <QHash>
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "data/Dinheiro.h"
#include "documents/Impressao.h"
#include "orders/Ordem.h"

class Banco;
class BotaoAviso;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The counter when the customer comes back: the whole order shown, the customer's answer
// to the budget, the warranty return, and the hand-over, through the till when the order
// is authorised and without it otherwise. Only the note, the storage place and the
// promised day are typed here (and the labour, in the parts list). The order's rules
// stay in the order library.
class OrdemServicoSaida : public QWidget {
    Q_OBJECT
public:
    explicit OrdemServicoSaida(QWidget* pai = nullptr);
    ~OrdemServicoSaida() override;

    // Work on one order, found by its row key ("CodOsAut").
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados);
    // An order of a customer: "CodOs" with "CodOsAut", or with "CodCliente" when there is
    // no key.
    Q_INVOKABLE void mostraOrdem(const QVariantMap& dados);
    bool carregaOrdem(qint64 codOsAut);

    // The buttons' actions.
    void pecasAplicadas();
    void entregarOuSalvar();
    void sairOuCancelar();
    void responder(int botao);
    void clienteDaOrdem();
    void garantia();
    bool salvar();
    void imprimir(Destino::Tipo destino = Destino::Tipo::Impressora);

    // The parts list asks before its labour box takes a key: the finalised-order lock,
    // then DireitoAltOrca. True when the change may go on (marked as a change here).
    bool liberaMaoObra();
    // The labour typed in the parts list: the value box takes it plus the parts.
    void maoObraDigitada(Dinheiro maoObra);

    const Ordem& ordem() const { return m_ordem; }
    bool alterado() const { return m_alterado; }
    Dinheiro maoObra() const { return m_maoObra; }
    Banco* banco() const { return m_banco.get(); }

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void montaTela();
    void mostra(const Ordem& o);
    void mostraResposta();
    void poeTitulo();
    bool marcaAlterado();
    void desmarca();
    bool ordemDosCampos(Ordem& o);
    void fechaLista();
    bool livreParaOutra();

    std::unique_ptr<Banco> m_banco;
    Ordem m_ordem;       // with the changes made on the screen
    BotaoAviso* m_avisar = nullptr;
    Ordem m_guardada;    // as stored: "&Cancelar" goes back to it
    bool m_alterado = false;
    bool m_maoObraAlterada = false;
    bool m_mostrando = false;
    Dinheiro m_maoObra;
    qint64 m_total = 0;

    QList<QPushButton*> m_botoes;
    QHash<QString, QLineEdit*> m_campos;  // read-only boxes by column
    QLineEdit* m_codOs = nullptr;
    QLineEdit* m_codFabrica = nullptr;
    QGroupBox* m_frameCliente = nullptr;
    QLabel* m_resposta = nullptr;
    QLabel* m_aviso = nullptr;
    QLabel* m_dataEntrada = nullptr;
    QLabel* m_dataContato = nullptr;
    QLabel* m_dataSaida = nullptr;
    QLineEdit* m_entregarDia = nullptr;
    QLineEdit* m_valor = nullptr;
    QPlainTextEdit* m_observacao = nullptr;
    QLineEdit* m_armazenado = nullptr;
};
