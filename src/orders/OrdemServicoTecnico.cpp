#include "orders/OrdemServicoTecnico.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "orders/BancadaOrdem.h"
#include "orders/CatalogosOrdem.h"
#include "orders/EntregaOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/RecusaTela.h"
#include "orders/TransicoesOrdem.h"
#include "orders/TravaOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/EntregaTelas.h"
#include "shell/Avisos.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Sair = QStringLiteral("Sai&r");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString OrigemSenha = QStringLiteral("OrdemTecnico");
const QString Painel = QStringLiteral("Pendencia");
const QString TituloErroGravar = QStringLiteral("Erro ao gravar formulário,");
const QString TituloErroCarregar = QStringLiteral("Erro ao carregar formulário,");
// The lock box shows green while the order is free.
const QString CorLivre = QStringLiteral("color: rgb(0, 192, 0);");  // decimal 49152

bool ativaSer() { return Sessao::verdadeiro(sessao().CfgAtivaSer); }
bool ativaDef() { return Sessao::verdadeiro(sessao().CfgAtivaDef); }

QPlainTextEdit* caixaTexto(QWidget* pai, const QString& nome, int altura)
{
    auto* t = new QPlainTextEdit(pai);
    t->setObjectName(nome);
    t->setMaximumHeight(altura);
    t->setTabChangesFocus(true);
    return t;
}
} // namespace

OrdemServicoTecnico::OrdemServicoTecnico(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("OrdemServicoTecnico"));
    setAttribute(Qt::WA_DeleteOnClose);
    montaTela();
    Pintura::pinta(this);
    AcoesSenha::registrar(OrigemSenha, this, [this] { salvar(); });
    m_banco = Conexoes::nova();
    if (!m_banco)
        return;
    try {
        m_tecnico->addItem(QString(), QString());
        for (const BancadaOrdem::Tecnico& t : BancadaOrdem::tecnicos(*m_banco))
            m_tecnico->addItem(t.nome, t.codigo);
        for (const ServicoCatalogo& s : CatalogosOrdem::servicos(*m_banco)) {
            const int l = m_lServ->rowCount();
            m_lServ->insertRow(l);
            const QStringList celulas{QString::number(s.Codigo), s.CodServico,
                                      s.Servico.isNull() ? QStringLiteral("1") : s.Servico, s.ValorObra.texto(),
                                      s.ValorObraMinimo.texto()};
            for (int c = 0; c < celulas.size(); ++c)
                m_lServ->setItem(l, c, new QTableWidgetItem(celulas.at(c)));
            m_lServ->item(l, 0)->setData(Qt::UserRole, s.CodServico);
        }
        for (const DefeitoCatalogo& d : CatalogosOrdem::defeitos(*m_banco))
            m_comboDef->addItem(d.Defeito, d.CodDefeito);
        m_comboDef->setCurrentIndex(-1);
        m_total = EntregaOrdem::contarVivas(*m_banco);
        if (const auto primeira = EntregaOrdem::primeiraViva(*m_banco))
            carregaOrdem(*primeira);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
    }
    poeTitulo();
}

OrdemServicoTecnico::~OrdemServicoTecnico() = default;

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
    for (QPlainTextEdit* t : {m_observacao, m_servicoReal, m_defeitoReal, m_sintoma, m_servicoExecutado})
        t->viewport()->installEventFilter(this);
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

// --- showing an order ------------------------------------------------------------------------

void OrdemServicoTecnico::poeTitulo()
{
    QString t = QStringLiteral("Ordem de Serviço Técnico  ") + QString::number(m_total) + QStringLiteral("   registros");
    if (!m_ordem.nova())
        t += QStringLiteral("  --------   Alterado por: ") + m_ordem.OsAlterado;
    setWindowTitle(t);
}

