#include <QTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "orders/CatalogosOrdem.h"

class TesteCatalogosOrdem : public QObject {
    Q_OBJECT
private slots:
    void defeitoNovoTomaOProximoCodigo_data() { linhasMotores(); }
    void defeitoNovoTomaOProximoCodigo()
    {
        BANCO_DO_MOTOR(b);
        const DefeitoCatalogo primeiro = CatalogosOrdem::garantirDefeito(b.banco(), QStringLiteral("NÃO LIGA"));
        QCOMPARE(primeiro.CodDefeito, QString("1"));
        b->executar(QStringLiteral("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('12345678', 'CHIADO')"));
        const DefeitoCatalogo terceiro = CatalogosOrdem::garantirDefeito(b.banco(), QStringLiteral("SEM IMAGEM"));
        QCOMPARE(terceiro.CodDefeito, QString("2345679"));
        // The same defect typed again, in other case, is the row already there.
        const DefeitoCatalogo denovo = CatalogosOrdem::garantirDefeito(b.banco(), QStringLiteral("não liga"));
        QCOMPARE(denovo.Codigo, primeiro.Codigo);
        const QList<DefeitoCatalogo> l = CatalogosOrdem::defeitos(b.banco());
        QCOMPARE(l.size(), 3);
        QCOMPARE(l.first().Defeito, QString("CHIADO"));
    }

    void marcasETipos_data() { linhasMotores(); }
    void marcasETipos()
    {
        BANCO_DO_MOTOR(b);
        CatalogosOrdem::garantirMarca(b.banco(), QStringLiteral("PHILCO"));
        CatalogosOrdem::garantirMarca(b.banco(), QStringLiteral("philco"));
        CatalogosOrdem::garantirMarca(b.banco(), QStringLiteral("  "));
        CatalogosOrdem::garantirMarca(b.banco(), QStringLiteral("ARNO"));
        QCOMPARE(CatalogosOrdem::marcas(b.banco()), QStringList({"ARNO", "PHILCO"}));

        QCOMPARE(CatalogosOrdem::garantirTipo(b.banco(), QStringLiteral("TV 29'")), QString("TV 29\""));
        CatalogosOrdem::garantirTipo(b.banco(), QStringLiteral("TV 29\""));
        b->executar(QStringLiteral("INSERT INTO PorcenTecnico (Tipo, ValorTipo, porcentagem) VALUES ('MICRO', 1250, -1)"));
        const QList<TipoAparelho> t = CatalogosOrdem::tipos(b.banco());
        QCOMPARE(t.size(), 2);
        QCOMPARE(t.at(0).Tipo, QString("MICRO"));
        const auto micro = CatalogosOrdem::tipoPorCodigo(b.banco(), t.at(0).CodTipo);
        QVERIFY(micro && micro->porcentagem);
        QCOMPARE(micro->ValorTipo.texto(), QString("12,50"));
        QCOMPARE(t.at(1).ValorTipo.texto(), QString("0,00"));  // a kind typed at intake has only its name

        b->executar(QStringLiteral("INSERT INTO ServicoExecutado (CodServico, Servico, ValorObra, ValorObraMinimo) "
                                   "VALUES ('T1', 'TROCA DE TELA', 15000, 12000)"));
        const auto s = CatalogosOrdem::servicoPorCodigo(b.banco(), QStringLiteral(" T1 "));
        QVERIFY(s);
        QCOMPARE(s->ValorObraMinimo.texto(), QString("120,00"));
        QVERIFY(!CatalogosOrdem::servicoPorCodigo(b.banco(), QStringLiteral("T2")));
        QCOMPARE(CatalogosOrdem::servicos(b.banco()).size(), 1);
    }

    void sintomaUmaVezPorCodigo()
    {
        Ordem o;
        QVERIFY(o.adicionarSintoma({QStringLiteral("4"), QStringLiteral("CHIADO")}));
        QVERIFY(!o.adicionarSintoma({QStringLiteral("4"), QStringLiteral("CHIADO")}));
        QVERIFY(o.adicionarSintoma({QStringLiteral("5"), QStringLiteral("CHIADO")}));
        QCOMPARE(o.sintomas.size(), 2);
    }
};

QTEST_GUILESS_MAIN(TesteCatalogosOrdem)
#include "tst_catalogosordem.moc"
