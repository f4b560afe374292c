#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/ArquivosTeste.h"
#include "apoio/BancoTeste.h"
#include "cash/MovimentoCaixa.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Funcoes.h"
#include "data/Local.h"
#include "maintenance/GeradorDados.h"
#include "maintenance/LojaExemplo.h"
#include "orders/ListasPainel.h"
#include "shell/AmbienteShell.h"
#include "shell/Usuarios.h"

// The sample shop as the generator leaves it, on both engines, at its own size: 420 orders,
// the newest 121 still in the shop.
class TesteGeradorDados : public QObject {
    Q_OBJECT

    const QDate hoje{2026, 11, 24};

    void gera(Banco& b) { GeradorDados::lojaExemplo(b, hoje); }
    static qint64 conta(Banco& b, const QString& sql) { return b.escalar(sql).toLongLong(); }

private slots:
    // Worked by hand from the rules of the fill: the open orders take the eleven
    // situations in turn (11 each), orders 334 and 381 (a repaired one and a refused
    // repaired one) are in the bin; of the 299 closed, every tenth went back unrepaired,
    // the next one was a warranty repair, the rest were delivered.
    void situacoes_data() { linhasMotores(); }
    void situacoes()
    {
        BANCO_DO_MOTOR(t);
        gera(t.banco());
        const QList<std::tuple<const char*, QString, int>> linhas = {
            {"na fila", "Consertado = 0 AND Orcamento = 0 AND AguardaPeca = 0 AND Devolver = 0 AND Aprovado = 0 "
                        "AND Recusado = 0 AND Garantia = 0 AND Fabrica = 0 AND ChamadoTecnico = 0", 11},
            {"orçamento sem resposta", "Orcamento = -1 AND Aprovado = 0 AND Recusado = 0", 11},
            {"autorizado", "Aprovado = -1 AND Consertado = 0 AND AguardaPeca = 0 AND Garantia = 0", 11},
            {"aguardando peça", "AguardaPeca = -1 AND Aprovado = -1", 11},
            {"consertado e autorizado", "Consertado = -1 AND Aprovado = -1 AND Garantia = 0", 10},
            {"consertado sem resposta", "Consertado = -1 AND Aprovado = 0 AND Recusado = 0", 11},
            {"a devolver", "Devolver = -1 AND Recusado = -1", 11},
            {"não autorizado", "Consertado = -1 AND Recusado = -1", 10},
            {"garantia", "Garantia = -1", 11},
            {"fábrica", "Fabrica = -1 AND CodFabrica <> ''", 11},
            {"chamado técnico", "ChamadoTecnico = -1 AND DataEntrega >= '2026/11/24'", 11},
        };
        for (const auto& [rotulo, cond, n] : linhas)
            QCOMPARE(conta(t.banco(), "SELECT COUNT(*) FROM OrdemServico WHERE Saida = 0 AND Excluidos = 0 AND " + cond),
                     qint64(n));
        const QList<std::pair<QString, int>> fechadas = {
            {"Saida = -1 AND Excluidos = 0 AND Consertado = -1 AND Garantia = 0 AND ValorPago = ValorPagar", 234},
            {"Saida = -1 AND Excluidos = 0 AND Recusado = -1 AND ValorPagar = 0", 28},   // given back unrepaired
            {"Saida = -1 AND Excluidos = 0 AND Garantia = -1", 30},
            {"Excluidos = -1", 9},
            {"DataEntrada <= '2026/11/24'", 420},
            {"Saida = -1 AND DataSaida > DataEntrada AND DataSaida <= '2026/11/24'", 299},
        };
        for (const auto& [cond, n] : fechadas)
            QCOMPARE(conta(t.banco(), "SELECT COUNT(*) FROM OrdemServico WHERE " + cond), qint64(n));
        // Each of the panel's lists has something to show.
        for (Lista l : ListasPainel::ordemAtualizacao())
            QVERIFY2(ListasPainel::contar(t.banco(), l) > 0, qPrintable(QString::number(int(l))));
    }

