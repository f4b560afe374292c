#include "cash/RegCheque.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSqlRecord>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "registers/CamposDocumento.h"
#include "registers/PesquisaCliente.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Titulo = QStringLiteral("Cadastro de cheques");
const QString MsgValorInvalido = QStringLiteral("Valor inválido: digite só números e a vírgula (150,00).");
const QString MsgDataInvalida = QStringLiteral("Data inválida: digite o dia, o mês e o ano (dd/mm/aaaa).");
constexpr int MaxCheques = 4;
enum { Nome = 0, Cpf = 1, TelCel = 2, NomeBanco = 3, Agencia = 4, Conta = 5, Titular = 7, CpfTitular = 9,
       Total = 10, SomaCheques = 11, DataCompra = 12 };

// The telephones as the cheque keeps them: each side of " / " as digits.
QString telefonesParaGravar(const QString& tela)
{
    QStringList partes = tela.split(QLatin1Char('/'));
    for (QString& p : partes)
        p = CamposDocumento::paraGravar(p.trimmed(), MascaraTelefone);
    return partes.join(QStringLiteral(" / "));
}

QString telefonesParaTela(const QString& guardado)
{
    QStringList partes = guardado.split(QLatin1Char('/'));
    for (QString& p : partes)
        p = MascaraTelefone(p.trimmed());
    return partes.join(QStringLiteral(" / "));
}
} // namespace

RegCheque::RegCheque(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("RegCheque"));
    setAttribute(Qt::WA_DeleteOnClose);
    montaTela();
    Pintura::pinta(this);
    m_banco = Conexoes::nova();
    limpa();
}

RegCheque::~RegCheque() = default;

