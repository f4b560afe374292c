#pragma once
#include <QObject>
#include <QWidget>
#include <functional>

#include "data/ConfigBanco.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

// What the shell hears about the store's connection.
class AvisosReconexao : public QObject {
    Q_OBJECT
public:
    static AvisosReconexao& instancia();
signals:
    void desconectado();   // Reconecta opened: the store is out of reach
    void reconectado();    // the store opens again
    void fechada();        // Reconecta closed
};

namespace Reconexao {
// Installs the handler of failed opens: the notice MensagenBd, which leads to Reconecta.
void instalar();
// The store's settings of Toldex.ini, with the PostgreSQL password given in this session
// (it is never written to the ini).
ConfigBanco configAtual();
void definirSenhaBanco(const QString& senha);
// Configures the connections anew and opens the store once to prove it. False (and the
// notice) when it still can't be reached.
bool reconectar();
}

// "Reconectando ao banco de dados": the machine's role and the store's place, corrected
// when the store can't be opened.
class Reconecta : public QWidget {
    Q_OBJECT
public:
    explicit Reconecta(QWidget* pai = nullptr);
    ~Reconecta() override;

    static constexpr int IntervaloMs = 1300;
    static constexpr int Ticks = 10;

    // The repair of the store, installed by the maintenance part of the program. Without
    // it the repair button stays off on the server.
    using Reparo = std::function<bool(QString* erro)>;
    static void definirReparo(Reparo reparo);

    int contador() const { return m_contador; }

public slots:
    void tique();   // one tick of Contatempo

protected:
    void showEvent(QShowEvent* evento) override;

private:
    void conectaOuCancela();
    bool manutencaoPermitida();
    void restaurar();
    void reparar();
    void escolherEstacao();
    void escolherServidor();
    void procurarPasta();
    void mudarMotor();
    void habilitarOutros(bool sim);
    bool validar(bool servidor, QString* pasta);
    bool gravar();
    void concluir(bool abrirLogin);

    QRadioButton* m_opcao[2];
    QLineEdit* m_caminho;
    QPushButton* m_procurar;
    QComboBox* m_motor;
    QWidget* m_painelPg;
    QLineEdit* m_host;
    QLineEdit* m_porta;
    QLineEdit* m_nomeBanco;
    QLineEdit* m_usuario;
    QLineEdit* m_senha;
    QCheckBox* m_lembrar;
    QPushButton* m_botao[3];
    QTimer* m_timer;
    int m_contador = Ticks;
};
