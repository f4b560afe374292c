#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "documents/Visualizador.h"
#include "orders/BotaoAviso.h"
#include "orders/CadCompleto.h"
#include "orders/OrdemServicoSaida.h"
#include "orders/OrdemServicoTecnico.h"
#include "orders/Pendencia.h"
#include "ui/AmbienteTela.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

// "Avisar cliente" as the counter uses it on the bench, the panel and at delivery: what
// is opened, what is kept, and what a customer that can't be told gets instead.
class TstBotaoAviso : public QObject {
    Q_OBJECT
    std::unique_ptr<BancoTeste> b;
    QStringList abertos;
    QWidget* tela = nullptr;

    qint64 ordem(const QString& celular, const QString& email)
    {
        b->banco().inserir(*Esquema::tabela("Cliente"), {"CodCliente", "NomeCliente", "Email"}, {9, "CARLA", email});
        return b->banco().inserir(*Esquema::tabela("OrdemServico"),
                                  {"CodOs", "CodCliente", "NomeCliente", "Tipo", "Marca", "Celular", "AguardaPeca",
                                   "DataEntrada"},
                                  {345, "9", "CARLA", "TV", "SEMP", celular, -1, "2026/11/01"});
    }
    void abre(const QString& onde, qint64 chave)
    {
        if (onde == "bancada") {
            auto* t = qobject_cast<OrdemServicoTecnico*>(RegistroTelas::abrir("OrdemServicoTecnico"));
            QVERIFY(t);
            t->abreOrdem({{"CodOsAut", chave}});
            tela = t;
        } else if (onde == "completa") {
            auto* t = qobject_cast<CadCompleto*>(RegistroTelas::abrir("CadCompleto"));
            QVERIFY(t);
            t->abreOrdem({{"CodOsAut", chave}});
            tela = t;
        } else if (onde == "entrega") {
            auto* t = qobject_cast<OrdemServicoSaida*>(RegistroTelas::abrir("OrdemServicoSaida"));
            QVERIFY(t);
            t->abreOrdem({{"CodOsAut", chave}});
            tela = t;
        } else {
            auto* t = qobject_cast<Pendencia*>(RegistroTelas::abrir("Pendencia"));
            QVERIFY(t);
            t->resize(1366, 700);
            t->show();
            QVERIFY(QTest::qWaitForWindowExposed(t));
            QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);  // waiting for a part
            auto* grade = t->findChild<QTableWidget*>("Grade");
            QCOMPARE(grade->rowCount(), 1);
            grade->setCurrentCell(0, 0);
            tela = t;
        }
    }
    QVariant escalar(const QString& sql, const QVariantList& v = {}) { return b->banco().escalar(sql, v); }

