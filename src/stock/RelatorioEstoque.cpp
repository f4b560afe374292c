#include "stock/RelatorioEstoque.h"

#include "data/PaginasBusca.h"
#include "documents/Impressora.h"
#include "documents/PlanilhaXlsx.h"
#include "stock/ListaEstoque.h"

namespace RelatorioEstoque {

namespace {

// Rows read at a time: few round trips to a server, little memory.
constexpr int Bloco = 5000;

QStringList nomesColunas()
{
    QStringList n;
    for (const ListaEstoque::Coluna& c : ListaEstoque::colunas())
        n << c.coluna;
    return n;
}

} // namespace

QString nomeProposto(const QDate& dia)
{
    return QStringLiteral("Estoque %1.xlsx").arg(dia.toString(QStringLiteral("dd-MM-yyyy")));
}

Resultado exportar(Banco& banco, const Lista& lista, const QString& arquivo, const Progresso& progresso,
                   QString* erro)
{
    PaginasBusca paginas(banco, QStringLiteral("Produto"), lista.onde, lista.ordem, nomesColunas());
    const qint64 total = paginas.contar();

    PlanilhaXlsx planilha;
    if (!planilha.abrir(arquivo, QStringLiteral("Estoque"), erro))
        return Resultado::Falhou;
    const QList<ListaEstoque::Coluna>& colunas = ListaEstoque::colunas();
    PlanilhaXlsx::Estilo titulo;
    titulo.negrito = true;
    titulo.borda = false;
    planilha.texto(0, 0, ListaEstoque::titulo(total), titulo);
    PlanilhaXlsx::Estilo cabecalho;
    cabecalho.negrito = true;
    for (int c = 0; c < colunas.size(); ++c) {
        planilha.texto(1, c, colunas.at(c).titulo, cabecalho);
        planilha.largura(c, qMax(6.0, colunas.at(c).largura / 7.0));
    }
    PlanilhaXlsx::Estilo celula;
    if (lista.pintada)
        celula.fundo = ListaEstoque::CorNivel;

    int linha = 2;
    qint64 feitas = 0;
    while (!paginas.fim()) {
        const QList<QVariantList> bloco = paginas.proximas(Bloco);
        for (const QVariantList& valores : bloco) {
            for (int c = 0; c < colunas.size(); ++c) {
                const ListaEstoque::Coluna& col = colunas.at(c);
                const QVariant v = valores.value(c);
                if (col.tipo == ListaEstoque::Tipo::Quantidade && !v.isNull())
                    planilha.numero(linha, c, v.toLongLong() / 1000.0, celula);
                else if (col.tipo == ListaEstoque::Tipo::Dinheiro)
                    planilha.numero(linha, c, v.toLongLong() / 100.0, celula);
                else
                    planilha.texto(linha, c, ListaEstoque::textoCelula(col, v), celula);
            }
            ++linha;
        }
        feitas += bloco.size();
        if (progresso && !progresso(feitas, total)) {
            planilha.descartar();
            return Resultado::Cancelado;
        }
    }
    planilha.congelar(2, 0);
    planilha.filtro(1, 0, qMax(1, linha - 1), int(colunas.size()) - 1);
    return planilha.concluir(erro) ? Resultado::Gravado : Resultado::Falhou;
}

namespace {

// The columns that fit a landscape page, with their X in twips.
struct ColunaImpressa {
    int indice;
    int x;
    bool direita;  // numbers are aligned on their right edge
};

QList<ColunaImpressa> colunasImpressas(const Impressora& p)
{
    const QList<QPair<QString, int>> escolhidas = {
        {"codpeca", 200},          {"Descricao", 1500},         {"Unidade", 5700},
        {"Fabricante", 6200},      {"Quantidadeestoque", 9000}, {"QuantidadeMinima", 10300},
        {"PrecoCusto", 11600},     {"PrecoVenda", 12800},       {"PrecoMinimo", 14200},
        {"ArmazenadoEstoque", 14450},
    };
    QList<ColunaImpressa> r;
    for (const auto& [coluna, x] : escolhidas) {
        const int i = ListaEstoque::indiceColuna(coluna);
        const ListaEstoque::Tipo t = ListaEstoque::colunas().at(i).tipo;
        if (x < p.width())
            r << ColunaImpressa{i, x, t != ListaEstoque::Tipo::Texto};
    }
    return r;
}

void linha(Impressora& p, const QList<ColunaImpressa>& colunas, const QStringList& textos, int larguraDescricao)
{
    const int y = p.currentY();
    for (int i = 0; i < colunas.size(); ++i) {
        const QString t = colunas.at(i).indice == ListaEstoque::indiceColuna(QStringLiteral("Descricao"))
                              ? p.cortado(textos.value(i), larguraDescricao)
                              : textos.value(i);
        p.setCurrentY(y);
        p.setCurrentX(colunas.at(i).direita ? colunas.at(i).x - p.textWidth(t) : colunas.at(i).x);
        p.printLinha(t);
    }
    p.setCurrentX(0);
    p.setCurrentY(y + p.alturaLinha());
}

} // namespace

void imprimir(Banco& banco, const Lista& lista, Impressora& p)
{
    PaginasBusca paginas(banco, QStringLiteral("Produto"), lista.onde, lista.ordem, nomesColunas());
    const QList<ColunaImpressa> colunas = colunasImpressas(p);
    const int larguraDescricao = 5700 - 1500 - 100;
    QStringList titulos;
    for (const ColunaImpressa& c : colunas)
        titulos << ListaEstoque::colunas().at(c.indice).titulo;

    auto cabecalho = [&] {
        p.setFontSize(10);
        p.setFontBold(false);
        p.setCurrentX(200);
        p.print(QStringLiteral("Página: %1").arg(p.pagina()));
        p.print();
        p.setFontSize(8);
        p.setFontBold(true);
        linha(p, colunas, titulos, larguraDescricao);
        p.setFontBold(false);
        p.line(200, p.currentY(), p.width() - Impressora::MargemDireita, p.currentY());
        p.setCurrentY(p.currentY() + 40);
    };
    cabecalho();
    while (!paginas.fim()) {
        for (const QVariantList& valores : paginas.proximas(Bloco)) {
            if (p.currentY() + p.alturaLinha() > p.limiteInferior()) {
                p.newPage();
                cabecalho();
            }
            QStringList textos;
            for (const ColunaImpressa& c : colunas)
                textos << ListaEstoque::textoCelula(ListaEstoque::colunas().at(c.indice), valores.value(c.indice));
            linha(p, colunas, textos, larguraDescricao);
        }
    }
    p.endDoc();
}

}
