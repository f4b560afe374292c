#pragma once
// Small helpers shared by the order tests: a session with rights, and rows put straight
// into the store.
#include <QSqlQuery>
#include <QString>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "orders/Ordem.h"

namespace ApoioOrdens {

// Every right on, the settings a shop starts with, a user logged in.
inline void sessaoCompleta()
{
    Sessao& s = sessao();
    for (const char* n : {"DireitoOsEntLe", "DireitoOsEntAl", "DireitoOsSaiLe", "DireitoOsSaiAl", "DireitoOsTecLe",
                          "DireitoOsTecAl", "DireitoAltOrca", "DireitoAltOs", "DireitoProdutoAl"})
        *s.direito(QLatin1String(n)) = 1;
    s.DireitoPermanente = 0;
    s.UsuarioNome = QStringLiteral("ANA");
    s.UsuarioCodigo = QStringLiteral("7");
    s.TecnicoNome = QStringLiteral("BRUNO");
    s.TecnicoCodigo = QStringLiteral("8");
    s.LiberaAltOs = 0;
    s.CfgAtivaOs = QStringLiteral("False");
    s.CfgAtivaOsFabrica = QStringLiteral("False");
    s.CfgAtivaDef = QStringLiteral("True");
    s.CfgAtivaSer = QStringLiteral("True");
}

inline Ordem ordem(const QString& nome)
{
    Ordem o;
    o.NomeCliente = nome;
    o.Tipo = QStringLiteral("TV");
    return o;
}

// An order row put in directly, with the number chosen by the test.
inline qint64 inserirOrdem(Banco& b, qint64 codOs, const QString& nome)
{
    return b.inserir(*Esquema::tabela(QStringLiteral("OrdemServico")),
                     {QStringLiteral("CodOs"), QStringLiteral("NomeCliente")}, {codOs, nome});
}

inline void inserirProduto(Banco& b, const QString& codpeca, qint64 estoque, qint64 minimo = 0)
{
    b.inserir(*Esquema::tabela(QStringLiteral("Produto")),
              {QStringLiteral("codpeca"), QStringLiteral("Descricao"), QStringLiteral("Quantidadeestoque"),
               QStringLiteral("QuantidadeMinima")},
              {codpeca, QStringLiteral("PECA ") + codpeca, estoque * 1000, minimo * 1000});
}

inline Quantidade estoque(Banco& b, const QString& codpeca)
{
    return Quantidade::deMilesimos(
        b.escalar(QStringLiteral("SELECT Quantidadeestoque FROM Produto WHERE codpeca = ?"), {codpeca}).toLongLong());
}

inline PecaAplicada peca(const QString& codpeca, const QString& quantidade, qint64 vendaCentavos = 1000)
{
    PecaAplicada p;
    p.codpeca = codpeca;
    p.Descricao = QStringLiteral("PECA ") + codpeca;
    p.Quantidade = *Quantidade::lerTexto(quantidade);
    p.ValorVenda = Dinheiro::deCentavos(vendaCentavos);
    return p;
}

}
