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
    void sair();
protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
private:
    std::unique_ptr<Banco> m_banco;
    QListWidget* m_lista;
    QLineEdit* m_senha;
};
