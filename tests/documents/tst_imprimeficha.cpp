#include <QImage>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Sessao.h"
#include "documents/ApoioDocumentos.h"
#include "documents/Impressao.h"
#include "documents/ImprimeDocumento.h"
#include "documents/Visualizador.h"
#include "ui/Dialogos.h"

using namespace apoio;

// Every sheet printed to PDF and read back: the header, the order's values, totals,
// copies, paging, and the layout checked word by word for overlaps and page edges.
class TstImprimeFicha : public QObject {
    Q_OBJECT

    struct Loja {
        BancoTeste banco;
        QTemporaryDir pasta;
        explicit Loja(Motor motor = Motor::SQLite)
            : banco(motor)
        {
            if (!banco.pronto())
                return;
            sessao().ArquivoIni = pasta.filePath(QStringLiteral("Toldex.ini"));
            sessao().PastaPrograma = pasta.path();
            sessao().UsuarioNome = QStringLiteral("Ana Balcão");
            sessao().CfgDadoNota = QStringLiteral("True");
            configurarEmpresa(banco.banco());
        }
        QString pdf(const QString& nome) const { return pasta.filePath(nome + QStringLiteral(".pdf")); }
    };

    // Keeps a copy of a printed sheet when TOLDEX_GUARDAR_PDF names a folder, to look at.
    static void guardar(const QString& pdf, const QString& nome)
    {
        const QString pasta = qEnvironmentVariable("TOLDEX_GUARDAR_PDF");
        if (pasta.isEmpty())
            return;
        QFile::remove(pasta + QLatin1Char('/') + nome + QStringLiteral(".pdf"));
        QFile::copy(pdf, pasta + QLatin1Char('/') + nome + QStringLiteral(".pdf"));
    }

    static QString imprimirOrdem(Loja& l, TipoFicha tipo, qint64 chave, int copias, const QString& nome)
    {
        const QString arquivo = l.pdf(nome);
        PedidoFicha p;
        p.tipo = tipo;
        p.codOsAut = chave;
        p.copias = copias;
        p.codVenda = chave;
        if (!Impressao::imprimir(l.banco.banco(), p, Destino::pdf(arquivo)))
            return {};
        guardar(arquivo, nome);
        return arquivo;
    }

private slots:
    void init()
    {
        Dialogos::Roteiro::iniciar();
    }
    void cleanup() { Dialogos::Roteiro::encerrar(); }

    void cabecalho_data()
    {
        QTest::addColumn<QVariantMap>("empresa");
        QTest::addColumn<QStringList>("presentes");
        QTest::addColumn<QStringList>("ausentes");
        QTest::newRow("every line printed, CNPJ of 14 digits")
            << QVariantMap{} << QStringList{"Eletrônica Conserta Já", "Rua das Acácias, 123", "www.consertaja.com.br-(11)4321-5678",
                                             "sac@consertaja.com.br-(11)4321-0001", "suporte@consertaja.com.br-(11)4321-0002",
                                             "vendas@consertaja.com.br-(11)4321-0003",
                                             "C.N.P.J: 12-345-678-0001/95--I.E: 110.042.490.114"}
            << QStringList{"C.P.F"};
        QTest::newRow("CPF of 11 digits takes the CPF form")
            << QVariantMap{{"CpfCnpj", "12345678901"}} << QStringList{"C.P.F: 123-456-789/01--I.E: "}
            << QStringList{"C.N.P.J"};
        QTest::newRow("CPF stored with its mask still takes the CPF form")
            << QVariantMap{{"CpfCnpj", "123-456-789/01"}} << QStringList{"C.P.F: 123-456-789/01--I.E: "}
            << QStringList{"C.N.P.J"};
        QTest::newRow("print flags off leave their lines out")
            << QVariantMap{{"ImpriNome", 0}, {"ImpriSAC", 0}, {"ImpriCPFCNPJ", 0}}
            << QStringList{"Rua das Acácias", "suporte@consertaja.com.br"}
            << QStringList{"Eletrônica Conserta Já", "sac@consertaja", "C.N.P.J"};
        QTest::newRow("empty CPF/CNPJ prints no tax line")
            << QVariantMap{{"CpfCnpj", ""}} << QStringList{"vendas@consertaja.com.br"} << QStringList{"C.N.P.J", "C.P.F", "I.E:"};
        QTest::newRow("empty SAC prints no dash line")
            << QVariantMap{{"EmailSac", ""}, {"TelSAC", ""}} << QStringList{"suporte@consertaja.com.br-(11)4321-0002"}
            << QStringList{"\n-\n", "sac@"};
        QTest::newRow("phone alone keeps no dash, digits take the mobile mask")
            << QVariantMap{{"EmailSac", ""}, {"TelSAC", "19991234567"}} << QStringList{"\n(19)99123-4567\n"}
            << QStringList{"-(19)99123-4567"};
        QTest::newRow("e-mail alone keeps no dash, fixed line digits masked")
            << QVariantMap{{"TelSuporte", ""}, {"TelVendas", "1932221111"}}
            << QStringList{"\nsuporte@consertaja.com.br\n", "vendas@consertaja.com.br-(19)3222-1111"}
            << QStringList{"suporte@consertaja.com.br-"};
        QTest::newRow("entry message off") << QVariantMap{{"ImpriMenEntrada", 0}} << QStringList{"Sintoma:"}
                                           << QStringList{"não retirados em 90 dias"};
    }
    void cabecalho()
    {
        QFETCH(QVariantMap, empresa);
        QFETCH(QStringList, presentes);
        QFETCH(QStringList, ausentes);
        Loja l;
        configurarEmpresa(l.banco.banco(), empresa);
        const QString pdf = imprimirOrdem(l, TipoFicha::Entrada, inserirOrdem(l.banco.banco()), 1, QStringLiteral("cab"));
        QVERIFY(!pdf.isEmpty());
        const QString texto = textoPdf(pdf);
        for (const QString& p : presentes)
            QVERIFY2(texto.contains(p), qPrintable(p + QStringLiteral(" falta em:\n") + texto));
        for (const QString& a : ausentes)
            QVERIFY2(!texto.contains(a), qPrintable(a));
    }

