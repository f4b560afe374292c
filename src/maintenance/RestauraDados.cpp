#include "maintenance/RestauraDados.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "maintenance/AcessoExclusivo.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/Restauracao.h"
#include "shell/Reconecta.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Titulo = QStringLiteral("Restaura backup do banco de dados");
}

RestauraDados::RestauraDados(QWidget* pai) : TelaManutencao(Titulo, pai) {}

QString RestauraDados::textoOcupado()
{
    return AcessoExclusivo::mensagemOcupado(QStringLiteral("Não foi possivel restaurar o Banco de dados no Servidor,"));
}

void RestauraDados::iniciar()
{
    const QString pasta = QDir(volumeEscolhido()).filePath(ArquivoBackup::Pasta);
    const auto escolhido = Dialogos::abrirArquivo(this, QStringLiteral("Restaurar backup"), pasta,
                                                  QStringLiteral("Arquivos (Toldex.Backup*)"));
    if (!escolhido || escolhido->isEmpty())
        return;
    const QString backup = *escolhido;
    if (!QFileInfo(backup).isFile()) {
        Dialogos::mensagem(this, QStringLiteral("Arquivo não encontrado"), Titulo, Dialogos::Icone::Critico);
        return;
    }
    situacao(QStringLiteral("Aguarde..."));
    const ConfigBanco config = Conexoes::config();
    const QDateTime quando = QDateTime::currentDateTime();
    const bool sqlite = config.motor == Motor::SQLite;
    const ArquivoBackup::Tipo tipo = ArquivoBackup::tipo(backup);
    if (tipo == ArquivoBackup::Tipo::Desconhecido
        || (tipo == ArquivoBackup::Tipo::Postgres) == sqlite) {
        const auto s = tipo == ArquivoBackup::Tipo::Desconhecido ? ArquivoBackup::Situacao::NaoEhBackup
                                                                 : ArquivoBackup::Situacao::OutroMotor;
        situacao(QString());
        Dialogos::mensagem(this, ArquivoBackup::mensagem(s), Titulo, Dialogos::Icone::Critico);
        return;
    }
    // The file is checked and copied beside the store while everyone still works.
    if (sqlite) {
        const Resultado r = rodar(QStringLiteral("Conferindo o backup..."),
                                  [backup, config](Trabalho& t) { return Restauracao::prepararSqlite(backup, config.pasta, t); });
        if (!r.ok()) {
            situacao(r.cancelado() ? QStringLiteral("Restauração cancelada") : QString());
            if (!r.cancelado())
                Dialogos::mensagem(this, r.mensagem, Titulo, Dialogos::Icone::Critico);
            return;
        }
    }
    AcessoExclusivo::Falha falha;
    QString detalhe;
    auto acesso = AcessoExclusivo::tomar(this, config, &falha, &detalhe);
    if (!acesso) {
        if (sqlite)
            Restauracao::desistirSqlite(config.pasta);
        situacao(QString());
        if (falha == AcessoExclusivo::Falha::OutrosUsando)
            Dialogos::mensagem(this, textoOcupado() + (detalhe.isEmpty() ? QString() : QStringLiteral("\n") + detalhe),
                               Titulo, Dialogos::Icone::Critico);
        return;
    }
    QString guardado;
    Resultado r;
    if (sqlite) {
        r = Restauracao::trocarSqlite(config.pasta, quando, &guardado);
    } else {
        const QString seguranca = Local::pastaPrograma();
        r = rodar(QStringLiteral("Restaurando..."), [config, backup, seguranca, quando, &guardado](Trabalho& t) {
            return Restauracao::restaurarPostgres(config, backup, seguranca, quando, t, &guardado);
        });
    }
    acesso.reset();
    if (!r.ok()) {
        situacao(r.cancelado() ? QStringLiteral("Restauração cancelada") : QString());
        if (!r.cancelado())
            Dialogos::mensagem(this, r.textoCompleto(), Titulo, Dialogos::Icone::Critico);
        return;
    }
    depoisDaTroca(guardado);
}

void RestauraDados::depoisDaTroca(const QString& guardado)
{
    situacao(QStringLiteral("Concluido"));
    // An older backup is brought up to this version before anyone works on it, and the
    // shop's settings are read again from it.
    QString erro;
    auto b = Conexoes::nova(&erro);
    if (b) {
        try {
            b->garantirEsquema();
        } catch (const ErroBanco& e) {
            erro = e.textoCompleto();
        }
    }
    if (!erro.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("O backup foi restaurado, mas o banco de dados não pôde ser aberto:\n") + erro,
                           Titulo, Dialogos::Icone::Critico);
        return;
    }
    b.reset();
    emit AvisosReconexao::instancia().reconectado();
    Dialogos::mensagem(this,
        QStringLiteral("Backup restaurado.\nO banco de dados que estava em uso foi guardado como:\n%1")
            .arg(QDir::toNativeSeparators(guardado)),
        Titulo);
}

TOLDEX_REGISTRA_TELA(RestauraDados)
