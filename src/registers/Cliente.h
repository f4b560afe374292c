#pragma once
#include <QVariantMap>

#include "ui/TelaCadastro.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QSqlRecord;
class QTableWidget;

// The customer register: the customer's data, the blocked flag that the order screens
// read, and the customer's past orders under it. From here a new order or a house call
// starts with the customer's data already in place.
class Cliente : public TelaCadastro {
    Q_OBJECT
public:
    explicit Cliente(QWidget* pai = nullptr);

    // Shows the customer through the search boxes of code and name, as the customer
    // search's choice does.
    void mostraCliente(const QString& codigo, const QString& nome);
    // "Novo" opens the screen in the insert state (the menus' new customer).
    Q_INVOKABLE void abrirNoModo(const QString& modo);

    // The screen an order of this customer opens in (new or existing), by CfgOSAbreCompleta.
    static QString telaNovaOrdem();
    static QString telaOrdemExistente();

protected:
    void limpaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    void aposMostrar() override;
    bool validaAntesDeGravar() override;
    void gravaCampos(Recordset& rs) override;
    bool botaoDisponivel(int indice) const override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    QLineEdit* texto(int i) const { return m_textos.value(i); }
    void novaOrdem();
    void novaVisita();
    void abreOrdem(int linha);
    void buscaPelasCaixas();

    QList<QLineEdit*> m_textos;
    QLabel* m_codigo = nullptr;
    QLabel* m_dataCadastro = nullptr;
    QComboBox* m_estado = nullptr;
    QPlainTextEdit* m_observacao = nullptr;
    QCheckBox* m_bloqueado = nullptr;
    QLineEdit* m_buscaCodigo = nullptr;
    QLineEdit* m_buscaNome = nullptr;
    QTableWidget* m_grade = nullptr;
    QString m_alteradoPor;
    int m_ordens = 0;
};
