#include "orders/BuscaOrdens.h"

#include "data/Banco.h"
#include "orders/TelasOrdem.h"
#include "registers/EntregaTelas.h"

namespace BuscaOrdens {

namespace {

const QString Ordens = QStringLiteral("OrdemServico");
const QString Visitas = QStringLiteral("VisitaTecnico");

// A box searched by its beginning reads its rows in the folded column's own index, so the
// first page of a common beginning comes at once; one searched in the middle reads them
// by number.
Criterio porComeco(const QString& tabela, const QString& coluna)
{
    return {tabela, coluna, false, coluna + QStringLiteral("_b")};
}

Criterio noMeio(const QString& tabela, const QString& coluna, const QString& ordem)
{
    return {tabela, coluna, true, ordem};
}

bool soDigitos(const QString& coluna)
{
    return coluna == QLatin1String("Telefone") || coluna == QLatin1String("Celular")
        || coluna == QLatin1String("CpfCnpj");
}

// The mask a clerk may type out of habit: "(11)3333-1000", "111.444.777-35".
QString semMascara(const QString& texto)
{
    QString r;
    for (QChar c : texto)
        if (!QStringLiteral("()-./ ").contains(c))
            r += c;
    return r;
}

} // namespace

bool caixaDaVisita(int caixa) { return caixa == 0 || caixa == 1 || caixa == 6; }

Criterio criterioPesquisa(int caixa, Modo modo)
{
    if (modo == Modo::Visita) {
        switch (caixa) {
        case 0: return noMeio(Visitas, QStringLiteral("CodManu"), QStringLiteral("CodManu"));
        case 1: return porComeco(Visitas, QStringLiteral("NomeCliente"));
        case 6: return porComeco(Visitas, QStringLiteral("CodCliente"));
        default: return {};
        }
    }
    switch (caixa) {
    case 0: return noMeio(Ordens, QStringLiteral("CodOs"), QStringLiteral("CodOs"));
    case 1: return porComeco(Ordens, QStringLiteral("NomeCliente"));
    case 2: return noMeio(Ordens, QStringLiteral("Telefone"), QStringLiteral("CodOs"));
    case 3: return porComeco(Ordens, QStringLiteral("Tipo"));
    case 4: return porComeco(Ordens, QStringLiteral("Marca"));
    case 5: return porComeco(Ordens, QStringLiteral("Modelo"));
    case 6: return noMeio(Ordens, QStringLiteral("CodCliente"), QStringLiteral("CodOs"));
    case 7: return porComeco(Ordens, QStringLiteral("Revendedor"));
    default: return {};
    }
}

Criterio criterioRapida(Rapida caixa)
{
    switch (caixa) {
    case Rapida::Numero: return {Ordens, QStringLiteral("CodOs"), false, QStringLiteral("CodOs")};
    case Rapida::Nome: return porComeco(Ordens, QStringLiteral("NomeCliente"));
    case Rapida::Telefone: return noMeio(Ordens, QStringLiteral("Telefone"), QStringLiteral("CodOs"));
    case Rapida::Documento: return noMeio(Ordens, QStringLiteral("CpfCnpj"), QStringLiteral("CodOs"));
    case Rapida::Celular: return noMeio(Ordens, QStringLiteral("Celular"), QStringLiteral("CodOs"));
    }
    return {};
}

Condicao condicao(Banco& banco, const Criterio& criterio, const QString& texto)
{
    const QString t = soDigitos(criterio.coluna) ? semMascara(texto) : texto;
    const Condicao casa = Busca::porTexto(banco, criterio.tabela, criterio.coluna, t, criterio.meio);
    if (casa.sql.isEmpty())
        return {QStringLiteral("1 = 0")};  // only a mask typed: no row, rather than every row
    return casa.e(Busca::soVivos());
}

Destino destino(Modo modo, bool abreCompleta, const QVariantMap& linha)
{
    const QVariantMap chave{{QStringLiteral("CodOsAut"), linha.value(QStringLiteral("CodOsAut")).toLongLong()}};
    const QString& completa = TelasOrdem::Completa;
    const QString nomeCompleta = QStringLiteral("O cadastro completo de O.S");
    switch (modo) {
    case Modo::Entrada:
        if (abreCompleta)
            return {completa, EntregaTelas::AbreOrdem, chave, nomeCompleta};
        return {QStringLiteral("OrdemServicoEntrada"), EntregaTelas::MostraOrdem,
                {{QStringLiteral("CodOs"), linha.value(QStringLiteral("CodOs"))},
                 {QStringLiteral("CodOsAut"), linha.value(QStringLiteral("CodOsAut")).toLongLong()},
                 {QStringLiteral("CodCliente"), linha.value(QStringLiteral("CodCliente"))},
                 {QStringLiteral("NomeCliente"), linha.value(QStringLiteral("NomeCliente"))}},
                QStringLiteral("A entrada de O.S")};
    case Modo::Saida:
        if (abreCompleta)
            return {completa, EntregaTelas::AbreOrdem, chave, nomeCompleta};
        return {QStringLiteral("OrdemServicoSaida"), EntregaTelas::AbreOrdem, chave, QStringLiteral("A saída de O.S")};
    case Modo::Tecnico:
        return {QStringLiteral("OrdemServicoTecnico"), EntregaTelas::AbreOrdem, chave,
                QStringLiteral("A O.S do técnico")};
    case Modo::Visita:
        return {QStringLiteral("OrdemVisita"), EntregaTelas::AbreVisita,
                {{QStringLiteral("CodManu"), linha.value(QStringLiteral("CodManu")).toLongLong()}},
                QStringLiteral("A O.S de visita")};
    case Modo::Nenhum:
        break;
    }
    return {};
}

}
