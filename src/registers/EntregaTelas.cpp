#include "registers/EntregaTelas.h"

#include <QMetaObject>
#include <QWidget>

#include "ui/RegistroTelas.h"

namespace EntregaTelas {

bool disponivel(const QString& tela) { return RegistroTelas::registrada(tela); }

QWidget* abrirCom(const QString& tela, const QString& metodo, const QVariantMap& dados)
{
    QWidget* w = RegistroTelas::abrir(tela);
    if (!w)
        return nullptr;
    const QByteArray assinatura = metodo.toLatin1() + "(QVariantMap)";
    if (w->metaObject()->indexOfMethod(assinatura.constData()) >= 0)
        QMetaObject::invokeMethod(w, metodo.toLatin1().constData(), Q_ARG(QVariantMap, dados));
    return w;
}

}
