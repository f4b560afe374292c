#include <QTest>

#include "orders/Ordem.h"
#include "orders/ValoresOrdem.h"

namespace {

Dinheiro d(const char* t) { return *Dinheiro::lerTexto(QString::fromUtf8(t)); }

PecaAplicada peca(const char* qtd, const char* custo, const char* venda, const char* desconto)
{
    PecaAplicada p;
    p.Quantidade = *Quantidade::lerTexto(QString::fromUtf8(qtd));
    p.ValorCusto = d(custo);
    p.ValorVenda = d(venda);
    p.ValorDesconto = d(desconto);
    return p;
}

} // namespace

class TesteValoresOrdem : public QObject {
    Q_OBJECT
private slots:
    void valores_data()
    {
        QTest::addColumn<bool>("ativaSer");
        QTest::addColumn<QString>("maoObra");
        QTest::addColumn<QString>("venda");
        QTest::addColumn<QString>("custo");
        QTest::addColumn<QString>("desconto");
        QTest::addColumn<QString>("pagar");
        // Services 33,33 − 0,01 and 66,67 − 10,00; parts 1,5 × (10,01 − 0,33) and
        // 0,333 × (9,99 − 0) and 3 × (0,10 − 0,03).
        QTest::newRow("servicos somados com quantidade fracionada")
            << true << "89,99" << "18,06" << "9,87" << "0,59" << "108,05";
        QTest::newRow("mao de obra digitada fica") << false << "12,34" << "18,06" << "9,87" << "0,59" << "30,40";
    }
    void valores()
    {
        QFETCH(bool, ativaSer);
        QFETCH(QString, maoObra);
        QFETCH(QString, venda);
        QFETCH(QString, custo);
        QFETCH(QString, desconto);
        QFETCH(QString, pagar);
        Ordem o;
        o.MaoObra = d("12,34");
        o.servicos = {{"1", "TROCA", d("0,01"), d("33,33"), {}}, {"2", "AJUSTE", d("10,00"), d("66,67"), {}}};
        // 1,5 × 9,68 = 14,52; 0,333 × 9,99 = 3,32667 → 3,33; 3 × 0,07 = 0,21.
        o.pecas = {peca("1,5", "3,33", "10,01", "0,33"), peca("0,333", "5,55", "9,99", "0"),
                   peca("3", "1,01", "0,10", "0,03")};
        ValoresOrdem::recalcular(o, ativaSer);
        QCOMPARE(o.pecas.at(0).ValorTotal.texto(), QString("14,52"));
        QCOMPARE(o.pecas.at(1).ValorTotal.texto(), QString("3,33"));
        QCOMPARE(o.pecas.at(2).ValorTotal.texto(), QString("0,21"));
        QCOMPARE(o.MaoObra.texto(), maoObra);
        QCOMPARE(o.ValorVenda.texto(), venda);
        // Cost 4,995 + 1,84815 + 3,03 = 9,87315: summed exactly and rounded once gives 9,87,
        // where rounding each line first would give 9,88.
        QCOMPARE(o.ValorPecas.texto(), custo);
        QCOMPARE(o.ValorDescontoPeca.texto(), desconto);
        QCOMPARE(o.ValorPagar.texto(), pagar);
        QCOMPARE(o.ValorPagar, o.MaoObra + o.ValorVenda);
    }

    void entregaSemDesconto()
    {
        // The delivery screen's parts list adds parts at quantity × unit price.
        const QList<PecaAplicada> pecas = {peca("1,5", "0", "10,01", "0,33"), peca("2", "0", "0,05", "0,05")};
        QCOMPARE(ValoresOrdem::valorPagarNaEntrega(d("50,00"), pecas).texto(), QString("65,12"));
    }

    void leituraDeValor_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<bool>("aceito");
        QTest::addColumn<QString>("valor");
        QTest::newRow("vazio vale zero") << "" << true << "0,00";
        QTest::newRow("com milhar") << "1.234,5" << true << "1.234,50";
        QTest::newRow("letras recusadas") << "12,3a" << false << "";
        QTest::newRow("tres casas recusadas") << "1,999" << false << "";
        QTest::newRow("duas virgulas recusadas") << "1,2,3" << false << "";
    }
    void leituraDeValor()
    {
        QFETCH(QString, digitado);
        QFETCH(bool, aceito);
        QFETCH(QString, valor);
        QString erro;
        const auto v = ValoresOrdem::lerValor(digitado, QStringLiteral("Mão de obra"), &erro);
        QCOMPARE(v.has_value(), aceito);
        if (aceito)
            QCOMPARE(v->texto(), valor);
        else
            QVERIFY(erro.contains(QStringLiteral("Mão de obra")) && erro.contains(digitado));
    }
};

QTEST_GUILESS_MAIN(TesteValoresOrdem)
#include "tst_valoresordem.moc"