    // The size of a line follows its column, and a NULL size its default (12 for the name,
    // 8 for the tax line, 10 for the rest); bold flags reach the font.
    void tamanhosENegrito_data()
    {
        QTest::addColumn<QVariantMap>("empresa");
        QTest::addColumn<QString>("palavra");
        QTest::addColumn<double>("pontos");
        QTest::addColumn<bool>("negrito");
        QTest::newRow("NULL name size prints at 12") << QVariantMap{{"NomeTamanho", QVariant()}} << "Eletrônica" << 12.0 << false;
        QTest::newRow("name size 20 prints at 20") << QVariantMap{{"NomeTamanho", 20}} << "Eletrônica" << 20.0 << false;
        QTest::newRow("NULL tax size prints at 8") << QVariantMap{{"CpfCnpjTamanho", QVariant()}} << "C.N.P.J:" << 8.0 << false;
        QTest::newRow("NULL address size prints at 10") << QVariantMap{{"EnderecoTamanho", QVariant()}} << "Acácias," << 10.0 << false;
        QTest::newRow("bold name") << QVariantMap{{"NomeNegrito", -1}} << "Eletrônica" << 12.0 << true;
    }
    void tamanhosENegrito()
    {
        QFETCH(QVariantMap, empresa);
        QFETCH(QString, palavra);
        QFETCH(double, pontos);
        QFETCH(bool, negrito);
        Loja l;
        configurarEmpresa(l.banco.banco(), empresa);
        const QString pdf = imprimirOrdem(l, TipoFicha::Entrada, inserirOrdem(l.banco.banco()), 1, QStringLiteral("tam"));
        QVERIFY(!pdf.isEmpty());
        // A reference word of the body at a known 10 points gives the scale of the boxes.
        double alturaPalavra = 0, alturaRef = 0;
        for (const Palavra& w : palavrasPdf(pdf)) {
            if (w.texto == palavra && alturaPalavra == 0)
                alturaPalavra = w.caixa.height();
            if (w.texto == QLatin1String("Nome:"))
                alturaRef = w.caixa.height();
        }
        QVERIFY(alturaPalavra > 0 && alturaRef > 0);
        QVERIFY2(qAbs(alturaPalavra / alturaRef - pontos / 10.0) < 0.05,
                 qPrintable(QString::number(alturaPalavra / alturaRef)));
        const QString fontes = rodar(QStringLiteral("pdffonts"), {pdf});
        QCOMPARE(fontes.contains(QLatin1String("Bold")), negrito);
    }

