#include "stock/AlteraPreco.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "stock/Margem.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Todos = QStringLiteral("Todos");
const QString Titulo = QStringLiteral("Reajuste de preço");
} // namespace

// The preview: code, description, old and new price of every product selected. It
// holds four small values a row, so a preview of every product of the shop stays light.
class ModeloReajuste : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;
    void define(QList<ReajustePreco::Linha> linhas)
    {
        beginResetModel();
        m_linhas = std::move(linhas);
        endResetModel();
    }
    const QList<ReajustePreco::Linha>& linhas() const { return m_linhas; }
    int rowCount(const QModelIndex& p = {}) const override { return p.isValid() ? 0 : int(m_linhas.size()); }
    int columnCount(const QModelIndex& p = {}) const override { return p.isValid() ? 0 : 4; }
    QVariant data(const QModelIndex& i, int papel) const override
    {
        if (!i.isValid() || i.row() >= m_linhas.size())
            return {};
        const ReajustePreco::Linha& l = m_linhas[i.row()];
        if (papel == Qt::TextAlignmentRole && i.column() >= 2)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (papel != Qt::DisplayRole)
            return {};
        switch (i.column()) {
        case 0: return l.codpeca;
        case 1: return l.descricao;
        case 2: return l.antigo.texto();
        default: return l.novo.texto();
        }
    }
    QVariant headerData(int s, Qt::Orientation o, int papel) const override
    {
        if (o != Qt::Horizontal || papel != Qt::DisplayRole)
            return {};
        static const QStringList t = {QStringLiteral("Código"), QStringLiteral("Descrição"),
                                      QStringLiteral("Preço atual"), QStringLiteral("Preço novo")};
        return t.value(s);
    }

private:
    QList<ReajustePreco::Linha> m_linhas;
};

AlteraPreco::AlteraPreco(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(Titulo);
    auto* raiz = new QVBoxLayout(this);
    auto* selecao = new QGroupBox(QStringLiteral("Produtos"), this);
    auto* gs = new QGridLayout(selecao);
    const QStringList rotulos = {QStringLiteral("Descrição"), QStringLiteral("Fabricante"), QStringLiteral("Categoria")};
    for (int i = 0; i < 3; ++i) {
        auto* c = new QComboBox(selecao);
        c->setObjectName(QStringLiteral("CSeleciona(%1)").arg(i));
        c->setEditable(true);
        c->setInsertPolicy(QComboBox::NoInsert);
        c->setMaxVisibleItems(20);
        gs->addWidget(new QLabel(rotulos[i], selecao), i, 0);
        gs->addWidget(c, i, 1);
        m_listas << c;
    }
    gs->setColumnStretch(1, 1);
    raiz->addWidget(selecao);

    auto* opcoes = new QHBoxLayout;
    auto* coluna = new QGroupBox(QStringLiteral("Preço"), this);
    auto* lc = new QVBoxLayout(coluna);
    const QStringList ajustes = {QStringLiteral("Ajuste valor de custo."), QStringLiteral("Ajuste valor de venda."),
                                 QStringLiteral("Ajuste valor mínimo:")};
    for (int i = 0; i < 3; ++i) {
        auto* r = new QRadioButton(ajustes[i], coluna);
        r->setObjectName(QStringLiteral("OptAjuste(%1)").arg(i));
        lc->addWidget(r);
        m_ajuste << r;
    }
    auto* modo = new QGroupBox(QStringLiteral("Reajuste"), this);
    auto* lm = new QVBoxLayout(modo);
    for (int i = 0; i < 2; ++i) {
        auto* r = new QRadioButton(i == 0 ? QStringLiteral("Porcentagem (%)") : QStringLiteral("Valor (R$)"), modo);
        r->setObjectName(QStringLiteral("OptValor(%1)").arg(i));
        lm->addWidget(r);
        m_valor << r;
    }
    m_valor[0]->setChecked(true);
    m_figura = new QLineEdit(modo);
    m_figura->setObjectName(QStringLiteral("TxtValor"));
    m_figura->setToolTip(QStringLiteral("Aumento (ou, com o sinal de menos, redução): 10 ou 2,50"));
    lm->addWidget(m_figura);
    opcoes->addWidget(coluna);
    opcoes->addWidget(modo);
    raiz->addLayout(opcoes);

    m_modelo = new ModeloReajuste(this);
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setModel(m_modelo);
    m_grade->verticalHeader()->hide();
    m_grade->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setColumnWidth(0, 110);
    m_grade->setColumnWidth(1, 300);
    raiz->addWidget(m_grade, 1);

    for (int i = 1; i <= 3; ++i) {
        auto* l = new QLabel(this);
        l->setObjectName(QStringLiteral("Label%1").arg(i));
        raiz->addWidget(l);
        m_rotulos << l;
    }
    auto* botoes = new QHBoxLayout;
    auto* aplicar = new QPushButton(QStringLiteral("&Aplicar"), this);
    aplicar->setObjectName(QStringLiteral("Botao(0)"));
    auto* fechar = new QPushButton(QStringLiteral("&Fechar"), this);
    fechar->setObjectName(QStringLiteral("Botao(1)"));
    botoes->addStretch();
    botoes->addWidget(aplicar);
    botoes->addWidget(fechar);
    raiz->addLayout(botoes);
    connect(aplicar, &QPushButton::clicked, this, &AlteraPreco::aplica);
    connect(fechar, &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });

    resize(760, 600);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    carregaListas();
}

