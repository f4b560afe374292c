#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QtTest>

#include "orders/EstoqueOrdem.h"
#include "stock/ApoioEstoque.h"
#include "stock/SaidaProduto.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

// Hands parts from the stock room to orders through the screen, as the counter does.
class TstSaidaProduto : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;

    Banco& banco() { return b->banco(); }
    SaidaProduto* abre() { return qobject_cast<SaidaProduto*>(RegistroTelas::abrir("SaidaProduto")); }
    QLineEdit* caixa(QWidget* t, const char* nome) { return t->findChild<QLineEdit*>(QLatin1String(nome)); }
    QPushButton* botao(QWidget* t, int i) { return t->findChild<QPushButton*>(QStringLiteral("Botao(%1)").arg(i)); }
    QTableWidget* grade(QWidget* t) { return t->findChild<QTableWidget*>("Grade"); }

    bool preparar(int motor)
    {
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            return false;
        Sessao& s = sessao();
        s.DireitoProdutoAl = 1;
        s.DireitoAltOs = 0;
        s.CfgAtivaSer = QStringLiteral("True");
        ApoioEstoque::produto(banco(), "TR1", "TRANSISTOR BU508", 5, 0,
                              {{"PrecoVenda", 4200}, {"PrecoCusto", 3000}, {"PrecoMinimo", 3900}, {"Modulo", "MOD-X"},
                               {"Armazenado", "GAVETA 3"}, {"Unidade", "PC"}, {"Revendedor", "ELETRO SUL"},
                               {"Categoria", "SEMICONDUTOR"}});
        return true;
    }
    // An order owing 100,00 of labour (one service), its number chosen by the test.
    qint64 ordem(qint64 numero, const QString& nome, bool saida = false, bool excluida = false)
    {
        const qint64 chave = banco().inserir(*Esquema::tabela("OrdemServico"),
                                             {"CodOs", "NomeCliente", "Tipo", "Marca", "MaoObra", "ValorPagar", "Saida",
                                              "Excluidos"},
                                             {numero, nome, "TV", "SONY", 10000, 10000, saida ? -1 : 0, excluida ? -1 : 0});
        banco().inserir(*Esquema::tabela("ServicoOS"), {"CodOs", "CodOsAut", "NomeOS", "Servico", "ValorObra"},
                        {numero, chave, nome, "TROCA", 10000});
        return chave;
    }
    void preenche(SaidaProduto* t, const QString& codigo, const QString& quantidade, const QString& numero)
    {
        caixa(t, "TxtBusca(0)")->setText(codigo);
        t->saiDoCodigo();
        caixa(t, "TxtBusca(1)")->setText(quantidade);
        caixa(t, "TxtBusca(2)")->setText(numero);
        if (!numero.isEmpty())
            t->saiDaOrdem();
    }
    qint64 valor(const QString& sql, const QVariantList& v = {}) { return banco().escalar(sql, v).toLongLong(); }
    qint64 estoque() { return valor("SELECT Quantidadeestoque FROM Produto WHERE codpeca = 'TR1'"); }

