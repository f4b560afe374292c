#include "documents/Fichas.h"

#include <QDir>
#include <QFileInfo>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/Impressora.h"

namespace {

const QString Hifens = QString(40, QLatin1Char('-'));
constexpr int EspacoEntreCelulas = 100;

// The logo sits at the top left of the header, beside the centred lines.
constexpr int LogoX = 100, LogoY = 200, LogoLargura = 1000, LogoAltura = 800;

} // namespace

// Where a cell of a row stands, W being the page's width and T the cell's text width.
struct ImprimeFicha::Celula {
    enum Pos { Esquerda, Divisor, Direita, DireitaMenos, Fixo };
    QString texto;
    Pos pos = Esquerda;
    double valor = 0;       // the divisor, the distance from the right or the fixed X
    double tamanho = 0;     // font size set before the cell; 0 keeps the one in force
    int larguraMax = 0;     // a table cell wraps inside its column
    QString medida;         // measured in place of the text (the tear-off strip's quirk)
};

namespace {

using Celula = ImprimeFicha::Celula;

Celula esq(const QString& t, double tam = 0) { return {t, Celula::Esquerda, 0, tam, 0, {}}; }
Celula meio(const QString& t, double tam = 0) { return {t, Celula::Divisor, 2, tam, 0, {}}; }
Celula terco(const QString& t) { return {t, Celula::Divisor, 3, 0, 0, {}}; }
Celula dir(const QString& t, double tam = 0) { return {t, Celula::Direita, 200, tam, 0, {}}; }
Celula dirMenos(const QString& t, int distancia) { return {t, Celula::DireitaMenos, double(distancia), 0, 0, {}}; }
Celula fixo(const QString& t, double x, int larguraMax = 0) { return {t, Celula::Fixo, x, 0, larguraMax, {}}; }

QString semQuebras(QString t, const QString& troca)
{
    t.replace(QLatin1String("\r\n"), troca);
    t.replace(QLatin1Char('\n'), troca);
    t.replace(QLatin1Char('\r'), troca);
    return t;
}

} // namespace

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
    auto par = [&](const char* a, const char* b) {
        return e.texto(QLatin1String(a)) + QLatin1Char('-') + e.texto(QLatin1String(b));
    };
    QString imposto;
    const QString doc = e.texto(QStringLiteral("CpfCnpj"));
    // An empty CPF/CNPJ is the store's form of a Null one: no tax line.
    if (!doc.isEmpty()) {
        if (doc.size() == 11)
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
        else if (l.imprime)
            p.print();
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
        if (!l.imprime)
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

void ImprimeFicha::imprimir(Impressora& p)
{
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

void ImprimeFicha::fichaOrdem(Impressora& p)
{
    Recordset& o = *m_ordem;
    const TipoFicha t = m_pedido.tipo;
    const bool entrada = t == TipoFicha::Entrada;
    const bool comCaixa = t == TipoFicha::SaidaCaixa;
    auto v = [&](const char* c) { return o.texto(QLatin1String(c)); };
    const QString os = QString::number(o.inteiro(QStringLiteral("CodOs")));

    // Date and the order number in large type on one row.
    p.setFontSize(12);
    const QString data = entrada ? QStringLiteral("Data entrada: ") + Datas::bancoParaTela(v("DataEntrada"))
                                 : QStringLiteral("Data saída: ") + Datas::bancoParaTela(v("DataSaida"));
    // The warranty line of the intake compares the flag with 1, which a -1/0 flag never
    // is; the line stays out as it always has.
    if (entrada && o.valor(QStringLiteral("Garantia")).toInt() == 1) {
        linha(p, {esq(data)});
        p.setFontSize(8);
        esquerda(p, QStringLiteral("garantia O.S Loja/Fábrica: ") + v("CodFabrica"));
        p.setFontSize(10);
        linha(p, {dir(QStringLiteral("O.S: ") + os, 22)});
    } else {
        linha(p, {esq(data), dir(QStringLiteral("O.S: ") + os, 22)});
    }
    regua(p);

    p.setFontSize(10);
    linha(p, {esq(QStringLiteral("Nome: ") + v("NomeCliente")), meio(QStringLiteral("Tel: ") + v("Telefone")),
              dir(QStringLiteral("Tipo: ") + v("Tipo"))});
    regua(p);
    if (comCaixa)
        linha(p, {esq(QStringLiteral("Marca: ") + v("Marca")), meio(QStringLiteral("Model: ") + v("Modelo")),
                  dir(QStringLiteral("Série: ") + v("NumeroSerie"))});
    else
        linha(p, {esq(QStringLiteral("Marca: ") + v("Marca")), terco(QStringLiteral("Model: ") + v("Modelo")),
                  dirMenos(QStringLiteral("Cor: ") + v("CorProduto"), 4000),
                  dir(QStringLiteral("Série: ") + v("NumeroSerie"))});
    if (m_config.dadoNota) {
        regua(p);
        linha(p, {esq(QStringLiteral("Certficado: ") + v("Certificado")), meio(QStringLiteral("N.F: ") + v("NotaFiscal")),
                  dir(QStringLiteral("Data N.F: ") + v("DataNota"))});
        regua(p);
        esquerda(p, QStringLiteral("Revendedor: ") + v("Revendedor"));
    }
    regua(p);
    esquerda(p, QStringLiteral("Estado Aparelho: ") + v("EstadoAparelho"));
    regua(p);
    esquerda(p, QStringLiteral("Acessório: ") + v("Acessorio"));
    regua(p);
    esquerda(p, QStringLiteral("Sintoma: ") + v("Sintoma"));
    regua(p);
    const QString endereco = semQuebras(v("Endereco") + QStringLiteral(" - ") + v("Ncasa") + QStringLiteral(" - ")
                                            + v("Bairro"),
                                        QStringLiteral(" - "));

    if (entrada) {
        if (m_imprimeMensagemEntrada)
            esquerda(p, m_mensagemEntrada);
        p.print();
        linha(p, {esq(QStringLiteral("Atendido por: ") + m_config.usuario), meio(QStringLiteral("Ass: ") + Hifens)});
        regua(p);
        p.setFontSize(22);
        Celula centro = meio(QStringLiteral("O.S: ") + os);
        centro.medida = QStringLiteral("OS: ") + os;
        linha(p, {esq(QStringLiteral("O.S: ") + os), centro, dir(QStringLiteral("O.S: ") + os)});
        regua(p);
        if (o.flag(QStringLiteral("ChamadoTecnico"))) {
            p.setFontSize(8);
            esquerda(p, QStringLiteral("Dados para buscar o aparelho no domicilio:"));
            esquerda(p, endereco);
        }
        return;
    }

    esquerda(p, QStringLiteral("Serv/Executado: ") + v("ServicoExecutado"));
    regua(p);
    esquerda(p, QStringLiteral("Obs: ") + v("Observacao"));
    regua(p);
    if (m_imprimeMensagemSaida)
        esquerda(p, m_mensagemSaida);
    if (comCaixa) {
        p.print();
        linha(p, {esq(QStringLiteral("Atendido por: ") + v("OsAlterado"))});
        regua(p);
        blocoCaixa(p, QStringLiteral("  Hora : "));
        return;
    }
    regua(p);
    p.setFontBold(true);
    linha(p, {dir(QStringLiteral("Valor Total: ") + o.dinheiro(QStringLiteral("ValorPagar")).texto(), 10)});
    linha(p, {dir(QStringLiteral("Valor Desc: ") + o.dinheiro(QStringLiteral("ValorDesconto")).texto(), 10)});
    linha(p, {dir(QStringLiteral("Valor pago: ") + o.dinheiro(QStringLiteral("ValorPago")).texto(), 14)});
    p.print();
    p.setFontBold(false);
    p.setFontSize(8);
    linha(p, {esq(QStringLiteral("Atendido por: ") + m_config.usuario), meio(QStringLiteral("Ass: ") + Hifens)});
    p.print();
    esquerda(p, QStringLiteral("Dados para entrega no domicilio:"));
    esquerda(p, endereco);
}

void ImprimeFicha::blocoCaixa(Impressora& p, const QString& rotuloHora)
{
    Recordset& m = *m_movimento;
    if (m.eof())
        return;
    auto duas = [&](const QString& a, const QString& rotulo, const QString& valor) {
        QList<Celula> c = {esq(a)};
        if (!rotulo.isEmpty()) {
            c << dirMenos(rotulo, 1400) << dir(valor);
        }
        linha(p, c);
    };
    const QString data = Datas::lerBanco(m.texto(QStringLiteral("Data")))
                             .value_or(QDate())
                             .toString(QStringLiteral("dd-MM-yyyy"));
    duas(QStringLiteral("Funcionário : ") + m.texto(QStringLiteral("Caixa")), QStringLiteral("Total :"),
         m.dinheiro(QStringLiteral("ValorTotal")).texto());
    duas(QStringLiteral("Data : ") + data + rotuloHora + m.texto(QStringLiteral("Hora")), QStringLiteral("Desconto :"),
         m.dinheiro(QStringLiteral("ValorDesconto")).texto());
    duas(QStringLiteral("Cliente : ") + m.texto(QStringLiteral("NomeCliente")), QStringLiteral("Pago :"),
         m.dinheiro(QStringLiteral("ValorPagar")).texto());
    // The cash row keeps no CPF/CNPJ of its own in every store; the order's is the same.
    QString doc;
    try {
        doc = m.texto(QStringLiteral("CpfCnpj"));
    } catch (const CampoDesconhecido&) {
        if (m_ordem)
            doc = m_ordem->texto(QStringLiteral("CpfCnpj"));
    }
    duas(QStringLiteral("CPF/CNPJ : ") + doc, QStringLiteral("Troco :"),
         m.dinheiro(QStringLiteral("ValorDiferenca")).texto());
    duas(QStringLiteral("Pagamento em :") + m.texto(QStringLiteral("Pagamento")), {}, {});
}

void ImprimeFicha::cabecalhoTabela(Impressora& p)
{
    p.setFontSize(10);
    const int W = p.width();
    const QStringList titulos = {QStringLiteral("Cód/Peça"), QStringLiteral("Descrição"), QStringLiteral("Quant"),
                                 QStringLiteral("Unitário"), QStringLiteral("Total")};
    m_colunas[0] = 200;
    m_colunas[1] = (W - p.textWidth(titulos[1])) / 4.9;
    m_colunas[2] = (W - p.textWidth(titulos[2])) / 1.4;
    m_colunas[3] = (W - p.textWidth(titulos[3])) / 1.15;
    m_colunas[4] = W - p.textWidth(titulos[4]) - 200;
    QList<Celula> c;
    for (int i = 0; i < 5; ++i)
        c << fixo(titulos[i], m_colunas[i]);
    linha(p, c);
    regua(p);
}

void ImprimeFicha::tabelaPecas(Impressora& p, Recordset& pecas)
{
    const int W = p.width();
    // A long list goes on over pages, each with the heading again.
    p.aoNovaPagina([this, &p] {
        p.print();
        cabecalhoTabela(p);
    });
    for (pecas.moveFirst(); !pecas.eof(); pecas.moveNext()) {
        const QString unitario = pecas.dinheiro(QStringLiteral("ValorVenda")).texto();
        const QString total = pecas.dinheiro(QStringLiteral("ValorTotal")).texto();
        const double xUnit = (W - p.textWidth(unitario)) / 1.15;
        const double xTotal = W - p.textWidth(total) - 200;
        // Code and description keep inside their columns, wrapping when long.
        const int larguraCodigo = int(m_colunas[1] - m_colunas[0]) - EspacoEntreCelulas;
        const int larguraDescricao = int(m_colunas[2] - m_colunas[1]) - EspacoEntreCelulas;
        const int larguraQuant = int(xUnit - m_colunas[2]) - EspacoEntreCelulas;
        linha(p, {fixo(pecas.texto(QStringLiteral("codpeca")), m_colunas[0], larguraCodigo),
                  fixo(pecas.texto(QStringLiteral("Descricao")), m_colunas[1], larguraDescricao),
                  fixo(pecas.quantidade(QStringLiteral("Quantidade")).texto(), m_colunas[2], larguraQuant),
                  fixo(unitario, xUnit), fixo(total, xTotal)});
    }
    p.aoNovaPagina({});
}

void ImprimeFicha::totalLinha(Impressora& p, const QString& rotulo, const QString& valor, bool vazioSeZero) const
{
    if (vazioSeZero && valor == QLatin1String("0,00")) {
        // Left blank for the technician to fill in by hand.
        linha(p, {dirMenos(rotulo, 1400)});
        return;
    }
    linha(p, {dirMenos(rotulo, 1400), dir(valor)});
}

void ImprimeFicha::fichaOrcamento(Impressora& p)
{
    Recordset& o = *m_ordem;
    auto v = [&](const char* c) { return o.texto(QLatin1String(c)); };
    const QString os = QString::number(o.inteiro(QStringLiteral("CodOs")));
    regua(p);
    p.setFontSize(12);
    // The budget shows the departure date as it is stored.
    linha(p, {esq(QStringLiteral("Data saída: ") + v("DataSaida")), dir(QStringLiteral("O.S: ") + os, 18)});
    regua(p);
    p.setFontSize(10);
    linha(p, {esq(QStringLiteral("Nome: ") + v("NomeCliente")), meio(QStringLiteral("Tel: ") + v("Telefone")),
              dir(QStringLiteral("Tipo: ") + v("Tipo"))});
    regua(p);
    linha(p, {esq(QStringLiteral("Marca: ") + v("Marca")), meio(QStringLiteral("Model: ") + v("Modelo")),
              dir(QStringLiteral("Série: ") + v("NumeroSerie"))});
    regua(p);
    esquerda(p, QStringLiteral("Estado Aparelho: ") + v("EstadoAparelho"));
    regua(p);
    esquerda(p, QStringLiteral("Acessório: ") + v("Acessorio"));
    regua(p);
    esquerda(p, QStringLiteral("Sintoma: ") + v("Sintoma"));
    regua(p);
    esquerda(p, QStringLiteral("Serv/Executado: ") + v("ServicoExecutado"));
    regua(p);
    cabecalhoTabela(p);
    tabelaPecas(p, *m_pecas);
    regua(p);
    totalLinha(p, QStringLiteral("Total de peças :"), o.dinheiro(QStringLiteral("ValorVenda")).texto(), false);
    totalLinha(p, QStringLiteral("Mão de obra :"), o.dinheiro(QStringLiteral("MaoObra")).texto(), false);
    totalLinha(p, QStringLiteral("Valor pago :"), o.dinheiro(QStringLiteral("ValorPagar")).texto(), false);
    p.print();
    linha(p, {esq(QStringLiteral("Atendido por: ") + m_config.usuario), meio(QStringLiteral("Ass: ") + Hifens)});
}

void ImprimeFicha::fichaVisita(Impressora& p)
{
    const FichaVisita& vi = m_pedido.visita;
    regua(p);
    p.setFontSize(12);
    linha(p, {esq(QStringLiteral("Data Solicitada: ") + vi.dataSolicitada),
              dir(QStringLiteral("O.S: ") + QString::number(vi.codManu), 18)});
    regua(p);
    p.setFontSize(10);
    esquerda(p, QStringLiteral("Nome: ") + vi.cliente);
    regua(p);
    esquerda(p, QStringLiteral("Endereço,Telefones:"));
    regua(p);
    p.setCurrentX(235);
    p.print(vi.enderecoTelefones);
    regua(p);
    esquerda(p, QStringLiteral("Solicitação:"));
    regua(p);
    p.setCurrentX(235);
    p.print(vi.solicitacao);
    regua(p);
    cabecalhoTabela(p);
    if (m_pecas->eof()) {
        // Room for the technician to write the parts by hand.
        for (int i = 0; i <= 10; ++i)
            p.print();
    } else {
        tabelaPecas(p, *m_pecas);
    }
    regua(p);
    totalLinha(p, QStringLiteral("Total de peças :"), vi.valorPecas, true);
    totalLinha(p, QStringLiteral("Mão de obra :"), vi.maoObra, true);
    totalLinha(p, QStringLiteral("Valor pago :"), vi.valorPago, true);
    // The date attended stands on the label's row; it starts after the label here, where
    // it once ran under it.
    linha(p, {esq(QStringLiteral("Data Atendida :") + QLatin1Char(' ') + vi.dataAtendida)});
    p.print();
    linha(p, {esq(QStringLiteral("Atendido por: ") + m_config.usuario), meio(QStringLiteral("Ass: ") + Hifens)});
}

void ImprimeFicha::fichaCliente(Impressora& p)
{
    const FichaCliente& c = m_pedido.cliente;
    p.setFontSize(12);
    linha(p, {esq(QStringLiteral("Cód: ") + c.codigo), dir(QStringLiteral("Data cadastro: ") + c.dataCadastro, 10)});
    regua(p);
    const QList<QList<Celula>> linhas = {
        {esq(QStringLiteral("Nome: ") + c.nome)},
        {esq(QStringLiteral("End: ") + c.endereco), dir(QStringLiteral("Nº: ") + c.numero)},
        {esq(QStringLiteral("Complemento: ") + c.complemento), dir(QStringLiteral("Bairro: ") + c.bairro)},
        {esq(QStringLiteral("Cep: ") + c.cep), meio(QStringLiteral("Cidade: ") + c.cidade),
         dir(QStringLiteral("Estado: ") + c.estado)},
        {esq(QStringLiteral("Tel: ") + c.telefone), meio(QStringLiteral("Tel/Fax: ") + c.telFax),
         dir(QStringLiteral("Cel: ") + c.celular)},
        {esq(QStringLiteral("Cpf/Cnpj: ") + c.cpfCnpj), meio(QStringLiteral("Rg/Ie: ") + c.rgIe)},
        {esq(QStringLiteral("Correio-eletrônico: ") + c.email)},
        {esq(QStringLiteral("Site/Blog: ") + c.site)},
        {esq(QStringLiteral("Obs: ") + c.observacao)},
    };
    for (int i = 0; i < linhas.size(); ++i) {
        linha(p, linhas.at(i));
        if (i + 1 < linhas.size())
            regua(p);
    }
}

void ImprimeFicha::fichaReciboVenda(Impressora& p)
{
    Recordset& v = *m_venda;
    const int W = p.width();
    // This receipt keeps an inch free at the foot and numbers its pages.
    const int limite = p.height() - 1440;
    p.setFontSize(10);
    double col[6] = {200, 0, 0, 0, 0, 0};
    auto cabecalho = [&] {
        p.setFontSize(10);
        esquerda(p, QStringLiteral("Página: ") + QString::number(p.pagina()));
        col[1] = (W - p.textWidth(QStringLiteral("Cód/Prod"))) / 8.57;
        col[2] = (W - p.textWidth(QStringLiteral("Quant"))) / 3.7;
        col[3] = (W - p.textWidth(QStringLiteral("Descrição"))) / 2.7;
        col[4] = (W - p.textWidth(QStringLiteral("Unitário"))) / 1.15;
        col[5] = W - p.textWidth(QStringLiteral("Total")) - 200;
        linha(p, {fixo(QStringLiteral("Local"), col[0]), fixo(QStringLiteral("Cód/Prod"), col[1]),
                  fixo(QStringLiteral("Quant"), col[2]), fixo(QStringLiteral("Drescrição"), col[3]),
                  fixo(QStringLiteral("Unitário"), col[4]), fixo(QStringLiteral("Total"), col[5])});
    };
    cabecalho();
    p.aoNovaPagina(cabecalho);
    for (v.moveFirst(); !v.eof(); v.moveNext()) {
        if (p.currentY() >= limite)
            p.newPage();
        const QString unitario = v.dinheiro(QStringLiteral("ValorVenda")).texto();
        const QString total = v.dinheiro(QStringLiteral("ValorTotal")).texto();
        const double xUnit = W - p.textWidth(unitario) - 1500;
        linha(p, {fixo(v.texto(QStringLiteral("Armazenado")), col[0], int(col[1] - col[0]) - EspacoEntreCelulas),
                  fixo(v.texto(QStringLiteral("codpeca")), col[1], int(col[2] - col[1]) - EspacoEntreCelulas),
                  fixo(v.quantidade(QStringLiteral("Quantidade")).texto(), col[2],
                       int(col[3] - col[2]) - EspacoEntreCelulas),
                  fixo(v.texto(QStringLiteral("Descricao")), col[3], int(xUnit - col[3]) - EspacoEntreCelulas),
                  fixo(unitario, xUnit), fixo(total, W - p.textWidth(total) - 200)});
    }
    p.aoNovaPagina({});
    regua(p);
    blocoCaixa(p, QStringLiteral(" Hora : "));
}

void ImprimeFicha::fichaRecebimento(Impressora& p)
{
    const FichaRecebimento& r = m_pedido.recebimento;
    p.setFontSize(8);
    const QList<QPair<QString, QString>> linhas = {
        {QStringLiteral("Data compra: "), r.dataCompra},
        {QStringLiteral("Data vencimento: "), r.dataVencimento},
        {QStringLiteral("Descrição,nº Venda/O.S: "), r.descricao},
        {QStringLiteral("Cli/Tit: "), r.cliente},
        {QStringLiteral("Tipo recebimento: "), r.tipoCombinado},
        {QStringLiteral("Origem:: "), r.origem},
        {QStringLiteral("Parcela: "), r.parcela},
        {QStringLiteral("Valor parcela: "), r.valorParcela},
        {QStringLiteral("Data pagamento: "), r.dataPagamento.toString(QStringLiteral("dd/MM/yyyy"))},
        {QStringLiteral("Tipo recebimento: "), r.tipoRecebido},
        {QStringLiteral("Valor pago: "), r.valorPago},
        {QStringLiteral("Observação: "), r.observacao},
    };
    for (const auto& [rotulo, valor] : linhas) {
        p.setCurrentX(100);
        p.print(rotulo + valor);
    }
    p.print();
    regua(p, true);
}
