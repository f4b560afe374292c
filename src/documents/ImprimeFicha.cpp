#include "documents/Fichas.h"

#include <QDir>
#include <QFileInfo>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "cash/Pix.h"
#include "documents/ConfigImpressao.h"
#include "documents/FichaLayout.h"
#include "documents/Impressora.h"

using namespace FichaLayout;

ConfigFicha ConfigFicha::atual()
{
    ConfigFicha c;
    c.linhas = ConfigImpressao::ligado(QStringLiteral("AutoLinha"));
    c.foto = ConfigImpressao::ligado(QStringLiteral("FotoImp"));
    c.arquivoLogo = ConfigImpressao::ler(QStringLiteral("Imagem"), QStringLiteral("FotoImprimir"));
    c.dadoNota = Sessao::verdadeiro(sessao().CfgDadoNota);
    c.usuario = sessao().UsuarioNome;
    return c;
}

ImprimeFicha::ImprimeFicha(Banco& banco, PedidoFicha pedido, ConfigFicha config)
    : m_banco(banco), m_pedido(std::move(pedido)), m_config(std::move(config))
{
}

ImprimeFicha::~ImprimeFicha() = default;

QString ImprimeFicha::formatarMascara(const QString& texto, const QString& mascara)
{
    QString digitos;
    for (const QChar c : texto)
        if (c.isDigit())
            digitos += c;
    if (digitos.isEmpty())
        return texto;
    const int lugares = mascara.count(QLatin1Char('0'));
    QString excesso;
    if (digitos.size() > lugares) {
        excesso = digitos.left(digitos.size() - lugares);
        digitos = digitos.right(lugares);
    } else {
        digitos = digitos.rightJustified(lugares, QLatin1Char('0'));
    }
    QString r = excesso;
    int i = 0;
    for (const QChar c : mascara)
        r += c == QLatin1Char('0') ? digitos.at(i++) : c;
    return r;
}

void ImprimeFicha::lerEmpresa()
{
    Recordset e(m_banco);
    e.abrir(QStringLiteral("Empresa"));
    m_cabecalho.clear();
    m_temEmpresa = !e.eof();
    if (!m_temEmpresa)
        return;
    auto tamanho = [&](const char* coluna, double padrao) {
        return e.nulo(QLatin1String(coluna)) ? padrao : double(e.inteiro(QLatin1String(coluna)));
    };
    // An e-mail or a phone the shop left empty takes its "-" with it: no dangling dash,
    // and a pair with neither prints no line at all.
    auto par = [&](const char* a, const char* telefone) {
        QStringList partes = {e.texto(QLatin1String(a)), MascaraTelefone(e.texto(QLatin1String(telefone)))};
        partes.removeAll(QString());
        return partes.join(QLatin1Char('-'));
    };
    QString imposto;
    const QString doc = e.texto(QStringLiteral("CpfCnpj"));
    // An empty CPF/CNPJ is the store's form of a Null one: no tax line.
    if (!doc.isEmpty()) {
        // The number of digits tells a CPF, whether the store keeps it masked or not.
        if (SoDigitos(doc).size() == 11)
            imposto = QStringLiteral("C.P.F: ") + formatarMascara(doc, QStringLiteral("000-000-000/00"));
        else
            imposto = QStringLiteral("C.N.P.J: ") + formatarMascara(doc, QStringLiteral("00-000-000-0000/00"));
        imposto += QStringLiteral("--I.E: ") + e.texto(QStringLiteral("IE"));
    }
    m_cabecalho = {
        {e.flag(QStringLiteral("NomeNegrito")), tamanho("NomeTamanho", 12), e.flag(QStringLiteral("ImpriNome")),
         e.texto(QStringLiteral("NomeEmpresa"))},
        {e.flag(QStringLiteral("EnderecoNegrito")), tamanho("EnderecoTamanho", 10),
         e.flag(QStringLiteral("ImpriEndereco")), e.texto(QStringLiteral("EnderecoEmpresa"))},
        {e.flag(QStringLiteral("SiteNegrito")), tamanho("SiteTamanho", 10), e.flag(QStringLiteral("ImpriSite")),
         par("Site", "Telefone")},
        {e.flag(QStringLiteral("SacNegrito")), tamanho("SacTamanho", 10), e.flag(QStringLiteral("ImpriSAC")),
         par("EmailSac", "TelSAC")},
        {e.flag(QStringLiteral("SuporteNegrito")), tamanho("SuporteTamanho", 10),
         e.flag(QStringLiteral("ImpriSuporte")), par("EmailSuporte", "TelSuporte")},
        {e.flag(QStringLiteral("VendasNegrito")), tamanho("VendasTamanho", 10), e.flag(QStringLiteral("ImpriVendas")),
         par("EmailVendas", "TelVendas")},
        {e.flag(QStringLiteral("CpfCnpjNegrito")), tamanho("CpfCnpjTamanho", 8),
         e.flag(QStringLiteral("ImpriCPFCNPJ")) && !imposto.isEmpty(), imposto},
    };
    m_mensagemEntrada = e.texto(QStringLiteral("MensagemEntrada"));
    m_mensagemSaida = e.texto(QStringLiteral("MensagemSaida"));
    m_imprimeMensagemEntrada = e.flag(QStringLiteral("ImpriMenEntrada"));
    m_imprimeMensagemSaida = e.flag(QStringLiteral("ImpriMenSaida"));
}

