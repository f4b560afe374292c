#pragma once
#include <QObject>
#include <QString>
#include <atomic>

class QThread;

enum class ResultadoCopia { Concluida, Cancelada, Falhou };

// Copies one file, in blocks, so that a big store can be copied while the screen keeps
// answering and the user can give up. The copy is written under a temporary name beside
// the destination and takes the destination's name only when the last block is safely
// on disk: a cancelled or failed copy leaves no half file, and an existing destination
// (yesterday's backup, the store itself on a restore) stays whole unless the new copy
// is complete.
//
// iniciar() runs the copy on a thread of its own and reports through the signals, which
// reach receivers on the caller's thread; copiar() does the same work on the calling
// thread. cancelar() may be called from any thread.
class CopiadorArquivo : public QObject {
    Q_OBJECT
public:
    CopiadorArquivo(QString origem, QString destino, QObject* pai = nullptr);
    ~CopiadorArquivo() override;

    static constexpr qint64 TamanhoBloco = 1 << 20;

    const QString& origem() const { return m_origem; }
    // The file written: the destination, or the source's name inside it when the
    // destination is an existing folder.
    QString destinoFinal() const;

    ResultadoCopia copiar();
    void iniciar();
    void cancelar() { m_cancelar = true; }
    bool emAndamento() const { return m_thread != nullptr; }

    ResultadoCopia resultado() const { return m_resultado; }
    // What went wrong, in Portuguese with the system's reason; empty unless Falhou.
    const QString& erro() const { return m_erro; }

signals:
    void progresso(qint64 copiados, qint64 total);
    void terminou(ResultadoCopia resultado);

private:
    ResultadoCopia falha(const QString& texto);

    QString m_origem;
    QString m_destino;
    std::atomic<bool> m_cancelar{false};
    ResultadoCopia m_resultado = ResultadoCopia::Falhou;
    QString m_erro;
    QThread* m_thread = nullptr;
};

Q_DECLARE_METATYPE(ResultadoCopia)
