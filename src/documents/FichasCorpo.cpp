// The bodies of the sheets: what each one prints under the header.
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "documents/BlocoPix.h"
#include "documents/FichaLayout.h"
#include "documents/Fichas.h"
#include "documents/Impressora.h"

using namespace FichaLayout;

void ImprimeFicha::blocoAparelho(Impressora& p)
{
    Recordset& o = *m_ordem;
    esquerda(p, QStringLiteral("Estado Aparelho: ") + o.texto(QStringLiteral("EstadoAparelho")));
    regua(p);
    esquerda(p, QStringLiteral("Acessório: ") + o.texto(QStringLiteral("Acessorio")));
    regua(p);
    esquerda(p, QStringLiteral("Sintoma: ") + o.texto(QStringLiteral("Sintoma")));
    regua(p);
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
    linha(p, {esq(QStringLiteral("Nome: ") + v("NomeCliente")), meio(QStringLiteral("Tel: ") + MascaraTelefone(v("Telefone"))),
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
    blocoAparelho(p);
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
        imprimeBlocoPix(p, m_pix, 200, 1700);
        return;
    }
    regua(p);
    p.setFontBold(true);
    linha(p, {dir(QStringLiteral("Valor Total: ") + o.dinheiro(QStringLiteral("ValorPagar")).texto(), 10)});
    linha(p, {dir(QStringLiteral("Valor Desc: ") + o.dinheiro(QStringLiteral("ValorDesconto")).texto(), 10)});
    linha(p, {dir(QStringLiteral("Valor pago: ") + o.dinheiro(QStringLiteral("ValorPago")).texto(), 14)});
    p.print();
    p.setFontBold(false);
    imprimeBlocoPix(p, m_pix, 200, 1700);
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
    linha(p, {esq(QStringLiteral("Nome: ") + v("NomeCliente")), meio(QStringLiteral("Tel: ") + MascaraTelefone(v("Telefone"))),
              dir(QStringLiteral("Tipo: ") + v("Tipo"))});
    regua(p);
    linha(p, {esq(QStringLiteral("Marca: ") + v("Marca")), meio(QStringLiteral("Model: ") + v("Modelo")),
              dir(QStringLiteral("Série: ") + v("NumeroSerie"))});
    regua(p);
    blocoAparelho(p);
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
        // The place a part is kept ("Gaveta 12", "Prateleira B") reads on one line.
        col[1] = qMax((W - p.textWidth(QStringLiteral("Cód/Prod"))) / 8.57,
                      col[0] + p.textWidth(QStringLiteral("Prateleira 12")) + EspacoEntreCelulas);
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
    imprimeBlocoPix(p, r.pix, 100, 1700);
    p.print();
    regua(p, true);
}
