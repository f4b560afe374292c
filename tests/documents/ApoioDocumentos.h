#pragma once
// Shared by the document tests: a shop with its header, orders and parts inserted through
// Recordset, and the text and word boxes of a printed PDF read back with poppler.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QRectF>
#include <QStandardPaths>
#include <QString>
#include <QVariantMap>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Recordset.h"
#include "data/Sessao.h"

namespace apoio {

inline void definirTudo(Recordset& r, const QVariantMap& valores)
{
    for (auto it = valores.begin(); it != valores.end(); ++it)
        r.definir(it.key(), it.value());
}

// The shop's header: every line printed, none bold, the sizes given by the store's
// defaults, unless `mudancas` says otherwise.
inline void configurarEmpresa(Banco& b, const QVariantMap& mudancas = {})
{
    Recordset e(b);
    e.abrir(QStringLiteral("Empresa"));
    QVariantMap v = {
        {"NomeEmpresa", "Eletrônica Conserta Já"},
        {"EnderecoEmpresa", "Rua das Acácias, 123 - Centro - São José"},
        {"Site", "www.consertaja.com.br"},
        {"Telefone", "(11)4321-5678"},
        {"EmailSac", "sac@consertaja.com.br"},
        {"TelSAC", "(11)4321-0001"},
        {"EmailSuporte", "suporte@consertaja.com.br"},
        {"TelSuporte", "(11)4321-0002"},
        {"EmailVendas", "vendas@consertaja.com.br"},
        {"TelVendas", "(11)4321-0003"},
        {"CpfCnpj", "12345678000195"},
        {"IE", "110.042.490.114"},
        {"MensagemEntrada", "Aparelhos não retirados em 90 dias serão vendidos para cobrir despesas."},
        {"MensagemSaida", "Garantia de 90 dias para o serviço executado."},
        {"ImpriMenEntrada", -1},
        {"ImpriMenSaida", -1},
        {"ImpriNome", -1}, {"ImpriEndereco", -1}, {"ImpriSite", -1}, {"ImpriSAC", -1},
        {"ImpriSuporte", -1}, {"ImpriVendas", -1}, {"ImpriCPFCNPJ", -1},
        {"NomeNegrito", 0}, {"EnderecoNegrito", 0}, {"SiteNegrito", 0}, {"SacNegrito", 0},
        {"SuporteNegrito", 0}, {"VendasNegrito", 0}, {"CpfCnpjNegrito", 0},
    };
    for (auto it = mudancas.begin(); it != mudancas.end(); ++it)
        v[it.key()] = it.value();
    if (e.eof())
        e.addNew();
    definirTudo(e, v);
    e.update();
}

inline qint64 inserirOrdem(Banco& b, const QVariantMap& mudancas = {})
{
    QVariantMap v = {
        {"CodOs", 4711},
        {"NomeCliente", "Maria da Conceição"},
        {"CodCliente", "0000042"},
        {"CpfCnpj", "12345678901"},
        {"Endereco", "Av. Brasil"},
        {"Ncasa", "1500"},
        {"Bairro", "Jardim Paulista"},
        {"Cidade", "São Paulo"},
        {"Telefone", "1133334444"},
        {"Celular", "11999998888"},
        {"Tipo", "Televisor"},
        {"Marca", "Semp"},
        {"Modelo", "TL-32"},
        {"NumeroSerie", "SN998877"},
        {"CorProduto", "Preto"},
        {"Certificado", "C-77"},
        {"NotaFiscal", "NF-555"},
        {"DataNota", "10/01/2026"},
        {"Revendedor", "Loja Ponto Certo"},
        {"EstadoAparelho", "Riscos na tampa"},
        {"Acessorio", "Controle remoto"},
        {"Sintoma", "Não liga, cheiro de queimado"},
        {"Observacao", "Cliente pede orçamento antes"},
        {"Armazenado", "Prateleira B"},
        {"DataEntrada", "2026/11/20"},
        {"DataSaida", "2026/11/23"},
        {"DataEntrega", "2026/11/25"},
        {"Tecnico", "João Técnico"},
        {"DefeitoReal", "Fonte queimada"},
        {"ServicoExecutado", "Troca da fonte"},
        {"StatusConserto", "Pronto"},
        {"MaoObra", 15000},
        {"ValorVenda", 108456},
        {"ValorPagar", 123456},
        {"ValorDesconto", 1000},
        {"ValorPago", 122456},
        {"OsAlterado", "Ana Balcão"},
    };
    for (auto it = mudancas.begin(); it != mudancas.end(); ++it)
        v[it.key()] = it.value();
    Recordset r(b);
    r.abrir(QStringLiteral("OrdemServico"), QStringLiteral("1 = 0"));
    r.addNew();
    definirTudo(r, v);
    r.update();
    return r.chaveAtual();
}

inline void inserirPeca(Banco& b, qint64 codOsAut, qint64 codOs, const QString& codigo, const QString& descricao,
                        qint64 milesimos, qint64 unitario, const QVariantMap& mais = {})
{
    Recordset r(b);
    r.abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("1 = 0"));
    r.addNew();
    r.definir(QStringLiteral("CodOsAut"), codOsAut);
    r.definir(QStringLiteral("CodOs"), codOs);
    r.definir(QStringLiteral("codpeca"), codigo);
    r.definir(QStringLiteral("Descricao"), descricao);
    r.definir(QStringLiteral("Quantidade"), milesimos);
    r.definir(QStringLiteral("ValorVenda"), unitario);
    r.definir(QStringLiteral("ValorTotal"), unitario * milesimos / 1000);
    definirTudo(r, mais);
    r.update();
}

