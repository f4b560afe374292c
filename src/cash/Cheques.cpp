#include "cash/Cheques.h"

#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>

#include "cash/FormasPagamento.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Numeracao.h"
#include "data/Sessao.h"
#include "data/Transacao.h"

namespace {

const QString Tabela = QStringLiteral("CadastroCheque");

// The columns a registration writes, the registration's own before the cheque's.
const QStringList& colunasRegistro()
{
    static const QStringList c{QStringLiteral("CodVenda"),      QStringLiteral("CodCliente"),
                               QStringLiteral("NomeCliente"),   QStringLiteral("CPFCNPJCliente"),
                               QStringLiteral("TelCel"),        QStringLiteral("NomeBanco"),
                               QStringLiteral("NumeroAgencia"), QStringLiteral("NumeroConta"),
                               QStringLiteral("TitularConta"),  QStringLiteral("Endereco"),
                               QStringLiteral("CpfCnpjTitular"), QStringLiteral("ValorTotal"),
                               QStringLiteral("DataCompra"),    QStringLiteral("TipoVenda"),
                               QStringLiteral("TipoPagamento"), QStringLiteral("Funcionario"),
                               QStringLiteral("NumeroCheque"),  QStringLiteral("ValorParcela"),
                               QStringLiteral("DataVencimento"), QStringLiteral("NumeroParcela")};
    return c;
}

QString t(const QString& s) { return s.isNull() ? QStringLiteral("") : s; }

QVariantList valoresRegistro(const RegistroCheque& r, const ChequeLinha& c, int i, int n)
{
    const QString venda = r.CodVenda.trimmed().isEmpty() ? QStringLiteral("0000") : r.CodVenda;
    // A sight cheque without a typed date is due on the day it is handed over.
    const QString vencimento = c.DataVencimento.isEmpty() ? r.DataCompra : c.DataVencimento;
    return {t(venda), t(r.CodCliente), t(r.NomeCliente), t(r.CPFCNPJCliente), t(r.TelCel), t(r.NomeBanco),
            t(r.NumeroAgencia), t(r.NumeroConta), t(r.TitularConta), t(r.Endereco), t(r.CpfCnpjTitular),
            r.ValorTotal.centavos(), t(r.DataCompra), t(r.TipoVenda), t(r.TipoPagamento),
            t(sessao().UsuarioNome), t(c.NumeroCheque), c.ValorParcela.centavos(), t(vencimento),
            QStringLiteral("%1 de %2").arg(i).arg(n)};
}

// The registration's columns of a row as read, to compare with what the screen read.
QVariantList instantaneo(const QSqlRecord& rec)
{
    QVariantList v;
    for (const QString& c : colunasRegistro())
        v << rec.value(c).toString();
    v << rec.value(QStringLiteral("Excluidos")).toString();
    return v;
}

QString listaColunas() { return colunasRegistro().join(QStringLiteral(", ")); }

struct Guardada {
    QString numero;
    bool quitado = false;
};

// The live rows of the registration, locked until the save ends, checked against what the
// screen read: another station's change, addition or removal refuses the save.
QHash<qint64, Guardada> conferir(Banco& banco, const RegistroCheque& r)
{
    QSqlQuery q = banco.lerTravando(
        QStringLiteral("SELECT Chave, Quitado, Excluidos, %1 FROM CadastroCheque WHERE Codcadastro = ? AND Excluidos = 0")
            .arg(listaColunas()),
        {r.Codcadastro});
    QHash<qint64, Guardada> guardadas;
    while (q.next()) {
        const qint64 chave = q.value(0).toLongLong();
        if (!r.lidas.contains(chave) || r.lidas.value(chave) != instantaneo(q.record()))
            throw ChequeRecusado(Cheques::MsgAlteradoOutraEstacao, ChequeRecusado::Nenhum);
        guardadas.insert(chave, {q.value(QStringLiteral("NumeroCheque")).toString(), q.value(1).toLongLong() != 0});
    }
    if (guardadas.size() != r.lidas.size())
        throw ChequeRecusado(Cheques::MsgAlteradoOutraEstacao, ChequeRecusado::Nenhum);
    return guardadas;
}

void exigirDireito()
{
    if (sessao().DireitochequeAl != 1)
        throw ChequeRecusado(QStringLiteral("Acesso Negado"), ChequeRecusado::Negado);
}

QList<ChequeLinha> comValor(const RegistroCheque& r)
{
    QList<ChequeLinha> l;
    for (const ChequeLinha& c : r.cheques)
        if (!c.ValorParcela.zero())
            l << c;
    return l;
}

} // namespace

