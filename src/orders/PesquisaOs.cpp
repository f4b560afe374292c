#include "orders/PesquisaOs.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlRecord>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "orders/TelasOrdem.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

using BuscaOrdens::Modo;

namespace {

const QString TituloOrdens = QStringLiteral("Pesquisa Ordem Serviço");
const QString TituloVisitas = QStringLiteral("Pesquisa O.S de Visita");
const QString Visita = QStringLiteral("OrdemVisita");
constexpr int ColunaRevendedor = 7;
constexpr int LarguraRevendedor = 133;

// Widths of the original grid, in twips (15 to a pixel on the screens the shop had).
constexpr int px(int twips) { return twips / 15; }

const QList<TelaPesquisa::ColunaGrade> GradeOrdens = {
    {QStringLiteral("CodOs"), QStringLiteral("O.S"), px(850)},
    {QStringLiteral("NomeCliente"), QStringLiteral("Nome"), px(4000)},
    {QStringLiteral("Telefone"), QStringLiteral("Telefone"), px(2000)},
    {QStringLiteral("Tipo"), QStringLiteral("Tipo"), px(2000)},
    {QStringLiteral("Marca"), QStringLiteral("Marca"), px(2000)},
    {QStringLiteral("Modelo"), QStringLiteral("Modelo"), px(2000)},
    {QStringLiteral("CodCliente"), QStringLiteral("Cód/Cli"), px(850)},
    {QStringLiteral("Revendedor"), QStringLiteral("Revendedor/Loja"), 0},
    {QStringLiteral("CodOsAut"), QStringLiteral("CodOsAut"), px(1000)},
};

// A visit has no appliance: who asked, where, and for when.
const QList<TelaPesquisa::ColunaGrade> GradeVisitas = {
    {QStringLiteral("CodManu"), QStringLiteral("O.S"), px(850)},
    {QStringLiteral("NomeCliente"), QStringLiteral("Nome"), px(4000)},
    {QStringLiteral("EndTel"), QStringLiteral("Endereço/Telefone"), px(5000)},
    {QStringLiteral("DataSolicitada"), QStringLiteral("Data Solicitada"), px(1500)},
};

} // namespace

PesquisaOs::PesquisaOs(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("OrdemServico");
    m_titulo = QStringLiteral("Busca Ordem de Serviço");
    m_colunaCodigo = QStringLiteral("CodOs");
    m_colunaNome = QStringLiteral("CodOsAut");
    const QStringList rotulos = {QStringLiteral("Número"), QStringLiteral("Nome"), QStringLiteral("Telefone"),
                                 QStringLiteral("Tipo"), QStringLiteral("Marca"), QStringLiteral("Modelo"),
                                 QStringLiteral("Cód Cliente"), QStringLiteral("Revendedor")};
    for (int i = 0; i < BuscaOrdens::CaixasPesquisa; ++i) {
        const BuscaOrdens::Criterio c = BuscaOrdens::criterioPesquisa(i, Modo::Saida);
        m_opcoes << Opcao{rotulos[i], c.coluna, c.meio};
    }
    m_grade = GradeOrdens;
    iniciar();

    m_incluirVisita = new QPushButton(QStringLiteral("&Incluir novo pedido de Visita"), this);
    m_incluirVisita->setObjectName(QStringLiteral("Botao(0)"));
    connect(m_incluirVisita, &QPushButton::clicked, this, &PesquisaOs::incluiVisita);
    auto* linha = new QHBoxLayout;
    linha->addStretch();
    linha->addWidget(m_incluirVisita);
    if (auto* raiz = qobject_cast<QVBoxLayout*>(layout()))
        raiz->addLayout(linha);

    // A search that finds nothing (or an emptied box) leaves no empty grid standing.
    if (auto* grade = findChild<QTableView*>(QStringLiteral("Grade")))
        connect(grade->model(), &QAbstractItemModel::modelReset, grade,
                [grade] { grade->setVisible(grade->model()->rowCount() > 0); });
    resize(1180, 520);
    m_visita = modo() != Modo::Visita;  // the opposite of what is wanted, so the first shaping happens
    aplicaModo();
}

Modo PesquisaOs::modo() const
{
    const Sessao& s = sessao();
    if (s.ListaEntrada == 1)
        return Modo::Entrada;
    if (s.ListaSaida == 1)
        return Modo::Saida;
    if (s.ListaTecnico == 1)
        return Modo::Tecnico;
    if (s.ListaVisita == 1)
        return Modo::Visita;
    return Modo::Nenhum;
}

void PesquisaOs::abrirNoModo(const QString& modo)
{
    Sessao& s = sessao();
    s.ListaEntrada = modo == QLatin1String("Entrada") ? 1 : 0;
    s.ListaSaida = modo == QLatin1String("Saida") ? 1 : 0;
    s.ListaTecnico = modo == QLatin1String("Tecnico") ? 1 : 0;
    s.ListaVisita = modo == QLatin1String("ListaVisita") ? 1 : 0;
    aplicaModo();
}

