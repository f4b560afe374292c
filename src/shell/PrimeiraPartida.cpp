#include "shell/PrimeiraPartida.h"

#include <QFileInfo>

#include "data/Local.h"
#include "ui/Dialogos.h"

namespace PrimeiraPartida {

Papel perguntar(QWidget* pai)
{
    if (QFileInfo::exists(Local::arquivoIni()))
        return Papel::JaConfigurado;
    const auto r = Dialogos::mensagem(
        pai,
        QStringLiteral("Este computador ainda não foi configurado para o Toldex.\n\n"
                       "Sim: este computador é o servidor (primeira instalação da loja): "
                       "um banco de dados novo será criado aqui.\n"
                       "Não: este computador é uma estação de trabalho: o banco de dados "
                       "do servidor será procurado na rede.\n"
                       "Cancelar: sair sem configurar."),
        QStringLiteral("Sistema TOLDEX - primeira configuração"), Dialogos::Icone::Pergunta,
        Dialogos::Botoes::SimNaoCancelar);
    QString erro;
    switch (r) {
    case Dialogos::Resposta::Sim:
    case Dialogos::Resposta::Ok:
        // The server's own ini is written by the first read of the settings, which also
        // lets it create the store.
        return Papel::Servidor;
    case Dialogos::Resposta::Nao:
        // No folder yet: the open fails and leads to the reconnection screen, where the
        // user points at the server's store.
        if (!Local::gravarPapel(false, QString(), &erro)) {
            Dialogos::mensagem(pai, QStringLiteral("Não foi possível gravar o arquivo Toldex.ini.\n") + erro,
                               QStringLiteral("Sistema TOLDEX"), Dialogos::Icone::Critico);
            return Papel::Cancelado;
        }
        return Papel::Estacao;
    case Dialogos::Resposta::Cancelar: break;
    }
    return Papel::Cancelado;
}

}
