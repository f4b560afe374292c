#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Esquema.h"
#include "data/Transacao.h"
#include "stock/KitProduto.h"
#include "stock/Margem.h"
#include "stock/Produtos.h"
#include "stock/ReajustePreco.h"

// The stock library: code numbering, stock by difference, the automatic material line,
// kits and the price adjustment, on both engines.
class TstProdutos : public QObject {
    Q_OBJECT

    static qint64 produto(Banco& b, const QString& cod, int excluidos = 0, qint64 estoque = 0, qint64 minimo = 0,
                          const QString& descricao = QStringLiteral("PECA"))
    {
        return b.inserir(*Esquema::tabela(QStringLiteral("Produto")),
                         {QStringLiteral("codpeca"), QStringLiteral("Descricao"), QStringLiteral("Excluidos"),
                          QStringLiteral("Quantidadeestoque"), QStringLiteral("QuantidadeMinima")},
                         {cod, descricao, excluidos, estoque * 1000, minimo * 1000});
    }
    static qint64 comPreco(Banco& b, const QString& cod, const QString& descricao, const QString& categoria,
                           qint64 venda, int excluidos = 0)
    {
        return b.inserir(*Esquema::tabela(QStringLiteral("Produto")),
                         {QStringLiteral("codpeca"), QStringLiteral("Descricao"), QStringLiteral("Categoria"),
                          QStringLiteral("PrecoVenda"), QStringLiteral("Excluidos")},
                         {cod, descricao, categoria, venda, excluidos});
    }
    static qint64 venda(Banco& b, const QString& cod)
    {
        return b.escalar(QStringLiteral("SELECT PrecoVenda FROM Produto WHERE codpeca = ?"), {cod}).toLongLong();
    }
    static ItemKit item(const QString& cod, qint64 preco, const QString& qtd = QStringLiteral("1"))
    {
        ItemKit i;
        i.codpeca = cod;
        i.descricao = QStringLiteral("ITEM ") + cod;
        i.quantidade = *Quantidade::lerTexto(qtd);
        i.valorVenda = Dinheiro::deCentavos(preco);
        return i;
    }

private slots:
    void margens_data()
    {
        QTest::addColumn<qint64>("custo");
        QTest::addColumn<qint64>("venda");
        QTest::addColumn<QString>("margem");
        QTest::newRow("cost 10,00 sale 12,50 is 25,00%") << qint64(1000) << qint64(1250) << "25,00%";
        QTest::newRow("a third rounds to 33,33%") << qint64(300) << qint64(400) << "33,33%";
        QTest::newRow("two thirds rounds up to 66,67%") << qint64(300) << qint64(500) << "66,67%";
        QTest::newRow("sale under cost is negative") << qint64(1000) << qint64(900) << "-10,00%";
        QTest::newRow("cost 0 leaves the margin empty") << qint64(0) << qint64(500) << "";
    }
    void margens()
    {
        QFETCH(qint64, custo);
        QFETCH(qint64, venda);
        QFETCH(QString, margem);
        const auto m = Margem::deCustoEVenda(Dinheiro::deCentavos(custo), Dinheiro::deCentavos(venda));
        QCOMPARE(m ? Margem::textoPorcentagem(*m) : QString(), margem);
    }

    void vendaDaMargem_data()
    {
        QTest::addColumn<qint64>("custo");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("venda");
        QTest::newRow("margin 50 on 10,00 gives 15,00") << qint64(1000) << "50" << "15,00";
        QTest::newRow("12,5% read as 12,5") << qint64(800) << "12,5%" << "9,00";
        QTest::newRow("half a cent rounds away") << qint64(1045) << "10" << "11,50";
        QTest::newRow("letters give nothing") << qint64(1000) << "abc" << "";
        QTest::newRow("empty gives nothing") << qint64(1000) << "" << "";
    }
    void vendaDaMargem()
    {
        QFETCH(qint64, custo);
        QFETCH(QString, digitado);
        QFETCH(QString, venda);
        const auto m = Margem::lerPorcentagem(digitado);
        QCOMPARE(m ? Margem::vendaDeMargem(Dinheiro::deCentavos(custo), *m).texto() : QString(), venda);
    }

    void proximoCodigo_data()
    {
        linhasMotores();
    }
    void proximoCodigo()
    {
        BANCO_DO_MOTOR(b);
        QCOMPARE(Produtos::proximoCodigo(b.banco()), qint64(1));
        produto(b.banco(), QStringLiteral("ABC123"));
        QCOMPARE(Produtos::proximoCodigo(b.banco()), qint64(1));
        for (int i = 1; i <= 79; ++i)
            produto(b.banco(), QString::number(i));
        produto(b.banco(), QStringLiteral("80"), -1);
        // "9" sorts after "80" as text; the bin's 80 still counts.
        QCOMPARE(Produtos::proximoCodigo(b.banco()), qint64(81));
        produto(b.banco(), QStringLiteral("XY00000000000500"));  // only the last thirteen count
        QCOMPARE(Produtos::proximoCodigo(b.banco()), qint64(501));
    }

