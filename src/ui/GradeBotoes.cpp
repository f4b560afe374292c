#include "ui/GradeBotoes.h"

#include <QGridLayout>
#include <QPushButton>

namespace GradeBotoes {

QList<QPushButton*> criar(QWidget* tela, const QStringList& legendas, int porLinha, QGridLayout** grade)
{
    auto* g = new QGridLayout;
    QList<QPushButton*> botoes;
    for (int i = 0; i < legendas.size(); ++i) {
        auto* b = new QPushButton(legendas.at(i), tela);
        b->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        g->addWidget(b, i / porLinha, i % porLinha);
        botoes << b;
    }
    *grade = g;
    return botoes;
}

}
