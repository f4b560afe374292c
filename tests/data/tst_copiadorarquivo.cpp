#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/ArquivosTeste.h"
#include "data/CopiadorArquivo.h"

namespace {

QByteArray conteudo(qint64 tamanho)
{
    QByteArray b(tamanho, Qt::Uninitialized);
    QRandomGenerator gerador(4820);
    for (qint64 i = 0; i < tamanho; ++i)
        b[i] = char(gerador.bounded(256));
    return b;
}

} // namespace

using namespace ArquivosTeste;

class TesteCopiadorArquivo : public QObject {
    Q_OBJECT
private slots:
    void copiaGrandeEmSegundoPlano()
    {
        QTemporaryDir origem, destino;
        const QByteArray dados = conteudo(5 * CopiadorArquivo::TamanhoBloco + 12345);
        grava(origem.filePath("TOLDEX.mdb"), dados);

        CopiadorArquivo c(origem.filePath("TOLDEX.mdb"), destino.filePath("back.dat"));
        QSignalSpy progresso(&c, &CopiadorArquivo::progresso);
        QSignalSpy fim(&c, &CopiadorArquivo::terminou);
        c.iniciar();
        QVERIFY(c.emAndamento());
        QVERIFY(fim.wait(60000));
        QCOMPARE(fim.first().first().value<ResultadoCopia>(), ResultadoCopia::Concluida);
        QVERIFY(!c.emAndamento());
        QVERIFY(c.erro().isEmpty());
        QCOMPARE(le(destino.filePath("back.dat")), dados);
        QCOMPARE(arquivos(destino.path()), QStringList{"back.dat"});
        // The bar moves block by block and ends full.
        QVERIFY(progresso.size() >= 6);
        QCOMPARE(progresso.last().at(0).toLongLong(), qint64(dados.size()));
        QCOMPARE(progresso.last().at(1).toLongLong(), qint64(dados.size()));
    }

    void falhas_data()
    {
        QTest::addColumn<QString>("origem");
        QTest::addColumn<QString>("destino");
        QTest::addColumn<QString>("trechoDoErro");
        QTest::newRow("origem que nao existe") << "nada.mdb" << "copia.dat" << "Arquivo não encontrado";
        QTest::newRow("origem que e pasta") << "pasta" << "copia.dat" << "Não é um arquivo";
        // A regular file in the place of a folder can't be written into, even by root.
        QTest::newRow("pasta de destino impossivel") << "TOLDEX.mdb" << "TOLDEX.mdb/copia.dat"
                                                     << "Não foi possível gravar";
        QTest::newRow("pasta de destino que nao existe") << "TOLDEX.mdb" << "falta/copia.dat"
                                                         << "Não foi possível gravar";
        QTest::newRow("sobre si mesmo") << "TOLDEX.mdb" << "TOLDEX.mdb" << "mesmo arquivo";
    }
    void falhas()
    {
        QFETCH(QString, origem);
        QFETCH(QString, destino);
        QFETCH(QString, trechoDoErro);
        QTemporaryDir dir;
        const QByteArray dados = conteudo(1000);
        grava(dir.filePath("TOLDEX.mdb"), dados);
        QVERIFY(QDir(dir.path()).mkdir("pasta"));

        CopiadorArquivo c(dir.filePath(origem), dir.filePath(destino));
        QCOMPARE(c.copiar(), ResultadoCopia::Falhou);
        QVERIFY2(c.erro().contains(trechoDoErro), qPrintable(c.erro()));
        QCOMPARE(arquivos(dir.path()), QStringList{"TOLDEX.mdb"});
        QCOMPARE(le(dir.filePath("TOLDEX.mdb")), dados);
    }

    void destinoPastaRecebeONomeDaOrigem()
    {
        QTemporaryDir dir;
        grava(dir.filePath("Toldex.Backup"), "dados");
        QVERIFY(QDir(dir.path()).mkdir("BackupToldex"));
        CopiadorArquivo c(dir.filePath("Toldex.Backup"), dir.filePath("BackupToldex"));
        QCOMPARE(c.copiar(), ResultadoCopia::Concluida);
        QCOMPARE(le(dir.filePath("BackupToldex/Toldex.Backup")), QByteArray("dados"));
    }
};

QTEST_GUILESS_MAIN(TesteCopiadorArquivo)
#include "tst_copiadorarquivo.moc"
