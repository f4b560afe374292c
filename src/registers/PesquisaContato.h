#pragma once
#include "ui/TelaPesquisa.h"

// The whole agenda in one list by name; the choice opens the agenda on that contact.
class PesquisaContato : public TelaPesquisa {
    Q_OBJECT
public:
    explicit PesquisaContato(QWidget* pai = nullptr);
};
