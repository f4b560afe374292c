#pragma once
#include <QStatusBar>

class QLineEdit;
class QPushButton;

// The bar along the bottom of the main window: this machine and its address (button 0),
// the user with the way out (button 1) and today's date (button 2).
class BarraStatus : public QStatusBar {
    Q_OBJECT
public:
    explicit BarraStatus(QWidget* pai = nullptr);

    // Machine, address and TesteOk, as on load and after a reconnection.
    void atualizar(const QString& testeOk);
    void atualizarData();
    // Button 1: the user's name followed by `sufixo` ("  Sair" after the first login,
    // " Sair" after a change of user); empty after a leave.
    void definirUsuario(const QString& nome, const QString& sufixo = QStringLiteral(" Sair"));
    void mostrarDesconectado();

    static QString enderecoLocal();
    // "segunda-feira 05 janeiro 2009"
    static QString dataPorExtenso(const QDate& data);

signals:
    // The user left through the question of button 1.
    void usuarioSaiu();

private:
    void informarMaquina();
    void desativarUsuario();

    QPushButton* m_botao[3];
    QLineEdit* m_oculto;
    QString m_testeOk;
};
