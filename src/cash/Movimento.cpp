#include "cash/Movimento.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTableView>
#include <QVBoxLayout>

#include "cash/FluxoCaixa.h"
#include "cash/GraficoMovimento.h"
#include "cash/ModeloMovimento.h"
#include "cash/MovimentoSimples.h"
#include "cash/RelatorioMovimento.h"
#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/Impressora.h"
#include "documents/MenuImpressao.h"
#include "documents/Visualizador.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using namespace MovimentoCaixa;

namespace {

const QString Titulo = QStringLiteral("Movimento do caixa");
const QStringList Visoes = {"Mostra Tudo", "Venda Produto", "Saída Conserto", "Técnico", "Simples", "++Simples"};
const QString TextoSimples = QStringLiteral("Simples");
const QString TextoMaisSimples = QStringLiteral("++Simples");

QPushButton* botao(QWidget* pai, int i, const QString& legenda)
{
    auto* b = new QPushButton(legenda, pai);
    b->setObjectName(QStringLiteral("Botao(%1)").arg(i));
    return b;
}

} // namespace

Movimento::Movimento(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("Movimento"));
    setWindowTitle(Titulo);
    auto* raiz = new QVBoxLayout(this);

    // Botao(0..16), placed below where each belongs.
    const QStringList legendas = {"&Listar",  "&Imprimir", "&Excluir", "&Sair",   "Buscar", "Buscar",
                                  "Buscar",   "Buscar",    "Técnico",  "Vendedor", "Caixa", "Buscar",
                                  "Buscar",   "&Pesquisar", "&Ocultar pesquisa", "Pl&anilha", "&Gráfico"};
    for (int i = 0; i < legendas.size(); ++i)
        m_botoes << botao(this, i, legendas.at(i));

    auto* topo = new QHBoxLayout;
    m_de = new QDateEdit(QDate::currentDate(), this);
    m_de->setObjectName(QStringLiteral("DtDe"));
    m_ate = new QDateEdit(QDate::currentDate(), this);
    m_ate->setObjectName(QStringLiteral("DtAte"));
    for (QDateEdit* d : {m_de, m_ate}) {
        d->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        d->setCalendarPopup(true);
    }
    m_combo = new QComboBox(this);
    m_combo->setObjectName(QStringLiteral("Combo1"));
    m_combo->addItems(Visoes);
    m_tecnico = new QComboBox(this);
    m_tecnico->setObjectName(QStringLiteral("CTec"));
    m_tecnico->setEditable(true);
    m_tecnico->setMinimumWidth(160);
    topo->addWidget(new QLabel(QStringLiteral("De:"), this));
    topo->addWidget(m_de);
    topo->addWidget(new QLabel(QStringLiteral("Até:"), this));
    topo->addWidget(m_ate);
    topo->addWidget(m_combo);
    const QStringList opcoes = {"Detalhada", "Simples", "++Simples"};
    for (int i = 0; i < opcoes.size(); ++i) {
        auto* o = new QRadioButton(opcoes.at(i), this);
        o->setObjectName(QStringLiteral("Option2(%1)").arg(i));
        m_opcao << o;
        topo->addWidget(o);
        connect(o, &QRadioButton::clicked, this, [this, i] { opcao(i); });
    }
    m_opcao[0]->setChecked(true);
    topo->addWidget(new QLabel(QStringLiteral("Funcionário:"), this));
    topo->addWidget(m_tecnico);
    topo->addStretch();
    raiz->addLayout(topo);

    m_frame = new QGroupBox(QStringLiteral("Pesquisa"), this);
    m_frame->setObjectName(QStringLiteral("FrameBusca"));
    auto* grelha = new QGridLayout(m_frame);
    const QStringList rotulosBusca = {"Cód/Venda:", "Cód/Produto:", "Descrição:", "Cliente:", "Fornecedor:"};
    for (int i = 0; i < 5; ++i) {
        auto* t = new QLineEdit(m_frame);
        t->setObjectName(QStringLiteral("TxtBusca(%1)").arg(i));
        t->setMaxLength(100);
        m_busca << t;
    }
    m_modulo = new QComboBox(m_frame);
    m_modulo->setObjectName(QStringLiteral("CModulo"));
    m_modulo->setEditable(true);
    auto campo = [&](int linha, int coluna, const QString& rotulo, QWidget* w, QPushButton* b) {
        grelha->addWidget(new QLabel(rotulo, m_frame), linha, coluna * 3);
        grelha->addWidget(w, linha, coluna * 3 + 1);
        b->setParent(m_frame);
        grelha->addWidget(b, linha, coluna * 3 + 2);
    };
    campo(0, 0, rotulosBusca[0], m_busca[0], m_botoes[4]);
    campo(0, 1, rotulosBusca[1], m_busca[1], m_botoes[5]);
    campo(0, 2, QStringLiteral("Módulo:"), m_modulo, m_botoes[6]);
    campo(1, 0, rotulosBusca[2], m_busca[2], m_botoes[7]);
    campo(1, 1, rotulosBusca[3], m_busca[3], m_botoes[11]);
    campo(1, 2, rotulosBusca[4], m_busca[4], m_botoes[12]);
    auto* porNome = new QHBoxLayout;
    porNome->addWidget(new QLabel(QStringLiteral("Pelo funcionário escolhido:"), m_frame));
    for (int i : {8, 9, 10, 14}) {
        m_botoes[i]->setParent(m_frame);
        porNome->addWidget(m_botoes[i]);
    }
    porNome->addStretch();
    grelha->addLayout(porNome, 2, 0, 1, 9);
    m_frame->hide();
    raiz->addWidget(m_frame);

    m_modelo = new ModeloMovimento(this);
    m_grade = m_modelo->novaGrade(this);
    m_grade->horizontalHeader()->setDefaultSectionSize(82);
    raiz->addWidget(m_grade, 1);
    m_grade->setColumnWidth(Descricao, 220);
    m_grade->setColumnWidth(Cliente, 200);

    auto* totais = new QGridLayout;
    for (int i = 0; i < rotulosTotais().size(); ++i) {
        auto* rotulo = new QLabel(rotulosTotais().at(i) + QLatin1Char(':'), this);
        auto* valor = new QLabel(i == 0 ? QStringLiteral("0") : QStringLiteral("0,00"), this);
        valor->setObjectName(QStringLiteral("EtValor(%1)").arg(i));
        valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        valor->setMinimumWidth(90);
        valor->setFrameShape(QFrame::Panel);
        valor->setFrameShadow(QFrame::Sunken);
        m_totais << valor;
        totais->addWidget(rotulo, i / 6, (i % 6) * 2);
        totais->addWidget(valor, i / 6, (i % 6) * 2 + 1);
    }
    raiz->addLayout(totais);

    auto* acoes = new QHBoxLayout;
    for (int i : {0, 13, 1, 15, 16, 2, 3})
        acoes->addWidget(m_botoes[i]);
    raiz->addLayout(acoes);

    connect(m_botoes[0], &QPushButton::clicked, this, &Movimento::lista);
    MenuImpressao::preparar(m_botoes[1], [this](Destino::Tipo d) { imprime(d); });
    connect(m_botoes[2], &QPushButton::clicked, this, &Movimento::exclui);
    connect(m_botoes[3], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    const Campo campos[] = {Campo::Venda,    Campo::Peca,     Campo::Modulo, Campo::Descricao, Campo::Tecnico,
                            Campo::Vendedor, Campo::Caixa,    Campo::Cliente, Campo::Fornecedor};
    for (int i = 0; i < 9; ++i)
        connect(m_botoes[4 + i], &QPushButton::clicked, this, [this, c = campos[i]] { busca(c); });
    connect(m_botoes[13], &QPushButton::clicked, m_frame, &QWidget::show);
    connect(m_botoes[14], &QPushButton::clicked, m_frame, &QWidget::hide);
    connect(m_botoes[15], &QPushButton::clicked, this, &Movimento::exporta);
    connect(m_botoes[16], &QPushButton::clicked, this, &Movimento::grafico);

    resize(1340, 680);
    Pintura::pinta(this);
    QString erro;
    m_banco = Conexoes::nova(&erro);
    if (!m_banco) {
        setEnabled(false);
        return;
    }
    carregaListas();
}

