#pragma once
#include <QWidget>

#include "orders/AvisoCliente.h"

class Banco;
class QComboBox;
class QPushButton;

// "Avisar cliente" with the situation to tell beside it, the same on the bench, the panel
// and at delivery. It stays hidden while the shop hasn't switched the notices on. A
// customer that can't be told keeps the button, whose tip and message say why.
class BotaoAviso : public QWidget {
    Q_OBJECT
public:
    explicit BotaoAviso(QWidget* pai = nullptr);

    // The order the button tells about (0: none, the button is off) and the situation
    // that its state suggests.
    void defineOrdem(Banco& banco, qint64 codOsAut, AvisoCliente::Situacao sugerida);

    // The press: opens the chat or the mail, then keeps the notice. False when nothing
    // was opened or kept (the reason was told through the dialog seam).
    bool avisar();

signals:
    // The notice was kept; `dataContato` is the order's contact date as stored.
    void avisado(qint64 codOsAut, const QString& dataContato);

private:
    Banco* m_banco = nullptr;
    qint64 m_codOsAut = 0;
    QComboBox* m_situacao = nullptr;
    QPushButton* m_botao = nullptr;
};
