#include "registers/BuscaClientes.h"

#include "data/Banco.h"
#include "data/Recordset.h"
#include "data/Texto.h"

namespace BuscaClientes {

namespace {

const QString Tabela = QStringLiteral("Cliente");

Resultado le(Banco& banco, const Condicao& c, int limite)
{
    Recordset rs(banco);
    rs.abrir(Tabela, c.sql, c.valores, Ordem, limite > 0 ? limite + 1 : 0);
    Resultado r;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
        if (limite > 0 && r.linhas.size() == limite) {
            r.haMais = true;
            break;
        }
        r.linhas << rs.registro();
    }
    return r;
}

bool soDigitos(const QString& s)
{
    for (const QChar c : s)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return !s.isEmpty();
}

} // namespace

QString coluna(Opcao opcao)
{
    switch (opcao) {
    case Opcao::Codigo: return QStringLiteral("CodCliente");
    case Opcao::Nome: return QStringLiteral("NomeCliente");
    case Opcao::Telefone: return QStringLiteral("Telefone");
    case Opcao::Fax: return QStringLiteral("TelFax");
    case Opcao::Celular: return QStringLiteral("Celular");
    case Opcao::CnpjCpf: return QStringLiteral("CnpjCpf");
    }
    return {};
}

bool meio(Opcao opcao) { return opcao != Opcao::Nome; }

Condicao condicao(Banco& banco, Opcao opcao, const QString& texto, Busca::Plano plano)
{
    return Busca::porColuna(banco, Tabela, coluna(opcao), texto, meio(opcao), plano);
}

Resultado buscar(Banco& banco, Opcao opcao, const QString& texto, int limite)
{
    return le(banco, condicao(banco, opcao, texto), limite);
}

Condicao condicaoNome(Banco& banco, const QString& texto, Busca::Plano plano)
{
    return Busca::porTexto(banco, Tabela, QStringLiteral("NomeCliente"), texto, true, plano);
}


Condicao codigoENome(Banco& banco, const QString& texto)
{
    const QString d = Texto::dobra(texto);
    if (d.isEmpty())
        return {};
    const QString codigoTexto = banco.textoDe(QStringLiteral("CodCliente"));
    if (d.contains(QLatin1Char('%')) || d.contains(QLatin1Char('_'))) {
        // A typed wildcard: the joined text the plain way.
        return {QStringLiteral("(%1 || NomeCliente_b) LIKE ? ESCAPE '\\'").arg(codigoTexto),
                {QStringLiteral("%") + Busca::escapaLike(d, true) + QStringLiteral("%")}};
    }
    // The text lies inside the name, inside the code, or begins in the code's tail and
    // runs on into the name's head: one indexed lookup for each way, joined by key.
    QList<Condicao> partes;
    partes << Busca::porTexto(banco, Tabela, QStringLiteral("NomeCliente"), d, true);
    if (soDigitos(d))
        partes << Busca::porTexto(banco, Tabela, QStringLiteral("CodCliente"), d, true);
    for (int k = 1; k < d.size() && soDigitos(d.left(k)); ++k) {
        const Condicao cabeca = Busca::porTexto(banco, Tabela, QStringLiteral("NomeCliente"), d.mid(k), false);
        partes << cabeca.e({QStringLiteral("%1 LIKE ?").arg(codigoTexto), {QStringLiteral("%") + d.left(k)}});
    }
    if (partes.size() == 1)
        return partes.first();  // a text that doesn't begin with digits: the name alone
    QStringList selects;
    QVariantList valores;
    for (const Condicao& p : std::as_const(partes)) {
        selects << QStringLiteral("SELECT Chave FROM Cliente WHERE %1").arg(p.sql);
        valores += p.valores;
    }
    return {QStringLiteral("Chave IN (%1)").arg(selects.join(QStringLiteral(" UNION ALL "))), valores};
}

QList<QSqlRecord> ordensDoCliente(Banco& banco, const QString& codCliente)
{
    Recordset rs(banco);
    rs.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodCliente = ? AND Excluidos = 0"), {codCliente},
             QStringLiteral("CodOsAut"));
    QList<QSqlRecord> linhas;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        linhas << rs.registro();
    return linhas;
}

}
