#pragma once
#include <QList>
#include <QString>

class QWidget;

// What a menu entry or side-menu item does: the right it tests, whether only the server
// may do it, and what it opens. The menu bar and the side menu share these, so a right
// or a target is told in one place.
namespace Acoes {

enum class Tipo {
    Tela,       // opens the screen `alvo` by name, in mode `modo`
    NovaOs,     // a new order: the customer search first, or the intake screen
    Programa,   // an outside program (key of section [Programas])
    Pagina,     // a web page (key of section [Internet])
    Mensagem,   // only shows `alvo` as a message
    Interna,    // handled by the window that owns the entry (side menu, update check, exit)
    Nenhuma,    // no action of its own
};

struct Acao {
    QString nome;        // objectName of the entry
    QString texto;       // caption
    QString direito;     // session right tested first; empty when none
    bool soServidor = false;
    Tipo tipo = Tipo::Tela;
    QString alvo;
    QString modo;
};

// How a screen is opened in a mode: the opener sets the dynamic property "modoAbertura"
// on the screen and, when the screen declares it, calls its slot or invokable
// `abrirNoModo(QString)`. The modes in use:
//   Cliente, Fornecedor, Produto, RegCheque: "Novo" (insert state)
//   PesquisaOs: "Entrada", "Saida", "Tecnico", "ListaVisita" (house calls)
//   PesquisaCliente: "EntradaOs" (a new order starts from the customer search, with the
//   name option chosen)
inline const char* PropriedadeModo = "modoAbertura";

// Where the refusal text differs: the menu bar's backup and restore entries keep an old
// misspelling, the side menu and the closing question don't.
enum class Origem { MenuBarra, MenuLateral };

QString mensagemSoServidor(Origem origem);

// The screen a new order starts on, from CfgOSAbrePesquisa (and, on the side menu,
// CfgOSAbreCompleta).
QString alvoNovaOs(Origem origem, QString* modo = nullptr);

// The entry can be used: its screen is registered (or it opens no screen).
bool disponivel(const Acao& a, Origem origem);

// Tests the server and the right, then acts. Returns true when the target was opened.
// Interna and Nenhuma return false: the owner acts.
bool executar(const Acao& a, Origem origem, QWidget* pai);

// Tests only: server then right, refusing with the message or Negado. True when allowed.
bool permitido(const Acao& a, Origem origem, QWidget* pai);

// Opens a screen by name in a mode (see above).
QWidget* abrirTela(const QString& nome, const QString& modo = {});

}
