#pragma once
#include <QColor>

class QWidget;

// Every screen paints itself on load with the shop's two colours: the background, labels,
// frames, check boxes and options with CorFundo; text boxes, combos and grid cells with
// CorCampo. A shop that never chose its colours gets the system's button face and the
// light yellow that the entry fields always had.
namespace Pintura {
QColor corFundo();
QColor corCampo();
void pinta(QWidget* tela);
}
