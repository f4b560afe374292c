#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/PaginasBusca.h"
#include "data/Recordset.h"
#include "data/Texto.h"
#include "registers/BuscaClientes.h"

using BuscaClientes::Opcao;
Q_DECLARE_METATYPE(BuscaClientes::Opcao)

namespace {

struct Linha {
    int cod;
    const char* nome;
    const char* tel;
    const char* cel;
    const char* doc;
    int excluidos;
};

// Deleted customers 12 and 1203 test the old pattern's reach into deleted rows.
const Linha Clientes[] = {
    {1, "ANA SOUZA", "1133331000", "11999990001", "11144477735", 0},
    {2, "JOSÉ ARAÚJO", "1133332000", "11988880002", "11222333000181", 0},
    {12, "ANALÍVIA", "2133331111", "", "52998224725", -1},
    {1203, "BRUNO ANA", "4130301203", "", "", -1},
    {120, "CARLA", "", "11977771200", "", 0},
};

void enche(Banco& b)
{
    for (const Linha& l : Clientes)
        b.executar("INSERT INTO Cliente (CodCliente, NomeCliente, Telefone, Celular, CnpjCpf, Excluidos) "
                   "VALUES (?, ?, ?, ?, ?, ?)",
                   {l.cod, QString::fromUtf8(l.nome), QString::fromLatin1(l.tel), QString::fromLatin1(l.cel),
                    QString::fromLatin1(l.doc), l.excluidos});
}

QList<int> codigos(const QList<QSqlRecord>& linhas)
{
    QList<int> r;
    for (const QSqlRecord& l : linhas)
        r << l.value("CodCliente").toInt();
    return r;
}

} // namespace

class TstBuscaClientes : public QObject {
    Q_OBJECT
private slots:
    void buscaPorOpcao_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<Opcao>("opcao");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QList<int>>("esperados");
        const QList<QPair<QString, int>> motores = {{"sqlite", int(Motor::SQLite)}, {"postgres", int(Motor::PostgreSQL)}};
        struct Caso {
            const char* nome;
            Opcao opcao;
            const char* texto;
            QList<int> esperados;
        };
        const Caso casos[] = {
            {"code anywhere in it, deleted 1203 through its 0", Opcao::Codigo, "12", {120, 1203}},
            {"name from its start, without case or accents", Opcao::Nome, "ana", {1}},
            {"name only from its start", Opcao::Nome, "souza", {}},
            {"telephone in the middle, deleted 12 left out", Opcao::Telefone, "3333", {1, 2}},
            {"cellular in the middle", Opcao::Celular, "7777", {120}},
            {"document in the middle", Opcao::CnpjCpf, "2223330", {2}},
            {"a quote is just a character", Opcao::Nome, "an'a", {}},
        };
        for (const auto& [nomeMotor, motor] : motores)
            for (const Caso& c : casos)
                QTest::addRow("%s: %s", qPrintable(nomeMotor), c.nome) << motor << c.opcao << QString(c.texto) << c.esperados;
    }
    void buscaPorOpcao()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(Opcao, opcao);
        QFETCH(QString, texto);
        QFETCH(QList<int>, esperados);
        enche(b.banco());
        const auto r = BuscaClientes::buscar(b.banco(), opcao, texto, 0);
        QCOMPARE(codigos(r.linhas), esperados);
        QVERIFY(!r.haMais);
    }

    void limiteDizQueHaMais_data() { linhasMotores(); }
    void limiteDizQueHaMais()
    {
        BANCO_DO_MOTOR(b);
        enche(b.banco());
        auto r = BuscaClientes::buscar(b.banco(), Opcao::Telefone, "33", 1);
        QCOMPARE(codigos(r.linhas), QList<int>{1});
        QVERIFY(r.haMais);
        r = BuscaClientes::buscar(b.banco(), Opcao::Telefone, "33", 2);
        QCOMPARE(r.linhas.size(), 2);
        QVERIFY(!r.haMais);
    }

    void nomeAoDigitarMostraExcluidos_data() { linhasMotores(); }
    void nomeAoDigitarMostraExcluidos()
    {
        BANCO_DO_MOTOR(b);
        enche(b.banco());
        const Condicao c = BuscaClientes::condicaoNome(b.banco(), "ana");
        PaginasBusca pg(b.banco(), "Cliente", c, BuscaClientes::Ordem, {"CodCliente"});
        QList<int> achados;
        for (const QVariantList& l : pg.proximas(100))
            achados << l.value(0).toInt();
        QCOMPARE(achados, (QList<int>{1, 12, 1203}));
    }

    // The register's box matches code and name as one text; the lookups through the
    // indexes must give exactly the rows that the joined text gives.
    void codigoENomeComoTextoJunto_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QStringList>("textos");
        const QStringList textos = {"ana", "12ANA", "2ANAL", "1203BRU", "3BRUNO ANA", "120", "0C", "20CARLA", "1",
                                    "josé", "ARAUJO", "99", "12A%", "ZZZ"};
        QTest::newRow("sqlite") << int(Motor::SQLite) << textos;
        QTest::newRow("postgres") << int(Motor::PostgreSQL) << textos;
    }
    void codigoENomeComoTextoJunto()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QStringList, textos);
        enche(b.banco());
        for (const QString& t : textos) {
            QList<int> esperados;
            for (const Linha& l : Clientes) {
                const QString junto = QString::number(l.cod) + Texto::dobra(QString::fromUtf8(l.nome));
                if (Texto::like(junto, "%" + t + "%"))
                    esperados << l.cod;
            }
            std::sort(esperados.begin(), esperados.end());
            const Condicao c = BuscaClientes::codigoENome(b.banco(), t);
            Recordset rs(b.banco());
            rs.abrir("Cliente", c.sql, c.valores, "CodCliente");
            QList<int> achados;
            for (rs.moveFirst(); !rs.eof(); rs.moveNext())
                achados << int(rs.inteiro("CodCliente"));
            QVERIFY2(achados == esperados, qPrintable(t));
        }
    }

    void ordensPeloCodigoExato_data() { linhasMotores(); }
    void ordensPeloCodigoExato()
    {
        BANCO_DO_MOTOR(b);
        for (const auto& [os, cli, exc] : {std::tuple{10, "1", 0}, std::tuple{11, "12", 0}, std::tuple{12, "1", -1},
                                           std::tuple{13, "1", 0}})
            b->executar("INSERT INTO OrdemServico (CodOs, CodCliente, Excluidos) VALUES (?, ?, ?)",
                        {os, QString(cli), exc});
        QList<int> os;
        for (const QSqlRecord& r : BuscaClientes::ordensDoCliente(b.banco(), "1"))
            os << r.value("CodOs").toInt();
        QCOMPARE(os, (QList<int>{10, 13}));
    }
};

QTEST_MAIN(TstBuscaClientes)
#include "tst_buscaclientes.moc"