void PesquisaOs::aplicaModo()
{
    const bool visita = modo() == Modo::Visita;
    m_incluirVisita->setVisible(visita);
    setWindowTitle(visita ? TituloVisitas : TituloOrdens);
    if (visita == m_visita)
        return;
    m_visita = visita;
    const Modo m = visita ? Modo::Visita : Modo::Saida;
    m_tabela = visita ? QStringLiteral("VisitaTecnico") : QStringLiteral("OrdemServico");
    m_colunaCodigo = visita ? QStringLiteral("CodManu") : QStringLiteral("CodOs");
    m_colunaNome = visita ? QStringLiteral("Chave") : QStringLiteral("CodOsAut");
    for (int i = 0; i < m_opcoes.size(); ++i) {
        const bool existe = !visita || BuscaOrdens::caixaDaVisita(i);
        if (existe) {
            const BuscaOrdens::Criterio c = BuscaOrdens::criterioPesquisa(i, m);
            m_opcoes[i].coluna = c.coluna;
            m_opcoes[i].meio = c.meio;
        }
        if (auto* op = findChild<QRadioButton*>(QStringLiteral("Option1(%1)").arg(i)))
            op->setVisible(existe);
    }
    redefineGrade(visita ? GradeVisitas : GradeOrdens);
    escolheOpcao(0);
}

Condicao PesquisaOs::condicaoBusca(const Opcao& opcao, const QString& texto)
{
    const int caixa = int(&opcao - m_opcoes.constData());
    const Modo m = m_visita ? Modo::Visita : Modo::Saida;
    m_tituloContagem = (m_visita ? QStringLiteral("Busca Ordem de Visita - ") : QStringLiteral("Busca Ordem Serviço - "))
        + texto;
    if (!m_visita)
        defineLarguraColuna(ColunaRevendedor, caixa == ColunaRevendedor ? LarguraRevendedor : 0);
    const BuscaOrdens::Criterio criterio = BuscaOrdens::criterioPesquisa(caixa, m);
    m_ordem = criterio.ordem;
    return BuscaOrdens::condicao(*banco(), criterio, texto);
}

QString PesquisaOs::textoCelula(const QString& coluna, const QVariant& valor) const
{
    const QString t = valor.toString();
    if (t.isEmpty())
        return t;
    if (coluna == QLatin1String("Telefone"))
        return MascaraTelefone(t);
    if (coluna == QLatin1String("DataSolicitada"))
        return Datas::bancoParaTela(t);
    return t;
}

void PesquisaOs::acaoPadrao(const QSqlRecord& linha)
{
    QVariantMap valores;
    for (const char* c : {"CodOs", "CodOsAut", "CodCliente", "NomeCliente", "CodManu"})
        valores.insert(QString::fromLatin1(c), linha.value(QString::fromLatin1(c)));
    const BuscaOrdens::Destino d = BuscaOrdens::destino(modo(), TelasOrdem::abreCompleta(), valores);
    if (d.tela.isEmpty()) {
        // Closing the search cleared where it was meant to lead.
        Dialogos::mensagem(this, QStringLiteral("Abra a pesquisa pelo menu, que diz onde a O.S escolhida vai abrir."),
                           windowTitle(), Dialogos::Icone::Aviso);
        return;
    }
    abreDestino(this, d);
}

bool PesquisaOs::abreDestino(QWidget* pai, const BuscaOrdens::Destino& destino)
{
    if (!EntregaTelas::disponivel(destino.tela)) {
        Dialogos::mensagem(pai, QStringLiteral("%1 não está disponível nesta instalação.").arg(destino.descricao),
                           pai ? pai->windowTitle() : QString(), Dialogos::Icone::Aviso);
        return false;
    }
    return EntregaTelas::abrirCom(destino.tela, destino.metodo, destino.dados) != nullptr;
}

void PesquisaOs::incluiVisita()
{
    if (!EntregaTelas::disponivel(Visita)) {
        Dialogos::mensagem(this, QStringLiteral("A O.S de visita não está disponível nesta instalação."), windowTitle(),
                           Dialogos::Icone::Aviso);
        return;
    }
    QWidget* tela = RegistroTelas::abrir(Visita);
    if (auto* novo = tela ? tela->findChild<QAbstractButton*>(QStringLiteral("Botao(0)")) : nullptr)
        novo->click();
}

void PesquisaOs::closeEvent(QCloseEvent* e)
{
    Sessao& s = sessao();
    s.ListaEntrada = s.ListaSaida = s.ListaTecnico = s.ListaVisita = 0;
    TelaPesquisa::closeEvent(e);
}

TOLDEX_REGISTRA_TELA(PesquisaOs)
