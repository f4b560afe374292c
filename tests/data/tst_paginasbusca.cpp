#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/PaginasBusca.h"

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
};

QTEST_GUILESS_MAIN(TstPaginasBusca)
#include "tst_paginasbusca.moc"
