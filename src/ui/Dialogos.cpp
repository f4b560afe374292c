#include "ui/Dialogos.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QFileDialog>
#include <QGuiApplication>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QQueue>
#include <memory>

namespace Dialogos {

namespace {

struct Estado {
    bool ativo = false;
    QQueue<QVariant> respostas;
    QList<Registro> registros;
};

Estado& estado()
{
    static Estado e;
    return e;
}

bool roteirizado()
{
    return estado().ativo || QGuiApplication::platformName() == QLatin1String("offscreen")
        || QGuiApplication::platformName() == QLatin1String("minimal");
}

void registra(const QString& tipo, const QString& titulo, const QString& texto)
{
    estado().registros.append({tipo, titulo, texto, {}});
}

std::optional<QVariant> proxima()
{
    if (estado().respostas.isEmpty())
        return std::nullopt;
    return estado().respostas.dequeue();
}

Resposta padrao(Botoes b)
{
    switch (b) {
    case Botoes::Ok: return Resposta::Ok;
    case Botoes::OkCancelar: return Resposta::Ok;
    case Botoes::SimNao:
    case Botoes::SimNaoCancelar: return Resposta::Nao;
    }
    return Resposta::Ok;
}

Resposta comoResposta(const QVariant& v, Botoes b)
{
    if (v.canConvert<Resposta>() && v.userType() == qMetaTypeId<Resposta>())
        return v.value<Resposta>();
    if (v.typeId() == QMetaType::Bool) {
        const bool sim = v.toBool();
        if (b == Botoes::Ok || b == Botoes::OkCancelar)
            return sim ? Resposta::Ok : Resposta::Cancelar;
        return sim ? Resposta::Sim : Resposta::Nao;
    }
    if (!v.isValid())
        return Resposta::Cancelar;
    return padrao(b);
}

} // namespace

Resposta mensagem(QWidget* pai, const QString& texto, const QString& titulo, Icone icone, Botoes botoes)
{
    registra(botoes == Botoes::Ok ? QStringLiteral("mensagem") : QStringLiteral("pergunta"), titulo, texto);
    if (roteirizado()) {
        if (botoes == Botoes::Ok)
            return Resposta::Ok;
        if (auto v = proxima())
            return comoResposta(*v, botoes);
        return padrao(botoes);
    }
    QMessageBox caixa(pai);
    caixa.setWindowTitle(titulo.isEmpty() ? QStringLiteral("Sistema TOLDEX") : titulo);
    caixa.setText(texto);
    switch (icone) {
    case Icone::Informacao: caixa.setIcon(QMessageBox::Information); break;
    case Icone::Aviso: caixa.setIcon(QMessageBox::Warning); break;
    case Icone::Critico: caixa.setIcon(QMessageBox::Critical); break;
    case Icone::Pergunta: caixa.setIcon(QMessageBox::Question); break;
    case Icone::Nenhum: break;
    }
    switch (botoes) {
    case Botoes::Ok: caixa.setStandardButtons(QMessageBox::Ok); break;
    case Botoes::OkCancelar: caixa.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case Botoes::SimNao: caixa.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case Botoes::SimNaoCancelar:
        caixa.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    if (auto* b = caixa.button(QMessageBox::Yes)) b->setText(QStringLiteral("&Sim"));
    if (auto* b = caixa.button(QMessageBox::No)) b->setText(QStringLiteral("&Não"));
    if (auto* b = caixa.button(QMessageBox::Cancel)) b->setText(QStringLiteral("&Cancelar"));
    switch (caixa.exec()) {
    case QMessageBox::Ok: return Resposta::Ok;
    case QMessageBox::Yes: return Resposta::Sim;
    case QMessageBox::No: return Resposta::Nao;
    default: return Resposta::Cancelar;
    }
}

bool pergunta(QWidget* pai, const QString& texto, const QString& titulo)
{
    return mensagem(pai, texto, titulo, Icone::Pergunta, Botoes::SimNao) == Resposta::Sim;
}

void erro(QWidget* pai, const QString& titulo, const QString& descricao, int numero)
{
    mensagem(pai, QStringLiteral("Erro nº %1\n%2").arg(numero).arg(descricao), titulo, Icone::Critico);
}

namespace {

std::unique_ptr<QInputDialog> montarEntrada(QWidget* pai, const QString& texto, const QString& titulo,
                                            const QString& padraoTexto, bool senha)
{
    auto d = std::make_unique<QInputDialog>(pai);
    d->setWindowTitle(titulo);
    d->setLabelText(texto);
    d->setTextValue(padraoTexto);
    d->setTextEchoMode(senha ? QLineEdit::Password : QLineEdit::Normal);
    return d;
}

QStringList textosDosBotoes(const QInputDialog* janela)
{
    return {janela->okButtonText(), janela->cancelButtonText()};
}

} // namespace

std::optional<QString> entrada(QWidget* pai, const QString& texto, const QString& titulo, const QString& padraoTexto, bool senha)
{
    registra(QStringLiteral("entrada"), titulo, texto);
    auto janela = montarEntrada(pai, texto, titulo, padraoTexto, senha);
    if (roteirizado()) {
        // Built but never shown: a test still sees the buttons the user would.
        estado().registros.last().botoes = textosDosBotoes(janela.get());
        auto v = proxima();
        if (!v || !v->isValid())
            return std::nullopt;
        return v->toString();
    }
    if (janela->exec() != QDialog::Accepted)
        return std::nullopt;
    return janela->textValue();
}

namespace {

std::optional<QString> caminhoRoteirizado(const QString& tipo, const QString& titulo, const QString& texto)
{
    registra(tipo, titulo, texto);
    auto v = proxima();
    if (!v || !v->isValid() || v->toString().isEmpty())
        return std::nullopt;
    return v->toString();
}

} // namespace

std::optional<QString> abrirArquivo(QWidget* pai, const QString& titulo, const QString& pasta, const QString& filtro)
{
    if (roteirizado())
        return caminhoRoteirizado(QStringLiteral("abrir"), titulo, filtro);
    registra(QStringLiteral("abrir"), titulo, filtro);
    const QString r = QFileDialog::getOpenFileName(pai, titulo, pasta, filtro);
    if (r.isEmpty())
        return std::nullopt;
    return r;
}

std::optional<QString> salvarArquivo(QWidget* pai, const QString& titulo, const QString& proposto, const QString& filtro)
{
    if (roteirizado())
        return caminhoRoteirizado(QStringLiteral("salvar"), titulo, proposto);
    registra(QStringLiteral("salvar"), titulo, proposto);
    const QString r = QFileDialog::getSaveFileName(pai, titulo, proposto, filtro);
    if (r.isEmpty())
        return std::nullopt;
    return r;
}

std::optional<QString> escolherPasta(QWidget* pai, const QString& titulo, const QString& pasta)
{
    if (roteirizado())
        return caminhoRoteirizado(QStringLiteral("pasta"), titulo, pasta);
    registra(QStringLiteral("pasta"), titulo, pasta);
    const QString r = QFileDialog::getExistingDirectory(pai, titulo, pasta);
    if (r.isEmpty())
        return std::nullopt;
    return r;
}

bool escolherImpressora(QWidget* pai, QPrinter* impressora)
{
    registra(QStringLiteral("impressora"), QStringLiteral("Imprimir"), QString());
    if (roteirizado()) {
        auto v = proxima();
        if (!v)
            return true;
        if (v->typeId() == QMetaType::QString && impressora) {
            impressora->setOutputFormat(QPrinter::PdfFormat);
            impressora->setOutputFileName(v->toString());
            return true;
        }
        return v->isValid() && v->toBool();
    }
    QPrintDialog d(impressora, pai);
    d.setWindowTitle(QStringLiteral("Imprimir"));
    return d.exec() == QDialog::Accepted;
}

std::optional<QColor> escolherCor(QWidget* pai, const QColor& inicial)
{
    registra(QStringLiteral("cor"), QStringLiteral("Cor"), inicial.name());
    if (roteirizado()) {
        auto v = proxima();
        if (!v || !v->isValid())
            return std::nullopt;
        return v->value<QColor>();
    }
    const QColor c = QColorDialog::getColor(inicial, pai, QStringLiteral("Escolha a cor"));
    if (!c.isValid())
        return std::nullopt;
    return c;
}

namespace Roteiro {
void iniciar() { estado().ativo = true; limpar(); }
void encerrar() { estado().ativo = false; limpar(); }
bool ativo() { return estado().ativo; }
void responder(const QVariant& r) { estado().respostas.enqueue(r); }
void responderSim() { responder(QVariant::fromValue(Resposta::Sim)); }
void responderNao() { responder(QVariant::fromValue(Resposta::Nao)); }
int pendentes() { return int(estado().respostas.size()); }
const QList<Registro>& registros() { return estado().registros; }
QString ultimoTexto() { return estado().registros.isEmpty() ? QString() : estado().registros.last().texto; }
bool contem(const QString& trecho)
{
    for (const Registro& r : estado().registros)
        if (r.texto.contains(trecho) || r.titulo.contains(trecho))
            return true;
    return false;
}
void limpar()
{
    estado().respostas.clear();
    estado().registros.clear();
}
}

}
