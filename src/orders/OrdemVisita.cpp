#include "orders/OrdemVisita.h"

#include <QComboBox>
#include <QCompleter>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "documents/ConfigImpressao.h"
#include "documents/MenuImpressao.h"
#include "orders/BancadaOrdem.h"
#include "orders/Ordem.h"
#include "registers/BuscaClientes.h"
#include "registers/EntregaTelas.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {
const QString TelaProduto = QStringLiteral("PesquisaProduto");
const char* const Colunas[] = {"Aguarda", "Acaminho", "Orcamento", "Executado"};
const int SugestoesNome = 15;

bool soDigitos(const QString& s)
{
    for (const QChar c : s)
        if (!c.isDigit())
            return false;
    return !s.isEmpty();
}
} // namespace

OrdemVisita::OrdemVisita(QWidget* pai) : TelaCadastro(pai)
{
    setObjectName(QStringLiteral("OrdemVisita"));
    auto* raiz = new QVBoxLayout(corpo());
    raiz->setContentsMargins(0, 0, 0, 0);

    auto* buscas = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        m_busca[i] = new QLineEdit(corpo());
        m_busca[i]->setObjectName(QStringLiteral("TxtBusca(%1)").arg(i));
    }
    m_busca[0]->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), m_busca[0]));
    m_busca[0]->setPlaceholderText(QStringLiteral("Nº da visita"));
    m_busca[1]->setPlaceholderText(QStringLiteral("Nome do cliente"));
    buscas->addWidget(new QLabel(QStringLiteral("Pesquisar:"), corpo()));
    buscas->addWidget(m_busca[0]);
    buscas->addWidget(m_busca[1], 1);
    raiz->addLayout(buscas);

    auto* g = new QGridLayout;
    auto rotulo = [this](const QString& t) { return new QLabel(t, corpo()); };
    m_codManu = new QLabel(corpo());
    m_codManu->setObjectName(QStringLiteral("CodManu"));
    m_codManu->setFrameShape(QFrame::StyledPanel);
    m_codManu->setMinimumWidth(90);
    m_codCliente = new QLabel(corpo());
    m_codCliente->setObjectName(QStringLiteral("CodCliente"));
    m_codCliente->setFrameShape(QFrame::StyledPanel);
    m_codCliente->setMinimumWidth(90);
    m_nome = new QLineEdit(corpo());
    m_nome->setObjectName(QStringLiteral("NomeCliente"));
    m_nome->setMaxLength(80);
    m_endTel = new QPlainTextEdit(corpo());
    m_endTel->setObjectName(QStringLiteral("EndTel"));
    m_endTel->setTabChangesFocus(true);
    m_endTel->setMaximumHeight(72);
    m_solicitacao = new QPlainTextEdit(corpo());
    m_solicitacao->setObjectName(QStringLiteral("Solicitacao"));
    m_solicitacao->setTabChangesFocus(true);
    m_solicitacao->setMaximumHeight(110);
    m_data = new QDateEdit(corpo());
    m_data->setObjectName(QStringLiteral("DataSolicitada"));
    m_data->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    m_data->setCalendarPopup(true);
    m_hora = new QTimeEdit(corpo());
    m_hora->setObjectName(QStringLiteral("HoraSolicitada"));
    m_hora->setDisplayFormat(QStringLiteral("HH:mm"));
    m_dataAtendida = new QLineEdit(corpo());
    m_dataAtendida->setObjectName(QStringLiteral("DataAtendida"));
    m_dataAtendida->setMaxLength(10);
    m_tecnico = new QComboBox(corpo());
    m_tecnico->setObjectName(QStringLiteral("Tecnico"));
    m_maoObra = new QLineEdit(corpo());
    m_maoObra->setObjectName(QStringLiteral("MaoObra"));
    m_maoObra->setAlignment(Qt::AlignRight);
    auto soLeitura = [this](const QString& nome) {
        auto* e = new QLineEdit(corpo());
        e->setObjectName(nome);
        e->setReadOnly(true);
        e->setAlignment(Qt::AlignRight);
        e->setFocusPolicy(Qt::NoFocus);
        return e;
    };
    m_valorVenda = soLeitura(QStringLiteral("ValorVenda"));
    m_valorPecas = soLeitura(QStringLiteral("ValorPecas"));
    m_valorPagar = soLeitura(QStringLiteral("ValorPagar"));

    g->addWidget(rotulo(QStringLiteral("O.S Visita:")), 0, 0);
    g->addWidget(m_codManu, 0, 1, Qt::AlignLeft);
    g->addWidget(rotulo(QStringLiteral("Data Solicitada:")), 0, 2);
    g->addWidget(m_data, 0, 3);
    g->addWidget(rotulo(QStringLiteral("Hora:")), 0, 4);
    g->addWidget(m_hora, 0, 5);
    g->addWidget(rotulo(QStringLiteral("Cliente:")), 1, 0);
    g->addWidget(m_nome, 1, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Cód:")), 1, 4);
    g->addWidget(m_codCliente, 1, 5);
    g->addWidget(rotulo(QStringLiteral("Endereço,Telefones:")), 2, 0, Qt::AlignTop);
    g->addWidget(m_endTel, 2, 1, 1, 5);
    g->addWidget(rotulo(QStringLiteral("Solicitação:")), 3, 0, Qt::AlignTop);
    g->addWidget(m_solicitacao, 3, 1, 1, 5);
    g->addWidget(rotulo(QStringLiteral("Técnico:")), 4, 0);
    g->addWidget(m_tecnico, 4, 1);
    g->addWidget(rotulo(QStringLiteral("Data Atendida:")), 4, 2);
    g->addWidget(m_dataAtendida, 4, 3);
    g->setColumnStretch(1, 2);
    g->setColumnStretch(3, 1);
    raiz->addLayout(g);

    auto* andamento = new QGroupBox(QStringLiteral("Andamento"), corpo());
    andamento->setObjectName(QStringLiteral("Andamento"));
    auto* la = new QHBoxLayout(andamento);
    const QString captions[] = {QStringLiteral("Aguarda"), QStringLiteral("A-caminho"), QStringLiteral("Orçamento"),
                                QStringLiteral("Executado")};
    const QString dicas[] = {
        QStringLiteral("Aguarda parav ser atendida."), QStringLiteral("O Técnico já saiu para atender"),
        QStringLiteral("Marque está se o cliente foi atendido ou foi feito somente orçamento no local."),
        QStringLiteral("Marque se foi feito a manutenção no domicílio do cliente.")};
    for (int i = 0; i < 4; ++i) {
        m_andamento[i] = new QRadioButton(captions[i], andamento);
        m_andamento[i]->setObjectName(QStringLiteral("OptAndamento(%1)").arg(i));
        m_andamento[i]->setToolTip(dicas[i]);
        la->addWidget(m_andamento[i]);
        connect(m_andamento[i], &QRadioButton::clicked, this, [this] { alterou(); });
    }
    raiz->addWidget(andamento);

    montaGrade(corpo());
    raiz->addWidget(m_grade, 1);

    auto* valores = new QHBoxLayout;
    const QList<QPair<QString, QLineEdit*>> somas = {{QStringLiteral("Mão de obra:"), m_maoObra},
                                                     {QStringLiteral("Peças:"), m_valorVenda},
                                                     {QStringLiteral("Custo:"), m_valorPecas},
                                                     {QStringLiteral("Total a pagar:"), m_valorPagar}};
    for (const auto& [texto, campo] : somas) {
        valores->addWidget(rotulo(texto));
        valores->addWidget(campo);
    }
    raiz->addLayout(valores);

    using T = CampoCadastro::Tipo;
    campos() = {{m_codManu, QStringLiteral("CodManu"), T::Exibicao},
                {m_codCliente, QStringLiteral("CodCliente"), T::Exibicao},
                {m_nome, QStringLiteral("NomeCliente"), T::Texto},
                {m_endTel, QStringLiteral("EndTel"), T::Texto},
                {m_solicitacao, QStringLiteral("Solicitacao"), T::Texto},
                {m_data, QStringLiteral("DataSolicitada"), T::Data},
                {m_dataAtendida, {}, T::Texto},
                {m_tecnico, QStringLiteral("Tecnico"), T::Texto},
                {m_maoObra, QStringLiteral("MaoObra"), T::Dinheiro}};
    connect(m_hora, &QTimeEdit::timeChanged, this, [this] { alterou(); });
    connect(m_tecnico, &QComboBox::activated, this, [this] { alterou(); });
    connect(m_maoObra, &QLineEdit::editingFinished, this, [this] {
        if (const auto v = Visitas::lerValor(m_maoObra->text()))
            m_maoObra->setText(v->texto());
        recalcula();
    });
    connect(m_maoObra, &QLineEdit::textEdited, this, [this] { recalcula(); });

    def().tabela = Visitas::Tabela;
    def().titulo = QStringLiteral("Cadastro de Ordem de Visita");
    def().colunaCodigo = QStringLiteral("CodManu");
    def().colunaCarimbo = QStringLiteral("OsAlterado");
    def().direito = QStringLiteral("DireitoOsTecAl");
    def().senhaOrigem = QStringLiteral("OrdemVisita");
    def().obrigatorio = m_nome;
    def().mensagemObrigatorio = Visitas::MsgNome;
    def().dicaSalvar = QStringLiteral("Salva registro");
    def().dicaCancelar = QStringLiteral("Cancela a alteração");
    montaBuscas();

    botao(1)->setText(QStringLiteral("A&tendido"));
    botao(1)->setToolTip(QStringLiteral("Clique aqui para concluir o atendimento ao cliente"));
    adicionaBotao(QStringLiteral("&Excluir"));
    adicionaBotao(QStringLiteral("Im&primir"), QStringLiteral("Imprime solicitação"));
    adicionaBotao(QStringLiteral("Sai&r"), QStringLiteral("Fecha o formulário"));
    posicionaAcoes(2, 4);
    definirBotaoFechar(4);
    connect(botao(1), &QPushButton::clicked, this, &OrdemVisita::atender);
    connect(botao(3), &QPushButton::clicked, this, [this] { imprimir(); });
    MenuImpressao::preparar(botao(3), [this](Destino::Tipo d) { imprimir(d); });

    // Customers are offered as the name is typed, a few at a time, never the whole file.
    m_nomes = new QStandardItemModel(this);
    m_completa = new QCompleter(m_nomes, this);
    m_completa->setCaseSensitivity(Qt::CaseInsensitive);
    m_completa->setCompletionMode(QCompleter::PopupCompletion);
    // Connected before the completer is set, so that it filters the names just read.
    connect(m_nome, &QLineEdit::textEdited, this, [this](const QString& t) {
        // A name typed over a chosen customer is a name typed freely.
        m_codCliente->clear();
        sugereClientes(t);
    });
    m_nome->setCompleter(m_completa);
    connect(m_completa, QOverload<const QModelIndex&>::of(&QCompleter::activated), this,
            [this](const QModelIndex& i) {
                m_codCliente->setText(i.data(Qt::UserRole).toString());
                alterou();
            });
    resize(900, 640);
    if (!iniciar())
        return;
    try {
        m_tecnico->addItems(Visitas::tecnicos(*banco()));
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
}

// --- searches --------------------------------------------------------------------------

void OrdemVisita::montaBuscas()
{
    // The number and the name are compared apart: visit 1 of "2ANA" is not visit 12 of
    // "ANA". Both boxes reach the bin, which is how a deleted visit is looked at again.
    def().condicaoBuscaViva = [this](Banco& banco, const QString&) {
        Condicao c;
        const QString numero = m_busca[0]->text().trimmed();
        const QString nome = m_busca[1]->text().trimmed();
        QStringList partes;
        if (!numero.isEmpty()) {
            if (soDigitos(numero)) {
                partes << QStringLiteral("CodManu = ?");
                c.valores << numero.toLongLong();
            } else {
                partes << QStringLiteral("1 = 0");
            }
        }
        if (!nome.isEmpty()) {
            const Condicao n = Busca::porTexto(banco, Visitas::Tabela, QStringLiteral("NomeCliente"), nome, true);
            partes << QStringLiteral("(%1)").arg(n.sql);
            c.valores += n.valores;
        }
        c.sql = partes.join(QStringLiteral(" AND "));
        return c;
    };
    for (QLineEdit* b : m_busca)
        connect(b, &QLineEdit::textChanged, this, &OrdemVisita::procura);
}

void OrdemVisita::procura()
{
    if (estado() != Estado::Navegacao)
        return;
    // Any text at all runs the condition, which reads both boxes itself.
    buscaViva(m_busca[0]->text() + m_busca[1]->text());
}

void OrdemVisita::abreVisita(const QVariantMap& dados)
{
    if (estado() != Estado::Navegacao) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a visita em edição antes de abrir outra."),
                           windowTitle(), Dialogos::Icone::Aviso);
        return;
    }
    const qint64 cod = dados.value(QStringLiteral("CodManu")).toLongLong();
    for (QLineEdit* b : m_busca)
        b->blockSignals(true);
    m_busca[1]->clear();
    m_busca[0]->setText(cod > 0 ? QString::number(cod) : QString());
    for (QLineEdit* b : m_busca)
        b->blockSignals(false);
    procura();
}

