#include "orders/EntregaOrdem.h"

#include "data/Banco.h"
#include "data/Busca.h"
#include "data/FuncoesMascaras.h"
#include "orders/Ordem.h"

namespace EntregaOrdem {

qint64 contarVivas(Banco& banco)
{
    // All orders less the bin: both counts come from indexes, where counting the live ones
    // would read a million orders one by one.
    return banco.escalar(QStringLiteral("SELECT (SELECT COUNT(*) FROM OrdemServico) - "
                                        "(SELECT COUNT(*) FROM OrdemServico WHERE Excluidos = -1)")).toLongLong();
}

std::optional<qint64> primeiraViva(Banco& banco)
{
    const Condicao vivas = Busca::vivosPelaOrdem();
    const QVariant v = banco.escalar(
        QStringLiteral("SELECT CodOsAut FROM OrdemServico WHERE %1 ORDER BY CodOs, CodOsAut LIMIT 1").arg(vivas.sql),
        vivas.valores);
    if (v.isNull())
        return std::nullopt;
    return v.toLongLong();
}

std::optional<qint64> porNumeroECliente(Banco& banco, const QString& codOs, const QString& codCliente)
{
    bool ok = false;
    const qint64 numero = codOs.trimmed().toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    const QVariant v = banco.escalar(QStringLiteral("SELECT CodOsAut FROM OrdemServico WHERE CodOs = ? AND CodCliente = ? "
                                                    "AND Excluidos = 0 ORDER BY CodOsAut LIMIT 1"),
                                     {numero, codCliente.trimmed()});
    if (v.isNull())
        return std::nullopt;
    return v.toLongLong();
}

QString legendaCliente(const Ordem& o)
{
    if (o.CodCliente.trimmed().isEmpty())
        return QStringLiteral("Não tem");
    return QStringLiteral("Cód: ") + o.CodCliente + QStringLiteral("   Cpf/Cnpj: ") + MascaraCnpjCpf(o.CpfCnpj);
}

Dinheiro valorComMaoObra(const Ordem& o, Dinheiro maoObra) { return maoObra + o.ValorVenda; }

}
