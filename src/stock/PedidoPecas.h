#pragma once
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "data/Busca.h"

class Banco;
class Impressora;

// The shop's shopping list (PedidoPeca): what was asked for by hand, what a review of
// the stock found short, and what the bench wrote on its own ("Estoque"). Nothing here
// touches stock or money. The outputs (Word, e-mail) take the rows on the screen, the
// printout the whole table.
namespace PedidoPecas {

inline const QString Ordem = QStringLiteral("CodPedido");
// The whole list, or the rows whose supplier holds the name chosen.
Condicao todos();
Condicao doFornecedor(const QString& fornecedor);

struct Item {
    qint64 CodPedido = 0;
    QString CodVenda, Descricao, Quantidade, DataPedido, Solicitado, Fornecedor;
};

// One row asked for by hand, today, by `usuario`. Returns its key.
qint64 incluir(Banco& banco, const Item& item, const QString& usuario);
// Adds a row of quantity "1" for every live product whose stock is below its minimum (at
// the minimum is not short), in one transaction; it doesn't look at what the list
// already has. Returns how many rows it added.
int revisarEstoque(Banco& banco, const QString& usuario);
// Deletes the row with this key; false when it was already gone.
bool excluir(Banco& banco, qint64 codPedido);
// The rows of a condition in the list's order.
QList<Item> itens(Banco& banco, const Condicao& onde);

// The supplier's EmailVendas by its code; empty for none (the empty combo entry, an
// unknown code, no address).
QString emailFornecedor(Banco& banco, qint64 codFornecedor);

// The mail's text: for each row "Cód:" + code, "Quantidade:_" + quantity, "Produto:_" +
// description, each padded with underscores to 13, 13 and 40 characters (a longer field
// gets none), ten underscores, a line break and 140 asterisks, so the columns line up in
// a fixed-width reading.
QString corpoEmail(const QList<Item>& itens);
inline const QString AssuntoEmail = QStringLiteral("Pedido Material");
// The message as a mailto: link for the user's mail program.
QString linkEmail(const QString& para, const QString& corpo);
// The same message as an unsent draft (.eml) a mail program opens for sending.
QByteArray rascunhoEml(const QString& para, const QString& corpo);
// Above this length a mailto: link is cut short by some mail programs: a draft is saved.
constexpr int LimiteLink = 1800;

// "Pedido 23_11_2026".
QString nomeDocumento(const QDate& dia);
// The shop's template (pedido.docx or pedido.odt in the documents folder), else ours.
QString modeloWord();
// Fills the template's first table, one row per item (code, quantity, description), and
// writes the copy to `destino`; the template is only read. False with a message.
bool gerarWord(Banco& banco, const QList<Item>& itens, const QString& modelo, const QString& destino, QString* erro);

// The printout of the whole table: "Página: n" and two empty lines on every page, the
// heading row on the first only, a ruled line under each row; a row with an empty
// description, quantity or requester prints "***" at the left edge.
void imprimir(Banco& banco, Impressora& p);

}
