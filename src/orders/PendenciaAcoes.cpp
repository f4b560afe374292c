#include <QDateEdit>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/Impressora.h"
#include "orders/EstadoOrdem.h"
#include "orders/GravacaoOrdem.h"
#include "orders/ImpressaoPainel.h"
#include "orders/Ordem.h"
#include "orders/Pendencia.h"
#include "orders/RecusaTela.h"
#include "orders/TelasOrdem.h"
#include "orders/TransicoesOrdem.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"

// What the panel does with a row: open it on the screen that fits its list, record the
// customer's answer, hand it to the till or to delivery, print the list.

namespace {

const QString Bancada = QStringLiteral("OrdemServicoTecnico");
const QString Completa = QStringLiteral("CadCompleto");
const QString Saida = QStringLiteral("OrdemServicoSaida");
const QString Entrada = QStringLiteral("OrdemServicoEntrada");
const QString Visita = QStringLiteral("OrdemVisita");
const QString Caixa = QStringLiteral("RegistraValorSaida");

void indisponivel(QWidget* pai, const QString& tela)
{
    Dialogos::mensagem(pai, QStringLiteral("A tela \"%1\" não está disponível nesta instalação.").arg(tela), {},
                       Dialogos::Icone::Aviso);
}

} // namespace

// --- actions on a row -------------------------------------------------------------------------

void Pendencia::abreOrdem(int linha)
{
    if (!m_lista || linha < 0 || linha >= m_linhas.size())
        return;
    const LinhaPainel& l = m_linhas.at(linha);
    if (l.CodOs.trimmed().isEmpty())
        return;
    const bool completa = TelasOrdem::abreCompleta();
    const bool bancada = ListasPainel::abreNaBancada(*m_lista);
    sessao().ListaTecnico = bancada ? 1 : 0;
    sessao().ListaSaida = bancada ? 0 : 1;
    QString tela;
    QString metodo = EntregaTelas::AbreOrdem;
    QVariantMap dados = {{QStringLiteral("CodOsAut"), l.CodOsAut}};
    if (l.visita) {
        tela = Visita;
        metodo = EntregaTelas::AbreVisita;
        dados = {{QStringLiteral("CodManu"), l.CodOs.trimmed().toLongLong()}};
    } else if (*m_lista == Lista::Visita && l.Tipo == QLatin1String("Retirar") && !completa) {
        tela = Entrada;
        metodo = EntregaTelas::MostraOrdem;
        dados.insert(QStringLiteral("CodOs"), l.CodOs);
        dados.insert(QStringLiteral("NomeCliente"), l.NomeCliente);
    } else if (*m_lista == Lista::Visita && l.Tipo == QLatin1String("Retirar")) {
        tela = Completa;
    } else if (bancada) {
        // The lists of the bench always open the bench, whatever screen delivery uses.
        tela = Bancada;
    } else {
        tela = TelasOrdem::daOrdem(Saida);
    }
    if (!EntregaTelas::disponivel(tela)) {
        indisponivel(this, tela);
        return;
    }
    m_frame->hide();
    EntregaTelas::abrirCom(tela, metodo, dados);
}

void Pendencia::salvar()
{
    const LinhaPainel* atual = linhaAtual();
    if (!m_lista || !atual || atual->visita || !garanteBanco())
        return;
    const LinhaPainel l = *atual;
    if (RecusaTela::esperaSenha(QStringLiteral("Pendencia")))
        return;
    if (!Dialogos::pergunta(this, TransicoesOrdem::textoConfirmaPainel(l.CodOs, l.NomeCliente, l.Tipo),
                            QStringLiteral("Alterar registro")))
        return;
    std::optional<Situacao> situacao;
    switch (m_statusSituacao) {
    case 1: situacao = Situacao::AguardaPeca; break;
    case 2: situacao = Situacao::Consertado; break;
    case 3: situacao = Situacao::Orcamento; break;
    case 4: situacao = Situacao::Devolver; break;
    default: break;
    }
    std::optional<Resposta> resposta;
    switch (m_statusResposta) {
    case 1: resposta = Resposta::Aprovado; break;
    case 2: resposta = Resposta::Recusado; break;
    case 3: resposta = Resposta::Indeciso; break;
    default: break;
    }
    try {
        TransicoesOrdem::salvarNoPainel(*m_banco, l, *m_lista, situacao, resposta, m_dtEntrega->date());
    } catch (const OrdemRecusada& e) {
        RecusaTela::mostrar(this, e.recusa());
        return;
    } catch (const RegistroAlterado& e) {
        Dialogos::mensagem(this, e.mensagem(), QStringLiteral("Alterar registro"), Dialogos::Icone::Aviso);
        atualizaPainel({});
        return;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return;
    }
    limpaEscolhas();
    atualizaPainel({});
}

void Pendencia::entregar()
{
    const LinhaPainel* atual = linhaAtual();
    if (!atual || atual->visita || !garanteBanco())
        return;
    std::optional<Ordem> o;
    try {
        o = GravacaoOrdem::carregar(*m_banco, atual->CodOsAut);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return;
    }
    if (!o || o->Excluidos || o->Saida) {
        Dialogos::mensagem(this, RegistroAlterado(!o || o->Excluidos).mensagem(), {}, Dialogos::Icone::Aviso);
        atualizaPainel({});
        return;
    }
    // Only an approved repair is paid for; a repaired warranty return leaves through
    // delivery, which closes it without money.
    const QString tela = EstadoOrdem::vaiAoCaixa(*o) ? Caixa : Saida;
    if (!EntregaTelas::disponivel(tela)) {
        indisponivel(this, tela);
        return;
    }
    Sessao& s = sessao();
    s.ParamCodOs = QString::number(o->CodOs);
    s.ParamCodOsAut = QString::number(o->CodOsAut);
    s.ParamNomeCliente = o->NomeCliente;
    m_frame->hide();
    EntregaTelas::abrirCom(tela, EntregaTelas::AbreOrdem, {{QStringLiteral("CodOsAut"), o->CodOsAut}});
}

void Pendencia::imprime(Destino::Tipo tipo)
{
    if (!m_lista || m_linhas.isEmpty())
        return;
    Destino d;
    d.tipo = tipo;
    d.pai = this;
    d.escolherImpressora = tipo == Destino::Tipo::Impressora && ConfigImpressao::ligado(QStringLiteral("AutoImpressora"));
    const QString titulo = m_etiquetas.value(int(*m_lista))->text();
    d.nomeProposto = QStringLiteral("Pendência - %1").arg(titulo);
    const QList<LinhaPainel> linhas = m_linhas;
    Impressao::imprimirDesenho([&](Impressora& p) { ImpressaoPainel::imprimir(titulo, linhas, p); }, d);
}

