#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>
#include <functional>

#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "data/Esquema.h"
#include "data/Recordset.h"
#include "data/Transacao.h"

class TesteBanco : public QObject {
    Q_OBJECT
private slots:
    void esquemaNovo_data() { linhasMotores(); }
    void esquemaNovo()
    {
        BANCO_DO_MOTOR(b);
        // The one Empresa row exists from creation, with the defaults of a new shop.
        Recordset empresa(b.banco());
        empresa.abrir("Empresa");
        QCOMPARE(empresa.recordCount(), 1);
        QCOMPARE(empresa.inteiro("NomeTamanho"), 12);
        QCOMPARE(empresa.inteiro("cpfcnpjtamanho"), 8);
        QCOMPARE(empresa.texto("DefineMenu"), QString("04-Ordem serviço"));
        // A second start changes nothing.
        QCOMPARE(b->garantirEsquema(), 0);
    }

    void gravacaoELeitura_data() { linhasMotores(); }
    void gravacaoELeitura()
    {
        BANCO_DO_MOTOR(b);
        Recordset rs(b.banco());
        rs.abrir("OrdemServico", "Excluidos = 0", {}, "CodOs");
        QCOMPARE(rs.recordCount(), 0);
        QVERIFY(rs.eof() && rs.bof());
        rs.addNew();
        rs.definir("codos", 15);
        rs.definir("NomeCliente", QString("JOSÉ D'ÁVILA"));
        rs.definirFlag("Aprovado", true);
        rs.definir("Consertado", 1);           // a flag written as 1 reads back as -1
        rs.definir("ValorPagar", Dinheiro::deCentavos(123456));
        rs.definir("Sintoma", QVariant());     // empty text is "", never NULL
        rs.update();
        const qint64 chave = rs.chaveAtual();
        QVERIFY(chave > 0);                    // the auto-number is known after Update

        Recordset lido(b.banco());
        lido.abrir("ordemservico", "CodOsAut = ?", {chave});
        QCOMPARE(lido.recordCount(), 1);
        QCOMPARE(lido.texto("NOMECLIENTE"), QString("JOSÉ D'ÁVILA"));
        QCOMPARE(lido.inteiro("Aprovado"), -1);
        QCOMPARE(lido.inteiro("Consertado"), -1);
        QCOMPARE(lido.dinheiro("ValorPagar").texto(), QString("1.234,56"));
        QVERIFY(!lido.nulo("Sintoma"));
        QCOMPARE(b->escalar("SELECT CodOs || CAST(Aprovado AS TEXT) || CAST(Excluidos AS TEXT) FROM OrdemServico").toString(),
                 QString("15-10"));
        QVERIFY_THROWS_EXCEPTION(CampoDesconhecido, lido.valor("Clelular"));

        lido.definir("Observacao", QString("linha 1\nlinha 2"));
        lido.update();
        lido.deleteAtual();
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM OrdemServico").toInt(), 0);

        // An auto-number is never handed out again after its row is deleted.
        rs.addNew();
        rs.definir("CodOs", 16);
        rs.update();
        QVERIFY(rs.chaveAtual() > chave);
    }

    void moverEProcurar_data() { linhasMotores(); }
    void moverEProcurar()
    {
        BANCO_DO_MOTOR(b);
        Recordset rs(b.banco());
        rs.abrir("Usuario");
        for (const char* nome : {"ANA", "Bruno", "Carla"}) {
            rs.addNew();
            rs.definir("NomeUsuario", QString(nome));
            rs.update();
        }
        rs.abrir("Usuario", {}, {}, "NomeUsuario");
        QCOMPARE(rs.recordCount(), 3);
        rs.moveLast();
        QCOMPARE(rs.texto("NomeUsuario"), QString("Carla"));
        rs.moveNext();
        QVERIFY(rs.eof());
        rs.moveFirst();
        QVERIFY(rs.find("NomeUsuario", "bruno"));
        QCOMPARE(rs.texto("NomeUsuario"), QString("Bruno"));
        QVERIFY(!rs.find("NomeUsuario", "Zeca"));
        QVERIFY(rs.eof());
        // A right never written reads NULL, which the login takes as allowed.
        rs.moveFirst();
        QVERIFY(rs.nulo("ClienteAl"));
    }

