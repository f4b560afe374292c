#pragma once
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

class Banco;

// The shop's settings behind the configuration screen: the one Empresa row, the small
// catalogues the order screens choose from, and the printing keys of this machine's
// Toldex.ini. No widget here, so each rule can be tried on a store alone.
namespace ConfiguraSistemaDados {

// --- Empresa -----------------------------------------------------------------------------

enum class TipoCampo { Texto, Flag, Numero };
struct CampoEmpresa {
    QString coluna;
    QString controle;  // objectName on the screen
    TipoCampo tipo = TipoCampo::Texto;
    QString padrao;    // written when the field is left empty
};
// Every column of Empresa that the screen edits, in the order of the form.
const QList<CampoEmpresa>& camposEmpresa();

// The row as column -> value (text "" for NULL, flags true/false); empty when there is no row.
QVariantMap leEmpresa(Banco& banco);
// The values to write: empty fields take their defaults.
QVariantMap comPadroes(QVariantMap valores);

// --- catalogues --------------------------------------------------------------------------

enum class TipoColuna { Texto, Dinheiro, Flag };
struct ColunaCatalogo {
    QString coluna;
    QString titulo;
    TipoColuna tipo = TipoColuna::Texto;
};
struct Catalogo {
    QString nome;        // the tab: "Tipo", "Marca", "Servico", "Defeito"
    QString tabela;
    QString chave;
    QString ordem;
    QList<ColunaCatalogo> colunas;
    int obrigatoria = -1;        // the column that can't be empty, and its message
    QString mensagemObrigatoria;
};
const QList<Catalogo>& catalogos();

// A line of a catalogue grid: its key (-1 for a line not yet in the store) and the texts
// as shown ("1.234,56" for money, "-1"/"0" for flags).
struct Linha {
    qint64 chave = -1;
    QStringList valores;
    QStringList lidos;  // the texts as read from the store: an unchanged line isn't written
};
// A grid as the user left it: its lines and the stored lines the user removed.
struct Grade {
    QList<Linha> linhas;
    QList<qint64> removidas;
};
QList<Linha> leCatalogo(Banco& banco, const Catalogo& c);

// A money text as typed: "" gives "0,00"; nothing when it isn't an amount.
std::optional<QString> textoDinheiro(const QString& digitado);

// Writes, in one transaction, what the user changed: the Empresa columns whose value differs
// from `lida` (the row as the screen read it), the lines the user removed, changed and added.
// Lines that other stations add meanwhile (a defect typed at the intake) stay. A column or
// line that another station changed since it was read throws RegistroAlterado, and nothing
// is written: a counter never goes back to a number already given.
void grava(Banco& banco, const QVariantMap& lida, const QVariantMap& empresa, const QMap<QString, Grade>& grades);

// --- Toldex.ini --------------------------------------------------------------------------

// The keys of sections Impressao, PDV and Imagem that the screen edits.
struct ChaveIni {
    QString secao;
    QString chave;
    bool copias = false;  // a copies box: empty gives "1"
};
const QList<ChaveIni>& chavesIni();
QMap<QString, QString> leIni(const QString& arquivo);  // "Secao/Chave" -> value
// False with a message in Portuguese when the file can't be written.
bool gravaIni(const QString& arquivo, const QMap<QString, QString>& valores, QString* erro = nullptr);

}
