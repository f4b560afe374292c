#pragma once
#include "ui/TelaCadastro.h"

class QLabel;

// A plain address book beside the customer register, kept apart from it: suppliers'
// salesmen, technicians of the brands, the shop's own contacts.
class Agenda : public TelaCadastro {
    Q_OBJECT
public:
    explicit Agenda(QWidget* pai = nullptr);

protected:
    // The CPF/CNPJ rule of the registers, only for a number typed: a contact stored with
    // an old number that fails the check still has his other fields changed.
    bool validaAntesDeGravar() override;
    void limpaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    void gravaCampos(Recordset& rs) override;

private:
    QLabel* m_codigo;
    QLineEdit* m_cpfCnpj;
};
