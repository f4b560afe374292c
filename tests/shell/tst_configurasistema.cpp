#include <QCheckBox>
#include <QLabel>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

#include "AmbienteShell.h"
#include "apoio/BancoTeste.h"
#include "shell/ConfiguraSistemaDados.h"
#include "data/FuncoesCores.h"
#include "data/Numeracao.h"
#include "shell/ConfiguraSistema.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"

// The configuration screen: the defaults written for empty fields, the order counter, a
// first start with no store, the catalogue grids written with the Empresa row as one
// save, and the sale password kept only as a hash.
class TstConfiguraSistema : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<AmbienteShell> amb;

    QVariant empresa(const QString& col)
    {
        auto b = Banco::abrir(Conexoes::config());
        return b->escalar(QString("SELECT %1 FROM Empresa").arg(col));
    }
    int conta(const QString& tabela)
    {
        auto b = Banco::abrir(Conexoes::config());
        return b->escalar(QString("SELECT COUNT(*) FROM %1").arg(tabela)).toInt();
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
        QTest::keyClicks(le, texto);
    }
    static void clica(QWidget* t, const QString& nome)
    {
        auto* b = w<QAbstractButton>(t, nome);
        // An option's sensitive area is its text, not the whole width it is given.
        if (qobject_cast<QRadioButton*>(b))
            b->click();
        else
            QTest::mouseClick(b, Qt::LeftButton);
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
    }

    void camposVaziosGravamOsPadroes_data()
    {
        QTest::addColumn<QString>("coluna");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("name size 12") << "NomeTamanho" << "12";
        QTest::newRow("address size 10") << "EnderecoTamanho" << "10";
        QTest::newRow("sales size 10") << "VendasTamanho" << "10";
        QTest::newRow("CPF/CNPJ size 8") << "CpfCnpjTamanho" << "8";
        QTest::newRow("warning days 3") << "DiaAviso" << "3";
        QTest::newRow("side menu group") << "DefineMenu" << "04-Ordem serviço";
        QTest::newRow("picture folder") << "PastaImagem" << "Toldex\\Imagem";
        QTest::newRow("empty sale password stays empty") << "SenhaVenda" << "";
    }
    void camposVaziosGravamOsPadroes()
    {
        QFETCH(QString, coluna);
        QFETCH(QString, esperado);
        ConfiguraSistema tela;
        tela.show();
        w<QComboBox>(&tela, "ComboDia")->setEditText("");
        w<QComboBox>(&tela, "CMenu")->setCurrentIndex(-1);
        escreve(&tela, "Text1(0)", "ELETRO SILVA");
        const bool ok = tela.salvar();
        QVERIFY2(ok, qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(empresa(coluna).toString(), esperado);
        QCOMPARE(LeIni("Impressao", "NOsEntrada", amb->ini()), QString("1"));  // empty copies box
        QCOMPARE(LeIni("Impressao", "Visita", amb->ini()), QString("1"));
    }

    void codOsEsvaziadoFazAProximaSerUm()
    {
        amb->sql("UPDATE Empresa SET NomeEmpresa = 'X', CodOs = 57, CodOsfabrica = 9");
        ConfiguraSistema tela;
        tela.show();
        QCOMPARE(w<QLineEdit>(&tela, "TxtOS")->text(), QString("57"));
        escreve(&tela, "TxtOS", "");
        QTest::keyClicks(w<QLineEdit>(&tela, "TxtOsFabrica"), "a");  // letters don't enter a counter
        QCOMPARE(w<QLineEdit>(&tela, "TxtOsFabrica")->text(), QString("9"));
        QCOMPARE(w<QPushButton>(&tela, "Botao(1)")->text(), QString("&Cancelar"));
        w<QCheckBox>(&tela, "Check4(2)")->setChecked(true);
        sessao().CfgTipoLetra = "False";
        clica(&tela, "Botao(0)");
        QCOMPARE(sessao().CfgTipoLetra, QString("True"));  // the session follows the save
        QCOMPARE(empresa("CodOs").toInt(), 0);
        QCOMPARE(empresa("CodOsfabrica").toInt(), 9);
        QCOMPARE(conta("Empresa"), 1);
        QCOMPARE(Numeracao::proximoDe(empresa("CodOs").toString()), 1);
        QCOMPARE(w<QPushButton>(&tela, "Botao(1)")->text(), QString("Sa&ir"));
    }

    void outraEstacaoNoMeioDaConfiguracao_data()
    {
        QTest::addColumn<QString>("contadorDigitado");  // empty: the counter box is left alone
        QTest::addColumn<bool>("grava");
        QTest::addColumn<int>("codOs");
        QTest::newRow("another change keeps the counter and the new defect") << "" << true << 12;
        QTest::newRow("a counter typed over one that moved is refused") << "20" << false << 12;
    }
    void outraEstacaoNoMeioDaConfiguracao()
    {
        QFETCH(QString, contadorDigitado);
        QFETCH(bool, grava);
        QFETCH(int, codOs);
        amb->sql("UPDATE Empresa SET NomeEmpresa = 'X', CodOs = 10, AtivaOs = -1");
        amb->sql("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('1', 'NAO DESLIGA')");
        ConfiguraSistema tela;
        tela.show();
        // Meanwhile the intake at another station saves two orders and a new defect.
        auto outra = Banco::abrir(Conexoes::config());
        outra->executar("UPDATE Empresa SET CodOs = 12");
        outra->executar("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('2', 'NAO LIGA')");
        outra->executar("INSERT INTO SintomaOS (CodOsAut, DefeitoOS) VALUES (1, 'NAO LIGA')");
        escreve(&tela, "Text1(0)", "ELETRO SILVA");
        if (!contadorDigitado.isEmpty())
            escreve(&tela, "TxtOS", contadorDigitado);
        QCOMPARE(tela.salvar(), grava);
        QCOMPARE(empresa("CodOs").toInt(), codOs);
        QCOMPARE(empresa("NomeEmpresa").toString(), QString(grava ? "ELETRO SILVA" : "X"));
        QCOMPARE(conta("DefeitoReclamado"), 2);
        if (!grava) {
            QVERIFY(Dialogos::Roteiro::contem("Este registro foi alterado em outra estação."));
            QCOMPARE(w<QLineEdit>(&tela, "TxtOS")->text(), contadorDigitado);  // the typing stays
        }
    }

    void documentoDaLojaGuardadoComoDigitos()
    {
        ConfiguraSistema tela;
        tela.show();
        escreve(&tela, "Text1(10)", "52998224725");
        escreve(&tela, "Text1(0)", "ELETRO SILVA");
        QVERIFY(tela.salvar());
        QCOMPARE(empresa("CpfCnpj").toString(), QString("52998224725"));
        ConfiguraSistema outra;
        outra.show();
        QCOMPARE(w<QLineEdit>(&outra, "Text1(10)")->text(), QString("529-982-247/25"));
    }

    void gravacaoSoDoQueMudouNosDoisMotores_data() { linhasMotores(); }
    void gravacaoSoDoQueMudouNosDoisMotores()
    {
        BANCO_DO_MOTOR(b);
        namespace D = ConfiguraSistemaDados;
        b->executar("UPDATE Empresa SET CodOs = 10, CodOsfabrica = 5");
        b->executar("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('1', 'NAO DESLIGA')");
        const QVariantMap lida = D::leEmpresa(b.banco());
        const QList<D::Linha> defeitos = D::leCatalogo(b.banco(), D::catalogos()[3]);
        auto outra = b.outraConexao();
        outra->executar("UPDATE Empresa SET CodOs = 12");
        outra->executar("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('2', 'NAO LIGA')");
        QVariantMap nova = lida;
        nova["NomeEmpresa"] = "ELETRO SILVA";
        D::grava(b.banco(), lida, nova, {{"Defeito", {defeitos, {}}}});
        QCOMPARE(b->escalar("SELECT CodOs FROM Empresa").toInt(), 12);
        QCOMPARE(b->escalar("SELECT NomeEmpresa FROM Empresa").toString(), QString("ELETRO SILVA"));
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM DefeitoReclamado").toInt(), 2);
        // The counter typed over one that moved is refused, and nothing of the save stays.
        nova["CodOs"] = "20";
        nova["NomeEmpresa"] = "OUTRO NOME";
        QVERIFY_THROWS_EXCEPTION(RegistroAlterado, D::grava(b.banco(), lida, nova, {}));
        QCOMPARE(b->escalar("SELECT CodOs FROM Empresa").toInt(), 12);
        QCOMPARE(b->escalar("SELECT NomeEmpresa FROM Empresa").toString(), QString("ELETRO SILVA"));
        // A line changed at the grid over one changed elsewhere is refused as well.
        outra->executar("UPDATE DefeitoReclamado SET Defeito = 'NAO DESLIGA NUNCA' WHERE CodDefeito = '1'");
        QList<D::Linha> mudadas = defeitos;
        mudadas[0].valores[1] = "DESLIGA SOZINHO";
        QVERIFY_THROWS_EXCEPTION(RegistroAlterado, D::grava(b.banco(), D::leEmpresa(b.banco()), nova,
                                                             {{"Defeito", {mudadas, {}}}}));
    }

    void contadorInteiroNaCaixa()
    {
        amb->sql("UPDATE Empresa SET CodOs = 123456789");
        ConfiguraSistema tela;
        tela.show();
        QCOMPARE(w<QLineEdit>(&tela, "TxtOS")->text(), QString("123456789"));
        escreve(&tela, "Text1(0)", "ELETRO SILVA");
        QVERIFY(tela.salvar());
        QCOMPARE(empresa("CodOs").toLongLong(), 123456789);
    }

    void primeiraPartidaSemConexaoGravaOIni()
    {
        sessao().ConexaoOk = 0;
        AmbienteShell::todosOsDireitos(0);  // nobody has logged in yet
        ConfiguraSistema tela;
        tela.show();
        auto* abas = w<QTabWidget>(&tela, "Tabuleiro");
        QCOMPARE(abas->count(), 1);
        QCOMPARE(abas->tabText(0), QString("Servidor"));
        clica(&tela, "Option1(1)");
        QVERIFY(w<QLabel>(&tela, "LblServidor")->text().contains("Digite o caminho do servidor,"));
        escreve(&tela, "Text3", "\\\\BALCAO\\Toldex");
        QVERIFY(tela.salvar());
        QCOMPARE(LeIni("Local", "Servidor", amb->ini()), QString("False"));
        QCOMPARE(LeIni("Local", "Estacao", amb->ini()), QString("True"));
        QCOMPARE(LeIni("Local", "Caminho", amb->ini()), QString("\\\\BALCAO\\Toldex"));
        QCOMPARE(empresa("NomeEmpresa").toString(), QString(""));
        clica(&tela, "Option1(0)");
        QVERIFY(w<QLabel>(&tela, "LblServidor")->text().contains("Este será o computador principal,"));
    }

    void semDireitoNadaEGravado()
    {
        sessao().DireitoConfiguracao = 0;
        ConfiguraSistema tela;
        tela.show();
        escreve(&tela, "Text1(0)", "X");
        QVERIFY(!tela.salvar());
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(empresa("NomeEmpresa").toString(), QString(""));
    }

    void gradesDosCatalogosNumaSoGravacao()
    {
        amb->sql("INSERT INTO MarcaProduto (MarcaAparelho) VALUES ('PHILCO')");
        amb->sql("INSERT INTO MarcaProduto (MarcaAparelho) VALUES ('SEMP')");
        ConfiguraSistema tela;
        tela.show();
        auto* marcas = w<QTableWidget>(&tela, "GradeMarca");
        QCOMPARE(marcas->rowCount(), 2);
        clica(&tela, "AdicionaMarca");
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Coloque a Marca"));
        escreve(&tela, "TxtMarca(0)", "LG");
        clica(&tela, "AdicionaMarca");
        marcas->setCurrentCell(0, 0);
        Dialogos::Roteiro::responderSim();
        clica(&tela, "RemoveMarca");
        QVERIFY(Dialogos::Roteiro::contem("Registro será excluído,deseja excluir ?"));

        clica(&tela, "AdicionaTipo");
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Coloque o tipo"));
        escreve(&tela, "TxtTipo(0)", "TV");
        QTest::keyClicks(w<QLineEdit>(&tela, "TxtValorTipo(1)"), "1x2,5");  // letters refused at the key
        QCOMPARE(w<QLineEdit>(&tela, "TxtValorTipo(1)")->text(), QString("12,5"));
        w<QCheckBox>(&tela, "ChkTipo(2)")->setChecked(true);
        clica(&tela, "AdicionaTipo");
        escreve(&tela, "TxtTipo(0)", "RADIO");
        escreve(&tela, "TxtValorTipo(1)", "");
        clica(&tela, "AdicionaTipo");
        QCOMPARE(w<QTableWidget>(&tela, "GradeTipo")->item(1, 1)->text(), QString("0,00"));
        // Nothing reaches the store before the save.
        QCOMPARE(conta("PorcenTecnico"), 0);
        QCOMPARE(conta("MarcaProduto"), 2);

        // A failure in the middle writes nothing at all, Empresa included.
        amb->sql("ALTER TABLE MarcaProduto RENAME TO MarcaGuardada");
        escreve(&tela, "Text1(0)", "ELETRO SILVA");
        QVERIFY(!tela.salvar());
        QVERIFY(Dialogos::Roteiro::contem("Erro gravação ,Informe o erro ao suporte."));
        amb->sql("ALTER TABLE MarcaGuardada RENAME TO MarcaProduto");
        QCOMPARE(empresa("NomeEmpresa").toString(), QString(""));
        QCOMPARE(conta("PorcenTecnico"), 0);
        QCOMPARE(conta("MarcaProduto"), 2);

        auto b = Banco::abrir(Conexoes::config());
        QVERIFY(tela.salvar());
        QCOMPARE(empresa("NomeEmpresa").toString(), QString("ELETRO SILVA"));
        QCOMPARE(b->escalar("SELECT ValorTipo FROM PorcenTecnico WHERE Tipo = 'TV'").toLongLong(), 1250);
        QCOMPARE(b->escalar("SELECT porcentagem FROM PorcenTecnico WHERE Tipo = 'TV'").toInt(), -1);
        QCOMPARE(b->escalar("SELECT ValorTipo FROM PorcenTecnico WHERE Tipo = 'RADIO'").toLongLong(), 0);
        QCOMPARE(conta("MarcaProduto"), 2);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM MarcaProduto WHERE MarcaAparelho IN ('LG', 'SEMP')").toInt(), 2);
    }

    // After "Adicionar" the boxes are empty for the next entry; "Alterar" keeps them.
    void adicionarLimpaAsCaixas()
    {
        ConfiguraSistema tela;
        tela.show();
        auto* grade = w<QTableWidget>(&tela, "GradeTipo");
        const int antes = grade->rowCount();
        escreve(&tela, "TxtTipo(0)", "TV");
        escreve(&tela, "TxtValorTipo(1)", "12,50");
        w<QCheckBox>(&tela, "ChkTipo(2)")->setChecked(true);
        clica(&tela, "AdicionaTipo");
        QCOMPARE(grade->rowCount(), antes + 1);
        QCOMPARE(grade->item(antes, 0)->text(), QString("TV"));
        QCOMPARE(w<QLineEdit>(&tela, "TxtTipo(0)")->text(), QString());
        QCOMPARE(w<QLineEdit>(&tela, "TxtValorTipo(1)")->text(), QString());
        QVERIFY(!w<QCheckBox>(&tela, "ChkTipo(2)")->isChecked());
        escreve(&tela, "TxtTipo(0)", "RADIO");
        clica(&tela, "AlteraTipo");
        QCOMPARE(grade->item(antes, 0)->text(), QString("RADIO"));
        QCOMPARE(w<QLineEdit>(&tela, "TxtTipo(0)")->text(), QString("RADIO"));
    }

    void senhaDeVendaGuardadaComoHash()
    {
        ConfiguraSistema tela;
        tela.show();
        escreve(&tela, "Text9", "caixa123");
        QVERIFY(tela.salvar());
        const QString guardada = empresa("SenhaVenda").toString();
        QVERIFY(guardada != "caixa123");
        QVERIFY(Senhas::confere("caixa123", guardada));
        // A later save that doesn't touch the box keeps it.
        ConfiguraSistema outra;
        escreve(&outra, "Text1(0)", "Y");
        QVERIFY(outra.salvar());
        QCOMPARE(empresa("SenhaVenda").toString(), guardada);
    }

    void imagemQueNaoEImagemEDocumentos()
    {
        const QString falsa = amb->pasta() + "/logo.jpg";
        QFile f(falsa);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("isto nao e uma imagem");
        f.close();
        const QString boa = amb->pasta() + "/boa.png";
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(Qt::red);
        QVERIFY(img.save(boa));
        ConfiguraSistema tela;
        tela.show();
        Dialogos::Roteiro::responder(falsa);
        clica(&tela, "Logo");
        QVERIFY(Dialogos::Roteiro::ultimoTexto().contains("não é uma imagem"));
        QVERIFY(w<QLineEdit>(&tela, "TxtFoto")->text().isEmpty());
        Dialogos::Roteiro::responder(boa);
        clica(&tela, "ImagemImprimir");
        Dialogos::Roteiro::responder(QString("/docs/entrada.docx"));
        clica(&tela, "Localiza(0)");
        clica(&tela, "Option3(2)");
        QVERIFY(tela.salvar());
        QCOMPARE(LeIni("Imagem", "FotoImprimir", amb->ini()), boa);
        QCOMPARE(LeIni("Impressao", "OrdemEntrada", amb->ini()), QString("/docs/entrada.docx"));
        QCOMPARE(LeIni("Impressao", "EditaEntrada", amb->ini()), QString("1"));
        QCOMPARE(LeIni("Impressao", "DiretoEntrada", amb->ini()), QString("0"));
    }

    void testeDeConexaoMostraTesteOk_data()
    {
        QTest::addColumn<QString>("testeOk");
        QTest::newRow("text as it stands") << "Conexão OK - servidor BALCAO";
        QTest::newRow("empty column gives an empty box") << "";
    }
    void testeDeConexaoMostraTesteOk()
    {
        QFETCH(QString, testeOk);
        amb->sql("UPDATE Empresa SET TesteOk = ?", {testeOk});
        ConfiguraSistema tela;
        tela.show();
        w<QLineEdit>(&tela, "TxtTesteOk")->setText("velho");
        sessao().ConexaoOk = 0;
        clica(&tela, "Botao(2)");
        QCOMPARE(w<QLineEdit>(&tela, "TxtTesteOk")->text(), testeOk);
        QCOMPARE(sessao().ConexaoOk, 1);
        QCOMPARE(LeIni("Local", "Servidor", amb->ini()), QString("True"));
    }

    void coresEscolhidasEPadrao()
    {
        ConfiguraSistema tela;
        tela.show();
        Dialogos::Roteiro::responder(QColor(0, 0, 255));
        clica(&tela, "Botao(4)");
        QVERIFY(!LeIni("CorFundo", "0", amb->ini()).isEmpty());
        QCOMPARE(sessao().CorFundo, QColor(0, 0, 255));
        clica(&tela, "Botao(6)");
        QVERIFY(LeIni("CorFundo", "0", amb->ini()).isEmpty());
        QCOMPARE(sessao().CorFundo, CorBotaoSistema());
    }
};

QTEST_MAIN(TstConfiguraSistema)
#include "tst_configurasistema.moc"
