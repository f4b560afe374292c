#include <QTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Transacao.h"
#include "orders/ContagemPainel.h"
#include "orders/GravacaoOrdem.h"
#include "orders/ListasPainel.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioOrdens;

namespace {

// Date and hour columns hold the empty text, never NULL.
QString naoNulo(const QString& t) { return t.isNull() ? QStringLiteral("") : t; }

// An order put in with the flags named in `estado` (column names, space separated).
qint64 ordemCom(Banco& b, qint64 codOs, const QString& estado, const QString& dataEntrega = {},
                const QString& hora = {})
{
    QStringList cols = {"CodOs", "NomeCliente", "Tipo", "DataEntrega", "HoraSolicitada"};
    QVariantList v = {codOs, QStringLiteral("CLIENTE %1").arg(codOs), "TV", naoNulo(dataEntrega), naoNulo(hora)};
    for (const QString& f : estado.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        cols << f;
        v << -1;
    }
    return b.inserir(*Esquema::tabela("OrdemServico"), cols, v);
}

void visita(Banco& b, qint64 codManu, bool atendida, const QString& data = {}, const QString& hora = {})
{
    b.inserir(*Esquema::tabela("VisitaTecnico"), {"CodManu", "NomeCliente", "Atendida", "DataSolicitada", "HoraSolicitada"},
              {codManu, "VISITA", atendida ? -1 : 0, naoNulo(data), naoNulo(hora)});
}

QString dia(int dias) { return Datas::paraBanco(QDate::currentDate().addDays(dias)); }

LinhaPainel listada(Banco& b, Lista l, qint64 chave)
{
    for (const LinhaPainel& p : ListasPainel::linhas(b, l))
        if (p.CodOsAut == chave)
            return p;
    return {};
}

template <typename F>
std::optional<Recusa> recusada(F&& f)
{
    try {
        f();
    } catch (const OrdemRecusada& e) {
        return e.recusa();
    }
    return std::nullopt;
}

} // namespace