void OrdemVisita::sugereClientes(const QString& texto)
{
    if (texto.trimmed().size() < 2 || !banco())
        return;
    try {
        const BuscaClientes::Resultado r =
            BuscaClientes::buscar(*banco(), BuscaClientes::Opcao::Nome, texto.trimmed(), SugestoesNome);
        m_nomes->clear();
        for (const QSqlRecord& l : r.linhas) {
            auto* item = new QStandardItem(l.value(QStringLiteral("NomeCliente")).toString());
            item->setData(l.value(QStringLiteral("CodCliente")).toString(), Qt::UserRole);
            m_nomes->appendRow(item);
        }
    } catch (const ErroBanco&) {
        // Offering names is a help: a failed look-up leaves the typed name as it is.
        m_nomes->clear();
    }
}

// --- hand-overs ------------------------------------------------------------------------

void OrdemVisita::novoComCliente(const QVariantMap& dados)
{
    if (estado() != Estado::Navegacao) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a visita em edição antes de abrir outra."),
                           windowTitle(), Dialogos::Icone::Aviso);
        return;
    }
    novoRegistro();
    m_codCliente->setText(dados.value(QStringLiteral("CodCliente")).toString());
    m_nome->setText(dados.value(QStringLiteral("NomeCliente")).toString());
    QStringList endereco;
    for (const char* chave : {"EnderecoCompleto", "Contato"})
        if (const QString t = dados.value(QLatin1String(chave)).toString(); !t.trimmed().isEmpty())
            endereco << t;
    m_endTel->setPlainText(endereco.join(QLatin1Char('\n')));
    m_solicitacao->setFocus();
}

