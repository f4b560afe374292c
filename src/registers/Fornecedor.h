#pragma once
#include "ui/TelaCadastro.h"

class QLabel;
class QPlainTextEdit;

// The supplier register: who sells the shop its parts, with the contacts of their sales,
// support and customer service.
class Fornecedor : public TelaCadastro {
    Q_OBJECT
public:
    explicit Fornecedor(QWidget* pai = nullptr);

    // Shows the supplier through the search box, as the supplier search's choice does
    // (a deleted supplier shows too).
    void mostraFornecedor(const QString& codigo, const QString& nome);
    Q_INVOKABLE void abrirNoModo(const QString& modo);

protected:
    void limpaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    bool validaAntesDeGravar() override;
    void gravaCampos(Recordset& rs) override;

private:
    QList<QLineEdit*> m_textos;
    QLineEdit* m_busca = nullptr;
};
