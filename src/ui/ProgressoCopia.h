#pragma once
#include <QDialog>
#include <functional>

#include "data/CopiadorArquivo.h"

class QLabel;
class QProgressBar;
class QPushButton;

// The window that stands while a file is copied: what goes where, how far it is, and a
// button to give up. It runs the copy on its own thread and keeps the screens painted.
class ProgressoCopia : public QDialog {
    Q_OBJECT
public:
    ProgressoCopia(const QString& origem, const QString& destino, QWidget* pai = nullptr);

    CopiadorArquivo& copiador() { return m_copiador; }
    // Copies, showing the window, and returns when the copy ends.
    ResultadoCopia executar();

    // Tests: called with each new window before its copy starts.
    static void aoCriar(std::function<void(ProgressoCopia*)> observador);

public slots:
    void reject() override;   // Esc and the window's close give up the copy too

private:
    void mostraProgresso(qint64 copiados, qint64 total);

    CopiadorArquivo m_copiador;
    QLabel* m_arquivo = nullptr;
    QLabel* m_caminhos = nullptr;
    QProgressBar* m_barra = nullptr;
    QPushButton* m_cancelar = nullptr;
};

// What to do when the destination already holds a file.
enum class SeExistir {
    Perguntar,    // ask before replacing it; a "no" counts as a cancelled copy
    Substituir,
};

// Copies a file with the progress window and tells the user how it ended: "Cópia
// cancelada" or "Falha na cópia!!!" in a critical box. `situacao`, when given, receives the
// short texts for the caller's own progress label ("Copiando arquivo...", "Cópia
// cancelada", "Falha na cópia"). `erro` receives the reason of a failure.
ResultadoCopia CopiaArquivo(QWidget* pai, const QString& origem, const QString& destino,
                            const std::function<void(const QString&)>& situacao = {},
                            SeExistir seExistir = SeExistir::Perguntar, QString* erro = nullptr);

inline const QString TextoCopiando = QStringLiteral("Copiando arquivo...");
inline const QString TextoCopiaCancelada = QStringLiteral("Cópia cancelada");
inline const QString TextoFalhaCopia = QStringLiteral("Falha na cópia!!!");
inline const QString RotuloFalhaCopia = QStringLiteral("Falha na cópia");
