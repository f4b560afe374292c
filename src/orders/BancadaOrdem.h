#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"
#include "orders/EstadoOrdem.h"
#include "orders/Ordem.h"

class Banco;

// The technician's rules for the lists of the bench: how a product joins the parts, how
// a part is changed, the discount floors and the line that tells the state of the repair.
// The order's money, locks and stock are the order library's; these are what the bench
// adds to them.
namespace BancadaOrdem {

inline const QString MsgNaoDiminui = QStringLiteral(
    "Você não pode diminuir este item,somente aumentar sua quantidade,somente pelo controle de estoque,exclua e "
    "insira novamente.");
inline const QString MsgDesconto = QStringLiteral("Desconto não pode ser menor que o valor mínimo permitido.");
inline const QString MsgConsertado = QStringLiteral(
    "Esta ordem de seviço esta marcada como CONSERTADO,não é recomendado mudar de status,as peças aplicadas no "
    "conserto deram baixa no estoque,caso mude retorne as peças aplicadas para o estoque.");

// A technician of the combo: the user's code travels with the name.
struct Tecnico {
    QString codigo;
    QString nome;
};
QList<Tecnico> tecnicos(Banco& banco);

// A live product as a part of the order, with its prices, floor, tax and location copied;
// nothing when the product is gone.
std::optional<PecaAplicada> pecaDoProduto(Banco& banco, qint64 codPecAut);

// The quantity box: empty counts one, as the list has always shown it (" 1").
std::optional<Quantidade> quantidadeDaCaixa(const QString& texto);

// A product chosen for the list. A code not yet listed is added with the box's quantity.
// A listed code takes the box's quantity, unless that would lower it: what the part
// already counts (and may already have taken from stock) is never given back this way.
enum class Inclusao { Adicionada, Alterada, Diminuiria };
Inclusao incluirProduto(QList<PecaAplicada>& pecas, const PecaAplicada& produto, Quantidade quantidade);

// A product chosen in the search joins the parts: read again by the key the search gives
// (never by its text), with the quantity of the box. The message to show when it can't
// join; nothing when it joined.
std::optional<QString> receberProduto(Banco& banco, QList<PecaAplicada>& pecas, qint64 codPecAut,
                                      const QString& caixaQuantidade);
inline const QString MsgQuantidade = QStringLiteral("Quantidade inválida: digite um número maior que zero.");

// A part's box stored back into its row: the whole edit, or nothing when it would lower
// the quantity of a part that has a product.
bool alterarPeca(PecaAplicada& peca, const QString& descricao, Quantidade quantidade, Dinheiro venda,
                 Dinheiro desconto);

// The floor under a discount: never below the minimum price ("V/Minimo", "ValorMinimo").
// A part typed by hand has none.
inline bool descontoPermitido(Dinheiro preco, Dinheiro minimo, Dinheiro desconto)
{
    return desconto <= preco - minimo;
}
inline Dinheiro descontoMaximo(Dinheiro preco, Dinheiro minimo) { return preco - minimo; }

// The status line written when a situation is chosen: "TV CONSERTADO", "TV JÁ ESTÁ
// ORÇAMENTADO", "TV AGUARDA PEÇA", "DEVOLVER TV AO CLIENTE".
QString linhaStatus(const QString& tipo, Situacao s);

}
