#include "orders/NumeroOrdem.h"

#include "data/Banco.h"
#include "data/Numeracao.h"
#include "data/Sessao.h"
#include <QSqlQuery>
#include "orders/Ordem.h"

namespace NumeroOrdem {

namespace {

const QString linhaEmpresa = QStringLiteral("Chave = (SELECT MIN(Chave) FROM Empresa)");

// Takes the next value of an Empresa counter and stores it back at once. The update
// comes first so that the row stays locked until the order itself is stored.
qint64 tomarContador(Banco& banco, const QString& coluna, qint64* anterior)
{
    banco.executar(QStringLiteral("UPDATE Empresa SET %1 = %1 WHERE %2").arg(coluna, linhaEmpresa));
    const QVariant v = banco.escalar(QStringLiteral("SELECT %1 FROM Empresa WHERE %2").arg(coluna, linhaEmpresa));
    const QString texto = v.isNull() ? QString() : v.toString();
    *anterior = v.toLongLong();
    const qint64 novo = Numeracao::proximoDe(texto);
    banco.executar(QStringLiteral("UPDATE Empresa SET %1 = ? WHERE %2").arg(coluna, linhaEmpresa), {novo});
    return novo;
}

bool ativa(const QString& cfg) { return Sessao::verdadeiro(cfg); }

} // namespace

bool pedeNumeroFabrica(const Ordem& o)
{
    return o.nova() && o.Fabrica && ativa(sessao().CfgAtivaOsFabrica);
}

bool perguntarCopiaFabrica(Banco& banco, const Ordem& o, const Pergunta& perguntar)
{
    return perguntar && perguntar(tituloPerguntaFabrica(), textoPerguntaFabrica(proximoFabrica(banco, o)));
}

void numerar(Banco& banco, Ordem& o, bool copiarFabrica)
{
    Q_ASSERT(banco.profundidadeTransacao() > 0);
    const Sessao& s = sessao();
    qint64 anteriorOs = 0;
    if (ativa(s.CfgAtivaOs))
        o.CodOs = tomarContador(banco, QStringLiteral("CodOs"), &anteriorOs);
    else
        o.CodOs = Numeracao::proximoCodigo(banco, QStringLiteral("OrdemServico"), QStringLiteral("CodOs"));

    if (pedeNumeroFabrica(o)) {
        // A warranty return already has its factory number: the repair it claims on.
        qint64 anteriorFabrica = 0;
        const qint64 fabrica = o.fabricaDoRetorno.isEmpty()
            ? tomarContador(banco, QStringLiteral("CodOsfabrica"), &anteriorFabrica)
            : o.fabricaDoRetorno.toLongLong();
        o.CodFabrica = QString::number(fabrica);
        if (copiarFabrica) {
            if (ativa(s.CfgAtivaOs))
                banco.executar(QStringLiteral("UPDATE Empresa SET CodOs = ? WHERE %1").arg(linhaEmpresa),
                               {anteriorOs});
            o.CodOs = fabrica;
        }
    }
    // A number taken from a counter is remembered, so that a later order numbered from the
    // last row never repeats it after a purge.
    Numeracao::registrarEmitido(banco, QStringLiteral("OrdemServico"), QStringLiteral("CodOs"), o.CodOs);
}

qint64 proximoFabrica(Banco& banco, const Ordem& o)
{
    if (!o.fabricaDoRetorno.isEmpty())
        return o.fabricaDoRetorno.toLongLong();
    const QVariant v = banco.escalar(QStringLiteral("SELECT CodOsfabrica FROM Empresa WHERE %1").arg(linhaEmpresa));
    return Numeracao::proximoDe(v.isNull() ? QString() : v.toString());
}

QString tituloPerguntaFabrica() { return QStringLiteral("Alterar registro"); }

QString textoPerguntaFabrica(qint64 numero)
{
    return QStringLiteral("Quer copiar o numero da -OS- de fábrica na caixa Nº- ordem de serviço. \n\n O.S: ")
        + QString::number(numero);
}

std::optional<qint64> lerNumero(const QString& digitado, QString* erro)
{
    const QString t = digitado.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    bool soAlgarismos = t.size() <= 18;
    for (QChar c : t)
        soAlgarismos = soAlgarismos && c >= QLatin1Char('0') && c <= QLatin1Char('9');
    if (!soAlgarismos) {
        if (erro)
            *erro = QStringLiteral("O número da ordem de serviço \"%1\" não é válido: digite somente algarismos.").arg(t);
        return std::nullopt;
    }
    return t.toLongLong();
}

std::optional<AvisoNumero> avisoNumeroExistente(Banco& banco, qint64 numero)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT NomeCliente, CodCliente, Tipo FROM OrdemServico "
                                                "WHERE CodOs = ? ORDER BY CodOsAut LIMIT 1"), {numero});
    if (!q.next())
        return std::nullopt;
    return AvisoNumero{QStringLiteral("Este numero já existe"),
                       q.value(0).toString() + QLatin1Char('-') + q.value(1).toString() + QLatin1Char('-')
                           + q.value(2).toString()};
}

qint64 proximoCodCliente(Banco& banco)
{
    return Numeracao::proximoCodigo(banco, QStringLiteral("Cliente"), QStringLiteral("CodCliente"));
}

qint64 proximoCodDefeito(Banco& banco)
{
    // The catalogue's last row by its key gives the code, as the defect box always did.
    return Numeracao::proximoCodigo(banco, QStringLiteral("DefeitoReclamado"), QStringLiteral("CodDefeito"),
                                    QStringLiteral("Codigo"));
}

qint64 proximoCodManu(Banco& banco)
{
    return Numeracao::proximoCodigo(banco, QStringLiteral("VisitaTecnico"), QStringLiteral("CodManu"));
}

}
