#pragma once
#include <QString>

// How document numbers, telephones and postcodes look on every screen and sheet. The
// store keeps what the field holds; these only decide the display, in one place.
//
// A mask fills its placeholders from the right with the digits of the text: '0' shows
// a 0 where a digit is missing, '#' shows nothing, other characters stand as they are,
// and digits beyond the mask go in front. A text that holds anything but digits (typed
// with its own punctuation long ago) is shown as it stands, so nothing is lost by a
// display. Leading zeros are kept: many CEPs begin with 0.

inline const QString MascaraCpfTexto = QStringLiteral("000-000-000/00");
inline const QString MascaraCnpjTexto = QStringLiteral("00-000-000-0000/00");
inline const QString MascaraTelefoneTexto = QStringLiteral("(00)0000-0000");
// Mobile numbers have had a ninth digit since 2016: eleven digits are the DDD and nine.
inline const QString MascaraCelularTexto = QStringLiteral("(00)00000-0000");
inline const QString MascaraCepTexto = QStringLiteral("##-###-###");

QString AplicaMascara(const QString& texto, const QString& mascara);
QString MascaraCpf(const QString& texto);
QString MascaraCnpj(const QString& texto);
// CnpjCpf of a record or grid cell: 11 digits are a CPF, any other length a CNPJ.
QString MascaraCnpjCpf(const QString& texto);
// Eleven digits take the mobile mask, any other count the fixed-line one.
QString MascaraTelefone(const QString& texto);
QString MascaraCep(const QString& texto);

// What a CPF/CNPJ field does when the user leaves it.
struct ChecagemCnpjCpf {
    QString texto;          // what the field holds afterwards
    QString mensagem;       // the message to show; empty for none
    bool voltaFoco = false; // the field takes the focus back
    int tamanhoMaximo = -1; // the field's new maximum length; -1 leaves it as it is
};
// The rule of the customer and supplier registers: the field is reduced to its digits;
// 11 are checked as a CPF, 14 as a CNPJ, and shown masked when right; a wrong count or
// wrong check digits give a message and an empty field; more than 14 digits stay
// unchecked. An empty field is left alone.
ChecagemCnpjCpf ChecaCnpjCpf(const QString& textoDoCampo);

inline const QString MsgTamanhoCnpjCpf = QStringLiteral("Tem que ser 11 numeros para CPF e 14 numeros para CNPJ");
inline const QString MsgCpfIncorreto = QStringLiteral("CPF com DV incorreto !!!");
inline const QString MsgCnpjIncorreto = QStringLiteral("CNPJ com DV incorreto !!! ");
