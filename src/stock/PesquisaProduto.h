#pragma once
#include <QVariantMap>

#include "ui/TelaPesquisa.h"

class QTimer;

// The picker of products for every screen. The screen that opens it says where the
// choice goes (defineDestino): the product register shows the product, a kit list takes
// it and the search stays open for more items, any other screen receives it through
// recebeProduto. Opened from the menu, the choice shows the product on the register.
class PesquisaProduto : public TelaPesquisa {
    Q_OBJECT
public:
    explicit PesquisaProduto(QWidget* pai = nullptr);

    Q_INVOKABLE void defineDestino(const QVariantMap& dados);
    QString destino() const { return m_destino; }
    // The text typed in the description box searches in its middle, deleted products too,
    // a moment after the last key.
    void buscaAoDigitar();
    // What the chosen screen receives.
    static QVariantMap dadosDoProduto(const QSqlRecord& produto, bool kit);

    static constexpr int EsperaDigitacaoMs = 250;

protected:
    QString textoCelula(const QString& coluna, const QVariant& valor) const override;
    void acaoPadrao(const QSqlRecord& produto) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void entrega(const QSqlRecord& produto);

    QString m_destino;
    bool m_kit = false;
    QTimer* m_espera = nullptr;
};
