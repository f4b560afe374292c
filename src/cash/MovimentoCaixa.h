#pragma once
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QVariantList>
#include <array>
#include <optional>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Banco;

// The cash report's rows: the sale lines (VendaDetalhada) or the sale summaries
// (Movimento) of a date range, with what each row earned and the totals of the day.
// Nothing computed here is stored: the shop reads it, prints it and exports it.
namespace MovimentoCaixa {

// The report's three views: the lines, the summaries, and the summaries with the short
// list beside them.
enum class Visao { Detalhada, Simples, MaisSimples };
inline bool resumo(Visao v) { return v != Visao::Detalhada; }

// The detail views of "Mostra Tudo" and its kin.
enum class Filtro { Tudo, VendaProduto, SaidaConserto, Tecnico };

// The searches of the buttons 4 to 12, in their order.
enum class Campo { Venda, Peca, Modulo, Descricao, Tecnico, Vendedor, Caixa, Cliente, Fornecedor };

// The grid's 40 columns, by position.
enum Coluna {
    Cod, CodAutVen, CodAutOS, CodVenda, CodProduto, Modulo, Descricao, Quantidade_, ValCusto, ValVenda,
    ValMinimo, ValDesconto, ValVendido, PorcVendedor, ValVendedor, LucroProduto, TipoVenda, ValMaoObra,
    TipoAparelho, ValPorc, TipoPorc, ValTecnico, LucroMaoObra, CodTec, Tecnico, CodFun, Vendedor, CodCaixa,
    Caixa, Data, Hora, CodCli, Cliente, ValTotal, ValPagar, ValDescontoVenda, ValPago, ValTroco,
    FormaPagamento, Fornecedor, NumeroColunas
};
const QStringList& titulos();
bool colunaDinheiro(int coluna);

// What a list reads: one table, a condition with its bound values, an order.
struct Consulta {
    Visao visao = Visao::Detalhada;
    QString onde;
    QVariantList valores;
    QString ordem;
};

// The view of button 0 between two days (inclusive).
Consulta visao(Visao v, Filtro f, const QString& tecnico, const QDate& de, const QDate& ate);
// A search by one field within the range; nothing when the field has no search in that
// view (the part, module and description exist only among the lines).
std::optional<Consulta> busca(Banco& banco, Visao v, Campo campo, const QString& valor, const QDate& de,
                              const QDate& ate);

// One row as read, and what the walk works out for it.
struct Linha {
    qint64 chave = 0;
    std::array<QString, NumeroColunas> texto;  // the columns that are text as stored
    Quantidade quantidade;
    Dinheiro custo, venda, minimo, desconto, maoObra, porcTecnico;
    bool temMinimo = false;
    bool porcento = false;
    QString porcVendedor;
    Dinheiro total, pagar, descontoVenda, pago, troco;
    qint64 codVenda = 0;
    QString data;  // as stored, "yyyy/MM/dd"
    // Worked out.
    Dinheiro vendido, valVendedor, lucroProduto, valTecnico, lucroMaoObra;
    Dinheiro descontoDaVenda;  // the sale's discount, on its first row only

    // The cell as the grid shows it.
    QString celula(int coluna) const;
    // A money column's amount; nothing where the row has no such column.
    std::optional<Dinheiro> valor(int coluna) const;
};

// EtValor(0..11) and the five boxes of the cash flow.
struct Totais {
    Quantidade itens;
    Dinheiro custo, venda, desconto, vendido, lucroProduto, maoObra, tecnico, lucroMaoObra, vendedor, lucro,
        descontoVenda;
    std::array<Dinheiro, 5> fluxo;  // total, cash in the till, discount, paid, change

    // The label texts in the order of EtValor(0..11).
    QStringList textos() const;
};
// The captions of those twelve totals.
const QStringList& rotulosTotais();

// Works out each row's values and adds them up, first row to last. `descontos` gives a
// sale's discount by its number; it counts on the sale's first row only.
class Percurso {
public:
    explicit Percurso(Visao v) : m_visao(v) {}
    void passar(Linha& l, const QHash<qint64, Dinheiro>& descontos);
    const Totais& totais() const { return m_totais; }

private:
    Visao m_visao;
    Totais m_totais;
    std::optional<qint64> m_vendaAnterior;
};

struct Lista {
    Visao visao = Visao::Detalhada;
    QList<Linha> linhas;
    Totais totais;
};

// Reads the rows and walks them; the discounts of the sales come in one more query for
// the whole range. Throws ErroBanco.
Lista ler(Banco& banco, const Consulta& c);

// Deletes exactly the listed rows, by their keys, in one transaction; the third view
// deletes nothing. Gives how many rows went.
qint64 excluir(Banco& banco, const Lista& lista);

}
