#include <QTest>

#include "data/Datas.h"
#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class TesteValores : public QObject {
    Q_OBJECT
private slots:
    void leituraDeDinheiro_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<qint64>("centavos");
        QTest::newRow("zero") << "0,00" << true << qint64(0);
        QTest::newRow("empty reads as zero") << "" << true << qint64(0);
        QTest::newRow("thousands") << "1.234,56" << true << qint64(123456);
        QTest::newRow("one decimal") << "10,5" << true << qint64(1050);
        QTest::newRow("no decimals") << "150" << true << qint64(15000);
        QTest::newRow("negative change") << "-150,00" << true << qint64(-15000);
        QTest::newRow("currency sign") << "R$ 2,00" << true << qint64(200);
        QTest::newRow("letters") << "12a,00" << false << qint64(0);
        QTest::newRow("two commas") << "1,2,3" << false << qint64(0);
        QTest::newRow("three decimals") << "1,234" << false << qint64(0);
        QTest::newRow("thousands in the wrong place") << "12.34,00" << false << qint64(0);
        QTest::newRow("only a comma") << "," << false << qint64(0);
    }
    void leituraDeDinheiro()
    {
        QFETCH(QString, texto);
        QFETCH(bool, valido);
        QFETCH(qint64, centavos);
        const auto d = Dinheiro::lerTexto(texto);
        QCOMPARE(d.has_value(), valido);
        if (valido)
            QCOMPARE(d->centavos(), centavos);
    }

    void textoDeDinheiro_data()
    {
        QTest::addColumn<qint64>("centavos");
        QTest::addColumn<QString>("texto");
        QTest::newRow("zero") << qint64(0) << "0,00";
        QTest::newRow("cents") << qint64(5) << "0,05";
        QTest::newRow("thousands") << qint64(123456) << "1.234,56";
        QTest::newRow("millions") << qint64(123456789) << "1.234.567,89";
        QTest::newRow("negative") << qint64(-15000) << "-150,00";
    }
    void textoDeDinheiro()
    {
        QFETCH(qint64, centavos);
        QFETCH(QString, texto);
        QCOMPARE(Dinheiro::deCentavos(centavos).texto(), texto);
        QCOMPARE(Dinheiro::lerTexto(texto)->centavos(), centavos);
    }

    void leitorLocal()
    {
        QCOMPARE(Dinheiro::lerTextoLocal("12.50")->centavos(), 1250);
        QCOMPARE(Dinheiro::lerTextoLocal("1.234")->centavos(), 123400);
        QCOMPARE(Dinheiro::lerTextoLocal("1.234,56")->centavos(), 123456);
    }

    void arredondamento_data()
    {
        QTest::addColumn<qint64>("valor");
        QTest::addColumn<qint64>("porcento");   // hundredths of a percent
        QTest::addColumn<qint64>("esperado");
        QTest::newRow("10,45 plus 10 % is 11,50") << qint64(1045) << qint64(1000) << qint64(1150);
        QTest::newRow("half rounds up") << qint64(5) << qint64(1000) << qint64(6);       // 0,055 -> 0,06
        QTest::newRow("negative half rounds away") << qint64(-5) << qint64(1000) << qint64(-6);
        QTest::newRow("discount") << qint64(10000) << qint64(-1500) << qint64(8500);
    }
    void arredondamento()
    {
        QFETCH(qint64, valor);
        QFETCH(qint64, porcento);
        QFETCH(qint64, esperado);
        QCOMPARE(Dinheiro::deCentavos(valor).comPorcentagem(porcento).centavos(), esperado);
    }

    void parcelas_data()
    {
        QTest::addColumn<qint64>("total");
        QTest::addColumn<int>("n");
        QTest::addColumn<QList<qint64>>("esperadas");
        QTest::newRow("150,75 in 2") << qint64(15075) << 2 << QList<qint64>{7537, 7538};
        QTest::newRow("100,00 in 3") << qint64(10000) << 3 << QList<qint64>{3333, 3333, 3334};
        QTest::newRow("1.234,56 in 2") << qint64(123456) << 2 << QList<qint64>{61728, 61728};
        QTest::newRow("one cent in 4") << qint64(1) << 4 << QList<qint64>{0, 0, 0, 1};
        QTest::newRow("whole") << qint64(15075) << 1 << QList<qint64>{15075};
    }
    void parcelas()
    {
        QFETCH(qint64, total);
        QFETCH(int, n);
        QFETCH(QList<qint64>, esperadas);
        const QList<Dinheiro> p = Dinheiro::divideEmParcelas(Dinheiro::deCentavos(total), n);
        QList<qint64> c;
        qint64 soma = 0;
        for (Dinheiro d : p)
            c << d.centavos(), soma += d.centavos();
        QCOMPARE(c, esperadas);
        QCOMPARE(soma, total);
    }

    void prefixoNumerico_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<qint64>("valor");
        QTest::newRow("comma ends the number") << "150,75" << qint64(150);
        QTest::newRow("letters first") << "ABC123" << qint64(0);
        QTest::newRow("plain") << "0042" << qint64(42);
    }
    void prefixoNumerico()
    {
        QFETCH(QString, texto);
        QFETCH(qint64, valor);
        QCOMPARE(::prefixoNumerico(texto), valor);
    }

    void quantidades_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<qint64>("milesimos");
        QTest::newRow("one and a half") << "1,5" << true << qint64(1500);
        QTest::newRow("leading blank of the bench") << " 1" << true << qint64(1000);
        QTest::newRow("letters") << "2x" << false << qint64(0);
        QTest::newRow("empty") << "" << false << qint64(0);
    }
    void quantidades()
    {
        QFETCH(QString, texto);
        QFETCH(bool, valido);
        QFETCH(qint64, milesimos);
        const auto q = Quantidade::lerTexto(texto);
        QCOMPARE(q.has_value(), valido);
        if (valido)
            QCOMPARE(q->milesimos(), milesimos);
    }

    void quantidadeVezesPreco()
    {
        // 1,5 m at 3,33 is 4,995, rounded half away from zero to 5,00.
        QCOMPARE(Quantidade::lerTexto("1,5")->vezes(Dinheiro::deCentavos(333)).centavos(), 500);
        QCOMPARE(Quantidade::lerTexto("1,5")->texto(), QString("1,5"));
    }

    void datas_data()
    {
        QTest::addColumn<QString>("tela");
        QTest::addColumn<bool>("valida");
        QTest::addColumn<QString>("banco");
        QTest::newRow("31/01/2009") << "31/01/2009" << true << "2009/01/31";
        QTest::newRow("impossible date") << "31/02/2020" << false << "";
        QTest::newRow("leap day") << "29/02/2024" << true << "2024/02/29";
        QTest::newRow("empty stays empty") << "" << true << "";
        QTest::newRow("letters") << "ab/cd/efgh" << false << "";
    }
    void datas()
    {
        QFETCH(QString, tela);
        QFETCH(bool, valida);
        QFETCH(QString, banco);
        const auto b = Datas::telaParaBanco(tela);
        QCOMPARE(b.has_value(), valida);
        if (valida) {
            QCOMPARE(*b, banco);
            QCOMPARE(Datas::bancoParaTela(*b), tela);
        }
    }

    void dataGravadaNaTela_data()
    {
        QTest::addColumn<QString>("gravada");
        QTest::addColumn<QString>("tela");
        QTest::newRow("stored form") << "2009/01/31" << "31/01/2009";
        QTest::newRow("leap day") << "2024/02/29" << "29/02/2024";
        QTest::newRow("impossible date shown as stored") << "2023/02/29" << "2023/02/29";
        QTest::newRow("letters shown as stored") << "20a9/01/31" << "20a9/01/31";
        QTest::newRow("blank after it") << "2009/01/31 " << "31/01/2009";
        QTest::newRow("empty") << "" << "";
    }
    void dataGravadaNaTela()
    {
        QFETCH(QString, gravada);
        QFETCH(QString, tela);
        QCOMPARE(Datas::bancoParaTela(gravada), tela);
    }
};

QTEST_GUILESS_MAIN(TesteValores)
#include "tst_valores.moc"
