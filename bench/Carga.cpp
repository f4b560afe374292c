#include "Carga.h"

#include <QTextStream>

#include "data/Banco.h"
#include "data/ConfigBanco.h"
#include "data/Datas.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"

namespace {

const QStringList nomes = {"José", "Maria", "João", "Ana", "Antônio", "Francisca", "Carlos", "Paulo",
                           "Adriana", "Lucas", "Juliana", "Márcio", "Patrícia", "Luiz", "Aline", "Sebastião",
                           "Fernanda", "Raimundo", "Sandra", "Rafael", "Camila", "Gabriel", "Letícia", "Bruno"};
const QStringList sobrenomes = {"da Silva", "dos Santos", "Oliveira", "Souza", "Rodrigues", "Ferreira",
                                "Alves", "Pereira", "Lima", "Gomes", "Ribeiro", "Carvalho", "Araújo",
                                "Martins", "Rocha", "Barbosa", "Conceição", "Nascimento", "Moreira", "Cardoso"};
const QStringList tipos = {"TV", "MICROONDAS", "GELADEIRA", "LAVADORA", "SOM", "DVD", "NOTEBOOK", "VENTILADOR"};
const QStringList marcas = {"SAMSUNG", "LG", "PHILIPS", "BRASTEMP", "CONSUL", "ELECTROLUX", "SONY", "PANASONIC"};

// The rows are made by the engine itself from these expressions: a million orders sent
// one statement at a time would take most of an hour on a busy machine.
struct Gerador {
    Motor motor;

    // A whole number in 0..n-1, drawn again for each row.
    QString sorteio(qint64 n) const
    {
        return motor == Motor::SQLite ? QStringLiteral("(abs(random()) % %1)").arg(n)
                                      : QStringLiteral("CAST(floor(random() * %1) AS bigint)").arg(n);
    }
    QString digitos(int n) const
    {
        qint64 teto = 1;
        for (int i = 0; i < n; ++i)
            teto *= 10;
        // Built by joining: the printf format holds a "%0" that QString::arg would take.
        const QString largura = QString::number(n);
        return motor == Motor::SQLite ? "printf('%0" + largura + "d', " + sorteio(teto) + ")"
                                      : "lpad(CAST(" + sorteio(teto) + " AS text), " + largura + ", '0')";
    }
    // One item of the list, drawn for each row. The lists are the benchmark's own constants.
    QString item(const QStringList& lista) const
    {
        QStringList aspas;
        for (const QString& s : lista)
            aspas << QLatin1Char('"') + s + QLatin1Char('"');
        const QString json = QLatin1Char('[') + aspas.join(QLatin1Char(',')) + QLatin1Char(']');
        return motor == Motor::SQLite ? QStringLiteral("('%1' ->> %2)").arg(json, sorteio(lista.size()))
                                      : QStringLiteral("(CAST('%1' AS jsonb) ->> CAST(%2 AS int))").arg(json, sorteio(lista.size()));
    }
    QString nome(bool maiusculas) const
    {
        auto l = [&](const QStringList& x) {
            QStringList r;
            for (const QString& s : x)
                r << (maiusculas ? s.toUpper() : s);
            return r;
        };
        return QStringLiteral("%1 || ' ' || %2 || ' ' || %3").arg(item(l(nomes)), item(l(sobrenomes)), item(l(sobrenomes)));
    }
    // The numbers inicio..fim, one row each, as column i, with `s` in 0..4 beside it: a
    // scrambling of i rather than a draw, since SQLite may put a subquery's expression in
    // each place that reads it (a draw there would differ from one flag to the next), and
    // so that both engines hold the same situations.
    QString serie(qint64 inicio, qint64 fim) const
    {
        const QString de = QString::number(inicio), ate = QString::number(fim);
        const QString s = "(i * 2654435761) % 4294967296 % 5 AS s";
        return motor == Motor::SQLite
            ? "(WITH RECURSIVE n(i) AS (SELECT " + de + " UNION ALL SELECT i + 1 FROM n WHERE i < " + ate + ") "
              "SELECT i, " + s + " FROM n) r"
            : "(SELECT i, " + s + " FROM generate_series(" + de + ", " + ate + ") AS g(i)) r";
    }
};

void progresso(const char* oque, qint64 feito, qint64 total)
{
    QTextStream(stderr) << oque << ": " << feito << "/" << total << "\n";
}

// INSERT INTO tabela (colunas) SELECT valores FROM serie, with each column beside its value.
void insereGerado(Banco& b, const QString& tabela, const QList<std::pair<QString, QString>>& colunas, const QString& serie)
{
    QStringList nomes, valores;
    for (const auto& [nome, valor] : colunas) {
        nomes << nome;
        valores << valor;
    }
    b.executar("INSERT INTO " + tabela + " (" + nomes.join(", ") + ") SELECT " + valores.join(", ") + " FROM " + serie);
}

} // namespace

namespace Carga {

void clientes(Banco& b, int n)
{
    const Gerador g{b.motor()};
    const int lote = 100000;
    for (int inicio = 1; inicio <= n; inicio += lote) {
        const int fim = qMin(n, inicio + lote - 1);
        Transacao tr(b);
        insereGerado(b, "Cliente",
                     {{"CodCliente", "i"},
                      {"NomeCliente", g.nome(false)},
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
        progresso("clientes", fim, n);
    }
}

void ordens(Banco& b, int n, int abertas, int clientes)
{
    const Gerador g{b.motor()};
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
                      {"NomeCliente", g.nome(true)},
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
        progresso("ordens", fim, n);
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
