#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include "ApoioPesquisaOs.h"
#include "apoio/GradeTeste.h"
#include "data/Sessao.h"
#include "orders/BuscaRapida.h"
#include "orders/PesquisaOs.h"
#include "shell/Acoes.h"
#include "shell/MenuLateral.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

using namespace ApoioPesquisaOs;

namespace {

struct Pedido {
    QString tela, metodo;
    QVariantMap dados;
};
QList<Pedido> pedidos;
int cliquesNovaVisita = 0;

// Stands for a screen the search hands an order to, and writes down what it was told.
class Destino : public QWidget {
    Q_OBJECT
public:
    explicit Destino(const QString& nome) : m_nome(nome)
    {
        auto* b = new QPushButton(QStringLiteral("Novo"), this);
        b->setObjectName(QStringLiteral("Botao(0)"));
        connect(b, &QPushButton::clicked, this, [] { ++cliquesNovaVisita; });
    }
    Q_INVOKABLE void abreOrdem(const QVariantMap& d) { pedidos << Pedido{m_nome, QStringLiteral("abreOrdem"), d}; }
    Q_INVOKABLE void mostraOrdem(const QVariantMap& d) { pedidos << Pedido{m_nome, QStringLiteral("mostraOrdem"), d}; }
    Q_INVOKABLE void abreVisita(const QVariantMap& d) { pedidos << Pedido{m_nome, QStringLiteral("abreVisita"), d}; }

private:
    QString m_nome;
};

// The boxes as the classic statements compare them: the column, and whether the typed
// text starts with a "%".
const QList<QPair<QString, bool>> CaixasPesquisa = {
    {"CodOs", true},  {"NomeCliente", false}, {"Telefone", true},   {"Tipo", false},
    {"Marca", false}, {"Modelo", false},      {"CodCliente", true}, {"Revendedor", false}};
const QList<QPair<QString, bool>> CaixasRapida = {
    {"CodOs", false}, {"NomeCliente", false}, {"Telefone", true}, {"CpfCnpj", true}};
constexpr int ChavePesquisa = 8;  // CodOsAut, the grid's last column
constexpr int ChaveRapida = 6;

const QList<QPair<const char*, Motor>> Motores = {{"sqlite", Motor::SQLite}, {"postgres", Motor::PostgreSQL}};

QStringList numeros(QTableView* g)
{
    QStringList r = coluna(g, 0);
    std::sort(r.begin(), r.end(), [](const QString& a, const QString& b) { return a.toLongLong() < b.toLongLong(); });
    return r;
}

} // namespace

#define PREPARA(motor)                                                                       \
    b = ambienteDeTela(static_cast<Motor>(motor));                                           \
    if (!b->pronto()) {                                                                      \
        if (qEnvironmentVariableIsSet("CI") || BancoTeste::postgresDisponivel())              \
            QFAIL(qPrintable(b->motivo()));                                                  \
        QSKIP(qPrintable(b->motivo()));                                                      \
    }                                                                                        \
    preencheOrdens(b->banco());                                                              \
    preencheVisitas(b->banco())

class TstPesquisaOs : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;

    PesquisaOs* abrePesquisa(const QString& modo)
    {
        return qobject_cast<PesquisaOs*>(Acoes::abrirTela(QStringLiteral("PesquisaOs"), modo));
    }
    static QTableView* grade(QWidget* t) { return t->findChild<QTableView*>(QStringLiteral("Grade")); }
    static QLineEdit* caixa(QWidget* t, int i) { return t->findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(i)); }
    static void pesquisa(PesquisaOs* t, int opcao, const QString& texto)
    {
        QTest::mouseClick(t->findChild<QRadioButton*>(QStringLiteral("Option1(%1)").arg(opcao)), Qt::LeftButton);
        caixa(t, opcao)->setText(texto);
        QTest::keyClick(caixa(t, opcao), Qt::Key_Return);
    }
    static void buscaRapida(BuscaRapida* t, int i, const QString& texto)
    {
        caixa(t, i)->setText(texto);
        QTest::keyClick(caixa(t, i), Qt::Key_Return);
    }
    // The grid's row holding that name.
    static int linhaDe(QTableView* g, const QString& nome)
    {
        return int(coluna(g, 1).indexOf(nome));
    }
    qint64 chaveDe(const QString& nome)
    {
        return b->banco().escalar("SELECT CodOsAut FROM OrdemServico WHERE NomeCliente = ?", {nome}).toLongLong();
    }

