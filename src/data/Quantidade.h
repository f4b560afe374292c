#pragma once
#include <QString>
#include <QtGlobal>
#include <optional>

#include "data/Dinheiro.h"

// A quantity of parts in thousandths, so that "1,5" metre of cable is exact.
class Quantidade {
public:
    constexpr Quantidade() = default;
    static constexpr Quantidade deMilesimos(qint64 m) { Quantidade q; q.m_milesimos = m; return q; }
    static constexpr Quantidade unidades(qint64 u) { return deMilesimos(u * 1000); }

    // "1", "1,5", " 1" (the bench writes a leading blank); empty gives nothing.
    static std::optional<Quantidade> lerTexto(const QString& texto);

    qint64 milesimos() const { return m_milesimos; }
    // "1", "1,5", "2,125": no trailing zeros.
    QString texto() const;
    // Price times quantity, rounded half away from zero to the cent.
    Dinheiro vezes(Dinheiro preco) const { return preco.multiplicado(m_milesimos, 1000); }

    friend auto operator<=>(Quantidade, Quantidade) = default;
    friend bool operator==(Quantidade, Quantidade) = default;
    friend Quantidade operator-(Quantidade a, Quantidade b) { return deMilesimos(a.m_milesimos - b.m_milesimos); }
    friend Quantidade operator+(Quantidade a, Quantidade b) { return deMilesimos(a.m_milesimos + b.m_milesimos); }

private:
    qint64 m_milesimos = 0;
};
