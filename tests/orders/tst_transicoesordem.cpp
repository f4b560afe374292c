#include <QTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "orders/GravacaoOrdem.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioOrdens;
using namespace TransicoesOrdem;

namespace {

Ordem guardada(Banco& b, Ordem o)
{
    GravacaoOrdem::gravar(b, o, {true, true, true}, std::nullopt);
    return o;
}

Ordem relida(Banco& b, const Ordem& o) { return *GravacaoOrdem::carregar(b, o.CodOsAut); }

// Runs an operation that must be refused and gives the refusal.
template <typename F>
Recusa recusada(F&& f)
{
    try {
        f();
    } catch (const OrdemRecusada& e) {
        return e.recusa();
    }
    return {QStringLiteral("não recusada"), Recusa::Aviso, {}};
}

} // namespace

class TesteTransicoesOrdem : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoCompleta(); }

    // 1
    void entrada_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("edicao");
        QTest::addColumn<QString>("dataSaida");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "nova sem saida")) << m << false << "";
            QTest::newRow(qPrintable(e + "edicao sem saida limpa o contato")) << m << true << "";
            QTest::newRow(qPrintable(e + "edicao com saida fecha")) << m << true << "2026/04/01";
        }
    }
    void entrada()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, edicao);
        QFETCH(QString, dataSaida);
        Ordem o = ordem(QStringLiteral("MARIA"));
        o.sintomas = {{QStringLiteral("1"), QStringLiteral("NAO LIGA")}, {QStringLiteral("4"), QStringLiteral("CHIADO")}};
        if (edicao) {
            o.Contato = true;
            o.DataContato = QStringLiteral("2026/03/03");
            o.Aprovado = o.Consertado = true;
            o = guardada(b.banco(), o);
        }
        o.DataSaida = dataSaida;
        salvarEntrada(b.banco(), o, {});
        const Ordem l = relida(b.banco(), o);
        QCOMPARE(l.Saida, !dataSaida.isEmpty());
        QCOMPARE(l.DataSaida, dataSaida);
        QCOMPARE(l.Contato, edicao && !dataSaida.isEmpty());
        QCOMPARE(l.DataContato.isEmpty(), !edicao || dataSaida.isEmpty());
        QCOMPARE(l.DataEntrada, Datas::hoje());
        QCOMPARE(l.Sintoma, QString("NAO LIGA,CHIADO,"));
        QCOMPARE(l.OsAlterado, QString("ANA"));
        QVERIFY(!l.Garantia && !l.Fabrica);
        QCOMPARE(l.Aprovado && l.Consertado, edicao);  // no other status column is written
    }

    void entradaRecusada_data() { linhasMotores(); }
    void entradaRecusada()
    {
        BANCO_DO_MOTOR(b);
        Ordem sem = ordem(QString());
        Recusa r = recusada([&] { salvarEntrada(b.banco(), sem, {}); });
        QCOMPARE(r.mensagem, QString("Coloque o nome do cliente"));
        sessao().DireitoOsEntAl = 0;
        Ordem o = ordem(QStringLiteral("SEM DIREITO"));
        QCOMPARE(recusada([&] { salvarEntrada(b.banco(), o, {}); }).seguimento, Recusa::Negado);
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico")).toInt(), 0);
    }

    // 2
    void bancada_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("garantia");
        QTest::addColumn<int>("situacao");
        QTest::addColumn<bool>("aprovado");
        QTest::addColumn<bool>("bloqueada");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "garantia orcada fica sem aprovacao"))
                << m << true << int(Situacao::Orcamento) << false << true;
            QTest::newRow(qPrintable(e + "garantia consertada fica aprovada"))
                << m << true << int(Situacao::Consertado) << true << true;
            QTest::newRow(qPrintable(e + "aguarda peca nao trava")) << m << false << int(Situacao::AguardaPeca) << true
                                                                    << false;
            QTest::newRow(qPrintable(e + "devolver nao trava")) << m << false << int(Situacao::Devolver) << true << false;
        }
    }
    void bancada()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, garantia);
        QFETCH(int, situacao);
        QFETCH(bool, aprovado);
        QFETCH(bool, bloqueada);
        Ordem o = ordem(QStringLiteral("PEDRO"));
        o.Garantia = garantia;
        o.Aprovado = true;  // stays as answered unless under warranty
        o.AguardaPeca = true;
        o = guardada(b.banco(), o);
        o.servicos = {{QStringLiteral("1"), QStringLiteral("TROCA"), {}, {}, {}},
                      {QStringLiteral("2"), QStringLiteral("AJUSTE"), {}, {}, {}}};
        salvarBancada(b.banco(), o, Situacao(situacao));
        const Ordem l = relida(b.banco(), o);
        QCOMPARE(int(EstadoOrdem::situacao(l)), situacao);
        QCOMPARE(l.Aprovado, aprovado);
        QCOMPARE(l.OrdemBloqueada, bloqueada);
        QCOMPARE(l.ServicoExecutado, QString("TROCA,AJUSTE,"));
        QCOMPARE(l.Tecnico, QString("BRUNO"));
        QCOMPARE(l.CodTecnico, QString("8"));
        QCOMPARE(l.servicos.size(), 2);

        QCOMPARE(recusada([&] { salvarBancada(b.banco(), o, Situacao::Nenhuma); }).mensagem,
                 QString("Defina a situação do conserto"));
        sessao().DireitoOsTecAl = 0;
        QCOMPARE(recusada([&] { salvarBancada(b.banco(), o, Situacao::Devolver); }).seguimento, Recusa::Negado);
    }

    // 3
    void autorizadoNaBancada()
    {
        Ordem o;
        o.Recusado = true;
        autorizarNaBancada(o);
        QVERIFY(o.Aprovado && !o.Recusado && o.Contato && !o.Garantia);
        Ordem g;
        g.Garantia = true;
        recusada([&] { autorizarNaBancada(g); });
        QVERIFY(!g.Aprovado);
    }

    // 6
    void respostaNaEntrega_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::newRow("autoriza") << int(Resposta::Aprovado);
        QTest::newRow("recusa") << int(Resposta::Recusado);
        QTest::newRow("aguarda") << int(Resposta::Indeciso);
    }
    void respostaNaEntrega()
    {
        QFETCH(int, resposta);
        Ordem o;
        o.Garantia = true;
        o.Recusado = true;
        responderNaEntrega(o, Resposta(resposta));
        QCOMPARE(int(EstadoOrdem::resposta(o)), resposta);
        QVERIFY(o.Contato && !o.Garantia);
        QCOMPARE(o.DataContato, Datas::hoje());
        // A finalised order needs DireitoAltOs, and a password may release it.
        Ordem fechada;
        fechada.Saida = true;
        sessao().DireitoAltOs = 0;
        const Recusa r = recusada([&] { responderNaEntrega(fechada, Resposta(resposta)); });
        QCOMPARE(r.mensagem, QString("Está ordem de serviço já foi finalizada,você não tem permissão para alterar."));
        QCOMPARE(r.seguimento, Recusa::SenhaLiberaAltOs);
        QVERIFY(!fechada.Contato);
    }

    // 7, 8, 9
    void garantia()
    {
        Ordem o;
        o.CodOs = 55;
        o.NomeCliente = QStringLiteral("RITA");
        o.Aprovado = o.Consertado = o.Contato = o.Saida = true;
        o.DataSaida = QStringLiteral("2026/02/02");
        o.Observacao = QStringLiteral("TROCADA FONTE");
        o.sintomas = {{QStringLiteral("1"), QStringLiteral("NAO LIGA")}};

        const Ordem nova = garantiaNovaOrdem(o);
        QVERIFY(nova.nova() && nova.CodOs == 0 && nova.Fabrica);
        QCOMPARE(nova.CodFabrica, QString("55"));
        QCOMPARE(nova.NomeCliente, QString("RITA"));
        QVERIFY(nova.DataSaida.isEmpty() && !nova.Aprovado && !nova.Consertado);
        QCOMPARE(nova.sintomas.size(), 1);

        garantiaMesmaOrdem(o);
        QVERIFY(!o.Aprovado && !o.Recusado && !o.Contato && o.Garantia);
        QCOMPARE(int(EstadoOrdem::situacao(o)), int(Situacao::Nenhuma));
        QCOMPARE(o.StatusConserto, QString("Garantia pendente.."));
        QCOMPARE(o.Armazenado, QString("Retorno oficina"));
        QCOMPARE(o.Observacao, QString("TROCADA FONTE\nAPARELHO ESTÁ NA GARANTIA DA LOJA"));
        QVERIFY(o.DataSaida.isEmpty());
        QCOMPARE(EstadoOrdem::legenda(o, true).texto, QString("Garantia"));

        desfazerGarantia(o);
        QVERIFY(!o.Garantia);
    }

    void novaDeGarantiaSalva_data() { linhasMotores(); }
    void novaDeGarantiaSalva()
    {
        BANCO_DO_MOTOR(b);
        Ordem antiga = ordem(QStringLiteral("RITA"));
        antiga.DataSaida = QStringLiteral("2026/02/02");
        salvarEntrada(b.banco(), antiga, {});
        Ordem nova = garantiaNovaOrdem(antiga);
        TransicoesOrdem::OpcoesEntrada op;
        op.retornoGarantia = true;
        salvarEntrada(b.banco(), nova, op);
        const Ordem l = relida(b.banco(), nova);
        QVERIFY(l.Fabrica && l.Garantia && !l.Saida);
        QCOMPARE(l.CodOs, qint64(2));
        QCOMPARE(l.CodFabrica, QString("1"));
        QVERIFY(relida(b.banco(), antiga).Saida);
    }

    // 10, 11 and the delivery save
    void entrega_data() { linhasMotores(); }
    void entrega()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = guardada(b.banco(), ordem(QStringLiteral("SEM CAIXA")));
        o.Recusado = true;
        QVERIFY(!entregar(o));
        QVERIFY(o.Saida);
        QCOMPARE(o.DataSaida, Datas::hoje());
        QVERIFY(o.Armazenado.startsWith(QStringLiteral("Saiu ")));
        o.DataEntrega = QString();
        salvarEntrega(b.banco(), o);
        Ordem l = relida(b.banco(), o);
        QVERIFY(l.Saida && !l.DtEntrega);
        // A second delivery keeps the first date.
        l.DataSaida = QStringLiteral("2026/01/01");
        QVERIFY(!entregar(l));
        QCOMPARE(l.DataSaida, QString("2026/01/01"));

        Ordem aprovada = guardada(b.banco(), ordem(QStringLiteral("COM CAIXA")));
        aprovada.Aprovado = true;
        QVERIFY(entregar(aprovada));
        QVERIFY(!aprovada.Saida && aprovada.DataSaida.isEmpty());
        sessao().DireitoOsSaiAl = 0;
        const Fechamento f{QStringLiteral("2026/04/05"), Dinheiro::deCentavos(15075), Dinheiro::deCentavos(25),
                           QStringLiteral("11144477735"), 1};
        QCOMPARE(recusada([&] { fecharNoCaixa(b.banco(), aprovada.CodOsAut, f); }).seguimento, Recusa::Negado);
        QVERIFY(!relida(b.banco(), aprovada).Saida);
        sessao().DireitoOsSaiAl = 1;
        fecharNoCaixa(b.banco(), aprovada.CodOsAut, f);
        l = relida(b.banco(), aprovada);
        QVERIFY(l.Saida && l.DtEntrega);
        QCOMPARE(l.DataSaida, QString("2026/04/05"));
        QCOMPARE(l.ValorPago.texto(), QString("150,75"));
        QCOMPARE(l.ValorDesconto.texto(), QString("0,25"));
        QCOMPARE(l.Pendurado, qint64(1));
        QCOMPARE(l.OsAlterado, QString("ANA"));
    }

    // 12
    void completo_data() { linhasMotores(); }
    void completo()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = ordem(QStringLiteral("TUDO NUM LUGAR"));
        o.ChamadoTecnico = true;
        o.servicos = {{QStringLiteral("1"), QStringLiteral("TROCA"), Dinheiro::deCentavos(100),
                       Dinheiro::deCentavos(5000), {}}};
        salvarCompleto(b.banco(), o, Situacao::Orcamento, {});
        Ordem l = relida(b.banco(), o);
        QVERIFY(l.Orcamento && l.ChamadoTecnico);
        QCOMPARE(l.MaoObra.texto(), QString("49,00"));
        QCOMPARE(l.StatusConserto, QString("SEM RESPOSTA"));
        // Without the bench's right the intake half is stored and the refusal follows.
        sessao().DireitoOsTecAl = 0;
        l.Observacao = QStringLiteral("so a entrada");
        l.DefeitoReal = QStringLiteral("da bancada");
        l.MaoObra = Dinheiro::deCentavos(1);
        QCOMPARE(recusada([&] { salvarCompleto(b.banco(), l, Situacao::Consertado, {}); }).seguimento,
                 Recusa::Negado);
        const Ordem depois = relida(b.banco(), l);
        QCOMPARE(depois.Observacao, QString("so a entrada"));
        QVERIFY(depois.Orcamento && !depois.Consertado);
        QVERIFY(depois.DefeitoReal.isEmpty());
        QCOMPARE(depois.MaoObra.texto(), QString("49,00"));
    }

    // 13, 14
    void exclusao_data() { linhasMotores(); }
    void exclusao()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = guardada(b.banco(), ordem(QStringLiteral("APAGAR")));
        excluir(b.banco(), o.CodOsAut, TelaOrdem::Entrada);
        Ordem l = relida(b.banco(), o);
        QVERIFY(l.Excluidos);
        QCOMPARE(l.OsAlterado, QString("ANA"));
        restaurar(b.banco(), o.CodOsAut);
        QVERIFY(!relida(b.banco(), o).Excluidos);
        // A finalised order can't be deleted without DireitoAltOs.
        b->executar(QStringLiteral("UPDATE OrdemServico SET Saida = -1 WHERE CodOsAut = ?"), {o.CodOsAut});
        sessao().DireitoAltOs = 0;
        QCOMPARE(recusada([&] { excluir(b.banco(), o.CodOsAut, TelaOrdem::Entrada); }).seguimento,
                 Recusa::SenhaLiberaAltOs);
        QVERIFY(!relida(b.banco(), o).Excluidos);
    }

    // The lock rules are tested again at the save, against the row as stored.
    void travaNaGravacao_data() { linhasMotores(); }
    void travaNaGravacao()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = guardada(b.banco(), ordem(QStringLiteral("FECHADA POR OUTRO")));
        Ordem naTela = o;  // loaded here while still open
        auto outra = b.outraConexao();
        fecharNoCaixa(*outra, o.CodOsAut, {Datas::hoje(), {}, {}, {}, 0});
        sessao().DireitoAltOs = 0;
        naTela.Observacao = QStringLiteral("mudanca que escapou");
        naTela.DataSaida = QStringLiteral("2026/01/01");
        const Recusa r = recusada([&] { salvarEntrada(b.banco(), naTela, {}); });
        QCOMPARE(r.mensagem, QString("Está ordem de serviço já foi finalizada,você não tem permissão para alterar."));
        QCOMPARE(r.seguimento, Recusa::SenhaLiberaAltOs);
        QCOMPARE(Recusa::origemLiberacao(), QString("LiberaAltOs"));
        QVERIFY(relida(b.banco(), o).Observacao.isEmpty());
        // The password at use brings in the rights of a user who may, and the save goes on.
        sessao().DireitoAltOs = 1;
        sessao().LiberaAltOs = 1;
        // The stale screen's departure date would write over the one set at the till: refused.
        QVERIFY_THROWS_EXCEPTION(RegistroAlterado, salvarEntrada(b.banco(), naTela, {}));
        Ordem relidaNaTela = relida(b.banco(), o);
        relidaNaTela.Observacao = QStringLiteral("mudanca que escapou");
        salvarEntrada(b.banco(), relidaNaTela, {});
        QCOMPARE(relida(b.banco(), o).Observacao, QString("mudanca que escapou"));
        QCOMPARE(relida(b.banco(), o).DataSaida, Datas::hoje());

        // The bench: an order whose status and values were set needs DireitoAltOrca.
        Ordem orcada = guardada(b.banco(), ordem(QStringLiteral("ORCADA")));
        salvarBancada(b.banco(), orcada, Situacao::Orcamento);
        sessao().DireitoAltOrca = 0;
        orcada.OrdemBloqueada = false;  // as if the box had been cleared
        const Recusa rb = recusada([&] { salvarBancada(b.banco(), orcada, Situacao::Consertado); });
        QCOMPARE(rb.mensagem,
                 QString("Esta ordem de serviço foi definido seu Status e valores,você não tem permissão para alterar."));
        QVERIFY(relida(b.banco(), orcada).Orcamento);
    }
};

QTEST_GUILESS_MAIN(TesteTransicoesOrdem)
#include "tst_transicoesordem.moc"
