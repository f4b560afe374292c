#include "data/Conexoes.h"

#include <QCoreApplication>
#include <QList>
#include <QThread>

#include "data/Sessao.h"

namespace {

struct Estado {
    ConfigBanco config;
    bool configurado = false;
    std::array<std::unique_ptr<Banco>, 5> vagas;
    QList<Banco*> vivos;
    std::function<void(const QString&)> tratador;
};

Estado& estado()
{
    static Estado e;
    return e;
}

void falhou(const QString& mensagem, QString* erro)
{
    sessao().ConexaoOk = 0;
    if (erro)
        *erro = mensagem;
    // The handler opens screens: a worker thread's failure is told by its own job instead.
    const bool principal = !QCoreApplication::instance()
        || QThread::currentThread() == QCoreApplication::instance()->thread();
    if (estado().tratador && principal)
        estado().tratador(mensagem);
}

} // namespace

void Conexoes::configurar(const ConfigBanco& config)
{
    estado().config = config;
    estado().configurado = true;
}

const ConfigBanco& Conexoes::config() { return estado().config; }
bool Conexoes::configurado() { return estado().configurado; }

Banco* Conexoes::abreConexao(int n, QString* erro)
{
    Q_ASSERT(n >= 1 && n <= 5);
    fechaConexao(n);
    auto b = nova(erro);
    if (!b)
        return nullptr;
    estado().vagas[n - 1] = std::move(b);
    return estado().vagas[n - 1].get();
}

void Conexoes::fechaConexao(int n)
{
    Q_ASSERT(n >= 1 && n <= 5);
    estado().vagas[n - 1].reset();
}

Banco* Conexoes::slot(int n)
{
    Q_ASSERT(n >= 1 && n <= 5);
    return estado().vagas[n - 1].get();
}

std::unique_ptr<Banco> Conexoes::nova(QString* erro)
{
    if (!estado().configurado) {
        falhou(QStringLiteral("Atenção,Banco de dados não localizado..."), erro);
        return nullptr;
    }
    try {
        auto b = Banco::abrir(estado().config);
        sessao().ConexaoOk = 1;
        return b;
    } catch (const ErroBanco& e) {
        falhou(e.textoCompleto(), erro);
        return nullptr;
    }
}

void Conexoes::fecharTodas()
{
    for (Banco* b : std::as_const(estado().vivos))
        b->fechar();
}

bool Conexoes::reabrirTodas(QString* erro)
{
    for (Banco* b : std::as_const(estado().vivos)) {
        try {
            b->reabrir();
        } catch (const ErroBanco& e) {
            falhou(e.textoCompleto(), erro);
            return false;
        }
    }
    return true;
}

void Conexoes::fecharSlots()
{
    for (auto& s : estado().vagas)
        s.reset();
}

void Conexoes::aoFalhar(std::function<void(const QString&)> tratador)
{
    estado().tratador = std::move(tratador);
}

namespace {
// Maintenance opens short connections of its own on its worker thread; they are closed
// by their owner and must not race with the interface thread's bookkeeping.
bool doThreadPrincipal()
{
    return !QCoreApplication::instance() || QThread::currentThread() == QCoreApplication::instance()->thread();
}
} // namespace

void Conexoes::registrar(Banco* b)
{
    if (doThreadPrincipal())
        estado().vivos.append(b);
}

void Conexoes::esquecer(Banco* b)
{
    if (doThreadPrincipal())
        estado().vivos.removeAll(b);
}

void Conexoes::avisarFalha(const QString& mensagem) { falhou(mensagem, nullptr); }
