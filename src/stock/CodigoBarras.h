#pragma once
#include <QImage>
#include <QString>

// The bars of a product's EAN-13, drawn by the zint library: the shop prints and reads
// them from the register, with the digits under the bars.
namespace CodigoBarras {

// Twelve digits get their check digit; thirteen must carry the right one. A null image
// and the reason in `erro` for anything else.
QImage ean13(const QString& codigo, QString* erro = nullptr);

}
