#include "orders/ListaAvisos.h"

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "orders/AvisoCliente.h"

ListaAvisos::ListaAvisos(QWidget* pai) : QListWidget(pai)
{
    setObjectName(QStringLiteral("ListaAvisos"));
    setToolTip(QStringLiteral("Avisos dados ao cliente"));
    setMaximumHeight(fontMetrics().height() * 4);
    setSelectionMode(QAbstractItemView::NoSelection);
}

void ListaAvisos::mostrar(Banco& banco, qint64 codOsAut)
{
    clear();
    if (codOsAut <= 0)
        return;
    try {
        addItems(AvisoCliente::linhas(banco, codOsAut));
    } catch (const ErroBanco& e) {
        addItem(QStringLiteral("Não foi possível ler os avisos: ") + e.mensagem());
    }
}
