#include "ui/RodaGrade.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPointer>
#include <QWheelEvent>

namespace {

const char* const NomeFiltro = "ConectaRoda";

class FiltroRoda : public QObject {
public:
    FiltroRoda(QWidget* form, QAbstractItemView* grade) : QObject(form), m_grade(grade)
    {
        setObjectName(QLatin1String(NomeFiltro));
    }

protected:
    bool eventFilter(QObject* alvo, QEvent* e) override
    {
        if (e->type() != QEvent::Wheel || m_repassando || !m_grade || !m_grade->isVisible())
            return QObject::eventFilter(alvo, e);
        // A turn that the grid itself left unused (at the end of the list) climbs back
        // up to the form: it must not be sent to the grid again.
        const auto* roda = static_cast<QWheelEvent*>(e);
        QWidget* area = m_grade->viewport();
        const QPointF local = QRectF(area->rect()).center();
        QWheelEvent copia(local, area->mapToGlobal(local), roda->pixelDelta(), roda->angleDelta(), roda->buttons(),
                          roda->modifiers(), roda->phase(), roda->inverted(), roda->source());
        m_repassando = true;
        QApplication::sendEvent(area, &copia);
        m_repassando = false;
        return true;
    }

private:
    QPointer<QAbstractItemView> m_grade;
    bool m_repassando = false;
};

} // namespace

void ConectaRoda(QWidget* form, QAbstractItemView* grade)
{
    if (!form || !grade)
        return;
    DesconectaRoda(form);
    form->installEventFilter(new FiltroRoda(form, grade));
}

void DesconectaRoda(QWidget* form)
{
    if (!form)
        return;
    const auto filtros = form->findChildren<QObject*>(QLatin1String(NomeFiltro), Qt::FindDirectChildrenOnly);
    for (QObject* f : filtros) {
        form->removeEventFilter(f);
        delete f;
    }
}
