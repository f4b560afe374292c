#include "BenchProduto.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTableView>
#include <QTextStream>

#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Texto.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "stock/KitProduto.h"
#include "stock/PesquisaProduto.h"
#include "stock/Produto.h"
#include "stock/ReajustePreco.h"
#include "ui/RegistroTelas.h"

namespace {

constexpr int Produtos = 50000;
const QString CodigoKit = QStringLiteral("KIT-BENCH");

const QStringList Pecas = {"CAPACITOR", "RESISTOR", "TRANSISTOR", "DIODO", "FLYBACK", "FUSIVEL", "CONTROLE REMOTO",
                           "PLACA FONTE", "TELA LCD", "CABO FLAT", "MOTOR", "CORREIA", "ROLAMENTO", "TERMOSTATO",
                           "COMPRESSOR", "BOTAO", "ALTO FALANTE", "CIRCUITO INTEGRADO", "LAMPADA", "TRAVA PORTA"};
const QStringList Marcas = {"SAMSUNG", "LG", "PHILCO", "SEMP", "BRASTEMP", "CONSUL", "ELECTROLUX", "SONY", "PANASONIC",
                            "MONDIAL", "ARNO", "BRITANIA"};
const QStringList Categorias = {"TV", "SOM", "REFRIGERACAO", "LAVADORA", "MICROONDAS", "FERRAGENS", "INFORMATICA"};

void preenche(Banco& b)
{
    QRandomGenerator r(5050);
    QTextStream(stderr) << "Preenchendo " << Produtos << " produtos...\n";
    Transacao tr(b);
    b.executar(QStringLiteral("DELETE FROM kitVenda"));
    b.executar(QStringLiteral("DELETE FROM Produto"));
    for (int i = 1; i <= Produtos; ++i) {
        const QString marca = Marcas[int(r.bounded(Marcas.size()))];
        const QString desc = QStringLiteral("%1 %2 %3").arg(Pecas[int(r.bounded(Pecas.size()))], marca).arg(r.bounded(1, 9999));
        const qint64 custo = r.bounded(50, 200000);
        b.executar(QStringLiteral("INSERT INTO Produto (codpeca, CodOriginal, Descricao, Equivalente, Fabricante, "
                                  "Categoria, PrecoCusto, PrecoVenda, PrecoMinimo, Quantidadeestoque, QuantidadeMinima, "
                                  "Unidade, Excluidos) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'UN', ?)"),
                   {i == Produtos ? CodigoKit : QString::number(i), QStringLiteral("OR-%1").arg(r.bounded(1, 999999)),
                    desc, QStringLiteral("EQ %1").arg(r.bounded(1, 99999)), marca,
                    Categorias[int(r.bounded(Categorias.size()))], custo, custo * 3 / 2, custo * 6 / 5,
                    qint64(r.bounded(0, 50)) * 1000, qint64(r.bounded(0, 5)) * 1000, i % 50 == 1 ? -1 : 0});
    }
    QList<ItemKit> itens;
    for (int i = 1; i <= 20; ++i) {
        ItemKit k;
        k.codpeca = QString::number(i * 7);
        k.descricao = QStringLiteral("ITEM %1").arg(i);
        k.valorVenda = Dinheiro::deCentavos(100 * i);
        itens << k;
    }
    KitProduto::gravar(b, QString(), CodigoKit, itens);
    tr.commit();
    b.executar(QStringLiteral("ANALYZE"));
}

// The search screen on a text, up to its grid showing the first 100 rows; the count of
// all the rows found follows the first page and has a line of its own.
int buscaNaTela(PesquisaProduto* tela, const QString& texto, bool aoDigitar)
{
    auto* caixa = tela->findChild<QLineEdit*>(QStringLiteral("Text1(2)"));
    caixa->setText(texto);
    if (aoDigitar)
        tela->buscaAoDigitar();
    else
        tela->pesquisa();
    auto* grade = tela->findChild<QTableView*>(QStringLiteral("Grade"));
    const int n = qMin(100, grade->model()->rowCount());
    for (int i = 0; i < n; ++i)
        grade->model()->index(i, 3).data();
    return n;
}

// The same rows by hand: the folded description holding the text, in the grid's order.
int primeirasCru(Banco& b, const QString& texto)
{
    QSqlQuery q = b.executar(QStringLiteral("SELECT Armazenado, codpeca, CodOriginal, Descricao, Equivalente, PrecoVenda, "
                                            "Revendedor, PrecoCusto, CodPecAut FROM Produto WHERE Descricao_b LIKE ? "
                                            "ESCAPE '\\' ORDER BY Descricao, CodPecAut LIMIT 100"),
                             {QStringLiteral("%") + Busca::escapaLike(Texto::dobra(texto), false) + QStringLiteral("%")});
    int n = 0;
    while (q.next())
        ++n;
    return n;
}

} // namespace

