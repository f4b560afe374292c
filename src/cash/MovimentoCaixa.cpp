#include "cash/MovimentoCaixa.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Transacao.h"

namespace MovimentoCaixa {

namespace {

// The same 35 values from either table, in one order, so one reader serves both; what a
// table lacks is read as NULL.
const QString SelecaoDetalhe = QStringLiteral(
    "SELECT CodDet, CodVenAUT, CodOsAut, CodVenda, codpeca, Modulo, Descricao, Quantidade, ValorCusto, ValorVenda, "
    "ValorMinimo, PecaDesconto, PorcentagemVendedor, TipoVenda, MaoObra, Tipo, ValorPorcentagem, TipoPorcentagem, "
    "CodTec, Tecnico, CodFun, Vendedor, CodCaixa, Caixa, Data, Hora, CodCli, NomeCliente, TipoPagamento, Fornecedor, "
    "NULL, NULL, NULL, NULL, NULL FROM VendaDetalhada");
const QString SelecaoResumo = QStringLiteral(
    "SELECT Codmov, CodVenAUT, CodOsAut, CodVenda, NULL, NULL, NomeCliente, NULL, ValorCusto, ValorPeca, NULL, "
    "ValorDescontoPeca, NULL, TipoVenda, ValorMaoobra, TipoAparelho, ValorPorcTecnico, TipoPorcentagem, CodTecnico, "
    "NomeTecnico, CodFuncionario, Funcionario, CodCaixa, Caixa, Data, Hora, CodCliente, NomeCliente, Pagamento, "
    "Fornecedor, ValorTotal, ValorPagar, ValorDesconto, ValorPago, ValorDiferenca FROM Movimento");

QString tabela(Visao v) { return resumo(v) ? QStringLiteral("Movimento") : QStringLiteral("VendaDetalhada"); }
QString chave(Visao v) { return resumo(v) ? QStringLiteral("Codmov") : QStringLiteral("CodDet"); }

QString periodo() { return QStringLiteral("Data >= ? AND Data <= ?"); }

// The shop types names in any case; the report has always found them regardless.
QString parecido(const QString& coluna) { return QStringLiteral("UPPER(%1) LIKE UPPER(?)").arg(coluna); }

QString envolto(const QString& s) { return QLatin1Char('%') + s + QLatin1Char('%'); }

Dinheiro dinheiro(const QVariant& v) { return Dinheiro::deCentavos(v.toLongLong()); }
QString codigo(const QVariant& v) { return v.isNull() ? QString() : v.toString(); }

} // namespace

const QStringList& titulos()
{
    static const QStringList t = {
        "Cod", "CodAutVen", "CodAutOS", "Cod/Venda/O.S", "Cod/Produto", "Módulo", "Descrição", "Quantidade",
        "Val/Custo", "Val/Venda", "Val/Minimo", "Val/Desconto", "Val/Vendido", "% Vendedor", "Val/Vendedor",
        "Lucro Produto", "Tipo Venda", "Val/Mão Obra", "Tipo Aparelho", "Val %", "$%", "Val/Técnico",
        "Lucro Mão Obra", "CodTec", "Técnico", "CodFun", "Vendedor", "CodCaixa", "Caixa", "Data", "Hora", "CodCli",
        "Cliente", "Val/Total", "Val/Pagar", "Val/Desconto", "Val/Pago", "Val/Troco", "Forma Pagamento",
        "Fornecedor"};
    return t;
}

bool colunaDinheiro(int c)
{
    switch (c) {
    case ValCusto: case ValVenda: case ValMinimo: case ValDesconto: case ValVendido: case ValVendedor:
    case LucroProduto: case ValMaoObra: case ValPorc: case ValTecnico: case LucroMaoObra: case ValTotal:
    case ValPagar: case ValDescontoVenda: case ValPago: case ValTroco:
        return true;
    default:
        return false;
    }
}

Consulta visao(Visao v, Filtro f, const QString& tecnico, const QDate& de, const QDate& ate)
{
    Consulta c;
    c.visao = v;
    // The rows in the order they were posted; by day first, so the date index that picks
    // the range also gives the order, with no sort of a month's rows.
    c.ordem = QStringLiteral("Data, ") + chave(v);
    QString cond;
    QVariantList valores;
    if (!resumo(v)) {
        switch (f) {
        case Filtro::Tudo: break;
        case Filtro::VendaProduto: cond = parecido("TipoVenda"); valores << QStringLiteral("%Produto%"); break;
        case Filtro::SaidaConserto: cond = parecido("TipoVenda"); valores << QStringLiteral("%Conserto%"); break;
        case Filtro::Tecnico: cond = parecido("Tecnico"); valores << envolto(tecnico); break;
        }
    }
    c.onde = cond.isEmpty() ? periodo() : cond + QStringLiteral(" AND ") + periodo();
    c.valores = valores << Datas::paraBanco(de) << Datas::paraBanco(ate);
    return c;
}

std::optional<Consulta> busca(Banco& banco, Visao v, Campo campo, const QString& valor, const QDate& de,
                              const QDate& ate)
{
    const bool det = !resumo(v);
    QString coluna;
    bool meio = false;
    switch (campo) {
    case Campo::Venda: coluna = banco.textoDe(QStringLiteral("CodVenda")); break;
    case Campo::Peca: coluna = det ? QStringLiteral("codpeca") : QString(); break;
    case Campo::Modulo: coluna = det ? QStringLiteral("Modulo") : QString(); break;
    case Campo::Descricao: coluna = det ? QStringLiteral("Descricao") : QString(); meio = true; break;
    case Campo::Tecnico: coluna = det ? QStringLiteral("Tecnico") : QStringLiteral("NomeTecnico"); break;
    case Campo::Vendedor: coluna = det ? QStringLiteral("Vendedor") : QStringLiteral("Funcionario"); break;
    case Campo::Caixa: coluna = QStringLiteral("Caixa"); break;
    case Campo::Cliente: coluna = QStringLiteral("NomeCliente"); meio = true; break;
    case Campo::Fornecedor: coluna = QStringLiteral("Fornecedor"); meio = true; break;
    }
    if (coluna.isEmpty())
        return std::nullopt;
    Consulta c;
    c.visao = v;
    // A typed % or _ still works as a wildcard, as the shop is used to.
    c.onde = parecido(coluna) + QStringLiteral(" AND ") + periodo();
    c.valores = {meio ? envolto(valor) : valor, Datas::paraBanco(de), Datas::paraBanco(ate)};
    c.ordem = QStringLiteral("Data, ") + chave(v);
    return c;
}

std::optional<Dinheiro> Linha::valor(int c) const
{
    // A line has none of the sale's own amounts, a summary no minimum price.
    const bool temResumo = !texto[ValTotal].isNull();
    switch (c) {
    case ValCusto: return custo;
    case ValVenda: return venda;
    case ValMinimo: return temMinimo ? std::optional(minimo) : std::nullopt;
    case ValDesconto: return desconto;
    case ValVendido: return vendido;
    case ValVendedor: return valVendedor;
    case LucroProduto: return lucroProduto;
    case ValMaoObra: return maoObra;
    case ValPorc: return porcTecnico;
    case ValTecnico: return valTecnico;
    case LucroMaoObra: return lucroMaoObra;
    case ValTotal: return temResumo ? std::optional(total) : std::nullopt;
    case ValPagar: return temResumo ? std::optional(pagar) : std::nullopt;
    case ValDescontoVenda: return temResumo ? std::optional(descontoVenda) : std::nullopt;
    case ValPago: return temResumo ? std::optional(pago) : std::nullopt;
    case ValTroco: return temResumo ? std::optional(troco) : std::nullopt;
    default: return std::nullopt;
    }
}

QString Linha::celula(int c) const
{
    if (colunaDinheiro(c)) {
        const std::optional<Dinheiro> v = valor(c);
        return v ? v->texto() : QString();
    }
    switch (c) {
    case Cod: return QString::number(chave);
    case Quantidade_: return quantidade.texto();
    case TipoPorc: return porcento ? QStringLiteral("%") : QStringLiteral("$");
    case Data: return Datas::bancoParaTela(data);
    default: return texto[c];
    }
}

const QStringList& rotulosTotais()
{
    static const QStringList r = {"Qt/Itens",      "Valor Custo",  "Valor Venda",     "Val/Desconto",
                                  "Val/Vendido",   "Val/Lucro Prod", "Val/Mão Obra",  "Val/Técnico",
                                  "Val/Lucro M.O", "Val/Vendedor", "Lucro P + M - D", "Desconto"};
    return r;
}

QStringList Totais::textos() const
{
    return {itens.texto(),        custo.texto(),   venda.texto(),        desconto.texto(),
            vendido.texto(),      lucroProduto.texto(), maoObra.texto(), tecnico.texto(),
            lucroMaoObra.texto(), vendedor.texto(), lucro.texto(),       descontoVenda.texto()};
}

void Percurso::passar(Linha& l, const QHash<qint64, Dinheiro>& descontos)
{
    Totais& t = m_totais;
    const bool det = !resumo(m_visao);
    // A line counts its quantity; a summary stands for one sale and its parts' value is
    // already net of their discount.
    const Quantidade q = det ? l.quantidade : Quantidade::unidades(1);
    if (det) {
        l.vendido = q.vezes(l.venda - l.desconto);
        l.lucroProduto = l.vendido - q.vezes(l.custo);
    } else {
        l.vendido = l.venda;
        l.lucroProduto = l.vendido - l.custo;
    }
    const Dinheiro porcVendedor = Dinheiro::lerTextoLocal(l.porcVendedor).value_or(Dinheiro());
    l.valVendedor = l.lucroProduto.multiplicado(porcVendedor.centavos(), 10000);
    l.valTecnico = l.porcento ? l.maoObra.multiplicado(l.porcTecnico.centavos(), 10000) : l.porcTecnico;
    l.lucroMaoObra = l.maoObra - l.valTecnico;

    t.itens = t.itens + q;
    t.custo += q.vezes(l.custo);
    t.venda += q.vezes(l.venda);
    t.desconto += q.vezes(l.desconto);
    t.vendido += l.vendido;
    t.vendedor += l.valVendedor;
    t.lucroProduto += l.lucroProduto;
    t.maoObra += l.maoObra;
    t.tecnico += l.valTecnico;
    t.lucroMaoObra += l.lucroMaoObra;

    // A sale with many rows in a row has its discount counted once.
    l.descontoDaVenda = {};
    if (m_vendaAnterior != l.codVenda)
        l.descontoDaVenda = descontos.value(l.codVenda);
    m_vendaAnterior = l.codVenda;

    if (!det) {
        t.fluxo[0] += l.total;
        t.fluxo[1] += l.pagar - l.descontoDaVenda;
        t.fluxo[2] += l.descontoVenda;
        t.descontoVenda += l.descontoVenda;
        t.fluxo[3] += l.pago;
        t.fluxo[4] += l.troco;
    }
    t.lucro = t.lucroProduto + t.lucroMaoObra - t.descontoVenda;
}

namespace {

Linha linhaDe(const QSqlQuery& q, bool det)
{
    Linha l;
    l.chave = q.value(0).toLongLong();
    l.texto[CodAutVen] = codigo(q.value(1));
    l.texto[CodAutOS] = codigo(q.value(2));
    l.codVenda = q.value(3).toLongLong();
    l.texto[CodVenda] = codigo(q.value(3));
    l.texto[CodProduto] = det ? q.value(4).toString() : QString();
    l.texto[Modulo] = det ? q.value(5).toString() : QString();
    l.texto[Descricao] = q.value(6).toString();
    // A line whose quantity was never filled in stands for one item.
    const qint64 milesimos = q.value(7).toLongLong();
    l.quantidade = det && milesimos != 0 ? Quantidade::deMilesimos(milesimos) : Quantidade::unidades(1);
    l.custo = dinheiro(q.value(8));
    l.venda = dinheiro(q.value(9));
    l.temMinimo = det;
    l.minimo = dinheiro(q.value(10));
    l.desconto = dinheiro(q.value(11));
    l.porcVendedor = q.value(12).toString();
    l.texto[PorcVendedor] = l.porcVendedor;
    l.texto[TipoVenda] = q.value(13).toString();
    l.maoObra = dinheiro(q.value(14));
    l.texto[TipoAparelho] = q.value(15).toString();
    l.porcTecnico = dinheiro(q.value(16));
    l.porcento = q.value(17).toInt() != 0;
    l.texto[CodTec] = q.value(18).toString();
    l.texto[Tecnico] = q.value(19).toString();
    l.texto[CodFun] = q.value(20).toString();
    l.texto[Vendedor] = q.value(21).toString();
    l.texto[CodCaixa] = q.value(22).toString();
    l.texto[Caixa] = q.value(23).toString();
    l.data = q.value(24).toString();
    l.texto[Hora] = q.value(25).toString();
    l.texto[CodCli] = q.value(26).toString();
    l.texto[Cliente] = q.value(27).toString();
    l.texto[FormaPagamento] = q.value(28).toString();
    l.texto[Fornecedor] = q.value(29).toString();
    if (!det) {
        // Marks the summary columns as present: a line has none of them.
        l.texto[ValTotal] = QStringLiteral("");
        l.total = dinheiro(q.value(30));
        l.pagar = dinheiro(q.value(31));
        l.descontoVenda = dinheiro(q.value(32));
        l.pago = dinheiro(q.value(33));
        l.troco = dinheiro(q.value(34));
    }
    return l;
}

// The discount of each sale of the range, as its first summary row has it.
QHash<qint64, Dinheiro> descontosDasVendas(Banco& banco, const Consulta& c)
{
    QHash<qint64, Dinheiro> r;
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT CodVenda, ValorDesconto FROM Movimento WHERE Codmov IN (SELECT MIN(Codmov) FROM Movimento "
                       "WHERE CodVenda IN (SELECT CodVenda FROM %1 WHERE %2) GROUP BY CodVenda)")
            .arg(tabela(c.visao), c.onde),
        c.valores);
    while (q.next())
        r.insert(q.value(0).toLongLong(), dinheiro(q.value(1)));
    return r;
}

} // namespace

