#pragma once
// The order searches' tests: a store of orders and visits made to tell the search
// patterns apart, and the rows a pattern must give, worked out without the search code.
#include <QAbstractItemModel>
#include <QRegularExpression>
#include <QSet>
#include <QSqlQuery>
#include <QTableView>

#include "data/Banco.h"
#include "data/Esquema.h"

namespace ApoioPesquisaOs {

// One order of the store: number, name, telephone, mobile, type, brand, model, customer
// code, reseller, document, deleted.
struct Linha {
    qint64 codOs;
    const char *nome, *telefone, *celular, *tipo, *marca, *modelo, *codCliente, *revendedor, *documento;
    int excluidos;
};

// 12, 120, 312 and 1234 tell a number's beginning from its middle; 1203 is deleted with
// a 0 behind the 12; two live orders share number 500; 99 has no values at all.
inline const QList<Linha>& ordens()
{
    static const QList<Linha> l = {
        {12, "ANA SOUZA", "1133331200", "", "TV", "PHILCO", "PH29", "120", "LOJA CENTRO", "11144477735", 0},
        {120, "ANALU D'ÁVILA", "", "11987651234", "TV 29''", "SEMP", "S20", "12", "", "", 0},
        {312, "BRUNO ANA", "2122221234", "", "GELADEIRA", "BRASTEMP", "BRM", "3120", "LOJA ANA", "22233344405", 0},
        {1234, "CARLA", "1133339999", "", "MICROONDAS", "Philco", "PM12", "5", "", "", 0},
        {1203, "ANA EXCLUIDA", "1133331200", "11987650000", "TV", "PHILCO", "PH29", "12", "LOJA CENTRO", "11144477735", -1},
        {500, "DIEGO", "3133120000", "", "SOM", "AB\\CD", "X", "77", "", "", 0},
        {500, "EDUARDO", "3133120001", "", "SOM", "AB_CD", "X", "78", "", "", 0},
        {7, "D'ÁVILA ELETRO", "1140041234", "", "TV", "100% BOM", "", "9", "", "", 0},
        {8, "A_B", "", "", "", "", "", "", "", "", 0},
        {99, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
    };
    return l;
}

// The store keeps no text column NULL: a value never given is empty.
inline QVariant ou(const char* t) { return QString::fromUtf8(t ? t : ""); }

inline void preencheOrdens(Banco& b)
{
    const DefTabela& t = *Esquema::tabela(QStringLiteral("OrdemServico"));
    for (const Linha& o : ordens())
        b.inserir(t,
                  {"CodOs", "NomeCliente", "Telefone", "Celular", "Tipo", "Marca", "Modelo", "CodCliente", "Revendedor",
                   "CpfCnpj", "Excluidos"},
                  {o.codOs, ou(o.nome), ou(o.telefone), ou(o.celular), ou(o.tipo), ou(o.marca), ou(o.modelo),
                   ou(o.codCliente), ou(o.revendedor), ou(o.documento), o.excluidos});
}

inline void preencheVisitas(Banco& b)
{
    const DefTabela& t = *Esquema::tabela(QStringLiteral("VisitaTecnico"));
    const QStringList c = {"CodManu", "NomeCliente", "CodCliente", "EndTel", "DataSolicitada", "Excluidos"};
    b.inserir(t, c, {12, "ANA SOUZA", "120", "RUA A, 10 - 1133331200", "2026/11/20", 0});
    b.inserir(t, c, {312, "BRUNO", "12", "RUA B", "2026/11/21", 0});
    b.inserir(t, c, {1203, "ANA VELHA", "12", "RUA C", "2026/11/22", -1});
    b.inserir(t, c, {45, "ANAMARIA", "5", "RUA D", "2026/11/23", 0});
}

// Capitals without accents, as a clerk's text is compared.
inline QString dobra(const QString& s)
{
    QString r;
    for (QChar c : s.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing)
            r += c.toUpper();
    return r;
}

// The keys of the live rows of `tabela` whose `coluna` matches the classic pattern
// (typed text, then "%", with a leading "%" when `meio`), "%" and "_" being wildcards.
inline QSet<qint64> casam(Banco& b, const QString& tabela, const QString& chave, const QString& coluna,
                          const QString& texto, bool meio)
{
    QString re = meio ? QStringLiteral(".*") : QString();
    for (QChar c : dobra(texto))
        re += c == QLatin1Char('%') ? QStringLiteral(".*")
            : c == QLatin1Char('_') ? QStringLiteral(".")
                                    : QRegularExpression::escape(QString(c));
    const QRegularExpression padrao(QRegularExpression::anchoredPattern(re + QStringLiteral(".*")),
                                    QRegularExpression::DotMatchesEverythingOption);
    QSet<qint64> r;
    QSqlQuery q = b.executar(QStringLiteral("SELECT %1, %2, Excluidos FROM %3").arg(chave, coluna, tabela));
    while (q.next())
        if (q.value(2).toInt() == 0 && !q.value(1).isNull() && padrao.match(dobra(q.value(1).toString())).hasMatch())
            r.insert(q.value(0).toLongLong());
    return r;
}

// What a grid column shows, every row (the grid reads further as it is asked).
inline QStringList coluna(QTableView* g, int c)
{
    QStringList r;
    for (int i = 0; i < g->model()->rowCount(); ++i)
        r << g->model()->index(i, c).data().toString();
    return r;
}
inline QSet<qint64> chaves(QTableView* g, int c)
{
    QSet<qint64> r;
    for (const QString& s : coluna(g, c))
        r.insert(s.toLongLong());
    return r;
}

}