AlteraPreco::~AlteraPreco() = default;

int AlteraPreco::previstos() const { return int(m_modelo->linhas().size()); }

void AlteraPreco::carregaListas()
{
    if (!m_banco)
        return;
    const QStringList colunas = {QStringLiteral("Descricao"), QStringLiteral("Fabricante"), QStringLiteral("Categoria")};
    try {
        for (int i = 0; i < 3; ++i) {
            // A model of its own: fifty thousand descriptions fill the list at once.
            auto* m = new QStringListModel(QStringList{Todos} + ReajustePreco::valores(*m_banco, colunas[i]), m_listas[i]);
            m_listas[i]->setModel(m);
            m_listas[i]->setCurrentIndex(0);
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

ReajustePreco::Filtro AlteraPreco::filtro() const
{
    auto valor = [this](int i) {
        const QString t = m_listas[i]->currentText();
        return t == Todos ? QString() : t;
    };
    return {valor(0), valor(1), valor(2)};
}

bool AlteraPreco::leAjuste(ReajustePreco::Ajuste* a)
{
    int coluna = -1;
    for (int i = 0; i < 3; ++i)
        if (m_ajuste[i]->isChecked())
            coluna = i;
    if (coluna < 0) {
        Dialogos::mensagem(this, QStringLiteral("Escolha o preço a reajustar: custo, venda ou mínimo."), Titulo);
        return false;
    }
    a->coluna = static_cast<ReajustePreco::Coluna>(coluna);
    a->porcentagem = m_valor[0]->isChecked();
    const QString t = m_figura->text().trimmed();
    std::optional<qint64> valor;
    if (a->porcentagem)
        valor = Margem::lerPorcentagem(t);
    else if (const auto d = Dinheiro::lerTexto(t))
        valor = d->centavos();
    if (t.isEmpty() || !valor || *valor == 0) {
        Dialogos::mensagem(this, QStringLiteral("Digite o valor do reajuste, como 10 ou 2,50."), Titulo,
                           Dialogos::Icone::Aviso);
        m_figura->setFocus();
        return false;
    }
    a->valor = *valor;
    return true;
}

void AlteraPreco::aplica()
{
    if (sessao().DireitoProdutoAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    ReajustePreco::Ajuste ajuste;
    if (!m_banco || !leAjuste(&ajuste))
        return;
    const ReajustePreco::Filtro f = filtro();
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        m_modelo->define(ReajustePreco::previa(*m_banco, f, ajuste));
        QApplication::restoreOverrideCursor();
    } catch (const ErroBanco& e) {
        QApplication::restoreOverrideCursor();
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
        return;
    }
    const int n = previstos();
    m_rotulos[0]->setText(QStringLiteral("%1 produtos").arg(n));
    m_rotulos[1]->clear();
    m_rotulos[2]->clear();
    if (n == 0) {
        Dialogos::mensagem(this, QStringLiteral("Nenhum produto encontrado"), Titulo);
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Confirma o reajuste de %1 produtos ?").arg(n), Titulo))
        return;
    m_rotulos[2]->setText(QStringLiteral("Aguarde alterando"));
    ReajustePreco::Resultado r;
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        r = ReajustePreco::aplicar(*m_banco, f, ajuste, m_modelo->linhas());
        QApplication::restoreOverrideCursor();
    } catch (const ErroBanco& e) {
        QApplication::restoreOverrideCursor();
        m_rotulos[2]->clear();
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return;
    }
    m_rotulos[2]->clear();
    switch (r) {
    case ReajustePreco::Resultado::PrecoNegativo:
        Dialogos::mensagem(this, QStringLiteral("O reajuste deixaria produtos com preço negativo. Nada foi alterado."),
                           Titulo, Dialogos::Icone::Aviso);
        return;
    case ReajustePreco::Resultado::MudouDesdeAPrevia:
        Dialogos::mensagem(this, QStringLiteral("Outra estação alterou estes produtos depois da prévia. "
                                                "Nada foi alterado; aplique de novo para ver os preços atuais."),
                           Titulo, Dialogos::Icone::Aviso);
        return;
    case ReajustePreco::Resultado::Aplicado:
        break;
    }
    m_rotulos[1]->setText(QStringLiteral("Reajuste aplicado em %1 produtos").arg(n));
    RegistroTelas::abrir(QStringLiteral("Gravado"));
}

TOLDEX_REGISTRA_TELA(AlteraPreco)
