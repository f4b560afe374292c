#pragma once
#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>

#include "data/Busca.h"

class Banco;
class QBoxLayout;
class QLineEdit;
class QPushButton;
class Recordset;

// One entry field of a register and the column it is copied to and from.
struct CampoCadastro {
    enum class Tipo {
        Texto,     // QLineEdit (with or without a mask), QPlainTextEdit, editable QComboBox
        Numero,    // QLineEdit taking digits, backspace and the comma only
        Data,      // QLineEdit "dd/MM/yyyy" or QDateEdit; stored "yyyy/MM/dd"
        Flag,      // QCheckBox, stored -1/0
        Dinheiro,  // QLineEdit "1.234,56", stored in cents
        Exibicao   // a label showing a value the user can't type (the code); never written
    };
    QWidget* widget = nullptr;
    QString coluna;  // empty: the screen copies this field itself
    Tipo tipo = Tipo::Texto;
};

// What a register screen says about itself; the base does the rest.
struct DefCadastro {
    QString tabela;              // "Cliente"
    QString titulo;              // "Cadastro de cliente": the caption adds the count
    QString colunaCodigo;        // numbered on a new record; rows are shown in its order
    QString colunaOrdem;         // rows are shown in this order instead (a list by name
                                 // whose code the engine numbers: colunaCodigo empty)
    QString unidade = QStringLiteral("registros");  // the caption's count: "N   registros"
    bool soVivos = true;         // the list opens on live rows (Excluidos 0)
    QString colunaCarimbo;       // who changed the row last: "Alterado"
    QString colunaDataCadastro;  // a new record takes today's date
    QString direito;             // session name of the change right ("DireitoClienteAl"); empty: none
    bool exclusaoSempreFisica = false;  // the row goes for good whatever DireitoPermanente says
    bool exclusaoSemDireito = false;    // deleting tests no right
    QString senhaOrigem;         // the word for the password at use
    QWidget* obrigatorio = nullptr;     // the field that can't be empty, and its message
    QString mensagemObrigatorio;
    QLineEdit* buscaViva = nullptr;     // optional search box at the top
    QStringList colunasBuscaViva;       // code and name, searched in their middle
    // The search box's own condition, for a table whose searched code is a plain number.
    std::function<Condicao(Banco&, const QString&)> condicaoBuscaViva;
    QStringList colunasMovidasFora;     // moved by difference elsewhere: not checked as read
    QString dicaSalvar = QStringLiteral("Salva o cadastro");
    QString dicaCancelar = QStringLiteral("Cancela a inclusão ou alteração do registro");
};

// The register pattern: a row of buttons Botao(i) over the rows of one table, browse,
// insert and edit states, the save and the deletion with their checks, and the keys of
// the fields. The screen holds only the current row (and the count), so a register of a
// million customers opens as fast as one of ten.
//
// A subclass builds its widgets inside corpo(), adds its own buttons with adicionaBotao,
// fills def() and campos(), and calls iniciar() at the end of its constructor:
//
//     def().tabela = "Cliente";            def().titulo = "Cadastro de cliente";
//     def().colunaCodigo = "CodCliente";   def().colunaCarimbo = "Alterado";
//     def().direito = "DireitoClienteAl";  def().senhaOrigem = "Cliente";
//     def().obrigatorio = nome;            def().mensagemObrigatorio = "Coloque o nome do cliente";
//     campos() = {{nome, "NomeCliente"}, {fone, "Telefone"}, {bloq, "BloqCliente", CampoCadastro::Tipo::Flag}};
//     iniciar();
//
// A field with a mask is a QLineEdit with its inputMask set; extra columns are written in
// an override of gravaCampos, extra checks in validaAntesDeGravar.
class TelaCadastro : public QWidget {
    Q_OBJECT
public:
    explicit TelaCadastro(QWidget* pai = nullptr);
    ~TelaCadastro() override;

    enum class Estado { Navegacao, Inclusao, Edicao };
    Estado estado() const;
    bool novo() const { return m_novo; }
    bool alterado() const { return m_alterado; }
    int total() const { return m_total; }
    QPushButton* botao(int indice) const;
    // The primary key of the row shown, or -1.
    qint64 chaveAtual() const;
    Banco* banco() const { return m_banco.get(); }

    // The transitions, as the buttons run them (tests and other screens use them too).
    void incluirOuCancelar();
    // Opens the insert state (a menu's "Novo"); nothing when a record is already being typed.
    void novoRegistro();
    void salvarOuExcluir();
    void fechar();

