#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "stock/ClassificacaoAliquota.h"
#include "stock/GrupoProduto.h"
#include "stock/Grupos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// Groups with their subgroups, and the tax classes: the screens as the product register
// opens them, the deletion of a group with its subgroups, and the ICMS kept whole.
class TstGrupoProduto : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<BancoTeste> b;

    int conta(const QString& tabela) { return b->banco().escalar(QString("SELECT COUNT(*) FROM %1").arg(tabela)).toInt(); }
    template <class W> static W* w(QWidget* tela, const QString& nome)
    {
        auto* x = tela->findChild<W*>(nome);
        if (!x)
            qFatal("no widget %s", qPrintable(nome));
        return x;
    }
    static void clica(QWidget* tela, int i) { QTest::mouseClick(w<QPushButton>(tela, QString("Botao(%1)").arg(i)), Qt::LeftButton); }
    static void escreve(QWidget* tela, const QString& caixa, const QString& texto)
    {
        auto* t = w<QLineEdit>(tela, caixa);
        t->setFocus();
        t->selectAll();
        QTest::keyClicks(t, texto);
    }
    static void clicaLinha(QWidget* tela, const QString& grade, int linha)
    {
        auto* g = w<QTableWidget>(tela, grade);
        emit g->cellClicked(linha, 0);
    }

