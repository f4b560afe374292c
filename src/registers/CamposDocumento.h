#pragma once
#include <QString>

class QLineEdit;
class QWidget;

// The document and telephone fields of the customer and supplier registers. The store
// keeps their digits; the field shows them with the shop's masks once the user leaves it.
namespace CamposDocumento {

// CPF/CNPJ: on leaving the field the shared check runs (ChecaCnpjCpf) with its message,
// its mask and, for a wrong number, the emptied field and the focus back.
void preparaCnpjCpf(QLineEdit* campo);
// Runs the check now, as leaving the field would; false when it refused the number.
bool checaCnpjCpf(QLineEdit* campo);

// Telephone and CEP: digits only at the key (a pasted "(11) 3333-1000" keeps its digits),
// shown with the mask after leaving and when a record is shown.
void preparaTelefone(QLineEdit* campo);
void preparaCep(QLineEdit* campo);

// A document shown from the store: the field takes any length it holds.
void mostraCnpjCpf(QLineEdit* campo, const QString& valor);
// Before a save: a number typed and not yet checked (the save pressed without leaving the
// field) gets the check; false when it refused the number.
bool checaSeDigitado(QLineEdit* campo);

// What goes to the store: the digits of a field that holds them alone or in their mask; a
// value that an older record holds with other characters ("3333-1000 ramal 2") as it
// stands, so that saving an unrelated change never loses it.
QString paraGravar(const QString& campo, QString (*mascara)(const QString&));

}
