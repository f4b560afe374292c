#pragma once
#include <QHash>
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>
#include <optional>

#include "documents/Impressao.h"
#include "orders/ContagemPainel.h"
#include "orders/ListasPainel.h"

class Banco;
class BotaoAviso;
class QComboBox;
class QDateEdit;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTimer;

// The shop's pending work beside the main window: a column of buttons counting the open
// orders in each list, refreshed by TimerAparelho on every station; a button opens its
// list in the grid, a row shows the customer's telephones and the appliance in the side
// frame, where the attendant records the answer and the promised day while on the phone.
// Botao(0..9) are the lists (7 folds, 8 prints), Etiqueta(i) their labels, BotStatus(0..4)
// "Autorizado", "Recusado", "Indeciso", "Salvar", "Entregar".
class Pendencia : public QWidget {
    Q_OBJECT
public:
    explicit Pendencia(QWidget* pai = nullptr);
    ~Pendencia() override;

    // Another screen saved an order: the counts and the open list are read again now.
    Q_INVOKABLE void atualizaPainel(const QVariantMap& dados);

    // The list in the grid (none before the first press).
    std::optional<Lista> listaAberta() const { return m_lista; }
    int statusSituacao() const { return m_statusSituacao; }
    int statusResposta() const { return m_statusResposta; }

public slots:
    void atualiza();
    void abreLista(int botao);
    void escolheLinha(int linha);
    void abreOrdem(int linha);
    void recolhe();
    void busca();
    void salvar();
    void entregar();

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void montaTela();
    QWidget* montaFrame();
    void carregaGrade();
    void mostraContagens(const ContagemPainel& c);
    void acinzenta(bool cinza);
    void pisca(int botao, QTimer* timer, const QColor& cor);
    void paraPisca(int botao, QTimer* timer);
    void resposta(int botao);
    void limpaEscolhas();
    void imprime(Destino::Tipo tipo);
    bool garanteBanco();
    const LinhaPainel* linhaAtual() const;

    std::unique_ptr<Banco> m_banco;
    QHash<int, QPushButton*> m_botoes;
    QHash<int, QLabel*> m_etiquetas;
    QList<QPushButton*> m_status;
    QTableWidget* m_grade = nullptr;
    QFrame* m_frame = nullptr;
    QLabel* m_telefone = nullptr;
    QLabel* m_celular = nullptr;
    QLabel* m_valorPagar = nullptr;
    QDateEdit* m_dtEntrega = nullptr;
    QLabel* m_imagem = nullptr;
    QComboBox* m_cStatus = nullptr;
    BotaoAviso* m_avisar = nullptr;
    QLineEdit* m_busca = nullptr;
    QTimer* m_timerAparelho = nullptr;
    QTimer* m_timerEntrega = nullptr;
    QTimer* m_timerRecusado = nullptr;
    QTimer* m_timerSolicitada = nullptr;
    QHash<int, bool> m_aceso;

    std::optional<Lista> m_lista;
    QList<LinhaPainel> m_linhas;
    int m_statusSituacao = 0;
    int m_statusResposta = 0;
};
