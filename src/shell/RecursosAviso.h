#pragma once
#include <QGroupBox>
#include <QList>

class Banco;
class QCheckBox;
class QPlainTextEdit;
class QSpinBox;

// The shop's settings for telling customers: the switch, one template per situation and
// the warranty days an appliance's history counts. Loaded from and saved to the one row
// of Empresa.
class RecursosAviso : public QGroupBox {
    Q_OBJECT
public:
    explicit RecursosAviso(QWidget* pai = nullptr);

    void carregar(Banco& banco);
    // False, after a message through the dialog seam, when a template is too long or the
    // store refuses; nothing is written then.
    bool salvar(Banco& banco);

    // A WhatsApp link carries the whole text: past this length browsers cut it.
    static constexpr int LimiteModelo = 1000;

private:
    QCheckBox* m_ativo = nullptr;
    QList<QPlainTextEdit*> m_modelos;
    QSpinBox* m_diasGarantia = nullptr;
};
