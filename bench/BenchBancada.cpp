#include "BenchBancada.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTextStream>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/GravacaoOrdem.h"
#include "orders/OrdemServicoTecnico.h"
#include "orders/TransicoesOrdem.h"
#include "ui/RegistroTelas.h"

namespace {

const int PecasPorOrdem = 10;

void fecha(const QString& tela)
{
    RegistroTelas::fechar(tela);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// One part row for every order and a second for every other one, filled inside the engine.
void preenchePecas(Banco& b)
{
    const qint64 ordens = b.escalar("SELECT COUNT(*) FROM OrdemServico").toLongLong();
    const qint64 pecas = b.escalar("SELECT COUNT(*) FROM PecasAplicadas").toLongLong();
    if (pecas >= ordens + ordens / 2)
        return;
    QTextStream(stderr) << "Preenchendo " << (ordens + ordens / 2) << " peças aplicadas...\n";
    Transacao tr(b);
    const QString insere = QStringLiteral(
        "INSERT INTO PecasAplicadas (CodOs, CodOsAut, NomeCliente, TipoVisita, codpeca, Descricao, Quantidade, "
        "ValorVenda, ValorTotal, ValorCusto) SELECT CodOs, CodOsAut, NomeCliente, '', 'BANC-%1', 'PECA DE BANCADA', "
        "1000, 1500, 1500, 700 FROM OrdemServico%2");
    b.executar(insere.arg(QStringLiteral("1"), QString()));
    b.executar(insere.arg(QStringLiteral("2"), QStringLiteral(" WHERE CodOsAut % 2 = 0")));
    tr.commit();
}

// A budgeted order with ten parts from stock, none taken yet.
qint64 ordemOrcada(Banco& b, qint64 codOs)
{
    Transacao tr(b);
    const qint64 chave = b.inserir(*Esquema::tabela("OrdemServico"),
                                   {"CodOs", "NomeCliente", "Tipo", "Orcamento", "DataEntrada"},
                                   {codOs, QStringLiteral("CLIENTE DA BANCADA"), QStringLiteral("TV"), -1,
                                    QStringLiteral("2026/11/01")});
    for (int i = 1; i <= PecasPorOrdem; ++i)
        b.inserir(*Esquema::tabela("PecasAplicadas"),
                  {"CodOsAut", "CodOs", "NomeCliente", "codpeca", "Descricao", "Quantidade", "ValorVenda", "ValorTotal"},
                  {chave, codOs, QStringLiteral("CLIENTE DA BANCADA"), QStringLiteral("BANCADA-%1").arg(i),
                   QStringLiteral("PECA %1").arg(i), 1000, 1000, 1000});
    tr.commit();
    return chave;
}

} // namespace

void medeBancada(Banco& b, QList<Medida>& m)
{
    Sessao& s = sessao();
    s.DireitoOsTecLe = s.DireitoOsTecAl = s.DireitoAltOrca = s.DireitoAltOs = 1;
    s.UsuarioNome = QStringLiteral("BENCH");
    s.CfgAtivaSer = s.CfgAtivaDef = QStringLiteral("True");
    preenchePecas(b);
    for (int i = 1; i <= PecasPorOrdem; ++i)
        if (!b.escalar("SELECT CodPecAut FROM Produto WHERE codpeca = ?", {QStringLiteral("BANCADA-%1").arg(i)}).isValid())
            b.inserir(*Esquema::tabela("Produto"), {"codpeca", "Descricao", "Quantidadeestoque", "QuantidadeMinima"},
                      {QStringLiteral("BANCADA-%1").arg(i), QStringLiteral("PECA %1").arg(i), qint64(1000000000), 0});

    const qint64 maxOs = b.escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
    QStringList chaves;
    for (int i = 0; i < 25; ++i)
        chaves << QString::number(1 + QRandomGenerator::global()->bounded(qMax<qint64>(1, maxOs)));

    m << mede("Bancada: abrir a tela OrdemServicoTecnico", 300, QStringList(5, QString()), [&](const QString&) {
        RegistroTelas::abrir(QStringLiteral("OrdemServicoTecnico"));
        QCoreApplication::processEvents();
        fecha(QStringLiteral("OrdemServicoTecnico"));
        return -1;
    });

    auto* bancada = qobject_cast<OrdemServicoTecnico*>(RegistroTelas::abrir(QStringLiteral("OrdemServicoTecnico")));
    if (!bancada)
        return;
    m << mede(
        "Bancada: carregar uma O.S com suas peças na tela", 50, chaves,
        [&](const QString& chave) {
            return bancada->carregaOrdem(chave.toLongLong()) ? int(bancada->ordem().pecas.size()) : 0;
        },
        [&](const QString& chave) {
            QSqlQuery o = b.executar("SELECT * FROM OrdemServico WHERE CodOsAut = ?", {chave.toLongLong()});
            QSqlQuery p = b.executar("SELECT * FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = ''",
                                     {chave.toLongLong()});
            int n = 0;
            while (p.next())
                ++n;
            return n;
        });
    fecha(QStringLiteral("OrdemServicoTecnico"));

    // Every run saves an order of its own, so that each one takes its ten parts.
    const int textos = 11;
    const qint64 base = b.escalar("SELECT MAX(CodOs) FROM OrdemServico").toLongLong() + 1;
    QList<Ordem> prontas;
    for (int i = 0; i < textos * RepeticoesPorTexto + 1; ++i)
        prontas << *GravacaoOrdem::carregar(b, ordemOrcada(b, base + i));
    m << mede("Bancada: gravar \"Consertado.\" com 10 peças (baixa no estoque)", 50, QStringList(textos, QString()),
              [&](const QString&) {
                  Ordem o = prontas.takeFirst();
                  TransicoesOrdem::salvarBancada(b, o, Situacao::Consertado);
                  return int(o.pecas.size());
              });
}