Movimento::~Movimento() = default;

void Movimento::carregaListas()
{
    try {
        QSqlQuery q = m_banco->executar(QStringLiteral("SELECT NomeUsuario FROM Usuario ORDER BY NomeUsuario"));
        while (q.next())
            m_tecnico->addItem(q.value(0).toString());
        QSqlQuery g = m_banco->executar(QStringLiteral("SELECT Grupo FROM GrupoProdutos ORDER BY Grupo"));
        while (g.next())
            m_modulo->addItem(g.value(0).toString());
    } catch (const ErroBanco&) {
        // The pickers stay empty; a name can still be typed.
    }
    m_tecnico->setCurrentText(QString());
    m_modulo->setCurrentText(QString());
}

bool Movimento::falhou(const QString& titulo, const std::exception& e)
{
    const auto* eb = dynamic_cast<const ErroBanco*>(&e);
    Dialogos::mensagem(this, eb ? eb->textoCompleto() : QString::fromUtf8(e.what()), titulo, Dialogos::Icone::Aviso);
    return false;
}

void Movimento::opcao(int indice)
{
    m_combo->setEnabled(indice == 0);
    if (indice == 0) {
        m_combo->setCurrentText(Visoes.first());
        mostra(Lista{});
    } else {
        m_combo->setCurrentText(indice == 1 ? TextoSimples : TextoMaisSimples);
    }
}

