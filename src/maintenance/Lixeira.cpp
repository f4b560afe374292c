#include "maintenance/Lixeira.h"

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Transacao.h"

namespace Lixeira {

namespace {

Definicao def(const char* tabela, const char* chave, const char* codigo, const char* data, const char* carimbo,
              const char* legenda, QStringList titulos, QStringList fontes, bool ultimaECarimbo)
{
    return {QString::fromUtf8(tabela), QString::fromUtf8(chave), QString::fromUtf8(codigo), QString::fromUtf8(data),
            QString::fromUtf8(carimbo), QString::fromUtf8(legenda), std::move(titulos), std::move(fontes), ultimaECarimbo};
}

// Codes kept as text (products) compare as numbers: a longer code is a bigger one.
QString entreCodigosTexto(const QString& coluna, QVariantList* v, qint64 de, qint64 ate)
{
    const QString a = QString::number(de), b = QString::number(ate);
    *v << a.size() << a.size() << a << b.size() << b.size() << b;
    return QStringLiteral("(LENGTH(%1) > ? OR (LENGTH(%1) = ? AND %1 >= ?)) AND (LENGTH(%1) < ? OR (LENGTH(%1) = ? AND %1 <= ?))")
        .arg(coluna);
}

QString onde(Registro r, const Filtro& f, QVariantList* v)
{
    const Definicao& d = definicao(r);
    switch (f.modo) {
    case Modo::Excluidos:
        return QStringLiteral("Excluidos = -1");
    case Modo::PorData:
        *v << Datas::paraBanco(f.inicio) << Datas::paraBanco(f.fim);
        return QStringLiteral("%1 >= ? AND %1 <= ?").arg(d.colunaData);
    case Modo::PorCodigo:
        if (r == Registro::Produto)
            return entreCodigosTexto(d.colunaCodigo, v, f.de, f.ate);
        *v << f.de << f.ate;
        return QStringLiteral("%1 BETWEEN ? AND ?").arg(d.colunaCodigo);
    }
    return {};
}

QString ordem(Registro r, const Filtro& f)
{
    const Definicao& d = definicao(r);
    if (f.modo == Modo::PorData)
        return d.colunaData;
    if (r == Registro::Produto)
        return QStringLiteral("LENGTH(%1), %1").arg(d.colunaCodigo);
    return d.colunaCodigo + QLatin1Char(',') + d.chave;
}

} // namespace

const Definicao& definicao(Registro r)
{
    static const QList<Definicao> defs = {
        def("OrdemServico", "CodOsAut", "CodOs", "DataEntrada", "OsAlterado", "Ordem Serviço excluídos - ",
            {"Código", "Nome", "Tipo", "Valor", "Data", "Excluido por"},
            {"CodOs", "NomeCliente", "Tipo", "ValorPagar", "DataEntrada", "OsAlterado"}, true),
        def("Cliente", "Chave", "CodCliente", "DataCadastro", "Alterado", "Clientes excluídos - ",
            {"Código", "Nome", "Telefone", "Valor", "Data", "Excluido por"},
            {"CodCliente", "NomeCliente", "Telefone", "", "DataCadastro", "Alterado"}, true),
        def("Fornecedor", "Chave", "CodFornecedor", "", "Alterado", "Fornecedor excluídos - ",
            {"Código", "Nome Empresa", "Vendedor", "Valor", "Excluido"},
            {"CodFornecedor", "NomeEmpresa", "NomeVendedor", "", "Excluidos"}, false),
        def("Produto", "CodPecAut", "codpeca", "", "", "Produtos excluídos - ",
            {"Código", "Descrição", "Local", "Valor", "Excluido"},
            {"codpeca", "Descricao", "Armazenado", "PrecoVenda", "Excluidos"}, false),
        def("VisitaTecnico", "Chave", "CodManu", "DataSolicitada", "OsAlterado", "Ordem Visita excluídos - ",
            {"Código", "Nome", "Solicitação", "Valor", "Data", "Excluido"},
            {"CodManu", "NomeCliente", "Solicitacao", "ValorPagar", "DataSolicitada", "Excluidos"}, false),
        def("", "", "", "", "", "Logs usuários - ",
            {"Cód/Log", "Nome", "Data/Hora", "Formulário", "Cód Registro", "Atividade"}, {}, false),
    };
    return defs.at(int(r));
}

QString tituloUltima(Modo m)
{
    switch (m) {
    case Modo::Excluidos: return QStringLiteral("Excluido por");
    case Modo::PorData: return QStringLiteral("Alterado por");
    case Modo::PorCodigo: return QStringLiteral("Alterado por por");
    }
    return {};
}

QString consulta(Registro r, const Filtro& f, QVariantList* valores)
{
    const Definicao& d = definicao(r);
    QStringList cols = {d.chave};
    for (const QString& fonte : d.fontes)
        cols << (fonte.isEmpty() ? QStringLiteral("''") : fonte);
    return QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4")
        .arg(cols.join(QStringLiteral(", ")), d.tabela, onde(r, f, valores), ordem(r, f));
}

void marcar(Banco& banco, Registro r, qint64 chave, bool excluido, const QString& usuario)
{
    const Definicao& d = definicao(r);
    Transacao tr(banco);
    if (d.colunaCarimbo.isEmpty())
        banco.executar(QStringLiteral("UPDATE %1 SET Excluidos = ? WHERE %2 = ?").arg(d.tabela, d.chave),
                       {excluido ? -1 : 0, chave});
    else
        banco.executar(QStringLiteral("UPDATE %1 SET Excluidos = ?, %2 = ? WHERE %3 = ?").arg(d.tabela, d.colunaCarimbo, d.chave),
                       {excluido ? -1 : 0, usuario, chave});
    tr.commit();
}

int purgar(Banco& banco, Registro r, const Filtro& f)
{
    const Definicao& d = definicao(r);
    QVariantList v;
    // The list's rows, narrowed to those still deleted at the moment of the purge.
    const QString alvo = QStringLiteral("SELECT %1 FROM %2 WHERE Excluidos = -1 AND (%3)").arg(d.chave, d.tabela, onde(r, f, &v));
    Transacao tr(banco);
    if (r == Registro::Ordem) {
        for (const char* filha : {"SintomaOS", "ServicoOS", "PecasAplicadas", "AvisoCliente"})
            banco.executar(QStringLiteral("DELETE FROM %1 WHERE CodOsAut IN (%2)").arg(QString::fromUtf8(filha), alvo), v);
    } else if (r == Registro::Visita) {
        const QString codigos = QStringLiteral("SELECT CodManu FROM VisitaTecnico WHERE Chave IN (%1)").arg(alvo);
        banco.executar(QStringLiteral("DELETE FROM PecasAplicadas WHERE COALESCE(CodOsAut, 0) = 0 AND CodManu IN (%1)").arg(codigos), v);
    }
    QSqlQuery q = banco.executar(QStringLiteral("DELETE FROM %1 WHERE Excluidos = -1 AND %2 IN (%3)").arg(d.tabela, d.chave, alvo), v);
    const int n = q.numRowsAffected();
    tr.commit();
    return n;
}

}
