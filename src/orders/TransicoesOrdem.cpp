#include "orders/TransicoesOrdem.h"

#include <QDateTime>
#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "orders/EstoqueOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/Ordem.h"
#include "orders/ValoresOrdem.h"

namespace TransicoesOrdem {

namespace {

void exigir(int direito)
{
    if (direito != 1)
        throw OrdemRecusada(Recusa::negado());
}

void exigirLivre(const Ordem& o, TelaOrdem tela)
{
    if (auto r = TravaOrdem::verificarAlteracao(o, tela))
        throw OrdemRecusada(*r);
}

bool cfg(const QString& valor) { return Sessao::verdadeiro(valor); }

// Text bound straight into a statement: the empty text, never NULL.
QString texto(const QString& t) { return t.isNull() ? QStringLiteral("") : t; }

void copiarCliente(const Ordem& de, Ordem& para)
{
    para.CodCliente = de.CodCliente;
    para.NomeCliente = de.NomeCliente;
    para.CpfCnpj = de.CpfCnpj;
    para.Endereco = de.Endereco;
    para.Ncasa = de.Ncasa;
    para.Bairro = de.Bairro;
    para.Cidade = de.Cidade;
    para.Telefone = de.Telefone;
    para.Celular = de.Celular;
}

void copiarAparelho(const Ordem& de, Ordem& para)
{
    para.Tipo = de.Tipo;
    para.TipoPorcentagem = de.TipoPorcentagem;
    para.ValorPorcentagem = de.ValorPorcentagem;
    para.Marca = de.Marca;
    para.Modelo = de.Modelo;
    para.NumeroSerie = de.NumeroSerie;
    para.CorProduto = de.CorProduto;
    para.Certificado = de.Certificado;
    para.NotaFiscal = de.NotaFiscal;
    para.DataNota = de.DataNota;
    para.Revendedor = de.Revendedor;
    para.EstadoAparelho = de.EstadoAparelho;
    para.Acessorio = de.Acessorio;
    para.Sintoma = de.Sintoma;
    para.Observacao = de.Observacao;
    para.Armazenado = de.Armazenado;
}

// What the intake half of the whole-order screen owns: the customer, the appliance, the
// number, the dates and the pick-up flag, onto the order as stored.
Ordem metadeEntradaDe(Banco& banco, const Ordem& o)
{
    Ordem e;
    if (!o.nova()) {
        auto guardada = GravacaoOrdem::carregar(banco, o.CodOsAut);
        if (!guardada)
            throw ErroBanco(QStringLiteral("Erro ao gravar formulário,"),
                            QStringLiteral("A ordem de serviço foi excluída em outra estação."));
        e = std::move(*guardada);
    }
    copiarCliente(o, e);
    copiarAparelho(o, e);
    e.CodOs = o.CodOs;
    e.CodFabrica = o.CodFabrica;
    e.Fabrica = o.Fabrica;
    e.DataEntrada = o.DataEntrada;
    e.DataSaida = o.DataSaida;
    e.ChamadoTecnico = o.ChamadoTecnico;
    e.sintomas = o.sintomas;
    return e;
}

// Transition 1 on the order in memory.
void metadeEntrada(Ordem& o, const OpcoesEntrada& opcoes)
{
    if (o.NomeCliente.trimmed().isEmpty())
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("Coloque o nome do cliente")));
    if (!o.DataSaida.isEmpty() && !Datas::lerBanco(o.DataSaida))
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("A data de saída \"%1\" não é uma data válida.")
                                              .arg(Datas::bancoParaTela(o.DataSaida))));
    if (opcoes.retornoGarantia) {
        o.Fabrica = true;
        if (o.nova() && o.fabricaDoRetorno.isEmpty())
            o.fabricaDoRetorno = o.CodFabrica;
    }
    if (o.Fabrica)
        o.Garantia = true;
    if (!o.DataSaida.isEmpty()) {
        o.Saida = true;
    } else {
        o.DataSaida.clear();
        o.DataContato.clear();
        o.Saida = false;
        o.Contato = false;
    }
    if (o.DataEntrada.isEmpty())
        o.DataEntrada = Datas::hoje();
    if (cfg(sessao().CfgAtivaDef))
        o.Sintoma = GravacaoOrdem::textoDosSintomas(o);
    o.OsAlterado = sessao().UsuarioNome;
}