void OrdemVisita::recebeProduto(const QVariantMap& dados)
{
    if (!banco() || (chaveAtual() < 0 && !novo()))
        return;
    std::optional<PecaAplicada> p;
    try {
        p = BancadaOrdem::pecaDoProduto(*banco(), dados.value(QStringLiteral("CodPecAut")).toLongLong());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao buscar produto,"), e.textoCompleto());
        return;
    }
    if (!p) {
        Dialogos::mensagem(this, QStringLiteral("Produto não foi encontrado"), {}, Dialogos::Icone::Aviso);
        return;
    }
    fechaEdicao();
    int linha = m_linhaProduto;
    if (linha < 0 || linha >= m_grade->rowCount() || !celula(linha, Descricao).isEmpty())
        linha = m_grade->rowCount() - 1;
    m_linhaProduto = -1;
    poeCelula(linha, Descricao, p->Descricao);
    poeCelula(linha, Unitario, p->ValorVenda.texto());
    poeCelula(linha, Custo, p->ValorCusto.texto());
    poeCelula(linha, CodPeca, p->codpeca);
    completaLinha(linha);
    alterou();
    editaCelula(linha, Quant);
}

// --- fields ----------------------------------------------------------------------------

void OrdemVisita::alterou()
{
    if (carregando())
        return;
    recalcula();
    if (estado() == Estado::Navegacao)
        marcaAlterado();
}

