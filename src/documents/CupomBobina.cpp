#include "documents/CupomBobina.h"

#include "cash/Pix.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "documents/BlocoPix.h"
#include "documents/Impressora.h"
#include "stock/CodigoBarras.h"

namespace {
// The bars: wide enough for a hand scanner at 203 dpi, short enough not to waste paper.
constexpr int LarguraBarras = 2800, AlturaBarras = 560;
constexpr int LadoPix = 2000;
}

CupomBobina::CupomBobina(Banco& banco, PedidoFicha pedido, ConfigFicha config)
    : m_banco(banco), m_pedido(std::move(pedido)), m_config(std::move(config))
{
}

CupomBobina::~CupomBobina() = default;

bool CupomBobina::serve(TipoFicha tipo)
{
    switch (tipo) {
    case TipoFicha::Entrada:
    case TipoFicha::Saida:
    case TipoFicha::SaidaCaixa:
    case TipoFicha::ReciboCompleto:
    case TipoFicha::ReciboCompacto: return true;
    default: return false;
    }
}

bool CupomBobina::escolhida() { return Sessao::verdadeiro(sessao().CfgReciboBobina); }

void CupomBobina::carregar()
{
    Recordset e(m_banco);
    e.abrir(QStringLiteral("Empresa"), {}, {}, QStringLiteral("Chave"), 1);
    const bool entrada = m_pedido.tipo == TipoFicha::Entrada;
    if (!e.eof()) {
        const QString doc = e.texto(QStringLiteral("CpfCnpj"));
        QString imposto;
        if (!doc.isEmpty()) {
            imposto = (SoDigitos(doc).size() == 11 ? QStringLiteral("CPF: ") : QStringLiteral("CNPJ: "))
                + MascaraCnpjCpf(doc);
            if (!e.texto(QStringLiteral("IE")).isEmpty())
                imposto += QStringLiteral("  IE: ") + e.texto(QStringLiteral("IE"));
        }
        const QString fone = MascaraTelefone(e.texto(QStringLiteral("Telefone")));
        m_empresa = {e.texto(QStringLiteral("NomeEmpresa")), e.texto(QStringLiteral("EnderecoEmpresa")),
                     fone.isEmpty() ? QString() : QStringLiteral("Tel: ") + fone, imposto};
        // The shop's terms are the messages it prints on its sheets.
        const char* mensagem = entrada ? "MensagemEntrada" : "MensagemSaida";
        const char* imprime = entrada ? "ImpriMenEntrada" : "ImpriMenSaida";
        if (m_pedido.tipo != TipoFicha::ReciboCompacto && m_pedido.tipo != TipoFicha::ReciboCompleto
            && e.flag(QLatin1String(imprime)))
            m_termos = e.texto(QLatin1String(mensagem));
    }
    if (m_pedido.tipo == TipoFicha::ReciboCompacto || m_pedido.tipo == TipoFicha::ReciboCompleto) {
        m_pix = m_pedido.recebimento.pix;
        return;
    }
    m_ordem = std::make_unique<Recordset>(m_banco);
    m_ordem->abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut});
    if (m_ordem->eof())
        throw ErroBanco(QStringLiteral("A ordem de serviço não foi encontrada; nada foi impresso."));
    const QString os = QString::number(m_ordem->inteiro(QStringLiteral("CodOs")));
    m_barras = CodigoBarras::code128(os);
    if (entrada)
        return;
    m_pecas = std::make_unique<Recordset>(m_banco);
    m_pecas->abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut},
                   QStringLiteral("CodPecAut"));
    Recordset mov(m_banco);
    mov.abrir(QStringLiteral("Movimento"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut},
              QStringLiteral("Codmov DESC"), 1);
    if (!mov.eof()) {
        m_formaPagamento = mov.texto(QStringLiteral("Pagamento"));
        if (m_formaPagamento == Pix::FormaPagamento)
            m_pix = Pix::cobrancaDaLoja(mov.dinheiro(QStringLiteral("ValorTotal")) - mov.dinheiro(QStringLiteral("ValorDesconto")),
                                        os);
    }
}

// ---- drawing helpers ----

void CupomBobina::centro(Impressora& p, const QString& texto) const
{
    if (texto.isEmpty())
        return;
    for (const QString& l : p.quebrar(texto, p.width() - Impressora::MargemDireita)) {
        p.setCurrentX(qMax(0, (p.width() - Impressora::MargemDireita - p.textWidth(l)) / 2));
        p.print(l);
    }
}