private slots:
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void entregaCobraEBaixaUmaVez_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("quantidade");
        QTest::addColumn<qint64>("milesimos");
        QTest::addColumn<qint64>("pagar");
        auto caso = [](const char* nome, const QString& q, qint64 m, qint64 p) {
            ApoioEstoque::porMotor(nome, [&](QTestData& r) { r << q << m << p; });
        };
        caso("empty quantity is one: 100,00 becomes 142,00", "", 1000, 14200);
        caso("one and a half: 100,00 + 63,00", "1,5", 1500, 16300);
    }
    void entregaCobraEBaixaUmaVez()
    {
        QFETCH(int, motor);
        QFETCH(QString, quantidade);
        QFETCH(qint64, milesimos);
        QFETCH(qint64, pagar);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(1234, "JOÃO D'ÁVILA");
        SaidaProduto* t = abre();
        preenche(t, "TR1", quantidade, "1234");
        QCOMPARE(caixa(t, "Dcliente(0)")->text(), QString("JOÃO D'ÁVILA"));
        QCOMPARE(caixa(t, "Dcliente(1)")->text(), QString("TV-SONY"));
        QCOMPARE(caixa(t, "Dcliente(2)")->text(), QString::number(chave));
        QCOMPARE(t->findChild<QComboBox*>("CProduto")->currentText(), QString("TRANSISTOR BU508"));
        botao(t, 0)->click();

        QSqlQuery q = banco().executar(
            "SELECT CodOs, CodOsAut, NomeCliente, codpeca, Descricao, Quantidade, ValorCusto, ValorVenda, ValorTotal, "
            "ValorMinimo, Modulo, Armazenado, Unidade, Fornecedor, Departamento, ControleEstoque, BaixaEstoque "
            "FROM PecasAplicadas");
        QVERIFY(q.next());
        const QVariantList esperado = {1234, chave, "JOÃO D'ÁVILA", "TR1", "TRANSISTOR BU508", milesimos, 3000, 4200,
                                       pagar - 10000, 3900, "MOD-X", "GAVETA 3", "PC", "ELETRO SUL", "SEMICONDUTOR",
                                       -1, 0};
        for (int i = 0; i < esperado.size(); ++i)
            QCOMPARE(q.value(i).toString(), esperado.at(i).toString());
        QVERIFY(!q.next());
        QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), pagar);
        QCOMPARE(valor("SELECT ValorVenda FROM OrdemServico WHERE CodOsAut = ?", {chave}), pagar - 10000);
        // Nothing leaves stock at the counter; the bench and the till together take it once.
        QCOMPARE(estoque(), 5000);
        EstoqueOrdem::baixarNaBancada(banco(), chave);
        EstoqueOrdem::baixarNoCaixa(banco(), chave);
        QCOMPARE(estoque(), 5000 - milesimos);
        // The boxes are ready for the next part, the order stays, and the grid lists the part.
        QVERIFY(caixa(t, "TxtBusca(0)")->text().isEmpty());
        QCOMPARE(caixa(t, "TxtBusca(2)")->text(), QString("1234"));
        QCOMPARE(grade(t)->rowCount(), 1);
        QCOMPARE(grade(t)->item(0, 1)->text(), QString("TR1"));
        QCOMPARE(grade(t)->item(0, 0)->text(), QString("GAVETA 3"));
    }

    void recusas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<int>("pecas");
        auto caso = [](const char* nome, const QString& c, const QString& m, int p) {
            ApoioEstoque::porMotor(nome, [&](QTestData& r) { r << c << m << p; });
        };
        caso("no right to change products", "semDireito", "", 0);
        caso("a finished order needs DireitoAltOs", "finalizada", "finalizada", 0);
        caso("a finished order with DireitoAltOs", "finalizadaComDireito", "", 1);
        caso("a deleted order is not found", "excluida", "Ordem serviço não encontrada", 0);
        caso("an unknown product", "semProduto", "Produto não foi encontrado", 0);
        caso("no order number", "semOrdem", "Digite o numero da ordem de serviço", 0);
        caso("zero quantity", "zero", "não é válida", 0);
    }
    void recusas()
    {
        QFETCH(int, motor);
        QFETCH(QString, caso);
        QFETCH(QString, mensagem);
        QFETCH(int, pecas);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const bool finalizada = caso.startsWith("finalizada");
        const qint64 chave = ordem(77, "MARIA", finalizada, caso == "excluida");
        if (caso == "semDireito")
            sessao().DireitoProdutoAl = 0;
        if (caso == "finalizadaComDireito")
            sessao().DireitoAltOs = 1;
        SaidaProduto* t = abre();
        preenche(t, caso == "semProduto" ? "XYZ" : "TR1", caso == "zero" ? "0" : "", caso == "semOrdem" ? "" : "77");
        botao(t, 0)->click();
        QCOMPARE(valor("SELECT COUNT(*) FROM PecasAplicadas"), qint64(pecas));
        if (!mensagem.isEmpty())
            QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        if (caso == "semDireito")
            QVERIFY(RegistroTelas::aberta("Negado"));
        if (caso == "semProduto") {
            QCOMPARE(t->findChild<QComboBox*>("CProduto")->currentText(), QString("Não foi encontrado!"));
            QVERIFY(caixa(t, "TxtBusca(0)")->text().isEmpty());
        }
        if (!pecas)
            QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), qint64(10000));
    }

    // Two live orders typed with one number: the user says which gets the part.
    void duasOrdensComUmNumero()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        ordem(500, "PRIMEIRO");
        const qint64 segunda = ordem(500, "SEGUNDO");
        ordem(500, "NA LIXEIRA", false, true);
        SaidaProduto* t = abre();
        Dialogos::Roteiro::responder(QStringLiteral("2"));
        preenche(t, "TR1", "2", "500");
        QVERIFY(Dialogos::Roteiro::contem("500 - SEGUNDO (TV-SONY)"));
        QVERIFY(!Dialogos::Roteiro::contem("NA LIXEIRA"));
        QCOMPARE(caixa(t, "Dcliente(0)")->text(), QString("SEGUNDO"));
        botao(t, 0)->click();
        QCOMPARE(valor("SELECT CodOsAut FROM PecasAplicadas"), segunda);
    }

    void remocaoPelaChave_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("caso");
        auto caso = [](const char* nome, const QString& c) {
            ApoioEstoque::porMotor(nome, [&](QTestData& r) { r << c; });
        };
        caso("removes only the chosen row and recomputes", "ok");
        caso("without the right nothing goes", "semDireito");
        caso("answered no", "nao");
    }
    void remocaoPelaChave()
    {
        QFETCH(int, motor);
        QFETCH(QString, caso);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(9, "ANA");
        SaidaProduto* t = abre();
        preenche(t, "TR1", "1", "9");
        botao(t, 0)->click();
        preenche(t, "TR1", "2", "9");
        botao(t, 0)->click();
        QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), qint64(10000 + 3 * 4200));
        QCOMPARE(grade(t)->rowCount(), 2);
        const qint64 segunda = valor("SELECT MAX(CodPecAut) FROM PecasAplicadas");
        grade(t)->setCurrentCell(1, 0);
        if (caso == "semDireito")
            sessao().DireitoProdutoAl = 0;
        Dialogos::Roteiro::limpar();
        if (caso == "nao")
            Dialogos::Roteiro::responderNao();
        else
            Dialogos::Roteiro::responderSim();
        botao(t, 1)->click();
        if (caso != "ok") {
            QCOMPARE(valor("SELECT COUNT(*) FROM PecasAplicadas"), qint64(2));
            QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), qint64(22600));
            return;
        }
        QVERIFY(Dialogos::Roteiro::contem("Confirma exclusão 9 - TRANSISTOR BU508"));
        QVERIFY2(Dialogos::Roteiro::contem("Atenção, você tem que retornar este produto no estoque pelo formulário de "
                                          "produto alterando a quantidade de estoque"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(valor("SELECT COUNT(*) FROM PecasAplicadas WHERE CodPecAut = ?", {segunda}), qint64(0));
        QCOMPARE(valor("SELECT Quantidade FROM PecasAplicadas"), qint64(1000));
        QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), qint64(14200));
        QCOMPARE(grade(t)->rowCount(), 1);
        QCOMPARE(estoque(), 5000);
    }

    // Two counters remove the same part: the second is told, and the money stays right.
    void duasEstacoesRemovem_data()
    {
        QTest::addColumn<int>("motor");
        ApoioEstoque::porMotor("second removal finds nothing", [](QTestData&) {});
    }
    void duasEstacoesRemovem()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(41, "DUAS");
        const auto p = SaidaPecas::produto(banco(), "TR1");
        QVERIFY(p);
        const qint64 peca = SaidaPecas::entregar(banco(), chave, *p, Quantidade::unidades(1), true);
        auto outra = b->outraConexao();
        QVERIFY(SaidaPecas::remover(*outra, chave, peca, true));
        QVERIFY(!SaidaPecas::remover(banco(), chave, peca, true));
        QCOMPARE(valor("SELECT ValorPagar FROM OrdemServico WHERE CodOsAut = ?", {chave}), qint64(10000));
        // The deleted product is not handed out; the live one with the same code is.
        ApoioEstoque::produto(banco(), "TR2", "APAGADO", 1, 0, {{"Excluidos", -1}});
        QVERIFY(!SaidaPecas::produto(banco(), "TR2"));
    }

    // A store from before parts kept their module gets the column when it opens, and the
    // hand-over that writes it goes through.
    void lojaAntigaSemModulo()
    {
        QVERIFY(preparar(int(Motor::SQLite)));
        banco().executar("ALTER TABLE PecasAplicadas DROP COLUMN Modulo");
        banco().garantirEsquema();
        const qint64 chave = ordem(40, "LOJA ANTIGA");
        SaidaProduto* t = abre();
        preenche(t, "TR1", "1", "40");
        botao(t, 0)->click();
        QCOMPARE(banco().escalar("SELECT Modulo FROM PecasAplicadas WHERE CodOsAut = ?", {chave}).toString(),
                 QString("MOD-X"));
    }

    void modosListam_data()
    {
        QTest::addColumn<int>("motor");
        ApoioEstoque::porMotor("order and sale", [](QTestData&) {});
    }
    void modosListam()
    {
        QFETCH(int, motor);
        if (!preparar(motor))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(31, "BETO");
        banco().inserir(*Esquema::tabela("PecasAplicadas"), {"CodOs", "CodOsAut", "codpeca", "Descricao", "Quantidade",
                                                             "Armazenado"},
                        {31, chave, "CB1", "CABO", 2000, "A1"});
        banco().inserir(*Esquema::tabela("CadastroPecasNota"), {"NumeroOS", "codpeca", "Descricao", "Quantidade",
                                                                "Armazenado"},
                        {31, "FU2", "FUSIVEL", 3000, "B2"});
        SaidaProduto* t = abre();
        auto* etiqueta = t->findChild<QLabel*>("Etiqueta(0)");
        QCOMPARE(etiqueta->text(), QString("Código peça:"));
        t->findChild<QRadioButton*>("OptTipo(1)")->click();
        QCOMPARE(etiqueta->text(), QString("Numero OS:"));
        QCOMPARE(botao(t, 0)->text(), QString("&Mostra"));
        caixa(t, "TxtBusca(0)")->setText("31");
        botao(t, 0)->click();
        QCOMPARE(grade(t)->rowCount(), 1);
        QCOMPARE(grade(t)->item(0, 0)->text() + grade(t)->item(0, 1)->text() + grade(t)->item(0, 2)->text()
                     + grade(t)->item(0, 3)->text(), QString("A1CB1CABO2"));
        t->findChild<QRadioButton*>("OptTipo(2)")->click();
        QCOMPARE(etiqueta->text(), QString("Código venda:"));
        QVERIFY(!botao(t, 1)->isEnabled());
        caixa(t, "TxtBusca(0)")->setText("31");
        botao(t, 0)->click();
        QCOMPARE(grade(t)->rowCount(), 1);
        QCOMPARE(grade(t)->item(0, 1)->text() + grade(t)->item(0, 3)->text(), QString("FU23"));
        t->findChild<QRadioButton*>("OptTipo(0)")->click();
        QCOMPARE(botao(t, 0)->text(), QString("&Envia"));
    }
};

QTEST_MAIN(TstSaidaProduto)
#include "tst_saidaproduto.moc"
