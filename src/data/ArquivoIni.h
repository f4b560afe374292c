#pragma once
#include <QString>
#include <QStringList>

// The per-machine settings file Toldex.ini, read and written like the classic profile
// files: sections and keys without regard to case, values cut to 255 characters, lines
// that are neither a section nor a key ignored. Files written by older installations in
// Windows-1252 are read correctly; we always write UTF-8.
class ArquivoIni {
public:
    explicit ArquivoIni(QString caminho);

    const QString& caminho() const { return m_caminho; }
    QString ler(const QString& secao, const QString& chave) const;
    // Writes one key, creating the section and the file when needed. The file is replaced
    // as a whole, so a crash never leaves half a file. Returns false with a message in
    // Portuguese when it cannot be written.
    bool gravar(const QString& secao, const QString& chave, const QString& valor, QString* erro = nullptr);

    static constexpr int TamanhoMaximo = 255;

private:
    QStringList lerLinhas() const;
    QString m_caminho;
};

QString LeIni(const QString& secao, const QString& chave, const QString& arquivo);
bool GravaIni(const QString& secao, const QString& chave, const QString& valor, const QString& arquivo);
