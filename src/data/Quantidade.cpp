#include "data/Quantidade.h"

std::optional<Quantidade> Quantidade::lerTexto(const QString& texto)
{
    QString t = texto.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    bool negativo = t.startsWith(QLatin1Char('-'));
    if (negativo)
        t = t.mid(1);
    const QStringList partes = t.split(QLatin1Char(','));
    if (partes.size() > 2 || partes.at(0).size() > 12)
        return std::nullopt;
    const QString fracao = partes.size() == 2 ? partes.at(1) : QString();
    if (fracao.size() > 3 || (partes.at(0).isEmpty() && fracao.isEmpty()))
        return std::nullopt;
    for (QChar c : partes.at(0) + fracao)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    qint64 m = (partes.at(0).isEmpty() ? 0 : partes.at(0).toLongLong()) * 1000;
    if (!fracao.isEmpty())
        m += QString(fracao).leftJustified(3, QLatin1Char('0')).toLongLong();
    return deMilesimos(negativo ? -m : m);
}

QString Quantidade::texto() const
{
    const qint64 abs = m_milesimos < 0 ? -m_milesimos : m_milesimos;
    QString r = QString::number(abs / 1000);
    if (abs % 1000) {
        QString f = QStringLiteral("%1").arg(abs % 1000, 3, 10, QLatin1Char('0'));
        while (f.endsWith(QLatin1Char('0')))
            f.chop(1);
        r += QLatin1Char(',') + f;
    }
    return m_milesimos < 0 ? QLatin1Char('-') + r : r;
}
