#pragma once
#include <QString>
#include <memory>

#include "data/ConfigBanco.h"

class QWidget;
class TravaExclusiva;

// The store to this one screen: the program's other screens close through their own
// leave question, then every connection; nobody else may be connected. The connections
// open again when the object goes.
class AcessoExclusivo {
public:
    enum class Falha { Nenhuma, TelaAberta, OutrosUsando };

    static std::unique_ptr<AcessoExclusivo> tomar(QWidget* tela, const ConfigBanco& config, Falha* falha,
                                                  QString* detalhe = nullptr);
    ~AcessoExclusivo();
    AcessoExclusivo(const AcessoExclusivo&) = delete;
    AcessoExclusivo& operator=(const AcessoExclusivo&) = delete;

    // The three lines told when someone else is in; `primeira` names what failed.
    static QString mensagemOcupado(const QString& primeira);

private:
    AcessoExclusivo() = default;
    std::unique_ptr<TravaExclusiva> m_trava;
};
