#include <QFile>
#include <QLabel>
#include <QNetworkProxy>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "AmbienteShell.h"
#include "shell/AvisoPrincipal.h"
#include "shell/Principal.h"
#include "shell/VerificaVersao.h"
#include "ui/Dialogos.h"

// A one-file update site on 127.0.0.1: answers each request with the status and body it
// was given, and remembers the paths asked for.
class SiteAtualizacao {
public:
    SiteAtualizacao(int status, QByteArray corpo)
    {
        QObject::connect(&m_servidor, &QTcpServer::newConnection, [this, status, corpo] {
            QTcpSocket* s = m_servidor.nextPendingConnection();
            QObject::connect(s, &QTcpSocket::readyRead, s, [this, s, status, corpo] {
                m_pedido += s->readAll();
                if (!m_pedido.contains("\r\n\r\n"))
                    return;
                caminhos.append(QString::fromLatin1(m_pedido.split(' ').value(1)));
                m_pedido.clear();
                s->write("HTTP/1.1 " + QByteArray::number(status) + (status == 200 ? " OK" : " Not Found")
                         + "\r\nContent-Type: text/plain\r\nContent-Length: " + QByteArray::number(corpo.size())
                         + "\r\nConnection: close\r\n\r\n" + corpo);
                s->disconnectFromHost();
            });
        });
        m_servidor.listen(QHostAddress::LocalHost);
    }
    QString endereco() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_servidor.serverPort()); }
    QStringList caminhos;

private:
    QTcpServer m_servidor;
    QByteArray m_pedido;
};

class TesteVerificaVersao : public QObject {
    Q_OBJECT
    AmbienteShell* m_amb = nullptr;

    void instalada(const QByteArray& versao)
    {
        QFile f(m_amb->pasta() + "/Versao.txt");
        if (versao.isNull()) {
            f.remove();
            return;
        }
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(versao);
    }

private slots:
    void initTestCase()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        Dialogos::Roteiro::iniciar();
        m_amb = new AmbienteShell;
    }
    void cleanupTestCase() { delete m_amb; }
    void init() { Dialogos::Roteiro::limpar(); }

    void verificacao_data()
    {
        QTest::addColumn<QByteArray>("local");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("remota");
        QTest::addColumn<QString>("endereco");   // "site", "off" (nobody listens), "" (none set)
        QTest::addColumn<int>("esperado");
        using R = VerificaVersao::Resultado;
        QTest::newRow("newer version on the site") << QByteArray("3.0.1\r\n") << 200 << QByteArray("3.0.2\r\nnotas\r\n") << "site" << int(R::NovaVersao);
        QTest::newRow("same version") << QByteArray("3.0.1") << 200 << QByteArray("3.0.1\n") << "site" << int(R::EmDia);
        QTest::newRow("older on the site") << QByteArray("3.1.0") << 200 << QByteArray("3.0.9") << "site" << int(R::EmDia);
        QTest::newRow("compared as text: 3.10 reads older than 3.9") << QByteArray("3.10") << 200 << QByteArray("3.9") << "site" << int(R::NovaVersao);
        QTest::newRow("blank remote file announces nothing") << QByteArray("3.0.1") << 200 << QByteArray("  \r\n") << "site" << int(R::EmDia);
        QTest::newRow("missing file on the site") << QByteArray("3.0.1") << 404 << QByteArray("nada") << "site" << int(R::Falhou);
        QTest::newRow("site unreachable") << QByteArray("3.0.1") << 200 << QByteArray() << "off" << int(R::Falhou);
        QTest::newRow("no address: no check") << QByteArray("3.0.1") << 200 << QByteArray() << "" << int(R::SemEndereco);
        QTest::newRow("no Versao.txt: no check, no error") << QByteArray() << 200 << QByteArray("9.9") << "site" << int(R::SemVersaoLocal);
    }
    void verificacao()
    {
        QFETCH(QByteArray, local);
        QFETCH(int, status);
        QFETCH(QByteArray, remota);
        QFETCH(QString, endereco);
        QFETCH(int, esperado);
        instalada(local);
        QFile::remove(m_amb->pasta() + "/Ver.txt");
        SiteAtualizacao site(status, remota);
        QString url;
        if (endereco == "site") {
            url = site.endereco();
        } else if (endereco == "off") {
            QTcpServer livre;
            livre.listen(QHostAddress::LocalHost);
            url = QStringLiteral("http://127.0.0.1:%1/").arg(livre.serverPort());
        }
        m_amb->gravarIni("Atualizacao", "Endereco", url);

        VerificaVersao v;
        QSignalSpy fim(&v, &VerificaVersao::terminou);
        v.iniciar();
        QTRY_COMPARE_WITH_TIMEOUT(fim.size(), 1, 10000);
        QCOMPARE(int(fim.first().first().value<VerificaVersao::Resultado>()), esperado);
        QCOMPARE(Dialogos::Roteiro::registros().size(), 0);
        if (endereco == "site" && !local.isEmpty()) {
            QCOMPARE(site.caminhos, QStringList{"/UpdateToldex/Versao.txt"});
            if (status == 200) {
                QFile ver(m_amb->pasta() + "/Ver.txt");
                QVERIFY(ver.open(QIODevice::ReadOnly));
                QCOMPARE(ver.readAll(), remota);   // kept byte by byte
            }
        }
    }

    // The main window checks as it loads, shows the notice, and MnuSic checks again.
    void principalAnunciaEAtualiza()
    {
        instalada("3.0.1");
        SiteAtualizacao site(200, "3.0.5\n");
        m_amb->gravarIni("Atualizacao", "Endereco", site.endereco() + "/UpdateToldex/Versao.txt");
        m_amb->gravarIni("Programas", "Atualizador", "/bin/true");
        Principal p;
        p.show();
        auto* aviso = p.avisoPrincipal();
        QTRY_VERIFY(aviso->isVisible());
        QVERIFY(aviso->findChild<QLabel*>("LblNovaVersao")->text().contains("3.0.5"));
        QTest::mouseClick(aviso->findChild<QPushButton*>("Botao(1)"), Qt::LeftButton);
        QVERIFY(!aviso->isVisible());

        p.findChild<QAction*>("MnuSic")->trigger();
        QTRY_VERIFY(aviso->isVisible());
        QCOMPARE(site.caminhos.size(), 2);

        QSignalSpy encerra(aviso, &AvisoPrincipal::encerrar);
        Dialogos::Roteiro::responderNao();
        QTest::mouseClick(aviso->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QCOMPARE(Dialogos::Roteiro::ultimoTexto(), QStringLiteral("O programa será fechado,continuar ?"));
        QCOMPARE(encerra.size(), 0);
        Dialogos::Roteiro::responderSim();
        QTest::mouseClick(aviso->findChild<QPushButton*>("Botao(0)"), Qt::LeftButton);
        QCOMPARE(encerra.size(), 1);
        QVERIFY(!p.isVisible());   // gone without the closing questions
        QVERIFY(!Dialogos::Roteiro::contem("Você quer sair"));
    }
};

QTEST_MAIN(TesteVerificaVersao)
#include "tst_verificaversao.moc"
