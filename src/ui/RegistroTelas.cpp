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
    if (estado().area && !w->isWindow()) {
        QMdiSubWindow* sub = estado().area->addSubWindow(w);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        sub->show();
    } else if (estado().area && w->windowFlags().testFlag(Qt::Window)) {
        w->show();
    } else if (estado().area) {
        QMdiSubWindow* sub = estado().area->addSubWindow(w);
        sub->setAttribute(Qt::WA_DeleteOnClose);
        sub->show();
    } else {
        w->show();
    }
    return w;
}

void RegistroTelas::fechar(const QString& nome)
{
    if (QWidget* w = aberta(nome)) {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
            sub->close();
        else
            w->close();
    }
}

void RegistroTelas::fecharTodas()
{
    for (const auto& w : std::as_const(estado().abertas))
        if (w) {
            if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget()))
                sub->close();
            else
                w->close();
        }
    estado().abertas.clear();
}

void RegistroTelas::definirAreaMdi(QMdiArea* area) { estado().area = area; }
QMdiArea* RegistroTelas::areaMdi() { return estado().area; }
