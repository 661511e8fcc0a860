#include "shell/FindForm.h"
#include "shell/Form.h"

Form* FindForm(const QString& name)
{
    return Form::Find(name);
}
