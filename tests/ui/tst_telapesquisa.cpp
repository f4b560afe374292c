#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include "apoio/GradeTeste.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/ModeloPesquisa.h"
#include "ui/TelaPesquisa.h"

class PesquisaTeste : public TelaPesquisa {
public:
    PesquisaTeste()
    {
        m_tabela = "Cliente";
        m_titulo = "Busca Cliente";
        m_plural = "clientes";
        m_colunaCodigo = "CodCliente";
        m_colunaNome = "NomeCliente";
        m_opcoes = {{"Nome", "NomeCliente", false}, {"Telefone", "Telefone", true}};
        m_grade = {{"CodCliente", "Código", 70}, {"NomeCliente", "Nome", 250}, {"Telefone", "Telefone", 120}};
        m_ordemChamadores = {"Entrada", "Menu"};
        iniciar();
    }
};

class TstTelaPesquisa : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    std::unique_ptr<PesquisaTeste> tela;

    QTableView* grade() { return tela->findChild<QTableView*>("Grade"); }
    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    void busca(int opcao, const QString& t)
    {
        QTest::mouseClick(tela->findChild<QRadioButton*>(QString("Option1(%1)").arg(opcao)), Qt::LeftButton);
        texto(opcao)->setText(t);
        QTest::keyClick(texto(opcao), Qt::Key_Return);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        for (const auto& [cod, nome, tel, exc] : {std::tuple{1, "ANA SOUZA", "3333-1000", 0},
                                                  std::tuple{2, "ANA LIMA", "3333-2000", 0},
                                                  std::tuple{3, "ANALU", "9999-0001", -1},
                                                  std::tuple{4, "BRUNO", "3333-1001", 0}})
            b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Telefone, Excluidos) VALUES (?,?,?,?)",
                                {cod, QString(nome), QString(tel), exc});
        tela = std::make_unique<PesquisaTeste>();
        tela->show();
    }
    void cleanup()
    {
        tela.reset();
        b.reset();
    }

    void abreComOConvite()
    {
        QCOMPARE(GradeTeste::celula(grade(), 0, 0), QString("Escolha um item acima,digite e aperte enter"));
        QVERIFY(texto(0)->isVisible());
        QVERIFY(!texto(1)->isVisible());
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente"));
    }

    void buscaPorOpcao_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<int>("achados");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("name by its beginning, live rows only") << 0 << "ana" << 2 << "Busca Cliente - 2 clientes encontrados";
        QTest::newRow("phone in its middle") << 1 << "1000" << 1 << "Busca Cliente - 1 clientes encontrados";
        QTest::newRow("nothing found keeps the plain title") << 0 << "zzz" << 0 << "Busca Cliente";
    }
    void buscaPorOpcao()
    {
        QFETCH(int, opcao);
        QFETCH(QString, digitado);
        QFETCH(int, achados);
        QFETCH(QString, titulo);
        busca(opcao, digitado);
        QCOMPARE(tela->encontrados(), achados);
        QCOMPARE(GradeTeste::linhas(grade()), achados);
        QCOMPARE(tela->windowTitle(), titulo);
        QVERIFY(!texto(1 - opcao)->isVisible());
    }

    void cliqueGuardaEEscolhaVaiAoPrimeiroChamador()
    {
        QString recebido;
        tela->definirChamador("Menu", [&](const QSqlRecord&) { recebido = "menu"; });
        tela->definirChamador("Entrada", [&](const QSqlRecord& r) { recebido = "entrada " + r.value("CodCliente").toString(); });
        busca(0, "ana");
        const QRect r = grade()->visualRect(grade()->model()->index(1, 0));
        QTest::mouseClick(grade()->viewport(), Qt::LeftButton, {}, r.center());
        QCOMPARE(tela->findChild<QLineEdit*>("Text2")->text(), QString("1"));
        QCOMPARE(tela->findChild<QLineEdit*>("Text3")->text(), QString("ANA SOUZA"));
        QSignalSpy espia(tela.get(), &TelaPesquisa::escolhido);
        QTest::mouseDClick(grade()->viewport(), Qt::LeftButton, {}, r.center());
        QCOMPARE(recebido, QString("entrada 1"));
        QCOMPARE(espia.count(), 1);
        QVERIFY(tela->close());
        QVERIFY(!tela->chamadorDefinido("Entrada"));
        QVERIFY(!tela->chamadorDefinido("Menu"));
    }

    // Past one page the grid shows its first rows at once and the caption's number follows;
    // whoever asks for the number before that gets it exact, and a newer search is never
    // overtaken by the count of an older one.
    void primeiraPaginaAntesDaContagem()
    {
        b->banco().executar("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 509) "
                            "INSERT INTO Cliente (CodCliente, NomeCliente, Telefone, Excluidos) "
                            "SELECT i, 'CARLA ' || i, '5555-' || i, 0 FROM n");
        busca(0, "carla");
        QCOMPARE(GradeTeste::linhas(grade()), ModeloPesquisa::TamanhoPagina);
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente"));
        QTRY_COMPARE(GradeTeste::linhas(grade()), 500);
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente - 500 clientes encontrados"));
        QCOMPARE(GradeTeste::celula(grade(), 499, 1), QString("CARLA 99"));  // read as it is reached

        busca(0, "carla");
        QCOMPARE(tela->encontrados(), 500);
        QCOMPARE(GradeTeste::linhas(grade()), 500);

        busca(0, "carla");
        busca(0, "ana");
        QTest::qWait(20);
        QCOMPARE(GradeTeste::linhas(grade()), 2);
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente - 2 clientes encontrados"));
    }

    void textoVazioLimpaAGrade()
    {
        busca(0, "ana");
        busca(0, "");
        QCOMPARE(GradeTeste::linhas(grade()), 0);
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente"));
    }
};

QTEST_MAIN(TstTelaPesquisa)
#include "tst_telapesquisa.moc"