void OrdemVisita::limpaCampos()
{
    TelaCadastro::limpaCampos();
    m_codManuAtual = 0;
    m_data->setDate(QDate::currentDate());
    m_hora->setTime(QTime::currentTime());
    m_dataAtendida->clear();
    m_tecnico->setCurrentText(sessao().UsuarioNome);
    m_andamento[0]->setChecked(true);
    mostraPecas({});
}

void OrdemVisita::bloqueiaCampos()
{
    TelaCadastro::bloqueiaCampos();
    for (QWidget* w : {static_cast<QWidget*>(m_hora), static_cast<QWidget*>(m_grade)})
        w->setEnabled(false);
    for (QRadioButton* r : m_andamento)
        r->setEnabled(false);
    botao(1)->setEnabled(false);
}

void OrdemVisita::liberaCampos()
{
    TelaCadastro::liberaCampos();
    for (QWidget* w : {static_cast<QWidget*>(m_hora), static_cast<QWidget*>(m_grade)})
        w->setEnabled(true);
    for (QRadioButton* r : m_andamento)
        r->setEnabled(true);
    botao(1)->setEnabled(true);
}

void OrdemVisita::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    m_codManuAtual = rs.inteiro(QStringLiteral("CodManu"));
    const auto hora = QTime::fromString(rs.texto(QStringLiteral("HoraSolicitada")), QStringLiteral("HH:mm"));
    m_hora->setTime(hora.isValid() ? hora : QTime::currentTime());
    m_dataAtendida->setText(Datas::bancoParaTela(rs.texto(QStringLiteral("DataAtendida"))));
    if (rs.texto(QStringLiteral("Tecnico")).isEmpty())
        m_tecnico->setCurrentText(sessao().UsuarioNome);
    int estadoVisita = 0;
    for (int i = 0; i < 4; ++i)
        if (rs.flag(QLatin1String(Colunas[i])))
            estadoVisita = i;
    m_andamento[estadoVisita]->setChecked(true);
    try {
        mostraPecas(Visitas::pecas(*banco(), m_codManuAtual));
    } catch (const ErroBanco& e) {
        mostraPecas({});
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    // The sums are the stored ones, as the visit was closed; a change recomputes them.
    m_valorVenda->setText(rs.dinheiro(QStringLiteral("ValorVenda")).texto());
    m_valorPecas->setText(rs.dinheiro(QStringLiteral("ValorPecas")).texto());
    m_valorPagar->setText(rs.dinheiro(QStringLiteral("ValorPagar")).texto());
}

