#include "ui/Pintura.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>

#include "data/Sessao.h"

namespace Pintura {

QColor corFundo()
{
    const QColor c = sessao().CorFundo;
    return c.isValid() ? c : QApplication::palette().color(QPalette::Button);
}

QColor corCampo()
{
    const QColor c = sessao().CorCampo;
    return c.isValid() ? c : QColor(0xFF, 0xFF, 0xC0);
}

namespace {

void fundo(QWidget* w, const QColor& cor)
{
    QPalette p = w->palette();
    p.setColor(QPalette::Window, cor);
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

void campo(QWidget* w, const QColor& cor)
{
    QPalette p = w->palette();
    p.setColor(QPalette::Base, cor);
    w->setPalette(p);
}

} // namespace

void pinta(QWidget* tela)
{
    const QColor f = corFundo();
    const QColor c = corCampo();
    fundo(tela, f);
    const auto filhos = tela->findChildren<QWidget*>();
    for (QWidget* w : filhos) {
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) || qobject_cast<QAbstractItemView*>(w)
            || qobject_cast<QPlainTextEdit*>(w) || qobject_cast<QTextEdit*>(w) || qobject_cast<QAbstractSpinBox*>(w))
            campo(w, c);
        else if (qobject_cast<QLabel*>(w) || qobject_cast<QGroupBox*>(w) || qobject_cast<QCheckBox*>(w)
                 || qobject_cast<QRadioButton*>(w) || (qobject_cast<QFrame*>(w) && !w->parentWidget()->inherits("QAbstractScrollArea")))
            fundo(w, f);
    }
}

} // namespace Pintura
