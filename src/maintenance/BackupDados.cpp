#include "maintenance/BackupDados.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "data/ArquivoIni.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Sessao.h"
#include "data/TravaUso.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaSeguranca.h"
#include "ui/Dialogos.h"
#include "ui/ProgressoCopia.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Titulo = QStringLiteral("Backup do banco de dados");
}

BackupDados::BackupDados(QWidget* pai) : TelaManutencao(Titulo, pai) {}

QString BackupDados::textoSemCompactacao()
{
    return QStringLiteral("Não foi possivel fazer a compactação do Banco de dados no Servidor,\n"
                          "ele pode estar sendo usado por outro computador\n"
                          "Somente vai ser gerado o arquivo de Backup");
}

QString BackupDados::textoPastaProtegida()
{
    return QStringLiteral("Não foi possivel criar a pasta BackupToldex,certifique que o diisco não tem proteção contra gravação");
}

void BackupDados::iniciar()
{
    const QString volume = volumeEscolhido();
    if (volume.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Escolha o disco onde o backup será gravado."), Titulo, Dialogos::Icone::Aviso);
        return;
    }
    const QString pasta = QDir(volume).filePath(ArquivoBackup::Pasta);
    if (!QDir().mkpath(pasta) || !QFileInfo(pasta).isWritable()) {
        Dialogos::mensagem(this, textoPastaProtegida(), Titulo, Dialogos::Icone::Critico);
        return;
    }
    GravaIni(QStringLiteral("Local"), QStringLiteral("Backup"), volume, sessao().ArquivoIni);
    ArquivoBackup::removerParciais(pasta);

    const QString destino = QDir(pasta).filePath(ArquivoBackup::nome(QDateTime::currentDateTime()));
    // The same minute's backup has the same name: replaced only when the user says so.
    if (QFileInfo::exists(destino)
        && !Dialogos::pergunta(this, QStringLiteral("Já existe um arquivo chamado \"%1\" em %2.\nDeseja substituí-lo?")
                                         .arg(QFileInfo(destino).fileName(), QDir::toNativeSeparators(pasta)),
                               QStringLiteral("Confirmar substituição de arquivo"))) {
        situacao(TextoCopiaCancelada);
        Dialogos::mensagem(this, TextoCopiaCancelada, Titulo, Dialogos::Icone::Critico);
        return;
    }
    if (!compactar())
        return;

    const ConfigBanco config = Conexoes::config();
    const Resultado r = rodar(TextoCopiando, [config, destino](Trabalho& t) { return CopiaSeguranca::fazer(config, destino, t); });
    if (r.cancelado()) {
        situacao(TextoCopiaCancelada);
        Dialogos::mensagem(this, TextoCopiaCancelada, Titulo, Dialogos::Icone::Critico);
        return;
    }
    if (!r.ok()) {
        situacao(RotuloFalhaCopia);
        Dialogos::mensagem(this, CopiaSeguranca::TextoFalhaGravar + QLatin1Char('\n') + r.detalhe, Titulo,
                           Dialogos::Icone::Critico);
        return;
    }
    situacao(QStringLiteral("Concluido"));
    gravarData();
}

bool BackupDados::compactar()
{
    const ConfigBanco config = Conexoes::config();
    if (config.motor != Motor::SQLite)
        return true;
    auto trava = TravaExclusiva::tomar(config.pasta);
    if (!trava) {
        Dialogos::mensagem(this, textoSemCompactacao(), Titulo, Dialogos::Icone::Aviso);
        return true;
    }
    const Resultado r = rodar(QStringLiteral("Compactando o banco de dados..."),
                              [config](Trabalho& t) { return CopiaSeguranca::compactar(config, t); });
    if (r.cancelado()) {
        situacao(TextoCopiaCancelada);
        Dialogos::mensagem(this, TextoCopiaCancelada, Titulo, Dialogos::Icone::Critico);
        return false;
    }
    if (!r.ok())
        Dialogos::mensagem(this, textoSemCompactacao(), Titulo, Dialogos::Icone::Aviso);
    return true;
}

void BackupDados::gravarData()
{
    const QString hoje = Datas::hoje();
    QString erro;
    Banco* b = Conexoes::abreConexao(1, &erro);
    if (b) {
        try {
            b->executar(QStringLiteral("UPDATE Empresa SET DataBackup = ?"), {hoje});
            sessao().DataUltimoBackup = hoje;
        } catch (const ErroBanco& e) {
            erro = e.textoCompleto();
        }
    }
    Conexoes::fechaConexao(1);
    if (!erro.isEmpty())
        Dialogos::mensagem(this, QStringLiteral("O backup foi gravado, mas a data do backup não pôde ser anotada.\n") + erro,
                           Titulo, Dialogos::Icone::Aviso);
}

TOLDEX_REGISTRA_TELA(BackupDados)
