#include <QCryptographicHash>
#include <QTemporaryDir>
#include <QTest>

#include <zip.h>

#include "apoio/BancoTeste.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "documents/ApoioDocumentos.h"
#include "documents/DocumentoModelo.h"
#include "documents/ImprimeDocumento.h"
#include "documents/ImprimeWord.h"
#include "ui/Dialogos.h"

using namespace apoio;

namespace {

// A small archive written by hand, as an office program would leave it.
void escreverZip(const QString& arquivo, const QList<QPair<QString, QByteArray>>& membros)
{
    int e = 0;
    zip_t* z = zip_open(QFile::encodeName(arquivo).constData(), ZIP_CREATE | ZIP_TRUNCATE, &e);
    QVERIFY(z);
    QList<QByteArray> guardados;
    for (const auto& [nome, dados] : membros) {
        guardados.append(dados);
        zip_source_t* s = zip_source_buffer(z, guardados.last().constData(), zip_uint64_t(dados.size()), 0);
        zip_file_add(z, nome.toUtf8().constData(), s, ZIP_FL_ENC_UTF_8);
    }
    QCOMPARE(zip_close(z), 0);
}

// Tags broken over runs of different formatting, in lower case, repeated, in a header,
// and a table of four columns with a heading row and an empty row.
void docxComMarcasPartidas(const QString& arquivo)
{
    const QByteArray doc =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
        "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:body>"
        "<w:p><w:r><w:t>O.S nº </w:t></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>@o</w:t></w:r><w:r><w:t>s</w:t></w:r></w:p>"
        "<w:p><w:r><w:t xml:space=\"preserve\">Cliente: @NOME</w:t></w:r><w:r><w:rPr><w:i/></w:rPr><w:t>CLI</w:t></w:r>"
        "<w:r><w:t>ENTE e de novo @nomecliente.</w:t></w:r></w:p>"
        "<w:p><w:r><w:t>Fábrica: @FABRICACONSERTO / @GARANTIAFABRICA|</w:t></w:r></w:p>"
        "<w:p><w:r><w:t>Oficina: @GARANTIAOFICINA / @GARANTIACONSERTO|</w:t></w:r></w:p>"
        "<w:p><w:r><w:t>Obs: @CAMPOOBSERVACAO</w:t></w:r></w:p>"
        "<w:p><w:r><w:t>Total: @VALOR</w:t></w:r><w:r><w:t>PAGAR</w:t></w:r><w:r><w:tab/><w:t>Pago: @VALORPAGO</w:t></w:r></w:p>"
        "<w:p><w:r><w:t xml:space=\"preserve\">Nota: @NUMERONOTA</w:t></w:r><w:r><w:tab/><w:t>fim</w:t></w:r></w:p>"
        "<w:tbl><w:tr><w:tc><w:p><w:r><w:t>Descrição</w:t></w:r></w:p></w:tc><w:tc><w:p><w:r><w:t>Quant</w:t></w:r></w:p></w:tc>"
        "<w:tc><w:p><w:r><w:t>Unitário</w:t></w:r></w:p></w:tc><w:tc><w:p><w:r><w:t>Total</w:t></w:r></w:p></w:tc></w:tr>"
        "<w:tr><w:tc><w:p/></w:tc><w:tc><w:p/></w:tc><w:tc><w:p/></w:tc><w:tc><w:p/></w:tc></w:tr></w:tbl>"
        "</w:body></w:document>";
    const QByteArray cabecalho =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><w:hdr xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
        "<w:p><w:r><w:t>Cabeçalho da O.S @</w:t></w:r><w:r><w:t>OS</w:t></w:r></w:p></w:hdr>";
    escreverZip(arquivo, {{"[Content_Types].xml", "<?xml version=\"1.0\"?><Types/>"},
                          {"word/document.xml", doc},
                          {"word/header1.xml", cabecalho}});
}

void odtComMarcasPartidas(const QString& arquivo)
{
    const QByteArray conteudo =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
        "<office:document-content xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
        "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\"><office:body><office:text>"
        "<text:h>O.S nº <text:span text:style-name=\"N\">@o</text:span>s</text:h>"
        "<text:p>Cliente: @NOME<text:span text:style-name=\"I\">CLI</text:span>ENTE e de novo @nomecliente.</text:p>"
        "<text:p>Fábrica: @FABRICACONSERTO / @GARANTIAFABRICA|</text:p>"
        "<text:p>Oficina: @GARANTIAOFICINA / @GARANTIACONSERTO|</text:p>"
        "<text:p>Obs: @CAMPOOBSERVACAO</text:p>"
        "<text:p>Total: <text:span>@VALOR</text:span><text:span>PAGAR</text:span><text:tab/>Pago: @VALORPAGO</text:p>"
        "<text:p>Nota: @NUMERONOTA<text:s/>fim</text:p>"
        "<table:table><table:table-column table:number-columns-repeated=\"4\"/>"
        "<table:table-row><table:table-cell><text:p>Descrição</text:p></table:table-cell><table:table-cell><text:p>Quant</text:p></table:table-cell>"
        "<table:table-cell><text:p>Unitário</text:p></table:table-cell><table:table-cell><text:p>Total</text:p></table:table-cell></table:table-row>"
        "<table:table-row><table:table-cell><text:p/></table:table-cell><table:table-cell><text:p/></table:table-cell>"
        "<table:table-cell><text:p/></table:table-cell><table:table-cell><text:p/></table:table-cell></table:table-row>"
        "</table:table></office:text></office:body></office:document-content>";
    const QByteArray estilos =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
        "<office:document-styles xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
        "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\"><office:master-styles><style:master-page>"
        "<style:header><text:p>Cabeçalho da O.S @<text:span>OS</text:span></text:p></style:header>"
        "</style:master-page></office:master-styles></office:document-styles>";
    escreverZip(arquivo, {{"mimetype", "application/vnd.oasis.opendocument.text"},
                          {"content.xml", conteudo},
                          {"styles.xml", estilos}});
}

QByteArray hashDe(const QString& arquivo)
{
    QFile f(arquivo);
    f.open(QIODevice::ReadOnly);
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}

} // namespace

