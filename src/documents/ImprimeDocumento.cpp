#include "documents/ImprimeDocumento.h"

#include <QPrinter>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/ImprimeWord.h"
#include "ui/Dialogos.h"

namespace DocumentosOrdem {

const DocumentoOrdem Entrada = {
    QStringLiteral("Entrada"), QStringLiteral("AutoImpressora"), QStringLiteral("AbreEntrada"),
    QStringLiteral("EditaEntrada"), QStringLiteral("OrdemEntrada"), QStringLiteral("NOsEntrada"),
    TipoFicha::Entrada, QStringLiteral("entrada.odt")};
const DocumentoOrdem Devolucao = {
    QStringLiteral("Devolução"), QStringLiteral("AutoImpressora"), QStringLiteral("AbreDevo"),
    QStringLiteral("EditaDevo"), QStringLiteral("OrdemDevolucao"), QStringLiteral("NOsSaida"),
    TipoFicha::Saida, QStringLiteral("devolucao.odt")};
const DocumentoOrdem SaidaPagamento = {
    QStringLiteral("Saída"), QStringLiteral("AutoImpressora"), QStringLiteral("AbreSaida"),
    QStringLiteral("EditaSaida"), QStringLiteral("OrdemSaida"), QStringLiteral("NOsSaida"),
    TipoFicha::Saida, QStringLiteral("saida.odt")};
// The budget shares the delivery's copies on purpose: there is no key of its own.
const DocumentoOrdem Orcamento = {
    QStringLiteral("Orçamento"), QStringLiteral("AutoImpressora"), QStringLiteral("AbreOrca"),
    QStringLiteral("EditaOrca"), QStringLiteral("OrdemOrcamento"), QStringLiteral("NOsSaida"),
    TipoFicha::Orcamento, QStringLiteral("orcamento.odt")};

const DocumentoOrdem& doCadastroCompleto(int fichaTipo)
{
    return fichaTipo == int(TipoFicha::Saida) ? Devolucao : Entrada;
}

}

namespace {

// "O.S 1234 - Entrada": the order's number as the counter knows it, and the document.
QString nomeDoArquivo(Banco& banco, const DocumentoOrdem& documento, qint64 codOsAut)
{
    QString numero = QString::number(codOsAut);
    try {
        const QVariant codOs = banco.escalar(QStringLiteral("SELECT CodOs FROM OrdemServico WHERE CodOsAut = ?"),
                                             {codOsAut});
        if (!codOs.isNull())
            numero = codOs.toString();
    } catch (const ErroBanco&) {
        // Only the proposed name suffers; the sheet itself reports a store that failed.
    }
    return QStringLiteral("O.S %1 - %2").arg(numero, documento.nome);
}

} // namespace

bool ImprimeDocumento(Banco& banco, const DocumentoOrdem& documento, qint64 codOsAut, QWidget* pai,
                      Destino::Tipo destino)
{
    const bool dialogo = ConfigImpressao::ligado(documento.chaveDialogo);
    const bool abre = ConfigImpressao::ligado(documento.chaveAbre);
    const bool edita = ConfigImpressao::ligado(documento.chaveEdita);
    const bool padrao = ConfigImpressao::ligado(QStringLiteral("ImprimePadrao"));

    if (padrao) {
        PedidoFicha pedido;
        pedido.tipo = documento.ficha;
        pedido.codOsAut = codOsAut;
        pedido.copias = ConfigImpressao::copias(documento.chaveCopias);
        Destino d{destino, {}, dialogo, pai};
        d.nomeProposto = nomeDoArquivo(banco, documento, codOsAut);
        return Impressao::imprimir(banco, pedido, d);
    }

    // The template merge. The printer is chosen first, as for the sheets; a cancelled
    // choice still prints, on the printer last chosen.
    QPrinter impressora(QPrinter::HighResolution);
    if (dialogo)
        Dialogos::escolherImpressora(pai, &impressora);
    QString modelo;
    if (abre) {
        const auto escolhido = Dialogos::abrirArquivo(pai, QStringLiteral("Escolha o modelo do documento"),
                                                      ImprimeWord::pastaDocumentos(),
                                                      QStringLiteral("Documentos (*.docx *.odt);;Todos arquivos (*)"));
        if (!escolhido) {
            Dialogos::mensagem(pai, QStringLiteral("Nenhum modelo foi escolhido; o documento não foi impresso."),
                               QStringLiteral("Imprimir documento"), Dialogos::Icone::Aviso);
            return false;
        }
        modelo = *escolhido;
    } else {
        modelo = ConfigImpressao::ler(documento.chaveModelo);
        // A new installation has no template configured yet: ours serves until the shop
        // chooses its own.
        if (modelo.isEmpty())
            modelo = ImprimeWord::modeloPadrao(documento.modeloPadrao);
    }
    ImprimeWord::Pedido pedido;
    pedido.codOsAut = codOsAut;
    pedido.modelo = modelo;
    pedido.orcamento = documento.ficha == TipoFicha::Orcamento;
    pedido.nomeDocumento = documento.nome;
    if (pedido.orcamento)
        sessao().FichaTipo = QString::number(int(TipoFicha::Orcamento));
    const bool ok = ImprimeWord::imprimir(banco, pedido, edita, &impressora, pai);
    sessao().FichaTipo.clear();
    return ok;
}
