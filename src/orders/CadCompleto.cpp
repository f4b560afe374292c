#include "orders/CadCompleto.h"
#include "orders/BotaoAviso.h"
#include "orders/ListaAvisos.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlRecord>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "orders/BancadaOrdem.h"
#include "orders/CatalogosOrdem.h"
#include "orders/EntregaOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/RecusaTela.h"
#include "orders/TravaOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/BuscaClientes.h"
#include "registers/CamposDocumento.h"
#include "shell/Avisos.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/FotoCadastro.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Sair = QStringLiteral("Sai&r");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString TituloErroCarregar = QStringLiteral("Erro ao carregar formulário,");
// The customer box offers this many names: enough to choose from while typing.
constexpr int NomesOferecidos = 12;

// The plain text columns and the boxes that show them.
const QPair<const char*, QString Ordem::*> ColunasTexto[] = {
    {"CodCliente", &Ordem::CodCliente},       {"NomeCliente", &Ordem::NomeCliente},
    {"Endereco", &Ordem::Endereco},           {"Ncasa", &Ordem::Ncasa},
    {"Bairro", &Ordem::Bairro},               {"Cidade", &Ordem::Cidade},
    {"Modelo", &Ordem::Modelo},               {"CorProduto", &Ordem::CorProduto},
    {"NumeroSerie", &Ordem::NumeroSerie},     {"Certificado", &Ordem::Certificado},
    {"NotaFiscal", &Ordem::NotaFiscal},       {"Revendedor", &Ordem::Revendedor},
    {"EstadoAparelho", &Ordem::EstadoAparelho}, {"Acessorio", &Ordem::Acessorio},
    {"Armazenado", &Ordem::Armazenado},       {"CodFabrica", &Ordem::CodFabrica},
    {"DadosContato", &Ordem::DadosContato},   {"StatusConserto", &Ordem::StatusConserto},
    {"HoraSolicitada", &Ordem::HoraSolicitada}};
const QPair<const char*, QString Ordem::*> ColunasMultilinha[] = {
    {"Sintoma", &Ordem::Sintoma},           {"Observacao", &Ordem::Observacao},
    {"DefeitoReal", &Ordem::DefeitoReal},   {"Servicoreal", &Ordem::Servicoreal},
    {"ServicoExecutado", &Ordem::ServicoExecutado}};
const QPair<const char*, QString Ordem::*> ColunasData[] = {
    {"DataNota", &Ordem::DataNota},         {"DataEntrada", &Ordem::DataEntrada},
    {"DataSaida", &Ordem::DataSaida},       {"DataContato", &Ordem::DataContato},
    {"DataEntrega", &Ordem::DataEntrega}};
const QPair<const char*, QString Ordem::*> ColunasTelefone[] = {
    {"Telefone", &Ordem::Telefone}, {"Celular", &Ordem::Celular}};
const QPair<const char*, Dinheiro Ordem::*> ColunasDinheiro[] = {
    {"ValorPorcentagem", &Ordem::ValorPorcentagem}, {"MaoObra", &Ordem::MaoObra},
    {"ValorVenda", &Ordem::ValorVenda},             {"ValorPagar", &Ordem::ValorPagar}};

// The band's text after the kind of appliance, for each caption of the answer.
QString textoBanda(LegendaResposta::Tipo t)
{
    switch (t) {
    case LegendaResposta::Aprovado: return QStringLiteral(" CLIENTE APROVOU ORÇAMENTO");
    case LegendaResposta::Recusado: return QStringLiteral(" CLIENTE NÃO AUTORIZOU O ORÇAMENTO");
    case LegendaResposta::Indeciso: return QStringLiteral(" CLIENTE AINDA NÃO AUTORIZOU O ORÇAMENTO");
    case LegendaResposta::Garantia: return QStringLiteral(" APARELHO ESTÁ NA GARANTIA");
    case LegendaResposta::Devolver: return QStringLiteral(" ESTÁ SEM DEFEITO OU SEM PEÇA PARA REPOSIÇÃO");
    }
    return {};
}

void pintaFundo(QLabel* l, const QColor& c)
{
    QPalette p = l->palette();
    p.setColor(QPalette::Window, c);
    l->setPalette(p);
}
} // namespace

