#pragma once
// Products put straight into the store for the stock tests, and the engines crossed with
// each test's own rows.
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <QVariantMap>

#include "apoio/BancoTeste.h"
#include "data/Banco.h"
#include "documents/ApoioDocumentos.h"
#include "ui/Dialogos.h"

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

// A printout saved as PDF through the screen, the save dialog answered with a file of
// its own: the file, what the viewer was asked to open, the pages and the text.
struct Impresso {
    QString pdf;
    QStringList abertos;
    int paginas = 0;
    QString texto;
};
inline Impresso imprimePdf(QStringList& abertos, const QTemporaryDir& pasta, const std::function<void()>& imprime)
{
    Impresso r;
    r.pdf = pasta.filePath(QStringLiteral("impresso.pdf"));
    Dialogos::Roteiro::responder(r.pdf);
    imprime();
    r.abertos = abertos;
    r.paginas = apoio::paginasPdf(r.pdf);
    r.texto = apoio::textoPdf(r.pdf);
    return r;
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
