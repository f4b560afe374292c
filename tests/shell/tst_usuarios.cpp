#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "shell/Usuarios.h"

class TstUsuarios : public QObject {
    Q_OBJECT
private slots:
    void senhaConfere_data()
    {
        QTest::addColumn<QString>("gravada");
        QTest::addColumn<QString>("digitada");
        QTest::addColumn<bool>("confere");
        QTest::newRow("case is ignored") << "ABC" << "abc" << true;
        QTest::newRow("accented letters are ignored in case too") << "ção" << "ÇÃO" << true;
        QTest::newRow("another password fails") << "abc" << "abd" << false;
        QTest::newRow("a 300-character password") << QString(300, 'x') << QString(300, 'X') << true;
        QTest::newRow("a quote in the password") << "a'b\"c" << "A'B\"C" << true;
    }
    void senhaConfere()
    {
        QFETCH(QString, gravada);
        QFETCH(QString, digitada);
        QFETCH(bool, confere);
        const QString hash = Senhas::gerar(gravada);
        QVERIFY(hash.startsWith("$argon2id$"));
        QVERIFY(!hash.contains(gravada, Qt::CaseInsensitive));
        QCOMPARE(Senhas::confere(digitada, hash), confere);
    }

    void semSenhaNinguemEntra_data()
    {
        QTest::addColumn<QVariant>("gravada");
        QTest::newRow("NULL") << QVariant();
        QTest::newRow("empty") << QVariant(QString(""));
    }
    void semSenhaNinguemEntra()
    {
        QFETCH(QVariant, gravada);
        QVERIFY(!Senhas::confere("", gravada));
        QVERIFY(!Senhas::confere("x", gravada));
    }

    void parDeDireitos_data()
    {
        QTest::addColumn<bool>("ler");
        QTest::addColumn<bool>("alterar");
        QTest::addColumn<int>("le");
        QTest::addColumn<int>("al");
        QTest::newRow("change without read stores both") << false << true << -1 << -1;
        QTest::newRow("read only") << true << false << -1 << 0;
        QTest::newRow("neither") << false << false << 0 << 0;
    }
    void parDeDireitos()
    {
        QFETCH(bool, ler);
        QFETCH(bool, alterar);
        QFETCH(int, le);
        QFETCH(int, al);
        const auto v = DireitosUsuario::valoresDoPar(ler, alterar);
        QCOMPARE(v.first, le);
        QCOMPARE(v.second, al);
    }

    void direitosComoNoLogin()
    {
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        // ClienteLe NULL (an older row) opens; ClienteAl 0 stays closed; UsuarioSe -1.
        b->executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha, ClienteLe, ClienteAl, UsuarioSe, Backup) "
                    "VALUES (1, 'ANA', ?, NULL, 0, -1, -1)",
                    {Senhas::gerar("x")});
        Recordset rs(b.banco());
        rs.abrir("Usuario");
        Sessao& s = sessao();
        s.zerarDireitos();
        DireitosUsuario::carregarTodos(rs, s);
        QCOMPARE(s.DireitoClienteLe, 1);
        QCOMPARE(s.DireitoClienteAl, 0);
        QCOMPARE(s.DireitoBackup, 1);
        QCOMPARE(s.SenhaObrigatoria, -1);
        s.zerarDireitos();
        DireitosUsuario::carregarNoUso(rs, s);
        QCOMPARE(s.DireitoClienteLe, 1);
        QCOMPARE(s.DireitoBackup, 0);  // the password at use rereads only its own list
        QCOMPARE(s.SenhaObrigatoria, 0);
    }

    void entrar_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("senha");
        QTest::addColumn<int>("resultado");
        QTest::newRow("name and password in another case") << "joão d'avila" << "segredo" << int(Autenticacao::Resultado::Entrou);
        QTest::newRow("wrong password") << "JOÃO D'AVILA" << "outra" << int(Autenticacao::Resultado::SenhaErrada);
        QTest::newRow("unknown user") << "PEDRO" << "segredo" << int(Autenticacao::Resultado::NaoEncontrado);
        QTest::newRow("no name chosen") << "" << "" << int(Autenticacao::Resultado::NaoEncontrado);
    }
    void entrar()
    {
        QFETCH(QString, nome);
        QFETCH(QString, senha);
        QFETCH(int, resultado);
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        const qint64 cod = Autenticacao::criarPrimeiro(b.banco(), "JOÃO D'AVILA", "Segredo");
        QCOMPARE(cod, 1);
        sessao().zerarDireitos();
        QCOMPARE(int(Autenticacao::entrar(b.banco(), nome, senha, sessao())), resultado);
        if (resultado == int(Autenticacao::Resultado::Entrou)) {
            QCOMPARE(sessao().UsuarioCodigo, QString("1"));
            QCOMPARE(sessao().DireitoConfiguracao, 1);
            QCOMPARE(sessao().DireitoPermanente, 0);
            QCOMPARE(sessao().SenhaObrigatoria, 0);
            QVERIFY(sessao().UsuarioImagem.endsWith("Toldex.ico"));
        }
    }

    void senhaAntigaEmClaroViraHash()
    {
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        b->executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (1, 'ANA', 'abc')");
        QCOMPARE(Autenticacao::entrar(b.banco(), "ANA", "ABC", sessao()), Autenticacao::Resultado::Entrou);
        const QString gravada = b->escalar("SELECT Senha FROM Usuario").toString();
        QVERIFY(Senhas::ehHash(gravada));
        QVERIFY(Senhas::confere("abc", gravada));
    }
};

QTEST_MAIN(TstUsuarios)
#include "tst_usuarios.moc"
