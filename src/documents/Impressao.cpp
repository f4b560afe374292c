#include "documents/Impressao.h"

#include <QDir>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QBuffer>
#include <QFileInfo>
#include <QPdfWriter>
#include <optional>

#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/CupomBobina.h"
#include "documents/Impressora.h"
#include "documents/Visualizador.h"
#include "ui/Dialogos.h"

namespace Impressao {

namespace {

const QString TituloErro = QStringLiteral("Erro ao imprimir");

void prepararPagina(QPrinter& impressora)
{
    // A4 by default; a printer chosen in the dialog keeps its own paper.
    impressora.setPageSize(QPageSize(QPageSize::A4));
    impressora.setPageOrientation(QPageLayout::Portrait);
    impressora.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    impressora.setDocName(QStringLiteral("Toldex"));
}

class FichaNaSessao {
public:
    FichaNaSessao(const PedidoFicha& pedido)
    {
        sessao().FichaTipo = QString::number(int(pedido.tipo));
        sessao().FichaCopias = QString::number(pedido.copias);
    }
    // The next print starts from a clean hand-over, as it always has.
    ~FichaNaSessao() { sessao().FichaTipo.clear(); }
};

bool desenhar(const Desenho& desenho, QPrinter& impressora, QWidget* pai)
{
    Impressora p(&impressora);
    if (!p.iniciar()) {
        const QString onde = impressora.outputFormat() == QPrinter::PdfFormat
            ? QStringLiteral("no arquivo \"%1\"").arg(QDir::toNativeSeparators(impressora.outputFileName()))
            : QStringLiteral("na impressora \"%1\"").arg(impressora.printerName());
        Dialogos::mensagem(pai, QStringLiteral("Não foi possível imprimir %1.\nVerifique se a impressora está "
                                               "ligada ou se a pasta permite gravar.").arg(onde),
                           TituloErro, Dialogos::Icone::Aviso);
        return false;
    }
    try {
        desenho(p);
    } catch (const ErroBanco& e) {
        p.endDoc();
        Dialogos::mensagem(pai, QStringLiteral("A impressão foi interrompida.\n") + e.textoCompleto(), TituloErro,
                           Dialogos::Icone::Aviso);
        return false;
    }
    return true;
}

std::unique_ptr<ImprimeFicha> carregar(Banco& banco, const PedidoFicha& pedido, QWidget* pai)
{
    auto ficha = std::make_unique<ImprimeFicha>(banco, pedido, ConfigFicha::atual());
    try {
        ficha->carregar();
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(pai, e.textoCompleto(), TituloErro, Dialogos::Icone::Aviso);
        return nullptr;
    }
    return ficha;
}

PedidoFicha pedido(TipoFicha tipo, int copias)
{
    PedidoFicha p;
    p.tipo = tipo;
    p.copias = copias;
    return p;
}

PedidoFicha pedidoOrdem(TipoFicha tipo, qint64 codOsAut, int copias)
{
    PedidoFicha p = pedido(tipo, copias);
    p.codOsAut = codOsAut;
    return p;
}

} // namespace

bool temImpressora(QWidget* pai)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        return true;
    Dialogos::mensagem(pai, QStringLiteral("Nenhuma impressora está instalada neste computador.\n"
                                           "Instale uma impressora ou salve a ficha em PDF."),
                       TituloErro, Dialogos::Icone::Aviso);
    return false;
}

QString arquivoProposto(const QString& nome)
{
    QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // A fresh account may not have its documents folder yet; the file dialog would
    // otherwise start wherever the program happens to run.
    if (pasta.isEmpty() || !QDir().mkpath(pasta))
        pasta = QDir::homePath();
    // A name never carries a folder separator from an order's data.
    QString limpo = nome;
    limpo.replace(QLatin1Char('/'), QLatin1Char('-')).replace(QLatin1Char('\\'), QLatin1Char('-'));
    return QDir(pasta).filePath(limpo + QStringLiteral(".pdf"));
}

