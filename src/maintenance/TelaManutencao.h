#pragma once
#include <QWidget>

#include "maintenance/Trabalho.h"

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

// What the backup and the restore screens share: the drive list Drive1, the buttons
// Iniciar and Fechar, the progress label Label1 with its bar, and a cancel button while a
// step runs. While one stands, the quick search, the pending panel and the login are put
// away so that they hold nothing of the store; they come back when it closes. The screen
// won't close under a running step.
class TelaManutencao : public QWidget {
    Q_OBJECT
public:
    explicit TelaManutencao(const QString& titulo, QWidget* pai = nullptr);
    ~TelaManutencao() override;

    // Mounted volumes where a backup can be written: name to show and folder (on the
    // home volume, the home folder).
    static QList<QPair<QString, QString>> volumes();
    QString volumeEscolhido() const;
    Trabalho& trabalho() { return m_trabalho; }

protected slots:
    virtual void iniciar() = 0;

protected:
    void closeEvent(QCloseEvent* e) override;
    // Runs a step with the bar and the cancel button.
    Resultado rodar(const QString& texto, Trabalho::Passo passo);
    void situacao(const QString& texto);

    QComboBox* m_drive;
    QLabel* m_label;
    QProgressBar* m_barra;
    QPushButton* m_iniciar;
    QPushButton* m_fechar;
    QPushButton* m_cancelar;

private:
    Trabalho m_trabalho;
};
