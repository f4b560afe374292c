#include "registers/PesquisaDefeito.h"

#include "registers/AbreRegistro.h"
#include "ui/RegistroTelas.h"

PesquisaDefeito::PesquisaDefeito(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("DefeitoSolucionado");
    m_titulo = QStringLiteral("Busca Soluções");
    m_colunaCodigo = QStringLiteral("CodDefeito");
    m_colunaNome = QStringLiteral("Marca");
    m_ordem = QStringLiteral("Marca, CodDefeito");
    m_grade = {{QStringLiteral("CodDefeito"), QStringLiteral("Código"), 60},
               {QStringLiteral("Marca"), QStringLiteral("Marca"), 110},
               {QStringLiteral("Modelo"), QStringLiteral("Modelo"), 110},
               {QStringLiteral("Tipo"), QStringLiteral("Tipo"), 100},
               {QStringLiteral("Defeito"), QStringLiteral("Defeito"), 170},
               {QStringLiteral("Solucao"), QStringLiteral("Solução"), 330}};
    definirChamador(QStringLiteral("Menu"), [](const QSqlRecord& linha) {
        AbreRegistro::abrir(QStringLiteral("Defeito"), linha.value(QStringLiteral("CodDefeito")).toLongLong());
    });
    m_tituloContagem = QStringLiteral("Busca Solução");
    resize(920, 480);
    if (iniciar())
        listaTodos();
}

TOLDEX_REGISTRA_TELA(PesquisaDefeito)
