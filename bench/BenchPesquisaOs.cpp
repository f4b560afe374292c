#include "BenchPesquisaOs.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QTextStream>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/PaginasBusca.h"
#include "data/Texto.h"
#include "data/Transacao.h"
#include "orders/BuscaOrdens.h"

namespace {

using BuscaOrdens::Criterio;

constexpr int Primeiras = 100;
const QStringList ColunasOrdens = {"CodOs", "NomeCliente", "Telefone", "Tipo", "Marca", "Modelo", "CodCliente",
                                   "Revendedor", "CodOsAut"};
const QStringList ColunasVisitas = {"CodManu", "NomeCliente", "EndTel", "DataSolicitada"};

// One reseller for every fifth order, and a visit for every tenth, made by the engine from
// the orders themselves.
void preenche(Banco& b)
{
    Transacao tr(b);
    if (b.escalar("SELECT COUNT(*) FROM (SELECT 1 FROM OrdemServico WHERE Revendedor <> '' LIMIT 1) r").toInt() == 0) {
        QTextStream(stderr) << "Preenchendo revendedores...\n";
        b.executar("UPDATE OrdemServico SET Revendedor = CASE CodOsAut % 3 WHEN 0 THEN 'LOJA ' WHEN 1 THEN 'MAGAZINE ' "
                   "ELSE 'CASAS ' END || NomeCliente WHERE CodOsAut % 5 = 0");
    }
    if (b.escalar("SELECT COUNT(*) FROM VisitaTecnico").toInt() == 0) {
        QTextStream(stderr) << "Preenchendo visitas...\n";
        b.executar("INSERT INTO VisitaTecnico (CodManu, NomeCliente, CodCliente, EndTel, DataSolicitada, Excluidos) "
                   "SELECT CodOs, NomeCliente, CodCliente, 'RUA ' || Telefone, '2024/05/10', Excluidos "
                   "FROM OrdemServico WHERE CodOsAut % 10 = 0");
    }
    tr.commit();
    // As a shop's autovacuum would have left them: statistics, and on PostgreSQL the
    // visibility map that lets a count read its index alone.
    if (b.motor() == Motor::PostgreSQL) {
        b.executar("VACUUM ANALYZE OrdemServico");
        b.executar("VACUUM ANALYZE VisitaTecnico");
    } else {
        b.executar("ANALYZE");
    }
}

// `n` texts cut from rows spread over the table, every one different.
QStringList textos(Banco& b, const QString& tabela, const QString& coluna, int n,
                   const std::function<QString(const QString&)>& recorte)
{
    const DefTabela* t = Esquema::tabela(tabela);
    const qint64 max = b.escalar(QStringLiteral("SELECT MAX(%1) FROM %2").arg(t->chave, tabela)).toLongLong();
    QStringList r;
    for (int k = 1; r.size() < n && k <= n * 40; ++k) {
        const qint64 chave = 1 + (qint64(k) * 2654435761LL) % max;  // spread, and not in step with any % n
        const QString v = b.escalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 >= ? ORDER BY %3 LIMIT 1")
                                        .arg(coluna, tabela, t->chave),
                                    {chave})
                              .toString();
        const QString texto = recorte(v);
        if (!texto.isEmpty() && !r.contains(texto))
            r << texto;
    }
    return r;
}

QString trecho(const QString& s, int inicio, int tamanho)
{
    return s.size() < inicio + tamanho ? QString() : s.mid(inicio, tamanho);
}

// Every value of every row, as the grid would have them.
int leTodas(QSqlQuery& q)
{
    int n = 0;
    for (; q.next(); ++n)
        for (int i = 0, colunas = q.record().count(); i < colunas; ++i)
            q.value(i);
    return n;
}

