#include <QRegularExpression>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "apoio/OutraEstacao.h"
#include "cash/ApoioContas.h"
#include "cash/Contas.h"
#include "data/PaginasBusca.h"
#include "data/Sessao.h"

using namespace ApoioContas;
using Contas::Modo;

namespace {

// The classic pattern match the shop's searches were written with: % is any text, the
// case is ignored. An oracle apart from the code under test.
bool like(const QString& texto, const QString& padrao)
{
    QString re;
    for (const QString& parte : padrao.split(QLatin1Char('%')))
        re += QRegularExpression::escape(parte) + QStringLiteral(".*");
    re.chop(2);
    return QRegularExpression(QStringLiteral("^") + re + QStringLiteral("$"),
                              QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption)
        .match(texto)
        .hasMatch();
}

struct Lida {
    QList<qint64> chaves;
    QStringList vencimentos;
};

Lida ler(Banco& b, const Contas::Pesquisa& p)
{
    PaginasBusca pag(b, Contas::tabela(p.modo), p.onde, p.ordem, {QStringLiteral("DataVencimento")});
    Lida l;
    while (!pag.fim())
        for (const QVariantList& linha : pag.proximas(3)) {
            l.chaves << pag.chaveDe(linha).toLongLong();
            l.vencimentos << linha.value(0).toString();
        }
    return l;
}

Contas::Escolhida escolhida(Banco& b, Modo m, qint64 chave) { return {m, Contas::ler(b, m, chave)}; }

void sessaoComDireito(int al)
{
    Sessao& s = sessao();
    s.zerarDireitos();
    s.DireitoContaLe = 1;
    s.DireitoContaAl = al;
    s.UsuarioNome = QStringLiteral("PEDRO");
}

QString recusa(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Contas::Recusa& r) {
        return r.campo == Contas::Recusa::Negado ? QStringLiteral("Negado") : r.mensagem;
    }
    return {};
}

} // namespace

class TstContas : public QObject {
    Q_OBJECT

private slots:
    void init() { sessaoComDireito(1); }

