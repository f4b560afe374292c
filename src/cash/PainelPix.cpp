#include "cash/PainelPix.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

#include "cash/Pix.h"
#include "ui/Dialogos.h"

namespace {
const QString Titulo = QStringLiteral("PIX");
}

PainelPix::PainelPix(Qt::Orientation orientacao, QWidget* pai) : QGroupBox(QStringLiteral("PIX"), pai)
{
    setObjectName(QStringLiteral("PainelPix"));
    m_imagem = new QLabel(this);
    m_imagem->setObjectName(QStringLiteral("ImagemPix"));
    m_imagem->setFixedSize(200, 200);
    m_imagem->setAlignment(Qt::AlignCenter);
    m_valor = new QLabel(this);
    m_valor->setObjectName(QStringLiteral("ValorPix"));
    QFont f = m_valor->font();
    f.setBold(true);
    f.setPointSize(f.pointSize() + 2);
    m_valor->setFont(f);
    m_texto = new QLineEdit(this);
    m_texto->setObjectName(QStringLiteral("TextoPix"));
    m_texto->setReadOnly(true);
    m_texto->setToolTip(QStringLiteral("PIX copia e cola: o cliente cola este texto no aplicativo do banco."));
    m_copiar = new QPushButton(QStringLiteral("&Copiar"), this);
    m_copiar->setObjectName(QStringLiteral("CopiarPix"));
    m_copiar->setToolTip(QStringLiteral("Copia o PIX copia e cola para enviar ao cliente."));
    auto* dica = new QLabel(QStringLiteral("Confira o recebimento no aplicativo do banco antes de registrar."), this);
    dica->setWordWrap(true);
    auto* g = new QGridLayout(this);
    auto* rotulo = new QLabel(QStringLiteral("Copia e cola:"), this);
    if (orientacao == Qt::Vertical) {
        g->addWidget(m_imagem, 0, 0, 1, 2, Qt::AlignHCenter);
        g->addWidget(m_valor, 1, 0, 1, 2, Qt::AlignHCenter);
        g->addWidget(rotulo, 2, 0, 1, 2);
        g->addWidget(m_texto, 3, 0);
        g->addWidget(m_copiar, 3, 1);
        g->addWidget(dica, 4, 0, 1, 2);
        setMaximumWidth(280);
    } else {
        g->addWidget(m_imagem, 0, 0, 4, 1);
        g->addWidget(m_valor, 0, 1, 1, 2);
        g->addWidget(rotulo, 1, 1, 1, 2);
        g->addWidget(m_texto, 2, 1);
        g->addWidget(m_copiar, 2, 2);
        g->addWidget(dica, 3, 1, 1, 2);
    }
    connect(m_copiar, &QPushButton::clicked, this, &PainelPix::copia);
    hide();
}

bool PainelPix::mostra(Dinheiro valor, const QString& numeroOs)
{
    QString erro;
    const QString p = Pix::cobrancaDaLoja(valor, numeroOs, &erro);
    if (p.isEmpty()) {
        const bool jaDito = erro == m_recusado;
        esconde();
        m_recusado = erro;
        if (!jaDito)
            Dialogos::mensagem(window(), erro, Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    m_recusado.clear();
    if (p == m_payload && isVisible())
        return true;
    m_payload = p;
    m_cobrado = valor;
    m_imagem->setPixmap(QPixmap::fromImage(Pix::qrCode(p, 4)).scaled(m_imagem->size(), Qt::KeepAspectRatio,
                                                                       Qt::FastTransformation));
    m_valor->setText(QStringLiteral("R$ ") + valor.texto());
    m_texto->setText(p);
    m_texto->setCursorPosition(0);
    show();
    return true;
}

void PainelPix::esconde()
{
    m_recusado.clear();
    m_payload.clear();
    m_imagem->clear();
    m_texto->clear();
    m_valor->clear();
    hide();
}

void PainelPix::copia()
{
    if (!m_payload.isEmpty())
        QApplication::clipboard()->setText(m_payload);
}

bool PainelPix::confirmaRecebimento(QWidget* tela)
{
    if (m_payload.isEmpty())
        return true;
    return Dialogos::pergunta(tela,
                              QStringLiteral("O PIX de R$ %1 apareceu no aplicativo do banco da loja?\n"
                                             "Registre só depois de conferir o recebimento.")
                                  .arg(m_cobrado.texto()),
                              Titulo);
}
