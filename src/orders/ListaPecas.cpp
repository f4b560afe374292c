#include "orders/ListaPecas.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "documents/ImprimeDocumento.h"
#include "orders/OrdemServicoSaida.h"
#include "registers/EntregaTelas.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Bancada = QStringLiteral("OrdemServicoTecnico");
}

ListaPecas::ListaPecas(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("ListaPecas"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* raiz = new QVBoxLayout(this);
    m_grade = new QTableWidget(0, 6, this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setHorizontalHeaderLabels({QStringLiteral("Descriçao"), QStringLiteral("Quant"), QStringLiteral("Val/Unt"),
                                        QStringLiteral("Total"), QStringLiteral("     Valor/Custo"),
                                        QStringLiteral("Cod/Peça")});
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->verticalHeader()->hide();
    m_grade->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    raiz->addWidget(m_grade, 1);

    auto* g = new QGridLayout;
    m_valorPecas = new QLineEdit(this);
    m_valorPecas->setObjectName(QStringLiteral("TxtValorPecas"));
    m_valorPecas->setReadOnly(true);
    m_valorPecas->setToolTip(QStringLiteral("Não pode ser alterado por este formulário."));
    m_maoObra = new QLineEdit(this);
    m_maoObra->setObjectName(QStringLiteral("TxtMaoObra"));
    Campos::preparaLinha(m_maoObra, true);
    m_maoObra->installEventFilter(this);
    g->addWidget(new QLabel(QStringLiteral("Valor peças"), this), 0, 0);
    g->addWidget(m_valorPecas, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Mão obra"), this), 0, 2);
    g->addWidget(m_maoObra, 0, 3);
    raiz->addLayout(g);

    auto* linha = new QHBoxLayout;
    const char* textos[] = {"&Incluir peças", "&Imprimir", "Sa&ir"};
    for (int i = 0; i < 3; ++i) {
        m_botoes[i] = new QPushButton(QString::fromUtf8(textos[i]), this);
        m_botoes[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        linha->addWidget(m_botoes[i]);
    }
    // The bench takes new parts; in a build without it the button can't act.
    m_botoes[0]->setEnabled(EntregaTelas::disponivel(Bancada));
    raiz->addLayout(linha);
    connect(m_botoes[0], &QPushButton::clicked, this, &ListaPecas::incluirPecas);
    connect(m_botoes[1], &QPushButton::clicked, this, &ListaPecas::imprimir);
    connect(m_botoes[2], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    Pintura::pinta(this);
    setWindowTitle(QStringLiteral("Peças Aplicadas - 0 encontrados"));
    resize(720, 360);
}

void ListaPecas::mostra(OrdemServicoSaida* saida)
{
    m_saida = saida;
    if (!saida)
        return;
    const Ordem& o = saida->ordem();
    m_grade->setRowCount(0);
    Dinheiro soma;
    for (const PecaAplicada& p : o.pecas) {
        const int r = m_grade->rowCount();
        m_grade->insertRow(r);
        // The bench's own line total, discounts kept: what the customer was told.
        const QStringList celulas{p.Descricao, p.Quantidade.texto(), p.ValorVenda.texto(), p.ValorTotal.texto(),
                                  p.ValorCusto.texto(), p.codpeca};
        for (int c = 0; c < celulas.size(); ++c) {
            auto* item = new QTableWidgetItem(celulas[c]);
            if (c >= 1 && c <= 4)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_grade->setItem(r, c, item);
        }
        soma += p.ValorTotal;
    }
    m_valorPecas->setText(soma.texto());
    m_maoObra->setText(saida->maoObra().texto());
    setWindowTitle(QStringLiteral("Peças Aplicadas - %1 encontrados").arg(o.pecas.size()));
}

bool ListaPecas::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_maoObra && e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        const bool navega = k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab || k->key() == Qt::Key_Return
            || k->key() == Qt::Key_Enter;
        const bool edita = !k->text().isEmpty() || k->key() == Qt::Key_Backspace || k->key() == Qt::Key_Delete;
        if (!navega && edita && (!m_saida || !m_saida->liberaMaoObra()))
            return true;
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter)
            aoSairMaoObra();
    } else if (alvo == m_maoObra && e->type() == QEvent::FocusOut) {
        aoSairMaoObra();
    }
    return QWidget::eventFilter(alvo, e);
}

void ListaPecas::aoSairMaoObra()
{
    if (!m_saida)
        return;
    const auto v = Dinheiro::lerTexto(m_maoObra->text());
    if (!v) {
        Dialogos::mensagem(this, QStringLiteral("Valor inválido: digite como 1.234,56"), {}, Dialogos::Icone::Aviso);
        m_maoObra->setFocus();
        return;
    }
    m_maoObra->setText(v->texto());
    m_saida->maoObraDigitada(*v);
}

void ListaPecas::incluirPecas()
{
    if (!m_saida || !EntregaTelas::disponivel(Bancada))
        return;
    const qint64 chave = m_saida->ordem().CodOsAut;
    // Both screens give way to the bench; a change not yet stored is asked about first.
    if (!RegistroTelas::fecharJanela(m_saida))
        return;
    RegistroTelas::fecharJanela(this);
    EntregaTelas::abrirCom(Bancada, EntregaTelas::AbreOrdem, {{QStringLiteral("CodOsAut"), chave}});
}

void ListaPecas::imprimir()
{
    if (m_saida && m_saida->banco() && !m_saida->ordem().nova())
        ImprimeDocumento(*m_saida->banco(), DocumentosOrdem::Orcamento, m_saida->ordem().CodOsAut, this);
}

TOLDEX_REGISTRA_TELA(ListaPecas)
