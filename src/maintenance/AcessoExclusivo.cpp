#include "maintenance/AcessoExclusivo.h"

#include <QCoreApplication>
#include <QWidget>

#include "data/Conexoes.h"
#include "data/TravaUso.h"
#include "maintenance/Restauracao.h"
#include "ui/RegistroTelas.h"

namespace {

// Screens that stay: the frame, and the reconnection screens the work may start from.
const QStringList Ficam = {QStringLiteral("Principal"), QStringLiteral("Reconecta"), QStringLiteral("MensagenBd"),
                           QStringLiteral("TelaInicial")};

bool fecharOutrasTelas(QWidget* tela)
{
    for (const QString& nome : RegistroTelas::nomes()) {
        QWidget* w = RegistroTelas::aberta(nome);
        if (!w || w == tela || Ficam.contains(nome, Qt::CaseInsensitive))
            continue;
        RegistroTelas::fechar(nome);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // A screen whose leave question was cancelled is still standing: the user keeps
        // the work on it, and the maintenance waits for another time.
        if (QWidget* ainda = RegistroTelas::aberta(nome); ainda && ainda->isVisible())
            return false;
    }
    return true;
}

} // namespace

QString AcessoExclusivo::mensagemOcupado(const QString& primeira)
{
    return primeira + QStringLiteral("\nele pode estar sendo usado por outro computador\n"
                                     "Feche o programa Toldex em todas as máquinas.");
}

std::unique_ptr<AcessoExclusivo> AcessoExclusivo::tomar(QWidget* tela, const ConfigBanco& config, Falha* falha,
                                                        QString* detalhe)
{
    *falha = Falha::Nenhuma;
    if (!fecharOutrasTelas(tela)) {
        *falha = Falha::TelaAberta;
        return nullptr;
    }
    std::unique_ptr<AcessoExclusivo> a(new AcessoExclusivo);
    if (config.motor == Motor::SQLite) {
        a->m_trava = TravaExclusiva::tomar(config.pasta);
        if (!a->m_trava) {
            *falha = Falha::OutrosUsando;
            return nullptr;
        }
        Conexoes::fecharSlots();
        Conexoes::fecharTodas();
        return a;
    }
    Conexoes::fecharSlots();
    Conexoes::fecharTodas();
    const int outras = Restauracao::outrasConexoesPostgres(config, detalhe);
    if (outras != 0) {
        *falha = Falha::OutrosUsando;
        Conexoes::reabrirTodas();
        return nullptr;
    }
    return a;
}

AcessoExclusivo::~AcessoExclusivo()
{
    m_trava.reset();
    Conexoes::reabrirTodas();
}
