#include "maintenance/CopiaPostgres.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"

namespace CopiaPostgres {

namespace {

QProcessEnvironment ambiente(const ConfigBanco& c)
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    if (!c.host.isEmpty())
        e.insert(QStringLiteral("PGHOST"), c.host);
    e.insert(QStringLiteral("PGPORT"), QString::number(c.porta));
    if (!c.usuario.isEmpty())
        e.insert(QStringLiteral("PGUSER"), c.usuario);
    if (!c.senha.isEmpty())
        e.insert(QStringLiteral("PGPASSWORD"), c.senha);
    e.insert(QStringLiteral("PGDATABASE"), c.nomeBanco);
    e.insert(QStringLiteral("PGCONNECT_TIMEOUT"), QStringLiteral("10"));
    return e;
}

// Runs a tool to its end, stopping it within a moment of a cancel.
Resultado rodar(const QString& programa, const QStringList& args, const QProcessEnvironment& env, Trabalho* t,
                QByteArray* saida = nullptr, const QString& arquivoCrescendo = {}, qint64 total = 0)
{
    QProcess p;
    p.setProcessEnvironment(env);
    if (!saida)
        p.setStandardOutputFile(QProcess::nullDevice());
    p.start(programa, args);
    if (!p.waitForStarted(10000))
        return Resultado::falha(QStringLiteral("O programa %1 do PostgreSQL não foi encontrado neste computador.").arg(programa),
                                p.errorString());
    while (!p.waitForFinished(200)) {
        if (saida)
            saida->append(p.readAllStandardOutput());
        if (t && t->cancelado()) {
            p.kill();
            p.waitForFinished(5000);
            return Resultado::cancelou();
        }
        if (t)
            t->informar(arquivoCrescendo.isEmpty() ? 0 : QFileInfo(arquivoCrescendo).size(), total);
    }
    if (saida)
        saida->append(p.readAllStandardOutput());
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return Resultado::falha(QStringLiteral("O %1 terminou com erro.").arg(programa),
                                QString::fromLocal8Bit(p.readAllStandardError()).trimmed());
    return Resultado::sucesso();
}

} // namespace

Resultado fazer(const ConfigBanco& config, const QString& destino, Trabalho& t)
{
    const QString parcial = ArquivoBackup::parcial(destino);
    QFile::remove(parcial);
    Resultado r = rodar(QStringLiteral("pg_dump"), {QStringLiteral("--format=custom"), QStringLiteral("--no-owner"),
                                                    QStringLiteral("--file=") + parcial},
                        ambiente(config), &t);
    if (r.ok())
        r = lerInteiro(parcial, t);
    if (r.ok() && t.cancelado())
        r = Resultado::cancelou();
    QString erro;
    if (r.ok() && (!ArquivoBackup::sincronizar(parcial) || !ArquivoBackup::renomear(parcial, destino, &erro)))
        r = Resultado::falha(CopiaSeguranca::TextoFalhaGravar, erro);
    if (!r.ok()) {
        QFile::remove(parcial);
        if (r.estado == Resultado::Estado::Falhou)
            r = Resultado::falha(CopiaSeguranca::TextoFalhaGravar, r.textoCompleto());
        return r;
    }
    ArquivoBackup::sincronizarPasta(QFileInfo(destino).absolutePath());
    return r;
}

Resultado lerInteiro(const QString& arquivo, Trabalho& t)
{
    if (ArquivoBackup::tipo(arquivo) != ArquivoBackup::Tipo::Postgres)
        return Resultado::falha(ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup));
    QByteArray lista;
    Resultado r = rodar(QStringLiteral("pg_restore"), {QStringLiteral("--list"), arquivo},
                        QProcessEnvironment::systemEnvironment(), &t, &lista);
    if (!r.ok())
        return r.cancelado() ? r : Resultado::falha(ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado), r.detalhe);
    if (!lista.toLower().contains(" table public empresa "))
        return Resultado::falha(ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup));
    r = rodar(QStringLiteral("pg_restore"), {QStringLiteral("--file=") + QProcess::nullDevice(), arquivo},
              QProcessEnvironment::systemEnvironment(), &t);
    if (!r.ok() && !r.cancelado())
        return Resultado::falha(ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado), r.detalhe);
    return r;
}

Resultado restaurar(const ConfigBanco& config, const QString& arquivo, bool limpar, Trabalho& t)
{
    QStringList args = {QStringLiteral("--no-owner"), QStringLiteral("--exit-on-error"),
                        QStringLiteral("--dbname=") + config.nomeBanco};
    if (limpar)
        args << QStringLiteral("--clean") << QStringLiteral("--if-exists") << QStringLiteral("--single-transaction");
    args << arquivo;
    return rodar(QStringLiteral("pg_restore"), args, ambiente(config), &t);
}

bool lerTabela(const QString& arquivo, const QString& tabela, Tabela* saida, QString* erro)
{
    QByteArray sql;
    const Resultado r = rodar(QStringLiteral("pg_restore"),
                              {QStringLiteral("--data-only"), QStringLiteral("--table=") + tabela.toLower(),
                               QStringLiteral("--file=-"), arquivo},
                              QProcessEnvironment::systemEnvironment(), nullptr, &sql);
    if (!r.ok()) {
        if (erro)
            *erro = r.textoCompleto();
        return false;
    }
    // COPY public.cliente (codcliente, nomecliente, ...) FROM stdin;  rows by tabs, "\." ends.
    bool dentro = false;
    for (const QByteArray& bruta : sql.split('\n')) {
        const QString linha = QString::fromUtf8(bruta);
        if (!dentro) {
            if (linha.startsWith(QLatin1String("COPY "))) {
                const int a = linha.indexOf(QLatin1Char('(')), b = linha.lastIndexOf(QLatin1Char(')'));
                for (const QString& c : linha.mid(a + 1, b - a - 1).split(QLatin1Char(',')))
                    saida->colunas << c.trimmed();
                dentro = true;
            }
            continue;
        }
        if (linha == QLatin1String("\\."))
            break;
        QStringList campos = linha.split(QLatin1Char('\t'));
        for (QString& c : campos) {
            if (c == QLatin1String("\\N"))
                c.clear();
            c.replace(QLatin1String("\\t"), QLatin1String("\t")).replace(QLatin1String("\\n"), QLatin1String("\n"))
                .replace(QLatin1String("\\\\"), QLatin1String("\\"));
        }
        saida->linhas << campos;
    }
    return true;
}

}
