#pragma once
#include <QString>
#include <functional>
#include <optional>

class QWidget;

// How the browsers ask the user for a cart ID with the station's cart ID dialog, which is
// built above them (it shows browsers itself). The program installs the asker at start-up;
// tests install their own. Without an asker every question is refused with an ERROR line.
namespace CartIDQuestion {
enum class Kind { Open, Save };

struct Request
{
    Kind kind = Kind::Open;
    // Which kinds of cart are offered: 1 sounds, 2 macros, 4 controls, added together.
    qint32 cartFilter = 7;
    // The ID shown when the dialog opens.
    QString cartID;
    // The form the dialog shows over.
    QWidget* parent = nullptr;
};

// The chosen ID, or nothing when the user cancelled.
using Asker = std::function<std::optional<QString>(const Request& request)>;

// Installs the asker for the whole process and returns the previous one.
Asker Install(Asker asker);
// The chosen ID; nothing when cancelled, when the answer is empty or when no asker is installed.
std::optional<QString> Ask(const Request& request);
}
