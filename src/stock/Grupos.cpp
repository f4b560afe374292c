#include "stock/Grupos.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Transacao.h"

namespace Grupos {

namespace {

QList<Linha> le(Banco& banco, const QString& sql, const QVariantList& valores = {}, bool comIcms = false)
{
    QSqlQuery q = banco.executar(sql, valores);
    QList<Linha> r;
    while (q.next())
        r << Linha{q.value(0).toLongLong(), q.value(1).toString(), comIcms ? q.value(2).toInt() : 0};
    return r;
}

qint64 grava(Banco& banco, const QString& tabela, qint64 codigo, const QStringList& colunas, const QVariantList& valores)
{
    const DefTabela* t = Esquema::tabela(tabela);
    if (codigo < 0)
        return banco.inserir(*t, colunas, valores);
    QStringList sets;
    for (const QString& c : colunas)
        sets << c + QStringLiteral(" = ?");
    QSqlQuery q = banco.executar(
        QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?").arg(tabela, sets.join(QStringLiteral(", ")), t->chave),
        valores + QVariantList{codigo});
    // A row removed at another station is told, never an update that touched nothing.
    if (q.numRowsAffected() != 1)
        throw RegistroAlterado(true);
    return codigo;
}

} // namespace

QList<Linha> grupos(Banco& banco)
{
    return le(banco, QStringLiteral("SELECT CodGrupo, Grupo FROM GrupoProdutos ORDER BY Grupo, CodGrupo"));
}

QList<Linha> subgrupos(Banco& banco, qint64 grupo)
{
    return le(banco, QStringLiteral("SELECT CodSubGrupo, SubGrupo FROM SubGrupoProdutos WHERE CodGrupo = ? "
                                    "ORDER BY SubGrupo, CodSubGrupo"), {grupo});
}

QList<Linha> aliquotas(Banco& banco)
{
    return le(banco, QStringLiteral("SELECT CodAliquota, Descricao, ICMS FROM ClassificaAliquota "
                                    "ORDER BY Descricao, CodAliquota"), {}, true);
}

qint64 gravaGrupo(Banco& banco, qint64 codigo, const QString& nome)
{
    return grava(banco, QStringLiteral("GrupoProdutos"), codigo, {QStringLiteral("Grupo")}, {nome});
}

qint64 gravaSubGrupo(Banco& banco, qint64 codigo, qint64 grupo, const QString& nome)
{
    return grava(banco, QStringLiteral("SubGrupoProdutos"), codigo,
                 {QStringLiteral("SubGrupo"), QStringLiteral("CodGrupo")}, {nome, grupo});
}

qint64 gravaAliquota(Banco& banco, qint64 codigo, const QString& descricao, int icms)
{
    return grava(banco, QStringLiteral("ClassificaAliquota"), codigo,
                 {QStringLiteral("Descricao"), QStringLiteral("ICMS")}, {descricao, icms});
}

void excluiGrupo(Banco& banco, qint64 codigo)
{
    Transacao t(banco);
    banco.executar(QStringLiteral("DELETE FROM SubGrupoProdutos WHERE CodGrupo = ?"), {codigo});
    banco.executar(QStringLiteral("DELETE FROM GrupoProdutos WHERE CodGrupo = ?"), {codigo});
    t.commit();
}

void excluiSubGrupo(Banco& banco, qint64 codigo)
{
    banco.executar(QStringLiteral("DELETE FROM SubGrupoProdutos WHERE CodSubGrupo = ?"), {codigo});
}

void excluiAliquota(Banco& banco, qint64 codigo)
{
    banco.executar(QStringLiteral("DELETE FROM ClassificaAliquota WHERE CodAliquota = ?"), {codigo});
}

std::optional<int> icmsDoTexto(const QString& texto)
{
    // Whole part, then the first decimal decides: what the four-digit format printed.
    const QString t = texto.trimmed();
    const qsizetype virgula = t.indexOf(QLatin1Char(','));
    const QString inteira = virgula < 0 ? t : t.left(virgula);
    const QString decimais = virgula < 0 ? QString() : t.mid(virgula + 1);
    auto soDigitos = [](const QString& s) {
        for (const QChar c : s)
            if (c < QLatin1Char('0') || c > QLatin1Char('9'))
                return false;
        return true;
    };
    if ((inteira.isEmpty() && decimais.isEmpty()) || !soDigitos(inteira) || !soDigitos(decimais) || inteira.size() > 4)
        return std::nullopt;
    int valor = inteira.isEmpty() ? 0 : inteira.toInt();
    if (!decimais.isEmpty() && decimais.at(0) >= QLatin1Char('5'))
        ++valor;
    return valor;
}

}