bool OrdemServicoTecnico::carregaOrdem(qint64 codOsAut)
{
    if (!m_banco)
        return false;
    try {
        const auto o = GravacaoOrdem::carregar(*m_banco, codOsAut);
        if (!o || o->Excluidos) {
            Dialogos::mensagem(this, QStringLiteral("Ordem de serviço não encontrada."), {}, Dialogos::Icone::Aviso);
            return false;
        }
        m_guardada = *o;
        mostra(*o);
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
        return false;
    }
}

void OrdemServicoTecnico::abreOrdem(const QVariantMap& dados)
{
    // Another order would otherwise replace typed changes without a word.
    if (m_alterado) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração desta O.S antes de abrir outra."), {},
                           Dialogos::Icone::Aviso);
        return;
    }
    carregaOrdem(dados.value(QStringLiteral("CodOsAut")).toLongLong());
}

void OrdemServicoTecnico::mostra(const Ordem& o)
{
    m_mostrando = true;
    m_ordem = o;
    m_consertadoNaCarga = o.Consertado;
    m_frameOrdem->setTitle(QStringLiteral("Código da O.S: ") + QString::number(o.CodOs));
    m_cliente->setText(QStringLiteral("Cód: ") + o.CodCliente + QStringLiteral("   ") + o.NomeCliente
                       + QStringLiteral("   Fone: ") + MascaraTelefone(o.Telefone) + QStringLiteral("   Entrada  ")
                       + Datas::bancoParaTela(o.DataEntrada));
    m_aparelho->setText(o.Tipo + QStringLiteral("  ") + o.Marca + QStringLiteral("  Modelo: ") + o.Modelo
                        + QStringLiteral("  Série: ") + o.NumeroSerie + QStringLiteral("  Acessórios: ") + o.Acessorio);
    // An order nobody signed yet shows who is working on it now.
    const QString tecnico = o.Tecnico.isEmpty() ? sessao().UsuarioNome : o.Tecnico;
    if (m_tecnico->findText(tecnico) < 0)
        m_tecnico->addItem(tecnico, o.CodTecnico);
    m_tecnico->setCurrentText(tecnico);
    sessao().TecnicoCodigo = o.CodTecnico;
    sessao().TecnicoNome = o.Tecnico;
    m_armazenado->setText(o.Armazenado);
    m_observacao->setPlainText(o.Observacao);
    m_servicoReal->setPlainText(o.Servicoreal);
    m_defeitoReal->setPlainText(o.DefeitoReal);
    m_sintoma->setPlainText(o.Sintoma);
    m_servicoExecutado->setPlainText(o.ServicoExecutado);
    m_status->setText(o.StatusConserto);
    const Situacao s = EstadoOrdem::situacao(o);
    for (int i = 0; i < 4; ++i) {
        m_opcoes[i]->setAutoExclusive(false);
        m_opcoes[i]->setChecked(static_cast<int>(s) == i + 1);
        m_opcoes[i]->setAutoExclusive(true);
    }
    m_bloqueado->setChecked(o.OrdemBloqueada);
    m_bloqueado->setStyleSheet(o.OrdemBloqueada ? QString() : CorLivre);
    const bool def = ativaDef(), ser = ativaSer();
    m_sintoma->setVisible(!def);
    m_lDef->setVisible(def);
    m_comboDef->setVisible(def);
    m_servicoExecutado->setReadOnly(ser);
    m_maoObra->setReadOnly(ser);
    m_lExec->setEnabled(ser);
    m_botoes[5]->setEnabled(ser);
    fechaPeca();
    m_frameServico->hide();
    mostraDefeitos();
    mostraServicos();
    mostraPecas();
    mostraValores();
    mostraResposta();
    m_mostrando = false;
    desmarca();
    poeTitulo();
}

void OrdemServicoTecnico::mostraResposta()
{
    const LegendaResposta l = EstadoOrdem::legenda(m_ordem, false);
    m_resposta->setText(l.texto);
    m_resposta->setToolTip(l.dica);
    m_botoes[1]->setEnabled(!m_ordem.Garantia);
}

// --- changes ---------------------------------------------------------------------------------

