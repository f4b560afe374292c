#include "data/FuncoesCores.h"

#include <QGuiApplication>
#include <QPalette>

#include "data/ArquivoIni.h"
#include "data/Local.h"
#include "data/Sessao.h"

namespace {

const QString SecaoCores = QStringLiteral("CorFundo");

std::optional<qint64> numeroClassico(QString t)
{
    t = t.trimmed();
    bool ok = false;
    qint64 n = 0;
    if (t.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) {
        t = t.mid(2);
        if (t.endsWith(QLatin1Char('&')))
            t.chop(1);
        n = t.toLongLong(&ok, 16);
    } else {
        n = t.toLongLong(&ok, 10);
    }
    if (!ok)
        return std::nullopt;
    return n;
}

// System colour indexes as the old settings files hold them, mapped to the palette.
std::optional<QPalette::ColorRole> papelDoSistema(quint32 indice)
{
    switch (indice) {
    case 0x01: case 0x04: return QPalette::Window;           // desktop, menu
    case 0x05: return QPalette::Base;                        // window background
    case 0x07: case 0x08: return QPalette::WindowText;       // menu and window text
    case 0x0D: return QPalette::Highlight;
    case 0x0E: return QPalette::HighlightedText;
    case 0x0F: return QPalette::Button;                      // button face
    case 0x10: return QPalette::Mid;                         // button shadow
    case 0x11: return QPalette::PlaceholderText;             // grey text
    case 0x12: return QPalette::ButtonText;
    case 0x14: return QPalette::Light;                       // button highlight
    case 0x17: return QPalette::ToolTipText;
    case 0x18: return QPalette::ToolTipBase;
    default: return std::nullopt;
    }
}

QPalette paletaSistema()
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return QGuiApplication::palette();
    return QPalette(QColor(0xF0, 0xF0, 0xF0));
}

QColor cor(const QString& texto, const QColor& padrao)
{
    if (texto.trimmed().isEmpty())
        return padrao;
    return CorDoNumero(texto).value_or(padrao);
}

} // namespace

QColor CorBotaoSistema()
{
    return paletaSistema().color(QPalette::Button);
}

std::optional<QColor> CorDoNumero(const QString& texto)
{
    const auto n = numeroClassico(texto);
    if (!n)
        return std::nullopt;
    // The old program stored the numbers as signed 32-bit values: system colours are negative.
    if (*n < INT32_MIN || *n > UINT32_MAX)
        return std::nullopt;
    const quint32 v = quint32(*n);
    if (v & 0x80000000u) {
        const auto papel = papelDoSistema(v & 0x7FFFFFFFu);
        if (!papel)
            return std::nullopt;
        return paletaSistema().color(*papel);
    }
    if (v > 0xFFFFFFu)
        return std::nullopt;
    return QColor(int(v & 0xFF), int((v >> 8) & 0xFF), int((v >> 16) & 0xFF));
}

QString NumeroDaCor(const QColor& c)
{
    const QColor rgb = c.toRgb();
    return QString::number((quint32(rgb.blue()) << 16) | (quint32(rgb.green()) << 8) | quint32(rgb.red()));
}

void CarregaCores(const QString& arquivoIni)
{
    Sessao& s = sessao();
    s.CorFundo = cor(LeIni(SecaoCores, QStringLiteral("0"), arquivoIni), CorBotaoSistema());
    s.CorCampo = cor(LeIni(SecaoCores, QStringLiteral("1"), arquivoIni), *CorDoNumero(QString::number(CorCampoPadrao)));
}

void CarregaCores()
{
    const QString ini = sessao().ArquivoIni.isEmpty() ? Local::arquivoIni() : sessao().ArquivoIni;
    CarregaCores(ini);
}
