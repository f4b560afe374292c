#pragma once
#include "ui/TelaPesquisa.h"

// Every solution of the knowledge base in one list, by brand; the choice opens the
// defect register on that row.
class PesquisaDefeito : public TelaPesquisa {
    Q_OBJECT
public:
    explicit PesquisaDefeito(QWidget* pai = nullptr);
};
