#pragma once
#include <QPixmap>
#include <QSize>
#include <QString>

// The pictures of the channel-running lamp, drawn in code on a transparent ground: "IPlayOff",
// "IPlayOn" (a play arrow), "IRecOff", "IRecOn" (a record dot); the lit ones glow. An
// unknown name gives an empty picture.
namespace PipePictures {
QPixmap Picture(const QString& name, const QSize& size);
}
