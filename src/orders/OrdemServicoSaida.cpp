#include "orders/OrdemServicoSaida.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "documents/ImprimeDocumento.h"
#include "orders/BotaoAviso.h"
#include "orders/EntregaOrdem.h"
#include "orders/EstadoOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/ListaPecas.h"
#include "orders/OrdemServicoEntrada.h"
#include "orders/RecusaTela.h"
#include "orders/TransicoesOrdem.h"
#include "orders/TravaOrdem.h"
#include "registers/Cliente.h"
#include "registers/EntregaTelas.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Entregar = QStringLiteral("&Entregar");
const QString Salvar = QStringLiteral("Sal&var");
const QString Sair = QStringLiteral("Sai&r");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString DicaEntregar = QStringLiteral("Clique se o cliente veio retirar o produto.");
const QString Caixa = QStringLiteral("RegistraValorSaida");
const QString MsgDataInvalida = QStringLiteral("Data inválida em \"Entregar Dia:\": digite dia/mês/ano.");

// The read-only boxes: column, caption, and whether it takes the whole line.
struct Exibido {
    const char* coluna;
    const char* rotulo;
};
const Exibido Exibidos[] = {
    {"NomeCliente", "Cliente"},        {"Endereco", "Endereço"},          {"Telefone", "Telefone"},
    {"Celular", "Celular"},            {"Tipo", "Tipo"},                  {"Marca", "Marca"},
    {"Modelo", "Modelo"},              {"NumeroSerie", "Nº Série"},       {"CorProduto", "Cor"},
    {"Certificado", "Certificado"},    {"NotaFiscal", "Nota fiscal"},     {"DataNota", "Data nota"},
    {"Revendedor", "Revendedor"},      {"EstadoAparelho", "Estado"},      {"Acessorio", "Acessórios"},
    {"Sintoma", "Defeito reclamado"},  {"ServicoExecutado", "Serviço executado"},
    {"Tecnico", "Técnico"},            {"StatusConserto", "Status"}};

QString textoColuna(const Ordem& o, const QString& coluna)
{
    if (coluna == QLatin1String("Telefone") || coluna == QLatin1String("Celular"))
        return MascaraTelefone(ColunasOrdem::valor(o, coluna).toString());
    if (coluna == QLatin1String("DataNota"))
        return Datas::bancoParaTela(o.DataNota);
    if (coluna == QLatin1String("StatusConserto") && o.StatusConserto.isEmpty())
        return QStringLiteral("Sem resposta...");
    return ColunasOrdem::valor(o, coluna).toString();
}
} // namespace

OrdemServicoSaida::OrdemServicoSaida(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("OrdemServicoSaida"));
    setAttribute(Qt::WA_DeleteOnClose);
    montaTela();
    Pintura::pinta(this);
    AcoesSenha::registrar(QStringLiteral("OrdemSaida"), this, [this] { entregarOuSalvar(); });
    m_banco = Conexoes::nova();
    if (!m_banco)
        return;
    try {
        m_total = EntregaOrdem::contarVivas(*m_banco);
        if (const auto primeira = EntregaOrdem::primeiraViva(*m_banco))
            carregaOrdem(*primeira);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    poeTitulo();
}

OrdemServicoSaida::~OrdemServicoSaida() = default;