CadCompleto::CadCompleto(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("CadCompleto"));
    setAttribute(Qt::WA_DeleteOnClose);
    montaTela();
    Pintura::pinta(this);
    m_fotos = new FotoCadastro(this, m_imgAparelho, m_imagem, 80);
    connect(m_imagem, &QLineEdit::textChanged, this, [this](const QString& caminho) {
        if (QString* c = caminhoFoto(m_ordem, m_foto))
            *c = caminho;
    });
    AcoesSenha::registrar(QStringLiteral("OrdemCompleta"), this, [this] { executaComSenha(); });
    m_banco = Conexoes::nova();
    if (m_banco)
        carregaCatalogos();
    limpa(false);
}

CadCompleto::~CadCompleto() = default;

void CadCompleto::carregaCatalogos()
{
    try {
        m_total = EntregaOrdem::contarVivas(*m_banco);
        for (const TipoAparelho& t : CatalogosOrdem::tipos(*m_banco))
            m_tipo->addItem(t.Tipo, t.CodTipo);
        m_marca->addItems(CatalogosOrdem::marcas(*m_banco));
        for (const DefeitoCatalogo& d : CatalogosOrdem::defeitos(*m_banco)) {
            auto* it = new QListWidgetItem(d.Defeito, m_lCad);
            it->setData(Qt::UserRole, d.CodDefeito);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
    }
    try {
        for (const ServicoCatalogo& s : CatalogosOrdem::servicos(*m_banco)) {
            const int l = m_lServ->rowCount();
            m_lServ->insertRow(l);
            m_lServ->setItem(l, 0, new QTableWidgetItem(s.Servico));
            m_lServ->setItem(l, 1, new QTableWidgetItem(s.ValorObra.texto()));
            m_lServ->setItem(l, 2, new QTableWidgetItem(s.ValorObraMinimo.texto()));
            m_lServ->item(l, 0)->setData(Qt::UserRole, s.CodServico);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this,
                       QStringLiteral("Erro ao carregar lista de serviço,\nhouve uma perda na comunicação ao banco de "
                                      "dados,informe o erro ao suporte.FECHE O FORMULÁRIO E TENTE NOVAMENTE"),
                       e.textoCompleto());
    }
    try {
        m_tecnico->addItem(QString(), QString());
        for (const BancadaOrdem::Tecnico& t : BancadaOrdem::tecnicos(*m_banco))
            m_tecnico->addItem(t.nome, t.codigo);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar lista de funcionário,Informe o erro ao suporte."),
                       e.textoCompleto());
    }
    const bool def = Sessao::verdadeiro(sessao().CfgAtivaDef), ser = Sessao::verdadeiro(sessao().CfgAtivaSer);
    m_frameDefeitos->setVisible(def);
    m_textos.value(QStringLiteral("Sintoma"))->setVisible(!def);
    m_frameServicos->setVisible(ser);
    m_textos.value(QStringLiteral("ServicoExecutado"))->setReadOnly(ser);
    m_linhas.value(QStringLiteral("MaoObra"))->setReadOnly(ser);
}

void CadCompleto::poeTitulo()
{
    QString t = QStringLiteral("Cadastro de Ordem de Serviço   ") + QString::number(m_total)
        + QStringLiteral("   registros");
    if (!m_ordem.nova())
        t += QStringLiteral("  --------   Alterado por: ") + m_ordem.OsAlterado;
    setWindowTitle(t);
}

// --- showing ---------------------------------------------------------------------------------

void CadCompleto::limpa(bool manterCliente)
{
    Ordem o;
    if (manterCliente) {
        for (const char* c : {"CodCliente", "NomeCliente", "Endereco", "Ncasa", "Bairro", "Cidade"})
            for (const auto& [coluna, membro] : ColunasTexto)
                if (qstrcmp(coluna, c) == 0)
                    o.*membro = m_ordem.*membro;
        o.CpfCnpj = m_ordem.CpfCnpj;
        o.Telefone = m_ordem.Telefone;
        o.Celular = m_ordem.Celular;
    }
    o.DataEntrega = Datas::hoje();
    o.HoraSolicitada = Datas::agoraHora();
    m_guardada = Ordem{};
    mostra(o);
}

bool CadCompleto::carregaOrdem(qint64 codOsAut)
{
    if (!m_banco)
        return false;
    try {
        const auto o = GravacaoOrdem::carregar(*m_banco, codOsAut);
        if (!o || o->Excluidos) {
            Dialogos::mensagem(this, QStringLiteral("Ordem de serviço não encontrada."), {}, Dialogos::Icone::Aviso);
            return false;
        }
        m_novo = false;
        m_retornoGarantia = false;
        m_guardada = *o;
        mostra(*o);
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
        return false;
    }
}

