#pragma once
#include <QList>
#include <QString>
#include <QStringList>

#include "data/Dinheiro.h"

class Banco;

// A change of one price column over many products at once. Each product is priced from
// its own price, and nothing is written before the staff have seen the list of old and
// new prices and confirmed it.
namespace ReajustePreco {

enum class Coluna { Custo, Venda, Minimo };
QString nomeColuna(Coluna c);

// A chosen description, make and category, each its own column exactly; empty is "Todos".
struct Filtro {
    QString descricao;
    QString fabricante;
    QString categoria;
};

struct Ajuste {
    Coluna coluna = Coluna::Venda;
    bool porcentagem = true;
    qint64 valor = 0;  // hundredths of a percent (10 % is 1000), or cents

    Dinheiro aplicado(Dinheiro antigo) const;
};

struct Linha {
    qint64 chave = 0;
    QString codpeca;
    QString descricao;
    Dinheiro antigo;
    Dinheiro novo;
};

// The values a list offers: one entry per value found among live products, in order.
QStringList valores(Banco& banco, const QString& coluna);

// The products the filter selects (live ones), in code order, with their new price.
QList<Linha> previa(Banco& banco, const Filtro& filtro, const Ajuste& ajuste);

enum class Resultado { Aplicado, MudouDesdeAPrevia, PrecoNegativo };
// Writes the prices of the preview in one transaction, or nothing: when a product of the
// selection came, went or changed its price since the preview, nothing is written.
Resultado aplicar(Banco& banco, const Filtro& filtro, const Ajuste& ajuste, const QList<Linha>& previa);

}
