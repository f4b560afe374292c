#include <QApplication>

#include "shell/Inicializacao.h"

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Toldex"));
    QApplication::setApplicationVersion(QStringLiteral(TOLDEX_VERSAO));
    Inicializacao inicio;
    if (!inicio.iniciar())
        return 1;
    return app.exec();
}
