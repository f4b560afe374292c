#include "stock/Produto.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <tuple>

#include "data/Banco.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "registers/EntregaTelas.h"
#include "stock/CodigoBarras.h"
#include "stock/Grupos.h"
#include "stock/Margem.h"
#include "stock/Produtos.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/FotoCadastro.h"
#include "ui/RegistroTelas.h"

namespace {

// The boxes that take only digits and the comma at the key: quantities, amounts, rates.
bool soNumeros(int caixa)
{
    using P = Produto;
    for (int c : {P::Estoque, P::Minima, P::Embalagem, P::Custo, P::Venda, P::Lucro, P::Icms, P::PrecoMinimo,
                  P::LucroMinimo, P::Comissao})
        if (c == caixa)
            return true;
    return false;
}

} // namespace

Produto::Produto(QWidget* pai) : TelaCadastro(pai)
{
    montaTela();
    m_foto = new FotoCadastro(this, m_imagem, m_imagemCaminho, 80);
    m_foto->defineVazia(QStringLiteral(":/toldex.png"));

    using T = CampoCadastro::Tipo;
    def().tabela = QStringLiteral("Produto");
    def().titulo = QStringLiteral("Cadastro de produto");
    def().colunaOrdem = QStringLiteral("codpeca");
    def().direito = QStringLiteral("DireitoProdutoAl");
    def().senhaOrigem = QStringLiteral("Produto");
    def().obrigatorio = texto(Codigo);
    def().mensagemObrigatorio = QStringLiteral("Não pode ficar vazio a caixa código interno loja");
    // The till and the bench lower the stock while the register stands open.
    def().colunasMovidasFora = {QStringLiteral("Quantidadeestoque"), QStringLiteral("QuantidadeReservada")};
    const QList<QPair<int, const char*>> textos = {
        {Codigo, "codpeca"}, {Ean13, "CodEAN13"}, {Dun14, "CodDUN14"}, {Descricao, "Descricao"},
        {Equivalente, "Equivalente"}, {LocalVenda, "Armazenado"}, {LocalEstoque, "ArmazenadoEstoque"},
        {NotaFiscal, "NotaFiscal"}, {DataCompra, "DataCompra"}, {Lucro, "PorcentagemLucro"},
        {LucroMinimo, "LucroMinimo"}, {Comissao, "ValorComissao"}, {Observacao, "Observacao"},
        {Categoria, "Categoria"}, {Icms, "Aliquota"}, {Ncm, "CodNCM"}, {CodOriginal, "CodOriginal"},
        {Modulo, "Modulo"}};
    for (const auto& [caixa, coluna] : textos)
        campos().append({texto(caixa), QString::fromLatin1(coluna), soNumeros(caixa) ? T::Numero : T::Texto});
    for (int caixa : {Custo, Venda, PrecoMinimo})
        campos().append({texto(caixa),
                         QString::fromLatin1(caixa == Custo ? "PrecoCusto" : caixa == Venda ? "PrecoVenda" : "PrecoMinimo"),
                         T::Dinheiro});
    // The quantities are written below: the stock only by what was typed over it.
    for (int caixa : {Estoque, Minima, Embalagem})
        campos().append({texto(caixa), QString(), T::Numero});
    campos() << CampoCadastro{m_fabricante, QStringLiteral("Fabricante"), T::Texto}
             << CampoCadastro{m_revendedor, QStringLiteral("Revendedor"), T::Texto}
             << CampoCadastro{m_aliquota, QStringLiteral("DescricaoAliquota"), T::Texto}
             << CampoCadastro{m_grupo, QStringLiteral("GrupoProduto"), T::Texto}
             << CampoCadastro{m_subgrupo, QStringLiteral("SubGrupoProduto"), T::Texto}
             << CampoCadastro{m_unidade, QStringLiteral("Unidade"), T::Texto}
             << CampoCadastro{m_comissao, QStringLiteral("AtivaComissao"), T::Flag}
             << CampoCadastro{m_imagemCaminho, QStringLiteral("FotoImagem"), T::Texto};
    resize(1000, 660);
    if (iniciar())
        carregaListas();
    for (int caixa : {Custo, Venda, Lucro, PrecoMinimo, LucroMinimo, Icms, Comissao})
        Campos::preparaLinha(texto(caixa), true);
    connect(texto(Estoque), &QLineEdit::textEdited, this, [this] { m_estoqueDigitado = true; });
}

Produto::~Produto() = default;

