#include "BenchExemplo.h"

#include <QTemporaryDir>

#include "data/Banco.h"
#include "maintenance/GeradorDados.h"

void medeExemplo(QList<Medida>& m)
{
    auto novoBanco = [](const QTemporaryDir& dir) {
        ConfigBanco c;
        c.pasta = dir.path();
        c.criarSeNaoExistir = true;
        auto b = Banco::abrir(c);
        b->garantirEsquema();
        return b;
    };
    m << mede("Loja de exemplo: montar do zero (SQLite)", 2000, QStringList(5, QString()),
              [&](const QString&) {
                  QTemporaryDir dir;
                  auto b = novoBanco(dir);
                  GeradorDados::lojaExemplo(*b, QDate::currentDate());
                  return int(b->escalar("SELECT COUNT(*) FROM OrdemServico").toLongLong());
              },
              [&](const QString&) {
                  QTemporaryDir dir;
                  novoBanco(dir);
                  return -1;
              });
}
