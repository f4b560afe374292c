#pragma once
#include <QWidget>
#include <memory>

class Banco;
class QLineEdit;
class QLabel;
class QPushButton;
class QTabWidget;
class QTableWidget;

// The two-level classification of products: groups on the first tab, the subgroups of
// the chosen group on the second. Opened from the product register.
class GrupoProduto : public QWidget {
    Q_OBJECT
public:
    explicit GrupoProduto(QWidget* pai = nullptr);
    ~GrupoProduto() override;

    void incluirOuSalvar();
    void excluirOuCancelar();

protected:

private:
    bool abaSubGrupo() const;
    void recarregaGrupos(qint64 escolher = -1);
    void recarregaSubGrupos(qint64 escolher = -1);
    void escolheGrupo(int linha);
    void escolheSubGrupo(int linha);
    void salvar();
    void excluir();
    void cancelar();

    std::unique_ptr<Banco> m_banco;
    QTabWidget* m_abas;
    QLineEdit* m_cod;
    QLineEdit* m_grupo;
    QLineEdit* m_codSub;
    QLineEdit* m_subGrupo;
    QLabel* m_grupoDoSub;
    QTableWidget* m_gradeGrupo;
    QTableWidget* m_gradeSub;
    QPushButton* m_botao[3];
    bool m_incluindo = false;
};
