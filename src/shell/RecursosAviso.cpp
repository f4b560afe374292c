#include "shell/RecursosAviso.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Transacao.h"
#include "orders/AvisoCliente.h"
#include "orders/HistoricoAparelho.h"
#include "shell/AbaRecursos.h"
#include "ui/Dialogos.h"

RecursosAviso::RecursosAviso(QWidget* pai) : QGroupBox(QStringLiteral("Avisar cliente"), pai)
{
    setObjectName(QStringLiteral("RecursosAviso"));
    auto* g = new QGridLayout(this);
    m_ativo = new QCheckBox(QStringLiteral("Mostrar o botão \"Avisar cliente\" (WhatsApp ou e-mail)"), this);
    m_ativo->setObjectName(QStringLiteral("ChkAvisoAtivo"));
    g->addWidget(m_ativo, 0, 0, 1, 2);
    int linha = 1;
    int i = 0;
    for (AvisoCliente::Situacao s : AvisoCliente::situacoes()) {
        auto* t = new QPlainTextEdit(this);
        t->setObjectName(QStringLiteral("TxtAviso(%1)").arg(i++));
        t->setTabChangesFocus(true);
        t->setMaximumHeight(fontMetrics().height() * 4);
        g->addWidget(new QLabel(AvisoCliente::nomeSituacao(s), this), linha, 0, Qt::AlignTop);
        g->addWidget(t, linha++, 1);
        m_modelos << t;
    }
    auto* dica = new QLabel(QStringLiteral("Marcas: @NOMECLIENTE, @NUMEROOS, @VALORPAGAR, @TIPOPRODUTO, @MARCAPRODUTO, "
                                           "@MODELOPRODUTO, @DATAPROMETIDA, @NOMEEMPRESA, @TELEFONEEMPRESA e as demais "
                                           "dos modelos do Word."),
                            this);
    dica->setWordWrap(true);
    g->addWidget(dica, linha++, 0, 1, 2);
    m_diasGarantia = new QSpinBox(this);
    m_diasGarantia->setObjectName(QStringLiteral("SpnDiasGarantia"));
    m_diasGarantia->setRange(1, 3650);
    m_diasGarantia->setSuffix(QStringLiteral(" dias"));
    g->addWidget(new QLabel(QStringLiteral("Garantia do conserto"), this), linha, 0);
    g->addWidget(m_diasGarantia, linha, 1, Qt::AlignLeft);
}

void RecursosAviso::carregar(Banco& banco)
{
    const AvisoCliente::Config c = AvisoCliente::lerConfig(banco);
    m_ativo->setChecked(c.ativo);
    for (int i = 0; i < m_modelos.size(); ++i)
        m_modelos[i]->setPlainText(c.modelo(AvisoCliente::situacoes().at(i)));
    m_diasGarantia->setValue(HistoricoAparelho::diasGarantia(banco));
}

bool RecursosAviso::salvar(Banco& banco)
{
    AvisoCliente::Config c;
    c.ativo = m_ativo->isChecked();
    for (int i = 0; i < m_modelos.size(); ++i) {
        const AvisoCliente::Situacao s = AvisoCliente::situacoes().at(i);
        const QString texto = m_modelos[i]->toPlainText();
        if (texto.size() > LimiteModelo) {
            Dialogos::mensagem(this,
                               QStringLiteral("O texto do aviso \"%1\" tem %2 caracteres; o limite é %3.\n"
                                              "Encurte o texto e salve novamente.")
                                   .arg(AvisoCliente::nomeSituacao(s))
                                   .arg(texto.size())
                                   .arg(LimiteModelo),
                               title(), Dialogos::Icone::Aviso);
            m_modelos[i]->setFocus();
            return false;
        }
        c.modelos.append({s, texto});
    }
    try {
        Transacao tr(banco);
        AvisoCliente::gravarConfig(banco, c);
        banco.executar(QStringLiteral("UPDATE Empresa SET DiasGarantia = ?"), {m_diasGarantia->value()});
        tr.commit();
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
}

// On the "Recursos" tab the box loads and saves itself (its templates are long texts kept
// apart from the screen's boxes); the configuration screen calls it with its own save.
GrupoRecurso grupoAviso()
{
    GrupoRecurso g;
    g.monta = [](QWidget* pai) -> QGroupBox* { return new RecursosAviso(pai); };
    return g;
}