void OrdemVisita::atender()
{
    const bool sim = Dialogos::pergunta(this, QStringLiteral("Este cliente já foi atendido ?"));
    m_dataAtendida->setText(sim ? QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")) : QString());
    if (estado() == Estado::Navegacao)
        marcaAlterado();
}

// --- save ------------------------------------------------------------------------------

bool OrdemVisita::validaAntesDeGravar()
{
    // A cell still being typed is part of the save; one that can't be read stops it.
    if (!fechaEdicao())
        return false;
    if (!Visitas::dataAtendidaParaBanco(m_dataAtendida->text())) {
        Dialogos::mensagem(this, QStringLiteral("Data de atendimento inválida: ") + m_dataAtendida->text(), {},
                           Dialogos::Icone::Aviso);
        m_dataAtendida->setFocus();
        return false;
    }
    QString erro;
    int linha = -1;
    pecasDaGrade(&erro, &linha);
    if (!erro.isEmpty()) {
        Dialogos::mensagem(this, erro, {}, Dialogos::Icone::Aviso);
        m_grade->setCurrentCell(linha, Quant);
        return false;
    }
    recalcula();
    return true;
}

void OrdemVisita::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    rs.definir(QStringLiteral("CodCliente"), Campos::texto(m_codCliente));
    rs.definir(QStringLiteral("HoraSolicitada"), m_hora->time().toString(QStringLiteral("HH:mm")));
    const QString atendida = Visitas::dataAtendidaParaBanco(m_dataAtendida->text()).value_or(QString());
    rs.definir(QStringLiteral("DataAtendida"), atendida);
    rs.definirFlag(QStringLiteral("Atendida"), !atendida.isEmpty());
    if (m_tecnico->currentText().isEmpty())
        rs.definir(QStringLiteral("Tecnico"), sessao().UsuarioNome);
    const QList<Visitas::PecaVisita> pecas = pecasDaGrade();
    const Dinheiro maoObra = Visitas::lerValor(m_maoObra->text()).value_or(Dinheiro());
    const Visitas::Totais t = Visitas::totais(pecas, maoObra);
    rs.definir(QStringLiteral("ValorVenda"), t.venda);
    rs.definir(QStringLiteral("ValorPecas"), t.pecas);
    rs.definir(QStringLiteral("ValorPagar"), t.pagar);
    rs.definir(QStringLiteral("TipoFormulario"), QStringLiteral("Visita"));
    for (int i = 0; i < 4; ++i)
        rs.definirFlag(QLatin1String(Colunas[i]), m_andamento[i]->isChecked());
    if (novo())
        rs.definirFlag(QStringLiteral("Excluidos"), false);
    // The parts go in the save's transaction, under the number just given to a new visit.
    Visitas::gravarPecas(*banco(), rs.valor(QStringLiteral("CodManu")).toLongLong(), m_nome->text(), pecas);
}

