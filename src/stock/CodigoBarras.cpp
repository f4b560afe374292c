#include "stock/CodigoBarras.h"

#include <zint.h>

#include <memory>

namespace CodigoBarras {

namespace {

QImage falha(QString* erro, const QString& motivo)
{
    if (erro)
        *erro = motivo;
    return QImage();
}

// The bars of `dados` in `simbologia`; a null image and zint's refusal as `recusa`.
QImage desenha(int simbologia, const QByteArray& dados, float escala, float altura, bool comTexto,
               const QString& recusa, QString* erro)
{
    std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> s(ZBarcode_Create(), ZBarcode_Delete);
    if (!s)
        return falha(erro, QStringLiteral("Sem memória para o código de barras."));
    s->symbology = simbologia;
    s->scale = escala;
    s->height = altura;
    s->show_hrt = comTexto ? 1 : 0;
    if (ZBarcode_Encode_and_Buffer(s.get(), reinterpret_cast<const unsigned char*>(dados.constData()),
                                   int(dados.size()), 0) >= ZINT_ERROR)
        return falha(erro, recusa);
    QImage img(s->bitmap_width, s->bitmap_height, QImage::Format_RGB888);
    for (int y = 0; y < s->bitmap_height; ++y)
        memcpy(img.scanLine(y), s->bitmap + size_t(y) * s->bitmap_width * 3, size_t(s->bitmap_width) * 3);
    return img;
}

} // namespace

QImage ean13(const QString& codigo, QString* erro)
{
    const QString t = codigo.trimmed();
    if (t.isEmpty())
        return falha(erro, QStringLiteral("Sem código de barras."));
    for (QChar c : t)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return falha(erro, QStringLiteral("O código EAN13 tem só números."));
    if (t.size() != 12 && t.size() != 13)
        return falha(erro, QStringLiteral("O código EAN13 tem 13 números."));
    // A bar two pixels wide: read by a scanner from the screen. The last digit is the check
    // of the other twelve: a refused code is a mistyped one.
    return desenha(BARCODE_EANX, t.toLatin1(), 2.0f, 22, true,
                   QStringLiteral("Código EAN13 inválido: confira o dígito verificador."), erro);
}

QImage code128(const QString& texto, QString* erro)
{
    const QString t = texto.trimmed();
    if (t.isEmpty())
        return falha(erro, QStringLiteral("Sem código de barras."));
    return desenha(BARCODE_CODE128, t.toLatin1(), 1.0f, 40, false,
                   QStringLiteral("O texto \"%1\" não cabe num código de barras.").arg(t), erro);
}

}