    void codigoEmUso_data()
    {
        linhasMotores();
    }
    void codigoEmUso()
    {
        BANCO_DO_MOTOR(b);
        const qint64 vivo = produto(b.banco(), QStringLiteral("10"));
        produto(b.banco(), QStringLiteral("20"), -1);
        QVERIFY(Produtos::codigoEmUso(b.banco(), QStringLiteral("10"), -1));
        QVERIFY2(!Produtos::codigoEmUso(b.banco(), QStringLiteral("10"), vivo), "its own row is no clash");
        QVERIFY2(!Produtos::codigoEmUso(b.banco(), QStringLiteral("20"), -1), "a deleted product frees its code");
        QVERIFY2(!Produtos::codigoEmUso(b.banco(), QStringLiteral("010"), -1), "exact text, not the number");
    }

    void estoqueEReposicao_data()
    {
        linhasMotores();
    }
    void estoqueEReposicao()
    {
        BANCO_DO_MOTOR(b);
        const qint64 p = produto(b.banco(), QStringLiteral("30"), 0, 12, 5, QStringLiteral("CAPACITOR"));
        b->executar(QStringLiteral("UPDATE Produto SET Quantidadeestoque = Quantidadeestoque - 3000 WHERE CodPecAut = ?"),
                    {p});  // the till took 3 meanwhile
        Produtos::somaEstoque(b.banco(), p, *Quantidade::lerTexto(QStringLiteral("-1,5")));
        QCOMPARE(b->escalar(QStringLiteral("SELECT Quantidadeestoque FROM Produto WHERE CodPecAut = ?"), {p}).toLongLong(),
                 qint64(7500));
        QCOMPARE(Produtos::pedeSeAbaixoDoMinimo(b.banco(), QStringLiteral("30")), QString());
        Produtos::somaEstoque(b.banco(), p, Quantidade::unidades(-3));
        QCOMPARE(Produtos::pedeSeAbaixoDoMinimo(b.banco(), QStringLiteral("30")), QString("CAPACITOR"));
        QSqlQuery q = b->executar(QStringLiteral("SELECT CodVenda, Descricao, Quantidade, Solicitado FROM PedidoPeca"));
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toString() + "|" + q.value(1).toString() + "|" + q.value(2).toString() + "|"
                     + q.value(3).toString(), QString("30|CAPACITOR|1|Estoque"));

