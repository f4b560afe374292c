#pragma once
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariantList>

class Banco;

// The bin of soft-deleted records and the lists of who changed a record last. Rows are
// always found by their own key; the purge removes only rows still marked deleted.
namespace Lixeira {

enum class Registro { Ordem, Cliente, Fornecedor, Produto, Visita, Atividades };
enum class Modo { Excluidos, PorData, PorCodigo };

struct Definicao {
    QString tabela;
    QString chave;          // the row's own key (hidden in the grid)
    QString colunaCodigo;   // the code the user sees and types in the code boxes
    QString colunaData;     // empty: no selection by date
    QString colunaCarimbo;  // who changed it last; empty when the table has none
    QString legenda;        // the caption's head
    QStringList titulos;
    QStringList fontes;     // one per title: a column, or empty for a blank cell
    bool ultimaECarimbo = false;  // the last column's header follows the way of selection
};

const Definicao& definicao(Registro r);
QString tituloUltima(Modo m);

struct Filtro {
    Modo modo = Modo::Excluidos;
    QDate inicio, fim;
    qint64 de = 0, ate = 0;
};

// The list query: the key first, then the grid's sources, in the register's order.
QString consulta(Registro r, const Filtro& f, QVariantList* valores);

// Marks (true) or unmarks a row by its key, with the stamp of who did it.
void marcar(Banco& banco, Registro r, qint64 chave, bool excluido, const QString& usuario);

// Removes for good the rows of the list that are still marked deleted, with an order's
// or a visit's own child rows, in one transaction. Returns how many went.
int purgar(Banco& banco, Registro r, const Filtro& f);

}
