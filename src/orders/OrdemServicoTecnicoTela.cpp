// How the bench is laid out: the order's frame, the technician's boxes with the situation
// and the money on the left, the lists on the right, the buttons below.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Sessao.h"
#include "orders/BotaoAviso.h"
#include "orders/ListaAvisos.h"
#include "orders/OrdemServicoTecnico.h"

namespace {
QPlainTextEdit* caixaTexto(QWidget* pai, const QString& nome, int altura)
{
    auto* t = new QPlainTextEdit(pai);
    t->setObjectName(nome);
    t->setMaximumHeight(altura);
    t->setTabChangesFocus(true);
    return t;
}
} // namespace

void OrdemServicoTecnico::montaTela()
{
    struct Def {
        const char* texto;
        const char* dica;
    };
    const Def defs[] = {{"&Salvar", "Salva a ordem de serviço"},
                        {"Orça/Autori&zado", "Clique se o cliente autorizou o conserto."},
                        {"Sai&r", "Fecha o formulário"},
                        {"Est&oque", "Busca a peça no estoque"},
                        {"&Manual", "Inclui uma peça sem código"},
                        {"Adiciona ser&viço executado", "Mostra a lista de serviços"},
                        {"&Remove item", "Remove a peça escolhida"},
                        {"A&diciona item", "Adiciona ou altera a peça"},
                        {"X", "Fecha"},
                        {"Re&move item", "Remove o serviço escolhido"},
                        {"&Altera item", "Altera o desconto e a mão de obra do serviço"},
                        {"X", "Fecha"}};
    for (int b = 0; b < 12; ++b) {
        auto* bt = new QPushButton(QString::fromUtf8(defs[b].texto), this);
        bt->setObjectName(QStringLiteral("Botao(%1)").arg(b));
        bt->setToolTip(QString::fromUtf8(defs[b].dica));
        m_botoes << bt;
    }
    auto* raiz = new QVBoxLayout(this);
    m_frameOrdem = new QGroupBox(this);
    m_frameOrdem->setObjectName(QStringLiteral("FrameOrdem"));
    auto* topo = new QGridLayout(m_frameOrdem);
    m_cliente = new QLabel(m_frameOrdem);
    m_cliente->setObjectName(QStringLiteral("LblCliente"));
    m_aparelho = new QLabel(m_frameOrdem);
    m_aparelho->setObjectName(QStringLiteral("LblAparelho"));
    m_resposta = new QLabel(m_frameOrdem);
    m_resposta->setObjectName(QStringLiteral("LblResposta"));
    QFont f = m_resposta->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.4);
    m_resposta->setFont(f);
    for (QLabel* l : {m_cliente, m_aparelho})
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    topo->addWidget(m_cliente, 0, 0);
    topo->addWidget(m_resposta, 0, 1, 2, 1, Qt::AlignRight | Qt::AlignVCenter);
    topo->addWidget(m_aparelho, 1, 0);
    m_avisos = new ListaAvisos(m_frameOrdem);
    m_avisar = new BotaoAviso(m_frameOrdem);
    topo->addWidget(m_avisos, 2, 0);
    topo->addWidget(m_avisar, 2, 1, Qt::AlignRight | Qt::AlignTop);
    connect(m_avisar, &BotaoAviso::avisado, this, [this](qint64, const QString& data) {
        AvisoCliente::adotarContato(m_ordem, data);
        AvisoCliente::adotarContato(m_guardada, data);
        m_avisos->mostrar(*m_banco, m_ordem.CodOsAut);
    });
    raiz->addWidget(m_frameOrdem);

    auto* meio = new QHBoxLayout;
    meio->addWidget(montaCampos(), 2);
    meio->addWidget(montaListas(), 3);
    raiz->addLayout(meio, 1);

    auto* linha = new QHBoxLayout;
    for (int b : {1, 3, 4, 5})
        linha->addWidget(m_botoes[b]);
    linha->addStretch();
    linha->addWidget(m_botoes[0]);
    linha->addWidget(m_botoes[2]);
    raiz->addLayout(linha);

    // The part's box and the service's box live inside the lists' column.
    auto* gp = new QHBoxLayout(m_framePeca);
    gp->addWidget(new QLabel(QStringLiteral("Descrição"), m_framePeca));
    gp->addWidget(m_pecaDescricao, 3);
    gp->addWidget(new QLabel(QStringLiteral("Qtd"), m_framePeca));
    gp->addWidget(m_pecaQuantidade);
    gp->addWidget(new QLabel(QStringLiteral("V/Desc"), m_framePeca));
    gp->addWidget(m_pecaDesconto);
    gp->addWidget(new QLabel(QStringLiteral("V/Venda"), m_framePeca));
    gp->addWidget(m_pecaVenda);
    gp->addWidget(m_botoes[7]);
    gp->addWidget(m_botoes[8]);
    auto* gs = new QHBoxLayout(m_frameServico);
    gs->addWidget(new QLabel(QStringLiteral("Serviço"), m_frameServico));
    gs->addWidget(m_servicoNome, 3);
    gs->addWidget(new QLabel(QStringLiteral("V/Desc"), m_frameServico));
    gs->addWidget(m_servicoDesconto);
    gs->addWidget(new QLabel(QStringLiteral("V/Obra"), m_frameServico));
    gs->addWidget(m_servicoObra);
    gs->addWidget(m_botoes[10]);
    gs->addWidget(m_botoes[11]);
    for (int b : {7, 8, 10, 11}) {
        m_botoes[b]->setParent(b < 10 ? m_framePeca : m_frameServico);
        m_botoes[b]->setAutoDefault(false);
    }
    m_framePeca->hide();
    m_frameServico->hide();

    connect(m_botoes[0], &QPushButton::clicked, this, [this] { salvar(); });
    connect(m_botoes[1], &QPushButton::clicked, this, &OrdemServicoTecnico::autorizar);
    connect(m_botoes[2], &QPushButton::clicked, this, &OrdemServicoTecnico::sairOuCancelar);
    connect(m_botoes[3], &QPushButton::clicked, this, &OrdemServicoTecnico::estoque);
    connect(m_botoes[4], &QPushButton::clicked, this, &OrdemServicoTecnico::manual);
    connect(m_botoes[5], &QPushButton::clicked, this, [this] {
        m_lServ->setVisible(true);
        m_lServ->setFocus();
    });
    connect(m_botoes[6], &QPushButton::clicked, this, &OrdemServicoTecnico::removePeca);
    connect(m_botoes[7], &QPushButton::clicked, this, &OrdemServicoTecnico::adicionaPeca);
    connect(m_botoes[8], &QPushButton::clicked, this, &OrdemServicoTecnico::fechaPeca);
    connect(m_botoes[9], &QPushButton::clicked, this, &OrdemServicoTecnico::removeServico);
    connect(m_botoes[10], &QPushButton::clicked, this, &OrdemServicoTecnico::alteraServico);
    connect(m_botoes[11], &QPushButton::clicked, this, [this] {
        m_frameServico->hide();
        m_servicoAberto = -1;
    });
    resize(1300, 700);
}

