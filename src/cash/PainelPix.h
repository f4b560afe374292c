#pragma once
#include <QGroupBox>

#include "data/Dinheiro.h"

class QLabel;
class QLineEdit;
class QPushButton;

// The PIX charge beside a payment: the QR code the customer reads with the bank's app and
// the "copia e cola" text with a button that copies it. Hidden until a payment form
// "PIX" is chosen; the till and the receivables screen both show it.
class PainelPix : public QGroupBox {
    Q_OBJECT
public:
    // Vertical: a column beside the till's boxes; horizontal: a strip under a form.
    explicit PainelPix(Qt::Orientation orientacao, QWidget* pai = nullptr);

    // Shows the charge of `valor` for the order `numeroOs`. An amount of 0,00, PIX turned
    // off or a key that is no key: no QR, the reason told (once while the amount is being
    // typed; again after esconde()), and false.
    bool mostra(Dinheiro valor, const QString& numeroOs);
    void esconde();
    const QString& payload() const { return m_payload; }

    // The cashier looks at the bank's app and says the money is there; false stops the save.
    bool confirmaRecebimento(QWidget* tela);

private:
    void copia();

    QLabel* m_imagem = nullptr;
    QLineEdit* m_texto = nullptr;
    QPushButton* m_copiar = nullptr;
    QLabel* m_valor = nullptr;
    QString m_payload;
    Dinheiro m_cobrado;
    QString m_recusado;  // the last refusal told, so typing an amount doesn't repeat it
};
