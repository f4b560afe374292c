#include <QSet>
#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Busca.h"
#include "data/Recordset.h"
#include "data/Texto.h"
#include "data/Transacao.h"

// The searches must give exactly the rows that the classic patterns of joined text give.
// Each case is checked against the pattern itself, evaluated row by row in C++.
class TesteBusca : public QObject {
    Q_OBJECT

    struct Linha { qint64 codigo; QString nome; QString telefone; int excluidos; };

    static QList<Linha> linhas()
    {
        return {
            {12, "JOSÉ DA SILVA", "1133334444", 0},
            {120, "josé souza", "11 99999-0000", 0},
            {1203, "Maria O'Hara", "2133330000", -1},     // deleted, a "0" behind "12"
            {1234, "MARIANA", "", -1},                    // deleted, no "0" behind "12"
            {312, "João 100%", "3100", 0},
            {45, "", "", 0},
            {7, "ANA_B", "555", 0},
            {70, "Zé", "1212", -1},
            {88, "C:\\DADOS\\ANA", "", 0},            // a path typed as a name
            {89, "C:DADOS ANA", "", 0},                  // the same without the backslash
            {90, "C:XDADOS", "", 0},
            {91, "ARQ \\\\SERVIDOR", "", -1},          // deleted, no "0" behind the text
        };
    }

    static void preenche(Banco& b)
    {
        Recordset rs(b);
        rs.abrir("Cliente");
        for (const Linha& l : linhas()) {
            rs.addNew();
            rs.definir("CodCliente", l.codigo);
            rs.definir("NomeCliente", l.nome);
            rs.definir("Telefone", l.telefone);
            rs.definir("Excluidos", l.excluidos);
            rs.update();
        }
    }

    static QSet<qint64> esperado(const QString& coluna, const QString& digitado, bool meio)
    {
        QSet<qint64> r;
        const QString padrao = (meio ? "%" : "") + digitado + "%" + "%0%";
        for (const Linha& l : linhas()) {
            const QString valor = coluna == "CodCliente" ? QString::number(l.codigo)
                                : coluna == "NomeCliente" ? l.nome : l.telefone;
            if (Texto::like(valor + QString::number(l.excluidos), padrao))
                r.insert(l.codigo);
        }
        return r;
    }

    static QSet<qint64> obtido(Banco& b, const Condicao& c)
    {
        Recordset rs(b);
        rs.abrir("Cliente", c.sql, c.valores, "CodCliente");
        QSet<qint64> r;
        for (rs.moveFirst(); !rs.eof(); rs.moveNext())
            r.insert(rs.inteiro("CodCliente"));
        return r;
    }

private slots:
    void porColuna_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("coluna");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<bool>("meio");
        const QList<std::tuple<const char*, const char*, const char*, bool>> casos = {
            {"code prefix finds the deleted 1203", "CodCliente", "12", false},
            {"code in the middle", "CodCliente", "12", true},
            {"empty text lists live rows and deleted rows with a 0", "CodCliente", "", false},
            {"name ignores case and accents", "NomeCliente", "jose", false},
            {"accented capitals fold too", "NomeCliente", "JOSÉ", false},
            {"a quote is searched like any character", "NomeCliente", "maria o'", false},
            {"name in the middle", "NomeCliente", "silva", true},
            {"short text in the middle", "NomeCliente", "an", true},
            {"percent typed is a wildcard", "NomeCliente", "J%100", false},
            {"underscore typed is a wildcard", "NomeCliente", "ANA_", false},
            {"telephone in the middle", "Telefone", "3333", true},
            {"telephone with digits of the flag", "Telefone", "0", true},
            {"nothing matches", "NomeCliente", "xyz", false},
            {"backslash in the middle is text", "NomeCliente", "C:\\DADOS", true},
            {"backslash at the beginning is text", "NomeCliente", "C:\\D", false},
            {"backslash before a letter in the middle", "NomeCliente", ":\\DA", true},
            {"backslash after the text sought", "NomeCliente", "DADOS\\", true},
            {"two backslashes", "NomeCliente", "\\\\SERV", true},
            {"backslash and a typed wildcard", "NomeCliente", "C:\\%ANA", false},
        };
        for (int motor : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            for (const auto& [nome, coluna, digitado, meio] : casos)
                QTest::addRow("%s: %s", motor == int(Motor::SQLite) ? "sqlite" : "postgres", nome)
                    << motor << QString(coluna) << QString::fromUtf8(digitado) << meio;
    }

