#include "documents/Impressora.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPen>
#include <QTextLayout>
#include <QTextOption>

Impressora::Impressora(QPagedPaintDevice* dispositivo)
    : m_dispositivo(dispositivo)
{
    m_fonte.setPointSizeF(10);
}

Impressora::~Impressora()
{
    if (m_pintor.isActive())
        m_pintor.end();
}

bool Impressora::iniciar()
{
    if (!m_pintor.begin(m_dispositivo))
        return false;
    m_resolucao = m_dispositivo->logicalDpiX();
    if (m_resolucao <= 0)
        m_resolucao = 1200;
    m_largura = twips(m_dispositivo->width());
    m_altura = twips(m_dispositivo->height());
    m_x = 0;
    m_y = 0;
    m_pagina = 1;
    aplicarFonte();
    return true;
}

void Impressora::aplicarFonte()
{
    // The font object is given to the painter with the device's resolution, so its
    // metrics are the printer's and not the screen's.
    QFont f(m_fonte, m_dispositivo);
    m_pintor.setFont(f);
}

void Impressora::setFontSize(double pontos)
{
    if (pontos <= 0)
        pontos = 10;
    m_fonte.setPointSizeF(pontos);
    if (m_pintor.isActive())
        aplicarFonte();
}

void Impressora::setFontBold(bool negrito)
{
    m_fonte.setBold(negrito);
    if (m_pintor.isActive())
        aplicarFonte();
}

int Impressora::textWidth(const QString& texto) const
{
    const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
    return twips(fm.horizontalAdvance(texto));
}

QString Impressora::cortado(const QString& texto, int largura) const
{
    const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
    auto cabe = [&](qsizetype n) { return twips(fm.horizontalAdvance(texto.left(n))) <= largura; };
    if (cabe(texto.size()))
        return texto;
    // The longest beginning that fits, found by halving: a pasted page of text costs a
    // few measures, not one per character.
    qsizetype cabeAte = 0, naoCabe = texto.size();
    while (naoCabe - cabeAte > 1) {
        const qsizetype meio = (cabeAte + naoCabe) / 2;
        (cabe(meio) ? cabeAte : naoCabe) = meio;
    }
    return texto.left(cabeAte);
}

int Impressora::alturaLinha() const
{
    const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
    return twips(fm.lineSpacing());
}

QStringList Impressora::quebrar(const QString& texto, int largura) const
{
    const QFont fonte(m_fonte, m_dispositivo);
    const QFontMetricsF fm(fonte, m_dispositivo);
    const double limite = px(qMax(largura, 200));
    QStringList linhas;
    const QStringList paragrafos = QString(texto).replace(QLatin1String("\r\n"), QLatin1String("\n"))
                                       .replace(QLatin1Char('\r'), QLatin1Char('\n'))
                                       .split(QLatin1Char('\n'));
    QTextOption opcao;
    // Between words where there are any; a text without spaces (a pasted link, a serial
    // number) is cut where the line ends. The layout measures each glyph once, so a long
    // paste costs no more than a long sentence.
    opcao.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (const QString& paragrafo : paragrafos) {
        if (paragrafo.isEmpty() || fm.horizontalAdvance(paragrafo) <= limite) {
            linhas << paragrafo;
            continue;
        }
        QTextLayout layout(paragrafo, fonte, m_dispositivo);
        layout.setTextOption(opcao);
        layout.beginLayout();
        for (QTextLine l = layout.createLine(); l.isValid(); l = layout.createLine()) {
            l.setLineWidth(limite);
            QString parte = paragrafo.mid(l.textStart(), l.textLength());
            while (parte.endsWith(QLatin1Char(' ')))
                parte.chop(1);
            linhas << parte;
        }
        layout.endLayout();
    }
    return linhas;
}

void Impressora::garantirEspaco(int altura)
{
    if (!m_simular && m_y + altura > limiteInferior() && m_y > 0 && !m_emNovaPagina)
        newPage();
}

void Impressora::print(const QString& texto)
{
    const int h = alturaLinha();
    if (texto.isEmpty()) {
        // An empty line never starts a page by itself: it only moves down, and the next
        // text that doesn't fit does the page break.
        m_y += h;
        m_x = 0;
        return;
    }
    int x = qMax(m_x, 0);
    int largura = m_largura - MargemDireita - x;
    if (largura < 1000) {
        // Pushed against the right edge: the text goes back to the left margin instead.
        x = 200;
        largura = m_largura - MargemDireita - x;
    }
    const QStringList linhas = quebrar(texto, largura);
    const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
    for (const QString& l : linhas) {
        garantirEspaco(h);
        if (m_pintor.isActive() && !m_simular)
            m_pintor.drawText(QPointF(px(x), px(m_y) + fm.ascent()), l);
        m_y += h;
    }
    m_x = 0;
}

void Impressora::printLinha(const QString& texto)
{
    if (m_pintor.isActive() && !m_simular && !texto.isEmpty()) {
        const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
        m_pintor.drawText(QPointF(px(m_x), px(m_y) + fm.ascent()), texto);
    }
    m_y += alturaLinha();
    m_x = 0;
}

void Impressora::line(int x1, int y1, int x2, int y2)
{
    if (!m_pintor.isActive() || m_simular)
        return;
    m_pintor.save();
    QPen caneta(Qt::black);
    caneta.setWidthF(px(10));
    m_pintor.setPen(caneta);
    m_pintor.drawLine(QPointF(px(x1), px(y1)), QPointF(px(x2), px(y2)));
    m_pintor.restore();
}

void Impressora::paintPicture(const QImage& imagem, int x, int y, int largura, int altura)
{
    if (!m_pintor.isActive() || m_simular || imagem.isNull())
        return;
    m_pintor.drawImage(QRectF(px(x), px(y), px(largura), px(altura)), imagem);
}

void Impressora::newPage()
{
    if (m_simular) {
        m_x = 0;
        m_y = 0;
        return;
    }
    if (m_pintor.isActive())
        static_cast<QPagedPaintDevice*>(m_dispositivo)->newPage();
    ++m_pagina;
    m_x = 0;
    m_y = 0;
    imprimirContinuacao();
    if (m_aoNovaPagina && !m_emNovaPagina) {
        m_emNovaPagina = true;
        const QFont antes = m_fonte;
        m_aoNovaPagina();
        m_fonte = antes;
        aplicarFonte();
        m_emNovaPagina = false;
    }
}

void Impressora::imprimirContinuacao()
{
    if (m_continuacao.isEmpty())
        return;
    const QFont antes = m_fonte;
    m_fonte.setPointSizeF(8);
    m_fonte.setBold(false);
    aplicarFonte();
    const QString pagina = QStringLiteral("Página: %1").arg(m_pagina);
    const int xPagina = m_largura - MargemDireita - textWidth(pagina);
    const QFontMetricsF fm(QFont(m_fonte, m_dispositivo), m_dispositivo);
    const QString titulo = fm.elidedText(m_continuacao, Qt::ElideRight, px(xPagina - 200 - 200));
    if (m_pintor.isActive()) {
        m_pintor.drawText(QPointF(px(200), px(m_y) + fm.ascent()), titulo);
        m_pintor.drawText(QPointF(px(xPagina), px(m_y) + fm.ascent()), pagina);
    }
    m_y += alturaLinha();
    line(0, m_y, m_largura, m_y);
    m_y += alturaLinha() / 2;
    m_fonte = antes;
    aplicarFonte();
}

void Impressora::endDoc()
{
    if (m_pintor.isActive())
        m_pintor.end();
}
