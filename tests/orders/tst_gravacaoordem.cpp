#include <QTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "orders/GravacaoOrdem.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioOrdens;

namespace {

Ordem completa(const QString& nome)
{
    Ordem o = ordem(nome);
    o.CodFabrica = QStringLiteral("F-9");
    o.CpfCnpj = QStringLiteral("11144477735");
    o.Endereco = QStringLiteral("RUA SÃO JOÃO, 10");
    o.TipoPorcentagem = true;
    o.ValorPorcentagem = Dinheiro::deCentavos(1050);
    o.Observacao = QStringLiteral("linha 1\nlinha 2 com 'aspas'");
    o.DataEntrada = QStringLiteral("2026/01/31");
    o.HoraSolicitada = QStringLiteral("09:30");
    o.MaoObra = Dinheiro::deCentavos(123456);
    o.ValorPagar = Dinheiro::deCentavos(-1);
    o.Pendurado = 1;
    o.Orcamento = o.Recusado = o.ChamadoTecnico = o.DtEntrega = true;
    o.sintomas = {{QStringLiteral("3"), QStringLiteral("NÃO LIGA")}, {QStringLiteral("1"), QStringLiteral("RUÍDO")}};
    o.servicos = {{QStringLiteral("7"), QStringLiteral("TROCA"), Dinheiro::deCentavos(1), Dinheiro::deCentavos(3333),
                   Dinheiro::deCentavos(3000)}};
    o.pecas = {peca(QStringLiteral("A1"), QStringLiteral("1,5")), peca(QString(), QStringLiteral("2"))};
    return o;
}

QStringList textosSintomas(const Ordem& o)
{
    QStringList r;
    for (const SintomaOrdem& s : o.sintomas)
        r << s.CodDef + QLatin1Char(':') + s.DefeitoOS;
    return r;
}

GravacaoOrdem::Filhas todas() { return {true, true, true}; }

} // namespace

