#pragma once
#include <QImage>
#include <QString>
#include <memory>

#include "documents/Fichas.h"

class Banco;
class Impressora;
class Recordset;

// The intake and delivery sheets and the payment receipt on an 80 mm roll ("cupom não
// fiscal"): one narrow column, the order's number also in bars for the counter's scanner,
// and a cut line after each copy. The page is as long as what it holds.
class CupomBobina {
public:
    static constexpr double LarguraMm = 80;
    static constexpr double MargemMm = 3;

    CupomBobina(Banco& banco, PedidoFicha pedido, ConfigFicha config);
    ~CupomBobina();

    // The sheets that go on the roll when the shop chose it.
    static bool serve(TipoFicha tipo);
    // Whether the shop chose the roll ("Recursos" tab).
    static bool escolhida();

    // Throws ErroBanco: the store failed or the order isn't there.
    void carregar();
    // Every copy, each ending in the cut line. Nothing else is asked of the device, so the
    // same call measures the length on a dry run.
    void imprimir(Impressora& p);

private:
    void copia(Impressora& p);
    void cabecalho(Impressora& p);
    void ordem(Impressora& p);
    void recebimento(Impressora& p);
    void centro(Impressora& p, const QString& texto) const;
    void esquerda(Impressora& p, const QString& texto) const;
    void valor(Impressora& p, const QString& rotulo, const QString& valor) const;
    void traco(Impressora& p) const;
    void corte(Impressora& p) const;

    Banco& m_banco;
    PedidoFicha m_pedido;
    ConfigFicha m_config;
    QStringList m_empresa;  // name, address, phone, document: each printed when not empty
    QString m_termos;
    std::unique_ptr<Recordset> m_ordem, m_pecas;
    QString m_formaPagamento;
    QString m_pix;
    QImage m_barras;
};
