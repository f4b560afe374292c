#include "orders/EstadoOrdem.h"

#include "orders/Ordem.h"

namespace EstadoOrdem {

Situacao situacao(const Ordem& o)
{
    if (o.Consertado) return Situacao::Consertado;
    if (o.Orcamento) return Situacao::Orcamento;
    if (o.AguardaPeca) return Situacao::AguardaPeca;
    if (o.Devolver) return Situacao::Devolver;
    return Situacao::Nenhuma;
}

Resposta resposta(const Ordem& o)
{
    if (o.Aprovado) return Resposta::Aprovado;
    if (o.Recusado) return Resposta::Recusado;
    return Resposta::Indeciso;
}

void definirSituacao(Ordem& o, Situacao s)
{
    o.Consertado = s == Situacao::Consertado;
    o.Orcamento = s == Situacao::Orcamento;
    o.AguardaPeca = s == Situacao::AguardaPeca;
    o.Devolver = s == Situacao::Devolver;
}

void definirResposta(Ordem& o, Resposta r)
{
    o.Aprovado = r == Resposta::Aprovado;
    o.Recusado = r == Resposta::Recusado;
}

LegendaResposta legenda(const Ordem& o, bool telaEntrega)
{
    LegendaResposta l{LegendaResposta::Indeciso, QStringLiteral("Indeciso"),
                      QStringLiteral("O cliente ainda não autorizou o conserto")};
    if (o.Aprovado)
        l = {LegendaResposta::Aprovado, QStringLiteral("Aprovado"), QStringLiteral("O cliente autorizou o conserto")};
    if (o.Recusado)
        l = {LegendaResposta::Recusado, QStringLiteral("Recusado"), QStringLiteral("O cliente não autorizou o orçamento")};
    if (!o.Aprovado && !o.Recusado)
        l = {LegendaResposta::Indeciso, QStringLiteral("Indeciso"),
             QStringLiteral("O cliente ainda não autorizou o conserto")};
    if (o.Garantia)
        l = {LegendaResposta::Garantia, QStringLiteral("Garantia"), QStringLiteral("Aparelho na garantia")};
    if (telaEntrega && o.Devolver)
        l = {LegendaResposta::Devolver, QStringLiteral("Devolver"),
             QStringLiteral("Não tem peça,não compensa o conserto,ou não apresentou defeito")};
    return l;
}

bool vaiAoCaixa(const Ordem& o) { return legenda(o, true).tipo == LegendaResposta::Aprovado; }

bool naFila(const Ordem& o)
{
    return !o.Consertado && !o.AguardaPeca && !o.Orcamento && !o.Devolver && !o.Saida;
}
bool retiradaPedida(const Ordem& o) { return naFila(o) && o.ChamadoTecnico; }
bool aguardandoPeca(const Ordem& o) { return o.AguardaPeca && !o.Saida; }
bool semResposta(const Ordem& o)
{
    return (o.Orcamento || o.Consertado) && !o.Aprovado && !o.Recusado && !o.Saida;
}
bool autorizada(const Ordem& o) { return o.Aprovado && !o.Consertado && !o.Devolver && !o.Saida; }
bool consertadaEAutorizada(const Ordem& o) { return o.Aprovado && o.Consertado && !o.Saida; }
bool recusadaAposConserto(const Ordem& o) { return o.Consertado && o.Recusado && !o.Saida; }
bool aDevolver(const Ordem& o) { return (o.Devolver || o.Recusado) && !o.Saida; }
bool fechada(const Ordem& o) { return o.Saida; }

}