// The template merge: the tag table, tags split over runs in both formats, the budget's
// table, where the filled copy goes, the three routes and bad templates.
class TstImprimeWord : public QObject {
    Q_OBJECT

    struct Loja {
        BancoTeste banco{Motor::SQLite};
        QTemporaryDir pasta;
        QStringList abertos;
        Loja()
        {
            sessao().ArquivoIni = pasta.filePath(QStringLiteral("Toldex.ini"));
            sessao().PastaPrograma = pasta.path();
            sessao().UsuarioNome = QStringLiteral("Ana Balcão");
            configurarEmpresa(banco.banco());
            ImprimeWord::definirAbridor([this](const QString& a) {
                abertos << a;
                return true;
            });
        }
        ~Loja() { ImprimeWord::definirAbridor({}); }
        QString arquivo(const QString& nome) const { return pasta.filePath(nome); }
    };

private slots:
    void init() { Dialogos::Roteiro::iniciar(); }
    void cleanup() { Dialogos::Roteiro::encerrar(); }

    void tabelaDeMarcas_data()
    {
        QTest::addColumn<QVariantMap>("ordem");
        QTest::addColumn<QString>("marca");
        QTest::addColumn<QString>("valor");
        QTest::newRow("order number") << QVariantMap{} << "@OS" << "4711";
        QTest::newRow("NULL order number is empty") << QVariantMap{{"CodOs", QVariant()}} << "@OS" << "";
        QTest::newRow("factory job names the factory") << QVariantMap{{"Fabrica", -1}} << "@FABRICACONSERTO" << "Fábrica";
        QTest::newRow("no factory job crosses out") << QVariantMap{{"Fabrica", 0}} << "@FABRICACONSERTO" << "XXXXX";
        QTest::newRow("factory warranty text") << QVariantMap{{"Fabrica", -1}} << "@GARANTIAFABRICA" << "Garantia da fábrica";
        QTest::newRow("no factory warranty vanishes") << QVariantMap{{"Fabrica", 0}} << "@GARANTIAFABRICA" << "";
        QTest::newRow("shop warranty") << QVariantMap{{"Garantia", -1}} << "@GARANTIAOFICINA" << "Garantia da oficina";
        QTest::newRow("no shop warranty crosses out") << QVariantMap{{"Garantia", 0}} << "@GARANTIAOFICINA" << "XXXXX";
        QTest::newRow("shop repair") << QVariantMap{{"Garantia", -1}} << "@GARANTIACONSERTO" << "Oficina";
        QTest::newRow("no shop repair vanishes") << QVariantMap{{"Garantia", 0}} << "@GARANTIACONSERTO" << "";
        QTest::newRow("address joined") << QVariantMap{} << "@ENDERECOCLIENTE" << "Av. Brasil-1500-Jardim Paulista-São Paulo";
        QTest::newRow("address of two lines reads as the sheets print it")
            << QVariantMap{{"Endereco", "Av. Brasil\nBloco B"}} << "@ENDERECOCLIENTE"
            << "Av. Brasil - Bloco B-1500-Jardim Paulista-São Paulo";
        QTest::newRow("fixed phone masked") << QVariantMap{} << "@TELEFONECLIENTE" << "(11)3333-4444";
        QTest::newRow("mobile of eleven digits masked") << QVariantMap{} << "@CELULARCLIENTE" << "(11)99999-8888";
        QTest::newRow("no street, no address") << QVariantMap{{"Endereco", ""}} << "@ENDERECOCLIENTE" << "";
        QTest::newRow("observation of two lines on one") << QVariantMap{{"Observacao", "linha um\nlinha dois"}}
                                                          << "@CAMPOOBSERVACAO" << "linha um linha dois";
        QTest::newRow("service of two lines on one") << QVariantMap{{"ServicoExecutado", "a\r\nb"}} << "@SERVICOEXECUTADO"
                                                     << "a b";
        QTest::newRow("currency with thousands") << QVariantMap{} << "@VALORPAGAR" << "R$ 1.234,56";
        QTest::newRow("currency of labour") << QVariantMap{} << "@VALORMAOOBRA" << "R$ 150,00";
        QTest::newRow("zero currency") << QVariantMap{{"ValorPago", 0}} << "@VALORPAGO" << "R$ 0,00";
        QTest::newRow("parts at sale price") << QVariantMap{} << "@VALORPECA" << "R$ 1.084,56";
        QTest::newRow("entry date shown") << QVariantMap{} << "@DATAENTRADA" << "20/11/2026";
        QTest::newRow("empty exit date") << QVariantMap{{"DataSaida", ""}} << "@DATASAIDA" << "";
        QTest::newRow("promised day") << QVariantMap{} << "@DATAPROMETIDA" << "25/11/2026";
        QTest::newRow("last user") << QVariantMap{} << "@FUNCIONARIO" << "Ana Balcão";
        QTest::newRow("long date of today") << QVariantMap{} << "@DATALONGAAGORA" << "05 março 2026";
        QTest::newRow("short date of today") << QVariantMap{} << "@DATASIMPLESAGORA" << "05/03/2026";
    }
    void tabelaDeMarcas()
    {
        QFETCH(QVariantMap, ordem);
        QFETCH(QString, marca);
        QFETCH(QString, valor);
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco(), ordem);
        Recordset r(l.banco.banco());
        r.abrir(QStringLiteral("OrdemServico"), QStringLiteral("CodOsAut = ?"), {chave});
        const ImprimeWord::Marcas m = ImprimeWord::marcas(r, QDate(2026, 3, 5));
        QCOMPARE(m.size(), 41);
        // The two dates go last.
        QCOMPARE(m.at(39).first, QStringLiteral("@DATALONGAAGORA"));
        QCOMPARE(m.at(40).first, QStringLiteral("@DATASIMPLESAGORA"));
        bool achou = false;
        for (const auto& [k, v] : m)
            if (k == marca) {
                QCOMPARE(v, valor);
                achou = true;
            }
        QVERIFY(achou);
    }

    void mesclagemEmAmbosFormatos_data()
    {
        QTest::addColumn<QString>("formato");
        QTest::addColumn<int>("pecas");
        QTest::newRow("docx, budget with three parts") << "docx" << 3;
        QTest::newRow("odt, budget with three parts") << "odt" << 3;
        QTest::newRow("docx, budget without parts keeps the table") << "docx" << 0;
        QTest::newRow("odt, budget without parts keeps the table") << "odt" << 0;
    }
    void mesclagemEmAmbosFormatos()
    {
        QFETCH(QString, formato);
        QFETCH(int, pecas);
        Loja l;
        Banco& b = l.banco.banco();
        const QString modelo = l.arquivo(QStringLiteral("modelo.") + formato);
        if (formato == QLatin1String("docx"))
            docxComMarcasPartidas(modelo);
        else
            odtComMarcasPartidas(modelo);
        const QByteArray antes = hashDe(modelo);
        const qint64 chave = inserirOrdem(b, {{"Observacao", "Trocar\ncabo"}, {"NumeroSerie", ""}, {"NotaFiscal", ""}});
        const qint64 outra = inserirOrdem(b, {{"CodOs", 47}, {"NomeCliente", "11Maria da Conceição"}});
        for (int i = 1; i <= pecas; ++i)
            inserirPeca(b, chave, 4711, QStringLiteral("P%1").arg(i), QStringLiteral("Peça %1").arg(i), 2000, 1050 * i);
        inserirPeca(b, outra, 47, QStringLiteral("X"), QStringLiteral("Peça alheia"), 1000, 1);

        const auto gerado = ImprimeWord::gerar(b, {chave, modelo, true, QStringLiteral("Orçamento")});
        QVERIFY(gerado);
        QCOMPARE(QFileInfo(*gerado).dir().absolutePath(), QDir(ImprimeWord::pastaDocumentos()).absolutePath());
        QCOMPARE(QFileInfo(*gerado).fileName(), QStringLiteral("Orçamento 4711.") + formato);
        QCOMPARE(hashDe(modelo), antes);

        DocumentoModelo d;
        QString erro;
        QVERIFY2(d.abrir(*gerado, &erro), qPrintable(erro));
        const QString t = d.texto();
        QVERIFY2(!t.contains(QLatin1Char('@')), qPrintable(t));
        for (const char* s : {"O.S nº 4711", "Cliente: Maria da Conceição e de novo Maria da Conceição.", "Fábrica: XXXXX / |",
                              "Oficina: XXXXX / |", "Obs: Trocar cabo", "Total: R$ 1.234,56\tPago: R$ 1.224,56",
                              "Nota: \tfim", "Cabeçalho da O.S 4711"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), qPrintable(QString::fromUtf8(s) + QStringLiteral("\n---\n") + t));
        // The parts fill the rows from the empty one on, and the table ends with an empty row.
        for (int i = 1; i <= pecas; ++i) {
            const QString linha = QStringLiteral("Peça %1\n2\n%2\n%3").arg(i).arg(Dinheiro::deCentavos(1050 * i).texto(),
                                                                              Dinheiro::deCentavos(2100 * i).texto());
            QVERIFY2(t.contains(linha), qPrintable(linha + QStringLiteral("\n---\n") + t));
        }
        QVERIFY(!t.contains(QStringLiteral("Peça alheia")));
        QVERIFY(t.contains(QStringLiteral("Descrição\nQuant\nUnitário\nTotal")));
        const QString ultima = pecas ? Dinheiro::deCentavos(2100 * pecas).texto() : QStringLiteral("Total");
        QVERIFY(t.contains(ultima + QStringLiteral("\n\n\n\n")));
        QVERIFY(!t.contains(ultima + QStringLiteral("\n\n\n\n\n\n\n\n")));
        // A second merge into a new document still finds no empty row of the template missing.
        QCOMPARE(t.count(QStringLiteral("Descrição")), 1);
    }

    void modelosQueAcompanhamOPrograma_data()
    {
        QTest::addColumn<QString>("arquivo");
        for (const char* n : {"entrada", "saida", "orcamento", "devolucao"})
            for (const char* e : {"odt", "docx"})
                QTest::newRow(qPrintable(QStringLiteral("%1.%2").arg(QLatin1String(n), QLatin1String(e))))
                    << QStringLiteral("%1.%2").arg(QLatin1String(n), QLatin1String(e));
    }
    void modelosQueAcompanhamOPrograma()
    {
        QFETCH(QString, arquivo);
        Loja l;
        const QString modelo = ImprimeWord::modeloPadrao(arquivo);
        QVERIFY2(!modelo.isEmpty(), qPrintable(arquivo));
        const qint64 chave = inserirOrdem(l.banco.banco());
        inserirPeca(l.banco.banco(), chave, 4711, "P1", "Fusível", 1000, 500);
        const auto gerado = ImprimeWord::gerar(l.banco.banco(), {chave, modelo, arquivo.startsWith("orcamento"), "X"});
        QVERIFY(gerado);
        DocumentoModelo d;
        QVERIFY(d.abrir(*gerado, nullptr));
        QVERIFY2(!d.texto().contains(QLatin1Char('@')), qPrintable(d.texto()));
        QVERIFY(d.texto().contains(QStringLiteral("Maria da Conceição")));
        if (arquivo.startsWith(QLatin1String("orcamento")))
            QVERIFY(d.texto().contains(QStringLiteral("Fusível\n1\n5,00\n5,00")));
        // The shop's lines come from its configuration.
        for (const char* s : {"Eletrônica Conserta Já", "Rua das Acácias, 123 - Centro - São José", "(11)4321-5678",
                              "12-345-678-0001/95"})
            QVERIFY2(d.texto().contains(QString::fromUtf8(s)), s);
        // An order that leaves without payment is not handed an amount.
        if (arquivo.startsWith(QLatin1String("devolucao")))
            QVERIFY(!d.texto().contains(QStringLiteral("Valor")));
        QVERIFY(Dialogos::Roteiro::registros().isEmpty());
    }

    void modelosRuins_data()
    {
        QTest::addColumn<QByteArray>("conteudo");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("a text file named .docx") << QByteArray("isto não é um documento") << "não é um documento .docx ou .odt válido";
        QTest::newRow("an old binary .doc") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 binário", 16)
                                            << "não é um documento .docx ou .odt válido";
        QTest::newRow("a missing file") << QByteArray() << "não foi encontrado";
    }
    void modelosRuins()
    {
        QFETCH(QByteArray, conteudo);
        QFETCH(QString, mensagem);
        Loja l;
        const QString modelo = l.arquivo(QStringLiteral("ruim.docx"));
        if (!conteudo.isEmpty()) {
            QFile f(modelo);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(conteudo);
        }
        QVERIFY(!ImprimeWord::gerar(l.banco.banco(), {inserirOrdem(l.banco.banco()), modelo, false, {}}));
        QVERIFY2(Dialogos::Roteiro::contem(mensagem), qPrintable(Dialogos::Roteiro::ultimoTexto()));
        if (!conteudo.isEmpty())
            QCOMPARE(QFile(modelo).size(), qint64(conteudo.size()));
    }

    void nuncaGravaSobreOModelo()
    {
        // The shop keeps its template in the documents folder under the very name a filled
        // copy would take.
        Loja l;
        QDir().mkpath(ImprimeWord::pastaDocumentos());
        const QString modelo = QDir(ImprimeWord::pastaDocumentos()).filePath(QStringLiteral("Entrada 4711.odt"));
        odtComMarcasPartidas(modelo);
        const QByteArray antes = hashDe(modelo);
        const auto gerado = ImprimeWord::gerar(l.banco.banco(), {inserirOrdem(l.banco.banco()), modelo, false, "Entrada"});
        QVERIFY(gerado);
        QVERIFY(*gerado != modelo);
        QCOMPARE(hashDe(modelo), antes);
    }

    void caracteresDeMarcacaoNosValores_data()
    {
        QTest::addColumn<QString>("formato");
        QTest::newRow("docx") << "docx";
        QTest::newRow("odt") << "odt";
    }
    void caracteresDeMarcacaoNosValores()
    {
        QFETCH(QString, formato);
        Loja l;
        const QString modelo = l.arquivo(QStringLiteral("modelo.") + formato);
        if (formato == QLatin1String("docx"))
            docxComMarcasPartidas(modelo);
        else
            odtComMarcasPartidas(modelo);
        const qint64 chave = inserirOrdem(l.banco.banco(), {{"NomeCliente", "Zé & Filhos <Ltda> \"ME\""}});
        const auto gerado = ImprimeWord::gerar(l.banco.banco(), {chave, modelo, false, "Entrada"});
        QVERIFY(gerado);
        DocumentoModelo d;
        QVERIFY(d.abrir(*gerado, nullptr));
        QVERIFY(d.texto().contains(QStringLiteral("Cliente: Zé & Filhos <Ltda> \"ME\" e de novo")));
    }

    void orcamentoSemTabela()
    {
        Loja l;
        const QString modelo = l.arquivo(QStringLiteral("sem_tabela.odt"));
        escreverZip(modelo, {{"mimetype", "application/vnd.oasis.opendocument.text"},
                             {"content.xml", "<office:document-content xmlns:office=\"o\" xmlns:text=\"t\"><office:body>"
                                             "<office:text><text:p>O.S @OS</text:p></office:text></office:body>"
                                             "</office:document-content>"}});
        const qint64 chave = inserirOrdem(l.banco.banco());
        inserirPeca(l.banco.banco(), chave, 4711, "P1", "Fusível", 1000, 500);
        const auto gerado = ImprimeWord::gerar(l.banco.banco(), {chave, modelo, true, "Orçamento"});
        QVERIFY(gerado);
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("não tem uma tabela")));
        DocumentoModelo d;
        QVERIFY(d.abrir(*gerado, nullptr));
        QCOMPARE(d.texto(), QStringLiteral("O.S 4711"));
    }

    void orcamentoDeQuinhentasPecas()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        for (int i = 1; i <= 500; ++i)
            inserirPeca(l.banco.banco(), chave, 4711, QStringLiteral("P%1").arg(i), QStringLiteral("Item %1").arg(i), 1000, i);
        const auto gerado = ImprimeWord::gerar(l.banco.banco(), {chave, ImprimeWord::modeloPadrao("orcamento.docx"), true, "O"});
        QVERIFY(gerado);
        DocumentoModelo d;
        QVERIFY(d.abrir(*gerado, nullptr));
        QVERIFY(d.texto().contains(QStringLiteral("Item 1\n")));
        QVERIFY(d.texto().contains(QStringLiteral("Item 500\n1\n5,00\n5,00")));
    }

    // ImprimeDocumento: the standard route prints the row's sheet with the row's copies.
    void despachoPelaFicha_data()
    {
        QTest::addColumn<int>("documento");
        QTest::addColumn<QString>("marcaDaFicha");
        QTest::addColumn<int>("copias");
        QTest::newRow("entry takes NOsEntrada") << 0 << "Data entrada:" << 3;
        QTest::newRow("return prints the delivery sheet with NOsSaida") << 1 << "Valor Total:" << 2;
        QTest::newRow("exit with payment") << 2 << "Valor Total:" << 2;
        QTest::newRow("budget shares NOsSaida") << 3 << "Total de peças :" << 2;
    }
    void despachoPelaFicha()
    {
        QFETCH(int, documento);
        QFETCH(QString, marcaDaFicha);
        QFETCH(int, copias);
        const DocumentoOrdem* docs[] = {&DocumentosOrdem::Entrada, &DocumentosOrdem::Devolucao,
                                        &DocumentosOrdem::SaidaPagamento, &DocumentosOrdem::Orcamento};
        Loja l;
        gravarIni("Impressao", "ImprimePadrao", "True");
        gravarIni("Impressao", "AutoImpressora", "1");
        gravarIni("Impressao", "NOsEntrada", "3");
        gravarIni("Impressao", "NOsSaida", "2");
        const QString pdf = l.arquivo(QStringLiteral("despacho.pdf"));
        Dialogos::Roteiro::responder(pdf);
        QVERIFY(ImprimeDocumento(l.banco.banco(), *docs[documento], inserirOrdem(l.banco.banco())));
        QCOMPARE(Dialogos::Roteiro::registros().first().tipo, QStringLiteral("impressora"));
        const QString t = textoPdf(pdf);
        QCOMPARE(t.count(marcaDaFicha), copias);
        QCOMPARE(sessao().FichaTipo, QString());
    }

    void despachoPeloModelo()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        // Editing: the copy is offered for saving and opened; the shop's template is the
        // one shipped, since none is configured yet.
        gravarIni("Impressao", "EditaEntrada", "1");
        Dialogos::Roteiro::responderSim();
        Dialogos::Roteiro::responder(l.arquivo(QStringLiteral("Cliente")));
        QVERIFY(ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Entrada, chave));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("Deseja salvar o arquivo gerado no Word")));
        QCOMPARE(l.abertos, QStringList{l.arquivo(QStringLiteral("Cliente 4711.odt"))});
        QVERIFY(QFile::exists(QDir(ImprimeWord::pastaDocumentos()).filePath(QStringLiteral("Entrada 4711.odt"))));

        // Asking for the template, and cancelling: nothing printed, and said so.
        Dialogos::Roteiro::limpar();
        gravarIni("Impressao", "AbreEntrada", "1");
        Dialogos::Roteiro::responder(QVariant());
        QVERIFY(!ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Entrada, chave));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("Nenhum modelo foi escolhido")));

        // A configured template that went missing.
        Dialogos::Roteiro::limpar();
        gravarIni("Impressao", "AbreEntrada", "0");
        gravarIni("Impressao", "OrdemEntrada", l.arquivo(QStringLiteral("sumiu.docx")));
        QVERIFY(!ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Entrada, chave));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("não foi encontrado")));
    }

    void impressaoDoModelo()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        const QByteArray caminho = qgetenv("PATH");
        QTemporaryDir bin;
        // Without LibreOffice: a clear message, and the document is still kept.
        qputenv("PATH", QFile::encodeName(bin.path()));
        gravarIni("Impressao", "AutoImpressora", "1");
        Dialogos::Roteiro::responder(l.arquivo(QStringLiteral("saida.pdf")));
        QVERIFY(!ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Orcamento, chave));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("LibreOffice instalado")));
        QVERIFY(QFile::exists(QDir(ImprimeWord::pastaDocumentos()).filePath(QStringLiteral("Orçamento 4711.odt"))));

        // With it: converted to PDF and sent where the printer choice said.
        QFile script(bin.filePath(QStringLiteral("soffice")));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\n"
                     "while [ $# -gt 0 ]; do case \"$1\" in --outdir) shift; dir=\"$1\";; *) arq=\"$1\";; esac; shift; done\n"
                     "nome=\"${arq##*/}\"; printf '%%PDF-1.4 convertido\\n' > \"$dir/${nome%.*}.pdf\"\n");
        script.close();
        script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
        Dialogos::Roteiro::limpar();
        Dialogos::Roteiro::responder(l.arquivo(QStringLiteral("saida.pdf")));
        const bool ok = ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Orcamento, chave);
        qputenv("PATH", caminho);
        QVERIFY2(ok, qPrintable(Dialogos::Roteiro::ultimoTexto()));
        QFile saida(l.arquivo(QStringLiteral("saida.pdf")));
        QVERIFY(saida.open(QIODevice::ReadOnly));
        QCOMPARE(saida.readAll(), QByteArray("%PDF-1.4 convertido\n"));
    }
};

QTEST_MAIN(TstImprimeWord)
#include "tst_imprimeword.moc"
