#include "ui/RegistroTelas.h"

#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QWidget>

namespace {

struct Estado {
    QHash<QString, RegistroTelas::Fabrica> fabricas;
    QHash<QString, QPointer<QWidget>> abertas;
    QPointer<QMdiArea> area;
};

Estado& estado()
{
    static Estado e;
    return e;
}

QString chave(const QString& nome) { return nome.toLower(); }

} // namespace

bool RegistroTelas::registrar(const QString& nome, Fabrica fabrica)
{
    estado().fabricas.insert(chave(nome), std::move(fabrica));
    return true;
}

bool RegistroTelas::registrada(const QString& nome)
{
    return estado().fabricas.contains(chave(nome));
}

QStringList RegistroTelas::nomes()
{
    return estado().fabricas.keys();
}

QWidget* RegistroTelas::aberta(const QString& nome)
{
    return estado().abertas.value(chave(nome)).data();
}

QWidget* RegistroTelas::abrir(const QString& nome)
{
    if (QWidget* w = aberta(nome)) {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget())) {
            sub->show();
            sub->raise();
            if (estado().area)
                estado().area->setActiveSubWindow(sub);
        }
        w->show();
        w->raise();
        w->activateWindow();
        return w;
    }
    const auto it = estado().fabricas.constFind(chave(nome));
    if (it == estado().fabricas.constEnd())
        return nullptr;
    QWidget* w = it.value()();
    if (w->objectName().isEmpty())
        w->setObjectName(nome);
    w->setAttribute(Qt::WA_DeleteOnClose);
    estado().abertas.insert(chave(nome), w);
    // Every parentless widget reports itself a window, so that can't tell the screens
    // apart: a plain screen becomes a child of the work area; dialogs, tool windows
    // (the notices) and screens that stay on top keep a window of their own.
    const bool janelaPropria = w->windowType() != Qt::Window
        || w->windowFlags().testFlag(Qt::WindowStaysOnTopHint)
        || (estado().area && w->isAncestorOf(estado().area));   // the main window itself
    if (estado().area && !janelaPropria) {
        QMdiSubWindow* sub = estado().area->addSubWindow(w);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        sub->show();
    } else {
        w->show();
    }
    return w;
}

bool RegistroTelas::fecharJanela(QWidget* w)
{
    if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
        return sub->close();
    return w->close();
}

bool RegistroTelas::fechar(const QString& nome)
{
    if (QWidget* w = aberta(nome))
        return fecharJanela(w);
    return true;
}

void RegistroTelas::fecharTodas()
{
    for (const auto& w : std::as_const(estado().abertas))
        if (w)
            fecharJanela(w);
    estado().abertas.clear();
}

void RegistroTelas::definirAreaMdi(QMdiArea* area) { estado().area = area; }
QMdiArea* RegistroTelas::areaMdi() { return estado().area; }
