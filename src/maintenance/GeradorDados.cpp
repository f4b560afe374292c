#include "maintenance/GeradorDados.h"

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"
#include "maintenance/GeradorSql.h"

namespace {

const QStringList nomes = {"José", "Maria", "João", "Ana", "Antônio", "Francisca", "Carlos", "Paulo",
                           "Adriana", "Lucas", "Juliana", "Márcio", "Patrícia", "Luiz", "Aline", "Sebastião",
                           "Fernanda", "Raimundo", "Sandra", "Rafael", "Camila", "Gabriel", "Letícia", "Bruno"};
const QStringList sobrenomes = {"da Silva", "dos Santos", "Oliveira", "Souza", "Rodrigues", "Ferreira",
                                "Alves", "Pereira", "Lima", "Gomes", "Ribeiro", "Carvalho", "Araújo",
                                "Martins", "Rocha", "Barbosa", "Conceição", "Nascimento", "Moreira", "Cardoso"};
const QStringList tipos = {"TV", "MICROONDAS", "GELADEIRA", "LAVADORA", "SOM", "DVD", "NOTEBOOK", "VENTILADOR"};
const QStringList marcas = {"SAMSUNG", "LG", "PHILIPS", "BRASTEMP", "CONSUL", "ELECTROLUX", "SONY", "PANASONIC"};

QStringList maiusculas(const QStringList& l)
{
    QStringList r;
    for (const QString& s : l)
        r << s.toUpper();
    return r;
}

void avisa(const GeradorDados::Progresso& p, const QString& etapa, qint64 feito, qint64 total)
{
    if (p && !p(etapa, feito, total))
        throw GeradorDados::Interrompido{};
}

} // namespace

namespace GeradorDados {

void clientes(Banco& b, int n, const Progresso& progresso)
{
    const GeradorSql g{b.motor()};
    const int lote = 100000;
    for (int inicio = 1; inicio <= n; inicio += lote) {
        const int fim = qMin(n, inicio + lote - 1);
        Transacao tr(b);
        insereGerado(b, "Cliente",
                     {{"CodCliente", "i"},
                      {"NomeCliente", g.nome(nomes, sobrenomes)},
                      {"Endereco", "'Rua ' || " + g.item(sobrenomes) + " || ', ' || CAST(i % 900 + 1 AS text)"},
                      {"Bairro", "'Centro'"},
                      {"Cidade", "'São Paulo'"},
                      {"Telefone", "'11' || " + g.digitos(8)},
                      {"Celular", "'119' || " + g.digitos(8)},
                      {"CnpjCpf", g.digitos(11)},
                      {"DataCadastro", "'" + Datas::hoje() + "'"},
                      {"Excluidos", "CASE WHEN i % 100 = 0 THEN -1 ELSE 0 END"}},
                     g.serie(inicio, fim));
        tr.commit();
        avisa(progresso, QStringLiteral("clientes"), fim, n);
    }
}

void ordens(Banco& b, int n, int abertas, int clientes, const Progresso& progresso)
{
    const GeradorSql g{b.motor()};
    const int lote = 100000;
    // The most recent orders are the ones still in the shop; s is the situation drawn.
    const QString aberta = "i > " + QString::number(n - abertas);
    auto flag = [](const QString& condicao) { return "CASE WHEN " + condicao + " THEN -1 ELSE 0 END"; };
    for (int inicio = 1; inicio <= n; inicio += lote) {
        const int fim = qMin(n, inicio + lote - 1);
        Transacao tr(b);
        insereGerado(b, "OrdemServico",
                     {{"CodOs", "i"},
                      {"CodCliente", "CAST(" + g.sorteio(clientes) + " + 1 AS text)"},
                      {"NomeCliente", g.nome(maiusculas(nomes), maiusculas(sobrenomes))},
                      {"CpfCnpj", g.digitos(11)},
                      {"Telefone", "'11' || " + g.digitos(8)},
                      {"Celular", "'119' || " + g.digitos(8)},
                      {"Tipo", g.item(tipos)},
                      {"Marca", g.item(marcas)},
                      {"Modelo", "'MOD-' || " + g.digitos(4)},
                      {"DataEntrada", "'2024/05/10'"},
                      {"DataSaida", "CASE WHEN " + aberta + " THEN '' ELSE '2024/06/01' END"},
                      {"Saida", "CASE WHEN " + aberta + " THEN 0 ELSE -1 END"},
                      {"Consertado", flag("s = 1")},
                      {"Orcamento", flag("s = 2")},
                      {"AguardaPeca", flag("s = 3")},
                      {"Aprovado", flag("s IN (1, 4)")},
                      {"Recusado", flag("s = 2 AND i % 3 = 0")},
                      {"Excluidos", flag("i % 100 = 7")},
                      {"ValorPagar", g.sorteio(100000)}},
                     g.serie(inicio, fim));
        tr.commit();
        avisa(progresso, QStringLiteral("ordens"), fim, n);
    }
}

void contadores(Banco& b)
{
    Transacao tr(b);
    const qint64 os = b.escalar("SELECT MAX(CodOs) FROM OrdemServico").toLongLong();
    const qint64 cli = b.escalar("SELECT MAX(CodCliente) FROM Cliente").toLongLong();
    b.executar("UPDATE Empresa SET CodOs = ? WHERE CodOs IS NULL OR CodOs < ?", {os, os});
    Numeracao::registrarEmitido(b, "OrdemServico", "CodOs", os);
    Numeracao::registrarEmitido(b, "Cliente", "CodCliente", cli);
    tr.commit();
}

}
