#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "ApoioCaixa.h"
#include "apoio/GradeTeste.h"
#include "apoio/LeitorXlsx.h"
#include "cash/BuscaVenda.h"
#include "cash/GraficoMovimento.h"
#include "cash/Movimento.h"
#include "cash/RelatorioMovimento.h"
#include "data/Datas.h"
#include "registers/EntregaTelas.h"
#include "documents/ApoioDocumentos.h"
#include "documents/Visualizador.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

using namespace ApoioCaixa;
using namespace MovimentoCaixa;
using namespace Qt::Literals::StringLiterals;

namespace {

// A screen that asks the sale picker for a sale: its two boxes receive the choice.
class TelaComVenda : public QWidget {
public:
    TelaComVenda()
    {
        setObjectName("TelaComVenda");
        (new QLineEdit(this))->setObjectName("Text3");
        (new QLineEdit(this))->setObjectName("Text4");
    }
};

// The order of the example: part 2 × 10,00 at cost 6,00, labour 50,00 with 10 % to the
// technician, posted at the till today with 5,00 off. Total 70,00, paid 65,00.
void vendaDoExemplo(Banco& b, qint64 codOs = 57, const QString& nome = QStringLiteral("ANA"))
{
    OrdemTeste o;
    o.codOs = codOs;
    o.nome = nome;
    o.maoObra = 5000;
    o.venda = 2000;
    o.custo = 1200;
    const qint64 chave = inserirOrdem(b, o);
    b.executar("UPDATE OrdemServico SET TipoPorcentagem = -1 WHERE CodOsAut = ?", {chave});
    if (!b.escalar("SELECT CodPecAut FROM Produto WHERE codpeca = 'P1'").isValid())
        inserirProduto(b, "P1", 10000);
    inserirPeca(b, chave, codOs, o.nome, {"P1", 2000, 1000, 0, 600, false, {}});
    PagamentoCaixa p = pagamento(chave, o);
    dinheiro(p, 6500, 500);
    RegistroPagamento::gravar(b, p);
}

// A row put straight into one of the two tables, for dates and values no till would give.
qint64 linha(Banco& b, const char* tabela, const QVariantMap& valores)
{
    QStringList colunas;
    QVariantList v;
    for (auto i = valores.cbegin(); i != valores.cend(); ++i) {
        colunas << i.key();
        v << i.value();
    }
    return b.inserir(*Esquema::tabela(QLatin1String(tabela)), colunas, v);
}

const QDate Hoje = QDate::currentDate();

} // namespace

class TstMovimento : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QStringList abertos;

    bool preparar(int motor)
    {
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            return false;
        sessaoDoCaixa();
        sessao().DireitoMovimento = 1;
        abertos.clear();
        Visualizador::definir([this](const QString& a) { abertos << a; return true; });
        return true;
    }
    Movimento* abre() { return qobject_cast<Movimento*>(RegistroTelas::abrir("Movimento")); }
    static QPushButton* botao(QWidget* t, int i) { return t->findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }
    static QTableView* grade(QWidget* t) { return t->findChild<QTableView*>("LMov"); }
    static QString total(QWidget* t, int i) { return t->findChild<QLabel*>(QStringLiteral("EtValor(%1)").arg(i))->text(); }
    static QStringList totais(QWidget* t)
    {
        QStringList r;
        for (int i = 0; i < 12; ++i)
            r << total(t, i);
        return r;
    }
    static void periodo(QWidget* t, const QDate& de, const QDate& ate)
    {
        t->findChild<QDateEdit*>("DtDe")->setDate(de);
        t->findChild<QDateEdit*>("DtAte")->setDate(ate);
    }
    static QStringList coluna(QWidget* t, int c)
    {
        QStringList r;
        for (int i = 0; i < GradeTeste::linhas(grade(t)); ++i)
            r << GradeTeste::celula(grade(t), i, c);
        return r;
    }
    static void opcao(QWidget* t, int i) { t->findChild<QRadioButton*>(QStringLiteral("Option2(%1)").arg(i))->click(); }

