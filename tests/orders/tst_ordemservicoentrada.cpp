#include <QAction>
#include <QCheckBox>
#include <QTemporaryDir>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Conexoes.h"
#include "data/ArquivoIni.h"
#include "data/Datas.h"
#include "documents/Visualizador.h"
#include "orders/GravacaoOrdem.h"
#include "orders/OrdemServicoEntrada.h"
#include "orders/TransicoesOrdem.h"
#include "registers/PesquisaCliente.h"
#include "shell/Avisos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

using namespace ApoioOrdens;

// The counter attendant's work on the intake screen: boxes by name, keys, answers to the
// dialogs, and what the store holds afterwards.
class TstOrdemServicoEntrada : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    OrdemServicoEntrada* tela = nullptr;

    void abre()
    {
        tela = qobject_cast<OrdemServicoEntrada*>(RegistroTelas::abrir("OrdemServicoEntrada"));
        QVERIFY(tela);
        tela->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tela));
    }
    QLineEdit* texto(int i) { return tela->findChild<QLineEdit*>(QString("Text1(%1)").arg(i)); }
    QPushButton* botao(int i) { return tela->findChild<QPushButton*>(QString("Botao(%1)").arg(i)); }
    QComboBox* combo(int i) { return tela->findChild<QComboBox*>(QString("Combo%1").arg(i)); }
    void digita(QWidget* w, const QString& t)
    {
        w->setFocus();
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void sai(QWidget* w) { QTest::keyClick(w, Qt::Key_Tab); }
    QVariant escalar(const QString& sql, const QVariantList& v = {}) { return b->banco().escalar(sql, v); }
    int contar(const QString& tabela) { return escalar("SELECT COUNT(*) FROM " + tabela).toInt(); }
    // A new order typed for a customer who isn't registered.
    void novaOrdem(const QString& nome, const QString& cpf = {})
    {
        QTest::mouseClick(botao(0), Qt::LeftButton);
        if (!cpf.isEmpty()) {
            digita(texto(2), cpf);
            sai(texto(2));
        }
        digita(texto(3), nome);
        digita(texto(4), "RUA DAS FLORES");
        combo(1)->setFocus();
        digita(combo(1)->lineEdit(), "TV");
        sai(combo(1));
    }

    // The rows of a test that runs on both engines: the store of the row's engine.
    bool motorDaLinha()
    {
        QFETCH(int, motor);
        b = std::make_unique<BancoTeste>(static_cast<Motor>(motor));
        if (!b->pronto())
            return false;
        Conexoes::configurar(b->config());
        return true;
    }

private slots:
    void init()
    {
        b = std::make_unique<BancoTeste>(Motor::SQLite);
        QVERIFY(b->pronto());
        Conexoes::configurar(b->config());
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        sessaoCompleta();
        Sessao& s = sessao();
        s.CfgTipoLetra = "False";
        s.CfgPorcentSN = 0;
        s.SenhaObrigatoria = 0;
        s.SenhaLiberada = 0;
    }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        b.reset();
    }

    void novoClienteENovaOrdemNaMesmaGravacao_data() { linhasMotores(); }
    void novoClienteENovaOrdemNaMesmaGravacao()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        abre();
        novaOrdem("JOSE DA SILVA", "52998224725");
        QVERIFY(tela->clienteNovo());
        QCOMPARE(texto(2)->text(), QString("529-982-247/25"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("Cliente"), 1);
        QCOMPARE(contar("OrdemServico"), 1);
        QCOMPARE(escalar("SELECT CodOs FROM OrdemServico").toInt(), 1);
        QCOMPARE(escalar("SELECT CodCliente FROM OrdemServico").toString(),
                 escalar("SELECT CodCliente FROM Cliente").toString());
        QCOMPARE(escalar("SELECT DataEntrada FROM OrdemServico").toString(), Datas::hoje());
        QCOMPARE(escalar("SELECT OsAlterado FROM OrdemServico").toString(), QString("ANA"));
        QCOMPARE(escalar("SELECT Tipo FROM PorcenTecnico").toString(), QString("TV"));  // joined the list
        QCOMPARE(escalar("SELECT Tipo FROM OrdemServico").toString(), QString("TV"));
        QVERIFY(!tela->clienteNovo());
        QCOMPARE(botao(1)->text(), QString("&Excluir"));
        QVERIFY(tela->windowTitle().startsWith("Cadastro de Ordem de Serviço   1   registros"));
        QVERIFY(tela->windowTitle().endsWith("  --------   Alterado por: ANA"));
    }

    void entradaRuimNaoGrava_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<QString>("saida");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("no name") << "" << "" << "" << "Coloque o nome do cliente";
        QTest::newRow("departure before entry")
            << "ANA" << "10/05/2026" << "09/05/2026" << "A data de saída não pode ser anterior";
        QTest::newRow("impossible date") << "ANA" << "31/02/2026" << "" << "Data de entrada inválida";
    }
    void entradaRuimNaoGrava()
    {
        QFETCH(QString, nome);
        QFETCH(QString, entrada);
        QFETCH(QString, saida);
        QFETCH(QString, mensagem);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(3), nome);
        digita(texto(8), "1234");
        for (auto [i, t] : {std::pair{24, entrada}, std::pair{25, saida}}) {
            QTest::mouseDClick(texto(i), Qt::LeftButton);
            QVERIFY(!texto(i)->isReadOnly());
            digita(texto(i), t);
        }
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(contar("OrdemServico"), 0);
        QCOMPARE(texto(8)->text(), QString("(00)0000-1234"));  // what was typed stays, masked
        QCOMPARE(botao(1)->text(), QString("&Salvar"));
    }

    void documentoAoSairDaCaixa_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mensagem");
        QTest::addColumn<QString>("fica");
        QTest::newRow("cpf with wrong check digit is cleared") << "52998224724" << "CPF com DV incorreto !!!" << "";
        QTest::newRow("too short") << "123" << "Tem que ser 11 numeros para CPF e 14 numeros para CNPJ" << "";
        QTest::newRow("twelve digits keep the old slip") << "123456789012"
                                                         << "Tem que ser 11 numeros para CPF e 14 numeros para CNPJ\"" << "";
        QTest::newRow("cnpj is masked") << "11222333000181" << "" << "11-222-333-0001/81";
    }
    void documentoAoSairDaCaixa()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, mensagem);
        QFETCH(QString, fica);
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(2), digitado);
        sai(texto(2));
        if (mensagem.isEmpty())
            QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        else
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        QCOMPARE(texto(2)->text(), fica);
        QCOMPARE(tela->clienteNovo(), !fica.isEmpty());
    }

    void clienteExistentePeloCpfMesmoBloqueado_data() { linhasMotores(); }
    void clienteExistentePeloCpfMesmoBloqueado()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Endereco, Complemento, Numero, Cidade, "
                            "CnpjCpf, BloqCliente) VALUES (7, 'MARIA', 'RUA A', 'AP 3', '12', 'RECIFE', "
                            "'529-982-247/25', -1)");
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(2), "52998224725");
        sai(texto(2));
        QVERIFY(Dialogos::Roteiro::contem("Cliente bloqueado,verifique o seu cadastro para saber o motivo."));
        QCOMPARE(texto(3)->text(), QString("MARIA"));
        QCOMPARE(texto(4)->text(), QString("RUA A-AP 3"));
        QCOMPARE(texto(10)->text(), QString("7"));
        QVERIFY(!tela->clienteNovo());
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("Cliente"), 1);
        QCOMPARE(escalar("SELECT CodCliente FROM OrdemServico").toString(), QString("7"));
    }

    void clientePelaPesquisaEMesmoClienteNaProxima()
    {
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, Endereco, Telefone) "
                            "VALUES (9, 'MARCOS LIMA', 'AV. SUL', '3333')");
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(3), "MARCOS");
        QTest::mouseClick(botao(4), Qt::LeftButton);
        auto* p = qobject_cast<PesquisaCliente*>(RegistroTelas::aberta("PesquisaCliente"));
        QVERIFY(p);
        QCOMPARE(p->findChild<QLineEdit*>("Text1(1)")->text(), QString("MARCOS"));
        p->pesquisa();
        QCOMPARE(p->encontrados(), 1);
        p->escolhe(0);
        QCOMPARE(texto(3)->text(), QString("MARCOS LIMA"));
        QCOMPARE(texto(10)->text(), QString("9"));
        digita(texto(12), "TV 29");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("Cliente"), 1);
        // The next order for the same customer keeps the address, not the appliance or dates.
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Incluir mesmo cliente ?"));
        QCOMPARE(texto(4)->text(), QString("AV. SUL"));
        QVERIFY(texto(12)->text().isEmpty());
        QVERIFY(texto(0)->text().isEmpty());
        QVERIFY(texto(24)->text().isEmpty());
        QVERIFY(combo(1)->currentText().isEmpty());
        QCOMPARE(combo(1)->lineEdit()->placeholderText(), QString("Selecione ao lado o Tipo -->"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT COUNT(*) FROM OrdemServico WHERE CodCliente = '9'").toInt(), 2);
    }

    // Phones as the staff type them: shown with the mask of their length, stored as digits.
    void telefonesMascaradosGuardamDigitos_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mostrado");
        QTest::addColumn<QString>("guardado");
        QTest::newRow("celular de onze digitos") << "19991234567" << "(19)99123-4567" << "19991234567";
        QTest::newRow("fixo de dez digitos") << "1932221111" << "(19)3222-1111" << "1932221111";
        QTest::newRow("colado com pontuacao e espaco") << "(19) 99123-4567" << "(19)99123-4567" << "19991234567";
    }
    void telefonesMascaradosGuardamDigitos()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, mostrado);
        QFETCH(QString, guardado);
        abre();
        novaOrdem("JOSE", "52998224725");
        for (int campo : {8, 9}) {
            digita(texto(campo), digitado);
            sai(texto(campo));
            QCOMPARE(texto(campo)->text(), mostrado);
        }
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT Telefone FROM OrdemServico").toString(), guardado);
        QCOMPARE(escalar("SELECT Celular FROM OrdemServico").toString(), guardado);
        QCOMPARE(escalar("SELECT Celular FROM Cliente").toString(), guardado);
        QCOMPARE(texto(9)->text(), mostrado);
    }

    // The print button's menu saves the sheet as a PDF under the order's name and opens it,
    // on any machine and whatever the settings.
    void salvarEmPdfPeloBotaoImprimir()
    {
        QTemporaryDir pasta;
        sessao().ArquivoIni = pasta.filePath("Toldex.ini");
        ArquivoIni(sessao().ArquivoIni).gravar("Impressao", "ImprimePadrao", "1");
        QStringList abertos;
        Visualizador::definir([&](const QString& a) { abertos << a; return true; });
        abre();
        novaOrdem("JOSE DA SILVA");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        const QString arquivo = pasta.filePath("ficha.pdf");
        Dialogos::Roteiro::limpar();
        Dialogos::Roteiro::responder(arquivo);
        auto* acao = botao(2)->findChild<QAction*>("AcaoSalvarPdf");
        QVERIFY(acao);
        QVERIFY(botao(2)->actions().contains(acao));
        acao->trigger();
        Visualizador::definir({});
        sessao().ArquivoIni.clear();
        QCOMPARE(Dialogos::Roteiro::registros().size(), 1);
        QVERIFY(Dialogos::Roteiro::registros().first().texto.endsWith("/O.S 1 - Entrada.pdf"));
        QVERIFY(QFile::exists(arquivo));
        QCOMPARE(abertos, QStringList{arquivo});
    }

    void clienteSoComONome()
    {
        // Boxes never typed into are stored as empty text: the columns take no NULL.
        EntradaRegras::ClienteBalcao c;
        c.NomeCliente = "SO NOME";
        QCOMPARE(EntradaRegras::gravarClienteNovo(b->banco(), c), qint64(1));
        QCOMPARE(escalar("SELECT Endereco FROM Cliente").toString(), QString(""));
    }

    void semDireitoGuardaOClienteERecusaAOrdem()
    {
        abre();
        novaOrdem("JOSE", "52998224725");
        sessao().DireitoOsEntAl = 0;
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("Cliente"), 1);
        QCOMPARE(contar("OrdemServico"), 0);
        QCOMPARE(texto(10)->text(), QString("1"));
    }

    void aspasETextoLongoVoltamComoForam()
    {
        sessao().CfgAtivaDef = "False";
        abre();
        novaOrdem("D'ÁVILA \"ZÉ\"");
        const QString longo = QString(10000, QLatin1Char('x'));
        auto* sintoma = tela->findChild<QPlainTextEdit*>("Text1(21)");
        QVERIFY(sintoma->isVisibleTo(tela));
        sintoma->setPlainText(longo);
        digita(texto(12), "MODELO 'A' \"B\"");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT NomeCliente FROM OrdemServico").toString(), QString("D'ÁVILA \"ZÉ\""));
        QCOMPARE(escalar("SELECT Sintoma FROM OrdemServico").toString(), longo);
        QCOMPARE(escalar("SELECT Modelo FROM OrdemServico").toString(), QString("MODELO 'A' \"B\""));
    }

    void tipoDaListaTrazAComissao()
    {
        b->banco().executar("INSERT INTO PorcenTecnico (Tipo, ValorTipo, porcentagem) VALUES ('GELADEIRA', 1550, -1)");
        abre();
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(3), "ANA");
        const int i = combo(1)->findText("GELADEIRA");
        QVERIFY(i >= 0);
        combo(1)->setCurrentIndex(i);
        emit combo(1)->activated(i);
        QCOMPARE(texto(11)->text(), QString("15,50"));
        QVERIFY(tela->findChild<QRadioButton*>("Option1(0)")->isChecked());
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT ValorPorcentagem FROM OrdemServico").toLongLong(), 1550);
        QCOMPARE(escalar("SELECT TipoPorcentagem FROM OrdemServico").toInt(), -1);
    }

    void tipoComApostrofoGuardaAspas()
    {
        abre();
        novaOrdem("ANA");
        combo(1)->setFocus();
        combo(1)->lineEdit()->clear();
        digita(combo(1)->lineEdit(), "MICRO'ONDAS");
        sai(combo(1));
        QCOMPARE(escalar("SELECT COUNT(*) FROM PorcenTecnico WHERE Tipo = ?", {"MICRO\"ONDAS"}).toInt(), 1);
    }

    void defeitosPelaListaEPeloCodigo()
    {
        b->banco().executar("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('1', 'NAO LIGA')");
        abre();
        novaOrdem("ANA");
        auto* lcad = tela->findChild<QListWidget*>("LCad");
        auto* ldef = tela->findChild<QListWidget*>("LDef");
        QTest::mouseClick(botao(6), Qt::LeftButton);
        QVERIFY(lcad->isVisible());
        for (int vez = 0; vez < 2; ++vez)  // the same code stands once
            emit lcad->itemDoubleClicked(lcad->item(0));
        QCOMPARE(ldef->count(), 1);
        // A defect typed that the catalogue lacks joins it with the next code.
        combo(3)->setFocus();
        digita(combo(3)->lineEdit(), "SEM SOM");
        sai(combo(3));
        QCOMPARE(ldef->count(), 2);
        QCOMPARE(contar("DefeitoReclamado"), 2);
        QVERIFY(tela->findChild<AvisoTransitorio*>("AvisoEntrada"));
        // A code typed with Enter puts its defect in the combo; one already listed isn't added twice.
        auto* codigo = tela->findChild<QLineEdit*>("Text2");
        digita(codigo, "1");
        QTest::keyClick(codigo, Qt::Key_Return);
        QCOMPARE(combo(3)->currentText(), QString("NAO LIGA"));
        sai(combo(3));
        QCOMPARE(ldef->count(), 2);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("SintomaOS"), 2);
        QCOMPARE(escalar("SELECT Sintoma FROM OrdemServico").toString(), QString("NAO LIGA,SEM SOM,"));
        // Removing one and saving rewrites the order's defects.
        digita(texto(12), "X");
        ldef->setCurrentRow(0);
        emit ldef->itemDoubleClicked(ldef->item(0));
        QCOMPARE(ldef->count(), 1);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("SintomaOS"), 1);
    }

    void numeroRepetidoAvisaEGrava()
    {
        inserirOrdem(b->banco(), 5, "PRIMEIRO");
        inserirOrdem(b->banco(), 6, "SEGUNDO");
        abre();
        QVERIFY(tela->mostraOrdem("6", QString::number(escalar("SELECT CodOsAut FROM OrdemServico WHERE CodOs = 6")
                                                           .toLongLong())));
        QCOMPARE(texto(3)->text(), QString("SEGUNDO"));
        texto(0)->selectAll();
        digita(texto(0), "5");
        sai(texto(0));
        QVERIFY(Dialogos::Roteiro::contem("PRIMEIRO"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT COUNT(*) FROM OrdemServico WHERE CodOs = 5").toInt(), 2);
    }

    void mostraOrdemComparaNumeroEChaveSeparados()
    {
        const qint64 k = inserirOrdem(b->banco(), 12, "ANA");
        inserirOrdem(b->banco(), 1, "BIA");
        abre();
        // "1" + "2..." must not find order 12 by joined text.
        QVERIFY(!tela->mostraOrdem("1", QString("2%1").arg(k)));
        QVERIFY(tela->mostraOrdem("12", QString::number(k)));
        QCOMPARE(texto(3)->text(), QString("ANA"));
        // The screen opens on the first order with its kind shown.
        RegistroTelas::fecharTodas();
        b->banco().executar("UPDATE OrdemServico SET Tipo = 'RADIO'");
        abre();
        QCOMPARE(combo(1)->currentText(), QString("RADIO"));
    }

    void ordemFinalizadaTravaEASenhaLibera()
    {
        const qint64 k = inserirOrdem(b->banco(), 3, "ANA");
        b->banco().executar(
            "UPDATE OrdemServico SET Saida = -1, DataEntrada = '2026/01/01', DataSaida = '2026/01/02' WHERE CodOsAut = ?",
            {k});
        sessao().DireitoAltOs = 0;
        abre();
        QVERIFY(tela->mostraOrdem("3", QString::number(k)));
        digita(texto(12), "Z");
        QVERIFY(Dialogos::Roteiro::contem("Está ordem de serviço já foi finalizada"));
        QVERIFY(texto(12)->text().isEmpty());
        QCOMPARE(sessao().SenhaOrigem, QString("LiberaAltOs"));
        QCOMPARE(botao(1)->text(), QString("&Excluir"));
        // The password at use gave the rights of a supervisor.
        sessao().DireitoAltOs = 1;
        sessao().LiberaAltOs = 1;
        digita(texto(12), "Z");
        QCOMPARE(texto(12)->text(), QString("Z"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT Modelo FROM OrdemServico").toString(), QString("Z"));
        // Leaving asks for the login again, so the supervisor's rights don't stay.
        Dialogos::Roteiro::limpar();
        tela->close();
        QVERIFY(Dialogos::Roteiro::contem("Você tem que se logar no sistema novamente."));
        QCOMPARE(sessao().LiberaAltOs, 0);
    }

    void travaConferidaDeNovoAoGravar()
    {
        const qint64 k = inserirOrdem(b->banco(), 4, "ANA");
        sessao().DireitoAltOs = 0;
        abre();
        QVERIFY(tela->mostraOrdem("4", QString::number(k)));
        digita(texto(12), "NOVO");
        // Meanwhile the till closes the order on another station.
        b->banco().executar("UPDATE OrdemServico SET Saida = -1 WHERE CodOsAut = ?", {k});
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Está ordem de serviço já foi finalizada"));
        QCOMPARE(escalar("SELECT Modelo FROM OrdemServico").toString(), QString(""));
        QCOMPARE(texto(12)->text(), QString("NOVO"));
    }

    void fecharComAlteracaoPerguntaEGrava()
    {
        abre();
        novaOrdem("ANA");
        Dialogos::Roteiro::responder(QVariant::fromValue(Dialogos::Resposta::Sim));
        QVERIFY(tela->close());
        QVERIFY(Dialogos::Roteiro::contem("Você alterou o registro,deseja salvar ?"));
        QCOMPARE(contar("OrdemServico"), 1);
    }

    void clienteBloqueadoEntregueDoCadastroEAvisado()
    {
        b->banco().executar("INSERT INTO Cliente (CodCliente, NomeCliente, BloqCliente) VALUES (7, 'MARIA', -1)");
        abre();
        tela->novoComCliente({{"CodCliente", "7"}, {"NomeCliente", "MARIA"}});
        QVERIFY(Dialogos::Roteiro::contem("Cliente bloqueado,verifique o seu cadastro para saber o motivo."));
        QCOMPARE(texto(3)->text(), QString("MARIA"));
    }

    void documentoGuardadoComoDigitos_data() { linhasMotores(); }
    void documentoGuardadoComoDigitos()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        abre();
        novaOrdem("JOSE", "52998224725");
        QCOMPARE(texto(2)->text(), QString("529-982-247/25"));  // shown with its mask
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT CnpjCpf FROM Cliente").toString(), QString("52998224725"));
        QCOMPARE(escalar("SELECT CpfCnpj FROM OrdemServico").toString(), QString("52998224725"));
        QCOMPARE(texto(2)->text(), QString("529-982-247/25"));
        // The next attendant finds him by the digits.
        Dialogos::Roteiro::responderNao();  // "Incluir mesmo cliente ?"
        QTest::mouseClick(botao(0), Qt::LeftButton);
        digita(texto(2), "52998224725");
        sai(texto(2));
        QCOMPARE(texto(3)->text(), QString("JOSE"));
    }

    void clienteEntregueDoCadastroENovoDoMenu()
    {
        abre();
        tela->novoComCliente({{"CodCliente", "3"}, {"NomeCliente", "LIA"}, {"Endereco", "RUA B"}, {"Numero", "8"}});
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
        QCOMPARE(texto(3)->text(), QString("LIA"));
        QCOMPARE(texto(5)->text(), QString("8"));
        QCOMPARE(texto(10)->text(), QString("3"));
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT CodCliente FROM OrdemServico").toString(), QString("3"));
        QCOMPARE(contar("Cliente"), 0);  // a registered customer is not stored again
        QMetaObject::invokeMethod(tela, "abrirNoModo", Q_ARG(QString, "Novo"));
        QVERIFY(Dialogos::Roteiro::contem("Incluir mesmo cliente ?"));
        QCOMPARE(tela->estado(), TelaCadastro::Estado::Inclusao);
    }

    void exclusaoMarcadaOuDefinitiva_data()
    {
        QTest::addColumn<int>("permanente");
        QTest::addColumn<int>("linhas");
        QTest::newRow("marked as deleted") << 0 << 2;
        QTest::newRow("removed for good, previous row shown") << 1 << 1;
    }
    void exclusaoMarcadaOuDefinitiva()
    {
        QFETCH(int, permanente);
        QFETCH(int, linhas);
        inserirOrdem(b->banco(), 1, "ANA");
        const qint64 k = inserirOrdem(b->banco(), 2, "BIA");
        sessao().DireitoPermanente = permanente;
        abre();
        QVERIFY(tela->mostraOrdem("2", QString::number(k)));
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("OrdemServico"), linhas);
        QCOMPARE(escalar("SELECT COUNT(*) FROM OrdemServico WHERE Excluidos = 0").toInt(), 1);
        QCOMPARE(texto(3)->text(), permanente ? QString("ANA") : QString());
    }

    void garantiaComOsDeFabrica_data()
    {
        QTest::addColumn<QString>("contadorFabrica");
        QTest::newRow("factory counter off") << "False";
        QTest::newRow("factory counter on keeps the old number") << "True";
    }
    void garantiaComOsDeFabrica()
    {
        QFETCH(QString, contadorFabrica);
        Ordem antiga = ordem("ANA");
        antiga.DataEntrada = "2026/01/01";
        antiga.DataSaida = "2026/01/05";
        TransicoesOrdem::salvarEntrada(b->banco(), antiga, {});
        sessao().CfgAtivaOsFabrica = contadorFabrica;
        b->banco().executar("UPDATE Empresa SET CodOsfabrica = 900");
        abre();
        tela->preparaRetornoGarantia(TransicoesOrdem::garantiaNovaOrdem(antiga));
        QVERIFY(tela->findChild<QCheckBox*>("Check1")->isChecked());
        QCOMPARE(texto(1)->text(), QString::number(antiga.CodOs));
        QTest::mouseClick(botao(0), Qt::LeftButton);
        QCOMPARE(texto(1)->text(), QString::number(antiga.CodOs));
        QVERIFY(texto(0)->text().isEmpty());
        Dialogos::Roteiro::responderNao();  // "Quer copiar o numero da -OS- de fábrica ..."
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(contar("OrdemServico"), 2);
        // No factory number is spent on a return, and the question names the old one.
        QCOMPARE(escalar("SELECT CodOsfabrica FROM Empresa").toInt(), 900);
        QCOMPARE(Dialogos::Roteiro::contem(QString(" O.S: %1").arg(antiga.CodOs)), contadorFabrica == "True");
        const qint64 nova = escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
        const auto o = GravacaoOrdem::carregar(b->banco(), nova);
        QVERIFY(o);
        QCOMPARE(o->CodFabrica, QString::number(antiga.CodOs));
        QVERIFY(o->Garantia);
        QVERIFY(!o->Saida);
        QCOMPARE(o->DataSaida, QString());
        QCOMPARE(o->DataEntrada, Datas::hoje());
        QVERIFY(!tela->retornoGarantia());
    }

    void cancelarEncerraORetornoDeGarantia()
    {
        Ordem antiga = ordem("ANA");
        antiga.DataEntrada = "2026/01/01";
        antiga.DataSaida = "2026/01/05";
        TransicoesOrdem::salvarEntrada(b->banco(), antiga, {});
        abre();
        tela->preparaRetornoGarantia(TransicoesOrdem::garantiaNovaOrdem(antiga));
        QTest::mouseClick(botao(0), Qt::LeftButton);  // the return's new order
        QVERIFY(tela->retornoGarantia());
        QTest::mouseClick(botao(0), Qt::LeftButton);  // &Cancelar
        QVERIFY(!tela->retornoGarantia());
        QTest::mouseClick(botao(0), Qt::LeftButton);  // an ordinary new order
        QVERIFY(!tela->retornoGarantia());
        QVERIFY(!tela->findChild<QCheckBox*>("Check1")->isChecked());
        QVERIFY(texto(1)->text().isEmpty());
    }

    void comissaoQueNaoEValorERecusada_data()
    {
        QTest::addColumn<QString>("comissao");
        QTest::newRow("three decimals") << "12,345";
        QTest::newRow("two commas") << "1,2,5";
        QTest::newRow("letters") << "1O,00";
    }
    void comissaoQueNaoEValorERecusada()
    {
        QFETCH(QString, comissao);
        abre();
        novaOrdem("ANA");
        QLineEdit* caixa = texto(11);  // the commission
        caixa->setText(comissao);
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY(Dialogos::Roteiro::contem("Valor inválido"));
        QCOMPARE(contar("OrdemServico"), 0);
        QCOMPARE(caixa->text(), comissao);
    }

    void servidorReiniciadoEntreGravacoes_data()
    {
        QTest::addColumn<bool>("parado");  // the server stays down for one save
        QTest::newRow("restarted between two saves") << false;
        QTest::newRow("down during a save, back for the next") << true;
    }
    void servidorReiniciadoEntreGravacoes()
    {
        QFETCH(bool, parado);
        if (!BancoTeste::postgresDisponivel())
            QSKIP("PostgreSQL de teste não configurado");
        b = std::make_unique<BancoTeste>(Motor::PostgreSQL);
        QVERIFY2(b->pronto(), qPrintable(b->motivo()));
        Conexoes::configurar(b->config());
        int falhas = 0;
        Conexoes::aoFalhar([&falhas](const QString&) { ++falhas; });
        ConfigBanco c = b->config();
        c.nomeBanco = "postgres";
        auto admin = Banco::abrir(c);
        // What a restart does to every connection open on the store.
        auto derruba = [&](bool aceita) {
            admin->executar(QString("ALTER DATABASE %1 ALLOW_CONNECTIONS %2")
                                .arg(b->config().nomeBanco, aceita ? "true" : "false"));
            admin->executar("SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                            "WHERE datname = ? AND pid <> pg_backend_pid()", {b->config().nomeBanco});
        };
        abre();
        novaOrdem("ANA");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        derruba(!parado);
        novaOrdem("BIA");
        if (parado) {
            QTest::mouseClick(botao(1), Qt::LeftButton);
            QVERIFY(Dialogos::Roteiro::contem("Houve uma perda na comunicação ao banco de dados."));
            QVERIFY(falhas >= 1);  // the notice that leads to the reconnection screen
            QCOMPARE(texto(3)->text(), QString("BIA"));
            admin->executar(QString("ALTER DATABASE %1 ALLOW_CONNECTIONS true").arg(b->config().nomeBanco));
            Dialogos::Roteiro::limpar();
        }
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QVERIFY2(!Dialogos::Roteiro::contem("Erro"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(escalar("SELECT COUNT(*) FROM OrdemServico WHERE NomeCliente = 'BIA'").toInt(), 1);
        QCOMPARE(contar("OrdemServico"), 2);
        Conexoes::aoFalhar({});
    }

    void visitaDaEntrada_data()
    {
        QTest::addColumn<bool>("direito");
        QTest::newRow("with the right the order is stored first") << true;
        QTest::newRow("without it nothing is stored") << false;
    }
    void visitaDaEntrada()
    {
        QFETCH(bool, direito);
        b->banco().executar("INSERT INTO VisitaTecnico (CodManu, NomeCliente) VALUES (41, 'X')");
        sessao().DireitoOsEntAl = direito ? 1 : 0;
        abre();
        novaOrdem("ANA");
        QVERIFY(botao(5)->isEnabled());
        if (direito)
            Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(5), Qt::LeftButton);
        if (!direito) {
            QVERIFY(RegistroTelas::aberta("Negado"));
            QCOMPARE(contar("VisitaTecnico"), 1);
            QCOMPARE(contar("OrdemServico"), 0);
            return;
        }
        QVERIFY2(Dialogos::Roteiro::contem("OS de visita nº  42"), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QCOMPARE(contar("OrdemServico"), 1);
        const QString codOs = escalar("SELECT CodOs FROM OrdemServico").toString();
        QCOMPARE(escalar("SELECT Solicitacao FROM VisitaTecnico WHERE CodManu = 42").toString(),
                 "Ordem de Serviço de entrada nº " + codOs + "\nBuscar aparelho para conserto");
        QCOMPARE(escalar("SELECT EndTel FROM VisitaTecnico WHERE CodManu = 42").toString(), QString("RUA DAS FLORES"));
        QCOMPARE(escalar("SELECT ChamadoTecnico FROM OrdemServico").toInt(), 0);
        // Pressed again for the same stored order, no second order is made.
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(botao(5), Qt::LeftButton);
        QCOMPARE(contar("OrdemServico"), 1);
        QCOMPARE(contar("VisitaTecnico"), 3);
    }

    void duasEstacoesNumeramSemRepetir_data() { linhasMotores(); }
    void duasEstacoesNumeramSemRepetir()
    {
        if (!motorDaLinha())
            QSKIP(qPrintable(b->motivo()));
        abre();
        novaOrdem("ANA");
        // Another station stores its order while this one is typing.
        auto outra = b->outraConexao();
        Ordem o = ordem("BIA");
        TransicoesOrdem::salvarEntrada(*outra, o, {});
        QTest::mouseClick(botao(1), Qt::LeftButton);
        QCOMPARE(escalar("SELECT COUNT(DISTINCT CodOs) FROM OrdemServico").toInt(), 2);
    }

    void bancoFoiEmboraNoMeioDaGravacao()
    {
        abre();
        novaOrdem("ANA", "52998224725");
        // The order table goes away under the save: nothing half-written, the boxes stay.
        b->banco().executar("ALTER TABLE OrdemServico RENAME TO OrdemServicoFora");
        QTest::mouseClick(botao(1), Qt::LeftButton);
        b->banco().executar("ALTER TABLE OrdemServicoFora RENAME TO OrdemServico");
        QVERIFY(Dialogos::Roteiro::contem("Erro ao gravar formulário,"));
        QCOMPARE(contar("Cliente"), 0);
        QCOMPARE(contar("OrdemServico"), 0);
        QCOMPARE(texto(3)->text(), QString("ANA"));
        QVERIFY(tela->clienteNovo());
    }
};

QTEST_MAIN(TstOrdemServicoEntrada)
#include "tst_ordemservicoentrada.moc"
