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
#include "orders/BotaoAviso.h"
#include "orders/CatalogosOrdem.h"
#include "orders/EntregaOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/ListaAvisos.h"
#include "orders/RecusaTela.h"
#include "orders/TransicoesOrdem.h"
#include "orders/TravaOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/EntregaTelas.h"
#include "shell/Avisos.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
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
    m_avisar->defineOrdem(*m_banco, o.CodOsAut, AvisoCliente::sugerida(o));
    m_avisos->mostrar(*m_banco, o.CodOsAut);
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
        // A locked or finalised order is refused before the key lands in the box.
        if (Campos::teclaAltera(alvo, static_cast<QKeyEvent*>(e)) && !marcaAlterado())
            return true;
    }
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
