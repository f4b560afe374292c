#include "ui/TelaCadastro.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Dinheiro.h"
#include "data/Numeracao.h"
#include "data/Recordset.h"
#include "data/Sessao.h"
#include "data/Transacao.h"
#include "ui/AcoesSenha.h"
#include "ui/Campos.h"
#include "ui/Dialogos.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

namespace {
const QString Incluir = QStringLiteral("&Incluir");
const QString Cancelar = QStringLiteral("&Cancelar");
const QString Excluir = QStringLiteral("&Excluir");
const QString Salvar = QStringLiteral("&Salvar");

// A screen's check inside the transaction said no: thrown so that the transaction is
// rolled back before the user reads why.
struct Recusa {
    QString motivo;
};
} // namespace

TelaCadastro::TelaCadastro(QWidget* pai) : QWidget(pai)
{
    auto* raiz = new QVBoxLayout(this);
    m_corpo = new QWidget(this);
    m_corpo->setObjectName(QStringLiteral("Corpo"));
    raiz->addWidget(m_corpo, 1);
    m_linhaBotoes = new QHBoxLayout;
    raiz->addLayout(m_linhaBotoes);
    for (int i = 0; i < 2; ++i)
        adicionaBotao(i == 0 ? Incluir : Excluir);
    connect(m_botoes[0], &QPushButton::clicked, this, &TelaCadastro::incluirOuCancelar);
    connect(m_botoes[1], &QPushButton::clicked, this, &TelaCadastro::salvarOuExcluir);
}

TelaCadastro::~TelaCadastro() = default;

QPushButton* TelaCadastro::adicionaBotao(const QString& texto, const QString& dica)
{
    auto* b = new QPushButton(texto, this);
    b->setObjectName(QStringLiteral("Botao(%1)").arg(m_botoes.size()));
    b->setToolTip(dica);
    b->setAutoDefault(false);
    m_linhaBotoes->addWidget(b);
    m_botoes << b;
    return b;
}

QPushButton* TelaCadastro::botao(int indice) const { return m_botoes.value(indice); }

void TelaCadastro::posicionaAcoes(int indiceGravar, int indiceCancelar)
{
    disconnect(m_botoes[m_iGravar], &QPushButton::clicked, this, &TelaCadastro::salvarOuExcluir);
    m_iGravar = indiceGravar;
    m_iCancelar = indiceCancelar;
    connect(m_botoes[m_iGravar], &QPushButton::clicked, this, &TelaCadastro::salvarOuExcluir);
}

void TelaCadastro::captionsEdicao()
{
    if (m_iCancelar == 0) {
        m_botoes[0]->setText(Cancelar);
    } else {
        // The new button waits while a record is typed: cancel lives on the close button.
        m_botoes[0]->setText(Incluir);
        m_botoes[0]->setEnabled(false);
    }
    m_botoes[m_iCancelar]->setText(Cancelar);
    m_botoes[m_iCancelar]->setToolTip(m_def.dicaCancelar);
    m_botoes[m_iCancelar]->setEnabled(true);
    m_botoes[m_iGravar]->setText(Salvar);
    m_botoes[m_iGravar]->setToolTip(m_def.dicaSalvar);
    m_botoes[m_iGravar]->setEnabled(true);
}

TelaCadastro::Estado TelaCadastro::estado() const
{
    if (m_novo)
        return Estado::Inclusao;
    return m_alterado ? Estado::Edicao : Estado::Navegacao;
}

qint64 TelaCadastro::chaveAtual() const
{
    return (m_rs && !m_rs->eof() && !m_rs->bof()) ? m_rs->chaveAtual() : -1;
}

