#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include "ui/AmbienteTela.h"
#include "data/Sessao.h"
#include "shell/Avisos.h"
#include "shell/Programa.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"
#include "ui/TelaCadastro.h"

// A register guarded by the customer change right, as the customer screen is.
class CadastroGuardado : public TelaCadastro {
public:
    CadastroGuardado()
    {
        nome = new QLineEdit(corpo());
        nome->setObjectName("Text1(0)");
        (new QVBoxLayout(corpo()))->addWidget(nome);
        def().tabela = "Cliente";
        def().titulo = "Cadastro de cliente";
        def().colunaCodigo = "CodCliente";
        def().direito = "DireitoClienteAl";
        def().senhaOrigem = "Cliente";
        campos() = {{nome, "NomeCliente", CampoCadastro::Tipo::Texto}};
        iniciar();
    }
    QLineEdit* nome;
};

namespace AmbienteLogin {
// The login that a refused click opens is a new one, with no name chosen yet.
inline void fechaLogin()
{
    RegistroTelas::fechar("Login");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
}

class TstLogin : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    int encerrou = 0;

    QWidget* login() { return RegistroTelas::abrir("Login"); }
    void entra(QWidget* l, const QString& nome, const QString& senha)
    {
        auto* lista = l->findChild<QListWidget*>("ListaUs");
        const auto itens = lista->findItems(nome, Qt::MatchExactly);
        lista->setCurrentItem(itens.value(0));
        l->findChild<QLineEdit*>("TSenha")->setText(senha);
        QTest::mouseClick(l->findChild<QPushButton*>("Log(0)"), Qt::LeftButton);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        encerrou = 0;
        Programa::definirEncerramento([this] { ++encerrou; });
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, ClienteAl, AltOs, AltOrca) "
                            "VALUES (1, 'ANA', ?, -1, -1, -1), (2, 'BIA', ?, 0, 0, 0)",
                            {Senhas::gerar("ana"), Senhas::gerar("bia")});
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void trocaDeUsuario()
    {
        QPointer<QWidget> l = login();
        QCOMPARE(l->findChild<QListWidget*>("ListaUs")->count(), 2);
        entra(l, "BIA", "BIA");
        QTRY_VERIFY(!l);
        QCOMPARE(sessao().UsuarioNome, QString("BIA"));
        QCOMPARE(sessao().DireitoClienteAl, 0);
        QCOMPARE(sessao().DireitoOsEntAl, 1);  // NULL opens
    }

    void sairEsvaziaASessao()
    {
        QPointer<QWidget> l = login();
        entra(l, "ANA", "ana");
        QTRY_VERIFY(!l);
        QCOMPARE(sessao().DireitoAltOs, 1);
        l = login();
        l->findChild<QLineEdit*>("TSenha")->setText("algo");
        QTest::mouseClick(l->findChild<QPushButton*>("Log(1)"), Qt::LeftButton);
        QVERIFY(sessao().UsuarioNome.isEmpty());
        QCOMPARE(sessao().DireitoAltOs, 0);
        QCOMPARE(sessao().DireitoAltOrca, 0);
        QCOMPARE(sessao().DireitoClienteAl, 0);
        QVERIFY(l->findChild<QLineEdit*>("TSenha")->text().isEmpty());
        QVERIFY(sessao().UsuarioImagem.endsWith("Toldex.ico"));
    }

    void quatroTentativasNoLogin()
    {
        QPointer<QWidget> l = login();
        for (int i = 0; i < 4; ++i)
            entra(l, "ANA", "x");
        QCOMPARE(encerrou, 1);
    }

    void direitoQueFaltaLevaAoNegadoEDepoisAoLogin()
    {
        sessao().DireitoClienteAl = 0;
        CadastroGuardado tela;
        tela.show();
        QTest::mouseClick(tela.findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        tela.nome->setText("ZE");
        QTest::mouseClick(tela.findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        auto* negado = qobject_cast<AvisoTransitorio*>(RegistroTelas::aberta("Negado"));
        QVERIFY(negado);
        QCOMPARE(negado->texto(), QString("Acesso Negado"));
        QCOMPARE(negado->timer()->interval(), 1500);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
        // Its time is up: the login comes, and its enter button is pressed with no name.
        Dialogos::Roteiro::responder(QVariant::fromValue(Dialogos::Resposta::Ok));
        negado->expira();
        QVERIFY(RegistroTelas::aberta("Login"));
        QTRY_VERIFY(Dialogos::Roteiro::contem("Selecione um usuário"));
        QCOMPARE(encerrou, 0);
        // Another user logs in and the save goes through.
        entra(RegistroTelas::aberta("Login"), "ANA", "ana");
        QTRY_VERIFY(!RegistroTelas::aberta("Login"));
        QTest::mouseClick(tela.findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QCOMPARE(b->banco().escalar("SELECT NomeCliente FROM Cliente").toString(), QString("ZE"));
    }

    void cliquesNegadosNaoSaoTentativas_data()
    {
        QTest::addColumn<QString>("escolhido");  // the name standing on the login, if any
        QTest::addColumn<QString>("senha");
        QTest::newRow("no name chosen") << "" << "";
        QTest::newRow("a name with no password") << "BIA" << "";
        QTest::newRow("a name with a wrong password") << "BIA" << "x";
    }
    void cliquesNegadosNaoSaoTentativas()
    {
        QFETCH(QString, escolhido);
        QFETCH(QString, senha);
        sessao().UsuarioNome = "CAIO";
        sessao().DireitoClienteAl = 0;
        CadastroGuardado tela;
        tela.show();
        QTest::mouseClick(tela.findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        tela.nome->setText("NOTA PELA METADE");
        for (int i = 0; i < 4; ++i) {
            QTest::mouseClick(tela.findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
            auto* negado = qobject_cast<AvisoTransitorio*>(RegistroTelas::aberta("Negado"));
            QVERIFY(negado);
            if (!escolhido.isEmpty()) {
                QWidget* l = RegistroTelas::abrir("Login");
                auto* lista = l->findChild<QListWidget*>("ListaUs");
                lista->setCurrentItem(lista->findItems(escolhido, Qt::MatchExactly).value(0));
                l->findChild<QLineEdit*>("TSenha")->setText(senha);
            } else {
                AmbienteLogin::fechaLogin();
            }
            Dialogos::Roteiro::responder(QVariant::fromValue(Dialogos::Resposta::Cancelar));  // never an ending
            negado->expira();
            // The press waits for the notice to go; with no name it asks for one.
            if (escolhido.isEmpty())
                QTRY_VERIFY(Dialogos::Roteiro::contem("Selecione um usuário"));
            else
                QCoreApplication::sendPostedEvents();
            Dialogos::Roteiro::limpar();
        }
        QCOMPARE(encerrou, 0);
        QCOMPARE(sessao().Tentativas, 0);
        QCOMPARE(sessao().UsuarioNome, QString("CAIO"));
        QCOMPARE(tela.nome->text(), QString("NOTA PELA METADE"));
    }
};

QTEST_MAIN(TstLogin)
#include "tst_login.moc"
