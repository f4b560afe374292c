#include "data/Dinheiro.h"

#include <QRegularExpression>

qint64 divideArredondando(qint64 num, qint64 den)
{
    Q_ASSERT(den > 0);
    const qint64 q = num / den;
    const qint64 r = num % den;
    if (2 * (r < 0 ? -r : r) >= den)
        return num < 0 ? q - 1 : q + 1;
    return q;
}

namespace {

std::optional<Dinheiro> lerComSeparador(QString t, QChar decimal, QChar milhar)
{
    t = t.trimmed();
    if (t.startsWith(QLatin1String("R$")))
        t = t.mid(2).trimmed();
    if (t.isEmpty())
        return Dinheiro();
    bool negativo = false;
    if (t.startsWith(QLatin1Char('-'))) {
        negativo = true;
        t = t.mid(1).trimmed();
    } else if (t.startsWith(QLatin1Char('(')) && t.endsWith(QLatin1Char(')'))) {
        negativo = true;
        t = t.mid(1, t.size() - 2).trimmed();
    }
    const QStringList partes = t.split(decimal);
    if (partes.size() > 2)
        return std::nullopt;
    QString inteira = partes.at(0);
    const QString fracao = partes.size() == 2 ? partes.at(1) : QString();
    // Thousands marks are accepted only in their proper places ("1.234", not "12.34").
    if (inteira.contains(milhar)) {
        static const QRegularExpression agrupado(QStringLiteral("^\\d{1,3}(\\%1\\d{3})+$").arg(milhar));
        if (!agrupado.match(inteira).hasMatch())
            return std::nullopt;
        inteira.remove(milhar);
    }
    if (inteira.isEmpty() && fracao.isEmpty())
        return std::nullopt;
    if (fracao.size() > 2)
        return std::nullopt;
    for (QChar c : inteira + fracao)
        if (!c.isDigit() || c.unicode() > '9')
            return std::nullopt;
    if (inteira.size() > 15)
        return std::nullopt;
    const qint64 reais = inteira.isEmpty() ? 0 : inteira.toLongLong();
    qint64 cents = fracao.isEmpty() ? 0 : fracao.toLongLong();
    if (fracao.size() == 1)
        cents *= 10;
    const qint64 total = reais * 100 + cents;
    return Dinheiro::deCentavos(negativo ? -total : total);
}

} // namespace

std::optional<Dinheiro> Dinheiro::lerTexto(const QString& texto)
{
    return lerComSeparador(texto, QLatin1Char(','), QLatin1Char('.'));
}

std::optional<Dinheiro> Dinheiro::lerTextoLocal(const QString& texto)
{
    const QString t = texto.trimmed();
    if (!t.contains(QLatin1Char(',')) && t.count(QLatin1Char('.')) == 1) {
        const int depois = t.size() - t.indexOf(QLatin1Char('.')) - 1;
        if (depois == 1 || depois == 2)
            return lerComSeparador(t, QLatin1Char('.'), QLatin1Char(','));
    }
    return lerTexto(t);
}

QString Dinheiro::texto() const
{
    const qint64 abs = m_centavos < 0 ? -m_centavos : m_centavos;
    QString inteira = QString::number(abs / 100);
    for (int i = inteira.size() - 3; i > 0; i -= 3)
        inteira.insert(i, QLatin1Char('.'));
    const QString r = inteira + QLatin1Char(',') + QStringLiteral("%1").arg(abs % 100, 2, 10, QLatin1Char('0'));
    return m_centavos < 0 ? QLatin1Char('-') + r : r;
}

QString Dinheiro::textoMoeda() const
{
    return QStringLiteral("R$ ") + texto();
}

Dinheiro Dinheiro::multiplicado(qint64 num, qint64 den) const
{
    if (den < 0) {
        num = -num;
        den = -den;
    }
    return deCentavos(divideArredondando(m_centavos * num, den));
}

Dinheiro Dinheiro::comPorcentagem(qint64 centesimosDePorcento) const
{
    return *this + multiplicado(centesimosDePorcento, 10000);
}

QList<Dinheiro> Dinheiro::divideEmParcelas(Dinheiro total, int n)
{
    QList<Dinheiro> parcelas;
    if (n <= 0)
        return parcelas;
    const qint64 parte = total.m_centavos / n;
    for (int i = 0; i < n - 1; ++i)
        parcelas.append(deCentavos(parte));
    parcelas.append(deCentavos(total.m_centavos - parte * (n - 1)));
    return parcelas;
}

qint64 prefixoNumerico(const QString& texto)
{
    const QString t = texto.trimmed();
    QString digitos;
    bool ponto = false;
    for (QChar c : t) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digitos += c;
        else if (c == QLatin1Char('.') && !ponto)
            ponto = true, digitos += c;
        else
            break;
    }
    if (digitos.isEmpty() || digitos == QLatin1String("."))
        return 0;
    return static_cast<qint64>(digitos.toDouble());
}
