#include "cash/LancamentoVenda.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include "cash/OrdemCaixa.h"
#include "cash/RegistroPagamento.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Quantidade.h"
#include "data/Sessao.h"
#include "orders/EstoqueOrdem.h"

namespace LancamentoVenda {

namespace {

const QString Conserto = QStringLiteral("Conserto");

struct PecaLancada {
    qint64 CodPecAut = 0;
    QString codpeca, Descricao, Unidade, Fornecedor, Departamento, Armazenado, Grupo, SubGrupo, Aliquota;
    Quantidade quantidade;
    Dinheiro ValorCusto, ValorVenda, ValorDesconto, ValorTotal, ValorMinimo;
};

// The order's own parts not posted yet: by its row key, never a house call's.
QList<PecaLancada> pecasNovas(Banco& banco, qint64 codOsAut)
{
    QSqlQuery q = banco.executar(QStringLiteral(
        "SELECT CodPecAut, codpeca, Descricao, Unidade, Fornecedor, Departamento, Armazenado, Grupo, SubGrupo, "
        "Aliquota, Quantidade, ValorCusto, ValorVenda, ValorDesconto, ValorTotal, ValorMinimo FROM PecasAplicadas "
        "WHERE CodOsAut = ? AND TipoVisita = '' AND Lancada = 0 ORDER BY CodPecAut"), {codOsAut});
    QList<PecaLancada> r;
    while (q.next()) {
        PecaLancada p;
        p.CodPecAut = q.value(0).toLongLong();
        p.codpeca = q.value(1).toString();
        p.Descricao = q.value(2).toString();
        p.Unidade = q.value(3).toString();
        p.Fornecedor = q.value(4).toString();
        p.Departamento = q.value(5).toString();
        p.Armazenado = q.value(6).toString();
        p.Grupo = q.value(7).toString();
        p.SubGrupo = q.value(8).toString();
        p.Aliquota = q.value(9).toString();
        p.quantidade = Quantidade::deMilesimos(q.value(10).toLongLong());
        p.ValorCusto = Dinheiro::deCentavos(q.value(11).toLongLong());
        p.ValorVenda = Dinheiro::deCentavos(q.value(12).toLongLong());
        p.ValorDesconto = Dinheiro::deCentavos(q.value(13).toLongLong());
        p.ValorTotal = Dinheiro::deCentavos(q.value(14).toLongLong());
        p.ValorMinimo = Dinheiro::deCentavos(q.value(15).toLongLong());
        r << p;
    }
    return r;
}

void inserir(Banco& banco, const char* tabela, const QStringList& colunas, const QVariantList& valores)
{
    banco.inserir(*Esquema::tabela(QLatin1String(tabela)), colunas, valores);
}

qint64 c(Dinheiro d) { return d.centavos(); }
// Text columns are never NULL: a box left empty is stored as "".
QString t(const QString& s) { return s.isNull() ? QStringLiteral("") : s; }
int flag(bool b) { return b ? -1 : 0; }

// The parts' money of this posting: the order's own columns the first time, the sums of
// the new parts on a reopened order.
struct SomaPecas {
    Dinheiro venda, custo, desconto;
};

SomaPecas somaPecas(const OrdemCaixa& o, const QList<PecaLancada>& pecas)
{
    if (!o.Lancada)
        return {o.ValorVenda, o.ValorPecas, o.ValorDescontoPeca};
    SomaPecas s;
    for (const PecaLancada& p : pecas) {
        s.venda += p.ValorTotal;
        s.custo += p.quantidade.vezes(p.ValorCusto);
        s.desconto += p.quantidade.vezes(p.ValorDesconto);
    }
    return s;
}

} // namespace

bool nadaNovo(Banco& banco, const OrdemCaixa& o, const PagamentoCaixa& p)
{
    if (!o.Lancada)
        return false;
    if (!p.total.zero() || !o.maoObraNova().zero())
        return false;
    return !banco.escalar(QStringLiteral("SELECT CodPecAut FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = '' "
                                         "AND Lancada = 0 LIMIT 1"), {o.CodOsAut}).isValid();
}

QStringList lancar(Banco& banco, const OrdemCaixa& o, const PagamentoCaixa& p,
                   const std::function<void(const QString&)>& progresso)
{
    auto aviso = [&](const QString& t) { if (progresso) progresso(t); };
    const Sessao& s = sessao();
    const QString hoje = Datas::hoje();
    const QString hora = Datas::agoraHora();

    aviso(TextoBaixa);
    // The one take of the order's parts: whatever the bench already took is not taken again.
    const QStringList reposicao = EstoqueOrdem::baixarNoCaixa(banco, o.CodOsAut);

    aviso(TextoMovimento);
    const QList<PecaLancada> pecas = pecasNovas(banco, o.CodOsAut);
    for (const PecaLancada& pc : pecas) {
        inserir(banco, "CadastroPecasNota",
                {"NumeroOS", "NomeCliente", "codpeca", "Quantidade", "Descricao", "Unidade", "ValorCusto", "ValorVenda",
                 "ValorDesconto", "ValorItemTotal", "ValorMinimo", "Fornecedor", "Grupo", "Aliquota", "SubGrupo",
                 "TipoVenda", "Departamento", "DataOS", "Armazenado"},
                {o.CodOs, o.NomeCliente, pc.codpeca, pc.quantidade.milesimos(), pc.Descricao, pc.Unidade,
                 c(pc.ValorCusto), c(pc.ValorVenda), c(pc.ValorDesconto), c(pc.ValorTotal), c(pc.ValorMinimo),
                 pc.Fornecedor, pc.Grupo, pc.Aliquota, pc.SubGrupo, QStringLiteral("O.S: ") + QString::number(o.CodOs),
                 pc.Departamento, hoje, pc.Armazenado});
        inserir(banco, "VendaDetalhada",
                {"CodOsAut", "CodVenda", "NomeCliente", "codpeca", "Quantidade", "Descricao", "Unidade", "ValorCusto",
                 "ValorMinimo", "PecaDesconto", "ValorVenda", "ValorTotal", "Departamento", "Fornecedor", "Modulo",
                 "Armazenado", "Data", "TipoVenda", "Tecnico", "Hora"},
                {o.CodOsAut, o.CodOs, o.NomeCliente, pc.codpeca, pc.quantidade.milesimos(), pc.Descricao, pc.Unidade,
                 c(pc.ValorCusto), c(pc.ValorMinimo), c(pc.ValorDesconto), c(pc.ValorVenda), c(pc.ValorTotal),
                 pc.Departamento, pc.Fornecedor, pc.Grupo, pc.Armazenado, hoje, Conserto, o.Tecnico, hora});
    }
    if (!pecas.isEmpty())
        // One statement for all the rows read; a part another station adds meanwhile has a
        // higher key and waits for the next delivery.
        banco.executar(QStringLiteral("UPDATE PecasAplicadas SET Lancada = -1 WHERE CodOsAut = ? AND TipoVisita = '' "
                                      "AND Lancada = 0 AND CodPecAut <= ?"), {o.CodOsAut, pecas.last().CodPecAut});

    const Dinheiro maoObra = o.maoObraNova();
    const QString codCliente = p.codCliente.isEmpty() ? o.CodCliente : p.codCliente;
    // The labour line alone carries the payment form, the user and the commission; it is
    // written also when the labour is zero.
    inserir(banco, "VendaDetalhada",
            {"CodOsAut", "CodVenda", "NomeCliente", "Quantidade", "Descricao", "ValorCusto", "PecaDesconto",
             "ValorVenda", "Departamento", "Fornecedor", "Armazenado", "Data", "TipoVenda", "Tecnico", "Hora", "MaoObra",
             "ValorPorcentagem", "Tipo", "TipoPorcentagem", "CodFun", "Vendedor", "CodTec", "CodCli", "TipoPagamento"},
            {o.CodOsAut, o.CodOs, o.NomeCliente, Quantidade::unidades(1).milesimos(),
             QStringLiteral("MÃO DE OBRA O.S: ") + QString::number(o.CodOs), 0, 0, 0, QStringLiteral("Oficina"),
             QStringLiteral("Oficina"), o.Armazenado, hoje, Conserto, o.Tecnico, hora, c(maoObra),
             c(o.ValorPorcentagem), o.Tipo, flag(o.TipoPorcentagem), t(s.UsuarioCodigo), t(s.UsuarioNome), t(s.TecnicoCodigo),
             t(codCliente), t(p.forma)});

    const SomaPecas soma = somaPecas(o, pecas);
    const QString cpf = p.cpfCnpj.isEmpty() ? o.CpfCnpj : p.cpfCnpj;
    inserir(banco, "CadastroNotaFiscal",
            {"CodCliente", "NumeroOS", "NomeCliente", "CpfCnpj", "Finalizado", "ValorTotal", "ValorPagar", "ValorPago",
             "ValorTroco", "ValorPorcTecnico", "ValorMaoobra", "ValorPeca", "ValorCusto", "ValorDescontoPeca",
             "NomeTecnico", "TipoAparelho", "TipoPorcentagem", "DataOS", "HoraSaida", "TipoVenda", "FormaPagamento",
             "Codvendedor", "NomeVendedor"},
            {t(codCliente), o.CodOs, o.NomeCliente, t(cpf), 1, c(p.total), c(p.total), c(p.pago), c(p.troco()),
             c(o.ValorPorcentagem), c(maoObra), c(soma.venda), c(soma.custo), c(soma.desconto), o.Tecnico, o.Tipo,
             flag(o.TipoPorcentagem), hoje, hora, Conserto, t(p.forma), t(s.UsuarioCodigo), t(s.UsuarioNome)});

    inserir(banco, "Movimento",
            {"CodOsAut", "CodVenda", "ValorTotal", "ValorPagar", "ValorDesconto", "ValorDescontoPeca", "ValorPeca",
             "ValorCusto", "ValorPago", "ValorDiferenca", "ValorMaoobra", "ValorPorcTecnico", "TipoAparelho",
             "TipoPorcentagem", "Data", "TipoVenda", "CodFuncionario", "Funcionario", "CodTecnico", "NomeTecnico",
             "CodCliente", "NomeCliente", "Pagamento", "Hora"},
            {o.CodOsAut, o.CodOs, c(p.total), c(p.total), c(p.desconto), c(soma.desconto), c(soma.venda),
             c(soma.custo), c(p.pago), c(p.troco()), c(maoObra), c(o.ValorPorcentagem), o.Tipo,
             flag(o.TipoPorcentagem), hoje, Conserto, t(s.UsuarioCodigo), t(s.UsuarioNome), t(s.TecnicoCodigo), o.Tecnico,
             t(codCliente), o.NomeCliente, t(p.forma), hora});
    return reposicao;
}

}