void CupomBobina::esquerda(Impressora& p, const QString& texto) const
{
    p.setCurrentX(0);
    p.print(texto);
}

// A label at the left and its amount against the right edge, on one line.
void CupomBobina::valor(Impressora& p, const QString& rotulo, const QString& valor) const
{
    p.garantirEspaco(p.alturaLinha());
    const int linha = p.currentY();
    p.setCurrentX(0);
    p.printLinha(rotulo);
    p.setCurrentY(linha);
    p.setCurrentX(p.width() - Impressora::MargemDireita - p.textWidth(valor));
    p.printLinha(valor);
    p.setCurrentY(linha + p.alturaLinha());
    p.setCurrentX(0);
}

void CupomBobina::traco(Impressora& p) const
{
    p.line(0, p.currentY() + 40, p.width() - Impressora::MargemDireita, p.currentY() + 40);
    p.setCurrentY(p.currentY() + 100);
}

void CupomBobina::corte(Impressora& p) const
{
    p.print();
    p.setFontSize(7);
    p.setFontBold(false);
    // Dashes drawn over the whole width, the words in the middle, where the paper is torn.
    centro(p, QStringLiteral("- - - - - - - - corte aqui - - - - - - - -"));
    p.print();
}

// ---- the copy ----

void CupomBobina::imprimir(Impressora& p)
{
    const int copias = qMax(1, m_pedido.copias);
    for (int i = 0; i < copias; ++i)
        copia(p);
}

void CupomBobina::copia(Impressora& p)
{
    cabecalho(p);
    if (m_ordem)
        ordem(p);
    else
        recebimento(p);
    corte(p);
}

void CupomBobina::cabecalho(Impressora& p)
{
    p.setFontBold(true);
    p.setFontSize(10);
    centro(p, m_empresa.value(0));
    p.setFontBold(false);
    p.setFontSize(7);
    for (int i = 1; i < m_empresa.size(); ++i)
        centro(p, m_empresa.at(i));
    traco(p);
    p.setFontBold(true);
    p.setFontSize(8);
    centro(p, QStringLiteral("CUPOM NÃO FISCAL"));
    switch (m_pedido.tipo) {
    case TipoFicha::Entrada: centro(p, QStringLiteral("ENTRADA DE APARELHO")); break;
    case TipoFicha::Saida:
    case TipoFicha::SaidaCaixa: centro(p, QStringLiteral("SAÍDA DE APARELHO")); break;
    default: centro(p, QStringLiteral("RECIBO DE PAGAMENTO")); break;
    }
    p.setFontBold(false);
}

