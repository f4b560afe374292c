#include <QLabel>
#include <QTimer>
#include <QtTest>

#include "data/Sessao.h"
#include "shell/Avisos.h"
#include "ui/RegistroTelas.h"

class TstAvisos : public QObject {
    Q_OBJECT
    AvisoTransitorio* abre(const QString& nome)
    {
        return qobject_cast<AvisoTransitorio*>(RegistroTelas::abrir(nome));
    }

private slots:
    void cleanup() { RegistroTelas::fecharTodas(); }

    void textosEVidas_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("vida");
        QTest::newRow("Invalida") << "Invalida" << "Senha Inválida" << 1500;
        QTest::newRow("Negado") << "Negado" << "Acesso Negado" << 1500;
        QTest::newRow("Aviso") << "Aviso" << "Enviando aviso de estoque baixo....." << 2000;
        QTest::newRow("Aguarde") << "Aguarde" << "Por favor aguarde..." << 2000;
        QTest::newRow("AguardeBaixa stays until its caller closes it") << "AguardeBaixa" << "Registrando movimento de caixa" << 0;
        QTest::newRow("MensagenBd") << "MensagenBd" << "Atenção,Banco de dados não localizado..." << 10000;
        QTest::newRow("Gravado") << "Gravado" << "" << 1500;
        QTest::newRow("Excluido") << "Excluido" << "" << 1500;
    }
    void textosEVidas()
    {
        QFETCH(QString, nome);
        QFETCH(QString, texto);
        QFETCH(int, vida);
        RegistroTelas::registrar("Reconecta", [] { return new QWidget; });
        auto* a = abre(nome);
        QVERIFY(a);
        QVERIFY(a->isVisible());
        if (!texto.isEmpty())
            QCOMPARE(a->texto(), texto);
        QCOMPARE(a->timer()->interval(), vida);
        QCOMPARE(a->timer()->isActive(), vida > 0);
        a->expira();
        QCOMPARE(a->isVisible(), vida == 0);
    }

    void gravadoEExcluidoFechamASenhaNoUso_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::newRow("Gravado") << "Gravado";
        QTest::newRow("Excluido") << "Excluido";
    }
    void gravadoEExcluidoFechamASenhaNoUso()
    {
        QFETCH(QString, nome);
        sessao().SenhaLiberada = 1;
        auto* a = abre(nome);
        QCOMPARE(sessao().SenhaLiberada, 1);  // still good while the notice stands
        a->expira();
        QCOMPARE(sessao().SenhaLiberada, 0);
    }

    void segundoGravadoChegaAoMesmoAviso()
    {
        auto* primeiro = abre("Gravado");
        QPointer<QTimer> t = primeiro->timer();
        const int restante = t->remainingTime();
        auto* segundo = abre("Gravado");
        QCOMPARE(segundo, primeiro);
        QVERIFY(t->remainingTime() <= restante);  // the first timer goes on, not restarted
    }

    void mensagenBdLevaAReconecta()
    {
        RegistroTelas::registrar("Reconecta", [] { return new QWidget; });
        abre("MensagenBd")->expira();
        QVERIFY(RegistroTelas::aberta("Reconecta"));
    }

    void invalidaMostraASegundaLinha()
    {
        auto* a = qobject_cast<Invalida*>(abre("Invalida"));
        a->definirSegundaLinha("Esta é sua segunda tentativa");
        QCOMPARE(a->findChild<QLabel*>("Label2")->text(), QString("Esta é sua segunda tentativa"));
        QVERIFY(a->findChild<QLabel*>("Label2")->isVisible());
    }
};

QTEST_MAIN(TstAvisos)
#include "tst_avisos.moc"
