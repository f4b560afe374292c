#pragma once
#include <QString>

namespace Texto {
// The folded form used by every search: accented letters lose their accents and ASCII
// letters go to capitals, so "josé", "JOSÉ" and "Jose" meet. The store keeps a copy of
// each searched column in this form (see Banco::expressaoDobrada), and both sides must
// fold the same way.
QString dobra(const QString& texto);
// Pairs of (accented, plain) letters that the folding replaces.
const QString& letrasAcentuadas();
const QString& letrasSemAcento();

// The LIKE of the original engine: % any run, _ any one character, compared after
// folding. Used to work out which flag combinations a state pattern matches, and by
// Recordset::find.
bool like(const QString& texto, const QString& padrao);
}
