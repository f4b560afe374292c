#include "orders/TelasOrdem.h"

#include "data/Sessao.h"

namespace TelasOrdem {

bool abreCompleta() { return Sessao::verdadeiro(sessao().CfgOSAbreCompleta); }

QString novaOrdem() { return daOrdem(QStringLiteral("OrdemServicoEntrada")); }

QString daOrdem(const QString& separada) { return abreCompleta() ? Completa : separada; }

}
