#include "shell/BarraStatus.h"

#include <QDate>
#include <QHostAddress>
#include <QLineEdit>
#include <QLocale>
#include <QMetaObject>
#include <QNetworkInterface>
#include <QPushButton>

#include "data/Sessao.h"
#include "shell/LeEmpresa.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

BarraStatus::BarraStatus(QWidget* pai)
    : QStatusBar(pai)
{
    setObjectName(QStringLiteral("BarraStatus"));
    setSizeGripEnabled(false);
    for (int i = 0; i < 3; ++i) {
        m_botao[i] = new QPushButton(this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        m_botao[i]->setFlat(true);
        m_botao[i]->setFocusPolicy(Qt::NoFocus);
    }
    addWidget(m_botao[0], 3);
    addWidget(m_botao[1], 1);
    addPermanentWidget(m_botao[2]);
    m_oculto = new QLineEdit(this);
    m_oculto->setObjectName(QStringLiteral("Text1"));
    m_oculto->hide();
    connect(m_botao[0], &QPushButton::clicked, this, &BarraStatus::informarMaquina);
    connect(m_botao[1], &QPushButton::clicked, this, &BarraStatus::desativarUsuario);
    atualizarData();
}

QString BarraStatus::enderecoLocal()
{
    const auto enderecos = QNetworkInterface::allAddresses();
    for (const QHostAddress& a : enderecos)
        if (a.protocol() == QAbstractSocket::IPv4Protocol && !a.isLoopback())
            return a.toString();
    return QStringLiteral("127.0.0.1");
}

QString BarraStatus::dataPorExtenso(const QDate& data)
{
    return QLocale(QLocale::Portuguese, QLocale::Brazil).toString(data, QStringLiteral("dddd dd MMMM yyyy"));
}

void BarraStatus::atualizar(const QString& testeOk)
{
    Sessao& s = sessao();
    s.MaquinaNome = NomeComputador();
    m_testeOk = testeOk;
    const QString ip = enderecoLocal();
    if (s.servidor())
        m_botao[0]->setText(QStringLiteral("Servidor : ") + s.MaquinaNome + QStringLiteral(" -_- ") + QStringLiteral("IP : ")
                            + ip + QStringLiteral(" -_- ") + testeOk);
    else
        m_botao[0]->setText(QStringLiteral("Estação de trabalho ") + s.MaquinaNome + QStringLiteral("-") + QStringLiteral("IP : ")
                            + ip + QStringLiteral(" ") + testeOk + QStringLiteral(" ao ") + s.CfgNomeServidor);
    atualizarData();
}

void BarraStatus::atualizarData()
{
    m_botao[2]->setText(dataPorExtenso(QDate::currentDate()));
}

void BarraStatus::definirUsuario(const QString& nome, const QString& sufixo)
{
    m_botao[1]->setText(nome.isEmpty() ? QString() : nome + sufixo);
}

void BarraStatus::mostrarDesconectado()
{
    m_botao[0]->setText(QStringLiteral("Banco de dados não encontrado está desconectado."));
}

void BarraStatus::informarMaquina()
{
    Dialogos::mensagem(this, QStringLiteral("Nome computador:") + sessao().MaquinaNome + QLatin1Char('\n')
                                 + QStringLiteral("IP:") + enderecoLocal() + QLatin1Char('\n') + m_testeOk,
                       QStringLiteral("Sistema TOLDEX"));
}

void BarraStatus::desativarUsuario()
{
    const Sessao& s = sessao();
    if (!Dialogos::pergunta(this, QStringLiteral("Nome usuário: ") + s.UsuarioNome + QLatin1Char('\n')
                                      + QStringLiteral("Código usuário:") + s.UsuarioCodigo,
                            QStringLiteral("Desativar usuário")))
        return;
    // The leave is the login screen's own action (its button "Sair"); the shell only
    // reaches it by name.
    QWidget* login = RegistroTelas::abrir(QStringLiteral("Login"));
    if (login && login->metaObject()->indexOfMethod("sair()") >= 0)
        QMetaObject::invokeMethod(login, "sair");
    else
        sessao().zerarDireitos();
    emit usuarioSaiu();
}
