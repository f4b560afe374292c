#pragma once
#include <QObject>
#include <QString>
#include <atomic>
#include <functional>

// How a maintenance step ended. `mensagem` is what the user reads; `detalhe` the
// engine's or the system's own text.
struct Resultado {
    enum class Estado { Ok, Cancelado, Falhou };
    Estado estado = Estado::Ok;
    QString mensagem;
    QString detalhe;

    bool ok() const { return estado == Estado::Ok; }
    bool cancelado() const { return estado == Estado::Cancelado; }
    static Resultado sucesso() { return {}; }
    static Resultado cancelou() { return {Estado::Cancelado, {}, {}}; }
    static Resultado falha(QString mensagem, QString detalhe = {})
    {
        return {Estado::Falhou, std::move(mensagem), std::move(detalhe)};
    }
    QString textoCompleto() const { return detalhe.isEmpty() ? mensagem : mensagem + QLatin1Char('\n') + detalhe; }
};

// A long maintenance step run on a thread of its own, so that the screen keeps painting
// and its cancel button answers. executar() returns when the step ends; meanwhile the
// caller's events go on. The step reports how far it is with informar() and looks at
// cancelado() between its pieces of work.
class Trabalho : public QObject {
    Q_OBJECT
public:
    using Passo = std::function<Resultado(Trabalho&)>;

    explicit Trabalho(QObject* pai = nullptr);
    ~Trabalho() override;

    Resultado executar(Passo passo);
    void cancelar() { m_cancelar = true; }
    bool cancelado() const { return m_cancelar; }
    bool emCurso() const { return m_emCurso; }

    // From the step's thread: `feito` of `total` (total 0: no measure, only alive).
    void informar(qint64 feito, qint64 total);

    // Steps running in this program now; the main window won't close over one.
    static int emAndamento();

signals:
    // Thousandths done, or -1 when the step can't measure itself.
    void progresso(int milesimos);

private:
    std::atomic<bool> m_cancelar{false};
    std::atomic<int> m_ultimo{-2};
    bool m_emCurso = false;
};
