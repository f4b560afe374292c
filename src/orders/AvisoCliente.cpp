#include "orders/AvisoCliente.h"

#include <QHash>
#include <QSqlQuery>
#include <QUrl>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/Esquema.h"
#include "data/Funcoes.h"
#include "data/Recordset.h"
#include "data/Transacao.h"
#include "documents/ImprimeWord.h"
#include "orders/Ordem.h"

namespace AvisoCliente {

namespace {

struct DefSituacao {
    Situacao s;
    const char* nome;
    const char* coluna;
    const char* padrao;
};

const DefSituacao Situacoes[] = {
    {Situacao::OrcamentoPronto, "Orçamento pronto", "AvisoOrcamento",
     "Olá, @NOMECLIENTE! O orçamento do seu @TIPOPRODUTO @MARCAPRODUTO (O.S @NUMEROOS) está pronto: "
     "@VALORPAGAR. Podemos fazer o conserto?\n@NOMEEMPRESA @TELEFONEEMPRESA"},
    {Situacao::AguardandoPeca, "Aguardando peça", "AvisoPeca",
     "Olá, @NOMECLIENTE! O seu @TIPOPRODUTO @MARCAPRODUTO (O.S @NUMEROOS) está aguardando a chegada de uma "
     "peça. Avisaremos assim que ela chegar.\n@NOMEEMPRESA @TELEFONEEMPRESA"},
    {Situacao::Consertado, "Consertado", "AvisoConsertado",
     "Olá, @NOMECLIENTE! O seu @TIPOPRODUTO @MARCAPRODUTO (O.S @NUMEROOS) está consertado. Valor: "
     "@VALORPAGAR.\n@NOMEEMPRESA @TELEFONEEMPRESA"},
    {Situacao::ProntoRetirada, "Pronto para retirada", "AvisoRetirada",
     "Olá, @NOMECLIENTE! O seu @TIPOPRODUTO @MARCAPRODUTO (O.S @NUMEROOS) está pronto para retirada. "
     "Valor a pagar: @VALORPAGAR.\n@NOMEEMPRESA @TELEFONEEMPRESA"},
};

const DefSituacao& def(Situacao s)
{
    for (const DefSituacao& d : Situacoes)
        if (d.s == s)
            return d;
    return Situacoes[0];
}

bool letraOuDigito(QChar c) { return c.isLetterOrNumber(); }

QString codificado(const QString& texto) { return QString::fromLatin1(QUrl::toPercentEncoding(texto)); }

} // namespace

const QList<Situacao>& situacoes()
{
    static const QList<Situacao> l = {Situacao::OrcamentoPronto, Situacao::AguardandoPeca, Situacao::Consertado,
                                      Situacao::ProntoRetirada};
    return l;
}

QString nomeSituacao(Situacao s) { return QString::fromUtf8(def(s).nome); }
QString nomeCanal(Canal c) { return c == Canal::WhatsApp ? QStringLiteral("WhatsApp") : QStringLiteral("E-mail"); }
QString colunaModelo(Situacao s) { return QString::fromLatin1(def(s).coluna); }
QString modeloPadrao(Situacao s) { return QString::fromUtf8(def(s).padrao); }

Situacao sugerida(bool orcamento, bool aguardaPeca, bool consertado, bool aprovado)
{
    if (consertado)
        return Situacao::Consertado;
    if (aguardaPeca)
        return Situacao::AguardandoPeca;
    if (orcamento && !aprovado)
        return Situacao::OrcamentoPronto;
    return Situacao::ProntoRetirada;
}

Situacao sugerida(const Ordem& o) { return sugerida(o.Orcamento, o.AguardaPeca, o.Consertado, o.Aprovado); }

QString Config::modelo(Situacao s) const
{
    for (const auto& [sit, texto] : modelos)
        if (sit == s && !texto.trimmed().isEmpty())
            return texto;
    return modeloPadrao(s);
}

Config lerConfig(Banco& banco)
{
    Config c;
    Recordset e(banco);
    e.abrir(QStringLiteral("Empresa"));
    if (e.eof())
        return c;
    c.ativo = e.flag(QStringLiteral("AvisoAtivo"));
    for (Situacao s : situacoes())
        c.modelos.append({s, e.texto(colunaModelo(s))});
    return c;
}

void gravarConfig(Banco& banco, const Config& c)
{
    QStringList sets = {QStringLiteral("AvisoAtivo = ?")};
    QVariantList valores = {c.ativo ? -1 : 0};
    for (Situacao s : situacoes()) {
        sets << colunaModelo(s) + QStringLiteral(" = ?");
        valores << c.modelo(s);
    }
    Transacao tr(banco);
    banco.executar(QStringLiteral("UPDATE Empresa SET %1").arg(sets.join(QStringLiteral(", "))), valores);
    tr.commit();
}

QString mensagem(const QString& modelo, const Marcas& marcas)
{
    QHash<QString, QString> tabela;
    for (const auto& [marca, valor] : marcas)
        tabela.insert(marca.toUpper(), valor);
    QString r;
    r.reserve(modelo.size());
    for (int i = 0; i < modelo.size();) {
        const QChar c = modelo.at(i);
        if (c != QLatin1Char('@') || (i > 0 && letraOuDigito(modelo.at(i - 1)))) {
            r += c;
            ++i;
            continue;
        }
        int fim = i + 1;
        while (fim < modelo.size() && letraOuDigito(modelo.at(fim)))
            ++fim;
        const QString marca = modelo.mid(i, fim - i);
        const auto it = tabela.constFind(marca.toUpper());
        r += it == tabela.constEnd() ? marca : it.value();
        i = fim;
    }
    return r;
}

QString digitosCelular(const QString& celular)
{
    QString d = SoDigitos(celular);
    // The trunk zero of "0 11 ..." and a country code typed by habit are not part of it.
    while (d.startsWith(QLatin1Char('0')))
        d.remove(0, 1);
    if (d.startsWith(QLatin1String("55")) && d.size() >= 12)
        d.remove(0, 2);
    // Area code and number: 10 digits for the old eight-digit cellulars, 11 for today's.
    return d.size() == 10 || d.size() == 11 ? d : QString();
}

QString linkWhatsApp(const QString& digitos, const QString& texto)
{
    return QStringLiteral("https://wa.me/55") + digitos + QStringLiteral("?text=") + codificado(texto);
}

bool emailValido(const QString& email)
{
    const QString e = email.trimmed();
    const int arroba = e.indexOf(QLatin1Char('@'));
    return arroba > 0 && arroba == e.lastIndexOf(QLatin1Char('@')) && e.indexOf(QLatin1Char('.'), arroba) > arroba + 1
        && !e.endsWith(QLatin1Char('.')) && !e.contains(QLatin1Char(' ')) && !e.contains(QLatin1Char('?'))
        && !e.contains(QLatin1Char('&'));
}

QString linkEmail(const QString& email, const QString& assunto, const QString& texto)
{
    // Mail wants its line breaks as CR LF, encoded like the rest.
    QString corpo = texto;
    corpo.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return QStringLiteral("mailto:") + email.trimmed() + QStringLiteral("?subject=") + codificado(assunto)
        + QStringLiteral("&body=") + codificado(corpo);
}

Preparo preparar(Banco& banco, qint64 codOsAut, Situacao s, const QDate& hoje)
{
    Preparo p;
    Recordset ordem(banco);
    ordem.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {codOsAut});
    if (ordem.eof()) {
        p.motivo = QStringLiteral("A ordem de serviço não foi encontrada; o cliente não foi avisado.");
        return p;
    }
    QString celular = digitosCelular(ordem.texto(QStringLiteral("Celular")));
    QString email;
    bool ok = false;
    const qint64 codCliente = ordem.texto(QStringLiteral("CodCliente")).trimmed().toLongLong(&ok);
    if (ok) {
        // The register may have learnt a cellular or an e-mail after the order was taken.
        QSqlQuery q = banco.executar(QStringLiteral("SELECT Celular, Email FROM Cliente WHERE CodCliente = ?"),
                                     {codCliente});
        if (q.next()) {
            if (celular.isEmpty())
                celular = digitosCelular(q.value(0).toString());
            email = q.value(1).toString().trimmed();
        }
    }
    Marcas marcas = ImprimeWord::marcas(ordem, hoje) + ImprimeWord::marcasEmpresa(banco);
    marcas.prepend({QStringLiteral("@NUMEROOS"), QString::number(ordem.inteiro(QStringLiteral("CodOs")))});
    p.texto = mensagem(lerConfig(banco).modelo(s), marcas);
    if (!celular.isEmpty()) {
        p.canal = Canal::WhatsApp;
        p.link = linkWhatsApp(celular, p.texto);
    } else if (emailValido(email)) {
        p.canal = Canal::Email;
        const QString assunto = QStringLiteral("O.S %1 - %2").arg(ordem.inteiro(QStringLiteral("CodOs"))).arg(nomeSituacao(s));
        p.link = linkEmail(email, assunto, p.texto);
    } else {
        p.motivo = email.isEmpty()
            ? QStringLiteral("O cliente não tem celular nem e-mail no cadastro: não há como avisá-lo por aqui.\n"
                             "Cadastre o celular (com DDD) ou o e-mail do cliente.")
            : QStringLiteral("O cliente não tem celular, e o e-mail \"%1\" do cadastro não é válido.\n"
                             "Corrija o cadastro do cliente.").arg(email);
    }
    return p;
}

