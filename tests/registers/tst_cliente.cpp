#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "ui/AmbienteTela.h"
#include "data/Conexoes.h"
#include "data/Dinheiro.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "registers/BuscaClientes.h"
#include "registers/Cliente.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// Stands in for the order and visit screens: keeps what the customer register hands over.
class TelaAlvo : public QWidget {
    Q_OBJECT
public:
    static inline QHash<QString, QVariantMap> recebido;
    Q_INVOKABLE void novoComCliente(const QVariantMap& d) { recebido.insert(objectName(), d); }
    Q_INVOKABLE void mostraOrdem(const QVariantMap& d) { recebido.insert(objectName() + "/ordem", d); }
};

class TstCliente : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    Cliente* tela = nullptr;

    void cliente(int cod, const QString& nome, int excluidos = 0, const QString& alterado = "JOANA")
    {
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos, Alterado) VALUES (?, ?, ?, ?)",
                            {cod, nome, excluidos, alterado});
    }
    void abre()
    {
        tela = qobject_cast<Cliente*>(RegistroTelas::abrir("Cliente"));
        QVERIFY(tela);
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
    }
    QLineEdit* campo(const QString& nome) { return tela->findChild<QLineEdit*>(nome); }
    QLineEdit* texto(int i) { return campo(QString("Text1(%1)").arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void sai(QWidget* w) { QTest::keyClick(w, Qt::Key_Tab); }
    QVariant coluna(const QString& col, int cod)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Cliente WHERE CodCliente = ?").arg(col), {cod});
    }
    void novoComNome(const QString& nome)
    {
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(0), nome);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.DireitoClienteAl = 1;
        s.UsuarioNome = "MARIA";
        s.CfgTipoLetra = "False";
        s.CfgOSAbreCompleta = "False";
        s.SenhaObrigatoria = 0;
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        b.reset();
    }

    void legendaEHistorico_data()
    {
        QTest::addColumn<int>("ordens");
        QTest::addColumn<QString>("fimLegenda");
        QTest::newRow("customer with orders: count and stamp")
            << 2 << "  --  Histórico Cliente 2   -  Alterado por: JOANA";
        QTest::newRow("customer without orders keeps the misspelt label")
            << 0 << "  --  Histórico Cliente 0   -  Aletrado por: JOANA";
    }
    void legendaEHistorico()
    {
        QFETCH(int, ordens);
        QFETCH(QString, fimLegenda);
        cliente(5, "ANA");
        cliente(6, "BIA");
        for (int i = 0; i < ordens; ++i)
            b->banco().executar("INSERT INTO OrdemServico (CodOs, CodCliente, Tipo, Marca, NumeroSerie, ValorPagar) "
                                "VALUES (?, '5', 'TV', 'SONY', 'X1', 123450)", {100 + i});
        // An order of customer 55 and a deleted one of 5 stay out of the history.
        b->banco().executar("INSERT INTO OrdemServico (CodOs, CodCliente) VALUES (900, '55')");
        b->banco().executar("INSERT INTO OrdemServico (CodOs, CodCliente, Excluidos) VALUES (901, '5', -1)");
        abre();
        QCOMPARE(tela->windowTitle(), "Cadastro de cliente    2   registros" + fimLegenda);
        auto* grade = tela->findChild<QTableWidget*>("Grade");
        QCOMPARE(grade->rowCount(), ordens);
        QStringList titulos;
        for (int c = 0; c < 5; ++c)
            titulos << grade->horizontalHeaderItem(c)->text();
        QCOMPARE(titulos, (QStringList{"O.S", "Tipo", "Marca", "Série", "Valor"}));
        QVERIFY(grade->isColumnHidden(5));
        if (ordens) {
            QCOMPARE(grade->item(0, 0)->text(), QString("100"));
            QCOMPARE(grade->item(0, 3)->text(), QString("X1"));
            QCOMPARE(grade->item(0, 4)->text(), Dinheiro::deCentavos(123450).texto());
            QVERIFY(!grade->item(0, 5)->text().isEmpty());
        }
    }

    void documentoAoSairEGravado_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mostrado");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<bool>("focoVolta");
        QTest::addColumn<QString>("gravado");
        QTest::newRow("right CPF gets its mask, stored as digits")
            << "111.444.777-35" << "111-444-777/35" << "" << false << "11144477735";
        QTest::newRow("CPF with a wrong digit is emptied")
            << "11144477736" << "" << MsgCpfIncorreto << false << "";
        QTest::newRow("twelve digits: the message ends in a quote")
            << "123456789012" << "" << MsgTamanhoCnpjCpf + "\"" << true << "";
        QTest::newRow("too few digits") << "1234" << "" << MsgTamanhoCnpjCpf << true << "";
        QTest::newRow("right CNPJ gets its mask")
            << "11222333000181" << "11-222-333-0001/81" << "" << false << "11222333000181";
        QTest::newRow("CNPJ with a wrong digit: emptied, focus back")
            << "11222333000182" << "" << MsgCnpjIncorreto << true << "";
        QTest::newRow("eleven zeros pass the check digits")
            << "00000000000" << "000-000-000/00" << "" << false << "00000000000";
        QTest::newRow("more than 14 digits stay unchecked")
            << "123456789012345" << "123456789012345" << "" << false << "123456789012345";
    }
    void documentoAoSairEGravado()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, mostrado);
        QFETCH(QString, mensagem);
        QFETCH(bool, focoVolta);
        QFETCH(QString, gravado);
        abre();
        novoComNome("ZE");
        QLineEdit* doc = texto(10);
        digita(doc, digitado);
        sai(doc);
        QCOMPARE(doc->text(), mostrado);
        if (mensagem.isEmpty())
            QVERIFY(Dialogos::Roteiro::registros().isEmpty());
        else
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        if (focoVolta)
            QTRY_VERIFY(doc->hasFocus());
        else
            QVERIFY(!doc->hasFocus());
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("CnpjCpf", 1).toString(), gravado);
        QCOMPARE(texto(10)->text(), gravado.isEmpty() ? QString() : MascaraCnpjCpf(gravado));
    }

    void documentoSalvoPeloAtalhoEhConferido()
    {
        // The button's shortcut (Alt+S) saves with the focus still in the field: the number
        // is checked all the same.
        abre();
        novoComNome("ZE");
        digita(texto(10), "11144477736");
        botao(1)->click();
        QVERIFY(texto(10)->hasFocus());
        QVERIFY(Dialogos::Roteiro::contem(MsgCpfIncorreto));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
    }

    void telefonesECepSoDigitos()
    {
        cliente(1, "ANA");
        b->banco().executar("UPDATE Cliente SET TelFax = '3333-1000 ramal 2', Telefone = '1133331000' WHERE CodCliente = 1");
        abre();
        QCOMPARE(texto(7)->text(), QString("(11)3333-1000"));
        QCOMPARE(texto(8)->text(), QString("3333-1000 ramal 2"));
        texto(9)->clear();
        digita(texto(9), "11a9999b0001");
        QCOMPARE(texto(9)->text(), QString("1199990001"));
        sai(texto(9));
        QCOMPARE(texto(9)->text(), QString("(11)9999-0001"));
        digita(texto(5), "01310x100");
        sai(texto(5));
        QCOMPARE(texto(5)->text(), QString("01-310-100"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("Celular", 1).toString(), QString("1199990001"));
        QCOMPARE(coluna("Cep", 1).toString(), QString("01310100"));
        QCOMPARE(coluna("Telefone", 1).toString(), QString("1133331000"));
        QCOMPARE(coluna("TelFax", 1).toString(), QString("3333-1000 ramal 2"));
    }

    void incluirNumeraEGravaTudo()
    {
        cliente(41, "ANTIGO");
        abre();
        novoComNome("JOÃO");
        digita(texto(1), "RUA A");
        tela->findChild<QCheckBox*>("Check1")->click();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("NomeCliente", 42).toString(), QString("JOÃO"));
        QCOMPARE(coluna("Endereco", 42).toString(), QString("RUA A"));
        QCOMPARE(coluna("BloqCliente", 42).toInt(), -1);
        QCOMPARE(coluna("Alterado", 42).toString(), QString("MARIA"));
        QCOMPARE(tela->findChild<QLabel*>("Label2(0)")->text(), QString("42"));
        QCOMPARE(tela->findChild<QLabel*>("Label2(1)")->text(), QDate::currentDate().toString("dd/MM/yyyy"));
        QVERIFY(tela->windowTitle().endsWith("Aletrado por: MARIA"));
    }

    void semDireitoNadaGrava()
    {
        abre();
        sessao().DireitoClienteAl = 0;
        novoComNome("ZE");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
    }

    void exclusaoSaiDasBuscasNaHora_data()
    {
        QTest::addColumn<int>("permanente");
        QTest::newRow("soft deletion stamps the row") << 0;
        QTest::newRow("permanent deletion removes it") << 1;
    }
    void exclusaoSaiDasBuscasNaHora()
    {
        QFETCH(int, permanente);
        cliente(1, "ANA");
        sessao().DireitoPermanente = permanente;
        abre();
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        QVERIFY(BuscaClientes::buscar(b->banco(), BuscaClientes::Opcao::Nome, "ANA", 0).linhas.isEmpty());
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), permanente ? 0 : 1);
        if (!permanente)
            QCOMPARE(coluna("Alterado", 1).toString(), QString("MARIA"));
        sessao().DireitoPermanente = 0;
    }

    void caixasDeBuscaJuntamCodigoENome()
    {
        cliente(1, "ANA");
        cliente(12, "ANALU", -1);
        cliente(3, "PEDRO");
        abre();
        campo("Text3")->setText("PED");
        QCOMPARE(texto(0)->text(), QString("PEDRO"));
        campo("Text3")->clear();
        tela->mostraCliente("12", "ANALU");  // what the customer search's choice does
        QCOMPARE(texto(0)->text(), QString("ANALU"));
        QVERIFY(tela->windowTitle().startsWith("Cadastro de cliente    1   registros"));
    }

    void abrirNoModoNovo()
    {
        cliente(1, "ANA");
        abre();
        QMetaObject::invokeMethod(tela, "abrirNoModo", Q_ARG(QString, "Novo"));
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        QVERIFY(texto(0)->text().isEmpty());
    }

    void botoesSemTelaDestinoFicamDesligados()
    {
        cliente(1, "ANA");
        abre();
        QCOMPARE(botao(2)->isEnabled(), RegistroTelas::registrada("OrdemServicoEntrada"));
        QCOMPARE(botao(3)->isEnabled(), RegistroTelas::registrada("OrdemVisita"));
        QVERIFY(botao(1)->isEnabled());
    }

    // Registers stand-ins for the order and visit screens: keep it after the tests that
    // need them absent.
    void entregaAOrdemEAVisita_data()
    {
        QTest::addColumn<QString>("completa");
        QTest::addColumn<QString>("alvo");
        QTest::addColumn<QStringList>("chaves");
        QTest::newRow("intake gets the whole customer") << "False" << "OrdemServicoEntrada"
            << QStringList{"Bairro", "Celular", "Cidade", "CnpjCpf", "CodCliente", "Endereco", "NomeCliente", "Numero", "Telefone"};
        QTest::newRow("whole-order screen gets name and code") << "True" << "CadCompleto"
            << QStringList{"CodCliente", "NomeCliente"};
    }
    void entregaAOrdemEAVisita()
    {
        QFETCH(QString, completa);
        QFETCH(QString, alvo);
        QFETCH(QStringList, chaves);
        for (const char* n : {"OrdemServicoEntrada", "CadCompleto", "OrdemVisita", "OrdemServicoSaida"})
            RegistroTelas::registrar(n, [] { return new TelaAlvo; });
        TelaAlvo::recebido.clear();
        sessao().CfgOSAbreCompleta = completa;
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Endereco, Numero, Complemento, Bairro, Cep, "
                            "Cidade, Estado, Telefone, Celular) VALUES (7, 'ANA', 'RUA A', '10', 'FUNDOS', 'CENTRO', "
                            "'01310100', 'SAO PAULO', 'SP', '1133331000', '1199990001')");
        b->banco().executar("INSERT INTO OrdemServico (CodOs, CodCliente) VALUES (300, '7')");
        abre();
        QVERIFY(botao(2)->isEnabled());
        QTest::mouseClick(botao(2), Qt::LeftButton);
        const QVariantMap os = TelaAlvo::recebido.value(alvo);
        QCOMPARE(QStringList(os.keys()), chaves);
        QCOMPARE(os.value("CodCliente").toString(), QString("7"));
        if (os.contains("Endereco"))
            QCOMPARE(os.value("Endereco").toString(), QString("RUA A-FUNDOS"));

        QTest::mouseClick(botao(3), Qt::LeftButton);
        const QVariantMap visita = TelaAlvo::recebido.value("OrdemVisita");
        QCOMPARE(visita.value("Contato").toString(), QString("Tel: (11)3333-1000Cel: (11)9999-0001"));
        QCOMPARE(visita.value("EnderecoCompleto").toString(),
                 QString("RUA A nº 10-FUNDOS-CENTRO-01-310-100-SAO PAULO/SP"));

        auto* grade = tela->findChild<QTableWidget*>("Grade");
        grade->setCurrentCell(0, 0);
        QTest::keyClick(grade, Qt::Key_Return);
        const QString saida = completa == "True" ? "CadCompleto/ordem" : "OrdemServicoSaida/ordem";
        QCOMPARE(TelaAlvo::recebido.value(saida).value("CodOs").toString(), QString("300"));
        QCOMPARE(TelaAlvo::recebido.value(saida).value("NomeCliente").toString(), QString("ANA"));
    }
};

QTEST_MAIN(TstCliente)
#include "tst_cliente.moc"
