#include "documents/PlanilhaXlsx.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <xlsxwriter.h>

PlanilhaXlsx::PlanilhaXlsx() = default;

PlanilhaXlsx::~PlanilhaXlsx() { descartar(); }

bool PlanilhaXlsx::abrir(const QString& arquivo, const QString& nomeFolha, QString* erro)
{
    descartar();
    m_arquivo = arquivo;
    const QFileInfo info(arquivo);
    const QString pasta = QDir::toNativeSeparators(info.absolutePath());
    // The temporary file is made now, in the target's folder, so that a folder without
    // write access is told before any row is read, and the final rename never crosses disks.
    QTemporaryFile tmp(info.absoluteDir().filePath(QStringLiteral(".%1-XXXXXX.tmp").arg(info.completeBaseName())));
    tmp.setAutoRemove(false);
    if (!info.absoluteDir().exists() || !tmp.open()) {
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar a planilha na pasta \"%1\".\n"
                                   "Verifique se a pasta existe e se você pode gravar nela.").arg(pasta);
        return false;
    }
    tmp.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    m_temporario = tmp.fileName();
    tmp.close();
    m_temporarioLocal = QFile::encodeName(m_temporario);
    lxw_workbook_options opcoes{};
    opcoes.constant_memory = LXW_TRUE;
    m_livro = workbook_new_opt(m_temporarioLocal.constData(), &opcoes);
    if (m_livro) {
        m_nomeFolha = nomeFolha.toUtf8();
        m_folha = workbook_add_worksheet(m_livro, m_nomeFolha.constData());
    }
    if (!m_livro || !m_folha) {
        descartar();
        if (erro)
            *erro = QStringLiteral("Não foi possível criar a planilha (falta memória).");
        return false;
    }
    return true;
}

lxw_format* PlanilhaXlsx::formato(const Estilo& e)
{
    // Asked for once per cell: the key is a number, not a text.
    const quint64 chave = quint64(e.numero) | quint64(e.negrito) << 1 | quint64(e.borda) << 2
        | quint64(e.fundo.isValid()) << 3 | quint64(e.fundo.isValid() ? e.fundo.rgb() : 0u) << 4;
    if (lxw_format* f = m_formatos.value(chave))
        return f;
    lxw_format* f = workbook_add_format(m_livro);
    if (e.numero)
        format_set_num_format(f, "#,##0.00");
    if (e.negrito)
        format_set_bold(f);
    if (e.borda)
        format_set_border(f, LXW_BORDER_THIN);
    if (e.fundo.isValid()) {
        format_set_pattern(f, LXW_PATTERN_SOLID);
        format_set_bg_color(f, e.fundo.rgb() & 0xFFFFFF);
    }
    m_formatos.insert(chave, f);
    return f;
}

void PlanilhaXlsx::texto(int linha, int coluna, const QString& valor, const Estilo& estilo)
{
    if (!m_folha)
        return;
    // An empty cell still carries its borders and fill.
    if (valor.isEmpty())
        worksheet_write_blank(m_folha, linha, coluna, formato(estilo));
    else
        worksheet_write_string(m_folha, linha, coluna, valor.toUtf8().constData(), formato(estilo));
}

void PlanilhaXlsx::numero(int linha, int coluna, double valor, const Estilo& estilo)
{
    if (!m_folha)
        return;
    Estilo e = estilo;
    e.numero = true;
    worksheet_write_number(m_folha, linha, coluna, valor, formato(e));
}

void PlanilhaXlsx::largura(int coluna, double caracteres)
{
    if (m_folha)
        worksheet_set_column(m_folha, coluna, coluna, caracteres, nullptr);
}

void PlanilhaXlsx::congelar(int linhas, int colunas)
{
    if (m_folha)
        worksheet_freeze_panes(m_folha, linhas, colunas);
}

