#include "orders/OrdemServicoEntrada.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSqlRecord>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Local.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "documents/ImprimeDocumento.h"
#include "orders/CatalogosOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/NumeroOrdem.h"
#include "orders/RecusaTela.h"
#include "orders/TransicoesOrdem.h"
#include "orders/TravaOrdem.h"
#include "orders/Visitas.h"
#include "registers/CamposDocumento.h"
#include "registers/PesquisaCliente.h"
#include "shell/Avisos.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString PromptTipo = QStringLiteral("Selecione ao lado o Tipo -->");
const QString PromptMarca = QStringLiteral("Selecione a marca -->");
const QString MsgNome = QStringLiteral("Coloque o nome do cliente");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString Salvar = QStringLiteral("&Salvar");
const QString Incluir = QStringLiteral("&Incluir");
const QString TituloTela = QStringLiteral("Cadastro de Ordem de Serviço   ");

bool ligado(const QString& cfg) { return Sessao::verdadeiro(cfg); }
} // namespace

OrdemServicoEntrada::OrdemServicoEntrada(QWidget* pai) : TelaCadastro(pai)
{
    setObjectName(QStringLiteral("OrdemServicoEntrada"));
    montaTela();
    def().tabela = QStringLiteral("OrdemServico");
    def().titulo = TituloTela.trimmed();
    def().colunaCodigo = QStringLiteral("CodOs");
    def().colunaCarimbo = QStringLiteral("OsAlterado");
    def().direito = QStringLiteral("DireitoOsEntAl");
    // The save and the deletion go through the order library: the base's own buttons 0
    // and 1 are rewired to this screen's steps.
    disconnect(botao(0), &QPushButton::clicked, this, nullptr);
    disconnect(botao(1), &QPushButton::clicked, this, nullptr);
    connect(botao(0), &QPushButton::clicked, this, &OrdemServicoEntrada::botaoIncluir);
    connect(botao(1), &QPushButton::clicked, this, &OrdemServicoEntrada::botaoSalvar);
    AcoesSenha::registrar(QStringLiteral("OrdemEntrada"), this, [this] { botaoSalvar(); });
    AcoesSenha::registrar(QStringLiteral("EntradaVisita"), this, [this] { pedirVisita(); });
    definirBotaoFechar(3);
    resize(1000, 640);
    if (iniciar())
        carregaCatalogos();
    // The customer's code is read, never typed: it wears the screen's colour.
    QPalette p = m_codCliente->palette();
    p.setColor(QPalette::Base, palette().color(QPalette::Window));
    m_codCliente->setPalette(p);
    aplicaCfgDefeitos();
    travaDatas(true);
    poeTitulo();
}

