#include "ui/TelaPesquisa.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Conexoes.h"
#include "data/Recordset.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"

TelaPesquisa::TelaPesquisa(QWidget* pai) : QWidget(pai)
{
    auto* raiz = new QVBoxLayout(this);
    m_topo = new QVBoxLayout;
    raiz->addLayout(m_topo);
    m_gradeW = new QTableWidget(this);
    m_gradeW->setObjectName(QStringLiteral("Grade"));
    m_gradeW->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_gradeW->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_gradeW->setSelectionMode(QAbstractItemView::SingleSelection);
    m_gradeW->verticalHeader()->hide();
    m_gradeW->installEventFilter(this);
    raiz->addWidget(m_gradeW, 1);
    m_codigo = new QLineEdit(this);
    m_codigo->setObjectName(QStringLiteral("Text2"));
    m_codigo->hide();
    m_nome = new QLineEdit(this);
    m_nome->setObjectName(QStringLiteral("Text3"));
    m_nome->hide();
    connect(m_gradeW, &QTableWidget::cellClicked, this, [this](int linha) {
        if (linha < 0 || linha >= m_linhas.size())
            return;
        m_linhaEscolhida = linha;
        m_codigo->setText(m_linhas[linha].value(m_colunaCodigo).toString());
        m_nome->setText(m_linhas[linha].value(m_colunaNome).toString());
    });
    connect(m_gradeW, &QTableWidget::cellDoubleClicked, this, [this](int linha) { escolhe(linha); });
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
    m_gradeW->setColumnCount(m_grade.size());
    QStringList titulos;
    for (int c = 0; c < m_grade.size(); ++c) {
        titulos << m_grade[c].titulo;
        m_gradeW->setColumnWidth(c, m_grade[c].largura);
        m_gradeW->setColumnHidden(c, m_grade[c].largura <= 0);
    }
    m_gradeW->setHorizontalHeaderLabels(titulos);
    limpaGrade();
    escolheOpcao(0);
    setWindowTitle(m_titulo);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    return m_banco != nullptr;
}

void TelaPesquisa::limpaGrade()
{
    m_linhas.clear();
    m_linhaEscolhida = -1;
    m_gradeW->setRowCount(1);
    m_gradeW->clearContents();
    m_gradeW->setItem(0, 0, new QTableWidgetItem(textoInicial()));
    // The invitation reads across the whole first line, however narrow the first column.
    if (m_gradeW->columnCount() > 1)
        m_gradeW->setSpan(0, 0, 1, m_gradeW->columnCount());
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
        m_gradeW->setRowCount(0);
        m_linhas.clear();
        return;
    }
    const Opcao& op = m_opcoes[m_opcao];
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        bool haMais = false;
        const QList<QSqlRecord> linhas = buscaLinhas(op, texto, &haMais);
        mostraLinhas(linhas, haMais);
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
        mostra({}, {}, m_ordem);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
    }
}

QList<QSqlRecord> TelaPesquisa::buscaLinhas(const Opcao& op, const QString& texto, bool* haMais)
{
    const Condicao c = Busca::porColuna(*m_banco, m_tabela, op.coluna, texto, op.meio);
    if (haMais)
        *haMais = false;
    return leLinhas(c.sql, c.valores, m_ordem.isEmpty() ? op.coluna : m_ordem);
}

QList<QSqlRecord> TelaPesquisa::leLinhas(const QString& onde, const QVariantList& valores, const QString& ordem)
{
    Recordset rs(*m_banco);
    rs.abrir(m_tabela, onde, valores, ordem);
    QList<QSqlRecord> linhas;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        linhas << rs.registro();
    return linhas;
}

bool TelaPesquisa::mostra(const QString& onde, const QVariantList& valores, const QString& ordem)
{
    mostraLinhas(leLinhas(onde, valores, ordem));
    return !m_linhas.isEmpty();
}

QString TelaPesquisa::textoCelula(const QString&, const QVariant& valor) const
{
    return valor.toString();
}

void TelaPesquisa::mostraLinhas(const QList<QSqlRecord>& linhas, bool haMais)
{
    m_linhas = linhas;
    m_gradeW->clearSpans();
    m_gradeW->clearContents();
    m_gradeW->setRowCount(m_linhas.size());
    for (int r = 0; r < m_linhas.size(); ++r)
        for (int c = 0; c < m_grade.size(); ++c)
            m_gradeW->setItem(r, c, new QTableWidgetItem(textoCelula(m_grade[c].coluna, m_linhas[r].value(m_grade[c].coluna))));
    m_linhaEscolhida = -1;
    const QString quantos = m_plural.isEmpty() ? QString::number(m_linhas.size())
                                               : QStringLiteral("%1 %2").arg(m_linhas.size()).arg(m_plural);
    const QString cabeca = m_tituloContagem.isEmpty() ? m_titulo : m_tituloContagem;
    if (m_linhas.isEmpty())
        setWindowTitle(m_titulo);
    else if (haMais)
        // Only the first rows come to the grid; the note tells so, and a longer text narrows it.
        setWindowTitle(QStringLiteral("%1 - mais de %2 encontrados (mostrando os %3 primeiros)")
                           .arg(cabeca, quantos).arg(m_linhas.size()));
    else
        setWindowTitle(QStringLiteral("%1 - %2 encontrados").arg(cabeca, quantos));
}

void TelaPesquisa::defineLarguraColuna(int coluna, int largura)
{
    if (coluna < 0 || coluna >= m_gradeW->columnCount())
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
    if (linha < 0 || linha >= m_linhas.size())
        return;
    const QSqlRecord reg = m_linhas[linha];
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
                escolhe(m_gradeW->currentRow());
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
