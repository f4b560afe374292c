#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include "apoio/GradeTeste.h"
#include "apoio/LeitorXlsx.h"
#include "documents/ApoioDocumentos.h"
#include "documents/Visualizador.h"
#include "stock/ApoioEstoque.h"
#include "stock/Estoque.h"
#include "stock/ListaEstoque.h"
#include "stock/RelatorioEstoque.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

using ApoioEstoque::produto;

// Stands in for the product register where this build has none: its two key boxes.
class RegistroProdutoFalso : public QWidget {
public:
    RegistroProdutoFalso()
    {
        for (const char* n : {"Text3", "Text4"})
            (new QLineEdit(this))->setObjectName(QLatin1String(n));
    }
};

class TstEstoque : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QStringList abertos;

    Estoque* abre() { return qobject_cast<Estoque*>(RegistroTelas::abrir("Estoque")); }
    QTableView* grade(QWidget* t) { return t->findChild<QTableView*>("Grade"); }
    QPushButton* botao(QWidget* t, int i) { return t->findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }
    QStringList codigos(QWidget* t)
    {
        QStringList r;
        for (int i = 0; i < GradeTeste::linhas(grade(t)); ++i)
            r << GradeTeste::celula(grade(t), i, 0);
        return r;
    }
    bool preparar(int motor)
    {
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            return false;
        sessao().DireitoProdutoAl = 1;
        abertos.clear();
        Visualizador::definir([this](const QString& a) { abertos << a; return true; });
        return true;
    }
    // Three live products and two in the bin; the second in the bin has a "0" behind "010".
    void catalogo()
    {
        produto(b->banco(), "020", "FUSIVEL 2A", 3, 1, {{"Fabricante", "LITTEL"}});
        produto(b->banco(), "010", "FLYBACK TV 29''", 0, 0,
                {{"Fabricante", "D'ÁVILA PEÇAS"}, {"Modulo", "MOD-7"}, {"NotaFiscal", "4471"},
                 {"Revendedor", "ELETRO SUL"}, {"Equivalente", "FBT-29"}, {"PrecoVenda", 4200}});
        produto(b->banco(), "0102", "CABO VELHO", 1, 0, {{"Excluidos", -1}});
        produto(b->banco(), "01005", "CHAVE VELHA", 1, 0, {{"Excluidos", -1}});
        produto(b->banco(), "001", "TRANSISTOR BU508", 12, 2, {{"Fabricante", "PHILIPS"}, {"PrecoCusto", 1050}});
    }