void CadCompleto::abreOrdem(const QVariantMap& dados)
{
    // Another order would otherwise replace typed changes without a word.
    if (m_alterado) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração desta O.S antes de abrir outra."), {},
                           Dialogos::Icone::Aviso);
        return;
    }
    carregaOrdem(dados.value(QStringLiteral("CodOsAut")).toLongLong());
}

void CadCompleto::mostraOrdem(const QVariantMap& dados) { abreOrdem(dados); }

void CadCompleto::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && !m_alterado)
        incluir();
}

void CadCompleto::novoComCliente(const QVariantMap& dados)
{
    if (m_alterado)
        return;
    m_ordem = Ordem{};
    limpa(false);
    incluir();
    clienteEscolhido(dados.value(QStringLiteral("CodCliente")).toString());
}

void CadCompleto::mostra(const Ordem& o)
{
    m_mostrando = true;
    m_ordem = o;
    // Only what is stored counts: its parts have left stock.
    m_consertadoNaCarga = !m_guardada.nova() && m_guardada.Consertado;
    for (const auto& [coluna, membro] : ColunasTexto)
        m_linhas.value(QLatin1String(coluna))->setText(o.*membro);
    for (const auto& [coluna, membro] : ColunasMultilinha)
        m_textos.value(QLatin1String(coluna))->setPlainText(o.*membro);
    for (const auto& [coluna, membro] : ColunasData)
        m_linhas.value(QLatin1String(coluna))->setText(Datas::bancoParaTela(o.*membro));
    for (const auto& [coluna, membro] : ColunasTelefone)
        m_linhas.value(QLatin1String(coluna))->setText(MascaraTelefone(o.*membro));
    CamposDocumento::mostraCnpjCpf(m_linhas.value(QStringLiteral("CpfCnpj")), MascaraCnpjCpf(o.CpfCnpj));
    m_cpfChecado = m_linhas.value(QStringLiteral("CpfCnpj"))->text();
    m_linhas.value(QStringLiteral("CodOs"))->setText(o.CodOs ? QString::number(o.CodOs) : QString());
    m_tipo->setEditText(o.Tipo);
    m_marca->setEditText(o.Marca);
    m_opPorcento->setChecked(o.TipoPorcentagem);
    findChild<QRadioButton*>(QStringLiteral("OptValor"))->setChecked(!o.TipoPorcentagem);
    m_fabrica->setChecked(o.Fabrica);
    m_linhas.value(QStringLiteral("CodFabrica"))->setEnabled(o.Fabrica);
    const QString tecnico = o.Tecnico.isEmpty() ? sessao().UsuarioNome : o.Tecnico;
    if (m_tecnico->findText(tecnico) < 0)
        m_tecnico->addItem(tecnico, o.CodTecnico);
    m_tecnico->setCurrentText(tecnico);
    poeSituacao(EstadoOrdem::situacao(o));
    m_bloqueio->setChecked(o.OrdemBloqueada);
    m_pecaAberta = -1;
    m_servicoAberto = -1;
    mostraListas();
    mostraBanda();
    mostraHistorico();
    mostraAvisos();
    m_botoes[2]->setText(o.ChamadoTecnico ? QStringLiteral("&Retirado") : QStringLiteral("&Retirar"));
    m_rotuloEntrega->setText(o.ChamadoTecnico ? QStringLiteral("Dia retirar:") : QStringLiteral("Entregar Dia:"));
    m_rotuloContato->setText(o.ChamadoTecnico ? QStringLiteral("Hora combinada") : QStringLiteral("Data Contato:"));
    m_hora->setVisible(o.ChamadoTecnico);
    mostraFoto(m_foto);
    m_mostrando = false;
    desmarca();
    poeTitulo();
}

void CadCompleto::poeSituacao(Situacao s)
{
    for (int i = 0; i < 4; ++i) {
        m_opcoes[i]->setAutoExclusive(false);
        m_opcoes[i]->setChecked(static_cast<int>(s) == i + 1);
        m_opcoes[i]->setAutoExclusive(true);
    }
}

