#include "stock/ClassificacaoAliquota.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "stock/Grupos.h"
#include "stock/ListaEditavel.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

ClassificacaoAliquota::ClassificacaoAliquota(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(QStringLiteral("Classificação alíquota"));
    m_cod = new QLineEdit(this);
    m_cod->setObjectName(QStringLiteral("TxtCod"));
    m_cod->setReadOnly(true);
    m_descricao = new QLineEdit(this);
    m_descricao->setObjectName(QStringLiteral("TxtDescricao"));
    m_descricao->setMaxLength(60);
    Campos::preparaLinha(m_descricao, false);
    m_icms = new QLineEdit(this);
    m_icms->setObjectName(QStringLiteral("TxtICMS"));
    m_icms->setMaxLength(7);
    Campos::preparaLinha(m_icms, true);
    m_grade = ListaEditavel::novaGrade(this, QStringLiteral("GradeAliquota"),
                                       {QStringLiteral("Código"), QStringLiteral("Descrição"), QStringLiteral("ICMS")});
    m_grade->setColumnWidth(2, 60);

    auto* campos = new QGridLayout;
    campos->addWidget(new QLabel(QStringLiteral("Código"), this), 0, 0);
    campos->addWidget(m_cod, 0, 1);
    campos->addWidget(new QLabel(QStringLiteral("Descrição"), this), 1, 0);
    campos->addWidget(m_descricao, 1, 1);
    campos->addWidget(new QLabel(QStringLiteral("ICMS (%)"), this), 2, 0);
    campos->addWidget(m_icms, 2, 1);
    auto* botoes = new QHBoxLayout;
    const QStringList textos = {QStringLiteral("&Incluir"), QStringLiteral("&Excluir"), QStringLiteral("&Fechar")};
    for (int i = 0; i < 3; ++i) {
        m_botao[i] = new QPushButton(textos[i], this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        m_botao[i]->setAutoDefault(false);
        botoes->addWidget(m_botao[i]);
    }
    auto* raiz = new QVBoxLayout(this);
    raiz->addLayout(campos);
    raiz->addWidget(m_grade, 1);
    raiz->addLayout(botoes);

    connect(m_botao[0], &QPushButton::clicked, this, &ClassificacaoAliquota::incluirOuSalvar);
    connect(m_botao[1], &QPushButton::clicked, this, &ClassificacaoAliquota::excluirOuCancelar);
    connect(m_botao[2], &QPushButton::clicked, this, [this] {
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->close();
        else
            close();
    });
    connect(m_grade, &QTableWidget::cellClicked, this, &ClassificacaoAliquota::escolhe);
    for (QLineEdit* t : {m_descricao, m_icms}) {
        Campos::enterAvanca(t);
        connect(t, &QLineEdit::textEdited, this, [this] { ListaEditavel::digitacao(m_botao[0], m_botao[1]); });
    }
    resize(480, 420);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    recarrega();
}

ClassificacaoAliquota::~ClassificacaoAliquota() = default;


void ClassificacaoAliquota::recarrega(qint64 escolher)
{
    if (!m_banco)
        return;
    try {
        ListaEditavel::preenche(m_grade, Grupos::aliquotas(*m_banco), true, escolher);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void ClassificacaoAliquota::escolhe(int linha)
{
    if (ListaEditavel::digitando(m_botao[0]))
        cancelar();
    if (linha < 0 || linha >= m_grade->rowCount() || !m_grade->item(linha, 0))
        return;
    m_grade->setCurrentCell(linha, 0);
    m_cod->setText(m_grade->item(linha, 0)->text());
    m_descricao->setText(m_grade->item(linha, 1)->text());
    m_icms->setText(m_grade->item(linha, 2)->text());
}

void ClassificacaoAliquota::incluirOuSalvar()
{
    if (ListaEditavel::digitando(m_botao[0])) {
        salvar();
        return;
    }
    m_incluindo = true;
    m_cod->clear();
    m_descricao->clear();
    m_icms->clear();
    m_descricao->setFocus();
    ListaEditavel::digitacao(m_botao[0], m_botao[1]);
}

void ClassificacaoAliquota::excluirOuCancelar()
{
    if (ListaEditavel::digitando(m_botao[0]))
        cancelar();
    else
        excluir();
}

void ClassificacaoAliquota::cancelar()
{
    m_incluindo = false;
    ListaEditavel::navegacao(m_botao[0], m_botao[1]);
    const int r = m_grade->currentRow();
    if (r >= 0 && m_grade->item(r, 0)) {
        escolhe(r);
    } else {
        m_cod->clear();
        m_descricao->clear();
        m_icms->clear();
    }
}

void ClassificacaoAliquota::salvar()
{
    if (!m_banco)
        return;
    if (m_descricao->text().trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Não permitido salvar Descrição se estiver vazio"), {},
                           Dialogos::Icone::Critico);
        m_descricao->setFocus();
        return;
    }
    if (m_icms->text().trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Não permitido salvar ALIQUOTA se estiver vazio"), {},
                           Dialogos::Icone::Critico);
        m_icms->setFocus();
        return;
    }
    const std::optional<int> icms = Grupos::icmsDoTexto(m_icms->text());
    if (!icms) {
        Dialogos::mensagem(this, QStringLiteral("Alíquota inválida: digite só o número, como 18 ou 17,5"), {},
                           Dialogos::Icone::Critico);
        m_icms->setFocus();
        return;
    }
    try {
        // Typed with no row chosen: a new row, never an update of nothing.
        const bool novo = m_incluindo || m_cod->text().isEmpty();
        const qint64 cod = Grupos::gravaAliquota(*m_banco, novo ? -1 : m_cod->text().toLongLong(),
                                                 m_descricao->text(), *icms);
        m_cod->setText(QString::number(cod));
        m_icms->setText(QString::number(*icms));
        recarrega(cod);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return;
    }
    m_incluindo = false;
    ListaEditavel::navegacao(m_botao[0], m_botao[1]);
}

void ClassificacaoAliquota::excluir()
{
    if (!m_banco)
        return;
    if (m_cod->text().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Não tem registro para excluir"));
        return;
    }
    if (Dialogos::mensagem(this, QStringLiteral("Excluir registro classificação  [ %1 ]").arg(m_descricao->text()),
                           QStringLiteral("Exclusão de registros"), Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNao)
        != Dialogos::Resposta::Sim)
        return;
    try {
        Grupos::excluiAliquota(*m_banco, m_cod->text().toLongLong());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registro,"), e.textoCompleto());
        return;
    }
    m_cod->clear();
    m_descricao->clear();
    m_icms->clear();
    recarrega();
}

TOLDEX_REGISTRA_TELA(ClassificacaoAliquota)
