#pragma once
// Reads back the first sheet of an .xlsx file written by the program, by unzipping its XML
// with the system's unzip: what a spreadsheet program would show in each cell.
#include <QHash>
#include <QProcess>
#include <QString>
#include <QXmlStreamReader>

namespace LeitorXlsx {

inline QByteArray membro(const QString& arquivo, const QString& nome)
{
    QProcess p;
    p.start(QStringLiteral("unzip"), {QStringLiteral("-p"), arquivo, nome});
    p.waitForFinished(60000);
    return p.readAllStandardOutput();
}

struct Celula {
    QString valor;
    bool numero = false;
    int estilo = 0;
};

// Cells by reference ("A1"): inline and shared strings as text, numbers as written.
inline QHash<QString, Celula> celulas(const QString& arquivo)
{
    QStringList compartilhadas;
    {
        QXmlStreamReader x(membro(arquivo, QStringLiteral("xl/sharedStrings.xml")));
        while (!x.atEnd())
            if (x.readNext() == QXmlStreamReader::StartElement && x.name() == QLatin1String("si"))
                compartilhadas << x.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    QHash<QString, Celula> r;
    QXmlStreamReader x(membro(arquivo, QStringLiteral("xl/worksheets/sheet1.xml")));
    QString ref, tipo;
    Celula atual;
    while (!x.atEnd()) {
        x.readNext();
        if (x.isStartElement() && x.name() == QLatin1String("c")) {
            ref = x.attributes().value(QLatin1String("r")).toString();
            tipo = x.attributes().value(QLatin1String("t")).toString();
            atual = Celula{};
            atual.estilo = x.attributes().value(QLatin1String("s")).toInt();
        } else if (x.isStartElement() && (x.name() == QLatin1String("v") || x.name() == QLatin1String("is"))) {
            const QString t = x.readElementText(QXmlStreamReader::IncludeChildElements);
            if (tipo == QLatin1String("s"))
                atual.valor = compartilhadas.value(t.toInt());
            else
                atual.valor = t;
            atual.numero = tipo.isEmpty() || tipo == QLatin1String("n");
        } else if (x.isEndElement() && x.name() == QLatin1String("c")) {
            r.insert(ref, atual);
        }
    }
    return r;
}

inline QString folha(const QString& arquivo) { return QString::fromUtf8(membro(arquivo, QStringLiteral("xl/worksheets/sheet1.xml"))); }
inline QString livro(const QString& arquivo) { return QString::fromUtf8(membro(arquivo, QStringLiteral("xl/workbook.xml"))); }
inline QString estilos(const QString& arquivo) { return QString::fromUtf8(membro(arquivo, QStringLiteral("xl/styles.xml"))); }

}
