#include "ui/Campos.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "data/Sessao.h"

namespace Campos {

QString texto(const QWidget* w)
{
    if (auto* le = qobject_cast<const QLineEdit*>(w)) {
        if (!le->inputMask().isEmpty()) {
            bool algo = false;
            for (const QChar c : le->text())
                algo = algo || c.isLetterOrNumber();
            return algo ? le->text() : QString();
        }
        return le->text();
    }
    if (auto* pt = qobject_cast<const QPlainTextEdit*>(w))
        return pt->toPlainText();
    if (auto* cb = qobject_cast<const QComboBox*>(w))
        return cb->currentText();
    if (auto* lb = qobject_cast<const QLabel*>(w))
        return lb->text();
    if (auto* de = qobject_cast<const QDateEdit*>(w))
        return de->date().toString(QStringLiteral("dd/MM/yyyy"));
    return {};
}

void poeTexto(QWidget* w, const QString& t)
{
    if (auto* le = qobject_cast<QLineEdit*>(w))
        le->setText(t);
    else if (auto* pt = qobject_cast<QPlainTextEdit*>(w))
        pt->setPlainText(t);
    else if (auto* cb = qobject_cast<QComboBox*>(w)) {
        const int i = cb->findText(t);
        if (cb->isEditable())
            cb->setEditText(t);
        else
            cb->setCurrentIndex(i);
    } else if (auto* lb = qobject_cast<QLabel*>(w))
        lb->setText(t);
}

void limpa(QWidget* w)
{
    if (qobject_cast<QAbstractButton*>(w))
        marca(w, false);
    else if (auto* de = qobject_cast<QDateEdit*>(w))
        de->setDate(QDate::currentDate());
    else
        poeTexto(w, QString());
}

bool marcado(const QWidget* w)
{
    auto* b = qobject_cast<const QAbstractButton*>(w);
    return b && b->isChecked();
}

void marca(QWidget* w, bool v)
{
    if (auto* b = qobject_cast<QAbstractButton*>(w))
        b->setChecked(v);
}

QString soNumerico(const QString& t)
{
    QString r;
    for (const QChar c : t)
        if ((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char(','))
            r += c;
    return r;
}

void preparaLinha(QLineEdit* le, bool numerico)
{
    QObject::connect(le, &QLineEdit::textEdited, le, [le, numerico](const QString& t) {
        QString novo = numerico ? soNumerico(t) : t;
        // A text pasted from a letter or a spreadsheet keeps its words on one line.
        if (!numerico && (novo.contains(QLatin1Char('\n')) || novo.contains(QLatin1Char('\r'))))
            novo = novo.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '))
                       .replace(QLatin1Char('\r'), QLatin1Char(' '));
        if (!numerico && Sessao::verdadeiro(sessao().CfgTipoLetra))
            novo = novo.toUpper();
        if (novo != t) {
            const int pos = le->cursorPosition() - (t.size() - novo.size());
            le->setText(novo);
            le->setCursorPosition(qBound(0, pos, int(novo.size())));
        }
    });
}

bool teclaAltera(QObject* alvo, const QKeyEvent* k)
{
    const int tecla = k->key();
    if (tecla == Qt::Key_Tab || tecla == Qt::Key_Backtab || tecla == Qt::Key_Return || tecla == Qt::Key_Enter
        || tecla == Qt::Key_Escape)
        return false;
    if (k->text().isEmpty() && tecla != Qt::Key_Backspace && tecla != Qt::Key_Delete)
        return false;
    auto* caixa = qobject_cast<QLineEdit*>(alvo);
    auto* texto = qobject_cast<QPlainTextEdit*>(alvo);
    return !((caixa && caixa->isReadOnly()) || (texto && texto->isReadOnly()));
}

} // namespace Campos

namespace {

// Enter sends a Tab, as the screens always did, so focus moves by the tab order.
class EnterAvanca : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* alvo, QEvent* e) override
    {
        if (e->type() == QEvent::KeyPress) {
            const int k = static_cast<QKeyEvent*>(e)->key();
            if (k == Qt::Key_Return || k == Qt::Key_Enter) {
                QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
                QCoreApplication::sendEvent(alvo, &tab);
                return true;
            }
        }
        return QObject::eventFilter(alvo, e);
    }
};

} // namespace

void Campos::enterAvanca(QWidget* campo)
{
    campo->installEventFilter(new EnterAvanca(campo));
}
