#include <QLabel>
#include <QLineEdit>
#include <QPropertyAnimation>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "ui/AnimaForm.h"

namespace {

// A screen with a layout, whose minimum size would keep the window from starting small.
std::unique_ptr<QWidget> tela()
{
    auto w = std::make_unique<QWidget>();
    auto* l = new QVBoxLayout(w.get());
    for (int i = 0; i < 6; ++i)
        l->addWidget(new QLineEdit(w.get()));
    w->setGeometry(100, 80, 500, 300);
    return w;
}

} // namespace

class TesteAnimaForm : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { AnimaFormSempre(false); }

    void semTelaAbreNaHora()
    {
        auto w = tela();
        const QRect final = w->geometry();
        QCOMPARE(AnimaForm(w.get()), nullptr);
        QVERIFY(w->isVisible());
        QCOMPARE(w->geometry(), final);
    }

    void cresceDoMeioAteOTamanho()
    {
        AnimaFormSempre(true);
        auto w = tela();
        const QRect final = w->geometry();
        w->layout()->activate();
        const QSize minimo = w->minimumSize();
        QPropertyAnimation* a = AnimaForm(w.get(), 10, 1);
        QVERIFY(a);
        QVERIFY(w->isVisible());
        // It starts a tenth of the size, on the final middle.
        QCOMPARE(w->geometry().size(), QSize(50, 30));
        QCOMPARE(w->geometry().center(), final.center());
        QSignalSpy fim(a, &QAbstractAnimation::finished);
        QVERIFY(fim.wait(5000));
        QCOMPARE(w->geometry(), final);
        // The screen keeps its own minimum size afterwards.
        QCOMPARE(w->minimumSize(), minimo);
        QCOMPARE(w->layout()->sizeConstraint(), QLayout::SetDefaultConstraint);
    }

    void estadosSemEfeito_data()
    {
        QTest::addColumn<int>("estado");
        QTest::newRow("maximizada") << int(Qt::WindowMaximized);
        QTest::newRow("minimizada") << int(Qt::WindowMinimized);
        QTest::newRow("tela cheia") << int(Qt::WindowFullScreen);
    }
    void estadosSemEfeito()
    {
        QFETCH(int, estado);
        AnimaFormSempre(true);
        auto w = tela();
        w->setWindowState(Qt::WindowStates(estado));
        QCOMPARE(AnimaForm(w.get()), nullptr);
        QCOMPARE(int(w->windowState()), estado);
        QVERIFY(!w->findChild<QPropertyAnimation*>("AnimaForm"));
    }
};

QTEST_MAIN(TesteAnimaForm)
#include "tst_animaform.moc"
