#pragma once
#include <QImage>
#include <QString>

// Bar codes drawn by the zint library: a product's EAN-13, which the shop prints and reads
// from the register with the digits under the bars, and the Code 128 of the receipts.
namespace CodigoBarras {

// Twelve digits get their check digit; thirteen must carry the right one. A null image
// and the reason in `erro` for anything else.
QImage ean13(const QString& codigo, QString* erro = nullptr);

// A Code 128 of any ASCII text (an order's number on a receipt), without the text under
// the bars: the sheet prints it in its own type.
QImage code128(const QString& texto, QString* erro = nullptr);

}