private slots:
    void init()
    {
        b = std::make_unique<BancoTeste>(Motor::SQLite);
        QVERIFY(b->pronto());
        Conexoes::configurar(b->config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        sessao().CfgTipoLetra = "False";
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void abertasPeloNome()
    {
        for (const char* nome : {"GrupoProduto", "ClassificacaoAliquota"}) {
            QWidget* t = RegistroTelas::abrir(nome);
            QVERIFY2(t, nome);
            QVERIFY(t->findChild<QPushButton*>("Botao(2)"));
        }
        QCOMPARE(RegistroTelas::aberta("GrupoProduto")->windowTitle(), QString("Cadastro de grupo e subgrupo do produto"));
    }

    void grupoESubgruposIncluirAlterarExcluir()
    {
        GrupoProduto tela;
        tela.show();
        auto* abas = w<QTabWidget>(&tela, "TabGrupo");
        // empty name refused, nothing written
        clica(&tela, 0);
        clica(&tela, 0);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Não permitido salvar GRUPO se estiver vazio"));
        escreve(&tela, "TxtGrupo", "TELEVISORES");
        clica(&tela, 0);
        QCOMPARE(conta("GrupoProdutos"), 1);
        QCOMPARE(w<QPushButton>(&tela, "Botao(0)")->text(), QString("&Incluir"));
        const QString codGrupo = w<QLineEdit>(&tela, "TxtCod")->text();
        QVERIFY(!codGrupo.isEmpty());

        abas->setCurrentIndex(1);
        for (const char* s : {"LCD", "TUBO"}) {
            clica(&tela, 0);
            escreve(&tela, "TxtSubGrupo", s);
            clica(&tela, 0);
        }
        QCOMPARE(w<QTableWidget>(&tela, "GradeSubGrupo")->rowCount(), 2);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM SubGrupoProdutos WHERE CodGrupo = ?", {codGrupo}).toInt(), 2);
        clica(&tela, 0);
        clica(&tela, 0);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Não permitido salvar SUBGRUPO se estiver vazio"));
        clica(&tela, 1);  // cancel

        // typing over a chosen subgroup changes that row
        clicaLinha(&tela, "GradeSubGrupo", 0);
        escreve(&tela, "TxtSubGrupo", "LED");
        QCOMPARE(w<QPushButton>(&tela, "Botao(0)")->text(), QString("&Salvar"));
        clica(&tela, 0);
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM SubGrupoProdutos WHERE SubGrupo = 'LED'").toInt(), 1);
        QCOMPARE(conta("SubGrupoProdutos"), 2);

        // the group goes with its subgroups, after the question
        abas->setCurrentIndex(0);
        clicaLinha(&tela, "GradeGrupo", 0);
        Dialogos::Roteiro::responderNao();
        clica(&tela, 1);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(),
                 QString("Excluir registro Grupo  [ TELEVISORES ]  os itens de Sub grupo serão deletados ."));
        QCOMPARE(conta("GrupoProdutos"), 1);
        Dialogos::Roteiro::responderSim();
        clica(&tela, 1);
        QCOMPARE(conta("GrupoProdutos"), 0);
        QCOMPARE(conta("SubGrupoProdutos"), 0);
        clica(&tela, 1);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Não tem registro para excluir"));
    }

    void digitadoSemLinhaEscolhidaNaoSomeEmSilencio_data()
    {
        QTest::addColumn<QString>("tela");
        QTest::addColumn<QString>("caixa");
        QTest::addColumn<QString>("tabela");
        QTest::newRow("group") << "GrupoProduto" << "TxtGrupo" << "GrupoProdutos";
        QTest::newRow("tax class") << "ClassificacaoAliquota" << "TxtDescricao" << "ClassificaAliquota";
    }
    void digitadoSemLinhaEscolhidaNaoSomeEmSilencio()
    {
        QFETCH(QString, tela);
        QFETCH(QString, caixa);
        QFETCH(QString, tabela);
        QWidget* t = RegistroTelas::abrir(tela);
        QVERIFY(t);
        escreve(t, caixa, "ELETRONICOS");
        if (t->findChild<QLineEdit*>("TxtICMS"))
            escreve(t, "TxtICMS", "18");
        clica(t, 0);  // &Salvar, with no row chosen and no &Incluir
        QCOMPARE(conta(tabela), 1);
    }

    void linhaExcluidaEmOutraEstacao()
    {
        b->banco().executar("INSERT INTO GrupoProdutos (Grupo) VALUES ('AUDIO')");
        GrupoProduto tela;
        tela.show();
        clicaLinha(&tela, "GradeGrupo", 0);
        b->outraConexao()->executar("DELETE FROM GrupoProdutos");
        escreve(&tela, "TxtGrupo", "VIDEO");
        clica(&tela, 0);
        QVERIFY(Dialogos::Roteiro::contem("Este registro foi excluído em outra estação."));
        QCOMPARE(conta("GrupoProdutos"), 0);
    }

    void aliquota_data()
    {
        QTest::addColumn<QString>("descricao");
        QTest::addColumn<QString>("icms");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<int>("gravado");  // -1: nothing written
        QTest::newRow("whole rate") << "TRIBUTADO" << "18" << "" << 18;
        QTest::newRow("a half goes up") << "REDUZIDO" << "12,5" << "" << 13;
        QTest::newRow("below a half goes down") << "REDUZIDO" << "7,49" << "" << 7;
        QTest::newRow("letters are dropped at the key") << "ISENTO" << "a0b" << "" << 0;
        QTest::newRow("empty description") << "" << "18" << "Não permitido salvar Descrição se estiver vazio" << -1;
        QTest::newRow("empty rate") << "TRIBUTADO" << "" << "Não permitido salvar ALIQUOTA se estiver vazio" << -1;
        QTest::newRow("two commas") << "TRIBUTADO" << "1,2,3" << "Alíquota inválida: digite só o número, como 18 ou 17,5" << -1;
    }
    void aliquota()
    {
        QFETCH(QString, descricao);
        QFETCH(QString, icms);
        QFETCH(QString, mensagem);
        QFETCH(int, gravado);
        ClassificacaoAliquota tela;
        tela.show();
        clica(&tela, 0);
        escreve(&tela, "TxtDescricao", descricao);
        escreve(&tela, "TxtICMS", icms);
        clica(&tela, 0);
        if (gravado < 0) {
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
            QCOMPARE(conta("ClassificaAliquota"), 0);
            return;
        }
        QCOMPARE(b->banco().escalar("SELECT ICMS FROM ClassificaAliquota WHERE Descricao = ?", {descricao}).toInt(), gravado);
        QCOMPARE(w<QTableWidget>(&tela, "GradeAliquota")->item(0, 2)->text(), QString::number(gravado));
        Dialogos::Roteiro::responderSim();
        clica(&tela, 1);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Excluir registro classificação  [ %1 ]").arg(descricao));
        QCOMPARE(conta("ClassificaAliquota"), 0);
    }
};

QTEST_MAIN(TstGrupoProduto)
#include "tst_grupoproduto.moc"
