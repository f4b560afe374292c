#include "documents/ImprimeWord.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/FuncoesMascaras.h"
#include "data/Local.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "documents/DocumentoModelo.h"
#include "documents/FichaLayout.h"
#include "documents/Impressao.h"
#include "documents/Visualizador.h"
#include "ui/Dialogos.h"

namespace ImprimeWord {

namespace {

const QString TituloErro = QStringLiteral("Erro ao gerar o documento");

QString umaLinha(const QString& t)
{
    return FichaLayout::semQuebras(t, QStringLiteral(" "));
}

void avisar(QWidget* pai, const QString& texto)
{
    Dialogos::mensagem(pai, texto, TituloErro, Dialogos::Icone::Aviso);
}

bool mesmoArquivo(const QString& a, const QString& b)
{
    const QFileInfo fa(a), fb(b);
    const QString ca = fa.exists() ? fa.canonicalFilePath() : fa.absoluteFilePath();
    const QString cb = fb.exists() ? fb.canonicalFilePath() : fb.absoluteFilePath();
    return ca == cb;
}

QString programaOffice()
{
    for (const char* nome : {"soffice", "libreoffice"}) {
        const QString p = QStandardPaths::findExecutable(QLatin1String(nome));
        if (!p.isEmpty())
            return p;
    }
    return {};
}

QString emLinha(const QString& t)
{
    return FichaLayout::semQuebras(t, QStringLiteral(" - "));
}

} // namespace

Marcas marcasEmpresa(Banco& banco)
{
    Recordset e(banco);
    e.abrir(QStringLiteral("Empresa"));
    const bool tem = !e.eof();
    auto t = [&](const char* coluna) { return tem ? e.texto(QLatin1String(coluna)) : QString(); };
    const QString doc = t("CpfCnpj");
    return {
        {QStringLiteral("@NOMEEMPRESA"), t("NomeEmpresa")},
        {QStringLiteral("@ENDERECOEMPRESA"), emLinha(t("EnderecoEmpresa"))},
        {QStringLiteral("@TELEFONEEMPRESA"), MascaraTelefone(t("Telefone"))},
        {QStringLiteral("@CNPJEMPRESA"), doc.isEmpty() ? QString() : MascaraCnpjCpf(doc)},
    };
}

void definirAbridor(std::function<bool(const QString&)> f) { Visualizador::definir(std::move(f)); }

QString pastaDocumentos()
{
    const QString base = sessao().PastaPrograma.isEmpty() ? Local::pastaPrograma() : sessao().PastaPrograma;
    return QDir(base).filePath(QStringLiteral("Documentos"));
}

QString modeloPadrao(const QString& nomeArquivo)
{
    const QString base = sessao().PastaPrograma.isEmpty() ? Local::pastaPrograma() : sessao().PastaPrograma;
    // The shop's copy beside its settings, then the installed ones; in the source tree
    // while the program is being built.
    for (const QString& pasta : {QDir(base).filePath(QStringLiteral("modelos")),
                                 QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("modelos")),
                                 QDir(Local::pastaInstalada()).filePath(QStringLiteral("modelos")),
                                 QDir(QStringLiteral(TOLDEX_FONTE_DIR)).filePath(QStringLiteral("modelos"))}) {
        const QString p = QDir(pasta).filePath(nomeArquivo);
        if (QFileInfo::exists(p))
            return p;
    }
    return {};
}

