#include "orders/CatalogosOrdem.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Texto.h"
#include "data/Transacao.h"
#include "orders/NumeroOrdem.h"

namespace CatalogosOrdem {

namespace {

ServicoCatalogo lerServico(const QSqlQuery& q)
{
    return {q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString(),
            Dinheiro::deCentavos(q.value(3).toLongLong()), Dinheiro::deCentavos(q.value(4).toLongLong())};
}

TipoAparelho lerTipo(const QSqlQuery& q)
{
    return {q.value(0).toLongLong(), q.value(1).toString(), Dinheiro::deCentavos(q.value(2).toLongLong()),
            q.value(3).toLongLong() != 0};
}

// The same text as typed, as the catalogues have always been looked up: without regard to
// case (and here to accents), through the folded copy that the store keeps of the column.
QString igualDobrado(const QString& tabela, const QString& coluna)
{
    return Esquema::tabela(tabela)->coluna(coluna)->nomeDobrado() + QStringLiteral(" = ?");
}

const QString colunasServico = QStringLiteral("Codigo, CodServico, Servico, ValorObra, ValorObraMinimo");
const QString colunasTipo = QStringLiteral("CodTipo, Tipo, ValorTipo, porcentagem");

} // namespace

QList<DefeitoCatalogo> defeitos(Banco& banco)
{
    QList<DefeitoCatalogo> r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Codigo, CodDefeito, Defeito FROM DefeitoReclamado "
                                                "ORDER BY Defeito, Codigo"));
    while (q.next())
        r << DefeitoCatalogo{q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString()};
    return r;
}

DefeitoCatalogo garantirDefeito(Banco& banco, const QString& texto)
{
    Transacao tr(banco);
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Codigo, CodDefeito, Defeito FROM DefeitoReclamado "
                                                "WHERE %1 ORDER BY Codigo LIMIT 1")
                                     .arg(igualDobrado(QStringLiteral("DefeitoReclamado"), QStringLiteral("Defeito"))),
                                 {Texto::dobra(texto)});
    if (q.next())
        return {q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString()};
    const QString codigo = QString::number(NumeroOrdem::proximoCodDefeito(banco));
    const qint64 chave = banco.inserir(*Esquema::tabela(QStringLiteral("DefeitoReclamado")),
                                       {QStringLiteral("CodDefeito"), QStringLiteral("Defeito")}, {codigo, texto});
    tr.commit();
    return {chave, codigo, texto};
}

QList<ServicoCatalogo> servicos(Banco& banco)
{
    QList<ServicoCatalogo> r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM ServicoExecutado ORDER BY Servico, Codigo")
                                     .arg(colunasServico));
    while (q.next())
        r << lerServico(q);
    return r;
}

std::optional<ServicoCatalogo> servicoPorCodigo(Banco& banco, const QString& codServico)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM ServicoExecutado WHERE CodServico = ? "
                                                "ORDER BY Codigo LIMIT 1").arg(colunasServico), {codServico.trimmed()});
    if (!q.next())
        return std::nullopt;
    return lerServico(q);
}

QStringList marcas(Banco& banco)
{
    QStringList r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT MarcaAparelho FROM MarcaProduto ORDER BY MarcaAparelho"));
    while (q.next())
        r << q.value(0).toString();
    return r;
}

void garantirMarca(Banco& banco, const QString& marca)
{
    if (marca.trimmed().isEmpty())
        return;
    Transacao tr(banco);
    if (banco.escalar(QStringLiteral("SELECT COUNT(*) FROM MarcaProduto WHERE ")
                          + igualDobrado(QStringLiteral("MarcaProduto"), QStringLiteral("MarcaAparelho")),
                      {Texto::dobra(marca)}).toInt() == 0)
        banco.inserir(*Esquema::tabela(QStringLiteral("MarcaProduto")), {QStringLiteral("MarcaAparelho")}, {marca});
    tr.commit();
}

QList<TipoAparelho> tipos(Banco& banco)
{
    QList<TipoAparelho> r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM PorcenTecnico ORDER BY Tipo, CodTipo").arg(colunasTipo));
    while (q.next())
        r << lerTipo(q);
    return r;
}

std::optional<TipoAparelho> tipoPorCodigo(Banco& banco, qint64 codTipo)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM PorcenTecnico WHERE CodTipo = ?").arg(colunasTipo),
                                 {codTipo});
    if (!q.next())
        return std::nullopt;
    return lerTipo(q);
}

QString garantirTipo(Banco& banco, const QString& tipo)
{
    QString t = tipo;
    t.replace(QLatin1Char('\''), QLatin1Char('"'));
    if (t.trimmed().isEmpty())
        return t;
    Transacao tr(banco);
    if (banco.escalar(QStringLiteral("SELECT COUNT(*) FROM PorcenTecnico WHERE ")
                          + igualDobrado(QStringLiteral("PorcenTecnico"), QStringLiteral("Tipo")),
                      {Texto::dobra(t)}).toInt() == 0)
        banco.inserir(*Esquema::tabela(QStringLiteral("PorcenTecnico")), {QStringLiteral("Tipo")}, {t});
    tr.commit();
    return t;
}

}
