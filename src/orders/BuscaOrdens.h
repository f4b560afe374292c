#pragma once
#include <QString>
#include <QVariantMap>

#include "data/Busca.h"

class Banco;

// What the two order searches look for and where a chosen order goes. Both list live
// rows only: a deleted order must never reach the delivery counter or the till, even when
// its number holds the typed digits followed by a 0.
namespace BuscaOrdens {

// Where the general search was opened from; exactly one at a time.
enum class Modo { Nenhum, Entrada, Saida, Tecnico, Visita };

// One search box: the column compared, whether the typed text may stand anywhere in it,
// and the column the grid is read in.
struct Criterio {
    QString tabela;
    QString coluna;
    bool meio = false;
    QString ordem;
};

// The general search's eight boxes: number, name, telephone, type, brand, model, customer
// code, reseller. In house-call mode only boxes 0, 1 and 6 exist (a visit has no
// appliance); any other gives an empty criterion.
constexpr int CaixasPesquisa = 8;
Criterio criterioPesquisa(int caixa, Modo modo);
bool caixaDaVisita(int caixa);

// The quick search's four boxes: number, name, telephone, document; and the mobile number,
// searched with the telephone box's text when no live order has it as its telephone.
enum class Rapida { Numero = 0, Nome, Telefone, Documento, Celular };
Criterio criterioRapida(Rapida caixa);

// Live rows of the criterion's table whose column begins with (or holds) the text, case
// and accents ignored. Telephones and documents are stored as digits: the mask's
// characters typed with them are dropped; a mask alone finds nothing.
Condicao condicao(Banco& banco, const Criterio& criterio, const QString& texto);

// The screen that takes a chosen row, the method it is called with and its data. With
// CfgOSAbreCompleta on, the counter's choices (intake and delivery) go to the whole-order
// screen; the bench and house calls keep their own screens.
struct Destino {
    QString tela;
    QString metodo;
    QVariantMap dados;
    QString descricao;  // the screen as the staff call it, for "not installed here"
};
Destino destino(Modo modo, bool abreCompleta, const QVariantMap& linha);

}
