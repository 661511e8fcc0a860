#pragma once
#include <QString>

// One row of a browser list. The key says what the row is (a cart or family ID, "Blank",
// "Ghost", an ID followed by "_Blank" for the rows around a separator); the icon key names its
// picture. Texts are implicitly shared, so equal texts of many rows cost one copy.
struct BrowserRow
{
    QString key;
    QString icon;
    QString text;  // the first column
    QString sub1;  // a cart's time, a family's description
    QString sub2;  // a cart's description
    qint32 ms = 0; // a cart's time in ms, for adding up and sorting
    bool heading = false; // a separator's own row, drawn in bold
};
