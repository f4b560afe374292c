#include "shell/frmAbout.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

frmAbout::frmAbout(QWidget* pai)
    : QDialog(pai)
{
    setWindowTitle(QStringLiteral("Sobre o Toldex"));
    auto* l = new QVBoxLayout(this);
    auto* titulo = new QLabel(QStringLiteral("Sistema TOLDEX"), this);
    titulo->setObjectName(QStringLiteral("lblTitle"));
    QFont f = titulo->font();
    f.setPointSize(f.pointSize() + 6);
    f.setBold(true);
    titulo->setFont(f);
    auto* descricao = new QLabel(QStringLiteral("Controle de assistência técnica: ordens de serviço, "
                                                "estoque, caixa e clientes."), this);
    descricao->setObjectName(QStringLiteral("lblDescription"));
    descricao->setWordWrap(true);
    auto* versao = new QLabel(textoVersao(), this);
    versao->setObjectName(QStringLiteral("lblVersion"));
    auto* qt = new QLabel(QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion())), this);
    qt->setObjectName(QStringLiteral("lblQt"));
    l->addWidget(titulo);
    l->addWidget(descricao);
    l->addWidget(versao);
    l->addWidget(qt);
    auto* botoes = new QHBoxLayout;
    auto* info = new QPushButton(QStringLiteral("&Info..Sistema"), this);
    info->setObjectName(QStringLiteral("cmdSysInfo"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    botoes->addStretch(1);
    botoes->addWidget(info);
    botoes->addWidget(ok);
    l->addLayout(botoes);
    connect(info, &QPushButton::clicked, this, &frmAbout::mostrarInfo);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    setMinimumWidth(380);
}

QString frmAbout::textoVersao()
{
    return QStringLiteral("Versão %1").arg(QStringLiteral(TOLDEX_VERSAO));
}

QString frmAbout::infoSistema()
{
    return QStringLiteral("Toldex %1\nQt %2 (compilado com %3)\nSistema: %4\nNúcleo: %5 %6\nArquitetura: %7\nComputador: %8")
        .arg(QStringLiteral(TOLDEX_VERSAO), QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR),
             QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QSysInfo::currentCpuArchitecture(), QSysInfo::machineHostName());
}

void frmAbout::mostrarInfo()
{
    Dialogos::mensagem(this, infoSistema(), QStringLiteral("Informações do sistema"));
}

TOLDEX_REGISTRA_TELA(frmAbout)
