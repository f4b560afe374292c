#pragma once
#include <QFrame>

class QLabel;
class QPushButton;

// The notice of a new version, beside the status bar.
class AvisoPrincipal : public QFrame {
    Q_OBJECT
public:
    explicit AvisoPrincipal(QWidget* pai = nullptr);
    void mostrarNovaVersao(const QString& instalada, const QString& remota);

signals:
    // The updater started: the program must end now, without the closing questions.
    void encerrar();

private:
    void atualizar();

    QLabel* m_nova;
};