bool OrdemServicoTecnico::marcaAlterado()
{
    if (m_ordem.nova())
        return false;
    TravaOrdem::aoEditar(m_ordem, TelaOrdem::Bancada);
    if (!m_ordem.OrdemBloqueada && m_bloqueado->isChecked()) {
        m_bloqueado->setChecked(false);
        m_bloqueado->setStyleSheet(CorLivre);
    }
    if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Bancada)) {
        mostraRecusa(*r);
        return false;
    }
    if (!m_alterado) {
        m_alterado = true;
        m_botoes[2]->setText(Cancelar);
        m_botoes[2]->setToolTip(QStringLiteral("Cancela a alteração"));
    }
    return true;
}

void OrdemServicoTecnico::desmarca()
{
    m_alterado = false;
    m_botoes[2]->setText(Sair);
    m_botoes[2]->setToolTip(QStringLiteral("Fecha o formulário"));
}

void OrdemServicoTecnico::mostraRecusa(const Recusa& r) { RecusaTela::mostrar(this, r); }

void OrdemServicoTecnico::aviso(const QString& texto, const QString& segunda)
{
    auto* a = new AvisoTransitorio(texto, segunda.isEmpty() ? 1500 : 2000, true, this);
    a->setObjectName(QStringLiteral("AvisoTecnico"));
    a->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* l = a->findChild<QLabel*>(QStringLiteral("Label2")); l && !segunda.isEmpty()) {
        l->setText(segunda);
        l->show();
    }
    a->show();
}

bool OrdemServicoTecnico::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::KeyPress && !m_mostrando) {
        auto* k = static_cast<QKeyEvent*>(e);
        const bool navega = k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab || k->key() == Qt::Key_Return
            || k->key() == Qt::Key_Enter || k->key() == Qt::Key_Escape;
        const bool edita = !k->text().isEmpty() || k->key() == Qt::Key_Backspace || k->key() == Qt::Key_Delete;
        auto* caixa = qobject_cast<QLineEdit*>(alvo);
        auto* texto = qobject_cast<QPlainTextEdit*>(alvo);
        const bool soLeitura = (caixa && caixa->isReadOnly()) || (texto && texto->isReadOnly());
        // A locked or finalised order is refused before the key lands in the box.
        if (!navega && edita && !soLeitura && !marcaAlterado())
            return true;
    }
    if (e->type() == QEvent::MouseButtonPress && m_ordem.nova())
        return false;
    return QWidget::eventFilter(alvo, e);
}

void OrdemServicoTecnico::cliqueBloqueio()
{
    // Only the budget right releases the lock; anyone else finds it ticked again.
    if (sessao().DireitoAltOrca != 1) {
        m_bloqueado->setChecked(m_ordem.OrdemBloqueada);
        return;
    }
    if (!marcaAlterado())
        return;
    m_ordem.OrdemBloqueada = m_bloqueado->isChecked();
    m_bloqueado->setStyleSheet(m_ordem.OrdemBloqueada ? QString() : CorLivre);
}

Situacao OrdemServicoTecnico::situacaoEscolhida() const
{
    for (int i = 0; i < 4; ++i)
        if (m_opcoes[i]->isChecked())
            return static_cast<Situacao>(i + 1);
    return Situacao::Nenhuma;
}

void OrdemServicoTecnico::escolheSituacao(int opcao)
{
    if (!marcaAlterado()) {
        // Refused: the options show the order as it stands.
        const Situacao s = EstadoOrdem::situacao(m_ordem);
        for (int i = 0; i < 4; ++i) {
            m_opcoes[i]->setAutoExclusive(false);
            m_opcoes[i]->setChecked(static_cast<int>(s) == i + 1);
            m_opcoes[i]->setAutoExclusive(true);
        }
        return;
    }
    const Situacao s = static_cast<Situacao>(opcao + 1);
    if (s == Situacao::Consertado) {
        m_status->setText(BancadaOrdem::linhaStatus(m_ordem.Tipo, s));
        return;
    }
    // Leaving "Consertado." is only warned about: the parts stay taken from stock.
    if (m_consertadoNaCarga) {
        Dialogos::mensagem(this, BancadaOrdem::MsgConsertado, {}, Dialogos::Icone::Aviso);
        return;
    }
    m_status->setText(BancadaOrdem::linhaStatus(m_ordem.Tipo, s));
}

