#pragma once
#include <QString>
#include <QtGlobal>

// What the status of a playlist shows, without widgets: a picture key and a word for each of
// the five states (loaded, playing, modified, chained, autoclose), from the list's flags; and
// the counter of the playlist manager. A missing list shows every state "off".
namespace PlayListStatusTable {
enum Line : int { Loaded, Playing, Modified, Chained, AutoClose, LineCount };

struct Facts
{
    bool hasList = false;
    qint32 loadState = 0;
    qint32 playState = 0;
    bool modified = false;
    bool chained = false;
    bool autoClose = false;
};

struct Shown
{
    QString icon; // "STATUS_LOADED", "STATUS_UNLOADED", ...
    QString word; // the English word, translated where it is shown
};

Shown Show(const Facts& facts, Line line);
// The keys of the pictures, in a fixed order: every key of the manager and the status strip.
QStringList Keys();

// The manager's counter: "-" without lists, "place / count" with a list selected (place from
// 1), else the count.
QString CounterText(int count, int selectedPlace);
}
