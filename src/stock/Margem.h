#pragma once
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

// The price arithmetic of a product: a margin is a percentage of the cost, kept in
// hundredths of a percent (25,00 % is 2500) so that no step goes through a double.
namespace Margem {

// The margin of a sale price over the cost; nothing when the cost is zero (a part given
// to the shop has no margin to show, and must not stop the typing).
std::optional<qint64> deCustoEVenda(Dinheiro custo, Dinheiro venda);
// The sale price that gives the margin on the cost, rounded to the cent.
Dinheiro vendaDeMargem(Dinheiro custo, qint64 centesimos);
// "12,5%", "12,5", "50", " -3 % ": the figure typed in a margin box; nothing for letters.
std::optional<qint64> lerPorcentagem(const QString& texto);
// "25,00%".
QString textoPorcentagem(qint64 centesimos);

}
