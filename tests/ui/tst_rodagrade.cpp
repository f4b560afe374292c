#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

#include "ui/RodaGrade.h"

namespace {

void giraRoda(QWidget* sobre, int graus)
{
    const QPointF p = QRectF(sobre->rect()).center();
    QWheelEvent e(p, sobre->mapToGlobal(p), QPoint(), QPoint(0, graus * 8), Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    // As from the mouse: only such turns climb from the widget under the pointer to its
    // form, and sendEvent would mark it as made by the program.
    QSpontaneKeyEvent::setSpontaneous(&e);
    qApp->notify(sobre, &e);
}

} // namespace

class TesteRodaGrade : public QObject {
    Q_OBJECT
private slots:
    void rodaForaDaGradeMoveAGrade_data()
    {
        QTest::addColumn<bool>("conectada");
        QTest::addColumn<int>("graus");
        QTest::addColumn<int>("sentido");   // 1 down, -1 up, 0 still
        QTest::newRow("para baixo sobre a caixa de busca") << true << -15 << 1;
        QTest::newRow("para cima sobre a caixa de busca") << true << 15 << -1;
        QTest::newRow("desconectada nao mexe") << false << -15 << 0;
    }
    void rodaForaDaGradeMoveAGrade()
    {
        QFETCH(bool, conectada);
        QFETCH(int, graus);
        QFETCH(int, sentido);
        QWidget form;
        form.setObjectName("PesquisaCliente");
        auto* texto = new QLineEdit(&form);
        texto->setObjectName("Text1(0)");
        auto* grade = new QTableWidget(300, 3, &form);
        grade->setObjectName("Grade");
        auto* l = new QVBoxLayout(&form);
        l->addWidget(texto);
        l->addWidget(grade);
        form.resize(400, 300);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        ConectaRoda(&form, grade);
        if (!conectada)
            DesconectaRoda(&form);
        grade->verticalScrollBar()->setValue(100);

        giraRoda(texto, graus);
        const int agora = grade->verticalScrollBar()->value();
        QCOMPARE(agora > 100 ? 1 : agora < 100 ? -1 : 0, sentido);
    }

    void fimDaListaNaoGiraSemFim()
    {
        // At the top, the grid leaves the turn unused and it climbs back to the form:
        // it must end there and not go round again.
        QWidget form;
        auto* texto = new QLineEdit(&form);
        auto* grade = new QTableWidget(50, 2, &form);
        auto* l = new QVBoxLayout(&form);
        l->addWidget(texto);
        l->addWidget(grade);
        form.show();
        ConectaRoda(&form, grade);
        ConectaRoda(&form, grade);   // twice is harmless
        giraRoda(texto, 15);
        QCOMPARE(grade->verticalScrollBar()->value(), 0);
        QCOMPARE(form.findChildren<QObject*>("ConectaRoda").size(), 1);
    }
};

QTEST_MAIN(TesteRodaGrade)
#include "tst_rodagrade.moc"
