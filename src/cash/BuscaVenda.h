#pragma once
#include <QVariantMap>
#include <QWidget>

class ModeloVendas;
class QTableView;
class Banco;

// The small picker of the cash's sales, newest first: the chosen sale's number and date
// go to the screen that asked for them (its boxes Text3 and Text4).
class BuscaVenda : public QWidget {
    Q_OBJECT
public:
    explicit BuscaVenda(QWidget* pai = nullptr);
    ~BuscaVenda() override;
    // Key "Destino": the registered name of the screen that receives the choice.
    Q_INVOKABLE void defineDestino(const QVariantMap& dados);
    void escolhe(int linha);

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void showEvent(QShowEvent* e) override;

private:
    std::unique_ptr<Banco> m_banco;
    ModeloVendas* m_modelo = nullptr;
    QTableView* m_grade = nullptr;
    QString m_destino;
    bool m_avisado = false;
};
