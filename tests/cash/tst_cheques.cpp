#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "cash/Cheques.h"
#include "cash/PesquisaCheque.h"
#include "cash/RegCheque.h"
#include "data/Sessao.h"
#include "registers/EntregaTelas.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
Dinheiro d(const char* t) { return *Dinheiro::lerTexto(QString::fromUtf8(t)); }
}

class TstCheques : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    RegCheque* tela = nullptr;

    void abre()
    {
        tela = qobject_cast<RegCheque*>(RegistroTelas::abrir("RegCheque"));
        QVERIFY(tela);
    }
    QLineEdit* t1(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QLineEdit* t6(int i) { return tela->findChild<QLineEdit*>(QString("Text6(%1)").arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    QComboBox* plano() { return tela->findChild<QComboBox*>("Combo1"); }
    void clica(int i) { QTest::mouseClick(botao(i), Qt::LeftButton); }
    void digita(QLineEdit* w, const QString& t)
    {
        w->setFocus();
        w->clear();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void cliente(int cod, const QString& nome, const QString& doc)
    {
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, CnpjCpf, Telefone, Celular, Endereco, "
                            "Numero, Bairro, Cep, Cidade, Estado) VALUES (?, ?, ?, '1133334444', '11999998888', "
                            "'RUA B', '12', 'CENTRO', '01310100', 'SAO PAULO', 'SP')",
                            {cod, nome, doc});
    }
    // A stored cheque, as the accounts screen would find it.
    void cheque(qint64 cad, const QString& nome, const QString& numero, int quitado = 0, int excluidos = 0)
    {
        b->banco().executar(
            "INSERT INTO CadastroCheque (Codcadastro, CodVenda, CodCliente, NomeCliente, CPFCNPJCliente, NomeBanco, "
            "NumeroConta, NumeroCheque, TitularConta, CpfCnpjTitular, ValorTotal, ValorParcela, DataVencimento, "
            "NumeroParcela, DataCompra, TipoVenda, TipoPagamento, Funcionario, Excluidos, Quitado, DataPagamento, "
            "TipoRecebimento, ValorRecebido, Observacao) VALUES (?, '0000', '5', ?, '11144477735', 'ITAU', '4455', ?, "
            "?, '11144477735', 20000, 10000, '2025/03/01', '1 de 2', '2025/01/31', 'Conserto', 'CHEQUE-PRÉ 30/60', "
            "'MARIA', ?, ?, ?, ?, ?, ?)",
            {cad, nome, numero, nome, excluidos ? -1 : 0, quitado ? -1 : 0, quitado ? "2025/03/15" : "",
             quitado ? "DINHEIRO" : "", quitado ? 10000 : 0, quitado ? "COMPENSADO" : ""});
    }
    int contar(const QString& onde, const QVariantList& v = {})
    {
        return b->banco().escalar("SELECT COUNT(*) FROM CadastroCheque WHERE " + onde, v).toInt();
    }
    // The boxes of a complete registration for customer 5, the plan chosen.
    void preenche(const QString& nome, const QString& planoEscolhido, const QString& total)
    {
        tela->novo();
        tela->findChild<QLabel*>("Label1(14)")->setText("5");
        t1(0)->setText(nome);
        digita(t1(1), "11144477735");
        digita(t1(3), "ITAU");
        digita(t1(5), "4455");
        digita(t1(7), nome);
        digita(t1(10), total);
        tela->escolhePlano(planoEscolhido);
        for (int i = 0; i < tela->quantidadeCheques(); ++i)
            digita(t6(8 + i), QString::number(101 + i));
    }

    // A fresh store of the engine, the session of a cashier who may change cheques.
    bool ambiente(Motor motor)
    {
        b.reset();
        b = ambienteDeTela(motor);
        Sessao& s = sessao();
        s.DireitochequeAl = 1;
        s.DireitochequeLe = 1;
        s.DireitoPermanente = 0;
        s.UsuarioNome = "MARIA";
        return b->pronto();
    }

private slots:
    void init() { QVERIFY(ambiente(Motor::SQLite)); }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        b.reset();
    }

    // --- the plans, worked by hand ---------------------------------------------------------

    void planos_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QStringList>("valores");
        QTest::addColumn<QStringList>("datas");
        QTest::newRow("sight cheque: one, typed by the user") << "CHEQUE-VISTA" << "100,00" << QStringList{""}
                                                              << QStringList{""};
        QTest::newRow("15 days, whole") << "CHEQUE-PRÉ 15" << "100,00" << QStringList{"100,00"}
                                        << QStringList{"15/02/2025"};
        QTest::newRow("30 days from the 31st ends in February")
            << "CHEQUE-PRÉ 30" << "100,00" << QStringList{"100,00"} << QStringList{"28/02/2025"};
        QTest::newRow("two: cents kept, the last takes the rest, dates chained")
            << "CHEQUE-PRÉ 30/60" << "150,75" << QStringList{"75,37", "75,38"}
            << QStringList{"28/02/2025", "28/03/2025"};
        QTest::newRow("three of 100,00") << "CHEQUE-PRÉ 30/60/90" << "100,00"
                                         << QStringList{"33,33", "33,33", "33,34"}
                                         << QStringList{"28/02/2025", "28/03/2025", "28/04/2025"};
        QTest::newRow("four of 1.000,01") << "CHEQUE-PRÉ 30/60/90/120" << "1.000,01"
                                          << QStringList{"250,00", "250,00", "250,00", "250,01"}
                                          << QStringList{"28/02/2025", "28/03/2025", "28/04/2025", "28/05/2025"};
    }
    void planos()
    {
        QFETCH(QString, nome);
        QFETCH(QString, total);
        QFETCH(QStringList, valores);
        QFETCH(QStringList, datas);
        const auto p = Cheques::plano(nome, *Dinheiro::lerTexto(total), QDate(2025, 1, 31));
        QVERIFY(p);
        QStringList v, ds;
        for (const auto& x : *p) {
            v << (x.valor ? x.valor->texto() : QString());
            ds << (x.vencimento ? x.vencimento->toString("dd/MM/yyyy") : QString());
        }
        QCOMPARE(v, valores);
        QCOMPARE(ds, datas);
        QVERIFY(!Cheques::plano("30/60 DIAS", d("10,00"), QDate(2025, 1, 31)));
    }

    // --- the checks of a save, in order ----------------------------------------------------

    void checagens_data()
    {
        QTest::addColumn<QString>("vazio");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<QString>("foco");
        QTest::newRow("no customer") << "cliente" << "Selecione um cliente" << "Botao(4)";
        QTest::newRow("no document") << "doc" << "Digite o CPF ou CNPJ do cliente" << "Text1(1)";
        QTest::newRow("no bank") << "banco" << "Coloque o nome do Banco" << "Text1(3)";
        QTest::newRow("no holder") << "titular" << "Coloque o nome do titular da conta" << "Text1(7)";
        QTest::newRow("no plan") << "plano" << "Informe o tipo de pagamento" << "Combo1";
        QTest::newRow("a cheque without its number") << "numero" << "Coloque o número do cheque" << "Text6(9)";
        QTest::newRow("letters in a value") << "letras" << "Valor inválido: digite só números e a vírgula (150,00)."
                                            << "Text6(1)";
        QTest::newRow("impossible due date") << "data"
                                             << "Data inválida: digite o dia, o mês e o ano (dd/mm/aaaa)."
                                             << "Text6(5)";
    }
    void checagens()
    {
        QFETCH(QString, vazio);
        QFETCH(QString, mensagem);
        QFETCH(QString, foco);
        abre();
        tela->show();
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
        preenche("ANA", "CHEQUE-PRÉ 30/60", "200,00");
        if (vazio == "cliente") tela->findChild<QLabel*>("Label1(14)")->clear();
        if (vazio == "doc") t1(1)->clear();
        if (vazio == "banco") t1(3)->clear();
        if (vazio == "titular") t1(7)->clear();
        if (vazio == "plano") plano()->setCurrentIndex(0);
        if (vazio == "numero") t6(9)->clear();
        if (vazio == "letras") t6(1)->setText("1O0,00");
        if (vazio == "data") t6(5)->setText("31/02/2025");
        Dialogos::Roteiro::limpar();
        clica(5);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        QCOMPARE(QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(), foco);
        QCOMPARE(contar("1 = 1"), 0);
    }

    // --- saves on both engines ---------------------------------------------------------------

    void novoNaoApagaOutros_data() { linhasMotores(); }
    void novoNaoApagaOutros()
    {
        QFETCH(int, motor);
        if (!ambiente(static_cast<Motor>(motor)))
            QSKIP(qPrintable(b->motivo()));
        for (int i = 0; i < 3; ++i)
            cheque(1, "JULIANA", QString::number(500 + i));
        for (int i = 0; i < 4; ++i)
            cheque(2, "ANA", QString::number(600 + i));
        cheque(3, "ANA", "700");
        abre();
        preenche("ANA", "CHEQUE-PRÉ 30/60", "150,75");
        QVERIFY(tela->salvar());
        QCOMPARE(contar("NomeCliente = 'JULIANA'"), 3);
        QCOMPARE(contar("NomeCliente = 'ANA'"), 7);
        // Numbered inside the save after the highest registration; a hand-typed one is "0000".
        QCOMPARE(contar("Codcadastro = 4 AND CodVenda = '0000' AND ValorTotal = 15075"), 2);
        QCOMPARE(b->banco().escalar("SELECT SUM(ValorParcela) FROM CadastroCheque WHERE Codcadastro = 4").toLongLong(),
                 15075LL);
        QCOMPARE(b->banco().escalar("SELECT NumeroParcela FROM CadastroCheque WHERE NumeroCheque = '102'").toString(),
                 QString("2 de 2"));
        QCOMPARE(b->banco().escalar("SELECT CPFCNPJCliente FROM CadastroCheque WHERE NumeroCheque = '101'").toString(),
                 QString("11144477735"));
        // The screen is back to its first state.
        QCOMPARE(t1(0)->text(), QString());
    }

    void resalvarMantemCompensado_data() { linhasMotores(); }
    void resalvarMantemCompensado()
    {
        QFETCH(int, motor);
        if (!ambiente(static_cast<Motor>(motor)))
            QSKIP(qPrintable(b->motivo()));
        cheque(7, "JOANA D'ARC", "101", 1);
        cheque(7, "JOANA D'ARC", "102");
        cheque(8, "JOANA D'ARC", "900");
        abre();
        QVERIFY(tela->mostraCadastro(7));
        QCOMPARE(tela->quantidadeCheques(), 2);
        QCOMPARE(t6(8)->text(), QString("101"));
        digita(t1(3), "BRADESCO");
        digita(t6(1), "120,00");
        QVERIFY(tela->salvar());
        QCOMPARE(contar("Codcadastro = 7"), 2);
        QCOMPARE(contar("Codcadastro = 7 AND NumeroCheque = '101' AND Quitado <> 0 AND DataPagamento = '2025/03/15' "
                        "AND TipoRecebimento = 'DINHEIRO' AND ValorRecebido = 10000 AND Observacao = 'COMPENSADO'"),
                 1);
        QCOMPARE(contar("Codcadastro = 7 AND NumeroCheque = '102' AND ValorParcela = 12000 AND NomeBanco = 'BRADESCO'"),
                 1);
        QCOMPARE(contar("Codcadastro = 8 AND NomeBanco = 'ITAU'"), 1);

        // A plan that leaves the compensated cheque out never removes it.
        QVERIFY(tela->mostraCadastro(7));
        digita(t1(10), "50,00");
        tela->escolhePlano("CHEQUE-PRÉ 30");
        digita(t6(8), "103");
        QVERIFY(tela->salvar());
        QCOMPARE(contar("Codcadastro = 7 AND NumeroCheque = '101' AND Quitado <> 0"), 1);
        QCOMPARE(contar("Codcadastro = 7 AND NumeroCheque = '102'"), 0);
        QCOMPARE(contar("Codcadastro = 7 AND NumeroCheque = '103' AND ValorParcela = 5000"), 1);
    }

    void outraEstacaoAlterou_data() { linhasMotores(); }
    void outraEstacaoAlterou()
    {
        QFETCH(int, motor);
        if (!ambiente(static_cast<Motor>(motor)))
            QSKIP(qPrintable(b->motivo()));
        cheque(7, "ANA", "101");
        abre();
        QVERIFY(tela->mostraCadastro(7));
        auto outra = b->outraConexao();
        outra->executar("UPDATE CadastroCheque SET NomeBanco = 'CAIXA' WHERE Codcadastro = 7");
        digita(t1(3), "BRADESCO");
        QVERIFY(!tela->salvar());
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), Cheques::MsgAlteradoOutraEstacao);
        QCOMPARE(contar("NomeBanco = 'CAIXA'"), 1);
        // A compensation made meanwhile is not a conflict: the registration's boxes are.
        QVERIFY(tela->mostraCadastro(7));
        outra->executar("UPDATE CadastroCheque SET Quitado = -1, DataPagamento = '2025/03/15' WHERE Codcadastro = 7");
        digita(t1(5), "9999");
        QVERIFY(tela->salvar());
        QCOMPARE(contar("NumeroConta = '9999' AND Quitado <> 0"), 1);
    }

    void falhaNoMeio()
    {
        // The store refuses the second cheque: the first must not stay behind.
        b->banco().executar("CREATE TRIGGER falha BEFORE INSERT ON CadastroCheque WHEN NEW.NumeroCheque = '102' "
                            "BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        abre();
        preenche("JOANA D'ARC", "CHEQUE-PRÉ 30/60", "150,75");
        QVERIFY(!tela->salvar());
        QCOMPARE(contar("1 = 1"), 0);
        QCOMPARE(Dialogos::Roteiro::registros().last().titulo, QString("Erro ao gravar formulário,"));
        QCOMPARE(t1(3)->text(), QString("ITAU"));
        QCOMPARE(t6(9)->text(), QString("102"));
        b->banco().executar("DROP TRIGGER falha");
        QVERIFY(tela->salvar());
        QCOMPARE(contar("Codcadastro = 1"), 2);
    }

    void semDireito()
    {
        sessao().DireitochequeAl = 0;
        cheque(7, "ANA", "101");
        abre();
        preenche("ANA", "CHEQUE-PRÉ 15", "80,00");
        QVERIFY(!tela->salvar());
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(contar("1 = 1"), 1);
        QVERIFY(tela->mostraCadastro(7));
        clica(1);
        QCOMPARE(contar("Excluidos = 0"), 1);
    }

    void exclusoes_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("permanente");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* nm = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s marked with the user", nm) << m << 0;
            QTest::addRow("%s removed for good", nm) << m << 1;
        }
    }
    void exclusoes()
    {
        QFETCH(int, motor);
        QFETCH(int, permanente);
        if (!ambiente(static_cast<Motor>(motor)))
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoPermanente = permanente;
        sessao().UsuarioNome = "PEDRO";
        cheque(7, "ANA", "101");
        cheque(7, "ANA", "102");
        cheque(17, "ANA", "103");
        abre();
        QVERIFY(tela->mostraCadastro(7));
        Dialogos::Roteiro::responderSim();
        clica(1);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        QCOMPARE(contar("Codcadastro = 7"), permanente ? 0 : 2);
        QCOMPARE(contar("Codcadastro = 7 AND Excluidos <> 0 AND Funcionario = 'PEDRO'"), permanente ? 0 : 2);
        QCOMPARE(contar("Codcadastro = 17 AND Excluidos = 0"), 1);
    }

    // --- from the customer register and from the till --------------------------------------

    void clienteTitular()
    {
        cliente(5, "JOANA D'ARC", "11144477735");
        abre();
        tela->novo();
        Dialogos::Roteiro::responderSim();
        tela->findChild<QLineEdit*>("Text2")->setText("5");
        tela->findChild<QLineEdit*>("Text3")->setText("JOANA D'ARC");
        QVERIFY(Dialogos::Roteiro::contem("O nome do cliente é o mesmo do titular da conta ?"));
        QCOMPARE(t1(1)->text(), QString("111-444-777/35"));
        QCOMPARE(t1(2)->text(), QString("(11)3333-4444 / (11)99999-8888"));
        QCOMPARE(t1(7)->text(), QString("JOANA D'ARC"));
        QCOMPARE(tela->findChild<QPlainTextEdit*>("Text1(8)")->toPlainText(),
                 QString("RUA B-Nº 12\n\nCENTRO-Cep: 01-310-100\nSAO PAULO SP"));
        digita(t1(3), "ITAU");
        digita(t1(10), "90,00");
        tela->escolhePlano("CHEQUE-PRÉ 30/60/90");
        for (int i = 0; i < 3; ++i)
            digita(t6(8 + i), QString::number(201 + i));
        QVERIFY(tela->salvar());
        QCOMPARE(contar("TitularConta = ? AND TelCel = '1133334444 / 11999998888' AND CpfCnpjTitular = '11144477735'",
                        {"JOANA D'ARC"}),
                 3);
    }

    void doCaixa_data()
    {
        QTest::addColumn<QString>("pagamento");
        QTest::addColumn<int>("cheques");
        QTest::addColumn<QString>("primeiro");
        QTest::addColumn<QString>("vencimento");
        QTest::newRow("sight cheque is one, typed") << "CHEQUE-VISTA" << 1 << "" << "";
        QTest::newRow("two from what is owed") << "CHEQUE-PRÉ 30/60" << 2 << "75,37" << "28/02/2025";
    }
    void doCaixa()
    {
        QFETCH(QString, pagamento);
        QFETCH(int, cheques);
        QFETCH(QString, primeiro);
        QFETCH(QString, vencimento);
        cliente(5, "JOANA D'ARC", "11144477735");
        QVERIFY(EntregaTelas::disponivel("RegCheque"));
        QWidget* w = EntregaTelas::abrirCom("RegCheque", EntregaTelas::RecebePagamento,
                                            {{"CodCliente", "5"}, {"NomeCliente", "JOANA D'ARC"},
                                             {"CnpjCpf", "11144477735"}, {"CodOs", 57}, {"CodOsAut", 3},
                                             {"Pagamento", pagamento}, {"ValorCentavos", 15075LL},
                                             {"Data", QDate(2025, 1, 31)}});
        tela = qobject_cast<RegCheque*>(w);
        QVERIFY(tela);
        QCOMPARE(tela->quantidadeCheques(), cheques);
        QCOMPARE(t1(10)->text(), QString("150,75"));
        QCOMPARE(t6(0)->text(), primeiro);
        QCOMPARE(t6(4)->text(), vencimento);
        QCOMPARE(t1(12)->text(), QString("31/01/2025"));
        QCOMPARE(t1(2)->text(), QString("(11)3333-4444 / (11)99999-8888"));
        digita(t1(3), "ITAU");
        digita(t1(7), "JOANA D'ARC");
        if (pagamento == "CHEQUE-VISTA")
            digita(t6(0), "150,75");
        for (int i = 0; i < cheques; ++i)
            digita(t6(8 + i), QString::number(301 + i));
        QVERIFY(tela->salvar());
        QCOMPARE(contar("CodVenda = '57' AND TipoVenda = 'Conserto' AND TipoPagamento = ?", {pagamento}), cheques);
        QCOMPARE(b->banco().escalar("SELECT SUM(ValorParcela) FROM CadastroCheque").toLongLong(), 15075LL);
        // A sight cheque without a typed date falls due on the day it was handed over.
        if (pagamento == "CHEQUE-VISTA")
            QCOMPARE(contar("DataVencimento = '2025/01/31'"), 1);
    }

    // --- the search ---------------------------------------------------------------------------

    void pesquisa_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("achados");
        QTest::newRow("name anywhere: ANA is in JULIANA") << 1 << "ANA" << 5;
        QTest::newRow("cheque number") << 3 << "500" << 1;
        QTest::newRow("document typed with its mask") << 4 << "111-444-777/35" << 5;
        QTest::newRow("holder with an apostrophe") << 5 << "JOANA D'A" << 1;
        QTest::newRow("deleted cheques stay out") << 3 << "999" << 0;
    }
    void pesquisa()
    {
        QFETCH(int, opcao);
        QFETCH(QString, texto);
        QFETCH(int, achados);
        cheque(1, "JULIANA", "500");
        cheque(1, "JULIANA", "501");
        cheque(2, "ANA", "600");
        cheque(3, "JOANA D'ARC", "700");
        cheque(2, "ANA", "999", 0, 1);
        cheque(4, "ANA MARIA", "800");
        auto* p = qobject_cast<PesquisaCheque*>(RegistroTelas::abrir("PesquisaCheque"));
        QVERIFY(p);
        p->escolheOpcao(opcao);
        QCOMPARE(p->findChild<QLineEdit*>(QString("Text1(%1)").arg(opcao))->placeholderText(),
                 QString("Digite e tecle enter"));
        p->findChild<QLineEdit*>(QString("Text1(%1)").arg(opcao))->setText(texto);
        p->pesquisa();
        QCOMPARE(p->encontrados(), achados);
        if (achados) {
            QCOMPARE(p->windowTitle(), QString("Busca Cheque - %1 cheques encontrados").arg(achados));
            p->escolhe(0);
            tela = qobject_cast<RegCheque*>(RegistroTelas::aberta("RegCheque"));
            QVERIFY(tela);
            QVERIFY(!tela->registro().novo());
            QVERIFY(tela->quantidadeCheques() >= 1);
        }
    }
};

QTEST_MAIN(TstCheques)
#include "tst_cheques.moc"
