#include "onair/PadFace.h"
#include "foundation/Strings.h"

namespace PadFace {
QString IconKey(qint32 type)
{
    switch (type) {
    case 0: return QStringLiteral("SOUND");
    case 1: return QStringLiteral("MACRO");
    case 2: return QStringLiteral("ACTION");
    default: return QStringLiteral("UNKNOWN");
    }
}

Face Make(Mode mode, const Cart& cart, const QString& shortcut, const QString& notLoaded)
{
    const bool pad = mode == Pad;
    Face face{};
    face.description1Visible = !pad && cart.loaded;
    face.description2Visible = pad;
    face.commentVisible = pad;
    face.shortcutVisible = pad;
    face.timeVisible = pad;
    face.iconVisible = true;
    face.shortcut = shortcut;
    if (!cart.loaded) {
        face.description1 = notLoaded;
        face.icon = QStringLiteral("BLANK");
        return face;
    }
    // The single line has room for the ID before the title; a pad shows the title large and
    // keeps the ID for its tool tip.
    face.description1 = cart.id + QStringLiteral("  ") + cart.title;
    face.description2 = cart.title;
    face.comment = cart.comment;
    face.time = MsToHuman(cart.time);
    face.toolTip = cart.id + QStringLiteral(" - ") + cart.title;
    face.icon = IconKey(cart.type);
    return face;
}
}
