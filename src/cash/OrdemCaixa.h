#pragma once
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

class Banco;

// An order as the till reads it: what the screen shows, what the posting copies, and
// what was already posted when the order was delivered before and reopened.
struct OrdemCaixa {
    qint64 CodOsAut = 0;
    qint64 CodOs = 0;
    QString CodFabrica, CodCliente, NomeCliente, CpfCnpj, Endereco, Ncasa, Bairro, Cidade, Telefone, Celular;
    QString Tipo, Marca, Modelo, DataEntrada, DataSaida, Tecnico, Armazenado;
    bool TipoPorcentagem = false;
    Dinheiro ValorPorcentagem, MaoObra, ValorVenda, ValorPecas, ValorDescontoPeca, ValorPagar, ValorDesconto, ValorPago;
    qint64 Pendurado = 0;
    bool Saida = false, Excluidos = false;
    bool Lancada = false;
    Dinheiro ValorLancado, MaoObraLancada;

    bool entregue() const { return Saida || !DataSaida.isEmpty(); }
    // What the till charges: on an order posted before, only what was added since.
    Dinheiro aCobrar() const { return Lancada ? ValorPagar - ValorLancado : ValorPagar; }
    // Labour not yet posted.
    Dinheiro maoObraNova() const { return Lancada ? MaoObra - MaoObraLancada : MaoObra; }
};

namespace OrdensCaixa {
// The order by its row key. `travar`: inside the save's transaction, so another station
// recording the same order waits for this one and then sees it closed.
std::optional<OrdemCaixa> ler(Banco& banco, qint64 codOsAut, bool travar = false);
}
