#pragma once
// Shared by the files that draw the sheets: how a cell of a row is placed, and the
// constants of the old layout.
#include <QString>

#include "documents/Fichas.h"

namespace FichaLayout {

inline const QString Hifens = QString(40, QLatin1Char('-'));
constexpr int EspacoEntreCelulas = 100;

// The logo sits at the top left of the header, beside the centred lines.
constexpr int LogoX = 100, LogoY = 200, LogoLargura = 1000, LogoAltura = 800;

}

// Where a cell of a row stands, W being the page's width and T the cell's text width.
struct ImprimeFicha::Celula {
    enum Pos { Esquerda, Divisor, Direita, DireitaMenos, Fixo };
    QString texto;
    Pos pos = Esquerda;
    double valor = 0;       // the divisor, the distance from the right or the fixed X
    double tamanho = 0;     // font size set before the cell; 0 keeps the one in force
    int larguraMax = 0;     // a table cell wraps inside its column
    QString medida;         // measured in place of the text (the tear-off strip's quirk)
};

namespace FichaLayout {

using Celula = ImprimeFicha::Celula;

inline Celula esq(const QString& t, double tam = 0) { return {t, Celula::Esquerda, 0, tam, 0, {}}; }
inline Celula meio(const QString& t, double tam = 0) { return {t, Celula::Divisor, 2, tam, 0, {}}; }
inline Celula terco(const QString& t) { return {t, Celula::Divisor, 3, 0, 0, {}}; }
inline Celula dir(const QString& t, double tam = 0) { return {t, Celula::Direita, 200, tam, 0, {}}; }
inline Celula dirMenos(const QString& t, int distancia) { return {t, Celula::DireitaMenos, double(distancia), 0, 0, {}}; }
inline Celula fixo(const QString& t, double x, int larguraMax = 0) { return {t, Celula::Fixo, x, 0, larguraMax, {}}; }

inline QString semQuebras(QString t, const QString& troca)
{
    t.replace(QLatin1String("\r\n"), troca);
    t.replace(QLatin1Char('\n'), troca);
    t.replace(QLatin1Char('\r'), troca);
    return t;
}

}
