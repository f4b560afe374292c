#include "orders/ImpressaoPainel.h"

#include <QDate>

#include "data/FuncoesMascaras.h"
#include "documents/Impressora.h"

namespace ImpressaoPainel {

namespace {

struct Coluna {
    const char* titulo;
    int x;  // twips from the left edge of the printable area
};
// Number, name, kind, model, the two telephones, the work: landscape is not needed at 8 points.
const Coluna Colunas[] = {{"OS", 200},        {"Nome Cliente", 1000}, {"Tipo", 3900}, {"Modelo", 4700},
                          {"Telefone", 5900}, {"Celular", 7300},      {"Servico", 8900}};

void cabecalho(Impressora& p, const QString& titulo)
{
    p.setFontBold(true);
    const int topo = p.currentY();
    p.setCurrentX(200);
    p.printLinha(titulo);
    const QString pagina = QStringLiteral("Página: %1").arg(p.pagina());
    p.setCurrentX(p.width() - Impressora::MargemDireita - p.textWidth(pagina));
    p.setCurrentY(topo);
    p.printLinha(pagina);
    const int y = p.currentY() + p.alturaLinha() / 2;
    for (const Coluna& c : Colunas) {
        p.setCurrentX(c.x);
        p.setCurrentY(y);
        p.printLinha(QString::fromUtf8(c.titulo));
    }
    p.setCurrentY(y + p.alturaLinha());
    p.line(200, p.currentY(), p.width() - Impressora::MargemDireita, p.currentY());
    p.setCurrentY(p.currentY() + 40);
    p.setFontBold(false);
}

} // namespace

QString servicoEmLinhas(const QString& servico)
{
    QStringList itens;
    for (const QString& s : servico.split(QLatin1Char(',')))
        if (!s.trimmed().isEmpty())
            itens << s.trimmed();
    return itens.join(QLatin1Char('\n'));
}

void imprimir(const QString& titulo, const QList<LinhaPainel>& linhas, Impressora& p)
{
    p.setFontSize(8);
    p.aoNovaPagina([&p, titulo] { cabecalho(p, titulo); });
    cabecalho(p, titulo);
    const int larguraServico = p.width() - Impressora::MargemDireita - Colunas[6].x;
    for (const LinhaPainel& l : linhas) {
        const QStringList servico = p.quebrar(servicoEmLinhas(l.ServicoExecutado), larguraServico);
        const int altura = p.alturaLinha() * qMax<int>(1, servico.size());
        p.garantirEspaco(altura);
        const int y = p.currentY();
        const QString celulas[] = {l.CodOs, l.NomeCliente, l.Tipo, l.Modelo, MascaraTelefone(l.Telefone),
                                   MascaraTelefone(l.Celular)};
        for (int i = 0; i < 6; ++i) {
            p.setCurrentX(Colunas[i].x);
            p.setCurrentY(y);
            p.printLinha(p.cortado(celulas[i], Colunas[i + 1].x - Colunas[i].x - 60));
        }
        for (int i = 0; i < servico.size(); ++i) {
            p.setCurrentX(Colunas[6].x);
            p.setCurrentY(y + i * p.alturaLinha());
            p.printLinha(servico.at(i));
        }
        p.setCurrentY(y + altura + 30);
    }
    p.aoNovaPagina({});
}

}
