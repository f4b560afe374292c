#include <QLineEdit>
#include <QMdiArea>
#include <QRadioButton>
#include <QSqlRecord>
#include <QScrollBar>
#include <QTableView>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "apoio/GradeTeste.h"
#include "data/Conexoes.h"
#include "ui/ModeloPesquisa.h"
#include "data/Sessao.h"
#include "registers/Cliente.h"
#include "registers/PesquisaCliente.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

class TstPesquisaCliente : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QPointer<PesquisaCliente> tela;

    void abre()
    {
        tela = qobject_cast<PesquisaCliente*>(RegistroTelas::abrir("PesquisaCliente"));
        QVERIFY(tela);
    }
    QTableView* grade() { return tela->findChild<QTableView*>("Grade"); }
    void busca(int opcao, const QString& t)
    {
        QTest::mouseClick(tela->findChild<QRadioButton*>(QString("Option1(%1)").arg(opcao)), Qt::LeftButton);
        auto* caixa = tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(opcao));
        caixa->setText(t);
        QTest::keyClick(caixa, Qt::Key_Return);
    }
    QString celula(int linha, int coluna) { return GradeTeste::celula(grade(), linha, coluna); }

private slots:
    void init()
    {
        b = std::make_unique<BancoTeste>(Motor::SQLite);
        QVERIFY(b->pronto());
        Conexoes::configurar(b->config());
        Dialogos::Roteiro::iniciar();
        sessao().zerarDireitos();
        sessao().DireitoClienteAl = 1;
        for (const auto& [cod, nome, tel, doc, exc] :
             {std::tuple{1, "ANA SOUZA", "1133331000", "11144477735", 0},
              std::tuple{2, "BRUNO", "1133332000", "11222333000181", 0},
              std::tuple{12, "ANALU", "", "", -1},
              std::tuple{1203, "CARLA", "", "", -1}})
            b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Telefone, CnpjCpf, Excluidos) "
                                "VALUES (?, ?, ?, ?, ?)", {cod, QString(nome), QString(tel), QString(doc), exc});
        abre();
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void opcoesDaTela_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QStringList>("codigos");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("code anywhere, deleted 1203 through its 0") << 0 << "12" << QStringList{"1203"}
                                                                    << "Busca Cliente - 1 clientes encontrados";
        QTest::newRow("name from its start, live only") << 1 << "ana" << QStringList{"1"}
                                                        << "Busca Cliente - 1 clientes encontrados";
        QTest::newRow("telephone in the middle") << 2 << "3333" << QStringList{"1", "2"}
                                                 << "Busca Cliente - 2 clientes encontrados";
        QTest::newRow("CPF/CNPJ in the middle") << 5 << "2223" << QStringList{"2"}
                                                << "Busca Cliente - 1 clientes encontrados";
        QTest::newRow("nothing found: the plain caption") << 4 << "555" << QStringList{} << "Busca Cliente";
    }
    void opcoesDaTela()
    {
        QFETCH(int, opcao);
        QFETCH(QString, texto);
        QFETCH(QStringList, codigos);
        QFETCH(QString, titulo);
        busca(opcao, texto);
        QStringList achados;
        for (int r = 0; r < GradeTeste::linhas(grade()); ++r)
            achados << celula(r, 0);
        QCOMPARE(achados, codigos);
        QCOMPARE(tela->windowTitle(), titulo);
    }

    void gradeMostraMascaras()
    {
        busca(2, "3333");
        QStringList titulos;
        for (int c = 0; c < GradeTeste::colunas(grade()); ++c)
            titulos << GradeTeste::titulo(grade(), c);
        QCOMPARE(titulos, (QStringList{"Código", "Nome", "Telefone", "Celular", "Tel/Fax", "Cpf/Cnpj"}));
        QCOMPARE(celula(0, 2), QString("(11)3333-1000"));
        QCOMPARE(celula(0, 5), QString("111-444-777/35"));
        QCOMPARE(celula(1, 5), QString("11-222-333-0001/81"));
    }

    void buscaAoDigitarMostraExcluidos()
    {
        tela->findChild<QLineEdit*>("Text4")->setText("an");
        QCOMPARE(GradeTeste::linhas(grade()), 2);
        QCOMPARE(celula(1, 1), QString("ANALU"));
        QCOMPARE(tela->windowTitle(), QString("Busca Cliente - 2 clientes encontrados"));
    }

    void todasAsLinhasSemLimite_data() { linhasMotores(); }
    void todasAsLinhasSemLimite()
    {
        // A common name in a big file: the first page at once, then every row found is in
        // the grid, in code order, read as it scrolls, and the caption gives the exact count.
        RegistroTelas::fecharTodas();
        BANCO_DO_MOTOR(grande);
        grande->executar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
                         "INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) "
                         "SELECT i, 'ANTONIO ' || i, CASE WHEN i % 1000 = 0 THEN -1 ELSE 0 END FROM n");
        // Customers of an old store without a code come first, as the classic list put them.
        grande->executar("INSERT INTO Cliente (NomeCliente) VALUES ('ANTONIO SEM CODIGO'), ('ANTONIO SEM CODIGO 2')");
        Conexoes::configurar(grande.config());
        abre();
        busca(1, "ANT");
        // The twenty deleted ones show too: their names hold a "0" behind the text typed,
        // which the old pattern takes for the flag.
        const int esperadas = 20000 + 2;
        QCOMPARE(GradeTeste::linhas(grade()), ModeloPesquisa::TamanhoPagina);
        QTRY_COMPARE(tela->windowTitle(), QString("Busca Cliente - %1 clientes encontrados").arg(esperadas));
        QCOMPARE(GradeTeste::linhas(grade()), esperadas);
        grade()->scrollToBottom();
        QCoreApplication::processEvents();
        QCOMPARE(celula(esperadas - 1, 0), QString("20000"));
        QStringList codigos;
        for (int r = 0; r < esperadas; ++r)
            codigos << celula(r, 0);
        QCOMPARE(codigos.mid(0, 3), (QStringList{"", "", "1"}));
        for (int r = 2; r < esperadas; ++r)
            QCOMPARE(codigos[r].toInt(), r - 1);
        // The choice far down hands over that very customer.
        QString escolhido;
        tela->defineChamador(PesquisaCliente::Chamador::Pagamento,
                             [&](const QSqlRecord& c) { escolhido = c.value("NomeCliente").toString(); });
        GradeTeste::escolhe(grade(), esperadas - 2);
        QCOMPARE(escolhido, QString("ANTONIO 19999"));
        RegistroTelas::fecharTodas();
    }

    void escolhaDoMenuAbreOCadastro()
    {
        busca(1, "bru");
        GradeTeste::escolhe(grade(), 0);
        auto* cadastro = qobject_cast<Cliente*>(RegistroTelas::aberta("Cliente"));
        QVERIFY(cadastro);
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text1(0)")->text(), QString("BRUNO"));
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text2")->text(), QString("2"));
        QTRY_VERIFY(!tela);  // the search closed
    }

    void escolhaNaoApagaCadastroAlterado()
    {
        auto* cadastro = qobject_cast<Cliente*>(RegistroTelas::abrir("Cliente"));
        QMetaObject::invokeMethod(cadastro, "abrirNoModo", Q_ARG(QString, "Novo"));
        auto* nome = cadastro->findChild<QLineEdit*>("Text1(0)");
        QTest::keyClicks(nome, "ZE");
        abre();
        busca(1, "bru");
        GradeTeste::escolhe(grade(), 0);
        QCOMPARE(nome->text(), QString("ZE"));
        QCOMPARE(cadastro->estado(), TelaCadastro::Estado::Inclusao);
        QVERIFY(Dialogos::Roteiro::contem("Salve ou cancele"));
    }

    void primeiroChamadorGanhaEFecharEsquece()
    {
        QStringList chamados;
        PesquisaCliente::abrirPara(PesquisaCliente::Chamador::Pagamento,
                                   [&](const QSqlRecord& c) { chamados << "Pagamento " + c.value("NomeCliente").toString(); });
        PesquisaCliente::abrirPara(PesquisaCliente::Chamador::EntradaOs,
                                   [&](const QSqlRecord& c) { chamados << "Entrada " + c.value("NomeCliente").toString(); });
        // The intake's call starts on the name.
        QVERIFY(tela->findChild<QRadioButton*>("Option1(1)")->isChecked());
        busca(1, "ana");
        GradeTeste::escolhe(grade(), 0);
        QCOMPARE(chamados, QStringList{"Entrada ANA SOUZA"});
        QVERIFY(!RegistroTelas::aberta("Cliente"));
        QTRY_VERIFY(!tela);
        abre();
        QVERIFY(!tela->chamadorDefinido(PesquisaCliente::nomeFlag(PesquisaCliente::Chamador::Pagamento)));
    }

    // Inside the main window's work area the frame goes with the search.
    void escolhaFechaAJanelaInteira()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QMdiArea area;
        RegistroTelas::definirAreaMdi(&area);
        QString escolhido;
        tela = PesquisaCliente::abrirPara(PesquisaCliente::Chamador::EntradaOs,
                                          [&](const QSqlRecord& c) { escolhido = c.value("NomeCliente").toString(); });
        QVERIFY(tela);
        QCOMPARE(area.subWindowList().size(), 1);
        busca(1, "bru");
        auto* g = tela->findChild<QAbstractItemView*>("Grade");
        g->setCurrentIndex(g->model()->index(0, 0));
        QTest::keyClick(g, Qt::Key_Return);
        QCOMPARE(escolhido, QString("BRUNO"));
        QTRY_VERIFY(area.subWindowList().isEmpty());
        RegistroTelas::definirAreaMdi(nullptr);
    }

    void modoDoMenuNovaOsEscolheNome()
    {
        QMetaObject::invokeMethod(tela, "abrirNoModo", Q_ARG(QString, "EntradaOs"));
        QVERIFY(tela->findChild<QRadioButton*>("Option1(1)")->isChecked());
        QVERIFY(tela->chamadorDefinido("EntradaOs"));
    }
};

QTEST_MAIN(TstPesquisaCliente)
#include "tst_pesquisacliente.moc"