    // The money of each order from its parts, worked here row by row; the till's month as
    // the cash report adds it, against the deliveries of that month.
    void dinheiro_data() { linhasMotores(); }
    void dinheiro()
    {
        BANCO_DO_MOTOR(t);
        Banco& b = t.banco();
        gera(b);
        QHash<qint64, qint64> pecas;   // sale less discount, by order
        QSqlQuery p = b.executar("SELECT CodOsAut, Quantidade, ValorVenda, ValorDesconto, ValorTotal FROM PecasAplicadas");
        int linhasPecas = 0;
        while (p.next()) {
            const qint64 qtd = p.value(1).toLongLong();
            QCOMPARE(qtd % 1000, 0);
            const qint64 total = qtd / 1000 * (p.value(2).toLongLong() - p.value(3).toLongLong());
            QCOMPARE(p.value(4).toLongLong(), total);
            pecas[p.value(0).toLongLong()] += qtd / 1000 * p.value(2).toLongLong();
            ++linhasPecas;
        }
        QVERIFY(linhasPecas > 100);
        QHash<qint64, qint64> descontos;
        QSqlQuery d = b.executar("SELECT CodOsAut, Quantidade, ValorDesconto FROM PecasAplicadas");
        while (d.next())
            descontos[d.value(0).toLongLong()] += d.value(1).toLongLong() / 1000 * d.value(2).toLongLong();

        const QString inicioMes = Datas::paraBanco(hoje.addDays(-30));
        qint64 mes = 0;
        int comDesconto = 0, entreguesMes = 0;
        QSqlQuery o = b.executar("SELECT CodOsAut, MaoObra, ValorPagar, ValorDescontoPeca, Saida, Consertado, Garantia, "
                                 "Excluidos, DataSaida FROM OrdemServico");
        while (o.next()) {
            const qint64 chave = o.value(0).toLongLong();
            const qint64 pagar = o.value(2).toLongLong();
            QCOMPARE(o.value(3).toLongLong(), descontos.value(chave));
            QCOMPARE(pagar, pecas.value(chave) + o.value(1).toLongLong() - o.value(3).toLongLong());
            comDesconto += o.value(3).toLongLong() > 0;
            if (o.value(4).toInt() == -1 && o.value(5).toInt() == -1 && o.value(6).toInt() == 0
                && o.value(7).toInt() == 0 && o.value(8).toString() >= inicioMes) {
                mes += pagar;
                ++entreguesMes;
            }
        }
        QVERIFY(comDesconto > 0);
        QVERIFY2(entreguesMes >= 40, qPrintable(QString::number(entreguesMes)));

        namespace M = MovimentoCaixa;
        const M::Lista resumo = M::ler(b, M::visao(M::Visao::Simples, M::Filtro::Tudo, {}, hoje.addDays(-30), hoje));
        QCOMPARE(resumo.linhas.size(), entreguesMes);
        QCOMPARE(resumo.totais.fluxo[0].centavos(), mes);
        qint64 somaLinhas = 0;
        for (const M::Linha& l : resumo.linhas)
            somaLinhas += l.pagar.centavos();
        QCOMPARE(somaLinhas, mes);
        const M::Lista linhas = M::ler(b, M::visao(M::Visao::Detalhada, M::Filtro::Tudo, {}, hoje.addDays(-30), hoje));
        QCOMPARE((linhas.totais.vendido + linhas.totais.maoObra).centavos(), mes);
    }

