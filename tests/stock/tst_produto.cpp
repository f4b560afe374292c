#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "shell/Camera.h"
#include "stock/Produto.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// The product register driven as the counter staff use it: boxes by name, buttons,
// dialogs answered through the seam.
class TstProduto : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QPointer<Produto> tela;

    qint64 produto(const QString& cod, qint64 estoque = 0, int excluidos = 0, qint64 venda = 0)
    {
        return b->banco().inserir(*Esquema::tabela("Produto"),
                                  {"codpeca", "Descricao", "Quantidadeestoque", "Excluidos", "PrecoVenda", "Revendedor"},
                                  {cod, "PECA " + cod, estoque * 1000, excluidos, venda, "DISTRIBUIDORA"});
    }
    void abre()
    {
        tela = qobject_cast<Produto*>(RegistroTelas::abrir("Produto"));
        QVERIFY(tela);
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
    }
    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void sai(QLineEdit* w) { QTest::keyClick(w, Qt::Key_Tab); }
    void troca(int caixa, const QString& t)
    {
        texto(caixa)->setFocus();
        texto(caixa)->selectAll();
        QTest::keyClick(texto(caixa), Qt::Key_Delete);
        digita(texto(caixa), t);
    }
    QVariant coluna(const QString& col, qint64 chave)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Produto WHERE CodPecAut = ?").arg(col), {chave});
    }
    int itensDoKit(const QString& cod)
    {
        return b->banco().escalar("SELECT COUNT(*) FROM kitVenda WHERE CodKit = ?", {cod}).toInt();
    }
    void salva() { QTest::mouseClick(botao(1), Qt::LeftButton); }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        sessao().DireitoProdutoAl = 1;
        sessao().UsuarioNome = "MARIA";
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Camera::definirFabrica({});
        tela = nullptr;
        b.reset();
    }

    void aritmeticaDePrecos_data()
    {
        QTest::addColumn<QString>("custo");
        QTest::addColumn<int>("caixa");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("venda");
        QTest::addColumn<QString>("margem");
        QTest::newRow("sale 12,50 on cost 10,00 shows 25,00%") << "10,00" << int(Produto::Venda) << "12,50" << "12,50" << "25,00%";
        QTest::newRow("margin 50 on cost 10,00 gives 15,00") << "10,00" << int(Produto::Lucro) << "50" << "15,00" << "50,00%";
        QTest::newRow("margin 12,5 read as 12,5") << "8,00" << int(Produto::Lucro) << "12,5" << "9,00" << "12,50%";
        QTest::newRow("cost 0 with a sale: margin empty") << "" << int(Produto::Venda) << "5" << "5,00" << "";
        QTest::newRow("minimum price has its own margin") << "10,00" << int(Produto::LucroMinimo) << "10" << "11,00" << "10,00%";
    }
    void aritmeticaDePrecos()
    {
        QFETCH(QString, custo);
        QFETCH(int, caixa);
        QFETCH(QString, digitado);
        QFETCH(QString, venda);
        QFETCH(QString, margem);
        const qint64 p = produto("1");
        abre();
        troca(Produto::Custo, custo);
        sai(texto(Produto::Custo));
        troca(caixa, digitado);
        sai(texto(caixa));
        const bool minimo = caixa == Produto::LucroMinimo;
        QCOMPARE(texto(minimo ? Produto::PrecoMinimo : Produto::Venda)->text(), venda);
        QCOMPARE(texto(minimo ? Produto::LucroMinimo : Produto::Lucro)->text(), margem);
        salva();
        QCOMPARE(Dinheiro::deCentavos(coluna(minimo ? "PrecoMinimo" : "PrecoVenda", p).toLongLong()).texto(), venda);
        QCOMPARE(coluna(minimo ? "LucroMinimo" : "PorcentagemLucro", p).toString(), margem.isEmpty() ? "0,00" : margem);
    }

    // A cost pasted past the key filter gives no price: the margin leaves the typed sale alone.
    void margemSemCustoLegivel()
    {
        produto("1");
        abre();
        troca(Produto::Venda, "20");
        sai(texto(Produto::Venda));
        texto(Produto::Custo)->setText("abc");
        troca(Produto::Lucro, "50");
        sai(texto(Produto::Lucro));
        QCOMPARE(texto(Produto::Venda)->text(), QString("20,00"));
    }

    void incluirComCaixasVazias()
    {
        for (int i = 1; i <= 79; ++i)
            produto(QString::number(i));
        produto("80", 0, -1);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        QCOMPARE(texto(Produto::Codigo)->text(), QString("81"));
        digita(texto(Produto::Descricao), "TV 29''");
        digita(texto(Produto::Equivalente), "D'ÁVILA PEÇAS");
        salva();
        const qint64 chave = b->banco().escalar("SELECT CodPecAut FROM Produto WHERE codpeca = '81'").toLongLong();
        QVERIFY(chave > 0);
        QCOMPARE(coluna("Descricao", chave).toString(), QString("TV 29''"));
        QCOMPARE(coluna("Equivalente", chave).toString(), QString("D'ÁVILA PEÇAS"));
        QCOMPARE(coluna("Quantidadeestoque", chave).toLongLong(), qint64(0));
        QCOMPARE(coluna("QuantidadeMinima", chave).toLongLong(), qint64(0));
        QCOMPARE(coluna("QuantidadeEmbalagem", chave).toLongLong(), qint64(1000));
        QCOMPARE(coluna("Unidade", chave).toString(), QString("UN"));
        QCOMPARE(coluna("PorcentagemLucro", chave).toString(), QString("0,00"));
        QCOMPARE(coluna("ValorComissao", chave).toString(), QString("0"));
        QCOMPARE(coluna("KitProduto", chave).toInt(), 0);
    }

    void codigoRecusado_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("a live product's code") << "10" << "Já existe produto com este código interno.";
        QTest::newRow("empty code") << "" << "Não pode ficar vazio a caixa código interno loja";
    }
    void codigoRecusado()
    {
        QFETCH(QString, codigo);
        QFETCH(QString, mensagem);
        produto("10");
        const qint64 outro = produto("20");
        produto("30", 0, -1);
        abre();
        QVERIFY(tela->mostraProduto(outro));
        troca(Produto::Codigo, codigo);
        salva();
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        QCOMPARE(coluna("codpeca", outro).toString(), QString("20"));
        // The code of a product in the bin is free again.
        Dialogos::Roteiro::limpar();
        troca(Produto::Codigo, "30");
        salva();
        QCOMPARE(coluna("codpeca", outro).toString(), QString("30"));
    }

    void estoqueNuncaVolta_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<qint64>("final");
        for (Motor m : {Motor::SQLite, Motor::PostgreSQL}) {
            const QString e = m == Motor::SQLite ? "sqlite: " : "postgres: ";
            QTest::newRow(qPrintable(e + "untouched stock keeps the till's 9")) << int(m) << "" << qint64(9000);
            QTest::newRow(qPrintable(e + "14 typed over 12 adds 2 to the 9")) << int(m) << "14" << qint64(11000);
            QTest::newRow(qPrintable(e + "a fraction 1,5 typed")) << int(m) << "1,5" << qint64(-1500);
        }
    }
    void estoqueNuncaVolta()
    {
        QFETCH(int, motor);
        QFETCH(QString, digitado);
        QFETCH(qint64, final);
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoProdutoAl = 1;
        const qint64 p = produto("30", 12);
        abre();
        QVERIFY(tela->mostraProduto(p));
        QCOMPARE(texto(Produto::Estoque)->text(), QString("12"));
        auto caixa = b->outraConexao();
        caixa->executar("UPDATE Produto SET Quantidadeestoque = Quantidadeestoque - 3000 WHERE CodPecAut = ?", {p});
        troca(Produto::Venda, "20,00");
        if (!digitado.isEmpty())
            troca(Produto::Estoque, digitado);
        salva();
        QCOMPARE(coluna("Quantidadeestoque", p).toLongLong(), final);
        QCOMPARE(coluna("PrecoVenda", p).toLongLong(), qint64(2000));
        QCOMPARE(texto(Produto::Estoque)->text(), Quantidade::deMilesimos(final).texto());
    }

    void letrasRecusadas_data()
    {
        QTest::addColumn<int>("caixa");
        QTest::newRow("stock") << int(Produto::Estoque);
        QTest::newRow("package") << int(Produto::Embalagem);
        QTest::newRow("minimum quantity") << int(Produto::Minima);
        QTest::newRow("sale price") << int(Produto::Venda);
        QTest::newRow("cost") << int(Produto::Custo);
    }
    void letrasRecusadas()
    {
        QFETCH(int, caixa);
        const qint64 p = produto("1", 4);
        abre();
        troca(caixa, "1a2,5b");
        QCOMPARE(texto(caixa)->text(), QString("12,5"));
        // Pasted past the key filter, the save still refuses it.
        texto(caixa)->setText("abc");
        salva();
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("inválid"));
        QCOMPARE(coluna("Quantidadeestoque", p).toLongLong(), qint64(4000));
        QCOMPARE(coluna("PrecoVenda", p).toLongLong(), qint64(0));
    }

    void semDireitoNadaGrava()
    {
        const qint64 p = produto("1");
        abre();
        sessao().DireitoProdutoAl = 0;
        troca(Produto::Descricao, "NOVA");
        salva();
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(coluna("Descricao", p).toString(), QString("PECA 1"));
    }

    void kitSobrevive()
    {
        const qint64 kit = produto("005");
        QList<qint64> itens;
        for (const char* c : {"A1", "A2", "A3", "A4"})
            itens << produto(c, 0, 0, 250);
        abre();
        QVERIFY(tela->mostraProduto(kit));
        for (qint64 i : itens)
            tela->recebeProduto({{"CodPecAut", i}, {"Kit", true}});
        auto* lista = tela->findChild<QTableWidget*>("Lprod");
        QCOMPARE(lista->rowCount(), 4);
        QCOMPARE(lista->item(0, 5)->text(), QString("DISTRIBUIDORA"));
        QCOMPARE(texto(Produto::SomaKit)->text(), QString("10,00"));
        for (int vez = 0; vez < 3; ++vez) {
            troca(Produto::Observacao, QString::number(vez));
            salva();
        }
        QCOMPARE(itensDoKit("005"), 4);
        QCOMPARE(coluna("KitProduto", kit).toInt(), -1);
        QCOMPARE(lista->rowCount(), 4);

        // A double click removes an item; none left to click says so.
        tela->removeItemKit(3);
        QCOMPARE(texto(Produto::SomaKit)->text(), QString("7,50"));
        tela->removeItemKit(7);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Não tem item"));
        // A new code takes the items along.
        troca(Produto::Codigo, "006");
        salva();
        QCOMPARE(itensDoKit("005"), 0);
        QCOMPARE(itensDoKit("006"), 3);

        // Into the bin the kit stays whole; for good it goes.
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("Excluidos", kit).toInt(), -1);
        QCOMPARE(itensDoKit("006"), 3);
        b->banco().executar("UPDATE Produto SET Excluidos = 0 WHERE CodPecAut = ?", {kit});
        RegistroTelas::fecharTodas();
        abre();
        QVERIFY(tela->mostraProduto(kit));
        QCOMPARE(tela->itensKit().size(), 3);
        sessao().DireitoPermanente = 1;
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(coluna("codpeca", kit).isNull());
        QCOMPARE(itensDoKit("006"), 0);
    }

    void barras_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<bool>("desenha");
        QTest::newRow("right check digit") << "7891234567895" << true;
        QTest::newRow("twelve digits get their check") << "789123456789" << true;
        QTest::newRow("wrong check digit") << "7891234567890" << false;
        QTest::newRow("letters") << "78912345678AB" << false;
    }
    void barras()
    {
        QFETCH(QString, codigo);
        QFETCH(bool, desenha);
        produto("1");
        abre();
        texto(Produto::Ean13)->setText(codigo);
        auto* l = tela->findChild<QLabel*>("Label2");
        QCOMPARE(!l->pixmap().isNull(), desenha);
        QCOMPARE(l->text().isEmpty(), desenha);
    }

    void imagemEWebcam()
    {
        produto("1");
        abre();
        QTemporaryDir d;
        const QString falsa = d.filePath("nota.jpg");
        QFile f(falsa);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("isto não é uma imagem");
        f.close();
        Dialogos::Roteiro::responder(falsa);
        QTest::mouseClick(botao(3), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::ultimoTexto().startsWith("O arquivo escolhido não é uma imagem"));
        QVERIFY(tela->findChild<QLineEdit*>("TxtImagem")->text().isEmpty());

        struct SemCamera : Camera {
            bool disponivel() const override { return false; }
            bool ligar() override { return false; }
            void desligar() override {}
            bool ligada() const override { return false; }
            QImage quadro() const override { return {}; }
        };
        Camera::definirFabrica([] { return std::make_unique<SemCamera>(); });
        QTest::mouseClick(botao(10), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Nenhuma câmera foi encontrada neste computador."));
        QCOMPARE(botao(10)->text(), QString("WebCam"));
    }

    void fotoDaCameraEmJpeg()
    {
        const qint64 p = produto("1");
        struct Fixa : Camera {
            bool ligada_ = false;
            bool disponivel() const override { return true; }
            bool ligar() override { return ligada_ = true; }
            void desligar() override { ligada_ = false; }
            bool ligada() const override { return ligada_; }
            QImage quadro() const override
            {
                QImage i(64, 48, QImage::Format_RGB32);
                i.fill(Qt::red);
                return i;
            }
        };
        Camera::definirFabrica([] { return std::make_unique<Fixa>(); });
        abre();
        QTest::mouseClick(botao(10), Qt::LeftButton);
        QCOMPARE(botao(10)->text(), QString("Encerra"));
        QTemporaryDir d;
        Dialogos::Roteiro::responder(d.filePath("foto.jpg"));
        QTest::mouseClick(botao(11), Qt::LeftButton);
        QImageReader leitor(d.filePath("foto.jpg"));
        QCOMPARE(leitor.format(), QByteArray("jpeg"));
        QCOMPARE(leitor.read().size(), QSize(64, 48));
        salva();
        QCOMPARE(coluna("FotoImagem", p).toString(), d.filePath("foto.jpg"));
    }
};

QTEST_MAIN(TstProduto)
#include "tst_produto.moc"