Visao Movimento::visaoOpcao() const
{
    if (m_opcao[1]->isChecked())
        return Visao::Simples;
    if (m_opcao[2]->isChecked())
        return Visao::MaisSimples;
    return Visao::Detalhada;
}

Visao Movimento::visaoCombo() const
{
    const QString t = m_combo->currentText();
    if (t == TextoSimples)
        return Visao::Simples;
    if (t == TextoMaisSimples)
        return Visao::MaisSimples;
    return Visao::Detalhada;
}

const Lista* Movimento::listada() const { return m_modelo->lista(); }

void Movimento::lista()
{
    if (!m_banco)
        return;
    const int i = Visoes.indexOf(m_combo->currentText());
    const Filtro f = i == 1 ? Filtro::VendaProduto : i == 2 ? Filtro::SaidaConserto : i == 3 ? Filtro::Tecnico
                                                                                            : Filtro::Tudo;
    const Consulta c = visao(visaoCombo(), f, m_tecnico->currentText(), m_de->date(), m_ate->date());
    try {
        mostra(ler(*m_banco, c));
    } catch (const ErroBanco& e) {
        falhou(Titulo, e);
    }
}

void Movimento::busca(Campo campo)
{
    if (!m_banco)
        return;
    QString valor;
    switch (campo) {
    case Campo::Venda: valor = m_busca[0]->text(); break;
    case Campo::Peca: valor = m_busca[1]->text(); break;
    case Campo::Modulo: valor = m_modulo->currentText(); break;
    case Campo::Descricao: valor = m_busca[2]->text(); break;
    case Campo::Tecnico: case Campo::Vendedor: case Campo::Caixa: valor = m_tecnico->currentText(); break;
    case Campo::Cliente: valor = m_busca[3]->text(); break;
    case Campo::Fornecedor: valor = m_busca[4]->text(); break;
    }
    try {
        const std::optional<Consulta> c = MovimentoCaixa::busca(*m_banco, visaoOpcao(), campo, valor.trimmed(),
                                                                m_de->date(), m_ate->date());
        if (!c) {
            Dialogos::mensagem(this, QStringLiteral("Esta pesquisa só existe na lista detalhada."), Titulo);
            return;
        }
        mostra(ler(*m_banco, *c));
    } catch (const ErroBanco& e) {
        falhou(Titulo, e);
    }
}

void Movimento::mostra(Lista lista)
{
    m_listadoDe = m_de->date();
    m_listadoAte = m_ate->date();
    m_listadoVisao = m_combo->currentText();
    auto compartilhada = std::make_shared<const Lista>(std::move(lista));
    m_modelo->define(compartilhada);
    const QStringList textos = compartilhada->totais.textos();
    for (int i = 0; i < m_totais.size(); ++i)
        m_totais[i]->setText(textos.at(i));
    if (resumo(compartilhada->visao)) {
        if (auto* fluxo = qobject_cast<FluxoCaixa*>(RegistroTelas::abrir(QStringLiteral("FluxoCaixa"))))
            fluxo->conta(compartilhada->totais.fluxo);
    }
    if (compartilhada->visao == Visao::MaisSimples) {
        if (auto* simples = qobject_cast<MovimentoSimples*>(RegistroTelas::abrir(QStringLiteral("MovimentoSimples"))))
            simples->mostra(compartilhada);
    }
}