bool TelaCadastro::iniciar()
{
    // The last button is close: a screen with no buttons of its own gets one here.
    if (m_botoes.size() == 2)
        adicionaBotao(QStringLiteral("&Fechar"));
    if (m_indiceFechar < 0)
        m_indiceFechar = m_botoes.size() - 1;
    m_textoFechar = m_botoes[m_indiceFechar]->text();
    connect(m_botoes[m_indiceFechar], &QPushButton::clicked, this, [this] {
        if (m_iCancelar == m_indiceFechar && estado() != Estado::Navegacao)
            incluirOuCancelar();
        else
            fechar();
    });
    for (const CampoCadastro& c : std::as_const(m_campos))
        preparaCampo(c);
    if (m_def.buscaViva)
        connect(m_def.buscaViva, &QLineEdit::textChanged, this, &TelaCadastro::buscaViva);
    Pintura::pinta(this);
    if (!m_def.senhaOrigem.isEmpty())
        AcoesSenha::registrar(m_def.senhaOrigem, this, [this] { salvarOuExcluir(); });
    QString erro;
    m_banco = Conexoes::nova(&erro);
    if (!m_banco)
        return false;
    m_rs = std::make_unique<Recordset>(*m_banco);
    m_rs->naoConferir(m_def.colunasMovidasFora);
    try {
        recontar();
        movePrimeiro();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    ajustaBotoes();
    return true;
}

void TelaCadastro::preparaCampo(const CampoCadastro& c)
{
    if (!c.widget)
        return;
    c.widget->installEventFilter(this);
    if (auto* le = qobject_cast<QLineEdit*>(c.widget)) {
        Campos::preparaLinha(le, c.tipo == CampoCadastro::Tipo::Numero);
        connect(le, &QLineEdit::textEdited, this, [this] {
            if (!m_carregando)
                marcaAlterado();
        });
    } else if (auto* pt = qobject_cast<QPlainTextEdit*>(c.widget)) {
        connect(pt, &QPlainTextEdit::textChanged, this, [this] {
            if (!m_carregando)
                marcaAlterado();
        });
    } else if (auto* cb = qobject_cast<QComboBox*>(c.widget)) {
        connect(cb, &QComboBox::activated, this, [this] {
            if (!m_carregando)
                marcaAlterado();
        });
        if (cb->lineEdit()) {
            cb->lineEdit()->installEventFilter(this);  // Enter moves on from a combo too
            Campos::preparaLinha(cb->lineEdit(), false);
            connect(cb->lineEdit(), &QLineEdit::textEdited, this, [this] {
                if (!m_carregando)
                    marcaAlterado();
            });
        }
    } else if (auto* ck = qobject_cast<QCheckBox*>(c.widget)) {
        connect(ck, &QCheckBox::clicked, this, [this] {
            if (!m_carregando)
                marcaAlterado();
        });
    } else if (auto* de = qobject_cast<QDateEdit*>(c.widget)) {
        connect(de, &QDateEdit::dateChanged, this, [this] {
            if (!m_carregando)
                marcaAlterado();
        });
    }
}

QWidget* TelaCadastro::ultimoMultilinha() const
{
    QWidget* ultimo = nullptr;
    for (const CampoCadastro& c : m_campos)
        if (qobject_cast<QPlainTextEdit*>(c.widget))
            ultimo = c.widget;
    return ultimo;
}

bool TelaCadastro::eventFilter(QObject* alvo, QEvent* e)
{
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        auto* w = qobject_cast<QWidget*>(alvo);
        const bool enter = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        if (enter && w && w != ultimoMultilinha()) {
            focusNextChild();
            return true;
        }
        if (auto* pt = qobject_cast<QPlainTextEdit*>(alvo)) {
            if (Sessao::verdadeiro(sessao().CfgTipoLetra) && !k->text().isEmpty() && k->text().at(0).isLetter()
                && k->text() != k->text().toUpper() && !(k->modifiers() & Qt::ControlModifier)) {
                pt->insertPlainText(k->text().toUpper());
                return true;
            }
        }
    }
    return QWidget::eventFilter(alvo, e);
}

// --- rows -----------------------------------------------------------------------------

Condicao TelaCadastro::filtro() const
{
    if (!m_filtroBusca.sql.isEmpty())
        return m_filtroBusca;
    if (m_def.soVivos && !m_incluiExcluidos)
        return Busca::vivosPelaOrdem();
    return {};
}

