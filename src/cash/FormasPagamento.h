#pragma once
#include <QDate>
#include <QList>
#include <QString>

#include "data/Dinheiro.h"

// The payment forms of the till, in the order the list shows them, and the instalment
// plan each one lays out.
namespace FormasPagamento {

enum class Prazo { Nenhum, QuinzeDias, Mensal };

struct Forma {
    QString texto;
    int parcelas = 0;      // NumeroParcelas: receivable rows the form leaves
    bool cheque = false;   // PagoComCheque
    Prazo prazo = Prazo::Nenhum;
};

// Never in the list: the till writes it itself when the debt is hung.
inline const QString PagarDepois = QStringLiteral("Pagar depois");

const QList<Forma>& todas();
// The form whose text this is; nullptr for a typed text or "Pagar depois", which leave
// the plan as it stands.
const Forma* porTexto(const QString& texto);

struct Parcela {
    Dinheiro valor;
    QDate vencimento;
};

// The instalments of `devido` (the total less the discount) from `hoje`: whole cents, the
// last taking the rest, so they always add up; each monthly date is one calendar month
// after the previous one (31/01 gives 28/02, then 28/03).
QList<Parcela> plano(const Forma& forma, Dinheiro devido, const QDate& hoje);

}