void CupomBobina::ordem(Impressora& p)
{
    Recordset& o = *m_ordem;
    auto v = [&o](const char* c) { return o.texto(QLatin1String(c)); };
    const bool entrada = m_pedido.tipo == TipoFicha::Entrada;
    const QString os = QString::number(o.inteiro(QStringLiteral("CodOs")));

    p.setFontBold(true);
    p.setFontSize(16);
    centro(p, QStringLiteral("O.S: ") + os);
    p.setFontBold(false);
    if (!m_barras.isNull()) {
        p.garantirEspaco(AlturaBarras + 60);
        const int y = p.currentY() + 30;
        p.paintPicture(m_barras, (p.width() - Impressora::MargemDireita - LarguraBarras) / 2, y, LarguraBarras,
                       AlturaBarras);
        p.setCurrentY(y + AlturaBarras + 60);
    }
    p.setFontSize(8);
    valor(p, QStringLiteral("Data entrada:"), Datas::bancoParaTela(v("DataEntrada")));
    if (!entrada)
        valor(p, QStringLiteral("Data saída:"), Datas::bancoParaTela(v("DataSaida")));
    traco(p);

    esquerda(p, QStringLiteral("Cliente: ") + v("NomeCliente"));
    const QStringList fones = {MascaraTelefone(v("Telefone")), MascaraTelefone(v("Celular"))};
    QStringList presentes = fones;
    presentes.removeAll(QString());
    if (!presentes.isEmpty())
        esquerda(p, QStringLiteral("Tel: ") + presentes.join(QStringLiteral(" / ")));
    QStringList aparelho = {v("Tipo"), v("Marca"), v("Modelo")};
    aparelho.removeAll(QString());
    esquerda(p, QStringLiteral("Aparelho: ") + aparelho.join(QLatin1Char(' ')));
    if (!v("NumeroSerie").isEmpty())
        esquerda(p, QStringLiteral("Série: ") + v("NumeroSerie"));
    if (entrada) {
        if (!v("EstadoAparelho").isEmpty())
            esquerda(p, QStringLiteral("Estado: ") + v("EstadoAparelho"));
        if (!v("Acessorio").isEmpty())
            esquerda(p, QStringLiteral("Acessórios: ") + v("Acessorio"));
        esquerda(p, QStringLiteral("Defeito: ") + v("Sintoma"));
    } else {
        esquerda(p, QStringLiteral("Serviço: ") + v("ServicoExecutado"));
    }
    traco(p);

    if (!entrada) {
        // The rows are walked again by every copy and by the dry run that measures the roll.
        if (m_pecas && m_pecas->recordCount() > 0) {
            p.setFontBold(true);
            esquerda(p, QStringLiteral("Peças"));
            p.setFontBold(false);
            for (m_pecas->moveFirst(); !m_pecas->eof(); m_pecas->moveNext()) {
                esquerda(p, m_pecas->texto(QStringLiteral("Descricao")));
                valor(p, QStringLiteral("  %1 x %2").arg(m_pecas->quantidade(QStringLiteral("Quantidade")).texto(),
                                                         m_pecas->dinheiro(QStringLiteral("ValorVenda")).texto()),
                      m_pecas->dinheiro(QStringLiteral("ValorTotal")).texto());
            }
            traco(p);
        }
        valor(p, QStringLiteral("Mão de obra"), o.dinheiro(QStringLiteral("MaoObra")).texto());
        valor(p, QStringLiteral("Peças"), o.dinheiro(QStringLiteral("ValorVenda")).texto());
        p.setFontBold(true);
        p.setFontSize(10);
        valor(p, QStringLiteral("TOTAL R$"), o.dinheiro(QStringLiteral("ValorPagar")).texto());
        p.setFontBold(false);
        p.setFontSize(8);
        valor(p, QStringLiteral("Desconto"), o.dinheiro(QStringLiteral("ValorDesconto")).texto());
        valor(p, QStringLiteral("Valor pago"), o.dinheiro(QStringLiteral("ValorPago")).texto());
        if (!m_formaPagamento.isEmpty())
            valor(p, QStringLiteral("Forma de pagamento"), m_formaPagamento);
        imprimeBlocoPix(p, m_pix, (p.width() - Impressora::MargemDireita - LadoPix) / 2, LadoPix);
        traco(p);
    }
    if (!m_termos.isEmpty()) {
        p.setFontSize(7);
        esquerda(p, m_termos);
        p.print();
    }
    p.setFontSize(8);
    esquerda(p, QStringLiteral("Atendido por: ") + m_config.usuario);
    if (entrada) {
        p.print();
        p.print();
        esquerda(p, QStringLiteral("Ass: ") + QString(30, QLatin1Char('_')));
    }
}

void CupomBobina::recebimento(Impressora& p)
{
    const FichaRecebimento& r = m_pedido.recebimento;
    p.setFontSize(8);
    esquerda(p, QStringLiteral("Cliente: ") + r.cliente);
    valor(p, QStringLiteral("Venda/O.S:"), r.descricao);
    valor(p, QStringLiteral("Parcela:"), r.parcela);
    valor(p, QStringLiteral("Data compra:"), r.dataCompra);
    valor(p, QStringLiteral("Vencimento:"), r.dataVencimento);
    valor(p, QStringLiteral("Valor parcela:"), r.valorParcela);
    traco(p);
    valor(p, QStringLiteral("Data pagamento:"), r.dataPagamento.toString(QStringLiteral("dd/MM/yyyy")));
    valor(p, QStringLiteral("Forma:"), r.tipoRecebido);
    p.setFontBold(true);
    p.setFontSize(10);
    valor(p, QStringLiteral("VALOR PAGO R$"), r.valorPago);
    p.setFontBold(false);
    p.setFontSize(8);
    if (!r.observacao.isEmpty())
        esquerda(p, QStringLiteral("Obs: ") + r.observacao);
    imprimeBlocoPix(p, m_pix, (p.width() - Impressora::MargemDireita - LadoPix) / 2, LadoPix);
    p.print();
    esquerda(p, QStringLiteral("Atendido por: ") + m_config.usuario);
}
