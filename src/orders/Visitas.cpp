#include "orders/Visitas.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Recordset.h"
#include "data/Transacao.h"
#include "orders/NumeroOrdem.h"

namespace Visitas {

namespace {
const QString Pecas = QStringLiteral("PecasAplicadas");
const QString SemCodigo = QStringLiteral("S/COd");
const QString DaVisita = QStringLiteral("CodManu = ? AND TipoVisita = ?");
// The text columns take no NULL: a box never typed into is stored as "".
QString txt(const QString& t) { return t.isNull() ? QStringLiteral("") : t; }
} // namespace

Totais totais(const QList<PecaVisita>& pecas, Dinheiro maoObra)
{
    Totais t;
    for (const PecaVisita& p : pecas) {
        if (p.descricao.trimmed().isEmpty())
            continue;
        t.venda += p.total();
        t.pecas += p.quantidade.vezes(p.valorCusto);
    }
    t.pagar = t.venda + maoObra;
    return t;
}

std::optional<Quantidade> lerQuantidade(const QString& texto)
{
    if (texto.trimmed().isEmpty())
        return Quantidade::unidades(1);
    return Quantidade::lerTexto(texto.trimmed());
}

std::optional<Dinheiro> lerValor(const QString& texto) { return Dinheiro::lerTexto(texto.trimmed()); }

std::optional<QString> dataAtendidaParaBanco(const QString& texto)
{
    const QString t = texto.trimmed();
    if (t.isEmpty())
        return QString();
    if (const auto d = Datas::lerBanco(t))
        return Datas::paraBanco(*d);
    return Datas::telaParaBanco(t);
}

QList<PecaVisita> pecas(Banco& banco, qint64 codManu)
{
    Recordset rs(banco);
    rs.abrir(Pecas, DaVisita, {codManu, TipoVisita}, QStringLiteral("CodPecAut"));
    QList<PecaVisita> l;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        PecaVisita p;
        p.descricao = rs.texto(QStringLiteral("Descricao"));
        p.codPeca = rs.texto(QStringLiteral("codpeca"));
        p.quantidade = rs.nulo(QStringLiteral("Quantidade")) ? Quantidade::unidades(1)
                                                              : rs.quantidade(QStringLiteral("Quantidade"));
        p.valorVenda = rs.dinheiro(QStringLiteral("ValorVenda"));
        p.valorCusto = rs.dinheiro(QStringLiteral("ValorCusto"));
        l << p;
    }
    return l;
}

QStringList tecnicos(Banco& banco)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT NomeUsuario FROM Usuario ORDER BY NomeUsuario"));
    QStringList l;
    while (q.next())
        l << q.value(0).toString();
    return l;
}

void excluirPecas(Banco& banco, qint64 codManu)
{
    banco.executar(QStringLiteral("DELETE FROM PecasAplicadas WHERE ") + DaVisita, {codManu, TipoVisita});
}

void gravarPecas(Banco& banco, qint64 codManu, const QString& nomeCliente, const QList<PecaVisita>& pecas)
{
    Transacao tr(banco);
    excluirPecas(banco, codManu);
    const DefTabela& t = *Esquema::tabela(Pecas);
    const QStringList colunas{QStringLiteral("Descricao"), QStringLiteral("CodOs"), QStringLiteral("CodOsAut"),
                              QStringLiteral("CodManu"), QStringLiteral("NomeCliente"), QStringLiteral("Quantidade"),
                              QStringLiteral("ValorVenda"), QStringLiteral("ValorTotal"), QStringLiteral("ValorCusto"),
                              QStringLiteral("codpeca"), QStringLiteral("TipoVisita")};
    for (const PecaVisita& p : pecas) {
        if (p.descricao.trimmed().isEmpty())
            continue;
        // CodOsAut 0: no order's own key, so an order's money and stock never see the row.
        banco.inserir(t, colunas,
                      {p.descricao, codManu, 0, codManu, txt(nomeCliente), p.quantidade.milesimos(),
                       p.valorVenda.centavos(), p.total().centavos(), p.valorCusto.centavos(),
                       p.codPeca.trimmed().isEmpty() ? SemCodigo : p.codPeca, TipoVisita});
    }
    tr.commit();
}

