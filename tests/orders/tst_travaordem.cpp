#include <QTest>

#include "data/Sessao.h"
#include "orders/Ordem.h"
#include "orders/TravaOrdem.h"

class TesteTravaOrdem : public QObject {
    Q_OBJECT
private slots:
    void regras_data()
    {
        QTest::addColumn<int>("tela");
        QTest::addColumn<bool>("saida");
        QTest::addColumn<bool>("bloqueada");
        QTest::addColumn<bool>("altOs");
        QTest::addColumn<bool>("altOrca");
        QTest::addColumn<QString>("mensagem");
        const QString entrada = "Está ordem de serviço já foi finalizada,você não tem permissão para alterar.";
        const QString bancada = "Esta ordem de serviço foi finalizada,você não tem permissão para alterar.";
        const QString valores = "Esta ordem de serviço foi definido seu Status e valores,você não tem permissão para alterar.";
        QTest::newRow("entrada finalizada") << int(TelaOrdem::Entrada) << true << false << false << true << entrada;
        QTest::newRow("entrega finalizada") << int(TelaOrdem::Saida) << true << false << false << true << entrada;
        QTest::newRow("bancada finalizada") << int(TelaOrdem::Bancada) << true << true << false << false << bancada;
        QTest::newRow("completa finalizada") << int(TelaOrdem::Completa) << true << false << false << true << bancada;
        QTest::newRow("finalizada com direito") << int(TelaOrdem::Entrada) << true << false << true << false << "";
        QTest::newRow("bancada travada") << int(TelaOrdem::Bancada) << false << true << true << false << valores;
        QTest::newRow("completa travada") << int(TelaOrdem::Completa) << false << true << true << false << valores;
        QTest::newRow("travada com direito") << int(TelaOrdem::Bancada) << false << true << false << true << "";
        QTest::newRow("trava nao vale na entrada") << int(TelaOrdem::Entrada) << false << true << false << false << "";
        QTest::newRow("trava nao vale na entrega") << int(TelaOrdem::Saida) << false << true << false << false << "";
    }
    void regras()
    {
        QFETCH(int, tela);
        QFETCH(bool, saida);
        QFETCH(bool, bloqueada);
        QFETCH(bool, altOs);
        QFETCH(bool, altOrca);
        QFETCH(QString, mensagem);
        sessao().DireitoAltOs = altOs;
        sessao().DireitoAltOrca = altOrca;
        const auto r = TravaOrdem::verificarAlteracao(saida, bloqueada, TelaOrdem(tela));
        QCOMPARE(r.has_value(), !mensagem.isEmpty());
        if (r) {
            QCOMPARE(r->mensagem, mensagem);
            QCOMPARE(r->seguimento, Recusa::SenhaLiberaAltOs);
        }
    }

    void removerPecaEEditar()
    {
        sessao().DireitoAltOrca = 0;
        QCOMPARE(TravaOrdem::verificarRemocaoPeca()->mensagem,
                 QString("Esta ordem de serviço já foi definido seu Status e valores e você não tem permissão para alterar."));
        Ordem o;
        o.OrdemBloqueada = true;
        TravaOrdem::aoEditar(o, TelaOrdem::Bancada);
        QVERIFY(o.OrdemBloqueada);  // only DireitoAltOrca releases the box
        sessao().DireitoAltOrca = 1;
        QVERIFY(!TravaOrdem::verificarRemocaoPeca());
        TravaOrdem::aoEditar(o, TelaOrdem::Bancada);
        QVERIFY(!o.OrdemBloqueada);
    }

    void sairDepoisDeLiberar()
    {
        sessao().LiberaAltOs = 0;
        QVERIFY(!TravaOrdem::aoSairDaTela());
        sessao().LiberaAltOs = 1;
        QCOMPARE(*TravaOrdem::aoSairDaTela(), QString("Você tem que se logar no sistema novamente."));
        QCOMPARE(sessao().LiberaAltOs, 0);
    }
};

QTEST_GUILESS_MAIN(TesteTravaOrdem)
#include "tst_travaordem.moc"
