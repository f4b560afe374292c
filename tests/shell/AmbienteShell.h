#pragma once
// Shared by the shell's tests: a program folder with its own Toldex.ini and store, the
// connections pointed at it, and stand-ins for the screens that other parts of the
// program provide.
#include <QTemporaryDir>
#include <QVariant>
#include <QWidget>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Local.h"
#include "data/Sessao.h"
#include "ui/RegistroTelas.h"

class AmbienteShell {
public:
    AmbienteShell()
    {
        qputenv("TOLDEX_PASTA", m_dir.path().toUtf8());
        ConfigBanco c = Local::lerConfig();   // a first start: server, store in the folder
        Conexoes::configurar(c);
        auto b = Banco::abrir(c);
        b->garantirEsquema();
    }
    ~AmbienteShell() { Conexoes::fecharSlots(); }

    QString pasta() const { return m_dir.path(); }
    QString ini() const { return Local::arquivoIni(); }

    void sql(const QString& comando, const QVariantList& valores = {})
    {
        auto b = Banco::abrir(Conexoes::config());
        b->executar(comando, valores);
    }
    void gravarIni(const QString& secao, const QString& chave, const QString& valor)
    {
        ArquivoIni(ini()).gravar(secao, chave, valor);
    }

    // A plain widget under the name, unless the real screen is already in the build.
    static void registrarFalsa(const QString& nome)
    {
        if (!RegistroTelas::registrada(nome))
            RegistroTelas::registrar(nome, [] { return new QWidget; });
    }

    static void todosOsDireitos(int valor)
    {
        Sessao& s = sessao();
        for (const char* n : {"DireitoClienteLe", "DireitoClienteAl", "DireitoOsEntLe", "DireitoOsEntAl",
                              "DireitoOsSaiLe", "DireitoOsSaiAl", "DireitoOsTecLe", "DireitoOsTecAl",
                              "DireitoProdutoLe", "DireitoProdutoAl", "DireitoFornecedorLe", "DireitoFornecedorAl",
                              "DireitoFuncionarioLe", "DireitoFuncionarioAl", "DireitoVendasLe", "DireitoVendasAl",
                              "DireitoPedidoLe", "DireitoPedidoAl", "DireitochequeLe", "DireitochequeAl",
                              "DireitoContaLe", "DireitoContaAl", "DireitoMovimento", "DireitoBackup",
                              "DireitoTesteBackup", "DireitoConfiguracao", "DireitoRegistro", "DireitoPermanente",
                              "DireitoAltOrca", "DireitoAltOs"})
            *s.direito(QLatin1String(n)) = valor;
    }

    static void fecharTelas()
    {
        RegistroTelas::fecharTodas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    QTemporaryDir m_dir;
};