void CadCompleto::mostraBanda()
{
    const LegendaResposta l = EstadoOrdem::legenda(m_ordem, true);
    m_resposta->setText(m_ordem.nova() && !m_novo ? QString() : l.texto);
    m_resposta->setToolTip(l.dica);
    QString banda = m_ordem.Tipo + textoBanda(l.tipo);
    if (m_ordem.ChamadoTecnico)
        banda = QStringLiteral("AGUARDANDO RETIRADA DO APARELHO NA CASA DO CLIENTE");
    if (m_ordem.Saida)
        banda = QStringLiteral("ESTE APARELHO JÁ FOI RETIRADO PELO CLIENTE");
    m_banda->setText(m_ordem.nova() ? QString() : banda);
    // An approved order waiting as a budget or for a part blinks: the customer's yes is
    // waiting for the bench.
    const bool pisca = !m_ordem.nova() && m_ordem.Aprovado && (m_ordem.Orcamento || m_ordem.AguardaPeca);
    if (pisca && !m_avisaOrcamento->isActive())
        m_avisaOrcamento->start();
    else if (!pisca)
        m_avisaOrcamento->stop();
    m_pisca = false;
    pintaFundo(m_banda, pisca ? QColor(0, 255, 0) : palette().color(QPalette::Window));
}

void CadCompleto::pisca()
{
    m_pisca = !m_pisca;
    // Green (65280) and yellow (65535) in turn.
    pintaFundo(m_banda, m_pisca ? QColor(255, 255, 0) : QColor(0, 255, 0));
}

void CadCompleto::mostraAvisos()
{
    if (!m_banco)
        return;
    m_avisar->defineOrdem(*m_banco, m_ordem.CodOsAut, AvisoCliente::sugerida(m_ordem));
    m_avisos->mostrar(*m_banco, m_ordem.CodOsAut);
}

void CadCompleto::mostraHistorico()
{
    m_historico->setRowCount(0);
    // Only the orders of exactly this customer: none for one not registered yet.
    const QString codigo = m_ordem.CodCliente.trimmed();
    if (codigo.isEmpty() || !m_banco)
        return;
    QList<QSqlRecord> linhas;
    try {
        linhas = BuscaClientes::ordensDoCliente(*m_banco, codigo);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
        return;
    }
    m_historico->setRowCount(linhas.size());
    for (int l = 0; l < linhas.size(); ++l) {
        const QSqlRecord& r = linhas.at(l);
        const QStringList celulas{r.value(QStringLiteral("CodOs")).toString(), r.value(QStringLiteral("Tipo")).toString(),
                                  r.value(QStringLiteral("Marca")).toString(),
                                  r.value(QStringLiteral("NumeroSerie")).toString(),
                                  Dinheiro::deCentavos(r.value(QStringLiteral("ValorPagar")).toLongLong()).texto(),
                                  Datas::bancoParaTela(r.value(QStringLiteral("DataSaida")).toString()),
                                  r.value(QStringLiteral("CodOsAut")).toString()};
        for (int c = 0; c < celulas.size(); ++c)
            m_historico->setItem(l, c, new QTableWidgetItem(celulas.at(c)));
    }
}

// --- the change guard ---------------------------------------------------------------------------

bool CadCompleto::marcaAlterado()
{
    if (m_mostrando)
        return true;
    if (!m_novo && m_ordem.nova()) {
        // Nothing on show: a key typed in an empty form starts a new order.
        incluir();
        return m_novo;
    }
    if (!m_ordem.nova()) {
        TravaOrdem::aoEditar(m_ordem, TelaOrdem::Completa);
        if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Completa)) {
            mostraRecusa(*r);
            return false;
        }
    }
    if (!m_alterado) {
        m_alterado = true;
        // Delivery stays at hand: it saves what was typed before the till takes it.
        for (int i : {0, 2, 3, 4, 10, 29})
            m_botoes[i]->setEnabled(i == 2 || (i == 10 && !m_ordem.nova()));
        m_botoes[5]->setText(Cancelar);
        m_botoes[5]->setToolTip(QStringLiteral("Cancela a alteração"));
    }
    return true;
}

void CadCompleto::desmarca()
{
    m_alterado = false;
    const bool guardada = !m_ordem.nova();
    for (int i : {0, 2, 3, 4, 10, 29})
        m_botoes[i]->setEnabled(i == 0 || guardada || (m_novo && i == 2));
    m_botoes[1]->setEnabled(guardada || m_novo);
    m_botoes[5]->setText(m_novo ? Cancelar : Sair);
    m_botoes[5]->setToolTip(m_novo ? QStringLiteral("Cancela a alteração") : QStringLiteral("Fecha o formulário"));
}

