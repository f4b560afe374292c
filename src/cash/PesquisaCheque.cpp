#include "cash/PesquisaCheque.h"

#include <QLineEdit>
#include <QSqlRecord>

#include "cash/RegCheque.h"
#include "data/Busca.h"
#include "data/Datas.h"
#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "ui/RegistroTelas.h"

PesquisaCheque::PesquisaCheque(QWidget* pai) : TelaPesquisa(pai)
{
    setObjectName(QStringLiteral("PesquisaCheque"));
    m_tabela = QStringLiteral("CadastroCheque");
    m_titulo = QStringLiteral("Pesquisa Cheque");
    m_tituloContagem = QStringLiteral("Busca Cheque");
    m_plural = QStringLiteral("cheques");
    m_colunaCodigo = QStringLiteral("Codcadastro");
    m_colunaNome = QStringLiteral("NomeCliente");
    // The typed text may stand anywhere in the column, as the counter has always searched.
    m_opcoes = {{QStringLiteral("Código"), QStringLiteral("CodCliente"), true},
                {QStringLiteral("Nome"), QStringLiteral("NomeCliente"), true},
                {QStringLiteral("Nº Conta"), QStringLiteral("NumeroConta"), true},
                {QStringLiteral("Nº Cheque"), QStringLiteral("NumeroCheque"), true},
                {QStringLiteral("CPF/CNPJ"), QStringLiteral("CpfCnpjTitular"), true},
                {QStringLiteral("Titular"), QStringLiteral("TitularConta"), true}};
    m_grade = {{QStringLiteral("CpfCnpjTitular"), QStringLiteral("CPF/CNPJ"), 130},
               {QStringLiteral("CodCliente"), QStringLiteral("Cód"), 50},
               {QStringLiteral("Codcadastro"), QStringLiteral("Cadastro"), 60},
               {QStringLiteral("NomeCliente"), QStringLiteral("Cliente"), 180},
               {QStringLiteral("TitularConta"), QStringLiteral("Titular"), 180},
               {QStringLiteral("NumeroConta"), QStringLiteral("Conta"), 80},
               {QStringLiteral("NumeroCheque"), QStringLiteral("Cheque"), 80},
               {QStringLiteral("DataVencimento"), QStringLiteral("Vencimento"), 80}};
    setMinimumSize(900, 440);
    iniciar();
    for (int i = 0; i < m_opcoes.size(); ++i)
        if (auto* caixa = findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(i)))
            caixa->setPlaceholderText(QStringLiteral("Digite e tecle enter"));
}

Condicao PesquisaCheque::condicaoBusca(const Opcao& opcao, const QString& texto)
{
    // Documents are kept as digits: a number typed with its punctuation still finds them.
    QString procurado = texto;
    if (opcao.coluna == QLatin1String("CpfCnpjTitular") && !SoDigitos(texto).isEmpty())
        procurado = SoDigitos(texto);
    return Busca::porColuna(*banco(), m_tabela, opcao.coluna, procurado, opcao.meio);
}

QString PesquisaCheque::textoCelula(const QString& coluna, const QVariant& valor) const
{
    if (coluna == QLatin1String("CpfCnpjTitular"))
        return MascaraCnpjCpf(valor.toString());
    if (coluna == QLatin1String("DataVencimento"))
        return Datas::bancoParaTela(valor.toString());
    return valor.toString();
}

void PesquisaCheque::acaoPadrao(const QSqlRecord& cheque)
{
    if (auto* tela = qobject_cast<RegCheque*>(RegistroTelas::abrir(QStringLiteral("RegCheque"))))
        tela->mostraCheque(cheque.value(QStringLiteral("Chave")).toLongLong());
}

TOLDEX_REGISTRA_TELA(PesquisaCheque)
