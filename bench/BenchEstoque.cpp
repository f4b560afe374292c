#include "BenchEstoque.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "stock/Estoque.h"
#include "stock/ListaEstoque.h"
#include "stock/PedidoMaterial.h"
#include "stock/RelatorioEstoque.h"
#include "ui/RegistroTelas.h"

namespace {

constexpr int Produtos = 50000;
constexpr int Pedidos = 100000;

const QStringList Itens = {"TRANSISTOR", "CAPACITOR", "RESISTOR", "FLYBACK", "FUSIVEL", "DIODO", "CABO",
                           "CONTROLE", "PLACA", "MOTOR", "CORREIA", "LAMPADA", "ALTO FALANTE", "CHAVE"};
const QStringList Marcas = {"PHILIPS", "SONY", "SAMSUNG", "LG", "EPCOS", "D'ÁVILA PEÇAS", "ELGIN"};

void preencher(Banco& b)
{
    QRandomGenerator r(5202);
    QTextStream err(stderr);
    if (b.escalar("SELECT COUNT(*) FROM Produto").toInt() < Produtos) {
        err << "Preenchendo " << Produtos << " produtos...\n";
        Transacao tr(b);
        b.executar("DELETE FROM Produto");
        QSqlQuery q(b.db());
        q.prepare("INSERT INTO Produto (codpeca, Descricao, Fabricante, Modulo, Revendedor, NotaFiscal, Equivalente, "
                  "Quantidadeestoque, QuantidadeMinima, PrecoCusto, PrecoVenda, PrecoMinimo, Excluidos) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (int i = 0; i < Produtos; ++i) {
            const int custo = 50 + int(r.bounded(50000));
            const QVariantList v = {QStringLiteral("%1").arg(i + 1, 7, 10, QLatin1Char('0')),
                                    QStringLiteral("%1 %2 %3").arg(Itens.at(r.bounded(Itens.size()))).arg(r.bounded(1000)).arg(i),
                                    Marcas.at(r.bounded(Marcas.size())), QStringLiteral("MOD-%1").arg(r.bounded(300)),
                                    QStringLiteral("FORNECEDOR %1").arg(r.bounded(40)), QString::number(r.bounded(90000)),
                                    QStringLiteral("EQ%1").arg(r.bounded(5000)), qint64(r.bounded(20)) * 1000 - 2000,
                                    qint64(r.bounded(6)) * 1000, custo, custo * 2, custo * 3 / 2,
                                    r.bounded(50) == 0 ? -1 : 0};
            for (int k = 0; k < v.size(); ++k)
                q.bindValue(k, v.at(k));
            if (!q.exec())
                throw ErroBanco("Carga", q.lastError().text());
        }
        tr.commit();
    }
    if (b.escalar("SELECT COUNT(*) FROM PedidoPeca").toInt() < Pedidos) {
        err << "Preenchendo " << Pedidos << " itens de pedido...\n";
        Transacao tr(b);
        b.executar("DELETE FROM PedidoPeca");
        QSqlQuery q(b.db());
        q.prepare("INSERT INTO PedidoPeca (CodVenda, Descricao, Quantidade, DataPedido, Solicitado, Fornecedor) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
        for (int i = 0; i < Pedidos; ++i) {
            const QVariantList v = {QString::number(r.bounded(Produtos)), Itens.at(r.bounded(Itens.size())),
                                    QString::number(1 + r.bounded(5)), "2026/11/20", "ESTOQUE",
                                    QStringLiteral("FORNECEDOR %1").arg(r.bounded(40))};
            for (int k = 0; k < v.size(); ++k)
                q.bindValue(k, v.at(k));
            if (!q.exec())
                throw ErroBanco("Carga", q.lastError().text());
        }
        tr.commit();
    }
}

} // namespace

void medeEstoque(Banco& b, QList<Medida>& m, int textos)
{
    preencher(b);
    sessao().DireitoProdutoAl = 1;
    sessao().DireitoPedidoLe = sessao().DireitoPedidoAl = 1;

    auto* tela = qobject_cast<Estoque*>(RegistroTelas::abrir(QStringLiteral("Estoque")));
    if (!tela)
        return;
    m << mede("Estoque: mostrar todos com a contagem (50.000 produtos)", 100, QStringList(textos, QString()),
              [&](const QString&) {
                  tela->mostraTodos();
                  return int(tela->encontrados());
              });
    QStringList prefixos;
    for (int i = 0; i < textos; ++i)
        prefixos << Itens.at(i % Itens.size()).left(3 + i % 4);
    auto* campo = tela->findChild<QComboBox*>(QStringLiteral("CBusca"));
    auto* texto = tela->findChild<QLineEdit*>(QStringLiteral("TxtBusca"));
    campo->setCurrentIndex(1);
    // A search shows its first page; the number in the caption follows it.
    auto* grade = tela->findChild<QTableView*>(QStringLiteral("Grade"));
    auto primeiraPagina = [grade] {
        const int n = qMin(100, grade->model()->rowCount());
        for (int i = 0; i < n; ++i)
            grade->model()->index(i, 1).data();
        return n;
    };
    m << mede("Estoque: buscar por descrição, 1ª página", 20, prefixos, [&](const QString& t) {
        texto->setText(t);
        tela->busca();
        return primeiraPagina();
    });
    m << mede("Estoque: buscar por descrição, contagem depois da 1ª página", 100, prefixos, [&](const QString& t) {
        texto->setText(t);
        tela->busca();
        return int(tela->encontrados());
    });
    QStringList codigos;
    for (int i = 0; i < textos; ++i)
        codigos << QStringLiteral("%1").arg(1 + (i * 1973) % Produtos, 7, 10, QLatin1Char('0')).left(5);
    campo->setCurrentIndex(0);
    m << mede("Estoque: buscar por código, 1ª página", 20, codigos, [&](const QString& t) {
        texto->setText(t);
        tela->busca();
        return primeiraPagina();
    });
    m << mede("Estoque: filtro de estoque mínimo sobre todos", 200, QStringList(textos, QString()), [&](const QString&) {
        tela->mostraTodos();
        tela->filtra(Estoque::Filtro::AteMinimo);
        return int(tela->encontrados());
    });
    QTemporaryDir pasta;
    const RelatorioEstoque::Lista todos{ListaEstoque::todos(), ListaEstoque::OrdemTodos, false};
    int n = 0;
    m << mede("Estoque: exportar todos para .xlsx", 5000, QStringList(3, QString()), [&](const QString&) {
        QString erro;
        RelatorioEstoque::exportar(b, todos, pasta.filePath(QStringLiteral("Estoque %1.xlsx").arg(++n)), {}, &erro);
        return int(b.escalar("SELECT COUNT(*) FROM Produto WHERE Excluidos = 0").toInt());
    });
    RegistroTelas::fechar(QStringLiteral("Estoque"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    m << mede("PedidoMaterial: abrir sobre 100.000 itens", 300, QStringList(qMin(textos, 10), QString()),
              [&](const QString&) {
                  auto* pedido = qobject_cast<PedidoMaterial*>(RegistroTelas::abrir(QStringLiteral("PedidoMaterial")));
                  QApplication::processEvents();
                  const int linhas = pedido ? int(pedido->linhas()) : -1;
                  RegistroTelas::fechar(QStringLiteral("PedidoMaterial"));
                  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                  return linhas;
              });
}
