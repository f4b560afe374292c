#include <QFile>
#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
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