void RegCheque::montaTela()
{
    auto* raiz = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    raiz->addLayout(g);
    auto rotulo = [this](const QString& t) { return new QLabel(t, this); };
    m_codigo = new QLabel(this);
    m_codigo->setObjectName(QStringLiteral("Label2"));
    m_codCliente = new QLabel(this);
    m_codCliente->setObjectName(QStringLiteral("Label1(14)"));
    for (int i = 0; i <= DataCompra; ++i) {
        auto* le = new QLineEdit(this);
        le->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        m_text1 << le;
    }
    m_text1[8]->hide();  // the address takes several lines: Text1(8) is the box below
    m_endereco = new QPlainTextEdit(this);
    m_endereco->setObjectName(QStringLiteral("Text1(8)"));
    m_endereco->setMaximumHeight(80);
    m_text1[6]->hide();
    m_text1[SomaCheques]->setReadOnly(true);
    m_text1[SomaCheques]->setToolTip(QStringLiteral("Soma dos cheques"));
    m_text1[Nome]->setReadOnly(true);
    CamposDocumento::preparaCnpjCpf(m_text1[Cpf]);
    CamposDocumento::preparaCnpjCpf(m_text1[CpfTitular]);
    for (int i : {Total, SomaCheques})
        Campos::preparaLinha(m_text1[i], true);

    g->addWidget(rotulo(QStringLiteral("Cadastro nº")), 0, 0);
    g->addWidget(m_codigo, 0, 1);
    g->addWidget(rotulo(QStringLiteral("Cód. cliente")), 0, 2);
    g->addWidget(m_codCliente, 0, 3);
    g->addWidget(rotulo(QStringLiteral("Cliente")), 1, 0);
    g->addWidget(m_text1[Nome], 1, 1, 1, 2);
    m_botoes.resize(8);
    auto botao = [this](int i, const QString& t, const QString& dica = {}) {
        auto* b = new QPushButton(t, this);
        b->setObjectName(QStringLiteral("Botao(%1)").arg(i));
        b->setToolTip(dica);
        m_botoes[i] = b;
        return b;
    };
    g->addWidget(botao(4, QStringLiteral("..."), QStringLiteral("Busca cadastro do cliente.")), 1, 3);
    g->addWidget(rotulo(QStringLiteral("CPF/CNPJ")), 2, 0);
    g->addWidget(m_text1[Cpf], 2, 1);
    g->addWidget(rotulo(QStringLiteral("Tel / Cel")), 2, 2);
    g->addWidget(m_text1[TelCel], 2, 3);
    g->addWidget(rotulo(QStringLiteral("Banco")), 3, 0);
    g->addWidget(m_text1[NomeBanco], 3, 1);
    g->addWidget(rotulo(QStringLiteral("Agência")), 3, 2);
    g->addWidget(m_text1[Agencia], 3, 3);
    g->addWidget(rotulo(QStringLiteral("Conta")), 4, 0);
    g->addWidget(m_text1[Conta], 4, 1);
    g->addWidget(rotulo(QStringLiteral("Titular da conta")), 5, 0);
    g->addWidget(m_text1[Titular], 5, 1);
    g->addWidget(rotulo(QStringLiteral("CPF/CNPJ titular")), 5, 2);
    g->addWidget(m_text1[CpfTitular], 5, 3);
    g->addWidget(rotulo(QStringLiteral("Endereço / telefone")), 6, 0);
    g->addWidget(m_endereco, 6, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Valor total")), 7, 0);
    g->addWidget(m_text1[Total], 7, 1);
    g->addWidget(rotulo(QStringLiteral("Data compra")), 7, 2);
    g->addWidget(m_text1[DataCompra], 7, 3);
    m_tipoVenda = new QComboBox(this);
    m_tipoVenda->setObjectName(QStringLiteral("Combo2"));
    m_tipoVenda->addItems({QStringLiteral("Conserto"), QStringLiteral("Venda"), QStringLiteral("Outros")});
    g->addWidget(rotulo(QStringLiteral("Referente")), 8, 0);
    g->addWidget(m_tipoVenda, 8, 1);
    g->addWidget(rotulo(QStringLiteral("Soma dos cheques")), 8, 2);
    g->addWidget(m_text1[SomaCheques], 8, 3);

    m_frame = new QGroupBox(QStringLiteral("Cheques"), this);
    m_frame->setObjectName(QStringLiteral("Frame1"));
    auto* f = new QGridLayout(m_frame);
    m_plano = new QComboBox(m_frame);
    m_plano->setObjectName(QStringLiteral("Combo1"));
    m_plano->addItem(QString());
    m_plano->addItems(Cheques::planos());
    f->addWidget(new QLabel(QStringLiteral("Tipo de pagamento"), m_frame), 0, 0);
    f->addWidget(m_plano, 0, 1, 1, 2);
    f->addWidget(new QLabel(QStringLiteral("Valor"), m_frame), 1, 1);
    f->addWidget(new QLabel(QStringLiteral("Vencimento"), m_frame), 1, 2);
    f->addWidget(new QLabel(QStringLiteral("Nº cheque"), m_frame), 1, 3);
    for (int i = 0; i < 3 * MaxCheques; ++i) {
        auto* le = new QLineEdit(m_frame);
        le->setObjectName(QStringLiteral("Text6(%1)").arg(i));
        if (i < MaxCheques)
            Campos::preparaLinha(le, true);
        m_text6 << le;
    }
    for (int i = 0; i < MaxCheques; ++i) {
        f->addWidget(new QLabel(QStringLiteral("%1º").arg(i + 1), m_frame), i + 2, 0);
        f->addWidget(m_text6[i], i + 2, 1);
        f->addWidget(m_text6[MaxCheques + i], i + 2, 2);
        f->addWidget(m_text6[2 * MaxCheques + i], i + 2, 3);
    }
    f->addWidget(botao(7, QStringLiteral("&Ok"), QStringLiteral("Fecha as parcelas")), MaxCheques + 2, 3);
    raiz->addWidget(m_frame);

    m_text2 = new QLineEdit(this);
    m_text2->setObjectName(QStringLiteral("Text2"));
    m_text3 = new QLineEdit(this);
    m_text3->setObjectName(QStringLiteral("Text3"));
    m_codOsCheque = new QLineEdit(this);
    m_codOsCheque->setObjectName(QStringLiteral("CodOsCheque"));
    for (QLineEdit* oculto : {m_text2, m_text3, m_codOsCheque})
        oculto->hide();

    auto* linha = new QHBoxLayout;
    linha->addWidget(botao(0, QStringLiteral("&Novo"), QStringLiteral("Novo cadastro de cheques")));
    linha->addWidget(botao(5, QStringLiteral("&Salvar"), QStringLiteral("Salva os cheques")));
    linha->addWidget(botao(1, QStringLiteral("&Excluir"), QStringLiteral("Exclui os cheques deste cadastro")));
    linha->addWidget(botao(6, QStringLiteral("&Parcelas"), QStringLiteral("Mostra as parcelas")));
    linha->addWidget(botao(2, QStringLiteral("Pes&quisar"), QStringLiteral("Pesquisa cheques")));
    linha->addStretch();
    linha->addWidget(botao(3, QStringLiteral("Sai&r")));
    raiz->addLayout(linha);

    connect(m_botoes[0], &QPushButton::clicked, this, &RegCheque::novo);
    connect(m_botoes[1], &QPushButton::clicked, this, &RegCheque::excluir);
    connect(m_botoes[2], &QPushButton::clicked, this, [] { RegistroTelas::abrir(QStringLiteral("PesquisaCheque")); });
    connect(m_botoes[3], &QPushButton::clicked, this, [this] { RegistroTelas::fecharJanela(this); });
    connect(m_botoes[4], &QPushButton::clicked, this, &RegCheque::pesquisaCliente);
    connect(m_botoes[5], &QPushButton::clicked, this, [this] { salvar(); });
    connect(m_botoes[6], &QPushButton::clicked, this, &RegCheque::mostraPlanos);
    connect(m_botoes[7], &QPushButton::clicked, this, [this] { fechaPlanos(); });
    connect(m_plano, &QComboBox::activated, this, [this](int i) { escolhePlano(m_plano->itemText(i)); });
    connect(m_text3, &QLineEdit::textChanged, this, &RegCheque::clienteEscolhido);
    for (int i = 0; i < MaxCheques; ++i)
        connect(m_text6[i], &QLineEdit::editingFinished, this, [this, i] {
            if (auto v = Dinheiro::lerTexto(m_text6[i]->text()); v && !m_text6[i]->text().isEmpty())
                m_text6[i]->setText(v->texto());
        });
    connect(m_text1[Total], &QLineEdit::editingFinished, this, [this] {
        if (auto v = Dinheiro::lerTexto(m_text1[Total]->text()))
            m_text1[Total]->setText(v->texto());
    });
    resize(760, 560);
}

void RegCheque::poeTitulo()
{
    setWindowTitle(m_registro.novo() ? Titulo : Titulo + QStringLiteral(" - nº ") + QString::number(m_registro.Codcadastro));
}

void RegCheque::mensagem(const QString& texto) { Dialogos::mensagem(this, texto, Titulo, Dialogos::Icone::Aviso); }

void RegCheque::limpa()
{
    m_registro = RegistroCheque{};
    for (QLineEdit* le : std::as_const(m_text1))
        le->clear();
    for (QLineEdit* le : std::as_const(m_text6))
        le->clear();
    m_endereco->clear();
    m_codigo->clear();
    m_codCliente->clear();
    m_codOsCheque->clear();
    {
        const QSignalBlocker b2(m_text2), b3(m_text3);
        m_text2->clear();
        m_text3->clear();
    }
    m_plano->setCurrentIndex(0);
    m_tipoVenda->setCurrentIndex(0);
    m_n = 0;
    m_text1[DataCompra]->setText(QDate::currentDate().toString(Datas::FormatoTela));
    m_text1[Total]->setText(QStringLiteral("0,00"));
    m_text1[SomaCheques]->setText(QStringLiteral("0,00"));
    ajustaCheques();
    poeTitulo();
}

void RegCheque::ajustaCheques()
{
    Dinheiro soma;
    for (int i = 0; i < MaxCheques; ++i) {
        for (int c = 0; c < 3; ++c)
            m_text6[c * MaxCheques + i]->setEnabled(i < m_n);
        if (auto v = Dinheiro::lerTexto(m_text6[i]->text()); v && i < m_n)
            soma += *v;
    }
    m_text1[SomaCheques]->setText(soma.texto());
}

void RegCheque::novo()
{
    limpa();
    m_frame->setVisible(true);
    m_text1[Cpf]->setFocus();
}

void RegCheque::pesquisaCliente()
{
    PesquisaCliente::abrirPara(PesquisaCliente::Chamador::Pagamento, [this](const QSqlRecord& c) {
        m_text2->setText(c.value(QStringLiteral("CodCliente")).toString());
        m_text3->setText(c.value(QStringLiteral("NomeCliente")).toString());
    });
}

void RegCheque::clienteEscolhido()
{
    if (!m_banco || m_text2->text().isEmpty())
        return;
    std::optional<ClienteCheque> c;
    try {
        c = Cheques::cliente(*m_banco, m_text2->text());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return;
    }
    if (!c)
        return;
    m_codCliente->setText(c->CodCliente);
    m_text1[Nome]->setText(c->NomeCliente);
    m_text1[Cpf]->setText(MascaraCnpjCpf(c->CnpjCpf));
    m_text1[TelCel]->setText(c->telefones());
    if (Dialogos::pergunta(this, QStringLiteral("O nome do cliente é o mesmo do titular da conta ?"), Titulo)) {
        m_text1[Titular]->setText(c->NomeCliente);
        m_text1[CpfTitular]->setText(MascaraCnpjCpf(c->CnpjCpf));
        m_endereco->setPlainText(c->enderecoTitular());
    }
}

void RegCheque::escolhePlano(const QString& plano)
{
    m_plano->setCurrentText(plano);
    // The plan needs the customer, the document and the amount, in the order they are typed.
    if (m_codCliente->text().isEmpty() || m_text1[Nome]->text().trimmed().isEmpty())
        return foca(ChequeRecusado::Cliente, 0), mensagem(QStringLiteral("Selecione um cliente"));
    if (SoDigitos(m_text1[Cpf]->text()).isEmpty())
        return foca(ChequeRecusado::CpfCnpj, 0), mensagem(QStringLiteral("Digite o CPF ou CNPJ do cliente"));
    const auto total = Dinheiro::lerTexto(m_text1[Total]->text());
    if (!total)
        return foca(ChequeRecusado::Total, 0), mensagem(MsgValorInvalido);
    if (total->centavos() <= 0)
        return foca(ChequeRecusado::Total, 0), mensagem(QStringLiteral("Coloque o valor total da compra"));
    m_text1[Total]->setText(total->texto());
    const QDate inicio = Datas::lerTela(m_text1[DataCompra]->text()).value_or(QDate::currentDate());
    const auto parcelas = Cheques::plano(plano, *total, inicio);
    if (!parcelas)
        return;
    for (int i = 0; i < MaxCheques; ++i) {
        m_text6[i]->clear();
        m_text6[MaxCheques + i]->clear();
    }
    m_n = int(parcelas->size());
    for (int i = 0; i < m_n; ++i) {
        const Cheques::Parcela& p = parcelas->at(i);
        if (p.valor)
            m_text6[i]->setText(p.valor->texto());
        if (p.vencimento)
            m_text6[MaxCheques + i]->setText(p.vencimento->toString(Datas::FormatoTela));
    }
    ajustaCheques();
}

void RegCheque::mostraPlanos()
{
    m_frame->setVisible(true);
    m_plano->setFocus();
}

bool RegCheque::fechaPlanos()
{
    if (m_plano->currentText().isEmpty()) {
        mensagem(Cheques::MsgTipoPagamento);
        m_plano->setFocus();
        return false;
    }
    ajustaCheques();
    m_frame->setVisible(false);
    return true;
}

void RegCheque::foca(ChequeRecusado::Campo campo, int indice)
{
    QWidget* w = nullptr;
    switch (campo) {
    case ChequeRecusado::Cliente: w = m_botoes[4]; break;
    case ChequeRecusado::CpfCnpj: w = m_text1[Cpf]; break;
    case ChequeRecusado::Banco: w = m_text1[NomeBanco]; break;
    case ChequeRecusado::Titular: w = m_text1[Titular]; break;
    case ChequeRecusado::Plano: w = m_plano; break;
    case ChequeRecusado::Valor: w = m_text6.value(indice); break;
    case ChequeRecusado::Numero: w = m_text6.value(2 * MaxCheques + indice); break;
    case ChequeRecusado::Total: w = m_text1[Total]; break;
    default: break;
    }
    if (w && w->parentWidget() == m_frame)
        m_frame->setVisible(true);
    if (w)
        w->setFocus();
}

bool RegCheque::leTela(RegistroCheque& r)
{
    r.CodCliente = m_codCliente->text();
    r.NomeCliente = m_text1[Nome]->text().trimmed();
    r.CPFCNPJCliente = CamposDocumento::paraGravar(m_text1[Cpf]->text(), MascaraCnpjCpf);
    r.TelCel = telefonesParaGravar(m_text1[TelCel]->text());
    r.NomeBanco = m_text1[NomeBanco]->text().trimmed();
    r.NumeroAgencia = m_text1[Agencia]->text().trimmed();
    r.NumeroConta = m_text1[Conta]->text().trimmed();
    r.TitularConta = m_text1[Titular]->text().trimmed();
    r.Endereco = m_endereco->toPlainText();
    r.CpfCnpjTitular = CamposDocumento::paraGravar(m_text1[CpfTitular]->text(), MascaraCnpjCpf);
    r.TipoVenda = m_tipoVenda->currentText();
    r.TipoPagamento = m_plano->currentText();
    r.CodVenda = m_codOsCheque->text();
    const auto total = Dinheiro::lerTexto(m_text1[Total]->text());
    if (!total)
        return foca(ChequeRecusado::Total, 0), mensagem(MsgValorInvalido), false;
    r.ValorTotal = *total;
    const auto compra = Datas::telaParaBanco(m_text1[DataCompra]->text());
    if (!compra)
        return m_text1[DataCompra]->setFocus(), mensagem(MsgDataInvalida), false;
    r.DataCompra = compra->isEmpty() ? Datas::hoje() : *compra;
    r.cheques.clear();
    for (int i = 0; i < m_n; ++i) {
        ChequeLinha c;
        const auto v = Dinheiro::lerTexto(m_text6[i]->text());
        if (!v)
            return foca(ChequeRecusado::Valor, i), mensagem(MsgValorInvalido), false;
        const auto d = Datas::telaParaBanco(m_text6[MaxCheques + i]->text());
        if (!d) {
            m_frame->setVisible(true);
            m_text6[MaxCheques + i]->setFocus();
            mensagem(MsgDataInvalida);
            return false;
        }
        c.ValorParcela = *v;
        c.DataVencimento = *d;
        c.NumeroCheque = m_text6[2 * MaxCheques + i]->text().trimmed();
        r.cheques << c;
    }
    return true;
}

bool RegCheque::salvar()
{
    if (!m_banco)
        return false;
    RegistroCheque r = m_registro;
    if (!leTela(r))
        return false;
    try {
        Cheques::gravar(*m_banco, r);
    } catch (const ChequeRecusado& e) {
        if (e.campo == ChequeRecusado::Negado) {
            RegistroTelas::abrir(QStringLiteral("Negado"));
        } else {
            foca(e.campo, e.indice);
            mensagem(e.mensagem);
        }
        return false;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    limpa();
    return true;
}

void RegCheque::excluir()
{
    if (!m_banco)
        return;
    if (m_registro.novo()) {
        mensagem(QStringLiteral("Sem registro"));
        return;
    }
    if (sessao().DireitochequeAl != 1) {
        RegistroTelas::abrir(QStringLiteral("Negado"));
        return;
    }
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?"), Titulo))
        return;
    try {
        Cheques::excluir(*m_banco, m_registro);
    } catch (const ChequeRecusado& e) {
        mensagem(e.mensagem);
        return;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir o formulario"), e.textoCompleto());
        return;
    }
    RegistroTelas::abrir(QStringLiteral("Excluido"));
    limpa();
}

void RegCheque::mostra(const RegistroCheque& r)
{
    limpa();
    m_registro = r;
    m_codigo->setText(QString::number(r.Codcadastro));
    m_codCliente->setText(r.CodCliente);
    m_text1[Nome]->setText(r.NomeCliente);
    m_text1[Cpf]->setText(MascaraCnpjCpf(r.CPFCNPJCliente));
    m_text1[TelCel]->setText(telefonesParaTela(r.TelCel));
    m_text1[NomeBanco]->setText(r.NomeBanco);
    m_text1[Agencia]->setText(r.NumeroAgencia);
    m_text1[Conta]->setText(r.NumeroConta);
    m_text1[Titular]->setText(r.TitularConta);
    m_endereco->setPlainText(r.Endereco);
    m_text1[CpfTitular]->setText(MascaraCnpjCpf(r.CpfCnpjTitular));
    m_text1[Total]->setText(r.ValorTotal.texto());
    m_text1[DataCompra]->setText(Datas::bancoParaTela(r.DataCompra));
    m_tipoVenda->setCurrentText(r.TipoVenda);
    m_plano->setCurrentText(r.TipoPagamento);
    m_codOsCheque->setText(r.CodVenda == QLatin1String("0000") ? QString() : r.CodVenda);
    m_n = qMin(int(r.cheques.size()), MaxCheques);
    for (int i = 0; i < m_n; ++i) {
        m_text6[i]->setText(r.cheques[i].ValorParcela.texto());
        m_text6[MaxCheques + i]->setText(Datas::bancoParaTela(r.cheques[i].DataVencimento));
        m_text6[2 * MaxCheques + i]->setText(r.cheques[i].NumeroCheque);
    }
    ajustaCheques();
    m_frame->setVisible(true);
    poeTitulo();
}

bool RegCheque::mostraCadastro(qint64 codcadastro)
{
    if (!m_banco)
        return false;
    try {
        const auto r = Cheques::carregar(*m_banco, codcadastro);
        if (!r)
            return false;
        mostra(*r);
        return true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

bool RegCheque::mostraCheque(qint64 chave)
{
    if (!m_banco)
        return false;
    try {
        const auto cod = Cheques::cadastroDaLinha(*m_banco, chave);
        return cod && mostraCadastro(*cod);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

void RegCheque::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo"))
        novo();
}

void RegCheque::recebePagamento(const QVariantMap& dados)
{
    novo();
    auto v = [&dados](const char* k) { return dados.value(QLatin1String(k)); };
    m_codCliente->setText(v("CodCliente").toString());
    m_text1[Nome]->setText(v("NomeCliente").toString());
    m_text1[Cpf]->setText(MascaraCnpjCpf(SoDigitos(v("CnpjCpf").toString())));
    m_text1[Total]->setText(Dinheiro::deCentavos(v("ValorCentavos").toLongLong()).texto());
    m_tipoVenda->setCurrentText(QStringLiteral("Conserto"));
    m_codOsCheque->setText(v("CodOs").toString());
    const QDate data = v("Data").toDate();
    if (data.isValid())
        m_text1[DataCompra]->setText(Datas::paraTela(data));
    // The register's telephones, when the customer is there: the counter needn't type them.
    if (m_banco && !m_codCliente->text().isEmpty()) {
        try {
            if (const auto c = Cheques::cliente(*m_banco, m_codCliente->text()))
                m_text1[TelCel]->setText(c->telefones());
        } catch (const ErroBanco&) {
            // Only a convenience: the boxes stay for the user to fill.
        }
    }
    const QString plano = v("Pagamento").toString();
    if (Cheques::planos().contains(plano))
        escolhePlano(plano);
}

TOLDEX_REGISTRA_TELA(RegCheque)
