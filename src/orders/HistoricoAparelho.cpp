#include "orders/HistoricoAparelho.h"

#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Texto.h"
#include "documents/FichaLayout.h"

namespace HistoricoAparelho {

namespace {

const QString Colunas = QStringLiteral(
    "SELECT CodOsAut, CodOs, DataEntrada, DataSaida, Sintoma, ServicoExecutado, Saida FROM OrdemServico ");

QString semVirgulaFinal(QString t)
{
    t = FichaLayout::semQuebras(t, QStringLiteral(" "));
    while (t.endsWith(QLatin1Char(',')) || t.endsWith(QLatin1Char(' ')))
        t.chop(1);
    return t;
}

void ler(QSqlQuery& q, int dias, const QDate& hoje, QList<Linha>& linhas, QSet<qint64>& vistas)
{
    while (q.next()) {
        const Linha l = deRegistro(q.record(), dias, hoje);
        if (!vistas.contains(l.CodOsAut)) {
            vistas.insert(l.CodOsAut);
            linhas << l;
        }
    }
}

} // namespace

int diasGarantia(Banco& banco)
{
    const int d = banco.escalar(QStringLiteral("SELECT DiasGarantia FROM Empresa ORDER BY Chave")).toInt();
    return d > 0 ? d : 90;
}

Linha deRegistro(const QSqlRecord& r, int dias, const QDate& hoje)
{
    Linha l;
    l.CodOsAut = r.value(QStringLiteral("CodOsAut")).toLongLong();
    l.CodOs = r.value(QStringLiteral("CodOs")).toLongLong();
    l.DataEntrada = r.value(QStringLiteral("DataEntrada")).toString();
    l.DataSaida = r.value(QStringLiteral("DataSaida")).toString();
    l.Defeito = semVirgulaFinal(r.value(QStringLiteral("Sintoma")).toString());
    l.Servico = semVirgulaFinal(r.value(QStringLiteral("ServicoExecutado")).toString());
    const auto saida = Datas::lerBanco(l.DataSaida);
    if (r.value(QStringLiteral("Saida")).toLongLong() != 0 && saida) {
        l.fimGarantia = saida->addDays(dias);
        l.emGarantia = hoje <= l.fimGarantia;
    }
    return l;
}

QList<Linha> procurar(Banco& banco, const Aparelho& a, const QDate& hoje)
{
    QList<Linha> linhas;
    QSet<qint64> vistas;
    const int dias = diasGarantia(banco);
    const QString serie = Texto::dobra(a.serie.trimmed());
    const QString limite = QStringLiteral(" ORDER BY CodOsAut DESC LIMIT %1").arg(Limite);
    if (!serie.isEmpty()) {
        QSqlQuery q = banco.executar(Colunas + QStringLiteral("WHERE NumeroSerie_b = ? AND CodOsAut <> ? AND Excluidos = 0")
                                         + limite,
                                     {serie, a.exceto});
        ler(q, dias, hoje, linhas, vistas);
    }
    const QString tipo = Texto::dobra(a.tipo.trimmed());
    const QString modelo = Texto::dobra(a.modelo.trimmed());
    if (!a.codCliente.trimmed().isEmpty() && !tipo.isEmpty() && !modelo.isEmpty()) {
        QSqlQuery q = banco.executar(Colunas + QStringLiteral("WHERE CodCliente = ? AND Tipo_b = ? AND Modelo_b = ? "
                                                              "AND CodOsAut <> ? AND Excluidos = 0")
                                         + limite,
                                     {a.codCliente.trimmed(), tipo, modelo, a.exceto});
        ler(q, dias, hoje, linhas, vistas);
    }
    std::sort(linhas.begin(), linhas.end(), [](const Linha& x, const Linha& y) { return x.CodOsAut > y.CodOsAut; });
    if (linhas.size() > Limite)
        linhas.resize(Limite);
    return linhas;
}

QStringList colunas()
{
    return {QStringLiteral("O.S"), QStringLiteral("Entrada"), QStringLiteral("Saída"), QStringLiteral("Defeito"),
            QStringLiteral("Serviço executado"), QStringLiteral("Garantia até")};
}

QStringList celulas(const Linha& l)
{
    return {QString::number(l.CodOs), Datas::bancoParaTela(l.DataEntrada), Datas::bancoParaTela(l.DataSaida),
            l.Defeito, l.Servico, l.fimGarantia.isValid() ? Datas::paraTela(l.fimGarantia) : QString()};
}

std::optional<QString> avisoGarantia(const QList<Linha>& linhas)
{
    // The repair whose cover lasts longest is the one the return falls under.
    const Linha* coberta = nullptr;
    for (const Linha& l : linhas)
        if (l.emGarantia && (!coberta || l.fimGarantia > coberta->fimGarantia))
            coberta = &l;
    if (!coberta)
        return std::nullopt;
    return QStringLiteral("RETORNO NA GARANTIA: O.S %1 entregue em %2, garantia até %3")
        .arg(coberta->CodOs)
        .arg(Datas::bancoParaTela(coberta->DataSaida), Datas::paraTela(coberta->fimGarantia));
}

}
