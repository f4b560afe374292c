#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/PaginasBusca.h"
#include "data/Texto.h"

// Reading a search page by page must give every row once, in the list's order, however
// the pages fall on rows that tie in the order column.
class TstPaginasBusca : public QObject {
    Q_OBJECT

    struct Linha { QVariant codigo; QVariant nome; int excluido; };
    static QList<Linha> linhas()
    {
        return {{5, "BETO", 0},  {3, "ANA", 0},     {9, "ANA", 0},  {QVariant(), "ANA", 0}, {7, "", 0},
                {1, "CARLA", -1}, {2, "ANA", 0},    {8, "BETO", 0}, {QVariant(), "ZECA", 0}, {4, "ANA", 0},
                {6, "", 0}, {10, "ANA", -1}};
    }

private slots:
    void paginas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("ordem");
        QTest::addColumn<int>("tamanho");
        QTest::addColumn<QStringList>("esperado");
        // Worked by hand: rows without a value (no code; an empty name) first, by their order
        // of entry, then by the order column, ties by order of entry.
        const QStringList porNome = {"7:", "6:", "3:ANA", "9:ANA", ":ANA", "2:ANA", "4:ANA", "10:ANA",
                                     "5:BETO", "8:BETO", "1:CARLA", ":ZECA"};
        const QStringList porCodigo = {":ANA", ":ZECA", "1:CARLA", "2:ANA", "3:ANA", "4:ANA", "5:BETO", "6:",
                                       "7:", "8:BETO", "9:ANA", "10:ANA"};
        const QStringList entrada = {"5:BETO", "3:ANA", "9:ANA", ":ANA", "7:", "1:CARLA", "2:ANA", "8:BETO",
                                     ":ZECA", "4:ANA", "6:", "10:ANA"};
        for (int motor : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* m = motor == int(Motor::SQLite) ? "sqlite" : "postgres";
            for (int tamanho : {1, 2, 5, 50}) {
                QTest::addRow("%s: by a text column with ties, pages of %d", m, tamanho) << motor << "NomeCliente" << tamanho << porNome;
                QTest::addRow("%s: by the code, pages of %d", m, tamanho) << motor << "CodCliente" << tamanho << porCodigo;
            }
            QTest::addRow("%s: by the key alone", m) << motor << "" << 3 << entrada;
            QTest::addRow("%s: by a column then the key", m) << motor << "NomeCliente, Chave" << 2 << porNome;
        }
    }
    void paginas()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, ordem);
        QFETCH(int, tamanho);
        QFETCH(QStringList, esperado);
        for (const Linha& l : linhas())
            b->executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) VALUES (?, ?, ?)",
                        {l.codigo, l.nome, l.excluido});
        PaginasBusca pg(b.banco(), "Cliente", {}, ordem, {"CodCliente", "NomeCliente"});
        QCOMPARE(pg.contar(), qint64(esperado.size()));
        QStringList lidas;
        for (int volta = 0; !pg.fim() && volta < 100; ++volta)
            for (const QVariantList& l : pg.proximas(tamanho))
                lidas << (l.value(0).isNull() ? QString() : l.value(0).toString()) + ':' + l.value(1).toString();
        QCOMPARE(lidas, esperado);
        QVERIFY(pg.proximas(tamanho).isEmpty());
    }

    void condicaoEContagem_data() { linhasMotores(); }
    void condicaoEContagem()
    {
        BANCO_DO_MOTOR(b);
        for (const Linha& l : linhas())
            b->executar("INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) VALUES (?, ?, ?)",
                        {l.codigo, l.nome, l.excluido});
        PaginasBusca pg(b.banco(), "Cliente", {"NomeCliente = ? AND Excluidos = 0", {"ANA"}}, "CodCliente", {"NomeCliente"});
        QCOMPARE(pg.contar(), qint64(5));
        const QList<QVariantList> l = pg.proximas(10);
        QCOMPARE(l.size(), 5);
        // The key and the order come along, after the columns asked for.
        QCOMPARE(pg.colunas(), (QStringList{"NomeCliente", "Chave", "CodCliente"}));
        QCOMPARE(l.at(1).value(2).toInt(), 2);
        QCOMPARE(pg.registro(pg.chaveDe(l.at(1))).value("CodCliente").toInt(), 2);
        QVERIFY(pg.registro(999999).isEmpty());
    }

    // A grid counts before it reads, and the count picks how the pages are read: a common
    // text in the list's order, a rare one through its index. Both must give every row the
    // classic pattern gives (worked out row by row below), once each, in code order.
    void planoPelaContagem_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<bool>("meio");
        for (int motor : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* m = motor == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s: common text in the middle", m) << motor << "silva" << true;
            QTest::addRow("%s: rare text in the middle", m) << motor << "souza" << true;
            QTest::addRow("%s: common beginning", m) << motor << "JOSE" << false;
            QTest::addRow("%s: rare beginning", m) << motor << "ana sou" << false;
            QTest::addRow("%s: digits in the middle", m) << motor << "100" << true;
        }
    }
    void planoPelaContagem()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, digitado);
        QFETCH(bool, meio);
        const int total = 3600;
        auto nome = [](int i) { return QString(i % 500 == 0 ? "ANA SOUZA %1" : "JOSE DA SILVA %1").arg(i); };
        auto excluido = [](int i) { return i % 250 == 1 ? -1 : 0; };
        b->executar(QString("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                            "INSERT INTO Cliente (CodCliente, NomeCliente, Excluidos) SELECT i, "
                            "CASE WHEN i % 500 = 0 THEN 'ANA SOUZA ' ELSE 'JOSE DA SILVA ' END || CAST(i AS TEXT), "
                            "CASE WHEN i % 250 = 1 THEN -1 ELSE 0 END FROM n").arg(total));
        QStringList esperado;
        const QString padrao = (meio ? "%" : "") + digitado + "%%0%";
        for (int i = 1; i <= total; ++i)
            if (Texto::like(nome(i) + QString::number(excluido(i)), padrao))
                esperado << QString::number(i);

        for (Busca::Plano plano : {Busca::Plano::PelaContagem, Busca::Plano::Sondado}) {
            const Condicao c = Busca::porColuna(b.banco(), "Cliente", "NomeCliente", digitado, meio, plano);
            PaginasBusca pg(b.banco(), "Cliente", c, "CodCliente", {"CodCliente"});
            QCOMPARE(pg.contar(), qint64(esperado.size()));
            QStringList lidas;
            for (int volta = 0; !pg.fim() && volta < 100; ++volta)
                for (const QVariantList& l : pg.proximas(200))
                    lidas << l.value(0).toString();
            QCOMPARE(lidas, esperado);
        }
    }
};

QTEST_GUILESS_MAIN(TstPaginasBusca)
#include "tst_paginasbusca.moc"
