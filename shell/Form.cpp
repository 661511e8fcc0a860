#include "shell/Form.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include "foundation/ui/SilenceDescendants.h"
#include <QCloseEvent>

namespace {
// Never destroyed: forms may still be deleted while the process's statics go away.
QList<QPointer<Form>>& Registry()
{
    static auto* forms = new QList<QPointer<Form>>;
    return *forms;
}
}

Form::Form(const QString& name, QWidget* parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    Registry().append(this);
}

Form::~Form()
{
    SilenceDescendants(*this);
    Registry().removeAll(this);
    Registry().removeAll(nullptr);
}

void Form::Unload()
{
    close();
}

QList<Form*> Form::OpenForms()
{
    QList<Form*> forms;
    for (const auto& form : Registry())
        if (form && !form->m_unloaded)
            forms.append(form);
    return forms;
}

Form* Form::Find(const QString& name)
{
    for (Form* form : OpenForms())
        if (form->objectName() == name)
            return form;
    return nullptr;
}

void Form::ReturnToMenu()
{
    if (CInterface* ui = modInterface::Interface())
        ui->ShowMenu();
}

void Form::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) {
        m_loaded = true;
        Form_Load();
    }
}

void Form::closeEvent(QCloseEvent* event)
{
    if (!Form_QueryUnload()) {
        event->ignore();
        return;
    }
    event->accept();
    m_unloaded = testAttribute(Qt::WA_DeleteOnClose);
    Form_Unload();
}