// The plain statement through the box's own index: the folded column's range, or its
// trigram index; live rows only; the first rows in the grid's order, or their count.
int cru(Banco& b, const Criterio& c, const QStringList& colunas, const QString& texto, bool contagem = false)
{
    const DefTabela* t = Esquema::tabela(c.tabela);
    const DefColuna* col = t->coluna(c.coluna);
    const QString d = Texto::dobra(texto);
    const char32_t maior = 0x10FFFF;
    const Condicao indice = c.meio
        ? Condicao{b.condicaoTrigrama(*t, *col), {b.valorTrigrama(d)}}
        : Condicao{QStringLiteral("%1 >= ? AND %1 < ?").arg(col->nomeDobrado()), {d, d + QString::fromUcs4(&maior, 1)}};
    const QString onde = indice.sql + QStringLiteral(" AND Excluidos = 0");
    if (contagem)
        return b.escalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(c.tabela, onde), indice.valores).toInt();
    QSqlQuery q = b.executar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4, %5 LIMIT %6")
                                 .arg(colunas.join(','), c.tabela, onde, c.ordem, t->chave)
                                 .arg(Primeiras),
                             indice.valores);
    return leTodas(q);
}

// The grid's first rows; the count that follows them on the screen has its own line.
int busca(Banco& b, const Criterio& c, const QStringList& colunas, const QString& texto)
{
    PaginasBusca pg(b, c.tabela, BuscaOrdens::condicao(b, c, texto), c.ordem, colunas);
    return int(pg.proximas(Primeiras).size());
}

int contagem(Banco& b, const Criterio& c, const QStringList& colunas, const QString& texto)
{
    PaginasBusca pg(b, c.tabela, BuscaOrdens::condicao(b, c, texto), c.ordem, colunas);
    return int(pg.contar());
}

} // namespace

