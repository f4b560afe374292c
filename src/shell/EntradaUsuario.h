#pragma once
#include <QString>

class Banco;
class QEvent;
class QLineEdit;
class QWidget;

// What the first window, the login screen and the password at use do with a name and a
// password: the messages, the wrong-password notices with their count, and the ending of
// the program at the fourth wrong try.
namespace EntradaUsuario {
// Long enough for any password a shop uses, short enough for the hash to stay quick.
constexpr int MaximoSenha = 128;
// A password box: stars, and at most MaximoSenha characters.
QLineEdit* caixaSenha(QWidget* pai, const QString& nome);
bool ehEnter(const QEvent* e);

enum class Resultado { Entrou, Voltar, Encerrou };
// `nome` is the chosen user; `senha` the password box, selected for overtyping after a
// wrong try. On Entrou the session holds the user.
Resultado tentar(QWidget* tela, Banco& banco, const QString& nome, QLineEdit* senha);
// A wrong password: counts it in Tentativas and shows Invalida; true when the program ended.
bool senhaErrada(QLineEdit* senha);
// "Selecione um usuário": Cancel ends the program; true when it did.
bool pedeUsuario(QWidget* tela);
}