private slots:
    void initTestCase() { RegistroTelas::registrar("TelaComVenda", [] { return new TelaComVenda; }); }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Visualizador::definir({});
        b.reset();
    }

    void vendaNasDuasVisoes_data() { linhasMotores(); }
    void vendaNasDuasVisoes()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        vendaDoExemplo(b->banco());
        Movimento* t = abre();
        botao(t, 0)->click();
        // The part line, then the labour line.
        QCOMPARE(coluna(t, Quantidade_), (QStringList{"2", "1"}));
        QCOMPARE(coluna(t, ValVendido), (QStringList{"20,00", "0,00"}));
        QCOMPARE(coluna(t, LucroProduto), (QStringList{"8,00", "0,00"}));
        QCOMPARE(coluna(t, ValTecnico), (QStringList{"0,00", "5,00"}));
        QCOMPARE(coluna(t, LucroMaoObra), (QStringList{"0,00", "45,00"}));
        QCOMPARE(coluna(t, TipoPorc), (QStringList{"$", "%"}));
        QCOMPARE(coluna(t, Data), (QStringList{Hoje.toString("dd/MM/yyyy"), Hoje.toString("dd/MM/yyyy")}));
        QCOMPARE(totais(t), (QStringList{"3", "12,00", "20,00", "0,00", "20,00", "8,00", "50,00", "5,00", "45,00",
                                         "0,00", "53,00", "0,00"}));
        QVERIFY(!RegistroTelas::aberta("FluxoCaixa"));

        opcao(t, 1);
        QCOMPARE(t->findChild<QComboBox*>("Combo1")->currentText(), QString("Simples"));
        QVERIFY(!t->findChild<QComboBox*>("Combo1")->isEnabled());
        botao(t, 0)->click();
        QCOMPARE(GradeTeste::linhas(grade(t)), 1);
        QCOMPARE(GradeTeste::celula(grade(t), 0, Descricao), QString("ANA"));
        QCOMPARE(totais(t), (QStringList{"1", "12,00", "20,00", "0,00", "20,00", "8,00", "50,00", "5,00", "45,00",
                                         "0,00", "48,00", "5,00"}));
        QWidget* fluxo = RegistroTelas::aberta("FluxoCaixa");
        QVERIFY(fluxo);
        auto caixa = [fluxo](int i) { return fluxo->findChild<QLineEdit*>(QStringLiteral("TxtValor(%1)").arg(i))->text(); };
        QTRY_COMPARE(caixa(0), QString("70,00"));
        QCOMPARE(caixa(1), QString("65,00"));
        QCOMPARE(caixa(2), QString("5,00"));
        QCOMPARE(caixa(3), QString("65,00"));
        QCOMPARE(caixa(4), QString("0,00"));

        opcao(t, 2);
        botao(t, 0)->click();
        QWidget* simples = RegistroTelas::aberta("MovimentoSimples");
        QVERIFY(simples);
        QTableView* lista = simples->findChild<QTableView*>("LMov");
        QCOMPARE(GradeTeste::colunas(lista), 18);
        QCOMPARE(GradeTeste::titulo(lista, 5), QString("Val/Total"));
        QCOMPARE(GradeTeste::celula(lista, 0, 5), QString("70,00"));
        QCOMPARE(GradeTeste::celula(lista, 0, 17), QString("ANA"));
    }

    // Rows the till never writes, read through the library on both engines: each row's
    // expected values worked by hand.
    void valoresDeCadaLinha_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("resumo");
        QTest::addColumn<QVariantMap>("valores");
        QTest::addColumn<QStringList>("esperado");  // Val/Vendido, Val/Vendedor, Lucro Produto, Val/Técnico, Lucro M.O
        for (auto [m, nome] : {std::pair{Motor::SQLite, "sqlite"}, std::pair{Motor::PostgreSQL, "postgres"}}) {
            auto linhaCaso = [&](const char* caso) {
                return &(QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(nome, caso))) << int(m));
            };
            *linhaCaso("summary part net of its discount") << true
                << QVariantMap{{"ValorPeca", 9000}, {"ValorDescontoPeca", 1000}, {"ValorCusto", 6000}}
                << QStringList{"90,00", "0,00", "30,00", "0,00", "0,00"};
            *linhaCaso("line counts its quantity") << false
                << QVariantMap{{"Quantidade", 3000}, {"ValorVenda", 1000}, {"ValorCusto", 600}}
                << QStringList{"30,00", "0,00", "12,00", "0,00", "0,00"};
            *linhaCaso("seller's percent of the profit") << false
                << QVariantMap{{"Quantidade", 3000}, {"ValorVenda", 1000}, {"ValorCusto", 600},
                               {"PorcentagemVendedor", "10"}}
                << QStringList{"30,00", "1,20", "12,00", "0,00", "0,00"};
            *linhaCaso("line discount times quantity") << false
                << QVariantMap{{"Quantidade", 2000}, {"ValorVenda", 1000}, {"PecaDesconto", 150}, {"ValorCusto", 600}}
                << QStringList{"17,00", "0,00", "5,00", "0,00", "0,00"};
            *linhaCaso("fixed commission") << false
                << QVariantMap{{"MaoObra", 5000}, {"ValorPorcentagem", 1500}, {"TipoPorcentagem", 0}}
                << QStringList{"0,00", "0,00", "0,00", "15,00", "35,00"};
            *linhaCaso("empty price, cost, discount and commission") << false
                << QVariantMap{{"Descricao", "SEM VALORES"}, {"PorcentagemVendedor", ""}}
                << QStringList{"0,00", "0,00", "0,00", "0,00", "0,00"};
            *linhaCaso("letters in the seller's percent") << false
                << QVariantMap{{"Quantidade", 1000}, {"ValorVenda", 1000}, {"PorcentagemVendedor", "dez"}}
                << QStringList{"10,00", "0,00", "10,00", "0,00", "0,00"};
        }
    }
    void valoresDeCadaLinha()
    {
        QFETCH(int, motor);
        QFETCH(bool, resumo);
        QFETCH(QVariantMap, valores);
        QFETCH(QStringList, esperado);
        BancoTeste banco(static_cast<Motor>(motor));
        if (!banco.pronto())
            QSKIP(qPrintable(banco.motivo()));
        QVariantMap v = valores;
        v.insert("CodVenda", 9);
        v.insert("Data", "2025/03/05");
        linha(banco.banco(), resumo ? "Movimento" : "VendaDetalhada", v);
        // A row after it: the walk goes on past an empty column.
        QVariantMap depois{{"CodVenda", 10}, {"Data", "2025/03/05"}, {"MaoObra", 100}, {"ValorMaoobra", 100}};
        if (resumo)
            depois.remove("MaoObra");
        else
            depois.remove("ValorMaoobra");
        linha(banco.banco(), resumo ? "Movimento" : "VendaDetalhada", depois);
        const Visao vis = resumo ? Visao::Simples : Visao::Detalhada;
        const Lista l = ler(banco.banco(), visao(vis, Filtro::Tudo, {}, QDate(2025, 3, 5), QDate(2025, 3, 5)));
        QCOMPARE(l.linhas.size(), 2);
        const Linha& x = l.linhas.first();
        QCOMPARE((QStringList{x.celula(ValVendido), x.celula(ValVendedor), x.celula(LucroProduto),
                              x.celula(ValTecnico), x.celula(LucroMaoObra)}),
                 esperado);
        QCOMPARE(l.totais.vendido.texto(), esperado.at(0));
        QCOMPARE(l.totais.lucroProduto.texto(), esperado.at(2));
        QCOMPARE(l.totais.maoObra.centavos(), Dinheiro::lerTexto(x.celula(ValMaoObra))->centavos() + 100);
    }

    void buscas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("caixa");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("botao");
        QTest::addColumn<QStringList>("vendas");
        for (auto [m, nome] : {std::pair{Motor::SQLite, "sqlite"}, std::pair{Motor::PostgreSQL, "postgres"}}) {
            auto caso = [&](const char* c) {
                return &(QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(nome, c))) << int(m));
            };
            *caso("sale number, lines") << 0 << "TxtBusca(0)" << "58" << 4 << QStringList{"58", "58"};
            *caso("sale number, summaries") << 1 << "TxtBusca(0)" << "58" << 4 << QStringList{"58"};
            *caso("customer within the range only") << 1 << "TxtBusca(3)" << "silva" << 11 << QStringList{"58"};
            *caso("name with apostrophe") << 1 << "TxtBusca(3)" << "D'ÁVILA" << 11 << QStringList{"59"};
            *caso("part code") << 0 << "TxtBusca(1)" << "P1" << 5 << QStringList{"57", "58", "59"};
            *caso("description in the middle") << 0 << "TxtBusca(2)" << "OBRA O.S: 59" << 7 << QStringList{"59"};
            *caso("seller of the summaries") << 1 << "CTec" << "ana" << 9 << QStringList{"57", "58", "59"};
            *caso("nothing found") << 0 << "TxtBusca(3)" << "ZÉ NINGUÉM" << 11 << QStringList{};
        }
    }
    void buscas()
    {
        QFETCH(int, motor);
        QFETCH(int, opcao);
        QFETCH(QString, caixa);
        QFETCH(QString, texto);
        QFETCH(int, botao);
        QFETCH(QStringList, vendas);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        vendaDoExemplo(b->banco(), 57, "ANA");
        vendaDoExemplo(b->banco(), 58, "JOAO SILVA");
        vendaDoExemplo(b->banco(), 59, "D'ÁVILA");
        // The same customer last year: outside the range.
        linha(b->banco(), "Movimento", {{"CodVenda", 58}, {"NomeCliente", "JOAO SILVA"}, {"Data", "2024/01/10"}});
        Movimento* t = abre();
        TstMovimento::opcao(t, opcao);
        if (auto* e = t->findChild<QLineEdit*>(caixa))
            e->setText(texto);
        else
            t->findChild<QComboBox*>(caixa)->setCurrentText(texto);
        TstMovimento::botao(t, botao)->click();
        QCOMPARE(coluna(t, CodVenda), vendas);
        if (vendas.isEmpty())
            QCOMPARE(total(t, 4), QString("0,00"));
        QVERIFY(Dialogos::Roteiro::registros().isEmpty());
    }

    void visoesDoSeletor_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("visao");
        QTest::addColumn<QStringList>("vendas");
        for (auto [m, nome] : {std::pair{Motor::SQLite, "sqlite"}, std::pair{Motor::PostgreSQL, "postgres"}}) {
            auto caso = [&](const char* c) {
                return &(QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(nome, c))) << int(m));
            };
            *caso("everything") << "Mostra Tudo" << QStringList{"1", "2", "3"};
            *caso("product sales") << "Venda Produto" << QStringList{"1"};
            *caso("repairs") << "Saída Conserto" << QStringList{"2"};
            *caso("technician typed in part") << "Técnico" << QStringList{"3"};
            *caso("summaries") << "Simples" << QStringList{"7"};
        }
    }
    void visoesDoSeletor()
    {
        QFETCH(int, motor);
        QFETCH(QString, visao);
        QFETCH(QStringList, vendas);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const QString hoje = Datas::hoje();
        linha(b->banco(), "VendaDetalhada", {{"CodVenda", 1}, {"Data", hoje}, {"TipoVenda", "Venda Produto"}, {"Tecnico", "BRUNO"}});
        linha(b->banco(), "VendaDetalhada", {{"CodVenda", 2}, {"Data", hoje}, {"TipoVenda", "Conserto"}, {"Tecnico", "BRUNO"}});
        linha(b->banco(), "VendaDetalhada", {{"CodVenda", 3}, {"Data", hoje}, {"TipoVenda", "Visita"}, {"Tecnico", "CARLOS"}});
        linha(b->banco(), "Movimento", {{"CodVenda", 7}, {"Data", hoje}, {"TipoVenda", "Conserto"}});
        Movimento* t = abre();
        t->findChild<QComboBox*>("Combo1")->setCurrentText(visao);
        t->findChild<QComboBox*>("CTec")->setCurrentText("carl");
        botao(t, 0)->click();
        QCOMPARE(coluna(t, CodVenda), vendas);
    }

    void buscaSoDasLinhasNoResumo()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        vendaDoExemplo(b->banco());
        Movimento* t = abre();
        opcao(t, 1);
        t->findChild<QLineEdit*>("TxtBusca(1)")->setText("P1");
        botao(t, 5)->click();
        QVERIFY(Dialogos::Roteiro::contem("só existe na lista detalhada"));
    }

    void datasInvertidas()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        vendaDoExemplo(b->banco());
        Movimento* t = abre();
        periodo(t, Hoje, Hoje.addDays(-1));
        botao(t, 0)->click();
        QCOMPARE(GradeTeste::linhas(grade(t)), 0);
        QCOMPARE(totais(t).mid(1), QStringList(11, "0,00"));
    }

    void excluiOQueEstaNaGrade_data() { linhasMotores(); }
    void excluiOQueEstaNaGrade()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        vendaDoExemplo(b->banco(), 57, "ANA");
        vendaDoExemplo(b->banco(), 58, "JOAO SILVA");
        linha(b->banco(), "VendaDetalhada", {{"CodVenda", 40}, {"NomeCliente", "ANA"}, {"Data", "2024/06/01"}});
        Movimento* t = abre();
        auto contar = [this](const char* t, const char* onde = "1 = 1") { return ApoioCaixa::contar(b->banco(), t, onde); };

        // A search for the customer: only the rows found go.
        t->findChild<QLineEdit*>("TxtBusca(3)")->setText("SILVA");
        botao(t, 11)->click();
        QCOMPARE(GradeTeste::linhas(grade(t)), 2);
        Dialogos::Roteiro::responderSim();
        botao(t, 2)->click();
        QVERIFY(Dialogos::Roteiro::contem("Serão excluídos todos os itens da grade,deseja excluir ?"));
        QCOMPARE(contar("VendaDetalhada", "CodVenda = 58"), 0);
        QCOMPARE(contar("VendaDetalhada"), 3);

        // Listed today, then the start moved back without listing: the two listed go, 2024 stays.
        botao(t, 0)->click();
        QCOMPARE(GradeTeste::linhas(grade(t)), 2);
        periodo(t, QDate(2024, 1, 1), Hoje);
        Dialogos::Roteiro::responderSim();
        botao(t, 2)->click();
        QCOMPARE(contar("VendaDetalhada"), 1);
        QCOMPARE(contar("VendaDetalhada", "CodVenda = 40"), 1);
        // The list is read again with the pickers as they stand.
        QCOMPARE(coluna(t, CodVenda), QStringList{"40"});

        // "No" and the short list delete nothing.
        Dialogos::Roteiro::responderNao();
        botao(t, 2)->click();
        QCOMPARE(contar("VendaDetalhada"), 1);
        opcao(t, 2);
        botao(t, 0)->click();
        QCOMPARE(GradeTeste::linhas(grade(t)), 2);
        Dialogos::Roteiro::responderSim();
        botao(t, 2)->click();
        QCOMPARE(contar("Movimento"), 2);

        // The summaries go by their own keys.
        opcao(t, 1);
        t->findChild<QLineEdit*>("TxtBusca(0)")->setText("57");
        botao(t, 4)->click();
        Dialogos::Roteiro::responderSim();
        botao(t, 2)->click();
        QCOMPARE(contar("Movimento"), 1);
        QCOMPARE(contar("Movimento", "CodVenda = 58"), 1);
    }

    void excluirPedeODireito()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        RegistroTelas::registrar("Negado", [] { auto* w = new QWidget; w->setObjectName("Negado"); return w; });
        vendaDoExemplo(b->banco());
        Movimento* t = abre();
        botao(t, 0)->click();
        sessao().DireitoMovimento = 0;
        Dialogos::Roteiro::responderSim();
        botao(t, 2)->click();
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(ApoioCaixa::contar(b->banco(), "VendaDetalhada"), 2);
    }

    void exportaLidaCelulaACelula_data() { linhasMotores(); }
    void exportaLidaCelulaACelula()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        vendaDoExemplo(b->banco(), 57, "ANA");
        vendaDoExemplo(b->banco(), 58, "JOAO SILVA");
        Movimento* t = abre();
        botao(t, 0)->click();
        QTemporaryDir pasta;
        const QString arquivo = pasta.filePath("movimento");
        Dialogos::Roteiro::responder(arquivo);
        botao(t, 15)->click();
        const QString salvo = arquivo + ".xlsx";
        QCOMPARE(abertos, QStringList{salvo});
        QVERIFY(Dialogos::Roteiro::registros().first().texto.endsWith(RelatorioMovimento::nomeProposto(Hoje)));
        QCOMPARE(RelatorioMovimento::nomeProposto(QDate(2025, 3, 5)), QString("Movimento detalhado 05-03-2025.xlsx"));
        QCOMPARE(total(t, 0), QString("4"));

        auto c = LeitorXlsx::celulas(salvo);
        QCOMPARE(c.value("A1").valor, QString("Movimento detalhado"));
        QCOMPARE(c.value("A2").valor, QString("Período: %1 a %1").arg(Hoje.toString("dd/MM/yyyy")));
        QCOMPARE(c.value("A3").valor, QString("Visão: Mostra Tudo"));
        QCOMPARE(c.value("A5").valor, QString("Cod/Venda/O.S"));
        QCOMPARE(c.value("J5").valor, QString("Val/Vendido"));
        QCOMPARE(c.value("S5").valor, QString("Val/Técnico"));
        QCOMPARE(c.value("V5").valor, QString("Forma Pagamento"));
        QVERIFY(!c.contains("W5"));
        // The part line of sale 57, then its labour line.
        QCOMPARE(c.value("A6").valor, QString("57"));
        QCOMPARE(c.value("D6").valor, QString("PECA P1"));
        QCOMPARE(c.value("E6").valor, QString("2"));
        QVERIFY(c.value("J6").numero);
        QCOMPARE(c.value("J6").valor, QString("20"));
        QCOMPARE(c.value("M6").valor, QString("8"));
        QCOMPARE(c.value("O7").valor, QString("50"));
        QCOMPARE(c.value("S7").valor, QString("5"));
        QCOMPARE(c.value("V7").valor, QString("DINHEIRO-VISTA"));
        QCOMPARE(c.value("A9").valor, QString("58"));
        QVERIFY(!c.contains("A10"));
        const QString folha = LeitorXlsx::folha(salvo);
        QVERIFY(folha.contains("<pane ySplit=\"5\""));
        QVERIFY(folha.contains("<autoFilter ref=\"A5:V9\""));
        QVERIFY(LeitorXlsx::estilos(salvo).contains("#,##0.00"));
        QVERIFY(LeitorXlsx::livro(salvo).contains("name=\"Gráfico\""));
        const QString barras = QString::fromUtf8(LeitorXlsx::membro(salvo, "xl/charts/chart1.xml"));
        QVERIFY(barras.contains("barChart") && barras.contains("stacked"));
        QVERIFY(barras.contains("Movimento de %1 a %1"_L1.arg(Hoje.toString("dd/MM/yyyy"))));
        QVERIFY(QString::fromUtf8(LeitorXlsx::membro(salvo, "xl/charts/chart2.xml")).contains("'Gráfico'!$D$2"));

        // The same name again over a shorter list: a whole new book of that list only.
        t->findChild<QLineEdit*>("TxtBusca(0)")->setText("58");
        botao(t, 4)->click();
        Dialogos::Roteiro::responder(salvo);
        botao(t, 15)->click();
        c = LeitorXlsx::celulas(salvo);
        QCOMPARE(c.value("A6").valor, QString("58"));
        QCOMPARE(c.value("A7").valor, QString("58"));
        QVERIFY(!c.contains("A8"));
        QVERIFY(!c.contains("A9"));
        QCOMPARE(QDir(pasta.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"movimento.xlsx"});
    }

    void exportaQueNaoTermina()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        vendaDoExemplo(b->banco());
        const Lista l = ler(b->banco(), visao(Visao::Detalhada, Filtro::Tudo, {}, Hoje, Hoje));
        QTemporaryDir pasta;
        const QString arquivo = pasta.filePath("m.xlsx");
        QString erro;
        QCOMPARE(RelatorioMovimento::exportar(l, {Hoje, Hoje, "Mostra Tudo"}, arquivo, {}, &erro),
                 RelatorioMovimento::Resultado::Gravado);
        const QByteArray antes = LeitorXlsx::membro(arquivo, "xl/worksheets/sheet1.xml");
        // Cancelled: the earlier file as it was, nothing beside it.
        QCOMPARE(RelatorioMovimento::exportar(l, {Hoje, Hoje, "Mostra Tudo"}, arquivo, [](qint64, qint64) { return false; }, &erro),
                 RelatorioMovimento::Resultado::Cancelado);
        QCOMPARE(LeitorXlsx::membro(arquivo, "xl/worksheets/sheet1.xml"), antes);
        QCOMPARE(QDir(pasta.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"m.xlsx"});
        // A folder that isn't there.
        QCOMPARE(RelatorioMovimento::exportar(l, {Hoje, Hoje, "Mostra Tudo"}, pasta.filePath("nao/existe.xlsx"), {}, &erro),
                 RelatorioMovimento::Resultado::Falhou);
        QVERIFY(erro.contains("Não foi possível gravar a planilha"));
    }

    void graficoSomaOsTotais_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QDate>("ate");
        QTest::addColumn<int>("colunas");
        QTest::addColumn<int>("opcao");
        for (auto [m, nome] : {std::pair{Motor::SQLite, "sqlite"}, std::pair{Motor::PostgreSQL, "postgres"}}) {
            QTest::newRow(qPrintable(QStringLiteral("%1: a column per day").arg(nome)))
                << int(m) << QDate(2025, 3, 31) << 31 << 0;
            QTest::newRow(qPrintable(QStringLiteral("%1: summaries per day").arg(nome)))
                << int(m) << QDate(2025, 3, 31) << 31 << 1;
            QTest::newRow(qPrintable(QStringLiteral("%1: a column per month past 62 days").arg(nome)))
                << int(m) << QDate(2025, 5, 31) << 3 << 0;
        }
    }
    void graficoSomaOsTotais()
    {
        QFETCH(int, motor);
        QFETCH(QDate, ate);
        QFETCH(int, colunas);
        QFETCH(int, opcao);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        // Three days of March and one of May: parts 2 × 10,00 at 6,00; labour 30,00 fixed 10,00.
        for (const char* dia : {"2025/03/01", "2025/03/01", "2025/03/15", "2025/05/02"}) {
            linha(b->banco(), "VendaDetalhada", {{"CodVenda", 1}, {"Data", dia}, {"Quantidade", 2000},
                                                 {"ValorVenda", 1000}, {"ValorCusto", 600}});
            linha(b->banco(), "VendaDetalhada", {{"CodVenda", 1}, {"Data", dia}, {"MaoObra", 3000},
                                                 {"ValorPorcentagem", 1000}});
            linha(b->banco(), "Movimento", {{"CodVenda", 1}, {"Data", dia}, {"ValorPeca", 2000}, {"ValorCusto", 1200},
                                            {"ValorMaoobra", 3000}, {"ValorPorcTecnico", 1000}, {"ValorDesconto", 100}});
        }
        Movimento* t = abre();
        TstMovimento::opcao(t, opcao);
        periodo(t, QDate(2025, 3, 1), ate);
        botao(t, 0)->click();
        botao(t, 16)->click();
        auto* g = qobject_cast<GraficoMovimento*>(RegistroTelas::aberta("GraficoMovimento"));
        QVERIFY(g);
        QCOMPARE(g->pontos().size(), colunas);
        Dinheiro pecas, maoObra, lucro;
        for (const SerieMovimento::Ponto& p : g->pontos()) {
            pecas += p.pecas;
            maoObra += p.maoObra;
            lucro += p.lucro;
        }
        QCOMPARE(pecas.texto(), total(t, 4));
        QCOMPARE(maoObra.texto(), total(t, 6));
        QCOMPARE(lucro.texto(), total(t, 10));
        if (colunas == 31) {
            // The first of March by hand: two sales of 20,00 in parts and 30,00 in labour.
            QCOMPARE(g->pontos().first().pecas.texto(), QString("40,00"));
            QCOMPARE(g->pontos().first().maoObra.texto(), QString("60,00"));
            QCOMPARE(g->pontos().first().rotulo, QString("01/03"));
            // 2 × (8,00 + 20,00), less 1,00 of discount per sale in the summaries.
            QCOMPARE(g->pontos().first().lucro.texto(), QString(opcao ? "54,00" : "56,00"));
            QCOMPARE(g->pontos().at(1).pecas.texto(), QString("0,00"));
        } else {
            QCOMPARE(g->pontos().first().rotulo, QString("03/2025"));
            QCOMPARE(g->pontos().first().pecas.texto(), QString("60,00"));
        }
    }

    void imprimeEmPdf_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QStringList>("titulos");
        QTest::addColumn<QString>("vendido");
        QTest::newRow("lines") << 0 << QStringList{"Cód/Venda", "Nome/Caixa", "Nome/Téc", "Tipo/Venda"} << "900,00";
        QTest::newRow("summaries") << 1 << QStringList{"Nome Cliente", "CPF/CNPJ", "Val/Pagar", "Funcionário"}
                                   << "0,00";
    }
    void imprimeEmPdf()
    {
        QFETCH(int, opcao);
        QFETCH(QStringList, titulos);
        QFETCH(QString, vendido);
        QVERIFY(preparar(int(Motor::SQLite)));
        // Enough lines for a second page.
        for (int i = 0; i < 90; ++i) {
            linha(b->banco(), "VendaDetalhada", {{"CodVenda", 100 + i}, {"Data", Datas::hoje()}, {"Descricao", "PECA"},
                                                 {"ValorVenda", 1000}});
            linha(b->banco(), "Movimento", {{"CodVenda", 100 + i}, {"Data", Datas::hoje()}, {"NomeCliente", "ANA"},
                                            {"ValorTotal", 1000}, {"ValorPagar", 1000}});
        }
        Movimento* t = abre();
        TstMovimento::opcao(t, opcao);
        botao(t, 0)->click();
        QTemporaryDir pasta;
        const QString pdf = pasta.filePath("movimento.pdf");
        Dialogos::Roteiro::responder(pdf);
        t->imprime(Destino::Tipo::Pdf);
        QCOMPARE(abertos, QStringList{pdf});
        const QString texto = apoio::textoPdf(pdf);
        QVERIFY(apoio::paginasPdf(pdf) >= 2);
        QVERIFY(texto.contains("Página: 1"));
        QVERIFY(texto.contains("Página: 2"));
        for (const QString& titulo : titulos)
            QCOMPARE(texto.count(titulo), apoio::paginasPdf(pdf));
        QVERIFY(texto.contains("Val/Vendido: " + vendido));
    }

    void buscaVendaEntregaAEscolha_data() { linhasMotores(); }
    void buscaVendaEntregaAEscolha()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        linha(b->banco(), "Movimento", {{"CodVenda", 11}, {"Data", "2025/03/01"}, {"Caixa", "ANA"}});
        linha(b->banco(), "Movimento", {{"CodVenda", 12}, {"Data", "2025/03/09"}, {"Caixa", "BIA"}});
        for (int i = 0; i < 250; ++i)
            linha(b->banco(), "Movimento", {{"CodVenda", 1000 + i}, {"Data", "2024/01/01"}});
        QWidget* destino = RegistroTelas::abrir("TelaComVenda");
        destino->findChild<QLineEdit*>("Text3")->setText("velho");
        QWidget* busca = EntregaTelas::abrirCom("BuscaVenda", EntregaTelas::DefineDestino, {{"Destino", "TelaComVenda"}});
        QVERIFY(busca);
        QTableView* lista = busca->findChild<QTableView*>("Lista");
        QCOMPARE(GradeTeste::celula(lista, 0, 0), QString("12"));
        QCOMPARE(GradeTeste::celula(lista, 0, 2), QString("09/03/2025"));
        QCOMPARE(GradeTeste::celula(lista, 0, 3), QString("1"));
        QCOMPARE(GradeTeste::celula(lista, 1, 1), QString("ANA"));
        // The rest comes as the list scrolls, none twice.
        while (lista->model()->canFetchMore({}))
            lista->model()->fetchMore({});
        QCOMPARE(GradeTeste::linhas(lista), 252);
        GradeTeste::escolhe(lista, 1);
        QCOMPARE(destino->findChild<QLineEdit*>("Text3")->text(), QString("11"));
        QCOMPARE(destino->findChild<QLineEdit*>("Text4")->text(), QString("2025/03/01"));
        QTRY_VERIFY(!RegistroTelas::aberta("BuscaVenda"));
    }

    void buscaVendaSemVendas()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        QWidget* busca = RegistroTelas::abrir("BuscaVenda");
        busca->show();
        QVERIFY(Dialogos::Roteiro::contem("Sem itens para escolher!"));
        QCOMPARE(Dialogos::Roteiro::registros().first().titulo, QString("Escolher"));
    }
};

QTEST_MAIN(TstMovimento)
#include "tst_movimento.moc"
