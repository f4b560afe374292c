#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "ui/AmbienteTela.h"
#include "data/Sessao.h"
#include "shell/Programa.h"
#include "shell/Usuarios.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

class TstSenhaPde : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    int encerrou = 0;
    int pressionado = 0;
    QObject dono;
    QPointer<QWidget> tela;

    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QString nome() { return tela->findChild<QLabel*>("Label1(1)")->text(); }
    void enter(QWidget* w) { QTest::keyClick(w, Qt::Key_Return); }
    void usuarioESenha(const QString& codigo, const QString& senha)
    {
        texto(0)->setText(codigo);
        enter(texto(0));
        texto(1)->setText(senha);
        enter(texto(1));
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.UsuarioNome = "ANA";
        s.DireitoClienteAl = 0;
        s.DireitoBackup = 1;
        s.SenhaObrigatoria = -1;
        s.SenhaLiberada = 0;
        s.LiberaAltOs = 0;
        s.SenhaOrigem = "Cliente";
        encerrou = pressionado = 0;
        Programa::definirEncerramento([this] { ++encerrou; });
        AcoesSenha::registrar("Cliente", &dono, [this] { ++pressionado; });
        b->banco().executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, ClienteAl, Backup) "
                            "VALUES (1, 'ANA', ?, 0, -1), (7, 'GERENTE', ?, -1, 0)",
                            {Senhas::gerar("ana"), Senhas::gerar("Chefe")});
        tela = RegistroTelas::abrir("SenhaPde");
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void senhaCertaPressionaDeNovoComOsDireitosDeQuemDeu()
    {
        auto* combo = tela->findChild<QComboBox*>("CUsuario");
        QCOMPARE(combo->count(), 2);
        usuarioESenha("7", "chefe");
        QCOMPARE(pressionado, 1);
        QCOMPARE(sessao().SenhaLiberada, 1);
        QCOMPARE(sessao().UsuarioNome, QString("GERENTE"));
        QCOMPARE(sessao().DireitoClienteAl, 1);
        QCOMPARE(sessao().DireitoBackup, 1);  // not among the rights reread at use
        QTRY_VERIFY(!tela);
    }

    void escolhaNaListaPoeOCodigo()
    {
        auto* combo = tela->findChild<QComboBox*>("CUsuario");
        const int i = combo->findText("GERENTE");
        combo->setCurrentIndex(i);
        emit combo->activated(i);
        QCOMPARE(texto(0)->text(), QString("7"));
        QCOMPARE(nome(), QString("GERENTE"));
    }

    void mensagensDoNumero_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<QString>("legenda");
        QTest::newRow("empty number") << "" << "Digite seu numero de cadastro" << "";
        QTest::newRow("unknown number") << "99" << "" << "Usuário errado";
    }
    void mensagensDoNumero()
    {
        QFETCH(QString, codigo);
        QFETCH(QString, mensagem);
        QFETCH(QString, legenda);
        texto(0)->setText(codigo);
        enter(texto(0));
        if (!mensagem.isEmpty())
            QVERIFY(Dialogos::Roteiro::contem(mensagem));
        QCOMPARE(nome(), legenda);
    }

    void confirmarSemUsuario()
    {
        QTest::mouseClick(tela->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Escolha um usuário"));
        QCOMPARE(pressionado, 0);
    }

    void quartaSenhaErradaEncerra()
    {
        for (int i = 0; i < 4; ++i)
            usuarioESenha("7", "errada");
        QCOMPARE(sessao().Tentativas, 4);
        QCOMPARE(encerrou, 1);
        QCOMPARE(pressionado, 0);
        QCOMPARE(sessao().UsuarioNome, QString("ANA"));
    }

    void liberaAlteracaoDeOrdem()
    {
        sessao().SenhaOrigem = "LiberaAltOs";
        usuarioESenha("1", "ANA");
        QCOMPARE(sessao().LiberaAltOs, 1);
        QCOMPARE(pressionado, 0);
    }

    void palavraSemTelaSoConfere()
    {
        sessao().SenhaOrigem = "Cheque";
        usuarioESenha("1", "ana");
        QCOMPARE(sessao().SenhaLiberada, 1);
        QCOMPARE(pressionado, 0);
    }

    void cancelarFechaASenha()
    {
        sessao().SenhaLiberada = 1;
        QTest::mouseClick(tela->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QCOMPARE(sessao().SenhaLiberada, 0);
    }
};

QTEST_MAIN(TstSenhaPde)
#include "tst_senhapde.moc"
