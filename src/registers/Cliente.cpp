#include "registers/Cliente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSqlRecord>
#include <QTableWidget>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Dinheiro.h"
#include "data/Funcoes.h"
#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "orders/TelasOrdem.h"
#include "orders/HistoricoAparelho.h"
#include "registers/BuscaClientes.h"
#include "registers/CamposDocumento.h"
#include "registers/EntregaTelas.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

namespace {

enum Campo { Nome, Endereco, Numero, Complemento, Bairro, Cep, Cidade, Telefone, TelFax, Celular, CnpjCpf, RgIe,
             Email, Site, NumCampos };

const QStringList Estados = {"AC", "AL", "AP", "AM", "BA", "CE", "DF", "ES", "GO", "MA", "MT", "MS", "MG", "PA",
                             "PB", "PR", "PE", "PI", "RJ", "RN", "RS", "RO", "RR", "SC", "SP", "SE", "TO"};

QString textoOuVazio(const QSqlRecord& r, const QString& col) { return r.value(col).toString(); }

} // namespace

Cliente::Cliente(QWidget* pai) : TelaCadastro(pai)
{
    auto* g = new QGridLayout(corpo());
    auto rotulo = [this](const QString& t) { return new QLabel(t, corpo()); };
    auto linha = [this](int i) {
        auto* le = new QLineEdit(corpo());
        le->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        m_textos << le;
        return le;
    };

    m_buscaCodigo = new QLineEdit(corpo());
    m_buscaCodigo->setObjectName(QStringLiteral("Text2"));
    m_buscaCodigo->setToolTip(QStringLiteral("Digite o código do cliente"));
    m_buscaNome = new QLineEdit(corpo());
    m_buscaNome->setObjectName(QStringLiteral("Text3"));
    m_buscaNome->setToolTip(QStringLiteral("Digite o nome do cliente"));
    g->addWidget(rotulo(QStringLiteral("Pesquisar código")), 0, 0);
    g->addWidget(m_buscaCodigo, 0, 1);
    g->addWidget(rotulo(QStringLiteral("Nome")), 0, 2);
    g->addWidget(m_buscaNome, 0, 3, 1, 3);

    m_codigo = new QLabel(corpo());
    m_codigo->setObjectName(QStringLiteral("Label2(0)"));
    m_codigo->setMinimumWidth(80);
    m_dataCadastro = new QLabel(corpo());
    m_dataCadastro->setObjectName(QStringLiteral("Label2(1)"));
    m_dataCadastro->setMinimumWidth(80);
    g->addWidget(rotulo(QStringLiteral("Código")), 1, 0);
    g->addWidget(m_codigo, 1, 1);
    g->addWidget(rotulo(QStringLiteral("Data cadastro")), 1, 2);
    g->addWidget(m_dataCadastro, 1, 3);

    for (int i = 0; i < NumCampos; ++i)
        linha(i);
    m_estado = new QComboBox(corpo());
    m_estado->setObjectName(QStringLiteral("Combo1"));
    m_estado->setEditable(true);
    m_estado->addItems(Estados);
    m_observacao = new QPlainTextEdit(corpo());
    m_observacao->setObjectName(QStringLiteral("Text1(%1)").arg(NumCampos));
    m_observacao->setMaximumHeight(70);
    m_bloqueado = new QCheckBox(QStringLiteral("Bloquear cliente"), corpo());
    m_bloqueado->setObjectName(QStringLiteral("Check1"));

    g->addWidget(rotulo(QStringLiteral("Nome")), 2, 0);
    g->addWidget(texto(Nome), 2, 1, 1, 5);
    g->addWidget(rotulo(QStringLiteral("Endereço")), 3, 0);
    g->addWidget(texto(Endereco), 3, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Número")), 3, 4);
    g->addWidget(texto(Numero), 3, 5);
    g->addWidget(rotulo(QStringLiteral("Complemento")), 4, 0);
    g->addWidget(texto(Complemento), 4, 1);
    g->addWidget(rotulo(QStringLiteral("Bairro")), 4, 2);
    g->addWidget(texto(Bairro), 4, 3);
    g->addWidget(rotulo(QStringLiteral("CEP")), 4, 4);
    g->addWidget(texto(Cep), 4, 5);
    g->addWidget(rotulo(QStringLiteral("Cidade")), 5, 0);
    g->addWidget(texto(Cidade), 5, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Estado")), 5, 4);
    g->addWidget(m_estado, 5, 5);
    g->addWidget(rotulo(QStringLiteral("Telefone")), 6, 0);
    g->addWidget(texto(Telefone), 6, 1);
    g->addWidget(rotulo(QStringLiteral("Telefone/Fax")), 6, 2);
    g->addWidget(texto(TelFax), 6, 3);
    g->addWidget(rotulo(QStringLiteral("Celular")), 6, 4);
    g->addWidget(texto(Celular), 6, 5);
    g->addWidget(rotulo(QStringLiteral("CPF/CNPJ")), 7, 0);
    g->addWidget(texto(CnpjCpf), 7, 1);
    g->addWidget(rotulo(QStringLiteral("RG/I.E")), 7, 2);
    g->addWidget(texto(RgIe), 7, 3);
    g->addWidget(m_bloqueado, 7, 4, 1, 2);
    g->addWidget(rotulo(QStringLiteral("Correio eletrônico")), 8, 0);
    g->addWidget(texto(Email), 8, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Site/Blog")), 9, 0);
    g->addWidget(texto(Site), 9, 1, 1, 3);
    g->addWidget(rotulo(QStringLiteral("Observação")), 10, 0);
    g->addWidget(m_observacao, 10, 1, 1, 5);

    // After the hidden key: the dates, defect, service and warranty of each order.
    const QStringList historico = HistoricoAparelho::colunas().mid(1);
    m_grade = new QTableWidget(0, 6 + historico.size(), corpo());
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setHorizontalHeaderLabels(QStringList{QStringLiteral("O.S"), QStringLiteral("Tipo"), QStringLiteral("Marca"),
                                                   QStringLiteral("Série"), QStringLiteral("Valor"),
                                                   QStringLiteral("CodOsAut")}
                                       + historico);
    const int larguras[] = {60, 140, 100, 120, 70};
    for (int c = 0; c < 5; ++c)
        m_grade->setColumnWidth(c, larguras[c]);
    m_grade->setColumnHidden(5, true);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->verticalHeader()->hide();
    m_grade->installEventFilter(this);
    g->addWidget(m_grade, 11, 0, 1, 6);
    g->setRowStretch(11, 1);
    connect(m_grade, &QTableWidget::cellDoubleClicked, this, [this](int l) { abreOrdem(l); });

    auto* b2 = adicionaBotao(QStringLiteral("Nova &O.S"), QStringLiteral("Abre uma ordem de serviço para este cliente"));
    auto* b3 = adicionaBotao(QStringLiteral("Nova &visita"), QStringLiteral("Abre uma visita técnica para este cliente"));
    adicionaBotao(QStringLiteral("Fecha&r"), QStringLiteral("Fecha o cadastro"));
    connect(b2, &QPushButton::clicked, this, &Cliente::novaOrdem);
    connect(b3, &QPushButton::clicked, this, &Cliente::novaVisita);

    CamposDocumento::preparaCnpjCpf(texto(CnpjCpf));
    for (int i : {Telefone, TelFax, Celular})
        CamposDocumento::preparaTelefone(texto(i));
    CamposDocumento::preparaCep(texto(Cep));
    connect(m_buscaCodigo, &QLineEdit::textChanged, this, &Cliente::buscaPelasCaixas);
    connect(m_buscaNome, &QLineEdit::textChanged, this, &Cliente::buscaPelasCaixas);

    using T = CampoCadastro::Tipo;
    def().tabela = QStringLiteral("Cliente");
    def().titulo = QStringLiteral("Cadastro de cliente");
    def().colunaCodigo = QStringLiteral("CodCliente");
    def().colunaCarimbo = QStringLiteral("Alterado");
    def().colunaDataCadastro = QStringLiteral("DataCadastro");
    def().direito = QStringLiteral("DireitoClienteAl");
    def().senhaOrigem = QStringLiteral("Cliente");
    def().obrigatorio = texto(Nome);
    def().mensagemObrigatorio = QStringLiteral("Coloque o nome do cliente");
    def().condicaoBuscaViva = BuscaClientes::codigoENome;
    campos() = {{m_codigo, QStringLiteral("CodCliente"), T::Exibicao},
                {texto(Nome), QStringLiteral("NomeCliente"), T::Texto},
                {texto(Endereco), QStringLiteral("Endereco"), T::Texto},
                {texto(Numero), QStringLiteral("Numero"), T::Texto},
                {texto(Complemento), QStringLiteral("Complemento"), T::Texto},
                {texto(Bairro), QStringLiteral("Bairro"), T::Texto},
                {texto(Cep), QStringLiteral("Cep"), T::Texto},
                {texto(Cidade), QStringLiteral("Cidade"), T::Texto},
                {m_estado, QStringLiteral("Estado"), T::Texto},
                {texto(Telefone), QStringLiteral("Telefone"), T::Texto},
                {texto(TelFax), QStringLiteral("TelFax"), T::Texto},
                {texto(Celular), QStringLiteral("Celular"), T::Texto},
                {texto(CnpjCpf), QStringLiteral("CnpjCpf"), T::Texto},
                {texto(RgIe), QStringLiteral("RGIE"), T::Texto},
                {texto(Email), QStringLiteral("Email"), T::Texto},
                {texto(Site), QStringLiteral("SiteBlog"), T::Texto},
                {m_observacao, QStringLiteral("Observacao"), T::Texto},
                {m_dataCadastro, QStringLiteral("DataCadastro"), T::Exibicao},
                {m_bloqueado, QStringLiteral("BloqCliente"), T::Flag}};
    resize(760, 640);
    iniciar();
}

QString Cliente::telaNovaOrdem()
{
    return TelasOrdem::novaOrdem();
}

QString Cliente::telaOrdemExistente()
{
    return TelasOrdem::daOrdem(QStringLiteral("OrdemServicoSaida"));
}

void Cliente::abrirNoModo(const QString& modo)
{
    if (modo == QLatin1String("Novo") && estado() == Estado::Navegacao)
        incluirOuCancelar();
}

void Cliente::mostraCliente(const QString& codigo, const QString& nome)
{
    // A register left open with typed changes keeps them: the search's choice would
    // otherwise replace them without a word.
    if (alterado()) {
        Dialogos::mensagem(this, QStringLiteral("Salve ou cancele a alteração do cadastro antes de abrir outro cliente."));
        return;
    }
    const QSignalBlocker bloqueio(m_buscaCodigo);
    m_buscaCodigo->setText(codigo);
    m_buscaNome->setText(nome);  // one search, on both boxes
}

void Cliente::buscaPelasCaixas()
{
    buscaViva(m_buscaCodigo->text() + m_buscaNome->text());
}

bool Cliente::botaoDisponivel(int indice) const
{
    if (indice == 2)
        return EntregaTelas::disponivel(telaNovaOrdem());
    if (indice == 3)
        return EntregaTelas::disponivel(QStringLiteral("OrdemVisita"));
    return true;
}

void Cliente::limpaCampos()
{
    TelaCadastro::limpaCampos();
    CamposDocumento::mostraCnpjCpf(texto(CnpjCpf), QString());
    m_grade->setRowCount(0);
    m_alteradoPor.clear();
    m_ordens = 0;
}

void Cliente::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    m_dataCadastro->setText(Datas::bancoParaTela(rs.texto(QStringLiteral("DataCadastro"))));
    texto(Cep)->setText(MascaraCep(rs.texto(QStringLiteral("Cep"))));
    texto(Telefone)->setText(MascaraTelefone(rs.texto(QStringLiteral("Telefone"))));
    texto(TelFax)->setText(MascaraTelefone(rs.texto(QStringLiteral("TelFax"))));
    texto(Celular)->setText(MascaraTelefone(rs.texto(QStringLiteral("Celular"))));
    CamposDocumento::mostraCnpjCpf(texto(CnpjCpf), rs.texto(QStringLiteral("CnpjCpf")));
    m_alteradoPor = rs.texto(QStringLiteral("Alterado"));

    m_grade->setRowCount(0);
    QList<QSqlRecord> ordens;
    int dias = 0;
    try {
        ordens = BuscaClientes::ordensDoCliente(*banco(), rs.texto(QStringLiteral("CodCliente")));
        dias = HistoricoAparelho::diasGarantia(*banco());
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    m_ordens = ordens.size();
    m_grade->setRowCount(m_ordens);
    for (int r = 0; r < m_ordens; ++r) {
        const QSqlRecord& o = ordens[r];
        const QStringList celulas = QStringList{textoOuVazio(o, QStringLiteral("CodOs")), textoOuVazio(o, QStringLiteral("Tipo")),
                                     textoOuVazio(o, QStringLiteral("Marca")), textoOuVazio(o, QStringLiteral("NumeroSerie")),
                                     Dinheiro::deCentavos(o.value(QStringLiteral("ValorPagar")).toLongLong()).texto(),
                                     textoOuVazio(o, QStringLiteral("CodOsAut"))}
            + HistoricoAparelho::celulas(HistoricoAparelho::deRegistro(o, dias, QDate::currentDate())).mid(1);
        for (int c = 0; c < celulas.size(); ++c)
            m_grade->setItem(r, c, new QTableWidgetItem(celulas[c]));
    }
}

void Cliente::aposMostrar()
{
    // The misspelt label of a customer with no order has always looked that way.
    const QString rotulo = m_ordens > 0 ? QStringLiteral("   -  Alterado por: ") : QStringLiteral("   -  Aletrado por: ");
    setWindowTitle(QStringLiteral("Cadastro de cliente    %1   registros  --  Histórico Cliente %2%3%4")
                       .arg(total()).arg(m_ordens).arg(rotulo, m_alteradoPor));
}

bool Cliente::validaAntesDeGravar()
{
    // A number typed and saved without leaving the field gets the same check.
    return CamposDocumento::checaSeDigitado(texto(CnpjCpf));
}

void Cliente::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    rs.definir(QStringLiteral("Cep"), CamposDocumento::paraGravar(texto(Cep)->text(), MascaraCep));
    rs.definir(QStringLiteral("Telefone"), CamposDocumento::paraGravar(texto(Telefone)->text(), MascaraTelefone));
    rs.definir(QStringLiteral("TelFax"), CamposDocumento::paraGravar(texto(TelFax)->text(), MascaraTelefone));
    rs.definir(QStringLiteral("Celular"), CamposDocumento::paraGravar(texto(Celular)->text(), MascaraTelefone));
    rs.definir(QStringLiteral("CnpjCpf"), CamposDocumento::paraGravar(texto(CnpjCpf)->text(), MascaraCnpjCpf));
}

void Cliente::novaOrdem()
{
    QVariantMap d{{QStringLiteral("CodCliente"), m_codigo->text()}, {QStringLiteral("NomeCliente"), texto(Nome)->text()}};
    if (telaNovaOrdem() == QLatin1String("OrdemServicoEntrada")) {
        d.insert(QStringLiteral("CnpjCpf"), texto(CnpjCpf)->text());
        d.insert(QStringLiteral("Endereco"), texto(Endereco)->text() + QLatin1Char('-') + texto(Complemento)->text());
        d.insert(QStringLiteral("Numero"), texto(Numero)->text());
        d.insert(QStringLiteral("Bairro"), texto(Bairro)->text());
        d.insert(QStringLiteral("Cidade"), texto(Cidade)->text());
        d.insert(QStringLiteral("Telefone"), texto(Telefone)->text());
        d.insert(QStringLiteral("Celular"), texto(Celular)->text());
    }
    EntregaTelas::abrirCom(telaNovaOrdem(), EntregaTelas::NovoComCliente, d);
}

void Cliente::novaVisita()
{
    const QVariantMap d{
        {QStringLiteral("CodCliente"), m_codigo->text()},
        {QStringLiteral("NomeCliente"), texto(Nome)->text()},
        {QStringLiteral("Contato"), QStringLiteral("Tel: ") + texto(Telefone)->text() + QStringLiteral("Cel: ")
                                        + texto(Celular)->text()},
        {QStringLiteral("EnderecoCompleto"),
         texto(Endereco)->text() + QStringLiteral(" nº ") + texto(Numero)->text() + QLatin1Char('-')
             + texto(Complemento)->text() + QLatin1Char('-') + texto(Bairro)->text() + QLatin1Char('-')
             + texto(Cep)->text() + QLatin1Char('-') + texto(Cidade)->text() + QLatin1Char('/') + m_estado->currentText()}};
    EntregaTelas::abrirCom(QStringLiteral("OrdemVisita"), EntregaTelas::NovoComCliente, d);
}

void Cliente::abreOrdem(int linha)
{
    if (linha < 0 || linha >= m_grade->rowCount() || !EntregaTelas::disponivel(telaOrdemExistente()))
        return;
    EntregaTelas::abrirCom(telaOrdemExistente(), EntregaTelas::MostraOrdem,
                           {{QStringLiteral("CodOs"), m_grade->item(linha, 0)->text()},
                            {QStringLiteral("CodOsAut"), m_grade->item(linha, 5)->text()},
                            {QStringLiteral("CodCliente"), m_codigo->text()},
                            {QStringLiteral("NomeCliente"), texto(Nome)->text()}});
}

bool Cliente::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_grade && e->type() == QEvent::KeyPress) {
        const int k = static_cast<QKeyEvent*>(e)->key();
        if (k == Qt::Key_Return || k == Qt::Key_Enter) {
            abreOrdem(m_grade->currentRow());
            return true;
        }
    }
    return TelaCadastro::eventFilter(alvo, e);
}

TOLDEX_REGISTRA_TELA(Cliente)
