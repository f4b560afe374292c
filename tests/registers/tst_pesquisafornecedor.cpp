#include <QLineEdit>
#include <QSqlRecord>
#include <QTableWidget>

#include "apoio/GradeTeste.h"
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "registers/PesquisaFornecedor.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

class TstPesquisaFornecedor : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;

    QTableView* grade(QWidget* w) { return w->findChild<QTableView*>("Grade"); }

private slots:
    void init()
    {
        b = std::make_unique<BancoTeste>(Motor::SQLite);
        QVERIFY(b->pronto());
        Conexoes::configurar(b->config());
        Dialogos::Roteiro::iniciar();
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void listaTodosPeloNome_data()
    {
        QTest::addColumn<int>("quantos");
        QTest::addColumn<QString>("titulo");
        QTest::newRow("deleted suppliers listed too") << 3 << "Busca Fornecedores - 3 encontrados";
        QTest::newRow("no supplier: the plain caption") << 0 << "Busca Fornecedores";
    }
    void listaTodosPeloNome()
    {
        QFETCH(int, quantos);
        QFETCH(QString, titulo);
        const QList<std::tuple<int, QString, int>> linhas = {{1, "ZETA", 0}, {2, "ACME", -1}, {3, "MEGA", 0}};
        for (int i = 0; i < quantos; ++i)
            b->banco().executar("INSERT INTO Fornecedor (CodFornecedor, NomeEmpresa, Produto, Excluidos) VALUES (?, ?, 'TVs', ?)",
                                {std::get<0>(linhas[i]), std::get<1>(linhas[i]), std::get<2>(linhas[i])});
        QWidget* tela = RegistroTelas::abrir("PesquisaFornecedor");
        QCOMPARE(tela->windowTitle(), titulo);
        if (quantos) {
            QCOMPARE(GradeTeste::linhas(grade(tela)), 3);
            QCOMPARE(GradeTeste::celula(grade(tela), 0, 1), QString("ACME"));
            QCOMPARE(GradeTeste::celula(grade(tela), 2, 1), QString("ZETA"));
            QCOMPARE(GradeTeste::celula(grade(tela), 0, 3), QString("TVs"));
        }
    }

    // Opens with room for its columns and a box that finds a supplier by part of its name.
    void caixaDeBuscaETamanho()
    {
        for (const auto& [cod, nome] : {std::pair{1, "ELETRO PECAS LTDA"}, std::pair{2, "CASA DO CONTROLE"}})
            b->banco().executar("INSERT INTO Fornecedor (CodFornecedor, NomeEmpresa) VALUES (?, ?)", {cod, QString(nome)});
        QWidget* tela = RegistroTelas::abrir("PesquisaFornecedor");
        QVERIFY(tela->width() >= 60 + 230 + 170 + 220);
        auto* caixa = tela->findChild<QLineEdit*>("Text1(0)");
        QVERIFY(caixa);
        QVERIFY(caixa->isVisibleTo(tela));
        caixa->setText("pecas");
        QTest::keyClick(caixa, Qt::Key_Return);
        QCOMPARE(GradeTeste::linhas(grade(tela)), 1);
        QCOMPARE(GradeTeste::celula(grade(tela), 0, 1), QString("ELETRO PECAS LTDA"));
    }

    void escolhaVaiAQuemChamouOuAbreOCadastro()
    {
        b->banco().executar("INSERT INTO Fornecedor (CodFornecedor, NomeEmpresa, Excluidos) VALUES (7, 'ACME', -1)");
        QString escolhido;
        auto* tela = PesquisaFornecedor::abrirPara(PesquisaFornecedor::Chamador::Produto,
                                                   [&](const QSqlRecord& f) { escolhido = f.value("NomeEmpresa").toString(); });
        GradeTeste::escolhe(grade(tela), 0);
        QCOMPARE(escolhido, QString("ACME"));
        QVERIFY(!RegistroTelas::aberta("Fornecedor"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        // The menu's list: the register opens on the supplier, deleted as it is.
        QWidget* lista = RegistroTelas::abrir("PesquisaFornecedor");
        GradeTeste::escolhe(grade(lista), 0);
        QWidget* cadastro = RegistroTelas::aberta("Fornecedor");
        QVERIFY(cadastro);
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text1(0)")->text(), QString("ACME"));
    }
};

QTEST_MAIN(TstPesquisaFornecedor)
#include "tst_pesquisafornecedor.moc"
