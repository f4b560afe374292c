#pragma once
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

class Banco;
struct Ordem;

// What the delivery counter needs of the orders beyond their transitions: which order it
// opens on, how it is found from another screen, and the few texts and sums it shows.
namespace EntregaOrdem {

// The live orders, and the first of them by number: the screen opens on it.
qint64 contarVivas(Banco& banco);
std::optional<qint64> primeiraViva(Banco& banco);
// The live order with this number of this customer (the customer register's choice when
// it has no row key to give).
std::optional<qint64> porNumeroECliente(Banco& banco, const QString& codOs, const QString& codCliente);

// The customer frame's caption: "Cód: " code "   Cpf/Cnpj: " document, or "Não tem".
QString legendaCliente(const Ordem& o);

// What the customer owes once the labour is changed at the counter: that labour and the
// parts as the bench priced them, their discounts kept.
Dinheiro valorComMaoObra(const Ordem& o, Dinheiro maoObra);

}
