#pragma once
#include <QList>
#include <QSqlRecord>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "data/Busca.h"

class Banco;
class ModeloPesquisa;
class QLineEdit;
class QRadioButton;
class QTableView;
class QVBoxLayout;

// The search screens: one option Option1(i) per search column with its box Text1(i), of
// which only the chosen one shows; Enter runs the search into the grid Grade; a click
// keeps the row's code and name in the hidden Text2 and Text3; a double click or Enter
// on the grid is the choice, handed to the screen that asked for the search. The grid
// holds every row found, read as it scrolls (ModeloPesquisa), with the exact count in the
// caption.
class TelaPesquisa : public QWidget {
    Q_OBJECT
public:
    struct Opcao {
        QString rotulo;   // "Nome"
        QString coluna;   // "NomeCliente"
        bool meio = false;  // the typed text may stand anywhere in the column
    };
    struct ColunaGrade {
        QString coluna;
        QString titulo;
        int largura = 100;
    };
    using Acao = std::function<void(const QSqlRecord& linha)>;

    explicit TelaPesquisa(QWidget* pai = nullptr);
    ~TelaPesquisa() override;

    // A calling place sets its flag and what the choice does for it. When several are set
    // the first in the screen's order (ordemChamadores) wins; closing the search clears
    // them all.
    void definirChamador(const QString& flag, Acao acao);
    bool chamadorDefinido(const QString& flag) const;
    void escolheOpcao(int i);
    // Runs the search of the chosen option with the text of its box.
    void pesquisa();
    void escolhe(int linha);
    int encontrados() const;
    // A caller may narrow the grid: width in pixels, 0 hides the column.
    void defineLarguraColuna(int coluna, int largura);
    static QString textoInicial() { return QStringLiteral("Escolha um item acima,digite e aperte enter"); }

signals:
    void escolhido(const QString& codigo, const QString& nome);

protected:
    // The subclass fills these and calls iniciar() at the end of its constructor.
    QString m_tabela;           // "Cliente"
    QString m_titulo;           // "Busca Cliente"
    QString m_plural;           // "clientes"
    QString m_tituloContagem;   // the caption's head when rows were found; empty: m_titulo
    QString m_colunaCodigo;
    QString m_colunaNome;
    QString m_ordem;            // ORDER BY of the results (condicaoBusca may set it per option)
    QList<Opcao> m_opcoes;
    QList<ColunaGrade> m_grade;
    QStringList m_ordemChamadores;
    bool iniciar();
    // Lists every row of the table in m_ordem (a search with no options lists on load).
    void listaTodos();
    // A screen whose mode changes what it searches shows another grid (after iniciar()).
    void redefineGrade(const QList<ColunaGrade>& grade);
    QVBoxLayout* layoutTopo() const { return m_topo; }
    Banco* banco() const { return m_banco.get(); }
    // The rows of an option's search: by default the option's column among live rows.
    virtual Condicao condicaoBusca(const Opcao& opcao, const QString& texto);
    // How a grid cell shows its column's value (the masks of documents and telephones).
    virtual QString textoCelula(const QString& coluna, const QVariant& valor) const;
    // The choice when no calling place has set its flag.
    virtual void acaoPadrao(const QSqlRecord&) {}
    // Shows in the grid the rows of the table that meet `onde`, in `ordem`, and their
    // count in the caption. Throws ErroBanco.
    void mostraConsulta(const Condicao& onde, const QString& ordem);
    // No rows and the plain caption (an empty text typed).
    void esvazia();
    void closeEvent(QCloseEvent* e) override;
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void limpaGrade();
    void atualizaTitulo();
    std::unique_ptr<Banco> m_banco;
    QList<QRadioButton*> m_botoesOpcao;
    QList<QLineEdit*> m_textos;
    QLineEdit* m_codigo = nullptr;
    QLineEdit* m_nome = nullptr;
    QTableView* m_gradeW = nullptr;
    ModeloPesquisa* m_modelo = nullptr;
    QVBoxLayout* m_topo = nullptr;
    QList<QPair<QString, Acao>> m_chamadores;
    int m_opcao = 0;
    int m_linhaEscolhida = -1;
    bool m_centrada = false;
};
