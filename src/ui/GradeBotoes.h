#pragma once
#include <QList>
#include <QStringList>

class QGridLayout;
class QPushButton;
class QWidget;

// A screen's button array Botao(0..n-1), laid out in rows of `porLinha` under the work.
namespace GradeBotoes {
QList<QPushButton*> criar(QWidget* tela, const QStringList& legendas, int porLinha, QGridLayout** grade);
}