void OrdemServicoSaida::montaTela()
{
    auto* raiz = new QVBoxLayout(this);
    auto* topo = new QHBoxLayout;
    m_codOs = new QLineEdit(this);
    m_codOs->setObjectName(QStringLiteral("TxtCodOs"));
    m_codFabrica = new QLineEdit(this);
    m_codFabrica->setObjectName(QStringLiteral("TxtCodFabrica"));
    for (QLineEdit* le : {m_codOs, m_codFabrica}) {
        le->setReadOnly(true);
        le->setMaximumWidth(140);
    }
    m_resposta = new QLabel(this);
    m_resposta->setObjectName(QStringLiteral("LblResposta"));
    QFont f = m_resposta->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.4);
    m_resposta->setFont(f);
    m_aviso = new QLabel(this);
    m_aviso->setObjectName(QStringLiteral("TxtAviso"));
    m_aviso->setStyleSheet(QStringLiteral("color: #b00000; font-weight: bold;"));
    topo->addWidget(new QLabel(QStringLiteral("Nº O.S"), this));
    topo->addWidget(m_codOs);
    topo->addWidget(new QLabel(QStringLiteral("O.S/Fábrica"), this));
    topo->addWidget(m_codFabrica);
    topo->addStretch();
    topo->addWidget(m_aviso);
    topo->addWidget(m_resposta);
    raiz->addLayout(topo);

    m_frameCliente = new QGroupBox(this);
    m_frameCliente->setObjectName(QStringLiteral("FrameCliente"));
    auto* g = new QGridLayout(m_frameCliente);
    int i = 0;
    for (const Exibido& e : Exibidos) {
        auto* le = new QLineEdit(m_frameCliente);
        const QString coluna = QString::fromLatin1(e.coluna);
        le->setObjectName(QStringLiteral("Txt") + coluna);
        le->setReadOnly(true);
        m_campos.insert(coluna, le);
        const int linha = i / 3, col = (i % 3) * 2;
        g->addWidget(new QLabel(QString::fromUtf8(e.rotulo), m_frameCliente), linha, col);
        g->addWidget(le, linha, col + 1);
        ++i;
    }
    raiz->addWidget(m_frameCliente);

    auto* baixo = new QGridLayout;
    m_dataEntrada = new QLabel(this);
    m_dataEntrada->setObjectName(QStringLiteral("LblDataEntrada"));
    m_dataContato = new QLabel(this);
    m_dataContato->setObjectName(QStringLiteral("LblDataContato"));
    m_dataSaida = new QLabel(this);
    m_dataSaida->setObjectName(QStringLiteral("LblDataSaida"));
    m_entregarDia = new QLineEdit(this);
    m_entregarDia->setObjectName(QStringLiteral("DtEntrega"));
    m_entregarDia->setInputMask(QStringLiteral("99/99/9999;_"));
    m_entregarDia->setMaximumWidth(120);
    m_valor = new QLineEdit(this);
    m_valor->setObjectName(QStringLiteral("TxtValor"));
    m_valor->setReadOnly(true);
    m_valor->setMaximumWidth(140);
    m_valor->setAlignment(Qt::AlignRight);
    m_armazenado = new QLineEdit(this);
    m_armazenado->setObjectName(QStringLiteral("TxtArmazenado"));
    m_observacao = new QPlainTextEdit(this);
    m_observacao->setObjectName(QStringLiteral("TxtObservacao"));
    m_observacao->setMaximumHeight(90);
    baixo->addWidget(new QLabel(QStringLiteral("Data entrada:"), this), 0, 0);
    baixo->addWidget(m_dataEntrada, 0, 1);
    baixo->addWidget(new QLabel(QStringLiteral("Data Contato:"), this), 0, 2);
    baixo->addWidget(m_dataContato, 0, 3);
    baixo->addWidget(new QLabel(QStringLiteral("Data saída:"), this), 0, 4);
    baixo->addWidget(m_dataSaida, 0, 5);
    baixo->addWidget(new QLabel(QStringLiteral("Entregar Dia:"), this), 1, 0);
    baixo->addWidget(m_entregarDia, 1, 1);
    baixo->addWidget(new QLabel(QStringLiteral("Valor do conserto"), this), 1, 2);
    baixo->addWidget(m_valor, 1, 3);
    baixo->addWidget(new QLabel(QStringLiteral("Armazenado"), this), 1, 4);
    baixo->addWidget(m_armazenado, 1, 5);
    baixo->addWidget(new QLabel(QStringLiteral("Observação"), this), 2, 0);
    baixo->addWidget(m_observacao, 2, 1, 1, 5);
    m_avisar = new BotaoAviso(this);
    baixo->addWidget(m_avisar, 3, 1, 1, 5, Qt::AlignLeft);
    connect(m_avisar, &BotaoAviso::avisado, this, [this](qint64, const QString& data) {
        AvisoCliente::adotarContato(m_ordem, data);
        AvisoCliente::adotarContato(m_guardada, data);
        m_dataContato->setText(Datas::bancoParaTela(data));
    });
    raiz->addLayout(baixo);
    raiz->addStretch();

    struct Def {
        const char* texto;
        const char* dica;
    };
    const Def defs[] = {{"&Peças aplicadas", "Mostra as peças aplicadas no conserto."},
                        {"&Entregar", "Clique se o cliente veio retirar o produto."},
                        {"Sai&r", ""},
                        {"Orça/Autori&zado", "Clique se o cliente autorizou o conserto."},
                        {"Orça/&Não autorizado", "Clique se o cliente não autorizou o conserto."},
                        {"A&guarda autorização", "Clique se ocliente está indeciso."},
                        {"", "Busca cadastro do cliente."},
                        {"Garan&tia conserto", "Clique se for garantia da loja(retorno de conserto)."}};
    auto* linha = new QHBoxLayout;
    for (int b = 0; b < 8; ++b) {
        auto* bt = new QPushButton(QString::fromUtf8(defs[b].texto), this);
        bt->setObjectName(QStringLiteral("Botao(%1)").arg(b));
        bt->setToolTip(QString::fromUtf8(defs[b].dica));
        m_botoes << bt;
    }
    m_botoes[6]->setIcon(style()->standardIcon(QStyle::SP_FileDialogContentsView));
    for (int b : {3, 4, 5, 7, 0, 6, 1, 2})
        linha->addWidget(m_botoes[b]);
    raiz->addLayout(linha);

    connect(m_botoes[0], &QPushButton::clicked, this, &OrdemServicoSaida::pecasAplicadas);
    connect(m_botoes[1], &QPushButton::clicked, this, &OrdemServicoSaida::entregarOuSalvar);
    connect(m_botoes[2], &QPushButton::clicked, this, &OrdemServicoSaida::sairOuCancelar);
    for (int b : {3, 4, 5})
        connect(m_botoes[b], &QPushButton::clicked, this, [this, b] { responder(b); });
    connect(m_botoes[6], &QPushButton::clicked, this, &OrdemServicoSaida::clienteDaOrdem);
    connect(m_botoes[7], &QPushButton::clicked, this, &OrdemServicoSaida::garantia);
    for (QWidget* w : {static_cast<QWidget*>(m_entregarDia), static_cast<QWidget*>(m_armazenado),
                       static_cast<QWidget*>(m_observacao)})
        w->installEventFilter(this);
    connect(m_entregarDia, &QLineEdit::textEdited, this, [this] { marcaAlterado(); });
    connect(m_armazenado, &QLineEdit::textEdited, this, [this] { marcaAlterado(); });
    connect(m_observacao, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_mostrando)
            marcaAlterado();
    });
    resize(1000, 600);
}

