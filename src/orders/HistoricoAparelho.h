#pragma once
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Banco;
class QSqlRecord;

// An appliance's earlier orders, as the counter wants them when it comes back: found by
// its serial number, or by the customer's kind and model when the serial wasn't taken.
// Each lookup reads one index; a serial typed by habit ("0", "SN") matching thousands of
// orders shows the newest ones only.
namespace HistoricoAparelho {

struct Linha {
    qint64 CodOsAut = 0;
    qint64 CodOs = 0;
    QString DataEntrada, DataSaida;  // stored form
    QString Defeito, Servico;
    QDate fimGarantia;               // invalid: not delivered yet
    bool emGarantia = false;         // delivered and today within the warranty
};

// The warranty days of the shop (Empresa.DiasGarantia; 90, what the law gives a repair,
// when not set).
int diasGarantia(Banco& banco);

// The live orders of the same serial (case, accents and surrounding spaces don't matter)
// or of the same customer, kind and model; `exceto` (the order on screen) stays out.
// Newest first, each once.
struct Aparelho {
    QString serie;
    QString codCliente, tipo, modelo;
    qint64 exceto = 0;
};
QList<Linha> procurar(Banco& banco, const Aparelho& a, const QDate& hoje = QDate::currentDate());

// One order row of OrdemServico read into a line.
Linha deRegistro(const QSqlRecord& r, int dias, const QDate& hoje);

// The grid's captions and a line's cells, the same on every screen that lists them.
QStringList colunas();
QStringList celulas(const Linha& l);

// "RETORNO NA GARANTIA: ..." when a delivered order is still covered (the latest cover).
std::optional<QString> avisoGarantia(const QList<Linha>& linhas);

// The most rows a lookup shows.
inline constexpr int Limite = 100;

}
