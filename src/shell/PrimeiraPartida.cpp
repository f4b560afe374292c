#include "shell/PrimeiraPartida.h"

#include <QFileInfo>

#include "data/Local.h"
#include "ui/Dialogos.h"

namespace PrimeiraPartida {

namespace {
const QString TextoExemplo = QStringLiteral(
    "Abrir a loja de exemplo?\n\n"
    "Uma loja fictícia, com clientes, ordens de serviço em todas as situações, estoque, caixa e contas, "
    "para conhecer o Toldex antes de cadastrar os seus dados. Ela é montada de novo a cada abertura; "
    "nada do que for feito nela passa para a loja de verdade.\n\n"
    "Sim: abrir a loja de exemplo.\nNão: sair.");
}

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
                       "Cancelar: sair sem configurar, ou abrir a loja de exemplo."),
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
    case Dialogos::Resposta::Cancelar:
        if (Dialogos::pergunta(pai, TextoExemplo, QStringLiteral("Sistema TOLDEX - loja de exemplo")))
            return Papel::Exemplo;
        break;
    }
    return Papel::Cancelado;
}

}
