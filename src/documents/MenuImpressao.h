#pragma once
#include <functional>

#include "documents/Impressao.h"

class QAbstractButton;

// The print button of a screen. A click prints as the shop set it up (and, on a machine
// with no printer, offers the PDF or the preview); its menu, on the right button, shows
// the sheet on the screen first or saves it as a PDF and opens it, whatever the settings.
namespace MenuImpressao {
void preparar(QAbstractButton* botao, std::function<void(Destino::Tipo)> imprimir);
}
