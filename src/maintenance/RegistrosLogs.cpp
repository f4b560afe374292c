#include "maintenance/RegistrosLogs.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlError>
#include <QSqlQueryModel>
#include <QTableView>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Dinheiro.h"
#include "data/FuncoesMascaras.h"
#include "data/Sessao.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using Lixeira::Modo;
using Lixeira::Registro;

namespace {
const QString Titulo = QStringLiteral("Manutenção de registros");
const int SlotLixeira = 5;
}

// The list's rows, fetched as the grid scrolls; cells shown as the registers show them.
class ModeloLixeira : public QSqlQueryModel {
public:
    using QSqlQueryModel::QSqlQueryModel;
    QStringList fontes;

    QVariant data(const QModelIndex& i, int papel) const override
    {
        const QVariant v = QSqlQueryModel::data(i, papel);
        if (papel != Qt::DisplayRole || i.column() == 0 || i.column() > fontes.size())
            return v;
        const QString fonte = fontes.at(i.column() - 1);
        if (fonte == QLatin1String("Excluidos"))
            return v.toInt() == -1 ? QStringLiteral("Excluido") : QStringLiteral("Não");
        if (fonte == QLatin1String("ValorPagar") || fonte == QLatin1String("PrecoVenda"))
            return Dinheiro::deCentavos(v.toLongLong()).texto();
        if (fonte == QLatin1String("Telefone"))
            return MascaraTelefone(v.toString());
        if (fonte == QLatin1String("DataSolicitada"))
            return QLatin1Char(' ') + Datas::bancoParaTela(v.toString());
        if (fonte.startsWith(QLatin1String("Data")))
            return Datas::bancoParaTela(v.toString());
        return v;
    }
};

RegistrosLogs::RegistrosLogs(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(Titulo);
    m_combo1 = new QComboBox(this);
    m_combo1->setObjectName(QStringLiteral("Combo1"));
    m_combo1->addItems({QStringLiteral("Registro de Ordem Serviço"), QStringLiteral("Registro de Clientes"),
                        QStringLiteral("Registro de Fornecedores"), QStringLiteral("Registro de Produtos"),
                        QStringLiteral("Registro de Visita Técnico"), QStringLiteral("Atividades usuários")});
    m_combo2 = new QComboBox(this);
    m_combo2->setObjectName(QStringLiteral("Combo2"));
    m_combo2->addItems({QStringLiteral("Excluidos"), QStringLiteral("Selecionar por data"), QStringLiteral("Selecionar por Cod")});
    m_inicio = new QDateEdit(QDate::currentDate(), this);
    m_inicio->setObjectName(QStringLiteral("DTInicio"));
    m_fim = new QDateEdit(QDate::currentDate(), this);
    m_fim->setObjectName(QStringLiteral("DTFim"));
    for (QDateEdit* d : {m_inicio, m_fim}) {
        d->setCalendarPopup(true);
        d->setDisplayFormat(Datas::FormatoTela);
    }
    for (int i = 0; i < 2; ++i) {
        m_codigo[i] = new QLineEdit(this);
        m_codigo[i]->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        m_codigo[i]->setMaxLength(9);
    }
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Grade"));
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setToolTip(QStringLiteral("Clique sobre o registro para removelo desta lista."));
    m_modelo = new ModeloLixeira(this);
    m_grade->setModel(m_modelo);
    const char* textos[4] = {"&Listar", "&Excluir permanentemente", "", "&Fechar"};
    for (int i = 0; i < 4; ++i) {
        m_botao[i] = new QPushButton(QString::fromUtf8(textos[i]), this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
    }
    m_botao[2]->hide();

    auto* topo = new QGridLayout;
    topo->addWidget(new QLabel(QStringLiteral("Registro:"), this), 0, 0);
    topo->addWidget(m_combo1, 0, 1);
    topo->addWidget(new QLabel(QStringLiteral("Seleção:"), this), 0, 2);
    topo->addWidget(m_combo2, 0, 3);
    topo->addWidget(m_inicio, 1, 1);
    topo->addWidget(m_fim, 1, 3);
    topo->addWidget(m_codigo[0], 2, 1);
    topo->addWidget(m_codigo[1], 2, 3);
    auto* botoes = new QHBoxLayout;
    botoes->addWidget(m_botao[0]);
    botoes->addWidget(m_botao[1]);
    botoes->addStretch(1);
    botoes->addWidget(m_botao[3]);
    auto* l = new QVBoxLayout(this);
    l->addLayout(topo);
    l->addWidget(m_grade, 1);
    auto* dica = new QLabel(QStringLiteral("Clique duas vezes sobre o registro para marcar ou desmarcar como excluído."), this);
    l->addWidget(dica);
    l->addLayout(botoes);
    setMinimumSize(880, 460);

    connect(m_combo2, &QComboBox::currentIndexChanged, this, &RegistrosLogs::mudarModo);
    connect(m_combo1, &QComboBox::currentIndexChanged, this, [this] { m_listaValida = false; });
    connect(m_botao[0], &QPushButton::clicked, this, &RegistrosLogs::listar);
    connect(m_botao[1], &QPushButton::clicked, this, &RegistrosLogs::purgar);
    connect(m_botao[3], &QPushButton::clicked, this, [this] {
        if (parentWidget() && parentWidget()->inherits("QMdiSubWindow"))
            parentWidget()->close();
        else
            close();
    });
    connect(m_grade, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { marcarLinha(i.row()); });
    mudarModo();
    Pintura::pinta(this);
}

RegistrosLogs::~RegistrosLogs()
{
    m_modelo->clear();
    Conexoes::fechaConexao(SlotLixeira);
}

Registro RegistrosLogs::registro() const { return static_cast<Registro>(m_combo1->currentIndex()); }
Modo RegistrosLogs::modo() const { return static_cast<Modo>(m_combo2->currentIndex()); }

void RegistrosLogs::mudarModo()
{
    const bool data = modo() == Modo::PorData, codigo = modo() == Modo::PorCodigo;
    m_inicio->setVisible(data);
    m_fim->setVisible(data);
    m_codigo[0]->setVisible(codigo);
    m_codigo[1]->setVisible(codigo);
    m_listaValida = false;
}

Banco* RegistrosLogs::banco()
{
    if (Banco* b = Conexoes::slot(SlotLixeira); b && b->aberto())
        return b;
    return Conexoes::abreConexao(SlotLixeira);
}

bool RegistrosLogs::lerFiltro(Lixeira::Filtro* f)
{
    f->modo = modo();
    f->inicio = m_inicio->date();
    f->fim = m_fim->date();
    if (f->modo == Modo::PorData && Lixeira::definicao(registro()).colunaData.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Este formulário não tem opçao de data."), Titulo);
        return false;
    }
    if (f->modo == Modo::PorCodigo) {
        bool ok1 = false, ok2 = false;
        f->de = m_codigo[0]->text().trimmed().toLongLong(&ok1);
        f->ate = m_codigo[1]->text().trimmed().toLongLong(&ok2);
        if (!ok1 || !ok2) {
            Dialogos::mensagem(this, QStringLiteral("Digite o primeiro e o último código da lista, somente com números."),
                               Titulo, Dialogos::Icone::Aviso);
            return false;
        }
    }
    return true;
}

void RegistrosLogs::listar()
{
    m_listaValida = false;
    m_modelo->clear();
    const Lixeira::Definicao& d = Lixeira::definicao(registro());
    if (registro() == Registro::Atividades) {
        Dialogos::mensagem(this, QStringLiteral("Não disponivel"), Titulo);
        m_modelo->fontes.clear();
        for (int i = 0; i < d.titulos.size(); ++i)
            m_modelo->insertColumn(i);
        setWindowTitle(d.legenda + QStringLiteral("0 encontrados"));
        return;
    }
    Lixeira::Filtro f;
    if (!lerFiltro(&f))
        return;
    Banco* b = banco();
    if (!b)
        return;
    QVariantList valores;
    const QString sql = Lixeira::consulta(registro(), f, &valores);
    try {
        const int total = b->escalar(QStringLiteral("SELECT COUNT(*) FROM (%1) lista").arg(sql), valores).toInt();
        QSqlQuery q(b->db());
        q.prepare(sql);
        for (int i = 0; i < valores.size(); ++i)
            q.bindValue(i, valores.at(i));
        if (!q.exec())
            throw ErroBanco(mensagemDeErro(q.lastError().text()), q.lastError().text());
        m_modelo->fontes = d.fontes;
        m_modelo->setQuery(std::move(q));
        QStringList titulos = d.titulos;
        if (d.ultimaECarimbo)
            titulos.last() = Lixeira::tituloUltima(f.modo);
        for (int i = 0; i < titulos.size(); ++i)
            m_modelo->setHeaderData(i + 1, Qt::Horizontal, titulos.at(i));
        m_grade->setColumnHidden(0, true);
        m_grade->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
        m_grade->setColumnWidth(2, 260);
        setWindowTitle(d.legenda + QString::number(total) + QStringLiteral(" encontrados"));
        m_listaValida = true;
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, Titulo, e.textoCompleto());
    }
}

