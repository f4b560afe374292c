#include "registers/Fornecedor.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "registers/BuscaCodigo.h"
#include "registers/CamposDocumento.h"
#include "ui/RegistroTelas.h"

namespace {

enum Campo { NomeEmpresa, NomeRevendedor, NomeVendedor, Endereco, CnpjCpf, Ie, Celular, TelFax, Site, EmailSac,
             TelSac, EmailSuporte, TelSuporte, EmailVendas, TelVendas, Produto, NumCampos };

struct Definicao {
    const char* coluna;
    const char* rotulo;
};
const Definicao Campos[NumCampos] = {
    {"NomeEmpresa", "Nome da empresa"},         {"NomeRevendedor", "Fornecedor/Revendedor"},
    {"NomeVendedor", "Nome do vendedor ou contato"}, {"Endereco", "Endereço,local,rua,etc..."},
    {"CnpjCpf", "CNPJ/CPF"},                    {"IE", "Inscrição estadual"},
    {"Celular", "Celular"},                     {"TelFax", "Tel / Fax"},
    {"Site", "Site"},                           {"EmailSac", "E-mail SAC"},
    {"TelSAC", "Tel / SAC"},                    {"EmailSuporte", "E-mail suporte"},
    {"TelSuporte", "Tel / suporte"},            {"EmailVendas", "E-mail vendas"},
    {"TelVendas", "Tel / vendas"},              {"Produto", "Produtos"}};

} // namespace

Fornecedor::Fornecedor(QWidget* pai) : TelaCadastro(pai)
{
    auto* g = new QGridLayout(corpo());
    m_busca = new QLineEdit(corpo());
    m_busca->setObjectName(QStringLiteral("Text3"));
    m_busca->setToolTip(QStringLiteral("Digite o código ou o nome da empresa"));
    g->addWidget(new QLabel(QStringLiteral("Pesquisar"), corpo()), 0, 0);
    g->addWidget(m_busca, 0, 1, 1, 3);

    auto* codigo = new QLabel(corpo());
    codigo->setObjectName(QStringLiteral("Label2(0)"));
    g->addWidget(new QLabel(QStringLiteral("Código do fornecedor"), corpo()), 1, 0);
    g->addWidget(codigo, 1, 1);

    using T = CampoCadastro::Tipo;
    QList<CampoCadastro> lista{{codigo, QStringLiteral("CodFornecedor"), T::Exibicao}};
    // Names and address take the whole line; the pairs of e-mail and telephone share one.
    int linha = 2;
    for (int i = 0; i < NumCampos; ++i) {
        auto* le = new QLineEdit(corpo());
        le->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        m_textos << le;
        lista << CampoCadastro{le, QString::fromLatin1(Campos[i].coluna), T::Texto};
        auto* rotulo = new QLabel(QString::fromUtf8(Campos[i].rotulo), corpo());
        const bool larga = i <= Endereco || i == Site || i == Produto;
        const bool direita = !larga && (i == Ie || i == TelFax || i == TelSac || i == TelSuporte || i == TelVendas);
        if (larga) {
            g->addWidget(rotulo, linha, 0);
            g->addWidget(le, linha++, 1, 1, 3);
        } else if (!direita) {
            g->addWidget(rotulo, linha, 0);
            g->addWidget(le, linha, 1);
        } else {
            g->addWidget(rotulo, linha, 2);
            g->addWidget(le, linha++, 3);
        }
    }
    auto* obs = new QPlainTextEdit(corpo());
    obs->setObjectName(QStringLiteral("Text1(%1)").arg(NumCampos));
    obs->setMaximumHeight(80);
    g->addWidget(new QLabel(QStringLiteral("Observação"), corpo()), linha, 0);
    g->addWidget(obs, linha, 1, 1, 3);
    g->setRowStretch(linha + 1, 1);
    lista << CampoCadastro{obs, QStringLiteral("Observacao"), T::Texto};

    CamposDocumento::preparaCnpjCpf(m_textos[CnpjCpf]);
    CamposDocumento::preparaTelefone(m_textos[Celular]);
    CamposDocumento::preparaTelefone(m_textos[TelFax]);

    def().tabela = QStringLiteral("Fornecedor");
    def().titulo = QStringLiteral("Cadastro de fornecedor");
    def().colunaCodigo = QStringLiteral("CodFornecedor");
    def().colunaCarimbo = QStringLiteral("Alterado");
    def().direito = QStringLiteral("DireitoFornecedorAl");
    def().senhaOrigem = QStringLiteral("Fornecedor");
    def().buscaViva = m_busca;
    def().condicaoBuscaViva = [](Banco& banco, const QString& texto) {
        return BuscaCodigo::codigoEColuna(banco, QStringLiteral("Fornecedor"), QStringLiteral("CodFornecedor"),
                                          QStringLiteral("NomeEmpresa"), texto);
    };
    campos() = lista;
    resize(720, 600);
    iniciar();
}

void Fornecedor::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && estado() == Estado::Navegacao)
        incluirOuCancelar();
}

void Fornecedor::mostraFornecedor(const QString& codigo, const QString& nome)
{
    m_busca->setText(codigo + nome);
}

void Fornecedor::limpaCampos()
{
    TelaCadastro::limpaCampos();
    CamposDocumento::mostraCnpjCpf(m_textos[CnpjCpf], QString());
}

void Fornecedor::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    m_textos[Celular]->setText(MascaraTelefone(rs.texto(QStringLiteral("Celular"))));
    m_textos[TelFax]->setText(MascaraTelefone(rs.texto(QStringLiteral("TelFax"))));
    CamposDocumento::mostraCnpjCpf(m_textos[CnpjCpf], rs.texto(QStringLiteral("CnpjCpf")));
}

bool Fornecedor::validaAntesDeGravar()
{
    return CamposDocumento::checaSeDigitado(m_textos[CnpjCpf]);
}

void Fornecedor::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    rs.definir(QStringLiteral("Celular"), CamposDocumento::paraGravar(m_textos[Celular]->text(), MascaraTelefone));
    rs.definir(QStringLiteral("TelFax"), CamposDocumento::paraGravar(m_textos[TelFax]->text(), MascaraTelefone));
    rs.definir(QStringLiteral("CnpjCpf"), CamposDocumento::paraGravar(m_textos[CnpjCpf]->text(), MascaraCnpjCpf));
}

TOLDEX_REGISTRA_TELA(Fornecedor)
