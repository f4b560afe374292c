#include "BenchEntrega.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include "cash/Cheques.h"
#include "data/Banco.h"
#include "data/Sessao.h"
#include "orders/OrdemServicoSaida.h"
#include "ui/RegistroTelas.h"

namespace {
void fecha(const QString& tela)
{
    RegistroTelas::fechar(tela);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
} // namespace

void medeEntrega(Banco& banco, QList<Medida>& m)
{
    Sessao& s = sessao();
    s.DireitoOsSaiLe = s.DireitoOsSaiAl = 1;
    s.DireitochequeAl = 1;
    const qint64 maxOs = banco.escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
    QStringList chaves;
    for (int i = 0; i < 25; ++i)
        chaves << QString::number(1 + QRandomGenerator::global()->bounded(qMax<qint64>(1, maxOs)));

    m << mede("Entrega: abrir a tela OrdemServicoSaida", 300, QStringList(5, QString()), [&](const QString&) {
        RegistroTelas::abrir(QStringLiteral("OrdemServicoSaida"));
        QCoreApplication::processEvents();
        fecha(QStringLiteral("OrdemServicoSaida"));
        return -1;
    });

    auto* saida = qobject_cast<OrdemServicoSaida*>(RegistroTelas::abrir(QStringLiteral("OrdemServicoSaida")));
    if (!saida)
        return;
    m << mede("Entrega: carregar uma O.S na tela", 20, chaves, [&](const QString& chave) {
        return saida->carregaOrdem(chave.toLongLong()) ? 1 : 0;
    });
    m << mede("Entrega: abrir ListaPecas", 50, QStringList(5, QString()), [&](const QString&) {
        saida->pecasAplicadas();
        QCoreApplication::processEvents();
        fecha(QStringLiteral("ListaPecas"));
        return -1;
    });
    fecha(QStringLiteral("OrdemServicoSaida"));

    int numero = 0;
    m << mede("Cheque: gravar um cadastro de 3 cheques", 20, QStringList(25, QString()), [&](const QString&) {
        RegistroCheque r;
        r.CodCliente = QStringLiteral("5");
        r.NomeCliente = QStringLiteral("JOANA D'ARC");
        r.CPFCNPJCliente = r.CpfCnpjTitular = QStringLiteral("11144477735");
        r.NomeBanco = QStringLiteral("ITAU");
        r.TitularConta = r.NomeCliente;
        r.TipoPagamento = QStringLiteral("CHEQUE-PRÉ 30/60/90");
        r.ValorTotal = Dinheiro::deCentavos(15075);
        r.DataCompra = QStringLiteral("2025/01/31");
        const auto plano = Cheques::plano(r.TipoPagamento, r.ValorTotal, QDate(2025, 1, 31));
        for (const auto& p : *plano)
            r.cheques << ChequeLinha{0, QString::number(++numero), *p.valor, p.vencimento->toString("yyyy/MM/dd")};
        Cheques::gravar(banco, r);
        return -1;
    });
}