void OrdemServicoTecnico::autorizar()
{
    if (!marcaAlterado())
        return;
    try {
        TransicoesOrdem::autorizarNaBancada(m_ordem);
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return;
    }
    mostraResposta();
}

// --- save and leave --------------------------------------------------------------------------

bool OrdemServicoTecnico::ordemDosCampos(Ordem& o)
{
    o.Tecnico = m_tecnico->currentText().trimmed();
    o.Armazenado = m_armazenado->text();
    o.Observacao = m_observacao->toPlainText();
    o.Servicoreal = m_servicoReal->toPlainText();
    o.DefeitoReal = m_defeitoReal->toPlainText();
    if (!ativaDef())
        o.Sintoma = m_sintoma->toPlainText();
    if (!ativaSer())
        o.ServicoExecutado = m_servicoExecutado->toPlainText();
    o.StatusConserto = m_status->text();
    // The three amounts as they stand: a typed one that isn't an amount stops the save.
    const QPair<QLineEdit*, Dinheiro Ordem::*> valores[] = {
        {m_maoObra, &Ordem::MaoObra}, {m_valorVenda, &Ordem::ValorVenda}, {m_valorPagar, &Ordem::ValorPagar}};
    for (const auto& [caixa, coluna] : valores) {
        QString erro;
        const auto v = ValoresOrdem::lerValor(caixa->text(), caixa->objectName().mid(3), &erro);
        if (!v) {
            Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
            caixa->setFocus();
            return false;
        }
        o.*coluna = *v;
    }
    return true;
}

bool OrdemServicoTecnico::salvar()
{
    if (!m_banco || m_ordem.nova())
        return false;
    if (RecusaTela::esperaSenha(OrigemSenha))
        return false;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return false;
    const Situacao antes = EstadoOrdem::situacao(m_guardada);
    QStringList reposicao;
    try {
        reposicao = TransicoesOrdem::salvarBancada(*m_banco, o, situacaoEscolhida());
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return false;
    } catch (const RegistroAlterado& e) {
        Dialogos::mensagem(this, e.mensagem(), {}, Dialogos::Icone::Aviso);
        return false;
    } catch (const ErroBanco& e) {
        // Nothing was written: the screen keeps what was typed, to be saved again.
        Dialogos::erro(this, TituloErroGravar, e.textoCompleto());
        return false;
    }
    m_guardada = o;
    mostra(o);
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    for (const QString& descricao : std::as_const(reposicao))
        aviso(QStringLiteral("Pedido estoque"), descricao);
    if (EstadoOrdem::situacao(o) != antes && EntregaTelas::disponivel(Painel))
        EntregaTelas::abrirCom(Painel, EntregaTelas::AtualizaPainel, {});
    return true;
}

void OrdemServicoTecnico::sairOuCancelar()
{
    if (m_botoes[2]->text() == Cancelar) {
        // The row as stored now, with what other stations saved meanwhile.
        m_alterado = false;
        if (!carregaOrdem(m_guardada.CodOsAut))
            mostra(m_guardada);
        return;
    }
    RegistroTelas::fecharJanela(this);
}

void OrdemServicoTecnico::closeEvent(QCloseEvent* e)
{
    if (m_alterado) {
        const auto r = Dialogos::mensagem(this, QStringLiteral("Você alterou o registro,deseja salvar ?"), {},
                                          Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
        if (r == Dialogos::Resposta::Cancelar) {
            e->ignore();
            return;
        }
        if (r == Dialogos::Resposta::Sim && !salvar()) {
            e->ignore();
            return;
        }
    }
    RecusaTela::aoSairDaTela(this);
    e->accept();
}

TOLDEX_REGISTRA_TELA(OrdemServicoTecnico)
