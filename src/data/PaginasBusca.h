#pragma once
#include <QList>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "data/Busca.h"

class Banco;
struct DefTabela;

// The rows of a search, read a page at a time in the list's order, so that a grid shows
// its first rows at once and reads further only as it is scrolled, however many rows
// match. Each page starts after the last row read (by the order column and the key),
// never by skipping rows, so the thousandth page costs what the first did. Rows with no
// value in the order column come first, on both engines.
class PaginasBusca {
public:
    // `colunas`: what each row brings (the grid's columns); the key comes too. `ordem`: one
    // column, or a column and the key ("Nome, Cod").
    PaginasBusca(Banco& banco, const QString& tabela, const Condicao& onde, const QString& ordem,
                 const QStringList& colunas);

    // The exact number of rows that match. Counted before the first page, it also picks how
    // the pages are read (Busca::Plano::PelaContagem).
    qint64 contar();
    // The next `n` rows, each with the values of `colunas` in their order; fewer at the end.
    QList<QVariantList> proximas(int n);
    bool fim() const { return m_fim; }
    // The columns of each row: those asked for, then the key and the order if not among them.
    const QStringList& colunas() const { return m_colunas; }
    // The key of a row read (its value in the list `proximas` gave).
    QVariant chaveDe(const QVariantList& linha) const { return linha.value(m_posChave); }
    // The whole row of that key, for the screen that receives the choice.
    QSqlRecord registro(const QVariant& chave);

private:
    QString select() const;

    Banco& m_banco;
    const DefTabela* m_tabela = nullptr;
    Condicao m_onde;
    QString m_ordem;   // empty: the key alone orders
    QStringList m_colunas;
    int m_posChave = 0;
    int m_posOrdem = -1;
    // Where the reading stands: the rows without an order value first, then the others.
    bool m_nosNulos = true;
    bool m_nulosConferidos = false;
    QVariant m_ultimaOrdem;
    QVariant m_ultimaChave;
    bool m_fim = false;
};