void OrdemServicoEntrada::carregaCatalogos()
{
    // The first order is already shown when the lists arrive: its kind and brand stay.
    const QString tipo = m_tipo->currentText(), marca = m_marca->currentText();
    try {
        const bool antes = m_tipo->blockSignals(true);
        m_tipo->clear();
        for (const TipoAparelho& t : CatalogosOrdem::tipos(*banco()))
            m_tipo->addItem(t.Tipo, t.CodTipo);
        m_tipo->blockSignals(antes);
        m_marca->clear();
        m_marca->addItems(CatalogosOrdem::marcas(*banco()));
        m_comboDef->clear();
        m_lCad->clear();
        for (const DefeitoCatalogo& d : CatalogosOrdem::defeitos(*banco())) {
            m_comboDef->addItem(d.Defeito, d.CodDefeito);
            auto* it = new QListWidgetItem(d.Defeito, m_lCad);
            it->setData(Qt::UserRole, d.CodDefeito);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_tipo->setEditText(tipo);
    m_marca->setEditText(marca);
    m_comboDef->setEditText(QString());
}

void OrdemServicoEntrada::aplicaCfgDefeitos()
{
    const bool def = ligado(sessao().CfgAtivaDef);
    for (QWidget* w : {static_cast<QWidget*>(m_comboDef), static_cast<QWidget*>(m_codigoDef),
                       static_cast<QWidget*>(m_rotuloCodigoDef), static_cast<QWidget*>(m_lDef),
                       static_cast<QWidget*>(m_rotuloDefeitos), static_cast<QWidget*>(botao(6)),
                       static_cast<QWidget*>(botao(7))})
        w->setVisible(def);
    m_lCad->setVisible(false);
    m_sintoma->setVisible(!def);
}

void OrdemServicoEntrada::travaDatas(bool travadas)
{
    m_dataEntrada->setReadOnly(travadas);
    m_dataSaida->setReadOnly(travadas);
}

void OrdemServicoEntrada::poeTitulo()
{
    QString t = TituloTela + QString::number(total()) + QStringLiteral("   registros");
    if (chaveAtual() >= 0 && !novo())
        t += QStringLiteral("  --------   Alterado por: ") + m_ordem.OsAlterado;
    setWindowTitle(t);
}

QString OrdemServicoEntrada::textoCombo(const QComboBox* c, const QString& prompt) const
{
    const QString t = c->currentText().trimmed();
    return t == prompt ? QString() : t;
}

void OrdemServicoEntrada::aviso(const QString& texto)
{
    auto* a = new AvisoTransitorio(texto, 1500, true, this);
    a->setObjectName(QStringLiteral("AvisoEntrada"));
    a->setAttribute(Qt::WA_DeleteOnClose);
    a->show();
}

// --- showing ---------------------------------------------------------------------------

void OrdemServicoEntrada::limpaCampos()
{
    const Limpeza modo = m_limpeza;
    m_limpeza = Limpeza::Tudo;
    if (modo == Limpeza::SoNumero) {
        m_codOs->clear();
        poeTitulo();
        return;
    }
    const QList<QWidget*> cliente = {m_cpf, m_nome, m_endereco, m_ncasa, m_bairro,
                                     m_cidade, m_telefone, m_celular, m_codCliente};
    for (const CampoCadastro& c : campos())
        if (modo == Limpeza::Tudo || !cliente.contains(c.widget))
            Campos::limpa(c.widget);
    if (modo == Limpeza::Tudo)
        m_clienteNovo = false;
    m_tipo->setEditText(QString());
    m_marca->setEditText(QString());
    m_fabrica->setChecked(false);
    m_opPorcento->setAutoExclusive(false);
    m_opPorcento->setChecked(false);
    m_opValor->setChecked(false);
    m_opPorcento->setAutoExclusive(true);
    m_lDef->clear();
    m_ordem.sintomas.clear();
    m_cpfChecado.clear();
    poeTitulo();
}

void OrdemServicoEntrada::liberaCampos()
{
    TelaCadastro::liberaCampos();
    m_codFabrica->setEnabled(m_fabrica->isChecked());
    for (QWidget* w : {static_cast<QWidget*>(m_lDef), static_cast<QWidget*>(m_lCad),
                       static_cast<QWidget*>(m_opPorcento), static_cast<QWidget*>(m_opValor)})
        w->setEnabled(true);
}

void OrdemServicoEntrada::mostraRegistro(const Recordset& rs)
{
    std::optional<Ordem> o;
    try {
        o = GravacaoOrdem::carregar(*banco(), rs.chaveAtual());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_ordem = o.value_or(Ordem{});
    m_clienteNovo = false;
    mostra(m_ordem);
    travaDatas(true);
    poeTitulo();
}

void OrdemServicoEntrada::mostra(const Ordem& o)
{
    // Showing an order is not a change of it (the warranty copy is shown from outside).
    const QSignalBlocker b1(m_sintoma), b2(m_observacao);
    auto poe = [](QWidget* w, const QString& t) { Campos::poeTexto(w, t); };
    poe(m_codOs, o.CodOs ? QString::number(o.CodOs) : QString());
    m_fabrica->setChecked(o.Fabrica);
    poe(m_codFabrica, o.CodFabrica);
    m_codFabrica->setEnabled(o.Fabrica && m_fabrica->isEnabled());
    poe(m_cpf, MascaraCnpjCpf(o.CpfCnpj));
    m_cpfChecado = Campos::texto(m_cpf);
    poe(m_nome, o.NomeCliente);
    poe(m_endereco, o.Endereco);
    poe(m_ncasa, o.Ncasa);
    poe(m_bairro, o.Bairro);
    poe(m_cidade, o.Cidade);
    poe(m_telefone, MascaraTelefone(o.Telefone));
    poe(m_celular, MascaraTelefone(o.Celular));
    poe(m_codCliente, o.CodCliente);
    m_tipo->setEditText(o.Tipo);
    poe(m_valorPorcentagem, o.ValorPorcentagem.texto());
    m_opPorcento->setChecked(o.TipoPorcentagem);
    m_opValor->setChecked(!o.TipoPorcentagem);
    m_marca->setEditText(o.Marca);
    poe(m_modelo, o.Modelo);
    poe(m_serie, o.NumeroSerie);
    poe(m_cor, o.CorProduto);
    poe(m_certificado, o.Certificado);
    poe(m_nota, o.NotaFiscal);
    poe(m_dataNota, Datas::bancoParaTela(o.DataNota));
    poe(m_revendedor, o.Revendedor);
    poe(m_estado, o.EstadoAparelho);
    poe(m_acessorio, o.Acessorio);
    poe(m_sintoma, o.Sintoma);
    poe(m_observacao, o.Observacao);
    poe(m_armazenado, o.Armazenado);
    poe(m_dataEntrada, Datas::bancoParaTela(o.DataEntrada));
    poe(m_dataSaida, Datas::bancoParaTela(o.DataSaida));
    mostraDefeitos();
}

void OrdemServicoEntrada::mostraDefeitos()
{
    m_lDef->clear();
    for (const SintomaOrdem& s : std::as_const(m_ordem.sintomas)) {
        auto* it = new QListWidgetItem(s.DefeitoOS, m_lDef);
        it->setData(Qt::UserRole, s.CodDef);
    }
}

void OrdemServicoEntrada::poeCliente(const EntradaRegras::ClienteBalcao& c)
{
    if (c.BloqCliente)
        Dialogos::mensagem(this, EntradaRegras::MsgClienteBloqueado, {}, Dialogos::Icone::Aviso);
    const bool antes = m_tipo->blockSignals(true);
    Campos::poeTexto(m_codCliente, c.CodCliente);
    Campos::poeTexto(m_nome, c.NomeCliente);
    Campos::poeTexto(m_endereco, c.enderecoComComplemento());
    Campos::poeTexto(m_ncasa, c.Numero);
    Campos::poeTexto(m_bairro, c.Bairro);
    Campos::poeTexto(m_cidade, c.Cidade);
    Campos::poeTexto(m_telefone, MascaraTelefone(c.Telefone));
    Campos::poeTexto(m_celular, MascaraTelefone(c.Celular));
    if (!c.CnpjCpf.isEmpty()) {
        Campos::poeTexto(m_cpf, MascaraCnpjCpf(c.CnpjCpf));
        m_cpfChecado = Campos::texto(m_cpf);
    }
    m_tipo->blockSignals(antes);
    m_clienteNovo = false;
    if (estado() != Estado::Navegacao)
        marcaAlterado();
    m_tipo->setFocus();
}

bool OrdemServicoEntrada::mostraOrdem(const QString& codOs, const QString& codOsAut)
{
    try {
        const auto o = GravacaoOrdem::reabrir(*banco(), codOs, codOsAut, true);
        return o && irChave(o->CodOsAut);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

void OrdemServicoEntrada::mostraOrdem(const QVariantMap& dados)
{
    mostraOrdem(dados.value(QStringLiteral("CodOs")).toString(), dados.value(QStringLiteral("CodOsAut")).toString());
}

void OrdemServicoEntrada::novoComCliente(const QVariantMap& dados)
{
    if (estado() != Estado::Navegacao)
        return;
    m_retornoGarantia = false;
    Campos::limpa(m_nome);
    botaoIncluir();
    auto v = [&dados](const char* k) { return dados.value(QLatin1String(k)).toString(); };
    EntradaRegras::ClienteBalcao c;
    c.CodCliente = v("CodCliente");
    c.NomeCliente = v("NomeCliente");
    c.CnpjCpf = v("CnpjCpf");
    c.Endereco = v("Endereco");
    c.Numero = v("Numero");
    c.Bairro = v("Bairro");
    c.Cidade = v("Cidade");
    c.Telefone = v("Telefone");
    c.Celular = v("Celular");
    // Whoever hands the customer over, the store tells whether he is blocked: the same
    // notice as for one found by his document.
    try {
        if (const auto guardado = EntradaRegras::clientePorCodigo(*banco(), c.CodCliente))
            c.BloqCliente = guardado->BloqCliente;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    poeCliente(c);
}

void OrdemServicoEntrada::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && estado() == Estado::Navegacao)
        botaoIncluir();
}

void OrdemServicoEntrada::preparaRetornoGarantia(const Ordem& copia)
{
    if (estado() != Estado::Navegacao)
        incluirOuCancelar();
    m_ordem = copia;
    m_retornoGarantia = true;
    mostra(m_ordem);
}

// --- new, cancel --------------------------------------------------------------------------

void OrdemServicoEntrada::botaoIncluir()
{
    if (botao(0)->text() == Cancelar) {
        // Cancelling ends a warranty return: the next new order is an ordinary one.
        m_retornoGarantia = false;
        incluirOuCancelar();
        travaDatas(true);
        return;
    }
    QWidget* foco = m_cpf;
    Ordem mantida;
    if (m_retornoGarantia) {
        m_limpeza = Limpeza::SoNumero;
        mantida = m_ordem;
    } else if (Campos::texto(m_nome).trimmed().isEmpty()) {
        m_limpeza = Limpeza::Tudo;
    } else if (Dialogos::pergunta(this, QStringLiteral("Incluir mesmo cliente ?"))) {
        m_limpeza = Limpeza::Aparelho;
        foco = m_tipo;
    } else {
        m_limpeza = Limpeza::Tudo;
        foco = m_nome;
    }
    incluirOuCancelar();
    m_ordem = mantida;
    m_ordem.CodOsAut = 0;
    m_ordem.CodOs = 0;
    mostraDefeitos();
    // The customer search and the catalogue of defects stay at hand while the order is
    // typed: the search is how a customer whose document isn't known is found. The house
    // call too: it stores the order first.
    for (int i = 2; i <= 7; ++i)
        botao(i)->setEnabled(i >= 4);
    poeTitulo();
    foco->setFocus();
}

void OrdemServicoEntrada::voltaANavegacao(qint64 chave)
{
    botao(0)->setText(Cancelar);
    incluirOuCancelar();
    if (chave > 0)
        irChave(chave);
    travaDatas(true);
    poeTitulo();
}

// --- changes and the lock ------------------------------------------------------------------

void OrdemServicoEntrada::mostraRecusa(const Recusa& r) { RecusaTela::mostrar(this, r); }

bool OrdemServicoEntrada::ordemTravada()
{
    if (novo() || m_ordem.nova())
        return false;
    if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Entrada)) {
        mostraRecusa(*r);
        return true;
    }
    return false;
}

void OrdemServicoEntrada::marcaAlterado()
{
    if (!alterado() && !novo() && ordemTravada()) {
        // The text that slipped in (a paste, a double click) goes back to the stored order.
        const qint64 chave = chaveAtual();
        if (chave > 0)
            irChave(chave);
        return;
    }
    TelaCadastro::marcaAlterado();
}

bool OrdemServicoEntrada::eventFilter(QObject* alvo, QEvent* e)
{
    if (carregando())
        return TelaCadastro::eventFilter(alvo, e);
    auto* w = qobject_cast<QWidget*>(alvo);
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        const bool enter = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        const bool navega = enter || k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab;
        // A finalised order is refused before the key lands in the box.
        if (!navega && !k->text().isEmpty() && !alterado() && !novo() && ordemTravada())
            return true;
        if (alvo == m_tipo->lineEdit() && sessao().CfgPorcentSN.toInt() != 0 && !navega
            && k->key() != Qt::Key_Backspace)
            return true;
        if (alvo == m_codigoDef && enter) {
            codigoDefeitoEnter();
            return true;
        }
        if (alvo == m_lDef && (k->key() == Qt::Key_Delete))
            removeDefeito();
    } else if (e->type() == QEvent::FocusOut) {
        if (w == m_cpf)
            aoSairCpf();
        else if (w == m_codOs)
            aoSairNumero();
        else if (alvo == m_tipo->lineEdit() || w == m_tipo)
            aoSairTipo();
        else if (alvo == m_marca->lineEdit() || w == m_marca)
            aoSairMarca();
        else if (alvo == m_comboDef->lineEdit() || w == m_comboDef)
            aoSairComboDefeito();
    } else if (e->type() == QEvent::MouseButtonDblClick && (w == m_dataEntrada || w == m_dataSaida)) {
        if (w->isEnabled() && (novo() || alterado() || !ordemTravada())) {
            static_cast<QLineEdit*>(w)->setReadOnly(false);
            marcaAlterado();
        }
    }
    return TelaCadastro::eventFilter(alvo, e);
}

// --- save ----------------------------------------------------------------------------------

void OrdemServicoEntrada::botaoSalvar()
{
    if (RecusaTela::esperaSenha(QStringLiteral("OrdemEntrada")))
        return;
    if (botao(1)->text() == Salvar)
        salvarOrdem();
    else
        excluirOrdem();
}

Ordem OrdemServicoEntrada::ordemDosCampos(bool* ok)
{
    Ordem o = m_ordem;
    auto t = [](const QWidget* w) { return Campos::texto(w); };
    QString erro;
    const auto datas = EntradaRegras::lerDatas(t(m_dataEntrada), t(m_dataSaida), &erro);
    const QString nota = t(m_dataNota).trimmed();
    const auto dataNota = nota.isEmpty() ? std::optional<QString>(QString()) : Datas::telaParaBanco(nota);
    if (!datas || !dataNota) {
        Dialogos::mensagem(this, datas ? QStringLiteral("Data nota fiscal inválida: ") + nota : erro, {},
                           Dialogos::Icone::Aviso);
        *ok = false;
        return o;
    }
    // A commission that isn't an amount is told, never stored as 0,00.
    const auto comissao = Dinheiro::lerTexto(t(m_valorPorcentagem));
    if (!comissao) {
        Dialogos::mensagem(this, QStringLiteral("Valor inválido: digite como 1.234,56"), {}, Dialogos::Icone::Aviso);
        m_valorPorcentagem->setFocus();
        *ok = false;
        return o;
    }
    if (!o.nova()) {
        QString erroNumero;
        if (auto n = NumeroOrdem::lerNumero(t(m_codOs), &erroNumero))
            o.CodOs = *n;
    }
    o.Fabrica = m_fabrica->isChecked();
    o.CodFabrica = t(m_codFabrica);
    o.CpfCnpj = CamposDocumento::paraGravar(t(m_cpf), MascaraCnpjCpf);
    o.NomeCliente = t(m_nome);
    o.Endereco = t(m_endereco);
    o.Ncasa = t(m_ncasa);
    o.Bairro = t(m_bairro);
    o.Cidade = t(m_cidade);
    o.Telefone = CamposDocumento::paraGravar(t(m_telefone), MascaraTelefone);
    o.Celular = CamposDocumento::paraGravar(t(m_celular), MascaraTelefone);
    o.CodCliente = t(m_codCliente);
    o.Tipo = textoCombo(m_tipo, PromptTipo);
    o.ValorPorcentagem = *comissao;
    o.TipoPorcentagem = m_opPorcento->isChecked();
    o.Marca = textoCombo(m_marca, PromptMarca);
    o.Modelo = t(m_modelo);
    o.NumeroSerie = t(m_serie);
    o.CorProduto = t(m_cor);
    o.Certificado = t(m_certificado);
    o.NotaFiscal = t(m_nota);
    o.DataNota = *dataNota;
    o.Revendedor = t(m_revendedor);
    o.EstadoAparelho = t(m_estado);
    o.Acessorio = t(m_acessorio);
    o.Sintoma = ligado(sessao().CfgAtivaDef) ? GravacaoOrdem::textoDosSintomas(o) : t(m_sintoma);
    o.Observacao = t(m_observacao);
    o.Armazenado = t(m_armazenado);
    o.DataEntrada = datas->entrada;
    o.DataSaida = datas->saida;
    *ok = true;
    return o;
}

bool OrdemServicoEntrada::salvarOrdem()
{
    // The lock is looked at again: the order may have been closed at the till meanwhile.
    if (ordemTravada())
        return false;
    if (Campos::texto(m_nome).trimmed().isEmpty()) {
        Dialogos::mensagem(this, MsgNome);
        m_nome->setFocus();
        return false;
    }
    bool ok = false;
    Ordem o = ordemDosCampos(&ok);
    if (!ok)
        return false;
    EntradaRegras::ClienteBalcao cli;
    cli.NomeCliente = o.NomeCliente;
    cli.Endereco = o.Endereco;
    cli.Numero = o.Ncasa;
    cli.Bairro = o.Bairro;
    cli.Cidade = o.Cidade;
    cli.Telefone = o.Telefone;
    cli.Celular = o.Celular;
    cli.CnpjCpf = o.CpfCnpj;
    Banco& b = *banco();
    try {
        if (sessao().DireitoOsEntAl != 1) {
            // The customer typed at the counter is kept even when the order is refused:
            // the next attendant finds it by its document.
            if (m_clienteNovo) {
                Campos::poeTexto(m_codCliente, QString::number(EntradaRegras::gravarClienteNovo(b, cli)));
                m_clienteNovo = false;
            }
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return false;
        }
        // The factory question is asked before the transaction opens, so that no other
        // station waits on a question left open on this one.
        bool copiar = false;
        // A warranty return keeps the old order's number in the factory box: it is what
        // ties the return to the repair it claims on, and no factory number is spent.
        if (m_retornoGarantia && o.nova()) {
            o.Fabrica = true;
            o.fabricaDoRetorno = o.CodFabrica;
        }
        if (NumeroOrdem::pedeNumeroFabrica(o))
            copiar = NumeroOrdem::perguntarCopiaFabrica(
                b, o, [this](const QString& titulo, const QString& texto) {
                    return Dialogos::pergunta(this, texto, titulo);
                });
        TransicoesOrdem::OpcoesEntrada op;
        op.retornoGarantia = m_retornoGarantia;
        op.perguntar = [copiar](const QString&, const QString&) { return copiar; };
        Transacao tr(b);
        if (m_clienteNovo)
            o.CodCliente = QString::number(EntradaRegras::gravarClienteNovo(b, cli));
        TransicoesOrdem::salvarEntrada(b, o, op);
        tr.commit();
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return false;
    } catch (const ErroBanco& e) {
        // Nothing of the order or its new customer was stored; the boxes keep what was typed.
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
    m_clienteNovo = false;
    m_retornoGarantia = false;
    voltaANavegacao(o.CodOsAut);
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    emit gravou();
    if (LeIni(QStringLiteral("Impressao"), QStringLiteral("AutoEntrada"), Local::arquivoIni()).trimmed().toInt() == 1)
        botao(2)->click();
    return true;
}

// --- delete, print, house call -------------------------------------------------------------

void OrdemServicoEntrada::excluirOrdem()
{
    const qint64 chave = chaveAtual();
    if (chave < 0 || ordemTravada())
        return;
    if (sessao().DireitoOsEntAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?")))
        return;
    const bool permanente = sessao().DireitoPermanente == 1;
    qint64 anterior = -1;
    if (permanente && irAnterior()) {
        anterior = chaveAtual();
        irChave(chave);
    }
    try {
        TransicoesOrdem::excluir(*banco(), chave, TelaOrdem::Entrada);
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registro,"), e.textoCompleto());
        return;
    }
    voltaANavegacao(anterior);
    if (!permanente) {
        m_limpeza = Limpeza::Tudo;
        limpaCampos();
        bloqueiaCampos();
        m_ordem = Ordem{};
        for (int i = 1; i < 8; ++i)
            if (i != 3)
                botao(i)->setEnabled(false);
    }
    RegistroTelas::abrir(QStringLiteral("Excluido"));
    emit excluiu();
}

void OrdemServicoEntrada::imprimir(Destino::Tipo destino)
{
    if (m_ordem.nova())
        return;
    ImprimeDocumento(*banco(), DocumentosOrdem::Entrada, m_ordem.CodOsAut, this, destino);
}

void OrdemServicoEntrada::pedirVisita()
{
    if (Campos::texto(m_nome).trimmed().isEmpty()) {
        Dialogos::mensagem(this, MsgNome);
        m_nome->setFocus();
        return;
    }
    if (Campos::texto(m_endereco).trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Coloque o endereço do cliente"));
        m_nome->setFocus();
        return;
    }
    const Sessao& s = sessao();
    if (s.SenhaObrigatoria != 0 && s.SenhaLiberada == 0) {
        sessao().SenhaOrigem = QStringLiteral("EntradaVisita");
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        return;
    }
    if (sessao().DireitoOsEntAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Buscar aparelho no domicílio ?")))
        return;
    // The visit's request is its only tie to the order: an order still being typed is
    // stored first, and the visit made only once it has its number.
    if (m_ordem.nova() && !salvarOrdem())
        return;
    if (m_ordem.CodOs <= 0)
        return;
    try {
        const qint64 cod = Visitas::pedirDaEntrada(
            *banco(), {Campos::texto(m_codCliente), Campos::texto(m_nome), Campos::texto(m_endereco), m_ordem.CodOs});
        Dialogos::mensagem(this, Visitas::textoNumero(cod));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar a visita,"), e.textoCompleto());
    }
}

// --- closing -------------------------------------------------------------------------------

void OrdemServicoEntrada::closeEvent(QCloseEvent* e)
{
    if (alterado()) {
        const auto r = Dialogos::mensagem(this, QStringLiteral("Você alterou o registro,deseja salvar ?"), {},
                                          Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
        if (r == Dialogos::Resposta::Cancelar) {
            e->ignore();
            return;
        }
        if (r == Dialogos::Resposta::Sim) {
            if (RecusaTela::esperaSenha(QStringLiteral("OrdemEntrada"))) {
                e->ignore();
                return;
            }
            if (!salvarOrdem()) {
                e->ignore();
                return;
            }
        }
    }
    RecusaTela::aoSairDaTela(this);
    e->accept();
}

TOLDEX_REGISTRA_TELA(OrdemServicoEntrada)
