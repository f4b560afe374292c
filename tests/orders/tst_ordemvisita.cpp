#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "documents/ApoioDocumentos.h"
#include "documents/Visualizador.h"
#include "orders/OrdemVisita.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

using namespace ApoioOrdens;

// The house-call screen as the counter uses it: boxes, grid cells and buttons by name,
// answers through the dialog seam, and what the store holds afterwards.
class TstOrdemVisita : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    OrdemVisita* tela = nullptr;

    bool motorDaLinha()
    {
        QFETCH(int, motor);
        b = std::make_unique<BancoTeste>(static_cast<Motor>(motor));
        if (!b->pronto())
            return false;
        Conexoes::configurar(b->config());
        return true;
    }
    void abre()
    {
        tela = qobject_cast<OrdemVisita*>(RegistroTelas::abrir("OrdemVisita"));
        QVERIFY(tela);
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
    }
    template <class T = QLineEdit> T* campo(const QString& nome) { return tela->findChild<T*>(nome); }
    QPushButton* botao(int i) { return campo<QPushButton>(QString("Botao(%1)").arg(i)); }
    QTableWidget* grade() { return campo<QTableWidget>("GridPecas"); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    // Types into a cell of the parts grid through its floating box, ending with Enter.
    void celula(int linha, int coluna, const QString& t)
    {
        const QRect r = grade()->visualRect(grade()->model()->index(linha, coluna));
        QTest::mouseClick(grade()->viewport(), Qt::LeftButton, {}, r.center());
        QLineEdit* e = campo("TxtGrade");
        QVERIFY(e->isVisible());
        e->selectAll();
        digita(e, t);
        QTest::keyClick(e, Qt::Key_Return);
    }
    QString celulaGrade(int l, int c) { return grade()->item(l, c) ? grade()->item(l, c)->text() : QString(); }
    QVariant escalar(const QString& sql, const QVariantList& v = {}) { return b->banco().escalar(sql, v); }
    void visita(qint64 cod, const QString& nome, const QString& atendida = {})
    {
        b->banco().inserir(*Esquema::tabela("VisitaTecnico"),
                           {"CodManu", "NomeCliente", "DataAtendida", "Atendida", "Aguarda", "Excluidos"},
                           {cod, nome, atendida.isNull() ? QString("") : atendida, atendida.isEmpty() ? 0 : -1, -1, 0});
    }
    void salva() { QTest::mouseClick(botao(2), Qt::LeftButton); }

private slots:
    void init()
    {
        b = std::make_unique<BancoTeste>(Motor::SQLite);
        QVERIFY(b->pronto());
        Conexoes::configurar(b->config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        sessaoCompleta();
        sessao().CfgTipoLetra = "False";
        sessao().SenhaObrigatoria = 0;
        sessao().SenhaLiberada = 0;
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        Dialogos::Roteiro::limpar();
        b.reset();
    }

    // A visit from the first key to the bin and out of the store.
    void visitaFeitaAtendidaImpressaEExcluida_data() { linhasMotores(); }
    void visitaFeitaAtendidaImpressaEExcluida()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        b->banco().inserir(*Esquema::tabela("PecasAplicadas"), {"CodOs", "CodOsAut", "NomeCliente", "TipoVisita", "Descricao"},
                           {1, 10, "JOÃO D'ÁVILA", "", "DA ORDEM 1"});
        abre();
        QCOMPARE(botao(0)->text(), QString("&Incluir"));
        QVERIFY(!botao(2)->isEnabled());
        QTest::mouseClick(botao(0), Qt::LeftButton);
        QCOMPARE(botao(2)->text(), QString("&Salvar"));
        QCOMPARE(botao(4)->text(), QString("&Cancelar"));
        QVERIFY(campo<QRadioButton>("OptAndamento(0)")->isChecked());
        digita(campo("NomeCliente"), "JOÃO D'ÁVILA");
        const QString pedido = QString("TV SEM IMAGEM ").repeated(715).left(10000);
        campo<QPlainTextEdit>("Solicitacao")->setPlainText(pedido);
        celula(0, 0, "FUSIVEL");
        celula(0, 1, "2");
        celula(0, 2, "1,50");
        QCOMPARE(celulaGrade(0, 3), QString("3,00"));
        celula(1, 0, "CABO");  // quantity and price left empty
        QCOMPARE(celulaGrade(1, 1), QString("1"));
        QCOMPARE(celulaGrade(1, 2), QString("0,00"));
        QCOMPARE(grade()->rowCount(), 3);  // always one empty row at the end
        digita(campo("MaoObra"), "40,00");
        QCOMPARE(campo("ValorPagar")->text(), QString("43,00"));
        salva();
        QVERIFY2(Dialogos::Roteiro::pendentes() == 0, qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(campo<QLabel>("CodManu")->text(), QString("1"));
        QCOMPARE(escalar("SELECT ValorVenda FROM VisitaTecnico").toLongLong(), 300);
        QCOMPARE(escalar("SELECT ValorPagar FROM VisitaTecnico").toLongLong(), 4300);
        QCOMPARE(escalar("SELECT Atendida FROM VisitaTecnico").toInt(), 0);
        QCOMPARE(escalar("SELECT Aguarda FROM VisitaTecnico").toInt(), -1);
        QCOMPARE(escalar("SELECT OsAlterado FROM VisitaTecnico").toString(), QString("ANA"));
        QCOMPARE(escalar("SELECT Solicitacao FROM VisitaTecnico").toString(), pedido);
        QCOMPARE(escalar("SELECT COUNT(*) FROM PecasAplicadas WHERE CodManu = 1 AND TipoVisita = 'VisitaTecnico'").toInt(), 2);

        // Served: the date is today, stored the way dates are.
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Este cliente já foi atendido ?"));
        campo<QRadioButton>("OptAndamento(3)")->click();
        salva();
        QCOMPARE(escalar("SELECT DataAtendida FROM VisitaTecnico").toString(), Datas::hoje());
        QCOMPARE(escalar("SELECT Atendida FROM VisitaTecnico").toInt(), -1);
        QCOMPARE(escalar("SELECT Executado FROM VisitaTecnico").toInt(), -1);
        QCOMPARE(escalar("SELECT Aguarda FROM VisitaTecnico").toInt(), 0);

        // Sheet 7 as a PDF, read back.
        QTemporaryDir pasta;
        const QString pdf = pasta.filePath("visita.pdf");
        Visualizador::definir([](const QString&) { return true; });
        Dialogos::Roteiro::responder(pdf);
        tela->imprimir(Destino::Tipo::Pdf);
        Visualizador::definir({});
        const QString texto = apoio::textoPdf(pdf);
        QVERIFY2(texto.contains("O.S: 1"), qPrintable(texto.left(400)));
        QVERIFY(texto.contains("JOÃO D'ÁVILA"));
        QVERIFY(texto.contains("FUSIVEL"));
        QVERIFY(!texto.contains("DA ORDEM 1"));

        // To the bin: the row and its parts stay, and the number box still finds it.
        Dialogos::Roteiro::responderSim();
        salva();
        QCOMPARE(escalar("SELECT Excluidos FROM VisitaTecnico").toInt(), -1);
        QCOMPARE(escalar("SELECT COUNT(*) FROM PecasAplicadas").toInt(), 3);
        digita(campo("TxtBusca(0)"), "1");
        QCOMPARE(campo("NomeCliente")->text(), QString("JOÃO D'ÁVILA"));

        // For good: the visit's parts go with it, the order's stay.
        sessao().DireitoPermanente = 1;
        Dialogos::Roteiro::responderSim();
        salva();
        QCOMPARE(escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt(), 0);
        QCOMPARE(escalar("SELECT Descricao FROM PecasAplicadas").toString(), QString("DA ORDEM 1"));
    }

    void exatamenteAVisitaPedida_data() { linhasMotores(); }
    void exatamenteAVisitaPedida()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        visita(1, "2ANA");
        visita(12, "ANA");
        visita(112, "ANA");
        abre();
        tela->abreVisita({{"CodManu", 12}});
        QCOMPARE(campo<QLabel>("CodManu")->text(), QString("12"));
        QCOMPARE(tela->total(), 1);
        digita(campo("TxtBusca(1)"), "2ANA");
        QCOMPARE(tela->total(), 0);  // 12 + "2ANA" is not visit 1
        campo("TxtBusca(0)")->clear();
        QCOMPARE(campo<QLabel>("CodManu")->text(), QString("1"));
        QCOMPARE(tela->total(), 1);
    }

    void numeroEDatasComoGuardados_data() { linhasMotores(); }
    void numeroEDatasComoGuardados()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        for (int i = 1; i <= 9; ++i)
            visita(i, "X");
        visita(10, "RUI", "2025/11/07");
        abre();
        tela->abreVisita({{"CodManu", 10}});
        QCOMPARE(campo("DataAtendida")->text(), QString("07/11/2025"));
        campo<QPlainTextEdit>("Solicitacao")->setPlainText("TROCAR RELE");
        salva();
        QCOMPARE(escalar("SELECT DataAtendida FROM VisitaTecnico WHERE CodManu = 10").toString(), QString("2025/11/07"));
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(campo("NomeCliente"), "NOVA");
        salva();
        QCOMPARE(escalar("SELECT CodManu FROM VisitaTecnico WHERE NomeCliente = 'NOVA'").toInt(), 11);
    }

    void produtoPelaChave()
    {
        const auto produto = [&](const QString& desc, qint64 venda) {
            return b->banco().inserir(*Esquema::tabela("Produto"), {"codpeca", "Descricao", "PrecoVenda", "PrecoCusto"},
                                      {desc.left(3), desc, venda, venda / 2});
        };
        const qint64 fusivel = produto("FUSIVEL", 150);
        produto("FUSIVEL 2A", 990);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(campo("NomeCliente"), "RUI");
        QTest::mouseClick(grade()->viewport(), Qt::LeftButton, {},
                          grade()->visualRect(grade()->model()->index(0, 0)).center());
        tela->recebeProduto({{"CodPecAut", fusivel}, {"Descricao", "FUSIVEL"}});
        QCOMPARE(celulaGrade(0, 0), QString("FUSIVEL"));
        QCOMPARE(celulaGrade(0, 2), QString("1,50"));
        salva();
        QCOMPARE(escalar("SELECT ValorCusto FROM PecasAplicadas").toLongLong(), 75);
    }

    void celulaInvalidaNaoGrava_data()
    {
        QTest::addColumn<int>("coluna");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("two commas in the quantity") << 1 << "1,,5" << "Quantidade inválida";
        QTest::newRow("letters in the price") << 2 << "1O,00" << "Valor inválido";
    }
    void celulaInvalidaNaoGrava()
    {
        QFETCH(int, coluna);
        QFETCH(QString, texto);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(campo("NomeCliente"), "RUI");
        celula(0, 0, "RELE");
        // The box takes no such keys; a pasted text is refused when the cell is left.
        const QRect r = grade()->visualRect(grade()->model()->index(0, coluna));
        QTest::mouseClick(grade()->viewport(), Qt::LeftButton, {}, r.center());
        digita(campo("TxtGrade"), "AB");
        QVERIFY(!campo("TxtGrade")->text().contains("A"));
        campo("TxtGrade")->setText(texto);
        QTest::keyClick(campo("TxtGrade"), Qt::Key_Return);
        QFETCH(QString, mensagem);
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        salva();
        QCOMPARE(escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt(), 0);
    }

    // A labour amount that can't be read is refused by the register's check, never kept as 0,00.
    void maoObraIlegivelNaoGrava()
    {
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(campo("NomeCliente"), "RUI");
        campo("MaoObra")->setText("4O,00");
        salva();
        QVERIFY2(Dialogos::Roteiro::contem("Valor inválido"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt(), 0);
    }

    void duasEstacoesNumeramSemRepetir_data() { linhasMotores(); }
    void duasEstacoesNumeramSemRepetir()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        OrdemVisita a, c;
        for (OrdemVisita* t : {&a, &c}) {
            t->novoRegistro();
            t->findChild<QLineEdit*>("NomeCliente")->setText(t == &a ? "ANA" : "BIA");
        }
        a.salvarOuExcluir();
        c.salvarOuExcluir();
        QCOMPARE(escalar("SELECT CodManu FROM VisitaTecnico WHERE NomeCliente = 'ANA'").toInt(), 1);
        QCOMPARE(escalar("SELECT CodManu FROM VisitaTecnico WHERE NomeCliente = 'BIA'").toInt(), 2);
    }

    void falhaNoMeioNaoDeixaMetade_data() { linhasMotores(); }
    void falhaNoMeioNaoDeixaMetade()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        // The second part's row is refused by the store, after the visit and the first part.
        if (b->config().motor == Motor::SQLite) {
            b->banco().executar("CREATE TRIGGER falha BEFORE INSERT ON PecasAplicadas WHEN NEW.Descricao = 'FALHA' "
                                "BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        } else {
            b->banco().executar("CREATE FUNCTION falha() RETURNS trigger AS $$ BEGIN "
                                "RAISE EXCEPTION 'disco cheio'; END $$ LANGUAGE plpgsql");
            b->banco().executar("CREATE TRIGGER falha BEFORE INSERT ON PecasAplicadas FOR EACH ROW "
                                "WHEN (NEW.Descricao = 'FALHA') EXECUTE FUNCTION falha()");
        }
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(campo("NomeCliente"), "RUI");
        celula(0, 0, "RELE");
        celula(1, 0, "FALHA");
        salva();
        QVERIFY(Dialogos::Roteiro::contem("Erro ao gravar formulário,"));
        QCOMPARE(escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt(), 0);
        QCOMPARE(escalar("SELECT COUNT(*) FROM PecasAplicadas").toInt(), 0);
        QCOMPARE(campo("NomeCliente")->text(), QString("RUI"));
        QCOMPARE(celulaGrade(1, 0), QString("FALHA"));
        QCOMPARE(botao(2)->text(), QString("&Salvar"));
    }

    void semDireitoNemSenhaNadaGrava()
    {
        sessao().DireitoOsTecAl = 0;
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        salva();
        QVERIFY(Dialogos::Roteiro::contem("Coloque o nome do cliente"));
        digita(campo("NomeCliente"), "RUI");
        salva();
        QVERIFY(RegistroTelas::aberta("Negado"));
        sessao().DireitoOsTecAl = 1;
        sessao().SenhaObrigatoria = 1;
        salva();
        QCOMPARE(sessao().SenhaOrigem, QString("OrdemVisita"));
        QCOMPARE(escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt(), 0);
        // Leave cancels the typing; a second press leaves.
        QTest::mouseClick(botao(4), Qt::LeftButton);
        QCOMPARE(botao(4)->text(), QString("Sai&r"));
    }

    void pesquisaIncluiNovaVisita()
    {
        sessao().ListaVisita = 1;
        QWidget* pesquisa = RegistroTelas::abrir("PesquisaOs");
        QVERIFY(pesquisa);
        auto* incluir = pesquisa->findChild<QPushButton*>("Botao(0)");
        QVERIFY(incluir);
        incluir->click();
        tela = qobject_cast<OrdemVisita*>(RegistroTelas::aberta("OrdemVisita"));
        QVERIFY(tela);
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
    }

    void clienteAbreNovaVisita()
    {
        abre();
        tela->novoComCliente({{"CodCliente", "12"}, {"NomeCliente", "ANA"},
                              {"EnderecoCompleto", "RUA A nº 1"}, {"Contato", "Tel: 1133334444Cel: "}});
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        QCOMPARE(campo<QLabel>("CodCliente")->text(), QString("12"));
        QCOMPARE(campo<QPlainTextEdit>("EndTel")->toPlainText(), QString("RUA A nº 1\nTel: 1133334444Cel: "));
        salva();
        QCOMPARE(escalar("SELECT CodCliente FROM VisitaTecnico").toString(), QString("12"));
    }
};

QTEST_MAIN(TstOrdemVisita)
#include "tst_ordemvisita.moc"
