#pragma once
#include <QDate>
#include <QString>
#include <functional>

#include "cash/MovimentoCaixa.h"

class Impressora;

// The cash report on paper and as a spreadsheet, over exactly the listed rows.
namespace RelatorioMovimento {

struct Cabecalho {
    QDate de, ate;
    QString visao;  // the caption of the view, as the selector shows it
};

// "Movimento detalhado 05-03-2025.xlsx", from the first day of the range.
QString nomeProposto(const QDate& de);

// The 22 columns of the spreadsheet, by the report's column numbers.
const QList<int>& colunasPlanilha();

enum class Resultado { Gravado, Cancelado, Falhou };
// Called every few rows with how many were written; false cancels.
using Progresso = std::function<bool(qint64 feitas, qint64 total)>;

// A whole new book: sheet "Movimento" with the title, the period, the view and the
// headings in rows 1 to 5 and a row per listed row from row 6, amounts as numbers
// "#,##0.00", borders, the headings frozen and a filter; sheet "Gráfico" with the days'
// figures and their chart. A cancel or a failure leaves no file and an earlier one intact.
Resultado exportar(const MovimentoCaixa::Lista& lista, const Cabecalho& cab, const QString& arquivo,
                   const Progresso& progresso, QString* erro);

// The list on paper (landscape), the summaries in their own layout; "Página: n" and the
// headings on every page, the totals at the end.
void imprimir(const MovimentoCaixa::Lista& lista, Impressora& p);

}
