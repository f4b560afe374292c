#include "data/Funcoes.h"

#include <QSysInfo>

namespace {

bool soDigitosAscii(const QString& texto)
{
    if (texto.isEmpty())
        return false;
    for (const QChar c : texto)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

int valor(QChar c) { return c.unicode() - '0'; }

// CPF digit: weights 2, 3, ... from the right; remainder 0 or 1 gives 0.
QChar digitoCpf(QStringView base)
{
    int soma = 0;
    int peso = 2;
    for (qsizetype i = base.size() - 1; i >= 0; --i, ++peso)
        soma += valor(base.at(i)) * peso;
    const int r = soma % 11;
    return QChar('0' + (r < 2 ? 0 : 11 - r));
}

} // namespace

bool ValidaCpf(const QString& cpf)
{
    if (cpf.size() != 11 || !soDigitosAscii(cpf))
        return false;
    QString base = cpf.left(9);
    base += digitoCpf(base);
    base += digitoCpf(base);
    return base == cpf;
}

QString DigitoModulo11(const QString& numero)
{
    if (!soDigitosAscii(numero))
        return {};
    int soma = 0;
    int peso = 2;
    for (qsizetype i = numero.size() - 1; i >= 0; --i) {
        soma += valor(numero.at(i)) * peso;
        peso = peso == 9 ? 2 : peso + 1;
    }
    const int r = soma % 11;
    return QString::number(r < 2 ? 0 : 11 - r);
}

bool ValidaCnpj(const QString& cnpj)
{
    if (cnpj.size() != 14 || !soDigitosAscii(cnpj))
        return false;
    return DigitoModulo11(cnpj.left(12)) == cnpj.mid(12, 1)
        && DigitoModulo11(cnpj.left(13)) == cnpj.mid(13, 1);
}

QString SoDigitos(const QString& texto)
{
    QString r = QStringLiteral("");  // "" and never null: the store keeps empty text as ""
    r.reserve(texto.size());
    for (const QChar c : texto)
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            r += c;
    return r;
}

QString SoDigitos(const QVariant& valor)
{
    if (valor.isNull() || !valor.isValid())
        return QStringLiteral("");
    return SoDigitos(valor.toString());
}

int NomeComputador(QString& nome)
{
    // The short name is what the other stations use to reach the server's shared folder.
    QString n = QSysInfo::machineHostName().trimmed();
    const qsizetype ponto = n.indexOf(QLatin1Char('.'));
    if (ponto > 0)
        n.truncate(ponto);
    nome = n;
    return int(nome.size());
}

QString NomeComputador()
{
    QString nome;
    NomeComputador(nome);
    return nome;
}
