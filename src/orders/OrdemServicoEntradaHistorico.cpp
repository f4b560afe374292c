#include "orders/OrdemServicoEntrada.h"

// The intake's view of the appliance's past: the earlier orders of the same serial, or of
// the same customer, kind and model, and the banner of a return within the warranty.
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "orders/GradeHistorico.h"
#include "registers/EntregaTelas.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"

void OrdemServicoEntrada::montaHistorico(QGridLayout* g, int linha)
{
    m_garantia = new QLabel(corpo());
    m_garantia->setObjectName(QStringLiteral("LblGarantia"));
    m_garantia->setStyleSheet(QStringLiteral("QLabel { background: #b00000; color: white; font-weight: bold; padding: 3px; }"));
    m_garantia->hide();
    g->addWidget(m_garantia, linha, 0, 1, 4);
    m_historico = new GradeHistorico(corpo());
    m_historico->setMaximumHeight(fontMetrics().height() * 7);
    m_historico->hide();
    g->addWidget(m_historico, linha + 1, 0, 1, 4);
    connect(m_historico, &GradeHistorico::ordemEscolhida, this, &OrdemServicoEntrada::abreHistorico);

    // Typing a serial costs one indexed lookup once the typing pauses, not one per letter.
    m_timerHistorico = new QTimer(this);
    m_timerHistorico->setSingleShot(true);
    m_timerHistorico->setInterval(250);
    connect(m_timerHistorico, &QTimer::timeout, this, &OrdemServicoEntrada::atualizaHistorico);
    auto agenda = [this] { m_timerHistorico->start(); };
    for (QLineEdit* e : {m_serie, m_modelo, m_codCliente})
        connect(e, &QLineEdit::textChanged, this, agenda);
    connect(m_tipo, &QComboBox::currentTextChanged, this, agenda);
}

void OrdemServicoEntrada::atualizaHistorico()
{
    QList<HistoricoAparelho::Linha> linhas;
    if (banco()) {
        HistoricoAparelho::Aparelho a;
        a.serie = Campos::texto(m_serie);
        a.codCliente = Campos::texto(m_codCliente);
        a.tipo = m_tipo->currentText();
        a.modelo = Campos::texto(m_modelo);
        a.exceto = m_ordem.CodOsAut;
        try {
            linhas = HistoricoAparelho::procurar(*banco(), a);
        } catch (const ErroBanco&) {
            // The history is a help at the counter: a failed read leaves it empty, the
            // intake goes on.
        }
    }
    m_historico->mostrar(linhas);
    m_historico->setVisible(!linhas.isEmpty());
    const auto aviso = HistoricoAparelho::avisoGarantia(linhas);
    m_garantia->setText(aviso.value_or(QString()));
    m_garantia->setVisible(aviso.has_value());
}

void OrdemServicoEntrada::abreHistorico(qint64 codOs, qint64 codOsAut)
{
    // The earlier order opens on its own screen: what is being typed here stays.
    const QString tela = Sessao::verdadeiro(sessao().CfgOSAbreCompleta) ? QStringLiteral("CadCompleto")
                                                                          : QStringLiteral("OrdemServicoSaida");
    if (!EntregaTelas::disponivel(tela)) {
        Dialogos::mensagem(this, QStringLiteral("A tela que mostra a O.S %1 não está disponível nesta versão.").arg(codOs));
        return;
    }
    EntregaTelas::abrirCom(tela, EntregaTelas::MostraOrdem,
                           {{QStringLiteral("CodOs"), QString::number(codOs)},
                            {QStringLiteral("CodOsAut"), QString::number(codOsAut)},
                            {QStringLiteral("CodCliente"), Campos::texto(m_codCliente)},
                            {QStringLiteral("NomeCliente"), Campos::texto(m_nome)}});
}
