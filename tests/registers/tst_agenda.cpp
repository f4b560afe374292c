#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "apoio/GradeTeste.h"
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "ui/AmbienteTela.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "registers/Agenda.h"
#include "registers/PesquisaContato.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// The contact agenda and its list: the count in contacts, the CPF/CNPJ check, the
// search by code, the deletion for good and the hand-back of the list.
class TstAgenda : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<BancoTeste> b;

    qint64 contato(const QString& nome, const QString& telefone = "3333-4444")
    {
        b->banco().executar("INSERT INTO Contato (Nome, Endereco, Telefone, Email, NomeEmpresa, CpfCnpj, IeRg) "
                            "VALUES (?, '', ?, 'a@b.com', '', '', '')", {nome, telefone});
        return b->banco().escalar("SELECT MAX(Cod) FROM Contato").toLongLong();
    }
    QVariant coluna(const QString& col, const QString& nome)
    {
        return b->banco().escalar(QString("SELECT %1 FROM Contato WHERE Nome = ?").arg(col), {nome});
    }
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
        s.SenhaObrigatoria = -1;
        s.SenhaLiberada = 0;
        s.UsuarioNome = "MARIA";
        s.CfgTipoLetra = "False";
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        b.reset();
    }

    void cpfCnpjAoSairEAoSalvar_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<QString>("gravado");  // "-" nothing saved
        QTest::newRow("right CPF is masked and saved") << "52998224725" << "" << "52998224725";
        QTest::newRow("right CNPJ is masked and saved") << "11222333000181" << "" << "11222333000181";
        QTest::newRow("CPF with a wrong digit is refused") << "52998224724" << "CPF com DV incorreto !!!" << "-";
        QTest::newRow("CNPJ with a wrong digit is refused") << "11222333000182" << "CNPJ com DV incorreto !!! " << "-";
        QTest::newRow("twelve digits") << "123456789012"
                                       << "Tem que ser 11 numeros para CPF e 14 numeros para CNPJ\"" << "-";
        QTest::newRow("empty stays empty") << "" << "" << "";
    }
    void cpfCnpjAoSairEAoSalvar()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, mensagem);
        QFETCH(QString, gravado);
        Agenda tela;
        tela.show();
        QCOMPARE(tela.windowTitle(), QString("Agenda    0   contatos"));
        QTest::mouseClick(botao(&tela, 0), Qt::LeftButton);
        QCOMPARE(botao(&tela, 1)->toolTip(), QString("Salva registro"));
        digita(campo<QLineEdit>(&tela, "Text1(0)"), "Zé das Antenas");
        auto* cpf = campo<QLineEdit>(&tela, "Text1(5)");
        digita(cpf, digitado);
        QFocusEvent sai(QEvent::FocusOut);
        QApplication::sendEvent(cpf, &sai);
        if (mensagem.isEmpty()) {
            QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        } else {
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
            QVERIFY(cpf->text().isEmpty());
            QTRY_VERIFY(cpf->hasFocus() || !QApplication::focusWidget());
            digita(cpf, digitado);  // typed again, and the save refuses it too
            Dialogos::Roteiro::limpar();
        }
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        if (gravado == "-") {
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
            QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Contato").toInt(), 0);
            QCOMPARE(cpf->text(), digitado);  // a refused save empties nothing
            QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("Zé das Antenas"));
        } else {
            QCOMPARE(coluna("CpfCnpj", "Zé das Antenas").toString(), gravado);
            QCOMPARE(tela.windowTitle(), QString("Agenda    1   contatos"));
        }
    }

    void documentoGuardadoSoConfereSeAlterado()
    {
        // A contact from before the check, with a number that fails it.
        b->banco().executar("INSERT INTO Contato (Nome, Telefone, CpfCnpj) VALUES ('ZE', '1111', '123')");
        Agenda tela;
        tela.show();
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(5)")->text(), QString("123"));
        digita(campo<QLineEdit>(&tela, "Text1(2)"), "2");
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        QCOMPARE(coluna("Telefone", "ZE").toString(), QString("11112"));
        QCOMPARE(coluna("CpfCnpj", "ZE").toString(), QString("123"));
        QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
    }

    void buscaPeloCodigoEExclusaoFisica()
    {
        contato("ANA");
        const qint64 bruno = contato("BRUNO");
        Agenda tela;
        tela.show();
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("ANA"));  // by name
        campo<QLineEdit>(&tela, "Text2")->setText(QString::number(bruno));
        QCOMPARE(tela.windowTitle(), QString("Agenda    1   contatos"));
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("BRUNO"));
        campo<QLineEdit>(&tela, "Text2")->setText("x'");
        QCOMPARE(tela.windowTitle(), QString("Agenda    0   contatos"));
        campo<QLineEdit>(&tela, "Text2")->clear();
        QVERIFY(tela.irChave(bruno));
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Contato").toInt(), 1);
        QCOMPARE(campo<QLineEdit>(&tela, "Text1(0)")->text(), QString("ANA"));
        QCOMPARE(tela.windowTitle(), QString("Agenda    1   contatos"));
    }

    void linhaColadaFicaNumaLinha()
    {
        contato("ANA");
        Agenda tela;
        tela.show();
        auto* endereco = campo<QLineEdit>(&tela, "Text1(1)");
        endereco->setFocus();
        endereco->selectAll();
        endereco->insert("RUA A, 10\nCENTRO");  // what a paste does
        QCOMPARE(endereco->text(), QString("RUA A, 10 CENTRO"));
        QTest::mouseClick(botao(&tela, 1), Qt::LeftButton);
        QCOMPARE(coluna("Endereco", "ANA").toString(), QString("RUA A, 10 CENTRO"));
    }

    void pesquisaListaPorNomeEAbreAAgenda()
    {
        {
            PesquisaContato vazia;
            QCOMPARE(vazia.windowTitle(), QString("Busca agenda"));
        }
        contato("ZECA", "1111");
        const qint64 ana = contato("ANA", "2222");
        PesquisaContato p;
        p.show();
        QCOMPARE(p.windowTitle(), QString("Busca agenda - 2 encontrados"));
        auto* grade = campo<QTableView>(&p, "Grade");
        QCOMPARE(GradeTeste::colunas(grade), 3);
        QCOMPARE(GradeTeste::celula(grade, 0, 0), QString("ANA"));
        QCOMPARE(GradeTeste::celula(grade, 0, 1), QString("2222"));
        emit grade->doubleClicked(grade->model()->index(0, 0));
        auto* tela = qobject_cast<Agenda*>(RegistroTelas::aberta("Agenda"));
        QVERIFY(tela);
        QCOMPARE(tela->chaveAtual(), ana);
    }
};

QTEST_MAIN(TstAgenda)
#include "tst_agenda.moc"
