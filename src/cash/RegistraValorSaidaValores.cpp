// The till's amount boxes, payment forms, hung debt and the record button.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "cash/FormasPagamento.h"
#include "cash/PainelPix.h"
#include "cash/Pix.h"
#include "cash/RegistraValorSaida.h"
#include "data/Banco.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "orders/RecusaOrdem.h"
#include "orders/ValoresOrdem.h"
#include "registers/CamposDocumento.h"
#include "registers/EntregaTelas.h"
#include "shell/Avisos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString TituloRegistrar = QStringLiteral("Registrar valor");
const QString TituloErroGravar = QStringLiteral(
    "Erro ao gravar formulário,\nhouve uma perda na comunicação ao banco de dados,\ninforme o erro ao suporte.\n"
    "FECHE O FORMULÁRIO E TENTE NOVAMENTE");
const QString DinheiroVista = QStringLiteral("DINHEIRO-VISTA");

// The locale-aware reading of an amount box: an empty box counts as zero.
std::optional<Dinheiro> valor(const QString& texto) { return Dinheiro::lerTextoLocal(texto.trimmed()); }

// Two decimals with grouping; a text that isn't an amount stays as typed, for the record
// button to refuse with its message.
QString formata(const QString& texto)
{
    if (texto.trimmed().isEmpty())
        return QStringLiteral("0,00");
    const auto v = valor(texto);
    return v ? v->texto() : texto;
}
} // namespace

// --- amount boxes -----------------------------------------------------------------------------

// Every change is dispatched by the changed text, compared with the total, paid, change and
// discount boxes in that order: the first box holding the same text is taken for the one
// that changed, so paid text equal to the total falls to the total's branch.
void RegistraValorSaida::aoMudarValor(const QString& texto)
{
    if (texto == m_txt[10]->text() || texto == m_txt[12]->text()) {
        // The total and the change are formatted once the user leaves them, so typing
        // isn't broken by a format applied under the cursor.
        return;
    }
    if (texto == m_txt[11]->text()) {
        if (m_txt[17]->text().isEmpty())
            m_txt[17]->setText(QStringLiteral("0,00"));
        poeTroco(m_txt[11]->text());
        return;
    }
    if (texto == m_txt[17]->text()) {
        const auto total = valor(m_txt[10]->text());
        const auto desconto = valor(formata(texto));
        if (!total || !desconto)
            return;
        // A discount rewrites the paid box with the discounted total; the paid box's own
        // change then follows.
        m_txt[11]->setText((*total - *desconto).texto());
        aoMudarValor(m_txt[11]->text());
    }
}

void RegistraValorSaida::aoSairValor(QLineEdit* caixa)
{
    const QString texto = caixa->text();
    if (texto == m_txt[10]->text())
        m_txt[10]->setText(formata(texto));
    else if (texto == m_txt[11]->text()) {
        m_txt[11]->setText(formata(texto));
        poeTroco(m_txt[11]->text());
    } else if (texto == m_txt[12]->text())
        m_txt[12]->setText(formata(texto));
    else if (texto == m_txt[17]->text())
        m_txt[17]->setText(formata(texto));
    atualizaPix();
}

// Change = paid − (total − discount): positive is change to give, negative still owed.
void RegistraValorSaida::poeTroco(const QString& pagoTexto)
{
    const auto pago = valor(pagoTexto.isEmpty() ? QStringLiteral("0,00") : pagoTexto);
    const auto total = valor(m_txt[10]->text());
    const auto desconto = valor(m_txt[17]->text());
    if (pago && total && desconto)
        m_txt[12]->setText((*pago - (*total - *desconto)).texto());
}

// --- payment forms and the hung debt ------------------------------------------------------------

void RegistraValorSaida::escolheForma(const QString& texto)
{
    const FormasPagamento::Forma* f = FormasPagamento::porTexto(texto);
    if (!f)
        return;  // typed text and "Pagar depois" leave the plan as it stands
    for (QLineEdit* t : std::as_const(m_text6))
        t->clear();
    if (f->texto == DinheiroVista) {
        // Cash locks the instalment boxes for as long as the screen is open.
        m_parcelasTravadas = true;
        aplicaEstado();
    }
    sessao().NumeroParcelas = f->parcelas;
    sessao().PagoComCheque = f->cheque ? 1 : 0;
    const auto total = valor(m_txt[10]->text());
    const auto desconto = valor(m_txt[17]->text());
    if (!total || !desconto)
        return;
    const QList<FormasPagamento::Parcela> plano = FormasPagamento::plano(*f, *total - *desconto, QDate::currentDate());
    for (int i = 0; i < plano.size() && i < 4; ++i) {
        m_text6[i]->setText(plano.at(i).valor.texto());
        m_text6[4 + i]->setText(Datas::paraTela(plano.at(i).vencimento));
    }
    if (f->texto == Pix::FormaPagamento) {
        // A PIX is paid to the cent: nothing typed yet means the amount owed.
        const auto pago = valor(m_txt[11]->text());
        if (pago && pago->zero() && m_txt[11]->isEnabled()) {
            m_txt[11]->setText((*total - *desconto).texto());
            poeTroco(m_txt[11]->text());
        }
    }
    // Choosing PIX again tells again why there is no QR.
    m_pix->esconde();
    atualizaPix();
}

