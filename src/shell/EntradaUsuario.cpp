#include "shell/EntradaUsuario.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "shell/Avisos.h"
#include "shell/Programa.h"
#include "shell/Usuarios.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace EntradaUsuario {

QLineEdit* caixaSenha(QWidget* pai, const QString& nome)
{
    auto* c = new QLineEdit(pai);
    c->setObjectName(nome);
    c->setEchoMode(QLineEdit::Password);
    c->setMaxLength(MaximoSenha);
    return c;
}

bool ehEnter(const QEvent* e)
{
    if (e->type() != QEvent::KeyPress)
        return false;
    const int k = static_cast<const QKeyEvent*>(e)->key();
    return k == Qt::Key_Return || k == Qt::Key_Enter;
}

bool pedeUsuario(QWidget* tela)
{
    const auto r = Dialogos::mensagem(tela, QStringLiteral("Selecione um usuário"), QStringLiteral("Usuário"),
                                      Dialogos::Icone::Informacao, Dialogos::Botoes::OkCancelar);
    if (r == Dialogos::Resposta::Cancelar) {
        Programa::encerrar();
        return true;
    }
    return false;
}

bool senhaErrada(QLineEdit* senha)
{
    Sessao& s = sessao();
    ++s.Tentativas;
    auto* aviso = qobject_cast<Invalida*>(RegistroTelas::abrir(QStringLiteral("Invalida")));
    if (aviso)
        aviso->definirSegundaLinha(Autenticacao::segundaLinha(s.Tentativas));
    if (s.Tentativas >= Autenticacao::MaximoTentativas) {
        Programa::encerrar();
        return true;
    }
    if (senha) {
        senha->setFocus();
        senha->selectAll();
    }
    return false;
}

Resultado tentar(QWidget* tela, Banco& banco, const QString& nome, QLineEdit* senha)
{
    try {
        switch (Autenticacao::entrar(banco, nome, senha ? senha->text() : QString(), sessao())) {
        case Autenticacao::Resultado::Entrou:
            return Resultado::Entrou;
        case Autenticacao::Resultado::NaoEncontrado:
            return pedeUsuario(tela) ? Resultado::Encerrou : Resultado::Voltar;
        case Autenticacao::Resultado::SenhaErrada:
            return senhaErrada(senha) ? Resultado::Encerrou : Resultado::Voltar;
        }
    } catch (const CampoDesconhecido&) {
        // The store lacks a right this version reads: it is brought up to date, and the
        // program starts again on it.
        Dialogos::mensagem(tela, QStringLiteral("O Banco de dados vai ser reconfigurado,o programa vai ser fechado,"
                                                "reinicie após 20 segundos"));
        try {
            banco.garantirEsquema();
        } catch (const ErroBanco& e) {
            Dialogos::erro(tela, QStringLiteral("Erro ao reconfigurar o banco de dados"), e.textoCompleto());
        }
        Programa::encerrar();
        return Resultado::Encerrou;
    } catch (const ErroBanco& e) {
        Dialogos::mensagem(tela, QStringLiteral("Sem registro\n") + e.textoCompleto(),
                           QStringLiteral("Erro ao excluir o formulario"), Dialogos::Icone::Critico);
    }
    return Resultado::Voltar;
}

} // namespace EntradaUsuario
