#pragma once
#include <QWidget>
#include <memory>

#include "cash/MovimentoCaixa.h"
#include "documents/Impressao.h"

class Banco;
class ModeloMovimento;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

// The shop's day, or any period: the sale lines or the sale summaries of a date range
// with what each earned, their totals, the searches, the printout, the spreadsheet, the
// chart and the delete of what is listed.
class Movimento : public QWidget {
    Q_OBJECT
public:
    explicit Movimento(QWidget* pai = nullptr);
    ~Movimento() override;

    void lista();
    void busca(MovimentoCaixa::Campo campo);
    void exclui();
    void imprime(Destino::Tipo destino);
    void exporta();
    void grafico();

    const MovimentoCaixa::Lista* listada() const;
    MovimentoCaixa::Visao visaoOpcao() const;

private:
    void mostra(MovimentoCaixa::Lista lista);
    void opcao(int indice);
    MovimentoCaixa::Visao visaoCombo() const;
    bool falhou(const QString& titulo, const std::exception& e);
    void carregaListas();

    std::unique_ptr<Banco> m_banco;
    QDateEdit* m_de = nullptr;
    QDateEdit* m_ate = nullptr;
    QComboBox* m_combo = nullptr;
    QComboBox* m_tecnico = nullptr;
    QComboBox* m_modulo = nullptr;
    QList<QLineEdit*> m_busca;
    QList<QRadioButton*> m_opcao;
    QGroupBox* m_frame = nullptr;
    QTableView* m_grade = nullptr;
    ModeloMovimento* m_modelo = nullptr;
    QList<QLabel*> m_totais;
    QList<QPushButton*> m_botoes;
    // The range and the view caption the list was read with: what prints and exports.
    QDate m_listadoDe, m_listadoAte;
    QString m_listadoVisao;
};
