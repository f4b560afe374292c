#pragma once
#include <QList>

class Banco;

// The data upgrades of an older store, in version order. Each runs once, in its own
// transaction together with the row of VersaoEsquema that records it, after the tables
// and columns of this version are in place: a store that stops halfway resumes at the
// step that failed. A new store is born at the last version and runs none.
namespace Atualizacoes {

struct Passo {
    int versao;
    void (*aplicar)(Banco&);
};
const QList<Passo>& passos();
int ultimaVersao();

// Version 2: CPF and CNPJ typed with their punctuation become digits, as the registers
// now keep them; a text that isn't a document (a foreign number) stays as it stands.
void documentosEmDigitos(Banco& banco);

// Version 4: an order delivered through the till before the till kept what it posted
// (its cash movement is there) counts as posted whole, with its parts, so reopening it
// never charges or posts it again.
void lancamentosAnteriores(Banco& banco);

// Version 15: PIX at the till and the 80 mm roll exist, switched off; the name PIX shows
// starts as the shop's name.
void recursosDesligados(Banco& banco);
// Version 16: the templates of the customer notices, standard texts, with the notices
// off; 90 days of warranty on a repair.
void avisoCliente(Banco& banco);

}
