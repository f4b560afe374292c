#pragma once
#include <QString>
#include <QStringList>
#include <QVariant>

class Banco;
class Recordset;
struct Sessao;

// Passwords are kept as salted Argon2id hashes of the upper-cased password: the compare
// stays case-insensitive, as the shops are used to, and the store never holds one in
// clear.
namespace Senhas {
QString gerar(const QString& senha);
// False for a NULL or empty stored value: nobody enters a user without a password.
bool confere(const QString& digitada, const QVariant& armazenada);
bool ehHash(const QString& armazenada);
}

// The rights of a user row into the session, the same way for the login and for the
// password at use. A NULL right opens (rows of older stores lack values); UsuarioSe is
// kept as it stands, -1 or 0, in SenhaObrigatoria.
class DireitosUsuario {
public:
    // Every right, read at login.
    static void carregarTodos(const Recordset& rs, Sessao& s);
    // The rights that the password at use rereads from the person who gave it.
    static void carregarNoUso(const Recordset& rs, Sessao& s);
    // 1 allowed, 0 forbidden.
    static int valor(const QVariant& coluna);

    // The columns behind the check boxes of the users screen: Check1(i)/Check2(i) are the
    // read and change rights of pares()[i] (indexes 9 and 12 are the special pairs) and
    // Check3(i) is sistema()[i].
    static const QList<QPair<QString, QString>>& pares();
    static const QStringList& sistema();
    // A change right implies reading: the values written for one pair of boxes.
    static QPair<int, int> valoresDoPar(bool ler, bool alterar);
    // True when the user `chave` is the only one who may change users: he can be neither
    // deleted nor lose that right, or nobody could ever manage the users again. Asked
    // inside the transaction that deletes him or takes the right, on the rows as they
    // stand then (locked where the engine needs it).
    static bool ultimoQueAlteraUsuarios(Banco& banco, qint64 chave);
    static QString mensagemUltimoQueAltera();
};

// The login rules shared by the first window, the login screen and the password at use.
namespace Autenticacao {
enum class Resultado { NaoEncontrado, SenhaErrada, Entrou };
// Finds the user `nome` (without regard to case) and checks the password; on success the
// session takes the user, the rights and the picture. A password still kept in clear by an
// older store is hashed on the way.
Resultado entrar(Banco& banco, const QString& nome, const QString& senha, Sessao& s);
// The second line of the wrong-password notice for the try `tentativa` (1 to 3).
QString segundaLinha(int tentativa);
constexpr int MaximoTentativas = 4;
// Users in the store.
int quantos(Banco& banco);
// Names and codes of every user, by name, for the lists of the login screens.
QList<QPair<QString, QString>> lista(Banco& banco);
// The first user of a new store, with every right. Returns the new CodUsuario.
qint64 criarPrimeiro(Banco& banco, const QString& nome, const QString& senha);
}
