#include "ui/AnimaForm.h"

#include <QGuiApplication>
#include <QLayout>
#include <QPointer>
#include <QPropertyAnimation>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace {

bool& sempre()
{
    static bool s = false;
    return s;
}

bool semTela()
{
    const QString p = QGuiApplication::platformName();
    return p == QLatin1String("offscreen") || p == QLatin1String("minimal");
}

// Each step of the old effect took at least one tick of the system timer.
constexpr int PausaMinimaMs = 15;

void centraSeNuncaPosto(QWidget* form)
{
    if (!form->isWindow() || form->testAttribute(Qt::WA_Moved))
        return;
    QRect area;
    if (QWidget* pai = form->parentWidget())
        area = pai->window()->frameGeometry();
    else if (QScreen* tela = form->screen())
        area = tela->availableGeometry();
    if (area.isEmpty())
        return;
    QRect r = form->geometry();
    r.moveCenter(area.center());
    form->move(r.topLeft());
}

} // namespace

void AnimaFormSempre(bool s)
{
    sempre() = s;
}

QPropertyAnimation* AnimaForm(QWidget* form, int passos, int pausaMs)
{
    if (!form)
        return nullptr;
    constexpr Qt::WindowStates semEfeito = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;
    if ((form->windowState() & semEfeito) || passos < 2 || pausaMs < 0 || (semTela() && !sempre())) {
        centraSeNuncaPosto(form);
        form->show();
        return nullptr;
    }

    form->ensurePolished();
    if (QLayout* l = form->layout())
        l->activate();
    centraSeNuncaPosto(form);
    const QRect final = form->geometry();
    QRect inicio(QPoint(), QSize(std::max(1, final.width() / passos), std::max(1, final.height() / passos)));
    inicio.moveCenter(final.center());

    // The layout's minimum size would stop the window from starting small: lift it for
    // the effect and put it back when the window has its size.
    QLayout* layout = form->layout();
    const QLayout::SizeConstraint restricao = layout ? layout->sizeConstraint() : QLayout::SetDefaultConstraint;
    const QSize minimo = form->minimumSize();
    if (layout)
        layout->setSizeConstraint(QLayout::SetNoConstraint);
    form->setMinimumSize(0, 0);

    auto* animacao = new QPropertyAnimation(form, "geometry", form);
    animacao->setObjectName(QStringLiteral("AnimaForm"));
    animacao->setStartValue(inicio);
    animacao->setEndValue(final);
    animacao->setDuration(passos * std::max(pausaMs, PausaMinimaMs));
    QPointer<QWidget> alvo(form);
    QObject::connect(animacao, &QAbstractAnimation::finished, form, [alvo, final, minimo, layout, restricao] {
        if (!alvo)
            return;
        alvo->setMinimumSize(minimo);
        if (layout)
            layout->setSizeConstraint(restricao);
        alvo->setGeometry(final);
    });
    form->setGeometry(inicio);
    form->show();
    animacao->start(QAbstractAnimation::DeleteWhenStopped);
    return animacao;
}
