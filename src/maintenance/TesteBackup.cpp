#include "maintenance/TesteBackup.h"

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include "data/ArquivoIni.h"
#include "data/Sessao.h"
#include "maintenance/ArquivoBackup.h"
#include "maintenance/CopiaPostgres.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {

const QString Titulo = QStringLiteral("Teste cópia de segurança");

struct Lista {
    const char* entrada;
    const char* tabela;
    const char* ordem;
    const char* legenda;
};

// "Movimento" lists the sale details under the customers' caption, as it always has.
const Lista Listas[] = {
    {"Agenda", "Contato", "Cod", "Lista de Backup Contatos - "},
    {"Cliente", "Cliente", "CodCliente", "Lista de Backup Clientes - "},
    {"Fornecedor", "Fornecedor", "CodFornecedor", "Lista de Backup Fornecedor - "},
    {"Ordem Serviço", "OrdemServico", "CodOs", "Lista de Backup Ordem Serviço - "},
    {"Produto", "Produto", "CodPeca", "Lista de Backup Produtos - "},
    {"Usuário", "Usuario", "CodUsuario", "Lista de Backup Usuários - "},
    {"Movimento", "VendaDetalhada", "CodVenda", "Lista de Backup Clientes - "},
};

// Passwords never show, and the folded search copies are ours, not the shop's data.
bool mostra(const QString& coluna)
{
    return coluna.compare(QLatin1String("Senha"), Qt::CaseInsensitive) != 0 && !coluna.endsWith(QLatin1String("_b"));
}

} // namespace

TesteBackup::TesteBackup(QWidget* pai) : QWidget(pai)
{
    setWindowTitle(Titulo);
    static int n = 0;
    m_conexao = QStringLiteral("toldex_teste_backup_%1").arg(++n);
    m_texto = new QLineEdit(this);
    m_texto->setObjectName(QStringLiteral("Text1"));
    m_texto->setReadOnly(true);
    m_texto->setMinimumWidth(360);
    m_combo = new QComboBox(this);
    m_combo->setObjectName(QStringLiteral("Combo1"));
    for (const Lista& l : Listas)
        m_combo->addItem(QString::fromUtf8(l.entrada));
    m_combo->setCurrentIndex(-1);
    m_combo->setPlaceholderText(QStringLiteral("Escolha a lista"));
    const char* textos[3] = {"&Procurar", "&Listar", "&Verificar"};
    for (int i = 0; i < 3; ++i) {
        m_botao[i] = new QPushButton(QString::fromUtf8(textos[i]), this);
        m_botao[i]->setObjectName(QStringLiteral("Botao(%1)").arg(i));
    }
    m_botao[1]->setEnabled(false);
    m_botao[2]->setEnabled(false);
    m_grade = new QTableView(this);
    m_grade->setObjectName(QStringLiteral("Gride"));
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);

    auto* topo = new QHBoxLayout;
    topo->addWidget(m_texto, 1);
    topo->addWidget(m_botao[0]);
    topo->addWidget(m_combo);
    topo->addWidget(m_botao[1]);
    topo->addWidget(m_botao[2]);
    auto* l = new QVBoxLayout(this);
    l->addLayout(topo);
    l->addWidget(m_grade, 1);
    setMinimumSize(880, 460);

    connect(m_botao[0], &QPushButton::clicked, this, &TesteBackup::procurar);
    connect(m_botao[1], &QPushButton::clicked, this, &TesteBackup::listar);
    connect(m_botao[2], &QPushButton::clicked, this, &TesteBackup::verificar);
    Pintura::pinta(this);
}

TesteBackup::~TesteBackup()
{
    fecharArquivo();
}

void TesteBackup::fecharArquivo()
{
    m_grade->setModel(nullptr);
    delete m_modelo;
    m_modelo = nullptr;
    if (QSqlDatabase::contains(m_conexao)) {
        QSqlDatabase::database(m_conexao, false).close();
        QSqlDatabase::removeDatabase(m_conexao);
    }
}

void TesteBackup::procurar()
{
    const QString volume = LeIni(QStringLiteral("Local"), QStringLiteral("Backup"), sessao().ArquivoIni);
    const auto escolhido = Dialogos::abrirArquivo(this, Titulo, QDir(volume).filePath(ArquivoBackup::Pasta),
                                                  QStringLiteral("Arquivos (Toldex.Backup*)"));
    if (!escolhido || escolhido->isEmpty())
        return;
    fecharArquivo();
    m_texto->setText(*escolhido);
    m_botao[1]->setEnabled(true);
    m_botao[2]->setEnabled(true);
}