void RegistraValorSaida::atualizaPix()
{
    if (!m_ordem || m_pendurar->isChecked() || m_forma->currentText() != Pix::FormaPagamento
        || !m_txt[15]->text().isEmpty()) {
        m_pix->esconde();
        return;
    }
    const auto total = valor(m_txt[10]->text());
    const auto desconto = valor(m_txt[17]->text());
    if (total && desconto)
        m_pix->mostra(*total - *desconto, m_txt[0]->text());
}

void RegistraValorSaida::clicaPendurar()
{
    // The warnings never block: the record button asks for the document itself.
    if (m_txt[16]->text().isEmpty())
        Dialogos::mensagem(this, QStringLiteral("Este cliente não é registrado"), TituloRegistrar, Dialogos::Icone::Critico);
    if (m_txt[1]->text().isEmpty())
        Dialogos::mensagem(this, QStringLiteral("É necessário cadastrar o CPF/CNPJ deste cliente"), TituloRegistrar,
                           Dialogos::Icone::Critico);
    if (m_pendurar->isChecked())
        m_forma->setEditText(FormasPagamento::PagarDepois);
    aplicaEstado();
    atualizaPix();
}

// --- recording ----------------------------------------------------------------------------------

bool RegistraValorSaida::leValor(QLineEdit* caixa, const QString& campo, Dinheiro* v)
{
    QString erro;
    const auto lido = ValoresOrdem::lerValor(caixa->text(), campo, &erro);
    if (!lido) {
        Dialogos::mensagem(this, erro, TituloRegistrar, Dialogos::Icone::Aviso);
        caixa->setFocus();
        return false;
    }
    *v = *lido;
    return true;
}

std::optional<PagamentoCaixa> RegistraValorSaida::leCaixas()
{
    PagamentoCaixa p;
    // A document typed and not yet checked (record pressed without leaving the box) is
    // checked now, so it goes to the store as digits.
    if (!CamposDocumento::checaSeDigitado(m_txt[1]))
        return std::nullopt;
    if (!leValor(m_txt[10], QStringLiteral("Valor total"), &p.total)
        || !leValor(m_txt[17], QStringLiteral("Desconto"), &p.desconto)
        || !leValor(m_txt[11], QStringLiteral("Valor pago"), &p.pago))
        return std::nullopt;
    p.codOsAut = m_ordem->CodOsAut;
    p.valorPagarLido = m_ordem->ValorPagar;
    p.pendurar = m_pendurar->isChecked();
    p.forma = p.pendurar ? FormasPagamento::PagarDepois : m_forma->currentText().trimmed();
    p.vencimentoPendurado = m_data->date();
    p.cheque = sessao().PagoComCheque == 1;
    const int n = p.pendurar ? 0 : qBound(0, sessao().NumeroParcelas, 4);
    for (int i = 0; i < n; ++i) {
        Dinheiro v;
        if (!leValor(m_text6[i], QStringLiteral("%1ª parcela").arg(i + 1), &v))
            return std::nullopt;
        const auto data = Datas::lerTela(m_text6[4 + i]->text().trimmed());
        if (!data) {
            Dialogos::mensagem(this,
                               QStringLiteral("A data de vencimento \"%1\" da %2ª parcela não existe. Digite a data "
                                              "como dd/mm/aaaa.").arg(m_text6[4 + i]->text().trimmed()).arg(i + 1),
                               TituloRegistrar, Dialogos::Icone::Aviso);
            m_text6[4 + i]->setFocus();
            return std::nullopt;
        }
        p.parcelas << FormasPagamento::Parcela{v, *data};
    }
    p.codCliente = m_txt[16]->text().trimmed();
    p.nomeCliente = m_txt[2]->text();
    p.cpfCnpj = CamposDocumento::paraGravar(m_txt[1]->text(), MascaraCnpjCpf);
    p.endereco = m_txt[3]->text();
    p.ncasa = m_txt[4]->text();
    p.bairro = m_txt[5]->text();
    p.cidade = m_txt[6]->text();
    p.telefone = CamposDocumento::paraGravar(m_txt[7]->text(), MascaraTelefone);
    p.celular = CamposDocumento::paraGravar(m_txt[8]->text(), MascaraTelefone);
    return p;
}