void TelaCadastro::recontar()
{
    const Condicao f = filtro();
    if (m_filtroBusca.sql.isEmpty() && m_def.soVivos && !m_incluiExcluidos) {
        // Live rows are all rows less the bin: both counts come from indexes, where
        // counting "Excluidos = 0" would read a million orders one by one.
        m_total = m_banco->escalar(QStringLiteral("SELECT (SELECT COUNT(*) FROM %1) - "
                                                  "(SELECT COUNT(*) FROM %1 WHERE Excluidos = -1)")
                                       .arg(m_def.tabela)).toInt();
        return;
    }
    QString sql = QStringLiteral("SELECT COUNT(*) FROM %1").arg(m_def.tabela);
    if (!f.sql.isEmpty())
        sql += QStringLiteral(" WHERE ") + f.sql;
    m_total = m_banco->escalar(sql, f.valores).toInt();
}

bool TelaCadastro::abreUm(const QString& onde, const QVariantList& valores, const QString& ordem)
{
    const Condicao f = filtro();
    QString cond = onde;
    QVariantList vals = valores;
    if (!f.sql.isEmpty()) {
        cond = cond.isEmpty() ? f.sql : QStringLiteral("(%1) AND (%2)").arg(f.sql, cond);
        vals = f.valores + valores;
    }
    Recordset novo(*m_banco);
    novo.abrir(m_def.tabela, cond, vals, ordem, 1);
    if (novo.recordCount() == 0)
        return false;
    m_rs->abrir(m_def.tabela, cond, vals, ordem, 1);
    return true;
}

namespace {
QString ordem(const QString& cod, const QString& chave, bool desc)
{
    const QString d = desc ? QStringLiteral(" DESC") : QString();
    return cod + d + QStringLiteral(", ") + chave + d;
}
} // namespace

const QString& TelaCadastro::colunaOrdem() const
{
    return m_def.colunaOrdem.isEmpty() ? m_def.colunaCodigo : m_def.colunaOrdem;
}

bool TelaCadastro::movePrimeiro()
{
    const QString chave = m_rs->tabela() ? m_rs->tabela()->chave : Esquema::tabela(m_def.tabela)->chave;
    if (abreUm({}, {}, ordem(colunaOrdem(), chave, false)))
        return true;
    m_rs->abrir(m_def.tabela, QStringLiteral("1 = 0"));
    return false;
}

bool TelaCadastro::moveUltimo()
{
    const QString chave = Esquema::tabela(m_def.tabela)->chave;
    return abreUm({}, {}, ordem(colunaOrdem(), chave, true));
}

bool TelaCadastro::moveProximo()
{
    if (chaveAtual() < 0)
        return movePrimeiro();
    const QString chave = m_rs->tabela()->chave;
    const QVariant cod = m_rs->valor(colunaOrdem());
    const QString onde = QStringLiteral("%1 > ? OR (%1 = ? AND %2 > ?)").arg(colunaOrdem(), chave);
    return abreUm(onde, {cod, cod, chaveAtual()}, ordem(colunaOrdem(), chave, false));
}

bool TelaCadastro::moveAnterior()
{
    if (chaveAtual() < 0)
        return moveUltimo();
    const QString chave = m_rs->tabela()->chave;
    const QVariant cod = m_rs->valor(colunaOrdem());
    const QString onde = QStringLiteral("%1 < ? OR (%1 = ? AND %2 < ?)").arg(colunaOrdem(), chave);
    return abreUm(onde, {cod, cod, chaveAtual()}, ordem(colunaOrdem(), chave, true));
}

bool TelaCadastro::moveChave(qint64 chave)
{
    const QString col = Esquema::tabela(m_def.tabela)->chave;
    return abreUm(QStringLiteral("%1 = ?").arg(col), {chave}, {});
}

bool TelaCadastro::irPrimeiro() { return mostraSe(movePrimeiro()); }
bool TelaCadastro::irUltimo() { return mostraSe(moveUltimo()); }
bool TelaCadastro::irProximo() { return mostraSe(moveProximo()); }
bool TelaCadastro::irAnterior() { return mostraSe(moveAnterior()); }
bool TelaCadastro::irChave(qint64 chave) { return mostraSe(moveChave(chave)); }

