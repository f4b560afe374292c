#include "shell/Usuarios.h"

#include <QDir>
#include <sodium.h>

#include "data/Banco.h"
#include "data/Local.h"
#include "data/Numeracao.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "data/Transacao.h"

namespace Senhas {

namespace {
void iniciaSodium()
{
    static const bool pronto = [] {
        if (sodium_init() < 0)
            qFatal("libsodium não pôde ser iniciada");
        return true;
    }();
    Q_UNUSED(pronto);
}
} // namespace

QString gerar(const QString& senha)
{
    iniciaSodium();
    const QByteArray texto = senha.toUpper().toUtf8();
    char saida[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(saida, texto.constData(), quint64(texto.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw ErroBanco(QStringLiteral("Não foi possível guardar a senha (memória insuficiente)."));
    return QString::fromLatin1(saida);
}

bool ehHash(const QString& armazenada) { return armazenada.startsWith(QLatin1String("$argon2")); }

bool confere(const QString& digitada, const QVariant& armazenada)
{
    const QString guardada = armazenada.isNull() ? QString() : armazenada.toString();
    if (guardada.isEmpty())
        return false;
    if (!ehHash(guardada))
        return digitada.toUpper() == guardada.toUpper();
    iniciaSodium();
    const QByteArray h = guardada.toLatin1();
    const QByteArray texto = digitada.toUpper().toUtf8();
    return crypto_pwhash_str_verify(h.constData(), texto.constData(), quint64(texto.size())) == 0;
}

} // namespace Senhas

namespace {
// The login reads the rights in this order; UsuarioSe goes to SenhaObrigatoria.
const QStringList OrdemLogin = {
    "ClienteLe", "ClienteAl", "OsEntLe", "OsEntAl", "OsSaiLe", "OsSaiAl", "OsTecLe", "OsTecAl", "ProdutoLe",
    "ProdutoAl", "FornecedorLe", "FornecedorAl", "FuncionarioLe", "FuncionarioAl", "Backup", "Configuracao",
    "TesteBackup", "VendasLe", "VendasAl", "Movimento", "Registro", "PedidoLe", "PedidoAl", "UsuarioSe",
    "Permanente", "chequeLe", "chequeAl", "ContaLe", "ContaAl", "AltOrca", "AltOs"};
const QStringList OrdemNoUso = {"ClienteLe", "ClienteAl", "OsEntLe", "OsEntAl", "OsSaiLe", "OsSaiAl",
                                "OsTecLe", "OsTecAl", "ProdutoLe", "ProdutoAl", "FornecedorLe", "FornecedorAl",
                                "VendasLe", "VendasAl", "AltOrca", "AltOs"};

void carregar(const Recordset& rs, Sessao& s, const QStringList& colunas)
{
    for (const QString& c : colunas) {
        const QVariant v = rs.valor(c);
        if (c == QLatin1String("UsuarioSe")) {
            s.SenhaObrigatoria = v.isNull() ? 0 : (v.toInt() != 0 ? -1 : 0);
            continue;
        }
        if (int* d = s.direito(QStringLiteral("Direito") + c))
            *d = DireitosUsuario::valor(v);
    }
}
} // namespace

int DireitosUsuario::valor(const QVariant& coluna)
{
    if (coluna.isNull())
        return 1;
    return coluna.toInt() != 0 ? 1 : 0;
}

void DireitosUsuario::carregarTodos(const Recordset& rs, Sessao& s) { carregar(rs, s, OrdemLogin); }
void DireitosUsuario::carregarNoUso(const Recordset& rs, Sessao& s) { carregar(rs, s, OrdemNoUso); }

const QList<QPair<QString, QString>>& DireitosUsuario::pares()
{
    static const QList<QPair<QString, QString>> p = {
        {"ClienteLe", "ClienteAl"}, {"FornecedorLe", "FornecedorAl"}, {"FuncionarioLe", "FuncionarioAl"},
        {"OsEntLe", "OsEntAl"},     {"OsSaiLe", "OsSaiAl"},           {"OsTecLe", "OsTecAl"},
        {"ProdutoLe", "ProdutoAl"}, {"VendasLe", "VendasAl"},         {"PedidoLe", "PedidoAl"},
        {"Permanente", "UsuarioSe"}, {"chequeLe", "chequeAl"},        {"ContaLe", "ContaAl"},
        {"AltOrca", "AltOs"}};
    return p;
}

const QStringList& DireitosUsuario::sistema()
{
    static const QStringList s = {"Backup", "Configuracao", "TesteBackup", "Movimento", "Registro"};
    return s;
}

QPair<int, int> DireitosUsuario::valoresDoPar(bool ler, bool alterar)
{
    if (alterar)
        return {-1, -1};
    return {ler ? -1 : 0, 0};
}

bool DireitosUsuario::ultimoQueAlteraUsuarios(Banco& banco, qint64 chave)
{
    // A NULL right opens, as at the login. The holders stay locked until the caller's
    // transaction ends, always in the same order: two stations taking the right from two
    // different users at once are served one after the other, and the second one sees
    // that the first has already taken it.
    QSqlQuery q = banco.lerTravando(QStringLiteral("SELECT Chave FROM Usuario WHERE FuncionarioAl IS NULL "
                                                   "OR FuncionarioAl <> 0 ORDER BY Chave"));
    bool tem = false;
    bool outro = false;
    while (q.next())
        (q.value(0).toLongLong() == chave ? tem : outro) = true;
    return tem && !outro;
}

QString DireitosUsuario::mensagemUltimoQueAltera()
{
    return QStringLiteral("Deve existir ao menos um usuário com direito de alterar funcionários.");
}

namespace Autenticacao {

Resultado entrar(Banco& banco, const QString& nome, const QString& senha, Sessao& s)
{
    Recordset rs(banco);
    rs.abrir(QStringLiteral("Usuario"), {}, {}, QStringLiteral("NomeUsuario"));
    bool achou = false;
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        if (!nome.isEmpty() && rs.texto(QStringLiteral("NomeUsuario")).compare(nome, Qt::CaseInsensitive) == 0) {
            achou = true;
            break;
        }
    if (!achou)
        return Resultado::NaoEncontrado;
    const QVariant guardada = rs.valor(QStringLiteral("Senha"));
    if (!Senhas::confere(senha, guardada))
        return Resultado::SenhaErrada;
    // The name reaches the side menu and the status bar only with the right password.
    s.UsuarioNome = nome;
    s.TecnicoNome = nome;
    if (!Senhas::ehHash(guardada.toString())) {
        // An older store kept it in clear: from now on only the hash stays.
        Transacao t(banco);
        banco.executar(QStringLiteral("UPDATE Usuario SET Senha = ? WHERE Chave = ?"),
                       {Senhas::gerar(senha), rs.chaveAtual()});
        t.commit();
    }
    s.UsuarioCodigo = rs.texto(QStringLiteral("CodUsuario"));
    s.TecnicoCodigo = s.UsuarioCodigo;
    DireitosUsuario::carregarTodos(rs, s);
    const QString img = rs.texto(QStringLiteral("ImgFuncionario"));
    s.UsuarioImagem = img.isEmpty() ? QDir(Local::pastaPrograma()).filePath(QStringLiteral("Toldex.ico")) : img;
    return Resultado::Entrou;
}

QString segundaLinha(int tentativa)
{
    switch (tentativa) {
    case 1: return QStringLiteral("Você tem mais 3 tentativas");
    case 2: return QStringLiteral("Esta é sua segunda tentativa");
    case 3: return QStringLiteral("Esta é sua última tentativa");
    default: return {};
    }
}

QList<QPair<QString, QString>> lista(Banco& banco)
{
    QList<QPair<QString, QString>> r;
    Recordset rs(banco);
    rs.abrir(QStringLiteral("Usuario"), {}, {}, QStringLiteral("NomeUsuario"));
    for (rs.moveFirst(); !rs.eof(); rs.moveNext())
        r.append({rs.texto(QStringLiteral("NomeUsuario")), rs.texto(QStringLiteral("CodUsuario"))});
    return r;
}

int quantos(Banco& banco) { return banco.escalar(QStringLiteral("SELECT COUNT(*) FROM Usuario")).toInt(); }

qint64 criarPrimeiro(Banco& banco, const QString& nome, const QString& senha)
{
    Transacao t(banco);
    const qint64 codigo = Numeracao::proximoCodigo(banco, QStringLiteral("Usuario"), QStringLiteral("CodUsuario"));
    QStringList colunas = {QStringLiteral("CodUsuario"), QStringLiteral("NomeUsuario"), QStringLiteral("Senha"),
                           QStringLiteral("Funcao")};
    QVariantList valores = {codigo, nome, Senhas::gerar(senha), QStringLiteral("Administrador")};
    for (const auto& p : DireitosUsuario::pares()) {
        colunas << p.first << p.second;
        // The first user asks for no password at each action: that is for the staff. Deleting
        // for good is ticked by the owner on purpose: until then deletions go to the bin.
        valores << (p.first == QLatin1String("Permanente") ? 0 : -1)
                << (p.second == QLatin1String("UsuarioSe") ? 0 : -1);
    }
    for (const QString& c : DireitosUsuario::sistema()) {
        colunas << c;
        valores << -1;
    }
    const DefTabela* def = Esquema::tabela(QStringLiteral("Usuario"));
    banco.inserir(*def, colunas, valores);
    t.commit();
    return codigo;
}

} // namespace Autenticacao