void RegistrosLogs::marcarLinha(int linha)
{
    if (registro() == Registro::Atividades) {
        Dialogos::mensagem(this, QStringLiteral("Neste formulário esse recurso não é necessário"), Titulo);
        return;
    }
    if (!m_listaValida || linha < 0 || linha >= m_modelo->rowCount())
        return;
    const qint64 chave = m_modelo->QSqlQueryModel::data(m_modelo->index(linha, 0)).toLongLong();
    const QString codigo = m_modelo->data(m_modelo->index(linha, 1), Qt::DisplayRole).toString();
    const QString nome = m_modelo->data(m_modelo->index(linha, 2), Qt::DisplayRole).toString();
    const auto r = Dialogos::mensagem(this, codigo + QLatin1Char(' ') + nome + QStringLiteral("\nQuer marcar como excluido ?"),
                                      Titulo, Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
    if (r != Dialogos::Resposta::Sim && r != Dialogos::Resposta::Nao)
        return;
    Banco* b = banco();
    if (!b)
        return;
    try {
        Lixeira::marcar(*b, registro(), chave, r == Dialogos::Resposta::Sim, sessao().UsuarioNome);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return;
    }
    listar();
}

void RegistrosLogs::purgar()
{
    if (registro() == Registro::Atividades)
        return;
    listar();
    if (!m_listaValida || m_modelo->rowCount() == 0)
        return;
    if (!Dialogos::pergunta(this, QStringLiteral("Os registros serão excluidos permanentemente\n do banco de dados,quer continuar?"),
                            Titulo))
        return;
    Lixeira::Filtro f;
    if (!lerFiltro(&f))
        return;
    Banco* b = banco();
    if (!b)
        return;
    m_modelo->clear();
    try {
        Lixeira::purgar(*b, registro(), f);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registros,"), e.textoCompleto());
    }
    listar();
}

TOLDEX_REGISTRA_TELA(RegistrosLogs)
