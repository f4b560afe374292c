#include "shell/Avisos.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include "data/Sessao.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

AvisoTransitorio::AvisoTransitorio(const QString& texto, int vidaMs, bool pintaFundo, QWidget* pai)
    : QWidget(pai, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* linha = new QHBoxLayout(this);
    linha->setContentsMargins(18, 14, 18, 14);
    auto* icone = new QLabel(this);
    icone->setObjectName(QStringLiteral("Imagem"));
    linha->addWidget(icone);
    auto* textos = new QVBoxLayout;
    m_rotulo = new QLabel(texto, this);
    m_rotulo->setObjectName(QStringLiteral("Label1"));
    QFont f = m_rotulo->font();
    f.setPointSize(f.pointSize() + 3);
    f.setBold(true);
    m_rotulo->setFont(f);
    textos->addWidget(m_rotulo);
    m_segunda = new QLabel(this);
    m_segunda->setObjectName(QStringLiteral("Label2"));
    m_segunda->hide();
    textos->addWidget(m_segunda);
    linha->addLayout(textos);
    m_timer = new QTimer(this);
    m_timer->setObjectName(QStringLiteral("Timerad"));
    m_timer->setSingleShot(true);
    m_timer->setInterval(vidaMs);
    connect(m_timer, &QTimer::timeout, this, &AvisoTransitorio::expira);
    if (vidaMs > 0)
        m_timer->start();
    if (pintaFundo)
        Pintura::pinta(this);
    else
        setAutoFillBackground(true);

}

void AvisoTransitorio::showEvent(QShowEvent* e)
{
    // In the middle of the window the user works in, or of the screen.
    adjustSize();
    const QWidget* ativa = QApplication::activeWindow();
    const QRect area = ativa && ativa != this ? ativa->frameGeometry()
                                              : (screen() ? screen()->availableGeometry() : QRect());
    if (area.isValid())
        move(area.center() - rect().center());
    QWidget::showEvent(e);
}

QString AvisoTransitorio::texto() const { return m_rotulo->text(); }

void AvisoTransitorio::expira()
{
    if (m_timer->interval() < 1 || m_fechou)
        return;
    m_fechou = true;
    m_timer->stop();
    close();
    aoFechar();
}

namespace {
void poeIcone(QWidget* aviso, QStyle::StandardPixmap p)
{
    if (auto* l = aviso->findChild<QLabel*>(QStringLiteral("Imagem")))
        l->setPixmap(aviso->style()->standardIcon(p).pixmap(40, 40));
}
} // namespace

Gravado::Gravado() : AvisoTransitorio(QStringLiteral("Registro gravado com sucesso"), 1500, true)
{
    poeIcone(this, QStyle::SP_DialogSaveButton);
}
void Gravado::aoFechar() { sessao().SenhaLiberada = 0; }

Excluido::Excluido() : AvisoTransitorio(QStringLiteral("Registro excluído"), 1500, true)
{
    poeIcone(this, QStyle::SP_TrashIcon);
}
void Excluido::aoFechar() { sessao().SenhaLiberada = 0; }

Invalida::Invalida() : AvisoTransitorio(QStringLiteral("Senha Inválida"), 1500, true)
{
    poeIcone(this, QStyle::SP_MessageBoxWarning);
}

void Invalida::definirSegundaLinha(const QString& texto)
{
    m_segunda->setText(texto);
    m_segunda->setVisible(!texto.isEmpty());
    adjustSize();
}

QString Invalida::segundaLinha() const { return m_segunda->text(); }

Negado::Negado() : AvisoTransitorio(QStringLiteral("Acesso Negado"), 1500, true)
{
    poeIcone(this, QStyle::SP_MessageBoxCritical);
}

void Negado::aoFechar()
{
    // Whatever stands on the login is tried at once: with no name chosen it asks for one.
    // That press only invites another user: it is never a wrong try.
    QWidget* login = RegistroTelas::abrir(QStringLiteral("Login"));
    if (!login)
        return;
    QTimer::singleShot(0, login, [login] { QMetaObject::invokeMethod(login, "entrarAoNegar"); });
}

Aviso::Aviso() : AvisoTransitorio(QStringLiteral("Enviando aviso de estoque baixo....."), 2000, true)
{
    poeIcone(this, QStyle::SP_MessageBoxInformation);
}

Aguarde::Aguarde() : AvisoTransitorio(QStringLiteral("Por favor aguarde..."), 2000, false) {}

AguardeBaixa::AguardeBaixa() : AvisoTransitorio(QStringLiteral("Registrando movimento de caixa"), 0, true) {}

MensagenBd::MensagenBd() : AvisoTransitorio(QStringLiteral("Atenção,Banco de dados não localizado..."), 10000, true)
{
    poeIcone(this, QStyle::SP_DriveNetIcon);
}

void MensagenBd::aoFechar() { RegistroTelas::abrir(QStringLiteral("Reconecta")); }

TOLDEX_REGISTRA_TELA(Gravado)
TOLDEX_REGISTRA_TELA(Excluido)
TOLDEX_REGISTRA_TELA(Invalida)
TOLDEX_REGISTRA_TELA(Negado)
TOLDEX_REGISTRA_TELA(Aviso)
TOLDEX_REGISTRA_TELA(Aguarde)
TOLDEX_REGISTRA_TELA(AguardeBaixa)
TOLDEX_REGISTRA_TELA(MensagenBd)
