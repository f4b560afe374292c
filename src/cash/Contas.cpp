#include "cash/Contas.h"

#include <QSqlQuery>

#include "cash/Pix.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "data/Transacao.h"

namespace Contas {

namespace {

const QString MostrarTodos = QStringLiteral("Mostrar todos");
const QString PorNome = QStringLiteral("Busca por nome");
const QString Vencidos = QStringLiteral("Vencidos");
const QString Pagos = QStringLiteral("Pagamento efetuados");
const QString DataCompra = QStringLiteral("Busca data de compra");
const QString DataAcima = QStringLiteral("Busca data acima");
const QString DataAbaixo = QStringLiteral("Busca data abaixo");
const QString ChequeTitular = QStringLiteral("Busca cheques por Titular");
const QString ChequeData = QStringLiteral("Busca cheques por data");
const QString ChequeVencido = QStringLiteral("Mostra cheque vencido");
const QString ChequeCompensado = QStringLiteral("Mostra cheque compensado");

constexpr int Pago = -1;
constexpr int Aberto = 0;
constexpr int MaxParcelas = 360;
constexpr int MaxDias = 3650;

bool ehPagar(Modo m) { return m == Modo::Pagar; }

// The columns that play the same part on each side.
QString colNome(Modo m)
{
    return m == Modo::Pagar ? QStringLiteral("Fornecedor")
                            : m == Modo::Cheques ? QStringLiteral("TitularConta") : QStringLiteral("NomeCliente");
}
QString colValorPago(Modo m) { return ehPagar(m) ? QStringLiteral("ValorPago") : QStringLiteral("ValorRecebido"); }
QString colTipoRecebido(Modo m) { return ehPagar(m) ? QStringLiteral("TipoPagamento") : QStringLiteral("TipoRecebimento"); }
QString colDocumento(Modo m) { return ehPagar(m) ? QStringLiteral("CodDoc") : QStringLiteral("CodVenda"); }
QString colForma(Modo m) { return ehPagar(m) ? QStringLiteral("TipoConta") : QStringLiteral("TipoPagamento"); }
QString colOrigem(Modo m) { return ehPagar(m) ? QStringLiteral("Referente") : QStringLiteral("TipoVenda"); }

bool ehDinheiro(const QString& coluna)
{
    static const QStringList d = {"ValorTotal", "ValorParcela", "ValorRecebido", "ValorTroco", "ValorPago", "ValorEntrada"};
    return d.contains(coluna, Qt::CaseInsensitive);
}
bool ehData(const QString& coluna) { return coluna.startsWith(QLatin1String("Data"), Qt::CaseInsensitive); }

QString valor(const QSqlRecord& r, const QString& coluna)
{
    const int i = r.indexOf(coluna);
    return i < 0 ? QString() : textoCelula(coluna, r.value(i));
}

void exigirDireito()
{
    if (sessao().DireitoContaAl != 1)
        throw Recusa(QStringLiteral("Acesso negado"), Recusa::Negado);
}

// Reads the row again, locked, and refuses when it is gone or differs from what the
// screen read: the other station's change is never overwritten.
void conferir(Banco& banco, const Escolhida& e)
{
    if (e.vazia())
        throw Recusa(QStringLiteral("Selecione um registro"), Recusa::Linha);
    QSqlQuery q = banco.lerTravando(
        QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(tabela(e.modo), chave(e.modo)), {e.chave()});
    if (!q.next())
        throw Recusa(MsgSumiu, Recusa::Linha);
    const QSqlRecord atual = q.record();
    for (int i = 0; i < e.lida.count(); ++i) {
        const int j = atual.indexOf(e.lida.fieldName(i));
        if (j >= 0 && atual.value(j).toString() != e.lida.value(i).toString())
            throw Recusa(MsgAlterada, Recusa::Linha);
    }
}

int inteiroPositivo(const QString& texto, int maximo, const QString& mensagem, Recusa::Campo campo)
{
    bool ok = false;
    const int n = texto.trimmed().toInt(&ok);
    if (!ok || n < 1 || n > maximo)
        throw Recusa(mensagem, campo);
    return n;
}

} // namespace

QString tabela(Modo modo)
{
    switch (modo) {
    case Modo::Pagar: return QStringLiteral("ContasPagar");
    case Modo::Cheques: return QStringLiteral("CadastroCheque");
    default: return QStringLiteral("ContasReceber");
    }
}

QString chave(Modo modo) { return modo == Modo::Pagar ? QStringLiteral("Codigo") : QStringLiteral("Chave"); }

QStringList colunasGrade(Modo modo)
{
    if (modo == Modo::Pagar)
        return {"Fornecedor", "DataVencimento", "DataCompra", "ValorTotal", "ValorParcela", "CodDoc", "NumeroParcela",
                "DataPagamento", "Referente", "TipoConta", "TipoPagamento", "Funcionario", "Observacao", "Quitado",
                "CodFor", "Codigo"};
    QStringList c = {"NomeCliente", "DataVencimento", "DataCompra", "ValorTotal", "ValorParcela", "CodVenda",
                     "NumeroParcela", "DataPagamento", "TipoVenda", "TipoPagamento", "TipoRecebimento", "ValorRecebido",
                     "ValorTroco", "taxaJuros", "Observacao", "Quitado", "Funcionario", "CodCliente"};
    if (modo == Modo::Cheques) {
        // A cheque keeps neither change nor interest.
        c.removeAll(QStringLiteral("ValorTroco"));
        c.removeAll(QStringLiteral("taxaJuros"));
        c.prepend(QStringLiteral("TitularConta"));
        c << QStringLiteral("NumeroCheque");
    }
    c << QStringLiteral("Chave");
    return c;
}

QString titulo(Modo modo, qint64 n)
{
    switch (modo) {
    case Modo::Cheques: return QStringLiteral("Cheques - %1 encontrados").arg(n);
    case Modo::Pagar: return QStringLiteral("Contas - %1 encontrados").arg(n);
    default: return QStringLiteral("Contas - %1 encontradas").arg(n);
    }
}

QStringList buscas(Modo modo)
{
    QStringList b = {MostrarTodos, PorNome, Vencidos, Pagos, DataCompra, DataAcima, DataAbaixo};
    if (modo != Modo::Pagar)
        b << ChequeTitular << ChequeData << ChequeVencido << ChequeCompensado;
    return b;
}

bool buscaDeCheque(const QString& entrada)
{
    return entrada == ChequeTitular || entrada == ChequeData || entrada == ChequeVencido || entrada == ChequeCompensado;
}

Pesquisa pesquisa(Banco& banco, Modo modo, const QString& entrada, const QString& texto, const QDate& data)
{
    const QString d = Datas::paraBanco(data);
    const Condicao aberto(QStringLiteral("Quitado = ?"), {Aberto});
    const Condicao pago(QStringLiteral("Quitado = ?"), {Pago});
    const QString porVencimento = QStringLiteral("DataVencimento");
    Pesquisa p;
    if (buscaDeCheque(entrada)) {
        if (modo == Modo::Pagar)
            throw Recusa(QStringLiteral("Escolha uma busca da lista"), Recusa::Busca);
        p.modo = Modo::Cheques;
        // Only live cheques: one deleted on its register is no longer there to compensate.
        const Condicao vivos(QStringLiteral("Excluidos = 0"));
        if (entrada == ChequeTitular) {
            if (texto.trimmed().isEmpty())
                throw Recusa(QStringLiteral("Digite o nome do titular da conta"), Recusa::Busca);
            p.onde = vivos.e(Busca::porTexto(banco, tabela(p.modo), QStringLiteral("TitularConta"), texto, true));
        } else if (entrada == ChequeData) {
            p.onde = vivos.e({QStringLiteral("DataCompra = ?"), {d}}).e(aberto);
            p.ordem = porVencimento;
        } else if (entrada == ChequeVencido) {
            p.onde = vivos.e({QStringLiteral("DataVencimento <= ?"), {d}}).e(aberto);
            p.ordem = porVencimento;
        } else {
            p.onde = vivos.e(pago);
            p.ordem = porVencimento;
        }
        return p;
    }
    p.modo = modo == Modo::Cheques ? Modo::Receber : modo;
    if (entrada == MostrarTodos) {
        p.onde = aberto;
        p.ordem = porVencimento;
    } else if (entrada == PorNome) {
        // Paid and open alike, in the order they were written.
        p.onde = Busca::porTexto(banco, tabela(p.modo), colNome(p.modo), texto, true);
    } else if (entrada == Vencidos || entrada == DataAbaixo) {
        p.onde = Condicao(QStringLiteral("DataVencimento <= ?"), {d}).e(aberto);
        p.ordem = porVencimento;
    } else if (entrada == Pagos) {
        p.onde = pago;
        p.ordem = porVencimento;
    } else if (entrada == DataCompra) {
        p.onde = Condicao(QStringLiteral("DataCompra = ?"), {d}).e(aberto);
        p.ordem = porVencimento;
    } else if (entrada == DataAcima) {
        p.onde = Condicao(QStringLiteral("DataVencimento >= ?"), {d}).e(aberto);
        p.ordem = porVencimento;
    } else {
        throw Recusa(QStringLiteral("Escolha uma busca da lista"), Recusa::Busca);
    }
    return p;
}

QString textoCelula(const QString& coluna, const QVariant& v)
{
    if (ehDinheiro(coluna))
        return Dinheiro::deCentavos(v.toLongLong()).texto();
    if (ehData(coluna))
        return Datas::bancoParaTela(v.toString());
    return v.toString();
}

QStringList detalhe(Modo modo, const QSqlRecord& r)
{
    QStringList l;
    l << QStringLiteral(" Cli/Tit: ") + valor(r, colNome(modo))
      << QStringLiteral("Data compra: ") + valor(r, QStringLiteral("DataCompra"))
      << QStringLiteral("Data vencimento: ") + valor(r, QStringLiteral("DataVencimento"))
      << QStringLiteral("Descrição,nº Venda/O.S: ") + valor(r, colDocumento(modo));
    const QString cheque = valor(r, QStringLiteral("NumeroCheque"));
    if (modo == Modo::Cheques && !cheque.isEmpty())
        l << QStringLiteral("Nº Cheque: ") + cheque;
    l << QStringLiteral("Valor total: ") + valor(r, QStringLiteral("ValorTotal"))
      << QStringLiteral("Tipo pagamento: ") + valor(r, colForma(modo))
      << QStringLiteral("Origem:: ") + valor(r, colOrigem(modo))
      << QStringLiteral("Parcela: ") + valor(r, QStringLiteral("NumeroParcela"))
      << QStringLiteral("Valor parcela: ") + valor(r, QStringLiteral("ValorParcela"));
    if (r.value(QStringLiteral("Quitado")).toInt() == Pago) {
        l << QStringLiteral("-----------------------Dados do recibo----------------------");
        if (modo == Modo::Cheques && !cheque.isEmpty())
            l << QStringLiteral("Nº Cheque: ") + cheque;
        l << QStringLiteral("Data pagamento: ") + valor(r, QStringLiteral("DataPagamento"))
          << QStringLiteral("Forma pagamento: ") + valor(r, colForma(modo))
          << QStringLiteral("Tipo recebimento: ") + valor(r, colTipoRecebido(modo))
          << QStringLiteral("Valor pago: ") + valor(r, colValorPago(modo))
          << QStringLiteral("Observação: ") + valor(r, QStringLiteral("Observacao"));
    }
    return l;
}

qint64 Escolhida::chave() const { return lida.value(Contas::chave(modo)).toLongLong(); }

void pagar(Banco& banco, const Escolhida& e, const Pagamento& p)
{
    if (e.vazia())
        throw Recusa(QStringLiteral("Selecione um registro"), Recusa::Linha);
    const auto v = Dinheiro::lerTexto(p.valor);
    if (!v || v->centavos() < 0)
        throw Recusa(MsgValorInvalido, Recusa::Valor);
    exigirDireito();
    Transacao tr(banco);
    conferir(banco, e);
    // No interest, and a smaller amount still settles the instalment: the shop agrees the
    // difference at the counter.
    banco.executar(QStringLiteral("UPDATE %1 SET %2 = ?, DataPagamento = ?, %3 = ?, Observacao = ?, Quitado = ? "
                                  "WHERE %4 = ?")
                       .arg(tabela(e.modo), colValorPago(e.modo), colTipoRecebido(e.modo), chave(e.modo)),
                   {v->centavos(), p.data ? Datas::paraBanco(*p.data) : QStringLiteral(""),
                    p.forma.trimmed().isEmpty() ? QStringLiteral("Não Informado") : p.forma.trimmed(),
                    p.observacao.isNull() ? QStringLiteral("") : p.observacao, Pago, e.chave()});
    tr.commit();
}

void novaData(Banco& banco, const Escolhida& e, const QDate& vencimento)
{
    if (e.vazia())
        throw Recusa(QStringLiteral("Selecione um registro"), Recusa::Linha);
    if (!vencimento.isValid())
        throw Recusa(QStringLiteral("Data inválida: escolha o novo vencimento."), Recusa::Data);
    exigirDireito();
    Transacao tr(banco);
    conferir(banco, e);
    banco.executar(QStringLiteral("UPDATE %1 SET DataVencimento = ? WHERE %2 = ?").arg(tabela(e.modo), chave(e.modo)),
                   {Datas::paraBanco(vencimento), e.chave()});
    tr.commit();
}

void excluir(Banco& banco, const Escolhida& e)
{
    if (e.vazia())
        throw Recusa(QStringLiteral("Escolha um registro"), Recusa::Linha, QStringLiteral("Proibido"));
    exigirDireito();
    if (e.modo == Modo::Cheques)
        throw Recusa(MsgChequeNaoExclui, Recusa::Linha, QStringLiteral("Erro ao excluir o formulario"));
    Transacao tr(banco);
    conferir(banco, e);
    banco.executar(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(tabela(e.modo), chave(e.modo)), {e.chave()});
    tr.commit();
}

QList<qint64> gravar(Banco& banco, const NovaConta& c, const QDate& hoje)
{
    exigirDireito();
    const bool pagar = c.modo == Modo::Pagar;
    if (c.nome.trimmed().isEmpty())
        throw Recusa(pagar ? QStringLiteral("Selecione o fornecedor") : QStringLiteral("Selecione o cliente"),
                     Recusa::CliFor);
    if (c.total.trimmed().isEmpty())
        throw Recusa(QStringLiteral("Coloque o valor total"), Recusa::Total);
    if (c.parcelas.trimmed().isEmpty())
        throw Recusa(QStringLiteral("Coloque o numero de parcelas"), Recusa::Parcelas);
    if (c.dias.trimmed().isEmpty())
        throw Recusa(QStringLiteral("Coloque o numero de dias,para o calcular as datas de vencimento das parcelas"),
                     Recusa::Dias);
    const auto total = Dinheiro::lerTexto(c.total);
    if (!total || total->centavos() <= 0)
        throw Recusa(total ? QStringLiteral("Coloque o valor total") : MsgValorInvalido, Recusa::Total);
    const int n = inteiroPositivo(c.parcelas, MaxParcelas,
                                  QStringLiteral("O número de parcelas deve ser de 1 a %1.").arg(MaxParcelas),
                                  Recusa::Parcelas);
    const int dias = inteiroPositivo(c.dias, MaxDias,
                                     QStringLiteral("O número de dias deve ser de 1 a %1.").arg(MaxDias), Recusa::Dias);
    const auto entrada = Dinheiro::lerTexto(c.entrada);
    if (!entrada || entrada->centavos() < 0)
        throw Recusa(MsgValorInvalido, Recusa::Entrada);

    const QString compra = Datas::paraBanco(c.compra.isValid() ? c.compra : hoje);
    const QString forma = c.tipoConta.trimmed().isEmpty() ? QStringLiteral("Não informado") : c.tipoConta;
    const QString usuario = sessao().UsuarioNome.isNull() ? QStringLiteral("") : sessao().UsuarioNome;
    auto t = [](const QString& s) { return s.isNull() ? QStringLiteral("") : s.trimmed(); };
    const DefTabela& def = *Esquema::tabela(tabela(c.modo));
    const QList<Dinheiro> valores = Dinheiro::divideEmParcelas(*total, n);

    QList<qint64> chaves;
    Transacao tr(banco);
    QDate vencimento = hoje;
    for (int i = 0; i < n; ++i) {
        vencimento = vencimento.addDays(dias);
        const QString numero = QStringLiteral("%1 de %2").arg(i + 1).arg(n);
        if (pagar) {
            // A bill with no document number keeps an empty text in both its number columns.
            chaves << banco.inserir(def,
                {"CodFor", "Fornecedor", "CodDoc", "CodCod", "TipoConta", "Referente", "QtDias", "ValorTotal",
                 "ValorParcela", "NumeroParcela", "ValorEntrada", "DataCompra", "DataVencimento", "DataPagamento",
                 "ValorPago", "TipoPagamento", "Observacao", "Quitado", "Funcionario"},
                {t(c.codigo), t(c.nome), t(c.documento), QStringLiteral(""), forma, t(c.referente), dias,
                 total->centavos(), valores.at(i).centavos(), numero, entrada->centavos(), compra,
                 Datas::paraBanco(vencimento), QStringLiteral(""), 0, QStringLiteral(""), QStringLiteral(""), Aberto,
                 usuario});
        } else {
            chaves << banco.inserir(def,
                {"CodCliente", "CodVenda", "NomeCliente", "ValorParcela", "ValorTotal", "NumeroParcela", "DataCompra",
                 "DataVencimento", "TipoVenda", "TipoPagamento", "Funcionario", "Pendurado", "DataPagamento",
                 "TipoRecebimento", "ValorRecebido", "Observacao", "Quitado"},
                {t(c.codigo), t(c.documento), t(c.nome), valores.at(i).centavos(), total->centavos(), numero, compra,
                 Datas::paraBanco(vencimento), QStringLiteral("Não informado"), forma, usuario, 0, QStringLiteral(""),
                 QStringLiteral(""), 0, QStringLiteral(""), Aberto});
        }
    }
    tr.commit();
    return chaves;
}

QSqlRecord ler(Banco& banco, Modo modo, qint64 codigo)
{
    Recordset rs(banco);
    rs.abrir(tabela(modo), QStringLiteral("%1 = ?").arg(chave(modo)), {codigo});
    return rs.eof() ? QSqlRecord() : rs.registro();
}

QList<QPair<QString, QString>> nomes(Banco& banco, Modo modo, const QString& comeco, int limite)
{
    const bool fornecedor = modo == Modo::Pagar;
    const QString t = fornecedor ? QStringLiteral("Fornecedor") : QStringLiteral("Cliente");
    const QString cod = fornecedor ? QStringLiteral("CodFornecedor") : QStringLiteral("CodCliente");
    const QString nome = fornecedor ? QStringLiteral("NomeEmpresa") : QStringLiteral("NomeCliente");
    const Condicao onde = Condicao(QStringLiteral("Excluidos = 0")).e(Busca::porTexto(banco, t, nome, comeco, false));
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1, %2 FROM %3 WHERE %4 ORDER BY %2 LIMIT %5")
                                     .arg(cod, nome, t, onde.sql).arg(limite),
                                 onde.valores);
    QList<QPair<QString, QString>> r;
    while (q.next())
        r.append({q.value(0).toString(), q.value(1).toString()});
    return r;
}