QString Produto::nomeImagem(const QString& base) const
{
    return QDir(FotoCadastro::pasta()).filePath(base + QStringLiteral(".Jpg"));
}

void Produto::carregaListas()
{
    if (!banco())
        return;
    try {
        const QString fab = m_fabricante->currentText(), rev = m_revendedor->currentText();
        const auto nomes = Produtos::nomesFornecedores(*banco());
        m_fabricante->clear();
        m_fabricante->addItems(nomes.fabricantes);
        m_fabricante->setEditText(fab);
        m_revendedor->clear();
        m_revendedor->addItems(nomes.revendedores);
        m_revendedor->setEditText(rev);
        const QString grupo = m_grupo->currentText(), aliquota = m_aliquota->currentText();
        m_grupo->clear();
        for (const Grupos::Linha& l : Grupos::grupos(*banco()))
            m_grupo->addItem(l.nome, l.codigo);
        m_grupo->setEditText(grupo);
        m_aliquota->clear();
        for (const Grupos::Linha& l : Grupos::aliquotas(*banco()))
            m_aliquota->addItem(l.nome, l.icms);
        m_aliquota->setEditText(aliquota);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void Produto::carregaSubgrupos()
{
    const QString atual = m_subgrupo->currentText();
    m_subgrupo->clear();
    const int i = m_grupo->findText(m_grupo->currentText());
    if (i < 0 || !banco())
        return;
    try {
        for (const Grupos::Linha& l : Grupos::subgrupos(*banco(), m_grupo->itemData(i).toLongLong()))
            m_subgrupo->addItem(l.nome, l.codigo);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_subgrupo->setEditText(atual);
}

// --- modes and hand-overs ----------------------------------------------------------------

void Produto::incluir()
{
    const bool abrindo = botao(0)->text() == QLatin1String("&Incluir");
    incluirOuCancelar();
    if (!abrindo || !novo() || !banco())
        return;
    try {
        texto(Codigo)->setText(QString::number(Produtos::proximoCodigo(*banco())));
        texto(Codigo)->selectAll();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

void Produto::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && estado() == Estado::Navegacao)
        incluir();
}

bool Produto::mostraProduto(qint64 codPecAut)
{
    if (alterado() || novo()) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração do cadastro antes de abrir outro produto."));
        return false;
    }
    if (!irChave(codPecAut)) {
        Dialogos::mensagem(this, QStringLiteral("Este produto não está entre os produtos ativos do cadastro."),
                           QStringLiteral("Cadastro de produto"));
        return false;
    }
    m_abas->setCurrentIndex(0);
    return true;
}

void Produto::recebeProduto(const QVariantMap& dados)
{
    if (!dados.value(QStringLiteral("Kit")).toBool()) {
        mostraProduto(dados.value(QStringLiteral("CodPecAut")).toLongLong());
        return;
    }
    if (!novo() && chaveAtual() < 0) {
        Dialogos::mensagem(this, QStringLiteral("Inclua ou escolha o produto do kit antes de adicionar itens."));
        return;
    }
    std::optional<ItemKit> item;
    try {
        item = KitProduto::itemDoProduto(*banco(), dados.value(QStringLiteral("CodPecAut")).toLongLong());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return;
    }
    if (!item) {
        Dialogos::mensagem(this, QStringLiteral("Este registro não existe mais; pesquise novamente."));
        return;
    }
    if (item->codpeca == texto(Codigo)->text()) {
        Dialogos::mensagem(this, QStringLiteral("Um kit não pode conter ele mesmo."), QStringLiteral("Proibido"));
        return;
    }
    m_itens << *item;
    mostraKit();
    m_avisoKit->setText(QStringLiteral("Adicionado lista"));
    if (!novo())
        marcaAlterado();
}

void Produto::adicionaKit()
{
    m_abas->setCurrentIndex(1);
    EntregaTelas::abrirCom(QStringLiteral("PesquisaProduto"), EntregaTelas::DefineDestino,
                           {{QStringLiteral("Destino"), QStringLiteral("Produto")}, {QStringLiteral("Kit"), true}});
}

void Produto::removeItemKit(int linha)
{
    if (linha < 0 || linha >= m_itens.size()) {
        Dialogos::mensagem(this, QStringLiteral("Não tem item"), QStringLiteral("Proibido"));
        return;
    }
    if (!novo() && chaveAtual() < 0)
        return;
    m_itens.removeAt(linha);
    mostraKit();
    m_avisoKit->setText(QStringLiteral("Removido"));
    if (!novo())
        marcaAlterado();
}

bool Produto::botaoDisponivel(int indice) const
{
    if (indice == BotaoKit || indice == Pesquisa)
        return EntregaTelas::disponivel(QStringLiteral("PesquisaProduto"));
    return true;
}

// --- showing ------------------------------------------------------------------------------

void Produto::mostraKit()
{
    m_lprod->setRowCount(m_itens.size());
    for (int r = 0; r < m_itens.size(); ++r) {
        const ItemKit& i = m_itens[r];
        const QStringList celulas = {i.codpeca, i.descricao, i.quantidade.texto(), i.valorVenda.texto(),
                                     i.total().texto(), i.fornecedor};
        for (int c = 0; c < celulas.size(); ++c) {
            auto* item = new QTableWidgetItem(celulas[c]);
            if (c >= 2 && c <= 4)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_lprod->setItem(r, c, item);
        }
    }
    texto(SomaKit)->setText(KitProduto::soma(m_itens).texto());
}

void Produto::mostraBarras()
{
    QString erro;
    const QImage img = CodigoBarras::ean13(texto(Ean13)->text(), &erro);
    if (img.isNull()) {
        m_barras->setPixmap(QPixmap());
        m_barras->setText(texto(Ean13)->text().trimmed().isEmpty() ? QString() : erro);
        return;
    }
    m_barras->setPixmap(QPixmap::fromImage(img));
}

void Produto::limpaCampos()
{
    TelaCadastro::limpaCampos();
    m_reservada->clear();
    m_codigoCarregado->clear();
    m_itens.clear();
    mostraKit();
    texto(SomaKit)->clear();
    m_avisoKit->clear();
    m_codigoLido.clear();
    m_estoqueLido = Quantidade();
    m_estoqueDigitado = false;
    m_unidade->setEditText(QStringLiteral("UN"));
    m_foto->mostra(QString());
    mostraBarras();
}

void Produto::bloqueiaCampos()
{
    TelaCadastro::bloqueiaCampos();
    m_lprod->setEnabled(false);
    for (int b : {Imagem, BotaoKit, WebCam, Foto, ParaPrevia})
        botao(b)->setEnabled(false);
}

void Produto::liberaCampos()
{
    TelaCadastro::liberaCampos();
    m_lprod->setEnabled(true);
    for (int b : {Imagem, BotaoKit, WebCam, Foto, ParaPrevia})
        botao(b)->setEnabled(botaoDisponivel(b));
}

void Produto::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    m_codigoLido = rs.texto(QStringLiteral("codpeca"));
    m_estoqueLido = rs.quantidade(QStringLiteral("Quantidadeestoque"));
    m_estoqueDigitado = false;
    texto(Estoque)->setText(m_estoqueLido.texto());
    texto(Minima)->setText(rs.quantidade(QStringLiteral("QuantidadeMinima")).texto());
    texto(Embalagem)->setText(rs.quantidade(QStringLiteral("QuantidadeEmbalagem")).texto());
    m_reservada->setText(rs.quantidade(QStringLiteral("QuantidadeReservada")).texto());
    {
        const QSignalBlocker b(m_chaveCarregada);
        m_codigoCarregado->setText(m_codigoLido);
        m_chaveCarregada->setText(QString::number(rs.chaveAtual()));
    }
    carregaSubgrupos();
    m_subgrupo->setEditText(rs.texto(QStringLiteral("SubGrupoProduto")));
    try {
        m_itens = KitProduto::carregar(*banco(), m_codigoLido);
    } catch (const ErroBanco& e) {
        m_itens.clear();
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    mostraKit();
    m_avisoKit->clear();
    m_foto->mostra(rs.texto(QStringLiteral("FotoImagem")));
    mostraBarras();
}

// --- price arithmetic ----------------------------------------------------------------------

void Produto::saiDoPreco(int caixaPreco, int caixaMargem)
{
    // Passing through a box without typing in it changes nothing.
    if (!texto(caixaPreco)->isModified())
        return;
    const auto preco = Dinheiro::lerTexto(texto(caixaPreco)->text());
    if (!preco || texto(caixaPreco)->text().trimmed().isEmpty())
        return;  // the save tells what is wrong; the box keeps what was typed
    texto(caixaPreco)->setText(preco->texto());
    if (caixaMargem < 0)
        return;
    const auto custo = custoDigitado();
    const auto margem = custo ? Margem::deCustoEVenda(*custo, *preco) : std::nullopt;
    texto(caixaMargem)->setText(margem ? Margem::textoPorcentagem(*margem) : QString());
}

std::optional<Dinheiro> Produto::custoDigitado() const
{
    // An empty cost is no cost; one that isn't an amount gives no margin and no price.
    const QString t = texto(Custo)->text();
    return t.trimmed().isEmpty() ? std::optional(Dinheiro()) : Dinheiro::lerTexto(t);
}

void Produto::saiDaMargem(int caixaPreco, int caixaMargem)
{
    if (!texto(caixaMargem)->isModified())
        return;
    const auto margem = Margem::lerPorcentagem(texto(caixaMargem)->text());
    if (!margem)
        return;
    const auto custo = custoDigitado();
    if (!custo)
        return;  // a price from a cost that isn't an amount would be 0,00; the save tells why
    texto(caixaPreco)->setText(Margem::vendaDeMargem(*custo, *margem).texto());
    texto(caixaMargem)->setText(Margem::textoPorcentagem(*margem));
}

// --- saving ---------------------------------------------------------------------------------

bool Produto::validaAntesDeGravar()
{
    for (int c : {Estoque, Minima, Embalagem}) {
        const QString t = texto(c)->text();
        if (!t.trimmed().isEmpty() && !Quantidade::lerTexto(t)) {
            Dialogos::mensagem(this, QStringLiteral("Quantidade inválida: digite como 1,5"), {}, Dialogos::Icone::Aviso);
            m_abas->setCurrentIndex(0);
            texto(c)->setFocus();
            return false;
        }
    }
    for (int c : {Lucro, LucroMinimo, Comissao}) {
        const QString t = texto(c)->text();
        if (!t.trimmed().isEmpty() && !Margem::lerPorcentagem(t)) {
            Dialogos::mensagem(this, QStringLiteral("Porcentagem inválida: digite como 12,5"), {}, Dialogos::Icone::Aviso);
            m_abas->setCurrentIndex(0);
            texto(c)->setFocus();
            return false;
        }
    }
    return true;
}

QString Produto::impedimentoAoGravar()
{
    // An unchanged code of an older store that two products share may still be saved.
    const QString codigo = texto(Codigo)->text();
    if ((novo() || codigo != m_codigoLido)
        && Produtos::codigoEmUso(*banco(), codigo, novo() ? -1 : chaveAtual()))
        return Produtos::MensagemCodigoEmUso;
    return {};
}

void Produto::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    auto quantidade = [this](int caixa, Quantidade vazia) {
        return Quantidade::lerTexto(texto(caixa)->text()).value_or(vazia);
    };
    rs.definir(QStringLiteral("QuantidadeMinima"), quantidade(Minima, Quantidade()));
    rs.definir(QStringLiteral("QuantidadeEmbalagem"), quantidade(Embalagem, Quantidade::unidades(1)));
    if (novo())
        rs.definir(QStringLiteral("Quantidadeestoque"), quantidade(Estoque, Quantidade()));
    else if (m_estoqueDigitado)
        // Only what the user typed over the figure shown moves: the till's sales stay.
        Produtos::somaEstoque(*banco(), chaveAtual(), quantidade(Estoque, Quantidade()) - m_estoqueLido);
    for (const auto& [caixa, coluna, vazio] : {std::tuple{int(Lucro), "PorcentagemLucro", "0,00"},
                                               std::tuple{int(LucroMinimo), "LucroMinimo", "0,00"},
                                               std::tuple{int(Comissao), "ValorComissao", "0"}})
        if (texto(caixa)->text().trimmed().isEmpty())
            rs.definir(QString::fromLatin1(coluna), QString::fromLatin1(vazio));
    if (m_unidade->currentText().trimmed().isEmpty())
        rs.definir(QStringLiteral("Unidade"), QStringLiteral("UN"));
    rs.definirFlag(QStringLiteral("KitProduto"), !m_itens.isEmpty());
    KitProduto::gravar(*banco(), novo() ? QString() : m_codigoLido, texto(Codigo)->text(), m_itens);
}

void Produto::excluiDependentes(bool fisica)
{
    // Into the bin the kit stays whole, to come back with the product.
    if (fisica)
        KitProduto::excluirSemProduto(*banco(), m_codigoLido);
}

TOLDEX_REGISTRA_TELA(Produto)
