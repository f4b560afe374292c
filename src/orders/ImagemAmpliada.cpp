#include "orders/ImagemAmpliada.h"

#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

#include "ui/RegistroTelas.h"

ImagemAmpliada::ImagemAmpliada(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("ImagemAmpliada"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Imagem do aparelho"));
    m_imagem = new QLabel(this);
    m_imagem->setObjectName(QStringLiteral("ImgAmpliada"));
    m_imagem->setAlignment(Qt::AlignCenter);
    m_imagem->setMinimumSize(320, 240);
    auto* v = new QVBoxLayout(this);
    v->addWidget(m_imagem);
    resize(900, 680);
}

void ImagemAmpliada::mostraImagem(const QString& caminho)
{
    m_caminho = caminho;
    m_original = QPixmap(caminho);
    if (m_original.isNull())
        m_imagem->setText(QStringLiteral("Sem imagem"));
    ajusta();
}

void ImagemAmpliada::resizeEvent(QResizeEvent* e)
{
    QWidget::resizeEvent(e);
    ajusta();
}

void ImagemAmpliada::ajusta()
{
    if (!m_original.isNull())
        m_imagem->setPixmap(m_original.scaled(m_imagem->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

TOLDEX_REGISTRA_TELA(ImagemAmpliada)