    void transacaoDesfeita_data() { linhasMotores(); }
    void transacaoDesfeita()
    {
        BANCO_DO_MOTOR(b);
        try {
            Transacao tr(b.banco());
            b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (1, 'A')");
            b->executar("INSERT INTO Cliente (CodCliente, Coluna_que_nao_existe) VALUES (2, 'B')");
            tr.commit();
            QFAIL("a gravação devia falhar");
        } catch (const ErroBanco& e) {
            QVERIFY(!e.detalhe().isEmpty());   // the engine's own text travels with it
        }
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM Cliente").toInt(), 0);
    }

    // Statements run again and again (a save's inserts, a loop's reads) give each run its
    // own values and rows, also when the same statement runs inside a loop over its own rows
    // or after a column was added.
    void mesmoComandoRepetido_data() { linhasMotores(); }
    void mesmoComandoRepetido()
    {
        BANCO_DO_MOTOR(b);
        const DefTabela& usuario = *Esquema::tabela("Usuario");
        QList<qint64> chaves;
        for (const char* nome : {"ANA", "BIA", "CAIO"})
            chaves << b->inserir(usuario, {"NomeUsuario"}, {QString(nome)});
        QVERIFY(chaves[0] < chaves[1] && chaves[1] < chaves[2]);

        const QString porChave = "SELECT NomeUsuario FROM Usuario WHERE Chave >= ? ORDER BY Chave";
        QStringList pares;
        QSqlQuery fora = b->executar(porChave, {chaves[1]});
        while (fora.next()) {
            const QString nome = fora.value(0).toString();
            QSqlQuery dentro = b->executar(porChave, {chaves[0]});
            int n = 0;
            while (dentro.next())
                ++n;
            pares << QStringLiteral("%1:%2").arg(nome).arg(n);
        }
        QCOMPARE(pares, (QStringList{"BIA:3", "CAIO:3"}));
        // A loop that writes as it reads goes through every row.
        QSqlQuery todos = b->executar("SELECT Chave, NomeUsuario FROM Usuario WHERE Chave >= ? ORDER BY Chave", {chaves[0]});
        int mudados = 0;
        while (todos.next())
            mudados += b->executar("UPDATE Usuario SET Senha = ? WHERE Chave = ?",
                                   {todos.value(1).toString().toLower(), todos.value(0)}).numRowsAffected();
        QCOMPARE(mudados, 3);
        QCOMPARE(b->escalar("SELECT Senha FROM Usuario WHERE Chave = ?", {chaves[2]}).toString(), QString("caio"));
        QCOMPARE(b->escalar("SELECT NomeUsuario FROM Usuario WHERE Chave = ?", {chaves[2]}).toString(), QString("CAIO"));
        QCOMPARE(b->escalar("SELECT NomeUsuario FROM Usuario WHERE Chave = ?", {chaves[0]}).toString(), QString("ANA"));
        QSqlQuery muda = b->executar("UPDATE Usuario SET NomeUsuario = ? WHERE Chave = ?", {QString("ANA2"), chaves[0]});
        QCOMPARE(muda.numRowsAffected(), 1);
        muda = b->executar("UPDATE Usuario SET NomeUsuario = ? WHERE Chave = ?", {QString("X"), qint64(-5)});
        QCOMPARE(muda.numRowsAffected(), 0);

        const QString tudo = "SELECT * FROM Usuario WHERE Chave = ?";
        QSqlQuery antes = b->executar(tudo, {chaves[0]});
        QVERIFY(antes.next());
        const int colunas = antes.record().count();
        antes = QSqlQuery();
        b->executar("ALTER TABLE Usuario ADD COLUMN ColunaNova INTEGER");
        QSqlQuery depois = b->executar(tudo, {chaves[0]});
        QVERIFY(depois.next());
        QCOMPARE(depois.record().count(), colunas + 1);
        QCOMPARE(depois.value("NomeUsuario").toString(), QString("ANA2"));
    }