void ImprimeFicha::carregar()
{
    lerEmpresa();
    if (m_config.foto && !m_config.arquivoLogo.isEmpty()) {
        QString caminho = QDir::fromNativeSeparators(m_config.arquivoLogo);
        if (QFileInfo(caminho).isRelative())
            caminho = QDir(sessao().PastaPrograma).filePath(caminho);
        // A logo that is missing or unreadable leaves the header without it.
        m_logo.load(caminho);
    }
    const TipoFicha t = m_pedido.tipo;
    if (t == TipoFicha::Entrada || t == TipoFicha::Saida || t == TipoFicha::Orcamento
        || t == TipoFicha::SaidaCaixa) {
        m_ordem = std::make_unique<Recordset>(m_banco);
        m_ordem->abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut});
        if (m_ordem->eof())
            throw ErroBanco(QStringLiteral("A ordem de serviço não foi encontrada; nada foi impresso."));
    }
    if (t == TipoFicha::Saida || t == TipoFicha::SaidaCaixa) {
        // The delivery paid by PIX prints the charge the till showed: what was owed, and
        // the order's number as its id.
        Recordset pix(m_banco);
        pix.abrir(QStringLiteral("Movimento"), QStringLiteral("CodOsAut = ? AND Pagamento = ?"),
                  {m_pedido.codOsAut, Pix::FormaPagamento}, QStringLiteral("Codmov DESC"), 1);
        if (!pix.eof())
            m_pix = Pix::cobrancaDaLoja(pix.dinheiro(QStringLiteral("ValorTotal")) - pix.dinheiro(QStringLiteral("ValorDesconto")),
                                        QString::number(m_ordem->inteiro(QStringLiteral("CodOs"))));
    }
    if (t == TipoFicha::Orcamento) {
        m_pecas = std::make_unique<Recordset>(m_banco);
        m_pecas->abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut},
                       QStringLiteral("CodPecAut"));
    }
    if (t == TipoFicha::Visita) {
        m_pecas = std::make_unique<Recordset>(m_banco);
        m_pecas->abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodManu = ? AND TipoVisita = ?"),
                       {m_pedido.visita.codManu, QStringLiteral("VisitaTecnico")}, QStringLiteral("CodPecAut"));
    }
    if (t == TipoFicha::SaidaCaixa) {
        m_movimento = std::make_unique<Recordset>(m_banco);
        m_movimento->abrir(QStringLiteral("Movimento"), QStringLiteral("CodOsAut = ?"), {m_pedido.codOsAut},
                           QStringLiteral("Codmov"));
    }
    if (t == TipoFicha::ReciboVenda) {
        m_venda = std::make_unique<Recordset>(m_banco);
        m_venda->abrir(QStringLiteral("VendaDetalhada"), QStringLiteral("CodVenda = ?"), {m_pedido.codVenda},
                       QStringLiteral("CodDet"));
        m_movimento = std::make_unique<Recordset>(m_banco);
        m_movimento->abrir(QStringLiteral("Movimento"), QStringLiteral("CodVenda = ?"), {m_pedido.codVenda},
                           QStringLiteral("Codmov"));
        if (m_venda->eof() && m_movimento->eof())
            throw ErroBanco(QStringLiteral("A venda não foi encontrada; nada foi impresso."));
    }
}