void PlanilhaXlsx::filtro(int primeiraLinha, int primeiraColuna, int ultimaLinha, int ultimaColuna)
{
    if (m_folha)
        worksheet_autofilter(m_folha, primeiraLinha, primeiraColuna, ultimaLinha, ultimaColuna);
}

bool PlanilhaXlsx::novaFolha(const QString& nome)
{
    if (!m_livro)
        return false;
    // The name must outlive the calls that refer to the sheet by it (the chart's ranges).
    m_nomeFolha = nome.toUtf8();
    m_folha = workbook_add_worksheet(m_livro, m_nomeFolha.constData());
    return m_folha != nullptr;
}

void PlanilhaXlsx::grafico(const QString& titulo, int primeira, int ultima, int rotulos, const QList<int>& empilhadas,
                           int linha, int naLinha, int naColuna)
{
    if (!m_livro || !m_folha || ultima < primeira)
        return;
    const char* folha = m_nomeFolha.constData();
    auto serie = [&](lxw_chart* g, int coluna) {
        lxw_chart_series* s = chart_add_series(g, nullptr, nullptr);
        chart_series_set_categories(s, folha, primeira, rotulos, ultima, rotulos);
        chart_series_set_values(s, folha, primeira, coluna, ultima, coluna);
        chart_series_set_name_range(s, folha, primeira - 1, coluna);
    };
    lxw_chart* barras = workbook_add_chart(m_livro, LXW_CHART_COLUMN_STACKED);
    for (int c : empilhadas)
        serie(barras, c);
    m_titulosGrafico = titulo.toUtf8();
    chart_title_set_name(barras, m_titulosGrafico.constData());
    chart_axis_set_num_format(barras->y_axis, "#,##0.00");
    chart_legend_set_position(barras, LXW_CHART_LEGEND_BOTTOM);
    lxw_chart_options opcoes{};
    opcoes.x_scale = 2.2;
    opcoes.y_scale = 1.4;
    worksheet_insert_chart_opt(m_folha, naLinha, naColuna, barras, &opcoes);
    // This library draws no line over bars in one chart: the line goes right below, on
    // the same days.
    lxw_chart* curva = workbook_add_chart(m_livro, LXW_CHART_LINE);
    serie(curva, linha);
    chart_axis_set_num_format(curva->y_axis, "#,##0.00");
    chart_legend_set_position(curva, LXW_CHART_LEGEND_BOTTOM);
    opcoes.y_scale = 1.0;
    worksheet_insert_chart_opt(m_folha, naLinha + 22, naColuna, curva, &opcoes);
}

bool PlanilhaXlsx::concluir(QString* erro)
{
    if (!m_livro)
        return false;
    const lxw_error r = workbook_close(m_livro);
    m_livro = nullptr;
    m_folha = nullptr;
    m_formatos.clear();
    if (r != LXW_NO_ERROR) {
        QFile::remove(m_temporario);
        m_temporario.clear();
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar a planilha \"%1\" (%2).\nVerifique se há espaço no disco.")
                        .arg(QDir::toNativeSeparators(m_arquivo), QString::fromUtf8(lxw_strerror(r)));
        return false;
    }
    // The earlier file is replaced in one step, only once the new one is whole.
    if (std::rename(m_temporarioLocal.constData(), QFile::encodeName(m_arquivo).constData()) != 0) {
        QFile::remove(m_temporario);
        m_temporario.clear();
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar a planilha \"%1\".").arg(QDir::toNativeSeparators(m_arquivo));
        return false;
    }
    m_temporario.clear();
    return true;
}

void PlanilhaXlsx::descartar()
{
    if (m_livro) {
        // libxlsxwriter has no way to drop a book: it is written out and removed.
        workbook_close(m_livro);
        m_livro = nullptr;
        m_folha = nullptr;
    }
    m_formatos.clear();
    if (!m_temporario.isEmpty()) {
        QFile::remove(m_temporario);
        m_temporario.clear();
    }
}
