#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>

#include "apoio/GradeTeste.h"
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "ui/AmbienteTela.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "registers/Defeito.h"
#include "registers/PesquisaDefeito.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// The knowledge base of repairs and its list: what differs from every register (no
// right, no password, a deletion that always goes for good, the engine's own code, the
// search by code or brand) and the hand-back of the list.
class TstDefeito : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<BancoTeste> b;

    qint64 solucao(const QString& marca, const QString& defeito)
    {
        b->banco().executar("INSERT INTO DefeitoSolucionado (Marca, Modelo, Tipo, Defeito, Solucao, Observacao) "
                            "VALUES (?, 'M1', 'TV', ?, 'TROCAR FONTE', '')", {marca, defeito});
        return b->banco().escalar("SELECT MAX(CodDefeito) FROM DefeitoSolucionado").toLongLong();
    }
    int linhas() { return b->banco().escalar("SELECT COUNT(*) FROM DefeitoSolucionado").toInt(); }
    template <class W> static W* campo(QWidget* tela, const QString& nome)
    {
        auto* w = tela->findChild<W*>(nome);
        if (!w)
            qFatal("no widget %s", qPrintable(nome));
        return w;
    }
    static QPushButton* botao(QWidget* tela, int i) { return campo<QPushButton>(tela, QString("Botao(%1)").arg(i)); }
    static void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }

private slots:
    void init()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        Sessao& s = sessao();
        s.SenhaObrigatoria = -1;  // nor the password at use, even for a user who must give it
        s.SenhaLiberada = 0;
        s.UsuarioNome = "MARIA";
        s.CfgTipoLetra = "False";
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void incluiSemDireitoNemSenhaComCodigoDoBanco()
    {
        solucao("SAMSUNG", "SEM IMAGEM");
        Defeito tela;
        tela.show();
        QCOMPARE(tela.windowTitle(), QString("Cadastro de defeito    1   registros"));
        QTest::mouseClick(botao(&tela, 0), Qt::LeftButton);
        QCOMPARE(botao(&tela, 1)->toolTip(), QString("salva registro"));
        QCOMPARE(botao(&tela, 0)->toolTip(), QString("Cancela alteração"));
        digita(campo<QLineEdit>(&tela, "Text1(0)"), "LG");
        digita(campo<QPlainTextEdit>(&tela, "Text1(4)"), "Trocar o capacitor C12");
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        QCOMPARE(linhas(), 2);
        const qint64 cod = b->banco().escalar("SELECT CodDefeito FROM DefeitoSolucionado WHERE Marca = 'LG'").toLongLong();
        QVERIFY(cod > 0);
        QCOMPARE(b->banco().escalar("SELECT Solucao FROM DefeitoSolucionado WHERE CodDefeito = ?", {cod}).toString(),
                 QString("Trocar o capacitor C12"));
        QCOMPARE(b->banco().escalar("SELECT Modelo FROM DefeitoSolucionado WHERE CodDefeito = ?", {cod}).toString(),
                 QString(""));
        QCOMPARE(campo<QLabel>(&tela, "Label2(0)")->text(), QString::number(cod));
        QCOMPARE(tela.windowTitle(), QString("Cadastro de defeito    2   registros"));
    }

    void exclusaoSempreFisicaDepoisDaPergunta_data()
    {
        QTest::addColumn<bool>("sim");
        QTest::addColumn<int>("restam");
        QTest::newRow("yes deletes the row for good without DireitoPermanente") << true << 1;
        QTest::newRow("no keeps it") << false << 2;
    }
    void exclusaoSempreFisicaDepoisDaPergunta()
    {
        QFETCH(bool, sim);
        QFETCH(int, restam);
        solucao("AOC", "LIGA E DESLIGA");
        solucao("PHILCO", "SEM SOM");
        Defeito tela;
        tela.show();
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("AOC"));  // in brand order
        sim ? Dialogos::Roteiro::responderSim() : Dialogos::Roteiro::responderNao();
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        QCOMPARE(linhas(), restam);
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString(sim ? "PHILCO" : "AOC"));
    }

    void buscaVivaPorCodigoOuMarca_data()
    {
        QTest::addColumn<QString>("caixa");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("marca");
        QTest::addColumn<int>("total");
        QTest::newRow("brand box, middle of the brand, any case") << "Text3" << "msun" << "SAMSUNG" << 1;
        QTest::newRow("code box finds the code") << "Text2" << "@" << "PHILCO" << 1;
        QTest::newRow("a quote is only text") << "Text3" << "'" << "" << 0;
        QTest::newRow("emptied box lists all again") << "Text2" << "" << "PHILCO" << 2;
    }
    void buscaVivaPorCodigoOuMarca()
    {
        QFETCH(QString, caixa);
        QFETCH(QString, texto);
        QFETCH(QString, marca);
        QFETCH(int, total);
        solucao("SAMSUNG", "A");
        const qint64 philco = solucao("PHILCO", "B");
        Defeito tela;
        tela.show();
        auto* busca = campo<QLineEdit>(&tela, caixa);
        busca->setText("x");
        busca->setText(texto == "@" ? QString::number(philco) : texto);
        QCOMPARE(tela.windowTitle(), QString("Cadastro de defeito    %1   registros").arg(total));
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), marca);
    }

    void buscaPorCodigoEMarcaNosDoisMotores_data() { linhasMotores(); }
    void buscaPorCodigoEMarcaNosDoisMotores()
    {
        BANCO_DO_MOTOR(loja);
        Conexoes::configurar(loja.config());
        loja->executar("INSERT INTO DefeitoSolucionado (Marca, Modelo, Tipo, Defeito, Solucao, Observacao) "
                        "VALUES ('Gradiente', '', '', '', '', '')");
        loja->executar("INSERT INTO DefeitoSolucionado (Marca, Modelo, Tipo, Defeito, Solucao, Observacao) "
                        "VALUES ('CCE', '', '', '', '', '')");
        const qint64 cce = loja->escalar("SELECT CodDefeito FROM DefeitoSolucionado WHERE Marca = 'CCE'").toLongLong();
        Defeito tela;
        auto* marca = campo<QLineEdit>(&tela, "Text3");
        marca->setText("DIEN");
        QCOMPARE(tela.windowTitle(), QString("Cadastro de defeito    1   registros"));
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("Gradiente"));
        campo<QLineEdit>(&tela, "Text2")->setText(QString::number(cce) + "cc");  // code joined with the brand
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("CCE"));
        Conexoes::configurar(b->config());
    }

    void pesquisaListaTudoEAbreORegistro()
    {
        {
            PesquisaDefeito vazia;
            QCOMPARE(vazia.windowTitle(), QString("Busca Soluções"));
        }
        solucao("SONY", "NAO LIGA");
        const qint64 aoc = solucao("AOC", "SEM COR");
        PesquisaDefeito p;
        p.show();
        QCOMPARE(p.windowTitle(), QString("Busca Solução - 2 encontrados"));
        auto* grade = campo<QTableView>(&p, "Grade");
        QCOMPARE(GradeTeste::linhas(grade), 2);
        QCOMPARE(GradeTeste::celula(grade, 0, 1), QString("AOC"));
        GradeTeste::escolhe(grade, 0);
        auto* tela = qobject_cast<Defeito*>(RegistroTelas::aberta("Defeito"));
        QVERIFY(tela);
        QCOMPARE(tela->chaveAtual(), aoc);
        QCOMPARE(campo<QPlainTextEdit>(tela, "Text1(3)")->toPlainText(), QString("SEM COR"));
    }
};

QTEST_MAIN(TstDefeito)
#include "tst_defeito.moc"
