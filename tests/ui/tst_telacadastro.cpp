#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include "ui/AmbienteTela.h"
#include "apoio/OutraEstacao.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"
#include "ui/TelaCadastro.h"

// A small register over Cliente, built the way every register screen is.
class CadastroTeste : public TelaCadastro {
public:
    CadastroTeste()
    {
        auto* codigo = new QLabel(corpo());
        codigo->setObjectName("Label2(0)");
        nome = new QLineEdit(corpo());
        nome->setObjectName("Text1(0)");
        numero = new QLineEdit(corpo());
        numero->setObjectName("Text1(1)");
        obs = new QPlainTextEdit(corpo());
        obs->setObjectName("Text1(2)");
        bloq = new QCheckBox("Bloqueado", corpo());
        bloq->setObjectName("Check1");
        busca = new QLineEdit(corpo());
        busca->setObjectName("TxtBusca");
        auto* l = new QVBoxLayout(corpo());
        for (QWidget* w : {static_cast<QWidget*>(busca), static_cast<QWidget*>(codigo), static_cast<QWidget*>(nome),
                           static_cast<QWidget*>(numero), static_cast<QWidget*>(obs), static_cast<QWidget*>(bloq)})
            l->addWidget(w);
        def().tabela = "Cliente";
        def().titulo = "Cadastro de cliente";
        def().colunaCodigo = "CodCliente";
        def().colunaCarimbo = "Alterado";
        def().colunaDataCadastro = "DataCadastro";
        def().direito = "DireitoClienteAl";
        def().senhaOrigem = "Cliente";
        def().obrigatorio = nome;
        def().mensagemObrigatorio = "Coloque o nome do cliente";
        def().buscaViva = busca;
        def().colunasBuscaViva = {"NomeCliente"};
        campos() = {{codigo, "CodCliente", CampoCadastro::Tipo::Exibicao},
                    {nome, "NomeCliente", CampoCadastro::Tipo::Texto},
                    {numero, "Numero", CampoCadastro::Tipo::Numero},
                    {obs, "Observacao", CampoCadastro::Tipo::Texto},
                    {bloq, "BloqCliente", CampoCadastro::Tipo::Flag}};
        iniciar();
    }
    QLineEdit* nome;
    QLineEdit* numero;
    QPlainTextEdit* obs;
    QCheckBox* bloq;
    QLineEdit* busca;
};

