#pragma once
#include "orders/BuscaOrdens.h"
#include "ui/TelaPesquisa.h"

class QPushButton;

// The general order search, opened from the menus with its destination already chosen:
// intake, delivery, the bench, or house calls (which search the visits instead). Eight
// boxes, of which the house-call mode keeps number, name and customer code. The choice
// hands the row's key to the destination's screen; a click keeps the number and the key
// in the hidden Text2 and Text3.
class PesquisaOs : public TelaPesquisa {
    Q_OBJECT
public:
    explicit PesquisaOs(QWidget* pai = nullptr);

    // "Entrada", "Saida", "Tecnico" or "ListaVisita": sets the session's destination flag
    // (exactly one) and shapes the screen for it.
    Q_INVOKABLE void abrirNoModo(const QString& modo);
    BuscaOrdens::Modo modo() const;

    // Opens the chosen row's screen through the registry, or says that it isn't part of
    // this installation and opens nothing. Shared with the quick search.
    static bool abreDestino(QWidget* pai, const BuscaOrdens::Destino& destino);

protected:
    Condicao condicaoBusca(const Opcao& opcao, const QString& texto) override;
    QString textoCelula(const QString& coluna, const QVariant& valor) const override;
    void acaoPadrao(const QSqlRecord& linha) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void aplicaModo();
    void incluiVisita();
    QPushButton* m_incluirVisita = nullptr;
    bool m_visita = false;
};