QString ClienteCheque::telefones() const
{
    return MascaraTelefone(Telefone) + QStringLiteral(" / ") + MascaraTelefone(Celular);
}

QString ClienteCheque::enderecoTitular() const
{
    return Endereco + QStringLiteral("-Nº ") + Numero + QLatin1Char('\n') + Complemento + QLatin1Char('\n') + Bairro
        + QStringLiteral("-Cep: ") + MascaraCep(Cep) + QLatin1Char('\n') + Cidade + QLatin1Char(' ') + Estado;
}

namespace Cheques {

const QStringList& planos()
{
    static const QStringList p{Vista,
                               QStringLiteral("CHEQUE-PRÉ 15"),
                               QStringLiteral("CHEQUE-PRÉ 30"),
                               QStringLiteral("CHEQUE-PRÉ 30/60"),
                               QStringLiteral("CHEQUE-PRÉ 30/60/90"),
                               QStringLiteral("CHEQUE-PRÉ 30/60/90/120")};
    return p;
}

std::optional<QList<Parcela>> plano(const QString& nome, Dinheiro total, const QDate& inicio)
{
    // The cheque plans are the till's cheque forms: one split, one calendar for both.
    const FormasPagamento::Forma* forma = planos().contains(nome) ? FormasPagamento::porTexto(nome) : nullptr;
    if (!forma)
        return std::nullopt;
    if (forma->parcelas <= 0)
        return QList<Parcela>{Parcela{}};
    QList<Parcela> r;
    for (const FormasPagamento::Parcela& p : FormasPagamento::plano(*forma, total, inicio))
        r << Parcela{p.valor, p.vencimento};
    return r;
}

void validar(const RegistroCheque& r)
{
    using C = ChequeRecusado;
    if (r.CodCliente.trimmed().isEmpty() || r.NomeCliente.trimmed().isEmpty())
        throw C(QStringLiteral("Selecione um cliente"), C::Cliente);
    if (r.CPFCNPJCliente.trimmed().isEmpty())
        throw C(QStringLiteral("Digite o CPF ou CNPJ do cliente"), C::CpfCnpj);
    if (r.NomeBanco.trimmed().isEmpty())
        throw C(QStringLiteral("Coloque o nome do Banco"), C::Banco);
    if (r.TitularConta.trimmed().isEmpty())
        throw C(QStringLiteral("Coloque o nome do titular da conta"), C::Titular);
    if (r.TipoPagamento.trimmed().isEmpty() || r.cheques.isEmpty())
        throw C(MsgTipoPagamento, C::Plano);
    if (comValor(r).isEmpty())
        throw C(QStringLiteral("Coloque o valor do cheque"), C::Valor, 0);
    bool algumNumero = false;
    for (int i = 0; i < r.cheques.size(); ++i) {
        const ChequeLinha& c = r.cheques.at(i);
        if (!c.ValorParcela.zero() && c.NumeroCheque.trimmed().isEmpty())
            throw C(QStringLiteral("Coloque o número do cheque"), C::Numero, i);
        algumNumero = algumNumero || !c.NumeroCheque.trimmed().isEmpty();
    }
    if (!algumNumero)
        throw C(QStringLiteral("Coloque o numero do cheque"), C::Numero, 0);
    if (r.ValorTotal.centavos() <= 0)
        throw C(QStringLiteral("Coloque o valor total da compra"), C::Total);
}

void gravar(Banco& banco, RegistroCheque& r)
{
    exigirDireito();
    validar(r);
    const QList<ChequeLinha> cheques = comValor(r);
    const DefTabela& tabela = *Esquema::tabela(Tabela);
    QStringList colunas = colunasRegistro();
    colunas << QStringLiteral("Codcadastro");
    const int n = cheques.size();

    Transacao tr(banco);
    qint64 codigo = r.Codcadastro;
    if (r.novo()) {
        codigo = Numeracao::proximoCodigo(banco, Tabela, QStringLiteral("Codcadastro"));
        for (int i = 0; i < n; ++i)
            banco.inserir(tabela, colunas, valoresRegistro(r, cheques.at(i), i + 1, n) << codigo);
    } else {
        QHash<qint64, Guardada> guardadas = conferir(banco, r);
        QStringList sets;
        for (const QString& c : colunasRegistro())
            sets << c + QStringLiteral(" = ?");
        const QString update = QStringLiteral("UPDATE CadastroCheque SET %1 WHERE Chave = ?").arg(sets.join(QStringLiteral(", ")));
        for (int i = 0; i < n; ++i) {
            const ChequeLinha& c = cheques.at(i);
            qint64 mesmo = 0;
            for (auto it = guardadas.cbegin(); it != guardadas.cend(); ++it)
                if (it->numero.trimmed() == c.NumeroCheque.trimmed()) {
                    mesmo = it.key();
                    break;
                }
            const QVariantList v = valoresRegistro(r, c, i + 1, n);
            if (mesmo) {
                // The same cheque: its compensation columns stay as the accounts left them.
                banco.executar(update, QVariantList(v) << mesmo);
                guardadas.remove(mesmo);
            } else {
                banco.inserir(tabela, colunas, QVariantList(v) << codigo);
            }
        }
        for (auto it = guardadas.cbegin(); it != guardadas.cend(); ++it)
            if (!it->quitado)  // a compensated cheque is money received: it never goes
                banco.executar(QStringLiteral("DELETE FROM CadastroCheque WHERE Chave = ?"), {it.key()});
    }
    tr.commit();
    if (auto recarregado = carregar(banco, codigo))
        r = std::move(*recarregado);
    else
        r.Codcadastro = codigo;
}

std::optional<RegistroCheque> carregar(Banco& banco, qint64 codcadastro)
{
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT Chave, Quitado, Excluidos, Codcadastro, %1 FROM CadastroCheque "
                       "WHERE Codcadastro = ? AND Excluidos = 0 ORDER BY Chave").arg(listaColunas()),
        {codcadastro});
    std::optional<RegistroCheque> r;
    while (q.next()) {
        const QSqlRecord rec = q.record();
        auto s = [&rec](const char* c) { return rec.value(QLatin1String(c)).toString(); };
        if (!r) {
            r.emplace();
            r->Codcadastro = codcadastro;
            r->CodVenda = s("CodVenda");
            r->CodCliente = s("CodCliente");
            r->NomeCliente = s("NomeCliente");
            r->CPFCNPJCliente = s("CPFCNPJCliente");
            r->TelCel = s("TelCel");
            r->NomeBanco = s("NomeBanco");
            r->NumeroAgencia = s("NumeroAgencia");
            r->NumeroConta = s("NumeroConta");
            r->TitularConta = s("TitularConta");
            r->Endereco = s("Endereco");
            r->CpfCnpjTitular = s("CpfCnpjTitular");
            r->ValorTotal = Dinheiro::deCentavos(rec.value(QStringLiteral("ValorTotal")).toLongLong());
            r->DataCompra = s("DataCompra");
            r->TipoVenda = s("TipoVenda");
            r->TipoPagamento = s("TipoPagamento");
        }
        ChequeLinha c;
        c.chave = rec.value(QStringLiteral("Chave")).toLongLong();
        c.NumeroCheque = s("NumeroCheque");
        c.ValorParcela = Dinheiro::deCentavos(rec.value(QStringLiteral("ValorParcela")).toLongLong());
        c.DataVencimento = s("DataVencimento");
        c.Quitado = rec.value(QStringLiteral("Quitado")).toLongLong() != 0;
        r->cheques << c;
        r->lidas.insert(c.chave, instantaneo(rec));
    }
    return r;
}

