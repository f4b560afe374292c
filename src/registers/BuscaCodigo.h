#pragma once
#include <QString>

#include "data/Busca.h"

class Banco;

// The live search of the small registers whose code the engine numbers: the code as text
// joined with one searched column (or the code alone) holds the typed text anywhere.
// Case and accents are ignored as in every search; the typed text is bound.
namespace BuscaCodigo {
Condicao codigoEColuna(Banco& banco, const QString& tabela, const QString& colunaCodigo,
                       const QString& coluna, const QString& digitado);
}
