#pragma once
#include <QList>
#include <QString>
#include <optional>

class Banco;

// The product groups with their subgroups, and the tax classes with their ICMS rate:
// small lists that only feed the product register's boxes. Products keep the group's
// name as text, so nothing here touches Produto.
namespace Grupos {

struct Linha {
    qint64 codigo = -1;
    QString nome;
    int icms = 0;  // tax classes only
};

QList<Linha> grupos(Banco& banco);
QList<Linha> subgrupos(Banco& banco, qint64 grupo);
QList<Linha> aliquotas(Banco& banco);

// A code below 0 adds the row; the code of the row written comes back.
qint64 gravaGrupo(Banco& banco, qint64 codigo, const QString& nome);
qint64 gravaSubGrupo(Banco& banco, qint64 codigo, qint64 grupo, const QString& nome);
qint64 gravaAliquota(Banco& banco, qint64 codigo, const QString& descricao, int icms);

// The group goes with all its subgroups, or nothing goes.
void excluiGrupo(Banco& banco, qint64 codigo);
void excluiSubGrupo(Banco& banco, qint64 codigo);
void excluiAliquota(Banco& banco, qint64 codigo);

// The rate as typed ("12", "17,5") to the whole number kept: halves go up. Nothing when
// the text isn't a number.
std::optional<int> icmsDoTexto(const QString& texto);

}
