#pragma once
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>

#include "cash/Cheques.h"

class Banco;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// "Cadastro de cheques": the cheques a customer hands over for one payment, up to four,
// with the bank, the account and its holder. The till hands its payment here; a cheque
// found in the search comes back with its whole registration. The rules live in Cheques.
class RegCheque : public QWidget {
    Q_OBJECT
public:
    explicit RegCheque(QWidget* pai = nullptr);
    ~RegCheque() override;

    // The till's payment in cheques: a new registration for the customer and the amount,
    // the plan run as if chosen from the list.
    Q_INVOKABLE void recebePagamento(const QVariantMap& dados);
    // Shows the registration that the stored cheque `chave` belongs to.
    bool mostraCheque(qint64 chave);
    bool mostraCadastro(qint64 codcadastro);
    // The menus' "Novo".
    Q_INVOKABLE void abrirNoModo(const QString& modo);

    // The buttons' actions.
    void novo();
    void excluir();
    void pesquisaCliente();
    bool salvar();
    void mostraPlanos();
    bool fechaPlanos();
    // The choice of a plan, as a click on the list runs it.
    void escolhePlano(const QString& plano);
    // The customer chosen in the search (Text2 code, Text3 name).
    void clienteEscolhido();

    int quantidadeCheques() const { return m_n; }
    const RegistroCheque& registro() const { return m_registro; }

private:
    void montaTela();
    void limpa();
    void mostra(const RegistroCheque& r);
    void ajustaCheques();
    void poeTitulo();
    bool leTela(RegistroCheque& r);
    void foca(ChequeRecusado::Campo campo, int indice);
    void mensagem(const QString& texto);

    std::unique_ptr<Banco> m_banco;
    RegistroCheque m_registro;
    int m_n = 0;  // the plan's count of cheques
    QList<QPushButton*> m_botoes;
    QLabel* m_codigo = nullptr;       // Label2
    QLabel* m_codCliente = nullptr;   // Label1(14)
    QList<QLineEdit*> m_text1;        // Text1(0..12); 8 is the address box
    QPlainTextEdit* m_endereco = nullptr;
    QList<QLineEdit*> m_text6;        // values 0-3, dates 4-7, numbers 8-11
    QComboBox* m_plano = nullptr;     // Combo1
    QComboBox* m_tipoVenda = nullptr; // Combo2
    QLineEdit* m_text2 = nullptr;
    QLineEdit* m_text3 = nullptr;
    QLineEdit* m_codOsCheque = nullptr;
    QGroupBox* m_frame = nullptr;
};
