#pragma once
#include <QList>
#include <QSqlRecord>
#include <QString>

#include "data/Busca.h"

class Banco;

// The customer searches of the counter, as plain functions over a connection: the six
// options of the customer search, the name typed as one goes, the register's box of
// code and name, and a customer's past orders. With a shop's whole file of customers
// they answer from the indexes and read only the rows that will be shown.
namespace BuscaClientes {

enum class Opcao { Codigo, Nome, Telefone, Fax, Celular, CnpjCpf };

// The order every customer list is shown in.
inline const QString Ordem = QStringLiteral("CodCliente");

struct Resultado {
    QList<QSqlRecord> linhas;  // in code order
    bool haMais = false;       // more rows matched than the limit
};

// The option's column and whether the text may stand in its middle (only the name is
// searched by its beginning).
QString coluna(Opcao opcao);
bool meio(Opcao opcao);

// Live customers whose column matches the typed text (with the old pattern's reach into
// deleted rows that hold a "0" behind it).
Condicao condicao(Banco& banco, Opcao opcao, const QString& texto, Busca::Plano plano = Busca::Plano::Sondado);
// The same rows read, at most `limite` of them; 0 means all.
Resultado buscar(Banco& banco, Opcao opcao, const QString& texto, int limite);

// The name holding the typed text anywhere, deleted customers included.
Condicao condicaoNome(Banco& banco, const QString& texto, Busca::Plano plano = Busca::Plano::Sondado);

// The customers whose code joined with their name holds the text anywhere ("12ANA"
// finds customer 12 ANA, "2AN" too), deleted ones included. Worked out into lookups of
// the name's and the code's indexes, so a box that searches as one types stays quick.
Condicao codigoENome(Banco& banco, const QString& texto);

// The customer's orders, found by the customer's code, in the order they came in.
// Deleted orders are left out.
QList<QSqlRecord> ordensDoCliente(Banco& banco, const QString& codCliente);

}