void medePesquisaOs(Banco& b, int nTextos, QList<Medida>& m)
{
    preenche(b);
    auto palavra = [](const QString& s, int i) { return s.split(' ', Qt::SkipEmptyParts).value(i); };
    const QStringList numero = textos(b, "OrdemServico", "CodOs", nTextos, [](const QString& v) { return trecho(v, 1, 3 + v.size() % 2); });
    const QStringList nome = textos(b, "OrdemServico", "NomeCliente", nTextos, [&](const QString& v) {
        // A first name alone (thousands of orders) or with the surname's first letters.
        return v.size() % 2 ? palavra(v, 0) : palavra(v, 0) + ' ' + palavra(v, 1).left(2);
    });
    const QStringList telefone = textos(b, "OrdemServico", "Telefone", nTextos, [](const QString& v) { return trecho(v, 3, 4); });
    const QStringList tipo = textos(b, "OrdemServico", "Tipo", nTextos, [](const QString& v) { return v.left(2); })
        + textos(b, "OrdemServico", "Tipo", nTextos, [](const QString& v) { return v; });
    const QStringList marca = textos(b, "OrdemServico", "Marca", nTextos, [](const QString& v) { return v.left(3); })
        + textos(b, "OrdemServico", "Marca", nTextos, [](const QString& v) { return v; });
    const QStringList modelo = textos(b, "OrdemServico", "Modelo", nTextos, [](const QString& v) { return v.left(6); });
    const QStringList cliente = textos(b, "OrdemServico", "CodCliente", nTextos, [](const QString& v) { return v.size() < 3 ? QString() : v.right(3); });
    const QStringList revendedor = textos(b, "OrdemServico", "Revendedor", nTextos, [&](const QString& v) {
        if (v.isEmpty())
            return QString();
        return v.size() % 2 ? palavra(v, 0) : palavra(v, 0) + ' ' + palavra(v, 1).left(3);
    });
    const QStringList documento = textos(b, "OrdemServico", "CpfCnpj", nTextos, [](const QString& v) { return trecho(v, 2, 5); });
    const QStringList visitaNumero = textos(b, "VisitaTecnico", "CodManu", nTextos, [](const QString& v) { return v.size() < 3 ? QString() : v.right(3); });
    const QStringList visitaNome = textos(b, "VisitaTecnico", "NomeCliente", nTextos, [&](const QString& v) { return palavra(v, 0); });
    const QStringList visitaCliente = textos(b, "VisitaTecnico", "CodCliente", nTextos, [](const QString& v) { return v.left(3); });
    const QStringList rapidoNumero = textos(b, "OrdemServico", "CodOs", nTextos, [](const QString& v) { return v.left(4); });

    using BuscaOrdens::Modo;
    using BuscaOrdens::Rapida;
    const QList<std::tuple<QString, Criterio, QStringList>> linhas = {
        {"Pesquisa O.S: número no meio", BuscaOrdens::criterioPesquisa(0, Modo::Saida), numero},
        {"Pesquisa O.S: nome pelo começo", BuscaOrdens::criterioPesquisa(1, Modo::Saida), nome},
        {"Pesquisa O.S: telefone no meio", BuscaOrdens::criterioPesquisa(2, Modo::Saida), telefone},
        {"Pesquisa O.S: tipo pelo começo", BuscaOrdens::criterioPesquisa(3, Modo::Saida), tipo},
        {"Pesquisa O.S: marca pelo começo", BuscaOrdens::criterioPesquisa(4, Modo::Saida), marca},
        {"Pesquisa O.S: modelo pelo começo", BuscaOrdens::criterioPesquisa(5, Modo::Saida), modelo},
        {"Pesquisa O.S: cód. cliente no meio", BuscaOrdens::criterioPesquisa(6, Modo::Saida), cliente},
        {"Pesquisa O.S: revendedor pelo começo", BuscaOrdens::criterioPesquisa(7, Modo::Saida), revendedor},
        {"Pesquisa visita: número no meio", BuscaOrdens::criterioPesquisa(0, Modo::Visita), visitaNumero},
        {"Pesquisa visita: nome pelo começo", BuscaOrdens::criterioPesquisa(1, Modo::Visita), visitaNome},
        {"Pesquisa visita: cód. cliente pelo começo", BuscaOrdens::criterioPesquisa(6, Modo::Visita), visitaCliente},
        {"Busca rápida: número pelo começo", BuscaOrdens::criterioRapida(Rapida::Numero), rapidoNumero},
        {"Busca rápida: nome pelo começo", BuscaOrdens::criterioRapida(Rapida::Nome), nome},
        {"Busca rápida: CPF/CNPJ no meio", BuscaOrdens::criterioRapida(Rapida::Documento), documento},
    };
    for (const auto& [titulo, criterio, lista] : linhas) {
        const Criterio c = criterio;
        const QStringList& colunas = c.tabela == QLatin1String("VisitaTecnico") ? ColunasVisitas : ColunasOrdens;
        m << mede(titulo + QStringLiteral(": 100 primeiras"), 20, lista,
                  [&](const QString& t) { return busca(b, c, colunas, t); },
                  [&](const QString& t) { return cru(b, c, colunas, t); });
        m << mede(titulo + QStringLiteral(": contagem depois da 1ª página"), 200, lista,
                  [&](const QString& t) { return contagem(b, c, colunas, t); },
                  [&](const QString& t) { return cru(b, c, colunas, t, true); });
    }
    // The telephone first; the mobile only when no telephone holds the digits.
    const Criterio tel = BuscaOrdens::criterioRapida(Rapida::Telefone);
    const Criterio cel = BuscaOrdens::criterioRapida(Rapida::Celular);
    const QStringList celular = textos(b, "OrdemServico", "Celular", nTextos, [](const QString& v) { return v.right(8); });
    m << mede(QStringLiteral("Busca rápida: telefone, senão celular, no meio: 100 primeiras"), 20,
              telefone + celular,
              [&](const QString& t) {
                  if (const int n = busca(b, tel, ColunasOrdens, t); n > 0)
                      return n;
                  return busca(b, cel, ColunasOrdens, t);
              },
              [&](const QString& t) {
                  const int n = cru(b, tel, ColunasOrdens, t);
                  return n > 0 ? n : cru(b, cel, ColunasOrdens, t);
              });
}
