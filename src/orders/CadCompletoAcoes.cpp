// The whole-order form's buttons: new, save, pick-up, delete, the customer's answer, the
// warranty return, delivery and printing. Each calls the order library's operation.
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "documents/ImprimeDocumento.h"
#include "orders/CadCompleto.h"
#include "orders/GravacaoOrdem.h"
#include "orders/NumeroOrdem.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/RecusaTela.h"
#include "orders/TransicoesOrdem.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Origem = QStringLiteral("OrdemCompleta");
const QString Caixa = QStringLiteral("RegistraValorSaida");
const QString Painel = QStringLiteral("Pendencia");
const QString TituloErroGravar = QStringLiteral(
    "Erro ao gravar formulário,\nhouve uma perda na comunicação ao banco de dados,informe o erro ao suporte.FECHE O "
    "FORMULÁRIO E TENTE NOVAMENTE");

bool autoEntrada()
{
    return LeIni(QStringLiteral("Impressao"), QStringLiteral("AutoEntrada"), Local::arquivoIni()).trimmed().toInt() == 1;
}
} // namespace

// --- new ----------------------------------------------------------------------------------------

void CadCompleto::incluir()
{
    if (m_alterado)
        return;
    bool manterCliente = false;
    if (m_retornoGarantia) {
        // A warranty return keeps what was copied and only loses the number.
        Ordem copia = m_ordem;
        copia.CodOs = 0;
        copia.CodOsAut = 0;
        m_novo = true;
        mostra(copia);
    } else {
        if (!m_ordem.nova() && !m_ordem.NomeCliente.isEmpty())
            manterCliente = Dialogos::pergunta(this, QStringLiteral("Incluir mesmo cliente ?"));
        m_novo = true;
        limpa(manterCliente);
    }
    m_abas->setCurrentIndex(0);
    m_alterado = false;
    marcaAlterado();
    (manterCliente || m_retornoGarantia ? static_cast<QWidget*>(m_tipo)
                                        : static_cast<QWidget*>(m_linhas.value(QStringLiteral("NomeCliente"))))
        ->setFocus();
}

// --- save ---------------------------------------------------------------------------------------

void CadCompleto::executaComSenha()
{
    const QString acao = m_acaoSenha;
    m_acaoSenha.clear();
    if (acao == QLatin1String("excluir"))
        excluir();
    else
        salvar();
}

bool CadCompleto::salvar()
{
    if (!m_banco || (m_ordem.nova() && !m_novo))
        return false;
    m_acaoSenha = QStringLiteral("salvar");
    if (RecusaTela::esperaSenha(Origem))
        return false;
    m_acaoSenha.clear();
    return gravar();
}

