#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include "apoio/GradeTeste.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "stock/AlteraPreco.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// The price adjustment through its lists, options and preview, on both engines.
class TstAlteraPreco : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QPointer<AlteraPreco> tela;

    void produto(const QString& cod, const QString& desc, const QString& fab, const QString& cat, qint64 venda,
                 int excluidos = 0)
    {
        b->banco().inserir(*Esquema::tabela("Produto"),
                           {"codpeca", "Descricao", "Fabricante", "Categoria", "PrecoVenda", "PrecoCusto", "Excluidos"},
                           {cod, desc, fab, cat, venda, venda / 2, excluidos});
    }
    qint64 venda(const QString& cod)
    {
        return b->banco().escalar("SELECT PrecoVenda FROM Produto WHERE codpeca = ?", {cod}).toLongLong();
    }
    template <class T> T* w(const QString& nome) { return tela->findChild<T*>(nome); }
    void prepara(int motor)
    {
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoProdutoAl = 1;
        produto("1", "TV 29''", "PHILCO", "TV", 800);
        produto("2", "SUPORTE TV", "PHILCO", "FERRAGENS", 3000);
        produto("3", "D'ÁVILA PEÇAS", "SEMP", "", 1045);
        produto("4", "VELHO", "SEMP", "TV", 5000, -1);
        tela = qobject_cast<AlteraPreco*>(RegistroTelas::abrir("AlteraPreco"));
        QVERIFY(tela);
    }
    // On the indicator, where a user clicks: the button may be wider than its text.
    void marca(const QString& nome)
    {
        auto* r = w<QRadioButton>(nome);
        QTest::mouseClick(r, Qt::LeftButton, {}, QPoint(6, r->height() / 2));
    }
    void escolhe(int lista, const QString& texto)
    {
        auto* c = w<QComboBox>(QString("CSeleciona(%1)").arg(lista));
        const int i = c->findText(texto);
        QVERIFY2(i >= 0, qPrintable(texto));
        c->setCurrentIndex(i);
    }

private slots:
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void reajuste_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("lista");
        QTest::addColumn<QString>("escolha");
        QTest::addColumn<int>("modo");
        QTest::addColumn<QString>("figura");
        QTest::addColumn<QStringList>("precos");  // products 1, 2, 3 and the deleted 4
        for (Motor m : {Motor::SQLite, Motor::PostgreSQL}) {
            const QString e = m == Motor::SQLite ? "sqlite: " : "postgres: ";
            QTest::newRow(qPrintable(e + "all, +10 %: each from its own price"))
                << int(m) << 0 << "Todos" << 0 << "10" << QStringList{"8,80", "33,00", "11,50", "50,00"};
            QTest::newRow(qPrintable(e + "category TV leaves SUPORTE TV of FERRAGENS"))
                << int(m) << 2 << "TV" << 0 << "10" << QStringList{"8,80", "30,00", "10,45", "50,00"};
            QTest::newRow(qPrintable(e + "make SEMP, amount -0,45"))
                << int(m) << 1 << "SEMP" << 1 << "-0,45" << QStringList{"8,00", "30,00", "10,00", "50,00"};
            QTest::newRow(qPrintable(e + "a description with quotes"))
                << int(m) << 0 << "D'ÁVILA PEÇAS" << 0 << "12,5" << QStringList{"8,00", "30,00", "11,76", "50,00"};
        }
    }
    void reajuste()
    {
        QFETCH(int, motor);
        QFETCH(int, lista);
        QFETCH(QString, escolha);
        QFETCH(int, modo);
        QFETCH(QString, figura);
        QFETCH(QStringList, precos);
        prepara(motor);
        escolhe(lista, escolha);
        marca("OptAjuste(1)");
        marca(QString("OptValor(%1)").arg(modo));
        w<QLineEdit>("TxtValor")->setText(figura);
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(w<QPushButton>("Botao(0)"), Qt::LeftButton);
        QStringList obtidos;
        for (const char* c : {"1", "2", "3", "4"})
            obtidos << Dinheiro::deCentavos(venda(c)).texto();
        QCOMPARE(obtidos, precos);
        // The preview showed what was written, with the count in the question.
        auto* g = w<QTableView>("Grade");
        const int n = GradeTeste::linhas(g);
        QVERIFY(Dialogos::Roteiro::contem(QString("Confirma o reajuste de %1 produtos ?").arg(n)));
        for (int r = 0; r < n; ++r)
            QCOMPARE(GradeTeste::celula(g, r, 3), Dinheiro::deCentavos(venda(GradeTeste::celula(g, r, 0))).texto());
    }

    void previaSemConfirmarNadaMuda()
    {
        prepara(int(Motor::SQLite));
        marca("OptAjuste(0)");
        w<QLineEdit>("TxtValor")->setText("10");
        Dialogos::Roteiro::responderNao();
        QTest::mouseClick(w<QPushButton>("Botao(0)"), Qt::LeftButton);
        auto* g = w<QTableView>("Grade");
        QCOMPARE(GradeTeste::linhas(g), 3);
        QCOMPARE(GradeTeste::celula(g, 1, 2) + " > " + GradeTeste::celula(g, 1, 3), QString("15,00 > 16,50"));
        QCOMPARE(b->banco().escalar("SELECT PrecoCusto FROM Produto WHERE codpeca = '2'").toLongLong(), qint64(1500));
    }

    void recusas_data()
    {
        QTest::addColumn<bool>("direito");
        QTest::addColumn<int>("coluna");
        QTest::addColumn<QString>("figura");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("no right: Negado") << false << 1 << "10" << "";
        QTest::newRow("letters in the figure") << true << 1 << "abc" << "Digite o valor do reajuste, como 10 ou 2,50.";
        QTest::newRow("no price chosen") << true << -1 << "10" << "Escolha o preço a reajustar: custo, venda ou mínimo.";
        QTest::newRow("amount below zero") << true << 1 << "-9" << "";
    }
    void recusas()
    {
        QFETCH(bool, direito);
        QFETCH(int, coluna);
        QFETCH(QString, figura);
        QFETCH(QString, mensagem);
        prepara(int(Motor::SQLite));
        sessao().DireitoProdutoAl = direito ? 1 : 0;
        if (coluna >= 0)
            marca(QString("OptAjuste(%1)").arg(coluna));
        if (figura.startsWith('-'))
            marca("OptValor(1)");
        w<QLineEdit>("TxtValor")->setText(figura);
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(w<QPushButton>("Botao(0)"), Qt::LeftButton);
        if (!direito)
            QVERIFY(RegistroTelas::aberta("Negado"));
        else if (!mensagem.isEmpty())
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        else
            QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("preço negativo"));
        QCOMPARE(venda("1") + venda("2") + venda("3"), qint64(800 + 3000 + 1045));
    }
};

QTEST_MAIN(TstAlteraPreco)
#include "tst_alterapreco.moc"
