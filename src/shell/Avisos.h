#pragma once
#include <QString>
#include <QWidget>

class QLabel;
class QTimer;

// The short notices that tell the user something happened and close by themselves, so
// that the work isn't stopped by a box to click. Each opens by its name through the
// screen registry and doesn't block the caller; opening one that is still up reaches the
// same form, which closes when its first timer ends.
class AvisoTransitorio : public QWidget {
    Q_OBJECT
public:
    // `vidaMs` 0: the notice stays until its caller closes it.
    AvisoTransitorio(const QString& texto, int vidaMs, bool pintaFundo, QWidget* pai = nullptr);
    QTimer* timer() const { return m_timer; }
    QString texto() const;
public slots:
    // What the timer runs: unless the interval is 0, the notice closes, and what its kind
    // does at closing follows.
    void expira();
protected:
    virtual void aoFechar() {}
    QLabel* m_rotulo = nullptr;
    QLabel* m_segunda = nullptr;
private:
    QTimer* m_timer = nullptr;
    bool m_fechou = false;
};

// Saving and deleting close the password given at use: it is good for one action only.
class Gravado : public AvisoTransitorio {
    Q_OBJECT
public:
    Gravado();
protected:
    void aoFechar() override;
};

class Excluido : public AvisoTransitorio {
    Q_OBJECT
public:
    Excluido();
protected:
    void aoFechar() override;
};

class Invalida : public AvisoTransitorio {
    Q_OBJECT
public:
    Invalida();
    void definirSegundaLinha(const QString& texto);
    QString segundaLinha() const;
};

// A refused action invites another user to log in.
class Negado : public AvisoTransitorio {
    Q_OBJECT
public:
    Negado();
protected:
    void aoFechar() override;
};

class Aviso : public AvisoTransitorio {
    Q_OBJECT
public:
    Aviso();
};

class Aguarde : public AvisoTransitorio {
    Q_OBJECT
public:
    Aguarde();
};

class AguardeBaixa : public AvisoTransitorio {
    Q_OBJECT
public:
    AguardeBaixa();
};

// The store could not be opened: after a while the reconnection screen opens.
class MensagenBd : public AvisoTransitorio {
    Q_OBJECT
public:
    MensagenBd();
protected:
    void aoFechar() override;
};

namespace Avisos {
// Every failed open of a connection shows MensagenBd.
void instalarTratadorConexao();
}
