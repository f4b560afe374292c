#include "shell/AvisoPrincipal.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "shell/ProgramasExternos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"

AvisoPrincipal::AvisoPrincipal(QWidget* pai)
    : QFrame(pai)
{
    setObjectName(QStringLiteral("AvisoPrincipal"));
    setFrameShape(QFrame::StyledPanel);
    auto* l = new QHBoxLayout(this);
    l->setContentsMargins(8, 2, 8, 2);
    m_nova = new QLabel(this);
    m_nova->setObjectName(QStringLiteral("LblNovaVersao"));
    m_nova->setVisible(false);
    auto* atualiza = new QPushButton(QStringLiteral("&Atualizar agora"), this);
    atualiza->setObjectName(QStringLiteral("Botao(0)"));
    auto* fecha = new QPushButton(QStringLiteral("&Fechar aviso"), this);
    fecha->setObjectName(QStringLiteral("Botao(1)"));
    l->addWidget(m_nova, 1);
    l->addWidget(atualiza);
    l->addWidget(fecha);
    connect(atualiza, &QPushButton::clicked, this, &AvisoPrincipal::atualizar);
    connect(fecha, &QPushButton::clicked, this, &QWidget::hide);
    Pintura::pinta(this);
    hide();
}

void AvisoPrincipal::mostrarNovaVersao(const QString& instalada, const QString& remota)
{
    m_nova->setText(QStringLiteral("Nova versão do Toldex disponível: %1 (instalada: %2)").arg(remota, instalada));
    m_nova->setVisible(true);
    show();
}

void AvisoPrincipal::atualizar()
{
    if (!Dialogos::pergunta(this, QStringLiteral("O programa será fechado,continuar ?"), QStringLiteral("Atualização")))
        return;
    if (ProgramasExternos::iniciar(ProgramasExternos::Atualizador, this))
        emit encerrar();
}
