#include "data/Atualizacoes.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "orders/AvisoCliente.h"

namespace Atualizacoes {

const QList<Passo>& passos()
{
    // One line per version, in order.
    static const QList<Passo> p = {
        {2, &documentosEmDigitos},
        {4, &lancamentosAnteriores},
        {15, &recursosDesligados},
        {16, &avisoCliente},
    };
    return p;
}

int ultimaVersao()
{
    return passos().isEmpty() ? 1 : passos().last().versao;
}

namespace {

// The digits of a CPF or CNPJ written with punctuation; empty for anything else.
QString digitosDoDocumento(const QString& texto)
{
    QString d;
    for (const QChar c : texto) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            d += c;
        else if (c != QLatin1Char('.') && c != QLatin1Char('-') && c != QLatin1Char('/') && c != QLatin1Char(' '))
            return {};
    }
    return d.size() == 11 || d.size() == 14 ? d : QString();
}

} // namespace

void documentosEmDigitos(Banco& banco)
{
    const QList<QPair<QString, QString>> colunas = {
        {QStringLiteral("Empresa"), QStringLiteral("CpfCnpj")},
        {QStringLiteral("Cliente"), QStringLiteral("CnpjCpf")},
        {QStringLiteral("Fornecedor"), QStringLiteral("CnpjCpf")},
        {QStringLiteral("OrdemServico"), QStringLiteral("CpfCnpj")},
        {QStringLiteral("CadastroNotaFiscal"), QStringLiteral("CpfCnpj")},
        {QStringLiteral("Contato"), QStringLiteral("CpfCnpj")},
        {QStringLiteral("CadastroCheque"), QStringLiteral("CPFCNPJCliente")},
        {QStringLiteral("CadastroCheque"), QStringLiteral("CpfCnpjTitular")},
    };
    for (const auto& [nome, coluna] : colunas) {
        const DefTabela* t = Esquema::tabela(nome);
        if (!t || !t->coluna(coluna))
            continue;
        // Only rows with punctuation are read: a million orders kept as digits cost nothing.
        QSqlQuery q = banco.executar(
            QStringLiteral("SELECT %1, %2 FROM %3 WHERE %2 LIKE ? OR %2 LIKE ? OR %2 LIKE ? OR %2 LIKE ?")
                .arg(t->chave, coluna, t->nome),
            {QStringLiteral("%.%"), QStringLiteral("%-%"), QStringLiteral("%/%"), QStringLiteral("% %")});
        QList<QPair<QVariant, QString>> trocas;
        while (q.next()) {
            const QString d = digitosDoDocumento(q.value(1).toString());
            if (!d.isEmpty())
                trocas.append({q.value(0), d});
        }
        for (const auto& [chave, digitos] : trocas)
            banco.executar(QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ?").arg(t->nome, coluna, t->chave),
                           {digitos, chave});
    }
}

void lancamentosAnteriores(Banco& banco)
{
    banco.executar(QStringLiteral(
        "UPDATE OrdemServico SET Lancada = -1, ValorLancado = ValorPagar, MaoObraLancada = MaoObra "
        "WHERE Saida <> 0 AND Lancada = 0 AND EXISTS (SELECT 1 FROM Movimento m WHERE m.CodVenda = OrdemServico.CodOs "
        "AND m.NomeCliente = OrdemServico.NomeCliente AND m.TipoVenda = 'Conserto')"));
    banco.executar(QStringLiteral(
        "UPDATE PecasAplicadas SET Lancada = -1 WHERE Lancada = 0 AND TipoVisita = '' AND CodOsAut IN "
        "(SELECT CodOsAut FROM OrdemServico WHERE Lancada <> 0 AND Saida <> 0)"));
}

void recursosDesligados(Banco& banco)
{
    // PIX and the roll printer start off; the name the payer's app shows starts as the shop's.
    banco.executar(QStringLiteral("UPDATE Empresa SET PixAtivo = 0, ReciboBobina = 0"));
    banco.executar(QStringLiteral("UPDATE Empresa SET PixNome = COALESCE(NomeEmpresa, '') "
                                  "WHERE PixNome IS NULL OR PixNome = ''"));
}

void avisoCliente(Banco& banco)
{
    // The shop finds the standard texts in place to edit, and the feature off until it
    // chooses to use it; the warranty is the 90 days the law gives a repair.
    AvisoCliente::Config c;
    for (AvisoCliente::Situacao s : AvisoCliente::situacoes())
        c.modelos.append({s, AvisoCliente::modeloPadrao(s)});
    AvisoCliente::gravarConfig(banco, c);
    banco.executar(QStringLiteral("UPDATE Empresa SET DiasGarantia = 90 WHERE DiasGarantia IS NULL OR DiasGarantia = 0"));
}

}
