#include <QTest>

#include "ApoioCaixa.h"
#include "apoio/BancoTeste.h"
#include "apoio/OutraEstacao.h"
#include "cash/OrdemCaixa.h"
#include "cash/RegistroPagamento.h"
#include "data/Atualizacoes.h"
#include "data/Datas.h"
#include "orders/GravacaoOrdem.h"
#include "orders/Ordem.h"
#include "orders/RecusaOrdem.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioCaixa;

namespace {

// Order 57 as the cases below use it: labour 50,00; P1 2 × (30,00 − 5,00) already taken at
// the bench, P2 1 × 40,00 still in stock (5 of a minimum of 5). Total 140,00.
struct Cenario57 {
    OrdemTeste o;
    qint64 chave = 0;
    explicit Cenario57(Banco& b)
    {
        o.maoObra = 5000;
        o.venda = 9000;
        o.custo = 4000;
        o.descontoPeca = 1000;
        chave = inserirOrdem(b, o);
        inserirProduto(b, "P1", 10000);
        inserirProduto(b, "P2", 5000, 5000);
        inserirPeca(b, chave, 57, o.nome, {"P1", 2000, 3000, 500, 1000, true});
        inserirPeca(b, chave, 57, o.nome, {"P2", 1000, 4000, 0, 2000, false});
    }
};

QString recusa(Banco& b, const PagamentoCaixa& p)
{
    try {
        RegistroPagamento::gravar(b, p);
    } catch (const OrdemRecusada& r) {
        return r.recusa().seguimento == Recusa::Negado ? QStringLiteral("Negado") : r.recusa().mensagem;
    }
    return {};
}

qint64 linhasDaVenda(Banco& b)
{
    qint64 n = 0;
    for (const char* t : {"ContasReceber", "Movimento", "VendaDetalhada", "CadastroNotaFiscal", "CadastroPecasNota",
                          "PedidoPeca"})
        n += contar(b, QLatin1String(t));
    return n;
}

FormasPagamento::Parcela parcela(qint64 centavos, const QString& data)
{
    return {Dinheiro::deCentavos(centavos), *Datas::lerTela(data)};
}

} // namespace

