#include "support/Photograph.h"
#include <QDir>
#include <QPixmap>
#include <QWidget>

bool Photograph(QWidget* widget, const QString& name)
{
    const QString folder = QStringLiteral(KORVANE_SCREENSHOTS_DIR);
    QDir().mkpath(folder);
    return widget->grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}