bool TelaCadastro::mostraSe(bool moveu)
{
    if (moveu) {
        m_novo = m_alterado = false;
        ajustaBotoes();
    }
    return moveu;
}

void TelaCadastro::mostraAtual()
{
    m_carregando = true;
    if (chaveAtual() >= 0)
        mostraRegistro(*m_rs);
    else
        limpaCampos();
    m_carregando = false;
    aposMostrar();
}

void TelaCadastro::buscaViva(const QString& texto)
{
    // The search box shows deleted rows too: it is how a shop finds one to look at.
    Condicao c;
    if (m_def.condicaoBuscaViva && !texto.isEmpty())
        c = m_def.condicaoBuscaViva(*m_banco, texto);
    else for (const QString& col : std::as_const(m_def.colunasBuscaViva)) {
        const Condicao parte = Busca::porTexto(*m_banco, m_def.tabela, col, texto, true);
        c.sql = c.sql.isEmpty() ? QStringLiteral("(%1)").arg(parte.sql) : c.sql + QStringLiteral(" OR (%1)").arg(parte.sql);
        c.valores += parte.valores;
    }
    m_filtroBusca = texto.isEmpty() ? Condicao{} : c;
    try {
        recontar();
        movePrimeiro();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao pesquisar,"), e.textoCompleto());
    }
    m_novo = m_alterado = false;
    ajustaBotoes();
}

// --- states ---------------------------------------------------------------------------

void TelaCadastro::ajustaBotoes()
{
    setWindowTitle(QStringLiteral("%1    %2   %3").arg(m_def.titulo).arg(m_total).arg(m_def.unidade));
    if (chaveAtual() < 0) {
        m_carregando = true;
        limpaCampos();
        m_carregando = false;
        bloqueiaCampos();
        m_novo = m_alterado = false;
        for (int i = 1; i < m_botoes.size(); ++i)
            m_botoes[i]->setEnabled(i == m_indiceFechar);
    } else {
        mostraAtual();
        liberaCampos();
        for (int i = 1; i < m_botoes.size(); ++i)
            m_botoes[i]->setEnabled(botaoDisponivel(i));
    }
    m_botoes[0]->setText(Incluir);
    m_botoes[0]->setToolTip(QStringLiteral("Inclui novo cadastro"));
    m_botoes[0]->setEnabled(true);
    if (m_iCancelar != 0 && m_indiceFechar >= 0)
        m_botoes[m_iCancelar]->setText(m_textoFechar);
    m_botoes[m_iGravar]->setText(Excluir);
    m_botoes[m_iGravar]->setToolTip(QStringLiteral("Exclui cadastro do banco de dados."));
}