// Transition 1 as the whole-order screen runs it: its answer buttons write today's
// contact into the order being saved, which only an order reopened here gives up.
void metadeEntradaCompleta(Ordem& o, bool estavaFora, const OpcoesEntrada& opcoes)
{
    const QString dataContato = o.DataContato;
    const bool contato = o.Contato;
    metadeEntrada(o, opcoes);
    if (estavaFora && o.DataSaida.isEmpty())
        return;
    o.DataContato = dataContato;
    o.Contato = contato;
}

// Transition 2's columns, shared by the bench and the whole-order screen.
void metadeBancada(Ordem& o)
{
    if (o.Tecnico.trimmed().isEmpty())
        o.Tecnico = sessao().TecnicoNome;
    o.CodTecnico = sessao().TecnicoCodigo;
    if (cfg(sessao().CfgAtivaDef))
        o.Sintoma = GravacaoOrdem::textoDosSintomas(o);
    if (cfg(sessao().CfgAtivaSer))
        o.ServicoExecutado = GravacaoOrdem::textoDosServicos(o);
    if (o.Garantia)
        o.Aprovado = o.Consertado;
    o.OsAlterado = sessao().UsuarioNome;
}

GravacaoOrdem::Filhas filhasDaBancada()
{
    GravacaoOrdem::Filhas f;
    f.sintomas = cfg(sessao().CfgAtivaDef);
    f.servicos = cfg(sessao().CfgAtivaSer);
    f.pecas = true;
    return f;
}

} // namespace

QString textoSaiu()
{
    return QStringLiteral("Saiu ") + QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
}

void salvarEntrada(Banco& banco, Ordem& o, const OpcoesEntrada& opcoes)
{
    Ordem trabalho = o;
    metadeEntrada(trabalho, opcoes);
    exigir(sessao().DireitoOsEntAl);
    const bool copiar = NumeroOrdem::pedeNumeroFabrica(trabalho)
        && NumeroOrdem::perguntarCopiaFabrica(banco, trabalho, opcoes.perguntar);
    GravacaoOrdem::Filhas f;
    f.sintomas = cfg(sessao().CfgAtivaDef);
    GravacaoOrdem::gravar(banco, trabalho, f, TelaOrdem::Entrada, copiar);
    o = std::move(trabalho);
}

QStringList salvarBancada(Banco& banco, Ordem& o, Situacao escolhida)
{
    if (escolhida == Situacao::Nenhuma)
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("Defina a situação do conserto")));
    exigir(sessao().DireitoOsTecAl);
    Ordem trabalho = o;
    EstadoOrdem::definirSituacao(trabalho, escolhida);
    trabalho.OrdemBloqueada = escolhida == Situacao::Consertado || escolhida == Situacao::Orcamento;
    metadeBancada(trabalho);
    Transacao tr(banco);
    GravacaoOrdem::gravar(banco, trabalho, filhasDaBancada(), TelaOrdem::Bancada);
    QStringList reposicao;
    if (trabalho.Consertado)
        reposicao = EstoqueOrdem::baixarNaBancada(banco, trabalho.CodOsAut);
    tr.commit();
    if (auto recarregada = GravacaoOrdem::carregar(banco, trabalho.CodOsAut))
        trabalho = std::move(*recarregada);
    o = std::move(trabalho);
    return reposicao;
}