Marcas marcas(const Recordset& o, const QDate& hoje)
{
    auto t = [&](const char* c) { return o.texto(QLatin1String(c)); };
    auto moeda = [&](const char* c) { return o.dinheiro(QLatin1String(c)).textoMoeda(); };
    auto data = [&](const char* c) { return Datas::bancoParaTela(t(c)); };
    const bool fabrica = o.flag(QStringLiteral("Fabrica"));
    const bool garantia = o.flag(QStringLiteral("Garantia"));
    // A line break inside the address reads " - ", as the sheets print it.
    const QString endereco = t("Endereco").isEmpty()
        ? QString()
        : emLinha(t("Endereco") + QLatin1Char('-') + t("Ncasa") + QLatin1Char('-') + t("Bairro") + QLatin1Char('-')
                  + t("Cidade"));
    const QString os = o.nulo(QStringLiteral("CodOs")) ? QString() : QString::number(o.inteiro(QStringLiteral("CodOs")));
    // "XXXXX" crosses out a line of the shop's form; the other two tags just vanish.
    return {
        {QStringLiteral("@OS"), os},
        {QStringLiteral("@FABRICAOS"), t("CodFabrica")},
        {QStringLiteral("@GARANTIAFABRICA"), fabrica ? QStringLiteral("Garantia da fábrica") : QString()},
        {QStringLiteral("@FABRICACONSERTO"), fabrica ? QStringLiteral("Fábrica") : QStringLiteral("XXXXX")},
        {QStringLiteral("@GARANTIAOFICINA"), garantia ? QStringLiteral("Garantia da oficina") : QStringLiteral("XXXXX")},
        {QStringLiteral("@GARANTIACONSERTO"), garantia ? QStringLiteral("Oficina") : QString()},
        {QStringLiteral("@CPFCNPJ"), t("CpfCnpj")},
        {QStringLiteral("@CODIGOCLIENTE"), t("CodCliente")},
        {QStringLiteral("@NOMECLIENTE"), t("NomeCliente")},
        {QStringLiteral("@ENDERECOCLIENTE"), endereco},
        {QStringLiteral("@TELEFONECLIENTE"), MascaraTelefone(t("Telefone"))},
        {QStringLiteral("@CELULARCLIENTE"), MascaraTelefone(t("Celular"))},
        {QStringLiteral("@TIPOPRODUTO"), t("Tipo")},
        {QStringLiteral("@MARCAPRODUTO"), t("Marca")},
        {QStringLiteral("@MODELOPRODUTO"), t("Modelo")},
        {QStringLiteral("@NUMEROSERIE"), t("NumeroSerie")},
        {QStringLiteral("@NUMEROCERTIFICADO"), t("Certificado")},
        {QStringLiteral("@NUMERONOTA"), t("NotaFiscal")},
        {QStringLiteral("@DATANOTA"), t("DataNota")},
        {QStringLiteral("@REVENDEDOR"), t("Revendedor")},
        {QStringLiteral("@ESTADOPRODUTO"), t("EstadoAparelho")},
        {QStringLiteral("@ACESSORIOPRODUTO"), t("Acessorio")},
        {QStringLiteral("@DEFEITORECLAMADO"), t("Sintoma")},
        {QStringLiteral("@CAMPOOBSERVACAO"), umaLinha(t("Observacao"))},
        {QStringLiteral("@LOCALARMAZENADO"), t("Armazenado")},
        {QStringLiteral("@DATAENTRADA"), data("DataEntrada")},
        {QStringLiteral("@DATASAIDA"), data("DataSaida")},
        {QStringLiteral("@SERVICOEXECUTADO"), umaLinha(t("ServicoExecutado"))},
        {QStringLiteral("@NOMETECNICO"), t("Tecnico")},
        {QStringLiteral("@STATUSCONSERTO"), t("StatusConserto")},
        {QStringLiteral("@VALORPAGAR"), moeda("ValorPagar")},
        {QStringLiteral("@VALORPAGO"), moeda("ValorPago")},
        {QStringLiteral("@VALORDESCONTO"), moeda("ValorDesconto")},
        {QStringLiteral("@VALORMAOOBRA"), moeda("MaoObra")},
        {QStringLiteral("@VALORPECA"), moeda("ValorVenda")},
        {QStringLiteral("@FUNCIONARIO"), t("OsAlterado")},
        {QStringLiteral("@DATAPROMETIDA"), data("DataEntrega")},
        {QStringLiteral("@CORPRODUTO"), t("CorProduto")},
        {QStringLiteral("@DEFEITOREAL"), t("DefeitoReal")},
        {QStringLiteral("@DATALONGAAGORA"), QLocale(QLocale::Portuguese, QLocale::Brazil)
                                                 .toString(hoje, QStringLiteral("dd MMMM yyyy"))},
        {QStringLiteral("@DATASIMPLESAGORA"), hoje.toString(QStringLiteral("dd/MM/yyyy"))},
    };
}

