#pragma once
#include <QString>
#include <QTemporaryDir>
#include <memory>

#include "data/Banco.h"

// A fresh store for one test: an SQLite file in a temporary folder, or a new database in
// the throwaway PostgreSQL cluster that the test command starts (TOLDEX_PG_HOST and
// friends). Dropped when the object goes.
class BancoTeste {
public:
    explicit BancoTeste(Motor motor);
    ~BancoTeste();

    bool pronto() const { return m_banco != nullptr; }
    const QString& motivo() const { return m_motivo; }
    Banco& banco() { return *m_banco; }
    Banco* operator->() { return m_banco.get(); }
    const ConfigBanco& config() const { return m_config; }
    // Another connection to the same store, as a second station would have.
    std::unique_ptr<Banco> outraConexao() const;
    QString pasta() const { return m_dir.path(); }

    static bool postgresDisponivel();

private:
    QTemporaryDir m_dir;
    ConfigBanco m_config;
    std::unique_ptr<Banco> m_banco;
    QString m_motivo;
};

// Adds the column "motor" with one row per engine to a data-driven test.
void linhasMotores();
// Reads the row's engine and makes the store; fails the test (or skips outside CI when
// PostgreSQL isn't set up) when it can't.
#define BANCO_DO_MOTOR(var)                                                            \
    QFETCH(int, motor);                                                                \
    BancoTeste var(static_cast<Motor>(motor));                                         \
    if (!var.pronto()) {                                                               \
        if (qEnvironmentVariableIsSet("CI") || BancoTeste::postgresDisponivel())        \
            QFAIL(qPrintable(var.motivo()));                                           \
        QSKIP(qPrintable(var.motivo()));                                               \
    }
