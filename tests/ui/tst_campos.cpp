#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "ui/Campos.h"

class TesteCampos : public QObject {
    Q_OBJECT
private slots:
    void enterVaiAoProximoCampo()
    {
        QWidget tela;
        auto* layout = new QVBoxLayout(&tela);
        auto* a = new QLineEdit;
        auto* b = new QLineEdit;
        layout->addWidget(a);
        layout->addWidget(b);
        Campos::enterAvanca(a);
        tela.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tela));
        a->setFocus();
        QTRY_VERIFY(a->hasFocus());
        QTest::keyClick(a, Qt::Key_Return);
        QTRY_VERIFY(b->hasFocus());
        QTest::keyClick(b, Qt::Key_Return);   // a field without the rule keeps its Enter
        QVERIFY(b->hasFocus());
    }

    void numericoSoDigitosEVirgula()
    {
        QCOMPARE(Campos::soNumerico("12a,5.0\n"), QString("12,50"));
    }
};

QTEST_MAIN(TesteCampos)
#include "tst_campos.moc"
