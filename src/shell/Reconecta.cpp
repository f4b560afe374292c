#include "shell/Reconecta.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "data/ArquivoIni.h"
#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/SenhaPostgres.h"
#include "data/Sessao.h"
#include "maintenance/LojaExemplo.h"
#include "shell/Acoes.h"
#include "shell/LeEmpresa.h"
#include "shell/Principal.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

const QString Titulo = QStringLiteral("Reconexão do banco de dados.");
const QString Secao = QStringLiteral("Local");

QString& senhaSessao()
{
    static QString s;
    return s;
}

Reconecta::Reparo& reparoInstalado()
{
    static Reconecta::Reparo r;
    return r;
}

QString caminhoDe(const QString& maquina)
{
    return QStringLiteral("\\\\") + maquina + QStringLiteral("\\Toldex");
}

} // namespace

AvisosReconexao& AvisosReconexao::instancia()
{
    static AvisosReconexao a;
    return a;
}

namespace Reconexao {

void instalar()
{
    static bool agendado = false;
    Conexoes::aoFalhar([](const QString&) {
        // Several screens may fail in one go: one notice is enough, and it opens from the
        // event loop, never inside the failing screen's own code.
        if (agendado)
            return;
        agendado = true;
        QTimer::singleShot(0, [] {
            agendado = false;
            // The notice tells what happened; the reconnection screen stands ready under it
            // (the notice brings it back to the front when it closes).
            RegistroTelas::abrir(QStringLiteral("MensagenBd"));
            RegistroTelas::abrir(QStringLiteral("Reconecta"));
        });
    });
}

ConfigBanco configAtual()
{
    if (LojaExemplo::emUso())
        return LojaExemplo::config();
    ConfigBanco c = Local::lerConfig();
    if (c.motor == Motor::PostgreSQL && !senhaSessao().isEmpty())
        c.senha = senhaSessao();
    return c;
}

void definirSenhaBanco(const QString& senha) { senhaSessao() = senha; }

bool reconectar()
{
    Conexoes::fecharSlots();
    Conexoes::configurar(configAtual());
    if (!Conexoes::reabrirTodas())
        return false;
    auto teste = Conexoes::nova();
    if (!teste)
        return false;
    emit AvisosReconexao::instancia().reconectado();
    return true;
}

} // namespace Reconexao

void Reconecta::definirReparo(Reparo reparo) { reparoInstalado() = std::move(reparo); }