void medeProdutos(Banco& b, int nTextos, QList<Medida>& m)
{
    if (b.escalar(QStringLiteral("SELECT COUNT(*) FROM Produto")).toInt() < Produtos)
        preenche(b);
    QStringList longos, curtos;
    {
        QRandomGenerator r(77);
        QSqlQuery q = b.executar(QStringLiteral("SELECT Descricao FROM Produto WHERE CodPecAut % 997 = 3"));
        QStringList descricoes;
        while (q.next())
            descricoes << q.value(0).toString();
        for (int i = 0; longos.size() < nTextos && i < nTextos * 10 && !descricoes.isEmpty(); ++i) {
            const QString d = descricoes[int(r.bounded(descricoes.size()))];
            const QString t = d.mid(int(r.bounded(qMax(1, int(d.size()) - 5))), 3 + int(r.bounded(3)));
            if (t.trimmed().size() >= 3 && !longos.contains(t))
                longos << t;
        }
        for (const QString& t : std::as_const(longos))
            if (curtos.size() < nTextos && !curtos.contains(t.left(2).trimmed()) && !t.left(2).trimmed().isEmpty())
                curtos << t.left(2).trimmed();
    }
    sessao().DireitoProdutoAl = 1;
    sessao().DireitoProdutoLe = 1;
    sessao().UsuarioNome = QStringLiteral("BENCH");

    auto* pesquisa = qobject_cast<PesquisaProduto*>(RegistroTelas::abrir(QStringLiteral("PesquisaProduto")));
    const Operacao cru = [&](const QString& t) { return primeirasCru(b, t); };
    m << mede("Produto: pesquisa por descrição (Enter), 3+ letras, 1ª página", 20, longos,
              [&](const QString& t) { return buscaNaTela(pesquisa, t, false); }, cru);
    m << mede("Produto: pesquisa por descrição (Enter), 1–2 letras, 1ª página", 50, curtos,
              [&](const QString& t) { return buscaNaTela(pesquisa, t, false); }, cru);
    m << mede("Produto: pesquisa ao digitar, 3+ letras, 1ª página", 20, longos,
              [&](const QString& t) { return buscaNaTela(pesquisa, t, true); }, cru);
    // The number in the caption, counted once the first page is on the screen.
    m << mede("Produto: contagem depois da 1ª página, 1–2 letras", 200, curtos,
              [&](const QString& t) {
                  buscaNaTela(pesquisa, t, false);
                  return pesquisa->encontrados();
              },
              [&](const QString& t) {
                  primeirasCru(b, t);
                  return b.escalar(QStringLiteral("SELECT COUNT(*) FROM Produto WHERE Descricao_b LIKE ? ESCAPE '\\'"),
                                   {QStringLiteral("%") + Busca::escapaLike(Texto::dobra(t), false) + QStringLiteral("%")}).toInt();
              });
    RegistroTelas::fechar(QStringLiteral("PesquisaProduto"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    m << mede("Produto: abrir a tela Produto", 300, QStringList(5, QString()), [&](const QString&) {
        RegistroTelas::abrir(QStringLiteral("Produto"));
        QCoreApplication::processEvents();
        RegistroTelas::fechar(QStringLiteral("Produto"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return -1;
    });
    const qint64 kit = b.escalar(QStringLiteral("SELECT CodPecAut FROM Produto WHERE codpeca = ?"), {CodigoKit}).toLongLong();
    const qint64 outro = b.escalar(QStringLiteral("SELECT CodPecAut FROM Produto WHERE codpeca = '1'")).toLongLong();
    auto* tela = qobject_cast<Produto*>(RegistroTelas::abrir(QStringLiteral("Produto")));
    int vez = 0;
    m << mede("Produto: mostrar um kit de 20 itens", 20, QStringList(nTextos, QString()), [&](const QString&) {
        tela->mostraProduto(vez++ % 2 ? outro : kit);
        return int(tela->itensKit().size());
    });
    tela->mostraProduto(kit);
    auto* obs = tela->findChild<QLineEdit*>(QStringLiteral("Text1(13)"));
    m << mede("Produto: gravar um kit de 20 itens (commit no disco)", 20, QStringList(nTextos, QString()),
              [&](const QString&) {
                  obs->setText(QString::number(vez++));
                  emit obs->textEdited(obs->text());
                  tela->salvarOuExcluir();
                  return int(tela->itensKit().size());
              });
    RegistroTelas::fecharTodas();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    const ReajustePreco::Ajuste ajuste{ReajustePreco::Coluna::Venda, true, 100};
    m << mede("Reajuste: prévia de todos os produtos", 1000, QStringList(3, QString()), [&](const QString&) {
        return int(ReajustePreco::previa(b, {}, ajuste).size());
    });
    m << mede("Reajuste: aplicar em todos os produtos (com a prévia)", 2000, QStringList(3, QString()),
              [&](const QString&) {
                  const auto previa = ReajustePreco::previa(b, {}, ajuste);
                  ReajustePreco::aplicar(b, {}, ajuste, previa);
                  return int(previa.size());
              });
}
