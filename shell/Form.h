#pragma once
#include <QList>
#include <QPointer>
#include <QWidget>

// A screen or window of the workstation. Every form is in the open-forms collection from its
// creation to its destruction, under its name. Form_Load runs at the first show; Unload
// closes the form, runs Form_Unload and deletes it.
class Form : public QWidget
{
    Q_OBJECT
public:
    explicit Form(const QString& name, QWidget* parent = nullptr);
    ~Form() override;

    void Unload();

    // The open forms, in the order of their creation; a form that has unloaded is not open.
    static QList<Form*> OpenForms();
    // The open form of that name (case-sensitive), or null.
    static Form* Find(const QString& name);

protected:
    virtual void Form_Load() {}
    // Asked before the form closes; false keeps it open.
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}
    // The way back from a screen: shows the menu form again.
    void ReturnToMenu();

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_loaded = false;
    bool m_unloaded = false; // closed and waiting for its deletion
};