Reconecta::Reconecta(QWidget* pai)
    : QWidget(pai)
{
    setWindowTitle(QStringLiteral("Reconectando ao banco de dados"));
    Sessao& s = sessao();
    if (s.MaquinaNome.isEmpty())
        s.MaquinaNome = NomeComputador();

    auto* l = new QVBoxLayout(this);
    auto* papel = new QGroupBox(QStringLiteral("Este computador é"), this);
    auto* pl = new QHBoxLayout(papel);
    m_opcao[0] = new QRadioButton(QStringLiteral("Estação de trabalho."), papel);
    m_opcao[1] = new QRadioButton(QStringLiteral("Servidor."), papel);
    for (int i = 0; i < 2; ++i) {
        m_opcao[i]->setObjectName(QStringLiteral("OptOpcao(%1)").arg(i));
        pl->addWidget(m_opcao[i]);
    }
    l->addWidget(papel);

    auto* f = new QFormLayout;
    m_motor = new QComboBox(this);
    m_motor->setObjectName(QStringLiteral("CmbMotor"));
    m_motor->addItem(QStringLiteral("Arquivo em pasta (um computador ou pasta compartilhada)"));
    m_motor->addItem(QStringLiteral("Servidor PostgreSQL (rede)"));
    f->addRow(QStringLiteral("Tipo de banco de dados:"), m_motor);

    m_caminho = new QLineEdit(this);
    m_caminho->setObjectName(QStringLiteral("TxtCaminho"));
    m_procurar = new QPushButton(QStringLiteral("..."), this);
    m_procurar->setObjectName(QStringLiteral("BtnProcurar"));
    m_procurar->setToolTip(QStringLiteral("Procurar a pasta do banco de dados"));
    auto* linhaCaminho = new QHBoxLayout;
    linhaCaminho->addWidget(m_caminho, 1);
    linhaCaminho->addWidget(m_procurar);
    f->addRow(QStringLiteral("Caminho do banco de dados."), linhaCaminho);
    l->addLayout(f);

    m_painelPg = new QGroupBox(QStringLiteral("Servidor PostgreSQL"), this);
    auto* pg = new QFormLayout(m_painelPg);
    m_host = new QLineEdit(m_painelPg);
    m_host->setObjectName(QStringLiteral("TxtServidorBanco"));
    m_porta = new QLineEdit(m_painelPg);
    m_porta->setObjectName(QStringLiteral("TxtPorta"));
    m_porta->setValidator(new QIntValidator(1, 65535, m_porta));
    m_nomeBanco = new QLineEdit(m_painelPg);
    m_nomeBanco->setObjectName(QStringLiteral("TxtNomeBanco"));
    m_usuario = new QLineEdit(m_painelPg);
    m_usuario->setObjectName(QStringLiteral("TxtUsuarioBanco"));
    m_senha = new QLineEdit(m_painelPg);
    m_senha->setObjectName(QStringLiteral("TxtSenhaBanco"));
    m_senha->setEchoMode(QLineEdit::Password);
    m_senha->setToolTip(QStringLiteral("A senha vale só até o programa fechar; ela não é gravada no Toldex.ini."));
    pg->addRow(QStringLiteral("Servidor:"), m_host);
    pg->addRow(QStringLiteral("Porta:"), m_porta);
    pg->addRow(QStringLiteral("Banco:"), m_nomeBanco);
    pg->addRow(QStringLiteral("Usuário:"), m_usuario);
    pg->addRow(QStringLiteral("Senha:"), m_senha);
    m_lembrar = new QCheckBox(QStringLiteral("Lembrar neste computador"), m_painelPg);
    m_lembrar->setObjectName(QStringLiteral("ChkLembrar"));
    m_lembrar->setToolTip(QStringLiteral("Guarda a senha só para este usuário do computador (arquivo .pgpass)."));
    pg->addRow(QString(), m_lembrar);
    l->addWidget(m_painelPg);

    auto* bl = new QVBoxLayout;
    const char* textos[3] = {"Conecta ao banco de dados.", "Restaurar o banco de dados", "Reparar o banco de dados."};
    for (int i = 0; i < 3; ++i) {
        m_botao[i] = new QPushButton(QString::fromUtf8(textos[i]), this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        bl->addWidget(m_botao[i]);
    }
    l->addLayout(bl);

    m_timer = new QTimer(this);
    m_timer->setObjectName(QStringLiteral("Contatempo"));
    m_timer->setInterval(IntervaloMs);
    m_timer->stop();

    // What the ini says now.
    const ArquivoIni ini(Local::arquivoIni());
    const bool servidor = Sessao::verdadeiro(ini.ler(Secao, QStringLiteral("Servidor")));
    const bool estacao = Sessao::verdadeiro(ini.ler(Secao, QStringLiteral("Estacao")));
    m_opcao[1]->setChecked(servidor);
    m_opcao[0]->setChecked(!servidor && estacao);
    m_caminho->setText(servidor ? caminhoDe(s.MaquinaNome) : ini.ler(Secao, QStringLiteral("Caminho")));
    const ConfigBanco padrao;
    const bool motorPg = ini.ler(Secao, QStringLiteral("Motor")).compare(QLatin1String("PostgreSQL"), Qt::CaseInsensitive) == 0;
    m_motor->setCurrentIndex(motorPg ? 1 : 0);
    const QString porta = ini.ler(Secao, QStringLiteral("PortaBanco"));
    const QString nome = ini.ler(Secao, QStringLiteral("NomeBanco"));
    m_host->setText(ini.ler(Secao, QStringLiteral("HostBanco")));
    m_porta->setText(porta.isEmpty() ? QString::number(padrao.porta) : porta);
    m_nomeBanco->setText(nome.isEmpty() ? padrao.nomeBanco : nome);
    m_usuario->setText(ini.ler(Secao, QStringLiteral("UsuarioBanco")));
    mudarMotor();

    connect(m_opcao[0], &QRadioButton::clicked, this, &Reconecta::escolherEstacao);
    connect(m_opcao[1], &QRadioButton::clicked, this, &Reconecta::escolherServidor);
    connect(m_procurar, &QPushButton::clicked, this, &Reconecta::procurarPasta);
    connect(m_motor, &QComboBox::currentIndexChanged, this, &Reconecta::mudarMotor);
    connect(m_botao[0], &QPushButton::clicked, this, &Reconecta::conectaOuCancela);
    connect(m_botao[1], &QPushButton::clicked, this, &Reconecta::restaurar);
    connect(m_botao[2], &QPushButton::clicked, this, &Reconecta::reparar);
    connect(m_timer, &QTimer::timeout, this, &Reconecta::tique);

    // While the countdown runs the screen only waits for the store to come back; a click
    // on "Cancela" gives the user the other buttons.
    habilitarOutros(false);
    m_contador = Ticks;
    Pintura::pinta(this);
    emit AvisosReconexao::instancia().desconectado();
    m_timer->start();
}

Reconecta::~Reconecta()
{
    emit AvisosReconexao::instancia().fechada();
}

void Reconecta::showEvent(QShowEvent* evento)
{
    QWidget::showEvent(evento);
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        if (QMdiArea* area = sub->mdiArea()) {
            sub->adjustSize();
            sub->move(qMax(0, (area->viewport()->width() - sub->width()) / 2),
                      qMax(0, (area->viewport()->height() - sub->height()) / 2));
        }
}

void Reconecta::habilitarOutros(bool sim)
{
    m_botao[1]->setEnabled(sim);
    m_botao[2]->setEnabled(sim && static_cast<bool>(reparoInstalado()));
}

void Reconecta::tique()
{
    if (m_contador != 0) {
        m_botao[0]->setText(QStringLiteral("Cancela ") + QString::number(m_contador));
        --m_contador;
        return;
    }
    m_timer->stop();
    m_botao[0]->setText(QStringLiteral("Conecta"));
    // The store may be back by now: try it as the ini stands and start a new session.
    if (Reconexao::reconectar())
        concluir(true);
    else
        habilitarOutros(true);
}

void Reconecta::conectaOuCancela()
{
    if (m_botao[0]->text().startsWith(QLatin1String("Cancela "))) {
        m_timer->stop();
        m_botao[0]->setText(QStringLiteral("Conecta"));
        habilitarOutros(true);
        return;
    }
    m_timer->stop();
    m_botao[0]->setText(QStringLiteral("Conecta"));
    habilitarOutros(true);
    if (!gravar())
        return;
    if (Reconexao::reconectar())
        concluir(false);
}

void Reconecta::concluir(bool abrirLogin)
{
    // A new session starts from the login of the main window; at the program's start
    // the first window takes that part.
    if (abrirLogin && Principal::instancia())
        RegistroTelas::abrir(QStringLiteral("Login"));
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

bool Reconecta::validar(bool servidor, QString* pasta)
{
    if (m_motor->currentIndex() == 1) {
        if (m_host->text().trimmed().isEmpty() || m_nomeBanco->text().trimmed().isEmpty()) {
            Dialogos::mensagem(this, QStringLiteral("Informe o servidor e o nome do banco de dados PostgreSQL."),
                               Titulo, Dialogos::Icone::Aviso);
            return false;
        }
        *pasta = servidor ? Local::pastaPrograma() : m_caminho->text().trimmed();
        return true;
    }
    *pasta = servidor ? Local::pastaPrograma() : m_caminho->text().trimmed();
    const QFileInfo f(*pasta);
    if (pasta->isEmpty() || !f.isDir()) {
        Dialogos::mensagem(this,
            QStringLiteral("A pasta do banco de dados não foi encontrada:\n%1\n"
                           "Confira o caminho e se a pasta do servidor está acessível deste computador.\n"
                           "Nada foi alterado.").arg(*pasta),
            Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    // A workstation only opens the server's store, never starts an empty one beside it.
    if (!servidor && !QFileInfo::exists(QDir(*pasta).filePath(NomeArquivoBanco))) {
        Dialogos::mensagem(this,
            QStringLiteral("A pasta %1 não contém o banco de dados (%2).\n"
                           "Confira se é a pasta compartilhada do servidor.\nNada foi alterado.").arg(*pasta, NomeArquivoBanco),
            Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    if (!f.isWritable()) {
        Dialogos::mensagem(this,
            QStringLiteral("A pasta do banco de dados não permite gravação:\n%1\n"
                           "Peça acesso completo à pasta compartilhada.\nNada foi alterado.").arg(*pasta),
            Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    return true;
}

bool Reconecta::gravar()
{
    if (!m_opcao[0]->isChecked() && !m_opcao[1]->isChecked()) {
        Dialogos::mensagem(this, QStringLiteral("Escolha se este computador é o servidor ou uma estação de trabalho."),
                           Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    const bool servidor = m_opcao[1]->isChecked();
    QString pasta;
    if (!validar(servidor, &pasta))
        return false;
    QString erro;
    ArquivoIni ini(Local::arquivoIni());
    bool ok = Local::gravarPapel(servidor, pasta, &erro);
    if (ok && m_motor->currentIndex() == 1) {
        ok = ini.gravar(Secao, QStringLiteral("Motor"), QStringLiteral("PostgreSQL"), &erro)
            && ini.gravar(Secao, QStringLiteral("HostBanco"), m_host->text().trimmed(), &erro)
            && ini.gravar(Secao, QStringLiteral("PortaBanco"), m_porta->text().trimmed(), &erro)
            && ini.gravar(Secao, QStringLiteral("NomeBanco"), m_nomeBanco->text().trimmed(), &erro)
            && ini.gravar(Secao, QStringLiteral("UsuarioBanco"), m_usuario->text().trimmed(), &erro);
        Reconexao::definirSenhaBanco(m_senha->text());
        if (ok && m_lembrar->isChecked() && !m_senha->text().isEmpty())
            ok = SenhaPostgres::lembrar(Reconexao::configAtual(), m_senha->text(), &erro);
    } else if (ok) {
        ok = ini.gravar(Secao, QStringLiteral("Motor"), QStringLiteral("SQLite"), &erro);
    }
    if (!ok) {
        Dialogos::mensagem(this, erro, Titulo, Dialogos::Icone::Critico);
        return false;
    }
    return true;
}

bool Reconecta::manutencaoPermitida()
{
    if (!sessao().servidor()) {
        Dialogos::mensagem(this, Acoes::mensagemSoServidor(Acoes::Origem::MenuLateral), Titulo, Dialogos::Icone::Aviso);
        return false;
    }
    // With nobody logged in the store may be past opening: the screen stays open to
    // whoever stands at the server, since the replaced store is always kept.
    if (!sessao().UsuarioNome.isEmpty() && sessao().DireitoBackup != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return false;
    }
    return true;
}

void Reconecta::restaurar()
{
    if (manutencaoPermitida())
        RegistroTelas::abrir(QStringLiteral("RestauraDados"));
}

void Reconecta::reparar()
{
    // Refused before any file is touched.
    if (!manutencaoPermitida() || !reparoInstalado())
        return;
    QString erro;
    if (!reparoInstalado()(&erro)) {
        Dialogos::mensagem(this,
            QStringLiteral("Não foi possivel fazer a reparar o Banco de dados no Servidor,\n"
                           "ele pode estar sendo usado por outro computador\n"
                           "Feche o programa Toldex em todas as máquinas.")
                + (erro.isEmpty() ? QString() : QStringLiteral("\n\n") + erro),
            Titulo, Dialogos::Icone::Critico);
        return;
    }
    m_botao[2]->setText(QStringLiteral("Concluido"));
    m_botao[0]->setEnabled(true);
    m_botao[1]->setEnabled(false);
    m_botao[2]->setEnabled(false);
    m_contador = Ticks;
    m_timer->start();
}

void Reconecta::escolherEstacao()
{
    m_caminho->setText(caminhoDe(QStringLiteral("NomeServidor")));
    const auto nome = Dialogos::entrada(this, QStringLiteral("Digite o nome do computador servidor"), Titulo,
                                        sessao().CfgNomeServidor);
    if (nome && !nome->trimmed().isEmpty())
        m_caminho->setText(caminhoDe(nome->trimmed()));
}

void Reconecta::escolherServidor()
{
    sessao().MaquinaNome = NomeComputador();
    m_caminho->setText(caminhoDe(sessao().MaquinaNome));
}

void Reconecta::procurarPasta()
{
    if (const auto pasta = Dialogos::escolherPasta(this, QStringLiteral("Pasta do banco de dados"), m_caminho->text()))
        m_caminho->setText(QDir::toNativeSeparators(*pasta));
}

void Reconecta::mudarMotor()
{
    const bool pg = m_motor->currentIndex() == 1;
    m_painelPg->setVisible(pg);
    m_procurar->setEnabled(!pg);
    // The window grows and shrinks with the server's fields.
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->adjustSize();
    else if (isWindow())
        adjustSize();
}

TOLDEX_REGISTRA_TELA(Reconecta)