namespace {

// No printer on this machine: the sheet can still be kept as a PDF or looked at.
std::optional<Destino::Tipo> semImpressora(QWidget* pai)
{
    const auto r = Dialogos::mensagem(
        pai,
        QStringLiteral("Nenhuma impressora está instalada neste computador.\n\n"
                       "Sim: salvar a ficha em PDF e abrir no visualizador\n"
                       "Não: visualizar a ficha na tela\n"
                       "Cancelar: não imprimir"),
        QStringLiteral("Imprimir"), Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
    switch (r) {
    case Dialogos::Resposta::Sim: return Destino::Tipo::Pdf;
    case Dialogos::Resposta::Nao: return Destino::Tipo::Visualizar;
    default: return std::nullopt;
    }
}

} // namespace

namespace {

// `pagina` sets the paper; `papelProprio` keeps it also on a printer chosen in the dialog
// (the roll), where a sheet otherwise takes the chosen printer's paper.
bool imprimirNaPagina(const Desenho& desenho, const Destino& destino, const std::function<void(QPrinter&)>& pagina,
                      bool papelProprio = false);

// The roll's paper: 80 mm wide and as long as the drawing, measured by a dry run on a
// page of the same width.
QPageSize paginaBobina(const Desenho& desenho)
{
    const double margem = CupomBobina::MargemMm;
    QBuffer descarte;
    descarte.open(QIODevice::WriteOnly);
    QPdfWriter medida(&descarte);
    medida.setResolution(1200);
    medida.setPageSize(QPageSize(QSizeF(CupomBobina::LarguraMm, 2000), QPageSize::Millimeter));
    medida.setPageMargins(QMarginsF(margem, margem, margem, margem), QPageLayout::Millimeter);
    double alturaMm = 100;
    {
        Impressora p(&medida);
        if (p.iniciar()) {
            p.setSimulacao(true);
            desenho(p);
            alturaMm = (p.currentY() + Impressora::MargemInferior + 200) * 25.4 / Impressora::TwipsPorPolegada;
        }
    }
    return QPageSize(QSizeF(CupomBobina::LarguraMm, alturaMm + 2 * margem), QPageSize::Millimeter,
                     QStringLiteral("Bobina 80 mm"), QPageSize::ExactMatch);
}

bool imprimirBobina(Banco& banco, const PedidoFicha& pedido, const Destino& destino)
{
    CupomBobina cupom(banco, pedido, ConfigFicha::atual());
    try {
        cupom.carregar();
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(destino.pai, e.textoCompleto(), TituloErro, Dialogos::Icone::Aviso);
        return false;
    }
    const Desenho desenho = [&cupom](Impressora& p) { cupom.imprimir(p); };
    const QPageSize pagina = paginaBobina(desenho);
    return imprimirNaPagina(desenho, destino, [&pagina](QPrinter& impressora) {
        impressora.setPageSize(pagina);
        impressora.setPageOrientation(QPageLayout::Portrait);
        impressora.setPageMargins(QMarginsF(CupomBobina::MargemMm, CupomBobina::MargemMm, CupomBobina::MargemMm,
                                            CupomBobina::MargemMm),
                                  QPageLayout::Millimeter);
        impressora.setDocName(QStringLiteral("Toldex"));
    }, true);
}

} // namespace

bool imprimir(Banco& banco, const PedidoFicha& pedido, const Destino& destino)
{
    FichaNaSessao naSessao(pedido);
    if (CupomBobina::escolhida() && CupomBobina::serve(pedido.tipo))
        return imprimirBobina(banco, pedido, destino);
    auto ficha = carregar(banco, pedido, destino.pai);
    if (!ficha)
        return false;
    return imprimirDesenho([&ficha](Impressora& p) { ficha->imprimir(p); }, destino);
}

bool imprimirDesenho(const Desenho& desenho, const Destino& destino, QPageLayout::Orientation orientacao)
{
    return imprimirNaPagina(desenho, destino, [orientacao](QPrinter& impressora) {
        prepararPagina(impressora);
        impressora.setPageOrientation(orientacao);
    });
}

namespace {

bool imprimirNaPagina(const Desenho& desenho, const Destino& pedidoDestino, const std::function<void(QPrinter&)>& pagina,
                      bool papelProprio)
{
    QPrinter impressora(QPrinter::HighResolution);
    pagina(impressora);

    Destino destino = pedidoDestino;
    if (destino.tipo == Destino::Tipo::Impressora && !destino.escolherImpressora
        && QPrinterInfo::availablePrinterNames().isEmpty()) {
        const auto outro = semImpressora(destino.pai);
        if (!outro)
            return false;
        destino.tipo = *outro;
    }

    switch (destino.tipo) {
    case Destino::Tipo::Pdf: {
        QString arquivo = destino.arquivoPdf;
        const bool escolhidoAgora = arquivo.isEmpty();
        if (escolhidoAgora) {
            const auto escolhido = Dialogos::salvarArquivo(destino.pai, QStringLiteral("Salvar PDF"),
                                                           arquivoProposto(destino.nomeProposto),
                                                           QStringLiteral("Documento PDF (*.pdf)"));
            if (!escolhido)
                return false;
            arquivo = *escolhido;
        }
        if (!arquivo.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
            arquivo += QStringLiteral(".pdf");
        impressora.setOutputFormat(QPrinter::PdfFormat);
        impressora.setOutputFileName(arquivo);
        if (!desenhar(desenho, impressora, destino.pai))
            return false;
        // What the user just saved is what they want to see (and print from the viewer).
        if (escolhidoAgora && !Visualizador::abrir(arquivo))
            Dialogos::mensagem(destino.pai,
                               QStringLiteral("A ficha foi salva em \"%1\", mas nenhum visualizador de PDF abriu.")
                                   .arg(QDir::toNativeSeparators(arquivo)),
                               QStringLiteral("Imprimir"), Dialogos::Icone::Aviso);
        return true;
    }
    case Destino::Tipo::Visualizar: {
        if (Dialogos::Roteiro::ativo()) {
            // Under a scripted test nothing opens: the pages are drawn where nobody sees them.
            QTemporaryDir dir;
            impressora.setOutputFormat(QPrinter::PdfFormat);
            impressora.setOutputFileName(dir.filePath(QStringLiteral("visualizar.pdf")));
            return desenhar(desenho, impressora, destino.pai);
        }
        QPrintPreviewDialog previa(&impressora, destino.pai);
        previa.setWindowTitle(QStringLiteral("Visualizar impressão"));
        bool ok = true;
        QObject::connect(&previa, &QPrintPreviewDialog::paintRequested, &previa,
                         [&](QPrinter* p) { ok = desenhar(desenho, *p, destino.pai) && ok; });
        previa.exec();
        return ok;
    }
    case Destino::Tipo::Impressora:
        break;
    }
    if (destino.escolherImpressora) {
        // A cancelled choice doesn't stop the print: it goes to the printer last chosen.
        Dialogos::escolherImpressora(destino.pai, &impressora);
        if (papelProprio)
            pagina(impressora);
    }
    if (impressora.outputFileName().isEmpty() && !temImpressora(destino.pai))
        return false;
    return desenhar(desenho, impressora, destino.pai);
}

} // namespace

bool fichaEntrada(Banco& banco, qint64 codOsAut, int copias, const Destino& destino)
{
    return imprimir(banco, pedidoOrdem(TipoFicha::Entrada, codOsAut, copias), destino);
}

bool fichaSaida(Banco& banco, qint64 codOsAut, int copias, const Destino& destino)
{
    return imprimir(banco, pedidoOrdem(TipoFicha::Saida, codOsAut, copias), destino);
}

bool fichaOrcamento(Banco& banco, qint64 codOsAut, int copias, const Destino& destino)
{
    return imprimir(banco, pedidoOrdem(TipoFicha::Orcamento, codOsAut, copias), destino);
}

bool fichaSaidaCaixa(Banco& banco, qint64 codOsAut, int copias, const Destino& destino)
{
    return imprimir(banco, pedidoOrdem(TipoFicha::SaidaCaixa, codOsAut, copias), destino);
}

bool fichaCliente(Banco& banco, const FichaCliente& cliente, int copias, const Destino& destino)
{
    PedidoFicha p = pedido(TipoFicha::Cliente, copias);
    p.cliente = cliente;
    return imprimir(banco, p, destino);
}

bool reciboVenda(Banco& banco, qint64 codVenda, int copias, const Destino& destino)
{
    PedidoFicha p = pedido(TipoFicha::ReciboVenda, copias);
    p.codVenda = codVenda;
    return imprimir(banco, p, destino);
}

bool fichaVisita(Banco& banco, const FichaVisita& visita, int copias, const Destino& destino)
{
    PedidoFicha p = pedido(TipoFicha::Visita, copias);
    p.visita = visita;
    return imprimir(banco, p, destino);
}

bool reciboCompleto(Banco& banco, const FichaRecebimento& recebimento, int copias, const Destino& destino)
{
    PedidoFicha p = pedido(TipoFicha::ReciboCompleto, copias);
    p.recebimento = recebimento;
    return imprimir(banco, p, destino);
}

bool reciboCompacto(Banco& banco, const FichaRecebimento& recebimento, const Destino& destino)
{
    PedidoFicha p = pedido(TipoFicha::ReciboCompacto, 1);
    p.recebimento = recebimento;
    return imprimir(banco, p, destino);
}

bool imprimeVisita(Banco& banco, const FichaVisita& visita, QWidget* pai)
{
    return fichaVisita(banco, visita, ConfigImpressao::copias(QStringLiteral("Visita")),
                       Destino::impressora(pai, ConfigImpressao::ligado(QStringLiteral("AutoVisita"))));
}

}
