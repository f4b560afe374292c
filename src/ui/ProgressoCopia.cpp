#include "ui/ProgressoCopia.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/Dialogos.h"

namespace {

std::function<void(ProgressoCopia*)>& observadorCriacao()
{
    static std::function<void(ProgressoCopia*)> o;
    return o;
}

QString pastaDe(const QString& caminho)
{
    return QDir::toNativeSeparators(QFileInfo(caminho).absolutePath());
}

} // namespace

ProgressoCopia::ProgressoCopia(const QString& origem, const QString& destino, QWidget* pai)
    : QDialog(pai), m_copiador(origem, destino)
{
    setObjectName(QStringLiteral("ProgressoCopia"));
    setWindowTitle(TextoCopiando);
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    const QString final = m_copiador.destinoFinal();
    m_arquivo = new QLabel(QStringLiteral("Copiando %1").arg(QFileInfo(origem).fileName()), this);
    m_arquivo->setObjectName(QStringLiteral("Arquivo"));
    m_caminhos = new QLabel(QStringLiteral("De: %1\nPara: %2").arg(pastaDe(origem), pastaDe(final)), this);
    m_caminhos->setObjectName(QStringLiteral("Caminhos"));
    m_caminhos->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_barra = new QProgressBar(this);
    m_barra->setObjectName(QStringLiteral("Barra"));
    m_barra->setRange(0, 1000);
    m_barra->setValue(0);
    m_barra->setFormat(QStringLiteral("%p%"));
    m_cancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    m_cancelar->setObjectName(QStringLiteral("Cancelar"));
    m_cancelar->setAutoDefault(false);

    auto* botoes = new QHBoxLayout;
    botoes->addStretch();
    botoes->addWidget(m_cancelar);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_arquivo);
    layout->addWidget(m_caminhos);
    layout->addWidget(m_barra);
    layout->addLayout(botoes);
    setMinimumWidth(420);

    connect(m_cancelar, &QPushButton::clicked, this, &ProgressoCopia::reject);
    connect(&m_copiador, &CopiadorArquivo::progresso, this, &ProgressoCopia::mostraProgresso);

    if (observadorCriacao())
        observadorCriacao()(this);
}

void ProgressoCopia::aoCriar(std::function<void(ProgressoCopia*)> observador)
{
    observadorCriacao() = std::move(observador);
}

void ProgressoCopia::mostraProgresso(qint64 copiados, qint64 total)
{
    m_barra->setValue(total > 0 ? int(copiados * 1000 / total) : 1000);
}

void ProgressoCopia::reject()
{
    // The window stays until the copy has stopped and cleaned up after itself.
    m_copiador.cancelar();
    m_cancelar->setEnabled(false);
    m_cancelar->setText(QStringLiteral("Cancelando..."));
}

ResultadoCopia ProgressoCopia::executar()
{
    QEventLoop laco;
    connect(&m_copiador, &CopiadorArquivo::terminou, &laco, &QEventLoop::quit);
    show();
    m_copiador.iniciar();
    laco.exec();
    hide();
    return m_copiador.resultado();
}

ResultadoCopia CopiaArquivo(QWidget* pai, const QString& origem, const QString& destino,
                            const std::function<void(const QString&)>& situacao, SeExistir seExistir,
                            QString* erro)
{
    auto informa = [&](const QString& texto) {
        if (situacao)
            situacao(texto);
    };
    auto cancelada = [&] {
        informa(TextoCopiaCancelada);
        Dialogos::mensagem(pai, TextoCopiaCancelada, {}, Dialogos::Icone::Critico);
        return ResultadoCopia::Cancelada;
    };
    if (erro)
        erro->clear();

    const QString final = CopiadorArquivo(origem, destino).destinoFinal();
    const QFileInfo existente(final);
    if (seExistir == SeExistir::Perguntar && existente.isFile()
        && existente.canonicalFilePath() != QFileInfo(origem).canonicalFilePath()) {
        const QString texto = QStringLiteral("Já existe um arquivo chamado \"%1\" em %2.\nDeseja substituí-lo?")
                                  .arg(existente.fileName(), pastaDe(final));
        if (!Dialogos::pergunta(pai, texto, QStringLiteral("Confirmar substituição de arquivo")))
            return cancelada();
    }

    informa(TextoCopiando);
    ProgressoCopia janela(origem, destino, pai);
    const ResultadoCopia r = janela.executar();
    switch (r) {
    case ResultadoCopia::Concluida:
        break;
    case ResultadoCopia::Cancelada:
        return cancelada();
    case ResultadoCopia::Falhou:
        if (erro)
            *erro = janela.copiador().erro();
        informa(RotuloFalhaCopia);
        Dialogos::mensagem(pai, TextoFalhaCopia, {}, Dialogos::Icone::Critico);
        break;
    }
    return r;
}
