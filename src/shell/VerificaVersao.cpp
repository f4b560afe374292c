#include "shell/VerificaVersao.h"

#include <QDir>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include "data/ArquivoIni.h"
#include "data/Local.h"

namespace {
const QString CaminhoRemoto = QStringLiteral("/UpdateToldex/Versao.txt");

QString primeiraLinha(const QByteArray& dados)
{
    const int fim = dados.indexOf('\n');
    return QString::fromUtf8(fim < 0 ? dados : dados.left(fim)).remove(QLatin1Char('\r'));
}
}

VerificaVersao::VerificaVersao(QObject* pai)
    : QObject(pai)
    , m_rede(new QNetworkAccessManager(this))
{
}

QString VerificaVersao::versaoInstalada(bool* existe)
{
    QFile f(QDir(Local::pastaPrograma()).filePath(QStringLiteral("Versao.txt")));
    // An installed program keeps its version file with its other read-only files.
    if (!f.exists())
        f.setFileName(QDir(Local::pastaInstalada()).filePath(QStringLiteral("Versao.txt")));
    const bool ok = f.open(QIODevice::ReadOnly);
    if (existe)
        *existe = ok;
    return ok ? primeiraLinha(f.readLine()) : QString();
}

QUrl VerificaVersao::enderecoRemoto()
{
    const QString texto = LeIni(QStringLiteral("Atualizacao"), QStringLiteral("Endereco"), Local::arquivoIni()).trimmed();
    if (texto.isEmpty())
        return {};
    QUrl url = QUrl::fromUserInput(texto);
    // The key may hold the site alone or the whole address of the file.
    if (!url.path().endsWith(QLatin1String(".txt"), Qt::CaseInsensitive)) {
        QString caminho = url.path();
        while (caminho.endsWith(QLatin1Char('/')))
            caminho.chop(1);
        url.setPath(caminho + CaminhoRemoto);
    }
    return url;
}

bool VerificaVersao::maisNova(const QString& instalada, const QString& remota)
{
    const QString r = remota.trimmed();
    return !r.isEmpty() && instalada.compare(r) < 0;
}

void VerificaVersao::iniciar()
{
    if (m_resposta)
        return;
    m_remota.clear();
    bool existe = false;
    m_instalada = versaoInstalada(&existe);
    // Signals go out from the event loop, so a caller may connect after starting.
    auto termina = [this](Resultado r) {
        QTimer::singleShot(0, this, [this, r] { emit terminou(r); });
    };
    if (!existe)
        return termina(Resultado::SemVersaoLocal);
    const QUrl url = enderecoRemoto();
    if (!url.isValid() || url.isEmpty())
        return termina(Resultado::SemEndereco);
    QNetworkRequest pedido(url);
    pedido.setTransferTimeout(LimiteMs);
    pedido.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    m_resposta = m_rede->get(pedido);
    QNetworkReply* r = m_resposta;
    connect(r, &QNetworkReply::finished, this, [this, r] { concluir(r); });
}

void VerificaVersao::concluir(QNetworkReply* resposta)
{
    resposta->deleteLater();
    m_resposta = nullptr;
    const int status = resposta->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (resposta->error() != QNetworkReply::NoError || (status != 0 && status != 200)) {
        emit terminou(Resultado::Falhou);
        return;
    }
    const QByteArray dados = resposta->readAll();
    QFile ver(QDir(Local::pastaPrograma()).filePath(QStringLiteral("Ver.txt")));
    if (ver.open(QIODevice::WriteOnly | QIODevice::Truncate))
        ver.write(dados);
    m_remota = primeiraLinha(dados).trimmed();
    emit terminou(maisNova(m_instalada, m_remota) ? Resultado::NovaVersao : Resultado::EmDia);
}
