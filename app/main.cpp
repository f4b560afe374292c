#include <QApplication>
#include <QMessageBox>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/Sessao.h"

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Toldex"));
    const ConfigBanco config = Local::lerConfig();
    Conexoes::configurar(config);
    try {
        auto banco = Banco::abrir(config);
        banco->garantirEsquema();
    } catch (const ErroBanco& e) {
        QMessageBox::critical(nullptr, QStringLiteral("Sistema TOLDEX"), e.textoCompleto());
        return 1;
    }
    QMessageBox::information(nullptr, QStringLiteral("Sistema TOLDEX"),
                             QStringLiteral("Banco de dados pronto em %1").arg(config.descricao()));
    return 0;
}
