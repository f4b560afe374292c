#pragma once
#include <QDate>
#include <QString>
#include <functional>

class Banco;

// Fills a store with synthetic but realistic data, the rows made by the engine itself:
// the benchmark's store at a shop's scale (customers with Brazilian names, telephones and
// CPFs, orders of which a small share is still in the shop and a few are in the bin), and
// the sample shop that a shop trying the program opens, a few hundred orders around today.
namespace GeradorDados {

// Told after each step or batch; false stops the fill: Interrompido is thrown and the
// caller's transaction rolls back.
using Progresso = std::function<bool(const QString& etapa, qint64 feito, qint64 total)>;
struct Interrompido {};

void clientes(Banco& b, int n, const Progresso& progresso = {});
void ordens(Banco& b, int n, int abertas, int clientes, const Progresso& progresso = {});
// Brings Empresa's order counter and the codes issued up to the rows stored, as a shop's
// own saves would have left them, so that new orders never repeat a number.
void contadores(Banco& b);

struct TamanhoLoja {
    int clientes = 240;
    int ordens = 420;
    int abertas = 121;   // the newest orders, still in the shop
};
inline const QString UsuarioExemplo = QStringLiteral("ADMIN");
inline const QString SenhaExemplo = QStringLiteral("exemplo");
inline const QString NomeLojaExemplo = QStringLiteral("Loja de exemplo");

// The sample shop on an empty store, in one transaction: customers, orders in every
// situation with their parts, products (some under their minimum), house calls, the last
// month's till, receivables, payables, cheques and users. Dates count back from `hoje`.
void lojaExemplo(Banco& b, const QDate& hoje, const TamanhoLoja& tamanho = {}, const Progresso& progresso = {});

}
