#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest>

#include "AmbienteShell.h"
#include "apoio/BancoTeste.h"
#include "shell/ConfiguraSistema.h"
#include "shell/LeEmpresa.h"
#include "shell/RecursosAviso.h"
#include "ui/Dialogos.h"

// The "Recursos" tab: PIX and the 80 mm roll saved with the rest of the configuration, a
// key read into its clean form or refused, and an older store brought up with both off.
class TstAbaRecursos : public QObject {
    Q_OBJECT
    std::unique_ptr<AmbienteShell> amb;

    QVariant empresa(const QString& col)
    {
        auto b = Banco::abrir(Conexoes::config());
        return b->escalar(QString("SELECT %1 FROM Empresa").arg(col));
    }
    template <class W> static W* w(QWidget* t, const QString& nome)
    {
        auto* x = t->findChild<W*>(nome);
        if (!x)
            qFatal("no widget %s", qPrintable(nome));
        return x;
    }
    static void escreve(QWidget* t, const QString& nome, const QString& texto)
    {
        auto* le = w<QLineEdit>(t, nome);
        le->setFocus();
        le->selectAll();
        QTest::keyClick(le, Qt::Key_Delete);
        for (const QChar c : texto)
            QTest::sendKeyEvent(QTest::Click, le, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    static QWidget* abre()
    {
        auto* t = RegistroTelas::abrir("ConfiguraSistema");
        auto* abas = w<QTabWidget>(t, "Tabuleiro");
        for (int i = 0; i < abas->count(); ++i)
            if (abas->tabText(i) == "Recursos")
                abas->setCurrentIndex(i);
        return t;
    }

private slots:
    void init()
    {
        amb = std::make_unique<AmbienteShell>();
        AmbienteShell::registrarFalsa("Negado");
        AmbienteShell::registrarFalsa("Gravado");
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        AmbienteShell::todosOsDireitos(1);
        sessao().ConexaoOk = 1;
        sessao().CfgTipoLetra = "False";
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        amb.reset();
        sessao().CfgPixAtivo = "False";
        sessao().CfgReciboBobina = "False";
    }

    // What the shop types and what the store and the session keep.
    void salvaPix_data()
    {
        QTest::addColumn<QString>("chave");
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("cidade");
        QTest::addColumn<QString>("chaveGuardada");
        QTest::addColumn<QString>("nomeGuardado");
        QTest::addColumn<QString>("cidadeGuardada");
        QTest::newRow("phone with mask, long accented name and city cut")
            << "(11) 98765-4321" << "Oficina São João Eletrônicos e Cia" << "São José dos Campos"
            << "+5511987654321" << "Oficina Sao Joao Eletroni" << "Sao Jose dos Ca";
        QTest::newRow("CNPJ with punctuation, short names kept")
            << "11.222.333/0001-81" << "CONSERTA TUDO" << "RECIFE" << "11222333000181" << "CONSERTA TUDO"
            << "RECIFE";
    }
    void salvaPix()
    {
        QFETCH(QString, chave);
        QFETCH(QString, nome);
        QFETCH(QString, cidade);
        QFETCH(QString, chaveGuardada);
        QFETCH(QString, nomeGuardado);
        QFETCH(QString, cidadeGuardada);
        QWidget* t = abre();
        QVERIFY(!w<QCheckBox>(t, "PixAtivo")->isChecked());
        w<QCheckBox>(t, "PixAtivo")->click();
        escreve(t, "PixChave", chave);
        escreve(t, "PixNome", nome);
        escreve(t, "PixCidade", cidade);
        w<QPushButton>(t, "Botao(0)")->click();
        QCOMPARE(empresa("PixAtivo").toInt(), -1);
        QCOMPARE(empresa("PixChave").toString(), chaveGuardada);
        QCOMPARE(empresa("PixNome").toString(), nomeGuardado);
        QCOMPARE(empresa("PixCidade").toString(), cidadeGuardada);
        QCOMPARE(Dialogos::Roteiro::contem("sem acentos"), nome != nomeGuardado);
        QCOMPARE(sessao().CfgPixAtivo, QString("True"));
        QCOMPARE(sessao().CfgPixChave, chaveGuardada);
        // Opened again, the tab shows what was kept.
        RegistroTelas::fecharTodas();
        t = abre();
        QVERIFY(w<QCheckBox>(t, "PixAtivo")->isChecked());
        QCOMPARE(w<QLineEdit>(t, "PixChave")->text(), chaveGuardada);
    }

    // A key that is no key stops the whole save, with the reason.
    void chaveRecusada_data()
    {
        QTest::addColumn<QString>("chave");
        QTest::addColumn<QString>("trecho");
        QTest::newRow("accent") << "joão@loja.com.br" << "acentos";
        QTest::newRow("space") << "joao @loja.com.br" << "espaços";
        QTest::newRow("wrong CPF") << "111.444.777-36" << "CPF";
    }
    void chaveRecusada()
    {
        QFETCH(QString, chave);
        QFETCH(QString, trecho);
        QWidget* t = abre();
        w<QCheckBox>(t, "PixAtivo")->click();
        escreve(t, "PixChave", chave);
        escreve(t, "PixNome", "LOJA");
        escreve(t, "PixCidade", "RECIFE");
        escreve(t, "Text1(0)", "LOJA NOVA");
        w<QPushButton>(t, "Botao(0)")->click();
        QVERIFY2(Dialogos::Roteiro::ultimoTexto().contains(trecho), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(empresa("PixAtivo").toInt(), 0);
        QCOMPARE(empresa("PixChave").toString(), QString());
        QVERIFY(empresa("NomeEmpresa").toString() != "LOJA NOVA");
    }

    // The roll: 80 mm saved and shown again, then back to A4.
    void bobinaOuA4()
    {
        QWidget* t = abre();
        QVERIFY(w<QRadioButton>(t, "ReciboA4")->isChecked());
        w<QRadioButton>(t, "ReciboBobina")->click();
        QVERIFY(!w<QRadioButton>(t, "ReciboA4")->isChecked());
        w<QPushButton>(t, "Botao(0)")->click();
        QCOMPARE(empresa("ReciboBobina").toInt(), -1);
        QCOMPARE(sessao().CfgReciboBobina, QString("True"));
        RegistroTelas::fecharTodas();
        t = abre();
        QVERIFY(w<QRadioButton>(t, "ReciboBobina")->isChecked());
        w<QRadioButton>(t, "ReciboA4")->click();
        QVERIFY(!w<QRadioButton>(t, "ReciboBobina")->isChecked());
        w<QPushButton>(t, "Botao(0)")->click();
        QCOMPARE(empresa("ReciboBobina").toInt(), 0);
        QCOMPARE(sessao().CfgReciboBobina, QString("False"));
    }

    // A store from before these features gets the columns, both off, and the payer sees
    // the shop's own name until the shop types another.
    void lojaAntiga_data() { linhasMotores(); }
    void lojaAntiga()
    {
        BANCO_DO_MOTOR(b);
        for (const char* c : {"PixAtivo", "PixChave", "PixNome", "PixCidade", "ReciboBobina"})
            b->executar(QString("ALTER TABLE Empresa DROP COLUMN %1").arg(c));
        b->executar("DELETE FROM VersaoEsquema");
        b->executar("INSERT INTO VersaoEsquema (Versao) VALUES (4)");
        b->executar("UPDATE Empresa SET NomeEmpresa = 'ELETRO SÃO JORGE'");
        QVERIFY(b->garantirEsquema() > 0);
        QCOMPARE(b->escalar("SELECT PixAtivo FROM Empresa").toInt(), 0);
        QCOMPARE(b->escalar("SELECT ReciboBobina FROM Empresa").toInt(), 0);
        QCOMPARE(b->escalar("SELECT PixNome FROM Empresa").toString(), QString("ELETRO SÃO JORGE"));
        sessao().CfgPixAtivo = "True";
        sessao().CfgReciboBobina = "True";
        LeEmpresa(b.banco());
        QCOMPARE(sessao().CfgPixAtivo, QString("False"));
        QCOMPARE(sessao().CfgReciboBobina, QString("False"));
        QCOMPARE(sessao().CfgPixNome, QString("ELETRO SÃO JORGE"));
    }

    // The notices' box on the same tab: read with the screen, written by its save, and a
    // template too long stops the whole save with nothing written.
    void avisosComOResto()
    {
        QWidget* t = abre();
        auto* ativo = w<QCheckBox>(t, "ChkAvisoAtivo");
        QVERIFY(!ativo->isChecked());
        ativo->click();
        escreve(t, "PixCidade", "RECIFE");
        w<QPushButton>(t, "Botao(0)")->click();
        QCOMPARE(empresa("AvisoAtivo").toInt(), -1);
        QCOMPARE(empresa("PixCidade").toString(), QString("RECIFE"));
        RegistroTelas::fecharTodas();
        t = abre();
        QVERIFY(w<QCheckBox>(t, "ChkAvisoAtivo")->isChecked());

        w<QCheckBox>(t, "ChkAvisoAtivo")->click();
        escreve(t, "PixCidade", "OLINDA");
        auto* modelo = w<RecursosAviso>(t, {})->findChildren<QPlainTextEdit*>().value(0);
        QVERIFY(modelo);
        modelo->setPlainText(QString(1500, 'x'));
        w<QPushButton>(t, "Botao(0)")->click();
        QVERIFY(Dialogos::Roteiro::contem("o limite é 1000"));
        QCOMPARE(empresa("AvisoAtivo").toInt(), -1);
        QCOMPARE(empresa("PixCidade").toString(), QString("RECIFE"));
    }
};

QTEST_MAIN(TstAbaRecursos)
#include "tst_abarecursos.moc"
