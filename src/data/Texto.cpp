#include "data/Texto.h"

#include <QList>

namespace Texto {

const QString& letrasAcentuadas()
{
    static const QString s = QStringLiteral("áàâãäåéèêëíìîïóòôõöúùûüçñýÿÁÀÂÃÄÅÉÈÊËÍÌÎÏÓÒÔÕÖÚÙÛÜÇÑÝ");
    return s;
}

const QString& letrasSemAcento()
{
    static const QString s = QStringLiteral("aaaaaaeeeeiiiiooooouuuucnyyAAAAAAEEEEIIIIOOOOOUUUUCNY");
    return s;
}

QString dobra(const QString& texto)
{
    const QString& de = letrasAcentuadas();
    const QString& para = letrasSemAcento();
    QString r = texto;
    for (QChar& c : r) {
        const int i = de.indexOf(c);
        if (i >= 0)
            c = para.at(i);
        if (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
            c = QChar(c.unicode() - 'a' + 'A');
    }
    return r;
}

bool like(const QString& texto, const QString& padrao)
{
    const QString t = dobra(texto);
    const QString p = dobra(padrao);
    // Classic two-pointer wildcard match with backtracking on the last %.
    int i = 0, j = 0, estrela = -1, marca = 0;
    while (i < t.size()) {
        if (j < p.size() && (p.at(j) == QLatin1Char('_') || p.at(j) == t.at(i))
            && p.at(j) != QLatin1Char('%')) {
            ++i, ++j;
        } else if (j < p.size() && p.at(j) == QLatin1Char('%')) {
            estrela = j++;
            marca = i;
        } else if (estrela >= 0) {
            j = estrela + 1;
            i = ++marca;
        } else {
            return false;
        }
    }
    while (j < p.size() && p.at(j) == QLatin1Char('%'))
        ++j;
    return j == p.size();
}

}