private slots:
    void initTestCase()
    {
        for (const char* t : {"OrdemServicoEntrada", "OrdemServicoSaida", "OrdemServicoTecnico", "OrdemVisita"}) {
            const QString nome = QString::fromLatin1(t);
            RegistroTelas::registrar(nome, [nome] { return new Destino(nome); });
        }
    }
    void init()
    {
        pedidos.clear();
        cliquesNovaVisita = 0;
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void caixasPesquisa_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("comparado");  // the text as the stored digits see it
        QTest::addColumn<QStringList>("esperado");
        const QList<std::tuple<const char*, int, QString, QString, QStringList>> casos = {
            {"number anywhere: 12 finds 120, 312, 1234, not deleted 1203", 0, "12", "", {"12", "120", "312", "1234"}},
            {"number of an order with no other value", 0, "99", "", {"99"}},
            {"name from its start only", 1, "ana", "", {"12", "120"}},
            {"name with apostrophe and accent", 1, "D'ÁVILA", "", {"7"}},
            {"name with _ as a wildcard", 1, "A_", "", {"8", "12", "120"}},
            {"telephone anywhere", 2, "3312", "", {"12", "500", "500"}},
            {"telephone typed with its mask", 2, "(11)3333", "113333", {"12", "1234"}},
            {"type with inch marks", 3, "TV 29''", "", {"120"}},
            {"type from its start", 3, "tv", "", {"7", "12", "120"}},
            {"brand in either case", 4, "philco", "", {"12", "1234"}},
            {"brand with a backslash", 4, "AB\\", "", {"500"}},
            {"brand with % as a wildcard", 4, "100%", "", {"7"}},
            {"model from its start", 5, "PH", "", {"12"}},
            {"customer code anywhere", 6, "12", "", {"12", "120", "312"}},
            {"reseller from its start", 7, "loja", "", {"12", "312"}},
            {"nothing found", 1, "ZZZ", "", {}},
            {"10,000 characters", 1, QString(10000, 'A'), "", {}},
            {"10,000 digits anywhere", 2, QString(10000, '1'), "", {}},
        };
        for (const auto& [m, motor] : Motores)
            for (const auto& [nome, opcao, texto, comparado, esperado] : casos)
                QTest::addRow("%s: %s", m, nome) << int(motor) << opcao << texto << comparado << esperado;
    }
    void caixasPesquisa()
    {
        QFETCH(int, motor);
        QFETCH(int, opcao);
        QFETCH(QString, texto);
        QFETCH(QString, comparado);
        QFETCH(QStringList, esperado);
        PREPARA(motor);
        PesquisaOs* t = abrePesquisa("Saida");
        QVERIFY(t);
        QCOMPARE(t->windowTitle(), QString("Pesquisa Ordem Serviço"));
        pesquisa(t, opcao, texto);
        QVERIFY(!Dialogos::Roteiro::contem("Erro"));
        const auto [colunaBox, meio] = CaixasPesquisa[opcao];
        QCOMPARE(chaves(grade(t), ChavePesquisa),
                 casam(b->banco(), "OrdemServico", "CodOsAut", colunaBox, comparado.isEmpty() ? texto : comparado, meio));
        QCOMPARE(numeros(grade(t)), esperado);
        if (esperado.isEmpty()) {
            QCOMPARE(t->windowTitle(), QString("Busca Ordem de Serviço"));
            QVERIFY(grade(t)->isHidden());
        } else {
            QCOMPARE(t->windowTitle(), QString("Busca Ordem Serviço - %1 - %2 encontrados").arg(texto).arg(esperado.size()));
            QVERIFY(!grade(t)->isHidden());
            QCOMPARE(grade(t)->isColumnHidden(7), opcao != 7);  // "Revendedor/Loja" on its own search
        }
        if (opcao == 0)
            QCOMPARE(coluna(grade(t), 0), esperado);  // in number order
    }

    void caixasRapida_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("caixa");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("comparado");
        QTest::addColumn<QStringList>("esperado");
        const QList<std::tuple<const char*, int, QString, QString, QStringList>> casos = {
            {"number from its start: 12 finds 120 and 1234, not 312", 0, "12", "", {"12", "120", "1234"}},
            {"name from its start only", 1, "ana", "", {"12", "120"}},
            {"telephone anywhere, a mobile with it left out", 2, "1234", "", {"7", "312"}},
            {"mobile when no telephone has it", 2, "98765", "", {"120"}},
            {"a deleted order's mobile is not found", 2, "87650000", "", {}},
            {"document anywhere", 3, "444777", "", {"12"}},
            {"document typed with its mask", 3, "111.444", "111444", {"12"}},
            {"name with apostrophe", 1, "D'ÁVILA", "", {"7"}},
            {"10,000 characters", 1, QString(10000, 'A'), "", {}},
        };
        for (const auto& [m, motor] : Motores)
            for (const auto& [nome, caixa, texto, comparado, esperado] : casos)
                QTest::addRow("%s: %s", m, nome) << int(motor) << caixa << texto << comparado << esperado;
    }
    void caixasRapida()
    {
        QFETCH(int, motor);
        QFETCH(int, caixa);
        QFETCH(QString, texto);
        QFETCH(QString, comparado);
        QFETCH(QStringList, esperado);
        PREPARA(motor);
        sessao().DireitoOsSaiLe = 1;
        auto* t = qobject_cast<BuscaRapida*>(RegistroTelas::abrir("BuscaRapida"));
        QVERIFY(t);
        buscaRapida(t, caixa, texto);
        const QString alvo = comparado.isEmpty() ? texto : comparado;
        QSet<qint64> oraculo = casam(b->banco(), "OrdemServico", "CodOsAut", CaixasRapida[caixa].first, alvo,
                                     CaixasRapida[caixa].second);
        if (caixa == 2 && oraculo.isEmpty())
            oraculo = casam(b->banco(), "OrdemServico", "CodOsAut", "Celular", alvo, true);
        QCOMPARE(chaves(grade(t), ChaveRapida), oraculo);
        QCOMPARE(numeros(grade(t)), esperado);
        if (esperado.isEmpty()) {
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Nenhum item encontrado"));
            QCOMPARE(t->windowTitle(), QString("Busca rápida"));
            QVERIFY(grade(t)->isHidden());
        } else {
            QCOMPARE(t->windowTitle(), QString("Busca rápida - %1").arg(esperado.size()));
            QVERIFY(!grade(t)->isHidden());
        }
    }

    // The first page shows at once, the exact count follows it, and the rest is read as the
    // grid scrolls.
    void muitasLinhas()
    {
        PREPARA(int(Motor::SQLite));
        b->banco().executar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700) "
                            "INSERT INTO OrdemServico (CodOs, NomeCliente, Excluidos) SELECT 10000 + i, 'NOVO', 0 FROM n");
        PesquisaOs* t = abrePesquisa("Saida");
        pesquisa(t, 0, "1");
        const int total = b->banco().escalar("SELECT COUNT(*) FROM OrdemServico WHERE Excluidos = 0 AND "
                                             "CAST(CodOs AS TEXT) LIKE '%1%'").toInt();
        QTRY_COMPARE(t->windowTitle(), QString("Busca Ordem Serviço - 1 - %1 encontrados").arg(total));
        QCOMPARE(grade(t)->model()->rowCount(), total);
        QCOMPARE(grade(t)->model()->index(total - 1, 0).data().toString(), QString("10700"));
    }

    void escolhaPorModo_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<bool>("completa");
        QTest::addColumn<QString>("tela");
        QTest::addColumn<QString>("metodo");
        QTest::newRow("intake shows the order") << "Entrada" << false << "OrdemServicoEntrada" << "mostraOrdem";
        QTest::newRow("delivery works on it") << "Saida" << false << "OrdemServicoSaida" << "abreOrdem";
        QTest::newRow("bench, whatever the whole-order setting") << "Tecnico" << true << "OrdemServicoTecnico"
                                                                << "abreOrdem";
        QTest::newRow("intake with the whole-order setting") << "Entrada" << true << "CadCompleto" << "";
        QTest::newRow("delivery with the whole-order setting") << "Saida" << true << "CadCompleto" << "";
    }
    // Two orders share number 500: the one clicked is the one opened, by its key.
    void escolhaPorModo()
    {
        QFETCH(QString, modo);
        QFETCH(bool, completa);
        QFETCH(QString, tela);
        QFETCH(QString, metodo);
        if (metodo.isEmpty() && RegistroTelas::registrada(tela))
            QSKIP("the whole-order screen is part of this build");
        PREPARA(int(Motor::SQLite));
        sessao().CfgOSAbreCompleta = completa ? "True" : "False";
        PesquisaOs* t = abrePesquisa(modo);
        pesquisa(t, 0, "500");
        QCOMPARE(numeros(grade(t)), QStringList({"500", "500"}));
        const int linha = linhaDe(grade(t), "EDUARDO");
        QTest::mouseClick(grade(t)->viewport(), Qt::LeftButton, {},
                          grade(t)->visualRect(grade(t)->model()->index(linha, 1)).center());
        QCOMPARE(t->findChild<QLineEdit*>("Text2")->text(), QString("500"));
        QCOMPARE(t->findChild<QLineEdit*>("Text3")->text(), QString::number(chaveDe("EDUARDO")));
        GradeTeste::escolhe(grade(t), linha);
        if (metodo.isEmpty()) {
            QVERIFY(pedidos.isEmpty());
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("O cadastro completo de O.S não está disponível nesta instalação."));
            return;
        }
        QCOMPARE(pedidos.size(), 1);
        QCOMPARE(pedidos[0].tela, tela);
        QCOMPARE(pedidos[0].metodo, metodo);
        QCOMPARE(pedidos[0].dados.value("CodOsAut").toLongLong(), chaveDe("EDUARDO"));
        if (metodo == "mostraOrdem") {
            QCOMPARE(pedidos[0].dados.value("CodOs").toString(), QString("500"));
            QCOMPARE(pedidos[0].dados.value("NomeCliente").toString(), QString("EDUARDO"));
            QCOMPARE(pedidos[0].dados.value("CodCliente").toString(), QString("78"));
        }
    }

    void escolhaRapida_data()
    {
        QTest::addColumn<bool>("completa");
        QTest::newRow("delivery") << false;
        QTest::newRow("whole-order setting, screen not in this build") << true;
    }
    void escolhaRapida()
    {
        QFETCH(bool, completa);
        if (completa && RegistroTelas::registrada("CadCompleto"))
            QSKIP("the whole-order screen is part of this build");
        PREPARA(int(Motor::SQLite));
        sessao().DireitoOsSaiLe = 1;
        sessao().CfgOSAbreCompleta = completa ? "True" : "False";
        auto* t = qobject_cast<BuscaRapida*>(RegistroTelas::abrir("BuscaRapida"));
        buscaRapida(t, 0, "500");
        GradeTeste::escolhe(grade(t), linhaDe(grade(t), "EDUARDO"));
        if (completa) {
            QVERIFY(pedidos.isEmpty());
            QVERIFY(Dialogos::Roteiro::contem("O cadastro completo de O.S não está disponível"));
            QCOMPARE(caixa(t, 0)->text(), QString("500"));  // nothing opened: the search stands
            return;
        }
        QCOMPARE(pedidos.size(), 1);
        QCOMPARE(pedidos[0].tela, QString("OrdemServicoSaida"));
        QCOMPARE(pedidos[0].metodo, QString("abreOrdem"));
        QCOMPARE(pedidos[0].dados.value("CodOsAut").toLongLong(), chaveDe("EDUARDO"));
        QCOMPARE(caixa(t, 0)->text(), QString());
    }

    void visitas_data()
    {
        QTest::addColumn<int>("motor");
        for (const auto& [m, motor] : Motores)
            QTest::newRow(m) << int(motor);
    }
    void visitas()
    {
        QFETCH(int, motor);
        PREPARA(motor);
        // The flags are the session's: a search opened while they name house calls is one.
        sessao().ListaEntrada = sessao().ListaSaida = sessao().ListaTecnico = 0;
        sessao().ListaVisita = 1;
        auto* t = qobject_cast<PesquisaOs*>(RegistroTelas::abrir("PesquisaOs"));
        QVERIFY(t);
        QCOMPARE(t->windowTitle(), QString("Pesquisa O.S de Visita"));
        for (int i = 0; i < 8; ++i)
            QCOMPARE(t->findChild<QRadioButton*>(QString("Option1(%1)").arg(i))->isHidden(), !(i == 0 || i == 1 || i == 6));
        QStringList titulos;
        for (int c = 0; c < GradeTeste::colunas(grade(t)); ++c)
            titulos << GradeTeste::titulo(grade(t), c);
        QCOMPARE(titulos, QStringList({"O.S", "Nome", "Endereço/Telefone", "Data Solicitada"}));

        const QList<std::tuple<int, QString, QString, bool, QStringList>> casos = {
            {0, "12", "CodManu", true, {"12", "312"}},
            {1, "ana", "NomeCliente", false, {"12", "45"}},
            {6, "12", "CodCliente", false, {"12", "312"}}};
        for (const auto& [opcao, texto, col, meio, esperado] : casos) {
            pesquisa(t, opcao, texto);
            QCOMPARE(chaves(grade(t), 0), casam(b->banco(), "VisitaTecnico", "CodManu", col, texto, meio));
            QCOMPARE(numeros(grade(t)), esperado);
            QCOMPARE(t->windowTitle(), QString("Busca Ordem de Visita - %1 - 2 encontrados").arg(texto));
        }
        const int linha = int(coluna(grade(t), 0).indexOf("312"));
        QCOMPARE(GradeTeste::celula(grade(t), linha, 3), QString("21/11/2026"));
        GradeTeste::escolhe(grade(t), linha);
        QCOMPARE(pedidos.size(), 1);
        QCOMPARE(pedidos[0].tela, QString("OrdemVisita"));
        QCOMPARE(pedidos[0].metodo, QString("abreVisita"));
        QCOMPARE(pedidos[0].dados, QVariantMap({{"CodManu", qlonglong(312)}}));

        QTest::mouseClick(t->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QCOMPARE(cliquesNovaVisita, 1);

        // The next menu entry makes it an order search again.
        t = abrePesquisa("Tecnico");
        QCOMPARE(t->windowTitle(), QString("Pesquisa Ordem Serviço"));
        QVERIFY(t->findChild<QPushButton*>("Botao(0)")->isHidden());
        QVERIFY(!t->findChild<QRadioButton*>("Option1(3)")->isHidden());
        pesquisa(t, 0, "12");
        QCOMPARE(numeros(grade(t)), QStringList({"12", "120", "312", "1234"}));
    }

    void menusEDireitos_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("direito");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("intake") << "O.S Entrada" << "DireitoOsEntLe" << "Pesquisa Ordem Serviço";
        QTest::newRow("delivery") << "O.S Saída" << "DireitoOsSaiLe" << "Pesquisa Ordem Serviço";
        QTest::newRow("bench") << "O.S Técnico" << "DireitoOsTecLe" << "Pesquisa Ordem Serviço";
        QTest::newRow("house calls") << "O.S Visita" << "DireitoOsTecLe" << "Pesquisa O.S de Visita";
    }
    void menusEDireitos()
    {
        QFETCH(QString, item);
        QFETCH(QString, direito);
        QFETCH(QString, titulo);
        PREPARA(int(Motor::SQLite));
        MenuLateral menu;
        QPushButton* entrada = nullptr;
        for (QPushButton* p : menu.findChildren<QPushButton*>())
            if (p->text() == item)
                entrada = p;
        QVERIFY(entrada);
        entrada->click();
        QVERIFY(!RegistroTelas::aberta("PesquisaOs"));
        QVERIFY(RegistroTelas::aberta("Negado"));
        RegistroTelas::fecharTodas();

        *sessao().direito(direito) = 1;
        entrada->click();
        auto* t = qobject_cast<PesquisaOs*>(RegistroTelas::aberta("PesquisaOs"));
        QVERIFY(t);
        QCOMPARE(t->windowTitle(), titulo);
        const Sessao& s = sessao();
        QCOMPARE(s.ListaEntrada + s.ListaSaida + s.ListaTecnico + s.ListaVisita, 1);
        QVERIFY(RegistroTelas::fechar("PesquisaOs"));
        QCOMPARE(s.ListaEntrada + s.ListaSaida + s.ListaTecnico + s.ListaVisita, 0);
    }

    void rapidaSemDireito()
    {
        PREPARA(int(Motor::SQLite));
        auto* t = qobject_cast<BuscaRapida*>(RegistroTelas::abrir("BuscaRapida"));
        buscaRapida(t, 0, "12");
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(t->encontrados(), 0);
        QVERIFY(grade(t)->isHidden());
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QVERIFY(!RegistroTelas::aberta("PesquisaOs"));

        sessao().DireitoOsSaiLe = 1;
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        auto* mais = RegistroTelas::aberta("PesquisaOs");
        QVERIFY(mais);
        QCOMPARE(sessao().ListaSaida, 1);
        QCOMPARE(sessao().ListaEntrada + sessao().ListaTecnico + sessao().ListaVisita, 0);
    }

    void rapidaUmCriterio()
    {
        PREPARA(int(Motor::SQLite));
        sessao().DireitoOsSaiLe = 1;
        sessao().CfgTipoLetra = "True";
        auto* t = qobject_cast<BuscaRapida*>(RegistroTelas::abrir("BuscaRapida"));
        caixa(t, 0)->setText("12");
        caixa(t, 3)->setText("444");
        QTest::mouseClick(caixa(t, 1), Qt::LeftButton);
        QCOMPARE(caixa(t, 0)->text(), QString());
        QCOMPARE(caixa(t, 3)->text(), QString());
        QTest::keyClicks(caixa(t, 1), "ana");
        QCOMPARE(caixa(t, 1)->text(), QString("ANA"));
        QTest::keyClick(caixa(t, 1), Qt::Key_Return);
        QCOMPARE(t->encontrados(), 2);
        caixa(t, 1)->clear();
        QTest::keyClick(caixa(t, 1), Qt::Key_Return);
        QVERIFY(grade(t)->isHidden());
    }
};

QTEST_MAIN(TstPesquisaOs)
#include "tst_pesquisaos.moc"
