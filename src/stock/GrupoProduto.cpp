#include "stock/GrupoProduto.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "stock/Grupos.h"
#include "stock/ListaEditavel.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString TituloExclusao = QStringLiteral("Exclusão de registros");

QLineEdit* caixa(QWidget* pai, const QString& nome, bool somenteLeitura)
{
    auto* t = new QLineEdit(pai);
    t->setObjectName(nome);
    t->setReadOnly(somenteLeitura);
    t->setMaxLength(somenteLeitura ? 12 : 60);
    if (!somenteLeitura)
        Campos::preparaLinha(t, false);
    return t;
}
} // namespace

GrupoProduto::GrupoProduto(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(QStringLiteral("Cadastro de grupo e subgrupo do produto"));
    m_abas = new QTabWidget(this);
    m_abas->setObjectName(QStringLiteral("TabGrupo"));

    auto* abaGrupo = new QWidget(m_abas);
    m_cod = caixa(abaGrupo, QStringLiteral("TxtCod"), true);
    m_grupo = caixa(abaGrupo, QStringLiteral("TxtGrupo"), false);
    m_gradeGrupo = ListaEditavel::novaGrade(abaGrupo, QStringLiteral("GradeGrupo"),
                                            {QStringLiteral("Código"), QStringLiteral("Grupo")});
    auto* lg = new QGridLayout(abaGrupo);
    lg->addWidget(new QLabel(QStringLiteral("Código"), abaGrupo), 0, 0);
    lg->addWidget(m_cod, 0, 1);
    lg->addWidget(new QLabel(QStringLiteral("Grupo"), abaGrupo), 1, 0);
    lg->addWidget(m_grupo, 1, 1);
    lg->addWidget(m_gradeGrupo, 2, 0, 1, 2);
    m_abas->addTab(abaGrupo, QStringLiteral("Grupo"));

    auto* abaSub = new QWidget(m_abas);
    m_grupoDoSub = new QLabel(abaSub);
    m_grupoDoSub->setObjectName(QStringLiteral("LblGrupo"));
    m_codSub = caixa(abaSub, QStringLiteral("TxtCodSub"), true);
    m_subGrupo = caixa(abaSub, QStringLiteral("TxtSubGrupo"), false);
    m_gradeSub = ListaEditavel::novaGrade(abaSub, QStringLiteral("GradeSubGrupo"),
                                          {QStringLiteral("Código"), QStringLiteral("Sub grupo")});
    auto* ls = new QGridLayout(abaSub);
    ls->addWidget(new QLabel(QStringLiteral("Grupo"), abaSub), 0, 0);
    ls->addWidget(m_grupoDoSub, 0, 1);
    ls->addWidget(new QLabel(QStringLiteral("Código"), abaSub), 1, 0);
    ls->addWidget(m_codSub, 1, 1);
    ls->addWidget(new QLabel(QStringLiteral("Sub grupo"), abaSub), 2, 0);
    ls->addWidget(m_subGrupo, 2, 1);
    ls->addWidget(m_gradeSub, 3, 0, 1, 2);
    m_abas->addTab(abaSub, QStringLiteral("Sub grupo"));

    auto* botoes = new QHBoxLayout;
    const QStringList textos = {QStringLiteral("&Incluir"), QStringLiteral("&Excluir"), QStringLiteral("&Fechar")};
    for (int i = 0; i < 3; ++i) {
        m_botao[i] = new QPushButton(textos[i], this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        m_botao[i]->setAutoDefault(false);
        botoes->addWidget(m_botao[i]);
    }
    auto* raiz = new QVBoxLayout(this);
    raiz->addWidget(m_abas, 1);
    raiz->addLayout(botoes);

    connect(m_botao[0], &QPushButton::clicked, this, &GrupoProduto::incluirOuSalvar);
    connect(m_botao[1], &QPushButton::clicked, this, &GrupoProduto::excluirOuCancelar);
    connect(m_botao[2], &QPushButton::clicked, this, [this] {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->close();
        else
            close();
    });
    connect(m_gradeGrupo, &QTableWidget::cellClicked, this, &GrupoProduto::escolheGrupo);
    connect(m_gradeSub, &QTableWidget::cellClicked, this, &GrupoProduto::escolheSubGrupo);
    connect(m_abas, &QTabWidget::currentChanged, this, [this] {
        if (ListaEditavel::digitando(m_botao[0]))
            cancelar();
    });
    // Typing over a chosen row changes it; the buttons say so.
    for (QLineEdit* t : {m_grupo, m_subGrupo}) {
        Campos::enterAvanca(t);
        connect(t, &QLineEdit::textEdited, this, [this] { ListaEditavel::digitacao(m_botao[0], m_botao[1]); });
    }
    resize(520, 460);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    recarregaGrupos();
}

GrupoProduto::~GrupoProduto() = default;

bool GrupoProduto::abaSubGrupo() const { return m_abas->currentIndex() == 1; }


void GrupoProduto::recarregaGrupos(qint64 escolher)
{
    if (!m_banco)
        return;
    try {
        ListaEditavel::preenche(m_gradeGrupo, Grupos::grupos(*m_banco), false, escolher);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void GrupoProduto::recarregaSubGrupos(qint64 escolher)
{
    if (!m_banco)
        return;
    try {
        const qint64 grupo = m_cod->text().toLongLong();
        ListaEditavel::preenche(m_gradeSub, m_cod->text().isEmpty() ? QList<Grupos::Linha>{}
                                                                    : Grupos::subgrupos(*m_banco, grupo), false, escolher);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void GrupoProduto::escolheGrupo(int linha)
{
    if (ListaEditavel::digitando(m_botao[0]))
        cancelar();
    if (linha < 0 || linha >= m_gradeGrupo->rowCount() || !m_gradeGrupo->item(linha, 0))
        return;
    m_gradeGrupo->setCurrentCell(linha, 0);
    m_cod->setText(m_gradeGrupo->item(linha, 0)->text());
    m_grupo->setText(m_gradeGrupo->item(linha, 1)->text());
    m_grupoDoSub->setText(m_grupo->text());
    m_codSub->clear();
    m_subGrupo->clear();
    recarregaSubGrupos();
}

void GrupoProduto::escolheSubGrupo(int linha)
{
    if (ListaEditavel::digitando(m_botao[0]))
        cancelar();
    if (linha < 0 || linha >= m_gradeSub->rowCount() || !m_gradeSub->item(linha, 0))
        return;
    m_gradeSub->setCurrentCell(linha, 0);
    m_codSub->setText(m_gradeSub->item(linha, 0)->text());
    m_subGrupo->setText(m_gradeSub->item(linha, 1)->text());
}

void GrupoProduto::incluirOuSalvar()
{
    if (ListaEditavel::digitando(m_botao[0])) {
        salvar();
        return;
    }
    if (abaSubGrupo() && m_cod->text().isEmpty()) {
        // A subgroup belongs to a group: without one it would hang under nothing.
        Dialogos::mensagem(this, QStringLiteral("Escolha o grupo na aba Grupo"), {}, Dialogos::Icone::Aviso);
        return;
    }
    m_incluindo = true;
    if (abaSubGrupo()) {
        m_codSub->clear();
        m_subGrupo->clear();
        m_subGrupo->setFocus();
    } else {
        m_cod->clear();
        m_grupo->clear();
        m_grupoDoSub->clear();
        ListaEditavel::preenche(m_gradeSub, {}, false);
        m_grupo->setFocus();
    }
    ListaEditavel::digitacao(m_botao[0], m_botao[1]);
}

void GrupoProduto::excluirOuCancelar()
{
    if (ListaEditavel::digitando(m_botao[0]))
        cancelar();
    else
        excluir();
}

void GrupoProduto::cancelar()
{
    m_incluindo = false;
    ListaEditavel::navegacao(m_botao[0], m_botao[1]);
    const int g = m_gradeGrupo->currentRow();
    const int s = m_gradeSub->currentRow();
    if (g >= 0 && m_gradeGrupo->item(g, 0)) {
        m_cod->setText(m_gradeGrupo->item(g, 0)->text());
        m_grupo->setText(m_gradeGrupo->item(g, 1)->text());
        m_grupoDoSub->setText(m_grupo->text());
        recarregaSubGrupos(s >= 0 && m_gradeSub->item(s, 0) ? m_gradeSub->item(s, 0)->text().toLongLong() : -1);
    } else {
        m_cod->clear();
        m_grupo->clear();
    }
    const int s2 = m_gradeSub->currentRow();
    if (s2 >= 0 && m_gradeSub->item(s2, 0)) {
        m_codSub->setText(m_gradeSub->item(s2, 0)->text());
        m_subGrupo->setText(m_gradeSub->item(s2, 1)->text());
    } else {
        m_codSub->clear();
        m_subGrupo->clear();
    }
}

void GrupoProduto::salvar()
{
    if (!m_banco)
        return;
    const bool sub = abaSubGrupo();
    QLineEdit* nome = sub ? m_subGrupo : m_grupo;
    if (nome->text().trimmed().isEmpty()) {
        Dialogos::mensagem(this, sub ? QStringLiteral("Não permitido salvar SUBGRUPO se estiver vazio")
                                     : QStringLiteral("Não permitido salvar GRUPO se estiver vazio"),
                           {}, Dialogos::Icone::Critico);
        nome->setFocus();
        return;
    }
    if (sub && m_cod->text().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Escolha o grupo na aba Grupo"), {}, Dialogos::Icone::Aviso);
        return;
    }
    try {
        if (sub) {
            // Typed with no row chosen: a new row, never an update of nothing.
            const bool novo = m_incluindo || m_codSub->text().isEmpty();
            const qint64 cod = Grupos::gravaSubGrupo(*m_banco, novo ? -1 : m_codSub->text().toLongLong(),
                                                     m_cod->text().toLongLong(), m_subGrupo->text());
            m_codSub->setText(QString::number(cod));
            recarregaSubGrupos(cod);
        } else {
            const bool novo = m_incluindo || m_cod->text().isEmpty();
            const qint64 cod = Grupos::gravaGrupo(*m_banco, novo ? -1 : m_cod->text().toLongLong(), m_grupo->text());
            m_cod->setText(QString::number(cod));
            m_grupoDoSub->setText(m_grupo->text());
            recarregaGrupos(cod);
            recarregaSubGrupos();
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return;
    }
    m_incluindo = false;
    ListaEditavel::navegacao(m_botao[0], m_botao[1]);
}

void GrupoProduto::excluir()
{
    if (!m_banco)
        return;
    const bool sub = abaSubGrupo();
    QLineEdit* codigo = sub ? m_codSub : m_cod;
    if (codigo->text().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Não tem registro para excluir"));
        return;
    }
    const QString pergunta = sub ? QStringLiteral("Excluir registro Sub grupo  [ %1 ] ").arg(m_subGrupo->text())
                                 : QStringLiteral("Excluir registro Grupo  [ %1 ]  os itens de Sub grupo serão deletados .")
                                       .arg(m_grupo->text());
    if (Dialogos::mensagem(this, pergunta, TituloExclusao, Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNao)
        != Dialogos::Resposta::Sim)
        return;
    try {
        if (sub) {
            Grupos::excluiSubGrupo(*m_banco, codigo->text().toLongLong());
            m_codSub->clear();
            m_subGrupo->clear();
            recarregaSubGrupos();
        } else {
            Grupos::excluiGrupo(*m_banco, codigo->text().toLongLong());
            m_cod->clear();
            m_grupo->clear();
            m_grupoDoSub->clear();
            m_codSub->clear();
            m_subGrupo->clear();
            recarregaGrupos();
            recarregaSubGrupos();
        }
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registro,"), e.textoCompleto());
    }
}

TOLDEX_REGISTRA_TELA(GrupoProduto)
