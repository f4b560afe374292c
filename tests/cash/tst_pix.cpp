#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include "cash/Pix.h"

// The charge a payer's bank app reads. Expected payloads and CRCs were worked outside this
// code (a short script over the same fields); the QR is read back by an independent
// decoder (zbarimg).
class TstPix : public QObject {
    Q_OBJECT

    // The fields of a payload, id -> value, with the merchant account and additional data
    // opened one level further ("26.01", "62.05").
    static QMap<QString, QString> campos(const QString& p)
    {
        QMap<QString, QString> r;
        auto ler = [&r](const QString& texto, const QString& prefixo, auto& self) -> bool {
            int i = 0;
            while (i < texto.size()) {
                if (i + 4 > texto.size())
                    return false;
                const QString id = texto.mid(i, 2);
                bool ok = false;
                const int n = texto.mid(i + 2, 2).toInt(&ok);
                if (!ok || i + 4 + n > texto.size())
                    return false;
                const QString valor = texto.mid(i + 4, n);
                r.insert(prefixo + id, valor);
                if (prefixo.isEmpty() && (id == QLatin1String("26") || id == QLatin1String("62"))
                    && !self(valor, id + QLatin1Char('.'), self))
                    return false;
                i += 4 + n;
            }
            return true;
        };
        if (!ler(p, QString(), ler))
            r.insert(QStringLiteral("erro"), QStringLiteral("TLV quebrado"));
        return r;
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil)); }

    void crcConhecido_data()
    {
        QTest::addColumn<QByteArray>("dados");
        QTest::addColumn<QString>("crc");
        QTest::newRow("check value of CCITT-FALSE") << QByteArray("123456789") << "29B1";
        QTest::newRow("static charge of the public manual")
            << QByteArray("00020126580014br.gov.bcb.pix0136123e4567-e12b-12d1-a456-4266554400005204000053039865802BR"
                          "5913Fulano de Tal6008BRASILIA62070503***6304")
            << "1D3D";
    }
    void crcConhecido()
    {
        QFETCH(QByteArray, dados);
        QFETCH(QString, crc);
        QCOMPARE(Pix::crc16(dados), crc);
    }

    void payloadDeChaves_data()
    {
        QTest::addColumn<QString>("chave");
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("cidade");
        QTest::addColumn<qint64>("centavos");
        QTest::addColumn<QString>("os");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("e-mail typed with capitals and spaces around")
            << " Loja@Exemplo.com.br " << "TOLDEX ASSISTENCIA" << "SAO PAULO" << qint64(15075) << "1234"
            << "00020126410014br.gov.bcb.pix0119loja@exemplo.com.br5204000053039865406150.755802BR"
               "5918TOLDEX ASSISTENCIA6009SAO PAULO6208050412346304FAFF";
        QTest::newRow("phone typed with its mask, one cent")
            << "(11) 98765-4321" << "Eletro Conserto Ltda" << "Campinas" << qint64(1) << "7"
            << "00020126360014br.gov.bcb.pix0114+551198765432152040000530398654040.015802BR"
               "5920Eletro Conserto Ltda6008Campinas6205050176304DC4F";
        QTest::newRow("CPF with punctuation, accented name")
            << "529.982.247-25" << "João da Silva" << "Recife" << qint64(123456) << "99001"
            << "00020126330014br.gov.bcb.pix01115299822472552040000530398654071234.565802BR"
               "5913Joao da Silva6006Recife620905059900163048108";
        QTest::newRow("random key in capitals")
            << "123E4567-E89B-12D3-A456-426614174000" << "Conserta Tudo" << "Belo Horizonte" << qint64(1000) << "42"
            << "00020126580014br.gov.bcb.pix0136123e4567-e89b-12d3-a456-426614174000520400005303986540510.00"
               "5802BR5913Conserta Tudo6014Belo Horizonte6206050242630432EC";
        QTest::newRow("CNPJ, name and city cut to 25 and 15")
            << "11.222.333/0001-81" << "Oficina São José Eletrônica Ltda" << "São José dos Campos" << qint64(9999999)
            << "1000000"
            << "00020126360014br.gov.bcb.pix011411222333000181520400005303986540899999.995802BR"
               "5925Oficina Sao Jose Eletroni6015Sao Jose dos Ca62110507100000063045F67";
    }
    void payloadDeChaves()
    {
        QFETCH(QString, chave);
        QFETCH(QString, nome);
        QFETCH(QString, cidade);
        QFETCH(qint64, centavos);
        QFETCH(QString, os);
        QFETCH(QString, esperado);
        QString erro;
        const QString p = Pix::payload({chave, nome, cidade, Dinheiro::deCentavos(centavos), os}, &erro);
        QVERIFY2(!p.isEmpty(), qPrintable(erro));
        QCOMPARE(p, esperado);
    }

    void chaveRecusada_data()
    {
        QTest::addColumn<QString>("chave");
        QTest::addColumn<QString>("trecho");
        QTest::newRow("space inside an e-mail") << "loja @exemplo.com.br" << "espaços";
        QTest::newRow("accent in an e-mail") << "joão@loja.com.br" << "acentos";
        QTest::newRow("CPF with a wrong check digit") << "529.982.247-26" << "CPF";
        QTest::newRow("CNPJ with a wrong check digit") << "11.222.333/0001-80" << "CNPJ";
        QTest::newRow("phone of another country") << "+1 555 123 4567" << "+55";
        QTest::newRow("a word") << "oficina" << "e-mail, um celular";
        QTest::newRow("nothing typed") << "   " << "Digite";
    }
    void chaveRecusada()
    {
        QFETCH(QString, chave);
        QFETCH(QString, trecho);
        QString erro;
        QVERIFY(!Pix::leChave(chave, &erro));
        QVERIFY2(erro.contains(trecho), qPrintable(erro));
        // The till refuses the same key: no payload, the same reason.
        QString erroPayload;
        QVERIFY(Pix::payload({chave, "LOJA", "RECIFE", Dinheiro::deCentavos(100), "1"}, &erroPayload).isEmpty());
        QCOMPARE(erroPayload, erro);
    }

    void semValorNaoHaCobranca_data()
    {
        QTest::addColumn<qint64>("centavos");
        QTest::newRow("zero") << qint64(0);
        QTest::newRow("negative (change owed to the customer)") << qint64(-500);
    }
    void semValorNaoHaCobranca()
    {
        QFETCH(qint64, centavos);
        QString erro;
        QVERIFY(Pix::payload({"loja@exemplo.com.br", "LOJA", "RECIFE", Dinheiro::deCentavos(centavos), "1"}, &erro)
                    .isEmpty());
        QVERIFY2(erro.contains("0,00"), qPrintable(erro));
    }

    void txidSoLetrasENumeros()
    {
        QCOMPARE(Pix::txid("O.S 1234/5"), QString("OS12345"));
        QCOMPARE(Pix::txid(""), QString("***"));
        QCOMPARE(Pix::txid(QString(40, '9')).size(), 25);
    }

    // The image the customer points the phone at: decoded by zbarimg, every field and the
    // CRC as worked outside.
    void qrLidoPorOutroLeitor()
    {
        const QString zbar = QStandardPaths::findExecutable("zbarimg");
        if (zbar.isEmpty())
            QFAIL("zbarimg (Debian zbar-tools) is needed: scripts/instalar-dependencias.sh");
        const QString p = Pix::payload({"+55 11 98765-4321", "Eletrônica Ação & Cia", "Ribeirão Preto",
                                        Dinheiro::deCentavos(25990), "O.S 4711"});
        const QImage qr = Pix::qrCode(p, 4);
        QVERIFY(!qr.isNull());
        QTemporaryDir dir;
        const QString arquivo = dir.filePath("pix.png");
        QVERIFY(qr.save(arquivo));
        QProcess z;
        z.start(zbar, {"--raw", "-q", arquivo});
        QVERIFY(z.waitForFinished(30000));
        QCOMPARE(z.exitCode(), 0);
        const QString lido = QString::fromUtf8(z.readAllStandardOutput()).trimmed();
        QCOMPARE(lido, p);

        const QMap<QString, QString> f = campos(lido);
        QVERIFY(!f.contains("erro"));
        QCOMPARE(f.value("00"), QString("01"));
        QCOMPARE(f.value("26.00"), QString("br.gov.bcb.pix"));
        QCOMPARE(f.value("26.01"), QString("+5511987654321"));
        QCOMPARE(f.value("52"), QString("0000"));
        QCOMPARE(f.value("53"), QString("986"));
        QCOMPARE(f.value("54"), QString("259.90"));
        QCOMPARE(f.value("58"), QString("BR"));
        QCOMPARE(f.value("59"), QString("Eletronica Acao & Cia"));
        QCOMPARE(f.value("60"), QString("Ribeirao Preto"));
        QCOMPARE(f.value("62.05"), QString("OS4711"));
        QVERIFY(lido.endsWith("6304" + f.value("63")));
        QCOMPARE(f.value("63"), QString("B94B"));
    }
};

QTEST_MAIN(TstPix)
#include "tst_pix.moc"