std::optional<QString> gerar(Banco& banco, const Pedido& pedido, QWidget* pai)
{
    if (pedido.modelo.isEmpty() || !QFileInfo::exists(pedido.modelo)) {
        avisar(pai, pedido.modelo.isEmpty()
                        ? QStringLiteral("Nenhum modelo de documento está configurado para esta impressão.\n"
                                         "Escolha um na configuração do sistema.")
                        : QStringLiteral("O modelo \"%1\" não foi encontrado.\nVerifique o caminho na configuração "
                                         "do sistema.").arg(QDir::toNativeSeparators(pedido.modelo)));
        return std::nullopt;
    }
    try {
        Recordset ordem(banco);
        ordem.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {pedido.codOsAut});
        if (ordem.eof()) {
            avisar(pai, QStringLiteral("A ordem de serviço não foi encontrada; nenhum documento foi gerado."));
            return std::nullopt;
        }
        DocumentoModelo doc;
        QString erro;
        if (!doc.abrir(pedido.modelo, &erro)) {
            avisar(pai, erro);
            return std::nullopt;
        }
        for (const auto& [marca, valor] : marcas(ordem) + marcasEmpresa(banco))
            doc.trocar(marca, valor);
        if (pedido.orcamento) {
            Recordset pecas(banco);
            pecas.abrir(QStringLiteral("PecasAplicadas"), QStringLiteral("CodOsAut = ?"), {pedido.codOsAut},
                        QStringLiteral("CodPecAut"));
            for (; !pecas.eof(); pecas.moveNext()) {
                const QStringList celulas = {pecas.texto(QStringLiteral("Descricao")),
                                             pecas.quantidade(QStringLiteral("Quantidade")).texto(),
                                             pecas.dinheiro(QStringLiteral("ValorVenda")).texto(),
                                             pecas.dinheiro(QStringLiteral("ValorTotal")).texto()};
                if (!doc.preencherLinhaTabela(celulas)) {
                    // The document still serves, without its list of parts.
                    Dialogos::mensagem(pai, QStringLiteral("O modelo do orçamento não tem uma tabela para as peças; "
                                                           "o documento foi gerado sem elas."),
                                       TituloErro, Dialogos::Icone::Aviso);
                    break;
                }
            }
        }
        const QString nome = (pedido.nomeDocumento.isEmpty() ? QFileInfo(pedido.modelo).completeBaseName()
                                                             : pedido.nomeDocumento)
            + QLatin1Char(' ') + QString::number(ordem.inteiro(QStringLiteral("CodOs")));
        QString destino = QDir(pastaDocumentos()).filePath(nome + QLatin1Char('.') + doc.extensao());
        // A template kept in the documents folder under the same name stays as it is.
        for (int n = 2; mesmoArquivo(destino, pedido.modelo); ++n)
            destino = QDir(pastaDocumentos()).filePath(QStringLiteral("%1 (%2).%3").arg(nome).arg(n).arg(doc.extensao()));
        if (!QDir().mkpath(pastaDocumentos()) || !doc.salvar(destino, &erro)) {
            avisar(pai, erro.isEmpty() ? QStringLiteral("Não foi possível criar a pasta \"%1\".")
                                             .arg(QDir::toNativeSeparators(pastaDocumentos()))
                                       : erro);
            return std::nullopt;
        }
        return destino;
    } catch (const ErroBanco& e) {
        Dialogos::erro(pai, TituloErro, e.textoCompleto());
        return std::nullopt;
    }
}

