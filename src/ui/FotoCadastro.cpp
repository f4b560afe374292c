#include "ui/FotoCadastro.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>

#include "data/Local.h"
#include "data/Sessao.h"
#include "shell/Camera.h"
#include "ui/Dialogos.h"

FotoCadastro::FotoCadastro(QWidget* tela, QLabel* imagem, QLineEdit* caminho, int qualidadeJpeg)
    : QObject(tela), m_tela(tela), m_imagem(imagem), m_caminho(caminho), m_qualidade(qualidadeJpeg)
{
    m_video = new QTimer(this);
    m_video->setObjectName(QStringLiteral("TVideo"));
    m_video->setInterval(100);
    connect(m_video, &QTimer::timeout, this, [this] {
        if (m_camera && !m_camera->quadro().isNull())
            m_imagem->setPixmap(QPixmap::fromImage(m_camera->quadro()).scaled(m_imagem->size(), Qt::KeepAspectRatio));
    });
}

FotoCadastro::~FotoCadastro()
{
    if (m_camera)
        m_camera->desligar();
}

QString FotoCadastro::pasta()
{
    QString p = sessao().CfgPastaImagem;
    p.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return QDir::isAbsolutePath(p) ? p : QDir(Local::pastaPrograma()).filePath(p);
}

void FotoCadastro::mostra(const QString& caminho)
{
    QImage img;
    if (!caminho.isEmpty())
        img.load(caminho);
    if (img.isNull() && !m_vazia.isEmpty())
        img.load(m_vazia);
    if (img.isNull())
        m_imagem->clear();
    else
        m_imagem->setPixmap(QPixmap::fromImage(img).scaled(m_imagem->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

bool FotoCadastro::escolheArquivo(const QString& proposto)
{
    const auto arquivo = Dialogos::abrirArquivo(m_tela, QStringLiteral("Imagem"), proposto, Filtro);
    if (!arquivo || arquivo->isEmpty())
        return false;
    QImageReader leitor(*arquivo);
    if (leitor.read().isNull()) {
        Dialogos::mensagem(m_tela, QStringLiteral("O arquivo escolhido não é uma imagem:\n%1").arg(*arquivo),
                           QStringLiteral("Imagem"), Dialogos::Icone::Aviso);
        return false;
    }
    m_caminho->setText(*arquivo);
    mostra(*arquivo);
    return true;
}

void FotoCadastro::alternaCamera(QPushButton* b, const QString& ligar, const QString& encerrar)
{
    if (b->text() == encerrar) {
        m_video->stop();
        if (m_camera)
            m_camera->desligar();
        b->setText(ligar);
        return;
    }
    if (!m_camera)
        m_camera = Camera::criar();
    if (!m_camera->disponivel() || !m_camera->ligar()) {
        Dialogos::mensagem(m_tela, QStringLiteral("Nenhuma câmera foi encontrada neste computador."),
                           QStringLiteral("WebCam"), Dialogos::Icone::Aviso);
        return;
    }
    m_video->start();
    b->setText(encerrar);
}

void FotoCadastro::paraPrevia()
{
    m_video->stop();
}

void FotoCadastro::retomaPrevia()
{
    if (m_camera && m_camera->ligada())
        m_video->start();
}

bool FotoCadastro::tiraFoto(const QString& proposto)
{
    m_video->stop();
    if (!m_camera || !m_camera->ligada() || m_camera->quadro().isNull()) {
        Dialogos::mensagem(m_tela, QStringLiteral("Ligue a câmera antes de tirar a foto."), QStringLiteral("WebCam"),
                           Dialogos::Icone::Aviso);
        return false;
    }
    const QImage img = m_camera->quadro();
    m_imagem->setPixmap(QPixmap::fromImage(img).scaled(m_imagem->size(), Qt::KeepAspectRatio));
    const auto arquivo = Dialogos::salvarArquivo(m_tela, QStringLiteral("Salvar imagem"), proposto, Filtro);
    if (!arquivo || arquivo->isEmpty())
        return false;
    QDir().mkpath(QFileInfo(*arquivo).absolutePath());
    if (!img.save(*arquivo, "JPG", m_qualidade)) {
        Dialogos::mensagem(m_tela, QStringLiteral("Não foi possível salvar a imagem em\n%1").arg(*arquivo),
                           QStringLiteral("Imagem"), Dialogos::Icone::Critico);
        return false;
    }
    m_caminho->setText(*arquivo);
    return true;
}
