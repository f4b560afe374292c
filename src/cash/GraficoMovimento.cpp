#include "cash/GraficoMovimento.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QLineSeries>
#include <QStackedBarSeries>
#include <QPen>
#include <QValueAxis>
#include <QVBoxLayout>

#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
double valor(Dinheiro d) { return double(d.centavos()) / 100.0; }
}

GraficoMovimento::GraficoMovimento(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("GraficoMovimento"));
    setWindowTitle(QStringLiteral("Gráfico do movimento"));
    auto* raiz = new QVBoxLayout(this);
    m_vista = new QChartView(this);
    m_vista->setObjectName(QStringLiteral("Grafico"));
    m_vista->setRenderHint(QPainter::Antialiasing);
    raiz->addWidget(m_vista);
    resize(1100, 560);
    Pintura::pinta(this);
}

void GraficoMovimento::mostra(const MovimentoCaixa::Lista& lista, const QDate& de, const QDate& ate)
{
    m_pontos = SerieMovimento::pontos(lista, de, ate);
    auto* grafico = new QChart;
    // Amounts read as the shop writes them: "1.234,56".
    grafico->setLocale(QLocale(QLocale::Portuguese, QLocale::Brazil));
    grafico->setLocalizeNumbers(true);
    grafico->setTitle(QStringLiteral("Movimento de %1 a %2")
                          .arg(de.toString(QStringLiteral("dd/MM/yyyy")), ate.toString(QStringLiteral("dd/MM/yyyy"))));

    auto* pecas = new QBarSet(QStringLiteral("Peças vendidas"));
    auto* maoObra = new QBarSet(QStringLiteral("Mão de obra"));
    auto* lucro = new QLineSeries;
    lucro->setName(QStringLiteral("Lucro P + M - D"));
    QPen caneta(QColor(0xC0, 0x39, 0x2B));
    caneta.setWidth(3);
    lucro->setPen(caneta);
    lucro->setPointsVisible(true);
    QStringList rotulos;
    double menor = 0, maior = 0;
    for (int i = 0; i < m_pontos.size(); ++i) {
        const SerieMovimento::Ponto& p = m_pontos.at(i);
        *pecas << valor(p.pecas);
        *maoObra << valor(p.maoObra);
        lucro->append(i, valor(p.lucro));
        rotulos << p.rotulo;
        maior = qMax(maior, qMax(valor(p.pecas + p.maoObra), valor(p.lucro)));
        menor = qMin(menor, qMin(valor(p.lucro), qMin(valor(p.pecas), valor(p.maoObra))));
    }
    auto* barras = new QStackedBarSeries;
    barras->append(pecas);
    barras->append(maoObra);
    grafico->addSeries(barras);
    grafico->addSeries(lucro);

    auto* eixoX = new QBarCategoryAxis;
    eixoX->append(rotulos);
    if (rotulos.size() > 20)
        eixoX->setLabelsAngle(-90);
    auto* eixoY = new QValueAxis;
    eixoY->setLabelFormat(QStringLiteral("%.2f"));
    eixoY->setRange(menor, maior > menor ? maior * 1.1 : menor + 1);
    eixoY->applyNiceNumbers();
    grafico->addAxis(eixoX, Qt::AlignBottom);
    grafico->addAxis(eixoY, Qt::AlignLeft);
    for (QAbstractSeries* s : grafico->series()) {
        s->attachAxis(eixoX);
        s->attachAxis(eixoY);
    }
    grafico->legend()->setAlignment(Qt::AlignBottom);
    QChart* antigo = m_vista->chart();
    m_vista->setChart(grafico);
    delete antigo;
}

TOLDEX_REGISTRA_TELA(GraficoMovimento)
