#pragma once
#include <QPixmap>
#include <QWidget>

class QLabel;

// The shop's picture behind the screens of the main window. It lies under every child
// window of the work area and takes the area's size whenever the window is resized.
// `ImagemImprimir` holds the picture of the printed sheets.
class ImagemPrincipal : public QWidget {
    Q_OBJECT
public:
    // `area` is the work area's viewport: the picture follows its size.
    explicit ImagemPrincipal(QWidget* area);

    // Rereads [Imagem] Foto and FotoImprimir (after the configuration changes them).
    void carregar();
    const QPixmap& imagemImprimir() const { return m_imprimir; }
    bool temImagem() const { return !m_original.isNull(); }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void ajustar();

    QLabel* m_logo;
    QLabel* m_oculta;
    QPixmap m_original;
    QPixmap m_imprimir;
};
