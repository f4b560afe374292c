#include "ui/TelaPesquisa.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Conexoes.h"
#include "data/PaginasBusca.h"
#include "ui/Dialogos.h"
#include "ui/ModeloPesquisa.h"
#include "ui/Pintura.h"

TelaPesquisa::TelaPesquisa(QWidget* pai) : QWidget(pai)
{
    auto* raiz = new QVBoxLayout(this);
    m_topo = new QVBoxLayout;
    raiz->addLayout(m_topo);
    m_modelo = new ModeloPesquisa(this);
    m_gradeW = new QTableView(this);
    m_gradeW->setObjectName(QStringLiteral("Grade"));
    m_gradeW->setModel(m_modelo);
    m_gradeW->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_gradeW->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_gradeW->setSelectionMode(QAbstractItemView::SingleSelection);
    m_gradeW->verticalHeader()->hide();
    // Every line the same height: the grid then asks only for the rows it shows.
    m_gradeW->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_gradeW->installEventFilter(this);
    raiz->addWidget(m_gradeW, 1);
    m_codigo = new QLineEdit(this);
    m_codigo->setObjectName(QStringLiteral("Text2"));
    m_codigo->hide();
    m_nome = new QLineEdit(this);
    m_nome->setObjectName(QStringLiteral("Text3"));
    m_nome->hide();
    connect(m_gradeW, &QTableView::clicked, this, [this](const QModelIndex& i) {
        if (m_modelo->temConvite() || !i.isValid())
            return;
        m_linhaEscolhida = i.row();
        m_codigo->setText(m_modelo->valor(i.row(), m_colunaCodigo).toString());
        m_nome->setText(m_modelo->valor(i.row(), m_colunaNome).toString());
    });
    connect(m_gradeW, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { escolhe(i.row()); });
    connect(m_modelo, &ModeloPesquisa::contou, this, &TelaPesquisa::atualizaTitulo);
    connect(m_modelo, &ModeloPesquisa::falhou, this, [this](const QString& msg) {
        atualizaTitulo();
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), msg);
    });
    resize(720, 460);
}

TelaPesquisa::~TelaPesquisa() = default;

bool TelaPesquisa::iniciar()
{
    auto* grupo = new QGroupBox(QStringLiteral("Pesquisar por"), this);
    if (m_opcoes.isEmpty())
        grupo->hide();
    auto* linha = new QHBoxLayout(grupo);
    for (int i = 0; i < m_opcoes.size(); ++i) {
        auto* op = new QRadioButton(m_opcoes[i].rotulo, grupo);
        op->setObjectName(QStringLiteral("Option1(%1)").arg(i));
        linha->addWidget(op);
        connect(op, &QRadioButton::clicked, this, [this, i] { escolheOpcao(i); });
        m_botoesOpcao << op;
    }
    linha->addStretch();
    m_topo->addWidget(grupo);
    for (int i = 0; i < m_opcoes.size(); ++i) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        t->installEventFilter(this);
        m_topo->addWidget(t);
        m_textos << t;
    }
    redefineGrade(m_grade);
    escolheOpcao(0);
    setWindowTitle(m_titulo);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    return m_banco != nullptr;
}

void TelaPesquisa::redefineGrade(const QList<ColunaGrade>& grade)
{
    m_grade = grade;
    QList<ModeloPesquisa::Coluna> colunas;
    for (const ColunaGrade& c : std::as_const(m_grade))
        colunas << ModeloPesquisa::Coluna{c.coluna, c.titulo};
    m_gradeW->clearSpans();
    m_modelo->limpar();  // no rows read for the former columns stay behind
    m_modelo->defineColunas(colunas, [this](const QString& coluna, const QVariant& v) { return textoCelula(coluna, v); });
    for (int c = 0; c < m_grade.size(); ++c) {
        m_gradeW->setColumnWidth(c, m_grade[c].largura);
        m_gradeW->setColumnHidden(c, m_grade[c].largura <= 0);
    }
    limpaGrade();
}

void TelaPesquisa::limpaGrade()
{
    m_linhaEscolhida = -1;
    m_modelo->convite(textoInicial());
    // The invitation reads across the whole first line, however narrow the first column.
    if (m_modelo->columnCount() > 1)
        m_gradeW->setSpan(0, 0, 1, m_modelo->columnCount());
}

void TelaPesquisa::esvazia()
{
    m_gradeW->clearSpans();
    m_linhaEscolhida = -1;
    m_modelo->limpar();
    setWindowTitle(m_titulo);
}

void TelaPesquisa::escolheOpcao(int i)
{
    if (i < 0 || i >= m_textos.size())
        return;
    m_opcao = i;
    m_botoesOpcao[i]->setChecked(true);
    for (int k = 0; k < m_textos.size(); ++k) {
        m_textos[k]->setVisible(k == i);
        m_textos[k]->setEnabled(k == i);
    }
    m_textos[i]->setFocus();
}

