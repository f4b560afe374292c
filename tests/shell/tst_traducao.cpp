#include <QApplication>
#include <QTest>

#include "shell/Traducao.h"
#include "ui/Dialogos.h"

// Qt's own windows are in Portuguese once the program has started.
class TesteTraducao : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
    }
    void cleanup() { Dialogos::Roteiro::encerrar(); }

    void botoesDaEntrada_data()
    {
        QTest::addColumn<bool>("traduzido");
        QTest::addColumn<bool>("senha");
        QTest::addColumn<QString>("cancelar");
        // The first row runs before the catalogues go in: it proves the test can tell.
        QTest::newRow("antes da traducao o Qt fala ingles") << false << false << "Cancel";
        QTest::newRow("texto comum") << true << false << "Cancelar";
        QTest::newRow("senha") << true << true << "Cancelar";
    }
    void botoesDaEntrada()
    {
        QFETCH(bool, traduzido);
        QFETCH(bool, senha);
        QFETCH(QString, cancelar);
        if (traduzido)
            QVERIFY2(Traducao::instalar(), "qt6-translations-l10n is not installed");
        Dialogos::Roteiro::responder(QVariant());
        QVERIFY(!Dialogos::entrada(nullptr, QStringLiteral("Digite a senha"), QStringLiteral("Senha"), {}, senha));
        const QStringList botoes = Dialogos::Roteiro::registros().last().botoes;
        QVERIFY2(botoes.contains(cancelar), qPrintable(botoes.join(QLatin1Char('|'))));
        QVERIFY(botoes.contains(QStringLiteral("OK")));
    }
};

QTEST_MAIN(TesteTraducao)
#include "tst_traducao.moc"
