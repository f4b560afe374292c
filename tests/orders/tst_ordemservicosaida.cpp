#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Sessao.h"
#include "orders/ListaPecas.h"
#include "orders/OrdemServicoEntrada.h"
#include "orders/OrdemServicoSaida.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// Stands in for the till: it records what the delivery screen handed over.
class CaixaDeTeste : public QWidget {
    Q_OBJECT
public:
    static inline QList<QVariantMap> recebidos;
    Q_INVOKABLE void abreOrdem(const QVariantMap& dados) { recebidos << dados; }
};

namespace {
const QString MsgFinalizada = "Está ordem de serviço já foi finalizada,você não tem permissão para alterar.";
const bool caixaRegistrado =
    RegistroTelas::registrar("RegistraValorSaida", [] { return static_cast<QWidget*>(new CaixaDeTeste); });
}

class TstOrdemServicoSaida : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    OrdemServicoSaida* tela = nullptr;

    bool ambiente(Motor motor)
    {
        tela = nullptr;
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
        b = ambienteDeTela(motor);
        ApoioOrdens::sessaoCompleta();
        CaixaDeTeste::recebidos.clear();
        return b->pronto();
    }
    // An order as the bench leaves it; `estado` names its flags.
    qint64 ordem(qint64 codOs, const QString& estado, const QString& nome = "ANA")
    {
        QStringList cols{"CodOs", "NomeCliente", "CodCliente", "CpfCnpj", "Tipo", "MaoObra", "ValorVenda", "ValorPagar",
                         "DataEntrada", "Armazenado", "Consertado", "Aprovado", "Recusado", "Garantia", "Saida",
                         "DataSaida", "OrdemBloqueada"};
        const bool saiu = estado.contains("saiu");
        QVariantList v{codOs, nome, "5", "11144477735", "TV", 5000, 9000, 14000, "2025/01/10", "PRATELEIRA 3",
                       estado.contains("consertado") ? -1 : 0, estado.contains("aprovado") ? -1 : 0,
                       estado.contains("recusado") ? -1 : 0, estado.contains("garantia") ? -1 : 0, saiu ? -1 : 0,
                       saiu ? "2025/02/01" : "", -1};
        return b->banco().inserir(*Esquema::tabela("OrdemServico"), cols, v);
    }
    void peca(qint64 codOsAut, qint64 codOs, const QString& desc, const QString& tipoVisita, qint64 total,
              qint64 quantidade = 2000)
    {
        b->banco().inserir(*Esquema::tabela("PecasAplicadas"),
                           {"CodOs", "CodOsAut", "NomeCliente", "TipoVisita", "codpeca", "Descricao", "Quantidade",
                            "ValorVenda", "ValorDesconto", "ValorTotal", "ValorCusto"},
                           {codOs, tipoVisita.isEmpty() ? codOsAut : 0, "ANA", tipoVisita, "P1", desc, quantidade, 5000,
                            500, total, 2000});
    }
    QVariant coluna(const QString& c, qint64 chave)
    {
        return b->banco().escalar(QString("SELECT %1 FROM OrdemServico WHERE CodOsAut = ?").arg(c), {chave});
    }
    void abre(qint64 chave)
    {
        tela = qobject_cast<OrdemServicoSaida*>(RegistroTelas::abrir("OrdemServicoSaida"));
        QVERIFY(tela);
        QVERIFY(tela->carregaOrdem(chave));
    }
    QPushButton* botao(int i, QWidget* w = nullptr)
    {
        return (w ? w : tela)->findChild<QPushButton*>(QString("Botao(%1)").arg(i));
    }
    void clica(int i) { QTest::mouseClick(botao(i), Qt::LeftButton); }
    template <class T> T* campo(const QString& nome, QWidget* w = nullptr) { return (w ? w : tela)->findChild<T*>(nome); }
    void digita(QWidget* w, const QString& t)
    {
        for (const QChar c : t)
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    static Motor motorDe(int m) { return static_cast<Motor>(m); }

private slots:
    void init() { QVERIFY(ambiente(Motor::SQLite)); }
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tela = nullptr;
        b.reset();
    }

    void mostraOrdem()
    {
        const qint64 semCliente = ordem(3, "consertado recusado", "JOANA D'ARC");
        b->banco().executar("UPDATE OrdemServico SET CodCliente = '', StatusConserto = '' WHERE CodOsAut = ?",
                            {semCliente});
        const qint64 chave = ordem(12, "consertado aprovado saiu");
        ordem(112, "consertado");
        tela = qobject_cast<OrdemServicoSaida*>(RegistroTelas::abrir("OrdemServicoSaida"));
        QVERIFY(tela);
        // It opens on the first live order by number.
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("3"));
        QCOMPARE(tela->windowTitle(), QString("Ordem de Serviço Saída Conserto  3   registros  --------   Alterado por: "));
        QCOMPARE(campo<QGroupBox>("FrameCliente")->title(), QString("Não tem"));
        QCOMPARE(campo<QLineEdit>("TxtNomeCliente")->text(), QString("JOANA D'ARC"));
        QCOMPARE(campo<QLineEdit>("TxtStatusConserto")->text(), QString("Sem resposta..."));
        QCOMPARE(campo<QLabel>("LblResposta")->text(), QString("Recusado"));
        Dialogos::Roteiro::limpar();
        clica(6);
        QCOMPARE(Dialogos::Roteiro::registros().value(0).titulo, QString("Cadastro saída"));
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QString("Cliente não possui cadastro"));

        tela->mostraOrdem({{"CodOs", "12"}, {"CodOsAut", QString::number(chave)}});
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("12"));
        QCOMPARE(campo<QGroupBox>("FrameCliente")->title(), QString("Cód: 5   Cpf/Cnpj: 111-444-777/35"));
        QCOMPARE(campo<QLabel>("TxtAviso")->text(), QString("APARELHO JÁ FOI RETIRADO"));
        QCOMPARE(campo<QLabel>("LblDataSaida")->text(), QString("01/02/2025"));
        QCOMPARE(campo<QLineEdit>("TxtValor")->text(), QString("140,00"));
        tela->mostraOrdem({{"CodOs", "112"}, {"CodCliente", "5"}});
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("112"));
        // A key and a number that don't belong together show nothing new.
        tela->mostraOrdem({{"CodOs", "3"}, {"CodOsAut", QString::number(chave)}});
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("112"));
        tela->abreOrdem({{"CodOsAut", chave}});
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("12"));
        // Typed changes are never dropped by another screen's choice.
        clica(5);
        tela->abreOrdem({{"CodOsAut", semCliente}});
        QCOMPARE(campo<QLineEdit>("TxtCodOs")->text(), QString("12"));
        QVERIFY(Dialogos::Roteiro::ultimoTexto().startsWith("Salve ou cancele"));
    }

    // --- the hand-over -----------------------------------------------------------------------

    void entregaSemCaixa_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("estado");
        QTest::addColumn<QString>("legenda");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* nm = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s refused", nm) << m << "consertado recusado" << "Recusado";
            QTest::addRow("%s undecided", nm) << m << "consertado" << "Indeciso";
            QTest::addRow("%s warranty, even approved", nm) << m << "consertado aprovado garantia" << "Garantia";
        }
    }
    void entregaSemCaixa()
    {
        QFETCH(int, motor);
        QFETCH(QString, estado);
        QFETCH(QString, legenda);
        if (!ambiente(motorDe(motor)))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(57, estado);
        ApoioOrdens::inserirProduto(b->banco(), "P1", 10);
        peca(chave, 57, "TELA 14''", "", 9000);
        abre(chave);
        QCOMPARE(campo<QLabel>("LblResposta")->text(), legenda);
        Dialogos::Roteiro::responderSim();  // "Entrega do produto ao cliente ?"
        Dialogos::Roteiro::responderNao();  // no sheet
        clica(1);
        QVERIFY(Dialogos::Roteiro::contem("Quer imprimir ordem serviço saída?"));
        QCOMPARE(coluna("Saida", chave).toInt(), -1);
        QCOMPARE(coluna("DataSaida", chave).toString(), Datas::hoje());
        QVERIFY(coluna("Armazenado", chave).toString().startsWith("Saiu "));
        QVERIFY(CaixaDeTeste::recebidos.isEmpty());
        QCOMPARE(b->banco().escalar("SELECT COUNT(*) FROM Movimento").toInt(), 0);
        QCOMPARE(ApoioOrdens::estoque(b->banco(), "P1").texto(), QString("10"));

        // A second press keeps the first date and only offers the sheet.
        b->banco().executar("UPDATE OrdemServico SET DataSaida = '2025/02/01' WHERE CodOsAut = ?", {chave});
        QVERIFY(tela->carregaOrdem(chave));
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderNao();
        clica(1);
        QCOMPARE(coluna("DataSaida", chave).toString(), QString("2025/02/01"));
    }

    void entregaPeloCaixa()
    {
        const qint64 chave = ordem(57, "consertado aprovado");
        abre(chave);
        QPointer<OrdemServicoSaida> aberta = tela;
        Dialogos::Roteiro::responderSim();
        clica(1);
        QCOMPARE(CaixaDeTeste::recebidos.size(), 1);
        QCOMPARE(CaixaDeTeste::recebidos.first().value("CodOsAut").toLongLong(), chave);
        QCOMPARE(sessao().ParamCodOs, QString("57"));
        // Only the till closes it; the delivery screen has given way.
        QCOMPARE(coluna("Saida", chave).toInt(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!aberta);
        tela = nullptr;
    }

    void direitoPrimeiro()
    {
        sessao().DireitoOsSaiAl = 0;
        const qint64 chave = ordem(57, "consertado recusado");
        abre(chave);
        Dialogos::Roteiro::responderSim();
        clica(1);
        QVERIFY(RegistroTelas::aberta("Negado"));
        QCOMPARE(coluna("Saida", chave).toInt(), 0);
        QCOMPARE(coluna("Armazenado", chave).toString(), QString("PRATELEIRA 3"));
    }

    // --- answers, the lock and the save --------------------------------------------------------

    void respostas_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("indice");
        QTest::addColumn<int>("aprovado");
        QTest::addColumn<int>("recusado");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const char* nm = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::addRow("%s authorised", nm) << m << 3 << -1 << 0;
            QTest::addRow("%s refused", nm) << m << 4 << 0 << -1;
            QTest::addRow("%s undecided", nm) << m << 5 << 0 << 0;
        }
    }
    void respostas()
    {
        QFETCH(int, motor);
        QFETCH(int, indice);
        QFETCH(int, aprovado);
        QFETCH(int, recusado);
        if (!ambiente(motorDe(motor)))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(57, indice == 3 ? "consertado recusado" : "consertado aprovado");
        abre(chave);
        clica(indice);
        QCOMPARE(botao(1)->text(), QString("Sal&var"));
        QCOMPARE(botao(2)->text(), QString("&Cancelar"));
        clica(1);
        QCOMPARE(coluna("Aprovado", chave).toInt(), aprovado);
        QCOMPARE(coluna("Recusado", chave).toInt(), recusado);
        QCOMPARE(coluna("Contato", chave).toInt(), -1);
        QCOMPARE(coluna("DataContato", chave).toString(), Datas::hoje());
        QCOMPARE(coluna("OsAlterado", chave).toString(), QString("ANA"));
        QCOMPARE(botao(1)->text(), QString("&Entregar"));
    }

    void ordemFinalizada_data()
    {
        QTest::addColumn<int>("altOs");
        QTest::newRow("without the right: refused before the key lands") << 0;
        QTest::newRow("with the right the change goes on") << 1;
    }
    void ordemFinalizada()
    {
        QFETCH(int, altOs);
        sessao().DireitoAltOs = altOs;
        const qint64 chave = ordem(57, "consertado aprovado saiu");
        abre(chave);
        auto* obs = campo<QPlainTextEdit>("TxtObservacao");
        obs->setFocus();
        digita(obs, "X");
        QCOMPARE(obs->toPlainText(), altOs ? QString("X") : QString());
        QCOMPARE(Dialogos::Roteiro::contem(MsgFinalizada), !altOs);
        QCOMPARE(bool(RegistroTelas::aberta("SenhaPde")), !altOs);
        if (!altOs)
            QCOMPARE(sessao().SenhaOrigem, QString("LiberaAltOs"));
        clica(3);
        QCOMPARE(tela->alterado(), bool(altOs));
    }

    void salvaDatas_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("gravado");
        QTest::addColumn<int>("dtEntrega");
        QTest::newRow("a promised day") << "20032025" << "2025/03/20" << -1;
        QTest::newRow("emptied: no day promised") << "" << "" << 0;
        QTest::newRow("impossible day: nothing stored") << "31022025" << "antes" << 0;
    }
    void salvaDatas()
    {
        QFETCH(QString, digitado);
        QFETCH(QString, gravado);
        QFETCH(int, dtEntrega);
        const qint64 chave = ordem(57, "consertado");
        b->banco().executar("UPDATE OrdemServico SET DataEntrega = 'antes' WHERE CodOsAut = ?", {chave});
        abre(chave);
        auto* dia = campo<QLineEdit>("DtEntrega");
        dia->setFocus();
        dia->selectAll();
        QTest::keyClick(dia, Qt::Key_Delete);
        digita(dia, digitado);
        digita(campo<QLineEdit>("TxtArmazenado"), " B");
        clica(1);
        QCOMPARE(coluna("DataEntrega", chave).toString(), gravado);
        QCOMPARE(coluna("DtEntrega", chave).toInt(), dtEntrega);
        if (gravado == "antes") {
            QVERIFY(Dialogos::Roteiro::contem("Data inválida"));
            QCOMPARE(coluna("Armazenado", chave).toString(), QString("PRATELEIRA 3"));
            QCOMPARE(campo<QLineEdit>("TxtArmazenado")->text(), QString("PRATELEIRA 3 B"));
        }
    }

    void falhaNaGravacao()
    {
        const qint64 chave = ordem(57, "consertado recusado");
        b->banco().executar("CREATE TRIGGER falha BEFORE UPDATE ON OrdemServico "
                            "BEGIN SELECT RAISE(ABORT, 'disco cheio'); END");
        abre(chave);
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderNao();
        clica(1);
        QCOMPARE(Dialogos::Roteiro::registros().last().titulo, QString("Erro ao gravar formulário,"));
        QCOMPARE(coluna("Saida", chave).toInt(), 0);
        QCOMPARE(coluna("Armazenado", chave).toString(), QString("PRATELEIRA 3"));
        // The screen keeps what was done, and the same save goes through once the store answers.
        QVERIFY(tela->alterado());
        QVERIFY(campo<QLineEdit>("TxtArmazenado")->text().startsWith("Saiu "));
        b->banco().executar("DROP TRIGGER falha");
        clica(1);
        QCOMPARE(coluna("Saida", chave).toInt(), -1);
    }

    void outraEstacao_data() { linhasMotores(); }
    void outraEstacao()
    {
        QFETCH(int, motor);
        if (!ambiente(motorDe(motor)))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(57, "consertado");
        abre(chave);
        b->outraConexao()->executar("UPDATE OrdemServico SET Observacao = 'LIGAR DEPOIS DAS 18H' WHERE CodOsAut = ?",
                                    {chave});
        auto* obs = campo<QPlainTextEdit>("TxtObservacao");
        obs->setFocus();
        digita(obs, "CLIENTE AVISADO");
        clica(1);
        QCOMPARE(coluna("Observacao", chave).toString(), QString("LIGAR DEPOIS DAS 18H"));
        QVERIFY(Dialogos::Roteiro::contem("outra estação"));
    }

    // --- warranty return ------------------------------------------------------------------------

    void garantiaMesmaOrdem_data() { linhasMotores(); }
    void garantiaMesmaOrdem()
    {
        QFETCH(int, motor);
        if (!ambiente(motorDe(motor)))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(57, "consertado aprovado saiu");
        b->banco().executar("UPDATE OrdemServico SET Observacao = 'TROCOU FONTE' WHERE CodOsAut = ?", {chave});
        abre(chave);
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderNao();
        clica(7);
        QCOMPARE(campo<QLabel>("LblDataSaida")->text(), QString());
        clica(1);
        QCOMPARE(coluna("Saida", chave).toInt(), 0);
        QCOMPARE(coluna("DataSaida", chave).toString(), QString());
        QCOMPARE(coluna("Garantia", chave).toInt(), -1);
        QCOMPARE(coluna("Aprovado", chave).toInt(), 0);
        QCOMPARE(coluna("Consertado", chave).toInt(), 0);
        QCOMPARE(coluna("StatusConserto", chave).toString(), QString("Garantia pendente.."));
        QCOMPARE(coluna("Armazenado", chave).toString(), QString("Retorno oficina"));
        QCOMPARE(coluna("Observacao", chave).toString(), QString("TROCOU FONTE\nAPARELHO ESTÁ NA GARANTIA DA LOJA"));
        // Back from the bench it leaves without the till; the button undoes the warranty.
        QCOMPARE(campo<QLabel>("LblResposta")->text(), QString("Garantia"));
        QVERIFY(!botao(3)->isEnabled());
        clica(7);
        QVERIFY(botao(3)->isEnabled());
    }

    void garantiaNovaOrdem()
    {
        const qint64 chave = ordem(57, "consertado aprovado saiu", "JOANA D'ARC");
        abre(chave);
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responderSim();
        clica(7);
        auto* entrada = qobject_cast<OrdemServicoEntrada*>(RegistroTelas::aberta("OrdemServicoEntrada"));
        QVERIFY(entrada);
        QVERIFY(entrada->retornoGarantia());
        QCOMPARE(entrada->ordem().CodFabrica, QString("57"));
        QVERIFY(entrada->ordem().Fabrica);
        QCOMPARE(entrada->ordem().NomeCliente, QString("JOANA D'ARC"));
        QVERIFY(entrada->ordem().nova());
        QCOMPARE(coluna("Garantia", chave).toInt(), 0);
        QCOMPARE(coluna("Saida", chave).toInt(), -1);
        QVERIFY(!tela->alterado());
    }

    // --- the parts list -----------------------------------------------------------------------

    void listaPecas_data()
    {
        QTest::addColumn<int>("motor");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)})
            QTest::addRow("%s", m == int(Motor::SQLite) ? "sqlite" : "postgres") << m;
    }
    void listaPecas()
    {
        QFETCH(int, motor);
        if (!ambiente(motorDe(motor)))
            QSKIP(qPrintable(b->motivo()));
        const qint64 chave = ordem(57, "consertado aprovado");
        peca(chave, 57, "TELA 14''", "", 9000);
        peca(0, 57, "CABO DA VISITA", "VisitaTecnico", 3000, 1000);
        abre(chave);
        clica(0);
        auto* lista = qobject_cast<ListaPecas*>(RegistroTelas::aberta("ListaPecas"));
        QVERIFY(lista);
        QCOMPARE(lista->windowTitle(), QString("Peças Aplicadas - 1 encontrados"));
        auto* grade = campo<QTableWidget>("Grade", lista);
        QCOMPARE(grade->rowCount(), 1);
        QCOMPARE(grade->item(0, 0)->text(), QString("TELA 14''"));
        QCOMPARE(grade->item(0, 3)->text(), QString("90,00"));
        QCOMPARE(campo<QLineEdit>("TxtValorPecas", lista)->text(), QString("90,00"));
        QVERIFY(botao(0, lista)->isEnabled());  // "&Incluir peças" opens the bench
        auto* mao = campo<QLineEdit>("TxtMaoObra", lista);
        QCOMPARE(mao->text(), QString("50,00"));
        mao->setFocus();
        mao->selectAll();
        digita(mao, "60,00");
        QTest::keyClick(mao, Qt::Key_Return);
        QCOMPARE(campo<QLineEdit>("TxtValor")->text(), QString("150,00"));
        QCOMPARE(botao(1)->text(), QString("Sal&var"));
        clica(1);
        QCOMPARE(coluna("MaoObra", chave).toLongLong(), 6000LL);
        QCOMPARE(coluna("ValorPagar", chave).toLongLong(), 15000LL);
        QCOMPARE(coluna("ValorVenda", chave).toLongLong(), 9000LL);
    }

    void listaPecasTravas_data()
    {
        QTest::addColumn<QString>("estado");
        QTest::addColumn<int>("altOrca");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("no budget right") << "consertado aprovado" << 0
                                         << "Você não tem autorização para alterar o orçamento.";
        QTest::newRow("delivered: the lock comes before the budget right") << "consertado aprovado saiu" << 1
                                                                           << MsgFinalizada;
    }
    void listaPecasTravas()
    {
        QFETCH(QString, estado);
        QFETCH(int, altOrca);
        QFETCH(QString, mensagem);
        sessao().DireitoAltOrca = altOrca;
        sessao().DireitoAltOs = 0;
        const qint64 chave = ordem(57, estado);
        abre(chave);
        clica(0);
        auto* lista = RegistroTelas::aberta("ListaPecas");
        auto* mao = campo<QLineEdit>("TxtMaoObra", lista);
        mao->setFocus();
        digita(mao, "9");
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        QCOMPARE(mao->text(), QString("50,00"));
        QCOMPARE(sessao().SenhaOrigem, QString("LiberaAltOs"));
        QVERIFY(!tela->alterado());
        QCOMPARE(coluna("MaoObra", chave).toLongLong(), 5000LL);
    }
};

QTEST_MAIN(TstOrdemServicoSaida)
#include "tst_ordemservicosaida.moc"
