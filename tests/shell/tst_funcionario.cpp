#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

#include "ui/AmbienteTela.h"
#include "apoio/CameraFalsa.h"
#include "apoio/OutraEstacao.h"
#include "data/Sessao.h"
#include "shell/Camera.h"
#include "shell/Funcionario.h"
#include "shell/Programa.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// A camera that always shows the same green frame.
class TstFuncionario : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QPointer<Funcionario> tela;
    QTemporaryDir pasta;

    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QCheckBox* check(int grupo, int i) { return tela->findChild<QCheckBox*>(QString("Check%1(%2)").arg(grupo).arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    void digita(QLineEdit* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    QVariant coluna(const QString& col, int codigo)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Usuario WHERE CodUsuario = ?").arg(col), {codigo});
    }
    void abre()
    {
        tela = qobject_cast<Funcionario*>(RegistroTelas::abrir("Funcionario"));
        QVERIFY(tela);
    }
    void novo(const QString& nome, const QString& senha)
    {
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(0), nome);
        digita(texto(5), senha);
        digita(texto(6), senha);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.UsuarioNome = "ANA";
        s.DireitoFuncionarioAl = 1;
        s.CfgPastaImagem = pasta.path();
        Camera::definirFabrica([] { return std::make_unique<CameraFalsa>(true); });
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        Camera::definirFabrica({});
        b.reset();
    }

    void incluirComCelularSobrenomeEDireitos()
    {
        abre();
        QCOMPARE(tela->windowTitle(), QString("Cadastro de funcionário    0   registros"));
        novo("Carlos", "Senha1");
        digita(texto(1), "Silva");
        digita(texto(2), "Rua A, 10");
        digita(texto(4), "(11)99999-0000");
        check(2, 0)->click();   // change customers without ticking read
        check(1, 6)->click();   // read products only
        check(2, 9)->click();   // password at each action
        check(2, 12)->click();  // change after delivery
        check(3, 1)->click();   // settings
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario").toInt(), 1);
        QCOMPARE(coluna("NomeUsuario", 1).toString(), QString("Carlos"));
        QCOMPARE(coluna("Sobrenome", 1).toString(), QString("Silva"));
        QCOMPARE(coluna("Endereco", 1).toString(), QString("Rua A, 10"));
        QCOMPARE(coluna("Celular", 1).toString(), QString("(11)99999-0000"));
        QVERIFY(Senhas::confere("senha1", coluna("Senha", 1)));
        QCOMPARE(coluna("ClienteLe", 1).toInt(), -1);
        QCOMPARE(coluna("ClienteAl", 1).toInt(), -1);
        QCOMPARE(coluna("ProdutoLe", 1).toInt(), -1);
        QCOMPARE(coluna("ProdutoAl", 1).toInt(), 0);
        QCOMPARE(coluna("UsuarioSe", 1).toInt(), -1);
        QCOMPARE(coluna("Permanente", 1).toInt(), 0);
        QCOMPARE(coluna("AltOs", 1).toInt(), -1);
        QCOMPARE(coluna("AltOrca", 1).toInt(), 0);
        QCOMPARE(coluna("Configuracao", 1).toInt(), -1);
        // Rights left blank are stored closed, never NULL.
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario WHERE FornecedorLe IS NULL OR Backup IS NULL").toInt(), 0);
        QCOMPARE(coluna("FornecedorLe", 1).toInt(), 0);
        QVERIFY(RegistroTelas::aberta("Gravado"));
    }

    void senhaNaoConfere()
    {
        abre();
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(0), "Carlos");
        digita(texto(5), "abc");
        digita(texto(6), "abd");
        texto(0)->setFocus();  // leaving the box compares them
        QVERIFY(Dialogos::Roteiro::contem("Senha não Confere"));
        QVERIFY(texto(5)->text().isEmpty());
        QVERIFY(texto(6)->text().isEmpty());
    }

    void senhaObrigatoriaNoNovoUsuario_data()
    {
        QTest::addColumn<QString>("senha");
        QTest::addColumn<QString>("repita");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("both boxes empty") << "" << "" << "Informe a senha do usuário.";
        QTest::newRow("typed only in the repeat box") << "" << "abc" << "Senha não Confere";
        QTest::newRow("typed only in the first box") << "abc" << "" << "Senha não Confere";
    }
    void senhaObrigatoriaNoNovoUsuario()
    {
        QFETCH(QString, senha);
        QFETCH(QString, repita);
        QFETCH(QString, mensagem);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(0), "Carlos");
        digita(texto(5), senha);
        digita(texto(6), repita);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario").toInt(), 0);
        QCOMPARE(texto(0)->text(), QString("Carlos"));
    }

    void direitoDeAlterarUsuarios_data()
    {
        QTest::addColumn<int>("direito");      // the session's DireitoFuncionarioAl
        QTest::addColumn<bool>("excluir");     // delete ANA, else take away her right
        QTest::addColumn<int>("outroAltera");  // BETO's FuncionarioAl
        QTest::addColumn<QString>("mensagem"); // empty: Negado opens
        QTest::addColumn<bool>("feito");
        const QString ultimo = "Deve existir ao menos um usuário com direito de alterar funcionários.";
        QTest::newRow("reading only: no save") << 0 << false << -1 << "" << false;
        QTest::newRow("reading only: no deletion") << 0 << true << -1 << "" << false;
        QTest::newRow("the last who may change users keeps the right") << 1 << false << 0 << ultimo << false;
        QTest::newRow("the last who may change users isn't deleted") << 1 << true << 0 << ultimo << false;
        QTest::newRow("with another who may, the right goes") << 1 << false << -1 << "" << true;
        QTest::newRow("with another who may, the user goes") << 1 << true << -1 << "" << true;
    }
    void direitoDeAlterarUsuarios()
    {
        QFETCH(int, direito);
        QFETCH(bool, excluir);
        QFETCH(int, outroAltera);
        QFETCH(QString, mensagem);
        QFETCH(bool, feito);
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, FuncionarioLe, FuncionarioAl) "
                            "VALUES (1, 'ANA', 'x', -1, -1), (2, 'BETO', 'x', -1, ?)", {outroAltera});
        sessao().DireitoFuncionarioAl = direito;
        abre();
        QCOMPARE(texto(0)->text(), QString("ANA"));
        if (excluir) {
            Dialogos::Roteiro::responderSim();
            QTest::mouseClick(botao(1), Qt::LeftButton);
        } else {
            check(2, 2)->click();
            QTest::mouseClick(botao(1), Qt::LeftButton);
        }
        if (mensagem.isEmpty())
            QCOMPARE(RegistroTelas::aberta("Negado") != nullptr, !feito);
        else
            QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        const QVariant ana = coluna("FuncionarioAl", 1);
        if (excluir)
            QCOMPARE(ana.isNull(), feito);
        else
            QCOMPARE(ana.toInt(), feito ? 0 : -1);
    }

    void outraEstacaoTiraUmDireito_data() { linhasMotores(); }
    void outraEstacaoTiraUmDireito()
    {
        QFETCH(int, motor);
        b.reset();
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoFuncionarioAl = 1;
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, ClienteLe, ClienteAl) "
                            "VALUES (1, 'JOAO', 'x', -1, -1)");
        abre();
        QVERIFY(check(2, 0)->isChecked());
        // Station B takes away JOAO's change right on customers.
        QCOMPARE(outraEstacao(*b, "UPDATE Usuario SET ClienteAl = 0 WHERE CodUsuario = 1"), QString());
        digita(texto(3), "3333-0000");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Este registro foi alterado em outra estação. Feche e abra o registro "
                                          "novamente para ver a versão atual."));
        QCOMPARE(coluna("ClienteAl", 1).toInt(), 0);
        QCOMPARE(coluna("Telefone", 1).toString(), QString());
        QCOMPARE(texto(3)->text(), QString("3333-0000"));
        QVERIFY(!RegistroTelas::aberta("Gravado"));
    }

    void duasEstacoesTiramODireitoAoMesmoTempo_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("excluir");  // this station deletes ANA, else takes away her right
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            for (bool excluir : {false, true})
                QTest::newRow(qPrintable(QString("%1: %2 while BETO loses it elsewhere")
                                             .arg(m == int(Motor::SQLite) ? "sqlite" : "postgres",
                                                  excluir ? "ANA deleted" : "ANA loses the right")))
                    << m << excluir;
    }
    void duasEstacoesTiramODireitoAoMesmoTempo()
    {
        QFETCH(int, motor);
        QFETCH(bool, excluir);
        b.reset();
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        sessao().DireitoFuncionarioAl = 1;
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, FuncionarioLe, FuncionarioAl) "
                            "VALUES (1, 'ANA', 'x', -1, -1), (2, 'BETO', 'x', -1, -1)");
        abre();
        QCOMPARE(texto(0)->text(), QString("ANA"));
        if (!excluir)
            check(2, 2)->click();
        {
            // Station B takes BETO's right and is still inside its save when this one saves.
            OutraEstacaoGravando beto(*b, "UPDATE Usuario SET FuncionarioAl = 0 WHERE CodUsuario = 2", 1500);
            if (excluir)
                Dialogos::Roteiro::responderSim();
            QTest::mouseClick(botao(1), Qt::LeftButton);
            QCOMPARE(beto.terminar(), QString());
        }
        QVERIFY2(Dialogos::Roteiro::contem("Deve existir ao menos um usuário com direito de alterar funcionários."),
                 qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QVERIFY(!RegistroTelas::aberta("Gravado"));
        QVERIFY(!RegistroTelas::aberta("Excluido"));
        QCOMPARE(coluna("FuncionarioAl", 1).toInt(), -1);
        QCOMPARE(coluna("FuncionarioAl", 2).toInt(), 0);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario WHERE FuncionarioAl <> 0").toInt(), 1);
    }

    void primeiroUsuarioExcluiParaALixeira()
    {
        Autenticacao::criarPrimeiro(b->banco(), "DONO", "dono");
        QCOMPARE(Autenticacao::entrar(b->banco(), "DONO", "dono", sessao()), Autenticacao::Resultado::Entrou);
        QCOMPARE(sessao().DireitoPermanente, 0);
        QCOMPARE(sessao().DireitoClienteAl, 1);
        QCOMPARE(sessao().DireitoFuncionarioAl, 1);
    }

    void senhaVaziaNaEdicaoMantemAAntiga()
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', ?)", {Senhas::gerar("x")});
        abre();
        QVERIFY(texto(5)->text().isEmpty());
        digita(texto(7), "Técnica");
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Edicao);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("Funcao", 1).toString(), QString("Técnica"));
        QVERIFY(Senhas::confere("X", coluna("Senha", 1)));
    }

    void anteriorEProximoParamNasPontas()
    {
        for (int i = 1; i <= 3; ++i)
            b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (?, ?, '')",
                                {i, QString("U%1").arg(i)});
        abre();
        QCOMPARE(texto(0)->text(), QString("U1"));
        QTest::mouseClick(botao(3), Qt::LeftButton);
        QCOMPARE(texto(0)->text(), QString("U1"));
        QTest::mouseClick(botao(4), Qt::LeftButton);
        QTest::mouseClick(botao(4), Qt::LeftButton);
        QTest::mouseClick(botao(4), Qt::LeftButton);
        QCOMPARE(texto(0)->text(), QString("U3"));
        QCOMPARE(tela->findChild<QLabel*>("Label2(0)")->text(), QString("3"));
        QTest::mouseClick(botao(3), Qt::LeftButton);
        QCOMPARE(texto(0)->text(), QString("U2"));
    }

    void exclusaoSempreFisicaSemPermanente()
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'A', ''), (2, 'B', '')");
        sessao().DireitoPermanente = 0;
        abre();
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario").toInt(), 1);
        QCOMPARE(texto(0)->text(), QString("B"));
    }

    void senhaNoUsoPressionaOSalvarDeNovo()
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', ?)", {Senhas::gerar("ana")});
        sessao().SenhaObrigatoria = -1;
        sessao().SenhaLiberada = 0;
        abre();
        digita(texto(7), "Gerente");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QWidget* senha = RegistroTelas::aberta("SenhaPde");
        QVERIFY(senha);
        QCOMPARE(sessao().SenhaOrigem, QString("Funcionario"));
        senha->findChild<QLineEdit*>("Text1(0)")->setText("1");
        QTest::keyClick(senha->findChild<QLineEdit*>("Text1(0)"), Qt::Key_Return);
        senha->findChild<QLineEdit*>("Text1(1)")->setText("ANA");
        QTest::keyClick(senha->findChild<QLineEdit*>("Text1(1)"), Qt::Key_Return);
        QCOMPARE(coluna("Funcao", 1).toString(), QString("Gerente"));
        sessao().SenhaObrigatoria = 0;
    }

    void fecharComSimGrava()
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', 'x')");
        abre();
        digita(texto(3), "3333-0000");
        Dialogos::Roteiro::responderSim();
        QPointer<Funcionario> t = tela;
        tela->fechar();
        QVERIFY(Dialogos::Roteiro::contem("Você alterou o registro,deseja salvar ?"));
        QCOMPARE(coluna("Telefone", 1).toString(), QString("3333-0000"));
        QTRY_VERIFY(!t);
    }

    void imagemDeArquivo_data()
    {
        QTest::addColumn<bool>("ehImagem");
        QTest::newRow("a picture is taken") << true;
        QTest::newRow("a text file is refused with a message") << false;
    }
    void imagemDeArquivo()
    {
        QFETCH(bool, ehImagem);
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', 'x')");
        const QString arquivo = pasta.filePath(ehImagem ? "foto.png" : "nao.png");
        if (ehImagem) {
            QImage i(10, 10, QImage::Format_RGB32);
            i.fill(Qt::red);
            QVERIFY(i.save(arquivo));
        } else {
            QFile f(arquivo);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("isto não é imagem");
        }
        abre();
        Dialogos::Roteiro::responder(arquivo);
        tela->escolheImagem();
        auto* caminho = tela->findChild<QLineEdit*>("TxtImagem");
        QCOMPARE(caminho->text(), ehImagem ? arquivo : QString());
        QCOMPARE(Dialogos::Roteiro::contem("não é uma imagem"), !ehImagem);
        QCOMPARE(tela->findChild<QLabel*>("ImgUsuario")->pixmap().isNull(), !ehImagem);
    }

    void fotoDaCamera()
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', 'x')");
        abre();
        QTest::mouseClick(botao(5), Qt::LeftButton);
        QCOMPARE(botao(5)->text(), QString("Encerra"));
        const QString destino = pasta.filePath("1ANA.Jpg");
        Dialogos::Roteiro::responder(destino);
        QTest::mouseClick(botao(7), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::registros().last().tipo, QString("salvar"));
        QVERIFY(QImage(destino).width() == 64);
        QCOMPARE(tela->findChild<QLineEdit*>("TxtImagem")->text(), destino);
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Edicao);
        QTest::mouseClick(botao(5), Qt::LeftButton);
        QCOMPARE(botao(5)->text(), QString("WebCam"));
    }

    void semCamera()
    {
        Camera::definirFabrica([] { return std::make_unique<CameraFalsa>(false); });
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', 'x')");
        abre();
        QTest::mouseClick(botao(5), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Nenhuma câmera foi encontrada neste computador."));
        QCOMPARE(botao(5)->text(), QString("WebCam"));
    }
};

QTEST_MAIN(TstFuncionario)
#include "tst_funcionario.moc"
