#pragma once
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

// The pictures of the playlist controls, drawn in code.
//
// Row pictures of the grid ("WHITESPACE", "PLAYING", "GHOST", "BLANK", "NEXT", "MODIFIED",
// "IGNORED", "LOOPED", "SOUND", "MACRO", "ACTION", "UNKNOWN") are small icons drawn once per
// key and shared by every row; the cart kinds and the ghost are the browsers' own, so a cart
// looks the same in a browser and in a list.
//
// Status pictures ("STATUS_PLAYING", "STATUS_STOPPED", "STATUS_LOADED", "STATUS_UNLOADED",
// "STATUS_MODIFIED", "STATUS_UNMODIFIED", "STATUS_CHAINED", "STATUS_NOT_CHAINED",
// "STATUS_AUTOCLOSE", "STATUS_NOT_AUTOCLOSE") are round lamps, lit for the "on" state and
// dark for the "off" one, drawn at any size. Unknown keys give null pictures.
namespace PlayListPictures {
QStringList RowKeys();
const QIcon& RowIcon(const QString& key);
QPixmap StatusPicture(const QString& key, int side);
// The clock shown beside a list that waits for its start time.
QPixmap WaitPicture(int side);
}
