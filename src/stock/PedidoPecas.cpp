#include "stock/PedidoPecas.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSqlQuery>
#include <QUrl>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Transacao.h"
#include "documents/DocumentoModelo.h"
#include "documents/ImprimeWord.h"
#include "documents/Impressora.h"

namespace PedidoPecas {

Condicao todos() { return {}; }

Condicao doFornecedor(const QString& fornecedor)
{
    return {QStringLiteral("Fornecedor LIKE ? ESCAPE '\\'"),
            {QStringLiteral("%") + Busca::escapaLike(fornecedor, false) + QStringLiteral("%")}};
}

qint64 incluir(Banco& banco, const Item& item, const QString& usuario)
{
    // The store keeps an empty text, never a missing one.
    auto t = [](const QString& s) { return s.isNull() ? QStringLiteral("") : s; };
    return banco.inserir(*Esquema::tabela(QStringLiteral("PedidoPeca")),
                         {QStringLiteral("CodVenda"), QStringLiteral("Descricao"), QStringLiteral("Quantidade"),
                          QStringLiteral("DataPedido"), QStringLiteral("Solicitado"), QStringLiteral("Fornecedor")},
                         {t(item.CodVenda), t(item.Descricao), t(item.Quantidade), Datas::hoje(), t(usuario),
                          t(item.Fornecedor)});
}

int revisarEstoque(Banco& banco, const QString& usuario)
{
    Transacao tr(banco);
    QSqlQuery q = banco.executar(
        QStringLiteral("INSERT INTO PedidoPeca (Descricao, Quantidade, DataPedido, Solicitado) "
                       "SELECT Descricao, '1', ?, ? FROM Produto WHERE Excluidos = 0 "
                       "AND COALESCE(Quantidadeestoque, 0) < COALESCE(QuantidadeMinima, 0) ORDER BY Descricao"),
        {Datas::hoje(), usuario});
    const int n = q.numRowsAffected();
    tr.commit();
    return n;
}

bool excluir(Banco& banco, qint64 codPedido)
{
    return banco.executar(QStringLiteral("DELETE FROM PedidoPeca WHERE CodPedido = ?"), {codPedido})
               .numRowsAffected() > 0;
}

QList<Item> itens(Banco& banco, const Condicao& onde)
{
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT CodPedido, CodVenda, Descricao, Quantidade, DataPedido, Solicitado, Fornecedor "
                       "FROM PedidoPeca%1 ORDER BY CodPedido")
            .arg(onde.sql.isEmpty() ? QString() : QStringLiteral(" WHERE ") + onde.sql),
        onde.valores);
    QList<Item> r;
    while (q.next())
        r << Item{q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString(), q.value(3).toString(),
                  q.value(4).toString(), q.value(5).toString(), q.value(6).toString()};
    return r;
}

QString emailFornecedor(Banco& banco, qint64 codFornecedor)
{
    if (codFornecedor <= 0)
        return {};
    return banco.escalar(QStringLiteral("SELECT EmailVendas FROM Fornecedor WHERE CodFornecedor = ? "
                                        "ORDER BY Chave LIMIT 1"), {codFornecedor}).toString().trimmed();
}

namespace {

QString preenche(const QString& texto, int largura)
{
    return texto.size() >= largura ? texto : texto + QString(largura - texto.size(), QLatin1Char('_'));
}

} // namespace

QString corpoEmail(const QList<Item>& itens)
{
    QString corpo;
    for (const Item& i : itens) {
        corpo += QStringLiteral("Cód:") + preenche(i.CodVenda, 13) + QStringLiteral("Quantidade:_")
            + preenche(i.Quantidade, 13) + QStringLiteral("Produto:_") + preenche(i.Descricao, 40)
            + QString(10, QLatin1Char('_')) + QLatin1Char('\n') + QString(140, QLatin1Char('*')) + QLatin1Char('\n');
    }
    return corpo;
}

QString linkEmail(const QString& para, const QString& corpo)
{
    QString crlf = corpo;
    crlf.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return QStringLiteral("mailto:") + QString::fromLatin1(QUrl::toPercentEncoding(para, "@"))
        + QStringLiteral("?subject=") + QString::fromLatin1(QUrl::toPercentEncoding(AssuntoEmail))
        + QStringLiteral("&body=") + QString::fromLatin1(QUrl::toPercentEncoding(crlf));
}

