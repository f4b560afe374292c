#include <QMutex>
#include <QTest>
#include <thread>

#include "ApoioOrdens.h"
#include "apoio/BancoTeste.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"
#include "orders/GravacaoOrdem.h"
#include "orders/NumeroOrdem.h"
#include "orders/TransicoesOrdem.h"

using namespace ApoioOrdens;

namespace {

void contadores(Banco& b, qint64 os, qint64 fabrica)
{
    b.executar(QStringLiteral("UPDATE Empresa SET CodOs = ?, CodOsfabrica = ?"), {os, fabrica});
}

qint64 empresa(Banco& b, const char* coluna)
{
    return b.escalar(QStringLiteral("SELECT %1 FROM Empresa").arg(QLatin1String(coluna))).toLongLong();
}

qint64 salvarNova(Banco& b, const QString& nome, TransicoesOrdem::OpcoesEntrada op = {})
{
    Ordem o = ordem(nome);
    TransicoesOrdem::salvarEntrada(b, o, op);
    return o.CodOs;
}

} // namespace

class TesteNumeroOrdem : public QObject {
    Q_OBJECT
private slots:
    void init() { sessaoCompleta(); }

    void seteCaracteres_data()
    {
        QTest::addColumn<QString>("ultimo");
        QTest::addColumn<qint64>("proximo");
        QTest::newRow("tabela vazia") << "" << qint64(1);
        QTest::newRow("comum") << "41" << qint64(42);
        QTest::newRow("sete noves passam de sete digitos") << "9999999" << qint64(10000000);
        QTest::newRow("oito digitos perdem a cabeca") << "12345678" << qint64(2345679);
        QTest::newRow("zeros a esquerda") << "0000012" << qint64(13);
    }
    void seteCaracteres()
    {
        QFETCH(QString, ultimo);
        QFETCH(qint64, proximo);
        QCOMPARE(Numeracao::proximoDe(ultimo), proximo);
    }

    void ultimaOrdem_data() { linhasMotores(); }
    void ultimaOrdem()
    {
        BANCO_DO_MOTOR(b);
        QCOMPARE(salvarNova(b.banco(), "PRIMEIRO"), qint64(1));
        QCOMPARE(salvarNova(b.banco(), "SEGUNDO"), qint64(2));
        inserirOrdem(b.banco(), 12345678, QStringLiteral("GRANDE"));
        QCOMPARE(salvarNova(b.banco(), "DEPOIS DO GRANDE"), qint64(2345679));
        // The register codes follow the same rule.
        Transacao tr(b.banco());
        QCOMPARE(NumeroOrdem::proximoCodCliente(b.banco()), qint64(1));
        QCOMPARE(NumeroOrdem::proximoCodManu(b.banco()), qint64(1));
        b->executar(QStringLiteral("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) VALUES ('0000099', 'NAO LIGA')"));
        QCOMPARE(NumeroOrdem::proximoCodDefeito(b.banco()), qint64(100));
    }