void TelaCadastro::incluirOuCancelar()
{
    const bool incluindo = m_iCancelar == 0 ? m_botoes[0]->text() == Incluir : estado() == Estado::Navegacao;
    if (incluindo) {
        m_carregando = true;
        limpaCampos();
        m_carregando = false;
        liberaCampos();
        m_novo = true;
        m_alterado = false;
        for (const CampoCadastro& c : std::as_const(m_campos))
            if (c.widget && c.tipo != CampoCadastro::Tipo::Exibicao && c.widget->isEnabled()) {
                c.widget->setFocus();
                break;
            }
        captionsEdicao();
        return;
    }
    m_novo = m_alterado = false;
    const qint64 chave = chaveAtual();
    try {
        recontar();
        if (chave < 0 || !moveChave(chave))
            movePrimeiro();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    ajustaBotoes();
}

void TelaCadastro::novoRegistro()
{
    if (estado() == Estado::Navegacao)
        incluirOuCancelar();
}

void TelaCadastro::marcaAlterado()
{
    m_alterado = true;
    captionsEdicao();
}

bool TelaCadastro::precisaSenha() const
{
    // A screen with no word for the password at use (the agenda, the defects) asks none.
    return !m_def.senhaOrigem.isEmpty() && sessao().SenhaLiberada == 0 && sessao().SenhaObrigatoria != 0;
}

void TelaCadastro::pedeSenha()
{
    sessao().SenhaOrigem = m_def.senhaOrigem;
    // A closing that waits for the password waits only while the password screen stands:
    // given, it has pressed the save already; cancelled, the screen just stays open.
    if (QWidget* senha = RegistroTelas::abrir(QStringLiteral("SenhaPde")))
        connect(senha, &QObject::destroyed, this, [this] { m_fecharAposSalvar = false; });
}

void TelaCadastro::salvarOuExcluir()
{
    if (precisaSenha()) {
        pedeSenha();
        return;
    }
    if (m_botoes[m_iGravar]->text() == Salvar) {
        const bool ok = salvar();
        if (m_fecharAposSalvar) {
            m_fecharAposSalvar = false;
            if (ok)
                fechar();
        }
    } else {
        excluir();
    }
}

void TelaCadastro::escreveCampo(Recordset& rs, const CampoCadastro& c)
{
    using T = CampoCadastro::Tipo;
    if (c.coluna.isEmpty())
        return;
    switch (c.tipo) {
    case T::Exibicao:
        return;
    case T::Flag:
        rs.definirFlag(c.coluna, Campos::marcado(c.widget));
        return;
    case T::Dinheiro:
        rs.definir(c.coluna, Dinheiro::lerTexto(Campos::texto(c.widget)).value_or(Dinheiro()));
        return;
    case T::Data: {
        if (auto* de = qobject_cast<QDateEdit*>(c.widget)) {
            rs.definir(c.coluna, Datas::paraBanco(de->date()));
            return;
        }
        const auto d = Datas::telaParaBanco(Campos::texto(c.widget));
        rs.definir(c.coluna, d.value_or(QString()));
        return;
    }
    case T::Numero:
    case T::Texto:
        rs.definir(c.coluna, Campos::texto(c.widget));
        return;
    }
}

void TelaCadastro::gravaCampos(Recordset& rs)
{
    for (const CampoCadastro& c : std::as_const(m_campos))
        escreveCampo(rs, c);
}

bool TelaCadastro::confere(const std::function<bool()>& checagem)
{
    // A screen's own checks may read the store; a failure there stops the action, told.
    try {
        return checagem();
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
        return false;
    }
}

bool TelaCadastro::salvar()
{
    if (m_def.obrigatorio && Campos::texto(m_def.obrigatorio).trimmed().isEmpty()) {
        Dialogos::mensagem(this, m_def.mensagemObrigatorio);
        m_def.obrigatorio->setFocus();
        return false;
    }
    if (!m_def.direito.isEmpty()) {
        const int* d = sessao().direito(m_def.direito);
        if (!d || *d != 1) {
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return false;
        }
    }
    // An amount box holding something that isn't an amount is told, never stored as 0,00.
    for (const CampoCadastro& c : std::as_const(m_campos))
        if (c.tipo == CampoCadastro::Tipo::Dinheiro && !c.coluna.isEmpty()
            && !Campos::texto(c.widget).trimmed().isEmpty() && !Dinheiro::lerTexto(Campos::texto(c.widget))) {
            Dialogos::mensagem(this, QStringLiteral("Valor inválido: digite como 1.234,56"), {}, Dialogos::Icone::Aviso);
            c.widget->setFocus();
            return false;
        }
    if (!confere([this] { return validaAntesDeGravar(); }))
        return false;
    const bool eraNovo = m_novo;
    qint64 chave = -1;
    try {
        Transacao t(*m_banco);
        if (const QString motivo = impedimentoAoGravar(); !motivo.isEmpty())
            throw Recusa{motivo};
        if (eraNovo) {
            // A table whose code the engine numbers names no colunaCodigo.
            const qint64 codigo = m_def.colunaCodigo.isEmpty()
                ? 0 : Numeracao::proximoCodigo(*m_banco, m_def.tabela, m_def.colunaCodigo);
            m_rs->abrir(m_def.tabela, QStringLiteral("1 = 0"));
            m_rs->addNew();
            if (!m_def.colunaCodigo.isEmpty())
                m_rs->definir(m_def.colunaCodigo, codigo);
            if (!m_def.colunaDataCadastro.isEmpty())
                m_rs->definir(m_def.colunaDataCadastro, Datas::hoje());
        } else if (chaveAtual() < 0) {
            throw ErroBanco(QStringLiteral("O registro não existe mais no banco de dados."));
        }
        // The row is written over the version shown, never re-read here: the store
        // refuses it when another station has changed it since.
        gravaCampos(*m_rs);
        if (!m_def.colunaCarimbo.isEmpty())
            m_rs->definir(m_def.colunaCarimbo, sessao().UsuarioNome);
        m_rs->update();
        chave = m_rs->chaveAtual();
        t.commit();
    } catch (const Recusa& r) {
        Dialogos::mensagem(this, r.motivo, {}, Dialogos::Icone::Aviso);
        return false;
    } catch (const RegistroAlterado& e) {
        m_rs->cancelUpdate();
        Dialogos::mensagem(this, e.mensagem(), QStringLiteral("Gravar"), Dialogos::Icone::Aviso);
        return false;
    } catch (const ErroBanco& e) {
        // The typed fields stay as they are, so the user can correct and save again.
        if (m_rs->editando())
            m_rs->cancelUpdate();
        Dialogos::erro(this, QStringLiteral("Erro ao gravar formulário,"), e.textoCompleto());
        return false;
    }
    m_novo = m_alterado = false;
    try {
        if (eraNovo)
            m_incluiExcluidos = true;
        recontar();
        moveChave(chave);
    } catch (const ErroBanco& e) {
        Dialogos::erro(this, QStringLiteral("Erro ao carregar formulário,"), e.textoCompleto());
    }
    ajustaBotoes();
    RegistroTelas::abrir(QStringLiteral("Gravado"));
    emit gravou();
    return true;
}

void TelaCadastro::excluir()
{
    if (!m_def.exclusaoSemDireito && !m_def.direito.isEmpty()) {
        const int* d = sessao().direito(m_def.direito);
        if (!d || *d != 1) {
            RegistroTelas::abrir(QStringLiteral("Negado"));
            return;
        }
    }
    if (chaveAtual() < 0 || !confere([this] { return validaAntesDeExcluir(); }))
        return;
    if (!Dialogos::pergunta(this, QStringLiteral("Registro será excluído,deseja excluir ?")))
        return;
    const DefTabela* t = Esquema::tabela(m_def.tabela);
    const bool temExcluidos = t && t->coluna(QStringLiteral("Excluidos"));
    const bool fisica = m_def.exclusaoSempreFisica || sessao().DireitoPermanente == 1 || !temExcluidos;
    try {
        const qint64 chave = chaveAtual();
        Transacao tr(*m_banco);
        if (const QString motivo = impedimentoAoExcluir(); !motivo.isEmpty())
            throw Recusa{motivo};
        // The row goes (or goes to the bin) as it was shown, never re-read here: the store
        // refuses it when another station has changed or deleted it since.
        if (fisica) {
            const QVariant cod = m_rs->valor(colunaOrdem());
            m_rs->deleteAtual();
            excluiDependentes(true);
            tr.commit();
            recontar();
            // The row before the deleted one, or the one after when it was the first.
            const QString onde = QStringLiteral("%1 < ? OR (%1 = ? AND %2 < ?)").arg(colunaOrdem(), t->chave);
            if (!abreUm(onde, {cod, cod, chave}, ordem(colunaOrdem(), t->chave, true))
                && !abreUm(QStringLiteral("%1 >= ?").arg(colunaOrdem()), {cod},
                           ordem(colunaOrdem(), t->chave, false)))
                m_rs->abrir(m_def.tabela, QStringLiteral("1 = 0"));
            m_novo = m_alterado = false;
            ajustaBotoes();
        } else {
            m_rs->definirFlag(QStringLiteral("Excluidos"), true);
            if (!m_def.colunaCarimbo.isEmpty())
                m_rs->definir(m_def.colunaCarimbo, sessao().UsuarioNome);
            m_rs->update();
            excluiDependentes(false);
            tr.commit();
            m_carregando = true;
            limpaCampos();
            m_carregando = false;
            bloqueiaCampos();
            m_novo = m_alterado = false;
            for (int i = 1; i <= 3 && i < m_botoes.size(); ++i)
                m_botoes[i]->setEnabled(i == m_indiceFechar);
        }
    } catch (const Recusa& r) {
        Dialogos::mensagem(this, r.motivo, {}, Dialogos::Icone::Aviso);
        return;
    } catch (const RegistroAlterado& e) {
        m_rs->cancelUpdate();
        Dialogos::mensagem(this, e.mensagem(), QStringLiteral("Excluir"), Dialogos::Icone::Aviso);
        return;
    } catch (const ErroBanco& e) {
        if (m_rs->editando())
            m_rs->cancelUpdate();
        Dialogos::erro(this, QStringLiteral("Erro ao excluir registro,"), e.textoCompleto());
        return;
    }
    RegistroTelas::abrir(QStringLiteral("Excluido"));
    emit excluiu();
}

// --- closing --------------------------------------------------------------------------

void TelaCadastro::fechar()
{
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        close();
}

void TelaCadastro::closeEvent(QCloseEvent* e)
{
    if (m_fechando || !m_alterado) {
        e->accept();
        return;
    }
    const auto resposta = Dialogos::mensagem(this, QStringLiteral("Você alterou o registro,deseja salvar ?"), {},
                                             Dialogos::Icone::Pergunta, Dialogos::Botoes::SimNaoCancelar);
    if (resposta == Dialogos::Resposta::Cancelar) {
        e->ignore();
        return;
    }
    if (resposta != Dialogos::Resposta::Sim) {
        e->accept();
        return;
    }
    // Yes saves through the same checks as the save button. When a password is due the
    // screen waits for it and closes after the save; a refused or failed save keeps the
    // screen open with what was typed.
    if (precisaSenha()) {
        m_fecharAposSalvar = true;
        pedeSenha();
        e->ignore();
        return;
    }
    if (m_botoes[m_iGravar]->text() != Salvar)
        marcaAlterado();
    if (salvar()) {
        m_fechando = true;
        e->accept();
    } else {
        e->ignore();
    }
}

// --- default screen procedures ----------------------------------------------------------

void TelaCadastro::limpaCampos()
{
    for (const CampoCadastro& c : std::as_const(m_campos))
        Campos::limpa(c.widget);
}

void TelaCadastro::bloqueiaCampos()
{
    for (const CampoCadastro& c : std::as_const(m_campos))
        if (c.widget && c.tipo != CampoCadastro::Tipo::Exibicao)
            c.widget->setEnabled(false);
}

void TelaCadastro::liberaCampos()
{
    for (const CampoCadastro& c : std::as_const(m_campos))
        if (c.widget && c.tipo != CampoCadastro::Tipo::Exibicao)
            c.widget->setEnabled(true);
}

void TelaCadastro::mostraRegistro(const Recordset& rs)
{
    using T = CampoCadastro::Tipo;
    for (const CampoCadastro& c : std::as_const(m_campos)) {
        if (!c.widget || c.coluna.isEmpty())
            continue;
        switch (c.tipo) {
        case T::Flag:
            Campos::marca(c.widget, rs.flag(c.coluna));
            break;
        case T::Dinheiro:
            Campos::poeTexto(c.widget, rs.dinheiro(c.coluna).texto());
            break;
        case T::Data:
            if (auto* de = qobject_cast<QDateEdit*>(c.widget))
                de->setDate(Datas::lerBanco(rs.texto(c.coluna)).value_or(QDate::currentDate()));
            else
                Campos::poeTexto(c.widget, Datas::bancoParaTela(rs.texto(c.coluna)));
            break;
        default:
            Campos::poeTexto(c.widget, rs.texto(c.coluna));
            break;
        }
    }
}

void TelaCadastro::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    if (!m_centrada) {
        m_centrada = true;
        Pintura::centra(this);
    }
}
