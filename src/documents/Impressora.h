#pragma once
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <functional>

class QPagedPaintDevice;

// The printer object that the sheets are drawn on: positions in twips (1440 to the inch)
// from the top left of the printable area, a current point that each Print moves to the
// start of the next line, and only size and weight of the font driven. The same calls
// draw on a real printer, a preview or a PDF file, since all three are paged devices.
//
// Unlike the old printer object, text never leaves the page: a text wider than the room
// to the right margin wraps under itself, and a line that would cross the bottom margin
// starts a new page first, so copies and long lists no longer run over the paper's edge.
class Impressora {
public:
    static constexpr int TwipsPorPolegada = 1440;
    static constexpr int MargemDireita = 200;     // the same 200 the sheets keep on the left
    static constexpr int MargemInferior = 240;

    explicit Impressora(QPagedPaintDevice* dispositivo);
    ~Impressora();
    Impressora(const Impressora&) = delete;
    Impressora& operator=(const Impressora&) = delete;

    // Starts drawing; false when the device can't be opened (a printer that went away, a
    // PDF file in a folder without write access).
    bool iniciar();
    bool ativa() const { return m_pintor.isActive(); }

    void setFontSize(double pontos);
    double fontSize() const { return m_fonte.pointSizeF(); }
    void setFontBold(bool negrito);
    bool fontBold() const { return m_fonte.bold(); }

    int currentX() const { return m_x; }
    int currentY() const { return m_y; }
    void setCurrentX(int x) { m_x = x; }
    void setCurrentY(int y) { m_y = y; }

    int width() const { return m_largura; }
    int height() const { return m_altura; }
    int textWidth(const QString& texto) const;
    // The text cut at its end to fit `largura` twips in the current font, so a long cell
    // can't run over the next column.
    QString cortado(const QString& texto, int largura) const;
    int alturaLinha() const;
    // The last Y at which a line may start and still end above the bottom margin.
    int limiteInferior() const { return m_altura - MargemInferior; }

    // Prints at the current point and moves to the start of the next line. An empty text
    // prints an empty line. Line breaks in the text start new lines at the same X.
    void print(const QString& texto = {});
    // Prints one line exactly where the current point is, without wrapping and without a
    // page break: for rows whose room the caller has already made sure of.
    void printLinha(const QString& texto);
    // Breaks a text into lines no wider than `largura` twips in the current font.
    QStringList quebrar(const QString& texto, int largura) const;
    // Starts a new page when `altura` twips don't fit any more under the current point.
    void garantirEspaco(int altura);

    void line(int x1, int y1, int x2, int y2);
    void paintPicture(const QImage& imagem, int x, int y, int largura, int altura);
    void newPage();
    void endDoc();

    int pagina() const { return m_pagina; }
    // A dry run: everything moves the current point but nothing is drawn and no page
    // starts. Used to measure a block before deciding where it goes.
    void setSimulacao(bool simular) { m_simular = simular; }
    bool simulacao() const { return m_simular; }
    // Called right after each automatic or explicit new page, with the current point at
    // the top: a table uses it to repeat its heading.
    void aoNovaPagina(std::function<void()> f) { m_aoNovaPagina = std::move(f); }
    // A line at the top of page 2 and later: whose sheet it is, with "Página: n" at the
    // right. Empty for none.
    void setContinuacao(const QString& titulo) { m_continuacao = titulo; }

private:
    double px(int twips) const { return twips * m_resolucao / double(TwipsPorPolegada); }
    int twips(double px) const { return qRound(px * TwipsPorPolegada / m_resolucao); }
    void aplicarFonte();
    void imprimirContinuacao();

    QPagedPaintDevice* m_dispositivo;
    QPainter m_pintor;
    QFont m_fonte;
    double m_resolucao = 1200;
    int m_largura = 0;
    int m_altura = 0;
    int m_x = 0;
    int m_y = 0;
    int m_pagina = 1;
    bool m_emNovaPagina = false;
    bool m_simular = false;
    std::function<void()> m_aoNovaPagina;
    QString m_continuacao;
};
