#include "ui/ModeloPesquisa.h"

#include <QTimer>

#include "data/ErroBanco.h"
#include "data/PaginasBusca.h"

ModeloPesquisa::ModeloPesquisa(QObject* pai) : QAbstractTableModel(pai) {}

ModeloPesquisa::~ModeloPesquisa() = default;

void ModeloPesquisa::defineColunas(const QList<Coluna>& colunas, Celula celula)
{
    beginResetModel();
    m_colunas = colunas;
    m_celula = std::move(celula);
    endResetModel();
}

void ModeloPesquisa::abrir(std::unique_ptr<PaginasBusca> paginas, Contagem contagem)
{
    beginResetModel();
    ++m_geracao;
    m_contagemPendente = false;
    m_convite.clear();
    m_linhas.clear();
    m_total = 0;
    m_paginas.reset();
    try {
        if (contagem == Contagem::Antes)
            m_total = paginas->contar();
        m_linhas = paginas->proximas(TamanhoPagina);
        if (paginas->fim())
            m_total = m_linhas.size();
        else if (contagem == Contagem::Depois) {
            m_total = m_linhas.size();
            m_contagemPendente = true;
        }
        m_paginas = std::move(paginas);
    } catch (...) {
        m_linhas.clear();
        m_total = 0;
        m_contagemPendente = false;
        endResetModel();
        throw;
    }
    endResetModel();
    if (m_contagemPendente) {
        // After the grid has painted the first page: a zero timer would often come first.
        QTimer::singleShot(1, this, [this, geracao = m_geracao] {
            if (geracao != m_geracao)
                return;
            if (!m_contagemPendente || conta())
                emit contou();
        });
    }
}

bool ModeloPesquisa::conta()
{
    m_contagemPendente = false;
    qint64 n = 0;
    try {
        n = m_paginas->contar();
    } catch (const ErroBanco& e) {
        const QString msg = e.textoCompleto();
        QTimer::singleShot(0, this, [this, msg] { emit falhou(msg); });
        return false;
    }
    // Rows another station added since the page was read are counted; rows it removed end
    // the grid where the reading does (garante).
    if (n > m_total) {
        beginInsertRows({}, int(m_total), int(n - 1));
        m_total = n;
        endInsertRows();
    }
    return true;
}

qint64 ModeloPesquisa::total() const
{
    if (m_contagemPendente)
        const_cast<ModeloPesquisa*>(this)->conta();  // an exact answer, never the rows read so far
    return m_total;
}

void ModeloPesquisa::convite(const QString& texto)
{
    beginResetModel();
    ++m_geracao;
    m_contagemPendente = false;
    m_paginas.reset();
    m_linhas.clear();
    m_total = 0;
    m_convite = texto;
    endResetModel();
}

void ModeloPesquisa::limpar() { convite(QString()); }

bool ModeloPesquisa::garante(int linha) const
{
    if (linha < 0 || linha >= m_total)
        return false;
    auto* self = const_cast<ModeloPesquisa*>(this);  // reading further is not a change
    while (linha >= m_linhas.size() && m_paginas && !m_paginas->fim() && !m_encurtar) {
        // A jump far down (the scroll bar dragged to the end) reads the rows between in
        // bigger pages.
        const int falta = linha + 1 - int(m_linhas.size());
        try {
            m_linhas += m_paginas->proximas(qMax(TamanhoPagina, qMin(falta, TamanhoPagina * 10)));
        } catch (const ErroBanco& e) {
            m_encurtar = true;
            const QString msg = e.textoCompleto();
            QTimer::singleShot(0, self, [self, msg] {
                self->encurta();
                emit self->falhou(msg);
            });
            return false;
        }
    }
    if (linha >= m_linhas.size() && !m_encurtar) {
        // Another station removed rows since the count: the grid ends where they do. The
        // model can't change its size while the grid is painting, so it does so next.
        m_encurtar = true;
        QTimer::singleShot(0, self, [self] { self->encurta(); });
    }
    return linha < m_linhas.size();
}

void ModeloPesquisa::encurta()
{
    m_encurtar = false;
    if (m_total <= m_linhas.size())
        return;
    beginRemoveRows({}, int(m_linhas.size()), int(m_total - 1));
    m_total = m_linhas.size();
    endRemoveRows();
}

QVariant ModeloPesquisa::valor(int linha, const QString& coluna) const
{
    if (!m_paginas || !garante(linha))
        return {};
    const QStringList& nomes = m_paginas->colunas();
    for (int i = 0; i < nomes.size(); ++i)
        if (nomes[i].compare(coluna, Qt::CaseInsensitive) == 0)
            return m_linhas.at(linha).value(i);
    return {};
}

QSqlRecord ModeloPesquisa::registro(int linha) const
{
    if (!m_paginas || !garante(linha))
        return {};
    return m_paginas->registro(m_paginas->chaveDe(m_linhas.at(linha)));
}

int ModeloPesquisa::rowCount(const QModelIndex& pai) const
{
    if (pai.isValid())
        return 0;
    if (!m_convite.isEmpty())
        return 1;
    return int(m_total);
}

int ModeloPesquisa::columnCount(const QModelIndex& pai) const
{
    return pai.isValid() ? 0 : int(m_colunas.size());
}

QVariant ModeloPesquisa::data(const QModelIndex& indice, int papel) const
{
    if (papel != Qt::DisplayRole || !indice.isValid())
        return {};
    if (!m_convite.isEmpty())
        return indice.column() == 0 ? QVariant(m_convite) : QVariant();
    if (!garante(indice.row()))
        return {};
    const QVariant v = m_linhas.at(indice.row()).value(indice.column());
    if (v.isNull())
        return QString();  // a NULL number reads as 0 from some drivers: shown empty, as NULL always is
    return m_celula ? m_celula(m_colunas[indice.column()].coluna, v) : v.toString();
}

QVariant ModeloPesquisa::headerData(int secao, Qt::Orientation orientacao, int papel) const
{
    if (papel == Qt::DisplayRole && orientacao == Qt::Horizontal && secao >= 0 && secao < m_colunas.size())
        return m_colunas[secao].titulo;
    return QAbstractTableModel::headerData(secao, orientacao, papel);
}
