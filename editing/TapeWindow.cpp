#include "editing/TapeWindow.h"
#include "foundation/controls/DisplayLabel.h"

namespace TapeWindow {
DisplayLabel* Make(QWidget* parent, const QString& objectName)
{
    auto* window = new DisplayLabel(parent);
    window->setObjectName(objectName);
    window->SetColors(QColor(10, 12, 18), QColor(255, 255, 192));
    window->SetAlignment(Qt::AlignCenter);
    QFont type(QStringLiteral("DejaVu Sans"));
    type.setBold(true);
    window->SetTextFont(type);
    window->SetTypeHeight(0.42);
    return window;
}
}
