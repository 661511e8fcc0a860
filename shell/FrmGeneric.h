#pragma once
#include "shell/Form.h"
#include <QRect>
#include <QVariant>
#include <functional>

class QPushButton;
class QTimer;

// A screen without fixed content: generic.ini lists the controls to create, by class, name
// and rectangle. One control is created per tick of Loader (50 ms), so the screen stays alive
// while heavy controls come up, with the message window telling what is being created. When
// the list ends the controls of fixed names are connected: the disc controller's UnitChanged
// reaches the ripper, the file-system monitor and the disc controller are started.
//
// generic.ini is read from the program's folder, or from the file that KORVANE_GENERIC_INI
// names. Sections: [Plugins] Plugin_0, Plugin_1... (the first empty one ends the list); one
// section per plug-in with Class (registered as "Korvane_Interface." + Class), Left, Top,
// Width, Height in twips, and Query=yes to ask the user for the rectangle instead.
class FrmGeneric : public Form
{
    Q_OBJECT
public:
    FrmGeneric();

    static QString IniPath();

    // One step of the loader: creates the next control or, at the end of the list, connects
    // the components and stops.
    void Loader_Timer();
    // Creates the next control of the list and gives true, or connects the components and
    // gives false when the list has ended.
    bool LoadNextControl();
    void AddControl(const QString& pluginName, const QString& file);

    QTimer* Loader;
    QPushButton* CmdExit;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void ConnectComponents();
    void Connect(const QString& step, const std::function<void()>& body);
    QWidget* Control(const QString& name) const;
    // The rectangle in twips: asked for when Query is "yes", else from the four keys.
    QRect Rectangle(const QString& pluginName, const QString& file) const;
    void Place(QWidget* control, const QRect& twips);
    void ApplyFixedSettings(const QString& pluginName, QWidget* control);
    static void SetFixed(QWidget* control, const char* property, const QVariant& value);
    static void Invoke(QWidget* control, const char* method);
    void ShowProgress(bool show);
    static void Message(const QString& text);

    QString m_file;
    int m_next = 0; // the n of the next Plugin_n
    bool m_firstTick = true;
    bool m_unloading = false;
    bool m_progressShown = false;
};
