#pragma once
#include <QHash>
#include <QList>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Banco;
struct DefTabela;

// A static snapshot of a query's rows, walked and edited as the screens always have:
// RecordCount, EOF/BOF and the moves, Find, Requery, AddNew/Update/CancelUpdate,
// Delete, and fields by name without regard to case. Rows opened from a table can be
// changed; a row is always written back by its own primary key.
class Recordset {
public:
    explicit Recordset(Banco& banco);

    // The rows of `tabela` that meet `onde` (SQL written by the program; values bound),
    // in `ordem`. `limite` 0 means all rows.
    void abrir(const QString& tabela, const QString& onde = {}, const QVariantList& valores = {},
               const QString& ordem = {}, int limite = 0);
    // Any query, read only.
    void abrirSql(const QString& sql, const QVariantList& valores = {});
    void requery();
    void fechar();
    bool aberto() const { return m_aberto; }

    int recordCount() const { return m_linhas.size(); }
    bool eof() const { return m_pos >= m_linhas.size() || m_linhas.isEmpty(); }
    bool bof() const { return m_pos < 0 || m_linhas.isEmpty(); }
    int posicao() const { return m_pos; }
    void moveFirst() { m_pos = 0; }
    void moveLast() { m_pos = m_linhas.size() - 1; }
    void moveNext() { if (m_pos < m_linhas.size()) ++m_pos; }
    void movePrevious() { if (m_pos >= 0) --m_pos; }
    void moveTo(int pos) { m_pos = pos; }

    // Forward search from the current row: the first whose column matches the LIKE
    // pattern (case and accents ignored). Not found leaves EOF true.
    bool find(const QString& coluna, const QString& padrao);

    // Field access on the current row (or the row being added). Unknown names throw
    // CampoDesconhecido; reading past EOF throws ErroBanco.
    QVariant valor(const QString& nome) const;
    bool nulo(const QString& nome) const { return valor(nome).isNull(); }
    QString texto(const QString& nome) const;         // NULL as ""
    qint64 inteiro(const QString& nome) const;        // NULL as 0
    bool flag(const QString& nome) const;             // -1 true
    Dinheiro dinheiro(const QString& nome) const;
    Quantidade quantidade(const QString& nome) const;
    QSqlRecord registro() const;

    // Editing: set fields between addNew() (or on the current row) and update().
    void addNew();
    void definir(const QString& nome, const QVariant& valor);
    void definirFlag(const QString& nome, bool v) { definir(nome, v ? -1 : 0); }
    void definir(const QString& nome, Dinheiro d) { definir(nome, QVariant::fromValue(d.centavos())); }
    void definir(const QString& nome, Quantidade q) { definir(nome, QVariant::fromValue(q.milesimos())); }
    // Writes the row; an auto-number is known after it. A row changed or deleted at another
    // station since it was read throws RegistroAlterado and writes nothing.
    void update();
    void cancelUpdate();
    bool editando() const { return m_novo || !m_alterados.isEmpty(); }
    // Removes the current row for good; one changed or deleted at another station since it
    // was read throws RegistroAlterado and stays as it is.
    void deleteAtual();
    qint64 chaveAtual() const;     // primary key of the current row

    const DefTabela* tabela() const { return m_tabela; }
    // Columns that other stations move by relative updates (a product's stock): they are
    // left out of the check of a row as it was read, and the screen never writes them whole.
    void naoConferir(const QStringList& colunas) { m_naoConferir = colunas; }

private:
    int indice(const QString& nome) const;
    void carregar();
    void exigeLinha() const;
    bool existe(qint64 chave);
    // The condition that finds the current row only as it was read, its values appended.
    QString comoFoiLida(QVariantList& valores) const;

    Banco& m_banco;
    const DefTabela* m_tabela = nullptr;
    QString m_sql;
    QVariantList m_valores;
    QList<QSqlRecord> m_linhas;
    QSqlRecord m_modelo;
    QHash<QString, int> m_indices;  // lower-case name -> field index
    int m_pos = -1;
    bool m_aberto = false;
    bool m_novo = false;
    QSqlRecord m_edicao;
    QHash<int, bool> m_alterados;
    QStringList m_naoConferir;
};
