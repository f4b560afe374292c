#pragma once
#include <QString>
#include <QVariant>

// The document checks and small helpers that every register screen shares.
//
// The checks take the bare digits: a CPF or CNPJ still carrying its mask, spaces, letters
// or the wrong number of digits is simply not valid (false, never an exception), so a
// screen can call them on whatever the user left in the field.

// CPF: 11 digits, the last two the check digits of the first nine. Numbers of equal
// digits ("00000000000") are not refused for that alone: old registers hold them.
bool ValidaCpf(const QString& cpf);
// CNPJ: 14 digits, the last two computed with DigitoModulo11.
bool ValidaCnpj(const QString& cnpj);
// One modulo-11 check digit (weights 2..9 from the right, back to 2 after 9) as text;
// the empty text when the input is empty or holds anything but digits.
QString DigitoModulo11(const QString& numero);
// The digits 0-9 of the text, in order. A null text or a NULL value gives "".
QString SoDigitos(const QString& texto);
QString SoDigitos(const QVariant& valor);
inline QString SoDigitos(const char* texto) { return SoDigitos(QString::fromUtf8(texto)); }

// This machine's name, as the shop sees it on the network (the host name without its
// domain). Fills `nome` and gives its length; on failure `nome` is empty and 0 comes back.
int NomeComputador(QString& nome);
QString NomeComputador();
