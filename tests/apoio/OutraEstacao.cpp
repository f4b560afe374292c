#include "apoio/OutraEstacao.h"

#include <QProcess>

#include "apoio/BancoTeste.h"

QString outraEstacao(const BancoTeste& b, const QString& sql)
{
    const ConfigBanco& c = b.config();
    if (c.motor == Motor::SQLite) {
        try {
            b.outraConexao()->executar(sql);
        } catch (const ErroBanco& e) {
            return e.textoCompleto();
        }
        return {};
    }
    QProcess p;
    p.start(QStringLiteral("psql"), {QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-v"),
                                     QStringLiteral("ON_ERROR_STOP=1"), QStringLiteral("-h"), c.host,
                                     QStringLiteral("-p"), QString::number(c.porta), QStringLiteral("-U"),
                                     c.usuario, QStringLiteral("-d"), c.nomeBanco, QStringLiteral("-c"), sql});
    if (!p.waitForFinished(60000))
        return QStringLiteral("psql não terminou: ") + p.errorString();
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return QString::fromLocal8Bit(p.readAllStandardError());
    return {};
}