    // Moves and shows the row; false when there is no row that way.
    bool irPrimeiro();
    bool irUltimo();
    bool irProximo();
    bool irAnterior();
    bool irChave(qint64 chave);

signals:
    void gravou();
    void excluiu();

protected:
    QWidget* corpo() const { return m_corpo; }
    DefCadastro& def() { return m_def; }
    QList<CampoCadastro>& campos() { return m_campos; }
    // Buttons beyond 0 and 1, in index order; the last one added is close unless the
    // screen names another with definirBotaoFechar.
    QPushButton* adicionaBotao(const QString& texto, const QString& dica = {});
    void definirBotaoFechar(int indice) { m_indiceFechar = indice; }
    // A screen whose row of buttons is laid out otherwise (new on 0, save/delete on 2,
    // leave/cancel on 4) names where save and cancel live once its buttons are added; a
    // cancel on the close button turns its caption while a record is typed.
    void posicionaAcoes(int indiceGravar, int indiceCancelar);
    // Connects, paints, opens the rows and sets the buttons. False when the store can't
    // be opened (the notice that leads to the reconnection has been shown).
    bool iniciar();

    // The screen procedures every register has.
    virtual void limpaCampos();
    virtual void bloqueiaCampos();
    virtual void liberaCampos();
    virtual void mostraRegistro(const Recordset& rs);
    virtual void marcaAlterado();
    // Checks of the screen's own before the right and the writing; false stops the save.
    virtual bool validaAntesDeGravar() { return true; }
    // Checks of the screen's own before a deletion is asked; false stops it.
    virtual bool validaAntesDeExcluir() { return true; }
    // Checks that must see the store as it stands at the moment of writing: they run inside
    // the save's (the deletion's) transaction, before anything is written. A text is the
    // reason for refusing, shown once the transaction has been rolled back; empty goes on.
    virtual QString impedimentoAoGravar() { return {}; }
    virtual QString impedimentoAoExcluir() { return {}; }
    // Rows of other tables that go with the one deleted, inside the same transaction
    // (`fisica`: for good, not into the bin).
    virtual void excluiDependentes(bool /*fisica*/) {}
    // Copies the fields to the row being written; the default writes every field of
    // campos() by its type.
    virtual void gravaCampos(Recordset& rs);
    virtual void aposMostrar() {}
    // A button of the screen's own that can't act now (its target screen isn't in this
    // build) stays disabled whatever the state.
    virtual bool botaoDisponivel(int) const { return true; }

    void ajustaBotoes();
    // Paints, places the field hooks (keys, upper case, Enter to the next field) on
    // widgets added after iniciar().
    void preparaCampo(const CampoCadastro& c);
    bool carregando() const { return m_carregando; }
    // Reopens the rows on the text of the search box (a screen with two boxes calls it).
    void buscaViva(const QString& texto);

    void closeEvent(QCloseEvent* e) override;
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    bool precisaSenha() const;
    bool confere(const std::function<bool()>& checagem);
    void pedeSenha();
    bool salvar();
    void excluir();
    void escreveCampo(Recordset& rs, const CampoCadastro& c);
    void recontar();
    Condicao filtro() const;
    bool abreUm(const QString& onde, const QVariantList& valores, const QString& ordem);
    void mostraAtual();
    bool mostraSe(bool moveu);
    bool movePrimeiro();
    bool moveUltimo();
    bool moveProximo();
    bool moveAnterior();
    bool moveChave(qint64 chave);
    QWidget* ultimoMultilinha() const;
    const QString& colunaOrdem() const;
    void captionsEdicao();

    DefCadastro m_def;
    QList<CampoCadastro> m_campos;
    std::unique_ptr<Banco> m_banco;
    std::unique_ptr<Recordset> m_rs;
    QWidget* m_corpo = nullptr;
    QBoxLayout* m_linhaBotoes = nullptr;
    QList<QPushButton*> m_botoes;
    bool m_novo = false;
    bool m_alterado = false;
    bool m_carregando = false;
    bool m_fecharAposSalvar = false;
    bool m_fechando = false;
    bool m_incluiExcluidos = false;  // after a new record the list is the whole table
    Condicao m_filtroBusca;
    int m_total = 0;
    int m_indiceFechar = -1;
    int m_iGravar = 1;
    int m_iCancelar = 0;
    QString m_textoFechar;
    bool m_centrada = false;
};
