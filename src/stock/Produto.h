#pragma once
#include <QList>
#include <QVariantMap>

#include "data/Quantidade.h"
#include "stock/KitProduto.h"
#include "ui/TelaCadastro.h"

class FotoCadastro;
class QCheckBox;
class QComboBox;
class QLabel;
class QTabWidget;
class QTableWidget;

// The register of products and spare parts: codes, stock, prices with their margins,
// the kit list, the picture and the bars of the EAN-13.
class Produto : public TelaCadastro {
    Q_OBJECT
public:
    // The boxes Text1(i), by what they hold.
    enum Caixa {
        Codigo = 0, Ean13 = 1, Descricao = 2, Equivalente = 3, LocalVenda = 4, Estoque = 5, Minima = 6,
        Embalagem = 7, NotaFiscal = 8, DataCompra = 9, Custo = 10, Venda = 11, Lucro = 12, Observacao = 13,
        Categoria = 14, Icms = 15, PrecoMinimo = 16, LucroMinimo = 17, Dun14 = 18, Comissao = 19, SomaKit = 20,
        LocalEstoque = 21, Ncm = 22, CodOriginal = 23, Modulo = 24, NumCaixas = 25
    };

    // The buttons beyond the register's own two (Botao(i)).
    enum Botao { Sair = 2, Imagem = 3, PrimeiraAba = 4, BotaoKit = 5, Pesquisa = 6, Grupo = 7, SubGrupo = 8,
                 Aliquotas = 9, WebCam = 10, Foto = 11, ParaPrevia = 12 };

    explicit Produto(QWidget* pai = nullptr);
    ~Produto() override;

    // "Novo" opens the screen in the insert state (the menus' new product).
    Q_INVOKABLE void abrirNoModo(const QString& modo);
    // A product chosen in the search: the kit list takes it as an item.
    Q_INVOKABLE void recebeProduto(const QVariantMap& dados);
    // Shows one product, by its row key (the search's choice).
    bool mostraProduto(qint64 codPecAut);
    const QList<ItemKit>& itensKit() const { return m_itens; }
    void removeItemKit(int linha);

protected:
    void limpaCampos() override;
    void bloqueiaCampos() override;
    void liberaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    bool validaAntesDeGravar() override;
    QString impedimentoAoGravar() override;
    void gravaCampos(Recordset& rs) override;
    void excluiDependentes(bool fisica) override;
    bool botaoDisponivel(int indice) const override;

private:
    QLineEdit* texto(int i) const { return m_textos.value(i); }
    void montaTela();
    void carregaListas();
    void carregaSubgrupos();
    void incluir();
    void saiDoPreco(int caixaPreco, int caixaMargem);
    void saiDaMargem(int caixaPreco, int caixaMargem);
    std::optional<Dinheiro> custoDigitado() const;
    void mostraKit();
    void mostraBarras();
    void adicionaKit();
    QString nomeImagem(const QString& base) const;

    QList<QLineEdit*> m_textos;
    QLineEdit* m_codigoCarregado = nullptr;  // Text3
    QLineEdit* m_chaveCarregada = nullptr;   // Text4
    QLineEdit* m_reservada = nullptr;
    QLineEdit* m_imagemCaminho = nullptr;    // TxtImagem
    QLabel* m_imagem = nullptr;              // ImgProduto
    QLabel* m_barras = nullptr;              // Label2
    QLabel* m_avisoKit = nullptr;
    QComboBox* m_fabricante = nullptr;
    QComboBox* m_revendedor = nullptr;
    QComboBox* m_aliquota = nullptr;
    QComboBox* m_grupo = nullptr;
    QComboBox* m_subgrupo = nullptr;
    QComboBox* m_unidade = nullptr;
    QCheckBox* m_comissao = nullptr;
    QTabWidget* m_abas = nullptr;
    QTableWidget* m_lprod = nullptr;
    FotoCadastro* m_foto = nullptr;
    QList<ItemKit> m_itens;
    QString m_codigoLido;
    Quantidade m_estoqueLido;
    bool m_estoqueDigitado = false;
};
