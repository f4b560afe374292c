#include "orders/OrdemServicoEntradaRegras.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/NumeroOrdem.h"
#include "registers/CamposDocumento.h"

namespace EntradaRegras {

namespace {
// Empty text is stored as "", never NULL.
QVariant txt(const QString& t) { return t.isNull() ? QStringLiteral("") : t; }

QString soDigitos(const QString& t)
{
    QString d;
    for (const QChar c : t)
        if (c.isDigit())
            d += c;
    return d;
}

std::optional<ClienteBalcao> primeiro(QSqlQuery& q)
{
    if (!q.next())
        return std::nullopt;
    ClienteBalcao c;
    auto v = [&q](const char* n) { return q.value(QLatin1String(n)).toString(); };
    c.CodCliente = v("CodCliente");
    c.NomeCliente = v("NomeCliente");
    c.Endereco = v("Endereco");
    c.Numero = v("Numero");
    c.Complemento = v("Complemento");
    c.Bairro = v("Bairro");
    c.Cidade = v("Cidade");
    c.Telefone = v("Telefone");
    c.Celular = v("Celular");
    c.CnpjCpf = v("CnpjCpf");
    c.BloqCliente = q.value(QStringLiteral("BloqCliente")).toLongLong() != 0;
    return c;
}

const QString Colunas = QStringLiteral(
    "SELECT CodCliente, NomeCliente, Endereco, Numero, Complemento, Bairro, Cidade, Telefone, Celular, CnpjCpf, "
    "BloqCliente FROM Cliente ");
} // namespace

QString ClienteBalcao::enderecoComComplemento() const
{
    return Complemento.trimmed().isEmpty() ? Endereco : Endereco + QStringLiteral("-") + Complemento;
}

std::optional<ClienteBalcao> clientePorDocumento(Banco& banco, const QString& documento)
{
    const QString d = soDigitos(documento);
    if (d.isEmpty())
        return std::nullopt;
    QSqlQuery q = banco.executar(
        Colunas + QStringLiteral("WHERE Excluidos = 0 AND CnpjCpf IN (?, ?, ?, ?) ORDER BY CodCliente"),
        {d, MascaraCpf(d), MascaraCnpj(d), documento.trimmed()});
    return primeiro(q);
}

std::optional<ClienteBalcao> clientePorCodigo(Banco& banco, const QString& codCliente)
{
    bool ok = false;
    const qint64 cod = codCliente.trimmed().toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    QSqlQuery q = banco.executar(Colunas + QStringLiteral("WHERE CodCliente = ?"), {cod});
    return primeiro(q);
}

qint64 gravarClienteNovo(Banco& banco, const ClienteBalcao& c)
{
    Transacao tr(banco);
    const qint64 cod = NumeroOrdem::proximoCodCliente(banco);
    banco.inserir(*Esquema::tabela(QStringLiteral("Cliente")),
                  {QStringLiteral("CodCliente"), QStringLiteral("NomeCliente"), QStringLiteral("Endereco"),
                   QStringLiteral("Numero"), QStringLiteral("Bairro"), QStringLiteral("Cidade"),
                   QStringLiteral("Telefone"), QStringLiteral("Celular"), QStringLiteral("CnpjCpf"),
                   QStringLiteral("DataCadastro"), QStringLiteral("Alterado")},
                  {cod, txt(c.NomeCliente), txt(c.Endereco), txt(c.Numero), txt(c.Bairro), txt(c.Cidade),
                   txt(c.Telefone), txt(c.Celular),
                   // The document is kept as digits, as the customer register keeps it.
                   txt(CamposDocumento::paraGravar(c.CnpjCpf, MascaraCnpjCpf)), Datas::hoje(), txt(sessao().UsuarioNome)});
    tr.commit();
    return cod;
}

std::optional<DatasDigitadas> lerDatas(const QString& entradaTela, const QString& saidaTela, QString* erro)
{
    DatasDigitadas d;
    std::optional<QDate> ent;
    if (entradaTela.trimmed().isEmpty()) {
        ent = QDate::currentDate();
    } else {
        ent = Datas::lerTela(entradaTela.trimmed());
        if (!ent) {
            *erro = QStringLiteral("Data de entrada inválida: ") + entradaTela.trimmed();
            return std::nullopt;
        }
    }
    d.entrada = Datas::paraBanco(*ent);
    if (!saidaTela.trimmed().isEmpty()) {
        const auto sai = Datas::lerTela(saidaTela.trimmed());
        if (!sai) {
            *erro = QStringLiteral("Data de saída inválida: ") + saidaTela.trimmed();
            return std::nullopt;
        }
        if (*sai < *ent) {
            *erro = QStringLiteral("A data de saída não pode ser anterior à data de entrada.");
            return std::nullopt;
        }
        d.saida = Datas::paraBanco(*sai);
    }
    return d;
}

}
