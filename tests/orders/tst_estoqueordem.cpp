#include <QTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "orders/EstoqueOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioOrdens;

namespace {

// The steps of a case, one letter each: O bench save as estimate, C bench save as
// repaired, T the till's posting, + raise the first part's quantity by one.
void percorrer(Banco& b, Ordem& o, const QString& passos)
{
    for (QChar p : passos) {
        if (p == QLatin1Char('O'))
            TransicoesOrdem::salvarBancada(b, o, Situacao::Orcamento);
        else if (p == QLatin1Char('C'))
            TransicoesOrdem::salvarBancada(b, o, Situacao::Consertado);
        else if (p == QLatin1Char('T'))
            EstoqueOrdem::baixarNoCaixa(b, o.CodOsAut);
        else if (p == QLatin1Char('+'))
            o.pecas[0].Quantidade = o.pecas[0].Quantidade + Quantidade::unidades(1);
    }
}

} // namespace

class TesteEstoqueOrdem : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoCompleta(); }

    void pecaSaiUmaVez_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("quantidade");
        QTest::addColumn<QString>("passos");
        QTest::addColumn<QString>("estoqueFinal");
        const QList<QStringList> casos = {
            {"orcamento nao mexe", "P1", "2", "O", "10"},
            {"salva ja consertada com a peca nova", "P1", "2", "C", "8"},
            {"consertado duas vezes", "P1", "2", "CC", "8"},
            {"bancada e depois o caixa", "P1", "2", "CT", "8"},
            {"caixa e depois a bancada", "P1", "2", "OTC", "8"},
            {"caixa duas vezes", "P1", "1,5", "OTT", "8,5"},
            {"aumento antes do primeiro consertado sai uma vez", "P1", "2", "O+C", "7"},
            {"aumento depois da baixa leva so a diferenca", "P1", "2", "C+C", "7"},
            {"aumento depois da baixa chega ao caixa", "P1", "2", "C+OT", "7"},
            {"peca manual nao mexe", "", "2", "CT", "10"},
            {"sem codigo nao mexe", "S/COd", "2", "CT", "10"},
        };
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            for (const QStringList& c : casos)
                QTest::newRow(qPrintable((m == int(Motor::SQLite) ? "sqlite " : "postgres ") + c.at(0)))
                    << m << c.at(1) << c.at(2) << c.at(3) << c.at(4);
    }
    void pecaSaiUmaVez()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, codigo);
        QFETCH(QString, quantidade);
        QFETCH(QString, passos);
        QFETCH(QString, estoqueFinal);
        inserirProduto(b.banco(), QStringLiteral("P1"), 10);
        Ordem o = ordem(QStringLiteral("CLIENTE"));
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        o.pecas = {peca(codigo, quantidade)};
        percorrer(b.banco(), o, passos);
        QCOMPARE(estoque(b.banco(), QStringLiteral("P1")).texto(), estoqueFinal);
        const bool tirou = estoqueFinal != QLatin1String("10");
        QCOMPARE(GravacaoOrdem::carregar(b.banco(), o.CodOsAut)->pecas.at(0).BaixaEstoque, tirou);
    }

    void outraOrdemNaoMexe_data() { linhasMotores(); }
    void outraOrdemNaoMexe()
    {
        BANCO_DO_MOTOR(b);
        inserirProduto(b.banco(), QStringLiteral("P1"), 10);
        // Order 1 of "2ABC" is repaired; order 12 of "ABC" keeps its part.
        Ordem um = ordem(QStringLiteral("2ABC"));
        TransicoesOrdem::salvarEntrada(b.banco(), um, {});
        Ordem doze = ordem(QStringLiteral("ABC"));
        TransicoesOrdem::salvarEntrada(b.banco(), doze, {});
        doze.CodOs = 12;
        doze.pecas = {peca(QStringLiteral("P1"), QStringLiteral("3"))};
        TransicoesOrdem::salvarBancada(b.banco(), doze, Situacao::Orcamento);
        um.pecas = {peca(QStringLiteral("P1"), QStringLiteral("1"))};
        TransicoesOrdem::salvarBancada(b.banco(), um, Situacao::Consertado);
        QCOMPARE(estoque(b.banco(), QStringLiteral("P1")).texto(), QString("9"));
        EstoqueOrdem::baixarNoCaixa(b.banco(), doze.CodOsAut);
        QCOMPARE(estoque(b.banco(), QStringLiteral("P1")).texto(), QString("6"));
    }

    void removerPeca_data() { linhasMotores(); }
    void removerPeca()
    {
        BANCO_DO_MOTOR(b);
        inserirProduto(b.banco(), QStringLiteral("P1"), 10);
        Ordem o = ordem(QStringLiteral("CLIENTE"));
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        o.pecas = {peca(QStringLiteral("P1"), QStringLiteral("1")), peca(QStringLiteral("P2"), QStringLiteral("1"), 250)};
        TransicoesOrdem::salvarBancada(b.banco(), o, Situacao::Orcamento);
        QCOMPARE(o.ValorVenda.texto(), QString("0,00"));  // the save stores what the bench computed
        sessao().DireitoAltOrca = 0;
        try {
            TransicoesOrdem::removerPeca(o, 1);
            QFAIL("removida sem direito");
        } catch (const OrdemRecusada& e) {
            QCOMPARE(e.recusa().seguimento, Recusa::SenhaLiberaAltOs);
        }
        sessao().DireitoAltOrca = 1;
        TransicoesOrdem::removerPeca(o, 1);
        QCOMPARE(o.pecas.size(), 1);
        QCOMPARE(o.ValorVenda.texto(), QString("10,00"));
        // Still stored until the save.
        QCOMPARE(GravacaoOrdem::carregar(b.banco(), o.CodOsAut)->pecas.size(), 2);
        TransicoesOrdem::salvarBancada(b.banco(), o, Situacao::Orcamento);
        QCOMPARE(GravacaoOrdem::carregar(b.banco(), o.CodOsAut)->pecas.size(), 1);
        QVERIFY(o.pecasRemovidas.isEmpty());
        // Once under stock control only the stock screen removes it.
        TransicoesOrdem::salvarBancada(b.banco(), o, Situacao::Consertado);
        try {
            TransicoesOrdem::removerPeca(o, 0);
            QFAIL("removida sob controle de estoque");
        } catch (const OrdemRecusada& e) {
            QCOMPARE(e.recusa().titulo, QString("Controle de estoque"));
        }
        try {
            TransicoesOrdem::removerPeca(o, 5);
            QFAIL("removida sem item");
        } catch (const OrdemRecusada& e) {
            QCOMPARE(e.recusa().mensagem, QString("Não tem item"));
        }
    }

    void abaixoDoMinimo_data() { linhasMotores(); }
    void abaixoDoMinimo()
    {
        BANCO_DO_MOTOR(b);
        inserirProduto(b.banco(), QStringLiteral("P1"), 3, 2);
        Ordem o = ordem(QStringLiteral("CLIENTE"));
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        o.pecas = {peca(QStringLiteral("P1"), QStringLiteral("2"))};
        const QStringList pedidos = TransicoesOrdem::salvarBancada(b.banco(), o, Situacao::Consertado);
        QCOMPARE(pedidos, QStringList{"PECA P1"});
        QCOMPARE(b->escalar(QStringLiteral("SELECT Solicitado FROM PedidoPeca")).toString(), QString("Estoque"));
        QVERIFY(GravacaoOrdem::carregar(b.banco(), o.CodOsAut)->pecas.at(0).ControleEstoque);
    }
};

QTEST_GUILESS_MAIN(TesteEstoqueOrdem)
#include "tst_estoqueordem.moc"