QString solicitacaoEntrada(qint64 codOs)
{
    // The order's number on the first line: the one-line lists show only that line.
    return QStringLiteral("Ordem de Serviço de entrada nº ") + QString::number(codOs)
        + QStringLiteral("\nBuscar aparelho para conserto");
}

qint64 pedirDaEntrada(Banco& banco, const PedidoEntrada& p)
{
    Q_ASSERT(p.codOs > 0);
    Transacao tr(banco);
    const qint64 cod = NumeroOrdem::proximoCodManu(banco);
    const QString usuario = sessao().UsuarioNome;
    banco.inserir(*Esquema::tabela(Tabela),
                  {QStringLiteral("CodManu"), QStringLiteral("CodCliente"), QStringLiteral("NomeCliente"),
                   QStringLiteral("EndTel"), QStringLiteral("Solicitacao"), QStringLiteral("DataSolicitada"),
                   QStringLiteral("HoraSolicitada"), QStringLiteral("DataAtendida"), QStringLiteral("Atendida"),
                   QStringLiteral("Tecnico"), QStringLiteral("OsAlterado"), QStringLiteral("MaoObra"),
                   QStringLiteral("ValorVenda"), QStringLiteral("ValorPagar"), QStringLiteral("ValorPecas"),
                   QStringLiteral("TipoFormulario"), QStringLiteral("Aguarda"), QStringLiteral("Acaminho"),
                   QStringLiteral("Orcamento"), QStringLiteral("Executado"), QStringLiteral("Excluidos")},
                  {cod, txt(p.codCliente), txt(p.nomeCliente), txt(p.endereco), solicitacaoEntrada(p.codOs), Datas::hoje(),
                   Datas::agoraHora(), txt({}), 0, txt(usuario), txt(usuario), 0, 0, 0, 0, QStringLiteral("Visita"), -1, 0,
                   0, 0, 0});
    tr.commit();
    return cod;
}

void lancarCaixa(Banco& banco, const Caixa& c)
{
    Transacao tr(banco);
    const QString hoje = Datas::hoje();
    const QString hora = Datas::agoraHora();
    banco.inserir(*Esquema::tabela(QStringLiteral("VendaDetalhada")),
                  {QStringLiteral("CodVenda"), QStringLiteral("codpeca"), QStringLiteral("Quantidade"),
                   QStringLiteral("Descricao"), QStringLiteral("ValorTotal"), QStringLiteral("ValorCusto"),
                   QStringLiteral("Data"), QStringLiteral("TipoVenda"), QStringLiteral("ValorVenda"),
                   QStringLiteral("ValorPorcentagem"), QStringLiteral("MaoObra"), QStringLiteral("Tecnico"),
                   QStringLiteral("Departamento"), QStringLiteral("Hora")},
                  {c.codManu, QString::number(c.codManu), Quantidade::unidades(1).milesimos(), txt(c.nomeCliente),
                   c.maoObra.centavos(), c.valorPecas.centavos(), hoje, QStringLiteral("Visita"),
                   c.valorVenda.centavos(), 0, c.maoObra.centavos(), txt(c.tecnico), QStringLiteral("Domicilio"), hora});
    banco.inserir(*Esquema::tabela(QStringLiteral("Movimento")),
                  {QStringLiteral("CodVenda"), QStringLiteral("ValorTotal"), QStringLiteral("ValorPagar"),
                   QStringLiteral("Data"), QStringLiteral("TipoVenda"), QStringLiteral("NomeCliente"),
                   QStringLiteral("Caixa"), QStringLiteral("Hora")},
                  {c.codManu, c.maoObra.centavos(), c.maoObra.centavos(), hoje, QStringLiteral("Visita"),
                   txt(c.nomeCliente), QStringLiteral("Entregue por ") + c.usuario,
                   c.horaPendente ? QStringLiteral("Pendente") : hora});
    tr.commit();
}

}
