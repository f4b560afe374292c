#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QtTest>

#include "apoio/GradeTeste.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "registers/EntregaTelas.h"
#include "stock/PesquisaProduto.h"
#include "stock/Produto.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// A screen that asks for a product, as the bench or the material order do.
class DestinoTeste : public QWidget {
    Q_OBJECT
public:
    Q_INVOKABLE void recebeProduto(const QVariantMap& d) { recebido = d; }
    static inline QVariantMap recebido;
};

class TstPesquisaProduto : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QPointer<PesquisaProduto> tela;
    QMap<QString, qint64> chaves;

    void produto(const QString& cod, const QString& original, const QString& desc, const QString& equiv, int exc,
                 qint64 venda = 0)
    {
        chaves[cod] = b->banco().inserir(*Esquema::tabela("Produto"),
                                         {"codpeca", "CodOriginal", "Descricao", "Equivalente", "Excluidos",
                                          "PrecoVenda", "PrecoCusto", "Unidade", "Quantidadeestoque"},
                                         {cod, original, desc, equiv, exc, venda, venda / 2, "UN", 2500});
    }
    QTableView* grade() { return tela->findChild<QTableView*>("Grade"); }
    QLineEdit* caixa(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    void busca(int opcao, const QString& t)
    {
        auto* r = tela->findChild<QRadioButton*>(QString("Option1(%1)").arg(opcao));
        QTest::mouseClick(r, Qt::LeftButton, {}, QPoint(6, r->height() / 2));
        caixa(opcao)->setText(t);
        QTest::keyClick(caixa(opcao), Qt::Key_Return);
    }
    QStringList codigos()
    {
        QStringList c;
        for (int r = 0; r < GradeTeste::linhas(grade()); ++r)
            c << GradeTeste::celula(grade(), r, 1);
        return c;
    }
    int linhaDe(const QString& cod) { return int(codigos().indexOf(cod)); }

private slots:
    void initTestCase()
    {
        RegistroTelas::registrar("DestinoTeste", [] { return new DestinoTeste; });
    }
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        sessao().DireitoProdutoAl = 1;
        produto("12", "X-100", "TV 29''", "TV LG", 0, 89990);
        produto("112", "Y-200", "SUPORTE TV", "SUP", 0, 4500);
        produto("1203", "X-101", "TV VELHA", "", -1);
        produto("55", "", "D'ÁVILA PEÇAS", "", 0, 1000);
        tela = qobject_cast<PesquisaProduto*>(RegistroTelas::abrir("PesquisaProduto"));
        QVERIFY(tela);
        DestinoTeste::recebido.clear();
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void buscaComEnter_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QStringList>("codigos");
        QTest::newRow("code anywhere; deleted 1203 through its 0") << 0 << "12" << QStringList{"112", "12", "1203"};
        QTest::newRow("original code, live only") << 1 << "X-10" << QStringList{"12"};
        QTest::newRow("description in the middle, live only") << 2 << "tv" << QStringList{"112", "12"};
        QTest::newRow("a quote and accents typed") << 2 << "D'ÁV" << QStringList{"55"};
        QTest::newRow("equivalent") << 3 << "LG" << QStringList{"12"};
        QTest::newRow("nothing found") << 2 << "GELADEIRA" << QStringList{};
    }
    void buscaComEnter()
    {
        QFETCH(int, opcao);
        QFETCH(QString, texto);
        QFETCH(QStringList, codigos);
        busca(opcao, texto);
        QCOMPARE(this->codigos(), codigos);
        QCOMPARE(tela->windowTitle(), codigos.isEmpty() ? QString("Pesquisa produto")
                                                        : QString("Busca produto - %1 encontrados").arg(codigos.size()));
    }

    void buscaAoDigitarMostraExcluidos()
    {
        QCOMPARE(caixa(2)->toolTip(), QString("Digite e tecle enter"));
        caixa(2)->setFocus();
        QTest::keyClicks(caixa(2), "tv");
        QTRY_COMPARE(GradeTeste::linhas(grade()), 3);
        const QStringList achados = codigos();
        QCOMPARE(QSet<QString>(achados.begin(), achados.end()), (QSet<QString>{"12", "112", "1203"}));
        // Enter then searches live products only.
        QTest::keyClick(caixa(2), Qt::Key_Return);
        QCOMPARE(GradeTeste::linhas(grade()), 2);
        QTest::qWait(PesquisaProduto::EsperaDigitacaoMs * 2);
        QCOMPARE(GradeTeste::linhas(grade()), 2);
        QCOMPARE(GradeTeste::celula(grade(), linhaDe("12"), 5), QString("899,90"));
    }

    void doMenuAbreOCadastro()
    {
        busca(0, "55");
        GradeTeste::escolhe(grade(), 0);
        auto* cadastro = qobject_cast<Produto*>(RegistroTelas::aberta("Produto"));
        QVERIFY(cadastro);
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text1(2)")->text(), QString("D'ÁVILA PEÇAS"));
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text4")->text(), QString::number(chaves["55"]));
        QTRY_VERIFY(!RegistroTelas::aberta("PesquisaProduto"));
    }

    void listaDoKitFicaAberta()
    {
        auto* cadastro = qobject_cast<Produto*>(RegistroTelas::abrir("Produto"));
        QVERIFY(cadastro->mostraProduto(chaves["55"]));
        tela->defineDestino({{"Destino", "Produto"}, {"Kit", true}});
        busca(2, "tv");
        GradeTeste::escolhe(grade(), linhaDe("12"));
        GradeTeste::escolhe(grade(), linhaDe("112"));
        QCOMPARE(cadastro->itensKit().size(), 2);
        QCOMPARE(cadastro->itensKit().at(1).descricao, QString("SUPORTE TV"));
        QCOMPARE(cadastro->findChild<QLineEdit*>("Text1(20)")->text(), QString("944,90"));
        QVERIFY(RegistroTelas::aberta("PesquisaProduto"));
    }

    void outraTelaRecebe()
    {
        tela->defineDestino({{"Destino", "DestinoTeste"}});
        busca(0, "12");
        GradeTeste::escolhe(grade(), linhaDe("12"));
        const QVariantMap& d = DestinoTeste::recebido;
        QCOMPARE(d.value("CodPecAut").toLongLong(), chaves["12"]);
        QCOMPARE(d.value("CodPeca").toString(), QString("12"));
        QCOMPARE(d.value("Descricao").toString(), QString("TV 29''"));
        QCOMPARE(d.value("Unidade").toString(), QString("UN"));
        QCOMPARE(d.value("ValorVenda").toLongLong(), qint64(89990));
        QCOMPARE(d.value("ValorCusto").toLongLong(), qint64(44995));
        QCOMPARE(d.value("Estoque").toString(), QString("2,5"));
        QCOMPARE(d.value("Kit").toBool(), false);
        QTRY_VERIFY(!RegistroTelas::aberta("PesquisaProduto"));
    }

    void fecharSemEscolherEsquece()
    {
        tela->defineDestino({{"Destino", "DestinoTeste"}});
        QVERIFY(RegistroTelas::fechar("PesquisaProduto"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = qobject_cast<PesquisaProduto*>(RegistroTelas::abrir("PesquisaProduto"));
        QCOMPARE(tela->destino(), QString());
        busca(0, "55");
        GradeTeste::escolhe(grade(), 0);
        QVERIFY(DestinoTeste::recebido.isEmpty());
        QVERIFY(RegistroTelas::aberta("Produto"));
    }
};

QTEST_MAIN(TstPesquisaProduto)
#include "tst_pesquisaproduto.moc"
