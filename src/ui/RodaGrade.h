#pragma once

class QAbstractItemView;
class QWidget;

// The wheel on search screens. Grids scroll with the wheel by themselves when the
// pointer is over them; users of the search screens also turn it with the pointer over
// the search box or the options, and expect the list to move. ConectaRoda sends every
// wheel turn that nothing else on the form used to the form's grid; DesconectaRoda
// (or the form's own end) stops it.
void ConectaRoda(QWidget* form, QAbstractItemView* grade);
void DesconectaRoda(QWidget* form);