    void servidorPlanejaCadaPadrao_data()
    {
        QTest::addColumn<int>("motor");
        QTest::newRow("PostgreSQL") << int(Motor::PostgreSQL);
    }
    void servidorPlanejaCadaPadrao()
    {
        BANCO_DO_MOTOR(b);
        const DefTabela& produto = *Esquema::tabela("Produto");
        for (const char* d : {"TV SUPORTE", "CABO", "TV CONTROLE"})
            b->inserir(produto, {"Descricao"}, {QString(d)});
        auto guardadas = [&](const QString& trecho) {
            return b->escalar("SELECT COUNT(*) FROM pg_prepared_statements WHERE statement LIKE ?",
                              {"%" + trecho + "%"}).toInt();
        };
        // A lookup by key stays prepared; a pattern is prepared for each text, so a text
        // found everywhere and one found nowhere each get a plan of their own.
        for (int i = 0; i < 8; ++i)
            QCOMPARE(b->escalar("SELECT Descricao FROM Produto WHERE CodPecAut = ?", {1}).toString(), QString("TV SUPORTE"));
        QCOMPARE(guardadas("WHERE CodPecAut = $1"), 1);
        const QString busca = "SELECT COUNT(*) FROM Produto WHERE Descricao_b LIKE ? ESCAPE '\\'";
        for (int i = 0; i < 8; ++i) {
            QCOMPARE(b->escalar(busca, {QString("%TV%")}).toInt(), 2);
            QCOMPARE(b->escalar(busca, {QString("%XYZ%")}).toInt(), 0);
        }
        QCOMPARE(guardadas("Descricao_b LIKE $1"), 0);

        // Products are rewritten by every stock move: their pages keep room for the new
        // version, and a store made before that gets it at its next start.
        auto opcoes = [&] {
            return b->escalar("SELECT array_to_string(reloptions, ',') FROM pg_class WHERE relname = 'produto'").toString();
        };
        QCOMPARE(opcoes(), QString("fillfactor=70"));
        b->executar("ALTER TABLE Produto RESET (fillfactor)");
        QCOMPARE(opcoes(), QString());
        b->garantirEsquema();
        QCOMPARE(opcoes(), QString("fillfactor=70"));
    }

    void bancoAntigoGanhaColunas_data() { linhasMotores(); }
    void bancoAntigoGanhaColunas()
    {
        BANCO_DO_MOTOR(b);
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (7, 'Maria')");
        b->executar("ALTER TABLE Cliente DROP COLUMN SiteBlog");
        b->executar("DROP TABLE Contato");
        QVERIFY(b->garantirEsquema() > 0);
        QCOMPARE(b->escalar("SELECT NomeCliente FROM Cliente WHERE SiteBlog = ''").toString(), QString("Maria"));
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM Contato").toInt(), 0);
    }