bool CadCompleto::gravar()
{
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return false;
    if (o.NomeCliente.trimmed().isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Coloque o nome do cliente"));
        m_linhas.value(QStringLiteral("NomeCliente"))->setFocus();
        return false;
    }
    Banco& b = *m_banco;
    TransicoesOrdem::OpcoesEntrada op;
    op.retornoGarantia = m_retornoGarantia && o.nova();
    bool parcial = false;
    QStringList reposicao;
    try {
        // The factory question is asked before the transaction, so that no other station
        // waits on a question left open on this one.
        bool copiar = false;
        if (NumeroOrdem::pedeNumeroFabrica(o))
            copiar = NumeroOrdem::perguntarCopiaFabrica(b, o, [this](const QString& titulo, const QString& texto) {
                return Dialogos::pergunta(this, texto, titulo);
            });
        op.perguntar = [copiar](const QString&, const QString&) { return copiar; };
        Transacao tr(b);
        // A customer typed at the counter joins the register in the same transaction.
        if (o.CodCliente.trimmed().isEmpty() && sessao().DireitoOsEntAl == 1) {
            EntradaRegras::ClienteBalcao c;
            c.NomeCliente = o.NomeCliente.trimmed();
            c.Endereco = o.Endereco;
            c.Numero = o.Ncasa;
            c.Bairro = o.Bairro;
            c.Cidade = o.Cidade;
            c.Telefone = o.Telefone;
            c.Celular = o.Celular;
            c.CnpjCpf = o.CpfCnpj;
            o.CodCliente = QString::number(EntradaRegras::gravarClienteNovo(b, c));
        }
        try {
            reposicao = TransicoesOrdem::salvarCompleto(b, o, situacaoEscolhida(), op);
        } catch (const OrdemRecusada& r) {
            // Without the bench's right the intake half is stored on its own.
            if (r.recusa().seguimento != Recusa::Negado || sessao().DireitoOsEntAl != 1
                || sessao().DireitoOsTecAl == 1)
                throw;
            parcial = true;
        }
        tr.commit();
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return false;
    } catch (const RegistroAlterado& e) {
        Dialogos::mensagem(this, e.mensagem(), {}, Dialogos::Icone::Aviso);
        return false;
    } catch (const ErroBanco& e) {
        // Nothing was written: the form keeps what was typed, to be saved again.
        Dialogos::erro(this, TituloErroGravar, e.textoCompleto());
        return false;
    }
    const bool eraNova = m_novo;
    m_novo = false;
    m_retornoGarantia = false;
    if (eraNova)
        ++m_total;
    if (!parcial || !carregaOrdem(o.CodOsAut)) {
        m_guardada = o;
        mostra(o);
    }
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    if (autoEntrada())
        m_botoes[3]->click();
    if (parcial) {
        mostraRecusa(Recusa::negado());
        return false;
    }
    for (const QString& descricao : std::as_const(reposicao))
        aviso(QStringLiteral("Pedido estoque"), descricao);
    if (EntregaTelas::disponivel(Painel))
        EntregaTelas::abrirCom(Painel, EntregaTelas::AtualizaPainel, {});
    return true;
}

// --- cancel and leave ------------------------------------------------------------------------------

void CadCompleto::sairOuCancelar()
{
    if (m_botoes[5]->text() == QLatin1String("&Cancelar")) {
        m_alterado = false;
        m_novo = false;
        m_retornoGarantia = false;
        // The row as stored now, with what other stations saved meanwhile.
        if (m_guardada.nova() || !carregaOrdem(m_guardada.CodOsAut)) {
            m_ordem = m_guardada;
            if (m_guardada.nova())
                limpa(false);
            else
                mostra(m_guardada);
        }
        return;
    }
    RegistroTelas::fecharJanela(this);
}