    void porColuna()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, coluna);
        QFETCH(QString, digitado);
        QFETCH(bool, meio);
        preenche(b.banco());
        const Condicao c = Busca::porColuna(b.banco(), "Cliente", coluna, digitado, meio);
        QCOMPARE(obtido(b.banco(), c), esperado(coluna, digitado, meio));
        QCOMPARE(obtido(b.banco(), c.paraContar()), esperado(coluna, digitado, meio));
    }

    void textoNuncaMudaAConsulta_data() { linhasMotores(); }
    void textoNuncaMudaAConsulta()
    {
        BANCO_DO_MOTOR(b);
        preenche(b.banco());
        for (const QString& ataque : {QStringLiteral("' OR 1=1 --"), QStringLiteral("x'); DROP TABLE Cliente; --"),
                                      QString(10000, QLatin1Char('a')), QStringLiteral("\\"), QStringLiteral("%\\%"),
                                      QStringLiteral("\\DADOS"), QStringLiteral("S\\")}) {
            const Condicao c = Busca::porColuna(b.banco(), "Cliente", "NomeCliente", ataque, true);
            QCOMPARE(obtido(b.banco(), c), esperado("NomeCliente", ataque, true));
        }
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM Cliente").toInt(), linhas().size());
    }

    void textoFrequente_data() { linhasMotores(); }
    void textoFrequente()
    {
        // A common text is read in the list's order instead of through the index; the rows
        // must still be exactly the pattern's.
        BANCO_DO_MOTOR(b);
        QList<std::pair<QString, int>> linhas;
        {
            Transacao tr(b.banco());
            for (int i = 0; i < 3500; ++i) {
                const QString nome = QString("ANA %1").arg(i);
                const int excluido = i % 50 == 0 ? -1 : 0;
                linhas << std::pair{nome, excluido};
                b->executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) VALUES (?, ?, ?)",
                            {i + 1, nome, excluido});
            }
            tr.commit();
        }
        for (const auto& [digitado, meio] : {std::pair{QString("ana"), false}, std::pair{QString("NA 1"), true},
                                              std::pair{QString(""), false}, std::pair{QString("A 3"), true}}) {
            QSet<qint64> esperados;
            const QString padrao = (meio ? "%" : "") + digitado + "%%0%";
            for (int i = 0; i < linhas.size(); ++i)
                if (Texto::like(linhas[i].first + QString::number(linhas[i].second), padrao))
                    esperados.insert(i + 1);
            const Condicao c = Busca::porColuna(b.banco(), "Cliente", "NomeCliente", digitado, meio);
            QCOMPARE(obtido(b.banco(), c), esperados);
            // Counted through the index, a common text gives the same rows.
            QCOMPARE(obtido(b.banco(), c.paraContar()), esperados);
        }
    }

    void nuloContaComoVazio_data() { linhasMotores(); }
    void nuloContaComoVazio()
    {
        BANCO_DO_MOTOR(b);
        // A row whose code was never written still joins as empty text and is listed.
        b->executar("INSERT INTO Cliente (NomeCliente) VALUES ('SEM CODIGO')");
        const Condicao c = Busca::porColuna(b.banco(), "Cliente", "CodCliente", "", false);
        Recordset rs(b.banco());
        rs.abrir("Cliente", c.sql, c.valores);
        QCOMPARE(rs.recordCount(), 1);
    }

    void porEstado_data()
    {
        QTest::addColumn<QStringList>("colunas");
        QTest::addColumn<QList<int>>("valores");
        QTest::addColumn<bool>("envolver");
        QTest::newRow("refused, not out, live") << QStringList{"Recusado", "Saida", "Excluidos"} << QList<int>{-1, 0, 0} << true;
        QTest::newRow("authorised list") << QStringList{"Aprovado", "Consertado", "Devolver", "Saida", "Excluidos"}
                                         << QList<int>{-1, 0, 0, 0, 0} << true;
        QTest::newRow("queue") << QStringList{"Consertado", "AguardaPeca", "Orcamento", "Devolver", "Saida", "Excluidos"}
                               << QList<int>{0, 0, 0, 0, 0, 0} << true;
        QTest::newRow("pending, exact") << QStringList{"Consertado", "Aprovado", "Recusado", "Saida", "Excluidos"}
                                        << QList<int>{-1, 0, 0, 0, 0} << false;
        QTest::newRow("live rows") << QStringList{"Excluidos"} << QList<int>{0} << true;
        QTest::newRow("two -1 in a row") << QStringList{"Aprovado", "Consertado", "Saida", "Excluidos"}
                                         << QList<int>{-1, -1, 0, 0} << true;
    }

    void porEstado()
    {
        QFETCH(QStringList, colunas);
        QFETCH(QList<int>, valores);
        QFETCH(bool, envolver);
        BancoTeste b(Motor::SQLite);
        // Every combination of the flags as one order; the condition must pick exactly
        // the ones whose joined text matches the pattern.
        const int n = colunas.size();
        QString alvo;
        for (int v : valores)
            alvo += QString::number(v);
        const QString padrao = envolver ? "%" + alvo + "%" : alvo;
        QSet<qint64> esperados;
        for (int m = 0; m < (1 << n); ++m) {
            QStringList sets;
            QString texto;
            for (int i = 0; i < n; ++i) {
                const int v = (m >> i) & 1 ? -1 : 0;
                sets << colunas.at(i);
                texto += QString::number(v);
            }
            QStringList vals;
            for (int i = 0; i < n; ++i)
                vals << QString::number((m >> i) & 1 ? -1 : 0);
            b->executar(QStringLiteral("INSERT INTO OrdemServico (CodOs, %1) VALUES (%2, %3)")
                            .arg(sets.join(','), QString::number(m), vals.join(',')));
            if (Texto::like(texto, padrao))
                esperados.insert(m);
        }
        const Condicao c = Busca::porEstado(colunas, valores, envolver);
        Recordset rs(b.banco());
        rs.abrir("OrdemServico", c.sql, c.valores);
        QSet<qint64> obtidos;
        for (rs.moveFirst(); !rs.eof(); rs.moveNext())
            obtidos.insert(rs.inteiro("CodOs"));
        QCOMPARE(obtidos, esperados);
    }

    void estadoUsaIndiceDasAbertas()
    {
        BancoTeste b(Motor::SQLite);
        const Condicao c = Busca::porEstado({"Recusado", "Saida", "Excluidos"}, {-1, 0, 0});
        QSqlQuery q = b->executar("EXPLAIN QUERY PLAN SELECT COUNT(*) FROM OrdemServico WHERE " + c.sql);
        QString plano;
        while (q.next())
            plano += q.value(3).toString() + '\n';
        QVERIFY2(plano.contains("OrdemServico_abertas"), qPrintable(plano));
    }
};

QTEST_GUILESS_MAIN(TesteBusca)
#include "tst_busca.moc"
