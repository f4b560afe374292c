#include "data/FuncoesMascaras.h"

#include "data/Funcoes.h"

QString AplicaMascara(const QString& texto, const QString& mascara)
{
    if (texto.isEmpty())
        return QStringLiteral("");
    const QString digitos = SoDigitos(texto);
    if (digitos.size() != texto.size())
        return texto;
    QString r;
    qsizetype d = digitos.size() - 1;
    for (qsizetype m = mascara.size() - 1; m >= 0; --m) {
        const QChar c = mascara.at(m);
        if (c == QLatin1Char('0') || c == QLatin1Char('#')) {
            if (d >= 0)
                r.prepend(digitos.at(d--));
            else if (c == QLatin1Char('0'))
                r.prepend(QLatin1Char('0'));
        } else {
            r.prepend(c);
        }
    }
    if (d >= 0)
        r.prepend(digitos.left(d + 1));
    return r;
}

QString MascaraCpf(const QString& texto) { return AplicaMascara(texto, MascaraCpfTexto); }
QString MascaraCnpj(const QString& texto) { return AplicaMascara(texto, MascaraCnpjTexto); }
QString MascaraTelefone(const QString& texto)
{
    return AplicaMascara(texto, SoDigitos(texto).size() == 11 ? MascaraCelularTexto : MascaraTelefoneTexto);
}
QString MascaraCep(const QString& texto) { return AplicaMascara(texto, MascaraCepTexto); }

QString MascaraCnpjCpf(const QString& texto)
{
    return texto.size() == 11 ? MascaraCpf(texto) : MascaraCnpj(texto);
}

ChecagemCnpjCpf ChecaCnpjCpf(const QString& textoDoCampo)
{
    ChecagemCnpjCpf r;
    if (textoDoCampo.isEmpty()) {
        r.texto = textoDoCampo;
        return r;
    }
    const QString digitos = SoDigitos(textoDoCampo);
    const qsizetype n = digitos.size();
    r.texto = digitos;
    if (n < 11 || n == 12 || n == 13) {
        r.mensagem = MsgTamanhoCnpjCpf;
        if (n == 12)
            r.mensagem += QLatin1Char('"');
        r.texto = QStringLiteral("");
        r.voltaFoco = true;
    } else if (n == 11) {
        r.tamanhoMaximo = 14;
        if (ValidaCpf(digitos)) {
            r.texto = MascaraCpf(digitos);
        } else {
            r.mensagem = MsgCpfIncorreto;
            r.texto = QStringLiteral("");
        }
    } else if (n == 14) {
        r.tamanhoMaximo = 18;
        if (ValidaCnpj(digitos)) {
            r.texto = MascaraCnpj(digitos);
        } else {
            r.mensagem = MsgCnpjIncorreto;
            r.texto = QStringLiteral("");
            r.voltaFoco = true;
        }
    }
    return r;
}
