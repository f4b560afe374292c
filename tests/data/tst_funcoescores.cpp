#include <QGuiApplication>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

#include "data/ArquivoIni.h"
#include "data/FuncoesCores.h"
#include "data/Sessao.h"

class TesteFuncoesCores : public QObject {
    Q_OBJECT
private slots:
    void carregaCores_data()
    {
        QTest::addColumn<QString>("fundo");   // "-" leaves the key out of the file
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QColor>("corFundo");
        QTest::addColumn<QColor>("corCampo");
        const QColor botao = QGuiApplication::palette().color(QPalette::Button);
        const QColor amarelo(0xFF, 0xFF, 0xC0);
        QTest::newRow("sem as chaves: padrao") << "-" << "-" << botao << amarelo;
        QTest::newRow("chaves vazias: padrao") << "" << "" << botao << amarelo;
        // Classic colour numbers are BGR: 255 is red, 16711680 is blue.
        QTest::newRow("numeros bgr") << "255" << "16711680" << QColor(Qt::red) << QColor(Qt::blue);
        QTest::newRow("hexadecimal classico") << "&H0000FF00&" << "&HC0FFFF" << QColor(Qt::green) << amarelo;
        QTest::newRow("cor do sistema negativa") << "-2147483633" << "-2147483643" << botao
                                                 << QGuiApplication::palette().color(QPalette::Base);
        QTest::newRow("texto que nao e numero cai no padrao") << "azul" << "12,5" << botao << amarelo;
        QTest::newRow("numero grande demais cai no padrao") << "33554432" << "99999999999" << botao << amarelo;
        QTest::newRow("cor de sistema desconhecida cai no padrao") << "-2147483000" << "1" << botao
                                                                   << QColor(1, 0, 0);
    }
    void carregaCores()
    {
        QFETCH(QString, fundo);
        QFETCH(QString, campo);
        QFETCH(QColor, corFundo);
        QFETCH(QColor, corCampo);
        QTemporaryDir dir;
        const QString ini = dir.filePath("Toldex.ini");
        QVERIFY(GravaIni("Local", "Servidor", "True", ini));
        if (fundo != "-")
            QVERIFY(GravaIni("CorFundo", "0", fundo, ini));
        if (campo != "-")
            QVERIFY(GravaIni("CorFundo", "1", campo, ini));
        sessao().CorFundo = QColor();
        sessao().CorCampo = QColor();
        CarregaCores(ini);
        QCOMPARE(sessao().CorFundo, corFundo);
        QCOMPARE(sessao().CorCampo, corCampo);
    }

    void numeroDaCorVoltaAMesmaCor()
    {
        // What the settings screen stores must read back as the colour chosen.
        for (const QColor c : {QColor(12, 34, 56), QColor(Qt::white), QColor(Qt::black), QColor(0xFF, 0xFF, 0xC0)})
            QCOMPARE(CorDoNumero(NumeroDaCor(c)), std::optional<QColor>(c));
        QCOMPARE(NumeroDaCor(QColor(0xFF, 0xFF, 0xC0)), QString::number(CorCampoPadrao));
    }
};

QTEST_MAIN(TesteFuncoesCores)
#include "tst_funcoescores.moc"
