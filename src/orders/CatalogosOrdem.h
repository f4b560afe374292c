#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

class Banco;

// The four small catalogues that intake and the bench pick from: reported defects,
// services with their prices, brands, and kinds of appliance with the technician's
// commission. A defect, brand or kind typed that isn't there yet is added on the spot.
struct DefeitoCatalogo {
    qint64 Codigo = 0;
    QString CodDefeito;
    QString Defeito;
};

struct ServicoCatalogo {
    qint64 Codigo = 0;
    QString CodServico;
    QString Servico;
    Dinheiro ValorObra;
    Dinheiro ValorObraMinimo;  // the floor under any discount
};

struct TipoAparelho {
    qint64 CodTipo = 0;
    QString Tipo;
    Dinheiro ValorTipo;        // the commission
    bool porcentagem = false;  // ValorTipo is a percentage
};

namespace CatalogosOrdem {

QList<DefeitoCatalogo> defeitos(Banco& banco);  // by Defeito
// The catalogue's row for this text, or a new one with the next code.
DefeitoCatalogo garantirDefeito(Banco& banco, const QString& texto);

QList<ServicoCatalogo> servicos(Banco& banco);  // by Servico
std::optional<ServicoCatalogo> servicoPorCodigo(Banco& banco, const QString& codServico);

QStringList marcas(Banco& banco);  // by MarcaAparelho
// Adds the brand when the table lacks it; an empty text adds nothing.
void garantirMarca(Banco& banco, const QString& marca);

QList<TipoAparelho> tipos(Banco& banco);  // by Tipo
std::optional<TipoAparelho> tipoPorCodigo(Banco& banco, qint64 codTipo);
// Adds the kind with only its name when the table lacks it; an apostrophe in it is
// stored as a double quote, as the kinds have always been written. Gives the text kept.
QString garantirTipo(Banco& banco, const QString& tipo);

}
