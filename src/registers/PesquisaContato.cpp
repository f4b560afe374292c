#include "registers/PesquisaContato.h"

#include "registers/AbreRegistro.h"
#include "ui/RegistroTelas.h"

PesquisaContato::PesquisaContato(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("Contato");
    m_titulo = QStringLiteral("Busca agenda");
    m_colunaCodigo = QStringLiteral("Cod");
    m_colunaNome = QStringLiteral("Nome");
    m_ordem = QStringLiteral("Nome, Cod");
    m_grade = {{QStringLiteral("Nome"), QStringLiteral("Nome"), 260},
               {QStringLiteral("Telefone"), QStringLiteral("Telefone"), 130},
               {QStringLiteral("Email"), QStringLiteral("E-mail"), 260}};
    definirChamador(QStringLiteral("Menu"), [](const QSqlRecord& linha) {
        AbreRegistro::abrir(QStringLiteral("Agenda"), linha.value(QStringLiteral("Cod")).toLongLong());
    });
    if (iniciar())
        listaTodos();
}

TOLDEX_REGISTRA_TELA(PesquisaContato)
