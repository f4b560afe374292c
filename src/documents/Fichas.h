#pragma once
#include <QDate>
#include <QImage>
#include <QList>
#include <QString>
#include <memory>

class Banco;
class Impressora;
class Recordset;

// The paper sheets, numbered in the order the program grew. The number is what the
// screens hand over in FichaTipo, so the values are fixed.
enum class TipoFicha {
    Entrada = 1,          // intake sheet, with the tear-off strip of order numbers
    Saida = 2,            // delivery sheet
    Cliente = 3,          // customer sheet
    Orcamento = 4,        // budget with its parts
    ReciboVenda = 5,      // sale receipt, the only sheet with numbered pages
    SaidaCaixa = 6,       // delivery sheet with the cash block
    Visita = 7,           // house-call sheet
    ReciboCompleto = 8,   // payment receipt under the full header
    ReciboCompacto = 9,   // payment receipt under the small header
};

// What the customer screen shows, for sheet 3.
struct FichaCliente {
    QString codigo, dataCadastro, nome, endereco, numero, complemento, bairro, cep, cidade, estado;
    QString telefone, telFax, celular, cpfCnpj, rgIe, email, site, observacao;
};

// What the house-call screen shows, for sheet 7. `codManu` is the visit's own number:
// its parts are found by it, never by the customer's name.
struct FichaVisita {
    qint64 codManu = 0;
    QString dataSolicitada;  // as shown, "dd/MM/yyyy"
    QString cliente;
    QString enderecoTelefones;
    QString solicitacao;
    QString valorPecas = QStringLiteral("0,00");
    QString maoObra = QStringLiteral("0,00");
    QString valorPago = QStringLiteral("0,00");
    QString dataAtendida;
};

// The instalment chosen on the receivables screen and what was paid, for sheets 8 and 9.
struct FichaRecebimento {
    QString dataCompra, dataVencimento, descricao, cliente, tipoCombinado, origem, parcela, valorParcela;
    QDate dataPagamento;
    QString tipoRecebido, valorPago, observacao;
    QString pix;  // the PIX charge of the payment, printed as its QR; empty for other forms
};

// One print job: the sheet, how many copies, and the record it prints.
struct PedidoFicha {
    TipoFicha tipo = TipoFicha::Entrada;
    int copias = 1;
    qint64 codOsAut = 0;  // sheets 1, 2, 4 and 6: the order's own key
    qint64 codVenda = 0;  // sheet 5
    FichaCliente cliente;
    FichaVisita visita;
    FichaRecebimento recebimento;
};

// The machine's and the session's settings that shape a sheet.
struct ConfigFicha {
    bool linhas = false;     // ruled lines between rows (ini AutoLinha)
    bool foto = false;       // logo in the header (ini FotoImp)
    QString arquivoLogo;     // ini Imagem/FotoImprimir
    bool dadoNota = true;    // the invoice block of the order sheets (CfgDadoNota)
    QString usuario;         // "Atendido por"
    static ConfigFicha atual();
};

// Draws one job of any sheet. All data is read by carregar() before a line is drawn, so
// a missing order gives a message and no half-printed page.
class ImprimeFicha {
public:
    ImprimeFicha(Banco& banco, PedidoFicha pedido, ConfigFicha config);
    ~ImprimeFicha();

    // Throws ErroBanco: the store failed, or the order or sale isn't there.
    void carregar();
    void imprimir(Impressora& p);

    enum class Alinhamento { Centro, Esquerda, Direita, Atual };
    // Places a line of text by the word of the old sheets and prints it: centred, at the
    // left margin (200), against the right margin (200), or where the current point is.
    // A text too wide for the page wraps, each line placed the same way.
    static void imprimeAlinhado(Impressora& p, const QString& texto, Alinhamento alinhamento, int margem = 200);

    // Formats a CPF/CNPJ text with one of the masks of the header's tax line, "0"
    // standing for a digit; digits missing on the left are zeros.
    static QString formatarMascara(const QString& texto, const QString& mascara);

    struct Celula;  // one cell of a row, placed by the sheets' rules

private:
    struct Linha {
        bool negrito = false;
        double tamanho = 10;
        bool imprime = false;
        QString texto;
    };

    void lerEmpresa();
    QString tituloContinuacao() const;  // the top line of page 2 and later
    void copiaUnica(Impressora& p);
    int alturaCopia(Impressora& p);
    void cabecalhoCentrado(Impressora& p);
    void cabecalhoCompacto(Impressora& p);
    void regua(Impressora& p, bool sempre = false) const;
    void linha(Impressora& p, const QList<Celula>& celulas) const;
    void esquerda(Impressora& p, const QString& texto) const;

    void blocoAparelho(Impressora& p);
    void fichaOrdem(Impressora& p);        // sheets 1, 2 and 6
    void fichaOrcamento(Impressora& p);    // sheet 4
    void fichaVisita(Impressora& p);       // sheet 7
    void fichaCliente(Impressora& p);      // sheet 3
    void fichaReciboVenda(Impressora& p);  // sheet 5
    void fichaRecebimento(Impressora& p);  // sheets 8 and 9
    void blocoCaixa(Impressora& p, const QString& rotuloHora);
    void cabecalhoTabela(Impressora& p);
    void tabelaPecas(Impressora& p, Recordset& pecas);
    void totalLinha(Impressora& p, const QString& rotulo, const QString& valor, bool vazioSeZero) const;

    Banco& m_banco;
    PedidoFicha m_pedido;
    ConfigFicha m_config;
    QList<Linha> m_cabecalho;  // the seven lines, in order
    bool m_temEmpresa = false;
    bool m_imprimeMensagemEntrada = false, m_imprimeMensagemSaida = false;
    QString m_mensagemEntrada, m_mensagemSaida;
    QImage m_logo;
    std::unique_ptr<Recordset> m_ordem, m_pecas, m_movimento, m_venda;
    double m_colunas[5] = {0, 0, 0, 0, 0};  // X of the parts table's heading cells
    QString m_pix;  // the delivery's PIX charge, when the order was paid by PIX
};
