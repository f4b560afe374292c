#include "registers/BuscaCodigo.h"

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Texto.h"

namespace BuscaCodigo {

Condicao codigoEColuna(Banco& banco, const QString& tabela, const QString& colunaCodigo,
                       const QString& coluna, const QString& digitado)
{
    const DefTabela* t = Esquema::tabela(tabela);
    const DefColuna* c = (t && !coluna.isEmpty()) ? t->coluna(coluna) : nullptr;
    if (!coluna.isEmpty() && (!c || !c->buscavel()))
        throw ErroBanco(QStringLiteral("A coluna %1 de %2 não tem índice de busca.").arg(coluna, tabela));
    QString expressao = banco.textoDe(colunaCodigo);
    if (c)
        expressao += QStringLiteral(" || COALESCE(%1, '')").arg(c->nomeDobrado());
    const QString padrao = QStringLiteral("%") + Busca::escapaLike(Texto::dobra(digitado), true) + QStringLiteral("%");
    return {QStringLiteral("(%1) LIKE ? ESCAPE '\\'").arg(expressao), {padrao}};
}

}
