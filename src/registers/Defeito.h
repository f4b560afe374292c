#pragma once
#include "ui/TelaCadastro.h"

class QLabel;
class QPlainTextEdit;

// The shop's memory of repairs: for a brand and model, the defect seen and how it was
// solved. Anyone may write here (no right, no password): it is a notebook of the bench,
// and a row that goes, goes for good.
class Defeito : public TelaCadastro {
    Q_OBJECT
public:
    explicit Defeito(QWidget* pai = nullptr);

private:
    QLabel* m_codigo;
    QLineEdit* m_marca;
    QLineEdit* m_modelo;
    QLineEdit* m_tipo;
    QPlainTextEdit* m_defeito;
    QPlainTextEdit* m_solucao;
    QPlainTextEdit* m_observacao;
};