class TesteContagemPainel : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoCompleta(); }

    void umaOrdemPorLista_data() { linhasMotores(); }
    void umaOrdemPorLista()
    {
        BANCO_DO_MOTOR(b);
        Banco& db = b.banco();
        ordemCom(db, 1, "");                             // 5
        ordemCom(db, 2, "ChamadoTecnico");               // 5 and 9
        ordemCom(db, 3, "AguardaPeca");                  // 1
        ordemCom(db, 4, "Orcamento");                    // 4
        ordemCom(db, 5, "Aprovado");                     // 0 and, with no situation, 5
        ordemCom(db, 6, "Consertado Recusado");          // 6 and 3
        ordemCom(db, 7, "Consertado Aprovado");          // 2
        ordemCom(db, 8, "Devolver Recusado");            // 3 twice
        ordemCom(db, 9, "Consertado Aprovado Saida");    // closed: nowhere
        ordemCom(db, 10, "AguardaPeca Excluidos");       // in the bin: nowhere
        visita(db, 1, false);                            // 9
        visita(db, 2, true);                             // attended: nowhere
        const ContagemPainel c = ContagensPainel::ler(db);
        const QHash<int, int> esperado = {{0, 1}, {1, 1}, {2, 1}, {3, 3}, {4, 1}, {5, 3}, {6, 1}, {9, 2}};
        for (auto it = esperado.cbegin(); it != esperado.cend(); ++it)
            QVERIFY2(c.conta(Lista(it.key())) == it.value(),
                     qPrintable(QStringLiteral("lista %1: %2").arg(it.key()).arg(c.conta(Lista(it.key())))));
        QCOMPARE(c.abertas, 9);
        QVERIFY(c.recusadas());
    }

    // The one pass must count what each list shows, for every mix of flags.
    void mesmaContagemDasListas_data() { linhasMotores(); }
    void mesmaContagemDasListas()
    {
        BANCO_DO_MOTOR(b);
        const QStringList flags = {"Consertado", "Orcamento", "AguardaPeca", "Devolver", "Aprovado",
                                   "Recusado", "Saida", "Excluidos", "ChamadoTecnico"};
        {
            Transacao tr(b.banco());
            for (int m = 0; m < (1 << flags.size()); ++m) {
                QStringList e;
                for (int i = 0; i < flags.size(); ++i)
                    if ((m >> i) & 1)
                        e << flags.at(i);
                ordemCom(b.banco(), m + 1, e.join(QLatin1Char(' ')));
            }
            tr.commit();
        }
        visita(b.banco(), 1, false);
        const ContagemPainel c = ContagensPainel::ler(b.banco());
        for (Lista l : ListasPainel::ordemAtualizacao())
            QCOMPARE(c.conta(l), int(ListasPainel::linhas(b.banco(), l).size()));
    }

    void piscaPeloDiaAviso_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("diasAviso");
        QTest::addColumn<QString>("estado");
        QTest::addColumn<int>("falta");     // days to the promised day; 999: none
        QTest::addColumn<bool>("pisca");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "aviso 0 so a partir do dia")) << m << 0 << "Aprovado" << 1 << false;
            QTest::newRow(qPrintable(e + "aviso 0 no dia")) << m << 0 << "Aprovado" << 0 << true;
            QTest::newRow(qPrintable(e + "atrasada")) << m << 0 << "Aprovado" << -3 << true;
            QTest::newRow(qPrintable(e + "aviso 2 faltando 2")) << m << 2 << "Aprovado" << 2 << true;
            QTest::newRow(qPrintable(e + "aviso 2 faltando 3")) << m << 2 << "Aprovado" << 3 << false;
            QTest::newRow(qPrintable(e + "sem dia prometido")) << m << 5 << "Aprovado" << 999 << false;
            QTest::newRow(qPrintable(e + "ja consertada nao conta")) << m << 5 << "Aprovado Consertado" << 0 << false;
            QTest::newRow(qPrintable(e + "sem autorizacao nao conta")) << m << 5 << "Orcamento" << 0 << false;
        }
    }
    void piscaPeloDiaAviso()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(int, diasAviso);
        QFETCH(QString, estado);
        QFETCH(int, falta);
        QFETCH(bool, pisca);
        ordemCom(b.banco(), 1, estado, falta == 999 ? QString() : dia(falta));
        // A far promised day beside it changes nothing.
        ordemCom(b.banco(), 2, "Aprovado", dia(40));
        const ContagemPainel c = ContagensPainel::ler(b.banco());
        QCOMPARE(ContagensPainel::piscaEntrega(c, diasAviso, QDate::currentDate()), pisca);
    }

    void piscaPelaHora_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("visitaDaCasa");  // a house call, or a pick-up order
        QTest::addColumn<int>("dias");
        QTest::addColumn<QString>("hora");
        QTest::addColumn<bool>("pisca");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            for (bool v : {false, true}) {
                const QString t = e + (v ? "visita " : "retirada ");
                QTest::newRow(qPrintable(t + "hoje, hora passada")) << m << v << 0 << "11:30" << true;
                QTest::newRow(qPrintable(t + "hoje, hora exata")) << m << v << 0 << "12:00" << true;
                QTest::newRow(qPrintable(t + "hoje, hora por vir")) << m << v << 0 << "12:01" << false;
                QTest::newRow(qPrintable(t + "ontem, hora mais tarde")) << m << v << -1 << "18:00" << true;
                QTest::newRow(qPrintable(t + "amanha")) << m << v << 1 << "08:00" << false;
                QTest::newRow(qPrintable(t + "sem hora")) << m << v << -1 << "" << false;
            }
        }
    }
    void piscaPelaHora()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, visitaDaCasa);
        QFETCH(int, dias);
        QFETCH(QString, hora);
        QFETCH(bool, pisca);
        if (visitaDaCasa)
            visita(b.banco(), 1, false, dia(dias), hora);
        else
            ordemCom(b.banco(), 1, "ChamadoTecnico", dia(dias), hora);
        // Attended visits and pick-ups already judged don't call.
        visita(b.banco(), 2, true, dia(-5), "08:00");
        ordemCom(b.banco(), 2, "ChamadoTecnico Orcamento", dia(-5), "08:00");
        const ContagemPainel c = ContagensPainel::ler(b.banco());
        QCOMPARE(ContagensPainel::piscaSolicitada(c, QDateTime(QDate::currentDate(), QTime(12, 0))), pisca);
    }

    void respostaGravada_data() { linhasMotores(); }
    void respostaGravada()
    {
        BANCO_DO_MOTOR(b);
        Banco& db = b.banco();
        ApoioOrdens::inserirProduto(db, "P1", 20);
        const qint64 k = ordemCom(db, 7, "Orcamento OrdemBloqueada Contato", "2026/01/02");
        db.executar("UPDATE OrdemServico SET OsAlterado = 'BETO' WHERE CodOsAut = ?", {k});
        db.inserir(*Esquema::tabela("PecasAplicadas"), {"CodOs", "CodOsAut", "codpeca", "Quantidade", "ControleEstoque"},
                   {7, k, "P1", 2000, -1});
        const LinhaPainel l = listada(db, Lista::Pendente, k);
        QCOMPARE(l.CodOsAut, k);
        // An answer on a locked budget passes without DireitoAltOrca.
        sessao().DireitoAltOrca = 0;
        TransicoesOrdem::salvarNoPainel(db, l, Lista::Pendente, std::nullopt, Resposta::Aprovado, QDate(2026, 6, 1));
        auto o = GravacaoOrdem::carregar(db, k);
        QVERIFY(o->Aprovado && !o->Recusado && o->Orcamento);
        QCOMPARE(o->DataEntrega, QString("2026/06/01"));
        QCOMPARE(o->DataContato, Datas::hoje());
        QVERIFY(o->OrdemBloqueada && o->Contato);
        QCOMPARE(o->OsAlterado, QString("BETO"));
        // Marked repaired from the panel: nothing leaves stock.
        sessao().DireitoAltOrca = 1;
        TransicoesOrdem::salvarNoPainel(db, listada(db, Lista::Autorizado, k), Lista::Autorizado, Situacao::Consertado,
                                        std::nullopt, QDate(2026, 6, 1));
        o = GravacaoOrdem::carregar(db, k);
        QVERIFY(o->Consertado && !o->Orcamento && o->Aprovado);
        QCOMPARE(ApoioOrdens::estoque(db, "P1"), Quantidade::unidades(20));
        QVERIFY(!o->pecas.value(0).BaixaEstoque);
    }

    // What the panel may not write: each refusal leaves the order as it was.
    void escritaRecusada_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("estado");
        QTest::addColumn<int>("lista");
        QTest::addColumn<QString>("direitos");   // the session's rights, all others off
        QTest::addColumn<int>("situacao");       // -1: none chosen
        QTest::addColumn<int>("resposta");       // -1: none chosen
        QTest::addColumn<int>("seguimento");
        QTest::addColumn<QString>("mensagem");
        const QString bloqueio = "Esta ordem de serviço foi definido seu Status e valores,você não tem permissão para alterar.";
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "so leitura da entrega autoriza pendente"))
                << m << "Orcamento" << 4 << "DireitoOsSaiLe" << -1 << int(Resposta::Aprovado) << int(Recusa::Negado)
                << "Acesso Negado";
            QTest::newRow(qPrintable(e + "alteracao da bancada nao serve a entrega"))
                << m << "Orcamento" << 4 << "DireitoOsSaiLe DireitoOsTecAl" << -1 << int(Resposta::Aprovado)
                << int(Recusa::Negado) << "Acesso Negado";
            QTest::newRow(qPrintable(e + "so leitura da bancada na fila"))
                << m << "" << 5 << "DireitoOsTecLe DireitoOsSaiAl" << int(Situacao::AguardaPeca) << -1
                << int(Recusa::Negado) << "Acesso Negado";
            QTest::newRow(qPrintable(e + "visita tecnica pede alteracao da bancada"))
                << m << "ChamadoTecnico" << 9 << "DireitoOsTecLe" << int(Situacao::Orcamento) << -1
                << int(Recusa::Negado) << "Acesso Negado";
            QTest::newRow(qPrintable(e + "nova situacao em orcamento travado"))
                << m << "Orcamento OrdemBloqueada" << 4 << "DireitoOsSaiLe DireitoOsSaiAl" << int(Situacao::Devolver)
                << -1 << int(Recusa::SenhaLiberaAltOs) << bloqueio;
        }
    }
    void escritaRecusada()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, estado);
        QFETCH(int, lista);
        QFETCH(QString, direitos);
        QFETCH(int, situacao);
        QFETCH(int, resposta);
        QFETCH(int, seguimento);
        QFETCH(QString, mensagem);
        const qint64 k = ordemCom(b.banco(), 3, estado, "2026/01/02");
        const LinhaPainel l = listada(b.banco(), Lista(lista), k);
        QCOMPARE(l.CodOsAut, k);
        sessao().zerarDireitos();
        for (const QString& d : direitos.split(' '))
            *sessao().direito(d) = 1;
        const auto antes = GravacaoOrdem::carregar(b.banco(), k);
        const auto r = recusada([&] {
            TransicoesOrdem::salvarNoPainel(b.banco(), l, Lista(lista),
                                            situacao < 0 ? std::nullopt : std::optional(Situacao(situacao)),
                                            resposta < 0 ? std::nullopt : std::optional(Resposta(resposta)),
                                            QDate(2026, 7, 7));
        });
        QVERIFY(r);
        QCOMPARE(int(r->seguimento), seguimento);
        QCOMPARE(r->mensagem, mensagem);
        const auto depois = GravacaoOrdem::carregar(b.banco(), k);
        QCOMPARE(depois->DataEntrega, antes->DataEntrega);
        QCOMPARE(depois->DataContato, antes->DataContato);
        QCOMPARE(EstadoOrdem::situacao(*depois), EstadoOrdem::situacao(*antes));
        QCOMPARE(EstadoOrdem::resposta(*depois), EstadoOrdem::resposta(*antes));
    }

    // Closed at the till after the list was read: without DireitoAltOs the bench's word and
    // the password of someone who has it; with it, the list is simply out of date.
    void fechadaDepoisDeListada_data() { linhasMotores(); }
    void fechadaDepoisDeListada()
    {
        BANCO_DO_MOTOR(b);
        const qint64 k = ordemCom(b.banco(), 3, "Consertado Aprovado");
        const LinhaPainel l = listada(b.banco(), Lista::Consertado, k);
        b->executar("UPDATE OrdemServico SET Saida = -1 WHERE CodOsAut = ?", {k});
        sessao().DireitoAltOs = 0;
        const auto r = recusada([&] {
            TransicoesOrdem::salvarNoPainel(b.banco(), l, Lista::Consertado, std::nullopt, Resposta::Recusado, {});
        });
        QVERIFY(r);
        QCOMPARE(int(r->seguimento), int(Recusa::SenhaLiberaAltOs));
        QCOMPARE(r->mensagem, QString("Esta ordem de serviço foi finalizada,você não tem permissão para alterar."));
        QCOMPARE(b->escalar("SELECT Recusado FROM OrdemServico WHERE CodOsAut = ?", {k}).toInt(), 0);
    }

    // A panel left open while the bench saved: what the bench did stays.
    void outraEstacaoMudou_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("mudanca");
        QTest::addColumn<bool>("excluida");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite " : "postgres ";
            QTest::newRow(qPrintable(e + "bancada consertou")) << m << "Consertado = -1, Orcamento = 0" << false;
            QTest::newRow(qPrintable(e + "balcao respondeu")) << m << "Recusado = -1" << false;
            QTest::newRow(qPrintable(e + "saiu no caixa")) << m << "Saida = -1" << false;
            QTest::newRow(qPrintable(e + "foi excluida")) << m << "Excluidos = -1" << true;
        }
    }
    void outraEstacaoMudou()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, mudanca);
        QFETCH(bool, excluida);
        const qint64 k = ordemCom(b.banco(), 3, "Orcamento");
        const LinhaPainel l = listada(b.banco(), Lista::Pendente, k);
        auto outra = b.outraConexao();
        outra->executar(QStringLiteral("UPDATE OrdemServico SET %1 WHERE CodOsAut = ?").arg(mudanca), {k});
        try {
            TransicoesOrdem::salvarNoPainel(b.banco(), l, Lista::Pendente, Situacao::Orcamento, Resposta::Aprovado,
                                            QDate(2026, 7, 7));
            QFAIL("gravou sobre a outra estação");
        } catch (const RegistroAlterado& e) {
            QCOMPARE(e.excluido(), excluida);
            QVERIFY(e.mensagem().startsWith(excluida ? "Este registro foi excluído em outra estação"
                                                     : "Este registro foi alterado em outra estação"));
        }
        QCOMPARE(b->escalar("SELECT Aprovado FROM OrdemServico WHERE CodOsAut = ?", {k}).toInt(), 0);
        QCOMPARE(b->escalar("SELECT DataContato FROM OrdemServico WHERE CodOsAut = ?", {k}).toString(), QString());
    }
};

QTEST_GUILESS_MAIN(TesteContagemPainel)
#include "tst_contagempainel.moc"
