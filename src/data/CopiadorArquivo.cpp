#include "data/CopiadorArquivo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

CopiadorArquivo::CopiadorArquivo(QString origem, QString destino, QObject* pai)
    : QObject(pai), m_origem(std::move(origem)), m_destino(std::move(destino))
{
    qRegisterMetaType<ResultadoCopia>();
}

CopiadorArquivo::~CopiadorArquivo()
{
    if (m_thread) {
        cancelar();
        m_thread->wait();
        delete m_thread;
    }
}

QString CopiadorArquivo::destinoFinal() const
{
    const QFileInfo d(m_destino);
    if (d.isDir())
        return QDir(m_destino).filePath(QFileInfo(m_origem).fileName());
    return m_destino;
}

ResultadoCopia CopiadorArquivo::falha(const QString& texto)
{
    m_erro = texto;
    return ResultadoCopia::Falhou;
}

ResultadoCopia CopiadorArquivo::copiar()
{
    m_erro.clear();
    const QString destino = destinoFinal();
    const QFileInfo infoOrigem(m_origem);
    if (!infoOrigem.exists())
        return falha(QStringLiteral("Arquivo não encontrado: %1").arg(m_origem));
    if (!infoOrigem.isFile())
        return falha(QStringLiteral("Não é um arquivo: %1").arg(m_origem));
    if (infoOrigem.canonicalFilePath() == QFileInfo(destino).canonicalFilePath())
        return falha(QStringLiteral("Origem e destino são o mesmo arquivo: %1").arg(m_origem));

    QFile entrada(m_origem);
    if (!entrada.open(QIODevice::ReadOnly))
        return falha(QStringLiteral("Não foi possível ler %1: %2").arg(m_origem, entrada.errorString()));

    // QSaveFile writes to a temporary name in the destination's folder and renames it
    // over the destination on commit; without a commit the temporary file goes away.
    QSaveFile saida(destino);
    if (!saida.open(QIODevice::WriteOnly))
        return falha(QStringLiteral("Não foi possível gravar %1: %2").arg(destino, saida.errorString()));

    const qint64 total = entrada.size();
    qint64 copiados = 0;
    emit progresso(0, total);
    QByteArray bloco;
    for (;;) {
        if (m_cancelar) {
            saida.cancelWriting();
            return ResultadoCopia::Cancelada;
        }
        bloco = entrada.read(TamanhoBloco);
        if (bloco.isEmpty()) {
            if (entrada.error() != QFileDevice::NoError || !entrada.atEnd())
                return falha(QStringLiteral("Falha ao ler %1: %2").arg(m_origem, entrada.errorString()));
            break;
        }
        if (saida.write(bloco) != bloco.size())
            return falha(QStringLiteral("Falha ao gravar %1: %2").arg(destino, saida.errorString()));
        copiados += bloco.size();
        emit progresso(copiados, std::max(total, copiados));
    }
    if (m_cancelar) {
        saida.cancelWriting();
        return ResultadoCopia::Cancelada;
    }
    if (!saida.commit())
        return falha(QStringLiteral("Falha ao gravar %1: %2").arg(destino, saida.errorString()));
    // Like a copy made by hand, the copy keeps the date of the file it came from.
    QFile copia(destino);
    if (copia.open(QIODevice::ReadWrite))
        copia.setFileTime(infoOrigem.lastModified(), QFileDevice::FileModificationTime);
    return ResultadoCopia::Concluida;
}

void CopiadorArquivo::iniciar()
{
    if (m_thread)
        return;
    m_cancelar = false;
    m_thread = QThread::create([this] { m_resultado = copiar(); });
    connect(m_thread, &QThread::finished, this, [this] {
        m_thread->deleteLater();
        m_thread = nullptr;
        emit terminou(m_resultado);
    });
    m_thread->start();
}
