#include "data/Transacao.h"

#include "data/Banco.h"

Transacao::Transacao(Banco& banco) : m_banco(banco), m_externa(banco.profundidadeTransacao() == 0)
{
    if (m_externa)
        m_banco.executar(m_banco.comandoInicioEscrita());
    ++m_banco.profundidadeTransacao();
}

Transacao::~Transacao()
{
    if (m_concluida)
        return;
    --m_banco.profundidadeTransacao();
    if (m_externa && m_banco.aberto()) {
        try {
            m_banco.executar(QStringLiteral("ROLLBACK"));
        } catch (const ErroBanco&) {
            // The connection is gone: the engine has already dropped the transaction.
        }
    }
}

void Transacao::commit()
{
    if (m_concluida)
        return;
    if (m_externa)
        m_banco.executar(QStringLiteral("COMMIT"));
    m_concluida = true;
    --m_banco.profundidadeTransacao();
}
