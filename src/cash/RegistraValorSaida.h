#pragma once
#include <QList>
#include <QVariantMap>
#include <QWidget>
#include <memory>
#include <optional>

#include "cash/OrdemCaixa.h"
#include "cash/RegistroPagamento.h"

class Banco;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class PainelPix;

// The till: the money of a finished order (what was charged, paid, the discount, the
// payment form, the instalments or a debt left on the slate). Its record button posts
// the sale and closes the order; the rules live in RegistroPagamento, this class holds
// the boxes and the order of the steps.
class RegistraValorSaida : public QWidget {
    Q_OBJECT
public:
    explicit RegistraValorSaida(QWidget* pai = nullptr);
    ~RegistraValorSaida() override;

    // The one way in: delivery, the whole-order screen and the panel hand the order's
    // row key as "CodOsAut".
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados);
    bool carregaOrdem(qint64 codOsAut);

    // The buttons' actions, as the buttons run them.
    void registrar();
    void imprimir();
    void escolheForma(const QString& texto);
    void clicaPendurar();

    const std::optional<OrdemCaixa>& ordem() const { return m_ordem; }

private:
    void montaTela();
    void limpaCampos();
    void mostra(const OrdemCaixa& o);
    void aplicaEstado();
    void aoMudarValor(const QString& texto);
    void aoSairValor(QLineEdit* caixa);
    void poeTroco(const QString& pagoTexto);
    std::optional<PagamentoCaixa> leCaixas();
    bool leValor(QLineEdit* caixa, const QString& campo, Dinheiro* valor);
    void mostraRecusa(const QString& mensagem, const QString& titulo, bool negado);
    void perguntaCheque(const PagamentoCaixa& p, qint64 codOs);
    // The PIX charge follows the form chosen and the amount owed (total less discount).
    void atualizaPix();

    std::unique_ptr<Banco> m_banco;
    std::optional<OrdemCaixa> m_ordem;
    bool m_parcelasTravadas = false;

    QList<QLineEdit*> m_txt;    // Txt(0)..Txt(17), by index
    QLineEdit* m_ctxt[2] = {};  // Ctxt(0) Tipo, Ctxt(1) Marca
    QList<QLineEdit*> m_text6;  // Text6(0)..Text6(7)
    QComboBox* m_forma = nullptr;
    QCheckBox* m_pendurar = nullptr;
    QDateEdit* m_data = nullptr;
    QPushButton* m_registrar = nullptr;
    QPushButton* m_imprimir = nullptr;
    QPushButton* m_fechar = nullptr;
    PainelPix* m_pix = nullptr;
};