    // Nothing points at a row that isn't there; documents and phones are digits, as typed
    // ones are kept; some products are under their minimum; the sample's user enters.
    void coerencia_data() { linhasMotores(); }
    void coerencia()
    {
        BANCO_DO_MOTOR(t);
        Banco& b = t.banco();
        gera(b);
        const QStringList orfaos = {
            "SELECT COUNT(*) FROM OrdemServico o WHERE NOT EXISTS (SELECT 1 FROM Cliente c WHERE CAST(c.CodCliente AS text) = o.CodCliente)",
            "SELECT COUNT(*) FROM OrdemServico o WHERE NOT EXISTS (SELECT 1 FROM Cliente c WHERE CAST(c.CodCliente AS text) = o.CodCliente "
            "AND c.NomeCliente = o.NomeCliente AND c.CnpjCpf = o.CpfCnpj)",
            "SELECT COUNT(*) FROM VisitaTecnico v WHERE NOT EXISTS (SELECT 1 FROM Cliente c WHERE CAST(c.CodCliente AS text) = v.CodCliente)",
            "SELECT COUNT(*) FROM PecasAplicadas p WHERE NOT EXISTS (SELECT 1 FROM OrdemServico o WHERE o.CodOsAut = p.CodOsAut AND o.CodOs = p.CodOs)",
            "SELECT COUNT(*) FROM PecasAplicadas p WHERE NOT EXISTS (SELECT 1 FROM Produto x WHERE x.codpeca = p.codpeca)",
            "SELECT COUNT(*) FROM Movimento m WHERE NOT EXISTS (SELECT 1 FROM OrdemServico o WHERE o.CodOsAut = m.CodOsAut AND o.CodOs = m.CodVenda)",
            "SELECT COUNT(*) FROM VendaDetalhada v WHERE NOT EXISTS (SELECT 1 FROM OrdemServico o WHERE o.CodOsAut = v.CodOsAut)",
            "SELECT COUNT(*) FROM ContasReceber r WHERE NOT EXISTS (SELECT 1 FROM OrdemServico o WHERE CAST(o.CodOs AS text) = r.CodVenda)",
            "SELECT COUNT(*) FROM CadastroCheque h WHERE NOT EXISTS (SELECT 1 FROM OrdemServico o WHERE CAST(o.CodOs AS text) = h.CodVenda)",
        };
        for (const QString& sql : orfaos)
            QVERIFY2(conta(b, sql) == 0, qPrintable(sql));

        QSqlQuery c = b.executar("SELECT CnpjCpf, Telefone, Celular FROM Cliente");
        int clientes = 0;
        while (c.next()) {
            QVERIFY2(ValidaCpf(c.value(0).toString()), qPrintable(c.value(0).toString()));
            for (int i : {1, 2}) {
                const QString fone = c.value(i).toString();
                QVERIFY(fone.isEmpty() || (SoDigitos(fone) == fone && (fone.size() == 10 || fone.size() == 11)));
            }
            ++clientes;
        }
        QCOMPARE(clientes, 240);
        QCOMPARE(conta(b, "SELECT COUNT(DISTINCT CnpjCpf) FROM Cliente"), qint64(240));

        QVERIFY(conta(b, "SELECT COUNT(*) FROM Produto WHERE Quantidadeestoque < QuantidadeMinima") >= 3);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM Produto WHERE Quantidadeestoque >= QuantidadeMinima") >= 10);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM VisitaTecnico WHERE Atendida = 0") > 0);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM ContasReceber WHERE Quitado = 0 AND DataVencimento < '2026/11/24'") > 0);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM ContasReceber WHERE Quitado = -1") > 0);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM ContasPagar WHERE Quitado = 0") > 0);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM ContasPagar WHERE Quitado = -1") > 0);
        QVERIFY(conta(b, "SELECT COUNT(*) FROM CadastroCheque WHERE Quitado = 0") > 0);
        // A new order continues the numbers.
        QCOMPARE(conta(b, "SELECT CodOs FROM Empresa"), qint64(420));

        Sessao s;
        QCOMPARE(Autenticacao::entrar(b, "admin", GeradorDados::SenhaExemplo, s), Autenticacao::Resultado::Entrou);
        QCOMPARE(s.DireitoOsEntAl, 1);
        Sessao tecnico;
        QCOMPARE(Autenticacao::entrar(b, "CARLOS", GeradorDados::SenhaExemplo, tecnico), Autenticacao::Resultado::Entrou);
        QCOMPARE(tecnico.DireitoConfiguracao, 0);
    }

    // The sample's own folder, built afresh each time, cancelled cleanly, and the shop's
    // real store beside it left as it was, byte for byte.
    void lojaSeparada()
    {
        AmbienteShell loja;
        loja.sql("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (1, 'CLIENTE DA LOJA')");
        loja.sql("PRAGMA wal_checkpoint(TRUNCATE)");
        const QString arquivoReal = Conexoes::config().arquivoSqlite();
        const QByteArray antes = ArquivosTeste::le(arquivoReal);
        const QByteArray iniAntes = ArquivosTeste::le(Local::arquivoIni());
        QVERIFY(!antes.isEmpty() && !iniAntes.isEmpty());

        QStringList etapas;
        QVERIFY(LojaExemplo::criar([&](const QString& e, qint64, qint64) { etapas << e; return true; }));
        QVERIFY(etapas.size() >= 5);
        const QString arquivo = LojaExemplo::config().arquivoSqlite();
        QCOMPARE(QFileInfo(arquivo).absolutePath(), QDir(loja.pasta()).filePath("exemplo"));
        {
            auto b = Banco::abrir(LojaExemplo::config());
            QCOMPARE(conta(*b, "SELECT COUNT(*) FROM OrdemServico"), qint64(420));
            QCOMPARE(b->escalar("SELECT NomeEmpresa FROM Empresa").toString(), GeradorDados::NomeLojaExemplo);
            b->executar("DELETE FROM OrdemServico WHERE CodOs > 10");
        }
        // Opened again: whole again, whatever was done to it.
        QVERIFY(LojaExemplo::criar({}));
        {
            auto b = Banco::abrir(LojaExemplo::config());
            QCOMPARE(conta(*b, "SELECT COUNT(*) FROM OrdemServico"), qint64(420));
        }
        // Given up half way: no half-made sample stays behind.
        QString erro = QStringLiteral("x");
        QVERIFY(!LojaExemplo::criar([](const QString&, qint64 feito, qint64) { return feito < 3; }, &erro));
        QVERIFY(erro.isEmpty());
        QVERIFY(!QFile::exists(arquivo));

        QCOMPARE(ArquivosTeste::le(arquivoReal), antes);
        QCOMPARE(ArquivosTeste::le(Local::arquivoIni()), iniAntes);
    }
};

QTEST_MAIN(TesteGeradorDados)
#include "tst_geradordados.moc"