namespace {

bool abrirParaEditar(const QString& arquivo, qint64 codOs, QWidget* pai)
{
    QString aberto = arquivo;
    if (Dialogos::pergunta(pai, QStringLiteral("Deseja salvar o arquivo gerado no Word"),
                           QStringLiteral("Ordem de Serviço"))) {
        const QString ext = QFileInfo(arquivo).suffix();
        const auto escolhido = Dialogos::salvarArquivo(pai, QStringLiteral("Salvar documento"), QStringLiteral("Ordem"),
                                                       QStringLiteral("Documentos (*.%1)").arg(ext));
        if (escolhido) {
            QString base = *escolhido;
            if (base.endsWith(QLatin1Char('.') + ext, Qt::CaseInsensitive))
                base.chop(ext.size() + 1);
            const QString salvo = base + QLatin1Char(' ') + QString::number(codOs) + QLatin1Char('.') + ext;
            QFile::remove(salvo);
            if (QFile::copy(arquivo, salvo))
                aberto = salvo;
            else
                avisar(pai, QStringLiteral("Não foi possível salvar \"%1\"; o documento abre da pasta Documentos.")
                                .arg(QDir::toNativeSeparators(salvo)));
        }
    }
    if (!Visualizador::abrir(aberto)) {
        avisar(pai, QStringLiteral("Não foi possível abrir o documento \"%1\".\nNenhum programa para editar "
                                   "documentos foi encontrado.").arg(QDir::toNativeSeparators(aberto)));
        return false;
    }
    return true;
}

bool imprimirArquivo(const QString& arquivo, QPrinter* impressora, QWidget* pai)
{
    const QString office = programaOffice();
    if (office.isEmpty()) {
        avisar(pai, QStringLiteral("Para imprimir documentos é preciso ter o LibreOffice instalado neste computador.\n"
                                   "O documento foi salvo em \"%1\".").arg(QDir::toNativeSeparators(arquivo)));
        return false;
    }
    const bool paraArquivo = impressora && !impressora->outputFileName().isEmpty();
    if (!paraArquivo && !Impressao::temImpressora(pai))
        return false;
    QTemporaryDir tmp;
    QProcess conv;
    conv.start(office, {QStringLiteral("--headless"), QStringLiteral("--convert-to"), QStringLiteral("pdf"),
                        QStringLiteral("--outdir"), tmp.path(), arquivo});
    const bool terminou = conv.waitForFinished(180000);
    const QString pdf = QDir(tmp.path()).filePath(QFileInfo(arquivo).completeBaseName() + QStringLiteral(".pdf"));
    if (!terminou || conv.exitCode() != 0 || !QFileInfo::exists(pdf)) {
        avisar(pai, QStringLiteral("O LibreOffice não conseguiu converter o documento para impressão.\n"
                                   "O documento foi salvo em \"%1\".").arg(QDir::toNativeSeparators(arquivo)));
        return false;
    }
    // The printer dialog may have sent the job to a PDF file.
    if (impressora && !impressora->outputFileName().isEmpty()) {
        QFile::remove(impressora->outputFileName());
        if (!QFile::copy(pdf, impressora->outputFileName())) {
            avisar(pai, QStringLiteral("Não foi possível gravar \"%1\".").arg(impressora->outputFileName()));
            return false;
        }
        return true;
    }
    const QString lp = QStandardPaths::findExecutable(QStringLiteral("lp"));
    QStringList args;
    QString programa = lp;
    if (!lp.isEmpty()) {
        if (impressora && !impressora->printerName().isEmpty())
            args << QStringLiteral("-d") << impressora->printerName();
        if (impressora && impressora->copyCount() > 1)
            args << QStringLiteral("-n") << QString::number(impressora->copyCount());
        args << pdf;
    } else {
        programa = office;
        args << QStringLiteral("--headless");
        if (impressora && !impressora->printerName().isEmpty())
            args << QStringLiteral("--pt") << impressora->printerName() << arquivo;
        else
            args << QStringLiteral("-p") << arquivo;
    }
    QProcess imp;
    imp.start(programa, args);
    if (!imp.waitForFinished(180000) || imp.exitCode() != 0) {
        avisar(pai, QStringLiteral("A impressora não aceitou o documento.\nO documento foi salvo em \"%1\".")
                        .arg(QDir::toNativeSeparators(arquivo)));
        return false;
    }
    return true;
}

} // namespace

bool imprimir(Banco& banco, const Pedido& pedido, bool editar, QPrinter* impressora, QWidget* pai)
{
    const auto arquivo = gerar(banco, pedido, pai);
    if (!arquivo)
        return false;
    if (editar) {
        qint64 codOs = 0;
        try {
            codOs = banco.escalar(QStringLiteral("SELECT CodOs FROM OrdemServico WHERE CodOsAut = ?"), {pedido.codOsAut})
                        .toLongLong();
        } catch (const ErroBanco&) {
        }
        return abrirParaEditar(*arquivo, codOs, pai);
    }
    return imprimirArquivo(*arquivo, impressora, pai);
}

}