void removerPeca(Ordem& o, int indice)
{
    if (indice < 0 || indice >= o.pecas.size())
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("Não tem item"), QStringLiteral("Proibido")));
    if (o.pecas.at(indice).ControleEstoque)
        throw OrdemRecusada(Recusa::aviso(
            QStringLiteral("Essa peça pode ser excluida somente pelo controle de estoque não é permitido a exclusão "
                           "por este formulário"),
            QStringLiteral("Controle de estoque")));
    if (auto r = TravaOrdem::verificarRemocaoPeca())
        throw OrdemRecusada(*r);
    const qint64 chave = o.pecas.at(indice).CodPecAut;
    if (chave != 0)
        o.pecasRemovidas << chave;
    o.pecas.removeAt(indice);
    ValoresOrdem::recalcular(o, cfg(sessao().CfgAtivaSer));
}

void autorizarNaBancada(Ordem& o)
{
    if (o.Garantia)
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("Aparelho na garantia")));
    exigirLivre(o, TelaOrdem::Bancada);
    EstadoOrdem::definirResposta(o, Resposta::Aprovado);
    o.Contato = true;
    o.Garantia = false;
}

void salvarNoPainel(Banco& banco, const LinhaPainel& lida, Lista lista, std::optional<Situacao> situacao,
                    std::optional<Resposta> resposta, const QDate& diaPrometido)
{
    // Reading a list is not enough to change it: the change right of the screen the list
    // belongs to.
    exigir(ListasPainel::abreNaBancada(lista) ? sessao().DireitoOsTecAl : sessao().DireitoOsSaiAl);
    Transacao tr(banco);
    QSqlQuery q = banco.lerTravando(
        QStringLiteral("SELECT Consertado, Orcamento, AguardaPeca, Devolver, Aprovado, Recusado, Saida, Excluidos, "
                       "OrdemBloqueada, DataEntrega FROM OrdemServico WHERE CodOsAut = ?"),
        {lida.CodOsAut});
    if (!q.next() || q.value(7).toLongLong() != 0)
        throw RegistroAlterado(true);
    Ordem atual;
    atual.Consertado = q.value(0).toLongLong() != 0;
    atual.Orcamento = q.value(1).toLongLong() != 0;
    atual.AguardaPeca = q.value(2).toLongLong() != 0;
    atual.Devolver = q.value(3).toLongLong() != 0;
    atual.Aprovado = q.value(4).toLongLong() != 0;
    atual.Recusado = q.value(5).toLongLong() != 0;
    atual.Saida = q.value(6).toLongLong() != 0;
    atual.OrdemBloqueada = q.value(8).toLongLong() != 0;
    atual.DataEntrega = q.value(9).toString();
    const bool novaSituacao = situacao && *situacao != Situacao::Nenhuma && *situacao != EstadoOrdem::situacao(atual);
    // The bench's locks, on the row as stored: an answer alone may go on a locked budget.
    if (auto r = TravaOrdem::verificarAlteracao(atual.Saida, atual.OrdemBloqueada && novaSituacao, TelaOrdem::Bancada))
        throw OrdemRecusada(*r);
    // A panel left open since the bench saved "Consertado." must not put the order back
    // where it stood: what was listed has to be what is stored.
    if (atual.Consertado != lida.Consertado || atual.Orcamento != lida.Orcamento
        || atual.AguardaPeca != lida.AguardaPeca || atual.Devolver != lida.Devolver
        || atual.Aprovado != lida.Aprovado || atual.Recusado != lida.Recusado || atual.Saida)
        throw RegistroAlterado(false);

    QStringList sets = {QStringLiteral("DataContato = ?")};
    QVariantList valores = {Datas::hoje()};
    if (diaPrometido.isValid() && Datas::paraBanco(diaPrometido) != atual.DataEntrega) {
        sets << QStringLiteral("DataEntrega = ?");
        valores << Datas::paraBanco(diaPrometido);
    }
    if (novaSituacao) {
        Ordem o;
        EstadoOrdem::definirSituacao(o, *situacao);
        sets << QStringLiteral("Consertado = ?") << QStringLiteral("Orcamento = ?")
             << QStringLiteral("AguardaPeca = ?") << QStringLiteral("Devolver = ?");
        valores << (o.Consertado ? -1 : 0) << (o.Orcamento ? -1 : 0) << (o.AguardaPeca ? -1 : 0)
                << (o.Devolver ? -1 : 0);
    }
    if (resposta && *resposta != EstadoOrdem::resposta(atual)) {
        Ordem o;
        EstadoOrdem::definirResposta(o, *resposta);
        sets << QStringLiteral("Aprovado = ?") << QStringLiteral("Recusado = ?");
        valores << (o.Aprovado ? -1 : 0) << (o.Recusado ? -1 : 0);
    }
    valores << lida.CodOsAut;
    banco.executar(QStringLiteral("UPDATE OrdemServico SET %1 WHERE CodOsAut = ?").arg(sets.join(QStringLiteral(", "))),
                   valores);
    tr.commit();
}

