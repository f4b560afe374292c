#pragma once
#include <QList>
#include <functional>

#include "shell/ConfiguraSistemaDados.h"

class QGroupBox;
class QWidget;

// One optional feature on the "Recursos" tab of the configuration: its box of controls and
// the Empresa columns behind them. The controls carry the columns' control names, so the
// screen loads and saves them with the rest of the row.
struct GrupoRecurso {
    QList<ConfiguraSistemaDados::CampoEmpresa> campos;
    std::function<QGroupBox*(QWidget* pai)> monta;
    // Before the save, with the tab as it stands: false (after telling why) stops it. May
    // rewrite a control with the clean form of what was typed.
    std::function<bool(QWidget* aba)> confere;
};

namespace AbaRecursos {

// The features, in the order of the tab.
const QList<GrupoRecurso>& grupos();
// Every column the tab edits.
QList<ConfiguraSistemaDados::CampoEmpresa> campos();
// The tab: one box per feature, one above the other.
QWidget* monta(QWidget* pai);
bool confere(QWidget* aba);

}
