#pragma once

class QPropertyAnimation;
class QWidget;

// Shows a screen with the short opening effect the users know: the window grows from
// its middle to its size in `passos` steps of `pausaMs` milliseconds each (the screens
// use 10 and 1, which the system's timer stretches to about a tenth of a second).
// A maximized, minimized or full-screen window is shown as it is, and so is every
// window when there is no screen to look at (offscreen), so tests never wait.
// A window never placed by its caller is first centred over its parent or the screen.
// Gives the running animation, or nullptr when the window was shown at once.
QPropertyAnimation* AnimaForm(QWidget* form, int passos = 10, int pausaMs = 1);

// For tests of the effect itself: animate even without a screen.
void AnimaFormSempre(bool sempre);
