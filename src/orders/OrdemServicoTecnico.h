#pragma once
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "orders/EstadoOrdem.h"
#include "orders/Ordem.h"

class Banco;
class BotaoAviso;
class ListaAvisos;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;
struct Recusa;

// The technician's bench: what is wrong, what was done, the parts and services that went
// in, what it costs and the situation of the repair. The lists live in the order in
// memory until the save; money, locks and stock are the order library's, and the
// library's save writes it all in one go.
class OrdemServicoTecnico : public QWidget {
    Q_OBJECT
public:
    explicit OrdemServicoTecnico(QWidget* pai = nullptr);
    ~OrdemServicoTecnico() override;

    // Work on one order, found by its row key ("CodOsAut").
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados);
    // A product chosen in the product search.
    Q_INVOKABLE void recebeProduto(const QVariantMap& dados);
    bool carregaOrdem(qint64 codOsAut);

    // The buttons' actions.
    bool salvar();
    void autorizar();
    void sairOuCancelar();
    void estoque();
    void manual();
    void removePeca();
    void adicionaPeca();
    void removeServico();
    void alteraServico();

    const Ordem& ordem() const { return m_ordem; }
    bool alterado() const { return m_alterado; }

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void montaTela();
    QWidget* montaCampos();
    QWidget* montaListas();
    void mostra(const Ordem& o);
    void mostraResposta();
    void mostraPecas();
    void mostraServicos();
    void mostraDefeitos();
    void mostraValores();
    void poeTitulo();
    bool marcaAlterado();
    void desmarca();
    void recalcula();
    void aviso(const QString& texto, const QString& segunda = {});
    void mostraRecusa(const Recusa& r);
    void escolheSituacao(int opcao);
    void cliqueBloqueio();
    void abrePeca(int linha);
    void fechaPeca();
    void abreServico(int linha);
    void adicionaServico(const QString& codServico);
    void adicionaDefeito(int indice);
    bool descontoPecaValido();
    bool descontoServicoValido();
    void maoObraDigitada();
    bool ordemDosCampos(Ordem& o);
    Situacao situacaoEscolhida() const;
    bool podeTrocar();

    std::unique_ptr<Banco> m_banco;
    Ordem m_ordem;       // with the changes made on the screen
    Ordem m_guardada;    // as stored: "&Cancelar" goes back to it
    bool m_alterado = false;
    bool m_mostrando = false;
    bool m_consertadoNaCarga = false;
    bool m_pecaManual = false;
    int m_pecaAberta = -1;     // row of LPeca in the part's box, -1 for a new part
    int m_servicoAberto = -1;
    qint64 m_total = 0;

    QList<QPushButton*> m_botoes;
    QList<QRadioButton*> m_opcoes;
    QGroupBox* m_frameOrdem = nullptr;
    QLabel* m_cliente = nullptr;
    QLabel* m_aparelho = nullptr;
    QLabel* m_resposta = nullptr;
    BotaoAviso* m_avisar = nullptr;
    ListaAvisos* m_avisos = nullptr;
    QComboBox* m_tecnico = nullptr;
    QLineEdit* m_armazenado = nullptr;
    QPlainTextEdit* m_observacao = nullptr;
    QPlainTextEdit* m_servicoReal = nullptr;
    QPlainTextEdit* m_defeitoReal = nullptr;
    QPlainTextEdit* m_sintoma = nullptr;
    QListWidget* m_lDef = nullptr;
    QComboBox* m_comboDef = nullptr;
    QPlainTextEdit* m_servicoExecutado = nullptr;
    QLineEdit* m_status = nullptr;
    QCheckBox* m_bloqueado = nullptr;
    QLineEdit* m_maoObra = nullptr;
    QLineEdit* m_valorVenda = nullptr;
    QLineEdit* m_valorPagar = nullptr;
    QLineEdit* m_valorPecas = nullptr;
    QLineEdit* m_valorDescontoPeca = nullptr;
    QTableWidget* m_lPeca = nullptr;
    QTableWidget* m_lServ = nullptr;
    QTableWidget* m_lExec = nullptr;
    QGroupBox* m_framePeca = nullptr;
    QLineEdit* m_pecaDescricao = nullptr;
    QLineEdit* m_pecaQuantidade = nullptr;
    QLineEdit* m_pecaDesconto = nullptr;
    QLineEdit* m_pecaVenda = nullptr;
    QGroupBox* m_frameServico = nullptr;
    QLineEdit* m_codServico = nullptr;
    QLineEdit* m_servicoNome = nullptr;
    QLineEdit* m_servicoDesconto = nullptr;
    QLineEdit* m_servicoObra = nullptr;
};
