#include "orders/TravaOrdem.h"

#include "data/Sessao.h"
#include "orders/Ordem.h"

namespace TravaOrdem {

std::optional<Recusa> verificarAlteracao(bool saida, bool bloqueada, TelaOrdem tela)
{
    const Sessao& s = sessao();
    if (saida && s.DireitoAltOs != 1) {
        if (tela == TelaOrdem::Entrada || tela == TelaOrdem::Saida)
            return Recusa::liberar(QStringLiteral(
                "Está ordem de serviço já foi finalizada,você não tem permissão para alterar."));
        return Recusa::liberar(QStringLiteral("Esta ordem de serviço foi finalizada,você não tem permissão para alterar."));
    }
    if (bloqueada && s.DireitoAltOrca != 1 && (tela == TelaOrdem::Bancada || tela == TelaOrdem::Completa))
        return Recusa::liberar(QStringLiteral(
            "Esta ordem de serviço foi definido seu Status e valores,você não tem permissão para alterar."));
    return std::nullopt;
}

std::optional<Recusa> verificarAlteracao(const Ordem& o, TelaOrdem tela)
{
    return verificarAlteracao(o.Saida, o.OrdemBloqueada, tela);
}

std::optional<Recusa> verificarRemocaoPeca()
{
    if (sessao().DireitoAltOrca == 1)
        return std::nullopt;
    return Recusa::liberar(QStringLiteral(
        "Esta ordem de serviço já foi definido seu Status e valores e você não tem permissão para alterar."));
}

void aoEditar(Ordem& o, TelaOrdem tela)
{
    if (sessao().DireitoAltOrca == 1 && (tela == TelaOrdem::Bancada || tela == TelaOrdem::Completa))
        o.OrdemBloqueada = false;
}

std::optional<QString> aoSairDaTela()
{
    if (sessao().LiberaAltOs != 1)
        return std::nullopt;
    sessao().LiberaAltOs = 0;
    return QStringLiteral("Você tem que se logar no sistema novamente.");
}

}