QString textoConfirmaPainel(const QString& codOs, const QString& nome, const QString& tipo)
{
    return QStringLiteral("Confirma alteração \n O.S: ") + codOs + QStringLiteral(" - ") + nome
        + QStringLiteral(" - ") + tipo;
}

void responderNaEntrega(Ordem& o, Resposta r)
{
    exigirLivre(o, TelaOrdem::Saida);
    EstadoOrdem::definirResposta(o, r);
    o.Contato = true;
    o.Garantia = false;
    o.DataContato = Datas::hoje();
}

void desfazerGarantia(Ordem& o)
{
    exigirLivre(o, TelaOrdem::Saida);
    o.Garantia = false;
}

void garantiaMesmaOrdem(Ordem& o)
{
    exigirLivre(o, TelaOrdem::Saida);
    EstadoOrdem::definirResposta(o, Resposta::Indeciso);
    o.Contato = false;
    o.Garantia = true;
    EstadoOrdem::definirSituacao(o, Situacao::Nenhuma);
    o.StatusConserto = QStringLiteral("Garantia pendente..");
    o.Armazenado = QStringLiteral("Retorno oficina");
    o.Observacao += QStringLiteral("\nAPARELHO ESTÁ NA GARANTIA DA LOJA");
    o.DataSaida.clear();
}

Ordem garantiaNovaOrdem(const Ordem& antiga)
{
    Ordem n;
    copiarCliente(antiga, n);
    copiarAparelho(antiga, n);
    n.sintomas = antiga.sintomas;
    // The old departure date is not carried over: the return is in the shop now.
    n.CodFabrica = QString::number(antiga.CodOs);
    n.Fabrica = true;
    return n;
}

bool entregar(Ordem& o)
{
    if (EstadoOrdem::vaiAoCaixa(o))
        return true;
    if (o.DataSaida.isEmpty()) {
        o.DataSaida = Datas::hoje();
        o.Saida = true;
        o.Armazenado = textoSaiu();
    }
    return false;
}

void salvarEntrega(Banco& banco, Ordem& o)
{
    exigir(sessao().DireitoOsSaiAl);
    Ordem trabalho = o;
    trabalho.DtEntrega = !trabalho.DataEntrega.isEmpty();
    trabalho.Saida = !trabalho.DataSaida.isEmpty();
    trabalho.OsAlterado = sessao().UsuarioNome;
    GravacaoOrdem::gravar(banco, trabalho, {}, TelaOrdem::Saida);
    o = std::move(trabalho);
}

void fecharNoCaixa(Banco& banco, qint64 codOsAut, const Fechamento& f)
{
    exigir(sessao().DireitoOsSaiAl);
    banco.executar(QStringLiteral("UPDATE OrdemServico SET Armazenado = ?, DtEntrega = -1, ValorPago = ?, "
                                  "ValorDesconto = ?, CpfCnpj = ?, DataSaida = ?, Saida = -1, OsAlterado = ?, "
                                  "Pendurado = ? WHERE CodOsAut = ?"),
                   {textoSaiu(), f.valorPago.centavos(), f.valorDesconto.centavos(), texto(f.cpfCnpj),
                    texto(f.dataSaida), texto(sessao().UsuarioNome), f.pendurado, codOsAut});
}