// ---- drawing helpers ----

void ImprimeFicha::regua(Impressora& p, bool sempre) const
{
    if (!(sempre || m_config.linhas))
        return;
    // The slope of 5 twips is the sheets' own look.
    p.line(0, p.currentY(), p.width(), p.currentY() + 5);
}

void ImprimeFicha::esquerda(Impressora& p, const QString& texto) const
{
    p.setCurrentX(200);
    p.print(texto);
}

void ImprimeFicha::imprimeAlinhado(Impressora& p, const QString& texto, Alinhamento alinhamento, int margem)
{
    if (alinhamento == Alinhamento::Atual) {
        p.print(texto);
        return;
    }
    const int x0 = p.currentX();
    const QStringList linhas = p.quebrar(texto, p.width() - 2 * margem);
    for (const QString& l : linhas) {
        p.garantirEspaco(p.alturaLinha());
        const int T = p.textWidth(l);
        int x = x0;
        switch (alinhamento) {
        case Alinhamento::Centro: x = (p.width() - T) / 2; break;
        case Alinhamento::Esquerda: x = margem; break;
        case Alinhamento::Direita: x = p.width() - T - margem; break;
        case Alinhamento::Atual: break;
        }
        p.setCurrentX(qMax(0, x));
        p.printLinha(l);
    }
}

void ImprimeFicha::linha(Impressora& p, const QList<Celula>& celulas) const
{
    struct Lugar {
        double x;
        int largura;
        int altura;
        QStringList linhas;
        double tamanho;
    };
    const int W = p.width();
    QList<Lugar> lugares;
    bool cabe = true;
    int altura = 0;
    for (const Celula& c : celulas) {
        if (c.tamanho > 0)
            p.setFontSize(c.tamanho);
        const int T = p.textWidth(c.medida.isEmpty() ? c.texto : c.medida);
        double x = 200;
        switch (c.pos) {
        case Celula::Esquerda: x = 200; break;
        case Celula::Divisor: x = c.valor == 2 || c.valor == 3 ? double((W - T) / int(c.valor)) : (W - T) / c.valor; break;
        case Celula::Direita: x = W - T - c.valor; break;
        case Celula::DireitaMenos: x = W - T - c.valor; break;
        case Celula::Fixo: x = c.valor; break;
        }
        QStringList partes = {c.texto};
        int largura = p.textWidth(c.texto);
        if (c.larguraMax > 0 && largura > c.larguraMax) {
            partes = p.quebrar(c.texto, c.larguraMax);
            largura = c.larguraMax;
        }
        const int h = p.alturaLinha() * int(partes.size());
        altura = qMax(altura, h);
        if (x < 0 || x + largura > W - Impressora::MargemDireita + 5)
            cabe = false;
        if (!lugares.isEmpty()) {
            const Lugar& antes = lugares.last();
            if (antes.x + antes.largura + EspacoEntreCelulas > x)
                cabe = false;
        }
        lugares.append({x, largura, h, partes, p.fontSize()});
    }
    if (!cabe) {
        // The row doesn't fit side by side (a long name, a long model): each cell goes on
        // lines of its own, wrapped, so that nothing stands over anything else.
        for (int i = 0; i < celulas.size(); ++i) {
            p.setFontSize(lugares[i].tamanho);
            p.setCurrentX(200);
            p.print(celulas[i].texto);
        }
        return;
    }
    p.garantirEspaco(altura);
    const int y = p.currentY();
    for (const Lugar& l : lugares) {
        p.setFontSize(l.tamanho);
        p.setCurrentY(y);
        for (const QString& parte : l.linhas) {
            p.setCurrentX(int(l.x));
            p.printLinha(parte);
        }
    }
    p.setCurrentY(y + altura);
    p.setCurrentX(0);
}

// ---- header ----

void ImprimeFicha::cabecalhoCentrado(Impressora& p)
{
    const int topo = p.currentY();
    const bool comLogo = m_config.foto && !m_logo.isNull();
    // Long lines keep clear of the logo on both sides, so the header stays centred.
    const int margem = comLogo ? LogoX + LogoLargura + 100 : 200;
    for (int i = 0; i < m_cabecalho.size(); ++i) {
        const Linha& l = m_cabecalho.at(i);
        p.setFontBold(l.negrito);
        p.setFontSize(l.tamanho);
        if (l.imprime && !l.texto.isEmpty())
            imprimeAlinhado(p, l.texto, Alinhamento::Centro, margem);
        if (i == 2 && comLogo)
            p.paintPicture(m_logo, LogoX, topo + LogoY - 240, LogoLargura, LogoAltura);
    }
    p.setFontBold(false);
    // A short header must not leave the logo hanging over the body.
    if (comLogo && p.currentY() < topo + LogoY - 240 + LogoAltura + 60)
        p.setCurrentY(topo + LogoY - 240 + LogoAltura + 60);
    p.print();
    regua(p);
}