void Movimento::exclui()
{
    if (!m_banco)
        return;
    if (!Dialogos::pergunta(this, QStringLiteral("Serão excluídos todos os itens da grade,deseja excluir ?"), Titulo))
        return;
    if (sessao().DireitoMovimento != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    const Lista* l = m_modelo->lista();
    if (!l)
        return;
    try {
        // Exactly what the grid shows goes, whatever the pickers say now.
        excluir(*m_banco, *l);
    } catch (const ErroBanco& e) {
        falhou(QStringLiteral("Erro ao excluir"), e);
        return;
    }
    lista();
}

void Movimento::imprime(Destino::Tipo tipo)
{
    const Lista* l = m_modelo->lista();
    if (!l) {
        Dialogos::mensagem(this, QStringLiteral("Liste o movimento antes de imprimir."), Titulo);
        return;
    }
    Destino d;
    d.tipo = tipo;
    d.pai = this;
    d.escolherImpressora = tipo == Destino::Tipo::Impressora && ConfigImpressao::ligado(QStringLiteral("AutoImpressora"));
    d.nomeProposto = QStringLiteral("Movimento %1").arg(m_listadoDe.toString(QStringLiteral("dd-MM-yyyy")));
    auto guarda = m_modelo->compartilhada();
    Impressao::imprimirDesenho([guarda](Impressora& p) { RelatorioMovimento::imprimir(*guarda, p); }, d,
                               QPageLayout::Landscape);
}

void Movimento::exporta()
{
    const Lista* l = m_modelo->lista();
    if (!l) {
        Dialogos::mensagem(this, QStringLiteral("Liste o movimento antes de gerar a planilha."), Titulo);
        return;
    }
    QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (pasta.isEmpty())
        pasta = QDir::homePath();
    const auto escolhido = Dialogos::salvarArquivo(this, QStringLiteral("Salvar planilha"),
                                                   QDir(pasta).filePath(RelatorioMovimento::nomeProposto(m_listadoDe)),
                                                   QStringLiteral("Planilha do Excel (*.xlsx)"));
    if (!escolhido || escolhido->trimmed().isEmpty())
        return;
    QString arquivo = *escolhido;
    if (!arquivo.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive))
        arquivo += QStringLiteral(".xlsx");

    QProgressDialog progresso(QStringLiteral("Gerando planilha..."), QStringLiteral("Cancelar"), 0, 100, this);
    progresso.setWindowTitle(Titulo);
    progresso.setWindowModality(Qt::WindowModal);
    progresso.setMinimumDuration(400);
    m_totais[0]->setText(QStringLiteral("0"));
    auto guarda = m_modelo->compartilhada();
    QString erro;
    const RelatorioMovimento::Resultado r = RelatorioMovimento::exportar(
        *guarda, {m_listadoDe, m_listadoAte, m_listadoVisao}, arquivo,
        [this, &progresso](qint64 feitas, qint64 total) {
            m_totais[0]->setText(QString::number(feitas));
            progresso.setValue(total > 0 ? int(feitas * 100 / total) : 100);
            return !progresso.wasCanceled();
        },
        &erro);
    progresso.close();
    if (r == RelatorioMovimento::Resultado::Falhou) {
        Dialogos::mensagem(this, erro, QStringLiteral("Erro ao gerar planilha"), Dialogos::Icone::Aviso);
        return;
    }
    if (r == RelatorioMovimento::Resultado::Cancelado)
        return;
    if (!Visualizador::abrir(arquivo))
        Dialogos::mensagem(this, QStringLiteral("A planilha foi salva em \"%1\".").arg(QDir::toNativeSeparators(arquivo)),
                           Titulo);
}

void Movimento::grafico()
{
    const Lista* l = m_modelo->lista();
    if (!l) {
        Dialogos::mensagem(this, QStringLiteral("Liste o movimento antes de ver o gráfico."), Titulo);
        return;
    }
    if (auto* g = qobject_cast<GraficoMovimento*>(RegistroTelas::abrir(QStringLiteral("GraficoMovimento"))))
        g->mostra(*l, m_listadoDe, m_listadoAte);
}

TOLDEX_REGISTRA_TELA(Movimento)
