#pragma once
#include "foundation/ui/Dialogs.h"
#include "shell/Form.h"

// The form that is never shown: it owns the popup menus that other screens open (the colour
// editing menu and the menu of actions on a sound). Its texts are translated when it loads.
class MenuForm : public Form
{
    Q_OBJECT
public:
    static MenuForm* Instance();

    // Shows the colour menu; afterwards UMColorsIndex and UMColorsChosen tell what was clicked.
    void PopupColors(const QPoint& globalPos);
    int UMColorsIndex = -1;
    bool UMColorsChosen = false;

    // Shows the actions on a sound; the result is the item's name ("ActionOnSoundPlayAll",
    // "ActionOnSoundRecalculateFast", ...) or empty when nothing or Cancel was chosen.
    QString PopupActionOnSound(const QPoint& globalPos);

    QVector<Dialogs::PopupLine> UMColorsLines() const;
    QVector<Dialogs::PopupLine> ActionOnSoundLines() const;

private:
    MenuForm();
};
