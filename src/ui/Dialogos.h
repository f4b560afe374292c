#pragma once
#include <QColor>
#include <QList>
#include <QStringList>
#include <QString>
#include <QVariant>
#include <optional>

class QPrinter;
class QWidget;

// The one seam through which every message box, question, input box and file, folder,
// printer or colour dialog passes. Tests script it: answers are queued, every text is
// recorded, and no real dialog ever opens (it never does under the offscreen platform
// either, so a forgotten answer can't freeze a test run).
namespace Dialogos {

enum class Icone { Nenhum, Informacao, Aviso, Critico, Pergunta };
enum class Botoes { Ok, OkCancelar, SimNao, SimNaoCancelar };
enum class Resposta { Ok, Cancelar, Sim, Nao };

Resposta mensagem(QWidget* pai, const QString& texto, const QString& titulo = {},
                  Icone icone = Icone::Informacao, Botoes botoes = Botoes::Ok);
// Yes/No question; true on Yes.
bool pergunta(QWidget* pai, const QString& texto, const QString& titulo = {});
// The common error box: "Erro nº " + number + line break + description, with a title that
// says what failed.
void erro(QWidget* pai, const QString& titulo, const QString& descricao, int numero = 0);

std::optional<QString> entrada(QWidget* pai, const QString& texto, const QString& titulo = {},
                               const QString& padrao = {}, bool senha = false);
std::optional<QString> abrirArquivo(QWidget* pai, const QString& titulo, const QString& pasta, const QString& filtro);
std::optional<QString> salvarArquivo(QWidget* pai, const QString& titulo, const QString& proposto, const QString& filtro);
std::optional<QString> escolherPasta(QWidget* pai, const QString& titulo, const QString& pasta);
// The printer choice; false when cancelled.
bool escolherImpressora(QWidget* pai, QPrinter* impressora);
std::optional<QColor> escolherCor(QWidget* pai, const QColor& inicial);

struct Registro {
    QString tipo;    // "mensagem", "pergunta", "entrada", "abrir", "salvar", "pasta", "impressora", "cor"
    QString titulo;
    QString texto;
    QStringList botoes;  // the buttons the real window would show, as it would label them
};

// Test scripting.
namespace Roteiro {
void iniciar();                       // from now on nothing real opens
void encerrar();
bool ativo();
void responder(const QVariant& resposta);  // Resposta, bool, QString, QColor, or an invalid value (cancel)
void responderSim();
void responderNao();
int pendentes();
const QList<Registro>& registros();
QString ultimoTexto();
bool contem(const QString& trecho);   // some recorded text holds it
void limpar();
}

}

Q_DECLARE_METATYPE(Dialogos::Resposta)