private slots:
    void init()
    {
        abertos.clear();
        Visualizador::definir([this](const QString& a) {
            abertos << a;
            return true;
        });
    }
    void cleanup()
    {
        Visualizador::definir({});
        tela = nullptr;
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        b.reset();
    }

    void avisar_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<QString>("onde");
        QTest::addColumn<QString>("celular");
        QTest::addColumn<QString>("email");
        QTest::addColumn<QString>("canal");  // "" nothing can be opened
        const QList<QPair<QString, int>> motores = {{"sqlite", int(Motor::SQLite)}, {"postgres", int(Motor::PostgreSQL)}};
        for (const auto& [nomeMotor, m] : motores)
            for (const char* onde : {"bancada", "painel", "entrega", "completa"}) {
                QTest::addRow("%s %s: cellular", qPrintable(nomeMotor), onde) << m << onde << "11987654321" << "" << "WhatsApp";
                if (m == int(Motor::SQLite)) {
                    QTest::addRow("%s %s: e-mail only", qPrintable(nomeMotor), onde) << m << onde << "" << "carla@casa.com" << "E-mail";
                    QTest::addRow("%s %s: neither", qPrintable(nomeMotor), onde) << m << onde << "" << "" << "";
                }
            }
    }
    void avisar()
    {
        QFETCH(int, motor);
        QFETCH(QString, onde);
        QFETCH(QString, celular);
        QFETCH(QString, email);
        QFETCH(QString, canal);
        b = ambienteDeTela(static_cast<Motor>(motor));
        if (!b->pronto())
            QSKIP(qPrintable(b->motivo()));
        ApoioOrdens::sessaoCompleta();
        b->banco().executar("UPDATE Empresa SET AvisoAtivo = -1");
        const qint64 chave = ordem(celular, email);
        abre(onde, chave);
        auto* painel = tela->findChild<BotaoAviso*>("BotaoAviso");
        QVERIFY(painel && !painel->isHidden());
        auto* situacao = tela->findChild<QComboBox*>("CboSituacaoAviso");
        QCOMPARE(situacao->currentText(), QString("Aguardando peça"));
        auto* botao = tela->findChild<QPushButton*>("BotaoAvisarCliente");
        QCOMPARE(botao->text(), QString("Avisar cliente"));
        QTest::mouseClick(botao, Qt::LeftButton);

        const int avisos = escalar("SELECT COUNT(*) FROM AvisoCliente").toInt();
        if (canal.isEmpty()) {
            QVERIFY(abertos.isEmpty());
            QVERIFY(Dialogos::Roteiro::contem("não tem celular nem e-mail"));
            QVERIFY(botao->toolTip().contains("não tem celular nem e-mail"));
            QCOMPARE(avisos, 0);
            QCOMPARE(escalar("SELECT Contato FROM OrdemServico WHERE CodOsAut = ?", {chave}).toInt(), 0);
            return;
        }
        QCOMPARE(abertos.size(), 1);
        QVERIFY2(abertos.first().startsWith(canal == "WhatsApp" ? "https://wa.me/5511987654321?text=Ol%C3%A1%2C%20CARLA"
                                                                : "mailto:carla@casa.com?subject=O.S%20345%20-%20Aguardando%20pe%C3%A7a&body="),
                 qPrintable(abertos.first()));
        QVERIFY(abertos.first().contains("aguardando%20a%20chegada"));
        QCOMPARE(avisos, 1);
        QCOMPARE(escalar("SELECT Canal FROM AvisoCliente WHERE CodOsAut = ?", {chave}).toString(), canal);
        QCOMPARE(escalar("SELECT Situacao FROM AvisoCliente").toString(), QString("Aguardando peça"));
        QCOMPARE(escalar("SELECT Usuario FROM AvisoCliente").toString(), QString("ANA"));
        QCOMPARE(escalar("SELECT Contato FROM OrdemServico WHERE CodOsAut = ?", {chave}).toInt(), -1);
        QCOMPARE(escalar("SELECT DataContato FROM OrdemServico WHERE CodOsAut = ?", {chave}).toString(), Datas::hoje());
        QVERIFY(Dialogos::Roteiro::registros().isEmpty());

        if (onde == "bancada" || onde == "completa") {
            auto* lista = tela->findChild<QListWidget*>("ListaAvisos");
            QCOMPARE(lista->count(), 1);
            QVERIFY2(QRegularExpression(QString("^%1 %2 \\d\\d:\\d\\d ANA - Aguardando peça$")
                                            .arg(canal, QDate::currentDate().toString("dd/MM/yyyy")))
                         .match(lista->item(0)->text())
                         .hasMatch(),
                     qPrintable(lista->item(0)->text()));
            // The screen's own save after the notice is not taken for another station's change.
            if (auto* t = qobject_cast<OrdemServicoTecnico*>(tela)) {
                QVERIFY(t->ordem().Contato);
                QVERIFY(t->salvar());
            } else {
                auto* c = qobject_cast<CadCompleto*>(tela);
                QVERIFY(c->ordem().Contato);
                c->salvar();
            }
            QVERIFY(!Dialogos::Roteiro::contem("alterad"));
        } else if (onde == "painel") {
            QCOMPARE(tela->findChild<QTableWidget*>("Grade")->item(0, 6)->text(),
                     QDate::currentDate().toString("dd/MM/yyyy"));
        } else if (onde == "entrega") {
            QCOMPARE(tela->findChild<QLabel*>("LblDataContato")->text(), QDate::currentDate().toString("dd/MM/yyyy"));
        }
    }

    // A shop that hasn't switched the notices on doesn't see the button.
    void desligado()
    {
        b = ambienteDeTela();
        QVERIFY(b->pronto());
        ApoioOrdens::sessaoCompleta();
        const qint64 chave = ordem("11987654321", "");
        for (const QString onde : {"bancada", "entrega", "painel", "completa"}) {
            abre(onde, chave);
            QVERIFY(tela->findChild<BotaoAviso*>("BotaoAviso")->isHidden());
        }
    }
};

QTEST_MAIN(TstBotaoAviso)
#include "tst_botaoaviso.moc"