class TesteRegistroPagamento : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoDoCaixa(); }

    void entregaTipica_data() { linhasMotores(); }
    void entregaTipica()
    {
        BANCO_DO_MOTOR(b);
        Cenario57 c(b.banco());
        PagamentoCaixa p = pagamento(c.chave, c.o);
        p.forma = QStringLiteral("CHEQUE-PRÉ 30/60/90");
        p.cheque = true;
        p.parcelas = {parcela(4666, "28/02/2025"), parcela(4666, "28/03/2025"), parcela(4668, "28/04/2025")};
        const auto r = RegistroPagamento::gravar(b.banco(), p);
        QVERIFY(r.lancou);
        QCOMPARE(r.reposicao, QStringList{"PECA P2"});

        QSqlQuery q = b->executar("SELECT NumeroParcela, ValorParcela, DataVencimento, ValorTotal, CodCliente, TipoVenda, "
                                  "TipoPagamento, CodVenda FROM ContasReceber ORDER BY DataVencimento");
        const QStringList esperadas = {"1 de 3|4666|2025/02/28", "2 de 3|4666|2025/03/28", "3 de 3|4668|2025/04/28"};
        for (const QString& e : esperadas) {
            QVERIFY(q.next());
            QCOMPARE(QStringList({q.value(0).toString(), q.value(1).toString(), q.value(2).toString()}).join('|'), e);
            QCOMPARE(q.value(3).toLongLong(), 14000);
            QCOMPARE(q.value(4).toString(), QStringLiteral("15"));
            QCOMPARE(q.value(5).toString(), QStringLiteral("Conserto"));
            QCOMPARE(q.value(6).toString(), QStringLiteral("CHEQUE-PRÉ 30/60/90"));
            QCOMPARE(q.value(7).toString(), QStringLiteral("57"));
        }
        QVERIFY(!q.next());

        QCOMPARE(estoque(b.banco(), "P1"), 10000);  // taken at the bench already
        QCOMPARE(estoque(b.banco(), "P2"), 4000);
        QCOMPARE(contar(b.banco(), "CadastroPecasNota", "NumeroOS = 57 AND TipoVenda = 'O.S: 57'"), 2);
        QCOMPARE(contar(b.banco(), "VendaDetalhada", "CodOsAut = ? AND CodVenda = 57", {c.chave}), 3);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = -1"), 2);
        QCOMPARE(contar(b.banco(), "PedidoPeca", "Descricao = 'PECA P2' AND Solicitado = 'Estoque'"), 1);

        QSqlQuery mo = b->executar(
            "SELECT Descricao, MaoObra, TipoPagamento, Departamento, Fornecedor, Vendedor, CodTec, CodCli, "
            "ValorPorcentagem, Quantidade FROM VendaDetalhada WHERE codpeca = ''");
        QVERIFY(mo.next());
        QCOMPARE(mo.value(0).toString(), QStringLiteral("MÃO DE OBRA O.S: 57"));
        QCOMPARE(mo.value(1).toLongLong(), 5000);
        QCOMPARE(mo.value(2).toString(), QStringLiteral("CHEQUE-PRÉ 30/60/90"));
        QCOMPARE(mo.value(3).toString(), QStringLiteral("Oficina"));
        QCOMPARE(mo.value(4).toString(), QStringLiteral("Oficina"));
        QCOMPARE(mo.value(5).toString(), QStringLiteral("ANA"));
        QCOMPARE(mo.value(6).toString(), QStringLiteral("8"));
        QCOMPARE(mo.value(7).toString(), QStringLiteral("15"));
        QCOMPARE(mo.value(8).toLongLong(), 1000);
        QCOMPARE(mo.value(9).toLongLong(), 1000);
        QVERIFY(!mo.next());
        QSqlQuery pc = b->executar("SELECT Quantidade, PecaDesconto, ValorVenda, ValorTotal, Modulo FROM VendaDetalhada "
                                   "WHERE codpeca = 'P1'");
        QVERIFY(pc.next());
        QCOMPARE(QStringList({pc.value(0).toString(), pc.value(1).toString(), pc.value(2).toString(),
                              pc.value(3).toString(), pc.value(4).toString()}).join('|'),
                 QStringLiteral("2000|500|3000|5000|TV"));

        QSqlQuery nf = b->executar("SELECT ValorTotal, ValorPeca, ValorCusto, ValorDescontoPeca, ValorMaoobra, ValorTroco, "
                                   "CpfCnpj, FormaPagamento, Finalizado FROM CadastroNotaFiscal");
        QVERIFY(nf.next());
        QCOMPARE(QStringList({nf.value(0).toString(), nf.value(1).toString(), nf.value(2).toString(),
                              nf.value(3).toString(), nf.value(4).toString(), nf.value(5).toString(),
                              nf.value(6).toString(), nf.value(8).toString()}).join('|'),
                 QStringLiteral("14000|9000|4000|1000|5000|-14000|11144477735|1"));
        QVERIFY(!nf.next());

        QSqlQuery mv = b->executar("SELECT ValorTotal, ValorPagar, ValorPago, ValorDiferenca, ValorMaoobra, ValorPeca, "
                                   "ValorCusto, CodOsAut, CodVenda, TipoVenda, Funcionario, Pagamento, Data "
                                   "FROM Movimento");
        QVERIFY(mv.next());
        QCOMPARE(mv.value(0).toLongLong(), 14000);
        QCOMPARE(mv.value(1).toLongLong(), 14000);
        QCOMPARE(mv.value(2).toLongLong(), 0);
        QCOMPARE(mv.value(3).toLongLong(), -14000);
        QCOMPARE(mv.value(4).toLongLong(), 5000);
        QCOMPARE(mv.value(5).toLongLong(), 9000);
        QCOMPARE(mv.value(6).toLongLong(), 4000);
        QCOMPARE(mv.value(7).toLongLong(), c.chave);
        QCOMPARE(mv.value(8).toLongLong(), 57);
        QCOMPARE(mv.value(9).toString(), QStringLiteral("Conserto"));
        QCOMPARE(mv.value(10).toString(), QStringLiteral("ANA"));
        QCOMPARE(mv.value(11).toString(), QStringLiteral("CHEQUE-PRÉ 30/60/90"));
        QCOMPARE(mv.value(12).toString(), Datas::hoje());
        QVERIFY(!mv.next());

        const auto o = OrdensCaixa::ler(b.banco(), c.chave);
        QVERIFY(o->Saida);
        QCOMPARE(o->DataSaida, Datas::hoje());
        QVERIFY(o->Armazenado.startsWith(QLatin1String("Saiu ")));
        QCOMPARE(o->Pendurado, 0);
        QVERIFY(o->Lancada);
        QCOMPARE(o->ValorLancado.centavos(), 14000);
        QCOMPARE(coluna(b.banco(), "SELECT DtEntrega FROM OrdemServico").toInt(), -1);
        QCOMPARE(coluna(b.banco(), "SELECT OsAlterado FROM OrdemServico").toString(), QStringLiteral("ANA"));
    }

    // Each refusal leaves the store as it was: no row, no stock, the order open.
    void recusas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("esperado");
        const QList<QStringList> casos = {
            {"sem DireitoOsSaiAl", "Negado"},
            {"ja entregue", RegistroPagamento::MsgJaEntregue},
            {"excluida", RegistroPagamento::MsgExcluida},
            {"valor alterado em outra estacao", RegistroPagamento::MsgValorAlterado},
            {"pendurada sem CPF", RegistroPagamento::MsgInformeCpf},
            {"desconto acima do total", RegistroPagamento::MsgDescontoMaior},
        };
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            for (const QStringList& c : casos)
                QTest::newRow(qPrintable((m == int(Motor::SQLite) ? "sqlite " : "postgres ") + c.at(0)))
                    << m << c.at(0) << c.at(1);
    }
    void recusas()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, caso);
        QFETCH(QString, esperado);
        Cenario57 c(b.banco());
        PagamentoCaixa p = pagamento(c.chave, c.o);
        p.codCliente.clear();  // a new customer would be created
        p.forma = QStringLiteral("30/60 DIAS");
        p.parcelas = {parcela(7000, "28/02/2025"), parcela(7000, "28/03/2025")};
        if (caso == QLatin1String("sem DireitoOsSaiAl"))
            sessao().DireitoOsSaiAl = 0;
        else if (caso == QLatin1String("ja entregue"))
            b->executar("UPDATE OrdemServico SET Saida = -1, DataSaida = '2025/01/20'");
        else if (caso == QLatin1String("excluida"))
            b->executar("UPDATE OrdemServico SET Excluidos = -1");
        else if (caso == QLatin1String("valor alterado em outra estacao"))
            b->executar("UPDATE OrdemServico SET MaoObra = 6000, ValorPagar = 15000");
        else if (caso == QLatin1String("pendurada sem CPF")) {
            p.pendurar = true;
            p.cpfCnpj.clear();
        } else if (caso == QLatin1String("desconto acima do total"))
            dinheiro(p, 0, 14001);
        const qint64 saida = coluna(b.banco(), "SELECT Saida FROM OrdemServico").toLongLong();
        QCOMPARE(recusa(b.banco(), p), esperado);
        QCOMPARE(linhasDaVenda(b.banco()), 0);
        QCOMPARE(contar(b.banco(), "Cliente"), 0);
        QCOMPARE(estoque(b.banco(), "P2"), 5000);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada <> 0 OR BaixaEstoque = 0"), 1);
        QCOMPARE(coluna(b.banco(), "SELECT Saida FROM OrdemServico").toLongLong(), saida);
        QCOMPARE(coluna(b.banco(), "SELECT Lancada FROM OrdemServico").toLongLong(), 0);
    }

    // The amounts of the till as the rows keep them.
    void valores_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<qint64>("pago");
        QTest::addColumn<qint64>("desconto");
        QTest::addColumn<qint64>("diferenca");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "dinheiro com troco")) << m << qint64(16000) << qint64(0) << qint64(2000);
            QTest::newRow(qPrintable(e + "valor exato")) << m << qint64(14000) << qint64(0) << qint64(0);
            QTest::newRow(qPrintable(e + "desconto")) << m << qint64(13000) << qint64(1000) << qint64(0);
            QTest::newRow(qPrintable(e + "pago a menor")) << m << qint64(10000) << qint64(0) << qint64(-4000);
        }
    }
    void valores()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(qint64, pago);
        QFETCH(qint64, desconto);
        QFETCH(qint64, diferenca);
        Cenario57 c(b.banco());
        PagamentoCaixa p = pagamento(c.chave, c.o);
        dinheiro(p, pago, desconto);
        RegistroPagamento::gravar(b.banco(), p);
        QCOMPARE(contar(b.banco(), "ContasReceber"), 0);  // cash leaves no receivable
        QCOMPARE(coluna(b.banco(), "SELECT ValorDiferenca FROM Movimento").toLongLong(), diferenca);
        QCOMPARE(coluna(b.banco(), "SELECT ValorDesconto FROM Movimento").toLongLong(), desconto);
        QCOMPARE(coluna(b.banco(), "SELECT ValorPago FROM Movimento").toLongLong(), pago);
        QCOMPARE(coluna(b.banco(), "SELECT ValorTroco FROM CadastroNotaFiscal").toLongLong(), diferenca);
        QCOMPARE(coluna(b.banco(), "SELECT ValorPago FROM OrdemServico").toLongLong(), pago);
        QCOMPARE(coluna(b.banco(), "SELECT ValorDesconto FROM OrdemServico").toLongLong(), desconto);
    }

    // 150,00 with nothing paid, "30/60 DIAS" picked before the debt was hung.
    void dividaPendurada_data() { linhasMotores(); }
    void dividaPendurada()
    {
        BANCO_DO_MOTOR(b);
        OrdemTeste o;
        o.maoObra = 15000;
        const qint64 chave = inserirOrdem(b.banco(), o);
        PagamentoCaixa p = pagamento(chave, o);
        p.parcelas = {parcela(7500, "28/02/2025"), parcela(7500, "28/03/2025")};
        p.pendurar = true;
        p.forma = FormasPagamento::PagarDepois;
        p.vencimentoPendurado = QDate(2025, 2, 10);
        RegistroPagamento::gravar(b.banco(), p);
        QSqlQuery q = b->executar("SELECT ValorParcela, DataVencimento, NumeroParcela, Pendurado, TipoPagamento, "
                                  "ValorTotal, CodCliente FROM ContasReceber");
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toLongLong(), 15000);
        QCOMPARE(q.value(1).toString(), QStringLiteral("2025/02/10"));
        QCOMPARE(q.value(2).toString(), QStringLiteral("1 de 1"));
        QCOMPARE(q.value(3).toLongLong(), 1);
        QCOMPARE(q.value(4).toString(), QStringLiteral("Pagar depois"));
        QCOMPARE(q.value(5).toLongLong(), 15000);
        QCOMPARE(q.value(6).toString(), QStringLiteral("15"));
        QVERIFY(!q.next());
        QCOMPARE(coluna(b.banco(), "SELECT Pendurado FROM OrdemServico").toLongLong(), 1);
    }

    // A customer typed at the till becomes a register row, its document kept as digits.
    void clienteNovo_data() { linhasMotores(); }
    void clienteNovo()
    {
        BANCO_DO_MOTOR(b);
        b->inserir(*Esquema::tabela("Cliente"), {"CodCliente", "NomeCliente"}, {41, QStringLiteral("JULIANA")});
        OrdemTeste o;
        o.nome = QStringLiteral("JOANA D'ARC");
        o.codCliente.clear();
        o.cpf.clear();
        o.maoObra = 10000;
        const qint64 chave = inserirOrdem(b.banco(), o);
        PagamentoCaixa p = pagamento(chave, o);
        p.cpfCnpj = QStringLiteral("11144477735");
        p.endereco = QStringLiteral("RUA DO ALFERES D'OESTE");
        dinheiro(p, 10000);
        const auto r = RegistroPagamento::gravar(b.banco(), p);
        QCOMPARE(r.codCliente, QStringLiteral("42"));
        QCOMPARE(coluna(b.banco(), "SELECT CnpjCpf FROM Cliente WHERE CodCliente = 42").toString(),
                 QStringLiteral("11144477735"));
        QCOMPARE(coluna(b.banco(), "SELECT NomeCliente FROM Cliente WHERE CodCliente = 42").toString(),
                 QStringLiteral("JOANA D'ARC"));
        QCOMPARE(coluna(b.banco(), "SELECT CpfCnpj FROM OrdemServico").toString(), QStringLiteral("11144477735"));
        QCOMPARE(coluna(b.banco(), "SELECT CodCliente FROM OrdemServico").toString(), QStringLiteral("42"));
        QCOMPARE(coluna(b.banco(), "SELECT CodCliente FROM Movimento").toString(), QStringLiteral("42"));
    }

    // The store fails at the cash movement: nothing of the save stays.
    void falhaNoMovimento_data() { linhasMotores(); }
    void falhaNoMovimento()
    {
        BANCO_DO_MOTOR(b);
        Cenario57 c(b.banco());
        if (b->motor() == Motor::SQLite) {
            b->executar("CREATE TRIGGER falha BEFORE INSERT ON Movimento BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        } else {
            b->executar("CREATE FUNCTION falha() RETURNS trigger AS $$ BEGIN RAISE EXCEPTION 'disco cheio'; END $$ "
                        "LANGUAGE plpgsql");
            b->executar("CREATE TRIGGER falha BEFORE INSERT ON Movimento FOR EACH ROW EXECUTE FUNCTION falha()");
        }
        PagamentoCaixa p = pagamento(c.chave, c.o);
        p.codCliente.clear();
        p.forma = QStringLiteral("30/60 DIAS");
        p.parcelas = {parcela(7000, "28/02/2025"), parcela(7000, "28/03/2025")};
        QVERIFY_THROWS_EXCEPTION(ErroBanco, RegistroPagamento::gravar(b.banco(), p));
        QCOMPARE(linhasDaVenda(b.banco()), 0);
        QCOMPARE(contar(b.banco(), "Cliente"), 0);
        QCOMPARE(estoque(b.banco(), "P2"), 5000);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = 0"), 2);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "BaixaEstoque = 0"), 1);
        const auto o = OrdensCaixa::ler(b.banco(), c.chave);
        QVERIFY(!o->entregue());
        QVERIFY(!o->Lancada);
    }

    // Orders 12 and 112 of "ANA" and house call 12 of "ANA": only order 12 is posted.
    void soAPropriaOrdem_data() { linhasMotores(); }
    void soAPropriaOrdem()
    {
        BANCO_DO_MOTOR(b);
        OrdemTeste o12, o112;
        o12.codOs = 12;
        o112.codOs = 112;
        o12.maoObra = o112.maoObra = 1000;
        o12.venda = 2000;
        o112.venda = 3000;
        const qint64 k12 = inserirOrdem(b.banco(), o12);
        const qint64 k112 = inserirOrdem(b.banco(), o112);
        for (const char* cod : {"A12", "A112", "V12"})
            inserirProduto(b.banco(), QLatin1String(cod), 10000);
        inserirPeca(b.banco(), k12, 12, "ANA", {"A12", 1000, 2000});
        inserirPeca(b.banco(), k112, 112, "ANA", {"A112", 1000, 3000});
        inserirPeca(b.banco(), 0, 12, "ANA", {"V12", 1000, 1500}, 12);
        RegistroPagamento::gravar(b.banco(), pagamento(k12, o12));
        QCOMPARE(estoque(b.banco(), "A12"), 9000);
        QCOMPARE(estoque(b.banco(), "A112"), 10000);
        QCOMPARE(estoque(b.banco(), "V12"), 10000);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = 0 AND BaixaEstoque = 0"), 2);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "codpeca = 'A12' AND Lancada = -1"), 1);
        QCOMPARE(contar(b.banco(), "CadastroPecasNota"), 1);
        QCOMPARE(contar(b.banco(), "CadastroPecasNota", "codpeca = 'A12'"), 1);
        QCOMPARE(contar(b.banco(), "VendaDetalhada", "codpeca IN ('A112', 'V12')"), 0);
        QCOMPARE(contar(b.banco(), "OrdemServico", "Saida = 0"), 1);
        QVERIFY(!OrdensCaixa::ler(b.banco(), k112)->entregue());
    }

    // Two stations load order 57 and both record it: one movement, the second refused.
    void duasEstacoes_data() { linhasMotores(); }
    void duasEstacoes()
    {
        BANCO_DO_MOTOR(b);
        Cenario57 c(b.banco());
        auto outra = b.outraConexao();
        const PagamentoCaixa p = pagamento(c.chave, c.o);
        RegistroPagamento::gravar(b.banco(), p);
        QCOMPARE(recusa(*outra, p), RegistroPagamento::MsgJaEntregue);
        QCOMPARE(contar(b.banco(), "Movimento"), 1);
        QCOMPARE(contar(b.banco(), "VendaDetalhada"), 3);
        QCOMPARE(estoque(b.banco(), "P2"), 4000);
    }

    // The other station's till is in the middle of closing order 57: this one waits for it
    // and then finds the order delivered, so it posts nothing.
    void outraEstacaoNoMeioDaGravacao_data() { linhasMotores(); }
    void outraEstacaoNoMeioDaGravacao()
    {
        BANCO_DO_MOTOR(b);
        Cenario57 c(b.banco());
        OutraEstacaoGravando outra(b, QStringLiteral("UPDATE OrdemServico SET Saida = -1, DataSaida = '2025/01/31' "
                                                     "WHERE CodOsAut = %1").arg(c.chave), 1500);
        QCOMPARE(recusa(b.banco(), pagamento(c.chave, c.o)), RegistroPagamento::MsgJaEntregue);
        QCOMPARE(outra.terminar(), QString());
        QCOMPARE(linhasDaVenda(b.banco()), 0);
        QCOMPARE(estoque(b.banco(), "P2"), 5000);
    }

    // Order 57 posted at 140,00 on "30/60 DIAS", the first 70,00 paid, reopened with 30,00
    // more labour: only the 30,00 is posted; then, reopened with nothing new, it is only closed.
    void reabertaLancaSoONovo_data() { linhasMotores(); }
    void reabertaLancaSoONovo()
    {
        BANCO_DO_MOTOR(b);
        Cenario57 c(b.banco());
        PagamentoCaixa p = pagamento(c.chave, c.o);
        p.forma = QStringLiteral("30/60 DIAS");
        p.parcelas = {parcela(7000, "28/02/2025"), parcela(7000, "28/03/2025")};
        dinheiro(p, 0);
        RegistroPagamento::gravar(b.banco(), p);
        b->executar("UPDATE ContasReceber SET Quitado = -1, ValorRecebido = 7000 WHERE NumeroParcela = '1 de 2'");
        b->executar("UPDATE OrdemServico SET Saida = 0, DataSaida = '', MaoObra = 8000, ValorPagar = 17000");

        const auto reaberta = OrdensCaixa::ler(b.banco(), c.chave);
        QCOMPARE(reaberta->aCobrar().texto(), QStringLiteral("30,00"));
        PagamentoCaixa p2 = p;
        p2.valorPagarLido = reaberta->ValorPagar;
        p2.total = reaberta->aCobrar();
        p2.forma = QStringLiteral("DINHEIRO-VISTA");
        p2.parcelas.clear();
        dinheiro(p2, 3000);
        QVERIFY(RegistroPagamento::gravar(b.banco(), p2).lancou);

        QCOMPARE(contar(b.banco(), "Movimento"), 2);
        QCOMPARE(coluna(b.banco(), "SELECT ValorTotal FROM Movimento ORDER BY Codmov DESC LIMIT 1").toLongLong(), 3000);
        QCOMPARE(coluna(b.banco(), "SELECT ValorPeca FROM Movimento ORDER BY Codmov DESC LIMIT 1").toLongLong(), 0);
        QCOMPARE(contar(b.banco(), "VendaDetalhada"), 4);
        QCOMPARE(contar(b.banco(), "VendaDetalhada", "codpeca = '' AND MaoObra = 3000"), 1);
        QCOMPARE(contar(b.banco(), "CadastroPecasNota"), 2);
        QCOMPARE(estoque(b.banco(), "P2"), 4000);
        QCOMPARE(contar(b.banco(), "ContasReceber", "ValorParcela = 7000"), 2);
        QCOMPARE(contar(b.banco(), "ContasReceber", "Quitado = -1"), 1);
        QCOMPARE(coluna(b.banco(), "SELECT ValorPago FROM OrdemServico").toLongLong(), 3000);
        QCOMPARE(coluna(b.banco(), "SELECT ValorLancado FROM OrdemServico").toLongLong(), 17000);

        b->executar("UPDATE OrdemServico SET Saida = 0, DataSaida = ''");
        PagamentoCaixa p3 = p2;
        p3.valorPagarLido = Dinheiro::deCentavos(17000);
        p3.total = OrdensCaixa::ler(b.banco(), c.chave)->aCobrar();
        QCOMPARE(p3.total.centavos(), 0);
        dinheiro(p3, 0);
        QVERIFY(!RegistroPagamento::gravar(b.banco(), p3).lancou);
        QCOMPARE(contar(b.banco(), "Movimento"), 2);
        QCOMPARE(contar(b.banco(), "VendaDetalhada"), 4);
        QVERIFY(OrdensCaixa::ler(b.banco(), c.chave)->entregue());
    }

    // Parts typed oddly: a fraction of a metre, a code with letters, quotes in the text.
    void pecasDiferentes_data() { linhasMotores(); }
    void pecasDiferentes()
    {
        BANCO_DO_MOTOR(b);
        OrdemTeste o;
        o.venda = 1500 + 4000;
        const qint64 chave = inserirOrdem(b.banco(), o);
        inserirProduto(b.banco(), "CABO", 10000);
        inserirProduto(b.banco(), "ABC123", 3000);
        inserirPeca(b.banco(), chave, 57, "ANA", {"CABO", 1500, 1000});
        inserirPeca(b.banco(), chave, 57, "ANA", {"ABC123", 1000, 4000, 0, 0, false, QStringLiteral("TELA 14''")});
        inserirPeca(b.banco(), chave, 57, "ANA", {"0000", 1000, 0});
        RegistroPagamento::gravar(b.banco(), pagamento(chave, o));
        QCOMPARE(estoque(b.banco(), "CABO"), 8500);
        QCOMPARE(estoque(b.banco(), "ABC123"), 2000);
        QCOMPARE(coluna(b.banco(), "SELECT Quantidade FROM VendaDetalhada WHERE codpeca = 'CABO'").toLongLong(), 1500);
        QCOMPARE(coluna(b.banco(), "SELECT Descricao FROM CadastroPecasNota WHERE codpeca = 'ABC123'").toString(),
                 QStringLiteral("TELA 14''"));
        QCOMPARE(contar(b.banco(), "CadastroPecasNota"), 3);
    }

    // An older store: the order that left through the till counts as posted; one that left
    // without money (refused) and one still in the shop do not.
    void ordensAntigasContamComoLancadas_data() { linhasMotores(); }
    void ordensAntigasContamComoLancadas()
    {
        BANCO_DO_MOTOR(b);
        OrdemTeste o;
        o.maoObra = 5000;
        o.venda = 2000;
        const qint64 paga = inserirOrdem(b.banco(), o);
        o.codOs = 58;
        const qint64 recusada = inserirOrdem(b.banco(), o);
        o.codOs = 59;
        const qint64 aberta = inserirOrdem(b.banco(), o);
        for (qint64 k : {paga, recusada, aberta})
            inserirPeca(b.banco(), k, 0, "ANA", {"P1", 1000, 2000});
        b->executar("UPDATE OrdemServico SET Saida = -1, DataSaida = '2024/06/01' WHERE CodOs IN (57, 58)");
        b->inserir(*Esquema::tabela("Movimento"), {"CodVenda", "NomeCliente", "TipoVenda", "ValorTotal"},
                   {57, QStringLiteral("ANA"), QStringLiteral("Conserto"), 7000});
        b->inserir(*Esquema::tabela("Movimento"), {"CodVenda", "NomeCliente", "TipoVenda", "ValorTotal"},
                   {58, QStringLiteral("JOSE"), QStringLiteral("Conserto"), 7000});
        Atualizacoes::lancamentosAnteriores(b.banco());
        const auto p = OrdensCaixa::ler(b.banco(), paga);
        QVERIFY(p->Lancada);
        QCOMPARE(p->ValorLancado.centavos(), 7000);
        QCOMPARE(p->MaoObraLancada.centavos(), 5000);
        QVERIFY(!OrdensCaixa::ler(b.banco(), recusada)->Lancada);
        QVERIFY(!OrdensCaixa::ler(b.banco(), aberta)->Lancada);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = -1 AND CodOsAut = ?", {paga}), 1);
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = -1"), 1);
        b->executar("UPDATE OrdemServico SET Saida = 0, DataSaida = '' WHERE CodOs = 57");
        QCOMPARE(OrdensCaixa::ler(b.banco(), paga)->aCobrar().centavos(), 0);
    }

    // A store from before the till kept its postings gets the columns when opened.
    void lojaAntigaGanhaAsColunas_data() { linhasMotores(); }
    void lojaAntigaGanhaAsColunas()
    {
        BANCO_DO_MOTOR(b);
        for (const char* c : {"Lancada", "ValorLancado", "MaoObraLancada"})
            b->executar(QStringLiteral("ALTER TABLE OrdemServico DROP COLUMN %1").arg(QLatin1String(c)));
        b->executar("ALTER TABLE PecasAplicadas DROP COLUMN Lancada");
        QVERIFY(b->garantirEsquema() >= 2);
        Cenario57 c(b.banco());
        RegistroPagamento::gravar(b.banco(), pagamento(c.chave, c.o));
        QCOMPARE(contar(b.banco(), "PecasAplicadas", "Lancada = -1"), 2);
        QCOMPARE(OrdensCaixa::ler(b.banco(), c.chave)->ValorLancado.centavos(), 14000);
    }

    // Refused and warranty orders leave at the counter without the till: no money, no
    // stock, no sale rows. Only an approved one goes to the till.
    void semDinheiroNaEntrega_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("estado");
        QTest::addColumn<bool>("vaiAoCaixa");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "recusada")) << m << "Aprovado = 0, Recusado = -1" << false;
            QTest::newRow(qPrintable(e + "garantia aprovada")) << m << "Aprovado = -1, Garantia = -1" << false;
            QTest::newRow(qPrintable(e + "aprovada")) << m << "Aprovado = -1" << true;
        }
    }
    void semDinheiroNaEntrega()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, estado);
        QFETCH(bool, vaiAoCaixa);
        Cenario57 c(b.banco());
        b->executar(QStringLiteral("UPDATE OrdemServico SET %1").arg(estado));
        Ordem o = *GravacaoOrdem::carregar(b.banco(), c.chave);
        QCOMPARE(TransicoesOrdem::entregar(o), vaiAoCaixa);
        if (vaiAoCaixa)
            RegistroPagamento::gravar(b.banco(), pagamento(c.chave, c.o));
        else
            TransicoesOrdem::salvarEntrega(b.banco(), o);
        QCOMPARE(contar(b.banco(), "Movimento"), vaiAoCaixa ? 1 : 0);
        QCOMPARE(contar(b.banco(), "VendaDetalhada"), vaiAoCaixa ? 3 : 0);
        QCOMPARE(estoque(b.banco(), "P2"), vaiAoCaixa ? 4000 : 5000);
        QVERIFY(OrdensCaixa::ler(b.banco(), c.chave)->entregue());
        QCOMPARE(OrdensCaixa::ler(b.banco(), c.chave)->Lancada, vaiAoCaixa);
    }

    void planos_data()
    {
        QTest::addColumn<QString>("forma");
        QTest::addColumn<qint64>("devido");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("100,00 menos 10,00 em 30/60/90") << "30/60/90 DIAS" << qint64(9000)
                                                        << "30,00 28/02/2025;30,00 28/03/2025;30,00 28/04/2025";
        QTest::newRow("150,75 em 30/60") << "30/60 DIAS" << qint64(15075) << "75,37 28/02/2025;75,38 28/03/2025";
        QTest::newRow("30 dias guarda os centavos") << "30 DIAS" << qint64(15075) << "150,75 28/02/2025";
        QTest::newRow("15 dias") << "CHEQUE-PRÉ 15" << qint64(5000) << "50,00 15/02/2025";
        QTest::newRow("100,00 em 30/60/90 soma o total") << "CHEQUE-PRÉ 30/60/90" << qint64(10000)
                                                         << "33,33 28/02/2025;33,33 28/03/2025;33,34 28/04/2025";
        QTest::newRow("4 parcelas") << "30/60/90/120 DIAS" << qint64(100)
                                    << "0,25 28/02/2025;0,25 28/03/2025;0,25 28/04/2025;0,25 28/05/2025";
        QTest::newRow("a vista nao tem parcelas") << "CHEQUE-VISTA" << qint64(5000) << "";
        QTest::newRow("cartao nao tem parcelas") << "CARTÃO CRÉDITO" << qint64(5000) << "";
    }
    void planos()
    {
        QFETCH(QString, forma);
        QFETCH(qint64, devido);
        QFETCH(QString, esperado);
        const FormasPagamento::Forma* f = FormasPagamento::porTexto(forma);
        QVERIFY(f);
        QStringList r;
        for (const auto& pc : FormasPagamento::plano(*f, Dinheiro::deCentavos(devido), QDate(2025, 1, 31)))
            r << pc.valor.texto() + ' ' + pc.vencimento.toString("dd/MM/yyyy");
        QCOMPARE(r.join(';'), esperado);
        QVERIFY(!FormasPagamento::porTexto(FormasPagamento::PagarDepois));
    }

    void valorEmCheque_data()
    {
        QTest::addColumn<qint64>("total");
        QTest::addColumn<qint64>("desconto");
        QTest::addColumn<qint64>("pago");
        QTest::addColumn<qint64>("cheque");
        QTest::newRow("nada pago") << qint64(10000) << qint64(1000) << qint64(0) << qint64(9000);
        QTest::newRow("entrada em dinheiro") << qint64(10000) << qint64(1000) << qint64(4000) << qint64(5000);
        QTest::newRow("pago quitado pelo desconto") << qint64(10000) << qint64(1000) << qint64(9000) << qint64(9000);
    }
    void valorEmCheque()
    {
        QFETCH(qint64, total);
        QFETCH(qint64, desconto);
        QFETCH(qint64, pago);
        QFETCH(qint64, cheque);
        PagamentoCaixa p;
        p.total = Dinheiro::deCentavos(total);
        dinheiro(p, pago, desconto);
        QCOMPARE(p.valorEmCheque().centavos(), cheque);
    }
};

QTEST_GUILESS_MAIN(TesteRegistroPagamento)
#include "tst_registropagamento.moc"
