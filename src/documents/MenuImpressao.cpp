#include "documents/MenuImpressao.h"

#include <QAbstractButton>
#include <QAction>

namespace MenuImpressao {

void preparar(QAbstractButton* botao, std::function<void(Destino::Tipo)> imprimir)
{
    struct Item {
        const char* nome;
        const char* texto;
        Destino::Tipo tipo;
    };
    const Item itens[] = {{"AcaoImprimir", "Imprimir", Destino::Tipo::Impressora},
                          {"AcaoVisualizar", "Visualizar impressão", Destino::Tipo::Visualizar},
                          {"AcaoSalvarPdf", "Salvar em PDF e abrir", Destino::Tipo::Pdf}};
    for (const Item& i : itens) {
        auto* a = new QAction(QString::fromUtf8(i.texto), botao);
        a->setObjectName(QLatin1String(i.nome));
        QObject::connect(a, &QAction::triggered, botao, [imprimir, tipo = i.tipo] { imprimir(tipo); });
        botao->addAction(a);
    }
    botao->setContextMenuPolicy(Qt::ActionsContextMenu);
    botao->setToolTip(botao->toolTip() + QStringLiteral(" (botão direito: visualizar ou salvar em PDF)"));
}

}