    void contadorDaEmpresa_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("copiar");
        for (int m : {int(Motor::SQLite), int(Motor::PostgreSQL)}) {
            const QString e = m == int(Motor::SQLite) ? "sqlite" : "postgres";
            QTest::newRow(qPrintable(e + " fabrica fica no seu campo")) << m << false;
            QTest::newRow(qPrintable(e + " fabrica vira o numero da ordem")) << m << true;
        }
    }
    void contadorDaEmpresa()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, copiar);
        sessao().CfgAtivaOs = QStringLiteral("True");
        contadores(b.banco(), 41, 9);
        QCOMPARE(salvarNova(b.banco(), "PELO CONTADOR"), qint64(42));
        QCOMPARE(empresa(b.banco(), "CodOs"), qint64(42));
        QCOMPARE(empresa(b.banco(), "CodOsfabrica"), qint64(9));  // factory counter off: untouched

        sessao().CfgAtivaOsFabrica = QStringLiteral("True");
        QString perguntado;
        TransicoesOrdem::OpcoesEntrada op;
        op.perguntar = [&](const QString& titulo, const QString& texto) {
            perguntado = titulo + QLatin1Char('|') + texto;
            return copiar;
        };
        Ordem o = ordem(QStringLiteral("FABRICA"));
        o.Fabrica = true;
        TransicoesOrdem::salvarEntrada(b.banco(), o, op);
        QCOMPARE(perguntado, QString("Alterar registro|Quer copiar o numero da -OS- de fábrica na caixa Nº- ordem de "
                                     "serviço. \n\n O.S: 10"));
        QCOMPARE(o.CodFabrica, QString("10"));
        QCOMPARE(o.CodOs, copiar ? qint64(10) : qint64(43));
        QCOMPARE(empresa(b.banco(), "CodOs"), copiar ? qint64(42) : qint64(43));
        QCOMPARE(empresa(b.banco(), "CodOsfabrica"), qint64(10));
        QVERIFY(o.Garantia && o.Fabrica);
    }

    void numeroDigitado_data()
    {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<bool>("aceito");
        QTest::newRow("algarismos") << " 105 " << true;
        QTest::newRow("letras recusadas") << "10A" << false;
        QTest::newRow("sinal recusado") << "-3" << false;
        QTest::newRow("virgula recusada") << "1,5" << false;
    }
    void numeroDigitado()
    {
        QFETCH(QString, digitado);
        QFETCH(bool, aceito);
        QString erro;
        const auto n = NumeroOrdem::lerNumero(digitado, &erro);
        QCOMPARE(n.has_value(), aceito);
        QCOMPARE(erro.isEmpty(), aceito);
        if (!aceito)
            QVERIFY(erro.contains(QStringLiteral("somente algarismos")));
        QVERIFY(!NumeroOrdem::lerNumero(QString(), &erro));
    }

    void numeroRepetidoSoAvisa_data() { linhasMotores(); }
    void numeroRepetidoSoAvisa()
    {
        BANCO_DO_MOTOR(b);
        b->executar(QStringLiteral("INSERT INTO OrdemServico (CodOs, NomeCliente, CodCliente, Tipo) "
                                   "VALUES (5, 'MARIA', '77', 'TV')"));
        const auto aviso = NumeroOrdem::avisoNumeroExistente(b.banco(), 5);
        QVERIFY(aviso);
        QCOMPARE(aviso->titulo, QString("Este numero já existe"));
        QCOMPARE(aviso->texto, QString("MARIA-77-TV"));
        QVERIFY(!NumeroOrdem::avisoNumeroExistente(b.banco(), 6));
        // A second order may carry the same number: the edit is stored.
        Ordem o = ordem(QStringLiteral("JOAO"));
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        o.CodOs = 5;
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico WHERE CodOs = 5")).toInt(), 2);
    }

    void duasEstacoes_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<bool>("contador");
        QTest::newRow("sqlite pela ultima ordem") << int(Motor::SQLite) << false;
        QTest::newRow("sqlite pelo contador") << int(Motor::SQLite) << true;
        QTest::newRow("postgres pela ultima ordem") << int(Motor::PostgreSQL) << false;
        QTest::newRow("postgres pelo contador") << int(Motor::PostgreSQL) << true;
    }
    void duasEstacoes()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(bool, contador);
        sessao().CfgAtivaOs = contador ? QStringLiteral("True") : QStringLiteral("False");
        const int porEstacao = 12;
        QMutex registro;  // the list of live connections is not shared between threads
        QList<qint64> numeros;
        QStringList erros;
        auto estacao = [&](int n) {
            registro.lock();
            std::unique_ptr<Banco> c = b.outraConexao();
            registro.unlock();
            for (int i = 0; i < porEstacao; ++i) {
                try {
                    const qint64 os = salvarNova(*c, QStringLiteral("ESTACAO %1").arg(n));
                    QMutexLocker l(&registro);
                    numeros << os;
                } catch (const ErroBanco& e) {
                    QMutexLocker l(&registro);
                    erros << e.textoCompleto();
                }
            }
            QMutexLocker l(&registro);
            c.reset();
        };
        std::thread a(estacao, 1), c(estacao, 2);
        a.join();
        c.join();
        QVERIFY2(erros.isEmpty(), qPrintable(erros.join('\n')));
        std::sort(numeros.begin(), numeros.end());
        QList<qint64> esperados;
        for (int i = 1; i <= 2 * porEstacao; ++i)
            esperados << i;
        QCOMPARE(numeros, esperados);
    }

    void falhaNaoGastaNumero_data() { linhasMotores(); }
    void falhaNaoGastaNumero()
    {
        BANCO_DO_MOTOR(b);
        sessao().CfgAtivaOs = QStringLiteral("True");
        contadores(b.banco(), 41, 0);
        // The defects' table can't take the rows: the save fails after the order row.
        b->executar(QStringLiteral("ALTER TABLE SintomaOS RENAME COLUMN DefeitoOS TO DefeitoAntigo"));
        Ordem o = ordem(QStringLiteral("FALHA"));
        o.sintomas = {{QStringLiteral("1"), QStringLiteral("NAO LIGA")}};
        QVERIFY_THROWS_EXCEPTION(ErroBanco, TransicoesOrdem::salvarEntrada(b.banco(), o, {}));
        QCOMPARE(o.CodOs, qint64(0));
        QVERIFY(o.nova());
        QCOMPARE(empresa(b.banco(), "CodOs"), qint64(41));
        QCOMPARE(b->escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico")).toInt(), 0);
        b->executar(QStringLiteral("ALTER TABLE SintomaOS RENAME COLUMN DefeitoAntigo TO DefeitoOS"));
        TransicoesOrdem::salvarEntrada(b.banco(), o, {});
        QCOMPARE(o.CodOs, qint64(42));
    }
};

QTEST_GUILESS_MAIN(TesteNumeroOrdem)
#include "tst_numeroordem.moc"
