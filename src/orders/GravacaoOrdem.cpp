#include "orders/GravacaoOrdem.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Recordset.h"
#include "data/Transacao.h"
#include "orders/NumeroOrdem.h"
#include "orders/Ordem.h"

namespace GravacaoOrdem {

namespace {

void carregarFilhas(Banco& banco, Ordem& o)
{
    Recordset rs(banco);
    o.sintomas.clear();
    rs.abrir(QStringLiteral("SintomaOS"), QStringLiteral("CodOsAut = ?"), {o.CodOsAut}, QStringLiteral("Chave"));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        o.sintomas << ColunasFilhas::lerSintoma(rs);
    o.servicos.clear();
    rs.abrir(QStringLiteral("ServicoOS"), QStringLiteral("CodOsAut = ?"), {o.CodOsAut}, QStringLiteral("CodServico, Chave"));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        o.servicos << ColunasFilhas::lerServico(rs);
    o.pecas.clear();
    rs.abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodOsAut = ? AND TipoVisita = ''"), {o.CodOsAut},
             QStringLiteral("CodPecAut"));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        o.pecas << ColunasFilhas::lerPeca(rs);
}

std::optional<qint64> numero(const QString& t)
{
    bool ok = false;
    const qint64 n = t.trimmed().toLongLong(&ok);
    return ok ? std::optional<qint64>(n) : std::nullopt;
}

void verificarTrava(Banco& banco, const Ordem& o, TelaOrdem tela)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Saida, OrdemBloqueada FROM OrdemServico WHERE CodOsAut = ?"),
                                 {o.CodOsAut});
    if (!q.next())
        throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                        QStringLiteral("A ordem de serviço foi excluída em outra estação."));
    if (auto r = TravaOrdem::verificarAlteracao(q.value(0).toLongLong() != 0, q.value(1).toLongLong() != 0, tela))
        throw OrdemRecusada(*r);
}

// A child table of the order is rewritten whole, found by the order's key.
template <typename Linha>
void regravarFilhas(Banco& banco, const Ordem& o, const QString& tabela, const QList<Linha>& linhas,
                    void (*escrever)(const Linha&, Recordset&))
{
    banco.executar(QStringLiteral("DELETE FROM %1 WHERE CodOsAut = ?").arg(tabela), {o.CodOsAut});
    Recordset rs(banco);
    rs.abrir(tabela, QStringLiteral("1 = 0"));
    for (const Linha& l : linhas) {
        rs.addNew();
        rs.definir(QStringLiteral("CodOs"), o.CodOs);
        rs.definir(QStringLiteral("CodOsAut"), o.CodOsAut);
        rs.definir(QStringLiteral("NomeOS"), o.NomeCliente);
        escrever(l, rs);
        rs.update();
    }
}

void gravarSintomas(Banco& banco, const Ordem& o)
{
    regravarFilhas(banco, o, QStringLiteral("SintomaOS"), o.sintomas, &ColunasFilhas::escreverSintoma);
}

void gravarServicos(Banco& banco, const Ordem& o)
{
    regravarFilhas(banco, o, QStringLiteral("ServicoOS"), o.servicos, &ColunasFilhas::escreverServico);
}

// Parts taken off the list go now. One that another station's save has since taken from
// stock stays: only the stock screen removes it.
void apagarRemovidas(Banco& banco, Ordem& o)
{
    for (const qint64 chave : std::as_const(o.pecasRemovidas)) {
        const QVariant controle = banco.escalar(
            QStringLiteral("SELECT ControleEstoque FROM PecasAplicadas WHERE CodPecAut = ? AND CodOsAut = ?"),
            {chave, o.CodOsAut});
        if (!controle.isNull() && controle.toLongLong() != 0)
            throw OrdemRecusada(Recusa::aviso(
                QStringLiteral("Essa peça pode ser excluida somente pelo controle de estoque não é permitido a "
                               "exclusão por este formulário"),
                QStringLiteral("Controle de estoque")));
        banco.executar(QStringLiteral("DELETE FROM PecasAplicadas WHERE CodPecAut = ? AND CodOsAut = ?"),
                       {chave, o.CodOsAut});
    }
    o.pecasRemovidas.clear();
}

