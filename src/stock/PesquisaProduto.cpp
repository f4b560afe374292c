#include "stock/PesquisaProduto.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QSqlRecord>
#include <QTimer>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Dinheiro.h"
#include "data/Quantidade.h"
#include "registers/EntregaTelas.h"
#include "stock/Produto.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {

const QString FlagDestino = QStringLiteral("Destino");
enum Opcao { OpCodigo, OpOriginal, OpDescricao, OpEquivalente };

bool ehDinheiro(const QString& coluna)
{
    for (const char* c : {"PrecoVenda", "PrecoCusto", "ValorDesconto", "PrecoMinimo"})
        if (coluna.compare(QLatin1String(c), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

} // namespace

PesquisaProduto::PesquisaProduto(QWidget* pai) : TelaPesquisa(pai)
{
    m_tabela = QStringLiteral("Produto");
    m_titulo = QStringLiteral("Pesquisa produto");
    m_tituloContagem = QStringLiteral("Busca produto");
    m_colunaCodigo = QStringLiteral("codpeca");
    m_colunaNome = QStringLiteral("Descricao");
    m_opcoes = {{QStringLiteral("Código"), QStringLiteral("codpeca"), true},
                {QStringLiteral("Cód &Original"), QStringLiteral("CodOriginal"), true},
                {QStringLiteral("&Descrição"), QStringLiteral("Descricao"), true},
                {QStringLiteral("&Equivalente"), QStringLiteral("Equivalente"), true}};
    m_grade = {{QStringLiteral("Armazenado"), QStringLiteral("Local"), 70},
               {QStringLiteral("codpeca"), QStringLiteral("Código"), 90},
               {QStringLiteral("CodOriginal"), QStringLiteral("Cód original"), 90},
               {QStringLiteral("Descricao"), QStringLiteral("Descrição"), 260},
               {QStringLiteral("Equivalente"), QStringLiteral("Equivalente"), 140},
               {QStringLiteral("PrecoVenda"), QStringLiteral("Venda"), 75},
               {QStringLiteral("Revendedor"), QStringLiteral("Fornecedor"), 150},
               {QStringLiteral("PrecoCusto"), QStringLiteral("Custo"), 75},
               {QStringLiteral("ValorDesconto"), QStringLiteral("Desconto"), 70},
               {QStringLiteral("PrecoMinimo"), QStringLiteral("Mínimo"), 75},
               {QStringLiteral("Aliquota"), QStringLiteral("ICMS"), 45},
               {QStringLiteral("Categoria"), QStringLiteral("Categoria"), 90},
               {QStringLiteral("GrupoProduto"), QStringLiteral("Grupo"), 90},
               {QStringLiteral("Unidade"), QStringLiteral("Un"), 40},
               {QStringLiteral("SubGrupoProduto"), QStringLiteral("Subgrupo"), 90},
               {QStringLiteral("CodPecAut"), QStringLiteral("CodPecAut"), 0}};
    m_ordemChamadores = {FlagDestino};
    m_espera = new QTimer(this);
    m_espera->setSingleShot(true);
    m_espera->setInterval(EsperaDigitacaoMs);
    connect(m_espera, &QTimer::timeout, this, &PesquisaProduto::buscaAoDigitar);
    resize(1200, 520);
    iniciar();
    for (int i = OpCodigo; i <= OpEquivalente; ++i)
        if (auto* t = findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(i)))
            t->setToolTip(QStringLiteral("Digite e tecle enter"));
    if (auto* t = findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(OpDescricao)))
        connect(t, &QLineEdit::textEdited, m_espera, qOverload<>(&QTimer::start));
    auto* rotulo = new QLabel(textoInicial(), this);
    rotulo->setObjectName(QStringLiteral("Label1"));
    layoutTopo()->addWidget(rotulo);
    escolheOpcao(OpDescricao);
}

