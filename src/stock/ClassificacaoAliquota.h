#pragma once
#include <QWidget>
#include <memory>

class Banco;
class QLineEdit;
class QPushButton;
class QTableWidget;

// The tax classes with their ICMS rate, which the product register offers in its list.
class ClassificacaoAliquota : public QWidget {
    Q_OBJECT
public:
    explicit ClassificacaoAliquota(QWidget* pai = nullptr);
    ~ClassificacaoAliquota() override;

    void incluirOuSalvar();
    void excluirOuCancelar();

protected:

private:
    void recarrega(qint64 escolher = -1);
    void escolhe(int linha);
    void salvar();
    void excluir();
    void cancelar();

    std::unique_ptr<Banco> m_banco;
    QLineEdit* m_cod;
    QLineEdit* m_descricao;
    QLineEdit* m_icms;
    QTableWidget* m_grade;
    QPushButton* m_botao[3];
    bool m_incluindo = false;
};
