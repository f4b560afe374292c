#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <memory>

#include "apoio/ArquivosTeste.h"
#include "ui/Dialogos.h"
#include "ui/ProgressoCopia.h"

using namespace ArquivosTeste;

class TesteProgressoCopia : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
    }
    void cleanup()
    {
        ProgressoCopia::aoCriar({});
        Dialogos::Roteiro::encerrar();
    }

    void desfechos_data()
    {
        QTest::addColumn<QString>("caso");
        QTest::addColumn<QString>("mensagem");    // the critical box, empty for none
        QTest::addColumn<QString>("rotulo");      // the caller's label at the end
        QTest::addColumn<int>("resultado");
        QTest::addColumn<QByteArray>("destinoNoFim");
        const QByteArray novo(3 * CopiadorArquivo::TamanhoBloco + 7, 'n');
        const QByteArray antigo("copia antiga");
        QTest::newRow("copia completa") << "ok" << "" << "Copiando arquivo..."
                                        << int(ResultadoCopia::Concluida) << novo;
        QTest::newRow("botao cancelar") << "cancelar" << "Cópia cancelada" << "Cópia cancelada"
                                        << int(ResultadoCopia::Cancelada) << QByteArray();
        QTest::newRow("origem ilegivel") << "falha" << "Falha na cópia!!!" << "Falha na cópia"
                                         << int(ResultadoCopia::Falhou) << QByteArray();
        QTest::newRow("nao substituir o destino existente") << "naoSubstitui" << "Cópia cancelada"
                                                            << "Cópia cancelada" << int(ResultadoCopia::Cancelada)
                                                            << antigo;
        QTest::newRow("substituir o destino existente") << "substitui" << "" << "Copiando arquivo..."
                                                        << int(ResultadoCopia::Concluida) << novo;
        QTest::newRow("cancelar mantem o destino existente") << "cancelaSobreExistente" << "Cópia cancelada"
                                                             << "Cópia cancelada"
                                                             << int(ResultadoCopia::Cancelada) << antigo;
    }
    void desfechos()
    {
        QFETCH(QString, caso);
        QFETCH(QString, mensagem);
        QFETCH(QString, rotulo);
        QFETCH(int, resultado);
        QFETCH(QByteArray, destinoNoFim);
        QTemporaryDir dir;
        const QByteArray novo(3 * CopiadorArquivo::TamanhoBloco + 7, 'n');
        grava(dir.filePath("TOLDEX.mdb"), novo);
        const bool existe = caso == "naoSubstitui" || caso == "substitui" || caso == "cancelaSobreExistente";
        if (existe) {
            grava(dir.filePath("back.dat"), "copia antiga");
            caso == "naoSubstitui" ? Dialogos::Roteiro::responderNao() : Dialogos::Roteiro::responderSim();
        }
        if (caso.startsWith("cancela")) {
            // The user presses Cancelar while the first block is being written: the copying
            // thread waits for the click to be handled, so the copy can't end first.
            ProgressoCopia::aoCriar([](ProgressoCopia* janela) {
                auto* botao = janela->findChild<QPushButton*>("Cancelar");
                QVERIFY(botao);
                QObject::connect(&janela->copiador(), &CopiadorArquivo::progresso, janela,
                                 [janela, botao, clicado = std::make_shared<std::atomic<bool>>(false)](
                                     qint64 copiados, qint64) {
                                     if (copiados > 0 && !clicado->exchange(true))
                                         QMetaObject::invokeMethod(janela, [janela, botao] {
                                             QVERIFY(janela->isVisible());
                                             QTest::mouseClick(botao, Qt::LeftButton);
                                         }, Qt::BlockingQueuedConnection);
                                 }, Qt::DirectConnection);
            });
        }
        const QString origem = dir.filePath(caso == "falha" ? "nada.mdb" : "TOLDEX.mdb");
        QString visto;
        QString erro;
        const ResultadoCopia r = CopiaArquivo(nullptr, origem, dir.filePath("back.dat"),
                                              [&visto](const QString& t) { visto = t; }, SeExistir::Perguntar, &erro);
        QCOMPARE(int(r), resultado);
        QCOMPARE(visto, rotulo);
        QCOMPARE(Dialogos::Roteiro::contem("Já existe um arquivo chamado \"back.dat\""), existe);
        const bool comCaixa = !mensagem.isEmpty();
        QCOMPARE(Dialogos::Roteiro::registros().size(), int(existe) + int(comCaixa));
        if (comCaixa)
            QCOMPARE(Dialogos::Roteiro::ultimoTexto(), mensagem);
        QCOMPARE(erro.isEmpty(), r != ResultadoCopia::Falhou);
        // Nothing half-written is ever left: either the whole copy, the old file, or nothing.
        QCOMPARE(le(dir.filePath("back.dat")), destinoNoFim);
        QCOMPARE(arquivos(dir.path()).size(), 1 + int(!destinoNoFim.isEmpty()));
        // The window is gone once the copy has ended.
        for (QWidget* w : QApplication::topLevelWidgets())
            QVERIFY(w->objectName() != "ProgressoCopia" || !w->isVisible());
    }
};

QTEST_MAIN(TesteProgressoCopia)
#include "tst_progressocopia.moc"
