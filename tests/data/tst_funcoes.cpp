#include <QTest>

#include "data/Funcoes.h"

class TesteFuncoes : public QObject {
    Q_OBJECT
private slots:
    void cpf_data()
    {
        QTest::addColumn<QString>("cpf");
        QTest::addColumn<bool>("valido");
        QTest::newRow("cpf certo") << "11144477735" << true;
        QTest::newRow("outro cpf certo") << "52998224725" << true;
        QTest::newRow("onze zeros passam pela regra sem caso especial") << "00000000000" << true;
        // Any single digit changed must break the check: the base digits move both DVs,
        // and a changed DV no longer matches.
        const QString bom = QStringLiteral("11144477735");
        for (int i = 0; i < bom.size(); ++i) {
            QString ruim = bom;
            ruim[i] = QChar('0' + (bom.at(i).digitValue() + 1) % 10);
            QTest::newRow(qPrintable(QStringLiteral("digito %1 trocado").arg(i + 1))) << ruim << false;
        }
        QTest::newRow("com mascara") << "111.444.777-35" << false;
        QTest::newRow("com espacos") << "111 444 777 35" << false;
        QTest::newRow("espaco a mais no fim") << "11144477735 " << false;
        QTest::newRow("letra no lugar do digito") << "1114447773A" << false;
        QTest::newRow("curto") << "1114447773" << false;
        QTest::newRow("longo") << "111444777350" << false;
        QTest::newRow("vazio") << "" << false;
        QTest::newRow("digitos nao ascii") << QString::fromUtf8("١١١٤٤٤٧٧٧٣٥") << false;
    }
    void cpf()
    {
        QFETCH(QString, cpf);
        QFETCH(bool, valido);
        QCOMPARE(ValidaCpf(cpf), valido);
    }

    void cnpj_data()
    {
        QTest::addColumn<QString>("cnpj");
        QTest::addColumn<bool>("valido");
        QTest::newRow("cnpj certo") << "11222333000181" << true;
        QTest::newRow("outro cnpj certo") << "45997418000153" << true;
        QTest::newRow("primeiro dv errado") << "11222333000171" << false;
        QTest::newRow("segundo dv errado") << "11222333000182" << false;
        QTest::newRow("base trocada") << "11222333000281" << false;
        QTest::newRow("com mascara") << "11.222.333/0001-81" << false;
        QTest::newRow("com espacos") << "11 222 333 0001 81" << false;
        QTest::newRow("letra na base") << "1122233300A181" << false;
        QTest::newRow("curto") << "1122233300018" << false;
        QTest::newRow("cpf no lugar de cnpj") << "11144477735" << false;
        QTest::newRow("vazio") << "" << false;
    }
    void cnpj()
    {
        QFETCH(QString, cnpj);
        QFETCH(bool, valido);
        QCOMPARE(ValidaCnpj(cnpj), valido);
    }

    void digitoModulo11_data()
    {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("digito");
        QTest::newRow("primeiro dv do cnpj") << "112223330001" << "8";
        QTest::newRow("segundo dv do cnpj") << "1122233300018" << "1";
        QTest::newRow("resto menor que 2 da zero") << "0" << "0";
        // 2*2 + 1*3 = 7 -> 11 - 7 = 4
        QTest::newRow("pesos da direita para a esquerda") << "12" << "4";
        // weights 2..9 then back to 2: 1*2 (the ninth from the right) -> 2, r=2 -> 9
        QTest::newRow("peso volta a 2 depois de 9") << "100000000" << "9";
        QTest::newRow("letra da vazio") << "12A" << "";
        QTest::newRow("vazio da vazio") << "" << "";
        QTest::newRow("ponto da vazio") << "12.5" << "";
        QTest::newRow("sinal da vazio") << "-12" << "";
    }
    void digitoModulo11()
    {
        QFETCH(QString, numero);
        QFETCH(QString, digito);
        QCOMPARE(DigitoModulo11(numero), digito);
    }

    void soDigitos_data()
    {
        QTest::addColumn<QVariant>("valor");
        QTest::addColumn<QString>("digitos");
        QTest::newRow("cpf com pontuacao") << QVariant("111.444.777-35") << "11144477735";
        QTest::newRow("telefone com parenteses") << QVariant("(11) 2345-6789") << "1123456789";
        QTest::newRow("letras e acentos somem") << QVariant(QString::fromUtf8("nº 12 é 3")) << "123";
        QTest::newRow("sem digitos") << QVariant("abc") << "";
        QTest::newRow("nulo") << QVariant() << "";
        QTest::newRow("texto nulo") << QVariant(QString()) << "";
        QTest::newRow("vazio") << QVariant("") << "";
    }
    void soDigitos()
    {
        QFETCH(QVariant, valor);
        QFETCH(QString, digitos);
        const QString r = SoDigitos(valor);
        QCOMPARE(r, digitos);
        // The store keeps empty text as "", so the result is never a null string.
        QVERIFY(!r.isNull());
        QCOMPARE(SoDigitos(valor.toString()), digitos);
        QCOMPARE(SoDigitos(valor.toString().toUtf8().constData()), digitos);
    }
};

QTEST_GUILESS_MAIN(TesteFuncoes)
#include "tst_funcoes.moc"
