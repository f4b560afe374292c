#include "shell/ImagemPrincipal.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "data/ArquivoIni.h"
#include "data/Local.h"

ImagemPrincipal::ImagemPrincipal(QWidget* area)
    : QWidget(area)
{
    setObjectName(QStringLiteral("ImagemPrincipal"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* l = new QVBoxLayout(this);
    l->setContentsMargins(0, 0, 0, 0);
    m_logo = new QLabel(this);
    m_logo->setObjectName(QStringLiteral("Logo"));
    m_logo->setAlignment(Qt::AlignCenter);
    l->addWidget(m_logo);
    m_oculta = new QLabel(this);
    m_oculta->setObjectName(QStringLiteral("ImagemImprimir"));
    m_oculta->hide();
    area->installEventFilter(this);
    carregar();
    lower();
    show();
}

void ImagemPrincipal::carregar()
{
    const QString ini = Local::arquivoIni();
    m_original = QPixmap(LeIni(QStringLiteral("Imagem"), QStringLiteral("Foto"), ini));
    m_imprimir = QPixmap(LeIni(QStringLiteral("Imagem"), QStringLiteral("FotoImprimir"), ini));
    m_oculta->setPixmap(m_imprimir);
    ajustar();
}

bool ImagemPrincipal::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == parentWidget() && evento->type() == QEvent::Resize)
        ajustar();
    return QWidget::eventFilter(objeto, evento);
}

void ImagemPrincipal::ajustar()
{
    if (!parentWidget())
        return;
    setGeometry(parentWidget()->rect());
    lower();
    if (m_original.isNull() || width() <= 0 || height() <= 0) {
        m_logo->clear();
        return;
    }
    m_logo->setPixmap(m_original.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}
