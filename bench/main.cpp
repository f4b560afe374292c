// Benchmark of the counter's searches at a shop's scale. It fills a store with synthetic
// data (default 1,000,000 orders and 200,000 customers), then times each operation on
// many texts drawn from that data, beside the raw indexed query that gives the same rows,
// and prints median, 90th percentile and the ratio. Usage:
//   toldex_bench [--ordens N] [--clientes N] [--abertas N] [--pasta DIR] [--postgres]
//                [--pg-dados DIR] [--textos N] [--so-carga]
// A store already filled in --pasta (or the database toldex_bench) is reused. Cold-cache
// lines drop the store's pages first: the SQLite file's from the system's cache; on
// PostgreSQL the server is restarted and its files dropped, given --pg-dados.
#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSysInfo>
#include <QTextStream>
#include <QThread>

#include <fcntl.h>
#include <unistd.h>

#include "BenchBancada.h"
#include "BenchCaixa.h"
#include "BenchCompleto.h"
#include "BenchContas.h"
#include "BenchEntrega.h"
#include "BenchEstoque.h"
#include "BenchExemplo.h"
#include "BenchHistorico.h"
#include "BenchMovimento.h"
#include "BenchPainel.h"
#include "BenchPesquisaOs.h"
#include "BenchProduto.h"
#include "BenchVisita.h"
#include "Manutencao.h"
#include "Medidor.h"
#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Conexoes.h"
#include "data/Esquema.h"
#include "data/Numeracao.h"
#include "data/PaginasBusca.h"
#include "data/Recordset.h"
#include "documents/Impressora.h"
#include "maintenance/GeradorDados.h"
#include "data/Sessao.h"
#include "data/Texto.h"
#include "data/Transacao.h"
#include "orders/ListasPainel.h"
#include "orders/Ordem.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/TransicoesOrdem.h"
#include "registers/BuscaClientes.h"
#include "ui/ModeloPesquisa.h"
#include "ui/RegistroTelas.h"

namespace {

QRandomGenerator sorteio(20261123);

// `n` different texts made from random rows of `tabela` (by its key, 1..maxChave).
QStringList amostra(Banco& b, const QString& tabela, const QString& coluna, qint64 maxChave, int n,
                    const std::function<QString(const QString&)>& recorte)
{
    const DefTabela* t = Esquema::tabela(tabela);
    QStringList r;
    for (int tentativa = 0; r.size() < n && tentativa < n * 50; ++tentativa) {
        const qint64 chave = 1 + qint64(sorteio.bounded(quint64(maxChave)));
        const QString valor =
            b.escalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(coluna, tabela, t->chave), {chave}).toString();
        const QString texto = recorte(valor);
        if (!texto.isEmpty() && !r.contains(texto))
            r << texto;
    }
    return r;
}

QString trecho(const QString& s, int inicio, int tamanho)
{
    if (s.size() < inicio + tamanho)
        return {};
    return s.mid(inicio + int(sorteio.bounded(s.size() - inicio - tamanho + 1)), tamanho);
}

QString limiteSuperior(const QString& prefixo)
{
    const char32_t maior = 0x10FFFF;
    return prefixo + QString::fromUcs4(&maior, 1);
}

// The raw query: the index lookup alone, in the list's order, every value read.
Condicao indiceCru(Banco& b, const QString& tabela, const QString& coluna, const QString& texto, bool meio)
{
    const DefTabela* t = Esquema::tabela(tabela);
    const DefColuna* c = t->coluna(coluna);
    const QString d = Texto::dobra(texto);
    if (!meio)
        return {QStringLiteral("%1 >= ? AND %1 < ?").arg(c->nomeDobrado()), {d, limiteSuperior(d)}};
    return {b.condicaoTrigrama(*t, *c), {b.valorTrigrama(d)}};
}

int leTudo(QSqlQuery& q)
{
    int n = 0;
    const int colunas = q.record().count();
    while (q.next()) {
        for (int i = 0; i < colunas; ++i)
            q.value(i);
        ++n;
    }
    return n;
}