    void fichaEntrada_data() { linhasMotores(); }
    void fichaEntrada()
    {
        QFETCH(int, motor);
        Loja l(static_cast<Motor>(motor));
        if (!l.banco.pronto())
            QSKIP(qPrintable(l.banco.motivo()));
        const qint64 chave = inserirOrdem(l.banco.banco(), {{"ChamadoTecnico", -1}, {"Endereco", "Rua A\nfundos"}});
        const QString pdf = imprimirOrdem(l, TipoFicha::Entrada, chave, 1, QStringLiteral("entrada"));
        const QString t = textoPdf(pdf);
        for (const char* s : {"Data entrada: 20/11/2026", "Nome: Maria da Conceição", "Tel: (11)3333-4444", "Tipo: Televisor",
                              "Marca: Semp", "Model: TL-32", "Cor: Preto", "Série: SN998877", "Certficado: C-77",
                              "N.F: NF-555", "Data N.F: 10/01/2026", "Revendedor: Loja Ponto Certo",
                              "Estado Aparelho: Riscos na tampa", "Acessório: Controle remoto",
                              "Sintoma: Não liga, cheiro de queimado", "Aparelhos não retirados em 90 dias",
                              "Atendido por: Ana Balcão", "Dados para buscar o aparelho no domicilio:",
                              "Rua A - fundos - 1500 - Jardim Paulista"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        // Once at the top and three times on the tear-off strip; the warranty line that
        // compares the flag with 1 never prints.
        QCOMPARE(t.count(QStringLiteral("O.S: 4711")), 4);
        QVERIFY(!t.contains(QStringLiteral("garantia O.S")));
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void fichaEntradaSemDadosDaNotaNemBusca()
    {
        Loja l;
        sessao().CfgDadoNota = QStringLiteral("False");
        const QString t = textoPdf(imprimirOrdem(l, TipoFicha::Entrada, inserirOrdem(l.banco.banco()), 1, "entrada2"));
        QVERIFY(!t.contains(QStringLiteral("Certficado")));
        QVERIFY(!t.contains(QStringLiteral("Dados para buscar")));
        sessao().CfgDadoNota = QStringLiteral("True");
    }

    void fichaSaida()
    {
        Loja l;
        const QString pdf = imprimirOrdem(l, TipoFicha::Saida, inserirOrdem(l.banco.banco()), 1, QStringLiteral("saida"));
        const QString t = textoPdf(pdf);
        for (const char* s : {"Data saída: 23/11/2026", "Serv/Executado: Troca da fonte", "Obs: Cliente pede orçamento antes",
                              "Garantia de 90 dias", "Valor Total: 1.234,56", "Valor Desc: 10,00", "Valor pago: 1.224,56",
                              "Dados para entrega no domicilio:", "Av. Brasil - 1500 - Jardim Paulista"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QVERIFY(!t.contains(QStringLiteral("Data entrada")));
        QCOMPARE(t.count(QStringLiteral("O.S: 4711")), 1);
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    // Copies follow each other with two empty lines between; a copy that doesn't fit goes on
    // to the next page instead of off the paper.
    void copias_data()
    {
        QTest::addColumn<int>("copias");
        QTest::newRow("one copy") << 1;
        QTest::newRow("two copies") << 2;
        QTest::newRow("three copies run onto a second page") << 3;
    }
    void copias()
    {
        QFETCH(int, copias);
        Loja l;
        const QString pdf = imprimirOrdem(l, TipoFicha::Saida, inserirOrdem(l.banco.banco()), copias,
                                          QStringLiteral("copias%1").arg(copias));
        const QString t = textoPdf(pdf);
        QCOMPARE(t.count(QStringLiteral("Eletrônica Conserta Já")), copias);
        QCOMPARE(t.count(QStringLiteral("Valor Total: 1.234,56")), copias);
        QCOMPARE(defeitosDeLayout(pdf), QString());
        if (copias == 3)
            QVERIFY(paginasPdf(pdf) >= 2);
    }

    void orcamentoComPecas_data() { linhasMotores(); }
    void orcamentoComPecas()
    {
        QFETCH(int, motor);
        Loja l(static_cast<Motor>(motor));
        if (!l.banco.pronto())
            QSKIP(qPrintable(l.banco.motivo()));
        Banco& b = l.banco.banco();
        const qint64 chave = inserirOrdem(b, {{"CodOs", 1}, {"NomeCliente", "2ABC"}});
        const qint64 outra = inserirOrdem(b, {{"CodOs", 12}, {"NomeCliente", "ABC"}});
        inserirPeca(b, chave, 1, "P-001", "Capacitor eletrolítico 1000uF", 2000, 350);
        inserirPeca(b, chave, 1, "P-002", "Fusível", 1500, 1000);
        inserirPeca(b, outra, 12, "X-999", "Peça de outro cliente", 1000, 99);
        const QString pdf = imprimirOrdem(l, TipoFicha::Orcamento, chave, 1, QStringLiteral("orcamento"));
        const QString t = textoPdf(pdf);
        for (const char* s : {"Data saída: 2026/11/23", "O.S: 1", "Nome: 2ABC", "Cód/Peça", "Descrição", "Quant", "Unitário",
                              "Total", "P-001", "Capacitor eletrolítico 1000uF", "3,50", "7,00", "1,5", "15,00",
                              "Total de peças :", "1.084,56", "Mão de obra :", "150,00", "Valor pago :", "1.234,56"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        // Order 1 of "2ABC" and order 12 of "ABC" join to the same text; only the key tells
        // them apart.
        QVERIFY(!t.contains(QStringLiteral("X-999")));
        QVERIFY(!t.contains(QStringLiteral("ABC\n")) || t.contains(QStringLiteral("2ABC")));
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void orcamentoLongoPagina()
    {
        Loja l;
        Banco& b = l.banco.banco();
        const qint64 chave = inserirOrdem(b);
        for (int i = 1; i <= 500; ++i)
            inserirPeca(b, chave, 4711, QStringLiteral("P%1").arg(i, 4, 10, QLatin1Char('0')),
                        i % 50 == 0 ? QStringLiteral("Placa principal com descrição muito comprida que não cabe na "
                                                     "coluna de descrição da tabela de peças %1").arg(i)
                                    : QStringLiteral("Resistor %1 ohms").arg(i),
                        1000, 100 + i);
        const QString pdf = imprimirOrdem(l, TipoFicha::Orcamento, chave, 1, QStringLiteral("orcamento500"));
        const QString t = textoPdf(pdf);
        const int paginas = paginasPdf(pdf);
        QVERIFY2(paginas > 5, qPrintable(QString::number(paginas)));
        for (int i = 1; i <= 500; ++i)
            QVERIFY(t.contains(QStringLiteral("P%1").arg(i, 4, 10, QLatin1Char('0'))));
        // The heading repeats on every page the table runs onto.
        QVERIFY(t.count(QStringLiteral("Unitário")) >= paginas);
        // Every page after the first says whose order it is and which page.
        const QStringList folhas = t.split(QLatin1Char('\f'));
        QVERIFY(!folhas.at(0).contains(QStringLiteral("Página:")));
        for (int i = 1; i < paginas; ++i) {
            QVERIFY2(folhas.at(i).contains(QStringLiteral("O.S: 4711 - Maria da Conceição")), qPrintable(folhas.at(i)));
            QVERIFY(folhas.at(i).contains(QStringLiteral("Página: %1").arg(i + 1)));
        }
        QVERIFY(t.contains(QStringLiteral("Mão de obra :")));
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void textosLongosQuebram()
    {
        Loja l;
        QString obs;
        for (int i = 0; obs.size() < 10000; ++i)
            obs += QStringLiteral("observação%1 ").arg(i);
        const qint64 chave = inserirOrdem(l.banco.banco(),
                                          {{"Observacao", obs}, {"Modelo", QString(60, QLatin1Char('M'))},
                                           {"NomeCliente", "Maria da Conceição de Albuquerque Cavalcanti Figueiredo"}});
        const QString pdf = imprimirOrdem(l, TipoFicha::Saida, chave, 2, QStringLiteral("longo"));
        const QString t = textoPdf(pdf);
        QVERIFY(paginasPdf(pdf) >= 2);
        QVERIFY(t.contains(QStringLiteral("observação0")));
        QVERIFY(t.contains(QStringLiteral("observação%1").arg(obs.count(QLatin1Char(' ')) - 1)));
        QCOMPARE(t.count(QStringLiteral("Valor Total: 1.234,56")), 2);
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void textoSemEspacosQuebra()
    {
        // A pasted link of 10,000 characters: cut where each line ends, nothing lost.
        Loja l;
        QString link;
        for (int i = 0; link.size() < 10000; ++i)
            link += QStringLiteral("%1x").arg(i, 5, 10, QLatin1Char('0'));
        const qint64 chave = inserirOrdem(l.banco.banco(), {{"Observacao", link}});
        const QString pdf = imprimirOrdem(l, TipoFicha::Saida, chave, 1, QStringLiteral("semespacos"));
        QString t = textoPdf(pdf);
        QCOMPARE(defeitosDeLayout(pdf), QString());
        t.remove(QLatin1Char('\n'));
        // The label stays on its line; the link starts under it and runs to its end.
        QVERIFY(t.contains(QStringLiteral("Obs:") + link.left(300)));
        QVERIFY(t.contains(link.right(60)));
    }

    void logo_data()
    {
        QTest::addColumn<bool>("existe");
        QTest::newRow("logo painted") << true;
        QTest::newRow("missing logo file prints the rest") << false;
    }
    void logo()
    {
        QFETCH(bool, existe);
        Loja l;
        const QString arquivo = l.pasta.filePath(QStringLiteral("logo.png"));
        if (existe) {
            QImage img(200, 160, QImage::Format_RGB32);
            img.fill(Qt::red);
            QVERIFY(img.save(arquivo));
        }
        gravarIni(QStringLiteral("Imagem"), QStringLiteral("FotoImprimir"), arquivo);
        gravarIni(QStringLiteral("Impressao"), QStringLiteral("FotoImp"), QStringLiteral("1"));
        const QString pdf = imprimirOrdem(l, TipoFicha::Entrada, inserirOrdem(l.banco.banco()), 1,
                                          existe ? QStringLiteral("logo") : QStringLiteral("semlogo"));
        QVERIFY(!pdf.isEmpty());
        QVERIFY(textoPdf(pdf).contains(QStringLiteral("Eletrônica Conserta Já")));
        const QString imagens = rodar(QStringLiteral("pdfimages"), {QStringLiteral("-list"), pdf});
        QCOMPARE(imagens.count(QStringLiteral("image")) > 0, existe);
    }

    void fichaVisita_data()
    {
        QTest::addColumn<bool>("comPecas");
        QTest::newRow("visit with its parts, not those of visit 11") << true;
        QTest::newRow("visit without parts leaves room and blank values") << false;
    }
    void fichaVisita()
    {
        QFETCH(bool, comPecas);
        Loja l;
        Banco& b = l.banco.banco();
        if (comPecas)
            inserirPeca(b, 0, 0, "V-1", "Resistência do chuveiro", 1000, 4590,
                        {{"CodManu", 1}, {"TipoVisita", "VisitaTecnico"}});
        inserirPeca(b, 0, 0, "V-11", "Peça da visita onze", 1000, 100, {{"CodManu", 11}, {"TipoVisita", "VisitaTecnico"}});
        inserirPeca(b, 0, 0, "O-1", "Peça de uma ordem", 1000, 100, {{"CodManu", 1}, {"TipoVisita", ""}});
        FichaVisita v;
        v.codManu = 1;
        v.dataSolicitada = QStringLiteral("22/11/2026");
        v.cliente = QStringLiteral("José Antônio");
        v.enderecoTelefones = QStringLiteral("Rua das Flores, 10\nTel 1144445555");
        v.solicitacao = QStringLiteral("Chuveiro não esquenta");
        v.maoObra = comPecas ? QStringLiteral("80,00") : QStringLiteral("0,00");
        v.valorPecas = comPecas ? QStringLiteral("45,90") : QStringLiteral("0,00");
        v.dataAtendida = QStringLiteral("23/11/2026");
        const QString arquivo = l.pdf(QStringLiteral("visita"));
        QVERIFY(Impressao::fichaVisita(b, v, 1, Destino::pdf(arquivo)));
        guardar(arquivo, comPecas ? QStringLiteral("visita") : QStringLiteral("visita_vazia"));
        const QString t = textoPdf(arquivo);
        for (const char* s : {"Data Solicitada: 22/11/2026", "O.S: 1", "Nome: José Antônio", "Endereço,Telefones:",
                              "Rua das Flores, 10", "Tel 1144445555", "Solicitação:", "Chuveiro não esquenta",
                              "Total de peças :", "Mão de obra :", "Valor pago :", "Data Atendida : 23/11/2026"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QVERIFY(!t.contains(QStringLiteral("V-11")));
        QVERIFY(!t.contains(QStringLiteral("O-1")));
        QCOMPARE(t.contains(QStringLiteral("V-1")), comPecas);
        QCOMPARE(t.contains(QStringLiteral("80,00")), comPecas);
        QVERIFY(!t.contains(QStringLiteral("0,00\n")) || comPecas);
        QCOMPARE(defeitosDeLayout(arquivo), QString());
    }

    void fichaCliente()
    {
        Loja l;
        FichaCliente c;
        c.codigo = QStringLiteral("0000042");
        c.dataCadastro = QStringLiteral("01/02/2025");
        c.nome = QStringLiteral("Maria da Conceição");
        c.endereco = QStringLiteral("Av. Brasil");
        c.numero = QStringLiteral("1500");
        c.cidade = QStringLiteral("São Paulo");
        c.estado = QStringLiteral("SP");
        c.email = QStringLiteral("maria@exemplo.com.br");
        const QString arquivo = l.pdf(QStringLiteral("cliente"));
        QVERIFY(Impressao::fichaCliente(l.banco.banco(), c, 1, Destino::pdf(arquivo)));
        guardar(arquivo, QStringLiteral("cliente"));
        const QString t = textoPdf(arquivo);
        for (const char* s : {"Cód: 0000042", "Data cadastro: 01/02/2025", "Nome: Maria da Conceição", "End: Av. Brasil",
                              "Nº: 1500", "Cidade: São Paulo", "Estado: SP", "Correio-eletrônico: maria@exemplo.com.br",
                              "Site/Blog:", "Obs:"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QCOMPARE(defeitosDeLayout(arquivo), QString());
    }

    void recibos_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::newRow("full header receipt") << int(TipoFicha::ReciboCompleto);
        QTest::newRow("compact header receipt") << int(TipoFicha::ReciboCompacto);
    }
    void recibos()
    {
        QFETCH(int, tipo);
        Loja l;
        FichaRecebimento r;
        r.dataCompra = QStringLiteral("01/10/2026");
        r.dataVencimento = QStringLiteral("01/11/2026");
        r.descricao = QStringLiteral("O.S 4711");
        r.cliente = QStringLiteral("Maria da Conceição");
        r.tipoCombinado = QStringLiteral("Boleto");
        r.origem = QStringLiteral("Ordem de serviço");
        r.parcela = QStringLiteral("2/3");
        r.valorParcela = QStringLiteral("411,52");
        r.dataPagamento = QDate(2026, 11, 23);
        r.tipoRecebido = QStringLiteral("Dinheiro");
        r.valorPago = QStringLiteral("411,52");
        r.observacao = QStringLiteral("Pago no balcão");
        const QString arquivo = l.pdf(QStringLiteral("recibo%1").arg(tipo));
        const bool ok = tipo == int(TipoFicha::ReciboCompacto)
            ? Impressao::reciboCompacto(l.banco.banco(), r, Destino::pdf(arquivo))
            : Impressao::reciboCompleto(l.banco.banco(), r, 1, Destino::pdf(arquivo));
        QVERIFY(ok);
        guardar(arquivo, QStringLiteral("recibo%1").arg(tipo));
        const QString t = textoPdf(arquivo);
        for (const char* s : {"Data compra: 01/10/2026", "Data vencimento: 01/11/2026", "Descrição,nº Venda/O.S: O.S 4711",
                              "Cli/Tit: Maria da Conceição", "Tipo recebimento: Boleto", "Origem:: Ordem de serviço",
                              "Parcela: 2/3", "Valor parcela: 411,52", "Data pagamento: 23/11/2026",
                              "Tipo recebimento: Dinheiro", "Valor pago: 411,52", "Observação: Pago no balcão",
                              "Eletrônica Conserta Já"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QCOMPARE(defeitosDeLayout(arquivo), QString());
    }

    void reciboVendaPaginado()
    {
        Loja l;
        Banco& b = l.banco.banco();
        for (int i = 1; i <= 120; ++i) {
            Recordset r(b);
            r.abrir(QStringLiteral("VendaDetalhada"), QStringLiteral("1 = 0"));
            r.addNew();
            r.definir(QStringLiteral("CodVenda"), i <= 110 ? 77 : 770);
            r.definir(QStringLiteral("Armazenado"), i == 1 ? QStringLiteral("Gaveta 12") : QStringLiteral("A%1").arg(i));
            r.definir(QStringLiteral("codpeca"), QStringLiteral("C%1").arg(i));
            r.definir(QStringLiteral("Descricao"), QStringLiteral("Produto número %1").arg(i));
            r.definir(QStringLiteral("Quantidade"), 2000);
            r.definir(QStringLiteral("ValorVenda"), 1250);
            r.definir(QStringLiteral("ValorTotal"), 2500);
            r.update();
        }
        Recordset m(b);
        m.abrir(QStringLiteral("Movimento"), QStringLiteral("1 = 0"));
        m.addNew();
        definirTudo(m, {{"CodVenda", 77}, {"Caixa", "Ana"}, {"ValorTotal", 275000}, {"Data", "2026/11/23"}, {"Hora", "10:30"},
                        {"ValorDesconto", 0}, {"NomeCliente", "Balcão"}, {"ValorPagar", 275000},
                        {"ValorDiferenca", 500}, {"Pagamento", "Dinheiro"}});
        m.update();
        const QString pdf = imprimirOrdem(l, TipoFicha::ReciboVenda, 77, 1, QStringLiteral("venda"));
        const QString t = textoPdf(pdf);
        QVERIFY(paginasPdf(pdf) >= 2);
        QVERIFY(t.contains(QStringLiteral("Página: 1")));
        QVERIFY(t.contains(QStringLiteral("Página: 2")));
        QVERIFY(t.contains(QStringLiteral("C110")));
        QVERIFY2(t.contains(QStringLiteral("Gaveta 12")), "the place wraps inside its column");
        // Its own page numbers only: no second "Página" line on top of them.
        QCOMPARE(t.count(QStringLiteral("Página: 2")), 1);
        QVERIFY(!t.contains(QStringLiteral("C111")));  // sale 770 is another sale
        for (const char* s : {"Funcionário : Ana", "Total :", "2.750,00", "Data : 23-11-2026 Hora : 10:30", "Troco :", "5,00",
                              "Pagamento em :Dinheiro"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void saidaComCaixa()
    {
        Loja l;
        Banco& b = l.banco.banco();
        const qint64 chave = inserirOrdem(b);
        Recordset m(b);
        m.abrir(QStringLiteral("Movimento"), QStringLiteral("1 = 0"));
        m.addNew();
        definirTudo(m, {{"CodOsAut", chave}, {"Caixa", "Carlos"}, {"ValorTotal", 123456}, {"Data", "2026/11/23"},
                        {"Hora", "16:05"}, {"ValorDesconto", 1000}, {"NomeCliente", "Maria da Conceição"},
                        {"ValorPagar", 122456}, {"ValorDiferenca", 0}, {"Pagamento", "Cartão"}});
        m.update();
        const QString pdf = imprimirOrdem(l, TipoFicha::SaidaCaixa, chave, 1, QStringLiteral("saidacaixa"));
        const QString t = textoPdf(pdf);
        for (const char* s : {"Atendido por: Ana Balcão", "Funcionário : Carlos", "Data : 23-11-2026", "Hora : 16:05",
                              "Pago :", "1.224,56", "Pagamento em :Cartão", "Model: TL-32"})
            QVERIFY2(t.contains(QString::fromUtf8(s)), s);
        QVERIFY(!t.contains(QStringLiteral("Cor: ")));
        QCOMPARE(defeitosDeLayout(pdf), QString());
    }

    void linhasRegradas()
    {
        // With AutoLinha the rows are ruled; the drawing has more paths than without.
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        const QString sem = imprimirOrdem(l, TipoFicha::Entrada, chave, 1, QStringLiteral("semlinhas"));
        gravarIni(QStringLiteral("Impressao"), QStringLiteral("AutoLinha"), QStringLiteral("1"));
        const QString com = imprimirOrdem(l, TipoFicha::Entrada, chave, 1, QStringLiteral("comlinhas"));
        QImage a, c;
        rodar(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"),
                                                              QStringLiteral("-singlefile"), sem, l.pasta.filePath("a")});
        rodar(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"),
                                           QStringLiteral("-singlefile"), com, l.pasta.filePath("c")});
        QVERIFY(a.load(l.pasta.filePath("a.png")));
        QVERIFY(c.load(l.pasta.filePath("c.png")));
        // A ruled line runs past the text on both sides: count rows with ink in the strips
        // between the printable edge and the text's margins.
        auto linhasDePonta = [](const QImage& img) {
            int n = 0;
            const int esquerda = img.width() * 6 / 100, direita = img.width() * 945 / 1000;
            for (int y = 0; y < img.height(); ++y)
                if (qGray(img.pixel(esquerda, y)) < 230 && qGray(img.pixel(direita, y)) < 230)
                    ++n;
            return n;
        };
        QCOMPARE(linhasDePonta(a), 0);
        QVERIFY(linhasDePonta(c) >= 8);
        QCOMPARE(textoPdf(sem), textoPdf(com));
    }

    void entradaRuim()
    {
        Loja l;
        // An order that isn't there: a message, and no file.
        const QString arquivo = l.pdf(QStringLiteral("nada"));
        QVERIFY(!Impressao::fichaEntrada(l.banco.banco(), 999, 1, Destino::pdf(arquivo)));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("não foi encontrada")));
        QVERIFY(!QFile::exists(arquivo));
        // A PDF in a folder that can't be written.
        Dialogos::Roteiro::limpar();
        QVERIFY(!Impressao::fichaEntrada(l.banco.banco(), inserirOrdem(l.banco.banco()), 1,
                                         Destino::pdf(QStringLiteral("/nao/existe/ficha.pdf"))));
        QVERIFY(Dialogos::Roteiro::contem(QStringLiteral("Não foi possível imprimir")));
        // "Salvar PDF" cancelled: nothing printed, nothing said.
        Dialogos::Roteiro::limpar();
        Dialogos::Roteiro::responder(QVariant());
        QVERIFY(!Impressao::fichaEntrada(l.banco.banco(), inserirOrdem(l.banco.banco()), 1, Destino::pdf()));
        QCOMPARE(sessao().FichaTipo, QString());
    }

    void impressoraEscolhidaEVisualizacao()
    {
        Loja l;
        const qint64 chave = inserirOrdem(l.banco.banco());
        // The printer choice answered with a PDF file, as a test can.
        const QString arquivo = l.pdf(QStringLiteral("escolhida"));
        Dialogos::Roteiro::responder(arquivo);
        QVERIFY(Impressao::fichaSaida(l.banco.banco(), chave, 1, Destino::impressora(nullptr, true)));
        QVERIFY(Dialogos::Roteiro::registros().size() >= 1);
        QCOMPARE(Dialogos::Roteiro::registros().first().tipo, QStringLiteral("impressora"));
        QVERIFY(textoPdf(arquivo).contains(QStringLiteral("Valor Total")));
        QVERIFY(Impressao::fichaSaida(l.banco.banco(), chave, 1, Destino::visualizar()));
    }

    void semImpressoraInstalada_data()
    {
        QTest::addColumn<QVariant>("resposta");
        QTest::addColumn<bool>("impresso");
        QTest::addColumn<bool>("salvo");
        QTest::newRow("sim salva o PDF com o nome proposto e abre")
            << QVariant::fromValue(Dialogos::Resposta::Sim) << true << true;
        QTest::newRow("nao mostra na tela") << QVariant::fromValue(Dialogos::Resposta::Nao) << true << false;
        QTest::newRow("cancelar nao imprime") << QVariant::fromValue(Dialogos::Resposta::Cancelar) << false << false;
    }
    void semImpressoraInstalada()
    {
        QFETCH(QVariant, resposta);
        QFETCH(bool, impresso);
        QFETCH(bool, salvo);
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("esta máquina tem impressora");
        Loja l;
        QStringList abertos;
        Visualizador::definir([&](const QString& a) { abertos << a; return true; });
        gravarIni(QStringLiteral("Impressao"), QStringLiteral("ImprimePadrao"), QStringLiteral("1"));
        const QString arquivo = l.pdf(QStringLiteral("escolhido"));
        Dialogos::Roteiro::responder(resposta);
        Dialogos::Roteiro::responder(arquivo);
        const bool ok = ImprimeDocumento(l.banco.banco(), DocumentosOrdem::Entrada, inserirOrdem(l.banco.banco()));
        Visualizador::definir({});
        QCOMPARE(ok, impresso);
        QVERIFY(Dialogos::Roteiro::registros().first().texto.startsWith(
            QStringLiteral("Nenhuma impressora está instalada")));
        QCOMPARE(QFile::exists(arquivo), salvo);
        QCOMPARE(abertos, salvo ? QStringList{arquivo} : QStringList{});
        if (salvo) {
            const Dialogos::Registro& r = Dialogos::Roteiro::registros().at(1);
            QCOMPARE(r.tipo, QStringLiteral("salvar"));
            const QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
            QCOMPARE(r.texto, QDir(pasta).filePath(QStringLiteral("O.S 4711 - Entrada.pdf")));
            QVERIFY(textoPdf(arquivo).contains(QStringLiteral("Data entrada: 20/11/2026")));
        }
    }
};

QTEST_MAIN(TstImprimeFicha)
#include "tst_imprimeficha.moc"