        // A deleted product of the same code, short of stock, asks for nothing.
        produto(b.banco(), QStringLiteral("40"), -1, 0, 5);
        QCOMPARE(Produtos::pedeSeAbaixoDoMinimo(b.banco(), QStringLiteral("40")), QString());
        produto(b.banco(), QStringLiteral("50"), 0, 5, 5);
        QCOMPARE(Produtos::pedeSeAbaixoDoMinimo(b.banco(), QStringLiteral("50")), QString());
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM PedidoPeca")).toInt(), 1);
    }

    void kits_data()
    {
        linhasMotores();
    }
    void kits()
    {
        BANCO_DO_MOTOR(b);
        const QList<ItemKit> itens = {item("1", 1000), item("2", 250, "2"), item("3", 199, "1,5"), item("4", 5)};
        QCOMPARE(KitProduto::soma(itens).texto(), QString("18,04"));  // 10,00 + 5,00 + 2,985→2,99 + 0,05
        for (int i = 0; i < 3; ++i) {
            Transacao t(b.banco());
            KitProduto::gravar(b.banco(), QStringLiteral("005"), QStringLiteral("005"), itens);
            t.commit();
        }
        QCOMPARE(KitProduto::carregar(b.banco(), QStringLiteral("005")).size(), 4);
        QVERIFY(KitProduto::carregar(b.banco(), QStringLiteral("5")).isEmpty());
        const QList<ItemKit> lidos = KitProduto::carregar(b.banco(), QStringLiteral("005"));
        QCOMPARE(lidos.at(2).quantidade.texto(), QString("1,5"));
        QCOMPARE(lidos.at(2).total().texto(), QString("2,99"));

        KitProduto::gravar(b.banco(), QStringLiteral("005"), QStringLiteral("006"), itens.mid(0, 2));
        QVERIFY(KitProduto::carregar(b.banco(), QStringLiteral("005")).isEmpty());
        QCOMPARE(KitProduto::carregar(b.banco(), QStringLiteral("006")).size(), 2);

        produto(b.banco(), QStringLiteral("006"), -1);
        KitProduto::excluirSemProduto(b.banco(), QStringLiteral("006"));
        QCOMPARE(KitProduto::carregar(b.banco(), QStringLiteral("006")).size(), 2);
        b->executar(QStringLiteral("DELETE FROM Produto"));
        KitProduto::excluirSemProduto(b.banco(), QStringLiteral("006"));
        QVERIFY(KitProduto::carregar(b.banco(), QStringLiteral("006")).isEmpty());
    }

    void reajuste_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("porcentagem");
        QTest::addColumn<qint64>("valor");
        QTest::addColumn<QString>("categoria");
        QTest::addColumn<QStringList>("esperado");  // A, B, C, D after the apply
        for (Motor m : {Motor::SQLite, Motor::PostgreSQL}) {
            const QString e = m == Motor::SQLite ? "sqlite: " : "postgres: ";
            QTest::newRow(qPrintable(e + "+10% prices each from its own price"))
                << int(m) << true << qint64(1000) << "" << QStringList{"8,80", "33,00", "11,50", "0,00"};
            QTest::newRow(qPrintable(e + "-10% rounds half away from zero"))
                << int(m) << true << qint64(-1000) << "" << QStringList{"7,20", "27,00", "9,40", "0,00"};
            QTest::newRow(qPrintable(e + "category TV leaves SUPORTE TV alone"))
                << int(m) << true << qint64(1000) << "TV" << QStringList{"8,80", "30,00", "10,45", "0,00"};
            QTest::newRow(qPrintable(e + "amount mode adds to each"))
                << int(m) << false << qint64(150) << "" << QStringList{"9,50", "31,50", "11,95", "1,50"};
        }
    }
    void reajuste()
    {
        QFETCH(bool, porcentagem);
        QFETCH(qint64, valor);
        QFETCH(QString, categoria);
        QFETCH(QStringList, esperado);
        BANCO_DO_MOTOR(b);
        comPreco(b.banco(), "A", "TV 29''", "TV", 800);
        comPreco(b.banco(), "B", "SUPORTE TV", "FERRAGENS", 3000);
        comPreco(b.banco(), "C", "D'ÁVILA PEÇAS", "", 1045);
        comPreco(b.banco(), "D", "BRINDE", "", 0);
        comPreco(b.banco(), "E", "VELHO", "TV", 5000, -1);
        const ReajustePreco::Filtro f{{}, {}, categoria};
        const ReajustePreco::Ajuste a{ReajustePreco::Coluna::Venda, porcentagem, valor};
        const auto previa = ReajustePreco::previa(b.banco(), f, a);
        QCOMPARE(ReajustePreco::aplicar(b.banco(), f, a, previa), ReajustePreco::Resultado::Aplicado);
        QStringList obtido;
        for (const char* c : {"A", "B", "C", "D"})
            obtido << Dinheiro::deCentavos(venda(b.banco(), c)).texto();
        QCOMPARE(obtido, esperado);
        for (const auto& l : previa)
            QCOMPARE(l.novo.centavos(), venda(b.banco(), l.codpeca));
        QCOMPARE(venda(b.banco(), "E"), qint64(5000));
    }

    void reajusteRecusado_data()
    {
        linhasMotores();
    }
    void reajusteRecusado()
    {
        BANCO_DO_MOTOR(b);
        comPreco(b.banco(), "A", "A", "", 800);
        comPreco(b.banco(), "B", "B", "", 3000);
        const ReajustePreco::Ajuste a{ReajustePreco::Coluna::Venda, false, -1000};
        auto previa = ReajustePreco::previa(b.banco(), {}, a);
        QCOMPARE(ReajustePreco::aplicar(b.banco(), {}, a, previa), ReajustePreco::Resultado::PrecoNegativo);
        QCOMPARE(venda(b.banco(), "B"), qint64(3000));

        const ReajustePreco::Ajuste mais{ReajustePreco::Coluna::Venda, true, 1000};
        previa = ReajustePreco::previa(b.banco(), {}, mais);
        auto outra = b.outraConexao();
        outra->executar(QStringLiteral("UPDATE Produto SET PrecoVenda = 900 WHERE codpeca = 'A'"));
        QCOMPARE(ReajustePreco::aplicar(b.banco(), {}, mais, previa), ReajustePreco::Resultado::MudouDesdeAPrevia);
        QCOMPARE(venda(b.banco(), "B"), qint64(3000));
        comPreco(b.banco(), "C", "C", "", 100);
        previa = ReajustePreco::previa(b.banco(), {}, mais);
        outra->executar(QStringLiteral("UPDATE Produto SET Excluidos = -1 WHERE codpeca = 'C'"));
        QCOMPARE(ReajustePreco::aplicar(b.banco(), {}, mais, previa), ReajustePreco::Resultado::MudouDesdeAPrevia);
        QCOMPARE(venda(b.banco(), "A"), qint64(900));
    }
};

QTEST_GUILESS_MAIN(TstProdutos)
#include "tst_produtos.moc"
