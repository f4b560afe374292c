#pragma once
#include <QString>
#include <stdexcept>

// A failure of the store. `mensagem` is what the user reads, in Portuguese; `detalhe`
// carries the engine's own text for the support line of the message box.
class ErroBanco : public std::runtime_error {
public:
    ErroBanco(QString mensagem, QString detalhe = {})
        : std::runtime_error((mensagem + QLatin1Char(' ') + detalhe).toStdString()),
          m_mensagem(std::move(mensagem)), m_detalhe(std::move(detalhe)) {}
    const QString& mensagem() const { return m_mensagem; }
    const QString& detalhe() const { return m_detalhe; }
    QString textoCompleto() const
    {
        return m_detalhe.isEmpty() ? m_mensagem : m_mensagem + QLatin1Char('\n') + m_detalhe;
    }

private:
    QString m_mensagem;
    QString m_detalhe;
};

// A field name that the open query doesn't have. The login tells this apart from other
// failures: it means the store lacks a column that this version reads.
class CampoDesconhecido : public ErroBanco {
public:
    explicit CampoDesconhecido(const QString& campo)
        : ErroBanco(QStringLiteral("O campo \"%1\" não existe no banco de dados.").arg(campo)), m_campo(campo) {}
    const QString& campo() const { return m_campo; }

private:
    QString m_campo;
};

// The store could not be opened: missing file or folder, server down, wrong settings.
// The shell turns it into the notice that leads to the reconnection screen.
class ErroConexao : public ErroBanco {
public:
    using ErroBanco::ErroBanco;
};

// The connection to the server was lost in the middle of a statement. It has been
// reopened (or the reconnection screen called): what the statement was part of was not
// stored, and the same save can simply be made again.
class ConexaoPerdida : public ErroBanco {
public:
    using ErroBanco::ErroBanco;
};

// The row to be written is no longer as this station read it: another station changed or
// deleted it in between. Nothing was written; the screen keeps what was typed.
class RegistroAlterado : public ErroBanco {
public:
    explicit RegistroAlterado(bool excluido)
        : ErroBanco(excluido ? QStringLiteral("Este registro foi excluído em outra estação.")
                             : QStringLiteral("Este registro foi alterado em outra estação. Feche e abra o registro "
                                              "novamente para ver a versão atual.")),
          m_excluido(excluido) {}
    bool excluido() const { return m_excluido; }

private:
    bool m_excluido;
};
