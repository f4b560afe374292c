#pragma once
// Orders, parts and products put straight into the store for the till's tests, with the
// amounts worked out by hand in the test itself.
#include <QSqlQuery>
#include <QString>

#include "cash/RegistroPagamento.h"
#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Sessao.h"

namespace ApoioCaixa {

inline void sessaoDoCaixa()
{
    Sessao& s = sessao();
    s.zerarDireitos();
    s.DireitoOsSaiLe = 1;
    s.DireitoOsSaiAl = 1;
    s.UsuarioNome = QStringLiteral("ANA");
    s.UsuarioCodigo = QStringLiteral("7");
    s.TecnicoCodigo = QStringLiteral("8");
    s.TecnicoNome = QStringLiteral("BRUNO");
    s.LiberaAltOs = 0;
    s.SenhaObrigatoria = 0;
}

struct OrdemTeste {
    qint64 codOs = 57;
    QString nome = QStringLiteral("ANA");
    QString codCliente = QStringLiteral("15");
    QString cpf = QStringLiteral("11144477735");
    qint64 maoObra = 0, venda = 0, custo = 0, descontoPeca = 0;
};

inline QString txt(const QString& s) { return s.isNull() ? QStringLiteral("") : s; }

// An approved, repaired order waiting at the counter; ValorPagar = labour + parts.
inline qint64 inserirOrdem(Banco& b, const OrdemTeste& o)
{
    return b.inserir(*Esquema::tabela(QStringLiteral("OrdemServico")),
                     {"CodOs", "NomeCliente", "CodCliente", "CpfCnpj", "Tipo", "Tecnico", "Armazenado", "Aprovado",
                      "Consertado", "MaoObra", "ValorVenda", "ValorPecas", "ValorDescontoPeca", "ValorPagar",
                      "ValorPorcentagem", "DataEntrada"},
                     {o.codOs, txt(o.nome), txt(o.codCliente), txt(o.cpf), QStringLiteral("TV"), QStringLiteral("BRUNO"),
                      QStringLiteral("PRATELEIRA 3"), -1, -1, o.maoObra, o.venda, o.custo, o.descontoPeca,
                      o.maoObra + o.venda, 1000, QStringLiteral("2025/01/10")});
}

struct PecaTeste {
    QString codpeca;
    qint64 quantidade = 1000;  // thousandths
    qint64 venda = 0, desconto = 0, custo = 0;
    bool baixada = false;
    QString descricao;
};

// A part of the order (house-call parts pass `codManu` and leave the order's key 0).
inline qint64 inserirPeca(Banco& b, qint64 codOsAut, qint64 codOs, const QString& nome, const PecaTeste& p,
                          qint64 codManu = 0)
{
    const qint64 total = (p.venda - p.desconto) * p.quantidade / 1000;
    return b.inserir(*Esquema::tabela(QStringLiteral("PecasAplicadas")),
                     {"CodOsAut", "CodOs", "NomeCliente", "TipoVisita", "CodManu", "codpeca", "Descricao", "Quantidade",
                      "ValorVenda", "ValorDesconto", "ValorCusto", "ValorTotal", "BaixaEstoque", "QuantidadeBaixada",
                      "ControleEstoque", "Grupo", "Unidade"},
                     {codOsAut, codOs, nome, codManu ? QStringLiteral("Visita") : QString(""), codManu, p.codpeca,
                      p.descricao.isEmpty() ? QStringLiteral("PECA ") + p.codpeca : p.descricao, p.quantidade, p.venda,
                      p.desconto, p.custo, total, p.baixada ? -1 : 0, p.baixada ? p.quantidade : 0,
                      p.baixada ? -1 : 0, QStringLiteral("TV"), QStringLiteral("UN")});
}

inline void inserirProduto(Banco& b, const QString& codpeca, qint64 estoque, qint64 minimo = 0)
{
    b.inserir(*Esquema::tabela(QStringLiteral("Produto")), {"codpeca", "Descricao", "Quantidadeestoque", "QuantidadeMinima"},
              {codpeca, QStringLiteral("PRODUTO ") + codpeca, estoque, minimo});
}

inline qint64 estoque(Banco& b, const QString& codpeca)
{
    return b.escalar(QStringLiteral("SELECT Quantidadeestoque FROM Produto WHERE codpeca = ?"), {codpeca}).toLongLong();
}

inline qint64 contar(Banco& b, const QString& tabela, const QString& onde = QStringLiteral("1 = 1"),
                     const QVariantList& valores = {})
{
    return b.escalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(tabela, onde), valores).toLongLong();
}

inline QVariant coluna(Banco& b, const QString& sql, const QVariantList& valores = {})
{
    return b.escalar(sql, valores);
}

// What the till's boxes hold for an order loaded just now.
inline PagamentoCaixa pagamento(qint64 codOsAut, const OrdemTeste& o)
{
    PagamentoCaixa p;
    p.codOsAut = codOsAut;
    p.valorPagarLido = Dinheiro::deCentavos(o.maoObra + o.venda);
    p.total = p.valorPagarLido;
    p.forma = QStringLiteral("DINHEIRO-VISTA");
    p.codCliente = o.codCliente;
    p.nomeCliente = o.nome;
    p.cpfCnpj = o.cpf;
    return p;
}

inline void dinheiro(PagamentoCaixa& p, qint64 pago, qint64 desconto = 0)
{
    p.pago = Dinheiro::deCentavos(pago);
    p.desconto = Dinheiro::deCentavos(desconto);
}

}