QWidget* OrdemServicoTecnico::montaCampos()
{
    auto* w = new QWidget(this);
    auto* g = new QGridLayout(w);
    g->setContentsMargins(0, 0, 0, 0);
    m_tecnico = new QComboBox(w);
    m_tecnico->setObjectName(QStringLiteral("CTecnico"));
    m_armazenado = new QLineEdit(w);
    m_armazenado->setObjectName(QStringLiteral("TxtArmazenado"));
    m_observacao = caixaTexto(w, QStringLiteral("TxtObservacao"), 60);
    m_servicoReal = caixaTexto(w, QStringLiteral("TxtServicoreal"), 60);
    m_defeitoReal = caixaTexto(w, QStringLiteral("TxtDefeitoReal"), 60);
    m_sintoma = caixaTexto(w, QStringLiteral("TxtSintoma"), 50);
    m_lDef = new QListWidget(w);
    m_lDef->setObjectName(QStringLiteral("LDef"));
    m_lDef->setMaximumHeight(60);
    m_lDef->setToolTip(QStringLiteral("Duplo clique remove o defeito"));
    m_comboDef = new QComboBox(w);
    m_comboDef->setObjectName(QStringLiteral("CDefeito"));
    m_servicoExecutado = caixaTexto(w, QStringLiteral("TxtServicoExecutado"), 50);
    m_status = new QLineEdit(w);
    m_status->setObjectName(QStringLiteral("TxtStatusConserto"));
    int l = 0;
    auto linha = [&](const QString& rotulo, QWidget* campo) {
        g->addWidget(new QLabel(rotulo, w), l, 0, Qt::AlignTop);
        g->addWidget(campo, l++, 1);
    };
    linha(QStringLiteral("Nome do Técnico:"), m_tecnico);
    linha(QStringLiteral("Local:"), m_armazenado);
    linha(QStringLiteral("Observação:"), m_observacao);
    linha(QStringLiteral("Serviço real:"), m_servicoReal);
    linha(QStringLiteral("Defeito constatado:"), m_defeitoReal);
    auto* sintomas = new QWidget(w);
    auto* vs = new QVBoxLayout(sintomas);
    vs->setContentsMargins(0, 0, 0, 0);
    vs->addWidget(m_sintoma);
    vs->addWidget(m_comboDef);
    vs->addWidget(m_lDef);
    linha(QStringLiteral("Sintoma:"), sintomas);
    linha(QStringLiteral("Serviço executado"), m_servicoExecutado);
    linha(QStringLiteral("Status:"), m_status);

    auto* situacao = new QGroupBox(QStringLiteral("Situação do conserto."), w);
    situacao->setObjectName(QStringLiteral("FrameSituacao"));
    auto* vo = new QHBoxLayout(situacao);
    const char* textos[] = {"Consertado.", "Orçamento.", "Aguarda peça.", "Devolver ao cliente."};
    for (int i = 0; i < 4; ++i) {
        auto* op = new QRadioButton(QString::fromUtf8(textos[i]), situacao);
        op->setObjectName(QStringLiteral("Opcao(%1)").arg(i));
        vo->addWidget(op);
        m_opcoes << op;
        connect(op, &QRadioButton::clicked, this, [this, i] { escolheSituacao(i); });
    }
    g->addWidget(situacao, l++, 0, 1, 2);
    m_bloqueado = new QCheckBox(QStringLiteral("Orçamento bloqueado"), w);
    m_bloqueado->setObjectName(QStringLiteral("ChkBloqueado"));
    g->addWidget(m_bloqueado, l++, 0, 1, 2);
    connect(m_bloqueado, &QCheckBox::clicked, this, &OrdemServicoTecnico::cliqueBloqueio);

    auto* valores = new QGridLayout;
    m_maoObra = new QLineEdit(w);
    m_maoObra->setObjectName(QStringLiteral("TxtMaoObra"));
    m_valorVenda = new QLineEdit(w);
    m_valorVenda->setObjectName(QStringLiteral("TxtValorVenda"));
    m_valorPagar = new QLineEdit(w);
    m_valorPagar->setObjectName(QStringLiteral("TxtValorPagar"));
    m_valorPecas = new QLineEdit(w);
    m_valorPecas->setObjectName(QStringLiteral("TxtValorPecas"));
    m_valorDescontoPeca = new QLineEdit(w);
    m_valorDescontoPeca->setObjectName(QStringLiteral("TxtValorDescontoPeca"));
    m_valorPecas->hide();
    m_valorDescontoPeca->hide();
    const QPair<QString, QLineEdit*> caixas[] = {{QStringLiteral("Mão de obra"), m_maoObra},
                                                  {QStringLiteral("Valor peças"), m_valorVenda},
                                                  {QStringLiteral("Valor à pagar"), m_valorPagar}};
    int c = 0;
    for (const auto& [rotulo, caixa] : caixas) {
        caixa->setAlignment(Qt::AlignRight);
        caixa->setMaxLength(15);
        valores->addWidget(new QLabel(rotulo, w), 0, c);
        valores->addWidget(caixa, 1, c++);
    }
    g->addLayout(valores, l++, 0, 1, 2);
    g->setRowStretch(l, 1);

    for (QWidget* x : std::initializer_list<QWidget*>{m_armazenado, m_observacao, m_servicoReal, m_defeitoReal,
                                                      m_sintoma, m_servicoExecutado, m_status, m_maoObra,
                                                      m_valorVenda, m_valorPagar})
        x->installEventFilter(this);
    connect(m_tecnico, &QComboBox::activated, this, [this](int i) {
        if (!marcaAlterado()) {
            m_mostrando = true;
            m_tecnico->setCurrentText(m_ordem.Tecnico);
            m_mostrando = false;
            return;
        }
        // The technician chosen signs the order from now on.
        sessao().TecnicoNome = m_tecnico->itemText(i);
        sessao().TecnicoCodigo = m_tecnico->itemData(i).toString();
    });
    connect(m_comboDef, &QComboBox::activated, this, &OrdemServicoTecnico::adicionaDefeito);
    connect(m_lDef, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) {
        const int i = m_lDef->row(it);
        if (i < 0 || !marcaAlterado())
            return;
        m_ordem.sintomas.removeAt(i);
        mostraDefeitos();
        aviso(QStringLiteral("Removido"));
    });
    connect(m_maoObra, &QLineEdit::editingFinished, this, &OrdemServicoTecnico::maoObraDigitada);
    return w;
}

