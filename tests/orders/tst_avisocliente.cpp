#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Atualizacoes.h"
#include "data/ErroBanco.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "orders/AvisoCliente.h"
#include "orders/TransicoesOrdem.h"

using namespace AvisoCliente;

// The message, the links and the record of a notice to the customer, without a screen.
class TstAvisoCliente : public QObject {
    Q_OBJECT

    qint64 ordem(Banco& b, const QString& celular, const QString& codCliente = QString(""))
    {
        return b.inserir(*Esquema::tabela("OrdemServico"),
                         {"CodOs", "NomeCliente", "CodCliente", "Celular", "Tipo", "Marca", "ValorPagar", "Orcamento"},
                         {512, "JOSÉ D'ÁVILA", codCliente, celular, "TV", "SEMP", 15075, -1});
    }
    void cliente(Banco& b, qint64 cod, const QString& celular, const QString& email)
    {
        b.inserir(*Esquema::tabela("Cliente"), {"CodCliente", "NomeCliente", "Celular", "Email"},
                  {cod, "JOSÉ D'ÁVILA", celular, email});
    }

private slots:
    // Links worked by hand from the percent-encoding of UTF-8: "á" is C3 A1, a line
    // break %0A (CR LF in mail), "&" %26, "#" %23, a space %20.
    void links_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("whatsapp");
        QTest::addColumn<QString>("email");
        QTest::newRow("accents") << "Olá José" << "https://wa.me/5511987654321?text=Ol%C3%A1%20Jos%C3%A9"
                                 << "mailto:ana@loja.com.br?subject=O.S%201&body=Ol%C3%A1%20Jos%C3%A9";
        QTest::newRow("line break") << "Pronto\nLoja" << "https://wa.me/5511987654321?text=Pronto%0ALoja"
                                    << "mailto:ana@loja.com.br?subject=O.S%201&body=Pronto%0D%0ALoja";
        QTest::newRow("ampersand and hash") << "A&B #7" << "https://wa.me/5511987654321?text=A%26B%20%237"
                                            << "mailto:ana@loja.com.br?subject=O.S%201&body=A%26B%20%237";
        QTest::newRow("question mark and plus") << "R$1+1?" << "https://wa.me/5511987654321?text=R%241%2B1%3F"
                                                << "mailto:ana@loja.com.br?subject=O.S%201&body=R%241%2B1%3F";
    }
    void links()
    {
        QFETCH(QString, texto);
        QFETCH(QString, whatsapp);
        QFETCH(QString, email);
        QCOMPARE(linkWhatsApp("11987654321", texto), whatsapp);
        QCOMPARE(linkEmail(" ana@loja.com.br ", "O.S 1", texto), email);
    }

    void celulares_data()
    {
        QTest::addColumn<QString>("celular");
        QTest::addColumn<QString>("digitos");
        QTest::newRow("masked") << "(11) 98765-4321" << "11987654321";
        QTest::newRow("trunk zero") << "011 98765-4321" << "11987654321";
        QTest::newRow("country code") << "+55 (21) 98765-4321" << "21987654321";
        QTest::newRow("old eight digits") << "1133334444" << "1133334444";
        QTest::newRow("no area code") << "98765-4321" << "";
        QTest::newRow("empty") << "" << "";
        QTest::newRow("letters only") << "não tem" << "";
    }
    void celulares()
    {
        QFETCH(QString, celular);
        QFETCH(QString, digitos);
        QCOMPARE(digitosCelular(celular), digitos);
    }

    void marcas_data()
    {
        QTest::addColumn<QString>("modelo");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("known tags") << "@NOMECLIENTE, O.S @NUMEROOS" << "ANA, O.S 77";
        QTest::newRow("lower case tag") << "@nomecliente" << "ANA";
        QTest::newRow("unknown tag stays") << "Oi @APELIDO!" << "Oi @APELIDO!";
        QTest::newRow("longer word is not a shorter tag") << "@OSX @OS" << "@OSX 77";
        QTest::newRow("e-mail address untouched") << "loja@NOMECLIENTE.com" << "loja@NOMECLIENTE.com";
        QTest::newRow("quotes") << "\"@NOMECLIENTE\" 'x'" << "\"ANA\" 'x'";
        QTest::newRow("lone at sign") << "a @ b @" << "a @ b @";
        QTest::newRow("value with a tag is not replaced again") << "@TIPOPRODUTO" << "@NOMECLIENTE";
    }
    void marcas()
    {
        QFETCH(QString, modelo);
        QFETCH(QString, esperado);
        const Marcas m = {{"@NOMECLIENTE", "ANA"}, {"@OS", "77"}, {"@NUMEROOS", "77"}, {"@TIPOPRODUTO", "@NOMECLIENTE"}};
        QCOMPARE(mensagem(modelo, m), esperado);
    }

    void textoEnorme()
    {
        const QString modelo = QString(10000, QChar(u'é')) + " @NOMECLIENTE";
        const QString r = mensagem(modelo, {{"@NOMECLIENTE", "ANA"}});
        QCOMPARE(r.size(), 10004);
        QVERIFY(linkWhatsApp("11987654321", r).endsWith("ANA"));
    }

    // The channel follows what the customer has: the order's cellular, then the
    // register's, then the register's e-mail; nothing usable gives the reason.
    void canais_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("celularOrdem");
        QTest::addColumn<QString>("celularCliente");
        QTest::addColumn<QString>("email");
        QTest::addColumn<QString>("inicio");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* nome = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s: order's cellular", nome) << m << "11987654321" << "" << "" << "https://wa.me/5511987654321?text=";
            QTest::addRow("%s: register's cellular", nome) << m << "" << "21912345678" << "a@b.com" << "https://wa.me/5521912345678?text=";
            QTest::addRow("%s: e-mail", nome) << m << "" << "" << "ana@loja.com" << "mailto:ana@loja.com?subject=O.S%20512%20-%20Or%C3%A7amento%20pronto&body=";
            QTest::addRow("%s: nothing", nome) << m << "" << "" << "" << "";
            QTest::addRow("%s: bad e-mail", nome) << m << "" << "4321" << "ana loja" << "";
        }
    }
    void canais()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(QString, celularOrdem);
        QFETCH(QString, celularCliente);
        QFETCH(QString, email);
        QFETCH(QString, inicio);
        cliente(b.banco(), 40, celularCliente, email);
        const qint64 chave = ordem(b.banco(), celularOrdem, "40");
        const Preparo p = preparar(b.banco(), chave, AvisoCliente::Situacao::OrcamentoPronto, QDate(2026, 11, 23));
        QCOMPARE(p.link.left(inicio.size()), inicio);
        QCOMPARE(p.canal.has_value(), !inicio.isEmpty());
        QCOMPARE(p.motivo.isEmpty(), !inicio.isEmpty());
        if (inicio.isEmpty())
            QVERIFY(p.motivo.contains("celular"));
        // The standard text of a budget, with the order's own values.
        QVERIFY2(p.texto.startsWith("Olá, JOSÉ D'ÁVILA! O orçamento do seu TV SEMP (O.S 512) está pronto: "), qPrintable(p.texto));
        QVERIFY(p.texto.contains("150,75"));
    }

    void registro_data() { linhasMotores(); }
    void registro()
    {
        BANCO_DO_MOTOR(b);
        const qint64 chave = ordem(b.banco(), "11987654321");
        const QString data = registrar(b.banco(), chave, Canal::WhatsApp, AvisoCliente::Situacao::Consertado, "CARLOS",
                                       QDateTime(QDate(2026, 11, 23), QTime(14, 5, 40)));
        QCOMPARE(data, QString("2026/11/23"));
        registrar(b.banco(), chave, Canal::Email, AvisoCliente::Situacao::ProntoRetirada, "ANA",
                  QDateTime(QDate(2026, 11, 24), QTime(9, 0)));
        QCOMPARE(b->escalar("SELECT Contato FROM OrdemServico WHERE CodOsAut = ?", {chave}).toInt(), -1);
        QCOMPARE(b->escalar("SELECT DataContato FROM OrdemServico WHERE CodOsAut = ?", {chave}).toString(),
                 QString("2026/11/24"));
        QCOMPARE(linhas(b.banco(), chave),
                 QStringList({"E-mail 24/11/2026 09:00 ANA - Pronto para retirada",
                              "WhatsApp 23/11/2026 14:05 CARLOS - Consertado"}));
        // Another order's notices are its own.
        QVERIFY(linhas(b.banco(), chave + 1).isEmpty());

        // An order deleted for good takes its notices along; a press on it meanwhile is
        // refused and leaves no notice behind.
        const qint64 outra = ordem(b.banco(), "");
        registrar(b.banco(), outra, Canal::Email, AvisoCliente::Situacao::Consertado, "ANA");
        sessao().DireitoOsEntAl = 1;
        sessao().DireitoPermanente = 1;
        TransicoesOrdem::excluir(b.banco(), chave, TelaOrdem::Entrada);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM AvisoCliente WHERE CodOsAut = ?", {chave}).toInt(), 0);
        QVERIFY_THROWS_EXCEPTION(ErroBanco, registrar(b.banco(), chave, Canal::WhatsApp, AvisoCliente::Situacao::Consertado, "ANA"));
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM AvisoCliente").toInt(), 1);
    }

    // An older store gets the standard texts to edit, the notices off and 90 days of
    // warranty; a template the shop wrote itself is kept on the round trip.
    void atualizacaoEConfiguracao_data() { linhasMotores(); }
    void atualizacaoEConfiguracao()
    {
        BANCO_DO_MOTOR(b);
        b->executar("UPDATE Empresa SET AvisoOrcamento = '', AvisoAtivo = 0, DiasGarantia = NULL");
        b->executar("DELETE FROM VersaoEsquema WHERE Versao >= 16");
        if (b->escalar("SELECT COUNT(*) FROM VersaoEsquema").toInt() == 0)
            b->executar("INSERT INTO VersaoEsquema (Versao) VALUES (4)");
        QVERIFY(b->garantirEsquema() >= 1);
        QCOMPARE(b->escalar("SELECT AvisoOrcamento FROM Empresa").toString(), modeloPadrao(AvisoCliente::Situacao::OrcamentoPronto));
        QCOMPARE(b->escalar("SELECT AvisoAtivo FROM Empresa").toInt(), 0);
        QCOMPARE(b->escalar("SELECT DiasGarantia FROM Empresa").toInt(), 90);

        Config c = lerConfig(b.banco());
        QVERIFY(!c.ativo);
        c.ativo = true;
        c.modelos = {{AvisoCliente::Situacao::Consertado, "Pronto, \"@NOMECLIENTE\"'s; DROP TABLE Empresa;--"}};
        gravarConfig(b.banco(), c);
        const Config lida = lerConfig(b.banco());
        QVERIFY(lida.ativo);
        QCOMPARE(lida.modelo(AvisoCliente::Situacao::Consertado), QString("Pronto, \"@NOMECLIENTE\"'s; DROP TABLE Empresa;--"));
        QCOMPARE(lida.modelo(AvisoCliente::Situacao::AguardandoPeca), modeloPadrao(AvisoCliente::Situacao::AguardandoPeca));
    }
};

QTEST_GUILESS_MAIN(TstAvisoCliente)
#include "tst_avisocliente.moc"