void CadCompleto::mostraRecusa(const Recusa& r) { RecusaTela::mostrar(this, r); }

void CadCompleto::aviso(const QString& texto, const QString& segunda)
{
    auto* a = new AvisoTransitorio(texto, segunda.isEmpty() ? 1500 : 2000, true, this);
    a->setObjectName(QStringLiteral("AvisoCompleto"));
    a->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* l = a->findChild<QLabel*>(QStringLiteral("Label2")); l && !segunda.isEmpty()) {
        l->setText(segunda);
        l->show();
    }
    a->show();
}

bool CadCompleto::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::KeyPress && !m_mostrando) {
        // A locked or finalised order is refused before the key lands in the box.
        if (Campos::teclaAltera(alvo, static_cast<QKeyEvent*>(e)) && !marcaAlterado()) {
            if (!m_ordem.nova())
                Dialogos::mensagem(this, QStringLiteral("Esta ordem de serviço já foi definido seus valores e você "
                                                        "não tem permissão para alterar."),
                                   {}, Dialogos::Icone::Aviso);
            return true;
        }
    }
    return QWidget::eventFilter(alvo, e);
}

// --- the situation ---------------------------------------------------------------------------------

Situacao CadCompleto::situacaoEscolhida() const
{
    for (int i = 0; i < 4; ++i)
        if (m_opcoes[i]->isChecked())
            return static_cast<Situacao>(i + 1);
    return Situacao::Nenhuma;
}

void CadCompleto::escolheSituacao(int opcao)
{
    const Situacao s = static_cast<Situacao>(opcao + 1);
    // The parts of a repaired order have left stock: it stays repaired here.
    if (m_consertadoNaCarga && s != Situacao::Consertado) {
        Dialogos::mensagem(this, BancadaOrdem::MsgConsertado, {}, Dialogos::Icone::Aviso);
        poeSituacao(Situacao::Consertado);
        return;
    }
    if (!marcaAlterado()) {
        poeSituacao(EstadoOrdem::situacao(m_ordem));
        return;
    }
    m_linhas.value(QStringLiteral("StatusConserto"))->setText(BancadaOrdem::linhaStatus(m_tipo->currentText(), s));
}

// --- the customer --------------------------------------------------------------------------------

void CadCompleto::sugereNomes(const QString& digitado)
{
    m_modeloNomes->clear();
    if (!m_banco || digitado.trimmed().isEmpty())
        return;
    try {
        // The customer search's own condition, from the name's index: a few rows, never
        // the whole file.
        const auto r = BuscaClientes::buscar(*m_banco, BuscaClientes::Opcao::Nome, digitado, NomesOferecidos);
        for (const QSqlRecord& c : r.linhas) {
            auto* it = new QStandardItem(c.value(QStringLiteral("NomeCliente")).toString());
            it->setData(c.value(QStringLiteral("CodCliente")).toString(), Qt::UserRole);
            m_modeloNomes->appendRow(it);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o cliente,"), e.textoCompleto());
    }
}

void CadCompleto::clienteEscolhido(const QString& codCliente)
{
    if (!m_banco || codCliente.isEmpty())
        return;
    std::optional<EntradaRegras::ClienteBalcao> c;
    try {
        c = EntradaRegras::clientePorCodigo(*m_banco, codCliente);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o cliente,"), e.textoCompleto());
        return;
    }
    if (!c || !marcaAlterado())
        return;
    if (c->BloqCliente)
        Dialogos::mensagem(this, EntradaRegras::MsgClienteBloqueado, {}, Dialogos::Icone::Aviso);
    m_mostrando = true;
    m_linhas.value(QStringLiteral("CodCliente"))->setText(c->CodCliente);
    m_linhas.value(QStringLiteral("NomeCliente"))->setText(c->NomeCliente);
    m_linhas.value(QStringLiteral("Endereco"))->setText(c->enderecoComComplemento());
    m_linhas.value(QStringLiteral("Ncasa"))->setText(c->Numero);
    m_linhas.value(QStringLiteral("Bairro"))->setText(c->Bairro);
    m_linhas.value(QStringLiteral("Cidade"))->setText(c->Cidade);
    m_linhas.value(QStringLiteral("Telefone"))->setText(MascaraTelefone(c->Telefone));
    m_linhas.value(QStringLiteral("Celular"))->setText(MascaraTelefone(c->Celular));
    if (!c->CnpjCpf.isEmpty()) {
        CamposDocumento::mostraCnpjCpf(m_linhas.value(QStringLiteral("CpfCnpj")), MascaraCnpjCpf(c->CnpjCpf));
        m_cpfChecado = m_linhas.value(QStringLiteral("CpfCnpj"))->text();
    }
    m_ordem.CodCliente = c->CodCliente;
    m_mostrando = false;
    mostraHistorico();
    m_tipo->setFocus();
}

void CadCompleto::aoSairCpf()
{
    QLineEdit* cpf = m_linhas.value(QStringLiteral("CpfCnpj"));
    if (cpf->text().trimmed().isEmpty() || cpf->text() == m_cpfChecado || !m_banco)
        return;
    if (!CamposDocumento::checaCnpjCpf(cpf))
        return;
    m_cpfChecado = cpf->text();
    try {
        if (const auto c = EntradaRegras::clientePorDocumento(*m_banco, cpf->text()))
            clienteEscolhido(c->CodCliente);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao procurar o cliente,"), e.textoCompleto());
    }
}

void CadCompleto::buscaPorCodigo()
{
    if (!m_banco)
        return;
    const auto numero = Dialogos::entrada(this, QStringLiteral("Digite o número da ordem de serviço"),
                                          QStringLiteral("Buscar O.S"));
    if (!numero || numero->trimmed().isEmpty())
        return;
    bool ok = false;
    const qint64 codOs = numero->trimmed().toLongLong(&ok);
    try {
        const QVariant chave = ok ? m_banco->escalar(QStringLiteral("SELECT MIN(CodOsAut) FROM OrdemServico WHERE "
                                                                    "CodOs = ? AND Excluidos = 0"),
                                                     {codOs})
                                  : QVariant();
        if (chave.isNull()) {
            Dialogos::mensagem(this, QStringLiteral("Ordem de serviço não encontrada."), {}, Dialogos::Icone::Aviso);
            return;
        }
        abreOrdem({{QStringLiteral("CodOsAut"), chave.toLongLong()}});
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, TituloErroCarregar, e.textoCompleto());
    }
}

