#include "cash/Pix.h"

#include <QRegularExpression>
#include <qrencode.h>

#include <memory>

#include "data/Funcoes.h"
#include "data/Sessao.h"

namespace Pix {

namespace {

template <class T>
std::optional<T> falha(QString* erro, const QString& motivo)
{
    if (erro)
        *erro = motivo;
    return std::nullopt;
}

bool soAscii(const QString& t)
{
    for (const QChar c : t)
        if (c.unicode() > 0x7e)
            return false;
    return true;
}

bool soDigitos(const QString& t)
{
    for (const QChar c : t)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return !t.isEmpty();
}

// A Brazilian number after its country code: area code and a number of 8 or 9 digits.
std::optional<Chave> telefone(const QString& digitos, QString* erro)
{
    if (digitos.size() != 10 && digitos.size() != 11)
        return falha<Chave>(erro, QStringLiteral("O celular da chave PIX deve ter o DDD e o número, "
                                                 "como +55 (11) 98765-4321."));
    return Chave{TipoChave::Telefone, QStringLiteral("+55") + digitos};
}

QString tlv(const char* id, const QString& valor)
{
    return QLatin1String(id) + QStringLiteral("%1").arg(valor.size(), 2, 10, QLatin1Char('0')) + valor;
}

} // namespace

std::optional<Chave> leChave(const QString& digitado, QString* erro)
{
    const QString t = digitado.trimmed();
    if (t.isEmpty())
        return falha<Chave>(erro, QStringLiteral("Digite a chave PIX da loja."));
    // A bank never gives an accented key: the shop typed its name or a wrong letter.
    if (!soAscii(t))
        return falha<Chave>(erro, QStringLiteral("A chave PIX não pode ter acentos nem letras especiais: "
                                                 "digite a chave como o banco a mostra."));
    if (t.contains(QLatin1Char('@'))) {
        if (t.contains(QRegularExpression(QStringLiteral("\\s"))))
            return falha<Chave>(erro, QStringLiteral("A chave PIX de e-mail não pode ter espaços."));
        static const QRegularExpression email(QStringLiteral("^[^@]+@[^@]+\\.[^@]+$"));
        if (!email.match(t).hasMatch())
            return falha<Chave>(erro, QStringLiteral("O e-mail da chave PIX não está completo (nome@provedor.com.br)."));
        if (t.size() > TamanhoChave)
            return falha<Chave>(erro, QStringLiteral("O e-mail da chave PIX passa de %1 letras.").arg(TamanhoChave));
        return Chave{TipoChave::Email, t.toLower()};
    }
    // Phones and documents are typed with every kind of punctuation; only digits count.
    QString limpo = t;
    limpo.remove(QRegularExpression(QStringLiteral("[\\s().\\-/]")));
    static const QRegularExpression uuid(
        QStringLiteral("^[0-9a-fA-F]{8}[0-9a-fA-F]{4}[0-9a-fA-F]{4}[0-9a-fA-F]{4}[0-9a-fA-F]{12}$"));
    if (t.size() >= 32 && uuid.match(limpo).hasMatch()) {
        const QString h = limpo.toLower();
        return Chave{TipoChave::Aleatoria, h.left(8) + QLatin1Char('-') + h.mid(8, 4) + QLatin1Char('-') + h.mid(12, 4)
                                               + QLatin1Char('-') + h.mid(16, 4) + QLatin1Char('-') + h.mid(20)};
    }
    if (limpo.startsWith(QLatin1Char('+'))) {
        const QString d = limpo.mid(1);
        if (!soDigitos(d) || !d.startsWith(QLatin1String("55")))
            return falha<Chave>(erro, QStringLiteral("O celular da chave PIX começa com +55 e o DDD."));
        return telefone(d.mid(2), erro);
    }
    if (soDigitos(limpo)) {
        if (limpo.size() == 14) {
            if (!ValidaCnpj(limpo))
                return falha<Chave>(erro, QStringLiteral("O CNPJ da chave PIX não é válido: confira os números."));
            return Chave{TipoChave::Cnpj, limpo};
        }
        if (limpo.size() == 11 && ValidaCpf(limpo))
            return Chave{TipoChave::Cpf, limpo};
        // Eleven digits that aren't a CPF are a cellular with its area code (9 after the DDD),
        // unless they were typed with a CPF's dots: then it is a mistyped CPF.
        const bool pontuadoComoDocumento = t.contains(QLatin1Char('.')) || t.contains(QLatin1Char('/'));
        if (limpo.size() == 11 && !pontuadoComoDocumento && limpo.at(2) == QLatin1Char('9'))
            return telefone(limpo, erro);
        if (limpo.size() == 11)
            return falha<Chave>(erro, QStringLiteral("O CPF da chave PIX não é válido: confira os números."));
        if (limpo.size() == 13 && limpo.startsWith(QLatin1String("55")))
            return telefone(limpo.mid(2), erro);
        if (limpo.size() == 10)
            return telefone(limpo, erro);
    }
    return falha<Chave>(erro, QStringLiteral("A chave PIX deve ser um e-mail, um celular (+55...), um CPF/CNPJ "
                                             "ou uma chave aleatória."));
}

QString semAcentos(const QString& texto, int tamanho)
{
    const QString decomposto = texto.normalized(QString::NormalizationForm_D);
    QString r;
    for (const QChar c : decomposto) {
        if (c.category() == QChar::Mark_NonSpacing)
            continue;
        if (c.unicode() >= 0x20 && c.unicode() <= 0x7e)
            r += c;
        else if (c.isSpace())
            r += QLatin1Char(' ');
    }
    return r.simplified().left(tamanho).trimmed();
}

QString txid(const QString& texto)
{
    QString r;
    for (const QChar c : texto)
        if (c.unicode() < 0x80 && c.isLetterOrNumber())
            r += c;
    r.truncate(TamanhoTxid);
    return r.isEmpty() ? QStringLiteral("***") : r;
}

QString crc16(const QByteArray& dados)
{
    quint16 crc = 0xFFFF;
    for (const char byte : dados) {
        crc ^= quint16(quint8(byte)) << 8;
        for (int i = 0; i < 8; ++i)
            crc = (crc & 0x8000) ? quint16((crc << 1) ^ 0x1021) : quint16(crc << 1);
    }
    return QStringLiteral("%1").arg(crc, 4, 16, QLatin1Char('0')).toUpper();
}

QString payload(const Cobranca& c, QString* erro)
{
    auto recusa = [erro](const QString& motivo) {
        if (erro)
            *erro = motivo;
        return QString();
    };
    if (c.valor <= Dinheiro())
        return recusa(QStringLiteral("O valor a pagar é 0,00: não há o que cobrar por PIX."));
    const auto chave = leChave(c.chave, erro);
    if (!chave)
        return {};
    const QString nome = semAcentos(c.nome, TamanhoNome);
    const QString cidade = semAcentos(c.cidade, TamanhoCidade);
    if (nome.isEmpty() || cidade.isEmpty())
        return recusa(QStringLiteral("Preencha o nome e a cidade do PIX na configuração (aba Recursos)."));
    const qint64 v = c.valor.centavos();
    const QString valor = QStringLiteral("%1.%2").arg(v / 100).arg(v % 100, 2, 10, QLatin1Char('0'));
    QString p = tlv("00", QStringLiteral("01"))
        + tlv("26", tlv("00", QStringLiteral("br.gov.bcb.pix")) + tlv("01", chave->texto))
        + tlv("52", QStringLiteral("0000")) + tlv("53", QStringLiteral("986")) + tlv("54", valor)
        + tlv("58", QStringLiteral("BR")) + tlv("59", nome) + tlv("60", cidade)
        + tlv("62", tlv("05", txid(c.txid))) + QStringLiteral("6304");
    return p + crc16(p.toLatin1());
}

QImage qrCode(const QString& payload, int modulo)
{
    if (payload.isEmpty() || modulo < 1)
        return {};
    const QByteArray dados = payload.toUtf8();
    std::unique_ptr<QRcode, void (*)(QRcode*)> qr(
        QRcode_encodeString8bit(dados.constData(), 0, QR_ECLEVEL_M), QRcode_free);
    if (!qr)
        return {};
    const int margem = 4;
    const int lado = (qr->width + 2 * margem) * modulo;
    QImage img(lado, lado, QImage::Format_RGB32);
    img.fill(Qt::white);
    for (int y = 0; y < qr->width; ++y)
        for (int x = 0; x < qr->width; ++x) {
            if (!(qr->data[y * qr->width + x] & 1))
                continue;
            for (int dy = 0; dy < modulo; ++dy) {
                auto* linha = reinterpret_cast<QRgb*>(img.scanLine((y + margem) * modulo + dy));
                for (int dx = 0; dx < modulo; ++dx)
                    linha[(x + margem) * modulo + dx] = qRgb(0, 0, 0);
            }
        }
    return img;
}

std::optional<Recebedor> configurado()
{
    const Sessao& s = sessao();
    if (!Sessao::verdadeiro(s.CfgPixAtivo))
        return std::nullopt;
    const auto chave = leChave(s.CfgPixChave);
    if (!chave)
        return std::nullopt;
    return Recebedor{chave->texto, s.CfgPixNome, s.CfgPixCidade};
}

QString cobrancaDaLoja(Dinheiro valor, const QString& numeroOs, QString* erro)
{
    if (valor <= Dinheiro()) {
        if (erro)
            *erro = QStringLiteral("O valor a pagar é 0,00: não há o que cobrar por PIX.");
        return {};
    }
    const auto r = configurado();
    if (!r) {
        if (erro)
            *erro = QStringLiteral("O PIX não está ligado ou a chave não é válida: veja a configuração do sistema, "
                                   "aba Recursos.");
        return {};
    }
    return payload({r->chave, r->nome, r->cidade, valor, numeroOs}, erro);
}

}
