#include "Manutencao.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

#include "data/Banco.h"
#include "data/CopiadorArquivo.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"
#include "maintenance/Reparo.h"
#include "maintenance/Restauracao.h"
#include "maintenance/SqliteDireto.h"

namespace {

double segundos(const QElapsedTimer& t) { return t.nsecsElapsed() / 1e9; }

void encher(const ConfigBanco& c, qint64 bytes, QTextStream& err)
{
    SqliteDireto db(c.arquivoSqlite(), SqliteDireto::Modo::Escrita);
    qint64 n = 0;
    // Customers with long notes: a store of the size wanted in a few minutes, with its
    // indexes and search copies kept as a shop's would be.
    while (QFileInfo(c.arquivoSqlite()).size() + QFileInfo(c.arquivoSqlite() + "-wal").size() < bytes) {
        db.executar("BEGIN");
        db.executar("WITH RECURSIVE s(n) AS (SELECT CAST(? AS INTEGER) UNION ALL SELECT n + 1 FROM s WHERE n < CAST(? AS INTEGER)) "
                    "INSERT INTO Cliente (CodCliente, NomeCliente, Endereco, Telefone, Observacao) "
                    "SELECT n, 'CLIENTE ' || n, 'RUA ' || (n % 997), '1199' || n, hex(randomblob(600)) FROM s",
                    {QString::number(n + 1), QString::number(n + 20000)});
        db.executar("COMMIT");
        db.executar("PRAGMA wal_checkpoint(TRUNCATE)");
        n += 20000;
        err << "\r" << (QFileInfo(c.arquivoSqlite()).size() >> 20) << " MB" << Qt::flush;
    }
    err << "\n";
}

} // namespace

int medeManutencao(const QString& pasta, int megas)
{
    QTextStream out(stdout), err(stderr);
    ConfigBanco c;
    c.pasta = pasta;
    c.criarSeNaoExistir = true;
    // A store of the size asked, left by an earlier run, is used again.
    if (QFileInfo(c.arquivoSqlite()).size() < (qint64(megas) << 20) * 9 / 10) {
        QDir(pasta).removeRecursively();
        QDir().mkpath(pasta);
        Banco::abrir(c)->garantirEsquema();
        err << "Preenchendo " << c.arquivoSqlite() << "...\n";
        encher(c, qint64(megas) << 20, err);
    }
    for (const QString& resto : QDir(pasta).entryList({"Toldex.Backup*", "TOLDEX.db.antes*", "copia-simples.db", "cancelado"}))
        QFile::remove(QDir(pasta).filePath(resto));
    const qint64 tamanho = QFileInfo(c.arquivoSqlite()).size();

    const QString copia = QDir(pasta).filePath("copia-simples.db");
    const QString destino = QDir(pasta).filePath(ArquivoBackup::nome(QDateTime::currentDateTime()));
    auto copiaSimples = [&] {
        QFile::remove(copia);
        QElapsedTimer t;
        t.start();
        CopiadorArquivo(c.arquivoSqlite(), copia).copiar();
        return segundos(t);
    };
    const double copia1 = copiaSimples();
    Trabalho trabalho;
    QElapsedTimer t;
    t.start();
    const Resultado r = CopiaSeguranca::fazer(c, destino, trabalho);
    const double backup = segundos(t);
    const double copia2 = copiaSimples();
    const double copiaMenor = qMin(copia1, copia2);

    // A cancel half a second in: how long until the step has stopped and cleaned up.
    double parada = 0;
    {
        Trabalho tc;
        QElapsedTimer desde;
        QTimer::singleShot(500, &tc, [&] {
            desde.start();
            tc.cancelar();
        });
        const QString outro = QDir(pasta).filePath("cancelado");
        tc.executar([&](Trabalho& tr) { return CopiaSeguranca::fazer(c, outro, tr); });
        parada = desde.isValid() ? segundos(desde) : 0;
    }

    t.restart();
    Resultado rr = Restauracao::prepararSqlite(destino, pasta, trabalho);
    QString guardado;
    if (rr.ok())
        rr = Restauracao::trocarSqlite(pasta, QDateTime::currentDateTime(), &guardado);
    const double restauracao = segundos(t);
    QFile::remove(guardado);

    t.restart();
    const Resultado rp = Reparo::reparar(c, trabalho);
    const double reparo = segundos(t);

    out << QStringLiteral("Manutenção de um banco SQLite de %1 MB\n").arg(tamanho >> 20);
    out << QStringLiteral("| %1 | %2 |\n").arg("operação", -50).arg("segundos", 10);
    out << "|" << QString(52, '-') << "|" << QString(12, '-') << "|\n";
    auto linha = [&](const QString& nome, double s) { out << QStringLiteral("| %1 | %2 |\n").arg(nome, -50).arg(s, 10, 'f', 2); };
    linha("cópia simples do arquivo (melhor de duas)", copiaMenor);
    linha(QStringLiteral("backup verificado%1").arg(r.ok() ? "" : " (FALHOU)"), backup);
    linha("parada após Cancelar", parada);
    linha(QStringLiteral("restauração (conferência, cópia, troca)%1").arg(rr.ok() ? "" : " (FALHOU)"), restauracao);
    linha(QStringLiteral("reparo (verificação completa e compactação)%1").arg(rp.ok() ? "" : " (FALHOU)"), reparo);
    const double razao = copiaMenor > 0 ? backup / copiaMenor : 0;
    out << QStringLiteral("Backup / cópia: %1 (alvo: até 3)\n").arg(razao, 0, 'f', 2);
    out.flush();
    return r.ok() && razao <= 3 ? 0 : 1;
}
