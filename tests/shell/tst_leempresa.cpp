#include <QDate>
#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Sessao.h"
#include "shell/LeEmpresa.h"

class TesteLeEmpresa : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        Sessao& s = sessao();
        s.MaquinaNome = QStringLiteral("BALCAO-01");
        s.CfgDadoNota = s.CfgOSAbrePesquisa = s.CfgAtivaOs = QStringLiteral("?");
        s.CfgDefineMenu = s.CfgNomeServidor = s.CfgPastaImagem = s.DataUltimoBackup = QStringLiteral("?");
        s.DiasAviso = -7;
    }

    void linhaPreenchida_data() { linhasMotores(); }
    void linhaPreenchida()
    {
        BANCO_DO_MOTOR(b);
        b->executar("UPDATE Empresa SET NomeEmpresa = ?, DadoNota = -1, OSAbrePesquisa = 0, AtivaOs = 0, "
                    "OsCaixa = -1, DefineMenu = ?, NomeServidor = ?, PastaImagem = ?, DataBackup = ?, "
                    "DiaAviso = 5, TesteOk = ?",
                    {QStringLiteral("Eletrônica Silva"), QStringLiteral("02-Cliente"), QStringLiteral("SERVIDOR"),
                     QStringLiteral("/srv/fotos"), QStringLiteral("2026/01/15"), QStringLiteral("Conexão OK")});
        const DadosEmpresa d = LeEmpresa(b.banco());
        const Sessao& s = sessao();
        QVERIFY(d.lida);
        QCOMPARE(d.nomeEmpresa, QStringLiteral("Eletrônica Silva"));
        QCOMPARE(d.testeOk, QStringLiteral("Conexão OK"));
        QVERIFY(!d.semBackup);
        QCOMPARE(s.CfgDadoNota, QStringLiteral("True"));
        QCOMPARE(s.CfgOSAbrePesquisa, QStringLiteral("False"));
        QCOMPARE(s.CfgAtivaOs, QStringLiteral("False"));
        QCOMPARE(s.CfgOsCaixa.toInt(), -1);   // kept as the column's own value
        QCOMPARE(s.CfgDefineMenu, QStringLiteral("02-Cliente"));
        QCOMPARE(s.CfgNomeServidor, QStringLiteral("SERVIDOR"));
        QCOMPARE(s.CfgPastaImagem, QStringLiteral("/srv/fotos"));
        QCOMPARE(s.DataUltimoBackup, QStringLiteral("2026/01/15"));
        QCOMPARE(s.DiasAviso, 5.0);
    }

    // Empty columns take the defaults that an older shop relied on; with no row at all
    // every flag reads as a NULL column does, "True".
    void padroes_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("semLinha");
        QTest::newRow("empty text columns, sqlite") << int(Motor::SQLite) << false;
        QTest::newRow("empty text columns, postgres") << int(Motor::PostgreSQL) << false;
        QTest::newRow("no Empresa row reads as NULLs, sqlite") << int(Motor::SQLite) << true;
        QTest::newRow("no Empresa row reads as NULLs, postgres") << int(Motor::PostgreSQL) << true;
    }
    void padroes()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, semLinha);
        if (semLinha)
            b->executar("DELETE FROM Empresa");
        else
            b->executar("UPDATE Empresa SET DefineMenu = '', NomeServidor = '', PastaImagem = '', DataBackup = '', "
                        "NomeEmpresa = '', DadoNota = 0");
        const DadosEmpresa d = LeEmpresa(b.banco());
        const Sessao& s = sessao();
        QVERIFY(d.lida);
        QVERIFY(d.semBackup);
        QCOMPARE(s.CfgDefineMenu, QStringLiteral("4"));
        QCOMPARE(s.CfgNomeServidor, QStringLiteral("BALCAO-01"));
        QCOMPARE(s.CfgPastaImagem, QStringLiteral("Toldex\\Imagem"));
        QCOMPARE(s.DataUltimoBackup, Datas::hoje());
        QCOMPARE(s.CfgDadoNota, semLinha ? QStringLiteral("True") : QStringLiteral("False"));
        if (semLinha) {
            QCOMPARE(s.CfgOSAbrePesquisa, QStringLiteral("True"));
            QCOMPARE(s.CfgAtivaOs, QStringLiteral("True"));
            QVERIFY(s.CfgOsCaixa.isNull());
            QCOMPARE(s.DiasAviso, 0.0);
        }
    }
};

QTEST_GUILESS_MAIN(TesteLeEmpresa)
#include "tst_leempresa.moc"