void ImprimeFicha::cabecalhoCompacto(Impressora& p)
{
    const int topo = p.currentY();
    p.setFontSize(8);
    p.setFontBold(false);
    const bool comLogo = m_config.foto && !m_logo.isNull();
    if (comLogo)
        p.paintPicture(m_logo, LogoX, topo + LogoY - 240, LogoLargura, LogoAltura);
    // Beside the logo the lines start after it instead of at 100, so they don't cover it.
    const int x = comLogo ? LogoX + LogoLargura + 100 : 100;
    for (const Linha& l : m_cabecalho) {
        if (!l.imprime || l.texto.isEmpty())
            continue;
        p.setCurrentX(x);
        p.print(l.texto);
    }
    if (comLogo && p.currentY() < topo + LogoY - 240 + LogoAltura + 60)
        p.setCurrentY(topo + LogoY - 240 + LogoAltura + 60);
    p.print();
    regua(p, true);
}

// ---- the job ----

QString ImprimeFicha::tituloContinuacao() const
{
    if (m_ordem)
        return QStringLiteral("O.S: %1 - %2")
            .arg(m_ordem->inteiro(QStringLiteral("CodOs")))
            .arg(m_ordem->texto(QStringLiteral("NomeCliente")));
    switch (m_pedido.tipo) {
    case TipoFicha::Visita:
        return QStringLiteral("O.S: %1 - %2").arg(m_pedido.visita.codManu).arg(m_pedido.visita.cliente);
    case TipoFicha::Cliente: return m_pedido.cliente.nome;
    case TipoFicha::ReciboCompleto:
    case TipoFicha::ReciboCompacto: return m_pedido.recebimento.cliente;
    default: return {};  // the sale receipt numbers its pages itself
    }
}

void ImprimeFicha::imprimir(Impressora& p)
{
    // A page that comes loose from the others still says whose it is.
    p.setContinuacao(tituloContinuacao());
    p.print();
    const int copias = qMax(1, m_pedido.copias);
    for (int copia = 1; copia <= copias; ++copia) {
        if (copia > 1) {
            // A copy that would be cut by the page's foot starts on a page of its own, when
            // it fits on one.
            const int altura = alturaCopia(p);
            if (p.currentY() + altura > p.limiteInferior() && altura <= p.limiteInferior())
                p.newPage();
        }
        copiaUnica(p);
        p.print();
        p.print();
    }
    p.endDoc();
}

int ImprimeFicha::alturaCopia(Impressora& p)
{
    const int x = p.currentX(), y = p.currentY();
    const double tamanho = p.fontSize();
    const bool negrito = p.fontBold();
    p.setSimulacao(true);
    p.setCurrentY(0);
    copiaUnica(p);
    const int altura = p.currentY();
    p.setSimulacao(false);
    p.setCurrentX(x);
    p.setCurrentY(y);
    p.setFontSize(tamanho);
    p.setFontBold(negrito);
    return altura;
}

void ImprimeFicha::copiaUnica(Impressora& p)
{
    {
        if (m_pedido.tipo == TipoFicha::ReciboCompacto)
            cabecalhoCompacto(p);
        else
            cabecalhoCentrado(p);
        switch (m_pedido.tipo) {
        case TipoFicha::Entrada:
        case TipoFicha::Saida:
        case TipoFicha::SaidaCaixa: fichaOrdem(p); break;
        case TipoFicha::Cliente: fichaCliente(p); break;
        case TipoFicha::Orcamento: fichaOrcamento(p); break;
        case TipoFicha::ReciboVenda: fichaReciboVenda(p); break;
        case TipoFicha::Visita: fichaVisita(p); break;
        case TipoFicha::ReciboCompleto:
        case TipoFicha::ReciboCompacto: fichaRecebimento(p); break;
        }
        p.aoNovaPagina({});
    }
}