// --- showing an order ------------------------------------------------------------------------

void OrdemServicoSaida::poeTitulo()
{
    QString t = QStringLiteral("Ordem de Serviço Saída Conserto  ") + QString::number(m_total) + QStringLiteral("   registros");
    if (!m_ordem.nova())
        t += QStringLiteral("  --------   Alterado por: ") + m_ordem.OsAlterado;
    setWindowTitle(t);
}

bool OrdemServicoSaida::carregaOrdem(qint64 codOsAut)
{
    if (!m_banco)
        return false;
    try {
        const auto o = GravacaoOrdem::carregar(*m_banco, codOsAut);
        if (!o || o->Excluidos)
            return false;
        m_guardada = *o;
        mostra(*o);
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

bool OrdemServicoSaida::livreParaOutra()
{
    // Another screen's choice would otherwise replace typed changes without a word.
    if (!m_alterado)
        return true;
    Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração desta O.S antes de abrir outra."), {},
                       Dialogos::Icone::Aviso);
    return false;
}

void OrdemServicoSaida::abreOrdem(const QVariantMap& dados)
{
    if (livreParaOutra())
        carregaOrdem(dados.value(QStringLiteral("CodOsAut")).toLongLong());
}

void OrdemServicoSaida::mostraOrdem(const QVariantMap& dados)
{
    if (!m_banco || !livreParaOutra())
        return;
    const QString codOs = dados.value(QStringLiteral("CodOs")).toString();
    const QString codOsAut = dados.value(QStringLiteral("CodOsAut")).toString();
    try {
        if (!codOsAut.isEmpty()) {
            if (const auto o = GravacaoOrdem::reabrir(*m_banco, codOs, codOsAut, true))
                carregaOrdem(o->CodOsAut);
        } else if (const auto chave = EntregaOrdem::porNumeroECliente(
                       *m_banco, codOs, dados.value(QStringLiteral("CodCliente")).toString())) {
            carregaOrdem(*chave);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void OrdemServicoSaida::mostra(const Ordem& o)
{
    m_mostrando = true;
    m_ordem = o;
    m_codOs->setText(QString::number(o.CodOs));
    m_codFabrica->setText(o.CodFabrica);
    m_frameCliente->setTitle(EntregaOrdem::legendaCliente(o));
    for (auto it = m_campos.cbegin(); it != m_campos.cend(); ++it) {
        it.value()->setText(textoColuna(o, it.key()));
        it.value()->setCursorPosition(0);
    }
    m_dataEntrada->setText(Datas::bancoParaTela(o.DataEntrada));
    m_dataContato->setText(Datas::bancoParaTela(o.DataContato));
    m_dataSaida->setText(Datas::bancoParaTela(o.DataSaida));
    // At the counter a repaired appliance is one waiting for its owner.
    m_avisar->defineOrdem(*m_banco, o.CodOsAut,
                          o.Consertado ? AvisoCliente::Situacao::ProntoRetirada : AvisoCliente::sugerida(o));
    // An order without a promised day offers today.
    m_entregarDia->setText(o.DataEntrega.isEmpty() ? QDate::currentDate().toString(Datas::FormatoTela)
                                                   : Datas::bancoParaTela(o.DataEntrega));
    m_valor->setText(o.ValorPagar.texto());
    m_armazenado->setText(o.Armazenado);
    m_observacao->setPlainText(o.Observacao);
    m_aviso->setText(o.Saida ? QStringLiteral("APARELHO JÁ FOI RETIRADO") : QString());
    m_maoObra = o.MaoObra;
    mostraResposta();
    m_mostrando = false;
    desmarca();
    poeTitulo();
    if (auto* lista = qobject_cast<ListaPecas*>(RegistroTelas::aberta(QStringLiteral("ListaPecas"))))
        lista->mostra(this);
}

void OrdemServicoSaida::mostraResposta()
{
    const LegendaResposta l = EstadoOrdem::legenda(m_ordem, true);
    m_resposta->setText(l.texto);
    m_resposta->setToolTip(l.dica);
    const bool garantia = l.tipo == LegendaResposta::Garantia;
    for (int b : {3, 4, 5})
        m_botoes[b]->setEnabled(!garantia);
}

// --- changes ---------------------------------------------------------------------------------

bool OrdemServicoSaida::marcaAlterado()
{
    if (m_ordem.nova())
        return false;
    if (m_alterado)
        return true;
    if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Saida)) {
        RecusaTela::mostrar(this, *r);
        return false;
    }
    m_alterado = true;
    m_botoes[1]->setText(Salvar);
    m_botoes[1]->setToolTip(QStringLiteral("Clique para salvar a alteração"));
    m_botoes[2]->setText(Cancelar);
    return true;
}

void OrdemServicoSaida::desmarca()
{
    m_alterado = false;
    m_maoObraAlterada = false;
    m_botoes[1]->setText(Entregar);
    m_botoes[1]->setToolTip(QStringLiteral("Clique para dar saída do produto"));
    m_botoes[2]->setText(Sair);
}

bool OrdemServicoSaida::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::KeyPress && !m_alterado) {
        auto* k = static_cast<QKeyEvent*>(e);
        const bool navega = k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab || k->key() == Qt::Key_Return
            || k->key() == Qt::Key_Enter;
        const bool edita = !k->text().isEmpty() || k->key() == Qt::Key_Backspace || k->key() == Qt::Key_Delete;
        // A finalised order is refused before the key lands in the box.
        if (!navega && edita && !marcaAlterado())
            return true;
    }
    return QWidget::eventFilter(alvo, e);
}

