#pragma once

class QApplication;

// The look of the workstation: a dark studio palette with amber accents, large clear type
// and buttons that read at a glance under studio light.
namespace Theme {
void Apply(QApplication& app);
}
