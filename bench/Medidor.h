#pragma once
#include <QElapsedTimer>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <algorithm>
#include <functional>

// One line of the table: an operation run once per text (different texts drawn from the
// data, so no single lucky text decides the figure), its median and 90th percentile, and
// beside it the raw indexed query that gives the same rows, run on the same texts.
struct Medida {
    QString nome;
    double alvo = 0;
    int textos = 0;
    double mediana = 0;
    double p90 = 0;
    double cruMediana = -1;  // < 0: no raw query beside it
    int linhasMin = -1;      // rows the operation returned, over all texts
    int linhasMax = -1;
};

// An operation on one text; returns how many rows it gave (-1 when rows don't apply).
using Operacao = std::function<int(const QString& texto)>;

inline double percentil(QList<double> v, double p)
{
    if (v.isEmpty())
        return 0;
    std::sort(v.begin(), v.end());
    const int i = qBound(0, int(p * (v.size() - 1) + 0.5), int(v.size() - 1));
    return v.at(i);
}

inline double cronometra(const std::function<void()>& f)
{
    QElapsedTimer t;
    t.start();
    f();
    return t.nsecsElapsed() / 1e6;
}

// Each text is timed this many times, the operation and its raw query in turn, and the best
// of each kept: on a machine shared with other work a single run measures the neighbours.
constexpr int RepeticoesPorTexto = 3;

// Lines whose name doesn't match are skipped (--linhas): a quick look at a few lines without
// the whole table. Their fill and set-up still run.
inline QRegularExpression& filtroLinhas()
{
    static QRegularExpression filtro;
    return filtro;
}

inline bool pulaLinha(const QString& nome)
{
    return !filtroLinhas().pattern().isEmpty() && !filtroLinhas().match(nome).hasMatch();
}

// Runs `operacao` and `cru` on every text, after one warm-up on the first.
inline Medida mede(const QString& nome, double alvoMs, const QStringList& textos, const Operacao& operacao,
                   const Operacao& cru = {})
{
    Medida m{nome, alvoMs};
    if (pulaLinha(nome)) {
        m.textos = -1;
        return m;
    }
    m.textos = int(textos.size());
    if (textos.isEmpty())
        return m;
    operacao(textos.first());
    if (cru)
        cru(textos.first());
    QList<double> tempos, crus;
    for (const QString& t : textos) {
        int n = -1;
        double melhor = -1, melhorCru = -1;
        for (int r = 0; r < RepeticoesPorTexto; ++r) {
            const double tempo = cronometra([&] { n = operacao(t); });
            melhor = melhor < 0 ? tempo : qMin(melhor, tempo);
            if (cru) {
                const double tempoCru = cronometra([&] { cru(t); });
                melhorCru = melhorCru < 0 ? tempoCru : qMin(melhorCru, tempoCru);
            }
        }
        tempos << melhor;
        if (n >= 0) {
            m.linhasMin = m.linhasMin < 0 ? n : qMin(m.linhasMin, n);
            m.linhasMax = qMax(m.linhasMax, n);
        }
        if (cru)
            crus << melhorCru;
    }
    m.mediana = percentil(tempos, 0.5);
    m.p90 = percentil(tempos, 0.9);
    if (cru)
        m.cruMediana = percentil(crus, 0.5);
    return m;
}

// A single run from a cold cache: `esfria` drops the store's pages first, before each of
// the two queries.
inline Medida medeFrio(const QString& nome, double alvoMs, const QString& texto, const std::function<void()>& esfria,
                       const Operacao& operacao, const Operacao& cru)
{
    Medida m{nome + QStringLiteral(" [cache frio]"), alvoMs, 1};
    if (pulaLinha(m.nome)) {
        m.textos = -1;
        return m;
    }
    esfria();
    int n = -1;
    m.mediana = m.p90 = cronometra([&] { n = operacao(texto); });
    m.linhasMin = m.linhasMax = n;
    esfria();
    m.cruMediana = cronometra([&] { cru(texto); });
    return m;
}

inline void imprime(const QList<Medida>& medidas)
{
    QTextStream out(stdout);
    out << QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 |\n")
               .arg("operação", -64).arg("textos", 6).arg("mediana ms", 10).arg("p90 ms", 8)
               .arg("cru ms", 8).arg("razão", 6).arg("alvo ms", 7);
    out << "|" << QString(66, '-') << "|" << QString(8, '-') << "|" << QString(12, '-') << "|" << QString(10, '-')
        << "|" << QString(10, '-') << "|" << QString(8, '-') << "|" << QString(9, '-') << "|\n";
    for (const Medida& m : medidas) {
        if (m.textos < 0)
            continue;
        QString nome = m.nome;
        if (m.linhasMax >= 0)
            nome += m.linhasMin == m.linhasMax ? QStringLiteral(" (%1 linhas)").arg(m.linhasMax)
                                               : QStringLiteral(" (%1–%2 linhas)").arg(m.linhasMin).arg(m.linhasMax);
        const QString cru = m.cruMediana < 0 ? QStringLiteral("—") : QString::number(m.cruMediana, 'f', 2);
        const QString razao = m.cruMediana <= 0 ? QStringLiteral("—") : QString::number(m.mediana / m.cruMediana, 'f', 1);
        out << QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 |\n")
                   .arg(nome, -64).arg(m.textos, 6).arg(m.mediana, 10, 'f', 2).arg(m.p90, 8, 'f', 2)
                   .arg(cru, 8).arg(razao, 6).arg(m.alvo, 7, 'f', 0);
    }
    out.flush();
}