private slots:
    void initTestCase() { RegistroTelas::registrar("Produto", [] { return new RegistroProdutoFalso; }); }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Visualizador::definir({});
        b.reset();
    }

    void buscas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QStringList>("esperados");
        using L = QStringList;
        auto caso = [](const char* nome, int campo, const QString& d, const L& e) {
            ApoioEstoque::porMotor(nome, [&](QTestData& r) { r << campo << d << e; });
        };
        caso("show all: live rows by code", -1, {}, L{"001", "010", "020"});
        caso("code: a deleted row with a 0 behind the text comes too", 0, "010", L{"010", "01005"});
        caso("description ignores case", 1, "flyback", L{"010"});
        caso("description with quotes", 1, "FLYBACK TV 29''", L{"010"});
        caso("module", 2, "MOD", L{"010"});
        caso("invoice", 3, "447", L{"010"});
        caso("equivalent", 4, "FBT", L{"010"});
        caso("supplier", 5, "eletro", L{"010"});
        caso("brand without its accent and with its apostrophe", 6, "D'AVILA", L{"010"});
        caso("brand only from its beginning", 6, "AVILA", L{});
        caso("a code only from its beginning", 0, "10", L{});
    }
    void buscas()
    {
        QFETCH(int, motor);
        QFETCH(int, campo);
        QFETCH(QString, digitado);
        QFETCH(QStringList, esperados);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        catalogo();
        Estoque* t = abre();
        if (campo >= 0) {
            t->findChild<QComboBox*>("CBusca")->setCurrentIndex(campo);
            auto* texto = t->findChild<QLineEdit*>("TxtBusca");
            texto->setText(digitado);
            QTest::keyClick(texto, Qt::Key_Return);
        }
        QCOMPARE(codigos(t), esperados);
        QCOMPARE(t->windowTitle(), QStringLiteral("Produtos cadastrado %1 registros encontrados..").arg(esperados.size()));
    }

    void filtrosDeNivel_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QList<int>>("botoes");
        QTest::addColumn<QStringList>("esperados");
        using L = QStringList;
        auto caso = [](const char* nome, const QList<int>& bs, const L& e) {
            ApoioEstoque::porMotor(nome, [&](QTestData& r) { r << bs << e; });
        };
        caso("7: stock at or below zero", {7}, L{"A", "D"});
        caso("8: at or below the minimum, the one exactly at it too", {8}, L{"A", "B", "D"});
        caso("9: above the minimum", {9}, L{"C", "F"});
        caso("8 then 7 narrows what is shown", {8, 7}, L{"A", "D"});
        caso("7 then 9 leaves nothing", {7, 9}, L{});
    }
    void filtrosDeNivel()
    {
        QFETCH(int, motor);
        QFETCH(QList<int>, botoes);
        QFETCH(QStringList, esperados);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        produto(b->banco(), "A", "ZERO E ZERO", 0, 0);
        produto(b->banco(), "B", "NO MINIMO", 5, 5);
        produto(b->banco(), "C", "ACIMA", 10, 2);
        produto(b->banco(), "D", "NEGATIVO", -1, 3);
        produto(b->banco(), "E", "NA LIXEIRA", 0, 0, {{"Excluidos", -1}});
        produto(b->banco(), "F", "SEM MINIMO", 4, 0);
        Estoque* t = abre();
        QCOMPARE(grade(t)->model()->index(0, 0).data(Qt::BackgroundRole), QVariant());
        for (int i : botoes)
            botao(t, i)->click();
        QCOMPARE(codigos(t), esperados);
        QCOMPARE(t->windowTitle(), ListaEstoque::titulo(esperados.size()));
        for (int i = 0; i < esperados.size(); ++i)
            QCOMPARE(grade(t)->model()->index(i, 3).data(Qt::BackgroundRole).value<QColor>(), QColor(0xFF, 0x80, 0x80));
        // Show all brings every live row back, unpainted.
        botao(t, 1)->click();
        QCOMPARE(codigos(t).size(), 5);
        QCOMPARE(grade(t)->model()->index(0, 0).data(Qt::BackgroundRole), QVariant());
    }

    void localizaNaLista_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<int>("linha");
        QTest::newRow("code from its start") << 0 << "01" << 1;
        QTest::newRow("description, trimmed, any case") << 1 << "  fusivel " << 2;
        QTest::newRow("text inside a cell is not found") << 1 << "BU508" << -1;
        QTest::newRow("empty text finds nothing") << 1 << "   " << -1;
    }
    void localizaNaLista()
    {
        QFETCH(int, campo);
        QFETCH(QString, digitado);
        QFETCH(int, linha);
        QVERIFY(preparar(int(Motor::SQLite)));
        catalogo();
        Estoque* t = abre();
        t->findChild<QRadioButton*>("OptPesquisa(1)")->setChecked(true);
        t->findChild<QComboBox*>("CBusca")->setCurrentIndex(campo);
        auto* texto = t->findChild<QLineEdit*>("TxtBusca");
        texto->setText(digitado);
        QTest::keyClick(texto, Qt::Key_Return);
        // The walk never narrows the grid.
        QCOMPARE(codigos(t), (QStringList{"001", "010", "020"}));
        QCOMPARE(grade(t)->currentIndex().row(), linha);
    }

    void exportaLidoCelulaACelula_data()
    {
        QTest::addColumn<int>("motor");
        ApoioEstoque::porMotor("filtered list", [](QTestData&) {});
    }
    void exportaLidoCelulaACelula()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        catalogo();
        Estoque* t = abre();
        botao(t, 8)->click();  // 010 (0 at 0) only
        QTemporaryDir pasta;
        const QString arquivo = pasta.filePath("lista");
        Dialogos::Roteiro::responder(arquivo);
        botao(t, 3)->click();
        const QString salvo = arquivo + ".xlsx";
        QCOMPARE(abertos, QStringList{salvo});
        const auto& reg = Dialogos::Roteiro::registros().first();
        QVERIFY(reg.texto.endsWith(RelatorioEstoque::nomeProposto(QDate::currentDate())));
        QCOMPARE(RelatorioEstoque::nomeProposto(QDate(2026, 3, 9)), QString("Estoque 09-03-2026.xlsx"));

        const auto c = LeitorXlsx::celulas(salvo);
        QCOMPARE(c.value("A1").valor, QString("Produtos cadastrado 1 registros encontrados.."));
        const QStringList titulos = {"Cod/Peça", "Cod/Original", "Módulo", "Descrição", "Uni", "Marca produto",
                                     "Qtd/Estoque", "Qtd/Minima", "Qtd/Reserva", "Valor custo", "Valor venda",
                                     "Valor minimo", "Valor comissão", "Equivalente", "Local Venda", "Local estoque",
                                     "Departamento/Categoria", "Fornecedor/Revendedor", "Nº Nota", "Data Nota",
                                     "ICMS", "Observação", "Cód/Automático"};
        for (int i = 0; i < titulos.size(); ++i)
            QCOMPARE(c.value(QString(QChar('A' + i)) + "2").valor, titulos.at(i));
        QCOMPARE(c.value("A3").valor, QString("010"));
        QCOMPARE(c.value("D3").valor, QString("FLYBACK TV 29''"));
        QCOMPARE(c.value("F3").valor, QString("D'ÁVILA PEÇAS"));
        QVERIFY(c.value("G3").numero);
        QCOMPARE(c.value("G3").valor.toDouble(), 0.0);
        QVERIFY(c.value("K3").numero);
        QCOMPARE(c.value("K3").valor.toDouble(), 42.0);
        QCOMPARE(c.value("J3").valor.toDouble(), 0.0);
        QVERIFY(!c.contains("A4"));
        QVERIFY(LeitorXlsx::livro(salvo).contains("name=\"Estoque\""));
        const QString folha = LeitorXlsx::folha(salvo);
        QVERIFY(folha.contains("ySplit=\"2\""));
        QVERIFY(folha.contains("<autoFilter ref=\"A2:W3\""));
        const QString estilos = LeitorXlsx::estilos(salvo);
        QVERIFY(estilos.contains("#,##0.00"));
        QVERIFY(estilos.contains("FFFF8080"));
        QVERIFY(estilos.contains("thin"));
    }

    // A cancel leaves the earlier file as it was
    // and nothing beside it.
    void exportaCanceladaOuSemPasta()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        for (int i = 0; i < 1100; ++i)
            produto(b->banco(), QStringLiteral("P%1").arg(i, 4, 10, QChar('0')), "ITEM", i % 7, 3);
        QTemporaryDir pasta;
        const QString arquivo = pasta.filePath("Estoque.xlsx");
        QFile antigo(arquivo);
        QVERIFY(antigo.open(QIODevice::WriteOnly));
        antigo.write("versao anterior");
        antigo.close();
        const RelatorioEstoque::Lista lista{ListaEstoque::todos(), ListaEstoque::OrdemTodos, false};
        QString erro;
        int chamadas = 0;
        const auto r = RelatorioEstoque::exportar(b->banco(), lista, arquivo, [&](qint64 feitas, qint64 total) {
            ++chamadas;
            return feitas < total / 2;
        }, &erro);
        QCOMPARE(r, RelatorioEstoque::Resultado::Cancelado);
        QCOMPARE(chamadas, 1);
        QFile lido(arquivo);
        QVERIFY(lido.open(QIODevice::ReadOnly));
        QCOMPARE(lido.readAll(), QByteArray("versao anterior"));
        QCOMPARE(QDir(pasta.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"Estoque.xlsx"});

        // A "folder" that is a file can't take it: told, and nothing written.
        Estoque* t = abre();
        Dialogos::Roteiro::responder(pasta.filePath("Estoque.xlsx/novo.xlsx"));
        botao(t, 3)->click();
        QVERIFY(Dialogos::Roteiro::contem("Não foi possível gravar a planilha na pasta"));
        QVERIFY(abertos.isEmpty());

        // The whole list, read back: every row, at its own place.
        const QString inteiro = pasta.filePath("inteiro.xlsx");
        QCOMPARE(RelatorioEstoque::exportar(b->banco(), lista, inteiro, {}, &erro), RelatorioEstoque::Resultado::Gravado);
        const auto c = LeitorXlsx::celulas(inteiro);
        QCOMPARE(c.value("A1").valor, QString("Produtos cadastrado 1100 registros encontrados.."));
        QCOMPARE(c.value("A1102").valor, QString("P1099"));
        QCOMPARE(c.value("G1102").valor.toDouble(), double(1099 % 7));
    }

    void imprimeEmPdf_data()
    {
        QTest::addColumn<int>("motor");
        ApoioEstoque::porMotor("two pages", [](QTestData&) {});
    }
    void imprimeEmPdf()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        for (int i = 0; i < 70; ++i)
            produto(b->banco(), QStringLiteral("C%1").arg(i, 3, 10, QChar('0')), QStringLiteral("CAPACITOR %1UF").arg(i), i, 0,
                    {{"PrecoVenda", 150 + i}});
        Estoque* t = abre();
        QTemporaryDir pasta;
        const auto impresso = ApoioEstoque::imprimePdf(abertos, pasta, [t] { t->imprime(Destino::Tipo::Pdf); });
        QCOMPARE(impresso.abertos, QStringList{impresso.pdf});
        QCOMPARE(impresso.paginas, 2);
        const QString& texto = impresso.texto;
        QVERIFY(texto.contains("Página: 1"));
        QVERIFY(texto.contains("Página: 2"));
        QCOMPARE(texto.count("Qtd/Estoque"), 2);
        QVERIFY(texto.contains("CAPACITOR 69UF"));
        QVERIFY(texto.contains("2,19"));
        // An empty cost prints 0,00.
        QVERIFY(texto.contains("0,00"));
    }

    void incluiPedeDireitoEClicaAbreRegistro()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        catalogo();
        sessao().DireitoProdutoAl = 0;
        Estoque* t = abre();
        botao(t, 0)->click();
        QVERIFY(RegistroTelas::aberta("Negado"));
        QTest::mouseClick(grade(t)->viewport(), Qt::LeftButton, {}, grade(t)->visualRect(grade(t)->model()->index(1, 3)).center());
        QWidget* registro = RegistroTelas::aberta("Produto");
        QVERIFY(registro);
        QCOMPARE(registro->findChild<QLineEdit*>("Text3")->text(), QString("010"));
        QCOMPARE(registro->findChild<QLineEdit*>("Text4")->text(), QString("2"));
    }
};

QTEST_MAIN(TstEstoque)
#include "tst_estoque.moc"
