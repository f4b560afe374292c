#pragma once
#include <QAbstractTableModel>
#include <QList>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class PaginasBusca;

// The grid of a search screen: the exact count of rows found, of which only those the
// grid shows are read, a page at a time as it scrolls. No row cap and no whole result
// held: a search that matches a hundred thousand customers costs one page until
// someone scrolls. Before any search it holds one line of invitation.
// A screen may show the first page before the count (Contagem::Depois): the grid holds
// the rows read until the count, made right after, gives it the rest; total() never
// answers a guess, it counts at once if the count is still to come.
class ModeloPesquisa : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Coluna {
        QString coluna;
        QString titulo;
    };
    // How a cell shows its column's value (masks of documents and telephones).
    using Celula = std::function<QString(const QString& coluna, const QVariant& valor)>;

    static constexpr int TamanhoPagina = 200;
    enum class Contagem { Antes, Depois };

    explicit ModeloPesquisa(QObject* pai = nullptr);
    ~ModeloPesquisa() override;

    void defineColunas(const QList<Coluna>& colunas, Celula celula);
    // A new search: counts its rows and reads the first page, or with Contagem::Depois reads
    // the first page and counts as soon as the grid has shown it. Throws ErroBanco.
    void abrir(std::unique_ptr<PaginasBusca> paginas, Contagem contagem = Contagem::Antes);
    void convite(const QString& texto);
    void limpar();

    bool temConvite() const { return !m_convite.isEmpty(); }
    // The exact number of rows found (counting now if the count was still to come).
    qint64 total() const;
    // The count is still to come: the grid holds only the rows read so far.
    bool contando() const { return m_contagemPendente; }
    // No row found (known at once: a count still to come follows a full first page).
    bool vazio() const { return m_total == 0; }
    // The value of a row's column (one of the grid's, or the key), reading up to it.
    QVariant valor(int linha, const QString& coluna) const;
    // The whole row, read again by its key for the screen that gets the choice.
    QSqlRecord registro(int linha) const;

    int rowCount(const QModelIndex& pai = {}) const override;
    int columnCount(const QModelIndex& pai = {}) const override;
    QVariant data(const QModelIndex& indice, int papel = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation orientacao, int papel = Qt::DisplayRole) const override;

signals:
    // Reading further failed (a lost connection): the rows stop where they were.
    void falhou(const QString& mensagem);
    // The count that came after the first page is known (total() answers it).
    void contou();

private:
    bool garante(int linha) const;
    // Makes the count still to come; false when it failed (the grid keeps what it read).
    bool conta();
    void encurta();

    QList<Coluna> m_colunas;
    Celula m_celula;
    std::unique_ptr<PaginasBusca> m_paginas;
    mutable QList<QVariantList> m_linhas;
    qint64 m_total = 0;
    QString m_convite;
    mutable bool m_encurtar = false;
    bool m_contagemPendente = false;
    int m_geracao = 0;  // a count scheduled for an earlier search is dropped
};
