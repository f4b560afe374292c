#pragma once
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTest>

// Small file helpers for tests that copy, back up or restore files.
namespace ArquivosTeste {

inline void grava(const QString& caminho, const QByteArray& dados)
{
    QFile f(caminho);
    QVERIFY2(f.open(QIODevice::WriteOnly), qPrintable(caminho));
    QCOMPARE(f.write(dados), dados.size());
}

// The whole file, or nothing when it can't be read.
inline QByteArray le(const QString& caminho)
{
    QFile f(caminho);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Every file of the folder, hidden ones too (a forgotten temporary file shows here),
// sorted with capitals first.
inline QStringList arquivos(const QString& pasta)
{
    return QDir(pasta).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

}
