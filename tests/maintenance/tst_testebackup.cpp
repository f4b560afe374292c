#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "ApoioManutencao.h"
#include "apoio/ArquivosTeste.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"
#include "maintenance/TesteBackup.h"
#include "ui/AmbienteTela.h"
#include "ui/RegistroTelas.h"

class TesteTesteBackup : public QObject {
    Q_OBJECT
    QTemporaryDir m_pasta;

    QString backupDe(BancoTeste& b) { return fazerBackup(b.config(), m_pasta.path()); }
    static QWidget* abrirCom(const QString& arquivo)
    {
        QWidget* t = RegistroTelas::abrir("TesteBackup");
        Dialogos::Roteiro::responder(arquivo);
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        return t;
    }
    static QStringList titulos(QWidget* t)
    {
        QStringList r;
        auto* m = t->findChild<QTableView*>("Gride")->model();
        for (int i = 0; m && i < m->columnCount(); ++i)
            r << m->headerData(i, Qt::Horizontal).toString();
        return r;
    }

private slots:
    void cleanup()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // The users' list of a backup shows who they are, never their passwords; the file,
    // whose name holds a "%", opens by its plain path and checks whole.
    void listaUsuariosSemSenha_data() { linhasMotores(); }
    void listaUsuariosSemSenha()
    {
        BANCO_DO_MOTOR(b);
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        b->executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (?, ?, ?)", {1, "ANA", "segredo"});
        b->executar("INSERT INTO Usuario (CodUsuario, NomeUsuario, Senha) VALUES (?, ?, ?)", {2, "BETO", "outro"});
        QWidget* t = abrirCom(backupDe(b));
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QVERIFY2(!t->findChild<QTableView*>("Gride")->model(), "an unchanged list shows nothing");

        t->findChild<QComboBox*>("Combo1")->setCurrentText(QStringLiteral("Usuário"));
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QCOMPARE(t->windowTitle(), QStringLiteral("Lista de Backup Usuários - 2 encontrados"));
        const QStringList cols = titulos(t);
        QVERIFY(cols.contains(QStringLiteral("nomeusuario"), Qt::CaseInsensitive));
        QVERIFY2(!cols.contains(QStringLiteral("senha"), Qt::CaseInsensitive), qPrintable(cols.join(',')));
        auto* m = t->findChild<QTableView*>("Gride")->model();
        for (int r = 0; r < m->rowCount(); ++r)
            for (int c = 0; c < m->columnCount(); ++c)
                QVERIFY(m->index(r, c).data().toString() != QLatin1String("segredo"));

        QTest::mouseClick(t->findChild<QPushButton*>("Botao(2)"), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QStringLiteral("Backup verificado: nenhum defeito encontrado."));
    }

    void backupCortadoEhDanificado_data() { linhasMotores(); }
    void backupCortadoEhDanificado()
    {
        BANCO_DO_MOTOR(b);
        Dialogos::Roteiro::iniciar();
        Dialogos::Roteiro::limpar();
        const QString inteiro = backupDe(b);
        const QByteArray dados = ArquivosTeste::le(inteiro);
        const QString cortado = inteiro + "_cortado";
        ArquivosTeste::grava(cortado, dados.left(dados.size() * 2 / 3));
        QWidget* t = abrirCom(cortado);
        QTest::mouseClick(t->findChild<QPushButton*>("Botao(2)"), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QStringLiteral("Este backup está danificado e não deve ser restaurado."));
    }
};

QTEST_MAIN(TesteTesteBackup)
#include "tst_testebackup.moc"
