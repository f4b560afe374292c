#pragma once
#include <QHash>
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "documents/Impressao.h"
#include "orders/EstadoOrdem.h"
#include "orders/Ordem.h"

class Banco;
class FotoCadastro;
class QCheckBox;
class QComboBox;
class QCompleter;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStandardItemModel;
class QTableWidget;
class QTabWidget;
class QTimer;
struct Recusa;

class BotaoAviso;
class ListaAvisos;

// The whole order on one form, for the shop where one person takes the appliance in,
// repairs it and hands it back. It is the record of the intake, bench and delivery
// screens: every rule (numbering, transitions, locks, money, stock) is the order
// library's, and this class holds the boxes and the order of the steps.
class CadCompleto : public QWidget {
    Q_OBJECT
public:
    explicit CadCompleto(QWidget* pai = nullptr);
    ~CadCompleto() override;

    // Work on one order, found by its row key ("CodOsAut").
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados);
    // A customer's order chosen in his register ("CodOsAut").
    Q_INVOKABLE void mostraOrdem(const QVariantMap& dados);
    // A new order for a customer of the register ("CodCliente", "NomeCliente").
    Q_INVOKABLE void novoComCliente(const QVariantMap& dados);
    // A product chosen in the product search.
    Q_INVOKABLE void recebeProduto(const QVariantMap& dados);
    Q_INVOKABLE void abrirNoModo(const QString& modo);
    bool carregaOrdem(qint64 codOsAut);

    // The buttons' actions.
    void incluir();
    bool salvar();
    void retirar();
    void excluir();
    void sairOuCancelar();
    void garantia();
    void responder(Resposta r);
    void entregar();
    void imprimir(int fichaTipo, Destino::Tipo destino = Destino::Tipo::Impressora);
    void imprimirOrcamento(Destino::Tipo destino = Destino::Tipo::Impressora);

    const Ordem& ordem() const { return m_ordem; }
    bool alterado() const { return m_alterado; }
    bool novo() const { return m_novo; }
    int fotoAtual() const { return m_foto; }

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    // layout (CadCompletoTela.cpp)
    void montaTela();
    QWidget* montaCliente();
    QWidget* montaAparelho();
    QWidget* montaBancada();
    QWidget* montaListas();
    QWidget* montaLateral();
    QLineEdit* linha(QWidget* pai, const QString& coluna, int maximo = 255);
    QPlainTextEdit* texto(QWidget* pai, const QString& coluna, int altura);

    // showing and the change guard (CadCompleto.cpp)
    void carregaCatalogos();
    void mostra(const Ordem& o);
    void mostraBanda();
    void mostraHistorico();
    void mostraAvisos();
    void poeTitulo();
    void limpa(bool manterCliente);
    bool marcaAlterado();
    void desmarca();
    void mostraRecusa(const Recusa& r);
    void aviso(const QString& texto, const QString& segunda = {});
    void escolheSituacao(int opcao);
    Situacao situacaoEscolhida() const;
    void poeSituacao(Situacao s);
    void pisca();
    void sugereNomes(const QString& digitado);
    void clienteEscolhido(const QString& codCliente);
    void buscaPorCodigo();
    void aoSairCpf();

    // saving and the buttons (CadCompletoAcoes.cpp)
    bool ordemDosCampos(Ordem& o);
    bool gravar();
    void mostraAlterada(const Ordem& o);
    void executaComSenha();

    // lists (CadCompletoListas.cpp)
    void mostraListas();
    void mostraPecas();
    void mostraServicos();
    void mostraDefeitos();
    void mostraValores();
    void recalcula();
    void abrePeca(int linha);
    void gravaPeca();
    void removePeca();
    void buscaProduto();
    void abreServico(int linha);
    void adicionaServico(int linhaCatalogo);
    void alteraServico();
    void removeServico();
    void adicionaDefeito(int linhaCatalogo);
    void removeDefeito(int linha);

    // pictures (CadCompletoFotos.cpp)
    void mostraFoto(int slot);
    void fotoDeArquivo();
    void alternaCamera();
    void capturaFoto();
    void ampliaFoto();
    QString nomeProposto(const QString& extensao) const;
    QString* caminhoFoto(Ordem& o, int slot) const;

    std::unique_ptr<Banco> m_banco;
    Ordem m_ordem;       // with the changes made on the screen
    Ordem m_guardada;    // as stored: "&Cancelar" goes back to it
    bool m_novo = false;
    bool m_alterado = false;
    bool m_mostrando = false;
    bool m_consertadoNaCarga = false;
    bool m_retornoGarantia = false;
    bool m_pisca = false;
    int m_fichaTipo = 1;
    int m_pecaAberta = -1;
    int m_servicoAberto = -1;
    int m_foto = 0;
    qint64 m_total = 0;
    QString m_acaoSenha;
    QString m_cpfChecado;

    QList<QPushButton*> m_botoes;
    QList<QRadioButton*> m_opcoes;
    QList<QPushButton*> m_botoesFoto;
    QHash<QString, QLineEdit*> m_linhas;
    QHash<QString, QPlainTextEdit*> m_textos;
    QTabWidget* m_abas = nullptr;
    QComboBox* m_tipo = nullptr;
    QComboBox* m_marca = nullptr;
    QComboBox* m_tecnico = nullptr;
    QCheckBox* m_fabrica = nullptr;
    QCheckBox* m_bloqueio = nullptr;
    QRadioButton* m_opPorcento = nullptr;
    QLabel* m_resposta = nullptr;
    QLabel* m_banda = nullptr;
    QLabel* m_rotuloEntrega = nullptr;
    QLabel* m_rotuloContato = nullptr;
    QLineEdit* m_busca1 = nullptr;
    QLineEdit* m_busca2 = nullptr;
    QLineEdit* m_dataEntrega = nullptr;
    QLineEdit* m_hora = nullptr;
    QLineEdit* m_imagem = nullptr;
    QLabel* m_imgAparelho = nullptr;
    QCompleter* m_nomes = nullptr;
    QStandardItemModel* m_modeloNomes = nullptr;
    QTimer* m_avisaOrcamento = nullptr;
    FotoCadastro* m_fotos = nullptr;
    QTableWidget* m_historico = nullptr;
    ListaAvisos* m_avisos = nullptr;
    BotaoAviso* m_avisar = nullptr;
    QTableWidget* m_lPeca = nullptr;
    QTableWidget* m_lExec = nullptr;
    QTableWidget* m_lServ = nullptr;
    QListWidget* m_lDef = nullptr;
    QListWidget* m_lCad = nullptr;
    QGroupBox* m_framePecas = nullptr;
    QGroupBox* m_frameServicos = nullptr;
    QGroupBox* m_frameDefeitos = nullptr;
    QLineEdit* m_pecaDescricao = nullptr;
    QLineEdit* m_pecaQuantidade = nullptr;
    QLineEdit* m_pecaVenda = nullptr;
    QLineEdit* m_pecaDesconto = nullptr;
    QLineEdit* m_servicoObra = nullptr;
    QLineEdit* m_servicoDesconto = nullptr;
};
