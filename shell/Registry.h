#pragma once
#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

// Factories of forms and controls by name: screens by their menu name ("PasswordForm"),
// controls by their class name ("Korvane_Interface.IFMenu"). Unknown names give null.
namespace Registry {
using Factory = std::function<QWidget*(QWidget* parent)>;

void Register(const QString& name, Factory factory);
bool Has(const QString& name);
QWidget* Create(const QString& name, QWidget* parent = nullptr);
QStringList Names();

// Registers every form and control of the shell; called once by Main.
void RegisterShell();
}
