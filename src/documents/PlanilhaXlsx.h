#pragma once
#include <QColor>
#include <QHash>
#include <QString>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

// How a cell looks: a number shows "#,##0.00"; `fundo` fills it (a list's
// highlight); every cell but the title has thin borders.
struct EstiloPlanilha {
    bool numero = false;
    bool negrito = false;
    bool borda = true;
    QColor fundo;  // invalid: no fill
};


// A spreadsheet written as an .xlsx file, one sheet, row after row (the rows are streamed
// to disk, so a list of fifty thousand products costs little memory). The file is built
// under a temporary name beside the target and takes the target's name only when it is
// complete: a cancelled or failed export leaves no file behind and an earlier one intact.
class PlanilhaXlsx {
public:
    using Estilo = EstiloPlanilha;

    PlanilhaXlsx();
    ~PlanilhaXlsx();
    PlanilhaXlsx(const PlanilhaXlsx&) = delete;
    PlanilhaXlsx& operator=(const PlanilhaXlsx&) = delete;

    // False, with a message in Portuguese, when the folder can't take the file.
    bool abrir(const QString& arquivo, const QString& nomeFolha, QString* erro);

    void texto(int linha, int coluna, const QString& valor, const Estilo& estilo = {});
    void numero(int linha, int coluna, double valor, const Estilo& estilo = {});
    void largura(int coluna, double caracteres);
    // Rows above `linhas` and columns left of `colunas` stay in view as the sheet scrolls.
    void congelar(int linhas, int colunas);
    void filtro(int primeiraLinha, int primeiraColuna, int ultimaLinha, int ultimaColuna);

    // Starts another sheet; the cells written from now on go to it.
    bool novaFolha(const QString& nome);
    // A chart over the current sheet's rows `primeira` to `ultima`: the categories in
    // column `rotulos`, the columns `empilhadas` as stacked bars placed at (`naLinha`,
    // `naColuna`) and `linha` as a line right below them, the series named by the cells
    // above `primeira`.
    void grafico(const QString& titulo, int primeira, int ultima, int rotulos, const QList<int>& empilhadas,
                 int linha, int naLinha, int naColuna);

    // Writes the file and gives it its name; false with a message when it couldn't (a full
    // disk), and then nothing of it stays.
    bool concluir(QString* erro);
    // Gives up: the temporary file goes, the target is left as it was.
    void descartar();

    const QString& arquivo() const { return m_arquivo; }

private:
    lxw_format* formato(const Estilo& estilo);

    lxw_workbook* m_livro = nullptr;
    lxw_worksheet* m_folha = nullptr;
    QByteArray m_nomeFolha;
    QByteArray m_titulosGrafico;
    QHash<quint64, lxw_format*> m_formatos;
    QString m_arquivo;
    QString m_temporario;
    QByteArray m_temporarioLocal;
};
