#include "orders/BotaoAviso.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "documents/Visualizador.h"
#include "ui/Dialogos.h"

namespace {
const QString Titulo = QStringLiteral("Avisar cliente");
}

BotaoAviso::BotaoAviso(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("BotaoAviso"));
    m_situacao = new QComboBox(this);
    m_situacao->setObjectName(QStringLiteral("CboSituacaoAviso"));
    m_situacao->setToolTip(QStringLiteral("O que dizer ao cliente"));
    for (AvisoCliente::Situacao s : AvisoCliente::situacoes())
        m_situacao->addItem(AvisoCliente::nomeSituacao(s), static_cast<int>(s));
    m_botao = new QPushButton(Titulo, this);
    m_botao->setObjectName(QStringLiteral("BotaoAvisarCliente"));
    m_botao->setAutoDefault(false);
    auto* l = new QHBoxLayout(this);
    l->setContentsMargins(0, 0, 0, 0);
    l->addWidget(m_situacao);
    l->addWidget(m_botao);
    connect(m_botao, &QPushButton::clicked, this, [this] { avisar(); });
    setVisible(false);
}

void BotaoAviso::defineOrdem(Banco& banco, qint64 codOsAut, AvisoCliente::Situacao sugerida)
{
    m_banco = &banco;
    m_codOsAut = codOsAut;
    bool ativo = false;
    QString motivo;
    try {
        ativo = AvisoCliente::lerConfig(banco).ativo;
        if (ativo && codOsAut > 0)
            motivo = AvisoCliente::preparar(banco, codOsAut, sugerida).motivo;
    } catch (const ErroBanco&) {
        // The press reads everything again and tells the failure there.
    }
    setVisible(ativo);
    m_situacao->setCurrentIndex(m_situacao->findData(static_cast<int>(sugerida)));
    m_botao->setEnabled(codOsAut > 0);
    m_botao->setToolTip(motivo.isEmpty() ? QStringLiteral("Abre o WhatsApp ou o e-mail do cliente com a mensagem pronta")
                                         : motivo);
}

bool BotaoAviso::avisar()
{
    if (!m_banco || m_codOsAut <= 0)
        return false;
    const auto s = static_cast<AvisoCliente::Situacao>(m_situacao->currentData().toInt());
    try {
        const AvisoCliente::Preparo p = AvisoCliente::preparar(*m_banco, m_codOsAut, s);
        if (!p.canal) {
            Dialogos::mensagem(this, p.motivo, Titulo, Dialogos::Icone::Aviso);
            return false;
        }
        if (!Visualizador::abrir(p.link)) {
            Dialogos::mensagem(this,
                               *p.canal == AvisoCliente::Canal::WhatsApp
                                   ? QStringLiteral("Não foi possível abrir o navegador para o WhatsApp.\n"
                                                    "O aviso não foi registrado.")
                                   : QStringLiteral("Não foi possível abrir o programa de e-mail.\n"
                                                    "O aviso não foi registrado."),
                               Titulo, Dialogos::Icone::Aviso);
            return false;
        }
        const QString data = AvisoCliente::registrar(*m_banco, m_codOsAut, *p.canal, s, sessao().UsuarioNome);
        emit avisado(m_codOsAut, data);
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
}