void PesquisaProduto::defineDestino(const QVariantMap& dados)
{
    m_destino = dados.value(QStringLiteral("Destino")).toString();
    m_kit = dados.value(QStringLiteral("Kit")).toBool();
    if (m_destino.isEmpty())
        return;
    definirChamador(FlagDestino, [this](const QSqlRecord& produto) { entrega(produto); });
    escolheOpcao(OpDescricao);
}

QVariantMap PesquisaProduto::dadosDoProduto(const QSqlRecord& p, bool kit)
{
    return {{QStringLiteral("CodPecAut"), p.value(QStringLiteral("CodPecAut")).toLongLong()},
            {QStringLiteral("CodPeca"), p.value(QStringLiteral("codpeca")).toString()},
            {QStringLiteral("Descricao"), p.value(QStringLiteral("Descricao")).toString()},
            {QStringLiteral("Unidade"), p.value(QStringLiteral("Unidade")).toString()},
            {QStringLiteral("ValorVenda"), p.value(QStringLiteral("PrecoVenda")).toLongLong()},
            {QStringLiteral("ValorCusto"), p.value(QStringLiteral("PrecoCusto")).toLongLong()},
            {QStringLiteral("Estoque"),
             Quantidade::deMilesimos(p.value(QStringLiteral("Quantidadeestoque")).toLongLong()).texto()},
            {QStringLiteral("Kit"), kit}};
}

void PesquisaProduto::entrega(const QSqlRecord& produto)
{
    const QVariantMap dados = dadosDoProduto(produto, m_kit);
    if (m_kit) {
        // The kit list takes one item after another: the search stays in front for more.
        QWidget* alvo = RegistroTelas::aberta(m_destino);
        if (!alvo) {
            Dialogos::mensagem(this, QStringLiteral("A tela que pediu o produto foi fechada."), m_titulo);
            return;
        }
        QMetaObject::invokeMethod(alvo, "recebeProduto", Q_ARG(QVariantMap, dados));
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
            sub->raise();
        activateWindow();
        return;
    }
    const QString destino = m_destino;
    if (destino == QLatin1String("Produto"))
        acaoPadrao(produto);
    else {
        EntregaTelas::abrirCom(destino, EntregaTelas::RecebeProduto, dados);
        RegistroTelas::fecharJanela(this);
    }
}

void PesquisaProduto::acaoPadrao(const QSqlRecord& produto)
{
    auto* cadastro = qobject_cast<Produto*>(RegistroTelas::abrir(QStringLiteral("Produto")));
    if (cadastro && cadastro->mostraProduto(produto.value(QStringLiteral("CodPecAut")).toLongLong()))
        RegistroTelas::fecharJanela(this);
}

void PesquisaProduto::buscaAoDigitar()
{
    m_espera->stop();
    auto* caixa = findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(OpDescricao));
    if (!banco() || !caixa)
        return;
    const QString texto = caixa->text();
    if (texto.trimmed().isEmpty()) {
        esvazia();
        return;
    }
    try {
        mostraConsulta(Busca::porTexto(*banco(), m_tabela, QStringLiteral("Descricao"), texto, true),
                       QStringLiteral("Descricao"));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
    }
}

QString PesquisaProduto::textoCelula(const QString& coluna, const QVariant& valor) const
{
    if (ehDinheiro(coluna))
        return Dinheiro::deCentavos(valor.toLongLong()).texto();
    return valor.toString();
}

bool PesquisaProduto::eventFilter(QObject* alvo, QEvent* e)
{
    // Enter runs the search of live products: a typing search still waiting gives way.
    if (e->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent*>(e)->key();
        if ((k == Qt::Key_Return || k == Qt::Key_Enter) && qobject_cast<QLineEdit*>(alvo))
            m_espera->stop();
    }
    return TelaPesquisa::eventFilter(alvo, e);
}

void PesquisaProduto::closeEvent(QCloseEvent* e)
{
    m_espera->stop();
    m_destino.clear();
    m_kit = false;
    TelaPesquisa::closeEvent(e);
}

TOLDEX_REGISTRA_TELA(PesquisaProduto)