void TesteBackup::listar()
{
    const int i = m_combo->currentIndex();
    if (i < 0 || m_texto->text().isEmpty())
        return;
    fecharArquivo();
    const Lista& l = Listas[i];
    if (ArquivoBackup::tipo(m_texto->text()) == ArquivoBackup::Tipo::Postgres)
        listarPostgres(QString::fromUtf8(l.tabela));
    else
        listarSqlite(QString::fromUtf8(l.tabela), QString::fromUtf8(l.ordem));
    if (!m_modelo)
        return;
    m_grade->setModel(m_modelo);
    // The grid fetches its rows as it scrolls; the count comes from the file.
    int linhas = m_modelo->rowCount();
    if (qobject_cast<QSqlQueryModel*>(m_modelo)) {
        QSqlQuery c(QSqlDatabase::database(m_conexao));
        if (c.exec(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QString::fromUtf8(l.tabela))) && c.next())
            linhas = c.value(0).toInt();
    }
    setWindowTitle(QString::fromUtf8(l.legenda) + QString::number(linhas) + QStringLiteral(" encontrados"));
}

void TesteBackup::listarSqlite(const QString& tabela, const QString& ordem)
{
    const QString arquivo = m_texto->text();
    if (ArquivoBackup::tipo(arquivo) != ArquivoBackup::Tipo::Sqlite) {
        Dialogos::mensagem(this, ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup), Titulo, Dialogos::Icone::Aviso);
        return;
    }
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_conexao);
    // The plain path, never a URI: the backup's name holds a "%".
    db.setDatabaseName(arquivo);
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (!db.open()) {
        Dialogos::mensagem(this, ArquivoBackup::mensagem(ArquivoBackup::Situacao::NaoEhBackup) + QLatin1Char('\n')
                                     + db.lastError().text(), Titulo, Dialogos::Icone::Aviso);
        return;
    }
    // A backup of an older version shows the columns it has.
    QStringList colunas;
    QSqlQuery info(db);
    bool temOrdem = false;
    if (info.exec(QStringLiteral("SELECT name FROM pragma_table_info('%1')").arg(tabela)))
        while (info.next()) {
            const QString c = info.value(0).toString();
            temOrdem = temOrdem || c.compare(ordem, Qt::CaseInsensitive) == 0;
            if (mostra(c))
                colunas << c;
        }
    if (colunas.isEmpty()) {
        Dialogos::mensagem(this, QStringLiteral("Esta lista não existe neste backup."), Titulo, Dialogos::Icone::Aviso);
        return;
    }
    auto* modelo = new QSqlQueryModel(this);
    modelo->setQuery(QStringLiteral("SELECT %1 FROM %2%3")
                         .arg(colunas.join(QStringLiteral(", ")), tabela,
                              temOrdem ? QStringLiteral(" ORDER BY ") + ordem : QString()),
                     db);
    if (modelo->lastError().isValid()) {
        Dialogos::mensagem(this, ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado) + QLatin1Char('\n')
                                     + modelo->lastError().text(), Titulo, Dialogos::Icone::Critico);
        delete modelo;
        return;
    }
    m_modelo = modelo;
}

void TesteBackup::listarPostgres(const QString& tabela)
{
    CopiaPostgres::Tabela t;
    QString erro;
    if (!CopiaPostgres::lerTabela(m_texto->text(), tabela, &t, &erro)) {
        Dialogos::mensagem(this, ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado) + QLatin1Char('\n') + erro,
                           Titulo, Dialogos::Icone::Critico);
        return;
    }
    QList<int> visiveis;
    QStringList titulos;
    for (int i = 0; i < t.colunas.size(); ++i)
        if (mostra(t.colunas.at(i))) {
            visiveis << i;
            titulos << t.colunas.at(i);
        }
    auto* modelo = new QStandardItemModel(int(t.linhas.size()), int(visiveis.size()), this);
    modelo->setHorizontalHeaderLabels(titulos);
    for (int r = 0; r < t.linhas.size(); ++r)
        for (int c = 0; c < visiveis.size(); ++c)
            modelo->setItem(r, c, new QStandardItem(t.linhas.at(r).value(visiveis.at(c))));
    m_modelo = modelo;
}

void TesteBackup::verificar()
{
    const QString arquivo = m_texto->text();
    if (arquivo.isEmpty())
        return;
    fecharArquivo();
    bool bom = false;
    if (ArquivoBackup::tipo(arquivo) == ArquivoBackup::Tipo::Postgres) {
        Trabalho t;
        bom = t.executar([arquivo](Trabalho& tr) { return CopiaPostgres::lerInteiro(arquivo, tr); }).ok();
    } else {
        bom = ArquivoBackup::examinarSqlite(arquivo, true).bom();
    }
    Dialogos::mensagem(this,
                       bom ? ArquivoBackup::mensagem(ArquivoBackup::Situacao::Bom)
                           : ArquivoBackup::mensagem(ArquivoBackup::Situacao::Danificado),
                       Titulo, bom ? Dialogos::Icone::Informacao : Dialogos::Icone::Critico);
}

TOLDEX_REGISTRA_TELA(TesteBackup)
