#pragma once
#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Recordset;

// One reported defect of an order (a SintomaOS row).
struct SintomaOrdem {
    QString CodDef;
    QString DefeitoOS;
};

// One service done on an order (a ServicoOS row).
struct ServicoOrdem {
    QString CodServico;
    QString Servico;
    Dinheiro ValorDesconto;
    Dinheiro ValorObra;
    Dinheiro ValorObraMinimo;
};

// One part applied to an order (a PecasAplicadas row). CodPecAut 0: not stored yet.
struct PecaAplicada {
    qint64 CodPecAut = 0;
    QString codpeca;
    QString Descricao;
    ::Quantidade Quantidade = ::Quantidade::unidades(1);
    Dinheiro ValorCusto, ValorVenda, ValorDesconto, ValorTotal, ValorMinimo;
    QString Aliquota, TipoAliquota, Fornecedor, Departamento, Armazenado, Grupo, SubGrupo, Unidade, Modulo;
    bool ControleEstoque = false;
    bool BaixaEstoque = false;
    // How much of this part has already left Produto's stock.
    ::Quantidade QuantidadeBaixada;
};

// A service order as stored: every column of OrdemServico, money in cents, flags as
// bool, dates as the stored text "yyyy/MM/dd" ("" when empty). The child rows travel with
// it. CodOsAut 0 is an order not stored yet; CodOs 0 an order without a number.
struct Ordem {
    qint64 CodOsAut = 0;
    qint64 CodOs = 0;
    QString CodFabrica, CodCliente, NomeCliente, CpfCnpj, Endereco, Ncasa, Bairro, Cidade, Telefone, Celular;
    QString Tipo;
    bool TipoPorcentagem = false;
    Dinheiro ValorPorcentagem;
    QString Marca, Modelo, NumeroSerie, CorProduto, Certificado, NotaFiscal, DataNota, Revendedor;
    QString EstadoAparelho, Acessorio, Sintoma, Observacao, Armazenado;
    QString Img1Aparelho, Img2Aparelho, Img3Aparelho;
    QString DataEntrada, DataSaida, DataContato, DadosContato, DataEntrega, HoraSolicitada;
    QString Tecnico, CodTecnico, DefeitoReal, Servicoreal, ServicoExecutado, StatusConserto;
    Dinheiro MaoObra, ValorVenda, ValorPecas, ValorDescontoPeca, ValorPagar, ValorDesconto, ValorPago;
    qint64 Pendurado = 0;
    bool Consertado = false, Orcamento = false, AguardaPeca = false, Devolver = false;
    bool Aprovado = false, Recusado = false;
    bool Contato = false, Garantia = false, Fabrica = false, ChamadoTecnico = false;
    bool OrdemBloqueada = false, Saida = false, DtEntrega = false;
    QString OsAlterado;
    bool Excluidos = false;

    QList<SintomaOrdem> sintomas;
    QList<ServicoOrdem> servicos;
    QList<PecaAplicada> pecas;
    // Stored parts taken off the list: deleted by the next save, so that a cancelled
    // change brings them back together with the money they were part of.
    QList<qint64> pecasRemovidas;

    // A warranty return: the old order's number, which the numbering puts in CodFabrica
    // instead of taking one from the factory counter. Never stored.
    QString fabricaDoRetorno;

    bool nova() const { return CodOsAut == 0; }
    // The defects are keyed by CodDef: the same defect can't stand twice on an order.
    bool adicionarSintoma(const SintomaOrdem& s);

    // The columns as they were read, so that a save writes only what this station
    // changed and leaves another station's change to other columns alone.
    QHash<QString, QVariant> lidas;
};

// The one place that knows OrdemServico's columns and their kinds.
namespace ColunasOrdem {
// Every column but the key, in table order.
QStringList nomes();
// The value of a column of the order as the store holds it (bool as -1/0, money as cents).
QVariant valor(const Ordem& o, const QString& coluna);
// Fills the order from the current row of a recordset over OrdemServico.
void ler(const Recordset& rs, Ordem& o);
// Writes into the recordset's row the columns that differ from what was read.
void escrever(const Ordem& o, Recordset& rs);
// The columns this station changed that another station changed too, to something else,
// since the order was read: the save must not overwrite them.
QStringList emConflito(const Ordem& o, const Recordset& rs);
}

// The same for the three child tables.
namespace ColunasFilhas {
SintomaOrdem lerSintoma(const Recordset& rs);
ServicoOrdem lerServico(const Recordset& rs);
PecaAplicada lerPeca(const Recordset& rs);
void escreverSintoma(const SintomaOrdem& s, Recordset& rs);
void escreverServico(const ServicoOrdem& s, Recordset& rs);
// Every column of the part but the key and the order's own columns.
void escreverPeca(const PecaAplicada& p, Recordset& rs);
}
