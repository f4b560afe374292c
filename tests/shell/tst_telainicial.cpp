#include <QComboBox>
#include <QLineEdit>
#include <QLockFile>
#include <QPushButton>
#include <QSysInfo>
#include <QtTest>

#include "ui/AmbienteTela.h"
#include "data/Sessao.h"
#include "shell/Avisos.h"
#include "shell/InstanciaUnica.h"
#include "shell/Programa.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

class TstTelaInicial : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QTemporaryDir pasta;
    int encerrou = 0;
    QPointer<QWidget> tela;

    void usuario(int cod, const QString& nome, const QVariant& senha)
    {
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (?, ?, ?)",
                            {cod, nome, senha.isNull() ? QVariant(QString("")) : QVariant(Senhas::gerar(senha.toString()))});
    }
    void abre() { tela = RegistroTelas::abrir("TelaInicial"); }
    QComboBox* combo() { return tela->findChild<QComboBox*>("CUsuario"); }
    QLineEdit* senha() { return tela->findChild<QLineEdit*>("TxtSenha"); }
    void tenta(const QString& nome, const QString& s)
    {
        combo()->setCurrentIndex(combo()->findText(nome));
        senha()->setText(s);
        QTest::mouseClick(tela->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        sessao().PastaPrograma = pasta.path();
        encerrou = 0;
        Programa::definirEncerramento([this] { ++encerrou; });
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        InstanciaUnica::liberar();
        b.reset();
    }

    void entraSemDiferencaDeCaixa()
    {
        usuario(1, "ANA", "Abc");
        usuario(2, "BIA", "x");
        abre();
        QCOMPARE(combo()->count(), 2);
        tenta("ANA", "aBC");
        QTRY_VERIFY(!tela);
        QCOMPARE(sessao().UsuarioNome, QString("ANA"));
        QCOMPARE(sessao().UsuarioCodigo, QString("1"));
        QCOMPARE(sessao().DireitoClienteAl, 1);  // NULL rights open
        QCOMPARE(encerrou, 0);
    }

    void quatroTentativas()
    {
        usuario(1, "ANA", "certa");
        abre();
        const QStringList linhas = {"Você tem mais 3 tentativas", "Esta é sua segunda tentativa",
                                    "Esta é sua última tentativa", ""};
        for (int i = 0; i < 4; ++i) {
            tenta("ANA", "errada");
            QCOMPARE(sessao().Tentativas, i + 1);
            auto* aviso = qobject_cast<Invalida*>(RegistroTelas::aberta("Invalida"));
            QVERIFY(aviso);
            QCOMPARE(aviso->texto(), QString("Senha Inválida"));
            QCOMPARE(aviso->segundaLinha(), linhas[i]);
            aviso->expira();
            QCOMPARE(encerrou, i == 3 ? 1 : 0);
        }
    }

    void senhaVaziaEhSenhaErrada()
    {
        usuario(1, "ANA", QVariant());
        abre();
        tenta("ANA", "");
        QCOMPARE(sessao().Tentativas, 1);
        QVERIFY(tela);
    }

    void semUsuarioEscolhido_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::addColumn<int>("encerra");
        QTest::newRow("OK goes back to the choice") << int(Dialogos::Resposta::Ok) << 0;
        QTest::newRow("Cancel ends the program") << int(Dialogos::Resposta::Cancelar) << 1;
    }
    void semUsuarioEscolhido()
    {
        QFETCH(int, resposta);
        QFETCH(int, encerra);
        usuario(1, "ANA", "x");
        usuario(2, "BIA", "x");
        abre();
        Dialogos::Roteiro::responder(QVariant::fromValue(Dialogos::Resposta(resposta)));
        senha()->setText("x");
        QTest::mouseClick(tela->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Selecione um usuário"));
        QCOMPARE(Dialogos::Roteiro::registros().last().titulo, QString("Usuário"));
        QCOMPARE(encerrou, encerra);
    }

    void nomeComAspas()
    {
        usuario(1, "D'ÁVILA", "x'y");
        abre();
        tenta("D'ÁVILA", "X'Y");
        QTRY_VERIFY(!tela);
        QCOMPARE(sessao().UsuarioNome, QString("D'ÁVILA"));
    }

    void primeiroUso()
    {
        // Name, then a password typed twice differently, then a too long one, then right.
        for (const QString& r : {QString("Dono da Loja"), QString("abc"), QString("abd"),
                                 QString("Dono da Loja"), QString(300, 'x'),
                                 QString("Dono da Loja"), QString("abc"), QString("abc")})
            Dialogos::Roteiro::responder(r);
        abre();
        QVERIFY(Dialogos::Roteiro::contem("Senha não Confere"));
        QVERIFY(Dialogos::Roteiro::contem("de 1 a 128 caracteres"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Usuario").toInt(), 1);
        QVERIFY(Senhas::ehHash(b->banco().escalar("SELECT Senha FROM Usuario").toString()));
        QCOMPARE(combo()->currentText(), QString("Dono da Loja"));
        tenta("Dono da Loja", "ABC");
        QTRY_VERIFY(!tela);
        for (const char* d : {"DireitoClienteAl", "DireitoConfiguracao", "DireitoBackup",
                              "DireitoAltOs", "DireitoRegistro", "DireitoFuncionarioAl"})
            QCOMPARE(*sessao().direito(d), 1);
        QCOMPARE(sessao().DireitoPermanente, 0);  // deletions go to the bin until the owner says so
        QCOMPARE(sessao().SenhaObrigatoria, 0);
    }

    void segundaCopiaDoPrograma()
    {
        usuario(1, "ANA", "x");
        QLockFile outro(pasta.filePath("Toldex.lock"));
        QVERIFY(outro.tryLock(0));
        abre();
        QVERIFY(Dialogos::Roteiro::contem("Programa já está aberto"));
        QCOMPARE(Dialogos::Roteiro::registros().last().titulo, QString("Sistema TOLDEX"));
        QCOMPARE(encerrou, 1);
    }

    void travaDeUmaCopiaQueCaiuNaoPrende()
    {
        usuario(1, "ANA", "x");
        QFile trava(pasta.filePath("Toldex.lock"));
        QVERIFY(trava.open(QIODevice::WriteOnly));
        // A process id that no running program has.
        trava.write(QByteArray("2147483000\n") + QCoreApplication::applicationName().toUtf8() + "\n"
                    + QSysInfo::machineHostName().toUtf8() + "\n");
        trava.close();
        abre();
        QVERIFY(!Dialogos::Roteiro::contem("Programa já está aberto"));
        QCOMPARE(encerrou, 0);
    }
};

QTEST_MAIN(TstTelaInicial)
#include "tst_telainicial.moc"
