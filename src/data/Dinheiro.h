#pragma once
#include <QList>
#include <QString>
#include <QtGlobal>
#include <optional>

// An amount of money in exact cents. The shop reads and writes amounts with a decimal
// comma ("1.234,56"); nothing between the screen and the store goes through a double.
class Dinheiro {
public:
    constexpr Dinheiro() = default;
    static constexpr Dinheiro deCentavos(qint64 c) { Dinheiro d; d.m_centavos = c; return d; }

    // Reads "1.234,56", "1234,5", "-3,00", "R$ 10,00"; an empty text is zero.
    // Anything else (letters, two commas, more than two decimals) gives nothing.
    static std::optional<Dinheiro> lerTexto(const QString& texto);
    // The locale-aware reader: also accepts a point as the decimal separator when no
    // comma is present ("12.50" typed on a keypad).
    static std::optional<Dinheiro> lerTextoLocal(const QString& texto);

    qint64 centavos() const { return m_centavos; }
    bool zero() const { return m_centavos == 0; }

    // "1.234,56"; the form in which amounts are shown and written ("0,00" for zero).
    QString texto() const;
    // "R$ 1.234,56", for documents.
    QString textoMoeda() const;

    // Multiplies by a rational factor num/den, rounding half away from zero on the exact
    // value: 10,45 plus 10 % is 11,50.
    Dinheiro multiplicado(qint64 num, qint64 den) const;
    // Adds a percentage given in hundredths of a percent (1000 = 10,00 %).
    Dinheiro comPorcentagem(qint64 centesimosDePorcento) const;

    // One split of an amount into n instalments in whole cents; the last takes the
    // remainder so that the instalments always add up to the total (150,75 in 2 is
    // 75,37 and 75,38).
    static QList<Dinheiro> divideEmParcelas(Dinheiro total, int n);

    friend Dinheiro operator+(Dinheiro a, Dinheiro b) { return deCentavos(a.m_centavos + b.m_centavos); }
    friend Dinheiro operator-(Dinheiro a, Dinheiro b) { return deCentavos(a.m_centavos - b.m_centavos); }
    Dinheiro& operator+=(Dinheiro o) { m_centavos += o.m_centavos; return *this; }
    Dinheiro& operator-=(Dinheiro o) { m_centavos -= o.m_centavos; return *this; }
    friend auto operator<=>(Dinheiro, Dinheiro) = default;
    friend bool operator==(Dinheiro, Dinheiro) = default;

private:
    qint64 m_centavos = 0;
};

// Divides num by den rounding half away from zero; den must be positive.
qint64 divideArredondando(qint64 num, qint64 den);

// The number-prefix reader kept for code numbering: digits and at most one point,
// stopping at the first other character ("150,75" reads 150, "ABC123" reads 0).
qint64 prefixoNumerico(const QString& texto);
