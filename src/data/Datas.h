#pragma once
#include <QDate>
#include <QString>
#include <QTime>
#include <optional>

// Dates travel as text "yyyy/MM/dd" in the store (it sorts as dates do) and are shown
// "dd/MM/yyyy"; times are "HH:mm".
namespace Datas {
inline const QString FormatoBanco = QStringLiteral("yyyy/MM/dd");
inline const QString FormatoTela = QStringLiteral("dd/MM/yyyy");
inline const QString FormatoHora = QStringLiteral("HH:mm");

// "31/01/2009" -> 2009/01/31; an impossible date ("31/02/2020") gives nothing.
std::optional<QDate> lerTela(const QString& texto);
std::optional<QDate> lerBanco(const QString& texto);
QString paraBanco(const QDate& d);
QString paraTela(const QDate& d);
// Converts a stored "yyyy/MM/dd" to the screen form; an empty or unreadable text stays
// as it is, so nothing typed is lost on display.
QString bancoParaTela(const QString& texto);
// Converts a typed "dd/MM/yyyy" to the stored form; gives nothing for an impossible date
// and the empty text for an empty one.
std::optional<QString> telaParaBanco(const QString& texto);
std::optional<QTime> lerHora(const QString& texto);
QString hoje();       // today as stored
QString agoraHora();  // now as "HH:mm"
}
