#pragma once
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

// A shop's template, a .docx or .odt file: a zip archive whose XML parts hold the text.
// It is read whole into memory, changed there and written to another file, so the
// template itself is never touched.
class DocumentoModelo {
public:
    enum class Formato { Docx, Odt };

    DocumentoModelo();
    ~DocumentoModelo();
    DocumentoModelo(const DocumentoModelo&) = delete;
    DocumentoModelo& operator=(const DocumentoModelo&) = delete;

    // False, with a message in Portuguese, when the file can't be read or isn't a
    // .docx/.odt document.
    bool abrir(const QString& arquivo, QString* erro);
    Formato formato() const { return m_formato; }
    QString extensao() const { return m_formato == Formato::Docx ? QStringLiteral("docx") : QStringLiteral("odt"); }

    // Replaces every occurrence of `marca`, without regard to case, in the body, headers
    // and footers; a tag split over several runs of formatting inside one paragraph is
    // still found, and takes the formatting of its first character. Returns how many.
    int trocar(const QString& marca, const QString& valor);

    // The text of the document, paragraphs on lines of their own (for checks).
    QString texto() const;

    bool temTabela() const;
    // Writes the values in the cells of the first table's last row and adds an empty row
    // below, as a budget's list of parts grows. False when the document has no table.
    bool preencherLinhaTabela(const QStringList& celulas);

    // Writes the document to `arquivo` (a temporary file renamed at the end).
    bool salvar(const QString& arquivo, QString* erro) const;

private:
    struct Parte;
    std::vector<std::unique_ptr<Parte>> m_partes;
    struct Entrada {
        QString nome;
        QByteArray dados;
    };
    QList<Entrada> m_entradas;  // every member of the archive, in order
    Formato m_formato = Formato::Docx;
};
