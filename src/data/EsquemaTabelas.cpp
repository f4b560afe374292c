// The columns of every table. Each column is written "Nome[:tipo[:marcas]]":
//   tipo  T text (default), I integer, F flag, N flag that may be NULL, D money,
//         Q quantity, Dt date, H time, A auto-number (the primary key)
//   marcas P searched by its beginning, M searched in its middle, X plain index,
//          U unique index
#include "data/Atualizacoes.h"
#include "data/Esquema.h"

namespace {

DefColuna coluna(const QString& descricao)
{
    const QStringList p = descricao.split(QLatin1Char(':'));
    DefColuna c;
    c.nome = p.at(0);
    const QString tipo = p.size() > 1 ? p.at(1) : QStringLiteral("T");
    if (tipo == QLatin1String("I")) c.tipo = TipoColuna::Inteiro;
    else if (tipo == QLatin1String("F")) c.tipo = TipoColuna::Flag;
    else if (tipo == QLatin1String("N")) c.tipo = TipoColuna::FlagNula;
    else if (tipo == QLatin1String("D")) c.tipo = TipoColuna::Dinheiro;
    else if (tipo == QLatin1String("Q")) c.tipo = TipoColuna::Quantidade;
    else if (tipo == QLatin1String("Dt")) c.tipo = TipoColuna::Data;
    else if (tipo == QLatin1String("H")) c.tipo = TipoColuna::Hora;
    else if (tipo == QLatin1String("A")) c.tipo = TipoColuna::AutoNumero;
    const QString marcas = p.size() > 2 ? p.at(2) : QString();
    c.prefixo = marcas.contains(QLatin1Char('P'));
    c.meio = marcas.contains(QLatin1Char('M'));
    c.indice = marcas.contains(QLatin1Char('X')) || marcas.contains(QLatin1Char('U'));
    c.unico = marcas.contains(QLatin1Char('U'));
    return c;
}

DefTabela tabela(const QString& nome, const QString& chave, const QString& colunas,
                 QList<QStringList> compostos = {})
{
    DefTabela t;
    t.nome = nome;
    t.chave = chave;
    if (chave == QLatin1String("Chave"))
        t.colunas.append(coluna(QStringLiteral("Chave:A")));
    for (const QString& c : colunas.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
        t.colunas.append(coluna(c));
    t.indicesCompostos = std::move(compostos);
    return t;
}

QList<DefTabela> monta()
{
    QList<DefTabela> t;
    t << tabela("VersaoEsquema", "Chave", "Versao:I");
    t << tabela("CodigosEmitidos", "Chave", "Tabela:T:U UltimoCodigo:I");

    t << tabela("Empresa", "Chave",
        "NomeEmpresa EnderecoEmpresa Site Telefone EmailSac TelSAC EmailSuporte TelSuporte "
        "EmailVendas TelVendas CpfCnpj IE MensagemEntrada MensagemSaida MensagemVenda "
        "ImpriMenEntrada:F ImpriMenSaida:F ImpriMenVendas:F SenhaVenda DiaAviso:I DefineMenu "
        "CodOs:I AtivaOs:F CodOsfabrica:I AtivaOsFabrica:F PastaImagem "
        "ImpriNome:F ImpriEndereco:F ImpriSite:F ImpriSAC:F ImpriSuporte:F ImpriVendas:F ImpriCPFCNPJ:F "
        "NomeNegrito:F EnderecoNegrito:F SiteNegrito:F SacNegrito:F SuporteNegrito:F VendasNegrito:F CpfCnpjNegrito:F "
        "NomeTamanho:I EnderecoTamanho:I SiteTamanho:I SacTamanho:I SuporteTamanho:I VendasTamanho:I CpfCnpjTamanho:I "
        "OsCaixa:F TipoLetra:F Menuusuario:F OSAbrePesquisa:F OSAbreCompleta:F PorcentSN:F DadoNota:F "
        "AtivaSer:F AtivaDef:F NomeServidor DataBackup:Dt TesteOk "
        // PIX at the till and the 80 mm roll.
        "PixAtivo:F PixChave PixNome PixCidade ReciboBobina:F "
        // Telling the customer on WhatsApp or by e-mail: on or off, one template per situation;
        // the warranty days an earlier order of the same appliance is still covered for.
        "AvisoAtivo:F AvisoOrcamento AvisoPeca AvisoConsertado AvisoRetirada DiasGarantia:I");

    t << tabela("Usuario", "Chave",
        "CodUsuario:I:X NomeUsuario:T:X Sobrenome Endereco Telefone Celular Senha Funcao Observacao ImgFuncionario "
        "ClienteLe:N ClienteAl:N FornecedorLe:N FornecedorAl:N FuncionarioLe:N FuncionarioAl:N "
        "OsEntLe:N OsEntAl:N OsSaiLe:N OsSaiAl:N OsTecLe:N OsTecAl:N ProdutoLe:N ProdutoAl:N "
        "VendasLe:N VendasAl:N PedidoLe:N PedidoAl:N Permanente:N UsuarioSe:N chequeLe:N chequeAl:N "
        "ContaLe:N ContaAl:N AltOrca:N AltOs:N Backup:N Configuracao:N TesteBackup:N Movimento:N Registro:N");

    // The search by the name's first letters counts its customers for the caption, live
    // and deleted told apart: with the flag beside the name the count reads this index
    // alone instead of every row of a common name.
    t << tabela("Cliente", "Chave",
        "CodCliente:I:PMX NomeCliente:T:PM Endereco Numero Complemento Bairro Cep Cidade Estado "
        "Telefone:T:PM TelFax:T:PM Celular:T:PM CnpjCpf:T:PMX RGIE Email SiteBlog Observacao "
        "DataCadastro:Dt:X BloqCliente:F Alterado Excluidos:F",
        {{"NomeCliente_b", "Excluidos"}});

    t << tabela("Fornecedor", "Chave",
        "CodFornecedor:I:X NomeEmpresa:T:PX NomeRevendedor NomeVendedor Endereco CnpjCpf IE Celular TelFax "
        "Site EmailSac TelSAC EmailSuporte TelSuporte EmailVendas TelVendas Produto Observacao Alterado Excluidos:F");

    t << tabela("OrdemServico", "CodOsAut",
        "CodOsAut:A CodOs:I:PMX CodFabrica CodCliente:T:PMX NomeCliente:T:P CpfCnpj:T:PM Endereco Ncasa Bairro "
        "Cidade Telefone:T:PM Celular:T:PM Tipo:T:P TipoPorcentagem:F ValorPorcentagem:D Marca:T:P "
        "Modelo:T:P NumeroSerie:T:P CorProduto Certificado NotaFiscal DataNota Revendedor:T:P EstadoAparelho "
        "Acessorio Sintoma Observacao Armazenado Img1Aparelho Img2Aparelho Img3Aparelho DataEntrada:Dt:X "
        "DataSaida:Dt DataContato:Dt DadosContato DataEntrega:Dt HoraSolicitada:H Tecnico CodTecnico "
        "DefeitoReal Servicoreal ServicoExecutado StatusConserto MaoObra:D ValorVenda:D ValorPecas:D "
        "ValorDescontoPeca:D ValorPagar:D ValorDesconto:D ValorPago:D Pendurado:I Consertado:F "
        "Orcamento:F AguardaPeca:F Devolver:F Aprovado:F Recusado:F Contato:F Garantia:F Fabrica:F "
        "ChamadoTecnico:F OrdemBloqueada:F Saida:F DtEntrega:F OsAlterado Excluidos:F "
        // What the till has already posted of the order, so a reopened order posts only what is new.
        "Lancada:F ValorLancado:D MaoObraLancada:D",
        // The order search counts the live orders of a common beginning ("TV", a brand, a first
        // name, "LOJA") for its caption and shows the first ones in order: with the flag and the
        // key beside the text, PostgreSQL answers both from the index alone.
        {{"NomeCliente_b", "Excluidos", "CodOsAut"}, {"Tipo_b", "Excluidos", "CodOsAut"},
         {"Marca_b", "Excluidos", "CodOsAut"}, {"Modelo_b", "Excluidos", "CodOsAut"},
         {"Revendedor_b", "Excluidos", "CodOsAut"},
         // An appliance's earlier orders at the intake: by its serial, or by the customer's
         // kind and model, newest first.
         {"NumeroSerie_b", "CodOsAut"}, {"CodCliente", "Tipo_b", "Modelo_b", "CodOsAut"}});

    t << tabela("SintomaOS", "Chave", "CodOs:I:X CodOsAut:I:X NomeOS CodDef DefeitoOS");
    t << tabela("ServicoOS", "Chave",
        "CodOs:I:X CodOsAut:I:X NomeOS CodServico Servico ValorDesconto:D ValorObra:D ValorObraMinimo:D");
    t << tabela("DefeitoReclamado", "Codigo", "Codigo:A CodDefeito:T:X Defeito:T:PX");
    t << tabela("ServicoExecutado", "Codigo", "Codigo:A CodServico:T:X Servico:T:X ValorObra:D ValorObraMinimo:D");
    t << tabela("MarcaProduto", "CodMarca", "CodMarca:A MarcaAparelho:T:PX");
    t << tabela("PorcenTecnico", "CodTipo", "CodTipo:A Tipo:T:PX ValorTipo:D porcentagem:F");

    t << tabela("PecasAplicadas", "CodPecAut",
        "CodPecAut:A CodOs:I:X CodOsAut:I:X NomeCliente TipoVisita CodManu:I:X codpeca:T:X Descricao "
        "Quantidade:Q ValorCusto:D ValorVenda:D ValorDesconto:D ValorTotal:D ValorMinimo:D Aliquota "
        "TipoAliquota Fornecedor Departamento Armazenado Grupo SubGrupo Unidade Modulo "
        "ControleEstoque:F BaixaEstoque:F QuantidadeBaixada:Q Lancada:F");

    t << tabela("VisitaTecnico", "Chave",
        "CodManu:I:PMX CodCliente:T:P NomeCliente:T:P EndTel Solicitacao DataSolicitada:Dt:X "
        "HoraSolicitada:H DataAtendida:Dt Atendida:I Tecnico MaoObra:D ValorVenda:D ValorPagar:D "
        "ValorPecas:D TipoFormulario Aguarda:F Acaminho:F Orcamento:F Executado:F OsAlterado Excluidos:F",
        {{"Atendida", "Excluidos"}});

    t << tabela("Movimento", "Codmov",
        "Codmov:A CodVenAUT:I CodOsAut:I:X CodVenda:I:X ValorTotal:D ValorPagar:D ValorDesconto:D "
        "ValorDescontoPeca:D ValorPeca:D ValorCusto:D ValorPago:D ValorDiferenca:D ValorMaoobra:D "
        "ValorPorcTecnico:D TipoAparelho TipoPorcentagem:F Data:Dt:X TipoVenda CodFuncionario "
        "Funcionario CodTecnico NomeTecnico CodCliente NomeCliente Pagamento Hora Caixa CodCaixa Fornecedor");

    t << tabela("VendaDetalhada", "CodDet",
        "CodDet:A CodVenAUT:I CodOsAut:I CodVenda:I:X NomeCliente codpeca Quantidade:Q Descricao Unidade "
        "ValorCusto:D ValorMinimo:D PecaDesconto:D ValorVenda:D ValorTotal:D Departamento Fornecedor "
        "Modulo Armazenado Data:Dt:X TipoVenda Tecnico Hora MaoObra:D ValorPorcentagem:D Tipo "
        "TipoPorcentagem:F CodFun Vendedor CodTec CodCli TipoPagamento PorcentagemVendedor CodCaixa Caixa");

    t << tabela("CadastroPecasNota", "Chave",
        "NumeroOS:I:X NumeroPedido:T:X NomeCliente codpeca Quantidade:Q Descricao Unidade ValorCusto:D "
        "ValorVenda:D ValorDesconto:D ValorItemTotal:D ValorMinimo:D Fornecedor Grupo Aliquota SubGrupo "
        "TipoVenda Departamento DataOS:Dt Armazenado");

    t << tabela("CadastroNotaFiscal", "Chave",
        "CodCliente NumeroOS:I:X NomeCliente CpfCnpj Finalizado:I ValorTotal:D ValorPagar:D ValorPago:D "
        "ValorTroco:D ValorPorcTecnico:D ValorMaoobra:D ValorPeca:D ValorCusto:D ValorDescontoPeca:D "
        "NomeTecnico TipoAparelho TipoPorcentagem:F DataOS:Dt HoraSaida TipoVenda FormaPagamento "
        "Codvendedor NomeVendedor");

    // The accounts screen lists open instalments by due date and finds names anywhere in
    // the text: the pairs below answer its searches without a sort.
    t << tabela("ContasReceber", "Chave",
        "CodCliente CodVenda:T:X NomeCliente:T:MX ValorParcela:D ValorTotal:D NumeroParcela DataCompra:Dt:X "
        "DataVencimento:Dt:X TipoVenda TipoPagamento Funcionario Pendurado:I DataPagamento:Dt "
        "TipoRecebimento ValorRecebido:D Observacao Quitado:F ValorTroco:D taxaJuros",
        {{"Quitado", "DataVencimento"}, {"Quitado", "DataCompra", "DataVencimento"}});

    t << tabela("ContasPagar", "Codigo",
        "Codigo:A CodFor CodCod Fornecedor:T:MX CodDoc TipoConta Referente QtDias:I ValorTotal:D "
        "ValorParcela:D ValorEntrada:D NumeroParcela DataCompra:Dt:X DataVencimento:Dt:X DataPagamento:Dt "
        "ValorPago:D TipoPagamento Observacao Quitado:F Funcionario",
        {{"Quitado", "DataVencimento"}, {"Quitado", "DataCompra", "DataVencimento"}});

    t << tabela("CadastroCheque", "Chave",
        "Codcadastro:I:X CodVenda CodCliente:T:P NomeCliente:T:P CPFCNPJCliente TelCel NomeBanco "
        "NumeroAgencia NumeroConta:T:P NumeroCheque:T:P TitularConta:T:PM Endereco CpfCnpjTitular:T:P "
        "ValorTotal:D ValorParcela:D DataVencimento:Dt:X NumeroParcela DataCompra:Dt:X TipoVenda "
        "TipoPagamento Funcionario Excluidos:F Quitado:F DataPagamento:Dt TipoRecebimento ValorRecebido:D "
        "Observacao",
        {{"Excluidos", "Quitado", "DataVencimento"}});

    t << tabela("Produto", "CodPecAut",
        "CodPecAut:A codpeca:T:PMX CodEAN13 CodDUN14 Descricao:T:PM Equivalente:T:PM Armazenado "
        "ArmazenadoEstoque Quantidadeestoque:Q QuantidadeMinima:Q QuantidadeEmbalagem:Q "
        "QuantidadeReservada:Q Fabricante:T:P Revendedor:T:P NotaFiscal:T:P DataCompra PrecoCusto:D PrecoVenda:D "
        "PrecoMinimo:D PorcentagemLucro LucroMinimo ValorComissao AtivaComissao:F Observacao Categoria "
        "Aliquota DescricaoAliquota CodNCM GrupoProduto SubGrupoProduto Unidade FotoImagem KitProduto:F "
        "Excluidos:F CodOriginal:T:PM Modulo:T:P ValorDesconto:D",
        // The search's order: a text of one or two letters, found in most descriptions,
        // reads its first page walking this index instead of sorting every product.
        {{"Descricao", "CodPecAut"}});

    t << tabela("kitVenda", "Chave",
        "CodKit:T:X codpeca Descricao Quantidade:Q ValorVenda:D ValorTotal:D Fornecedor");
    t << tabela("GrupoProdutos", "CodGrupo", "CodGrupo:A Grupo:T:X");
    t << tabela("SubGrupoProdutos", "CodSubGrupo", "CodSubGrupo:A CodGrupo:I:X SubGrupo");
    t << tabela("ClassificaAliquota", "CodAliquota", "CodAliquota:A Descricao:T:X ICMS:I");
    t << tabela("PedidoPeca", "CodPedido",
        "CodPedido:A CodVenda Descricao Quantidade DataPedido:Dt Solicitado Fornecedor:T:X");
    t << tabela("DefeitoSolucionado", "CodDefeito",
        "CodDefeito:A Marca:T:PM Modelo Tipo Defeito Solucao Observacao");
    // Who told the customer what, and how: one row per press of "Avisar cliente".
    t << tabela("AvisoCliente", "Chave", "CodOsAut:I:X Canal Situacao Data:Dt Hora:H Usuario");
    t << tabela("Contato", "Cod", "Cod:A Nome:T:PM Endereco Telefone Email NomeEmpresa CpfCnpj IeRg");
    return t;
}

} // namespace

namespace Esquema {

const QList<DefTabela>& tabelas()
{
    static const QList<DefTabela> t = monta();
    return t;
}

int versaoAtual() { return Atualizacoes::ultimaVersao(); }

}
