#pragma once
#include <QDate>
#include <QList>
#include <QWidget>
#include <functional>
#include <memory>

#include "cash/Contas.h"
#include "documents/Impressao.h"

class Banco;
class ErroBanco;
class ModeloPesquisa;
class PainelPix;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

// "Contas a receber" / "Contas a pagar": lists the instalments the shop has to receive or to
// pay (and the cheques it holds), registers a payment, moves a due date, deletes a row and
// takes a bill typed by hand. The rules live in Contas.
class ContaReceber : public QWidget {
    Q_OBJECT
public:
    explicit ContaReceber(QWidget* pai = nullptr);
    ~ContaReceber() override;

    // "Receber" (the start), "Pagar", or "Cheques" (receivables with the cheque searches).
    Q_INVOKABLE void abrirNoModo(const QString& modo);

    // The buttons' actions.
    void pesquisa();                 // 3
    void confirma();                 // 6: payment or new date, by the panel shown
    void exclui();                   // 4
    void imprimeRecibo();            // 1
    void alternaLado();              // 8
    void mostraPagamento(bool ver);  // 0 and 5
    void mostraNovaData(bool ver);   // 7
    void mostraNovaConta(bool ver);  // 9 and 11
    bool gravaNovaConta();           // 10
    void escolheLinha(int linha);

    Contas::Modo lado() const { return m_lado; }
    Contas::Modo modoLista() const { return m_modoLista; }
    qint64 encontrados() const;
    // Where receipts go; the printer unless a caller says otherwise (a PDF in tests).
    void defineDestinoRecibo(const Destino& d) { m_destinoRecibo = d; }
    // The day a new bill's due dates count from; today unless set.
    void defineHoje(const QDate& d) { m_hoje = d; }

private:
    void atualizaTitulo();
    void montaTela();
    QWidget* montaPagamento();
    QWidget* montaNovaConta();
    void poeLado(Contas::Modo lado);
    void limpaEscolha();
    void carregaNomes(const QString& comeco);
    void recusa(const Contas::Recusa& r);
    void erroBanco(const QString& titulo, const ErroBanco& e);
    // Runs a change or a search; a refusal or a store failure is told, and false returned.
    bool executa(const QString& tituloErro, const std::function<void()>& acao);
    bool imprime(const QSqlRecord& linha);
    void formataValor(QLineEdit* le);
    // The PIX charge of the chosen receivable: the amount typed, or the instalment's.
    void atualizaPix();

    // False, after telling why, when the screen has no connection to the store.
    bool conectado();

    std::unique_ptr<Banco> m_banco;
    QString m_erroConexao;
    Contas::Modo m_lado = Contas::Modo::Receber;
    Contas::Modo m_modoLista = Contas::Modo::Receber;
    Contas::Escolhida m_escolhida;
    Destino m_destinoRecibo;
    QDate m_hoje;

    QList<QPushButton*> m_botoes;   // Botao(0..11)
    QLabel* m_titulo = nullptr;     // Label1
    QComboBox* m_combo1 = nullptr;  // the searches
    QLineEdit* m_text1 = nullptr;   // the name sought
    QDateEdit* m_dt = nullptr;
    QTableView* m_grade = nullptr;
    ModeloPesquisa* m_modelo = nullptr;
    QListWidget* m_ltd = nullptr;
    QGroupBox* m_framePagamento = nullptr;
    QGroupBox* m_frameData = nullptr;
    QGroupBox* m_frameConta = nullptr;
    QList<QLineEdit*> m_text2;      // Text2(0..7)
    QLineEdit* m_dtR = nullptr;
    QComboBox* m_combo2 = nullptr;
    PainelPix* m_pix = nullptr;
    QDateEdit* m_dtA = nullptr;
    QComboBox* m_cliFor = nullptr;  // CBCliFor
    QList<QLineEdit*> m_txt;        // Txt(0..6)
    QComboBox* m_cbConta = nullptr;
    QDateEdit* m_dtCompra = nullptr;
};
