#include "orders/ListasPainel.h"

#include <algorithm>

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Sessao.h"

namespace ListasPainel {

namespace {

const QString colunasGrade = QStringLiteral(
    "CodOs,NomeCliente,Tipo,Modelo,Telefone,Celular,DataContato,DataEntrega,CodOsAut,Valorpagar,Img1Aparelho,"
    "Consertado,Orcamento,Aguardapeca,Devolver,ServicoExecutado,HoraSolicitada,Aprovado,Recusado");

// The flag columns of the index of open orders, in its key order.
const QStringList colunasDoIndice = {"Consertado", "Orcamento", "AguardaPeca", "Devolver",
                                     "Aprovado", "Recusado", "ChamadoTecnico"};

Condicao estado(const QString& colunas, const QList<int>& valores, bool envolver = true)
{
    const QStringList lista = colunas.split(QLatin1Char(','));
    Condicao c = Busca::porEstado(lista, valores, envolver);
    // A flag the list leaves free is bounded by its only two values, so that the whole key
    // of the index of open orders is fixed and the engine walks only those orders, not
    // the far larger index of live ones.
    QStringList livres;
    for (const QString& col : colunasDoIndice)
        if (!lista.contains(col, Qt::CaseInsensitive))
            livres << QStringLiteral("%1 IN (-1, 0)").arg(col);
    if (!livres.isEmpty())
        c.sql += QStringLiteral(" AND ") + livres.join(QStringLiteral(" AND "));
    return c;
}

QString ordemDe(Lista l)
{
    switch (l) {
    case Lista::Autorizado: return QStringLiteral("DataEntrega, CodOsAut");
    case Lista::NaFila: return QStringLiteral("CodOsAut");
    case Lista::Visita: return QStringLiteral("DataEntrega, CodOsAut");
    default: return QStringLiteral("CodOs, CodOsAut");
    }
}

QString diaComHora(const QString& data, const QString& hora)
{
    return Datas::bancoParaTela(data) + QStringLiteral("--") + hora;
}

} // namespace

QList<Lista> ordemAtualizacao()
{
    return {Lista::Autorizado, Lista::AguardaPeca, Lista::Consertado, Lista::Devolver,
            Lista::Pendente, Lista::NaFila, Lista::Visita, Lista::NaoAutorizado};
}

QList<Condicao> condicoes(Lista l)
{
    switch (l) {
    case Lista::Autorizado:
        return {estado(QStringLiteral("Aprovado,Consertado,Devolver,saida,Excluidos"), {-1, 0, 0, 0, 0})};
    case Lista::AguardaPeca:
        return {estado(QStringLiteral("AguardaPeca,Saida,Excluidos"), {-1, 0, 0})};
    case Lista::Consertado:
        return {estado(QStringLiteral("Aprovado,Consertado,Saida,Excluidos"), {-1, -1, 0, 0})};
    case Lista::Devolver:
        return {estado(QStringLiteral("Devolver,Saida,Excluidos"), {-1, 0, 0}),
                estado(QStringLiteral("Recusado,Saida,Excluidos"), {-1, 0, 0})};
    case Lista::Pendente:
        return {estado(QStringLiteral("Consertado,Aprovado,Recusado,Saida,Excluidos"), {-1, 0, 0, 0, 0}, false),
                estado(QStringLiteral("Orcamento,Aprovado,Recusado,Saida,Excluidos"), {-1, 0, 0, 0, 0}, false)};
    case Lista::NaFila:
        return {estado(QStringLiteral("Consertado,AguardaPeca,Orcamento,Devolver,Saida,Excluidos"),
                       {0, 0, 0, 0, 0, 0})};
    case Lista::NaoAutorizado:
        return {estado(QStringLiteral("Consertado,Recusado,Saida,Excluidos"), {-1, -1, 0, 0})};
    case Lista::Visita:
        return {estado(QStringLiteral("Consertado,AguardaPeca,Orcamento,Devolver,Saida,Excluidos,ChamadoTecnico"),
                       {0, 0, 0, 0, 0, 0, -1})};
    }
    return {};
}

Condicao condicaoVisitas()
{
    return Busca::porEstado({QStringLiteral("Atendida"), QStringLiteral("Excluidos")}, {0, 0});
}

int contar(Banco& banco, Lista l)
{
    int total = 0;
    for (const Condicao& c : condicoes(l))
        total += banco.escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico WHERE ") + c.sql, c.valores).toInt();
    if (l == Lista::Visita) {
        const Condicao v = condicaoVisitas();
        total += banco.escalar(QStringLiteral("SELECT COUNT(*) FROM VisitaTecnico WHERE ") + v.sql, v.valores).toInt();
    }
    return total;
}

QString consulta(Lista l, const Condicao& c)
{
    return QStringLiteral("SELECT %1 FROM OrdemServico WHERE %2 ORDER BY %3").arg(colunasGrade, c.sql, ordemDe(l));
}

QList<LinhaPainel> linhas(Banco& banco, Lista l)
{
    QList<LinhaPainel> r;
    if (l == Lista::Visita) {
        const Condicao v = condicaoVisitas();
        // Sorted here, not by the engine: asked for the day's order, SQLite walks the whole
        // table by its day index instead of the few open visits by theirs.
        QSqlQuery q = banco.executar(QStringLiteral("SELECT CodManu,NomeCliente,DataSolicitada,HoraSolicitada,Chave "
                                                    "FROM VisitaTecnico WHERE %1")
                                         .arg(v.sql), v.valores);
        struct Visita {
            QString dia;
            qint64 chave;
            LinhaPainel linha;
        };
        QList<Visita> visitas;
        while (q.next()) {
            LinhaPainel p;
            p.visita = true;
            p.CodOs = q.value(0).toString();
            p.NomeCliente = q.value(1).toString();
            p.Tipo = QStringLiteral("Visita");
            p.HoraSolicitada = q.value(3).toString();
            p.DiaPrometido = diaComHora(q.value(2).toString(), p.HoraSolicitada);
            visitas.append({q.value(2).toString(), q.value(4).toLongLong(), std::move(p)});
        }
        std::sort(visitas.begin(), visitas.end(), [](const Visita& a, const Visita& b) {
            return a.dia != b.dia ? a.dia < b.dia : a.chave < b.chave;
        });
        for (Visita& v : visitas)
            r.append(std::move(v.linha));
    }
    for (const Condicao& c : condicoes(l)) {
        QSqlQuery q = banco.executar(consulta(l, c), c.valores);
        while (q.next()) {
            LinhaPainel p;
            p.CodOs = q.value(0).toString();
            p.NomeCliente = q.value(1).toString();
            p.Tipo = q.value(2).toString();
            p.Modelo = q.value(3).toString();
            p.Telefone = q.value(4).toString();
            p.Celular = q.value(5).toString();
            p.DataContato = q.value(6).toString();
            p.DataEntrega = q.value(7).toString();
            p.CodOsAut = q.value(8).toLongLong();
            p.ValorPagar = Dinheiro::deCentavos(q.value(9).toLongLong());
            p.Img1Aparelho = q.value(10).toString();
            p.Consertado = q.value(11).toLongLong() != 0;
            p.Orcamento = q.value(12).toLongLong() != 0;
            p.AguardaPeca = q.value(13).toLongLong() != 0;
            p.Devolver = q.value(14).toLongLong() != 0;
            p.ServicoExecutado = q.value(15).toString();
            p.HoraSolicitada = q.value(16).toString();
            p.Aprovado = q.value(17).toLongLong() != 0;
            p.Recusado = q.value(18).toLongLong() != 0;
            if (l == Lista::Visita) {
                p.Tipo = QStringLiteral("Retirar");
                p.DiaPrometido = diaComHora(p.DataEntrega, p.HoraSolicitada);
            } else {
                p.DiaPrometido = Datas::bancoParaTela(p.DataEntrega);
            }
            r.append(std::move(p));
        }
    }
    return r;
}

bool abreNaBancada(Lista l)
{
    return l != Lista::Consertado && l != Lista::Devolver && l != Lista::Pendente;
}

bool podeAbrir(Lista l)
{
    return abreNaBancada(l) ? sessao().DireitoOsTecLe == 1 : sessao().DireitoOsSaiLe == 1;
}

}
