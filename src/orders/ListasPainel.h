#pragma once
#include <QList>
#include <QString>

#include "data/Busca.h"
#include "data/Dinheiro.h"

class Banco;

// The lists of the pending panel, numbered by their buttons. Each reads only the orders
// still in the shop and live, so it is answered from the index of open orders however
// many closed orders lie behind it.
enum class Lista {
    Autorizado = 0,
    AguardaPeca = 1,
    Consertado = 2,
    Devolver = 3,
    Pendente = 4,
    NaFila = 5,
    NaoAutorizado = 6,
    Visita = 9,
};

// One row of a panel list, in the grid's column order. In the list of house calls a
// visit's row carries CodManu under CodOs, "Visita" as Tipo, and its day and hour as the
// promised day; a pick-up's row "Retirar" and DataEntrega with the agreed hour.
struct LinhaPainel {
    QString CodOs, NomeCliente, Tipo, Modelo, Telefone, Celular, DataContato, DataEntrega;
    qint64 CodOsAut = 0;
    Dinheiro ValorPagar;
    QString Img1Aparelho;
    bool Consertado = false, Orcamento = false, AguardaPeca = false, Devolver = false;
    QString ServicoExecutado;
    bool Aprovado = false, Recusado = false;  // the answer as it was read, for the panel's write
    QString DiaPrometido;  // as the grid shows it, "dd/MM/yyyy" (list 9: "dd/MM/yyyy--HH:mm")
    QString HoraSolicitada;
    bool visita = false;
};

namespace ListasPainel {

// The buttons in the order of the refresh.
QList<Lista> ordemAtualizacao();

// The conditions of a list over OrdemServico, one per query (lists 3 and 4 have two,
// whose rows are appended; list 9's order part is the pick-ups).
QList<Condicao> condicoes(Lista l);
// The condition of the unattended house calls over VisitaTecnico (list 9).
Condicao condicaoVisitas();

// The SELECT that reads one of a list's conditions over OrdemServico, in the list's order.
QString consulta(Lista l, const Condicao& c);

int contar(Banco& banco, Lista l);
QList<LinhaPainel> linhas(Banco& banco, Lista l);

// The list a double click opens on: the bench for 0, 1, 5, 6, 9, delivery for 2, 3, 4.
bool abreNaBancada(Lista l);
// The right that opening the list asks: DireitoOsTecLe or DireitoOsSaiLe.
bool podeAbrir(Lista l);

}
