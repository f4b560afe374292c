#pragma once
#include <QColor>
#include <QString>
#include <optional>

// The two colours every screen paints itself with, kept per machine in section CorFundo
// of Toldex.ini: key 0 for backgrounds, key 1 for entry fields and lists. The numbers are
// the classic colour numbers: 0xBBGGRR, or 0x80000000 plus the index of a system colour.

inline constexpr quint32 CorCampoPadrao = 0xC0FFFF;   // light yellow

// Reads both keys into sessao().CorFundo / CorCampo. An empty key, or one that holds
// no usable number, gives the standard colour: a hand-edited ini must never leave a
// screen unpainted. Without an argument it reads the session's Toldex.ini.
void CarregaCores();
void CarregaCores(const QString& arquivoIni);

// The colour of a classic colour number in text ("12648447", "-2147483633", "&H00C0FFFF&");
// nothing when the text isn't such a number.
std::optional<QColor> CorDoNumero(const QString& texto);
// The number to store for a colour chosen by the user.
QString NumeroDaCor(const QColor& cor);
// The system's button-face colour (the standard background).
QColor CorBotaoSistema();
