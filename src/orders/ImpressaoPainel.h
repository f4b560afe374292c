#pragma once
#include <QList>
#include <QString>

#include "orders/ListasPainel.h"

class Impressora;

// The panel's printed list: the rows of the grid in a small font, a page number on each
// page, and the work done one item a line, so the sheet can go to the bench as a to-do list.
namespace ImpressaoPainel {
void imprimir(const QString& titulo, const QList<LinhaPainel>& linhas, Impressora& p);
// The "Servico" column as printed: each item of the comma-separated text on its own line.
QString servicoEmLinhas(const QString& servico);
}
