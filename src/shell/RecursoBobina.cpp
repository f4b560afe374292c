// The receipts box of the "Recursos" tab: the intake and delivery sheets and the payment
// receipt on A4 or on an 80 mm roll.
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "shell/AbaRecursos.h"

GrupoRecurso grupoBobina()
{
    GrupoRecurso g;
    // The flag is the 80 mm button; A4 is its other state.
    g.campos = {{QStringLiteral("ReciboBobina"), QStringLiteral("ReciboBobina"),
                 ConfiguraSistemaDados::TipoCampo::Flag, {}}};
    g.monta = [](QWidget* pai) {
        auto* caixa = new QGroupBox(QStringLiteral("Fichas de entrada, saída e recibos"), pai);
        caixa->setObjectName(QStringLiteral("GrupoBobina"));
        auto* v = new QVBoxLayout(caixa);
        auto* a4 = new QRadioButton(QStringLiteral("Folha A4"), caixa);
        a4->setObjectName(QStringLiteral("ReciboA4"));
        a4->setChecked(true);
        auto* bobina = new QRadioButton(QStringLiteral("Bobina de 80 mm (cupom não fiscal)"), caixa);
        bobina->setObjectName(QStringLiteral("ReciboBobina"));
        // The load sets the 80 mm button alone, also to off: the pair follows each other
        // by hand, since an exclusive pair ignores a button turned off.
        for (QRadioButton* b : {a4, bobina})
            b->setAutoExclusive(false);
        QObject::connect(bobina, &QRadioButton::toggled, a4, [a4](bool ligado) { a4->setChecked(!ligado); });
        QObject::connect(a4, &QRadioButton::toggled, bobina, [bobina](bool ligado) { bobina->setChecked(!ligado); });
        v->addWidget(a4);
        v->addWidget(bobina);
        auto* nota = new QLabel(QStringLiteral("A bobina sai em qualquer impressora térmica com driver CUPS; sem "
                                               "impressora, visualize ou salve em PDF."),
                                caixa);
        nota->setWordWrap(true);
        v->addWidget(nota);
        return caixa;
    };
    return g;
}
