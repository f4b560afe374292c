#pragma once
#include <QWidget>
#include <memory>

class Banco;
class QComboBox;
class QLabel;
class QLineEdit;

// The password at use: a user whose rule asks for it gives a password before a guarded
// action, and the action is pressed again. Text1(0) takes the user's number (or CUsuario
// chooses it), Label1(1) shows the name, Text1(1) takes the password; Botao(0) confirms,
// Botao(1) cancels.
class SenhaPde : public QWidget {
    Q_OBJECT
public:
    explicit SenhaPde(QWidget* pai = nullptr);
    ~SenhaPde() override;
public slots:
    void procuraUsuario();
    void confirma();
    void cancela();
protected:
    bool eventFilter(QObject* alvo, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
private:
    void verificaSenha();
    std::unique_ptr<Banco> m_banco;
    QLineEdit* m_codigo;
    QLineEdit* m_senha;
    QLabel* m_nome;
    QComboBox* m_usuarios;
    qint64 m_chave = -1;
    bool m_liberou = false;
};
