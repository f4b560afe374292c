#include "registers/CamposDocumento.h"

#include <QLineEdit>

#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "ui/Dialogos.h"

namespace CamposDocumento {

namespace {

// A field's room when no check has narrowed it: the longest mask, and anything older
// records hold (a number stored with its own punctuation must never be cut on display).
constexpr int TamanhoLivre = 32767;

void soDigitosNaTecla(QLineEdit* campo)
{
    QObject::connect(campo, &QLineEdit::textEdited, campo, [campo](const QString& t) {
        QString novo;
        for (const QChar c : t)
            if ((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('(') || c == QLatin1Char(')')
                || c == QLatin1Char('-'))
                novo += c;
        if (novo != t) {
            const int pos = campo->cursorPosition() - int(t.size() - novo.size());
            campo->setText(novo);
            campo->setCursorPosition(qBound(0, pos, int(novo.size())));
        }
    });
}

} // namespace

bool checaCnpjCpf(QLineEdit* campo)
{
    const ChecagemCnpjCpf r = ChecaCnpjCpf(campo->text());
    if (r.tamanhoMaximo > 0)
        campo->setMaxLength(qMax(r.tamanhoMaximo, int(r.texto.size())));
    if (campo->text() != r.texto)
        campo->setText(r.texto);
    if (!r.mensagem.isEmpty()) {
        Dialogos::mensagem(campo->window(), r.mensagem);
        if (r.voltaFoco)
            campo->setFocus();
        return false;
    }
    return true;
}

void preparaCnpjCpf(QLineEdit* campo)
{
    QObject::connect(campo, &QLineEdit::editingFinished, campo, [campo] {
        // The field is checked once per visit: a refused number leaves it empty.
        if (campo->isModified()) {
            campo->setModified(false);
            checaCnpjCpf(campo);
        }
    });
}

void mostraCnpjCpf(QLineEdit* campo, const QString& valor)
{
    campo->setMaxLength(TamanhoLivre);
    // A number short of a CNPJ (but a CPF) shows as it stands: the mask would pad it with
    // zeros, and saving the record again would store them.
    const bool documento = valor.size() == 11 || valor.size() >= 14;
    campo->setText(valor.isEmpty() ? QString() : documento ? MascaraCnpjCpf(valor) : valor);
    campo->setModified(false);
}

bool checaSeDigitado(QLineEdit* campo)
{
    if (!campo->isModified())
        return true;
    const QString digitado = campo->text();
    if (checaCnpjCpf(campo)) {
        campo->setModified(false);
        return true;
    }
    // A refused save keeps what was typed, to be corrected, and checks it again next time.
    campo->setText(digitado);
    campo->setModified(true);
    return false;
}

QString paraGravar(const QString& campo, QString (*mascara)(const QString&))
{
    const QString digitos = SoDigitos(campo);
    return (digitos == campo || mascara(digitos) == campo) ? digitos : campo;
}

void preparaTelefone(QLineEdit* campo)
{
    soDigitosNaTecla(campo);
    QObject::connect(campo, &QLineEdit::editingFinished, campo, [campo] {
        campo->setText(MascaraTelefone(SoDigitos(campo->text())));
    });
}

void preparaCep(QLineEdit* campo)
{
    soDigitosNaTecla(campo);
    QObject::connect(campo, &QLineEdit::editingFinished, campo, [campo] {
        campo->setText(MascaraCep(SoDigitos(campo->text())));
    });
}

}
