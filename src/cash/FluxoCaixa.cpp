#include "cash/FluxoCaixa.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QTimer>

#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
// About half a second from zero to the totals.
constexpr int Passos = 12;
constexpr int IntervaloMs = 40;
}

FluxoCaixa::FluxoCaixa(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("FluxoCaixa"));
    setWindowTitle(QStringLiteral("Fluxo do caixa."));
    auto* form = new QFormLayout(this);
    const QStringList rotulos = {"Valor total da venda:", "Valor de dinheiro no caixa:", "Desconto valor à pagar :",
                                 "Valor pago pelo cliente:", "Valor dado de troco :"};
    for (int i = 0; i < 5; ++i) {
        m_caixas[i] = new QLineEdit(QStringLiteral("0,00"), this);
        m_caixas[i]->setObjectName(QStringLiteral("TxtValor(%1)").arg(i));
        m_caixas[i]->setReadOnly(true);
        m_caixas[i]->setAlignment(Qt::AlignRight);
        form->addRow(rotulos.at(i), m_caixas[i]);
    }
    m_relogio = new QTimer(this);
    m_relogio->setInterval(IntervaloMs);
    connect(m_relogio, &QTimer::timeout, this, &FluxoCaixa::passo);
    resize(360, 180);
    Pintura::pinta(this);
}

void FluxoCaixa::conta(const std::array<Dinheiro, 5>& valores)
{
    m_alvo = valores;
    m_passo = 0;
    passo();
    m_relogio->start();
}

bool FluxoCaixa::contando() const { return m_relogio->isActive(); }

void FluxoCaixa::passo()
{
    ++m_passo;
    for (int i = 0; i < 5; ++i)
        m_caixas[i]->setText(m_alvo[i].multiplicado(m_passo, Passos).texto());
    if (m_passo >= Passos)
        m_relogio->stop();
}

TOLDEX_REGISTRA_TELA(FluxoCaixa)
