#pragma once

class QWidget;

// Placing screens of modest size.
namespace FormPlacement {
// Centres a form on a reference: left = (reference width - form width) / 2, top likewise.
void CenterForm(const QWidget& reference, QWidget& form);
// Gives the form the reference's size and centres it on the screen.
void FitForm(QWidget& form, const QWidget& reference);
// Sizes a form to the station's working resolution.
void SizeToResolution(QWidget& form);
}
