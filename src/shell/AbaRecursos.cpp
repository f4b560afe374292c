#include "shell/AbaRecursos.h"

#include <QGroupBox>
#include <QScrollArea>
#include <QVBoxLayout>

// Each feature's box lives in a file of its own; adding one is a line in the list below.
GrupoRecurso grupoPix();
GrupoRecurso grupoBobina();
GrupoRecurso grupoAviso();

namespace AbaRecursos {

const QList<GrupoRecurso>& grupos()
{
    static const QList<GrupoRecurso> g = {
        grupoPix(),
        grupoBobina(),
        grupoAviso(),
    };
    return g;
}

QList<ConfiguraSistemaDados::CampoEmpresa> campos()
{
    QList<ConfiguraSistemaDados::CampoEmpresa> c;
    for (const GrupoRecurso& g : grupos())
        c << g.campos;
    return c;
}

QWidget* monta(QWidget* pai)
{
    auto* rolagem = new QScrollArea(pai);
    rolagem->setObjectName(QStringLiteral("AbaRecursos"));
    rolagem->setWidgetResizable(true);
    rolagem->setFrameShape(QFrame::NoFrame);
    auto* dentro = new QWidget(rolagem);
    auto* v = new QVBoxLayout(dentro);
    for (const GrupoRecurso& g : grupos())
        v->addWidget(g.monta(dentro));
    v->addStretch();
    rolagem->setWidget(dentro);
    return rolagem;
}

bool confere(QWidget* aba)
{
    for (const GrupoRecurso& g : grupos())
        if (g.confere && !g.confere(aba))
            return false;
    return true;
}

}
