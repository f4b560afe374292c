#include "data/Esquema.h"

const DefColuna* DefTabela::coluna(const QString& n) const
{
    for (const DefColuna& c : colunas)
        if (c.nome.compare(n, Qt::CaseInsensitive) == 0)
            return &c;
    return nullptr;
}

bool DefTabela::temColunasMeio() const
{
    for (const DefColuna& c : colunas)
        if (c.meio)
            return true;
    return false;
}

namespace Esquema {

const DefTabela* tabela(const QString& nome)
{
    for (const DefTabela& t : tabelas())
        if (t.nome.compare(nome, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

}