void OrdemServicoSaida::responder(int botao)
{
    if (!marcaAlterado())
        return;
    const Resposta r = botao == 3 ? Resposta::Aprovado : botao == 4 ? Resposta::Recusado : Resposta::Indeciso;
    try {
        TransicoesOrdem::responderNaEntrega(m_ordem, r);
    } catch (const OrdemRecusada& e) {
        RecusaTela::mostrar(this, e.recusa());
        return;
    }
    m_dataContato->setText(Datas::bancoParaTela(m_ordem.DataContato));
    mostraResposta();
}

void OrdemServicoSaida::garantia()
{
    if (m_ordem.nova())
        return;
    if (EstadoOrdem::legenda(m_ordem, true).tipo == LegendaResposta::Garantia) {
        if (!marcaAlterado())
            return;
        TransicoesOrdem::desfazerGarantia(m_ordem);
        mostraResposta();
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Tem certeza que é garantia ?")))
        return;
    if (Dialogos::pergunta(this, QStringLiteral("Quer gerar uma nova O.S para esse cliente ?"))) {
        // A new order on the intake, copied from this one; this order stays as it is.
        const Ordem copia = TransicoesOrdem::garantiaNovaOrdem(m_ordem);
        if (auto* entrada = qobject_cast<OrdemServicoEntrada*>(RegistroTelas::abrir(QStringLiteral("OrdemServicoEntrada")))) {
            entrada->preparaRetornoGarantia(copia);
            entrada->botaoIncluir();
        }
        return;
    }
    if (!marcaAlterado())
        return;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return;
    try {
        TransicoesOrdem::garantiaMesmaOrdem(o);
    } catch (const OrdemRecusada& e) {
        RecusaTela::mostrar(this, e.recusa());
        return;
    }
    m_ordem = o;
    m_mostrando = true;
    m_armazenado->setText(o.Armazenado);
    m_observacao->setPlainText(o.Observacao);
    m_mostrando = false;
    m_dataSaida->clear();
    m_campos.value(QStringLiteral("StatusConserto"))->setText(o.StatusConserto);
    mostraResposta();
}

// --- hand-over and save --------------------------------------------------------------------

void OrdemServicoSaida::entregarOuSalvar()
{
    if (m_ordem.nova())
        return;
    if (RecusaTela::esperaSenha(QStringLiteral("OrdemSaida")))
        return;
    if (m_botoes[1]->text() == Salvar) {
        salvar();
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Entrega do produto ao cliente ?")))
        return;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return;
    if (TransicoesOrdem::entregar(o)) {
        // Authorised: the till takes the payment and closes the order.
        if (!EntregaTelas::disponivel(Caixa)) {
            Dialogos::mensagem(this, QStringLiteral("O caixa não está disponível nesta instalação."), {},
                               Dialogos::Icone::Aviso);
            return;
        }
        sessao().ParamCodOs = QString::number(o.CodOs);
        sessao().ParamCodOsAut = QString::number(o.CodOsAut);
        sessao().ParamNomeCliente = o.NomeCliente;
        const qint64 chave = o.CodOsAut;
        fechaLista();
        RegistroTelas::fecharJanela(this);
        EntregaTelas::abrirCom(Caixa, EntregaTelas::AbreOrdem, {{QStringLiteral("CodOsAut"), chave}});
        return;
    }
    // Without money: the order leaves now, unless it left before and only the sheet is wanted.
    if (o.DataSaida != m_ordem.DataSaida) {
        // Marked as a change, so that a save the store refused stays on the screen to be
        // made again.
        if (!marcaAlterado())
            return;
        m_ordem = o;
        m_dataSaida->setText(Datas::bancoParaTela(o.DataSaida));
        m_armazenado->setText(o.Armazenado);
        if (!salvar())
            return;
    }
    if (Dialogos::pergunta(this, QStringLiteral("Quer imprimir ordem serviço saída?")))
        imprimir();
}

bool OrdemServicoSaida::ordemDosCampos(Ordem& o)
{
    o.Observacao = m_observacao->toPlainText();
    o.Armazenado = m_armazenado->text();
    const QString dia = m_entregarDia->text() == QLatin1String("//") ? QString() : m_entregarDia->text();
    const auto entrega = Datas::telaParaBanco(dia);
    if (!entrega) {
        Dialogos::mensagem(this, MsgDataInvalida, {}, Dialogos::Icone::Aviso);
        m_entregarDia->setFocus();
        return false;
    }
    o.DataEntrega = *entrega;
    if (m_maoObraAlterada) {
        o.MaoObra = m_maoObra;
        o.ValorPagar = EntregaOrdem::valorComMaoObra(o, m_maoObra);
    }
    return true;
}

bool OrdemServicoSaida::salvar()
{
    if (!m_banco || m_ordem.nova())
        return false;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return false;
    try {
        TransicoesOrdem::salvarEntrega(*m_banco, o);
    } catch (const OrdemRecusada& e) {
        RecusaTela::mostrar(this, e.recusa());
        return false;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    carregaOrdem(o.CodOsAut);
    return true;
}

void OrdemServicoSaida::sairOuCancelar()
{
    if (m_botoes[2]->text() == Cancelar) {
        mostra(m_guardada);
        return;
    }
    RegistroTelas::fecharJanela(this);
}

void OrdemServicoSaida::imprimir(Destino::Tipo destino)
{
    if (m_banco && !m_ordem.nova())
        ImprimeDocumento(*m_banco, DocumentosOrdem::Devolucao, m_ordem.CodOsAut, this, destino);
}

void OrdemServicoSaida::clienteDaOrdem()
{
    if (m_ordem.CodCliente.trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Cliente não possui cadastro"), QStringLiteral("Cadastro saída"));
        return;
    }
    if (auto* c = qobject_cast<Cliente*>(RegistroTelas::abrir(QStringLiteral("Cliente"))))
        c->mostraCliente(m_ordem.CodCliente, m_ordem.NomeCliente);
}

// --- the parts list ----------------------------------------------------------------------------

void OrdemServicoSaida::pecasAplicadas()
{
    if (auto* lista = qobject_cast<ListaPecas*>(RegistroTelas::abrir(QStringLiteral("ListaPecas"))))
        lista->mostra(this);
}

bool OrdemServicoSaida::liberaMaoObra()
{
    if (m_ordem.nova())
        return false;
    // The finalised order first: the budget right doesn't open a closed order.
    if (auto r = TravaOrdem::verificarAlteracao(m_ordem, TelaOrdem::Saida)) {
        RecusaTela::mostrar(this, *r);
        return false;
    }
    if (sessao().DireitoAltOrca != 1) {
        RecusaTela::mostrar(this, Recusa::liberar(QStringLiteral("Você não tem autorização para alterar o orçamento.")));
        return false;
    }
    if (!marcaAlterado())
        return false;
    m_maoObraAlterada = true;
    return true;
}

void OrdemServicoSaida::maoObraDigitada(Dinheiro maoObra)
{
    if (!m_maoObraAlterada)
        return;
    m_maoObra = maoObra;
    m_valor->setText(EntregaOrdem::valorComMaoObra(m_ordem, maoObra).texto());
}

void OrdemServicoSaida::fechaLista()
{
    if (auto* lista = RegistroTelas::aberta(QStringLiteral("ListaPecas")))
        RegistroTelas::fecharJanela(lista);
}

void OrdemServicoSaida::closeEvent(QCloseEvent* e)
{
    if (m_alterado) {
        if (Dialogos::pergunta(this, QStringLiteral("Você alterou o registro,deseja salvar ?"))) {
            if (RecusaTela::esperaSenha(QStringLiteral("OrdemSaida"))) {
                e->ignore();
                return;
            }
            if (!salvar()) {
                e->ignore();
                return;
            }
        }
    }
    fechaLista();
    RecusaTela::aoSairDaTela(this);
    e->accept();
}

TOLDEX_REGISTRA_TELA(OrdemServicoSaida)
