#pragma once
#include <QString>

#include "documents/Fichas.h"
#include "documents/Impressao.h"

class Banco;
class QWidget;

// How an order screen prints its document: the row of keys of Toldex.ini that belong to
// the document, and the sheet that the standard route prints.
struct DocumentoOrdem {
    QString nome;          // names the filled copy of a template ("Entrada 4711.odt")
    QString chaveDialogo;  // show the printer choice first
    QString chaveAbre;     // ask for the template by a file dialog
    QString chaveEdita;    // open the filled copy for editing instead of printing it
    QString chaveModelo;   // the configured template
    QString chaveCopias;
    TipoFicha ficha;
    QString modeloPadrao;  // the template shipped with the program
};

namespace DocumentosOrdem {
extern const DocumentoOrdem Entrada;
extern const DocumentoOrdem Devolucao;
extern const DocumentoOrdem SaidaPagamento;
extern const DocumentoOrdem Orcamento;
// The whole-order screen sets the sheet to 1 or 2 before printing: 2 is the return,
// anything else the entry.
const DocumentoOrdem& doCadastroCompleto(int fichaTipo);
}

// Prints the document of one order by the shop's choice in Toldex.ini: the printed sheet
// (ImprimePadrao on) or the template merge. `destino` lets a screen offer the preview or
// "Salvar PDF" of the sheet; by default the sheet goes to the printer. False when nothing
// was printed, after a message.
bool ImprimeDocumento(Banco& banco, const DocumentoOrdem& documento, qint64 codOsAut, QWidget* pai = nullptr,
                      Destino::Tipo destino = Destino::Tipo::Impressora);
