#pragma once
#include <QString>

class QKeyEvent;
class QLineEdit;
class QObject;
class QWidget;

// Reading and filling the entry widgets of a screen without caring which kind each is,
// and the two key rules of every entry field.
namespace Campos {
QString texto(const QWidget* w);   // a mask with nothing typed reads as ""
void poeTexto(QWidget* w, const QString& t);
void limpa(QWidget* w);
bool marcado(const QWidget* w);
void marca(QWidget* w, bool v);
// Capitals when the shop keeps its data in capitals (CfgTipoLetra); and in a numeric
// field only digits and the comma stay, typed or pasted.
void preparaLinha(QLineEdit* le, bool numerico);
QString soNumerico(const QString& t);
// Enter in the field moves to the next field, as the counter staff are used to.
void enterAvanca(QWidget* campo);
// The key would change the text of a box that can be written: not a move between boxes.
// An order's screens test their locks on it before the key lands.
bool teclaAltera(QObject* alvo, const QKeyEvent* k);
}
