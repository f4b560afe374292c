#include "data/ArquivoIni.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {

QString decodifica(const QByteArray& bruto)
{
    QByteArray dados = bruto;
    if (dados.startsWith("\xEF\xBB\xBF"))
        dados = dados.mid(3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString texto = utf8.decode(dados);
    if (!utf8.hasError())
        return texto;
    // Not UTF-8: an older installation wrote the file in the Windows code page.
    QStringDecoder cp1252("windows-1252");
    if (cp1252.isValid())
        return cp1252.decode(dados);
    return QString::fromLatin1(dados);
}

QString nomeSecao(const QString& linha)
{
    const QString t = linha.trimmed();
    if (t.startsWith(QLatin1Char('[')) && t.contains(QLatin1Char(']')))
        return t.mid(1, t.indexOf(QLatin1Char(']')) - 1).trimmed();
    return {};
}

bool ehSecao(const QString& linha)
{
    const QString t = linha.trimmed();
    return t.startsWith(QLatin1Char('[')) && t.contains(QLatin1Char(']'));
}

} // namespace

ArquivoIni::ArquivoIni(QString caminho) : m_caminho(std::move(caminho)) {}

QStringList ArquivoIni::lerLinhas() const
{
    QFile f(m_caminho);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QString texto = decodifica(f.readAll());
    texto.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return texto.split(QLatin1Char('\n'));
}

QString ArquivoIni::ler(const QString& secao, const QString& chave) const
{
    bool dentro = false;
    for (const QString& linha : lerLinhas()) {
        if (ehSecao(linha)) {
            dentro = nomeSecao(linha).compare(secao, Qt::CaseInsensitive) == 0;
            continue;
        }
        if (!dentro)
            continue;
        const int igual = linha.indexOf(QLatin1Char('='));
        if (igual <= 0)
            continue;
        if (linha.left(igual).trimmed().compare(chave, Qt::CaseInsensitive) != 0)
            continue;
        QString valor = linha.mid(igual + 1).trimmed();
        if (valor.size() >= 2 && valor.startsWith(QLatin1Char('"')) && valor.endsWith(QLatin1Char('"')))
            valor = valor.mid(1, valor.size() - 2);
        return valor.left(TamanhoMaximo);
    }
    return {};
}

bool ArquivoIni::gravar(const QString& secao, const QString& chave, const QString& valor, QString* erro)
{
    QStringList linhas = lerLinhas();
    while (!linhas.isEmpty() && linhas.last().trimmed().isEmpty())
        linhas.removeLast();
    // A value never spans lines: a pasted line break would break the file.
    QString limpo = valor;
    limpo.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const QString nova = chave + QLatin1Char('=') + limpo;

    int inicio = -1;
    for (int i = 0; i < linhas.size(); ++i)
        if (ehSecao(linhas.at(i)) && nomeSecao(linhas.at(i)).compare(secao, Qt::CaseInsensitive) == 0) {
            inicio = i;
            break;
        }
    if (inicio < 0) {
        if (!linhas.isEmpty())
            linhas << QString();
        linhas << QLatin1Char('[') + secao + QLatin1Char(']') << nova;
    } else {
        int fim = inicio + 1;
        bool trocada = false;
        for (; fim < linhas.size() && !ehSecao(linhas.at(fim)); ++fim) {
            const int igual = linhas.at(fim).indexOf(QLatin1Char('='));
            if (igual > 0 && linhas.at(fim).left(igual).trimmed().compare(chave, Qt::CaseInsensitive) == 0) {
                linhas[fim] = nova;
                trocada = true;
                break;
            }
        }
        if (!trocada) {
            int pos = fim;
            while (pos > inicio + 1 && linhas.at(pos - 1).trimmed().isEmpty())
                --pos;
            linhas.insert(pos, nova);
        }
    }

    QSaveFile f(m_caminho);
    if (!f.open(QIODevice::WriteOnly)) {
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar o arquivo de configuração %1: %2")
                        .arg(m_caminho, f.errorString());
        return false;
    }
    f.write((linhas.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
    if (!f.commit()) {
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar o arquivo de configuração %1: %2")
                        .arg(m_caminho, f.errorString());
        return false;
    }
    return true;
}

QString LeIni(const QString& secao, const QString& chave, const QString& arquivo)
{
    return ArquivoIni(arquivo).ler(secao, chave);
}

bool GravaIni(const QString& secao, const QString& chave, const QString& valor, const QString& arquivo)
{
    return ArquivoIni(arquivo).gravar(secao, chave, valor);
}
