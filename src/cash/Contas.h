#pragma once
#include <QDate>
#include <QList>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

#include "data/Busca.h"
#include "data/Dinheiro.h"
#include "documents/Fichas.h"

class Banco;

// What the shop has to receive (ContasReceber, one row per instalment), what it has to pay
// (ContasPagar, one row per instalment of a bill) and the cheques it holds (CadastroCheque),
// as the accounts screen lists and settles them. Every change finds its row by its own key
// and is refused when another station changed the row since it was read.
namespace Contas {

enum class Modo { Receber, Pagar, Cheques };

QString tabela(Modo modo);
QString chave(Modo modo);   // the row's own key column
// The grid's columns in their order: the first two are shown ("Cliente/Titulo",
// "Vencimento"), the others are hidden and carry the row; the key is always among them.
QStringList colunasGrade(Modo modo);
// "Contas - 3 encontradas", "Cheques - 1 encontrados", "Contas - 2 encontrados".
QString titulo(Modo modo, qint64 encontrados);

// The entries of the search list: the seven of an account, then, on the receivables side
// only, the four that read the cheques.
QStringList buscas(Modo modo);
bool buscaDeCheque(const QString& entrada);

// A change or a search that can't go on: the message, its title, and where the focus goes.
class Recusa : public std::runtime_error {
public:
    enum Campo { Nenhum, Negado, Linha, Busca, Valor, Data, CliFor, Total, Parcelas, Dias, Entrada };
    Recusa(const QString& m, Campo c, const QString& t = {})
        : std::runtime_error(m.toStdString()), mensagem(m), titulo(t), campo(c) {}
    QString mensagem;
    QString titulo;
    Campo campo;
};

inline const QString MsgAlterada =
    QStringLiteral("Esta conta foi alterada em outra estação desde que foi lida; pesquise de novo antes de alterá-la.");
inline const QString MsgSumiu =
    QStringLiteral("Esta conta foi excluída em outra estação; pesquise de novo.");
// A cheque is deleted on its own register, where its registration is seen whole.
inline const QString MsgChequeNaoExclui =
    QStringLiteral("O cheque não foi excluído: cheques são excluídos no cadastro de cheques.");
inline const QString MsgValorInvalido = QStringLiteral("Valor inválido: digite só números e a vírgula (150,00).");

// The rows an entry of the list finds: the table they come from (the cheque entries read
// the cheques whatever the side), the condition with the typed text bound, and the order.
struct Pesquisa {
    Modo modo = Modo::Receber;
    Condicao onde;
    QString ordem;  // empty: the key's order
};
// `data` is the date picker's day. Throws Recusa (an unknown entry, a holder's search with
// no name typed).
Pesquisa pesquisa(Banco& banco, Modo modo, const QString& entrada, const QString& texto, const QDate& data);

// The lines of the detail list for a row, the receipt's part when it was paid.
QStringList detalhe(Modo modo, const QSqlRecord& linha);

// The row chosen on the grid, as it was read.
struct Escolhida {
    Modo modo = Modo::Receber;
    QSqlRecord lida;
    qint64 chave() const;
    bool vazia() const { return lida.isEmpty(); }
};

struct Pagamento {
    QString valor;               // as typed; empty is "0,00"
    std::optional<QDate> data;   // none: the date was left blank
    QString forma;               // empty is "Não Informado"
    QString observacao;
};

// Each needs DireitoContaAl (Recusa::Negado) and writes in one transaction. Throws Recusa
// or ErroBanco.
void pagar(Banco& banco, const Escolhida& e, const Pagamento& p);
void novaData(Banco& banco, const Escolhida& e, const QDate& vencimento);
// Cheques are removed on their own register: here the deletion is refused and nothing
// changes.
void excluir(Banco& banco, const Escolhida& e);

// A bill typed by hand: a payable to a supplier or a receivable from a customer.
struct NovaConta {
    Modo modo = Modo::Pagar;
    QString codigo;       // supplier's or customer's code, when chosen from the list
    QString nome;
    QString documento;    // the document or sale number
    QString referente;
    QString tipoConta;    // "Boleto", "Cartão crédito", "Cheque" or empty
    QString dias = QStringLiteral("28");
    QString total;
    QString parcelas;
    QString entrada;
    QDate compra;
};
// The checks in the order the panel is filled; then one row per instalment, the total
// split in whole cents (the last taking the rest), the first due `dias` days after `hoje`
// and each next one `dias` after the previous. The entry is kept and subtracted from
// nothing. Returns the keys of the rows written.
QList<qint64> gravar(Banco& banco, const NovaConta& conta, const QDate& hoje);

// The row as stored now; empty when it is gone.
QSqlRecord ler(Banco& banco, Modo modo, qint64 chave);

// Suppliers (payables) or customers (receivables) whose name begins with `comeco`, as
// code and name, for the new bill's list: a few at a time, however many the shop has.
QList<QPair<QString, QString>> nomes(Banco& banco, Modo modo, const QString& comeco, int limite = 50);

// The receipt of a row, read by column name.
FichaRecebimento recibo(Modo modo, const QSqlRecord& linha);

// How a grid cell shows a stored value: dates "dd/MM/yyyy", money "1.234,56".
QString textoCelula(const QString& coluna, const QVariant& valor);

}
