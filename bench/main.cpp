// Benchmark of the counter's searches at a shop's scale. It fills a store with synthetic
// data (default 1,000,000 orders and 200,000 customers) and prints the median time of each
// operation beside its target. Usage:
//   toldex_bench [--ordens N] [--clientes N] [--abertas N] [--pasta DIR] [--postgres]
// A store already filled in --pasta is reused.
#include <QCommandLineParser>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <QSysInfo>
#include <QThread>
#include <QTextStream>

#include "Carga.h"
#include "Manutencao.h"
#include "Medidor.h"
#include "data/Banco.h"
#include "data/Busca.h"
#include "data/Conexoes.h"
#include "data/Sessao.h"
#include "ui/RegistroTelas.h"
#include "data/Numeracao.h"
#include "data/Recordset.h"
#include "data/Transacao.h"
#include "documents/Impressora.h"
#include "data/Sessao.h"
#include "orders/ListasPainel.h"
#include "registers/BuscaClientes.h"
#include "orders/Ordem.h"
#include "orders/OrdemServicoEntradaRegras.h"
#include "orders/TransicoesOrdem.h"

namespace {

int conta(Banco& b, const QString& tabela, const Condicao& c)
{
    return b.escalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(tabela, c.sql), c.valores).toInt();
}

void primeiras100(Banco& b, const QString& tabela, const Condicao& c, const QString& ordem)
{
    Recordset rs(b);
    rs.abrir(tabela, c.sql, c.valores, ordem, 100);
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
    p.addOption({"sem-analyze", "do not gather the planner's statistics after filling"});
    p.addOption({"manutencao", "only the backup, restore and repair of an SQLite store of this size", "MB"});
    p.process(app);
    if (p.isSet("manutencao"))
        return medeManutencao(p.value("pasta") + QStringLiteral("-manutencao"), p.value("manutencao").toInt());
    const int ordens = p.value("ordens").toInt();
    const int clientes = p.value("clientes").toInt();
    const int abertas = p.value("abertas").toInt();

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
            Carga::clientes(*b, clientes);
            Carga::ordens(*b, ordens, abertas, clientes);
            if (!p.isSet("sem-analyze"))
                b->executar("ANALYZE");
        }

        QList<Medida> m;
        m << mede("O.S: número pelo começo (\"1234\"), 100 primeiras", 20, [&] {
            primeiras100(*b, "OrdemServico", Busca::porColuna(*b, "OrdemServico", "CodOs", "1234", false), "CodOs");
        });
        m << mede("O.S: telefone no meio (\"4567\"), 100 primeiras", 20, [&] {
            primeiras100(*b, "OrdemServico", Busca::porColuna(*b, "OrdemServico", "Telefone", "4567", true), "CodOs");
        });
        m << mede("O.S: nome pelo começo (\"MARIA SOUZA\"), 100 primeiras", 20, [&] {
            primeiras100(*b, "OrdemServico", Busca::porColuna(*b, "OrdemServico", "NomeCliente", "maria souza", false), "CodOs");
        });
        m << mede("Cliente: nome no meio (\"ARAUJO\"), 100 primeiras", 20, [&] {
            primeiras100(*b, "Cliente", Busca::porColuna(*b, "Cliente", "NomeCliente", "araujo", true), "CodCliente");
        });
        m << mede("Cliente: telefone no meio (\"98765\"), 100 primeiras", 20, [&] {
            primeiras100(*b, "Cliente", Busca::porColuna(*b, "Cliente", "Telefone", "98765", true), "CodCliente");
        });
        m << mede("Estado: contagem Recusado & Saida & Excluidos '%-100%'", 50, [&] {
            conta(*b, "OrdemServico", Busca::porEstado({"Recusado", "Saida", "Excluidos"}, {-1, 0, 0}));
        });
        m << mede("Estado: contagem Aprovado & Consertado & Saida & Excluidos", 50, [&] {
            conta(*b, "OrdemServico", Busca::porEstado({"Aprovado", "Consertado", "Saida", "Excluidos"}, {-1, -1, 0, 0}));
        });
        const QList<std::tuple<BuscaClientes::Opcao, QString, QString>> buscasCliente = {
            {BuscaClientes::Opcao::Nome, "nome", "maria"}, {BuscaClientes::Opcao::Codigo, "código", "1234"},
            {BuscaClientes::Opcao::CnpjCpf, "CPF/CNPJ", "45678"}, {BuscaClientes::Opcao::Telefone, "telefone", "8765"}};
        for (const auto& [opcao, nome, texto] : buscasCliente)
            m << mede(QStringLiteral("Pesquisa de clientes por %1 (\"%2\"), 100 primeiras").arg(nome, texto), 50,
                      [&] { BuscaClientes::buscar(*b, opcao, texto, 100); });
        const QList<std::pair<Lista, QString>> listas = {
            {Lista::Autorizado, "Autorizado"}, {Lista::AguardaPeca, "Aguarda peça"}, {Lista::Consertado, "Consertado"},
            {Lista::Devolver, "Devolver"}, {Lista::Pendente, "Pendente"}, {Lista::NaFila, "Na Fila"},
            {Lista::NaoAutorizado, "Não Autorizado"}, {Lista::Visita, "Visita técnica"}};
        for (const auto& [lista, nome] : listas) {
            m << mede(QStringLiteral("Painel: contagem \"%1\"").arg(nome), 10, [&] { ListasPainel::contar(*b, lista); });
            int n = 0;
            m << mede(QStringLiteral("Painel: linhas \"%1\"").arg(nome), 10, [&] { n = ListasPainel::linhas(*b, lista).size(); });
            m.last().nome += QStringLiteral(" (%1)").arg(n);
        }
        m << mede("Número novo de O.S (sem gravar)", 2, [&] {
            Transacao tr(*b);
            Numeracao::proximoCodigo(*b, "OrdemServico", "CodOs");
        }, 21);

        // The counter's intake: the customer found by the document typed, and a new order
        // with a new customer stored and committed in one transaction (a few rows more in the
        // store each run).
        const QString documento =
            b->escalar("SELECT CnpjCpf FROM Cliente WHERE CodCliente = ?", {qMax(1, clientes / 2)}).toString();
        m << mede("Entrada: cliente pelo CPF digitado", 50, [&] { EntradaRegras::clientePorDocumento(*b, documento); });
        sessao().DireitoOsEntAl = 1;
        sessao().UsuarioNome = QStringLiteral("BENCH");
        m << mede("Entrada: gravar O.S nova com cliente novo (com commit)", 30, [&] {
            Transacao tr(*b);
            EntradaRegras::ClienteBalcao cli;
            cli.NomeCliente = QStringLiteral("CLIENTE BALCAO");
            Ordem o;
            o.NomeCliente = cli.NomeCliente;
            o.Tipo = QStringLiteral("TV");
            o.CodCliente = QString::number(EntradaRegras::gravarClienteNovo(*b, cli));
            TransicoesOrdem::salvarEntrada(*b, o, {});
            tr.commit();
        }, 11);

        Conexoes::configurar(c);
        sessao().DireitoOsEntLe = 1;
        m << mede("Entrada: abrir a tela OrdemServicoEntrada", 300, [&] {
            RegistroTelas::abrir(QStringLiteral("OrdemServicoEntrada"));
            QCoreApplication::processEvents();
            RegistroTelas::fechar(QStringLiteral("OrdemServicoEntrada"));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }, 5);

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
            m << mede("Ficha: quebrar texto sem espaços de 10.000 caracteres", 200, [&] {
                linhas = int(p.quebrar(colado, p.width() - 400).size());
            }, 5);
            p.endDoc();
            Q_UNUSED(linhas);
        }

        QTextStream out(stdout);
        out << "Toldex " << TOLDEX_VERSAO << " — " << (c.motor == Motor::SQLite ? "SQLite" : "PostgreSQL") << ", "
            << ordens << " ordens, " << clientes << " clientes, " << abertas << " abertas; "
            << QSysInfo::prettyProductName() << ", " << QThread::idealThreadCount() << " núcleos\n\n";
        imprime(m);
    } catch (const ErroBanco& e) {
        err << e.textoCompleto() << "\n";
        return 1;
    }
    return 0;
}
