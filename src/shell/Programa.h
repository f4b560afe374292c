#pragma once
#include <functional>

// Ending the program at once, as the fourth wrong password and a second copy of the
// program do: no closing questions, nothing saved. Tests put their own ending in place.
namespace Programa {
void encerrar();
void definirEncerramento(std::function<void()> acao);  // an empty function restores the default
}