std::optional<qint64> cadastroDaLinha(Banco& banco, qint64 chave)
{
    const QVariant v = banco.escalar(QStringLiteral("SELECT Codcadastro FROM CadastroCheque WHERE Chave = ?"), {chave});
    if (v.isNull())
        return std::nullopt;
    return v.toLongLong();
}

void excluir(Banco& banco, const RegistroCheque& r)
{
    exigirDireito();
    if (r.novo())
        return;
    Transacao tr(banco);
    const QHash<qint64, Guardada> guardadas = conferir(banco, r);
    for (auto it = guardadas.cbegin(); it != guardadas.cend(); ++it) {
        if (sessao().DireitoPermanente == 1)
            banco.executar(QStringLiteral("DELETE FROM CadastroCheque WHERE Chave = ?"), {it.key()});
        else
            banco.executar(QStringLiteral("UPDATE CadastroCheque SET Excluidos = -1, Funcionario = ? WHERE Chave = ?"),
                           {t(sessao().UsuarioNome), it.key()});
    }
    tr.commit();
}

std::optional<ClienteCheque> cliente(Banco& banco, const QString& codCliente)
{
    bool ok = false;
    const qint64 codigo = codCliente.trimmed().toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT CodCliente, NomeCliente, CnpjCpf, Telefone, Celular, Endereco, Numero, Complemento, "
                       "Bairro, Cep, Cidade, Estado FROM Cliente WHERE CodCliente = ? AND Excluidos = 0"),
        {codigo});
    if (!q.next())
        return std::nullopt;
    auto s = [&q](int i) { return q.value(i).toString(); };
    return ClienteCheque{s(0), s(1), s(2), s(3), s(4), s(5), s(6), s(7), s(8), s(9), s(10), s(11)};
}

}
