#include "cash/OrdemCaixa.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include "data/Banco.h"

namespace OrdensCaixa {

std::optional<OrdemCaixa> ler(Banco& banco, qint64 codOsAut, bool travar)
{
    const QString sql = QStringLiteral(
        "SELECT CodOsAut, CodOs, CodFabrica, CodCliente, NomeCliente, CpfCnpj, Endereco, Ncasa, Bairro, Cidade, "
        "Telefone, Celular, Tipo, Marca, Modelo, DataEntrada, DataSaida, Tecnico, Armazenado, TipoPorcentagem, "
        "ValorPorcentagem, MaoObra, ValorVenda, ValorPecas, ValorDescontoPeca, ValorPagar, ValorDesconto, ValorPago, "
        "Pendurado, Saida, Excluidos, Lancada, ValorLancado, MaoObraLancada FROM OrdemServico WHERE CodOsAut = ?");
    QSqlQuery q = travar ? banco.lerTravando(sql, {codOsAut}) : banco.executar(sql, {codOsAut});
    if (!q.next())
        return std::nullopt;
    const QSqlRecord r = q.record();
    auto t = [&](const char* c) { return q.value(r.indexOf(QLatin1String(c))).toString(); };
    auto i = [&](const char* c) { return q.value(r.indexOf(QLatin1String(c))).toLongLong(); };
    auto d = [&](const char* c) { return Dinheiro::deCentavos(i(c)); };
    OrdemCaixa o;
    o.CodOsAut = i("CodOsAut");
    o.CodOs = i("CodOs");
    o.CodFabrica = t("CodFabrica");
    o.CodCliente = t("CodCliente");
    o.NomeCliente = t("NomeCliente");
    o.CpfCnpj = t("CpfCnpj");
    o.Endereco = t("Endereco");
    o.Ncasa = t("Ncasa");
    o.Bairro = t("Bairro");
    o.Cidade = t("Cidade");
    o.Telefone = t("Telefone");
    o.Celular = t("Celular");
    o.Tipo = t("Tipo");
    o.Marca = t("Marca");
    o.Modelo = t("Modelo");
    o.DataEntrada = t("DataEntrada");
    o.DataSaida = t("DataSaida");
    o.Tecnico = t("Tecnico");
    o.Armazenado = t("Armazenado");
    o.TipoPorcentagem = i("TipoPorcentagem") != 0;
    o.ValorPorcentagem = d("ValorPorcentagem");
    o.MaoObra = d("MaoObra");
    o.ValorVenda = d("ValorVenda");
    o.ValorPecas = d("ValorPecas");
    o.ValorDescontoPeca = d("ValorDescontoPeca");
    o.ValorPagar = d("ValorPagar");
    o.ValorDesconto = d("ValorDesconto");
    o.ValorPago = d("ValorPago");
    o.Pendurado = i("Pendurado");
    o.Saida = i("Saida") != 0;
    o.Excluidos = i("Excluidos") != 0;
    o.Lancada = i("Lancada") != 0;
    o.ValorLancado = d("ValorLancado");
    o.MaoObraLancada = d("MaoObraLancada");
    return o;
}

}
