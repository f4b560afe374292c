#include "cash/FormasPagamento.h"

namespace FormasPagamento {

const QList<Forma>& todas()
{
    static const QList<Forma> f = {
        {QStringLiteral("DINHEIRO-VISTA"), 0, false, Prazo::Nenhum},
        {QStringLiteral("15 DIAS"), 1, false, Prazo::QuinzeDias},
        {QStringLiteral("30 DIAS"), 1, false, Prazo::Mensal},
        {QStringLiteral("30/60 DIAS"), 2, false, Prazo::Mensal},
        {QStringLiteral("30/60/90 DIAS"), 3, false, Prazo::Mensal},
        {QStringLiteral("30/60/90/120 DIAS"), 4, false, Prazo::Mensal},
        {QStringLiteral("CARTÃO CRÉDITO"), 0, false, Prazo::Nenhum},
        {QStringLiteral("CARTÃO DÉBITO"), 0, false, Prazo::Nenhum},
        {QStringLiteral("CHEQUE-VISTA"), 0, true, Prazo::Nenhum},
        {QStringLiteral("CHEQUE-PRÉ 15"), 1, true, Prazo::QuinzeDias},
        {QStringLiteral("CHEQUE-PRÉ 30"), 1, true, Prazo::Mensal},
        {QStringLiteral("CHEQUE-PRÉ 30/60"), 2, true, Prazo::Mensal},
        {QStringLiteral("CHEQUE-PRÉ 30/60/90"), 3, true, Prazo::Mensal},
        {QStringLiteral("CHEQUE-PRÉ 30/60/90/120"), 4, true, Prazo::Mensal},
        // Listed only while the shop has PIX turned on.
        {QStringLiteral("PIX"), 0, false, Prazo::Nenhum},
    };
    return f;
}

const Forma* porTexto(const QString& texto)
{
    for (const Forma& f : todas())
        if (f.texto == texto)
            return &f;
    return nullptr;
}

QList<Parcela> plano(const Forma& forma, Dinheiro devido, const QDate& hoje)
{
    QList<Parcela> r;
    if (forma.parcelas <= 0)
        return r;
    const QList<Dinheiro> valores = Dinheiro::divideEmParcelas(devido, forma.parcelas);
    QDate data = hoje;
    for (int i = 0; i < forma.parcelas; ++i) {
        data = forma.prazo == Prazo::QuinzeDias ? data.addDays(15) : data.addMonths(1);
        r << Parcela{valores.value(i), data};
    }
    return r;
}

}
