#pragma once
#include <QColor>
#include <QList>
#include <QString>
#include <QVariant>

#include "data/Busca.h"

class Banco;

// What the general stock list shows and how it narrows: its 23 columns, the searches of
// its combo, the level filters, and the walk of "Localizar na lista.". The screen, the
// printout and the spreadsheet all read the list through these, so they never differ.
namespace ListaEstoque {

enum class Tipo { Texto, Quantidade, Dinheiro };

struct Coluna {
    QString coluna;
    QString titulo;
    Tipo tipo = Tipo::Texto;
    int largura = 90;  // pixels on the screen
};
const QList<Coluna>& colunas();
int indiceColuna(const QString& coluna);

// How a cell shows its value: quantities "1,5", money "1.234,56", empty money "0,00".
QString textoCelula(const Coluna& c, const QVariant& valor);

// The searches of CBusca, in the combo's order.
struct Campo {
    QString rotulo;   // "Busca por descrição"
    QString coluna;   // "Descricao"
};
const QList<Campo>& campos();

// Show all: live products by code. The search: the chosen column from its beginning,
// among live rows, by the automatic code (deleted products whose column holds a "0" after
// the typed text come too, as they always have).
inline const QString OrdemTodos = QStringLiteral("codpeca");
inline const QString OrdemBusca = QStringLiteral("CodPecAut");
Condicao todos();
Condicao busca(Banco& banco, int campo, const QString& digitado);

// The level filters of buttons 7, 8 and 9; an empty stock or minimum reads as 0.
enum class Nivel { Vazio, AteMinimo, AcimaMinimo };
Condicao nivel(Nivel n);
// A row that passed a level filter is painted with 0x8080FF (red FF, green 80, blue 80).
inline const QColor CorNivel = QColor(0xFF, 0x80, 0x80);

// "Localizar na lista.": the cell, trimmed and cut to the typed text's length, equals the
// typed text (trimmed), case ignored. An empty text finds nothing.
bool casaNaLista(const QString& celula, const QString& digitado);
// The grid column the walk reads for a field: the code for "Busca por código", else the
// field's own column.
int colunaDaBuscaNaLista(int campo);

// "Produtos cadastrado 12 registros encontrados..".
QString titulo(qint64 quantos);

}
