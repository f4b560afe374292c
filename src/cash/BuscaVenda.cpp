#include "cash/BuscaVenda.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QSqlQuery>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/ErroBanco.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

// The sales newest first, read a page at a time as the list scrolls: each page starts
// after the last row read, so a shop with years of sales opens the picker at once.
class ModeloVendas : public QAbstractTableModel {
public:
    ModeloVendas(Banco& banco, QObject* pai) : QAbstractTableModel(pai), m_banco(banco) {}

    int rowCount(const QModelIndex& p = {}) const override { return p.isValid() ? 0 : int(m_linhas.size()); }
    int columnCount(const QModelIndex& p = {}) const override { return p.isValid() ? 0 : 4; }
    QVariant data(const QModelIndex& i, int papel) const override
    {
        if (papel != Qt::DisplayRole || !i.isValid())
            return {};
        const Venda& v = m_linhas.at(i.row());
        switch (i.column()) {
        case 0: return v.codVenda;
        case 1: return v.caixa;
        case 2: return Datas::bancoParaTela(v.data);
        default: return v.hora.isEmpty() ? QStringLiteral("1") : v.hora;  // a sale without a time, as it always showed
        }
    }
    QVariant headerData(int s, Qt::Orientation o, int papel) const override
    {
        static const QStringList t = {"Cod/Venda", "Caixa", "Data", "Hora"};
        return o == Qt::Horizontal && papel == Qt::DisplayRole ? QVariant(t.value(s)) : QVariant();
    }
    bool canFetchMore(const QModelIndex& p) const override { return !p.isValid() && !m_fim; }
    void fetchMore(const QModelIndex& p) override
    {
        if (p.isValid() || m_fim)
            return;
        QString sql = QStringLiteral("SELECT Codmov, CodVenda, Caixa, Data, Hora FROM Movimento");
        QVariantList valores;
        if (!m_linhas.isEmpty()) {
            sql += QStringLiteral(" WHERE Data < ? OR (Data = ? AND Codmov < ?)");
            valores = {m_linhas.last().data, m_linhas.last().data, m_linhas.last().chave};
        }
        sql += QStringLiteral(" ORDER BY Data DESC, Codmov DESC LIMIT %1").arg(Pagina);
        QList<Venda> novas;
        try {
            QSqlQuery q = m_banco.executar(sql, valores);
            while (q.next())
                novas << Venda{q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString(),
                               q.value(3).toString(), q.value(4).toString()};
        } catch (const ErroBanco&) {
            // A store gone away while scrolling: the list keeps what it has.
            m_fim = true;
            return;
        }
        m_fim = novas.size() < Pagina;
        if (novas.isEmpty())
            return;
        beginInsertRows({}, int(m_linhas.size()), int(m_linhas.size() + novas.size() - 1));
        m_linhas << novas;
        endInsertRows();
    }
    QString codVenda(int linha) const { return m_linhas.value(linha).codVenda; }
    QString dataBanco(int linha) const { return m_linhas.value(linha).data; }

private:
    struct Venda {
        qint64 chave;
        QString codVenda, caixa, data, hora;
    };
    static constexpr int Pagina = 200;
    Banco& m_banco;
    QList<Venda> m_linhas;
    bool m_fim = false;
};

BuscaVenda::BuscaVenda(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("BuscaVenda"));
    setWindowTitle(QStringLiteral("Escolher"));
    auto* raiz = new QVBoxLayout(this);
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Lista"));
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->verticalHeader()->hide();
    m_grade->installEventFilter(this);
    raiz->addWidget(m_grade);
    connect(m_grade, &QTableView::doubleClicked, this, [this](const QModelIndex& i) { escolhe(i.row()); });
    resize(420, 400);
    Pintura::pinta(this);

    QString erro;
    m_banco = Conexoes::nova(&erro);
    if (!m_banco)
        return;
    m_modelo = new ModeloVendas(*m_banco, this);
    m_modelo->fetchMore({});
    m_grade->setModel(m_modelo);
}

BuscaVenda::~BuscaVenda() = default;

void BuscaVenda::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    if ((!m_modelo || m_modelo->rowCount() == 0) && !m_avisado) {
        m_avisado = true;
        Dialogos::mensagem(this, QStringLiteral("Sem itens para escolher!"), QStringLiteral("Escolher"));
    }
}

void BuscaVenda::defineDestino(const QVariantMap& dados) { m_destino = dados.value(QStringLiteral("Destino")).toString(); }

void BuscaVenda::escolhe(int linha)
{
    if (!m_modelo || linha < 0 || linha >= m_modelo->rowCount())
        return;
    QWidget* destino = m_destino.isEmpty() ? nullptr : RegistroTelas::aberta(m_destino);
    auto* text3 = destino ? destino->findChild<QLineEdit*>(QStringLiteral("Text3")) : nullptr;
    auto* text4 = destino ? destino->findChild<QLineEdit*>(QStringLiteral("Text4")) : nullptr;
    if (text3 && text4) {
        text4->clear();
        text3->clear();
        text4->setText(m_modelo->dataBanco(linha));
        text3->setText(m_modelo->codVenda(linha));
    }
    RegistroTelas::fecharJanela(this);
}

bool BuscaVenda::eventFilter(QObject* alvo, QEvent* e)
{
    if (alvo == m_grade && e->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(e)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            escolhe(m_grade->currentIndex().row());
            return true;
        }
    }
    return QWidget::eventFilter(alvo, e);
}

TOLDEX_REGISTRA_TELA(BuscaVenda)
