#pragma once
#include <QString>

// Which screen an order opens in. A shop where one person does everything works on the
// whole-order form (Empresa's OSAbreCompleta, read at start); a shop with a counter and a
// bench uses the separate screens. Every caller asks here, so the choice is made once.
namespace TelasOrdem {

inline const QString Completa = QStringLiteral("CadCompleto");

bool abreCompleta();
// A new order: the whole-order form, or the intake.
QString novaOrdem();
// An order of the counter: the whole-order form, or the separate screen named.
QString daOrdem(const QString& separada);

}
