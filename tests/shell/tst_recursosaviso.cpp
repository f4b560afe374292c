#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QtTest>

#include "apoio/BancoTeste.h"
#include "orders/AvisoCliente.h"
#include "shell/RecursosAviso.h"
#include "ui/Dialogos.h"

// The box where the shop writes its notices' texts, on its own as the configuration
// screen will hold it.
class TstRecursosAviso : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
    }

    void idaEVolta_data() { linhasMotores(); }
    void idaEVolta()
    {
        BANCO_DO_MOTOR(b);
        RecursosAviso caixa;
        caixa.carregar(b.banco());
        auto* ativo = caixa.findChild<QCheckBox*>("ChkAvisoAtivo");
        auto* peca = caixa.findChild<QPlainTextEdit*>("TxtAviso(1)");
        auto* dias = caixa.findChild<QSpinBox*>("SpnDiasGarantia");
        // A new store: the standard texts to start from, the button off, 90 days.
        QVERIFY(!ativo->isChecked());
        QCOMPARE(peca->toPlainText(), AvisoCliente::modeloPadrao(AvisoCliente::Situacao::AguardandoPeca));
        QCOMPARE(dias->value(), 90);

        const QString texto = "Oi \"@NOMECLIENTE\", a peça d'@MARCAPRODUTO chegou?\n@TAGNOVA";
        ativo->setChecked(true);
        peca->setPlainText(texto);
        dias->setValue(180);
        QVERIFY(caixa.salvar(b.banco()));

        RecursosAviso outra;
        outra.carregar(b.banco());
        QVERIFY(outra.findChild<QCheckBox*>("ChkAvisoAtivo")->isChecked());
        QCOMPARE(outra.findChild<QPlainTextEdit*>("TxtAviso(1)")->toPlainText(), texto);
        QCOMPARE(outra.findChild<QSpinBox*>("SpnDiasGarantia")->value(), 180);
        QCOMPARE(outra.findChild<QPlainTextEdit*>("TxtAviso(2)")->toPlainText(),
                 AvisoCliente::modeloPadrao(AvisoCliente::Situacao::Consertado));
    }

    // Ten thousand characters would make a link no browser takes whole: refused with a
    // message, and nothing of the box is written.
    void textoLongoDemais()
    {
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        RecursosAviso caixa;
        caixa.carregar(b.banco());
        caixa.findChild<QCheckBox*>("ChkAvisoAtivo")->setChecked(true);
        caixa.findChild<QPlainTextEdit*>("TxtAviso(3)")->setPlainText(QString(10000, 'x'));
        QVERIFY(!caixa.salvar(b.banco()));
        QVERIFY(Dialogos::Roteiro::contem("\"Pronto para retirada\" tem 10000 caracteres; o limite é 1000"));
        QVERIFY(!AvisoCliente::lerConfig(b.banco()).ativo);
        caixa.findChild<QPlainTextEdit*>("TxtAviso(3)")->setPlainText(QString(1000, 'x'));
        QVERIFY(caixa.salvar(b.banco()));
        QCOMPARE(AvisoCliente::lerConfig(b.banco()).modelo(AvisoCliente::Situacao::ProntoRetirada), QString(1000, 'x'));
    }
};

QTEST_MAIN(TstRecursosAviso)
#include "tst_recursosaviso.moc"