QStringList salvarCompleto(Banco& banco, Ordem& o, Situacao situacao, const OpcoesEntrada& opcoes)
{
    Ordem trabalho = o;
    ValoresOrdem::recalcular(trabalho, cfg(sessao().CfgAtivaSer));
    metadeEntradaCompleta(trabalho, o.Saida, opcoes);
    exigir(sessao().DireitoOsEntAl);
    const bool copiar = NumeroOrdem::pedeNumeroFabrica(trabalho)
        && NumeroOrdem::perguntarCopiaFabrica(banco, trabalho, opcoes.perguntar);
    if (sessao().DireitoOsTecAl != 1) {
        // The intake half is stored on its own, as the two separate screens would; what
        // belongs to the bench stays as it is stored.
        Ordem entrada = metadeEntradaDe(banco, o);
        metadeEntradaCompleta(entrada, o.Saida, opcoes);
        GravacaoOrdem::Filhas f;
        f.sintomas = cfg(sessao().CfgAtivaDef);
        GravacaoOrdem::gravar(banco, entrada, f, TelaOrdem::Completa, copiar);
        o = std::move(entrada);
        throw OrdemRecusada(Recusa::negado());
    }
    EstadoOrdem::definirSituacao(trabalho, situacao);
    if (trabalho.StatusConserto.trimmed().isEmpty())
        trabalho.StatusConserto = QStringLiteral("SEM RESPOSTA");
    metadeBancada(trabalho);
    Transacao tr(banco);
    GravacaoOrdem::gravar(banco, trabalho, filhasDaBancada(), TelaOrdem::Completa, copiar);
    QStringList reposicao;
    if (trabalho.Consertado)
        reposicao = EstoqueOrdem::baixarNaBancada(banco, trabalho.CodOsAut);
    tr.commit();
    if (auto recarregada = GravacaoOrdem::carregar(banco, trabalho.CodOsAut))
        trabalho = std::move(*recarregada);
    o = std::move(trabalho);
    return reposicao;
}

void excluir(Banco& banco, qint64 codOsAut, TelaOrdem tela)
{
    Transacao tr(banco);
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Saida FROM OrdemServico WHERE CodOsAut = ?"), {codOsAut});
    if (!q.next())
        throw OrdemRecusada(Recusa::aviso(QStringLiteral("Sem registro")));
    if (auto r = TravaOrdem::verificarAlteracao(q.value(0).toLongLong() != 0, false, tela))
        throw OrdemRecusada(*r);
    exigir(sessao().DireitoOsEntAl);
    if (sessao().DireitoPermanente == 1) {
        banco.executar(QStringLiteral("DELETE FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = ''"), {codOsAut});
        banco.executar(QStringLiteral("DELETE FROM SintomaOS WHERE CodOsAut = ?"), {codOsAut});
        banco.executar(QStringLiteral("DELETE FROM ServicoOS WHERE CodOsAut = ?"), {codOsAut});
        banco.executar(QStringLiteral("DELETE FROM AvisoCliente WHERE CodOsAut = ?"), {codOsAut});
        banco.executar(QStringLiteral("DELETE FROM OrdemServico WHERE CodOsAut = ?"), {codOsAut});
    } else {
        banco.executar(QStringLiteral("UPDATE OrdemServico SET Excluidos = -1, OsAlterado = ? WHERE CodOsAut = ?"),
                       {texto(sessao().UsuarioNome), codOsAut});
    }
    tr.commit();
}

void restaurar(Banco& banco, qint64 codOsAut)
{
    banco.executar(QStringLiteral("UPDATE OrdemServico SET Excluidos = 0 WHERE CodOsAut = ?"), {codOsAut});
}

}
