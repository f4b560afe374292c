#include "stock/ListaEstoque.h"

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

namespace ListaEstoque {

const QList<Coluna>& colunas()
{
    static const QList<Coluna> c = {
        {"codpeca", "Cod/Peça", Tipo::Texto, 110},
        {"CodOriginal", "Cod/Original", Tipo::Texto, 100},
        {"Modulo", "Módulo", Tipo::Texto, 90},
        {"Descricao", "Descrição", Tipo::Texto, 260},
        {"Unidade", "Uni", Tipo::Texto, 40},
        {"Fabricante", "Marca produto", Tipo::Texto, 110},
        {"Quantidadeestoque", "Qtd/Estoque", Tipo::Quantidade, 80},
        {"QuantidadeMinima", "Qtd/Minima", Tipo::Quantidade, 80},
        {"QuantidadeReservada", "Qtd/Reserva", Tipo::Quantidade, 80},
        {"PrecoCusto", "Valor custo", Tipo::Dinheiro, 85},
        {"PrecoVenda", "Valor venda", Tipo::Dinheiro, 85},
        {"PrecoMinimo", "Valor minimo", Tipo::Dinheiro, 85},
        {"ValorComissao", "Valor comissão", Tipo::Texto, 90},
        {"Equivalente", "Equivalente", Tipo::Texto, 120},
        {"Armazenado", "Local Venda", Tipo::Texto, 90},
        {"ArmazenadoEstoque", "Local estoque", Tipo::Texto, 90},
        {"Categoria", "Departamento/Categoria", Tipo::Texto, 140},
        {"Revendedor", "Fornecedor/Revendedor", Tipo::Texto, 140},
        {"NotaFiscal", "Nº Nota", Tipo::Texto, 80},
        {"DataCompra", "Data Nota", Tipo::Texto, 80},
        {"Aliquota", "ICMS", Tipo::Texto, 60},
        {"Observacao", "Observação", Tipo::Texto, 160},
        {"CodPecAut", "Cód/Automático", Tipo::Texto, 90},
    };
    return c;
}

int indiceColuna(const QString& coluna)
{
    const QList<Coluna>& c = colunas();
    for (int i = 0; i < c.size(); ++i)
        if (c.at(i).coluna.compare(coluna, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString textoCelula(const Coluna& c, const QVariant& valor)
{
    switch (c.tipo) {
    case Tipo::Quantidade:
        return valor.isNull() ? QString() : Quantidade::deMilesimos(valor.toLongLong()).texto();
    case Tipo::Dinheiro:
        // The printout always showed an empty price as 0,00; the grid does the same.
        return Dinheiro::deCentavos(valor.toLongLong()).texto();
    case Tipo::Texto:
        break;
    }
    return valor.toString();
}

const QList<Campo>& campos()
{
    static const QList<Campo> c = {
        {"Busca por código", "codpeca"},
        {"Busca por descrição", "Descricao"},
        {"Busca por módulo", "Modulo"},
        {"Busca por nota fiscal", "NotaFiscal"},
        {"Busca por equivalente", "Equivalente"},
        {"Busca por fornecedor", "Revendedor"},
        {"Busca por marca/fabricante", "Fabricante"},
    };
    return c;
}

Condicao todos() { return Busca::soVivos(); }

Condicao busca(Banco& banco, int campo, const QString& digitado)
{
    const Campo& c = campos().value(qBound(0, campo, int(campos().size()) - 1));
    return Busca::porColuna(banco, QStringLiteral("Produto"), c.coluna, digitado, false);
}

Condicao nivel(Nivel n)
{
    const QString estoque = QStringLiteral("COALESCE(Quantidadeestoque, 0)");
    const QString minimo = QStringLiteral("COALESCE(QuantidadeMinima, 0)");
    switch (n) {
    case Nivel::Vazio:
        return {estoque + QStringLiteral(" <= 0")};
    case Nivel::AteMinimo:
        return {minimo + QStringLiteral(" >= ") + estoque};
    case Nivel::AcimaMinimo:
        break;
    }
    return {estoque + QStringLiteral(" > ") + minimo};
}

bool casaNaLista(const QString& celula, const QString& digitado)
{
    const QString d = digitado.trimmed().toUpper();
    if (d.isEmpty())
        return false;
    return celula.trimmed().left(d.size()).toUpper() == d;
}

int colunaDaBuscaNaLista(int campo)
{
    if (campo <= 0)
        return 0;
    return indiceColuna(campos().value(campo).coluna);
}

QString titulo(qint64 quantos)
{
    return QStringLiteral("Produtos cadastrado %1 registros encontrados..").arg(quantos);
}

}
