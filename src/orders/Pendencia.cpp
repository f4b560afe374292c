#include "orders/Pendencia.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "documents/MenuImpressao.h"
#include "orders/BotaoAviso.h"
#include "orders/RecusaOrdem.h"
#include "orders/RecusaTela.h"
#include "ui/AcoesSenha.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

// The panel's refresh: about once a minute, so that every station sharing the store can
// afford it.
constexpr int IntervaloAtualizacao = 65000;
constexpr int IntervaloPisca = 1500;

const QString Cancela = QStringLiteral("Cancela");

// Colours are kept as the shop has always seen them, given in the classic BGR decimal form.
QColor corBgr(int v) { return QColor(v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF); }
const int CorEntrega = 49152;
const int CorRecusado = 8421631;
const int CorSolicitada = 65535;
const int CorListaAberta = 33023;

struct BotaoLista {
    int botao;
    const char* etiqueta;
    const char* dica;
};
// Top to bottom, the road of an order through the shop.
const BotaoLista Listas[] = {
    {5, "Na Fila", "Aguardando para se orçamentado."},
    {9, "Visita técnica", "Produtos aguardado peças para orçamento ou conserto."},
    {1, "Aguarda peça", "Aguarda peça para conserto."},
    {4, "Pendente", "Aguardando autorização do cliente."},
    {0, "Autorizado", "Conserto autorizado pelo cliente."},
    {6, "Não Autorizado", "Consertado mas não foi autorizado pelo cliente,desfazer serviço."},
    {2, "Consertado", "Consertado e aprovado pelo cliente."},
    {3, "Devolver", "Devolver ao cliente."},
};

const QStringList Titulos = {"OS",          "Nome Cliente", "Tipo",        "Modelo",   "Telefone", "Celular",
                             "Dia contato", "Dia Prometido", "CodAutOs",   "Valor pagar", "Imagem Aparelho",
                             "Consertado",  "Orcamento",    "AguardaPeca", "Devolver", "Servico"};
// Widths of the visible columns, in twips as the shop's layout has them.
const int Larguras[] = {900, 2850, 650, 650, 1400, 1400, 1300, 1300};
enum ColunaGrade { ColOs = 0, ColTipo = 2 };

QString verdade(bool v) { return v ? QStringLiteral("True") : QStringLiteral("False"); }

QString nomeBotao(const char* base, int i) { return QStringLiteral("%1(%2)").arg(QLatin1String(base)).arg(i); }

} // namespace

Pendencia::Pendencia(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("Pendencia"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("0 Itens,Ver"));
    montaTela();
    Pintura::pinta(this);
    AcoesSenha::registrar(QStringLiteral("Pendencia"), this, [this] { salvar(); });

    m_timerAparelho = new QTimer(this);
    m_timerAparelho->setObjectName(QStringLiteral("TimerAparelho"));
    m_timerAparelho->setInterval(IntervaloAtualizacao);
    connect(m_timerAparelho, &QTimer::timeout, this, &Pendencia::atualiza);
    auto criaPisca = [this](const char* nome, int botao, int cor) {
        auto* t = new QTimer(this);
        t->setObjectName(QLatin1String(nome));
        t->setInterval(IntervaloPisca);
        connect(t, &QTimer::timeout, this, [this, botao, t, cor] { pisca(botao, t, corBgr(cor)); });
        return t;
    };
    m_timerEntrega = criaPisca("TimerEntrega", 0, CorEntrega);
    m_timerRecusado = criaPisca("TimerRecusado", 6, CorRecusado);
    m_timerSolicitada = criaPisca("TimerSolicitada", 9, CorSolicitada);

    m_banco = Conexoes::nova();
    atualiza();
    m_timerAparelho->start();
}

Pendencia::~Pendencia() = default;

