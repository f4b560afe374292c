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
    bool validaAntesDeGravar() override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    // The CPF/CNPJ rule of the registers; false when the field was refused.
    bool checaCpfCnpj();

    QLabel* m_codigo;
    QLineEdit* m_cpfCnpj;
};
