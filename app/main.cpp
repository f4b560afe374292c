#include <QApplication>
#include <QIcon>

#include "shell/Inicializacao.h"
#include "shell/Traducao.h"

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Toldex"));
    QApplication::setApplicationVersion(QStringLiteral(TOLDEX_VERSAO));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/toldex.png")));
    Traducao::instalar();
    Inicializacao inicio;
    if (QCoreApplication::arguments().contains(QStringLiteral("--exemplo")))
        inicio.usarLojaExemplo();
    if (!inicio.iniciar())
        return 1;
    return app.exec();
}