    // Each search gives the rows its classic pattern gives, open ones by due date.
    void buscasComoOsPadroes_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("modo");
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("padrao");   // over the joined text, "%" any text
        QTest::addColumn<QString>("juntar");   // which columns are joined: N name, Q paid, C bought, V due
        QTest::addColumn<QString>("compara");  // V<=, V>=, or empty
        QTest::addColumn<bool>("ordenada");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* e = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            auto linha = [&](const char* nome, int modo, const char* entrada, const char* texto, const char* padrao,
                             const char* juntar, const char* compara, bool ordenada) {
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(e, nome)))
                    << m << modo << QString::fromUtf8(entrada) << QString::fromUtf8(texto) << QString::fromUtf8(padrao)
                    << QString(juntar) << QString(compara) << ordenada;
            };
            const int r = int(Modo::Receber), p = int(Modo::Pagar);
            linha("all open", r, "Mostrar todos", "", "%0%", "Q", "", true);
            linha("by name", r, "Busca por nome", "ana", "%ana%", "N", "", false);
            linha("name with quote and accent", r, "Busca por nome", "D'ÁVILA", "%D'ÁVILA%", "N", "", false);
            linha("overdue", r, "Vencidos", "", "%0%", "Q", "V<=", true);
            linha("paid", r, "Pagamento efetuados", "", "%-1%", "Q", "", true);
            linha("bought that day", r, "Busca data de compra", "", "%2025/03/01%0%", "CQ", "", true);
            linha("due from", r, "Busca data acima", "", "%0%", "Q", "V>=", true);
            linha("due up to", r, "Busca data abaixo", "", "%0%", "Q", "V<=", true);
            linha("payable open", p, "Mostrar todos", "", "%0%", "Q", "", true);
            linha("payable by name", p, "Busca por nome", "eletro", "%eletro%", "N", "", false);
            linha("payable overdue", p, "Vencidos", "", "%0%", "Q", "V<=", true);
            linha("payable paid", p, "Pagamento efetuados", "", "%-1%", "Q", "", true);
            linha("payable bought that day", p, "Busca data de compra", "", "%2025/03/01%0%", "CQ", "", true);
        }
    }
    void buscasComoOsPadroes()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(int, modo);
        QFETCH(QString, entrada);
        QFETCH(QString, texto);
        QFETCH(QString, padrao);
        QFETCH(QString, juntar);
        QFETCH(QString, compara);
        QFETCH(bool, ordenada);
        struct Linha { QString nome, compra, venc; bool pago; };
        const QList<Linha> linhas = {
            {"ANA SOUZA", "2025/03/01", "2025/04/01", false}, {"MARIANA", "2025/03/01", "2025/02/10", true},
            {"D'ÁVILA REPAROS", "2025/02/01", "2025/03/01", false}, {"ELETRO ANA", "2025/01/15", "2025/02/20", false},
            {"JOSE", "2025/03/01", "2025/03/02", false}, {"ELETROSUL", "2025/03/10", "2025/05/01", true},
            {"d'ávila joao", "2025/03/01", "2025/01/05", false}, {"BRUNO", "2025/02/28", "2025/03/01", true}};
        QHash<qint64, Linha> porChave;
        for (const Linha& l : linhas) {
            const qint64 k = modo == int(Modo::Pagar)
                ? inserir(b.banco(), Pagar{l.nome, "NF1", l.venc, l.compra, l.pago})
                : inserir(b.banco(), Receber{"5", "12", l.nome, l.compra, l.venc, l.pago});
            porChave.insert(k, l);
        }
        const QString dia = QStringLiteral("2025/03/01");
        QSet<qint64> esperadas;
        for (auto it = porChave.cbegin(); it != porChave.cend(); ++it) {
            const Linha& l = it.value();
            QString junto;
            for (QChar c : juntar)
                junto += c == 'N' ? l.nome : c == 'Q' ? QString::number(l.pago ? -1 : 0) : c == 'C' ? l.compra : l.venc;
            bool ok = like(junto, padrao);
            if (compara == "V<=") ok = ok && l.venc <= dia;
            if (compara == "V>=") ok = ok && l.venc >= dia;
            if (ok) esperadas.insert(it.key());
        }
        const auto pesq = Contas::pesquisa(b.banco(), Modo(modo), entrada, texto, QDate(2025, 3, 1));
        const Lida lida = ler(b.banco(), pesq);
        QCOMPARE(QSet<qint64>(lida.chaves.cbegin(), lida.chaves.cend()), esperadas);
        QCOMPARE(lida.chaves.size(), esperadas.size());
        QVERIFY(!esperadas.isEmpty());
        if (ordenada) {
            QStringList emOrdem = lida.vencimentos;
            std::sort(emOrdem.begin(), emOrdem.end());
            QCOMPARE(lida.vencimentos, emOrdem);
        }
    }

    // The cheque searches read live cheques only; the holder's search wants a name.
    void buscasDeCheque_data() { linhasMotores(); }
    void buscasDeCheque()
    {
        BANCO_DO_MOTOR(b);
        const qint64 vivo = inserir(b.banco(), Cheque{"MARIA D'ÁVILA", "2025/03/01", "2025/02/01"});
        const qint64 compensado = inserir(b.banco(), Cheque{"MARIA LUZ", "2025/03/01", "2025/02/03", true});
        inserir(b.banco(), Cheque{"MARIA APAGADA", "2025/03/01", "2025/02/02", false, true});
        inserir(b.banco(), Cheque{"MARIA APAGADA PAGA", "2025/03/01", "2025/02/02", true, true});
        const qint64 futuro = inserir(b.banco(), Cheque{"CARLOS", "2025/02/01", "2025/06/01"});
        auto achadas = [&](const char* entrada, const char* texto) {
            const auto p = Contas::pesquisa(b.banco(), Modo::Receber, QString::fromUtf8(entrada), QString::fromUtf8(texto),
                                            QDate(2025, 3, 1));
            [&] { QCOMPARE(p.modo, Modo::Cheques); }();
            return ler(b.banco(), p).chaves;
        };
        QCOMPARE(achadas("Busca cheques por Titular", "maria"), (QList<qint64>{vivo, compensado}));
        QCOMPARE(achadas("Busca cheques por Titular", "D'ÁVILA"), QList<qint64>{vivo});
        QCOMPARE(achadas("Busca cheques por data", ""), QList<qint64>{vivo});
        QCOMPARE(achadas("Mostra cheque vencido", ""), QList<qint64>{vivo});
        QCOMPARE(achadas("Mostra cheque compensado", ""), QList<qint64>{compensado});
        Q_UNUSED(futuro);
        QCOMPARE(recusa([&] { Contas::pesquisa(b.banco(), Modo::Receber, "Busca cheques por Titular", "  ", {}); }),
                 QString("Digite o nome do titular da conta"));
        QVERIFY(!recusa([&] { Contas::pesquisa(b.banco(), Modo::Pagar, "Mostra cheque vencido", "", {}); }).isEmpty());
    }

    // Two instalments of the same sale, name and due date: only the chosen one changes.
    void mudancasSoNaPropriaLinha_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("acao");
        for (const char* a : {"payment", "new date", "delete"}) {
            QTest::newRow(qPrintable(QStringLiteral("sqlite %1").arg(a))) << int(Motor::SQLite) << QString(a);
            QTest::newRow(qPrintable(QStringLiteral("postgres %1").arg(a))) << int(Motor::PostgreSQL) << QString(a);
        }
    }
    void mudancasSoNaPropriaLinha()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, acao);
        Banco& db = b.banco();
        const qint64 k5 = inserir(db, Receber{"5", "12", "ANA", "2025/01/10", "2025/02/10"});
        const qint64 k15 = inserir(db, Receber{"15", "12", "ANA", "2025/01/10", "2025/02/10"});
        const qint64 p1 = inserir(db, Pagar{"ELETROSUL", "1", "2025/02/10"});
        const qint64 p11 = inserir(db, Pagar{"ELETROSUL", "11", "2025/02/10"});
        const QString linha = QStringLiteral("SELECT %1 FROM ContasReceber WHERE Chave = ?");
        if (acao == "payment") {
            Contas::pagar(db, escolhida(db, Modo::Receber, k5), {"60,50", QDate(2025, 2, 11), "", "parcial"});
            QCOMPARE(db.escalar(linha.arg("Quitado"), {k5}).toInt(), -1);
            QCOMPARE(db.escalar(linha.arg("ValorRecebido"), {k5}).toLongLong(), 6050);
            QCOMPARE(db.escalar(linha.arg("DataPagamento"), {k5}).toString(), QString("2025/02/11"));
            QCOMPARE(db.escalar(linha.arg("TipoRecebimento"), {k5}).toString(), QString("Não Informado"));
            QCOMPARE(db.escalar(linha.arg("Quitado"), {k15}).toInt(), 0);
            QCOMPARE(db.escalar(linha.arg("ValorRecebido"), {k15}).toLongLong(), 0);
            Contas::pagar(db, escolhida(db, Modo::Pagar, p1), {"", std::nullopt, "DINHEIRO", ""});
            QCOMPARE(db.escalar("SELECT Quitado FROM ContasPagar WHERE Codigo = ?", {p1}).toInt(), -1);
            QCOMPARE(db.escalar("SELECT DataPagamento FROM ContasPagar WHERE Codigo = ?", {p1}).toString(), QString(""));
            QCOMPARE(db.escalar("SELECT TipoPagamento FROM ContasPagar WHERE Codigo = ?", {p1}).toString(),
                     QString("DINHEIRO"));
            QCOMPARE(db.escalar("SELECT Quitado FROM ContasPagar WHERE Codigo = ?", {p11}).toInt(), 0);
        } else if (acao == "new date") {
            Contas::novaData(db, escolhida(db, Modo::Receber, k5), QDate(2025, 3, 15));
            QCOMPARE(db.escalar(linha.arg("DataVencimento"), {k5}).toString(), QString("2025/03/15"));
            QCOMPARE(db.escalar(linha.arg("Quitado"), {k5}).toInt(), 0);
            QCOMPARE(db.escalar(linha.arg("DataVencimento"), {k15}).toString(), QString("2025/02/10"));
        } else {
            Contas::excluir(db, escolhida(db, Modo::Pagar, p1));
            QCOMPARE(contar(db, "ContasPagar", "Codigo = ?", {p1}), 0);
            QCOMPARE(contar(db, "ContasPagar", "Codigo = ?", {p11}), 1);
            Contas::excluir(db, escolhida(db, Modo::Receber, k15));
            QCOMPARE(contar(db, "ContasReceber"), 1);
            QCOMPARE(contar(db, "ContasReceber", "Chave = ?", {k5}), 1);
        }
    }

    // Without the change right nothing is written; a row another station changed or
    // deleted since it was read is refused, its change kept.
    void recusas_data() { linhasMotores(); }
    void recusas()
    {
        BANCO_DO_MOTOR(b);
        Banco& db = b.banco();
        const qint64 k = inserir(db, Receber{"5", "12", "ANA", "2025/01/10", "2025/02/10"});
        const qint64 p1 = inserir(db, Pagar{"ELETROSUL", "1", "2025/02/10"});
        const auto e = escolhida(db, Modo::Receber, k);
        const auto ep = escolhida(db, Modo::Pagar, p1);

        sessaoComDireito(0);
        QCOMPARE(recusa([&] { Contas::pagar(db, e, {"10,00", {}, "", ""}); }), QString("Negado"));
        QCOMPARE(recusa([&] { Contas::novaData(db, e, QDate(2025, 5, 5)); }), QString("Negado"));
        QCOMPARE(recusa([&] { Contas::excluir(db, ep); }), QString("Negado"));
        Contas::NovaConta c{Modo::Pagar, "", "ELETROSUL", "", "", "", "28", "900", "3", "", {}};
        QCOMPARE(recusa([&] { Contas::gravar(db, c, QDate(2025, 1, 10)); }), QString("Negado"));
        QCOMPARE(contar(db, "ContasPagar"), 1);
        QCOMPARE(contar(db, "ContasReceber", "Quitado = 0 AND DataVencimento = '2025/02/10'"), 1);

        sessaoComDireito(1);
        QCOMPARE(recusa([&] { Contas::pagar(db, e, {"12a,00", {}, "", ""}); }), Contas::MsgValorInvalido);
        QVERIFY(outraEstacao(b, QStringLiteral("UPDATE ContasReceber SET DataVencimento = '2025/02/20' WHERE Chave = %1")
                                    .arg(k))
                    .isEmpty());
        QCOMPARE(recusa([&] { Contas::pagar(db, e, {"10,00", {}, "", ""}); }), Contas::MsgAlterada);
        QCOMPARE(recusa([&] { Contas::novaData(db, e, QDate(2025, 5, 5)); }), Contas::MsgAlterada);
        QCOMPARE(recusa([&] { Contas::excluir(db, e); }), Contas::MsgAlterada);
        QCOMPARE(db.escalar("SELECT DataVencimento FROM ContasReceber WHERE Chave = ?", {k}).toString(),
                 QString("2025/02/20"));
        QCOMPARE(db.escalar("SELECT Quitado FROM ContasReceber WHERE Chave = ?", {k}).toInt(), 0);
        QVERIFY(outraEstacao(b, QStringLiteral("DELETE FROM ContasPagar WHERE Codigo = %1").arg(p1)).isEmpty());
        QCOMPARE(recusa([&] { Contas::pagar(db, ep, {"10,00", {}, "", ""}); }), Contas::MsgSumiu);
        QCOMPARE(recusa([&] { Contas::excluir(db, {Modo::Pagar, {}}); }), QString("Escolha um registro"));
    }

    // A cheque is not deleted here: the error comes and the cheque stays as it was.
    void chequeNaoSaiDaqui_data() { linhasMotores(); }
    void chequeNaoSaiDaqui()
    {
        BANCO_DO_MOTOR(b);
        const qint64 k = inserir(b.banco(), Cheque{"MARIA", "2025/03/01", "2025/02/01"});
        QCOMPARE(recusa([&] { Contas::excluir(b.banco(), escolhida(b.banco(), Modo::Cheques, k)); }),
                 Contas::MsgChequeNaoExclui);
        QCOMPARE(contar(b.banco(), "CadastroCheque", "Chave = ? AND Excluidos = 0", {k}), 1);
        Contas::pagar(b.banco(), escolhida(b.banco(), Modo::Cheques, k), {"100,00", QDate(2025, 2, 2), "CHEQUE", ""});
        QCOMPARE(b->escalar("SELECT Quitado FROM CadastroCheque WHERE Chave = ?", {k}).toInt(), -1);
    }

    // A bill typed by hand: the total split in whole cents that add up, due dates chained by
    // the days from today, the entry kept apart.
    void novaConta_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("modo");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QString>("parcelas");
        QTest::addColumn<QString>("documento");
        QTest::addColumn<QList<qint64>>("valores");
        QTest::addColumn<QStringList>("vencimentos");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::newRow(qPrintable(e + " receivable 1.200,50 in 3"))
                << m << int(Modo::Receber) << "1.200,50" << "3" << "77" << QList<qint64>{40016, 40016, 40018}
                << QStringList{"2025/02/07", "2025/03/07", "2025/04/04"};
            QTest::newRow(qPrintable(e + " payable 1.200,50 in 3"))
                << m << int(Modo::Pagar) << "1.200,50" << "3" << "NF 9" << QList<qint64>{40016, 40016, 40018}
                << QStringList{"2025/02/07", "2025/03/07", "2025/04/04"};
            QTest::newRow(qPrintable(e + " payable 900 in 3 without document"))
                << m << int(Modo::Pagar) << "900" << "3" << "" << QList<qint64>{30000, 30000, 30000}
                << QStringList{"2025/02/07", "2025/03/07", "2025/04/04"};
            QTest::newRow(qPrintable(e + " one cent in 2"))
                << m << int(Modo::Pagar) << "0,01" << "2" << "" << QList<qint64>{0, 1}
                << QStringList{"2025/02/07", "2025/03/07"};
        }
    }
    void novaConta()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(int, modo);
        QFETCH(QString, total);
        QFETCH(QString, parcelas);
        QFETCH(QString, documento);
        QFETCH(QList<qint64>, valores);
        QFETCH(QStringList, vencimentos);
        Contas::NovaConta c{Modo(modo), "3", "ELETROSUL", documento, "PEÇAS", "Boleto", "28", total, parcelas, "150,00",
                            QDate(2025, 1, 9)};
        const QList<qint64> chaves = Contas::gravar(b.banco(), c, QDate(2025, 1, 10));
        QCOMPARE(chaves.size(), valores.size());
        const bool pagar = Modo(modo) == Modo::Pagar;
        for (int i = 0; i < chaves.size(); ++i) {
            const QSqlRecord r = Contas::ler(b.banco(), Modo(modo), chaves[i]);
            QCOMPARE(r.value("ValorParcela").toLongLong(), valores[i]);
            QCOMPARE(r.value("ValorTotal").toLongLong(), Dinheiro::lerTexto(total)->centavos());
            QCOMPARE(r.value("DataVencimento").toString(), vencimentos[i]);
            QCOMPARE(r.value("DataCompra").toString(), QString("2025/01/09"));
            QCOMPARE(r.value("NumeroParcela").toString(), QStringLiteral("%1 de %2").arg(i + 1).arg(chaves.size()));
            QCOMPARE(r.value("Quitado").toInt(), 0);
            QCOMPARE(r.value("Funcionario").toString(), QString("PEDRO"));
            QCOMPARE(r.value(pagar ? "CodDoc" : "CodVenda").toString(), documento);
            if (pagar) {
                QCOMPARE(r.value("ValorEntrada").toLongLong(), 15000);
                QCOMPARE(r.value("CodCod").toString(), QString(""));
                QCOMPARE(r.value("TipoConta").toString(), QString("Boleto"));
                QCOMPARE(r.value("QtDias").toInt(), 28);
            } else {
                QCOMPARE(r.value("TipoVenda").toString(), QString("Não informado"));
                QCOMPARE(r.value("CodCliente").toString(), QString("3"));
            }
        }
    }

    // Each check stops the save with its message and writes nothing.
    void novaContaChecagens_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QString>("parcelas");
        QTest::addColumn<QString>("dias");
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("no supplier") << " " << "900" << "3" << "28" << "" << "Selecione o fornecedor";
        QTest::newRow("no total") << "X" << "" << "3" << "28" << "" << "Coloque o valor total";
        QTest::newRow("zero total") << "X" << "0,00" << "3" << "28" << "" << "Coloque o valor total";
        QTest::newRow("letters in total") << "X" << "9OO" << "3" << "28" << "" << Contas::MsgValorInvalido;
        QTest::newRow("no instalments") << "X" << "900" << "" << "28" << "" << "Coloque o numero de parcelas";
        QTest::newRow("no days") << "X" << "900" << "3" << ""
                                 << "" << "Coloque o numero de dias,para o calcular as datas de vencimento das parcelas";
        QTest::newRow("zero instalments") << "X" << "900" << "0" << "28" << "" << "O número de parcelas deve ser de 1 a 360.";
        QTest::newRow("instalments with comma") << "X" << "900" << "3,5" << "28" << ""
                                                << "O número de parcelas deve ser de 1 a 360.";
        QTest::newRow("huge instalments") << "X" << "900" << "99999999999999999999" << "28" << ""
                                          << "O número de parcelas deve ser de 1 a 360.";
        QTest::newRow("zero days") << "X" << "900" << "3" << "0" << "" << "O número de dias deve ser de 1 a 3650.";
        QTest::newRow("letters in entry") << "X" << "900" << "3" << "28" << "1O,00" << Contas::MsgValorInvalido;
    }
    void novaContaChecagens()
    {
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        QFETCH(QString, nome);
        QFETCH(QString, total);
        QFETCH(QString, parcelas);
        QFETCH(QString, dias);
        QFETCH(QString, entrada);
        QFETCH(QString, mensagem);
        Contas::NovaConta c{Modo::Pagar, "", nome, "", "", "", dias, total, parcelas, entrada, {}};
        QCOMPARE(recusa([&] { Contas::gravar(b.banco(), c, QDate(2025, 1, 10)); }), mensagem);
        QCOMPARE(contar(b.banco(), "ContasPagar"), 0);
    }

    // A store from before the document column was kept gets it when opened, and a bill
    // with no document number then saves.
    void lojaAntigaGanhaColuna_data() { linhasMotores(); }
    void lojaAntigaGanhaColuna()
    {
        BANCO_DO_MOTOR(b);
        b->executar("ALTER TABLE ContasPagar DROP COLUMN CodCod");
        QVERIFY(b->garantirEsquema() >= 1);
        Contas::NovaConta c{Modo::Pagar, "", "ELETROSUL", "", "", "", "28", "900", "3", "", {}};
        QCOMPARE(Contas::gravar(b.banco(), c, QDate(2025, 1, 10)).size(), 3);
        QCOMPARE(contar(b.banco(), "ContasPagar", "ValorParcela = 30000 AND CodCod = ''"), 3);
    }

    // A bill whose third instalment the store refuses leaves no instalment behind.
    void novaContaInteiraOuNada_data() { linhasMotores(); }
    void novaContaInteiraOuNada()
    {
        BANCO_DO_MOTOR(b);
        if (b->motor() == Motor::SQLite) {
            b->executar("CREATE TRIGGER falha BEFORE INSERT ON ContasPagar WHEN NEW.NumeroParcela = '3 de 3' "
                        "BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        } else {
            b->executar("CREATE FUNCTION falha() RETURNS trigger AS $$ BEGIN IF NEW.NumeroParcela = '3 de 3' THEN "
                        "RAISE EXCEPTION 'disco cheio'; END IF; RETURN NEW; END $$ LANGUAGE plpgsql");
            b->executar("CREATE TRIGGER falha BEFORE INSERT ON ContasPagar FOR EACH ROW EXECUTE FUNCTION falha()");
        }
        inserir(b.banco(), Pagar{"ANTES", "1", "2025/02/10"});
        Contas::NovaConta c{Modo::Pagar, "", "ELETROSUL", "", "", "", "28", "900", "3", "", {}};
        QVERIFY_THROWS_EXCEPTION(ErroBanco, Contas::gravar(b.banco(), c, QDate(2025, 1, 10)));
        QCOMPARE(contar(b.banco(), "ContasPagar"), 1);
        QCOMPARE(contar(b.banco(), "ContasPagar", "Fornecedor = 'ANTES'"), 1);
    }

    // The detail list and the receipt read the row by its column names.
    void detalheERecibo()
    {
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        Receber r{"5", "12", "ANA", "2025/01/10", "2025/02/10", false, 40016, "1 de 3"};
        const qint64 k = inserir(b.banco(), r);
        QStringList l = Contas::detalhe(Modo::Receber, Contas::ler(b.banco(), Modo::Receber, k));
        QCOMPARE(l, (QStringList{" Cli/Tit: ANA", "Data compra: 10/01/2025", "Data vencimento: 10/02/2025",
                                 "Descrição,nº Venda/O.S: 12", "Valor total: 1.200,48",
                                 "Tipo pagamento: CHEQUE-PRÉ 30/60/90", "Origem:: Conserto", "Parcela: 1 de 3",
                                 "Valor parcela: 400,16"}));
        Contas::pagar(b.banco(), escolhida(b.banco(), Modo::Receber, k), {"400,16", QDate(2025, 2, 9), "DINHEIRO", "ok"});
        const QSqlRecord pago = Contas::ler(b.banco(), Modo::Receber, k);
        l = Contas::detalhe(Modo::Receber, pago);
        QCOMPARE(l.mid(9), (QStringList{"-----------------------Dados do recibo----------------------",
                                        "Data pagamento: 09/02/2025", "Forma pagamento: CHEQUE-PRÉ 30/60/90",
                                        "Tipo recebimento: DINHEIRO", "Valor pago: 400,16", "Observação: ok"}));
        const FichaRecebimento f = Contas::recibo(Modo::Receber, pago);
        QCOMPARE(f.valorParcela, QString("400,16"));
        QCOMPARE(f.descricao, QString("12"));
        QCOMPARE(f.cliente, QString("ANA"));
        QCOMPARE(f.dataPagamento, QDate(2025, 2, 9));
        QCOMPARE(f.valorPago, QString("400,16"));
        QCOMPARE(f.tipoRecebido, QString("DINHEIRO"));

        const qint64 c = inserir(b.banco(), Cheque{"MARIA", "2025/03/01", "2025/02/01"});
        l = Contas::detalhe(Modo::Cheques, Contas::ler(b.banco(), Modo::Cheques, c));
        QCOMPARE(l.at(0), QString(" Cli/Tit: MARIA"));
        QCOMPARE(l.at(4), QString("Nº Cheque: 000123"));
    }
};

QTEST_MAIN(TstContas)
#include "tst_contas.moc"
