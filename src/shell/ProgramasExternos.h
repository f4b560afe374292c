#pragma once
#include <QString>
#include <QStringList>

class QWidget;

// The outside programs the menus start (text editor, calculator, point of sale, the
// updater) and the maker's web pages. Each is a command or an address in Toldex.ini, so a
// shop can point them at what its machines have; without one a sensible default serves.
namespace ProgramasExternos {

// Keys of section [Programas].
inline const QString Editor = QStringLiteral("Editor");
inline const QString Calculadora = QStringLiteral("Calculadora");
inline const QString PontoVenda = QStringLiteral("PontoVenda");
inline const QString Atualizador = QStringLiteral("Atualizador");

// Keys of section [Internet].
inline const QString Site = QStringLiteral("Site");
inline const QString Forum = QStringLiteral("Forum");
inline const QString DicasDefeitos = QStringLiteral("DicasDefeitos");
inline const QString Esquemas = QStringLiteral("Esquemas");

// The command line that would run (ini or default), split into program and arguments;
// empty when nothing fits.
QStringList comando(const QString& chave);
// The program file that the command names, found on PATH or as a path; empty when missing.
QString localizar(const QString& programa);
// Starts the program without waiting for it; a missing one is told in a message.
bool iniciar(const QString& chave, QWidget* pai);

QString endereco(const QString& chave);
// Opens the page in the system's browser.
bool abrirPagina(const QString& chave, QWidget* pai);

}
