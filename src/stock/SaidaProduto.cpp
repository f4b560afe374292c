#include "stock/SaidaProduto.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "orders/RecusaOrdem.h"
#include "orders/RecusaTela.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/GradeBotoes.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

const QString TituloSaida = QStringLiteral("Saída produto");

bool ativaSer() { return Sessao::verdadeiro(sessao().CfgAtivaSer); }

bool temDireito()
{
    if (sessao().DireitoProdutoAl == 1)
        return true;
    RegistroTelas::abrir(QStringLiteral("Negado"));
    return false;
}

std::optional<qint64> numero(const QString& t)
{
    bool ok = false;
    const qint64 n = t.trimmed().toLongLong(&ok);
    return ok && n > 0 ? std::optional<qint64>(n) : std::nullopt;
}

} // namespace

SaidaProduto::SaidaProduto(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("SaidaProduto"));
    setWindowTitle(QStringLiteral("Saída de prduto."));
    auto* raiz = new QVBoxLayout(this);

    auto* tipos = new QHBoxLayout;
    const QStringList rotulos = {"Oficina", "Ver O.S", "Venda"};
    for (int i = 0; i < rotulos.size(); ++i) {
        auto* r = new QRadioButton(rotulos.at(i), this);
        r->setObjectName(QStringLiteral("OptTipo(%1)").arg(i));
        tipos->addWidget(r);
        m_tipos << r;
        connect(r, &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                defineModo(i);
        });
    }
    tipos->addStretch();
    raiz->addLayout(tipos);

    auto* campos = new QFormLayout;
    for (int i = 0; i < 3; ++i) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QStringLiteral("TxtBusca(%1)").arg(i));
        t->setMaxLength(i == 0 ? 40 : 12);
        m_busca << t;
    }
    Campos::preparaLinha(m_busca[0], false);
    Campos::preparaLinha(m_busca[1], true);
    Campos::preparaLinha(m_busca[2], true);
    m_etiqueta = new QLabel(this);
    m_etiqueta->setObjectName(QStringLiteral("Etiqueta(0)"));
    m_produto = new QComboBox(this);
    m_produto->setObjectName(QStringLiteral("CProduto"));
    m_produto->setEditable(true);
    campos->addRow(m_etiqueta, m_busca[0]);
    campos->addRow(QStringLiteral("Produto:"), m_produto);
    campos->addRow(QStringLiteral("Quantidade:"), m_busca[1]);
    campos->addRow(QStringLiteral("Ordem de serviço:"), m_busca[2]);
    for (int i = 0; i < 3; ++i) {
        auto* d = new QLineEdit(this);
        d->setObjectName(QStringLiteral("Dcliente(%1)").arg(i));
        d->setReadOnly(true);
        m_cliente << d;
    }
    campos->addRow(QStringLiteral("Cliente:"), m_cliente[0]);
    campos->addRow(QStringLiteral("Aparelho:"), m_cliente[1]);
    campos->addRow(QStringLiteral("Cód. automático:"), m_cliente[2]);
    // Each box as wide as what it holds, not the whole window.
    campos->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    const int larguras[] = {160, 80, 120};
    for (int i = 0; i < 3; ++i)
        m_busca[i]->setFixedWidth(larguras[i]);
    m_produto->setFixedWidth(420);
    m_cliente[0]->setFixedWidth(420);
    m_cliente[1]->setFixedWidth(260);
    m_cliente[2]->setFixedWidth(120);
    raiz->addLayout(campos);

    m_grade = new QTableWidget(0, 4, this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setHorizontalHeaderLabels({"Local", "Código", "Descrição", "Qtd"});
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->verticalHeader()->hide();
    m_grade->setColumnWidth(0, 90);
    m_grade->setColumnWidth(1, 110);
    m_grade->setColumnWidth(2, 300);
    m_grade->setColumnWidth(3, 70);
    m_grade->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    raiz->addWidget(m_grade, 1);

    QGridLayout* botoes = nullptr;
    m_botoes = GradeBotoes::criar(this, {"&Envia", "&Remover", "Sai&r"}, 3, &botoes);
    raiz->addLayout(botoes);

    connect(m_botoes[0], &QPushButton::clicked, this, &SaidaProduto::executa);
    connect(m_botoes[1], &QPushButton::clicked, this, &SaidaProduto::remove);
    connect(m_botoes[2], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    connect(m_busca[0], &QLineEdit::editingFinished, this, [this] {
        if (m_modo == Oficina)
            saiDoCodigo();
    });
    connect(m_busca[2], &QLineEdit::editingFinished, this, [this] {
        // A leave with the same number already shown asks nothing again.
        if (!m_ordem || m_busca[2]->text().trimmed() != QString::number(m_ordem->CodOs))
            saiDaOrdem();
    });
    connect(m_produto, &QComboBox::activated, this, [this](int i) {
        m_busca[0]->setText(m_produto->itemData(i).toString());
        saiDoCodigo();
    });
    connect(m_produto->lineEdit(), &QLineEdit::returnPressed, this, [this] {
        // Typing part of a name in the combo lists the live products that begin with it.
        if (!m_banco)
            return;
        const QString t = m_produto->currentText().trimmed();
        QSqlQuery q = m_banco->executar(
            QStringLiteral("SELECT codpeca, Descricao FROM Produto WHERE Excluidos = 0 AND Descricao LIKE ? "
                           "ORDER BY Descricao LIMIT 200"), {t + QStringLiteral("%")});
        m_produto->clear();
        while (q.next())
            m_produto->addItem(q.value(1).toString(), q.value(0));
        m_produto->setEditText(t);
        m_produto->showPopup();
    });

    resize(720, 560);
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    m_tipos[Oficina]->setChecked(true);
    defineModo(Oficina);
    if (!m_banco)
        setEnabled(false);
}

SaidaProduto::~SaidaProduto() = default;

void SaidaProduto::defineModo(int modo)
{
    m_modo = qBound(0, modo, 2);
    if (!m_tipos[m_modo]->isChecked())
        m_tipos[m_modo]->setChecked(true);
    static const QStringList etiquetas = {"Código peça:", "Numero OS:", "Código venda:"};
    m_etiqueta->setText(etiquetas.at(m_modo));
    m_botoes[0]->setText(m_modo == Oficina ? QStringLiteral("&Envia") : QStringLiteral("&Mostra"));
    m_busca[0]->clear();
    m_busca[1]->clear();
    m_produto->setEditText({});
    m_achado.reset();
    const bool oficina = m_modo == Oficina;
    m_busca[1]->setEnabled(oficina);
    m_busca[2]->setEnabled(oficina);
    m_produto->setEnabled(oficina);
    m_botoes[1]->setEnabled(m_modo != Venda);
    if (!oficina)
        limpaOrdem();
    m_grade->setRowCount(0);
}

void SaidaProduto::limpaOrdem()
{
    m_ordem.reset();
    m_busca[2]->clear();
    for (QLineEdit* d : std::as_const(m_cliente))
        d->clear();
}

void SaidaProduto::saiDoCodigo()
{
    m_achado.reset();
    const QString codigo = m_busca[0]->text().trimmed();
    if (codigo.isEmpty() || !m_banco)
        return;
    try {
        m_achado = SaidaPecas::produto(*m_banco, codigo);
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(this, e.textoCompleto(), TituloSaida, Dialogos::Icone::Aviso);
        return;
    }
    if (m_achado) {
        m_produto->setEditText(m_achado->Descricao);
    } else {
        m_produto->setEditText(QStringLiteral("Não foi encontrado!"));
        m_busca[0]->clear();
    }
}

bool SaidaProduto::escolheOrdem(const QString& texto, bool avisaSemOrdem)
{
    m_ordem.reset();
    QList<SaidaPecas::OrdemSaida> achadas;
    if (const auto n = numero(texto); n && m_banco) {
        try {
            achadas = SaidaPecas::ordens(*m_banco, *n);
        } catch (const ErroBanco& e) {
            Dialogos::mensagem(this, e.textoCompleto(), TituloSaida, Dialogos::Icone::Aviso);
            return false;
        }
    }
    if (achadas.isEmpty()) {
        if (avisaSemOrdem)
            Dialogos::mensagem(this, QStringLiteral("Ordem serviço não encontrada"), TituloSaida);
        return false;
    }
    if (achadas.size() == 1) {
        m_ordem = achadas.first();
        return true;
    }
    // Two live orders with one number (a number typed twice by hand): the user says which.
    QString lista;
    for (int i = 0; i < achadas.size(); ++i)
        lista += QStringLiteral("%1: %2\n").arg(i + 1).arg(achadas.at(i).descricao());
    const auto r = Dialogos::entrada(this,
                                     QStringLiteral("Há mais de uma ordem de serviço com este número:\n\n%1\n"
                                                    "Digite o número da linha da ordem desejada.").arg(lista),
                                     TituloSaida, QStringLiteral("1"));
    bool ok = false;
    const int escolha = r ? r->trimmed().toInt(&ok) : 0;
    if (!ok || escolha < 1 || escolha > achadas.size())
        return false;
    m_ordem = achadas.at(escolha - 1);
    return true;
}

bool SaidaProduto::saiDaOrdem()
{
    for (QLineEdit* d : std::as_const(m_cliente))
        d->clear();
    m_grade->setRowCount(0);
    if (m_busca[2]->text().trimmed().isEmpty()) {
        m_ordem.reset();
        return false;
    }
    if (!escolheOrdem(m_busca[2]->text(), true))
        return false;
    m_cliente[0]->setText(m_ordem->NomeCliente);
    m_cliente[1]->setText(m_ordem->Tipo + QLatin1Char('-') + m_ordem->Marca);
    m_cliente[2]->setText(QString::number(m_ordem->CodOsAut));
    listaOrdem();
    return true;
}

void SaidaProduto::mostraLista(const QList<SaidaPecas::Linha>& linhas)
{
    m_grade->setRowCount(0);
    m_grade->setRowCount(linhas.size());
    for (int i = 0; i < linhas.size(); ++i) {
        const SaidaPecas::Linha& l = linhas.at(i);
        const QStringList textos = {l.Armazenado, l.codpeca, l.Descricao, l.Quantidade};
        for (int c = 0; c < textos.size(); ++c) {
            auto* item = new QTableWidgetItem(textos.at(c));
            item->setData(Qt::UserRole, l.chave);
            m_grade->setItem(i, c, item);
        }
    }
}

void SaidaProduto::listaOrdem()
{
    if (!m_ordem || !m_banco)
        return;
    try {
        mostraLista(SaidaPecas::pecasDaOrdem(*m_banco, m_ordem->CodOsAut));
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(this, e.textoCompleto(), TituloSaida, Dialogos::Icone::Aviso);
    }
}

void SaidaProduto::executa()
{
    if (!m_banco)
        return;
    if (m_modo == Oficina) {
        entrega();
        return;
    }
    m_grade->setRowCount(0);
    if (m_modo == VerOs) {
        if (escolheOrdem(m_busca[0]->text(), true))
            listaOrdem();
        return;
    }
    const auto n = numero(m_busca[0]->text());
    if (!n)
        return;
    try {
        mostraLista(SaidaPecas::pecasDaVenda(*m_banco, *n));
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(this, e.textoCompleto(), TituloSaida, Dialogos::Icone::Aviso);
    }
}

void SaidaProduto::entrega()
{
    if (m_busca[2]->text().trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Digite o numero da ordem de serviço"), QStringLiteral("Saída de produto"));
        m_busca[2]->setFocus();
        return;
    }
    // The number typed may have changed since the order was shown.
    if ((!m_ordem || m_busca[2]->text().trimmed() != QString::number(m_ordem->CodOs)) && !saiDaOrdem())
        return;
    if (!m_achado)
        saiDoCodigo();
    if (!m_achado) {
        Dialogos::mensagem(this, QStringLiteral("Produto não foi encontrado"), TituloSaida);
        m_busca[0]->setFocus();
        return;
    }
    const QString textoQtd = m_busca[1]->text().trimmed().isEmpty() ? QStringLiteral("1") : m_busca[1]->text();
    const auto quantidade = Quantidade::lerTexto(textoQtd);
    if (!quantidade || *quantidade <= Quantidade()) {
        Dialogos::mensagem(this, QStringLiteral("A quantidade \"%1\" não é válida. Digite um número, como 1 ou 1,5.")
                                     .arg(textoQtd.trimmed()), TituloSaida, Dialogos::Icone::Aviso);
        m_busca[1]->setFocus();
        return;
    }
    if (!temDireito())
        return;
    if (!altera([&] { SaidaPecas::entregar(*m_banco, m_ordem->CodOsAut, *m_achado, *quantidade, ativaSer()); }))
        return;
    const QString descricao = m_achado->Descricao;
    if (QWidget* aviso = RegistroTelas::abrir(QStringLiteral("Gravado")))
        aviso->setToolTip(descricao);
    m_busca[0]->clear();
    m_busca[1]->clear();
    m_produto->setEditText({});
    m_achado.reset();
    listaOrdem();
    m_busca[0]->setFocus();
}

void SaidaProduto::remove()
{
    if (m_modo == Venda || !m_ordem || !m_banco)
        return;
    const int linha = m_grade->currentRow();
    if (linha < 0 || !m_grade->item(linha, 0))
        return;
    const qint64 chave = m_grade->item(linha, 0)->data(Qt::UserRole).toLongLong();
    const QString peca = m_grade->item(linha, 2)->text();
    if (!temDireito())
        return;
    if (!Dialogos::pergunta(this, QStringLiteral("Confirma exclusão %1 - %2").arg(m_ordem->CodOs).arg(peca),
                            QStringLiteral("Excluir registro")))
        return;
    bool removida = false;
    if (!altera([&] { removida = SaidaPecas::remover(*m_banco, m_ordem->CodOsAut, chave, ativaSer()); }))
        return;
    if (removida)
        Dialogos::mensagem(this,
                           QStringLiteral("Atenção, você tem que retornar este produto no estoque pelo formulário "
                                          "de produto alterando a quantidade de estoque"),
                           QStringLiteral("Removido item da lista"));
    else
        Dialogos::mensagem(this, QStringLiteral("Esta peça já foi removida da ordem em outra estação."), TituloSaida);
    listaOrdem();
}

bool SaidaProduto::altera(const std::function<void()>& mudanca)
{
    try {
        mudanca();
        return true;
    } catch (const OrdemRecusada& r) {
        RecusaTela::mostrar(this, r.recusa());
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(this, e.textoCompleto(), QStringLiteral("Erro ao gravar formulário,"), Dialogos::Icone::Aviso);
    }
    return false;
}

TOLDEX_REGISTRA_TELA(SaidaProduto)
