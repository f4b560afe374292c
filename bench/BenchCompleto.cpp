#include "BenchCompleto.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/CadCompleto.h"
#include "orders/GravacaoOrdem.h"
#include "orders/TransicoesOrdem.h"
#include "registers/BuscaClientes.h"
#include "ui/RegistroTelas.h"

namespace {

const QString Tela = QStringLiteral("CadCompleto");
const int PecasPorOrdem = 5;

void fecha()
{
    RegistroTelas::fechar(Tela);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// An order as the counter types it: a customer of the file, a service and five parts.
Ordem ordemNova(const QString& codCliente, const QString& nome)
{
    Ordem o;
    o.CodCliente = codCliente;
    o.NomeCliente = nome;
    o.Tipo = QStringLiteral("TV");
    ServicoOrdem s;
    s.CodServico = QStringLiteral("COMPLETO");
    s.Servico = QStringLiteral("CONSERTO");
    s.ValorObra = Dinheiro::deCentavos(5000);
    o.servicos << s;
    for (int i = 1; i <= PecasPorOrdem; ++i) {
        PecaAplicada p;
        p.codpeca = QStringLiteral("COMPLETO-%1").arg(i);
        p.Descricao = QStringLiteral("PECA %1").arg(i);
        p.ValorVenda = Dinheiro::deCentavos(1000);
        p.ValorCusto = Dinheiro::deCentavos(200);
        o.pecas << p;
    }
    return o;
}

} // namespace

void medeCompleto(Banco& b, QList<Medida>& m)
{
    Sessao& s = sessao();
    s.DireitoOsEntLe = s.DireitoOsEntAl = s.DireitoOsTecAl = s.DireitoAltOrca = s.DireitoAltOs = 1;
    s.UsuarioNome = QStringLiteral("BENCH");
    s.CfgAtivaSer = s.CfgAtivaDef = QStringLiteral("True");
    for (int i = 1; i <= PecasPorOrdem; ++i)
        if (!b.escalar("SELECT CodPecAut FROM Produto WHERE codpeca = ?", {QStringLiteral("COMPLETO-%1").arg(i)}).isValid())
            b.inserir(*Esquema::tabela("Produto"), {"codpeca", "Descricao", "Quantidadeestoque", "QuantidadeMinima"},
                      {QStringLiteral("COMPLETO-%1").arg(i), QStringLiteral("PECA %1").arg(i), qint64(1000000000), 0});

    const qint64 maxOs = b.escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
    QStringList chaves;
    for (int i = 0; i < 25; ++i)
        chaves << QString::number(1 + QRandomGenerator::global()->bounded(qMax<qint64>(1, maxOs)));

    m << mede("Completa: abrir a tela CadCompleto", 300, QStringList(5, QString()), [&](const QString&) {
        RegistroTelas::abrir(Tela);
        QCoreApplication::processEvents();
        fecha();
        return -1;
    });

    auto* tela = qobject_cast<CadCompleto*>(RegistroTelas::abrir(Tela));
    if (!tela)
        return;
    m << mede(
        "Completa: carregar uma O.S com listas e histórico", 50, chaves,
        [&](const QString& chave) { return tela->carregaOrdem(chave.toLongLong()) ? int(tela->ordem().pecas.size()) : 0; },
        [&](const QString& chave) {
            const qint64 k = chave.toLongLong();
            QSqlQuery o = b.executar("SELECT * FROM OrdemServico WHERE CodOsAut = ?", {k});
            o.next();
            const QString cliente = o.value(QStringLiteral("CodCliente")).toString();
            b.executar("SELECT * FROM SintomaOS WHERE CodOsAut = ?", {k});
            b.executar("SELECT * FROM ServicoOS WHERE CodOsAut = ?", {k});
            QSqlQuery p = b.executar("SELECT * FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = ''", {k});
            QSqlQuery h = b.executar("SELECT * FROM OrdemServico WHERE CodCliente = ? AND Excluidos = 0 "
                                     "ORDER BY CodOsAut",
                                     {cliente});
            while (h.next()) {
            }
            int n = 0;
            while (p.next())
                ++n;
            return n;
        });
    fecha();

    // Customers to type: the first letters of names drawn from the file.
    const qint64 maxCli = b.escalar("SELECT MAX(CodCliente) FROM Cliente").toLongLong();
    QStringList prefixos;
    QList<QPair<QString, QString>> clientes;
    for (int i = 0; i < 200 && prefixos.size() < 20; ++i) {
        const qint64 k = 1 + QRandomGenerator::global()->bounded(qMax<qint64>(1, maxCli));
        QSqlQuery q = b.executar("SELECT CodCliente, NomeCliente FROM Cliente WHERE CodCliente = ?", {k});
        if (!q.next())
            continue;
        const QString nome = q.value(1).toString();
        clientes << qMakePair(q.value(0).toString(), nome);
        if (nome.size() >= 3 && !prefixos.contains(nome.left(3)))
            prefixos << nome.left(3);
    }
    m << mede(
        "Completa: nomes oferecidos na caixa do cliente", 50, prefixos,
        [&](const QString& t) { return int(BuscaClientes::buscar(b, BuscaClientes::Opcao::Nome, t, 12).linhas.size()); },
        [&](const QString& t) {
            QSqlQuery q = b.executar("SELECT CodCliente, NomeCliente FROM Cliente WHERE NomeCliente >= ? AND "
                                     "NomeCliente < ? ORDER BY NomeCliente LIMIT 12",
                                     {t, t + QChar(0xFFFF)});
            int n = 0;
            while (q.next())
                ++n;
            return n;
        });

    // Every run saves a new order of its own, in one transaction as the screen does.
    if (clientes.isEmpty())
        clientes << qMakePair(QString(), QStringLiteral("CLIENTE DO BENCH"));
    int proximo = 0;
    m << mede("Completa: gravar uma O.S inteira (serviço, 5 peças, baixa)", 50, QStringList(11, QString()),
              [&](const QString&) {
                  const auto& c = clientes.at(proximo++ % clientes.size());
                  Ordem o = ordemNova(c.first, c.second);
                  Transacao tr(b);
                  TransicoesOrdem::salvarCompleto(b, o, Situacao::Consertado, {});
                  tr.commit();
                  return int(o.pecas.size());
              });
}
