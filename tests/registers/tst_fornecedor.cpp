#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "ui/AmbienteTela.h"
#include "data/Conexoes.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "registers/Fornecedor.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

class TstFornecedor : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    Fornecedor* tela = nullptr;

    void fornecedor(int cod, const QString& nome, int excluidos = 0)
    {
        b->banco().executar("INSERT INTO Fornecedor (CodFornecedor, NomeEmpresa, Excluidos) VALUES (?, ?, ?)",
                            {cod, nome, excluidos});
    }
    void abre()
    {
        tela = qobject_cast<Fornecedor*>(RegistroTelas::abrir("Fornecedor"));
        QVERIFY(tela);
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
    }
    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    QVariant coluna(const QString& col, int cod)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Fornecedor WHERE CodFornecedor = ?").arg(col), {cod});
    }
    int linhas() { return b->banco().escalar("SELECT COUNT(*) FROM Fornecedor").toInt(); }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.DireitoFornecedorAl = 1;
        s.UsuarioNome = "MARIA";
        s.CfgTipoLetra = "False";
        s.SenhaObrigatoria = 0;
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        b.reset();
    }

    void incluirComDocumento_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<QString>("gravado");
        QTest::newRow("right CNPJ stored as digits") << "11.222.333/0001-81" << "" << "11222333000181";
        QTest::newRow("wrong CNPJ: message and nothing kept") << "11222333000182" << MsgCnpjIncorreto << "";
        QTest::newRow("right CPF of a one-man supplier") << "11144477735" << "" << "11144477735";
    }
    void incluirComDocumento()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, mensagem);
        QFETCH(QString, gravado);
        fornecedor(9, "ANTIGA");
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(0), "ACME PEÇAS");
        digita(texto(4), digitado);
        QTest::keyClick(texto(4), Qt::Key_Tab);
        if (!mensagem.isEmpty())
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        digita(texto(7), "1133331000");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(coluna("NomeEmpresa", 10).toString(), QString("ACME PEÇAS"));
        QCOMPARE(coluna("CnpjCpf", 10).toString(), gravado);
        QCOMPARE(coluna("TelFax", 10).toString(), QString("1133331000"));
        QCOMPARE(coluna("Alterado", 10).toString(), QString("MARIA"));
        QCOMPARE(texto(4)->text(), gravado.isEmpty() ? QString() : MascaraCnpjCpf(gravado));
        QCOMPARE(texto(7)->text(), QString("(11)3333-1000"));
        QCOMPARE(tela->findChild<QLabel*>("Label2(0)")->text(), QString("10"));
    }

    void direitoESenhaNoUso()
    {
        fornecedor(1, "ACME");
        abre();
        sessao().DireitoFornecedorAl = 0;
        digita(texto(0), "X");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(coluna("NomeEmpresa", 1).toString(), QString("ACME"));

        sessao().DireitoFornecedorAl = 1;
        sessao().SenhaObrigatoria = -1;
        sessao().SenhaLiberada = 0;
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(sessao().SenhaOrigem, QString("Fornecedor"));
        QCOMPARE(coluna("NomeEmpresa", 1).toString(), QString("ACME"));
        sessao().SenhaLiberada = 1;
        QVERIFY(AcoesSenha::executar("Fornecedor"));
        QCOMPARE(coluna("NomeEmpresa", 1).toString(), QString("ACMEX"));
        sessao().SenhaObrigatoria = 0;
    }

    void buscaVivaMostraExcluidos_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("nome");
        QTest::newRow("name in the middle") << "ETA" << "BETA";
        QTest::newRow("code joined with the name") << "2BE" << "BETA";
        QTest::newRow("the code alone") << "1" << "ACME";
    }
    void buscaVivaMostraExcluidos()
    {
        QFETCH(QString, texto);
        QFETCH(QString, nome);
        fornecedor(1, "ACME");
        fornecedor(2, "BETA", -1);
        abre();
        QCOMPARE(tela->windowTitle(), QString("Cadastro de fornecedor    1   registros"));
        tela->findChild<QLineEdit*>("Text3")->setText(texto);
        QCOMPARE(this->texto(0)->text(), nome);
    }

    void exclusao_data()
    {
        QTest::addColumn<int>("permanente");
        QTest::newRow("soft: stamped, out of the register's list") << 0;
        QTest::newRow("permanent with DireitoPermanente") << 1;
    }
    void exclusao()
    {
        QFETCH(int, permanente);
        fornecedor(1, "ACME");
        fornecedor(2, "BETA");
        sessao().DireitoPermanente = permanente;
        abre();
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(linhas(), permanente ? 1 : 2);
        if (!permanente) {
            QCOMPARE(coluna("Excluidos", 1).toInt(), -1);
            QCOMPARE(coluna("Alterado", 1).toString(), QString("MARIA"));
        }
        tela->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        abre();
        QCOMPARE(tela->windowTitle(), QString("Cadastro de fornecedor    1   registros"));
        QCOMPARE(texto(0)->text(), QString("BETA"));
        sessao().DireitoPermanente = 0;
    }
};

QTEST_MAIN(TstFornecedor)
#include "tst_fornecedor.moc"
