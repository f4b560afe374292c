#include "orders/BuscaRapida.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/FuncoesMascaras.h"
#include "data/PaginasBusca.h"
#include "data/Sessao.h"
#include "orders/PesquisaOs.h"
#include "orders/TelasOrdem.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/ModeloPesquisa.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using BuscaOrdens::Rapida;

namespace {

const QString Titulo = QStringLiteral("Busca rápida");

const QList<ModeloPesquisa::Coluna> Colunas = {
    {QStringLiteral("CodOs"), QStringLiteral("O.S")},       {QStringLiteral("NomeCliente"), QStringLiteral("Nome")},
    {QStringLiteral("Telefone"), QStringLiteral("Telefone")}, {QStringLiteral("Tipo"), QStringLiteral("Tipo")},
    {QStringLiteral("Marca"), QStringLiteral("Marca")},     {QStringLiteral("Modelo"), QStringLiteral("Modelo")},
    {QStringLiteral("CodOsAut"), QStringLiteral("CodOsAut")}};
const QList<int> Larguras = {57, 200, 100, 100, 100, 100, 67};

bool podeLer()
{
    if (sessao().DireitoOsSaiLe == 1)
        return true;
    RegistroTelas::abrir(QStringLiteral("Negado"));
    return false;
}

} // namespace

BuscaRapida::BuscaRapida(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(Titulo);
    auto* raiz = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    const QStringList rotulos = {QStringLiteral("Ordem Serviço:"), QStringLiteral("Nome Cliente:"),
                                 QStringLiteral("Telefone/Celular:"), QStringLiteral("CPF/CNPJ:")};
    for (int i = 0; i < rotulos.size(); ++i) {
        auto* caixa = new QLineEdit(this);
        caixa->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        Campos::preparaLinha(caixa, false);
        caixa->installEventFilter(this);
        form->addRow(rotulos[i], caixa);
        m_caixas << caixa;
    }
    raiz->addLayout(form);

    auto* botoes = new QHBoxLayout;
    auto* buscar = new QPushButton(QStringLiteral("&Buscar"), this);
    buscar->setObjectName(QStringLiteral("Botao(0)"));
    connect(buscar, &QPushButton::clicked, this, [this] {
        for (int i = 0; i < m_caixas.size(); ++i)
            if (!m_caixas[i]->text().isEmpty()) {
                busca(Rapida(i));
                return;
            }
    });
    auto* mais = new QPushButton(QStringLiteral("Clique mais"), this);
    mais->setObjectName(QStringLiteral("Botao(1)"));
    mais->setToolTip(QStringLiteral("Pesquisa de O.S de saída, por tipo, marca, modelo e mais"));
    connect(mais, &QPushButton::clicked, this, &BuscaRapida::cliqueMais);
    botoes->addWidget(buscar);
    botoes->addWidget(mais);
    botoes->addStretch();
    raiz->addLayout(botoes);

    m_modelo = new ModeloPesquisa(this);
    m_modelo->defineColunas(Colunas, [](const QString& coluna, const QVariant& v) {
        const QString t = v.toString();
        return coluna == QLatin1String("Telefone") && !t.isEmpty() ? MascaraTelefone(t) : t;
    });
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setModel(m_modelo);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->verticalHeader()->hide();
    m_grade->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    for (int c = 0; c < Larguras.size(); ++c)
        m_grade->setColumnWidth(c, Larguras[c]);
    m_grade->installEventFilter(this);
    connect(m_grade, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { escolhe(i.row()); });
    connect(m_modelo, &ModeloPesquisa::contou, this, &BuscaRapida::atualizaTitulo);
    connect(m_modelo, &ModeloPesquisa::falhou, this,
            [this](const QString& msg) { Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), msg); });
    raiz->addWidget(m_grade, 1);
    mostraGrade(false);
    resize(790, 440);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
}

BuscaRapida::~BuscaRapida() = default;

void BuscaRapida::mostraGrade(bool visivel)
{
    if (!visivel)
        m_modelo->limpar();
    m_grade->setVisible(visivel);
}

int BuscaRapida::encontrados() const { return int(m_modelo->total()); }

void BuscaRapida::busca(Rapida caixa)
{
    if (!podeLer())
        return;
    const QString texto = m_caixas.value(int(caixa))->text();
    if (texto.isEmpty() || !m_banco) {
        mostraGrade(false);
        setWindowTitle(Titulo);
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        QStringList colunas;
        for (const auto& c : Colunas)
            colunas << c.coluna;
        auto abre = [&](Rapida qual) {
            const BuscaOrdens::Criterio c = BuscaOrdens::criterioRapida(qual);
            m_modelo->abrir(std::make_unique<PaginasBusca>(*m_banco, c.tabela, BuscaOrdens::condicao(*m_banco, c, texto),
                                                           c.ordem, colunas),
                            ModeloPesquisa::Contagem::Depois);
        };
        abre(caixa);
        // A number the customer gave as "the telephone" may be kept as the mobile.
        if (caixa == Rapida::Telefone && m_modelo->vazio())
            abre(Rapida::Celular);
    } catch (const ErroBanco& e) {
        QApplication::restoreOverrideCursor();
        mostraGrade(false);
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
        return;
    }
    QApplication::restoreOverrideCursor();
    if (m_modelo->vazio()) {
        mostraGrade(false);
        setWindowTitle(Titulo);
        Dialogos::mensagem(this, QStringLiteral("Nenhum item encontrado"), Titulo);
        return;
    }
    mostraGrade(true);
    atualizaTitulo();
}

void BuscaRapida::atualizaTitulo()
{
    // The number follows the first page in a moment.
    setWindowTitle(m_modelo->contando() || m_modelo->vazio() ? Titulo
                                                             : QStringLiteral("%1 - %2").arg(Titulo).arg(m_modelo->total()));
}

void BuscaRapida::escolhe(int linha)
{
    if (linha < 0 || linha >= m_modelo->rowCount())
        return;
    QVariantMap valores;
    try {
        for (const char* c : {"CodOs", "CodOsAut"})
            valores.insert(QString::fromLatin1(c), m_modelo->valor(linha, QString::fromLatin1(c)));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
        return;
    }
    const auto destino =
        BuscaOrdens::destino(BuscaOrdens::Modo::Saida, TelasOrdem::abreCompleta(), valores);
    if (PesquisaOs::abreDestino(this, destino))
        for (QLineEdit* c : std::as_const(m_caixas))
            c->clear();
}

void BuscaRapida::cliqueMais()
{
    if (!podeLer())
        return;
    if (auto* pesquisa = qobject_cast<PesquisaOs*>(RegistroTelas::abrir(QStringLiteral("PesquisaOs"))))
        pesquisa->abrirNoModo(QStringLiteral("Saida"));
}

bool BuscaRapida::eventFilter(QObject* alvo, QEvent* e)
{
    auto* caixa = qobject_cast<QLineEdit*>(alvo);
    const int i = caixa ? int(m_caixas.indexOf(caixa)) : -1;
    if (e->type() == QEvent::MouseButtonPress && i >= 0) {
        // One criterion in force: the one just clicked.
        for (QLineEdit* outra : std::as_const(m_caixas))
            if (outra != caixa)
                outra->clear();
    } else if (e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            if (alvo == m_grade) {
                escolhe(m_grade->currentIndex().row());
                return true;
            }
            if (i >= 0) {
                busca(Rapida(i));
                return true;
            }
        }
    }
    return QWidget::eventFilter(alvo, e);
}

TOLDEX_REGISTRA_TELA(BuscaRapida)