void OrdemVisita::excluiDependentes(bool fisica)
{
    // In the bin the visit keeps its parts, so that it comes back whole.
    if (fisica)
        Visitas::excluirPecas(*banco(), m_codManuAtual);
}

// --- printing --------------------------------------------------------------------------

void OrdemVisita::imprimir(Destino::Tipo destino)
{
    if (!banco())
        return;
    if (chaveAtual() < 0 && !novo()) {
        Dialogos::mensagem(this, QStringLiteral("Sem registro"));
        return;
    }
    FichaVisita f;
    f.codManu = m_codManuAtual;
    f.dataSolicitada = m_data->date().toString(QStringLiteral("dd/MM/yyyy"));
    f.cliente = m_nome->text();
    f.enderecoTelefones = m_endTel->toPlainText();
    f.solicitacao = m_solicitacao->toPlainText();
    f.valorPecas = m_valorVenda->text();
    f.maoObra = m_maoObra->text();
    f.valorPago = m_valorPagar->text();
    f.dataAtendida = m_dataAtendida->text();
    if (destino == Destino::Tipo::Impressora) {
        Impressao::imprimeVisita(*banco(), f, this);
        return;
    }
    Destino d{destino, {}, false, this};
    d.nomeProposto = QStringLiteral("O.S Visita %1").arg(m_codManuAtual);
    Impressao::fichaVisita(*banco(), f, ConfigImpressao::copias(QStringLiteral("Visita")), d);
}

TOLDEX_REGISTRA_TELA(OrdemVisita)