void CadCompleto::closeEvent(QCloseEvent* e)
{
    if (m_alterado) {
        const auto r = Dialogos::mensagem(this, QStringLiteral("Você alterou o registro,deseja salvar ?"), {},
                                          Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
        if (r == Dialogos::Resposta::Cancelar || (r == Dialogos::Resposta::Sim && !salvar())) {
            e->ignore();
            return;
        }
    }
    RecusaTela::aoSairDaTela(this);
    e->accept();
}

// --- pick-up -------------------------------------------------------------------------------------

void CadCompleto::retirar()
{
    // Only the order's flag: the visit itself is the house-call screen's business.
    if (!marcaAlterado())
        return;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return;
    o.ChamadoTecnico = !o.ChamadoTecnico;
    const bool alterado = m_alterado;
    const bool novo = m_novo;
    mostra(o);
    m_novo = novo;
    if (alterado) {
        m_alterado = false;
        marcaAlterado();
    }
}

void CadCompleto::mostraAlterada(const Ordem& o)
{
    // Showing resets the change mark; what was changed here stays marked as a change.
    mostra(o);
    m_alterado = false;
    marcaAlterado();
}

// --- delete --------------------------------------------------------------------------------------

void CadCompleto::excluir()
{
    if (!m_banco)
        return;
    if (m_ordem.nova()) {
        Dialogos::mensagem(this, QStringLiteral("Sem registro"));
        return;
    }
    m_acaoSenha = QStringLiteral("excluir");
    if (RecusaTela::esperaSenha(Origem))
        return;
    m_acaoSenha.clear();
    if (sessao().DireitoOsEntAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?")))
        return;
    try {
        TransicoesOrdem::excluir(*m_banco, m_ordem.CodOsAut, TelaOrdem::Completa);
    } catch (const OrdemRecusada& r) {
        mostraRecusa(r.recusa());
        return;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir o formulario"), e.textoCompleto());
        return;
    }
    --m_total;
    m_novo = false;
    limpa(false);
    RegistroTelas::abrir(QStringLiteral("Excluido"));
}

// --- the customer's answer and the warranty -----------------------------------------------------------

void CadCompleto::responder(Resposta r)
{
    if (m_ordem.nova() || !marcaAlterado())
        return;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return;
    try {
        TransicoesOrdem::responderNaEntrega(o, r);
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return;
    }
    mostraAlterada(o);
}

void CadCompleto::garantia()
{
    if (m_ordem.nova())
        return;
    Ordem o = m_ordem;
    if (!ordemDosCampos(o))
        return;
    try {
        if (m_resposta->text() == QLatin1String("Garantia")) {
            if (!marcaAlterado())
                return;
            TransicoesOrdem::desfazerGarantia(o);
        } else {
            if (!Dialogos::pergunta(this, QStringLiteral("Tem certeza que é garantia ?")))
                return;
            if (Dialogos::pergunta(this, QStringLiteral("Quer gerar uma nova O.S para esse cliente ?"))) {
                if (m_alterado) {
                    Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração desta O.S antes."), {},
                                       Dialogos::Icone::Aviso);
                    return;
                }
                // The old order stays as it is; the return is a new order that names it.
                Ordem copia = TransicoesOrdem::garantiaNovaOrdem(m_guardada);
                m_ordem = copia;
                m_retornoGarantia = true;
                incluir();
                return;
            }
            if (!marcaAlterado())
                return;
            TransicoesOrdem::garantiaMesmaOrdem(o);
        }
    } catch (const OrdemRecusada& e) {
        mostraRecusa(e.recusa());
        return;
    }
    mostraAlterada(o);
}

// --- delivery ------------------------------------------------------------------------------------

void CadCompleto::entregar()
{
    if (m_ordem.nova() && !m_novo)
        return;
    if (!Dialogos::pergunta(this, QStringLiteral("Entrega do produto ao cliente ?")))
        return;
    m_fichaTipo = 2;
    // What was typed goes first, under its rights: the till must take what was saved.
    if ((m_alterado || m_novo) && !salvar())
        return;
    Ordem o = m_ordem;
    if (TransicoesOrdem::entregar(o)) {
        if (!EntregaTelas::disponivel(Caixa)) {
            Dialogos::mensagem(this, QStringLiteral("O caixa não está disponível nesta instalação."), {},
                               Dialogos::Icone::Aviso);
            return;
        }
        sessao().ParamCodOs = QString::number(o.CodOs);
        sessao().ParamCodOsAut = QString::number(o.CodOsAut);
        sessao().ParamNomeCliente = o.NomeCliente;
        const qint64 chave = o.CodOsAut;
        RegistroTelas::fecharJanela(this);
        EntregaTelas::abrirCom(Caixa, EntregaTelas::AbreOrdem, {{QStringLiteral("CodOsAut"), chave}});
        return;
    }
    // A return without repair leaves now, without money; it is stored before the sheet.
    if (o.DataSaida != m_ordem.DataSaida) {
        if (!marcaAlterado())
            return;
        mostraAlterada(o);
        if (!salvar())
            return;
    }
    if (Dialogos::pergunta(this, QStringLiteral("Quer imprimir ordem serviço saída?")))
        imprimir(2);
}

// --- printing ------------------------------------------------------------------------------------

void CadCompleto::imprimir(int fichaTipo, Destino::Tipo destino)
{
    if (!m_banco || m_ordem.nova())
        return;
    m_fichaTipo = fichaTipo;
    sessao().FichaCodOs = QString::number(m_ordem.CodOs);
    sessao().ParamNomeCliente = m_ordem.NomeCliente;
    ImprimeDocumento(*m_banco, DocumentosOrdem::doCadastroCompleto(m_fichaTipo), m_ordem.CodOsAut, this, destino);
}

void CadCompleto::imprimirOrcamento(Destino::Tipo destino)
{
    if (!m_banco || m_ordem.nova())
        return;
    ImprimeDocumento(*m_banco, DocumentosOrdem::Orcamento, m_ordem.CodOsAut, this, destino);
}