QByteArray rascunhoEml(const QString& para, const QString& corpo)
{
    QString crlf = corpo;
    crlf.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    QByteArray eml;
    // The address is the supplier's own text: no line break may start a header of its own.
    QString destino = para;
    destino.remove(QLatin1Char('\r')).remove(QLatin1Char('\n'));
    eml += "To: " + destino.toUtf8() + "\r\n";
    eml += "Subject: " + AssuntoEmail.toUtf8() + "\r\n";
    eml += "X-Unsent: 1\r\nMIME-Version: 1.0\r\nContent-Type: text/plain; charset=UTF-8\r\n"
           "Content-Transfer-Encoding: 8bit\r\n\r\n";
    eml += crlf.toUtf8();
    return eml;
}

QString nomeDocumento(const QDate& dia)
{
    return QStringLiteral("Pedido %1").arg(dia.toString(QStringLiteral("dd_MM_yyyy")));
}

QString modeloWord()
{
    for (const QString& nome : {QStringLiteral("pedido.docx"), QStringLiteral("pedido.odt")}) {
        const QString proprio = QDir(ImprimeWord::pastaDocumentos()).filePath(nome);
        if (QFileInfo::exists(proprio))
            return proprio;
    }
    const QString nosso = ImprimeWord::modeloPadrao(QStringLiteral("pedido.docx"));
    return nosso;
}

bool gerarWord(Banco& banco, const QList<Item>& itens, const QString& modelo, const QString& destino, QString* erro)
{
    DocumentoModelo doc;
    if (!doc.abrir(modelo, erro))
        return false;
    if (!doc.temTabela()) {
        if (erro)
            *erro = QStringLiteral("O modelo \"%1\" não tem uma tabela para a lista de peças.\n"
                                   "Coloque no modelo uma tabela de três colunas (código, quantidade, descrição).")
                        .arg(QDir::toNativeSeparators(modelo));
        return false;
    }
    for (const auto& [marca, valor] : ImprimeWord::marcasEmpresa(banco))
        doc.trocar(marca, valor);
    doc.trocar(QStringLiteral("@DATALONGAAGORA"),
               QLocale(QLocale::Portuguese, QLocale::Brazil).toString(QDate::currentDate(), QStringLiteral("dd MMMM yyyy")));
    for (const Item& i : itens)
        doc.preencherLinhaTabela({i.CodVenda, i.Quantidade, i.Descricao});
    return doc.salvar(destino, erro);
}

void imprimir(Banco& banco, Impressora& p)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Descricao, Quantidade, Solicitado FROM PedidoPeca "
                                                "ORDER BY CodPedido"));
    auto cabecaDePagina = [&p] {
        p.setFontSize(10);
        p.setCurrentX(0);
        p.print(QStringLiteral("Página: %1").arg(p.pagina()));
        p.print();
        p.print();
        p.setFontSize(8);
    };
    auto colunas = [&p](const QString& a, const QString& b, const QString& c) {
        const int y = p.currentY();
        p.setCurrentX(200);
        p.printLinha(a);
        p.setCurrentY(y);
        p.setCurrentX((p.width() - p.textWidth(b)) / 2);
        p.printLinha(b);
        p.setCurrentY(y);
        p.setCurrentX(p.width() - p.textWidth(c) - 200);
        p.printLinha(c);
        p.setCurrentY(y + p.alturaLinha());
    };
    auto regua = [&p] {
        p.line(0, p.currentY(), p.width(), p.currentY());
        p.setCurrentY(p.currentY() + 30);
    };
    cabecaDePagina();
    colunas(QStringLiteral("Descrição"), QStringLiteral("Quantidade"), QStringLiteral("Solicitado por:"));
    regua();
    const int limite = p.limiteInferior() - p.alturaLinha();
    while (q.next()) {
        if (p.currentY() >= limite) {
            p.newPage();
            cabecaDePagina();
        }
        if (q.value(0).toString().isEmpty() || q.value(1).toString().isEmpty() || q.value(2).toString().isEmpty()) {
            const int y = p.currentY();
            p.setCurrentX(0);
            p.printLinha(QStringLiteral("***"));
            p.setCurrentY(y + p.alturaLinha());
        } else {
            colunas(q.value(0).toString(), q.value(1).toString(), q.value(2).toString());
        }
        regua();
    }
    p.endDoc();
}

}
