#pragma once
#include <QWidget>
#include <memory>

class Banco;
class QComboBox;
class QLineEdit;
class QPushButton;

// The first window: the user is chosen in CUsuario and gives the password in TxtSenha;
// Botao(0) enters, Botao(1) ends the program. A new store with nobody in it asks first for
// the user who will run the shop.
class TelaInicial : public QWidget {
    Q_OBJECT
public:
    explicit TelaInicial(QWidget* pai = nullptr);
    ~TelaInicial() override;
public slots:
    void entrar();
    void sair();
protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
private:
    bool carregar();
    void carregaUsuarios();
    bool primeiroUso();
    std::unique_ptr<Banco> m_banco;
    QComboBox* m_usuario;
    QLineEdit* m_senha;
};