inline void gravarIni(const QString& secao, const QString& chave, const QString& valor)
{
    ArquivoIni(sessao().ArquivoIni).gravar(secao, chave, valor);
}

inline QString rodar(const QString& programa, const QStringList& argumentos)
{
    QProcess p;
    p.start(programa, argumentos);
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

// The text of a PDF in reading order, pages separated by form feeds.
inline QString textoPdf(const QString& pdf, bool layout = false)
{
    QStringList a;
    if (layout)
        a << QStringLiteral("-layout");
    a << pdf << QStringLiteral("-");
    // The printer's font joins "fi" into one glyph; read it back as two letters.
    return rodar(QStringLiteral("pdftotext"), a)
        .replace(QChar(0xFB01), QLatin1String("fi"))
        .replace(QChar(0xFB02), QLatin1String("fl"));
}

inline int paginasPdf(const QString& pdf)
{
    return textoPdf(pdf).count(QLatin1Char('\f'));
}

struct Palavra {
    int pagina;
    QRectF caixa;
    QString texto;
};

struct Pagina {
    double largura = 0, altura = 0;
};

// The words of a PDF with their boxes, in points.
inline QList<Palavra> palavrasPdf(const QString& pdf, QList<Pagina>* paginas = nullptr)
{
    const QString html = rodar(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    QList<Palavra> r;
    static const QRegularExpression rePagina(QStringLiteral("<page width=\"([\\d.]+)\" height=\"([\\d.]+)\">"));
    static const QRegularExpression rePalavra(
        QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">(.*)</word>"));
    int pagina = -1;
    for (const QString& linha : html.split(QLatin1Char('\n'))) {
        if (auto m = rePagina.match(linha); m.hasMatch()) {
            ++pagina;
            if (paginas)
                paginas->append({m.captured(1).toDouble(), m.captured(2).toDouble()});
            continue;
        }
        if (auto m = rePalavra.match(linha); m.hasMatch()) {
            const double x1 = m.captured(1).toDouble(), y1 = m.captured(2).toDouble();
            const double x2 = m.captured(3).toDouble(), y2 = m.captured(4).toDouble();
            r.append({pagina, QRectF(QPointF(x1, y1), QPointF(x2, y2)), m.captured(5)});
        }
    }
    return r;
}

// What a shop owner would see as a fault: a word past the paper's edge, or two words
// standing one over the other. Empty when the page is clean.
inline QString defeitosDeLayout(const QString& pdf)
{
    QList<Pagina> paginas;
    const QList<Palavra> p = palavrasPdf(pdf, &paginas);
    for (const Palavra& w : p) {
        const Pagina& pg = paginas.value(w.pagina);
        if (w.caixa.left() < 0 || w.caixa.right() > pg.largura + 0.5 || w.caixa.top() < 0
            || w.caixa.bottom() > pg.altura + 0.5)
            return QStringLiteral("fora da página: ") + w.texto;
    }
    for (int i = 0; i < p.size(); ++i) {
        for (int j = i + 1; j < p.size(); ++j) {
            if (p[i].pagina != p[j].pagina)
                continue;
            const QRectF inter = p[i].caixa.intersected(p[j].caixa);
            // Glyph boxes of neighbouring lines touch by a hair; real overlap is more.
            if (inter.width() > 1.0 && inter.height() > 2.0)
                return QStringLiteral("sobreposto: \"%1\" e \"%2\"").arg(p[i].texto, p[j].texto);
        }
    }
    return {};
}

}
