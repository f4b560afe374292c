#pragma once
#include <QString>

class Banco;

// Code numbering: the next code is the numeric value of the rightmost seven characters
// of the last code, plus 1, and an empty table gives 1. Seven characters keep codes
// under 9,999,999: 12345678 is followed by 2345679.
namespace Numeracao {

qint64 proximoDe(const QString& ultimo);

// The next code of `tabela`.`coluna`, to be called inside an open write transaction
// (Transacao) that then stores the new row: two stations that save at once never get the
// same code. `ordem` is the column whose last row gives the code (the code itself by
// default). The highest code ever issued per table is kept, so a code is never issued
// again after its row is purged for good.
qint64 proximoCodigo(Banco& banco, const QString& tabela, const QString& coluna, const QString& ordem = {});

// Records a code issued by another counter (a number typed or taken from Empresa) so that
// a later purge never brings it back.
void registrarEmitido(Banco& banco, const QString& tabela, const QString& coluna, qint64 codigo);

}
