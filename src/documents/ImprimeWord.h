#pragma once
#include <QDate>
#include <QList>
#include <QPair>
#include <QString>
#include <functional>
#include <optional>

class Banco;
class QPrinter;
class QWidget;
class Recordset;

// An order document made from the shop's own template: every @ tag replaced by the
// order's value, saved as a new file in the documents folder, then printed or opened for
// editing. The shop's template is never written.
namespace ImprimeWord {

using Marcas = QList<QPair<QString, QString>>;

// The tag table of an order row, in the order the tags are replaced.
Marcas marcas(const Recordset& ordem, const QDate& hoje = QDate::currentDate());

// The shop's own tags, from its configuration (the one row of Empresa), so that the
// templates shipped with the program carry the shop's name from the first day:
// @NOMEEMPRESA, @ENDERECOEMPRESA, @TELEFONEEMPRESA, @CNPJEMPRESA.
Marcas marcasEmpresa(Banco& banco);

struct Pedido {
    qint64 codOsAut = 0;
    QString modelo;          // the template's path
    bool orcamento = false;  // the budget: its parts go in the template's first table
    QString nomeDocumento;   // the name of the filled copy before the order's number
};

// Fills the template and writes the copy; its path, or nothing after a message in
// Portuguese through the dialog seam.
std::optional<QString> gerar(Banco& banco, const Pedido& pedido, QWidget* pai = nullptr);

// The whole route: fill, then open the copy for editing (`editar`), or print it on
// `impressora` (the printer chosen in the dialog, or the default one when null).
bool imprimir(Banco& banco, const Pedido& pedido, bool editar, QPrinter* impressora, QWidget* pai = nullptr);

// Where filled copies go: "Documentos" in the program's folder.
QString pastaDocumentos();
// The default templates shipped beside the program (folder "modelos").
QString modeloPadrao(const QString& nomeArquivo);

// How a document is shown for editing: the system's default application. Tests replace it.
void definirAbridor(std::function<bool(const QString&)> abridor);

}