void RegistraValorSaida::mostraRecusa(const QString& mensagem, const QString& titulo, bool negado)
{
    if (negado)
        RegistroTelas::abrir(QStringLiteral("Negado"));
    else
        Dialogos::mensagem(this, mensagem, titulo.isEmpty() ? TituloRegistrar : titulo, Dialogos::Icone::Informacao);
}

void RegistraValorSaida::registrar()
{
    if (!m_ordem || !m_banco)
        return;
    Sessao& s = sessao();
    // The right comes before any question and any row.
    if (s.DireitoOsSaiAl != 1) {
        mostraRecusa({}, {}, true);
        return;
    }
    if (s.SenhaObrigatoria != 0 && s.SenhaLiberada == 0) {
        s.SenhaOrigem = QStringLiteral("RegistraValor");
        RegistroTelas::abrir(QStringLiteral("SenhaPde"));
        return;
    }
    std::optional<PagamentoCaixa> p = leCaixas();
    if (!p)
        return;
    if (p->desconto > p->total || p->desconto < Dinheiro()) {
        mostraRecusa(RegistroPagamento::MsgDescontoMaior, {}, false);
        m_txt[17]->setFocus();
        return;
    }
    if (p->total > p->pago
        && Dialogos::mensagem(this, QStringLiteral("Valor pago é menor que o valor total,quer continuar ?"),
                              TituloRegistrar, Dialogos::Icone::Informacao, Dialogos::Botoes::SimNao)
               != Dialogos::Resposta::Sim)
        return;
    // No bank is asked: the money is confirmed by whoever looks at the shop's account.
    if (!p->pendurar && p->forma == Pix::FormaPagamento && !m_pix->confirmaRecebimento(this))
        return;
    if (p->pendurar)
        m_forma->setEditText(FormasPagamento::PagarDepois);
    // The change is worked out again from what stands in the boxes now.
    m_txt[12]->setText(p->troco().texto());

    QWidget* aguarde = RegistroTelas::abrir(QStringLiteral("AguardeBaixa"));
    auto progresso = [aguarde](const QString& texto) {
        if (auto* rotulo = aguarde ? aguarde->findChild<QLabel*>(QStringLiteral("Label1")) : nullptr)
            rotulo->setText(texto);
    };
    auto fechaAguarde = [] { RegistroTelas::fechar(QStringLiteral("AguardeBaixa")); };
    RegistroPagamento::Resultado r;
    try {
        r = RegistroPagamento::gravar(*m_banco, *p, progresso);
    } catch (const OrdemRecusada& e) {
        fechaAguarde();
        mostraRecusa(e.recusa().mensagem, e.recusa().titulo, e.recusa().seguimento == Recusa::Negado);
        return;
    } catch (const ErroBanco& e) {
        // Nothing was written: the order stays open and the boxes keep what was typed.
        fechaAguarde();
        Dialogos::erro(this, TituloErroGravar, e.textoCompleto());
        return;
    }
    fechaAguarde();
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    for (const QString& descricao : std::as_const(r.reposicao)) {
        auto* aviso = new AvisoTransitorio(QStringLiteral("Pedido estoque"), 2000, true, this);
        aviso->setObjectName(QStringLiteral("PedidoEstoque"));
        if (auto* segunda = aviso->findChild<QLabel*>(QStringLiteral("Label2"))) {
            segunda->setText(descricao);
            segunda->show();
        }
        aviso->show();
    }
    const qint64 codOs = m_ordem->CodOs;
    p->codCliente = r.codCliente;
    carregaOrdem(p->codOsAut);
    if (p->cheque)
        perguntaCheque(*p, codOs);
}

void RegistraValorSaida::perguntaCheque(const PagamentoCaixa& p, qint64 codOs)
{
    const QString tela = QStringLiteral("RegCheque");
    if (!EntregaTelas::disponivel(tela))
        return;
    if (Dialogos::mensagem(this, QStringLiteral("Você quer cadastrar o cheque agora ?"), TituloRegistrar,
                           Dialogos::Icone::Aviso, Dialogos::Botoes::SimNao) != Dialogos::Resposta::Sim)
        return;
    sessao().CodOsCheque = QString::number(codOs);
    EntregaTelas::abrirCom(tela, EntregaTelas::RecebePagamento,
                           {{QStringLiteral("CodCliente"), p.codCliente},
                            {QStringLiteral("NomeCliente"), p.nomeCliente},
                            {QStringLiteral("CnpjCpf"), p.cpfCnpj},
                            {QStringLiteral("CodOs"), codOs},
                            {QStringLiteral("CodOsAut"), p.codOsAut},
                            {QStringLiteral("Pagamento"), p.forma},
                            {QStringLiteral("ValorCentavos"), p.valorEmCheque().centavos()},
                            {QStringLiteral("Data"), QDate::currentDate()}});
}
