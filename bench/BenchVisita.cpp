#include "BenchVisita.h"

#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTextStream>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/OrdemVisita.h"
#include "ui/RegistroTelas.h"

namespace {

const qint64 TotalVisitas = 50000;

void fecha(const QString& tela)
{
    RegistroTelas::fechar(tela);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void preencheVisitas(Banco& b)
{
    if (b.escalar("SELECT COUNT(*) FROM VisitaTecnico").toLongLong() >= TotalVisitas)
        return;
    QTextStream(stderr) << "Preenchendo " << TotalVisitas << " visitas...\n";
    Transacao tr(b);
    b.executar(QStringLiteral(
        "INSERT INTO VisitaTecnico (CodManu, CodCliente, NomeCliente, EndTel, Solicitacao, DataSolicitada, "
        "HoraSolicitada, DataAtendida, Atendida, Tecnico, MaoObra, ValorVenda, ValorPagar, ValorPecas, TipoFormulario, "
        "Aguarda, Acaminho, Orcamento, Executado, OsAlterado, Excluidos) "
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "SELECT i, '' || (i % 20000 + 1), 'CLIENTE VISITA ' || i, 'RUA DA VISITA ' || i, 'NAO LIGA', '2026/01/01', "
        "'08:00', '', CASE WHEN i % 10 = 0 THEN 0 ELSE -1 END, 'BENCH', 5000, 3000, 8000, 1400, 'Visita', "
        "-1, 0, 0, 0, 'BENCH', 0 FROM n").arg(TotalVisitas));
    for (int i = 0; i < 2; ++i)
        b.executar(QStringLiteral(
            "INSERT INTO PecasAplicadas (CodOs, CodOsAut, CodManu, NomeCliente, TipoVisita, codpeca, Descricao, "
            "Quantidade, ValorVenda, ValorTotal, ValorCusto) SELECT CodManu, 0, CodManu, NomeCliente, 'VisitaTecnico', "
            "'VIS', 'PECA DE VISITA', 1000, 1500, 1500, 700 FROM VisitaTecnico"));
    tr.commit();
}

} // namespace

void medeVisitas(Banco& b, QList<Medida>& m)
{
    Sessao& s = sessao();
    s.DireitoOsTecLe = s.DireitoOsTecAl = 1;
    s.SenhaObrigatoria = 0;
    s.UsuarioNome = QStringLiteral("BENCH");
    preencheVisitas(b);
    QStringList codigos;
    for (int i = 0; i < 25; ++i)
        codigos << QString::number(1 + QRandomGenerator::global()->bounded(TotalVisitas));

    m << mede("Visita: abrir a tela OrdemVisita", 300, QStringList(5, QString()), [&](const QString&) {
        RegistroTelas::abrir(QStringLiteral("OrdemVisita"));
        QCoreApplication::processEvents();
        fecha(QStringLiteral("OrdemVisita"));
        return -1;
    });

    auto* tela = qobject_cast<OrdemVisita*>(RegistroTelas::abrir(QStringLiteral("OrdemVisita")));
    if (!tela)
        return;
    const auto cru = [&](const QString& cod) {
        QSqlQuery v = b.executar("SELECT * FROM VisitaTecnico WHERE CodManu = ?", {cod.toLongLong()});
        QSqlQuery p = b.executar("SELECT * FROM PecasAplicadas WHERE CodManu = ? AND TipoVisita = 'VisitaTecnico'",
                                 {cod.toLongLong()});
        int n = 0;
        while (p.next())
            ++n;
        return n;
    };
    m << mede(
        "Visita: carregar uma visita com suas peças na tela", 20, codigos,
        [&](const QString& cod) {
            tela->abreVisita({{QStringLiteral("CodManu"), cod.toLongLong()}});
            return tela->findChild<QObject*>(QStringLiteral("GridPecas")) ? 2 : 0;
        },
        cru);

    // Each run changes the request of a visit already shown and saves it with its parts.
    auto* pedido = tela->findChild<QPlainTextEdit*>(QStringLiteral("Solicitacao"));
    int vez = 0;
    m << mede(
        "Visita: gravar uma visita com 2 peças pela tela", 30, codigos.mid(0, 11),
        [&](const QString& cod) {
            tela->abreVisita({{QStringLiteral("CodManu"), cod.toLongLong()}});
            pedido->setPlainText(QStringLiteral("NAO LIGA %1").arg(++vez));
            tela->salvarOuExcluir();
            fecha(QStringLiteral("Gravado"));
            return -1;
        },
        [&](const QString& cod) {
            Transacao tr(b);
            b.executar("UPDATE VisitaTecnico SET Solicitacao = ? WHERE CodManu = ?",
                       {QStringLiteral("NAO LIGA %1").arg(++vez), cod.toLongLong()});
            b.executar("DELETE FROM PecasAplicadas WHERE CodManu = ? AND TipoVisita = 'VisitaTecnico'",
                       {cod.toLongLong()});
            for (int i = 0; i < 2; ++i)
                b.executar("INSERT INTO PecasAplicadas (CodOs, CodOsAut, CodManu, NomeCliente, TipoVisita, Descricao, "
                           "Quantidade, ValorVenda, ValorTotal, ValorCusto) VALUES (?, 0, ?, 'X', 'VisitaTecnico', "
                           "'PECA DE VISITA', 1000, 1500, 1500, 700)",
                           {cod.toLongLong(), cod.toLongLong()});
            tr.commit();
            return -1;
        });
    fecha(QStringLiteral("OrdemVisita"));
}
