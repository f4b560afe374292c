#pragma once
#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QTextStream>
#include <algorithm>
#include <functional>

// Times one operation several times and keeps the median, so that one slow run (the
// first read of a cold page, another process on the machine) doesn't decide the figure.
struct Medida {
    QString nome;
    double mediana = 0;
    double alvo = 0;
};

inline Medida mede(const QString& nome, double alvoMs, const std::function<void()>& operacao, int vezes = 7)
{
    QList<double> tempos;
    for (int i = 0; i < vezes; ++i) {
        QElapsedTimer t;
        t.start();
        operacao();
        tempos << t.nsecsElapsed() / 1e6;
    }
    std::sort(tempos.begin(), tempos.end());
    return {nome, tempos.at(tempos.size() / 2), alvoMs};
}

inline void imprime(const QList<Medida>& medidas)
{
    QTextStream out(stdout);
    out << QStringLiteral("| %1 | %2 | %3 |\n").arg("operação", -58).arg("mediana (ms)", 12).arg("alvo (ms)", 9);
    out << "|" << QString(60, '-') << "|" << QString(14, '-') << "|" << QString(11, '-') << "|\n";
    for (const Medida& m : medidas)
        out << QStringLiteral("| %1 | %2 | %3 |\n").arg(m.nome, -58).arg(m.mediana, 12, 'f', 2).arg(m.alvo, 9, 'f', 0);
    out.flush();
}