void largaPaginas(const QString& caminho)
{
    QDirIterator it(caminho, QDir::Files, QDirIterator::Subdirectories);
    QStringList arquivos;
    if (QFileInfo(caminho).isFile())
        arquivos << caminho;
    while (it.hasNext())
        arquivos << it.next();
    for (const QString& a : arquivos) {
        const int fd = ::open(QFile::encodeName(a).constData(), O_RDONLY);
        if (fd < 0)
            continue;
        ::fdatasync(fd);
        ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
        ::close(fd);
    }
}

} // namespace

int main(int argc, char** argv)
{
    // Screens are opened too (the intake), on the offscreen platform: no display needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCommandLineParser p;
    p.addOption({"ordens", "orders", "n", "1000000"});
    p.addOption({"clientes", "customers", "n", "200000"});
    p.addOption({"abertas", "orders still in the shop", "n", "10000"});
    p.addOption({"pasta", "folder of the store", "dir", QDir::temp().filePath("toldex-bench")});
    p.addOption({"postgres", "use the PostgreSQL of TOLDEX_PG_HOST/TOLDEX_PG_PORT"});
    p.addOption({"pg-dados", "PostgreSQL's data folder, for the cold-cache lines", "dir"});
    p.addOption({"textos", "texts per search line", "n", "25"});
    p.addOption({"so-carga", "fill the store and stop"});
    p.addOption({"linhas", "only the lines whose name matches this pattern", "regex"});
    p.addOption({"sem-analyze", "do not gather the planner's statistics after filling"});
    p.addOption({"manutencao", "only the backup, restore and repair of an SQLite store of this size", "MB"});
    p.process(app);
    if (p.isSet("manutencao"))
        return medeManutencao(p.value("pasta") + QStringLiteral("-manutencao"), p.value("manutencao").toInt());
    const int ordens = p.value("ordens").toInt();
    const int clientes = p.value("clientes").toInt();
    const int abertas = p.value("abertas").toInt();
    const int nTextos = qMax(20, p.value("textos").toInt());
    filtroLinhas().setPattern(p.value("linhas"));
    filtroLinhas().setPatternOptions(QRegularExpression::CaseInsensitiveOption);

    ConfigBanco c;
    c.criarSeNaoExistir = true;
    if (p.isSet("postgres")) {
        c.motor = Motor::PostgreSQL;
        c.host = qEnvironmentVariable("TOLDEX_PG_HOST");
        c.porta = qEnvironmentVariableIntValue("TOLDEX_PG_PORT");
        c.usuario = qEnvironmentVariable("TOLDEX_PG_USUARIO", "postgres");
        c.nomeBanco = "toldex_bench";
    } else {
        QDir().mkpath(p.value("pasta"));
        c.pasta = p.value("pasta");
    }
    QTextStream err(stderr);
    try {
        auto b = Banco::abrir(c);
        b->garantirEsquema();
        if (b->escalar("SELECT COUNT(*) FROM OrdemServico").toInt() < ordens) {
            err << "Preenchendo " << c.descricao() << "...\n";
            b->executar("DELETE FROM OrdemServico");
            b->executar("DELETE FROM Cliente");
            // Every index of the two big tables is built once at the end, from the whole
            // table, instead of kept up row by row (the schema check below builds them
            // again); on SQLite the fill also runs with a big cache and no flush per batch.
            QStringList indices;
            if (c.motor == Motor::SQLite) {
                b->executar("PRAGMA cache_size = -1000000");
                b->executar("PRAGMA synchronous = OFF");
                for (const DefTabela& t : Esquema::tabelas()) {
                    if (!t.temColunasMeio())
                        continue;
                    for (const char* gatilho : {"_ai", "_ad", "_au"})
                        b->executar(QStringLiteral("DROP TRIGGER IF EXISTS %1%2").arg(t.nomeTrigrama(), gatilho));
                    b->executar(QStringLiteral("DROP TABLE IF EXISTS %1").arg(t.nomeTrigrama()));
                    indices << t.nomeTrigrama();
                }
                QSqlQuery q = b->executar("SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL "
                                          "AND tbl_name IN ('Cliente', 'OrdemServico')");
                while (q.next())
                    indices << q.value(0).toString();
                for (const QString& i : std::as_const(indices))
                    b->executar(QStringLiteral("DROP INDEX IF EXISTS %1").arg(i));
            } else {
                QSqlQuery q = b->executar("SELECT indexname FROM pg_indexes WHERE tablename IN ('cliente', 'ordemservico') "
                                          "AND indexname NOT IN (SELECT conname FROM pg_constraint)");
                while (q.next())
                    indices << q.value(0).toString();
                for (const QString& i : std::as_const(indices))
                    b->executar(QStringLiteral("DROP INDEX %1").arg(i));
            }
            const GeradorDados::Progresso conta = [&](const QString& etapa, qint64 feito, qint64 total) {
                err << etapa << ": " << feito << "/" << total << "\n";
                err.flush();
                return true;
            };
            GeradorDados::clientes(*b, clientes, conta);
            GeradorDados::ordens(*b, ordens, abertas, clientes, conta);
            if (!indices.isEmpty()) {
                err << "Criando os índices...\n";
                b->garantirEsquema();
            }
            // A shop's PostgreSQL has been through autovacuum long before it holds a million
            // orders: its visibility map lets the index-only scans skip the table.
            if (!p.isSet("sem-analyze"))
                b->executar(c.motor == Motor::PostgreSQL ? "VACUUM ANALYZE" : "ANALYZE");
            if (c.motor == Motor::SQLite)
                b->executar("PRAGMA synchronous = FULL");
        }
        GeradorDados::contadores(*b);
        if (c.motor == Motor::SQLite)
            b->executar("PRAGMA wal_checkpoint(TRUNCATE)");
        if (p.isSet("so-carga"))
            return 0;

        // Drops every page of the store from memory, so the next query reads the disk.
        std::function<void()> esfria;
        if (c.motor == Motor::SQLite) {
            esfria = [&] {
                b->fechar();
                largaPaginas(c.arquivoSqlite());
                largaPaginas(c.arquivoSqlite() + "-wal");
                b->reabrir();
            };
        } else if (p.isSet("pg-dados")) {
            const QString dados = p.value("pg-dados");
            QStringList versoes = QDir("/usr/lib/postgresql").entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
            const QString pgCtl = versoes.isEmpty() ? QStringLiteral("pg_ctl")
                                                    : QStringLiteral("/usr/lib/postgresql/%1/bin/pg_ctl").arg(versoes.last());
            esfria = [&, dados, pgCtl] {
                b->fechar();
                const QStringList args{"-D", dados, "-m", "fast", "-w", "-s", "restart"};
                QProcess pr;
                // The server's own log must not mix with the table on the standard output.
                pr.setStandardOutputFile(QProcess::nullDevice());
                pr.setStandardErrorFile(QProcess::nullDevice());
                if (::geteuid() == 0)
                    pr.start("runuser", QStringList{"-u", "postgres", "--", pgCtl} + args);
                else
                    pr.start(pgCtl, args);
                pr.waitForFinished(-1);
                largaPaginas(dados + "/base");
                b->reabrir();
            };
        }

        const qint64 maxOs = b->escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
        const qint64 maxCli = b->escalar("SELECT MAX(Chave) FROM Cliente").toLongLong();
        auto palavra = [](const QString& nome, int i) { return nome.split(' ', Qt::SkipEmptyParts).value(i); };
        const QStringList osNumero = amostra(*b, "OrdemServico", "CodOs", maxOs, nTextos,
                                             [](const QString& v) { return v.size() >= 5 ? v.left(4) : QString(); });
        const QStringList osTelefone = amostra(*b, "OrdemServico", "Telefone", maxOs, nTextos,
                                               [](const QString& v) { return trecho(v, 2, 4); });
        const QStringList osNome = amostra(*b, "OrdemServico", "NomeCliente", maxOs, nTextos, [&](const QString& v) {
            return palavra(v, 0) + ' ' + palavra(v, 1);
        });
        const QStringList cliNomeMeio = amostra(*b, "Cliente", "NomeCliente", maxCli, nTextos, [&](const QString& v) {
            const QString w = palavra(v, 2).isEmpty() ? palavra(v, 1) : palavra(v, 2);
            return w.size() >= 4 ? w.toUpper() : QString();
        });
        const QStringList cliTelefone = amostra(*b, "Cliente", "Telefone", maxCli, nTextos,
                                                [](const QString& v) { return trecho(v, 2, 5); });
        const QStringList cliPrenome = amostra(*b, "Cliente", "NomeCliente", maxCli, nTextos, [&](const QString& v) {
            return palavra(v, 0).left(3 + int(sorteio.bounded(3))).toLower();
        });
        const QStringList cliCodigo = amostra(*b, "Cliente", "CodCliente", maxCli, nTextos,
                                              [](const QString& v) { return trecho(v, 0, qMin(4, int(v.size()))); });
        const QStringList cliDocumento = amostra(*b, "Cliente", "CnpjCpf", maxCli, nTextos,
                                                 [](const QString& v) { return trecho(v, 0, 5); });
        const QStringList cliTelPesquisa = amostra(*b, "Cliente", "Telefone", maxCli, nTextos,
                                                   [](const QString& v) { return trecho(v, 2, 4); });
        const QStringList cliCpf = amostra(*b, "Cliente", "CnpjCpf", maxCli, nTextos, [](const QString& v) { return v; });

        QList<Medida> m;
        medeExemplo(m);
        // The counter's searches: the first 100 rows of a search, as a screen's first page.
        struct Busca100 {
            QString nome;
            QString tabela, coluna, ordem;
            bool meio;
            QStringList textos;
        };
        const QList<Busca100> buscas = {
            {"O.S: número pelo começo", "OrdemServico", "CodOs", "CodOs", false, osNumero},
            {"O.S: telefone no meio", "OrdemServico", "Telefone", "CodOs", true, osTelefone},
            {"O.S: nome pelo começo (nome e sobrenome)", "OrdemServico", "NomeCliente", "CodOs", false, osNome},
            {"Cliente: nome no meio (sobrenome)", "Cliente", "NomeCliente", "CodCliente", true, cliNomeMeio},
            {"Cliente: telefone no meio", "Cliente", "Telefone", "CodCliente", true, cliTelefone},
        };
        for (const Busca100& s : buscas) {
            const Operacao op = [&](const QString& t) {
                const Condicao cond = Busca::porColuna(*b, s.tabela, s.coluna, t, s.meio);
                Recordset rs(*b);
                rs.abrir(s.tabela, cond.sql, cond.valores, s.ordem, 100);
                return rs.recordCount();
            };
            const Operacao cru = [&](const QString& t) {
                const Condicao i = indiceCru(*b, s.tabela, s.coluna, t, s.meio);
                QSqlQuery q = b->executar(
                    QStringLiteral("SELECT * FROM %1 WHERE %2 ORDER BY %3 LIMIT 100").arg(s.tabela, i.sql, s.ordem), i.valores);
                return leTudo(q);
            };
            m << mede(s.nome + ", 100 primeiras", 20, s.textos, op, cru);
            if (esfria)
                m << medeFrio(s.nome + ", 100 primeiras", 20, s.textos.value(1), esfria, op, cru);
        }

        // The customer search screen: the exact count and the grid's first page.
        const QStringList colunasGrade = {"CodCliente", "NomeCliente", "Telefone", "Celular", "TelFax", "CnpjCpf"};
        const QList<std::tuple<BuscaClientes::Opcao, QString, QStringList>> buscasCliente = {
            {BuscaClientes::Opcao::Nome, "nome", cliPrenome}, {BuscaClientes::Opcao::Codigo, "código", cliCodigo},
            {BuscaClientes::Opcao::CnpjCpf, "CPF/CNPJ", cliDocumento}, {BuscaClientes::Opcao::Telefone, "telefone", cliTelPesquisa}};
        for (const auto& [opcao, nome, textos] : buscasCliente) {
            const Operacao op = [&, opcao = opcao](const QString& t) {
                PaginasBusca pg(*b, "Cliente", BuscaClientes::condicao(*b, opcao, t, Busca::Plano::PelaContagem),
                                BuscaClientes::Ordem, colunasGrade);
                const qint64 total = pg.contar();
                Q_UNUSED(total);
                return int(pg.proximas(ModeloPesquisa::TamanhoPagina).size());
            };
            const Operacao cru = [&, opcao = opcao](const QString& t) {
                const Condicao i = indiceCru(*b, "Cliente", BuscaClientes::coluna(opcao), t, BuscaClientes::meio(opcao));
                b->escalar(QStringLiteral("SELECT COUNT(*) FROM Cliente WHERE %1").arg(i.sql), i.valores);
                QSqlQuery q = b->executar(QStringLiteral("SELECT %1 FROM Cliente WHERE %2 ORDER BY CodCliente LIMIT %3")
                                              .arg(colunasGrade.join(','), i.sql).arg(ModeloPesquisa::TamanhoPagina),
                                          i.valores);
                return leTudo(q);
            };
            const QString linha = QStringLiteral("Pesquisa de clientes por %1: contagem e 1ª página").arg(nome);
            m << mede(linha, 20, textos, op, cru);
            if (esfria)
                m << medeFrio(linha, 20, textos.value(1), esfria, op, cru);
        }

        const QStringList repete(21, QString());
        m << mede("Estado: contagem Recusado & Saida & Excluidos '%-100%'", 50, repete, [&](const QString&) {
            const Condicao e = Busca::porEstado({"Recusado", "Saida", "Excluidos"}, {-1, 0, 0});
            b->escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico WHERE %1").arg(e.sql), e.valores);
            return -1;
        });

        // The pending panel: each station refreshes the counts every minute; the rows are
        // read when someone presses a list's button.
        const QList<std::pair<Lista, QString>> listas = {
            {Lista::Autorizado, "Autorizado"}, {Lista::AguardaPeca, "Aguarda peça"}, {Lista::Consertado, "Consertado"},
            {Lista::Devolver, "Devolver"}, {Lista::Pendente, "Pendente"}, {Lista::NaFila, "Na Fila"},
            {Lista::NaoAutorizado, "Não Autorizado"}, {Lista::Visita, "Visita técnica"}};
        for (const auto& [lista, nome] : listas) {
            const Lista l = lista;
            m << mede(QStringLiteral("Painel: contagem \"%1\"").arg(nome), 10, repete,
                      [&](const QString&) { ListasPainel::contar(*b, l); return -1; },
                      [&](const QString&) {
                          for (const Condicao& cond : ListasPainel::condicoes(l))
                              b->escalar(QStringLiteral("SELECT COUNT(*) FROM OrdemServico WHERE %1").arg(cond.sql), cond.valores);
                          return -1;
                      });
            m << mede(QStringLiteral("Painel: linhas \"%1\"").arg(nome), 10, repete,
                      [&](const QString&) { return int(ListasPainel::linhas(*b, l).size()); },
                      [&](const QString&) {
                          int n = 0;
                          for (const Condicao& cond : ListasPainel::condicoes(l)) {
                              QSqlQuery q = b->executar(ListasPainel::consulta(l, cond), cond.valores);
                              n += leTudo(q);
                          }
                          return n;
                      });
        }
        m << mede("Número novo de O.S (sem gravar)", 2, repete,
                  [&](const QString&) {
                      Transacao tr(*b);
                      Numeracao::proximoCodigo(*b, "OrdemServico", "CodOs");
                      return -1;
                  },
                  [&](const QString&) { b->escalar("SELECT MAX(CodOs) FROM OrdemServico"); return -1; });

        // The counter's intake: the customer found by the document typed, and a new order
        // (numbered from Empresa's counter, as the screen does with CfgAtivaOs on) with a new
        // customer, stored and committed to the disk in one transaction.
        m << mede("Entrada: cliente pelo CPF digitado", 50, cliCpf,
                  [&](const QString& t) { EntradaRegras::clientePorDocumento(*b, t); return -1; },
                  [&](const QString& t) {
                      QSqlQuery q = b->executar("SELECT * FROM Cliente WHERE CnpjCpf = ?", {t});
                      return leTudo(q);
                  });
        sessao().DireitoOsEntAl = 1;
        sessao().UsuarioNome = QStringLiteral("BENCH");
        sessao().CfgAtivaOs = QStringLiteral("True");
        m << mede("Entrada: gravar O.S nova com cliente novo (commit no disco)", 30, QStringList(11, QString()),
                  [&](const QString&) {
                      Transacao tr(*b);
                      EntradaRegras::ClienteBalcao cli;
                      cli.NomeCliente = QStringLiteral("CLIENTE BALCAO");
                      Ordem o;
                      o.NomeCliente = cli.NomeCliente;
                      o.Tipo = QStringLiteral("TV");
                      o.CodCliente = QString::number(EntradaRegras::gravarClienteNovo(*b, cli));
                      TransicoesOrdem::salvarEntrada(*b, o, {});
                      tr.commit();
                      return -1;
                  });

        Conexoes::configurar(c);
        sessao().DireitoOsEntLe = 1;
        m << mede("Entrada: abrir a tela OrdemServicoEntrada", 300, QStringList(5, QString()), [&](const QString&) {
            RegistroTelas::abrir(QStringLiteral("OrdemServicoEntrada"));
            QCoreApplication::processEvents();
            RegistroTelas::fechar(QStringLiteral("OrdemServicoEntrada"));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return -1;
        });
        medeEntrega(*b, m);
        medeBancada(*b, m);
        medeCompleto(*b, m);
        medePainel(*b, m);
        medeHistorico(*b, m);
        medeVisitas(*b, m);

        m << medeCaixa(*b);

        medeProdutos(*b, nTextos, m);

        // A pasted link or code with no space to break at, cut into lines of a sheet.
        {
            QPrinter pdf(QPrinter::HighResolution);
            QTemporaryDir dir;
            pdf.setOutputFormat(QPrinter::PdfFormat);
            pdf.setOutputFileName(dir.filePath(QStringLiteral("quebra.pdf")));
            Impressora p(&pdf);
            p.iniciar();
            QString colado;
            while (colado.size() < 10000)
                colado += QStringLiteral("https://loja.example/produto?codigo=ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789&");
            colado.truncate(10000);
            int linhas = 0;
            m << mede("Ficha: quebrar texto sem espaços de 10.000 caracteres", 200, QStringList(5, colado),
                      [&](const QString& texto) {
                          linhas = int(p.quebrar(texto, p.width() - 400).size());
                          return linhas;
                      });
            p.endDoc();
            Q_UNUSED(linhas);
        }

        medeEstoque(*b, m, nTextos);
        medePesquisaOs(*b, nTextos, m);
        medeContas(*b, m, nTextos);
        m << medeMovimento(*b, ordens);

        QTextStream out(stdout);
        out << "Toldex " << TOLDEX_VERSAO << " — " << (c.motor == Motor::SQLite ? "SQLite" : "PostgreSQL") << ", "
            << ordens << " ordens, " << clientes << " clientes, " << abertas << " abertas; "
            << QSysInfo::prettyProductName() << ", " << QThread::idealThreadCount() << " núcleos"
            << (esfria ? "" : "; sem linhas de cache frio (falta --pg-dados)") << "\n\n";
        out.flush();
        imprime(m);
    } catch (const ErroBanco& e) {
        err << e.textoCompleto() << "\n";
        return 1;
    }
    return 0;
}