void gravarPecas(Banco& banco, Ordem& o)
{
    apagarRemovidas(banco, o);
    Recordset rs(banco);
    for (PecaAplicada& p : o.pecas) {
        if (p.codpeca.trimmed().isEmpty())
            p.codpeca = QStringLiteral("0000");
        if (p.CodPecAut == 0) {
            rs.abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("1 = 0"));
            rs.addNew();
            p.ControleEstoque = false;
            p.BaixaEstoque = false;
            p.QuantidadeBaixada = {};
        } else {
            rs.abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodPecAut = ? AND CodOsAut = ?"),
                     {p.CodPecAut, o.CodOsAut});
            if (rs.eof())
                throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                                QStringLiteral("Uma peça da ordem foi removida em outra estação."));
            // What left stock is the stock's business: the bench never rewrites it.
            const PecaAplicada guardada = ColunasFilhas::lerPeca(rs);
            p.ControleEstoque = guardada.ControleEstoque;
            p.BaixaEstoque = guardada.BaixaEstoque;
            p.QuantidadeBaixada = guardada.QuantidadeBaixada;
        }
        rs.definir(QStringLiteral("CodOs"), o.CodOs);
        rs.definir(QStringLiteral("CodOsAut"), o.CodOsAut);
        rs.definir(QStringLiteral("NomeCliente"), o.NomeCliente);
        rs.definir(QStringLiteral("TipoVisita"), QString());
        ColunasFilhas::escreverPeca(p, rs);
        rs.update();
        p.CodPecAut = rs.chaveAtual();
    }
}

// The children carry the order's number and name as well, for the screens and sheets
// that show them; they follow a change of either.
void acompanharNumeroENome(Banco& banco, const Ordem& o)
{
    const QVariant codOs = o.lidas.value(QStringLiteral("CodOs"));
    const QVariant nome = o.lidas.value(QStringLiteral("NomeCliente"));
    if (codOs == QVariant(o.CodOs) && nome == QVariant(o.NomeCliente))
        return;
    banco.executar(QStringLiteral("UPDATE SintomaOS SET CodOs = ?, NomeOS = ? WHERE CodOsAut = ?"),
                   {o.CodOs, o.NomeCliente, o.CodOsAut});
    banco.executar(QStringLiteral("UPDATE ServicoOS SET CodOs = ?, NomeOS = ? WHERE CodOsAut = ?"),
                   {o.CodOs, o.NomeCliente, o.CodOsAut});
    banco.executar(QStringLiteral("UPDATE PecasAplicadas SET CodOs = ?, NomeCliente = ? "
                                  "WHERE CodOsAut = ? AND TipoVisita = ''"), {o.CodOs, o.NomeCliente, o.CodOsAut});
}

} // namespace

std::optional<Ordem> carregar(Banco& banco, qint64 codOsAut)
{
    Recordset rs(banco);
    rs.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {codOsAut});
    if (rs.eof())
        return std::nullopt;
    Ordem o;
    ColunasOrdem::ler(rs, o);
    carregarFilhas(banco, o);
    return o;
}

std::optional<Ordem> reabrir(Banco& banco, const QString& codOs, const QString& codOsAut, bool soVivas)
{
    const auto os = numero(codOs);
    const auto chave = numero(codOsAut);
    if (!os || !chave)
        return std::nullopt;
    const QVariant achada = banco.escalar(
        QStringLiteral("SELECT CodOsAut FROM OrdemServico WHERE CodOs = ? AND CodOsAut = ?%1")
            .arg(soVivas ? QStringLiteral(" AND Excluidos = 0") : QString()),
        {*os, *chave});
    if (achada.isNull())
        return std::nullopt;
    return carregar(banco, achada.toLongLong());
}

void gravar(Banco& banco, Ordem& o, const Filhas& filhas, std::optional<TelaOrdem> tela, bool copiarFabrica)
{
    Transacao tr(banco);
    Ordem trabalho = o;  // the caller's copy changes only when everything is stored
    Recordset rs(banco);
    if (trabalho.nova()) {
        NumeroOrdem::numerar(banco, trabalho, copiarFabrica);
        rs.abrir(QStringLiteral("OrdemServico"), QStringLiteral("1 = 0"));
        rs.addNew();
        trabalho.lidas.clear();
    } else {
        if (tela)
            verificarTrava(banco, trabalho, *tela);
        rs.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {trabalho.CodOsAut});
        if (rs.eof())
            throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                            QStringLiteral("A ordem de serviço foi excluída em outra estação."));
        // A box this station changed that another changed too since the load is refused,
        // never overwritten; columns changed only on one side merge.
        if (!ColunasOrdem::emConflito(trabalho, rs).isEmpty())
            throw RegistroAlterado(false);
    }
    ColunasOrdem::escrever(trabalho, rs);
    rs.update();
    if (!trabalho.nova())
        acompanharNumeroENome(banco, trabalho);
    trabalho.CodOsAut = rs.chaveAtual();
    if (filhas.sintomas)
        gravarSintomas(banco, trabalho);
    if (filhas.servicos)
        gravarServicos(banco, trabalho);
    if (filhas.pecas)
        gravarPecas(banco, trabalho);
    ColunasOrdem::ler(rs, trabalho);
    tr.commit();
    o = std::move(trabalho);
}

QString textoDosSintomas(const Ordem& o)
{
    QString r;
    for (const SintomaOrdem& s : o.sintomas)
        r += s.DefeitoOS + QLatin1Char(',');
    return r;
}

QString textoDosServicos(const Ordem& o)
{
    QString r;
    for (const ServicoOrdem& s : o.servicos)
        r += s.Servico + QLatin1Char(',');
    return r;
}

}
