#pragma once
// Instalments, bills and cheques put straight into the store for the accounts' tests.
#include <QString>

#include "data/Banco.h"
#include "data/Esquema.h"

namespace ApoioContas {

struct Receber {
    QString codCliente, codVenda, nome;
    QString compra, vencimento;  // stored form
    bool quitado = false;
    qint64 parcela = 10000;
    QString numero = QStringLiteral("1 de 1");
};

inline qint64 inserir(Banco& b, const Receber& r)
{
    return b.inserir(*Esquema::tabela(QStringLiteral("ContasReceber")),
                     {"CodCliente", "CodVenda", "NomeCliente", "ValorParcela", "ValorTotal", "NumeroParcela", "DataCompra",
                      "DataVencimento", "TipoVenda", "TipoPagamento", "Quitado", "Funcionario"},
                     {r.codCliente, r.codVenda, r.nome, r.parcela, r.parcela * 3, r.numero, r.compra, r.vencimento,
                      QStringLiteral("Conserto"), QStringLiteral("CHEQUE-PRÉ 30/60/90"), r.quitado ? -1 : 0,
                      QStringLiteral("ANA")});
}

struct Pagar {
    QString fornecedor, documento, vencimento;
    QString compra = QStringLiteral("2025/01/02");
    bool quitado = false;
    qint64 parcela = 5000;
};

inline qint64 inserir(Banco& b, const Pagar& p)
{
    return b.inserir(*Esquema::tabela(QStringLiteral("ContasPagar")),
                     {"Fornecedor", "CodDoc", "CodCod", "TipoConta", "Referente", "QtDias", "ValorTotal", "ValorParcela",
                      "NumeroParcela", "DataCompra", "DataVencimento", "Quitado", "Funcionario"},
                     {p.fornecedor, p.documento, QStringLiteral(""), QStringLiteral("Boleto"), QStringLiteral("PEÇAS"), 28,
                      p.parcela, p.parcela, QStringLiteral("1 de 1"), p.compra, p.vencimento, p.quitado ? -1 : 0,
                      QStringLiteral("ANA")});
}

struct Cheque {
    QString titular, compra, vencimento;
    bool quitado = false, excluido = false;
    QString numero = QStringLiteral("000123");
};

inline qint64 inserir(Banco& b, const Cheque& c)
{
    return b.inserir(*Esquema::tabela(QStringLiteral("CadastroCheque")),
                     {"Codcadastro", "CodVenda", "CodCliente", "NomeCliente", "TitularConta", "NumeroCheque", "ValorTotal",
                      "ValorParcela", "DataVencimento", "NumeroParcela", "DataCompra", "TipoVenda", "TipoPagamento",
                      "Excluidos", "Quitado"},
                     {1, QStringLiteral("12"), QStringLiteral("5"), QStringLiteral("ANA"), c.titular, c.numero, 30000,
                      10000, c.vencimento, QStringLiteral("1 de 3"), c.compra, QStringLiteral("Conserto"),
                      QStringLiteral("CHEQUE-PRÉ 30/60/90"), c.excluido ? -1 : 0, c.quitado ? -1 : 0});
}

inline qint64 contar(Banco& b, const QString& tabela, const QString& onde = QStringLiteral("1 = 1"),
                     const QVariantList& valores = {})
{
    return b.escalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(tabela, onde), valores).toLongLong();
}

}
