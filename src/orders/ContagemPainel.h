#pragma once
#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QString>

#include "orders/ListasPainel.h"

class Banco;

// What the panel's timer needs on each tick: the count of every list and whether each of
// the three buttons must blink. It is read in one pass over the orders still in the shop
// (their partial index) and one over the open house calls, so that every station can
// afford it about once a minute whatever the size of the order history.
struct ContagemPainel {
    QHash<int, int> contagens;        // by list button; lists 3 and 4 count an order twice when it fits both halves
    int abertas = 0;                  // orders in the shop plus open house calls
    QString primeiraEntrega;          // earliest promised day of list 0, as stored ("" when none)
    QString primeiraSolicitada;       // earliest "yyyy/MM/dd HH:mm" of a pick-up or visit with both set
    bool recusadas() const { return contagens.value(int(Lista::NaoAutorizado)) > 0; }

    int conta(Lista l) const { return contagens.value(int(l)); }
};

namespace ContagensPainel {

// Throws ErroBanco.
ContagemPainel ler(Banco& banco);

// An authorised order whose promised day is no more than `diasAviso` days away (or past)
// makes the button blink: with 0 only from the promised day on.
bool piscaEntrega(const ContagemPainel& c, double diasAviso, const QDate& hoje);
// A pick-up or a visit whose day has come and whose hour has come.
bool piscaSolicitada(const ContagemPainel& c, const QDateTime& agora);

}
