#pragma once
#include <QString>

// The printing keys of section Impressao of Toldex.ini, read the way the settings screen
// writes them.
namespace ConfigImpressao {

// "1", "-1", "True" and "Verdadeiro" are on; anything else, the empty text included, is off.
bool verdadeiro(const QString& valor);

QString arquivo();  // this machine's Toldex.ini
QString ler(const QString& chave);
QString ler(const QString& secao, const QString& chave);
bool ligado(const QString& chave);
// A copies key: a whole number from 1 to 99; empty or unreadable counts as 1.
int copias(const QString& chave);

}
