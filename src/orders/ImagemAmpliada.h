#pragma once
#include <QPixmap>
#include <QWidget>

class QLabel;

// One picture of an appliance at the size of the screen, to read a serial plate or see a
// crack that the small frame hides.
class ImagemAmpliada : public QWidget {
    Q_OBJECT
public:
    explicit ImagemAmpliada(QWidget* pai = nullptr);
    Q_INVOKABLE void mostraImagem(const QString& caminho);
    QString caminho() const { return m_caminho; }

protected:
    void resizeEvent(QResizeEvent* e) override;

private:
    void ajusta();
    QLabel* m_imagem;
    QPixmap m_original;
    QString m_caminho;
};
