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

QString bancoParaTela(const QString& texto)
{
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
