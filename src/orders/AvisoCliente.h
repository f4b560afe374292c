#pragma once
#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>

class Banco;
struct Ordem;

// Telling the customer that something happened to the order: a message built from the
// shop's template for the situation, handed to WhatsApp (the cellular) or to the mail
// program (the e-mail). Nothing is sent by itself; the press is kept as the answer
// buttons keep a contact (Contato, DataContato) and as a row of AvisoCliente, so anyone
// at the counter sees who was told what.
namespace AvisoCliente {

enum class Situacao { OrcamentoPronto, AguardandoPeca, Consertado, ProntoRetirada };
enum class Canal { WhatsApp, Email };

const QList<Situacao>& situacoes();
QString nomeSituacao(Situacao s);   // "Orçamento pronto", ...
QString nomeCanal(Canal c);         // "WhatsApp", "E-mail"
QString colunaModelo(Situacao s);   // the Empresa column that keeps its template
QString modeloPadrao(Situacao s);
// The situation an order's state suggests.
Situacao sugerida(const Ordem& o);
Situacao sugerida(bool orcamento, bool aguardaPeca, bool consertado, bool aprovado);

// The shop's settings, from the one row of Empresa. An empty template is the standard one.
struct Config {
    bool ativo = false;
    QList<QPair<Situacao, QString>> modelos;
    QString modelo(Situacao s) const;
};
Config lerConfig(Banco& banco);
void gravarConfig(Banco& banco, const Config& c);

// The template with its tags replaced. A tag is "@" and letters or digits, whole: "@OS"
// and "@NUMEROOS" are tags, the "@loja" of an e-mail address isn't (a letter stands
// before it); a tag that isn't in the table stays as typed, so the shop sees its slip.
using Marcas = QList<QPair<QString, QString>>;
QString mensagem(const QString& modelo, const Marcas& marcas);

// The digits WhatsApp wants after the country code: the area code and the number, or ""
// when the cellular is missing or too short to be one.
QString digitosCelular(const QString& celular);
QString linkWhatsApp(const QString& digitos, const QString& texto);
QString linkEmail(const QString& email, const QString& assunto, const QString& texto);
bool emailValido(const QString& email);

// Everything a press needs, read from the order and its customer.
struct Preparo {
    std::optional<Canal> canal;  // none: `motivo` says why the customer can't be told
    QString link;
    QString texto;
    QString motivo;
};
Preparo preparar(Banco& banco, qint64 codOsAut, Situacao s, const QDate& hoje = QDate::currentDate());

// Keeps the press: the order's contact and a row of AvisoCliente, in one transaction.
// Gives the stored date ("yyyy/MM/dd"). An order deleted meanwhile throws ErroBanco.
QString registrar(Banco& banco, qint64 codOsAut, Canal c, Situacao s, const QString& usuario,
                  const QDateTime& agora = QDateTime::currentDateTime());
// A screen holding the order takes the contact as stored, so its own next save neither
// writes it again nor reads it as another station's change.
void adotarContato(Ordem& o, const QString& data);

// The order's notices, newest first: "WhatsApp 23/11/2026 14:05 CARLOS - Consertado".
QStringList linhas(Banco& banco, qint64 codOsAut);

}