class TesteGravacaoOrdem : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoCompleta(); }

    void idaEVolta_data() { linhasMotores(); }
    void idaEVolta()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = completa(QStringLiteral("JOSÉ D'ÁVILA"));
        GravacaoOrdem::gravar(b.banco(), o, todas(), std::nullopt);
        QVERIFY(!o.nova());
        QCOMPARE(o.CodOs, qint64(1));
        const auto lida = GravacaoOrdem::carregar(b.banco(), o.CodOsAut);
        QVERIFY(lida);
        for (const QString& c : ColunasOrdem::nomes())
            QVERIFY2(ColunasOrdem::valor(*lida, c) == ColunasOrdem::valor(o, c), qPrintable(c));
        QCOMPARE(textosSintomas(*lida), textosSintomas(o));
        QCOMPARE(lida->servicos.size(), 1);
        QCOMPARE(lida->servicos.at(0).ValorObra, Dinheiro::deCentavos(3333));
        QCOMPARE(lida->pecas.size(), 2);
        QCOMPARE(lida->pecas.at(0).Quantidade.texto(), QString("1,5"));
        QCOMPARE(lida->pecas.at(1).codpeca, QString("0000"));  // a part without a code
        QCOMPARE(b->escalar(QStringLiteral("SELECT NomeOS FROM SintomaOS WHERE CodDef = '3'")).toString(),
                 QString("JOSÉ D'ÁVILA"));
    }

    void filhasPelaChave_data() { linhasMotores(); }
    void filhasPelaChave()
    {
        BANCO_DO_MOTOR(b);
        // Order 1 of "2ABC" and order 12 of "ABC" join into the same text "12ABC".
        Ordem um = completa(QStringLiteral("2ABC"));
        GravacaoOrdem::gravar(b.banco(), um, todas(), std::nullopt);
        Ordem doze = ordem(QStringLiteral("ABC"));
        doze.sintomas = {{QStringLiteral("9"), QStringLiteral("QUEBRADO")}};
        doze.pecas = {peca(QStringLiteral("Z9"), QStringLiteral("1"))};
        GravacaoOrdem::gravar(b.banco(), doze, todas(), std::nullopt);
        doze.CodOs = 12;
        GravacaoOrdem::gravar(b.banco(), doze, todas(), std::nullopt);
        QCOMPARE(um.CodOs, qint64(1));

        auto lidoUm = GravacaoOrdem::carregar(b.banco(), um.CodOsAut);
        auto lidoDoze = GravacaoOrdem::carregar(b.banco(), doze.CodOsAut);
        QCOMPARE(textosSintomas(*lidoUm), textosSintomas(um));
        QCOMPARE(textosSintomas(*lidoDoze), QStringList{"9:QUEBRADO"});
        QCOMPARE(lidoUm->pecas.size(), 2);
        QCOMPARE(lidoDoze->pecas.size(), 1);

        // Renaming the customer keeps the children with their order.
        lidoUm->NomeCliente = QStringLiteral("2ABC LTDA");
        GravacaoOrdem::gravar(b.banco(), *lidoUm, {}, TelaOrdem::Entrada);
        lidoUm = GravacaoOrdem::carregar(b.banco(), um.CodOsAut);
        QCOMPARE(textosSintomas(*lidoUm), textosSintomas(um));
        QCOMPARE(lidoUm->pecas.size(), 2);
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM PecasAplicadas WHERE NomeCliente = '2ABC LTDA'")).toInt(), 2);

        // Deleting order 12 for good takes only its own rows.
        sessao().DireitoPermanente = 1;
        TransicoesOrdem::excluir(b.banco(), doze.CodOsAut, TelaOrdem::Entrada);
        QVERIFY(!GravacaoOrdem::carregar(b.banco(), doze.CodOsAut));
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM PecasAplicadas")).toInt(), 2);
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM SintomaOS")).toInt(), 2);
    }

    void reabrirPelasDuasColunas_data() { linhasMotores(); }
    void reabrirPelasDuasColunas()
    {
        BANCO_DO_MOTOR(b);
        // Order 1 with key 23 and order 12 with key 3 both join into "123".
        const DefTabela& t = *Esquema::tabela(QStringLiteral("OrdemServico"));
        b->inserir(t, {"CodOsAut", "CodOs", "NomeCliente"}, {23, 1, QStringLiteral("UM")});
        b->inserir(t, {"CodOsAut", "CodOs", "NomeCliente", "Excluidos"}, {3, 12, QStringLiteral("DOZE"), -1});
        QCOMPARE(GravacaoOrdem::reabrir(b.banco(), "1", "23")->NomeCliente, QString("UM"));
        QCOMPARE(GravacaoOrdem::reabrir(b.banco(), "12", "3")->NomeCliente, QString("DOZE"));
        QVERIFY(!GravacaoOrdem::reabrir(b.banco(), "12", "3", true));  // intake leaves the bin alone
        QVERIFY(!GravacaoOrdem::reabrir(b.banco(), "1", "3"));
        QVERIFY(!GravacaoOrdem::reabrir(b.banco(), "12", "23"));
        QVERIFY(!GravacaoOrdem::reabrir(b.banco(), "1%", "23"));
        QVERIFY(!GravacaoOrdem::reabrir(b.banco(), "", "23"));
    }

    void falhaDeixaOrdemComoEstava_data() { linhasMotores(); }
    void falhaDeixaOrdemComoEstava()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = ordem(QStringLiteral("MARIA"));
        o.Observacao = QStringLiteral("antes");
        o.sintomas = {{QStringLiteral("1"), QStringLiteral("NAO LIGA")}};
        GravacaoOrdem::gravar(b.banco(), o, todas(), std::nullopt);

        Ordem mudada = o;
        mudada.Observacao = QStringLiteral("depois");
        mudada.MaoObra = Dinheiro::deCentavos(999);
        mudada.sintomas = {{QStringLiteral("2"), QStringLiteral("SEM SOM")}};
        mudada.pecas = {peca(QStringLiteral("P1"), QStringLiteral("1"))};
        // The services' table can't take rows: the save fails after the order row, the
        // defects and the parts were written.
        mudada.servicos = {{QStringLiteral("1"), QStringLiteral("TROCA"), {}, {}, {}}};
        b->executar(QStringLiteral("ALTER TABLE ServicoOS RENAME COLUMN Servico TO ServicoAntigo"));
        QVERIFY_THROWS_EXCEPTION(ErroBanco, GravacaoOrdem::gravar(b.banco(), mudada, todas(), std::nullopt));
        QVERIFY(mudada.pecas.at(0).CodPecAut == 0);  // the caller's copy is as it was

        const auto lida = GravacaoOrdem::carregar(b.banco(), o.CodOsAut);
        QCOMPARE(lida->Observacao, QString("antes"));
        QCOMPARE(lida->MaoObra, Dinheiro());
        QCOMPARE(textosSintomas(*lida), QStringList{"1:NAO LIGA"});
        QVERIFY(lida->pecas.isEmpty());
    }

    void outraEstacaoNaoPerde_data() { linhasMotores(); }
    void outraEstacaoNaoPerde()
    {
        BANCO_DO_MOTOR(b);
        Ordem o = ordem(QStringLiteral("CARLOS"));
        GravacaoOrdem::gravar(b.banco(), o, {}, std::nullopt);
        // The panel of another station records the promised day meanwhile.
        auto outra = b.outraConexao();
        LinhaPainel listada;
        listada.CodOsAut = o.CodOsAut;
        TransicoesOrdem::salvarNoPainel(*outra, listada, Lista::NaFila, std::nullopt, std::nullopt, QDate(2026, 5, 4));
        o.Observacao = QStringLiteral("trocar tela");
        GravacaoOrdem::gravar(b.banco(), o, {}, TelaOrdem::Entrada);
        const auto lida = GravacaoOrdem::carregar(b.banco(), o.CodOsAut);
        QCOMPARE(lida->Observacao, QString("trocar tela"));
        QCOMPARE(lida->DataEntrega, QString("2026/05/04"));
    }
};

QTEST_GUILESS_MAIN(TesteGravacaoOrdem)
#include "tst_gravacaoordem.moc"
