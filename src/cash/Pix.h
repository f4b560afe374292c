#pragma once
#include <QImage>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

// The static PIX charge the till shows: the "copia e cola" text (the EMV payload the banks'
// apps read) and its QR code. No bank is asked anything: the customer's app pays the
// shop's key and the cashier confirms by hand.
namespace Pix {

inline const QString FormaPagamento = QStringLiteral("PIX");

// The payload's limits: the name as the payer's app shows it, the city, and the
// transaction id that travels back in the shop's statement.
constexpr int TamanhoNome = 25;
constexpr int TamanhoCidade = 15;
constexpr int TamanhoTxid = 25;
constexpr int TamanhoChave = 77;

enum class TipoChave { Email, Telefone, Cpf, Cnpj, Aleatoria };

struct Chave {
    TipoChave tipo = TipoChave::Email;
    QString texto;  // as it goes into the payload
};

// Reads a key as the shop types it: "(11) 98765-4321" becomes "+5511987654321", a CPF or
// CNPJ with punctuation becomes its digits, an e-mail and a random key go to lower case.
// Spaces or accents inside an e-mail, a CPF/CNPJ with wrong check digits or anything
// that is no key at all give nothing and the reason, in Portuguese, in `erro`.
std::optional<Chave> leChave(const QString& digitado, QString* erro = nullptr);

// A text as the payload carries a name or a city: accents taken off ("São Paulo" is
// "Sao Paulo"), anything but printable ASCII dropped, spaces collapsed, cut to `tamanho`.
QString semAcentos(const QString& texto, int tamanho);

// The transaction id: letters and digits only, cut to the limit; "***" when none is left.
QString txid(const QString& texto);

// CRC16/CCITT-FALSE (polynomial 0x1021, start 0xFFFF) as four upper-case hex digits.
QString crc16(const QByteArray& dados);

struct Cobranca {
    QString chave;   // already read by leChave
    QString nome;
    QString cidade;
    Dinheiro valor;
    QString txid;    // the order's number
};

// The payload: format indicator, the merchant account (GUI "br.gov.bcb.pix" and the key),
// category 0000, currency 986, the amount, country BR, name, city, the txid under
// additional data, and the CRC over everything before it, "6304" included. Empty, with
// the reason in `erro`, for an amount of zero or less or a missing key or city.
QString payload(const Cobranca& c, QString* erro = nullptr);

// The QR code of a payload, black on white with the four-module quiet zone, each module
// `modulo` pixels wide. A null image when the text can't be encoded.
QImage qrCode(const QString& payload, int modulo = 6);

// The shop's PIX as configured (on, key, name, city); nothing when it is off or the key
// is not a key.
struct Recebedor {
    QString chave, nome, cidade;
};
std::optional<Recebedor> configurado();

// The payload for `valor` and the order `numeroOs` with the shop's settings; empty with the
// reason when PIX is off or the amount is zero.
QString cobrancaDaLoja(Dinheiro valor, const QString& numeroOs, QString* erro = nullptr);

}
