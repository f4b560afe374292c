#pragma once
#include <QWidget>
#include <memory>

class Banco;
class QListWidget;
class QLineEdit;

// Changing the user without closing the program: ListaUs, TSenha, Log(0) enters and
// Log(1) leaves, emptying the session while the main window stays.
class Login : public QWidget {
    Q_OBJECT
public:
    explicit Login(QWidget* pai = nullptr);
    ~Login() override;
public slots:
    void entrar();
    // The press that follows a refused action (Negado): it invites another user, and a
    // missing name or a wrong password there is no try of the four and never ends the
    // program.
    void entrarAoNegar();
    void sair();
protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
private:
    void entrou();
    std::unique_ptr<Banco> m_banco;
    QListWidget* m_lista;
    QLineEdit* m_senha;
};
