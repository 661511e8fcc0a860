#include "shell/FormPlacement.h"
#include "foundation/Globals.h"
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace FormPlacement {
void CenterForm(const QWidget& reference, QWidget& form)
{
    form.move((reference.width() - form.width()) / 2, (reference.height() - form.height()) / 2);
}

void FitForm(QWidget& form, const QWidget& reference)
{
    form.resize(reference.size());
    const QSize screen = QGuiApplication::primaryScreen()->size();
    form.move((screen.width() - form.width()) / 2, (screen.height() - form.height()) / 2);
}

void SizeToResolution(QWidget& form)
{
    const auto& station = Globals::TheStation();
    form.resize(int(station.ResolutionX), int(station.ResolutionY));
}
}
