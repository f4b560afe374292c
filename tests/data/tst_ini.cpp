#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "data/ArquivoIni.h"
#include "data/Local.h"
#include "data/Sessao.h"

class TesteIni : public QObject {
    Q_OBJECT

    static QString escreve(const QTemporaryDir& dir, const QByteArray& conteudo)
    {
        const QString caminho = dir.filePath("Toldex.ini");
        QFile f(caminho);
        f.open(QIODevice::WriteOnly);
        f.write(conteudo);
        return caminho;
    }

private slots:
    void leitura()
    {
        QTemporaryDir dir;
        const QString ini = escreve(dir,
            "lixo sem igual\r\n[LOCAL]\r\nservidor=True\r\nCaminho=\\\\NomeServidor\\Toldex\r\n"
            "=sem chave\r\n[Impressao]\r\nNOsEntrada = 2 \r\n[Imagem]\r\nFoto=C:\\Fotos\\Logotipo da Loja.jpg\r\n");
        QCOMPARE(LeIni("Local", "SERVIDOR", ini), QString("True"));
        QCOMPARE(LeIni("local", "caminho", ini), QString("\\\\NomeServidor\\Toldex"));  // backslashes kept
        QCOMPARE(LeIni("Impressao", "NOsEntrada", ini), QString("2"));
        QCOMPARE(LeIni("Impressao", "NOsSaida", ini), QString());
        QCOMPARE(LeIni("Secao", "Chave", dir.filePath("nao-existe.ini")), QString());
    }

    void arquivoAntigoEmWindows1252()
    {
        QTemporaryDir dir;
        const QString ini = escreve(dir, "[Imagem]\nFoto=C:\\Imagens\\Promo\xe7\xe3o.jpg\n");
        QCOMPARE(LeIni("Imagem", "Foto", ini), QString::fromUtf8("C:\\Imagens\\Promoção.jpg"));
    }

    void valorCortadoEm255()
    {
        QTemporaryDir dir;
        const QString ini = dir.filePath("Toldex.ini");
        QVERIFY(GravaIni("Imagem", "Foto", QString(300, 'x'), ini));
        QCOMPARE(LeIni("Imagem", "Foto", ini).size(), 255);
    }

    void gravacaoPreservaOResto()
    {
        QTemporaryDir dir;
        const QString ini = escreve(dir, "; comentário\n[Local]\nServidor=True\n\n[CorFundo]\n0=123\n");
        QVERIFY(GravaIni("local", "SERVIDOR", "False", ini));
        QVERIFY(GravaIni("Local", "Caminho", "/srv/toldex", ini));
        QVERIFY(GravaIni("Impressao", "AutoLinha", "1", ini));
        QVERIFY(GravaIni("Local", "Obs", "linha 1\nlinha 2", ini));   // a line break can't split the file
        QCOMPARE(LeIni("Local", "Servidor", ini), QString("False"));
        QCOMPARE(LeIni("Local", "Caminho", ini), QString("/srv/toldex"));
        QCOMPARE(LeIni("CorFundo", "0", ini), QString("123"));
        QCOMPARE(LeIni("Impressao", "AutoLinha", ini), QString("1"));
        QCOMPARE(LeIni("Local", "Obs", ini), QString("linha 1 linha 2"));
        QFile f(ini);
        f.open(QIODevice::ReadOnly);
        QVERIFY(f.readAll().startsWith("; comentário\n[Local]"));
    }

    void pastaSemPermissaoDaMensagem()
    {
        QString erro;
        ArquivoIni ini("/proc/toldex-nao-existe/Toldex.ini");
        QVERIFY(!ini.gravar("Local", "Servidor", "True", &erro));
        QVERIFY(erro.contains("Não foi possível gravar"));
    }

    void primeiraExecucaoEEstacao()
    {
        QTemporaryDir dir;
        qputenv("TOLDEX_PASTA", dir.path().toUtf8());
        // No ini: this machine becomes the server with the store in its own folder, and the
        // ini is written so the next start finds the same store.
        ConfigBanco c = Local::lerConfig();
        QVERIFY(c.criarSeNaoExistir);
        QCOMPARE(c.pasta, dir.path());
        QCOMPARE(sessao().EhServidor, QString("True"));
        QVERIFY(QFile::exists(dir.filePath("Toldex.ini")));
        c = Local::lerConfig();
        QVERIFY(!c.criarSeNaoExistir);   // a later start never creates a new store
        // A workstation reads the server's folder from Caminho.
        QVERIFY(Local::gravarPapel(false, "/srv/compartilhado/Toldex"));
        c = Local::lerConfig();
        QCOMPARE(sessao().CaminhoBanco, QString("/srv/compartilhado/Toldex"));
        QCOMPARE(c.pasta, QString("/srv/compartilhado/Toldex"));
        // Turning it back into the server writes Caminho as the program's folder.
        QVERIFY(Local::gravarPapel(true, QString()));
        QCOMPARE(LeIni("Local", "Caminho", dir.filePath("Toldex.ini")), dir.path());
        qunsetenv("TOLDEX_PASTA");
    }
};

QTEST_GUILESS_MAIN(TesteIni)
#include "tst_ini.moc"