QString registrar(Banco& banco, qint64 codOsAut, Canal c, Situacao s, const QString& usuario, const QDateTime& agora)
{
    const QString data = Datas::paraBanco(agora.date());
    Transacao tr(banco);
    QSqlQuery q = banco.executar(QStringLiteral("UPDATE OrdemServico SET Contato = -1, DataContato = ? WHERE CodOsAut = ?"),
                                 {data, codOsAut});
    if (q.numRowsAffected() != 1)
        throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                        QStringLiteral("A ordem de serviço foi excluída em outra estação."));
    banco.inserir(*Esquema::tabela(QStringLiteral("AvisoCliente")),
                  {QStringLiteral("CodOsAut"), QStringLiteral("Canal"), QStringLiteral("Situacao"), QStringLiteral("Data"),
                   QStringLiteral("Hora"), QStringLiteral("Usuario")},
                  {codOsAut, nomeCanal(c), nomeSituacao(s), data, agora.time().toString(Datas::FormatoHora), usuario});
    tr.commit();
    return data;
}

void adotarContato(Ordem& o, const QString& data)
{
    o.Contato = true;
    o.DataContato = data;
    o.lidas.insert(QStringLiteral("Contato"), ColunasOrdem::valor(o, QStringLiteral("Contato")));
    o.lidas.insert(QStringLiteral("DataContato"), ColunasOrdem::valor(o, QStringLiteral("DataContato")));
}

QStringList linhas(Banco& banco, qint64 codOsAut)
{
    QStringList r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Canal, Data, Hora, Usuario, Situacao FROM AvisoCliente "
                                                "WHERE CodOsAut = ? ORDER BY Chave DESC"),
                                 {codOsAut});
    while (q.next())
        r << QStringLiteral("%1 %2 %3 %4 - %5")
                 .arg(q.value(0).toString(), Datas::bancoParaTela(q.value(1).toString()), q.value(2).toString(),
                      q.value(3).toString(), q.value(4).toString());
    return r;
}

}