// --- the boxes into the order ---------------------------------------------------------------------

bool CadCompleto::ordemDosCampos(Ordem& o)
{
    for (const auto& [coluna, membro] : ColunasTexto)
        o.*membro = m_linhas.value(QLatin1String(coluna))->text();
    for (const auto& [coluna, membro] : ColunasMultilinha)
        if (!m_textos.value(QLatin1String(coluna))->isReadOnly())
            o.*membro = m_textos.value(QLatin1String(coluna))->toPlainText();
    for (const auto& [coluna, membro] : ColunasData) {
        QLineEdit* e = m_linhas.value(QLatin1String(coluna));
        const QString t = e->text().trimmed();
        const auto d = t.isEmpty() ? std::optional<QString>(QString()) : Datas::telaParaBanco(t);
        if (!d) {
            Dialogos::mensagem(this, QStringLiteral("Data inválida: ") + t + QStringLiteral(" (digite dia/mês/ano)."),
                               {}, Dialogos::Icone::Aviso);
            e->setFocus();
            return false;
        }
        o.*membro = *d;
    }
    for (const auto& [coluna, membro] : ColunasTelefone)
        o.*membro = CamposDocumento::paraGravar(m_linhas.value(QLatin1String(coluna))->text(), MascaraTelefone);
    o.CpfCnpj = CamposDocumento::paraGravar(m_linhas.value(QStringLiteral("CpfCnpj"))->text(), MascaraCnpjCpf);
    for (const auto& [coluna, membro] : ColunasDinheiro) {
        QLineEdit* e = m_linhas.value(QLatin1String(coluna));
        if (e->isReadOnly())
            continue;
        QString erro;
        const auto v = ValoresOrdem::lerValor(e->text(), QLatin1String(coluna), &erro);
        if (!v) {
            Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
            e->setFocus();
            return false;
        }
        o.*membro = *v;
    }
    o.Tipo = m_tipo->currentText().trimmed();
    o.Marca = m_marca->currentText().trimmed();
    o.TipoPorcentagem = m_opPorcento->isChecked();
    o.Fabrica = m_fabrica->isChecked();
    o.Tecnico = m_tecnico->currentText().trimmed();
    o.OrdemBloqueada = m_bloqueio->isChecked();
    EstadoOrdem::definirSituacao(o, situacaoEscolhida());
    return true;
}

TOLDEX_REGISTRA_TELA(CadCompleto)
