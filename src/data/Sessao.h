#pragma once
#include <QColor>
#include <QString>
#include <QVariant>

// The session values that the start-up, the login and the settings screen fill in and
// every screen reads. Names are those the whole system uses.
struct Sessao {
    // Where the store is and what this machine is.
    QString CaminhoBanco;
    QString EhServidor;      // "True"/"False"; empty counts as false
    int ConexaoOk = 0;
    QString ArquivoIni;      // full path of Toldex.ini
    QString PastaPrograma;   // the program's folder (or the user's data folder)
    QColor CorFundo;
    QColor CorCampo;

    // The user.
    QString UsuarioNome;
    QString UsuarioCodigo;
    QString TecnicoCodigo;
    QString TecnicoNome;
    QString UsuarioImagem;
    int Tentativas = 0;
    int SenhaObrigatoria = 0;  // -1: a password at each guarded action
    int SenhaLiberada = 0;
    QString SenhaOrigem;
    int LiberaAltOs = 0;

    // Rights: 1 allowed, 0 forbidden.
    int DireitoClienteLe = 0, DireitoClienteAl = 0;
    int DireitoOsEntLe = 0, DireitoOsEntAl = 0;
    int DireitoOsSaiLe = 0, DireitoOsSaiAl = 0;
    int DireitoOsTecLe = 0, DireitoOsTecAl = 0;
    int DireitoProdutoLe = 0, DireitoProdutoAl = 0;
    int DireitoFornecedorLe = 0, DireitoFornecedorAl = 0;
    int DireitoFuncionarioLe = 0, DireitoFuncionarioAl = 0;
    int DireitoVendasLe = 0, DireitoVendasAl = 0;
    int DireitoPedidoLe = 0, DireitoPedidoAl = 0;
    int DireitochequeLe = 0, DireitochequeAl = 0;
    int DireitoContaLe = 0, DireitoContaAl = 0;
    int DireitoMovimento = 0, DireitoBackup = 0, DireitoTesteBackup = 0;
    int DireitoConfiguracao = 0, DireitoRegistro = 0, DireitoPermanente = 0;
    int DireitoAltOrca = 0, DireitoAltOs = 0;

    // Settings cached from Empresa at start and after the settings screen saves.
    QVariant CfgOsCaixa, CfgPorcentSN;
    QString CfgDadoNota = QStringLiteral("True"), CfgAtivaSer = QStringLiteral("True"),
            CfgAtivaDef = QStringLiteral("True"), CfgTipoLetra = QStringLiteral("True"),
            CfgMenuusuario = QStringLiteral("True"), CfgOSAbrePesquisa = QStringLiteral("True"),
            CfgOSAbreCompleta = QStringLiteral("True"), CfgAtivaOs = QStringLiteral("True"),
            CfgAtivaOsFabrica = QStringLiteral("True");
    QString CfgDefineMenu = QStringLiteral("4");
    QString CfgNomeServidor;
    QString CfgPastaImagem = QStringLiteral("Toldex\\Imagem");
    // The optional features of the "Recursos" tab: off until the shop turns them on.
    QString CfgPixAtivo = QStringLiteral("False"), CfgPixChave, CfgPixNome, CfgPixCidade;
    QString CfgReciboBobina = QStringLiteral("False");  // "True": sheets on an 80 mm roll
    QString DataUltimoBackup;
    double DiasAviso = 0;
    QString MaquinaNome;

    // Hand-over values between screens.
    QString ParamCodOs, ParamCodOsAut, ParamNomeCliente;
    QString& FichaCodOs = ParamCodOs;              // one value under two names
    QString& FichaNomeCliente = ParamNomeCliente;
    QString FichaTipo, FichaCopias;
    int ListaEntrada = 0, ListaSaida = 0, ListaTecnico = 0, ListaVisita = 0;
    int RetornoGarantia = 0;
    int NumeroParcelas = 0, PagoComCheque = 0;
    QString ValorParcelaCalculado, DataParcela, CodOsCheque;

    Sessao() = default;
    Sessao(const Sessao&) = delete;
    Sessao& operator=(const Sessao&) = delete;

    static bool verdadeiro(const QString& cfg) { return cfg.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0; }
    bool servidor() const { return verdadeiro(EhServidor); }

    // Every right to 0 and the user emptied, as a leave through the login does.
    void zerarDireitos();
    // A right by its session name ("DireitoClienteAl"); nullptr for an unknown name.
    int* direito(const QString& nome);
};

Sessao& sessao();