void Pendencia::montaTela()
{
    auto* raiz = new QHBoxLayout(this);
    auto* coluna = new QGridLayout;
    int linha = 0;
    for (const BotaoLista& b : Listas) {
        auto* botao = new QPushButton(QStringLiteral("0"), this);
        botao->setObjectName(nomeBotao("Botao", b.botao));
        botao->setToolTip(QString::fromUtf8(b.dica));
        botao->setFixedWidth(56);
        auto* etiqueta = new QLabel(QString::fromUtf8(b.etiqueta), this);
        etiqueta->setObjectName(nomeBotao("Etiqueta", b.botao));
        m_botoes.insert(b.botao, botao);
        m_etiquetas.insert(b.botao, etiqueta);
        const int n = b.botao;
        connect(botao, &QPushButton::clicked, this, [this, n] { abreLista(n); });
        coluna->addWidget(botao, linha, 0);
        coluna->addWidget(etiqueta, linha, 1);
        ++linha;
    }
    auto* recolhe = new QPushButton(QStringLiteral("<<"), this);
    recolhe->setObjectName(nomeBotao("Botao", 7));
    recolhe->setToolTip(QStringLiteral("Recolhe a lista."));
    connect(recolhe, &QPushButton::clicked, this, &Pendencia::recolhe);
    auto* imprimir = new QPushButton(QStringLiteral("Imprimir"), this);
    imprimir->setObjectName(nomeBotao("Botao", 8));
    MenuImpressao::preparar(imprimir, [this](Destino::Tipo t) { imprime(t); });
    m_botoes.insert(7, recolhe);
    m_botoes.insert(8, imprimir);
    coluna->addWidget(recolhe, linha, 0);
    coluna->addWidget(imprimir, linha++, 1);
    coluna->setRowStretch(linha, 1);
    raiz->addLayout(coluna);

    auto* meio = new QVBoxLayout;
    m_busca = new QLineEdit(this);
    m_busca->setObjectName(QStringLiteral("TxtBusca"));
    m_busca->setToolTip(QStringLiteral("Busca \"OS\" na lista"));
    m_busca->setPlaceholderText(QStringLiteral("Busca \"OS\" na lista"));
    m_busca->installEventFilter(this);
    connect(m_busca, &QLineEdit::returnPressed, this, &Pendencia::busca);
    meio->addWidget(m_busca);
    m_grade = new QTableWidget(0, Titulos.size(), this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setHorizontalHeaderLabels(Titulos);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->verticalHeader()->hide();
    m_grade->horizontalHeader()->setStretchLastSection(true);
    for (int i = 0; i < Titulos.size(); ++i) {
        if (i < 8)
            m_grade->setColumnWidth(i, Larguras[i] / 13);
        else
            m_grade->setColumnHidden(i, true);
    }
    m_grade->installEventFilter(this);
    connect(m_grade, &QTableWidget::currentCellChanged, this, [this](int l) { escolheLinha(l); });
    connect(m_grade, &QTableWidget::cellDoubleClicked, this, [this](int l) { abreOrdem(l); });
    meio->addWidget(m_grade, 1);
    raiz->addLayout(meio, 1);
    raiz->addWidget(montaFrame());
    m_grade->hide();
    m_busca->hide();
    m_frame->hide();
}

QWidget* Pendencia::montaFrame()
{
    m_frame = new QFrame(this);
    m_frame->setObjectName(QStringLiteral("FrameDados"));
    m_frame->setFrameShape(QFrame::StyledPanel);
    m_frame->setFixedWidth(330);
    m_frame->setAutoFillBackground(true);
    auto* g = new QGridLayout(m_frame);
    auto rotulo = [this, g](const QString& texto, const QString& nome, int l) {
        g->addWidget(new QLabel(texto, m_frame), l, 0);
        auto* v = new QLabel(m_frame);
        v->setObjectName(nome);
        g->addWidget(v, l, 1, 1, 2);
        return v;
    };
    m_telefone = rotulo(QStringLiteral("Telefone:"), QStringLiteral("LblTelefone"), 0);
    m_celular = rotulo(QStringLiteral("Celular:"), QStringLiteral("LblCelular"), 1);
    m_valorPagar = rotulo(QStringLiteral("Valor pagar:"), QStringLiteral("LblValorPagar"), 2);
    g->addWidget(new QLabel(QStringLiteral("Data prometida:"), m_frame), 3, 0);
    m_dtEntrega = new QDateEdit(m_frame);
    m_dtEntrega->setObjectName(QStringLiteral("DtEntrega"));
    m_dtEntrega->setCalendarPopup(true);
    m_dtEntrega->setDisplayFormat(Datas::FormatoTela);
    g->addWidget(m_dtEntrega, 3, 1, 1, 2);
    m_imagem = new QLabel(m_frame);
    m_imagem->setObjectName(QStringLiteral("ImgAparelho"));
    m_imagem->setFixedSize(300, 200);
    m_imagem->setAlignment(Qt::AlignCenter);
    g->addWidget(m_imagem, 4, 0, 1, 3);
    m_cStatus = new QComboBox(m_frame);
    m_cStatus->setObjectName(QStringLiteral("CStatus"));
    m_cStatus->addItem(QStringLiteral("Sem Resposta"), 0);
    m_cStatus->addItem(QStringLiteral("Aguarda peça"), 1);
    m_cStatus->addItem(QStringLiteral("Consertado"), 2);
    m_cStatus->addItem(QStringLiteral("Orçamento"), 3);
    m_cStatus->addItem(QStringLiteral("Devolver!"), 4);
    connect(m_cStatus, &QComboBox::activated, this, [this](int i) {
        m_statusSituacao = m_cStatus->itemData(i).toInt();
        m_status[3]->setEnabled(true);
    });
    g->addWidget(m_cStatus, 5, 0, 1, 3);
    const QStringList textos = {QStringLiteral("Autorizado"), QStringLiteral("Recusado"), QStringLiteral("Indeciso"),
                                QStringLiteral("Salvar"), QStringLiteral("Entregar")};
    for (int i = 0; i < textos.size(); ++i) {
        auto* b = new QPushButton(textos.at(i), m_frame);
        b->setObjectName(nomeBotao("BotStatus", i));
        m_status << b;
        g->addWidget(b, 6 + i / 3, i % 3);
    }
    for (int i = 0; i < 3; ++i)
        connect(m_status[i], &QPushButton::clicked, this, [this, i] { resposta(i); });
    connect(m_status[3], &QPushButton::clicked, this, &Pendencia::salvar);
    connect(m_status[4], &QPushButton::clicked, this, &Pendencia::entregar);
    m_status[3]->setEnabled(false);
    m_status[4]->setEnabled(false);
    m_avisar = new BotaoAviso(m_frame);
    g->addWidget(m_avisar, 8, 0, 1, 3);
    // The grid's contact day follows at once; the rest waits for the next reading.
    connect(m_avisar, &BotaoAviso::avisado, this, [this](qint64 codOsAut, const QString& data) {
        for (int i = 0; i < m_linhas.size(); ++i)
            if (!m_linhas[i].visita && m_linhas[i].CodOsAut == codOsAut) {
                m_linhas[i].DataContato = data;
                if (QTableWidgetItem* item = m_grade->item(i, 6))
                    item->setText(Datas::bancoParaTela(data));
            }
    });
    g->setRowStretch(9, 1);
    return m_frame;
}

// --- refresh and blinking ---------------------------------------------------------------------

bool Pendencia::garanteBanco()
{
    if (m_banco)
        return true;
    // Retried on every tick without a word: the shell has already told about the store once.
    if (!Conexoes::configurado())
        return false;
    try {
        m_banco = Banco::abrir(Conexoes::config());
    } catch (const ErroBanco&) {
        return false;
    }
    return true;
}

void Pendencia::atualiza()
{
    if (!garanteBanco()) {
        acinzenta(true);
        return;
    }
    try {
        mostraContagens(ContagensPainel::ler(*m_banco));
        acinzenta(false);
    } catch (const ErroBanco&) {
        // The last counts stay, greyed, until a later tick reads the store again.
        acinzenta(true);
        m_banco.reset();
    }
}

void Pendencia::atualizaPainel(const QVariantMap&)
{
    atualiza();
    if (m_lista && m_grade->isVisible())
        carregaGrade();
}

void Pendencia::mostraContagens(const ContagemPainel& c)
{
    for (const BotaoLista& b : Listas)
        m_botoes.value(b.botao)->setText(QString::number(c.conta(Lista(b.botao))));
    setWindowTitle(QStringLiteral("%1 itens,Ver").arg(c.abertas));
    const QDateTime agora = QDateTime::currentDateTime();
    auto liga = [this](QTimer* t, int botao, bool ligar) {
        if (ligar && !t->isActive())
            t->start();
        else if (!ligar && t->isActive())
            paraPisca(botao, t);
    };
    liga(m_timerEntrega, 0, ContagensPainel::piscaEntrega(c, sessao().DiasAviso, agora.date()));
    liga(m_timerSolicitada, 9, ContagensPainel::piscaSolicitada(c, agora));
    liga(m_timerRecusado, 6, c.recusadas());
}

void Pendencia::acinzenta(bool cinza)
{
    for (const BotaoLista& b : Listas) {
        QPushButton* botao = m_botoes.value(b.botao);
        botao->setProperty("cinza", cinza);
        const QColor fundo = m_aceso.value(b.botao) ? botao->property("corPisca").value<QColor>() : QColor();
        QString estilo;
        if (fundo.isValid())
            estilo += QStringLiteral("background-color: %1;").arg(fundo.name());
        if (cinza)
            estilo += QStringLiteral("color: gray;");
        botao->setStyleSheet(estilo);
    }
}

void Pendencia::pisca(int botao, QTimer*, const QColor& cor)
{
    m_aceso[botao] = !m_aceso.value(botao);
    QPushButton* b = m_botoes.value(botao);
    b->setProperty("corPisca", cor);
    b->setProperty("aceso", m_aceso.value(botao));
    acinzenta(b->property("cinza").toBool());
}

void Pendencia::paraPisca(int botao, QTimer* timer)
{
    timer->stop();
    m_aceso[botao] = false;
    QPushButton* b = m_botoes.value(botao);
    b->setProperty("aceso", false);
    acinzenta(b->property("cinza").toBool());
}

// --- lists ------------------------------------------------------------------------------------

void Pendencia::abreLista(int botao)
{
    if (botao == 0)
        paraPisca(0, m_timerEntrega);
    else if (botao == 6)
        paraPisca(6, m_timerRecusado);
    else if (botao == 9)
        paraPisca(9, m_timerSolicitada);
    m_frame->hide();
    m_status[4]->setEnabled(false);
    for (QLabel* e : std::as_const(m_etiquetas))
        e->setStyleSheet({});
    const Lista lista = Lista(botao);
    if (!ListasPainel::podeAbrir(lista)) {
        sessao().ListaTecnico = sessao().ListaSaida = 0;
        RecusaTela::mostrar(this, Recusa::negado());
        return;
    }
    m_lista = lista;
    carregaGrade();
    const QString cor = QStringLiteral("background-color: %1;").arg(corBgr(CorListaAberta).name());
    m_etiquetas.value(botao)->setStyleSheet(cor);
    QPalette pal = m_frame->palette();
    pal.setColor(QPalette::Window, corBgr(CorListaAberta));
    m_frame->setPalette(pal);
    if (m_linhas.isEmpty()) {
        recolhe();
        sessao().ListaTecnico = sessao().ListaSaida = 0;
        return;
    }
    const bool bancada = ListasPainel::abreNaBancada(lista);
    sessao().ListaTecnico = bancada ? 1 : 0;
    sessao().ListaSaida = bancada ? 0 : 1;
    m_status[4]->setEnabled(lista == Lista::Consertado);
}

void Pendencia::carregaGrade()
{
    if (!m_lista || !garanteBanco())
        return;
    try {
        m_linhas = ListasPainel::linhas(*m_banco, *m_lista);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        m_linhas.clear();
    }
    const QSignalBlocker bloqueio(m_grade);
    m_grade->clearContents();
    m_grade->setRowCount(m_linhas.size());
    for (int i = 0; i < m_linhas.size(); ++i) {
        const LinhaPainel& l = m_linhas.at(i);
        const QStringList celulas = {
            l.CodOs, l.NomeCliente, l.Tipo, l.Modelo, MascaraTelefone(l.Telefone), MascaraTelefone(l.Celular),
            Datas::bancoParaTela(l.DataContato), l.DiaPrometido, l.visita ? QString() : QString::number(l.CodOsAut),
            l.visita ? QString() : l.ValorPagar.texto(), l.Img1Aparelho, verdade(l.Consertado),
            verdade(l.Orcamento), verdade(l.AguardaPeca), verdade(l.Devolver), l.ServicoExecutado};
        for (int c = 0; c < celulas.size(); ++c)
            m_grade->setItem(i, c, new QTableWidgetItem(celulas.at(c)));
    }
    m_grade->setCurrentCell(-1, -1);
    m_frame->hide();
    m_grade->setVisible(!m_linhas.isEmpty());
    m_busca->setVisible(!m_linhas.isEmpty());
}

const LinhaPainel* Pendencia::linhaAtual() const
{
    const int l = m_grade->currentRow();
    return l >= 0 && l < m_linhas.size() ? &m_linhas.at(l) : nullptr;
}

void Pendencia::escolheLinha(int linha)
{
    if (linha < 0 || linha >= m_linhas.size())
        return;
    const LinhaPainel& l = m_linhas.at(linha);
    limpaEscolhas();
    m_telefone->setText(MascaraTelefone(l.Telefone));
    m_celular->setText(MascaraTelefone(l.Celular));
    m_valorPagar->setText(l.visita ? QString() : l.ValorPagar.texto());
    m_dtEntrega->setDate(Datas::lerBanco(l.DataEntrega).value_or(QDate::currentDate()));
    QPixmap foto(l.Img1Aparelho);
    if (foto.isNull())
        foto = QApplication::windowIcon().pixmap(128, 128);
    m_imagem->setPixmap(foto.scaled(m_imagem->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    // The first situation that holds, in the order the counter reads them.
    int indice = 0;
    if (l.Consertado)
        indice = 2;
    else if (l.Orcamento)
        indice = 3;
    else if (l.AguardaPeca)
        indice = 1;
    else if (l.Devolver)
        indice = 4;
    m_cStatus->setItemText(0, indice == 0 && !l.visita ? QStringLiteral("Sem resposta") : QStringLiteral("Sem Resposta"));
    m_cStatus->setCurrentIndex(indice);
    // A house call is not an order: its answer is kept on its own screen.
    m_cStatus->setEnabled(!l.visita);
    for (int i = 0; i < 3; ++i)
        m_status[i]->setEnabled(!l.visita);
    if (garanteBanco())
        m_avisar->defineOrdem(*m_banco, l.visita ? 0 : l.CodOsAut,
                              AvisoCliente::sugerida(l.Orcamento, l.AguardaPeca, l.Consertado, l.Aprovado));
    m_frame->show();
}

void Pendencia::limpaEscolhas()
{
    m_statusSituacao = 0;
    m_statusResposta = 0;
    const QStringList textos = {QStringLiteral("Autorizado"), QStringLiteral("Recusado"), QStringLiteral("Indeciso")};
    for (int i = 0; i < 3; ++i)
        m_status[i]->setText(textos.at(i));
    m_status[3]->setEnabled(false);
}

void Pendencia::resposta(int botao)
{
    QPushButton* b = m_status[botao];
    if (b->text() == Cancela) {
        const QStringList textos = {QStringLiteral("Autorizado"), QStringLiteral("Recusado"), QStringLiteral("Indeciso")};
        b->setText(textos.at(botao));
        m_statusResposta = 0;
        m_status[3]->setEnabled(m_statusSituacao != 0);
        return;
    }
    m_statusResposta = botao + 1;
    b->setText(Cancela);
    m_status[3]->setEnabled(true);
}

void Pendencia::recolhe()
{
    m_grade->hide();
    m_busca->hide();
    m_frame->hide();
}

void Pendencia::busca()
{
    const QString procura = m_busca->text().trimmed().toUpper();
    if (procura.isEmpty())
        return;
    for (int i = 0; i < m_grade->rowCount(); ++i) {
        const QTableWidgetItem* item = m_grade->item(i, ColOs);
        if (item && item->text().trimmed().toUpper().startsWith(procura)) {
            m_grade->setCurrentCell(i, ColOs);
            m_grade->scrollToItem(item);
            return;
        }
    }
}

// --- events -----------------------------------------------------------------------------------

bool Pendencia::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_busca && e->type() == QEvent::FocusIn)
        m_busca->clear();
    if (alvo == m_grade && e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            abreOrdem(m_grade->currentRow());
            return true;
        }
    }
    return QWidget::eventFilter(alvo, e);
}

void Pendencia::closeEvent(QCloseEvent* e)
{
    sessao().ListaTecnico = sessao().ListaSaida = 0;
    QWidget::closeEvent(e);
}

TOLDEX_REGISTRA_TELA(Pendencia)
