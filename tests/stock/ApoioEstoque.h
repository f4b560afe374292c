#pragma once
// Products put straight into the store for the stock tests, and the engines crossed with
// each test's own rows.
#include <QTest>
#include <QVariantMap>

#include "apoio/BancoTeste.h"
#include "data/Banco.h"

namespace ApoioEstoque {

// A product: stock and minimum in units, prices in cents; `mais` sets any other column.
inline qint64 produto(Banco& b, const QString& codigo, const QString& descricao, qint64 estoque = 0,
                      qint64 minimo = 0, const QVariantMap& mais = {})
{
    QStringList colunas = {"codpeca", "Descricao", "Quantidadeestoque", "QuantidadeMinima"};
    QVariantList valores = {codigo, descricao, estoque * 1000, minimo * 1000};
    for (auto i = mais.cbegin(); i != mais.cend(); ++i) {
        const qsizetype j = colunas.indexOf(i.key());
        if (j >= 0) {
            valores[j] = i.value();
            continue;
        }
        colunas << i.key();
        valores << i.value();
    }
    return b.inserir(*Esquema::tabela(QStringLiteral("Produto")), colunas, valores);
}

// One row per engine and case: the case's name after the engine's.
template <typename F>
void porMotor(const char* nome, F acrescenta)
{
    for (const auto& [motor, rotulo] : {std::pair{Motor::SQLite, "sqlite"}, std::pair{Motor::PostgreSQL, "postgres"}})
        acrescenta(QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(rotulo), QLatin1String(nome))))
                   << static_cast<int>(motor));
}

}