FichaRecebimento recibo(Modo modo, const QSqlRecord& r)
{
    FichaRecebimento f;
    f.dataCompra = valor(r, QStringLiteral("DataCompra"));
    f.dataVencimento = valor(r, QStringLiteral("DataVencimento"));
    f.descricao = valor(r, colDocumento(modo));
    f.cliente = valor(r, colNome(modo));
    f.tipoCombinado = valor(r, colForma(modo));
    f.origem = valor(r, colOrigem(modo));
    f.parcela = valor(r, QStringLiteral("NumeroParcela"));
    f.valorParcela = valor(r, QStringLiteral("ValorParcela"));
    f.dataPagamento = Datas::lerBanco(r.value(QStringLiteral("DataPagamento")).toString()).value_or(QDate());
    f.tipoRecebido = valor(r, colTipoRecebido(modo));
    f.valorPago = valor(r, colValorPago(modo));
    f.observacao = valor(r, QStringLiteral("Observacao"));
    // A receipt of a PIX payment carries the same charge the screen showed.
    if (modo == Modo::Receber && f.tipoRecebido == Pix::FormaPagamento)
        f.pix = Pix::cobrancaDaLoja(Dinheiro::deCentavos(r.value(colValorPago(modo)).toLongLong()), f.descricao);
    return f;
}

}
