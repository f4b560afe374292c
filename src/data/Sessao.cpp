#include "data/Sessao.h"

Sessao& sessao()
{
    static Sessao s;
    return s;
}

int* Sessao::direito(const QString& nome)
{
    struct Par { const char* nome; int Sessao::*membro; };
    static const Par pares[] = {
        {"DireitoClienteLe", &Sessao::DireitoClienteLe}, {"DireitoClienteAl", &Sessao::DireitoClienteAl},
        {"DireitoOsEntLe", &Sessao::DireitoOsEntLe}, {"DireitoOsEntAl", &Sessao::DireitoOsEntAl},
        {"DireitoOsSaiLe", &Sessao::DireitoOsSaiLe}, {"DireitoOsSaiAl", &Sessao::DireitoOsSaiAl},
        {"DireitoOsTecLe", &Sessao::DireitoOsTecLe}, {"DireitoOsTecAl", &Sessao::DireitoOsTecAl},
        {"DireitoProdutoLe", &Sessao::DireitoProdutoLe}, {"DireitoProdutoAl", &Sessao::DireitoProdutoAl},
        {"DireitoFornecedorLe", &Sessao::DireitoFornecedorLe}, {"DireitoFornecedorAl", &Sessao::DireitoFornecedorAl},
        {"DireitoFuncionarioLe", &Sessao::DireitoFuncionarioLe}, {"DireitoFuncionarioAl", &Sessao::DireitoFuncionarioAl},
        {"DireitoVendasLe", &Sessao::DireitoVendasLe}, {"DireitoVendasAl", &Sessao::DireitoVendasAl},
        {"DireitoPedidoLe", &Sessao::DireitoPedidoLe}, {"DireitoPedidoAl", &Sessao::DireitoPedidoAl},
        {"DireitochequeLe", &Sessao::DireitochequeLe}, {"DireitochequeAl", &Sessao::DireitochequeAl},
        {"DireitoContaLe", &Sessao::DireitoContaLe}, {"DireitoContaAl", &Sessao::DireitoContaAl},
        {"DireitoMovimento", &Sessao::DireitoMovimento}, {"DireitoBackup", &Sessao::DireitoBackup},
        {"DireitoTesteBackup", &Sessao::DireitoTesteBackup}, {"DireitoConfiguracao", &Sessao::DireitoConfiguracao},
        {"DireitoRegistro", &Sessao::DireitoRegistro}, {"DireitoPermanente", &Sessao::DireitoPermanente},
        {"DireitoAltOrca", &Sessao::DireitoAltOrca}, {"DireitoAltOs", &Sessao::DireitoAltOs},
    };
    for (const Par& p : pares)
        if (nome.compare(QLatin1String(p.nome), Qt::CaseInsensitive) == 0)
            return &(this->*(p.membro));
    return nullptr;
}

void Sessao::zerarDireitos()
{
    for (const char* n : {"DireitoClienteLe", "DireitoClienteAl", "DireitoOsEntLe", "DireitoOsEntAl",
                          "DireitoOsSaiLe", "DireitoOsSaiAl", "DireitoOsTecLe", "DireitoOsTecAl",
                          "DireitoProdutoLe", "DireitoProdutoAl", "DireitoFornecedorLe", "DireitoFornecedorAl",
                          "DireitoFuncionarioLe", "DireitoFuncionarioAl", "DireitoVendasLe", "DireitoVendasAl",
                          "DireitoPedidoLe", "DireitoPedidoAl", "DireitochequeLe", "DireitochequeAl",
                          "DireitoContaLe", "DireitoContaAl", "DireitoMovimento", "DireitoBackup",
                          "DireitoTesteBackup", "DireitoConfiguracao", "DireitoRegistro", "DireitoPermanente",
                          "DireitoAltOrca", "DireitoAltOs"})
        *direito(QLatin1String(n)) = 0;
    UsuarioNome.clear();
    UsuarioCodigo.clear();
    SenhaObrigatoria = 0;
    SenhaLiberada = 0;
}
