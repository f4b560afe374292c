#include "registers/PesquisaCliente.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSqlRecord>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/FuncoesMascaras.h"
#include "registers/BuscaClientes.h"
#include "registers/Cliente.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {

const QList<BuscaClientes::Opcao> Opcoes = {BuscaClientes::Opcao::Codigo, BuscaClientes::Opcao::Nome,
                                            BuscaClientes::Opcao::Telefone, BuscaClientes::Opcao::Fax,
                                            BuscaClientes::Opcao::Celular, BuscaClientes::Opcao::CnpjCpf};

QVariantMap dadosDoCliente(const QSqlRecord& c)
{
    QVariantMap d;
    for (const char* col : {"CodCliente", "NomeCliente", "CnpjCpf", "Endereco", "Numero", "Bairro", "Cidade",
                            "Telefone", "Celular"})
        d.insert(QString::fromLatin1(col), c.value(QString::fromLatin1(col)).toString());
    return d;
}

} // namespace

PesquisaCliente::PesquisaCliente(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("Cliente");
    m_titulo = QStringLiteral("Busca Cliente");
    m_plural = QStringLiteral("clientes");
    m_colunaCodigo = QStringLiteral("CodCliente");
    m_colunaNome = QStringLiteral("NomeCliente");
    m_ordem = BuscaClientes::Ordem;
    const QStringList rotulos = {QStringLiteral("Código"), QStringLiteral("Nome"), QStringLiteral("Telefone"),
                                 QStringLiteral("Fax"), QStringLiteral("Celular"), QStringLiteral("CPF/CNPJ")};
    for (int i = 0; i < Opcoes.size(); ++i)
        m_opcoes << Opcao{rotulos[i], BuscaClientes::coluna(Opcoes[i]), BuscaClientes::meio(Opcoes[i])};
    m_grade = {{QStringLiteral("CodCliente"), QStringLiteral("Código"), 60},
               {QStringLiteral("NomeCliente"), QStringLiteral("Nome"), 250},
               {QStringLiteral("Telefone"), QStringLiteral("Telefone"), 105},
               {QStringLiteral("Celular"), QStringLiteral("Celular"), 105},
               {QStringLiteral("TelFax"), QStringLiteral("Tel/Fax"), 105},
               {QStringLiteral("CnpjCpf"), QStringLiteral("Cpf/Cnpj"), 135}};
    for (Chamador c : {Chamador::Menu, Chamador::EntradaOs, Chamador::CadCompleto, Chamador::Pagamento})
        m_ordemChamadores << nomeFlag(c);

    auto* linha = new QHBoxLayout;
    linha->addWidget(new QLabel(QStringLiteral("Nome (busca ao digitar)"), this));
    auto* aoDigitar = new QLineEdit(this);
    aoDigitar->setObjectName(QStringLiteral("Text4"));
    aoDigitar->setToolTip(QStringLiteral("Procura o texto em qualquer parte do nome, também em clientes excluídos"));
    linha->addWidget(aoDigitar, 1);
    connect(aoDigitar, &QLineEdit::textChanged, this, &PesquisaCliente::buscaAoDigitar);
    resize(800, 480);
    iniciar();
    layoutTopo()->addLayout(linha);
}

QString PesquisaCliente::nomeFlag(Chamador chamador)
{
    switch (chamador) {
    case Chamador::Menu: return QStringLiteral("Menu");
    case Chamador::EntradaOs: return QStringLiteral("EntradaOs");
    case Chamador::CadCompleto: return QStringLiteral("CadCompleto");
    case Chamador::Pagamento: return QStringLiteral("Pagamento");
    }
    return {};
}

PesquisaCliente* PesquisaCliente::abrirPara(Chamador chamador, Retorno retorno)
{
    auto* tela = qobject_cast<PesquisaCliente*>(RegistroTelas::abrir(QStringLiteral("PesquisaCliente")));
    if (tela)
        tela->defineChamador(chamador, std::move(retorno));
    return tela;
}

void PesquisaCliente::defineChamador(Chamador chamador, Retorno retorno)
{
    definirChamador(nomeFlag(chamador), [this, retorno](const QSqlRecord& cliente) {
        if (retorno)
            retorno(cliente);
        RegistroTelas::fecharJanela(this);
    });
    if (chamador == Chamador::EntradaOs || chamador == Chamador::CadCompleto)
        escolheOpcao(1);
}

void PesquisaCliente::abrirNoModo(const QString& modo)
{
    if (modo != QLatin1String("EntradaOs"))
        return;
    defineChamador(Chamador::EntradaOs, [](const QSqlRecord& cliente) {
        const QString alvo = Cliente::telaNovaOrdem();
        if (EntregaTelas::disponivel(alvo))
            EntregaTelas::abrirCom(alvo, EntregaTelas::NovoComCliente, dadosDoCliente(cliente));
    });
}

Condicao PesquisaCliente::condicaoBusca(const Opcao& opcao, const QString& texto)
{
    BuscaClientes::Opcao qual = BuscaClientes::Opcao::Nome;
    for (BuscaClientes::Opcao o : Opcoes)
        if (BuscaClientes::coluna(o) == opcao.coluna)
            qual = o;
    return BuscaClientes::condicao(*banco(), qual, texto);
}

void PesquisaCliente::buscaAoDigitar(const QString& texto)
{
    if (!banco())
        return;
    if (texto.isEmpty()) {
        esvazia();
        return;
    }
    try {
        mostraConsulta(BuscaClientes::condicaoNome(*banco(), texto), BuscaClientes::Ordem);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
    }
}

QString PesquisaCliente::textoCelula(const QString& coluna, const QVariant& valor) const
{
    const QString t = valor.toString();
    if (coluna == QLatin1String("CnpjCpf"))
        return t.isEmpty() ? t : MascaraCnpjCpf(t);
    if (coluna == QLatin1String("Telefone") || coluna == QLatin1String("Celular") || coluna == QLatin1String("TelFax"))
        return t.isEmpty() ? t : MascaraTelefone(t);
    return t;
}

void PesquisaCliente::acaoPadrao(const QSqlRecord& cliente)
{
    // The menu's search: the register opens on the customer chosen.
    auto* cadastro = qobject_cast<Cliente*>(RegistroTelas::abrir(QStringLiteral("Cliente")));
    if (cadastro)
        cadastro->mostraCliente(cliente.value(QStringLiteral("CodCliente")).toString(),
                                cliente.value(QStringLiteral("NomeCliente")).toString());
    RegistroTelas::fecharJanela(this);
}

TOLDEX_REGISTRA_TELA(PesquisaCliente)
