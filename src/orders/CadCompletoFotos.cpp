// The three pictures of the appliance: chosen from a file or taken with the camera,
// their paths kept in the order's columns and saved with it.
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "data/ArquivoIni.h"
#include "data/Local.h"
#include "orders/CadCompleto.h"
#include "ui/Dialogos.h"
#include "ui/FotoCadastro.h"
#include "ui/RegistroTelas.h"

namespace {
const QString MsgSalveAntes = QStringLiteral("Antes de capturar a imagem salve o registro");
const QString TituloWebcam = QStringLiteral("Capturar imagem Webcam");
const QString Ligar = QStringLiteral("Inicia Web Cam");
const QString Encerrar = QStringLiteral("Encerra Web Cam");
} // namespace

QString* CadCompleto::caminhoFoto(Ordem& o, int slot) const
{
    switch (slot) {
    case 0: return &o.Img1Aparelho;
    case 1: return &o.Img2Aparelho;
    case 2: return &o.Img3Aparelho;
    default: return nullptr;
    }
}

void CadCompleto::mostraFoto(int slot)
{
    m_foto = qBound(0, slot, 2);
    m_botoesFoto[m_foto]->setChecked(true);
    // A new order shows the program's icon; a stored one without this picture, or whose
    // file has gone, the shop's own picture.
    m_fotos->defineVazia(m_ordem.nova()
                             ? QDir(Local::pastaPrograma()).filePath(QStringLiteral("Toldex.ico"))
                             : LeIni(QStringLiteral("Imagem"), QStringLiteral("Foto"), Local::arquivoIni()));
    const QString caminho = *caminhoFoto(m_ordem, m_foto);
    {
        const QSignalBlocker b(m_imagem);
        m_imagem->setText(caminho);
    }
    m_fotos->mostra(caminho);
}

QString CadCompleto::nomeProposto(const QString& extensao) const
{
    QString nome = m_tipo->currentText().trimmed() + m_marca->currentText().trimmed() + QString::number(m_foto + 1)
        + extensao;
    // A name is a file name here: no folder separators out of the kind or the brand.
    nome.replace(QLatin1Char('/'), QLatin1Char('-'));
    nome.replace(QLatin1Char('\\'), QLatin1Char('-'));
    return QDir(FotoCadastro::pasta()).filePath(nome);
}

void CadCompleto::fotoDeArquivo()
{
    if ((m_ordem.nova() && !m_novo) || !marcaAlterado())
        return;
    m_fotos->escolheArquivo(nomeProposto(QString()));
}

void CadCompleto::alternaCamera()
{
    if (m_ordem.nova()) {
        Dialogos::mensagem(this, MsgSalveAntes, TituloWebcam, Dialogos::Icone::Aviso);
        return;
    }
    m_fotos->alternaCamera(m_botoes[25], Ligar, Encerrar);
}

void CadCompleto::capturaFoto()
{
    if (m_ordem.nova()) {
        Dialogos::mensagem(this, MsgSalveAntes, TituloWebcam, Dialogos::Icone::Aviso);
        return;
    }
    if (!marcaAlterado())
        return;
    m_fotos->tiraFoto(nomeProposto(QStringLiteral(".Jpg")));
}

void CadCompleto::ampliaFoto()
{
    QWidget* w = RegistroTelas::abrir(QStringLiteral("ImagemAmpliada"));
    if (w)
        QMetaObject::invokeMethod(w, "mostraImagem", Q_ARG(QString, m_imagem->text()));
}
