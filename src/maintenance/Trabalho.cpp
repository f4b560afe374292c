#include "maintenance/Trabalho.h"

#include <QEventLoop>
#include <QMetaObject>
#include <QPointer>
#include <QThread>

namespace {
std::atomic<int> g_emAndamento{0};
}

Trabalho::Trabalho(QObject* pai) : QObject(pai) {}

Trabalho::~Trabalho()
{
    // executar() never returns before its thread ends, so nothing can outlive us.
}

int Trabalho::emAndamento() { return g_emAndamento; }

void Trabalho::informar(qint64 feito, qint64 total)
{
    const int m = total > 0 ? int(qBound(qint64(0), feito * 1000 / total, qint64(1000))) : -1;
    if (m_ultimo.exchange(m) == m)
        return;
    QPointer<Trabalho> eu(this);
    QMetaObject::invokeMethod(this, [eu, m] {
        if (eu)
            emit eu->progresso(m);
    }, Qt::QueuedConnection);
}

Resultado Trabalho::executar(Passo passo)
{
    m_cancelar = false;
    m_ultimo = -2;
    m_emCurso = true;
    ++g_emAndamento;
    Resultado r;
    QEventLoop laco;
    QThread* t = QThread::create([&] {
        try {
            r = passo(*this);
        } catch (const std::exception& e) {
            r = Resultado::falha(QStringLiteral("Erro inesperado na manutenção."), QString::fromUtf8(e.what()));
        }
    });
    connect(t, &QThread::finished, &laco, &QEventLoop::quit);
    t->start();
    if (!t->isFinished())
        laco.exec();
    t->wait();
    delete t;
    --g_emAndamento;
    m_emCurso = false;
    return r;
}
