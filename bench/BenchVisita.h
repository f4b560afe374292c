#pragma once
#include <QList>

#include "Medidor.h"

class Banco;

// House calls on the filled store (50,000 visits, two parts each, filled inside the
// engine): opening the screen, loading a visit with its parts into it, and saving one
// through the screen. Needs the screens' connections configured.
void medeVisitas(Banco& banco, QList<Medida>& medidas);
