#pragma once
#include <QPixmap>
#include <QString>

// The keys of the kernel panel, drawn in code over the transport panels' KeyPicture: a sign
// ("Refresh" a turning arrow, "Import" an arrow falling into a tray, "Shout" a loudspeaker
// horn) and, where the key is wide enough, its caption beside the sign. An unknown sign gives
// a null picture.
namespace KernelButtonPictures {
QPixmap Picture(const QString& sign, const QString& caption, const QSize& size, bool down);
}
