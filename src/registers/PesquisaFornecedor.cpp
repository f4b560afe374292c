#include "registers/PesquisaFornecedor.h"

#include <QSqlRecord>

#include "registers/Fornecedor.h"
#include "ui/RegistroTelas.h"

namespace {
QString nomeFlag(PesquisaFornecedor::Chamador c)
{
    return c == PesquisaFornecedor::Chamador::Produto ? QStringLiteral("Produto") : QStringLiteral("PedidoPeca");
}
} // namespace

PesquisaFornecedor::PesquisaFornecedor(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("Fornecedor");
    m_titulo = QStringLiteral("Busca Fornecedores");
    m_colunaCodigo = QStringLiteral("CodFornecedor");
    m_colunaNome = QStringLiteral("NomeEmpresa");
    m_ordem = QStringLiteral("NomeEmpresa");
    m_grade = {{QStringLiteral("CodFornecedor"), QStringLiteral("Código"), 60},
               {QStringLiteral("NomeEmpresa"), QStringLiteral("Empresa"), 230},
               {QStringLiteral("NomeVendedor"), QStringLiteral("Vendedor"), 170},
               {QStringLiteral("Produto"), QStringLiteral("Produtos"), 220}};
    m_ordemChamadores = {nomeFlag(Chamador::Produto), nomeFlag(Chamador::PedidoPeca)};
    // A box to find a supplier by any part of its name, and room for the four columns
    // when the work area would size the window by its contents alone.
    m_opcoes << Opcao{QStringLiteral("Empresa"), QStringLiteral("NomeEmpresa"), true};
    setMinimumSize(720, 440);
    if (iniciar())
        listaTodos();
}

PesquisaFornecedor* PesquisaFornecedor::abrirPara(Chamador chamador, Retorno retorno)
{
    auto* tela = qobject_cast<PesquisaFornecedor*>(RegistroTelas::abrir(QStringLiteral("PesquisaFornecedor")));
    if (tela)
        tela->defineChamador(chamador, std::move(retorno));
    return tela;
}

void PesquisaFornecedor::defineChamador(Chamador chamador, Retorno retorno)
{
    definirChamador(nomeFlag(chamador), [this, retorno](const QSqlRecord& f) {
        if (retorno)
            retorno(f);
        RegistroTelas::fecharJanela(this);
    });
}

void PesquisaFornecedor::acaoPadrao(const QSqlRecord& f)
{
    auto* cadastro = qobject_cast<Fornecedor*>(RegistroTelas::abrir(QStringLiteral("Fornecedor")));
    if (cadastro)
        cadastro->mostraFornecedor(f.value(QStringLiteral("CodFornecedor")).toString(),
                                   f.value(QStringLiteral("NomeEmpresa")).toString());
    RegistroTelas::fecharJanela(this);
}

TOLDEX_REGISTRA_TELA(PesquisaFornecedor)
