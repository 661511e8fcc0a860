#pragma once
#include <QString>
#include <QtGlobal>

// What a pad shows, apart from the widgets: which labels are on show in each mode, their
// texts, and the picture of its icon. The pad fills a Cart from its kernel cart and applies the
// Face it gets; the table reads as one and is checked on its own.
namespace PadFace {
enum Mode : qint32 { SingleLine = 0, Pad = 1 };

// The facts of the cart on a pad; loaded false for a free pad.
struct Cart
{
    bool loaded = false;
    qint32 type = -1;
    QString id;
    QString title;
    QString comment;
    qint32 time = 0;
};

struct Face
{
    bool description1Visible;
    bool description2Visible;
    bool commentVisible;
    bool shortcutVisible;
    bool timeVisible;
    bool iconVisible;
    QString description1;
    QString description2;
    QString comment;
    QString shortcut;
    QString time;
    QString toolTip;
    // The key of the icon's picture: "SOUND", "MACRO", "ACTION", "UNKNOWN" or "BLANK".
    QString icon;
};

// The picture key of a cart type: 0 sound, 1 macro, 2 control; anything else is unknown.
QString IconKey(qint32 type);
// notLoaded is the translated "Not Loaded".
Face Make(Mode mode, const Cart& cart, const QString& shortcut, const QString& notLoaded);
}
