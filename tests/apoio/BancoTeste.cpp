#include "apoio/BancoTeste.h"

#include <QAtomicInt>
#include <QCoreApplication>
#include <QTest>

bool BancoTeste::postgresDisponivel()
{
    return qEnvironmentVariableIsSet("TOLDEX_PG_HOST");
}

namespace {

ConfigBanco configPg(const QString& nome)
{
    ConfigBanco c;
    c.motor = Motor::PostgreSQL;
    c.host = qEnvironmentVariable("TOLDEX_PG_HOST");
    c.porta = qEnvironmentVariableIntValue("TOLDEX_PG_PORT");
    if (c.porta == 0)
        c.porta = 5432;
    c.usuario = qEnvironmentVariable("TOLDEX_PG_USUARIO", QStringLiteral("postgres"));
    c.nomeBanco = nome;
    return c;
}

} // namespace

BancoTeste::BancoTeste(Motor motor)
{
    try {
        if (motor == Motor::SQLite) {
            m_config.motor = Motor::SQLite;
            m_config.pasta = m_dir.path();
            m_config.criarSeNaoExistir = true;
        } else {
            if (!postgresDisponivel()) {
                m_motivo = QStringLiteral("PostgreSQL de teste não configurado (TOLDEX_PG_HOST)");
                return;
            }
            static QAtomicInt n;
            const QString nome = QStringLiteral("t_%1_%2").arg(QCoreApplication::applicationPid()).arg(n.fetchAndAddRelaxed(1));
            auto admin = Banco::abrir(configPg(QStringLiteral("postgres")));
            admin->executar(QStringLiteral("DROP DATABASE IF EXISTS %1").arg(nome));
            admin->executar(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8'").arg(nome));
            m_config = configPg(nome);
        }
        m_banco = Banco::abrir(m_config);
        m_banco->garantirEsquema();
    } catch (const ErroBanco& e) {
        m_motivo = e.textoCompleto();
        m_banco.reset();
    }
}

BancoTeste::~BancoTeste()
{
    m_banco.reset();
    if (m_config.motor == Motor::PostgreSQL && !m_config.nomeBanco.isEmpty() && postgresDisponivel()) {
        try {
            auto admin = Banco::abrir(configPg(QStringLiteral("postgres")));
            admin->executar(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(m_config.nomeBanco));
        } catch (const ErroBanco&) {
        }
    }
}

std::unique_ptr<Banco> BancoTeste::outraConexao() const
{
    return Banco::abrir(m_config);
}

void linhasMotores()
{
    QTest::addColumn<int>("motor");
    QTest::newRow("sqlite") << static_cast<int>(Motor::SQLite);
    QTest::newRow("postgres") << static_cast<int>(Motor::PostgreSQL);
}
