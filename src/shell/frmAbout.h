#pragma once
#include <QDialog>

// "Sobre": the program's name and version, the maker's contact and what the system runs on.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* pai = nullptr);

    static QString textoVersao();   // "Versão 3.1.0"
    static QString infoSistema();   // Qt, the system and the machine

private:
    void mostrarInfo();
};