Lista ler(Banco& banco, const Consulta& c)
{
    Lista lista;
    lista.visao = c.visao;
    const bool det = !resumo(c.visao);
    // Only the summaries use the sales' discounts (the cash flow's money in the till).
    const QHash<qint64, Dinheiro> descontos = det ? QHash<qint64, Dinheiro>() : descontosDasVendas(banco, c);
    QSqlQuery q = banco.executar(QStringLiteral("%1 WHERE %2 ORDER BY %3")
                                     .arg(det ? SelecaoDetalhe : SelecaoResumo, c.onde, c.ordem),
                                 c.valores);
    Percurso percurso(c.visao);
    while (q.next()) {
        Linha l = linhaDe(q, det);
        percurso.passar(l, descontos);
        lista.linhas << std::move(l);
    }
    lista.totais = percurso.totais();
    return lista;
}

qint64 excluir(Banco& banco, const Lista& lista)
{
    // The short list beside the summaries is for reading only.
    if (lista.visao == Visao::MaisSimples || lista.linhas.isEmpty())
        return 0;
    constexpr int Bloco = 500;
    qint64 apagadas = 0;
    Transacao t(banco);
    for (int i = 0; i < lista.linhas.size(); i += Bloco) {
        QStringList marcas;
        QVariantList chaves;
        for (int j = i; j < qMin(int(lista.linhas.size()), i + Bloco); ++j) {
            marcas << QStringLiteral("?");
            chaves << lista.linhas.at(j).chave;
        }
        QSqlQuery q = banco.executar(QStringLiteral("DELETE FROM %1 WHERE %2 IN (%3)")
                                         .arg(tabela(lista.visao), chave(lista.visao), marcas.join(',')),
                                     chaves);
        apagadas += q.numRowsAffected();
    }
    t.commit();
    return apagadas;
}

}
