#pragma once
#include <QString>

class Impressora;

// The PIX charge on a printed sheet: a caption, the QR code `lado` twips square at `x`,
// and the "copia e cola" text in small print under it. Nothing for an empty charge.
void imprimeBlocoPix(Impressora& p, const QString& payload, int x, int lado);
