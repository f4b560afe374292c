#include "BenchCaixa.h"

#include <QCoreApplication>
#include <QDate>
#include <QMetaObject>
#include <QWidget>

#include "cash/FormasPagamento.h"
#include "cash/RegistroPagamento.h"
#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "ui/RegistroTelas.h"

namespace {

const int PecasPorOrdem = 10;

// An approved order with ten parts, each of its own product, waiting for the till.
qint64 ordemComPecas(Banco& b, qint64 codOs)
{
    Transacao tr(b);
    const qint64 maoObra = 5000, venda = 1000;
    const qint64 chave = b.inserir(*Esquema::tabela("OrdemServico"),
                                   {"CodOs", "NomeCliente", "Tipo", "Aprovado", "Consertado", "MaoObra", "ValorVenda",
                                    "ValorPagar", "DataEntrada"},
                                   {codOs, QStringLiteral("CLIENTE DO CAIXA"), QStringLiteral("TV"), -1, -1, maoObra,
                                    venda * PecasPorOrdem, maoObra + venda * PecasPorOrdem, QStringLiteral("2026/11/01")});
    for (int i = 1; i <= PecasPorOrdem; ++i)
        b.inserir(*Esquema::tabela("PecasAplicadas"),
                  {"CodOsAut", "CodOs", "NomeCliente", "codpeca", "Descricao", "Quantidade", "ValorVenda", "ValorTotal"},
                  {chave, codOs, QStringLiteral("CLIENTE DO CAIXA"), QStringLiteral("CAIXA-%1").arg(i),
                   QStringLiteral("PECA %1").arg(i), 1000, venda, venda});
    tr.commit();
    return chave;
}

} // namespace

QList<Medida> medeCaixa(Banco& b)
{
    QList<Medida> m;
    Sessao& s = sessao();
    s.DireitoOsSaiLe = s.DireitoOsSaiAl = 1;
    s.UsuarioNome = QStringLiteral("BENCH");
    for (int i = 1; i <= PecasPorOrdem; ++i)
        if (!b.escalar("SELECT CodPecAut FROM Produto WHERE codpeca = ?", {QStringLiteral("CAIXA-%1").arg(i)}).isValid())
            b.inserir(*Esquema::tabela("Produto"), {"codpeca", "Descricao", "Quantidadeestoque"},
                      {QStringLiteral("CAIXA-%1").arg(i), QStringLiteral("PECA %1").arg(i), qint64(1000000000)});

    const qint64 base = b.escalar("SELECT MAX(CodOs) FROM OrdemServico").toLongLong() + 1;
    QStringList chaves;
    // Eleven openings, then an order for every timed save: each of the 19 texts is timed
    // RepeticoesPorTexto times, after one warm-up.
    const int gravacoes = 19;
    for (int i = 0; i < 11 + 1 + gravacoes * RepeticoesPorTexto; ++i)
        chaves << QString::number(ordemComPecas(b, base + i));

    m << mede("Caixa: abrir a tela RegistraValorSaida numa O.S", 50, chaves.mid(0, 11), [&](const QString& chave) {
        QWidget* w = RegistroTelas::abrir(QStringLiteral("RegistraValorSaida"));
        const QVariantMap dados{{QStringLiteral("CodOsAut"), chave.toLongLong()}};
        QMetaObject::invokeMethod(w, "abreOrdem", Q_ARG(QVariantMap, dados));
        QCoreApplication::processEvents();
        RegistroTelas::fechar(QStringLiteral("RegistraValorSaida"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return -1;
    });

    // Each save takes an order of its own (the first one warms up): an order is posted once.
    QStringList livres = chaves.mid(11);
    const FormasPagamento::Forma* quatro = FormasPagamento::porTexto(QStringLiteral("30/60/90/120 DIAS"));
    m << mede("Caixa: gravar com cliente novo, 4 parcelas, 10 peças (commit no disco)", 50, chaves.mid(12, gravacoes),
              [&](const QString&) {
                  PagamentoCaixa p;
                  p.codOsAut = livres.takeFirst().toLongLong();
                  p.valorPagarLido = p.total = Dinheiro::deCentavos(15000);
                  p.forma = quatro->texto;
                  p.parcelas = FormasPagamento::plano(*quatro, p.total, QDate::currentDate());
                  p.nomeCliente = QStringLiteral("CLIENTE DO CAIXA");
                  p.cpfCnpj = QStringLiteral("11144477735");
                  RegistroPagamento::gravar(b, p);
                  return -1;
              });
    return m;
}