class TstTelaCadastro : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<BancoTeste> b;
    std::unique_ptr<CadastroTeste> tela;

    void cliente(int codigo, const QString& nome, int excluidos = 0)
    {
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) VALUES (?, ?, ?)",
                            {codigo, nome, excluidos});
    }
    void abre()
    {
        tela = std::make_unique<CadastroTeste>();
        tela->show();
    }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    QVariant coluna(const QString& col, int codigo)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Cliente WHERE CodCliente = ?").arg(col), {codigo});
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.DireitoClienteAl = 1;
        s.UsuarioNome = "MARIA";
    }
    void cleanup()
    {
        tela.reset();
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void tabelaVaziaSoIncluirEFechar()
    {
        abre();
        QCOMPARE(tela->windowTitle(), QString("Cadastro de cliente    0   registros"));
        QCOMPARE(botao(0)->text(), QString("&Incluir"));
        QVERIFY(botao(0)->isEnabled());
        QVERIFY(!botao(1)->isEnabled());
        QVERIFY(botao(2)->isEnabled());
        QVERIFY(!tela->nome->isEnabled());
    }

    void abreNoPrimeiroVivoComAContagem()
    {
        cliente(3, "CARLOS");
        cliente(1, "ANA", -1);
        cliente(2, "BEATRIZ");
        abre();
        QCOMPARE(tela->windowTitle(), QString("Cadastro de cliente    2   registros"));
        QCOMPARE(tela->nome->text(), QString("BEATRIZ"));
        QVERIFY(tela->irProximo());
        QCOMPARE(tela->nome->text(), QString("CARLOS"));
        QVERIFY(!tela->irProximo());
        QVERIFY(tela->irAnterior());
        QCOMPARE(tela->nome->text(), QString("BEATRIZ"));
        QVERIFY(!tela->irAnterior());
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Navegacao);
    }

    void incluirNumeraCarimbaEAvisa()
    {
        cliente(7, "ANTIGO");
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        QCOMPARE(botao(0)->text(), QString("&Cancelar"));
        QCOMPARE(botao(0)->toolTip(), QString("Cancela a inclusão ou alteração do registro"));
        QCOMPARE(botao(1)->text(), QString("&Salvar"));
        QCOMPARE(botao(1)->toolTip(), QString("Salva o cadastro"));
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        QVERIFY(tela->nome->text().isEmpty());
        digita(tela->nome, "João");
        digita(tela->numero, "12a3,5");
        QCOMPARE(tela->numero->text(), QString("123,5"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("NomeCliente", 8).toString(), QString("João"));
        QCOMPARE(coluna("Alterado", 8).toString(), QString("MARIA"));
        QCOMPARE(coluna("Numero", 8).toString(), QString("123,5"));
        QCOMPARE(coluna("Excluidos", 8).toInt(), 0);
        QVERIFY(!coluna("DataCadastro", 8).toString().isEmpty());
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Navegacao);
        QCOMPARE(botao(0)->text(), QString("&Incluir"));
        QCOMPARE(botao(1)->toolTip(), QString("Exclui cadastro do banco de dados."));
        QVERIFY(RegistroTelas::aberta("Gravado"));
        QCOMPARE(tela->windowTitle(), QString("Cadastro de cliente    2   registros"));
    }

    void novoRegistroNaoApagaOQueSeDigita()
    {
        cliente(1, "ANA");
        abre();
        tela->novoRegistro();
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        digita(tela->nome, "ZE");
        tela->novoRegistro();
        QCOMPARE(tela->nome->text(), QString("ZE"));
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
    }

    void digitarPassaANavegacaoParaEdicao()
    {
        cliente(1, "ANA");
        abre();
        digita(tela->nome, "X");
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Edicao);
        QCOMPARE(botao(1)->text(), QString("&Salvar"));
        QTest::mouseClick(botao(0), Qt::LeftButton);  // cancel: nothing written
        QCOMPARE(tela->nome->text(), QString("ANA"));
        QCOMPARE(coluna("NomeCliente", 1).toString(), QString("ANA"));
        tela->bloq->click();
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Edicao);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("BloqCliente", 1).toInt(), -1);
    }

    void saveRecusado_data()
    {
        QTest::addColumn<bool>("comNome");
        QTest::addColumn<int>("direito");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<bool>("negado");
        QTest::newRow("empty name asks for it") << false << 1 << "Coloque o nome do cliente" << false;
        QTest::newRow("without the change right Negado opens") << true << 0 << "" << true;
    }
    void saveRecusado()
    {
        QFETCH(bool, comNome);
        QFETCH(int, direito);
        QFETCH(QString, mensagem);
        QFETCH(bool, negado);
        abre();
        sessao().DireitoClienteAl = direito;
        QTest::mouseClick(botao(0), Qt::LeftButton);
        if (comNome)
            digita(tela->nome, "ZE");
        else
            digita(tela->numero, "1");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        if (!mensagem.isEmpty())
            QVERIFY(Dialogos::Roteiro::contem(mensagem));
        QCOMPARE(RegistroTelas::aberta("Negado") != nullptr, negado);
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
    }

    void outraEstacaoMexeuNoRegistro_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("sqlOutra");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<int>("bloqueado");  // BloqCliente afterwards; -2: the row is gone
        const QString alterado = "Este registro foi alterado em outra estação. Feche e abra o registro novamente "
                                 "para ver a versão atual.";
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* nome = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::newRow(qPrintable(QString("%1: a flag changed elsewhere is kept").arg(nome)))
                << m << "UPDATE Cliente SET BloqCliente = -1 WHERE CodCliente = 1" << alterado << -1;
            QTest::newRow(qPrintable(QString("%1: a row deleted elsewhere is not written").arg(nome)))
                << m << "DELETE FROM Cliente WHERE CodCliente = 1" << "Este registro foi excluído em outra estação."
                << -2;
        }
    }
    void outraEstacaoMexeuNoRegistro()
    {
        QFETCH(int, motor);
        QFETCH(QString, sqlOutra);
        QFETCH(QString, mensagem);
        QFETCH(int, bloqueado);
        b.reset();
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoClienteAl = 1;
        cliente(1, "JOAO");
        abre();
        QCOMPARE(tela->nome->text(), QString("JOAO"));
        QCOMPARE(outraEstacao(*b, sqlOutra), QString());
        digita(tela->numero, "45");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QVERIFY(!RegistroTelas::aberta("Gravado"));
        QCOMPARE(tela->numero->text(), QString("45"));
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Edicao);
        if (bloqueado == -2) {
            QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        } else {
            QCOMPARE(coluna("BloqCliente", 1).toInt(), bloqueado);
            QCOMPARE(coluna("Numero", 1).toString(), QString());
        }
        // Reopened, the record shows the other station's version and saves over it.
        if (bloqueado != -2) {
            QVERIFY(tela->irChave(tela->chaveAtual()));
            QVERIFY(tela->bloq->isChecked());
            digita(tela->numero, "45");
            QTest::mouseClick(botao(1), Qt::LeftButton);
            QCOMPARE(coluna("Numero", 1).toString(), QString("45"));
            QCOMPARE(coluna("BloqCliente", 1).toInt(), -1);
        }
    }

    void caractereNuloRecusado_data() { linhasMotores(); }
    void caractereNuloRecusado()
    {
        QFETCH(int, motor);
        b.reset();
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoClienteAl = 1;
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        const QString comNulo = QString("ZE") + QChar(0) + QString("CA");
        tela->nome->setText(comNulo);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem("caractere nulo"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        QCOMPARE(tela->nome->text(), comNulo);
    }

    void senhaNoUsoPressionaDeNovo()
    {
        abre();
        sessao().SenhaObrigatoria = -1;
        sessao().SenhaLiberada = 0;
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(tela->nome, "ZE");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(sessao().SenhaOrigem, QString("Cliente"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        // What the password screen does when the password is right.
        sessao().SenhaLiberada = 1;
        QVERIFY(AcoesSenha::executar("Cliente"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 1);
        sessao().SenhaObrigatoria = 0;
    }

    void exclusao_data()
    {
        QTest::addColumn<int>("permanente");
        QTest::addColumn<int>("linhasDepois");
        QTest::newRow("soft without DireitoPermanente") << 0 << 2;
        QTest::newRow("for good with DireitoPermanente") << 1 << 1;
    }
    void exclusao()
    {
        QFETCH(int, permanente);
        QFETCH(int, linhasDepois);
        cliente(1, "ANA");
        cliente(2, "BIA");
        sessao().DireitoPermanente = permanente;
        abre();
        QVERIFY(tela->irProximo());
        Dialogos::Roteiro::responderNao();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("Excluidos", 2).toInt(), 0);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), linhasDepois);
        if (!permanente) {
            QCOMPARE(coluna("Excluidos", 2).toInt(), -1);
            QCOMPARE(coluna("Alterado", 2).toString(), QString("MARIA"));
            QVERIFY(!botao(1)->isEnabled());
        } else {
            QCOMPARE(tela->nome->text(), QString("ANA"));
        }
        QVERIFY(RegistroTelas::aberta("Excluido"));
    }

    void exclusaoDoQueOutraEstacaoMexeu_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("permanente");  // the session's DireitoPermanente
        QTest::addColumn<bool>("apagadaLa");  // the other station deleted the row, else blocked it
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            for (int permanente : {0, 1})
                for (bool apagada : {false, true})
                    QTest::newRow(qPrintable(QString("%1: %2 of a row %3 elsewhere")
                                                 .arg(m == int(Motor::SQLite) ? "sqlite" : "postgres",
                                                      permanente ? "deletion for good" : "deletion to the bin",
                                                      apagada ? "deleted" : "changed")))
                        << m << permanente << apagada;
    }
    void exclusaoDoQueOutraEstacaoMexeu()
    {
        QFETCH(int, motor);
        QFETCH(int, permanente);
        QFETCH(bool, apagadaLa);
        b.reset();
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoClienteAl = 1;
        sessao().DireitoPermanente = permanente;
        sessao().UsuarioNome = "MARIA";
        cliente(1, "JOAO");
        abre();
        QCOMPARE(tela->nome->text(), QString("JOAO"));
        QCOMPARE(outraEstacao(*b, apagadaLa ? "DELETE FROM Cliente WHERE CodCliente = 1"
                                            : "UPDATE Cliente SET BloqCliente = -1, Alterado = 'PEDRO' "
                                              "WHERE CodCliente = 1"),
                 QString());
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        const QString mensagem = apagadaLa ? "Este registro foi excluído em outra estação."
                                           : "Este registro foi alterado em outra estação. Feche e abra o registro "
                                             "novamente para ver a versão atual.";
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QVERIFY(!RegistroTelas::aberta("Excluido"));
        if (apagadaLa) {
            QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        } else {
            QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 1);
            QCOMPARE(coluna("Excluidos", 1).toInt(), 0);
            QCOMPARE(coluna("BloqCliente", 1).toInt(), -1);
            QCOMPARE(coluna("Alterado", 1).toString(), QString("PEDRO"));
        }
        QCOMPARE(tela->nome->text(), QString("JOAO"));
        // Reopened, the record shows the other station's version and goes as asked.
        if (!apagadaLa) {
            QVERIFY(tela->irChave(tela->chaveAtual()));
            QVERIFY(tela->bloq->isChecked());
            Dialogos::Roteiro::responderSim();
            QTest::mouseClick(botao(1), Qt::LeftButton);
            QVERIFY(RegistroTelas::aberta("Excluido"));
            QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente WHERE Excluidos = 0").toInt(), 0);
        }
    }

    void fecharComSimGrava_data()
    {
        QTest::addColumn<int>("direito");
        QTest::addColumn<bool>("fechou");
        QTest::newRow("Yes saves and closes") << 1 << true;
        QTest::newRow("Yes refused by the right keeps the typed data") << 0 << false;
    }
    void fecharComSimGrava()
    {
        QFETCH(int, direito);
        QFETCH(bool, fechou);
        cliente(1, "ANA");
        abre();
        sessao().DireitoClienteAl = direito;
        digita(tela->nome, "Z");
        Dialogos::Roteiro::responderSim();
        const bool fechada = tela->close();
        QVERIFY(Dialogos::Roteiro::contem("Você alterou o registro,deseja salvar ?"));
        QCOMPARE(fechada, fechou);
        QCOMPARE(coluna("NomeCliente", 1).toString(), fechou ? QString("ANAZ") : QString("ANA"));
        if (!fechou)
            QCOMPARE(tela->nome->text(), QString("ANAZ"));
    }

    void fecharComNaoDescarta()
    {
        cliente(1, "ANA");
        abre();
        digita(tela->nome, "Z");
        Dialogos::Roteiro::responderNao();
        QVERIFY(tela->close());
        QCOMPARE(coluna("NomeCliente", 1).toString(), QString("ANA"));
    }

    void fecharComSimEsperaASenha()
    {
        cliente(1, "ANA");
        abre();
        sessao().SenhaObrigatoria = -1;
        sessao().SenhaLiberada = 0;
        digita(tela->nome, "Z");
        Dialogos::Roteiro::responderSim();
        QVERIFY(!tela->close());
        sessao().SenhaLiberada = 1;
        QVERIFY(AcoesSenha::executar("Cliente"));
        QCOMPARE(coluna("NomeCliente", 1).toString(), QString("ANAZ"));
        QVERIFY(!tela->isVisible());
        sessao().SenhaObrigatoria = 0;
    }

    void senhaCanceladaNaoFechaDepois()
    {
        cliente(1, "ANA");
        abre();
        sessao().SenhaObrigatoria = -1;
        sessao().SenhaLiberada = 0;
        digita(tela->nome, "Z");
        Dialogos::Roteiro::responderSim();
        QVERIFY(!tela->close());
        QPointer<QWidget> senha = RegistroTelas::aberta("SenhaPde");
        QVERIFY(senha);
        senha->close();  // the user gives up on the password
        QTRY_VERIFY(!senha);
        sessao().SenhaObrigatoria = 0;
        QTest::mouseClick(botao(1), Qt::LeftButton);  // a later save of its own
        QCOMPARE(coluna("NomeCliente", 1).toString(), QString("ANAZ"));
        QVERIFY(tela->isVisible());
    }

    void letrasMaiusculasEEnterAvanca()
    {
        sessao().CfgTipoLetra = "True";
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(tela->nome, "ana@x.com");
        QCOMPARE(tela->nome->text(), QString("ANA@X.COM"));
        QTest::keyClick(tela->nome, Qt::Key_Return);
        QTRY_VERIFY(tela->numero->hasFocus());
        tela->obs->setFocus();
        QTest::keyClicks(tela->obs, "ab");
        QTest::keyClick(tela->obs, Qt::Key_Return);  // the last multi-line field keeps Enter
        QCOMPARE(tela->obs->toPlainText(), QString("AB\n"));
    }

    void colarEmCampoNumericoSoFicaDigito()
    {
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        tela->numero->setFocus();
        tela->numero->insert("R$ 1.234,56");
        emit tela->numero->textEdited(tela->numero->text());
        QCOMPARE(tela->numero->text(), QString("1234,56"));
    }

    void buscaVivaMostraExcluidosTambem()
    {
        cliente(1, "ANA");
        cliente(2, "MARIANA", -1);
        cliente(3, "PEDRO");
        abre();
        tela->busca->setText("iana");
        QCOMPARE(tela->nome->text(), QString("MARIANA"));
        QCOMPARE(tela->windowTitle(), QString("Cadastro de cliente    1   registros"));
        tela->busca->setText("");
        QCOMPARE(tela->nome->text(), QString("ANA"));
    }
};

QTEST_MAIN(TstTelaCadastro)
#include "tst_telacadastro.moc"
