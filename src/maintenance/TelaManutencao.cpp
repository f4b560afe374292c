#include "maintenance/TelaManutencao.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QStorageInfo>
#include <QVBoxLayout>

#include "data/ArquivoIni.h"
#include "data/Sessao.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

const QStringList TelasQueSeguram = {QStringLiteral("Login"), QStringLiteral("BuscaRapida"), QStringLiteral("Pendencia")};

bool pastaDoSistema(const QString& raiz)
{
    static const QStringList fora = {"/boot", "/dev", "/proc", "/run", "/sys", "/snap", "/var/lib", "/etc"};
    for (const QString& f : fora)
        if (raiz == f || raiz.startsWith(f + QLatin1Char('/')))
            return true;
    return false;
}

} // namespace

TelaManutencao::TelaManutencao(const QString& titulo, QWidget* pai) : QWidget(pai)
{
    setWindowTitle(titulo);
    for (const QString& n : TelasQueSeguram)
        RegistroTelas::fechar(n);

    m_drive = new QComboBox(this);
    m_drive->setObjectName(QStringLiteral("Drive1"));
    m_drive->setMinimumWidth(360);
    const QString ultimo = LeIni(QStringLiteral("Local"), QStringLiteral("Backup"), sessao().ArquivoIni);
    for (const auto& [nome, pasta] : volumes()) {
        m_drive->addItem(nome, pasta);
        if (pasta == ultimo)
            m_drive->setCurrentIndex(m_drive->count() - 1);
    }
    m_label = new QLabel(this);
    m_label->setObjectName(QStringLiteral("Label1"));
    m_label->setMinimumWidth(360);
    m_label->setWordWrap(true);
    m_barra = new QProgressBar(this);
    m_barra->setObjectName(QStringLiteral("Barra"));
    m_barra->setRange(0, 1000);
    m_barra->setValue(0);
    m_barra->setFormat(QStringLiteral("%p%"));
    m_iniciar = new QPushButton(QStringLiteral("&Iniciar"), this);
    m_iniciar->setObjectName(QStringLiteral("Iniciar"));
    m_fechar = new QPushButton(QStringLiteral("&Fechar"), this);
    m_fechar->setObjectName(QStringLiteral("Fechar"));
    m_cancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    m_cancelar->setObjectName(QStringLiteral("Cancelar"));
    m_cancelar->setEnabled(false);

    auto* l = new QVBoxLayout(this);
    l->addWidget(new QLabel(QStringLiteral("Disco:"), this));
    l->addWidget(m_drive);
    l->addWidget(m_label);
    l->addWidget(m_barra);
    auto* b = new QHBoxLayout;
    b->addWidget(m_iniciar);
    b->addWidget(m_cancelar);
    b->addStretch(1);
    b->addWidget(m_fechar);
    l->addLayout(b);

    connect(m_iniciar, &QPushButton::clicked, this, &TelaManutencao::iniciar);
    connect(m_fechar, &QPushButton::clicked, this, [this] {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->close();
        else
            close();
    });
    connect(m_cancelar, &QPushButton::clicked, this, [this] {
        m_trabalho.cancelar();
        m_cancelar->setEnabled(false);
        m_cancelar->setText(QStringLiteral("Cancelando..."));
    });
    connect(&m_trabalho, &Trabalho::progresso, this, [this](int m) {
        if (m < 0) {
            m_barra->setRange(0, 0);
            return;
        }
        m_barra->setRange(0, 1000);
        m_barra->setValue(m);
    });
    Pintura::pinta(this);
}

TelaManutencao::~TelaManutencao()
{
    // The day's screens come back as after a login.
    // Not while the main window itself is going away.
    if (!sessao().UsuarioNome.isEmpty() && RegistroTelas::areaMdi() && RegistroTelas::areaMdi()->isVisible()) {
        RegistroTelas::abrir(QStringLiteral("Pendencia"));
        RegistroTelas::abrir(QStringLiteral("BuscaRapida"));
    }
}

QList<QPair<QString, QString>> TelaManutencao::volumes()
{
    QList<QPair<QString, QString>> r;
    const QString casa = QDir::homePath();
    const QString raizCasa = QStorageInfo(casa).rootPath();
    for (const QStorageInfo& v : QStorageInfo::mountedVolumes()) {
        if (!v.isValid() || !v.isReady() || v.isReadOnly())
            continue;
        const QString raiz = v.rootPath();
        const QByteArray tipo = v.fileSystemType();
        if (raiz != raizCasa && (pastaDoSistema(raiz) || tipo == "tmpfs" || tipo == "devtmpfs" || tipo == "overlay"))
            continue;
        const QString pasta = raiz == raizCasa ? casa : raiz;
        if (!QFileInfo(pasta).isWritable())
            continue;
        const QString nome = v.displayName() == raiz || v.name().isEmpty()
            ? QDir::toNativeSeparators(pasta)
            : QStringLiteral("%1 (%2)").arg(v.name(), QDir::toNativeSeparators(pasta));
        bool repetida = false;
        for (const auto& p : std::as_const(r))
            repetida = repetida || p.second == pasta;
        if (!repetida)
            r.append({nome, pasta});
    }
    return r;
}

QString TelaManutencao::volumeEscolhido() const
{
    return m_drive->currentData().toString();
}

void TelaManutencao::situacao(const QString& texto)
{
    m_label->setText(texto);
}

Resultado TelaManutencao::rodar(const QString& texto, Trabalho::Passo passo)
{
    situacao(texto);
    m_barra->setRange(0, 1000);
    m_barra->setValue(0);
    m_iniciar->setEnabled(false);
    m_fechar->setEnabled(false);
    m_drive->setEnabled(false);
    m_cancelar->setText(QStringLiteral("&Cancelar"));
    m_cancelar->setEnabled(true);
    const Resultado r = m_trabalho.executar(std::move(passo));
    m_cancelar->setEnabled(false);
    m_iniciar->setEnabled(true);
    m_fechar->setEnabled(true);
    m_drive->setEnabled(true);
    m_barra->setRange(0, 1000);
    m_barra->setValue(r.ok() ? 1000 : 0);
    return r;
}

void TelaManutencao::closeEvent(QCloseEvent* e)
{
    if (m_trabalho.emCurso()) {
        e->ignore();
        Dialogos::mensagem(this, QStringLiteral("Aguarde o fim do trabalho em andamento ou clique em Cancelar."),
                           windowTitle(), Dialogos::Icone::Aviso);
        return;
    }
    QWidget::closeEvent(e);
}
