#pragma once
#include <QString>
#include <QStringList>
#include <functional>

class QMdiArea;
class QWidget;

// Screens are opened by name through this one registry: menus, the side menu, the panel
// and tests all use it. Each screen registers itself with TOLDEX_REGISTRA_TELA in its own
// .cpp. A screen that is already open is brought to the front instead of opened twice.
class RegistroTelas {
public:
    using Fabrica = std::function<QWidget*()>;

    static bool registrar(const QString& nome, Fabrica fabrica);
    static bool registrada(const QString& nome);
    static QStringList nomes();

    // Opens the screen (a child of the main window's work area when there is one) and
    // returns it; nullptr for an unknown name.
    static QWidget* abrir(const QString& nome);
    // The open instance, if any.
    static QWidget* aberta(const QString& nome);
    // False when the screen refused to close (a question answered Cancel, a save refused).
    static bool fechar(const QString& nome);
    static void fecharTodas();
    // Closes a screen with its frame in the work area, so no empty frame stays behind;
    // false when the screen refused to close.
    static bool fecharJanela(QWidget* tela);

    static void definirAreaMdi(QMdiArea* area);
    static QMdiArea* areaMdi();
};

#define TOLDEX_REGISTRA_TELA(Classe)                                                        \
    namespace {                                                                             \
    const bool registro_##Classe =                                                          \
        RegistroTelas::registrar(QStringLiteral(#Classe), [] { return new Classe(); });     \
    }
