#include "cash/RelatorioMovimento.h"

#include "cash/SerieMovimento.h"
#include "documents/Impressora.h"
#include "documents/PlanilhaXlsx.h"

using namespace MovimentoCaixa;

namespace RelatorioMovimento {

namespace {

constexpr int LinhaTitulos = 4;  // row 5 of the sheet
constexpr int BlocoProgresso = 500;

// The fill of each row's first cell runs through a palette, so that one row can be
// followed across the sheet.
QColor corDaLinha(int n)
{
    return QColor::fromHsv((n * 37) % 360, 40, 255);
}

double valor(Dinheiro d) { return double(d.centavos()) / 100.0; }

void numeroOuTexto(PlanilhaXlsx& p, int linha, int coluna, const Linha& l, int c, const PlanilhaXlsx::Estilo& e)
{
    if (const std::optional<Dinheiro> v = l.valor(c))
        p.numero(linha, coluna, valor(*v), e);
    else if (c == Quantidade_)
        p.numero(linha, coluna, double(l.quantidade.milesimos()) / 1000.0, e);
    else
        p.texto(linha, coluna, l.celula(c), e);
}

void folhaGrafico(PlanilhaXlsx& p, const Lista& lista, const Cabecalho& cab)
{
    const QList<SerieMovimento::Ponto> pontos = SerieMovimento::pontos(lista, cab.de, cab.ate);
    p.novaFolha(QStringLiteral("Gráfico"));
    PlanilhaXlsx::Estilo negrito;
    negrito.negrito = true;
    const QStringList titulos = {SerieMovimento::porMes(cab.de, cab.ate) ? "Mês" : "Dia", "Peças vendidas",
                                 "Mão de obra", "Lucro P + M - D"};
    for (int c = 0; c < titulos.size(); ++c) {
        p.texto(0, c, titulos.at(c), negrito);
        p.largura(c, 16);
    }
    int linha = 1;
    for (const SerieMovimento::Ponto& pt : pontos) {
        p.texto(linha, 0, pt.rotulo);
        p.numero(linha, 1, valor(pt.pecas));
        p.numero(linha, 2, valor(pt.maoObra));
        p.numero(linha, 3, valor(pt.lucro));
        ++linha;
    }
    if (!pontos.isEmpty())
        p.grafico(QStringLiteral("Movimento de %1 a %2").arg(cab.de.toString(QStringLiteral("dd/MM/yyyy")),
                                                             cab.ate.toString(QStringLiteral("dd/MM/yyyy"))),
                  1, linha - 1, 0, {1, 2}, 3, 1, 5);
}

} // namespace

QString nomeProposto(const QDate& de)
{
    return QStringLiteral("Movimento detalhado %1.xlsx").arg(de.toString(QStringLiteral("dd-MM-yyyy")));
}

const QList<int>& colunasPlanilha()
{
    static const QList<int> c = [] {
        QList<int> r;
        for (int i = CodVenda; i <= ValTecnico; ++i)
            r << i;
        r << ValPago << ValTroco << FormaPagamento;
        return r;
    }();
    return c;
}

Resultado exportar(const Lista& lista, const Cabecalho& cab, const QString& arquivo, const Progresso& progresso,
                   QString* erro)
{
    PlanilhaXlsx p;
    if (!p.abrir(arquivo, QStringLiteral("Movimento"), erro))
        return Resultado::Falhou;
    PlanilhaXlsx::Estilo titulo;
    titulo.negrito = true;
    titulo.borda = false;
    PlanilhaXlsx::Estilo simples;
    simples.borda = false;
    p.texto(0, 0, QStringLiteral("Movimento detalhado"), titulo);
    p.texto(1, 0, QStringLiteral("Período: %1 a %2").arg(cab.de.toString(QStringLiteral("dd/MM/yyyy")),
                                                         cab.ate.toString(QStringLiteral("dd/MM/yyyy"))), simples);
    p.texto(2, 0, QStringLiteral("Visão: %1").arg(cab.visao), simples);
    PlanilhaXlsx::Estilo cabecalho;
    cabecalho.negrito = true;
    const QList<int>& colunas = colunasPlanilha();
    for (int i = 0; i < colunas.size(); ++i) {
        p.texto(LinhaTitulos, i, titulos().at(colunas.at(i)), cabecalho);
        p.largura(i, colunas.at(i) == Descricao || colunas.at(i) == Cliente ? 34 : 13);
    }
    const qint64 total = lista.linhas.size();
    int linha = LinhaTitulos + 1;
    PlanilhaXlsx::Estilo celula;
    for (qint64 n = 0; n < total; ++n) {
        const Linha& l = lista.linhas.at(n);
        for (int i = 0; i < colunas.size(); ++i) {
            PlanilhaXlsx::Estilo e = celula;
            if (i == 0)
                e.fundo = corDaLinha(int(n));
            numeroOuTexto(p, linha, i, l, colunas.at(i), e);
        }
        ++linha;
        if (progresso && ((n + 1) % BlocoProgresso == 0 || n + 1 == total) && !progresso(n + 1, total)) {
            p.descartar();
            return Resultado::Cancelado;
        }
    }
    p.congelar(LinhaTitulos + 1, 0);
    p.filtro(LinhaTitulos, 0, qMax(LinhaTitulos, linha - 1), int(colunas.size()) - 1);
    folhaGrafico(p, lista, cab);
    return p.concluir(erro) ? Resultado::Gravado : Resultado::Falhou;
}

namespace {

struct ColunaImpressa {
    QString titulo;
    int x;
    bool direita;
    std::function<QString(const Linha&)> texto;
};

QString c(const Linha& l, int coluna) { return l.celula(coluna); }

QList<ColunaImpressa> colunasDetalhe()
{
    return {
        {"Cód/Venda", 200, false, [](const Linha& l) { return c(l, CodVenda); }},
        {"Descrição", 1300, false, [](const Linha& l) { return c(l, Descricao); }},
        {"Qt", 5200, true, [](const Linha& l) { return c(l, Quantidade_); }},
        {"Val/Custo", 6200, true, [](const Linha& l) { return c(l, ValCusto); }},
        {"Val/Venda", 7200, true, [](const Linha& l) { return c(l, ValVenda); }},
        {"Mão Obra", 8200, true, [](const Linha& l) { return c(l, ValMaoObra); }},
        {"Valor/Total", 9300, true, [](const Linha& l) { return (l.vendido + l.maoObra).texto(); }},
        {"Tipo/Venda", 9450, false, [](const Linha& l) { return c(l, TipoVenda); }},
        {"Nome/Caixa", 10500, false, [](const Linha& l) { return c(l, Caixa); }},
        {"Nome/Téc", 11700, false, [](const Linha& l) { return c(l, Tecnico); }},
        {"Val ", 13500, true, [](const Linha& l) { return c(l, ValPorc); }},
        {"$%", 13650, false, [](const Linha& l) { return c(l, TipoPorc); }},
        {"Val/Téc", 14700, true, [](const Linha& l) { return c(l, ValTecnico); }},
        {"Data", 14850, false, [](const Linha& l) { return c(l, Data); }},
        {"Hora", 16000, false, [](const Linha& l) { return c(l, Hora); }},
    };
}

QList<ColunaImpressa> colunasResumo()
{
    return {
        {"Cód/Venda", 200, false, [](const Linha& l) { return c(l, CodVenda); }},
        {"Nome Cliente", 1200, false, [](const Linha& l) { return c(l, Cliente); }},
        {"CPF/CNPJ", 4300, false, [](const Linha&) { return QString(); }},
        {"Pagamento", 5600, false, [](const Linha& l) { return c(l, FormaPagamento); }},
        {"Val/Total", 8200, true, [](const Linha& l) { return c(l, ValTotal); }},
        {"Desconto", 9150, true, [](const Linha& l) { return c(l, ValDescontoVenda); }},
        {"Val/Pagar", 10100, true, [](const Linha& l) { return c(l, ValPagar); }},
        {"Val/Pago", 11050, true, [](const Linha& l) { return c(l, ValPago); }},
        {"Val/Troco", 12000, true, [](const Linha& l) { return c(l, ValTroco); }},
        {"Tipo Venda", 12150, false, [](const Linha& l) { return c(l, TipoVenda); }},
        {"Caixa", 13150, false, [](const Linha& l) { return c(l, Caixa); }},
        {"Funcionário", 13950, false, [](const Linha& l) { return c(l, Vendedor); }},
        {"Data", 15200, false, [](const Linha& l) { return c(l, Data); }},
        {"Hora", 16200, false, [](const Linha& l) { return c(l, Hora); }},
    };
}

void linhaImpressa(Impressora& p, const QList<ColunaImpressa>& colunas, const QStringList& textos)
{
    const int y = p.currentY();
    for (int i = 0; i < colunas.size(); ++i) {
        // A long text stops short of the next column.
        const int limite = i + 1 < colunas.size() ? colunas.at(i + 1).x - colunas.at(i).x - 60 : p.width();
        const QString t = colunas.at(i).direita ? textos.value(i) : p.cortado(textos.value(i), limite);
        if (colunas.at(i).x >= p.width())
            continue;
        p.setCurrentY(y);
        p.setCurrentX(colunas.at(i).direita ? colunas.at(i).x - p.textWidth(t) : colunas.at(i).x);
        p.printLinha(t);
    }
    p.setCurrentX(0);
    p.setCurrentY(y + p.alturaLinha());
}

} // namespace

void imprimir(const Lista& lista, Impressora& p)
{
    QList<ColunaImpressa> colunas = resumo(lista.visao) ? colunasResumo() : colunasDetalhe();
    // The positions are laid out for a page 16,900 twips wide; a narrower paper keeps them
    // in proportion so that the time still prints.
    constexpr int LarguraDesenhada = 16900;
    if (p.width() < LarguraDesenhada)
        for (ColunaImpressa& col : colunas)
            col.x = 200 + int(qint64(col.x - 200) * (p.width() - 200 - Impressora::MargemDireita - 500) /
                              (LarguraDesenhada - 900));
    QStringList titulosImpressos;
    for (const ColunaImpressa& col : colunas)
        titulosImpressos << col.titulo;
    auto cabecalho = [&] {
        p.setFontSize(10);
        p.setFontBold(false);
        p.setCurrentX(200);
        p.print(QStringLiteral("Página: %1").arg(p.pagina()));
        p.print();
        p.setFontSize(7);
        p.setFontBold(true);
        linhaImpressa(p, colunas, titulosImpressos);
        p.setFontBold(false);
        p.line(200, p.currentY(), p.width() - Impressora::MargemDireita, p.currentY());
        p.setCurrentY(p.currentY() + 40);
    };
    cabecalho();
    for (const Linha& l : lista.linhas) {
        if (p.currentY() + p.alturaLinha() > p.limiteInferior()) {
            p.newPage();
            cabecalho();
        }
        QStringList textos;
        for (const ColunaImpressa& col : colunas)
            textos << col.texto(l);
        linhaImpressa(p, colunas, textos);
    }
    // The totals close the list, as on the screen.
    const QStringList& rotulos = rotulosTotais();
    const QStringList valores = lista.totais.textos();
    const int porLinha = 4;
    const int alturaTotais = (rotulos.size() / porLinha + 1) * p.alturaLinha() * 2;
    if (p.currentY() + alturaTotais > p.limiteInferior()) {
        p.newPage();
        cabecalho();
    }
    p.setCurrentY(p.currentY() + p.alturaLinha());
    p.setFontSize(9);
    for (int i = 0; i < rotulos.size(); i += porLinha) {
        const int y = p.currentY();
        for (int j = i; j < qMin(int(rotulos.size()), i + porLinha); ++j) {
            p.setCurrentY(y);
            p.setCurrentX(200 + (j - i) * 3900);
            p.printLinha(QStringLiteral("%1: %2").arg(rotulos.at(j), valores.at(j)));
        }
        p.setCurrentY(y + p.alturaLinha() + 40);
    }
    p.endDoc();
}

}
