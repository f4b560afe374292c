#pragma once
#include <QPageLayout>
#include <QString>
#include <functional>

#include "documents/Fichas.h"

class Banco;
class Impressora;
class QWidget;

// Where a sheet goes: the printer, a preview on the screen, or a PDF file.
struct Destino {
    enum class Tipo { Impressora, Visualizar, Pdf };
    Tipo tipo = Tipo::Impressora;
    QString arquivoPdf;              // Pdf: an empty name asks for one ("Salvar PDF")
    bool escolherImpressora = false; // show the printer choice before printing
    QWidget* pai = nullptr;
    // The name "Salvar PDF" proposes, in the user's documents folder ("O.S 1234 - Entrada").
    QString nomeProposto = QStringLiteral("Ficha");

    static Destino impressora(QWidget* pai = nullptr, bool escolher = false)
    {
        return {Tipo::Impressora, {}, escolher, pai};
    }
    static Destino visualizar(QWidget* pai = nullptr) { return {Tipo::Visualizar, {}, false, pai}; }
    static Destino pdf(const QString& arquivo = {}, QWidget* pai = nullptr) { return {Tipo::Pdf, arquivo, false, pai}; }
};

// What the screens call to print a sheet: one function per sheet, the screen choosing only
// the copies and where it goes. Each returns false, after telling the user why in
// Portuguese, when nothing was printed.
namespace Impressao {

bool fichaEntrada(Banco& banco, qint64 codOsAut, int copias, const Destino& destino);
bool fichaSaida(Banco& banco, qint64 codOsAut, int copias, const Destino& destino);
bool fichaCliente(Banco& banco, const FichaCliente& cliente, int copias, const Destino& destino);
bool fichaOrcamento(Banco& banco, qint64 codOsAut, int copias, const Destino& destino);
bool reciboVenda(Banco& banco, qint64 codVenda, int copias, const Destino& destino);
bool fichaSaidaCaixa(Banco& banco, qint64 codOsAut, int copias, const Destino& destino);
bool fichaVisita(Banco& banco, const FichaVisita& visita, int copias, const Destino& destino);
bool reciboCompleto(Banco& banco, const FichaRecebimento& recebimento, int copias, const Destino& destino);
// The receivables screen's receipt: always one copy.
bool reciboCompacto(Banco& banco, const FichaRecebimento& recebimento, const Destino& destino);

// The visit screen's print button: the printer choice when AutoVisita is on, the copies
// of key Visita.
bool imprimeVisita(Banco& banco, const FichaVisita& visita, QWidget* pai = nullptr);

// Any sheet.
bool imprimir(Banco& banco, const PedidoFicha& pedido, const Destino& destino);
// Any drawing on the printer object (a list, a report), to the same destinations and with
// the same messages as the sheets. A database failure while drawing (ErroBanco) ends the
// document and is told.
using Desenho = std::function<void(Impressora&)>;
bool imprimirDesenho(const Desenho& desenho, const Destino& destino,
                     QPageLayout::Orientation orientacao = QPageLayout::Portrait);
// "Nenhuma impressora..." when this machine has no printer at all.
bool temImpressora(QWidget* pai);
// Where "Salvar PDF" proposes to save a sheet: the user's documents folder.
QString arquivoProposto(const QString& nome);

}