void TelaPesquisa::pesquisa()
{
    if (!m_banco || m_opcao >= m_opcoes.size())
        return;
    const QString texto = m_textos[m_opcao]->text();
    if (texto.isEmpty()) {
        esvazia();
        return;
    }
    const Opcao& op = m_opcoes[m_opcao];
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        const Condicao onde = condicaoBusca(op, texto);
        mostraConsulta(onde, m_ordem.isEmpty() ? op.coluna : m_ordem);
    } catch (const ErroBanco& e) {
        QApplication::restoreOverrideCursor();
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
        return;
    }
    QApplication::restoreOverrideCursor();
}

void TelaPesquisa::listaTodos()
{
    if (!m_banco)
        return;
    try {
        mostraConsulta({}, m_ordem);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
    }
}

Condicao TelaPesquisa::condicaoBusca(const Opcao& op, const QString& texto)
{
    // The grid shows its first page before it counts: a bounded probe picks the plan.
    return Busca::porColuna(*m_banco, m_tabela, op.coluna, texto, op.meio);
}

QString TelaPesquisa::textoCelula(const QString&, const QVariant& valor) const
{
    return valor.toString();
}

void TelaPesquisa::mostraConsulta(const Condicao& onde, const QString& ordem)
{
    if (!m_banco)
        return;
    QStringList colunas;
    for (const ColunaGrade& c : std::as_const(m_grade))
        colunas << c.coluna;
    for (const QString& c : {m_colunaCodigo, m_colunaNome})
        if (!c.isEmpty() && !colunas.contains(c, Qt::CaseInsensitive))
            colunas << c;
    m_gradeW->clearSpans();
    m_linhaEscolhida = -1;
    m_modelo->abrir(std::make_unique<PaginasBusca>(*m_banco, m_tabela, onde, ordem, colunas),
                    ModeloPesquisa::Contagem::Depois);
    atualizaTitulo();
}

int TelaPesquisa::encontrados() const { return int(m_modelo->total()); }

void TelaPesquisa::atualizaTitulo()
{
    if (m_modelo->contando()) {
        setWindowTitle(m_titulo);  // the number follows the first page in a moment
        return;
    }
    const qint64 n = m_modelo->total();
    const QString quantos = m_plural.isEmpty() ? QString::number(n) : QStringLiteral("%1 %2").arg(n).arg(m_plural);
    const QString cabeca = m_tituloContagem.isEmpty() ? m_titulo : m_tituloContagem;
    if (n == 0)
        setWindowTitle(m_titulo);
    else
        setWindowTitle(QStringLiteral("%1 - %2 encontrados").arg(cabeca, quantos));
}

void TelaPesquisa::defineLarguraColuna(int coluna, int largura)
{
    if (coluna < 0 || coluna >= m_modelo->columnCount())
        return;
    m_gradeW->setColumnHidden(coluna, largura <= 0);
    if (largura > 0)
        m_gradeW->setColumnWidth(coluna, largura);
}

void TelaPesquisa::definirChamador(const QString& flag, Acao acao)
{
    for (auto& c : m_chamadores)
        if (c.first == flag) {
            c.second = std::move(acao);
            return;
        }
    m_chamadores.append({flag, std::move(acao)});
}

bool TelaPesquisa::chamadorDefinido(const QString& flag) const
{
    for (const auto& c : m_chamadores)
        if (c.first == flag)
            return true;
    return false;
}

void TelaPesquisa::escolhe(int linha)
{
    if (m_modelo->temConvite() || linha < 0 || linha >= m_modelo->rowCount())
        return;
    QSqlRecord reg;
    try {
        reg = m_modelo->registro(linha);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
        return;
    }
    if (reg.isEmpty()) {
        // Another station removed it for good since the search.
        Dialogos::mensagem(this, QStringLiteral("Este registro não existe mais; pesquise novamente."), m_titulo);
        return;
    }
    m_codigo->setText(reg.value(m_colunaCodigo).toString());
    m_nome->setText(reg.value(m_colunaNome).toString());
    // The screen's order first, then any flag it doesn't know, in the order set.
    const Acao* acao = nullptr;
    for (const QString& f : std::as_const(m_ordemChamadores))
        for (const auto& c : m_chamadores)
            if (!acao && c.first == f)
                acao = &c.second;
    if (!acao && !m_chamadores.isEmpty())
        acao = &m_chamadores.first().second;
    if (acao && *acao) {
        const Acao copia = *acao;
        copia(reg);
    } else if (!acao) {
        acaoPadrao(reg);
    }
    emit escolhido(m_codigo->text(), m_nome->text());
}

bool TelaPesquisa::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
            if (alvo == m_gradeW) {
                escolhe(m_gradeW->currentIndex().row());
                return true;
            }
            if (m_textos.contains(qobject_cast<QLineEdit*>(alvo))) {
                pesquisa();
                return true;
            }
        }
    }
    return QWidget::eventFilter(alvo, e);
}

void TelaPesquisa::closeEvent(QCloseEvent* e)
{
    m_chamadores.clear();
    e->accept();
}

void TelaPesquisa::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    if (!m_centrada) {
        m_centrada = true;
        Pintura::centra(this);
    }
}
