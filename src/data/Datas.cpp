#include "data/Datas.h"

namespace Datas {

std::optional<QDate> lerTela(const QString& texto)
{
    const QDate d = QDate::fromString(texto.trimmed(), FormatoTela);
    if (!d.isValid())
        return std::nullopt;
    return d;
}

std::optional<QDate> lerBanco(const QString& texto)
{
    const QDate d = QDate::fromString(texto.trimmed(), FormatoBanco);
    if (!d.isValid())
        return std::nullopt;
    return d;
}

QString paraBanco(const QDate& d) { return d.toString(FormatoBanco); }
QString paraTela(const QDate& d) { return d.toString(FormatoTela); }

namespace {

int numero(QStringView s)
{
    int n = 0;
    for (QChar c : s) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return -1;
        n = n * 10 + (c.unicode() - '0');
    }
    return n;
}

} // namespace

QString bancoParaTela(const QString& texto)
{
    // The stored form "yyyy/MM/dd" turned around by hand: lists show thousands of dates,
    // and reading them through a format string cost more than reading the row. Most open
    // orders have no promised date yet: their empty text needs no reading at all.
    if (texto.isEmpty())
        return texto;
    if (texto.size() == 10 && texto.at(4) == QLatin1Char('/') && texto.at(7) == QLatin1Char('/')) {
        const QStringView t(texto);
        const int a = numero(t.mid(0, 4)), m = numero(t.mid(5, 2)), d = numero(t.mid(8, 2));
        if (a >= 0 && m >= 0 && d >= 0 && QDate::isValid(a, m, d)) {
            QString r;
            r.reserve(10);
            r.append(t.mid(8, 2)).append(QLatin1Char('/')).append(t.mid(5, 2)).append(QLatin1Char('/')).append(t.mid(0, 4));
            return r;
        }
    }
    if (auto d = lerBanco(texto))
        return paraTela(*d);
    return texto;
}

std::optional<QString> telaParaBanco(const QString& texto)
{
    if (texto.trimmed().isEmpty())
        return QString();
    if (auto d = lerTela(texto))
        return paraBanco(*d);
    return std::nullopt;
}

std::optional<QTime> lerHora(const QString& texto)
{
    const QTime t = QTime::fromString(texto.trimmed(), FormatoHora);
    if (!t.isValid())
        return std::nullopt;
    return t;
}

QString hoje() { return paraBanco(QDate::currentDate()); }
QString agoraHora() { return QTime::currentTime().toString(FormatoHora); }

}
