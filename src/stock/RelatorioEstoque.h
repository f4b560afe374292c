#pragma once
#include <QDate>
#include <QString>
#include <functional>

#include "data/Busca.h"

class Banco;
class Impressora;

// The two outputs of the general stock list, over exactly the rows the grid shows (the
// same condition and order), read a page at a time.
namespace RelatorioEstoque {

struct Lista {
    Condicao onde;
    QString ordem;
    bool pintada = false;  // a level filter is on: every row is painted
};

// "Estoque 23-11-2026.xlsx".
QString nomeProposto(const QDate& dia);

enum class Resultado { Gravado, Cancelado, Falhou };
// Called after each block of rows with how many were written; false cancels.
using Progresso = std::function<bool(qint64 feitas, qint64 total)>;

// Sheet "Estoque": A1 the caption, row 2 the 23 headings, then the rows; quantities and
// prices as numbers shown "#,##0.00", thin borders, the level paint, the headings frozen
// and a filter over them. Throws ErroBanco when the store fails (no file is left).
Resultado exportar(Banco& banco, const Lista& lista, const QString& arquivo, const Progresso& progresso,
                   QString* erro);

// The list on paper (landscape): "Página: n" at the top of each page, the headings, then
// one line per product; an empty price prints "0,00".
void imprimir(Banco& banco, const Lista& lista, Impressora& p);

}
