#include "cash/RegistroPagamento.h"

#include "cash/LancamentoVenda.h"
#include "cash/OrdemCaixa.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/RecusaOrdem.h"
#include "orders/TransicoesOrdem.h"

Dinheiro PagamentoCaixa::divida() const
{
    const Dinheiro d = total - desconto - pago;
    return d < Dinheiro() ? Dinheiro() : d;
}

Dinheiro PagamentoCaixa::valorEmCheque() const
{
    const Dinheiro devido = total - desconto;
    if (pago >= devido || pago < Dinheiro())
        return devido;
    return devido - pago;
}

namespace RegistroPagamento {

namespace {

const QString Conserto = QStringLiteral("Conserto");

QString txt(const QString& s) { return s.isNull() ? QStringLiteral("") : s; }

[[noreturn]] void recusar(const QString& mensagem, const QString& titulo = QStringLiteral("Registrar valor"))
{
    throw OrdemRecusada(Recusa::aviso(mensagem, titulo));
}

void receber(Banco& banco, const OrdemCaixa& o, const PagamentoCaixa& p, const QString& codCliente)
{
    const DefTabela& t = *Esquema::tabela(QStringLiteral("ContasReceber"));
    const QStringList colunas = {"CodVenda", "CodCliente", "NomeCliente", "ValorParcela", "DataVencimento",
                                 "NumeroParcela", "DataCompra", "ValorTotal", "TipoVenda", "TipoPagamento",
                                 "Funcionario", "Pendurado"};
    const QString hoje = Datas::hoje();
    const QString usuario = sessao().UsuarioNome;
    const QString codVenda = QString::number(o.CodOs);
    if (p.pendurar) {
        // The slate carries what is still owed, whatever plan was picked before.
        banco.inserir(t, colunas,
                      {codVenda, txt(codCliente), o.NomeCliente, p.divida().centavos(),
                       Datas::paraBanco(p.vencimentoPendurado), QStringLiteral("1 de 1"), hoje, p.total.centavos(),
                       Conserto, FormasPagamento::PagarDepois, txt(usuario), 1});
        return;
    }
    const int n = int(p.parcelas.size());
    for (int i = 0; i < n; ++i) {
        const FormasPagamento::Parcela& pc = p.parcelas.at(i);
        banco.inserir(t, colunas,
                      {codVenda, txt(codCliente), o.NomeCliente, pc.valor.centavos(), Datas::paraBanco(pc.vencimento),
                       QStringLiteral("%1 de %2").arg(i + 1).arg(n), hoje, p.total.centavos(), Conserto, txt(p.forma),
                       txt(usuario), 0});
    }
}

} // namespace

Resultado gravar(Banco& banco, const PagamentoCaixa& p, const Progresso& progresso)
{
    // The right comes before anything is read or written.
    if (sessao().DireitoOsSaiAl != 1)
        throw OrdemRecusada(Recusa::negado());
    if (p.pendurar && p.cpfCnpj.trimmed().isEmpty())
        recusar(MsgInformeCpf, TituloInformeDados);
    if (p.desconto > p.total || p.desconto < Dinheiro())
        recusar(MsgDescontoMaior);

    Resultado r;
    Transacao tr(banco);
    const std::optional<OrdemCaixa> lida = OrdensCaixa::ler(banco, p.codOsAut, true);
    if (!lida || lida->Excluidos)
        recusar(MsgExcluida);
    const OrdemCaixa& o = *lida;
    if (o.entregue())
        recusar(MsgJaEntregue);
    if (o.ValorPagar != p.valorPagarLido)
        recusar(MsgValorAlterado);

    r.codCliente = p.codCliente.trimmed().isEmpty() ? QString() : p.codCliente;
    if (r.codCliente.isEmpty()) {
        EntradaRegras::ClienteBalcao cli;
        cli.NomeCliente = p.nomeCliente;
        cli.Endereco = p.endereco;
        cli.Numero = p.ncasa;
        cli.Bairro = p.bairro;
        cli.Cidade = p.cidade;
        cli.Telefone = p.telefone;
        cli.Celular = p.celular;
        cli.CnpjCpf = p.cpfCnpj;
        r.codCliente = QString::number(EntradaRegras::gravarClienteNovo(banco, cli));
        // The order takes the new code, so its receivables and sale rows find the customer.
        banco.executar(QStringLiteral("UPDATE OrdemServico SET CodCliente = ? WHERE CodOsAut = ?"),
                       {r.codCliente, o.CodOsAut});
    }

    receber(banco, o, p, r.codCliente);

    PagamentoCaixa lancado = p;
    lancado.codCliente = r.codCliente;
    if (!LancamentoVenda::nadaNovo(banco, o, p)) {
        r.reposicao = LancamentoVenda::lancar(banco, o, lancado, progresso);
        r.lancou = true;
    }

    // Paid and discount add up over the deliveries of a reopened order.
    TransicoesOrdem::Fechamento f;
    f.dataSaida = Datas::hoje();
    f.valorPago = o.Lancada ? o.ValorPago + p.pago : p.pago;
    f.valorDesconto = o.Lancada ? o.ValorDesconto + p.desconto : p.desconto;
    f.cpfCnpj = p.cpfCnpj.isEmpty() ? o.CpfCnpj : p.cpfCnpj;
    f.pendurado = p.pendurar ? 1 : 0;
    TransicoesOrdem::fecharNoCaixa(banco, o.CodOsAut, f);
    banco.executar(QStringLiteral("UPDATE OrdemServico SET Lancada = -1, ValorLancado = ?, MaoObraLancada = ? "
                                  "WHERE CodOsAut = ?"),
                   {(o.Lancada ? o.ValorLancado + p.total : p.total).centavos(), o.MaoObra.centavos(), o.CodOsAut});
    tr.commit();
    return r;
}

}
