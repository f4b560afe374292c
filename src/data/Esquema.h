#pragma once
#include <QList>
#include <QString>
#include <QStringList>

// The store's schema, written from the column lists of each register. Every table has an
// explicit integer primary key (its auto-number where the table has one, a row id of our
// own called Chave elsewhere).
enum class TipoColuna {
    Texto,       // "" when empty, never NULL
    Inteiro,     // codes and counters
    Flag,        // -1 true, 0 false, NOT NULL DEFAULT 0
    FlagNula,    // the rights of Usuario: NULL reads as allowed
    Dinheiro,    // exact cents
    Quantidade,  // exact thousandths
    Data,        // text "yyyy/MM/dd"
    Hora,        // text "HH:mm"
    AutoNumero   // the primary key handed out by the store, never reused
};

struct DefColuna {
    QString nome;
    TipoColuna tipo = TipoColuna::Texto;
    bool prefixo = false;  // searched by its beginning: folded copy with an index
    bool meio = false;     // searched in its middle: folded copy in a trigram index
    bool indice = false;   // plain index for lookups and lists
    bool unico = false;    // the index is unique

    bool buscavel() const { return prefixo || meio; }
    QString nomeDobrado() const { return nome + QStringLiteral("_b"); }
};

struct DefTabela {
    QString nome;
    QString chave;  // the primary key column
    QList<DefColuna> colunas;
    QList<QStringList> indicesCompostos;

    const DefColuna* coluna(const QString& nome) const;  // without regard to case
    bool temColunasMeio() const;
    QString nomeTrigrama() const { return nome + QStringLiteral("_tri"); }
};

namespace Esquema {
// Every table of the system, in creation order.
const QList<DefTabela>& tabelas();
const DefTabela* tabela(const QString& nome);  // without regard to case
// The version the program expects; the store upgrades older databases step by step.
int versaoAtual();
}
