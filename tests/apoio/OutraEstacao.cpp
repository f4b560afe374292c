#include "apoio/OutraEstacao.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QProcess>
#include <QThread>
#include <atomic>

#include "apoio/BancoTeste.h"
#include "data/Transacao.h"

namespace {
QStringList argumentosPsql(const ConfigBanco& c, const QString& sql)
{
    return {QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-v"), QStringLiteral("ON_ERROR_STOP=1"),
            QStringLiteral("-h"), c.host, QStringLiteral("-p"), QString::number(c.porta), QStringLiteral("-U"),
            c.usuario, QStringLiteral("-d"), c.nomeBanco, QStringLiteral("-c"), sql};
}

QString falhaPsql(QProcess& p)
{
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return QString::fromLocal8Bit(p.readAllStandardError());
    return {};
}

constexpr int EsperaMaximaMs = 60000;
} // namespace

QString outraEstacao(const BancoTeste& b, const QString& sql)
{
    const ConfigBanco& c = b.config();
    if (c.motor == Motor::SQLite) {
        try {
            b.outraConexao()->executar(sql);
        } catch (const ErroBanco& e) {
            return e.textoCompleto();
        }
        return {};
    }
    QProcess p;
    p.start(QStringLiteral("psql"), argumentosPsql(c, sql));
    if (!p.waitForFinished(EsperaMaximaMs))
        return QStringLiteral("psql não terminou: ") + p.errorString();
    return falhaPsql(p);
}

struct OutraEstacaoGravando::Estado {
    QProcess psql;
    QThread* linha = nullptr;
    std::atomic<bool> rodou{false};
    std::atomic<bool> acabou{false};
    bool terminado = false;
    QMutex trava;
    QString erro;
};

OutraEstacaoGravando::OutraEstacaoGravando(const BancoTeste& b, const QString& sql, int segurarMs)
    : m(std::make_unique<Estado>())
{
    const ConfigBanco c = b.config();
    QDeadlineTimer prazo(EsperaMaximaMs);
    if (c.motor == Motor::SQLite) {
        Estado* e = m.get();
        e->linha = QThread::create([e, c, sql, segurarMs] {
            try {
                auto banco = Banco::abrir(c);
                Transacao t(*banco);
                banco->executar(sql);
                e->rodou = true;
                QThread::msleep(segurarMs);
                t.commit();
            } catch (const ErroBanco& x) {
                QMutexLocker l(&e->trava);
                e->erro = x.textoCompleto();
            }
            e->acabou = true;
        });
        e->linha->start();
        while (!e->rodou && !e->acabou && !prazo.hasExpired())
            QThread::msleep(5);
        return;
    }
    m->psql.start(QStringLiteral("psql"),
                  argumentosPsql(c, QStringLiteral("BEGIN; %1; SELECT pg_sleep(%2); COMMIT;")
                                        .arg(sql).arg(segurarMs / 1000.0)));
    if (!m->psql.waitForStarted(EsperaMaximaMs)) {
        m->erro = QStringLiteral("psql não começou: ") + m->psql.errorString();
        return;
    }
    // Its statement has run once its connection sleeps inside the transaction.
    auto vigia = b.outraConexao();
    while (!prazo.hasExpired() && m->psql.state() != QProcess::NotRunning
           && vigia->escalar(QStringLiteral("SELECT COUNT(*) FROM pg_stat_activity WHERE datname = current_database() "
                                            "AND wait_event = 'PgSleep'")).toInt() == 0)
        m->psql.waitForFinished(5);
}

OutraEstacaoGravando::~OutraEstacaoGravando() { terminar(); }

QString OutraEstacaoGravando::terminar()
{
    if (m->terminado)
        return m->erro;
    m->terminado = true;
    if (m->linha) {
        m->linha->wait();
        delete m->linha;
        m->linha = nullptr;
        QMutexLocker l(&m->trava);
        return m->erro;
    }
    if (!m->erro.isEmpty())
        return m->erro;
    if (!m->psql.waitForFinished(EsperaMaximaMs) && m->psql.state() != QProcess::NotRunning)
        m->erro = QStringLiteral("psql não terminou: ") + m->psql.errorString();
    else
        m->erro = falhaPsql(m->psql);
    return m->erro;
}