    void documentosComPontuacaoViramDigitos_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("guardado");
        QTest::addColumn<QString>("depois");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite: " : "postgres: ";
            QTest::newRow(qPrintable(e + "CPF with the register's mask")) << m << "529-982-247/25" << "52998224725";
            QTest::newRow(qPrintable(e + "CPF with dots")) << m << "529.982.247-25" << "52998224725";
            QTest::newRow(qPrintable(e + "CNPJ with the register's mask")) << m << "11-222-333-0001/81"
                                                                          << "11222333000181";
            QTest::newRow(qPrintable(e + "CNPJ with dots")) << m << "11.222.333/0001-81" << "11222333000181";
            QTest::newRow(qPrintable(e + "digits stay")) << m << "52998224725" << "52998224725";
            QTest::newRow(qPrintable(e + "a foreign number stays")) << m << "AR-20-1234" << "AR-20-1234";
            QTest::newRow(qPrintable(e + "twelve digits stay")) << m << "123.456.789-012" << "123.456.789-012";
        }
    }
    void documentosComPontuacaoViramDigitos()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, guardado);
        QFETCH(QString, depois);
        // A store of the first version, its documents typed with punctuation.
        b->executar("DELETE FROM VersaoEsquema");
        b->executar("INSERT INTO VersaoEsquema (Versao) VALUES (1)");
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente, CnpjCpf) VALUES (1, 'A', ?)", {guardado});
        b->executar("INSERT INTO OrdemServico (CodOs, CpfCnpj) VALUES (1, ?)", {guardado});
        b->executar("UPDATE Empresa SET CpfCnpj = ?", {guardado});
        b->executar("INSERT INTO Contato (Nome, CpfCnpj) VALUES ('B', ?)", {guardado});
        QVERIFY(b->garantirEsquema() > 0);
        QCOMPARE(b->escalar("SELECT CnpjCpf FROM Cliente").toString(), depois);
        QCOMPARE(b->escalar("SELECT CpfCnpj FROM OrdemServico").toString(), depois);
        QCOMPARE(b->escalar("SELECT CpfCnpj FROM Empresa").toString(), depois);
        QCOMPARE(b->escalar("SELECT CpfCnpj FROM Contato").toString(), depois);
        QCOMPARE(b->escalar("SELECT MAX(Versao) FROM VersaoEsquema").toInt(), Esquema::versaoAtual());
        QVERIFY(Esquema::versaoAtual() >= 2);
        // Once done it is never done again.
        b->executar("UPDATE Cliente SET CnpjCpf = '529-982-247/25'");
        QCOMPARE(b->garantirEsquema(), 0);
        QCOMPARE(b->escalar("SELECT CnpjCpf FROM Cliente").toString(), QString("529-982-247/25"));
    }

    void linhaQueOutraEstacaoMudouOuApagou_data() { linhasMotores(); }
    void linhaQueOutraEstacaoMudouOuApagou()
    {
        BANCO_DO_MOTOR(b);
        b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (1, 'A'), (2, 'B')");
        Recordset rs(b.banco());
        rs.abrir("Cliente", {}, {}, "CodCliente");
        auto outra = b.outraConexao();
        outra->executar("UPDATE Cliente SET Telefone = '1' WHERE CodCliente = 1");
        outra->executar("DELETE FROM Cliente WHERE CodCliente = 2");
        // 0 refused as changed, 1 refused as deleted, -1 not refused.
        const auto recusa = [](const std::function<void()>& grava) {
            try {
                grava();
            } catch (const RegistroAlterado& e) {
                return e.excluido() ? 1 : 0;
            }
            return -1;
        };
        for (bool apagada : {false, true}) {
            rs.moveTo(apagada ? 1 : 0);
            rs.definir("NomeCliente", "Z");
            QCOMPARE(recusa([&] { rs.update(); }), int(apagada));
            rs.cancelUpdate();
            // Nor is it deleted over the other station's version, or "again" in silence.
            QCOMPARE(recusa([&] { rs.deleteAtual(); }), int(apagada));
        }
        QCOMPARE(b->escalar("SELECT NomeCliente FROM Cliente").toString(), QString("A"));
        QCOMPARE(b->escalar("SELECT Telefone FROM Cliente").toString(), QString("1"));
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM Cliente").toInt(), 1);
    }

    void bancoAusenteNaoESubstituido()
    {
        QTemporaryDir dir;
        ConfigBanco c;
        c.pasta = dir.path();
        QVERIFY_THROWS_EXCEPTION(ErroConexao, Banco::abrir(c));
        QVERIFY(!QFile::exists(c.arquivoSqlite()));
        c.pasta = dir.filePath("pasta-que-nao-existe");
        c.criarSeNaoExistir = true;
        QVERIFY_THROWS_EXCEPTION(ErroConexao, Banco::abrir(c));
    }

    void bancoOcupadoESomenteLeitura()
    {
        QTemporaryDir dir;
        ConfigBanco c;
        c.pasta = dir.path();
        c.criarSeNaoExistir = true;
        c.tempoEsperaMs = 200;
        auto a = Banco::abrir(c);
        a->garantirEsquema();
        auto b = Banco::abrir(c);
        a->executar("INSERT INTO Contato (Nome) VALUES ('antes')");
        {
            Transacao ocupada(*a);
            a->executar("INSERT INTO Contato (Nome) VALUES ('da outra estação')");
            try {
                Transacao tr(*b);
                QFAIL("a segunda estação devia esperar e desistir");
            } catch (const ErroBanco& e) {
                QVERIFY2(e.mensagem().contains("em uso por outra estação"), qPrintable(e.textoCompleto()));
            }
            ocupada.commit();
        }
        b->executar("PRAGMA query_only = 1");
        try {
            b->executar("DELETE FROM Contato");
            QFAIL("devia recusar a gravação");
        } catch (const ErroBanco& e) {
            QVERIFY2(e.mensagem().contains("somente para leitura"), qPrintable(e.textoCompleto()));
        }
        QCOMPARE(a->escalar("SELECT COUNT(*) FROM Contato").toInt(), 2);   // nothing written was lost
    }

    void textoEnorme_data() { linhasMotores(); }
    void textoEnorme()
    {
        BANCO_DO_MOTOR(b);
        Recordset rs(b.banco());
        rs.abrir("OrdemServico");
        rs.addNew();
        rs.definir("Sintoma", QString(10000, QChar(0x00E7)));
        rs.update();
        QCOMPARE(b->escalar("SELECT Sintoma FROM OrdemServico").toString().size(), 10000);
    }

    void todaConexaoGravaNoDisco()
    {
        // Every way the program opens the embedded store must flush each commit (FULL is
        // 2): the shared slots, a screen's own connection, and a connection reopened after
        // a restore.
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        auto sincrono = [](Banco& banco) { return banco.escalar("PRAGMA synchronous").toInt(); };
        QCOMPARE(sincrono(b.banco()), 2);
        Conexoes::configurar(b.config());
        auto propria = Conexoes::nova();
        QVERIFY(propria);
        QCOMPARE(sincrono(*propria), 2);
        for (int slot = 1; slot <= 5; ++slot) {
            QVERIFY(Conexoes::abreConexao(slot));
            QCOMPARE(sincrono(*Conexoes::slot(slot)), 2);
        }
        QVERIFY(Conexoes::reabrirTodas());
        QCOMPARE(sincrono(*propria), 2);
        QCOMPARE(sincrono(*Conexoes::slot(3)), 2);
        QCOMPARE(b->escalar("PRAGMA journal_mode").toString(), QString("wal"));
        Conexoes::fecharSlots();
    }

    void estatisticasDoPlanejador()
    {
        // A store whose statistics were never gathered (or were lost) gets them at the
        // next start, so the planner picks the search indexes on a big file.
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        {
            Transacao tr(b.banco());
            for (int i = 1; i <= 300; ++i)
                b->executar("INSERT INTO Cliente (CodCliente, NomeCliente) VALUES (?, ?)", {i, QString("NOME %1").arg(i)});
            tr.commit();
        }
        b->executar("DROP TABLE IF EXISTS sqlite_stat1");
        b->garantirEsquema();
        QVERIFY(b->escalar("SELECT COUNT(*) FROM sqlite_stat1 WHERE tbl = 'Cliente'").toInt() > 0);
    }

    void arquivoQueNaoEBanco()
    {
        QTemporaryDir dir;
        QFile f(dir.filePath("TOLDEX.db"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(4096, 'x'));
        f.close();
        ConfigBanco c;
        c.pasta = dir.path();
        try {
            Banco::abrir(c);
            QFAIL("devia falhar");
        } catch (const ErroConexao& e) {
            QVERIFY(e.mensagem().contains("banco de dados", Qt::CaseInsensitive));
        }
    }

};

QTEST_GUILESS_MAIN(TesteBanco)
#include "tst_banco.moc"
